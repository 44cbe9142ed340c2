#pragma once

#include <QProxyStyle>

namespace quorrin {

/// The one look of the program on every desktop: its windows have fixed sizes, which no other style is known to fit.
class DesktopStyle : public QProxyStyle {
public:
    DesktopStyle();

    /// The text of all controls, in pixels, and that of tabs.
    static constexpr int textSize = 12;
    static constexpr int tabTextSize = 11;
    /// Menus that bear this property show their pictures at this size instead of as small icons.
    static constexpr auto pictureMenu = "pictureMenu";
    static constexpr int menuPictureSize = 32;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
};

/// Makes the text of a widget small enough for `width` pixels.
void fitText(QWidget& widget, const QString& text, int width);

} // namespace quorrin
