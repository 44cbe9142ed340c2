#include "Person.h"

#include "app/Recovery.h"
#include "app/frmRecovery.h"
#include "desktop/RecoveryClock.h"

#include <QListWidget>
#include <QMainWindow>

using namespace quorrin;

namespace {

class RecoveryOnTheDesktop : public DesktopProgram {
protected:
    bool isKept() const
    {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path))
            if (entry.path().filename() == "about")
                return true;
        return false;
    }

    Recovery recovery{window};
};

} // namespace

TEST_F(RecoveryOnTheDesktop, ACopyIsWrittenOnceAllIsQuietAndNowAndThenWhileItIsNot)
{
    constexpr std::chrono::milliseconds soon(100), never(std::chrono::hours(1));
    {
        const RecoveryClock clock(recovery, soon, never);
        person.click(50, 33);
        EXPECT_FALSE(QTest::qWaitFor([&] { return isKept(); }, 3 * soon.count())) << "nothing has changed";
        window.pmGrid.ListIndex = 3; // by no mouse and no keyboard
        EXPECT_TRUE(QTest::qWaitFor([&] { return isKept(); }));
    }
    window.isDirty = false;
    recovery.KeepAtOnce();
    EXPECT_FALSE(isKept());

    const RecoveryClock clock(recovery, never, soon);
    window.TabPanel1.Value = 4;
    person.click(160, 253);
    Person::type("a");
    EXPECT_TRUE(QTest::qWaitFor([&] { return isKept(); }));
}

TEST_F(RecoveryOnTheDesktop, AListAsksAboutSeveralMaps)
{
    for (const auto& [key, answer] :
         {std::pair{Qt::Key_Return, MessageDialog::Answer::Action}, {Qt::Key_Escape, MessageDialog::Answer::Cancel}}) {
        frmRecovery list({"one", "two", "three"});
        Answer<QMainWindow> choose([&, key = key](QMainWindow&) {
            auto& rows = widgetOf<QListWidget>(list.ListBox1);
            EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::focusWidget() == &rows; }, 2000));
            QTest::keyClick(&rows, Qt::Key_Down);
            EXPECT_EQ(rows.currentItem()->text(), "two");
            QTest::keyClick(&rows, key);
        });
        list.ShowModal();
        EXPECT_EQ(list.Answer, answer);
        EXPECT_EQ(list.ListBox1.ListIndex, 1);
    }
}
