#include "Person.h"

#include "app/iniClass.h"
#include "desktop/Dialogs.h"
#include "desktop/Folders.h"
#include "toolkit/QtBridge.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

#include <set>

using namespace quorrin;

using MainWindow = DesktopProgram;

TEST_F(MainWindow, EveryControlLiesWhereItsFrameSaysAndCanBeReached)
{
    int seen = 0;
    for (int shown = 0; shown < 5 * 3; ++shown) {
        window.TabPanel1.Value = shown / 3;
        window.PagePanel1.Value = shown % 3;
        QCoreApplication::processEvents();
        for (const Control* control : window.Controls) {
            const auto& widget = widgetOf<QWidget>(*control);
            if (!widget.isVisible())
                continue;
            ++seen;
            const QRect frame(control->Left(), control->Top(), control->Width, control->Height);
            EXPECT_EQ(QRect(widget.mapTo(view.Content(), QPoint()), widget.size()), frame) << control->Caption.get();
            if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
                EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width());
            }
            const std::set silent{ControlKind::Label, ControlKind::Separator, ControlKind::GroupBox,
                                  ControlKind::PagePanel};
            const bool answers =
                !silent.contains(control->Kind) && control != &window.Rectangle1 && control != &window.Canvas2;
            EXPECT_EQ((widget.focusPolicy() & Qt::TabFocus) != 0, answers) << widget.accessibleName().toStdString();
        }
    }
    EXPECT_GT(seen, static_cast<int>(window.Controls.size()));
}

TEST_F(MainWindow, APersonsChangeIsTheProgramsAndTheOtherWayRound)
{
    person.click(121, 33);
    EXPECT_EQ(window.TabPanel1.Value, 1);
    EXPECT_FALSE(view.isWindowModified());

    auto& grid = widgetOf<QComboBox>(window.pmGrid);
    grid.setFocus();
    person.key(Qt::Key_Down);
    EXPECT_EQ(window.pmGrid.ListIndex, 1);
    EXPECT_TRUE(view.isWindowModified());
    window.isDirty = false;
    emit grid.activated(1);
    for (QWidget* scrolledPast : {static_cast<QWidget*>(&grid), widgetOf<QWidget>(window.TabPanel1).childAt(5, 5)}) {
        QWheelEvent wheel(QPointF(5, 5), scrolledPast->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(scrolledPast, &wheel);
    }
    EXPECT_EQ(window.pmGrid.ListIndex, 1);
    EXPECT_EQ(window.TabPanel1.Value, 1);
    EXPECT_FALSE(window.isDirty) << "the row that shows already was chosen, the wheel turned over the controls";
    person.click(50, 102);
    EXPECT_TRUE(window.cbShowClickable.Value);

    window.pmGrid.ListIndex = 8;
    window.cbShowClickable.Value = false;
    window.TabPanel1.Value = 3;
    EXPECT_EQ(grid.currentText(), "Red");
    EXPECT_FALSE(widgetOf<QAbstractButton>(window.cbShowClickable).isChecked());
    EXPECT_EQ(widgetOf<QTabWidget>(window.TabPanel1).currentIndex(), 3);

    EXPECT_FALSE(widgetOf<QWidget>(window.btnMaze).isEnabled());
    widgetOf<QWidget>(window.pmObjects).setFocus();
    Person::type("Bo");
    EXPECT_EQ(window.pmObjects.ListIndex, 39) << "the bookcase";
    EXPECT_TRUE(widgetOf<QWidget>(window.btnMaze).isEnabled());
}

TEST_F(MainWindow, TheMapIsWorkedByMouseAndKeyboard)
{
    auto& canvas = widgetOf<QWidget>(window.Canvas1);
    window.TabPanel1.Value = 4;
    window.pmDM.ListIndex = 3;
    person.click(326 + 68, 22 + 50); // between two squares
    person.click(326 + 7 + 60, 22 + 42);
    EXPECT_EQ(window.mySquares(1, 1)->thisDM, 3);
    EXPECT_EQ(window.mySquares(2, 1)->thisDM, 0);
    EXPECT_EQ(canvas.accessibleDescription(), "Column 1, row 1: marker 2");

    window.isDirty = false;
    widgetOf<QWidget>(window.TabPanel1).setFocus();
    canvas.setFocus(Qt::TabFocusReason);
    for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up, Qt::Key_Up})
        person.key(key);
    EXPECT_FALSE(window.isDirty);
    QTest::keyPress(&canvas, Qt::Key_Space);
    widgetOf<QWidget>(window.TabPanel1).setFocus();
    canvas.setFocus();
    QTest::keyRelease(&canvas, Qt::Key_Space);
    EXPECT_FALSE(window.isDirty) << "the key came up elsewhere";
    for (const int column : {2, 3}) {
        person.key(Qt::Key_Space);
        EXPECT_EQ(window.mySquares(column, 1)->thisDM, 3);
        person.key(Qt::Key_Right);
    }
    Answer<QMenu> menu([](QMenu& open) { open.close(); });
    person.key(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(menu.count, 1);
    EXPECT_EQ(window.RightClickObject, window.mySquares(4, 1));
    window.pmLandscape.ListIndex = 1;
    EXPECT_EQ(canvas.size(), QSize(576, 756));
    EXPECT_EQ(canvas.mapTo(view.Content(), QPoint()), QPoint(326, 22));
}

