#pragma once

#include "toolkit/Controls.h"

#include <QAccessible>
#include <QWidget>

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
    void drawFocusFrame(QPainter& painter, const QRect& frame) const;

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

    MouseControl& control_;
    bool byKeyboard_ = false;
    /// Space is down, and with it the button.
    bool keyDown_ = false;
};

} // namespace quorrin
