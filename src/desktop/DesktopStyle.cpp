#include "desktop/DesktopStyle.h"

#include <QFontMetrics>
#include <QStyleOptionMenuItem>
#include <QWidget>

namespace quorrin {

DesktopStyle::DesktopStyle() : QProxyStyle(QStringLiteral("Fusion"))
{}

int DesktopStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    if (metric == PM_SmallIconSize && widget && widget->property(pictureMenu).toBool())
        return menuPictureSize;
    // Close enough for five tools in one row of tabs.
    if (metric == PM_TabBarTabHSpace)
        return 16;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

/// Makes room for the pictures of a menu, which the style would let run into each other.
QSize DesktopStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                     const QWidget* widget) const
{
    QSize room = QProxyStyle::sizeFromContents(type, option, size, widget);
    const auto* entry = type == CT_MenuItem ? qstyleoption_cast<const QStyleOptionMenuItem*>(option) : nullptr;
    if (entry && !entry->icon.isNull())
        room.setHeight(qMax(room.height(), pixelMetric(PM_SmallIconSize, option, widget) + 2));
    return room;
}

int DesktopStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* returnData) const
{
    // A list with a scroll bar: a menu over the whole height of the screen is no way through 144 rows.
    if (hint == SH_ComboBox_Popup)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

void fitText(QWidget& widget, const QString& text, int width)
{
    constexpr int smallest = 8;
    QFont font = widget.font();
    font.setPixelSize(DesktopStyle::textSize);
    while (font.pixelSize() > smallest && QFontMetrics(font).size(Qt::TextShowMnemonic, text).width() > width)
        font.setPixelSize(font.pixelSize() - 1);
    widget.setFont(font);
}

} // namespace quorrin
