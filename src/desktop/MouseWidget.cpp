#include "desktop/MouseWidget.h"

#include "desktop/LastResort.h"
#include "desktop/MenuViews.h"

#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollArea>
#include <QToolTip>

#include <cmath>

namespace quorrin {

namespace {

/// What a screen reader finds: the role, and a press as the thing to do.
class MouseWidgetAccess : public QAccessibleWidget {
public:
    explicit MouseWidgetAccess(MouseWidget& widget) : QAccessibleWidget(&widget, widget.Role), widget_(widget) {}

    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (canBePressed())
            names.prepend(pressAction());
        return names;
    }
    void doAction(const QString& name) override
    {
        if (name != pressAction())
            QAccessibleWidget::doAction(name);
        else if (canBePressed())
            widget_.PressByKeyboard();
    }

private:
    bool canBePressed() const { return widget_.isEnabled() && widget_.focusPolicy() != Qt::NoFocus; }
    MouseWidget& widget_;
};

QAccessibleInterface* accessTo(const QString&, QObject* object)
{
    auto* widget = dynamic_cast<MouseWidget*>(object);
    return widget ? new MouseWidgetAccess(*widget) : nullptr;
}

/// The pixel under the mouse.
QPoint pixelOf(const QMouseEvent& event)
{
    return {static_cast<int>(std::floor(event.position().x())), static_cast<int>(std::floor(event.position().y()))};
}

} // namespace

MouseWidget::MouseWidget(MouseControl& control, QAccessible::Role role, QWidget* parent)
    : QWidget(parent), Role(role), control_(control)
{
    static const bool installed = [] {
        QAccessible::installFactory(accessTo);
        return true;
    }();
    static_cast<void>(installed);
    if (control.AnswersMouse() || control.HasContextualMenu())
        setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(control.AnswersMouse());
}

bool MouseWidget::answersAt(QPoint place) const
{
    return isEnabled() && control_.AnswersMouse() && !areaAt(place).isEmpty();
}

void MouseWidget::refreshPointer()
{
    // A control on which one draws has a pointer of its own.
    if (!control_.AnswersDrag())
        setCursor(mousePlace_ && answersAt(*mousePlace_) ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void MouseWidget::setMousePlace(std::optional<QPoint> place)
{
    const auto area = [this](const std::optional<QPoint>& at) { return at ? areaAt(*at) : QRect(); };
    const bool leadsOn = area(std::exchange(mousePlace_, place)) != area(place);
    refreshPointer();
    if (leadsOn)
        update();
}

bool MouseWidget::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    // The text goes when the mouse leaves the area that it tells of.
    QToolTip::showText(help->globalPos(), tipAt(help->pos()), this, areaAt(help->pos()));
    return true;
}

void MouseWidget::enterEvent(QEnterEvent* event)
{
    setMousePlace(event->position().toPoint());
    QWidget::enterEvent(event);
}

void MouseWidget::leaveEvent(QEvent* event)
{
    setMousePlace({});
    QWidget::leaveEvent(event);
}

void MouseWidget::PressByKeyboard()
{
    const QPoint place = keyboardPlace();
    press(place);
    release(place);
}

void MouseWidget::press(QPoint place, bool contextual)
{
    guarded([&] { control_.Press(place.x(), place.y(), contextual); });
}

void MouseWidget::drag(QPoint place)
{
    guarded([&] { control_.Drag(place.x(), place.y()); });
}

void MouseWidget::release(QPoint place)
{
    guarded([&] { control_.Release(place.x(), place.y()); });
    pointedAt(place);
}

void MouseWidget::drawFocusFrame(QPainter& painter, const QRect& frame) const
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette().highlight(), 2, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(frame.adjusted(1, 1, -1, -1));
}

void MouseWidget::mousePressEvent(QMouseEvent* event)
{
    byKeyboard_ = false;
    update();
    if (event->button() == Qt::LeftButton)
        press(pixelOf(*event));
    else if (event->button() == Qt::RightButton && control_.HasContextualMenu())
        press(pixelOf(*event), true);
}

void MouseWidget::mouseMoveEvent(QMouseEvent* event)
{
    setMousePlace(pixelOf(*event));
    if (event->buttons() & Qt::LeftButton)
        drag(pixelOf(*event));
    else
        pointedAt(pixelOf(*event));
}

void MouseWidget::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        release(pixelOf(*event));
}

void MouseWidget::contextMenuEvent(QContextMenuEvent* event)
{
    // The press and the key have shown the menu already.
    event->accept();
}

/// On a screen too small for the window, brings a place on a large canvas into view.
void MouseWidget::scrollTo(QPoint place) const
{
    for (QWidget* widget = parentWidget(); widget; widget = widget->parentWidget())
        if (auto* area = qobject_cast<QScrollArea*>(widget)) {
            const QPoint inContent = mapTo(area->widget(), place);
            area->ensureVisible(inContent.x(), inContent.y());
        }
}

bool MouseWidget::moveByKey(int key)
{
    const QPoint direction = key == Qt::Key_Left    ? QPoint(-1, 0)
                             : key == Qt::Key_Right ? QPoint(1, 0)
                             : key == Qt::Key_Up    ? QPoint(0, -1)
                             : key == Qt::Key_Down  ? QPoint(0, 1)
                                                    : QPoint();
    if (direction.isNull())
        return false;
    moveKeyboardPlace(direction);
    scrollTo(keyboardPlace());
    if (keyDown_)
        drag(keyboardPlace());
    else
        pointedAt(keyboardPlace());
    return true;
}

void MouseWidget::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const PopUpPlace here(mapToGlobal(keyboardPlace()));
    if (key == Qt::Key_Space && control_.AnswersMouse()) {
        if (!event->isAutoRepeat() && !std::exchange(keyDown_, true))
            press(keyboardPlace());
    } else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && control_.AnswersMouse() && !control_.AnswersDrag()) {
        // Where one draws, a click does nothing, and Return is for the window's button.
        PressByKeyboard();
    } else if ((key == Qt::Key_Menu || (key == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier))
               && control_.HasContextualMenu()) {
        press(keyboardPlace(), true);
    } else if (!moveByKey(key)) {
        QWidget::keyPressEvent(event);
        return;
    }
    byKeyboard_ = true;
    update();
}

void MouseWidget::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || event->isAutoRepeat())
        return QWidget::keyReleaseEvent(event);
    const PopUpPlace here(mapToGlobal(keyboardPlace()));
    if (std::exchange(keyDown_, false))
        release(keyboardPlace());
}

void MouseWidget::focusInEvent(QFocusEvent* event)
{
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        byKeyboard_ = true;
    if (event->reason() != Qt::MouseFocusReason)
        pointedAt(keyboardPlace());
    QWidget::focusInEvent(event);
}

void MouseWidget::focusOutEvent(QFocusEvent* event)
{
    keyDown_ = false;
    QWidget::focusOutEvent(event);
}

} // namespace quorrin