TEST_F(MainWindow, AnotherToolIsOneChordAwayFromTheMap)
{
    struct Browser : DesktopPlatform {
        bool Launch(const FolderItem& file) override { return opened = file.Name(), true; }
        std::string opened;
    } browser;
    widgetOf<QWidget>(window.Canvas1).setFocus(Qt::TabFocusReason);
    const std::tuple<Qt::Key, Qt::KeyboardModifier, const char*> chords[] = {
        {Qt::Key_PageDown, Qt::ControlModifier, "grid"},    {Qt::Key_4, Qt::AltModifier, "objects"},
        {Qt::Key_PageDown, Qt::ControlModifier, "markers"}, {Qt::Key_PageDown, Qt::ControlModifier, "background"},
        {Qt::Key_PageUp, Qt::ControlModifier, "markers"},   {Qt::Key_3, Qt::AltModifier, "walls"}};
    for (const auto& [key, modifier, help] : chords) {
        person.key(key, modifier);
        EXPECT_EQ(QApplication::focusWidget(), &widgetOf<QWidget>(window.Canvas1));
        person.key(Qt::Key_F1);
        EXPECT_EQ(browser.opened, std::string(help) + ".html");
    }
    window.bbScriptTool.Push();
    person.key(Qt::Key_F1);
    EXPECT_EQ(browser.opened, "script.html");
    person.key(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(window.TabPanel1.Value, Window1::GridTool) << "from the text, too";
}

TEST_F(MainWindow, MenusAtTheMouseShowWhatTheyAreGiven)
{
    window.TabPanel1.Value = 2;
    Answer<QMenu> walls([](QMenu& menu) {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    person.click(326 + 7, 22 + 42, Qt::RightButton);
    EXPECT_TRUE(window.mySquares(1, 1)->Wall->Top);

    window.TabPanel1.Value = 3;
    Answer<QMenu> palette([](QMenu& menu) {
        QMenu* plants = menu.actions()[2]->menu();
        const QAction* tree = plants->actions().constFirst();
        EXPECT_TRUE(tree->isIconVisibleInMenu());
        EXPECT_EQ(tree->icon().actualSize({99, 99}), QSize(32, 32));
        EXPECT_GE(plants->actionGeometry(plants->actions().constFirst()).height(), 32);
        menu.setActiveAction(menu.actions()[2]);
        QTest::keyClick(&menu, Qt::Key_Right);
        QTest::keyClick(plants, Qt::Key_Return);
    });
    person.click(166, 350);
    EXPECT_EQ(window.pmObjects.ListIndex, 1);
}

TEST_F(MainWindow, ItsMenuBarFollowsTabsAndTexts)
{
    const auto action = [&](const char* name) -> QAction& {
        emit view.menuBar()->actions()[1]->menu()->aboutToShow();
        return *view.findChild<QAction*>(name);
    };
    for (const char* off : {"EditUndo", "EditSelectAll"})
        EXPECT_FALSE(action(off).isEnabled()) << off;
    EXPECT_EQ(action("mnuSave").shortcut(), QKeySequence("Ctrl+S"));
    for (int tab = 0; tab <= Window1::MarkerTool; ++tab) {
        window.TabPanel1.Value = tab;
        EXPECT_EQ(action("mnuClearAllWalls").isEnabled(), tab == Window1::WallTool);
        EXPECT_EQ(action("mnuClearAllObjects").isEnabled(), tab == Window1::ObjectTool);
        EXPECT_TRUE(action("mnuClearObjectCurLayer").isEnabled());
    }
    person.click(160, 253);
    EXPECT_EQ(window.PagePanel1.Value, 1);
    ASSERT_EQ(QApplication::focusWidget(), &widgetOf<QWidget>(window.txtMonster));
    EXPECT_FALSE(widgetOf<QWidget>(window.pmDM).isEnabled()) << "it lies in the group that is disabled";
    Person::type("Orc");
    EXPECT_EQ(window.myScript->Monsters, "Orc");
    EXPECT_FALSE(action("EditCut").isEnabled());
    for (const char* edit : {"EditSelectAll", "EditClear"})
        action(edit).trigger();
    EXPECT_EQ(window.txtMonster.Text.get(), "");
    action("EditUndo").trigger();
    EXPECT_EQ(window.txtMonster.Text.get(), "Orc");
}

TEST_F(MainWindow, TextsKeepTheirBytesUntilTheyAreTypedIn)
{
    window.TabPanel1.Value = 4;
    person.click(160, 295);
    EXPECT_EQ(window.PagePanel1.Value, 2);
    Person::type("Orc");
    EXPECT_EQ(window.txtMonster.Text.get(), "") << "the text has the focus on a page that does not show";
    EXPECT_FALSE(window.isDirty);
    const std::string old = "Caf\x8e\rtwo\xc2\xa0words";
    window.txtGameText.Text = old;
    auto& area = widgetOf<QPlainTextEdit>(window.txtGameText);
    EXPECT_EQ(area.blockCount(), 2);
    window.txtGameText.Enabled = false;
    window.txtGameText.Enabled = true;
    EXPECT_EQ(window.txtGameText.Text.get(), old);
    window.txtGameText.Text = "a\xc2\xa0 b\n";
    area.appendPlainText("c");
    EXPECT_EQ(window.txtGameText.Text.get(), "a\xc2\xa0 b\n\nc");

    const std::string word(300'000, 'x'); // is broken for the eye alone
    window.txtGameText.Text = "short words\n" + word;
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAnywhere);
    EXPECT_EQ(window.myScript->GamtText, "short words\n" + word);
    window.txtGameText.Text = "short words";
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST_F(MainWindow, QuestionsAreAnsweredByEscapeAndReturn)
{
    window.isDirty = true;
    window.pmGrid.ListIndex = 3;
    Answer<QMessageBox> cancel([&](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Save current changes?");
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        std::set<QString> buttons;
        for (const auto* button : box.buttons())
            buttons.insert(button->text());
        EXPECT_EQ(buttons, (std::set<QString>{"Cancel", "Discard Changes", "Save Changes"}));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    person.key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(cancel.count, 1);
    EXPECT_EQ(window.pmGrid.ListIndex, 3);

    std::optional<Answer<QFileDialog>> save;
    Answer<QMessageBox> question([&](QMessageBox& box) {
        save.emplace([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.nameFilters(), QStringList("Quorrin Maker Maker (*.qrnm)"));
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            const QString typed = QString::fromStdString(folder.path);
            const std::pair<QString, QString> refused[] = {
                {".qrnm", "Please type a name for the file."},
                {typed + "/no/Map", "There is no folder \"" + typed + "/no\"."},
                {"/proc/Map", "The folder \"/proc\" cannot be written to: "},
            };
            for (const auto& [text, reason] : refused) {
                Answer<QMessageBox> reader([&, wanted = reason](QMessageBox& told) {
                    EXPECT_TRUE(told.text().startsWith(wanted)) << told.text().toStdString();
                    told.accept();
                });
                name->setText(text);
                QTest::keyClick(name, Qt::Key_Return);
                EXPECT_EQ(reader.count, 1);
                EXPECT_TRUE(dialog.isVisible());
            }
            name->setText(typed + "/Dark.\"Cäve\".qrnm ");
            QTest::keyClick(name, Qt::Key_Return);
        });
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_TRUE(view.close());
    EXPECT_EQ(contentOf(folder / "Dark.'Cäve'.qrnm"), window.MapText());
    EXPECT_EQ(view.windowTitle(), "Quorrin Map Maker - Dark[*]");
}

TEST_F(MainWindow, FilesAndFoldersOfAnyBytesAreListedOpenedAndReplaced)
{
    // The last is a character that stands for such a byte elsewhere.
    const std::string place = "Tr\xe9sor", name = "\xff Caf\xe9 \xee\xbb\xa9.qrnm";
    std::filesystem::create_directory(folder / place);
    window.pmGrid.ListIndex = 4;
    writeFile(folder / place + "/" + name, window.MapText());
    window.isDirty = false;
    window.ChooseMenu("mnuNew");
    rememberFolderOf(*folder.file("any.qrnm"));
    Answer<QFileDialog> open([&](QFileDialog& dialog) {
        auto& list = *dialog.findChild<QListView*>("listView");
        for (const auto& wanted : {place, name}) {
            QModelIndex row;
            const auto isListed = [&] {
                const QModelIndex first = list.model()->index(0, 0, list.rootIndex());
                row = list.model()->match(first, Qt::DisplayRole, QtBridge::qtPath(wanted)).value(0);
                return row.isValid();
            };
            EXPECT_TRUE(QTest::qWaitFor(isListed)) << wanted;
            list.setCurrentIndex(row);
            QTest::keyClick(&dialog, Qt::Key_Return);
        }
        dialog.hide();
    });
    person.key(Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(window.pmGrid.ListIndex, 4);
    EXPECT_EQ(window.mySavedFile->Path(), folder / place + "/" + name);

    window.pmGrid.ListIndex = 2;
    std::optional<Answer<QMessageBox>> question;
    Answer<QFileDialog> save([&](QFileDialog& dialog) {
        question.emplace([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
        QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
    person.key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(question->count, 1);
    EXPECT_FALSE(window.isDirty);
    EXPECT_TRUE(contentOf(folder / place + "/" + name) == window.MapText());
}

TEST_F(MainWindow, TheColourWellIsPressedByMouseAndKeyboard)
{
    window.TabPanel1.Value = 2;
    auto& well = widgetOf<QWidget>(window.rWallColor);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&well)->role(), QAccessible::ColorChooser);
    for (const bool byMouse : {true, false}) {
        const QColor color = byMouse ? Qt::red : Qt::blue;
        Answer<QColorDialog> choose([&](QColorDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Select Wall Color");
            dialog.setCurrentColor(color);
            dialog.accept();
        });
        byMouse ? person.click(150, 290) : person.key(Qt::Key_Return); // it has the focus by the click
        EXPECT_EQ(window.rWallColor.FillColor.get(), byMouse ? RGB(255, 0, 0) : RGB(0, 0, 255));
        EXPECT_EQ(well.grab().toImage().pixelColor(80, 10), color);
    }
}

TEST_F(MainWindow, EachKindOfFileHasItsExtensionAndItsFolderInTheNextRunToo)
{
    for (const char* name : {"maps", "pictures"})
        std::filesystem::create_directories(folder / name);
    // Chooses the command, types the name, and tells in which folder the dialog stood and what it proposed.
    const auto saved = [&](auto command, const std::string& name) {
        std::string start;
        Answer<QFileDialog> save([&](QFileDialog& dialog) {
            start = dialog.selectedFiles().value(0).toStdString();
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(folder / name));
            name.empty() ? dialog.reject() : QTest::keyClick(&dialog, Qt::Key_Return);
        });
        command();
        return start;
    };
    const auto map = [&] { window.ChooseMenu("mnuSave"); };
    const auto picture = [&] { window.ChooseMenu("mnuSavePicture"); };
    const auto sheet = [&] { window.btnSaveCharacters.Push(); };
    saved(map, "maps/Dark.Cave");
    EXPECT_EQ(saved(picture, "pictures/cave"), folder / "maps/Quorrin Map Dark.png")
        << "the folder of the last file, for a kind that has none yet";
    EXPECT_EQ(saved(sheet, "pictures/cave"), folder / "pictures/Dark Character Sheet.jpg");
    EXPECT_EQ(saved(map, ""), folder / "maps/Dark.qrnm");
    EXPECT_EQ(saved(picture, ""), folder / "pictures/Quorrin Map Dark.png");
    for (const char* file : {"maps/Dark.Cave.qrnm", "pictures/cave.png", "pictures/cave.jpg"})
        EXPECT_TRUE(folder.file(file)->Exists()) << file;
    std::string path;
    iniClass(folder.file("quorrin-map-maker/folders.ini")).GetPreference("Folders", "Maps", path);
    EXPECT_EQ(path, folder / "maps");
    EXPECT_FALSE(folder.file("ZVKQuorrinMapMaker/QuorrinMapMaker.ini")->Exists())
        << "the preferences hold the page setup";
    std::filesystem::remove_all(folder / "maps");
    EXPECT_EQ(saved(map, ""), folder / "pictures/Dark.qrnm");
}

TEST_F(MainWindow, OnASmallScreenTheContentScrolls)
{
    const QSize screen = view.screen()->availableSize();
    ASSERT_LT(screen.width(), window.Width) << "these tests want a small screen";
    EXPECT_LE(view.width(), screen.width());
    EXPECT_LE(view.height(), screen.height());
    const int scrollBar = view.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    EXPECT_EQ(view.maximumSize(), QSize(1104, 796 + view.menuBar()->sizeHint().height()) + QSize(scrollBar, scrollBar));
    auto* scroll = qobject_cast<QScrollArea*>(view.centralWidget());
    EXPECT_EQ(scroll->horizontalScrollBar()->maximum(), 1104 - scroll->viewport()->width());
    widgetOf<QWidget>(window.Canvas1).setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 12; ++i)
        person.key(Qt::Key_Right);
    const int lastSquareEnds = 326 + 7 + 11 * 62 + 61;
    EXPECT_GE(scroll->horizontalScrollBar()->value() + scroll->viewport()->width(), lastSquareEnds);
    scroll->horizontalScrollBar()->setValue(0);
    widgetOf<QWidget>(window.cbOverlayUserPict).setFocus();
    person.click(164, 33);
    EXPECT_EQ(window.TabPanel1.Value, 2);
    EXPECT_EQ(scroll->horizontalScrollBar()->value(), 0);
}

TEST(PrintDialogs, KeepThePageSetupAndTakeTheCopiesOfThePrinter)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    const std::string text = "paper=A5;size=420x595;orientation=landscape;margins=30,31,32,33";
    QtBridge::applySetup({text}, printer);
    PrinterSetup setup;
    QtBridge::readSetup(printer, setup);
    EXPECT_EQ(setup.SetupString, text);
    printer.setCopyCount(3);
    EXPECT_EQ(takeCopies(printer), 3);
    EXPECT_EQ(printer.copyCount(), 1);
}
