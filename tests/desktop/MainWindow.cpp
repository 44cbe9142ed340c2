#include "Person.h"

#include "app/iniClass.h"
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
#include <QScrollArea>
#include <QScrollBar>

using namespace quorrin;

using MainWindow = DesktopProgram;

TEST_F(MainWindow, EveryControlLiesWhereItsFrameSays)
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
                EXPECT_LE(label->fontMetrics().height(), label->height());
            }
        }
    }
    EXPECT_GT(seen, static_cast<int>(window.Controls.size()));
}

TEST_F(MainWindow, EveryControlThatAnswersCanBeReached)
{
    for (const Control* control : window.Controls) {
        const auto& widget = widgetOf<QWidget>(*control);
        const bool answers = control->Kind != ControlKind::Label && control->Kind != ControlKind::Separator
                             && control->Kind != ControlKind::GroupBox && control->Kind != ControlKind::PagePanel
                             && control != &window.Rectangle1 && control != &window.Canvas2;
        EXPECT_EQ((widget.focusPolicy() & Qt::TabFocus) != 0, answers) << widget.accessibleName().toStdString();
    }
    const Control* const order[] = {&window.pmLandscape,       &window.pmBackground, &window.PushButton2,
                                    &window.cbOverlayUserPict, &window.pmBorderTop,  &window.pmBorderBottom,
                                    &window.pmBorderLeft,      &window.pmBorderRight};
    widgetOf<QWidget>(window.pmLandscape).setFocus();
    for (const Control* control : order) {
        EXPECT_EQ(QApplication::focusWidget(), &widgetOf<QWidget>(*control)) << control->Top();
        person.key(Qt::Key_Tab);
    }
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
    EXPECT_FALSE(window.isDirty) << "the row that shows already was chosen";
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

TEST_F(MainWindow, AClickOnTheMapEditsOneSquare)
{
    window.TabPanel1.Value = 3;
    window.pmObjects.ListIndex = 9;
    person.click(326 + 68, 22 + 50); // between two squares
    person.click(326 + 7 + 60, 22 + 42);
    EXPECT_EQ(window.mySquares(1, 1)->thisObject, 9);
    EXPECT_EQ(window.mySquares(2, 1)->thisObject, 0);

    auto& canvas = widgetOf<QWidget>(window.Canvas1);
    EXPECT_EQ(canvas.accessibleDescription(), "Column 1, row 1: Barrel Vert");
    window.pmLandscape.ListIndex = 1;
    EXPECT_EQ(canvas.size(), QSize(576, 756));
    EXPECT_EQ(canvas.pos() + canvas.parentWidget()->mapTo(view.Content(), QPoint()), QPoint(326, 22));
}

TEST_F(MainWindow, TheMapIsWorkedByKeyboard)
{
    window.TabPanel1.Value = 4;
    window.pmDM.ListIndex = 3;
    widgetOf<QWidget>(window.Canvas1).setFocus(Qt::TabFocusReason);
    for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up, Qt::Key_Up})
        person.key(key);
    EXPECT_FALSE(window.isDirty);
    person.key(Qt::Key_Space);
    EXPECT_EQ(window.mySquares(2, 1)->thisDM, 3);

    Answer<QMenu> menu([](QMenu& open) { open.close(); });
    person.key(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(menu.count, 1);
    EXPECT_EQ(window.RightClickObject, window.mySquares(2, 1));
}

