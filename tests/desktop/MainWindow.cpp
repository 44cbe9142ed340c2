#include "Person.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>

using namespace quorrin;

namespace {

using MainWindow = DesktopProgram;

QAction& action(QWidget& view, const char* name)
{
    return *view.findChild<QAction*>(name);
}

} // namespace

TEST_F(MainWindow, EveryControlLiesWhereItsFrameSays)
{
    int seen = 0;
    for (int tab = 0; tab < 5; ++tab) {
        for (int page = 0; page < 3; ++page) {
            window.TabPanel1.Value = tab;
            window.PagePanel1.Value = page;
            QCoreApplication::processEvents();
            for (const Control* control : window.Controls) {
                const auto& widget = widgetOf<QWidget>(*control);
                if (!widget.isVisible())
                    continue;
                ++seen;
                EXPECT_EQ(widget.mapTo(view.Content(), QPoint()), QPoint(control->Left(), control->Top()))
                    << control->Caption.get();
                EXPECT_EQ(widget.size(), QSize(control->Width, control->Height)) << control->Caption.get();
                if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
                    EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width());
                    EXPECT_LE(label->fontMetrics().height(), label->height());
                }
            }
        }
    }
    EXPECT_GT(seen, static_cast<int>(window.Controls.size()));
}

TEST_F(MainWindow, EveryControlThatAnswersCanBeNamedAndReached)
{
    for (const Control* control : window.Controls) {
        const auto& widget = widgetOf<QWidget>(*control);
        const bool answers = control->Kind != ControlKind::Label && control->Kind != ControlKind::Separator
                             && control->Kind != ControlKind::GroupBox && control->Kind != ControlKind::PagePanel
                             && control != &window.Rectangle1 && control != &window.Canvas2;
        EXPECT_EQ((widget.focusPolicy() & Qt::TabFocus) != 0, answers) << widget.accessibleName().toStdString();
        auto* access = QAccessible::queryAccessibleInterface(&const_cast<QWidget&>(widget));
        EXPECT_TRUE(!answers || !access->text(QAccessible::Name).isEmpty())
            << control->Left() << ", " << control->Top();
    }
    std::vector<const QWidget*> order;
    widgetOf<QWidget>(window.pmLandscape).setFocus();
    for (int i = 0; i < 8; ++i) {
        order.push_back(QApplication::focusWidget());
        person.key(Qt::Key_Tab);
    }
    const Control* const expected[] = {&window.pmLandscape,       &window.pmBackground, &window.PushButton2,
                                       &window.cbOverlayUserPict, &window.pmBorderTop,  &window.pmBorderBottom,
                                       &window.pmBorderLeft,      &window.pmBorderRight};
    for (std::size_t i = 0; i < order.size(); ++i)
        EXPECT_EQ(order[i], &widgetOf<QWidget>(*expected[i])) << i;
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
    EXPECT_NE(window.myImage->RGBSurface().Pixel(6, 100), white);
    EXPECT_TRUE(window.isDirty);
    EXPECT_TRUE(view.isWindowModified());

    window.isDirty = false;
    emit grid.activated(1);
    grid.setCurrentIndex(1);
    EXPECT_FALSE(window.isDirty) << "the row that shows already was chosen";

    person.click(50, 102);
    EXPECT_TRUE(window.cbShowClickable.Value);
    EXPECT_FALSE(window.isDirty);

    window.pmGrid.ListIndex = 8;
    window.cbShowClickable.Value = false;
    window.TabPanel1.Value = 3;
    EXPECT_EQ(grid.currentText(), "Red");
    EXPECT_FALSE(widgetOf<QAbstractButton>(window.cbShowClickable).isChecked());
    EXPECT_EQ(widgetOf<QTabWidget>(window.TabPanel1).currentIndex(), 3);

    auto& objects = widgetOf<QComboBox>(window.pmObjects);
    objects.setFocus();
    Person::type("Bo");
    EXPECT_EQ(objects.currentText(), "Bookcase");
    EXPECT_EQ(window.pmObjects.ListIndex, 39);
    EXPECT_TRUE(widgetOf<QWidget>(window.btnMaze).isEnabled());
    objects.setCurrentIndex(0);
    EXPECT_FALSE(widgetOf<QWidget>(window.btnMaze).isEnabled());
}

