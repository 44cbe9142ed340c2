#pragma once

#include "../Fixture.h"

#include "desktop/DesktopPlatform.h"
#include "desktop/DesktopWindow.h"

#include <QApplication>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QtTest>

#include <functional>

/// Somebody who sits before a window and works it by mouse and keyboard, in the window's own pixels.
class Person {
public:
    explicit Person(quorrin::DesktopWindow& view) : view_(view) {}

    void click(int x, int y, Qt::MouseButton button = Qt::LeftButton) const
    {
        QWidget* widget = view_.Content()->childAt(x, y);
        QTest::mouseClick(widget, button, {}, widget->mapFrom(view_.Content(), QPoint(x, y)));
        QCoreApplication::processEvents();
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const
    {
        view_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view_));
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &view_, key, modifiers);
        QCoreApplication::processEvents();
    }
    static void type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }

private:
    quorrin::DesktopWindow& view_;
};

/// Deals once with the dialog or menu of a kind that comes up next.
template <typename Widget>
class Answer : public QTimer {
public:
    explicit Answer(std::function<void(Widget&)> answer)
    {
        callOnTimeout(this, [this, answer = std::move(answer)] {
            auto* open = QApplication::activePopupWidget();
            auto* widget = qobject_cast<Widget*>(open ? open : QApplication::activeModalWidget());
            if (!widget || !widget->isVisible())
                return;
            stop();
            ++count;
            answer(*widget);
        });
        start(1);
    }
    /// Whether it came.
    int count = 0;
};

/// The program on the screen, as it stands after its start.
class DesktopProgram : public testing::Test {
protected:
    DesktopProgram()
    {
        quorrin::Module1::gOpenFile = nullptr;
        quorrin::Module1::myPrinterSetup = nullptr;
        app.Event_Open();
        window.Event_Open();
        view.Open();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    template <typename W>
    static W& widgetOf(const quorrin::Control& control)
    {
        return *qobject_cast<W*>(static_cast<quorrin::WidgetView*>(control.View)->Widget());
    }

    TestFolder folder;
    quorrin::DesktopPlatform platform;
    quorrin::App app;
    quorrin::Window1 window;
    quorrin::DesktopWindow view{window};
    Person person{view};
};