TEST_F(MainWindow, AnotherToolIsOneChordAwayFromTheMap)
{
    struct Browser : DesktopPlatform {
        bool Launch(const FolderItem& file) override { return opened = file.Name(), true; }
        std::string opened;
    } browser;
    widgetOf<QWidget>(window.Canvas1).setFocus(Qt::TabFocusReason);
    const struct {
        Qt::Key key;
        Qt::KeyboardModifier modifier;
        int tool;
        const char* help;
    } chords[] = {{Qt::Key_PageDown, Qt::ControlModifier, Window1::GridTool, "grid.html"},
                  {Qt::Key_4, Qt::AltModifier, Window1::ObjectTool, "objects.html"},
                  {Qt::Key_PageDown, Qt::ControlModifier, Window1::MarkerTool, "markers.html"},
                  {Qt::Key_PageDown, Qt::ControlModifier, Window1::BackgroundTool, "background.html"},
                  {Qt::Key_PageUp, Qt::ControlModifier, Window1::MarkerTool, "markers.html"},
                  {Qt::Key_3, Qt::AltModifier, Window1::WallTool, "walls.html"}};
    for (const auto& [key, modifier, tool, help] : chords) {
        person.key(key, modifier);
        EXPECT_EQ(window.TabPanel1.Value, tool) << help;
        EXPECT_EQ(QApplication::focusWidget(), &widgetOf<QWidget>(window.Canvas1));
        person.key(Qt::Key_F1);
        EXPECT_EQ(browser.opened, help);
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
        EXPECT_EQ(menu.actions().size(), 13);
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    person.click(326 + 7, 22 + 42, Qt::RightButton);
    EXPECT_EQ(walls.count, 1);
    EXPECT_TRUE(window.mySquares(1, 1)->Wall->Top);

    window.TabPanel1.Value = 3;
    Answer<QMenu> palette([](QMenu& menu) {
        QMenu* plants = menu.actions()[2]->menu();
        EXPECT_EQ(plants->title(), "Plants");
        QAction* tree = plants->actions().constFirst();
        EXPECT_TRUE(tree->isIconVisibleInMenu());
        EXPECT_FALSE(tree->icon().isNull());
        EXPECT_GE(plants->actionGeometry(tree).height(), 32);
        menu.setActiveAction(menu.actions()[2]);
        QTest::keyClick(&menu, Qt::Key_Right);
        QTest::keyClick(plants, Qt::Key_Return);
    });
    person.click(166, 350);
    EXPECT_EQ(palette.count, 1);
    EXPECT_EQ(window.pmObjects.ListIndex, 1);
}

TEST_F(MainWindow, ItsMenuBarFollowsTabsAndTexts)
{
    const auto action = [&](const char* name) -> QAction& {
        emit view.menuBar()->actions()[1]->menu()->aboutToShow();
        return *view.findChild<QAction*>(name);
    };
    for (const char* off : {"mnuClearAllWalls", "EditUndo", "EditSelectAll"})
        EXPECT_FALSE(action(off).isEnabled()) << off;
    EXPECT_TRUE(action("mnuNew").isEnabled());
    EXPECT_EQ(action("mnuSave").shortcut(), QKeySequence("Ctrl+S"));
    window.TabPanel1.Value = 2;
    EXPECT_TRUE(action("mnuClearAllWalls").isEnabled());

    window.TabPanel1.Value = 4;
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

TEST_F(MainWindow, TheCharactersPageKeepsTypingFromTheScriptAndProposesAName)
{
    window.TabPanel1.Value = 4;
    person.click(160, 295);
    EXPECT_EQ(window.PagePanel1.Value, 2);
    Person::type("Orc");
    EXPECT_EQ(window.txtMonster.Text.get(), "");
    EXPECT_FALSE(window.isDirty);
    Answer<QFileDialog> save([](QFileDialog& dialog) {
        EXPECT_TRUE(dialog.selectedFiles().constFirst().endsWith("/Character Sheet.jpg"));
        dialog.reject();
    });
    person.click(444, 758);
    EXPECT_EQ(save.count, 1);
}

TEST_F(MainWindow, TextsKeepTheirBytesUntilTheyAreTypedIn)
{
    const std::string old = "Caf\x8e\rtwo\xc2\xa0words";
    window.txtGameText.Text = old;
    auto& area = widgetOf<QPlainTextEdit>(window.txtGameText);
    EXPECT_EQ(area.blockCount(), 2);
    window.txtGameText.Enabled = false;
    window.txtGameText.Enabled = true;
    EXPECT_EQ(window.txtGameText.Text.get(), old);
    window.txtGameText.Text = "a\xc2\xa0"
                              "b\n";
    area.appendPlainText("c");
    EXPECT_EQ(window.txtGameText.Text.get(), "a\xc2\xa0"
                                             "b\n\nc");
}

TEST_F(MainWindow, QuestionsAreAnsweredByEscapeAndReturn)
{
    window.isDirty = true;
    window.pmGrid.ListIndex = 3;
    QStringList buttons;
    Answer<QMessageBox> cancel([&](QMessageBox& box) {
        EXPECT_EQ(box.text(), "Save current changes?");
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        for (const auto* button : box.buttons())
            buttons += button->text();
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    person.key(Qt::Key_N, Qt::ControlModifier);
    buttons.sort();
    EXPECT_EQ(buttons, QStringList({"Cancel", "Discard Changes", "Save Changes"}));
    EXPECT_EQ(window.pmGrid.ListIndex, 3);

    Answer<QMessageBox> stay([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_FALSE(view.close());

    std::optional<Answer<QFileDialog>> save;
    Answer<QMessageBox> question([&](QMessageBox& box) {
        save.emplace([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.nameFilters(), QStringList("Quorrin Maker Maker (*.qrnm)"));
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            const QString typed = QString::fromStdString(folder.path);
            const std::pair<QString, QString> refused[] = {
                {".qrnm", "Please type a name for the file."},
                {"  ", "Please type a name for the file."},
                {typed + "/no/Map", "There is no folder \"" + typed + "/no\"."},
                {"/proc/Map", "The folder \"/proc\" cannot be written to: "},
            };
            for (const auto& [text, reason] : refused) {
                QString message;
                Answer<QMessageBox> reader([&](QMessageBox& told) {
                    message = told.text();
                    told.accept();
                });
                name->setText(text);
                QTest::keyClick(name, Qt::Key_Return);
                EXPECT_TRUE(message.startsWith(reason)) << message.toStdString();
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

TEST_F(MainWindow, AnEndlessWordIsBrokenForTheEyeAlone)
{
    const std::string word(300'000, 'x');
    window.txtGameText.Text = "short words\n" + word;
    window.PagePanel1.Value = 1;
    auto& area = widgetOf<QPlainTextEdit>(window.txtGameText);
    area.setFocus();
    area.repaint();
    Person::type("y");
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAnywhere);
    EXPECT_EQ(window.myScript->GamtText, "yshort words\n" + word);
    window.txtGameText.Text = "short words";
    EXPECT_EQ(area.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

TEST_F(MainWindow, TheColourWellIsPressedByMouseAndKeyboard)
{
    window.TabPanel1.Value = 2;
    auto& well = widgetOf<QWidget>(window.rWallColor);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&well)->role(), QAccessible::ColorChooser);
    for (const auto color : {Qt::red, Qt::blue}) {
        Answer<QColorDialog> choose([color](QColorDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Select Wall Color");
            dialog.setCurrentColor(color);
            dialog.accept();
        });
        if (color == Qt::red)
            person.click(150, 290);
        else
            person.key(Qt::Key_Return); // it has the focus by the click
        EXPECT_EQ(window.rWallColor.FillColor.get(), color == Qt::red ? RGB(255, 0, 0) : RGB(0, 0, 255));
        EXPECT_EQ(well.grab().toImage().pixelColor(80, 10), QColor(color));
    }
}

TEST_F(MainWindow, EachKindOfFileHasItsFolderInTheNextRunToo)
{
    std::filesystem::create_directories(folder / "maps");
    std::filesystem::create_directories(folder / "pictures");
    const auto saved = [&](const char* command, const QString& path) {
        QString start;
        Answer<QFileDialog> save([&](QFileDialog& dialog) {
            start = dialog.directory().path();
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(path);
            path.isEmpty() ? dialog.reject() : QTest::keyClick(&dialog, Qt::Key_Return);
        });
        window.ChooseMenu(command);
        return start.toStdString();
    };
    saved("mnuSave", QString::fromStdString(folder / "maps/cave.qrnm"));
    EXPECT_EQ(saved("mnuSavePicture", QString::fromStdString(folder / "pictures/cave.png")), folder / "maps")
        << "that of the last file, for a kind that has none yet";
    EXPECT_EQ(saved("mnuSave", {}), folder / "maps");
    EXPECT_EQ(saved("mnuSavePicture", {}), folder / "pictures");
    const iniClass kept(folder.file("quorrin-map-maker/folders.ini"));
    std::string path;
    EXPECT_GT(kept.GetPreference("Folders", "Maps", path), 0);
    EXPECT_EQ(path, folder / "maps");
    EXPECT_FALSE(folder.file("ZVKQuorrinMapMaker/QuorrinMapMaker.ini")->Exists())
        << "the preferences hold the page setup";
    std::filesystem::remove_all(folder / "maps");
    EXPECT_EQ(saved("mnuSave", {}), folder / "pictures");
}

TEST_F(MainWindow, OnASmallScreenTheContentScrolls)
{
    const QSize screen = view.screen()->availableSize();
    ASSERT_LT(screen.width(), window.Width) << "these tests want a small screen";
    EXPECT_LE(view.width(), screen.width());
    EXPECT_LE(view.height(), screen.height());
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
    window.btnCharacterTool.Push();
    widgetOf<QWidget>(window.btnSaveCharacters).setFocus();
    person.key(Qt::Key_Tab); // to the other button
    EXPECT_EQ(QApplication::focusWidget()->visibleRegion().boundingRect().size(), QSize(200, 22));
}