TEST_F(MainWindow, AClickOnTheMapEditsOneSquare)
{
    window.TabPanel1.Value = 3;
    window.pmObjects.ListIndex = 9;
    person.click(326 + 7 + 60, 22 + 42);
    EXPECT_EQ(window.mySquares(1, 1)->thisObject, 9);
    person.click(326 + 68, 22 + 50);
    EXPECT_EQ(window.mySquares(2, 1)->thisObject, 0);
    EXPECT_EQ(window.mySquaresTop(1, 1)->thisObject, 0);

    window.pmObjectLayer.ListIndex = 1;
    person.click(326 + 69, 22 + 42);
    EXPECT_EQ(window.mySquaresTop(2, 1)->thisObject, 9);
    EXPECT_EQ(window.mySquares(2, 1)->thisObject, 0);

    auto& canvas = widgetOf<QWidget>(window.Canvas1);
    EXPECT_EQ(canvas.accessibleDescription(), "Column 2, row 1: top layer Barrel Vert");
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
    EXPECT_FALSE(window.mySquares(1, 1)->Wall->Bottom);

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
    const auto openEditMenu = [&] { emit view.menuBar()->actions()[1]->menu()->aboutToShow(); };
    QAction& clearWalls = action(view, "mnuClearAllWalls");
    openEditMenu();
    EXPECT_FALSE(clearWalls.isEnabled());
    EXPECT_FALSE(action(view, "EditUndo").isEnabled());
    EXPECT_FALSE(action(view, "EditSelectAll").isEnabled());
    EXPECT_TRUE(action(view, "mnuNew").isEnabled());
    EXPECT_EQ(action(view, "mnuSave").shortcut(), QKeySequence("Ctrl+S"));
    window.TabPanel1.Value = 2;
    openEditMenu();
    EXPECT_TRUE(clearWalls.isEnabled());

    window.TabPanel1.Value = 4;
    person.click(160, 253);
    EXPECT_EQ(window.PagePanel1.Value, 1);
    ASSERT_EQ(QApplication::focusWidget(), &widgetOf<QWidget>(window.txtMonster));
    EXPECT_FALSE(widgetOf<QWidget>(window.pmDM).isEnabled()) << "it lies in the group that is disabled";
    Person::type("Orc");
    EXPECT_EQ(window.myScript->Monsters, "Orc");
    openEditMenu();
    EXPECT_TRUE(action(view, "EditUndo").isEnabled());
    EXPECT_FALSE(action(view, "EditCut").isEnabled());
    action(view, "EditSelectAll").trigger();
    openEditMenu();
    action(view, "EditClear").trigger();
    EXPECT_EQ(window.txtMonster.Text.get(), "");
    openEditMenu();
    action(view, "EditUndo").trigger();
    EXPECT_EQ(window.txtMonster.Text.get(), "Orc");
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
    EXPECT_EQ(cancel.count, 1);
    buttons.sort();
    EXPECT_EQ(buttons, QStringList({"Cancel", "Discard Changes", "Save Changes"}));
    EXPECT_EQ(window.pmGrid.ListIndex, 3);

    Answer<QMessageBox> stay([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_FALSE(view.close());
    EXPECT_EQ(stay.count, 1);

    QDir::setCurrent(QString::fromStdString(folder.path));
    std::optional<Answer<QFileDialog>> save;
    Answer<QMessageBox> question([&](QMessageBox& box) {
        save.emplace([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.nameFilters(), QStringList("Quorrin Maker Maker (*.qrnm)"));
            auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
            name->setText(QString::fromStdString(folder / "Dark.Cäve"));
            QTest::keyClick(name, Qt::Key_Return);
        });
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_TRUE(view.close());
    EXPECT_EQ(question.count, 1);
    ASSERT_TRUE(save);
    EXPECT_EQ(save->count, 1);
    EXPECT_EQ(contentOf(folder / "Dark.Cäve.qrnm"), window.MapText());
    EXPECT_EQ(view.windowTitle(), "Quorrin Map Maker - Dark[*]");
}

TEST_F(MainWindow, TheColourWellIsPressedByMouseAndKeyboard)
{
    window.TabPanel1.Value = 2;
    const auto choose = [](Qt::GlobalColor color) {
        return [color](QColorDialog& dialog) {
            EXPECT_EQ(dialog.windowTitle(), "Select Wall Color");
            dialog.setCurrentColor(color);
            dialog.accept();
        };
    };
    Answer<QColorDialog> byMouse(choose(Qt::red));
    person.click(150, 290);
    EXPECT_EQ(byMouse.count, 1);
    EXPECT_EQ(window.rWallColor.FillColor.get(), RGB(255, 0, 0));

    auto& well = widgetOf<QWidget>(window.rWallColor);
    well.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&well)->role(), QAccessible::ColorChooser);
    Answer<QColorDialog> byKey(choose(Qt::blue));
    person.key(Qt::Key_Return);
    EXPECT_EQ(byKey.count, 1);
    EXPECT_EQ(well.grab().toImage().pixelColor(80, 10), QColor(Qt::blue));
}

TEST_F(MainWindow, OnASmallScreenTheContentScrolls)
{
    const QSize screen = view.screen()->availableSize();
    ASSERT_LT(screen.width(), window.Width) << "the screen of these tests is meant to be small";
    EXPECT_LE(view.width(), screen.width());
    EXPECT_LE(view.height(), screen.height());
    EXPECT_EQ(view.Content()->size(), QSize(1104, 796));
    auto* scroll = qobject_cast<QScrollArea*>(view.centralWidget());
    EXPECT_EQ(scroll->horizontalScrollBar()->maximum(), 1104 - scroll->viewport()->width());
    widgetOf<QWidget>(window.Canvas1).setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 12; ++i)
        person.key(Qt::Key_Right);
    const int lastSquareEnds = 326 + 7 + 11 * 62 + 61;
    EXPECT_GE(scroll->horizontalScrollBar()->value() + scroll->viewport()->width(), lastSquareEnds);
    scroll->horizontalScrollBar()->setValue(0);
    window.TabPanel1.Value = 4;
    window.btnCharacterTool.Push();
    widgetOf<QWidget>(window.btnSaveCharacters).setFocus();
    person.key(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &widgetOf<QWidget>(window.btnPrintCharacters));
    EXPECT_EQ(QApplication::focusWidget()->visibleRegion().boundingRect().size(), QSize(200, 22));
}
