#include "Person.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

using namespace quorrin;

namespace {

/// A dialog of no program: the desktop shows any window.
class Dialog : public Window {
public:
    explicit Dialog(Kind kind = Kind::Modal) : Window(kind, "A [*] dialog", 300, 120) {}
    void Event_Open() override { opened = true; }
    bool Event_CancelClose(bool) override { return failsToClose ? throw IOException("full") : false; }
    void Opened() { timerRan = opened; }
    void Ok() { answer = Field.Text, Close(); }
    void Cancel() { answer = "cancelled", Close(); }
    void Fail() { throw OutOfBoundsException(7); }
    void Painted(Graphics&)
    {
        if (failsToPaint)
            throw NilObjectException();
    }
    bool Pressed(int x, int y) { return at = {x, y}, true; }
    void Dragged(int x, int y) { at = {x, y}; }
    void Ignore() {}

    Label Caption{surface(), {10, 10, 60, 20}, "&Name:"};
    TextField Field{surface(), {80, 10, 100, 22}, &Dialog::Ignore};
    CheckBox Failing{surface(), {10, 40, 100, 20}, "Fails", &Dialog::Fail};
    PopupMenu Rows{surface(), {80, 40, 100, 22}, {"a", "b"}, &Dialog::Fail};
    Canvas Area{
        surface(),
        {200, 10, 50, 50},
        MouseHandlers<Dialog>{.Paint = &Dialog::Painted, .MouseDown = &Dialog::Pressed, .MouseDrag = &Dialog::Dragged}};
    PushButton OkButton{surface(), {10, 90, 80, 22}, "Save && Close", &Dialog::Ok, PushButton::Role::Default};
    PushButton CancelButton{surface(), {100, 90, 80, 22}, "Cancel", &Dialog::Cancel, PushButton::Role::Cancel};
    Timer Start{this, 1, &Dialog::Opened};

    bool failsToPaint = false;
    bool failsToClose = false;
    bool opened = false;
    bool timerRan = false;
    std::string answer;
    std::pair<int, int> at;
};

class AnyWindow : public testing::Test {
protected:
    DesktopPlatform platform;
    Dialog dialog;

    static QWidget& widgetOf(const Control& control) { return *static_cast<WidgetView*>(control.View)->Widget(); }

    /// Shows the dialog to somebody who does this with it.
    std::string show(const std::function<void(DesktopWindow&)>& work)
    {
        QTimer poll;
        poll.callOnTimeout(&poll, [&] {
            // The dialog's own loop, not that of a message over it.
            if (!dialog.timerRan || QThread::currentThread()->loopLevel() != 1)
                return;
            poll.stop();
            work(*static_cast<DesktopWindow*>(dialog.View));
        });
        poll.start(1);
        dialog.ShowModal();
        EXPECT_EQ(dialog.View, nullptr);
        return dialog.answer;
    }
};

} // namespace

TEST_F(AnyWindow, IsADialogThatReturnAndEscapeEnd)
{
    EXPECT_EQ(show([](DesktopWindow& view) {
                  EXPECT_EQ(QApplication::focusWidget(), view.findChild<QLineEdit*>()) << "the first to be worked";
                  EXPECT_EQ(view.windowModality(), Qt::ApplicationModal);
                  EXPECT_FALSE(view.windowFlags() & Qt::WindowCloseButtonHint);
                  EXPECT_EQ(view.windowTitle(), "A [*][*] dialog[*]");
                  EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Name");
                  QTest::keyClicks(QApplication::focusWidget(), "12");
                  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
              }),
              "12");
    EXPECT_EQ(show([](DesktopWindow& view) { QTest::keyClick(&view, Qt::Key_Escape); }), "cancelled");
    EXPECT_EQ(show([](DesktopWindow& view) { view.close(); }), "cancelled") << "closing is what its Cancel does";
}

TEST_F(AnyWindow, HandsTheMouseToItsCanvases)
{
    show([this](DesktopWindow&) {
        QWidget& area = widgetOf(dialog.Area);
        QTest::mousePress(&area, Qt::LeftButton, {}, {3, 4});
        EXPECT_EQ(dialog.at, std::pair(3, 4));
        QMouseEvent drag(QEvent::MouseMove, QPointF(70.6, -2.5), QPointF(), QPointF(), Qt::NoButton, Qt::LeftButton,
                         {});
        QCoreApplication::sendEvent(&area, &drag);
        EXPECT_EQ(dialog.at, std::pair(70, -3)) << "the way leads on beyond the edge";
        QTest::mouseRelease(&area, Qt::LeftButton);
        area.setFocus();
        QTest::keyPress(&area, Qt::Key_Space); // in the middle
        EXPECT_EQ(dialog.at, std::pair(24, 24));
        for (const auto& [key, to] : {std::pair{Qt::Key_Right, std::pair(34, 24)},
                                      {Qt::Key_Up, {34, 14}},
                                      {Qt::Key_Right, {44, 14}},
                                      {Qt::Key_Right, {49, 14}}}) {
            QTest::keyClick(&area, key);
            EXPECT_EQ(dialog.at, to);
        }
        dialog.Close();
    });
}

TEST_F(AnyWindow, OutlivesHandlersThatFail)
{
    const auto messageAfter = [](const std::function<void()>& action) {
        QString message;
        Answer<QMessageBox> reader([&](QMessageBox& box) {
            message = box.text().section("\n\n", 1);
            box.accept();
        });
        action();
        EXPECT_TRUE(QTest::qWaitFor([&] { return reader.count == 1; }));
        return message;
    };
    const QString nil = "An object that is needed here does not exist.";
    const QString beyond = "There is no element 7 in this list.";
    show([&](DesktopWindow& view) {
        dialog.failsToPaint = true;
        EXPECT_EQ(messageAfter([&] { widgetOf(dialog.Area).repaint(); }), nil);
        widgetOf(dialog.Area).repaint(); // fails at every painting, and tells it once
        EXPECT_EQ(messageAfter([&] {
                      QTest::mouseClick(&widgetOf(dialog.Failing), Qt::LeftButton, {}, {5, 10});
                  }),
                  beyond);
        EXPECT_EQ(messageAfter([&] { QTest::keyClick(&widgetOf(dialog.Rows), Qt::Key_Down); }), beyond);
        EXPECT_TRUE(dialog.Failing.Value);
        EXPECT_EQ(dialog.Rows.ListIndex, 1);
        dialog.Rows.ListIndex.check = [](std::int64_t row) { throw OutOfBoundsException(row + 5); };
        EXPECT_EQ(messageAfter([&] { QTest::keyClick(&widgetOf(dialog.Rows), Qt::Key_Up); }),
                  "There is no element 5 in this list.");
        EXPECT_EQ(static_cast<QComboBox&>(widgetOf(dialog.Rows)).currentIndex(), 1) << "what the control kept";
        dialog.failsToClose = true;
        EXPECT_EQ(messageAfter([&] { dialog.Close(); }), "full");
        EXPECT_TRUE(view.isVisible());
        dialog.failsToClose = false;
        dialog.Close();
    });
}
