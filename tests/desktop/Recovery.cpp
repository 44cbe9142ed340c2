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
    static constexpr std::chrono::milliseconds quiet{400}, latest{1500};

    bool isKept() const
    {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path))
            if (entry.path().filename() == "about")
                return true;
        return false;
    }

    Recovery recovery{window};
    RecoveryClock clock{recovery, quiet, latest};
};

} // namespace

TEST_F(RecoveryOnTheDesktop, ACopyIsWrittenOnceAllIsQuietAndNowAndThenWhileItIsNot)
{
    QElapsedTimer time;
    const auto passed = [&] { return std::chrono::milliseconds(time.elapsed()); };
    const auto wait = [&](bool typing) {
        time.start();
        while (!isKept() && passed() < 2 * latest) {
            if (typing)
                Person::type("a");
            QTest::qWait(20);
        }
    };
    person.click(50, 33);
    wait(false);
    EXPECT_FALSE(isKept()) << "nothing has changed";

    window.pmGrid.ListIndex = 3; // by no mouse and no keyboard
    wait(false);
    EXPECT_TRUE(passed() >= quiet && passed() < latest) << time.elapsed();
    window.isDirty = false;
    recovery.KeepAtOnce();

    window.TabPanel1.Value = 4;
    person.click(160, 253);
    wait(true);
    EXPECT_TRUE(passed() > 2 * quiet && passed() < 2 * latest) << time.elapsed();
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
