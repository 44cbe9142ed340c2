#include "desktop/DesktopStyle.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionMenuItem>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace quorrin {

namespace {

/// The outlines of the style are darker than the window. On a black one, as themes of high contrast have it, they would
/// not show, and the text's colour takes their place, twice around what is held down.
void drawOutlineOnBlack(QPainter& painter, const QStyleOption& option, bool isDown = false)
{
    constexpr double black = 0.08;
    if (option.palette.window().color().lightnessF() > black)
        return;
    painter.save();
    painter.setPen(option.palette.color(QPalette::WindowText));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
    if (isDown)
        painter.drawRect(option.rect.adjusted(2, 2, -3, -3));
    painter.restore();
}

} // namespace

DesktopStyle::DesktopStyle() : QProxyStyle(QStringLiteral("Fusion"))
{}

void DesktopStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const
{
    constexpr PrimitiveElement outlined[] = {PE_IndicatorCheckBox, PE_PanelButtonCommand, PE_PanelLineEdit, PE_Frame,
                                             PE_FrameGroupBox,     PE_FrameTabWidget};
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (std::find(std::begin(outlined), std::end(outlined), element) != std::end(outlined))
        drawOutlineOnBlack(*painter, *option,
                           element == PE_PanelButtonCommand && (option->state & (State_On | State_Sunken)));
}

void DesktopStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                      const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox)
        drawOutlineOnBlack(*painter, *option);
}

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
