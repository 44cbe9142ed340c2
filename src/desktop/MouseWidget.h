#pragma once

#include "toolkit/Controls.h"

#include <QAccessible>
#include <QWidget>

#include <optional>

namespace quorrin {

/// A widget that hands mouse and keyboard to a canvas or rectangle. The keyboard presses at a place of its own, which
/// the arrow keys may move.
class MouseWidget : public QWidget {
public:
    /// What a screen reader takes it for.
    const QAccessible::Role Role;
    /// A click at the keyboard's place.
    void PressByKeyboard();
    /// Whether the person goes about by keyboard and is here.
    bool ShowsFocus() const { return hasFocus() && byKeyboard_; }

protected:
    MouseWidget(MouseControl& control, QAccessible::Role role, QWidget* parent);

    virtual QPoint keyboardPlace() { return rect().center(); }
    virtual void moveKeyboardPlace(QPoint direction) { static_cast<void>(direction); }
    /// The mouse or the keyboard has come to a place.
    virtual void pointedAt(QPoint place) { static_cast<void>(place); }
    /// The area around a place that one click means; the whole widget unless it has several.
    virtual QRect areaAt(QPoint place) const { return static_cast<void>(place), rect(); }
    /// Whether a click at a place does anything now.
    virtual bool answersAt(QPoint place) const;
    /// What to tell while the mouse rests at a place.
    virtual QString tipAt(QPoint place) const { return static_cast<void>(place), toolTip(); }
    /// Where the mouse is, nothing while it is elsewhere.
    std::optional<QPoint> mousePlace() const { return mousePlace_; }
    /// Lets the pointer show whether a click would do anything; to be called when that may have changed.
    void refreshPointer();
    void drawFocusFrame(QPainter& painter, const QRect& frame) const;

    bool event(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void press(QPoint place, bool contextual = false);
    void drag(QPoint place);
    void release(QPoint place);
    bool moveByKey(int key);
    void scrollTo(QPoint place) const;
    void setMousePlace(std::optional<QPoint> place);

    MouseControl& control_;
    bool byKeyboard_ = false;
    /// Space is down, and with it the button.
    bool keyDown_ = false;
    std::optional<QPoint> mousePlace_;
};

} // namespace quorrin
