#include "edit/HitTest.h"

#include "Fixture.h"

#include <limits>

using namespace quorrin;

using HitTest = Program;
using Panels = Program;
using Clicks = Program;
using BulkCommands = Program;

namespace {

constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
constexpr auto highest = std::numeric_limits<std::int64_t>::max();

void click(MouseControl& canvas, int x, int y)
{
    canvas.Press(x, y);
    canvas.Release(x, y);
}

/// In landscape: the top left corner of square (2, 3), and a place in the gap beside it.
constexpr int x2 = 69;
constexpr int y3 = 166;
constexpr int gap = x2 - 1;

} // namespace

TEST_F(HitTest, EdgesInBothOrientations)
{
    struct Case {
        int orientation, x, y, column, row; // column 0: no square
    };
    const Case cases[] = {
        {0, 7, 42, 1, 1},     {0, 67, 102, 1, 1},  {0, 6, 42, 0, 0},  {0, 7, 41, 0, 0},     {0, 68, 102, 0, 0},
        {0, 67, 103, 0, 0},   {0, 69, 42, 2, 1},   {0, 7, 104, 1, 2}, {0, 689, 476, 12, 8}, {0, 749, 536, 12, 8},
        {0, 750, 536, 0, 0},  {0, 749, 537, 0, 0}, {0, 7, 538, 0, 0}, {0, -1, -1, 0, 0},    {1, 38, 7, 1, 1},
        {1, 98, 67, 1, 1},    {1, 37, 7, 0, 0},    {1, 38, 6, 0, 0},  {1, 99, 7, 0, 0},     {1, 100, 69, 2, 2},
        {1, 532, 749, 8, 12}, {1, 533, 7, 0, 0},   {1, 534, 7, 0, 0}, {1, 532, 750, 0, 0},
    };
    for (const auto& c : cases) {
        window.pmLandscape.ListIndex = c.orientation;
        for (const auto* layer : {&window.mySquares, &window.mySquaresTop}) {
            const auto cell = cellAt(*layer, c.x, c.y).value_or(Cell{0, 0});
            EXPECT_TRUE(cell.column == c.column && cell.row == c.row) << c.orientation << ": " << c.x << ", " << c.y;
        }
    }
}

TEST_F(HitTest, AnyCornerFromAFileIsHarmless)
{
    auto& square = *window.mySquares(1, 1);
    for (const auto corner : {lowest, highest, highest - 59, lowest + 59}) {
        square.x = square.y = corner;
        EXPECT_FALSE(cellAt(window.mySquares, 7, 42));
        EXPECT_TRUE(squareAt(window.mySquares, corner, corner) == window.mySquares(1, 1));
        EXPECT_EQ(window.DescribeSquare(7, 42), "");
    }
}

TEST_F(HitTest, TheSquareIsToldInWords)
{
    EXPECT_EQ(window.Canvas1.DescribePlace(gap, y3), "");
    EXPECT_EQ(window.Canvas1.DescribePlace(x2, y3), "Column 2, row 3: blank");
    auto& square = *window.mySquares(2, 3);
    square.thisObject = highest; // shows nothing, so nothing is told
    square.thisDM = -1;
    EXPECT_EQ(window.DescribeSquare(x2, y3), "Column 2, row 3: blank");
    square.thisObject = 1;
    square.thisDM = 5;
    square.Wall = New<cWall>(true, false, true, false, false, false, false, false, false, true, black);
    window.mySquaresTop(2, 3)->thisObject = 37;
    EXPECT_EQ(window.DescribeSquare(x2, y3),
              "Column 2, row 3: Tree; top layer Chest; walls top, left; door right; marker 4");
}

TEST_F(Panels, WhatComposesAndWhatMakesDirty)
{
    Window1& w = window;
    person.selectColor = [](Color& color) { return color = RGB(1, 2, 3), true; };
    const std::tuple<const char*, std::function<void()>, Effect> cases[] = {
        {"orientation", [&] { w.pmLandscape.ListIndex = 1; }, both},
        {"the same orientation again", [&] { w.pmLandscape.ListIndex = 1; }, both},
        {"background", [&] { w.pmBackground.ListIndex = 2; }, both},
        {"overlay", [&] { w.cbOverlayUserPict.Value = true; }, both},
        {"top border", [&] { w.pmBorderTop.ListIndex = 1; }, both},
        {"bottom border", [&] { w.pmBorderBottom.ListIndex = 2; }, both},
        {"left border", [&] { w.pmBorderLeft.ListIndex = 3; }, both},
        {"right border", [&] { w.pmBorderRight.ListIndex = 1; }, both},
        {"grid", [&] { w.pmGrid.ListIndex = 1; }, both},
        {"clickable", [&] { w.cbShowClickable.Value = true; }, composed},
        {"visible layers", [&] { w.pmVisibleLayers.ListIndex = 1; }, composed},
        {"color mode", [&] { w.pmColorBW.ListIndex = 1; }, both},
        {"show markers", [&] { w.cbShowDMObjects.Value = false; }, both},
        {"drawing layer", [&] { w.pmObjectLayer.ListIndex = 1; }, nothing},
        {"object", [&] { w.pmObjects.ListIndex = 1; }, nothing},
        {"marker", [&] { w.pmDM.ListIndex = 1; }, nothing},
        {"wall box", [&] { w.CheckBox6.Value = true; }, nothing},
        {"door box", [&] { w.cbDoorRight.Value = true; }, nothing},
        {"clear boxes", [&] { w.PushButton3.Push(); }, nothing},
        {"wall color", [&] { click(w.rWallColor, 1, 1); }, dirty},
        {"tab", [&] { w.TabPanel1.Value = Window1::MarkerTool; }, nothing},
        {"script page", [&] { w.bbScriptTool.Push(); }, nothing},
        {"monsters", [&] { w.txtMonster.Text = "orc"; }, dirty},
        {"game text", [&] { w.txtGameText.Text = "a cave"; }, dirty},
    };
    for (const auto& [name, action, effect] : cases)
        EXPECT_EQ(effectOf(action), effect) << name;
    EXPECT_EQ(window.myScript->Monsters + window.myScript->GamtText, "orca cave");
}

TEST_F(Panels, WhatIsEnabledWhen)
{
    EXPECT_FALSE(window.btnMaze.Enabled);
    window.pmObjects.ListIndex = 143;
    EXPECT_TRUE(window.btnMaze.Enabled);
    window.pmObjects.ListIndex = 0;
    EXPECT_FALSE(window.btnMaze.Enabled);

    window.pmColorBW.ListIndex = 2;
    window.pmObjectLayer.ListIndex = 1;
    EXPECT_FALSE(window.pmColorBW.Enabled);
    EXPECT_EQ(window.pmColorBW.ListIndex, 2);
    window.pmObjectLayer.ListIndex = 0;
    EXPECT_TRUE(window.pmColorBW.Enabled);

    EXPECT_TRUE(window.cbShowDMObjects.Value);
    for (const bool shown : {false, true}) {
        window.cbShowDMObjects.Value = shown;
        EXPECT_EQ(window.pmDM.Enabled, shown);
        EXPECT_EQ(window.cvDMPreview.Enabled, shown);
    }
}

TEST_F(Panels, OrientationTurnsTheCanvasAndKeepsWhatIsHidden)
{
    window.mySquares(10, 3)->thisObject = 5;
    window.mySquaresTop(2, 3)->thisDM = 4;
    for (const int row : {1, 0}) {
        window.pmLandscape.ListIndex = row;
        EXPECT_EQ(window.Canvas1.Width, row == 0 ? 756 : 576);
        EXPECT_EQ(window.Canvas1.Height, row == 0 ? 576 : 756);
        EXPECT_EQ(window.Canvas1.Left(), 326);
        EXPECT_EQ(window.Canvas1.Top(), 22);
        for (const auto* layer : {&window.mySquares, &window.mySquaresTop})
            EXPECT_EQ((*layer)(10, 3)->Visible, row == 0);
        EXPECT_EQ(window.mySquares(10, 3)->thisObject, 5);
        EXPECT_EQ(window.mySquaresTop(2, 3)->thisDM, 4);
    }
}

TEST_F(Panels, TheWallSetIsPreviewedAndItsColorChosen)
{
    const auto previewed = [&](auto action) {
        const auto before = window.myWall;
        action();
        return !(window.myWall == before);
    };
    CheckBox* const boxes[] = {&window.CheckBox1,  &window.CheckBox2,  &window.CheckBox3, &window.CheckBox4,
                               &window.CheckBox5,  &window.CheckBox6,  &window.cbDoorTop, &window.cbDoorBottom,
                               &window.cbDoorLeft, &window.cbDoorRight};
    const std::string map = window.MapText();
    for (CheckBox* box : boxes)
        EXPECT_TRUE(previewed([&] { box->Value = true; }));
    EXPECT_EQ(*window.ChosenWall(), cWall(true, true, true, true, true, true, true, true, true, true, black));

    EXPECT_FALSE(previewed([&] { click(window.rWallColor, 5, 5); })); // cancelled
    EXPECT_FALSE(window.isDirty);
    person.selectColor = [](Color& color) { return color == black ? color = RGB(9, 8, 7), true : false; };
    EXPECT_TRUE(previewed([&] { click(window.rWallColor, 5, 5); }));

    EXPECT_TRUE(previewed([&] { window.ClearAllWallChecks(); }));
    EXPECT_EQ(*window.ChosenWall(),
              cWall(false, false, false, false, false, false, false, false, false, false, RGB(9, 8, 7)));
    EXPECT_FALSE(previewed([&] { window.ClearAllWallChecks(); }));
    EXPECT_EQ(window.MapText(), map);
}

TEST_F(Panels, PalettesChooseTheRow)
{
    window.TabPanel1.Value = Window1::MarkerTool;
    const std::string map = window.MapText();
    person.popUp = [](const MenuItem& base) { return base.Items()[1]->Items()[2]; };
    click(window.Canvas3, 5, 5);
    EXPECT_EQ(window.pmObjects.List(window.pmObjects.ListIndex), "Sand");
    person.popUp = [](const MenuItem& base) { return base.Items()[21]; };
    click(window.cvDMPreview, 5, 5);
    EXPECT_EQ(window.pmDM.ListIndex, 21);

    person.popUp = [](const MenuItem&) { return Ref<MenuItem>(); };
    click(window.Canvas3, 5, 5);
    click(window.cvDMPreview, 5, 5);
    EXPECT_EQ(window.pmObjects.ListIndex, 11);
    EXPECT_EQ(window.pmDM.ListIndex, 21);
    EXPECT_EQ(window.MapText(), map);
}

TEST_F(Panels, TogglesTurnThePagesAndAnyTabBringsTheMapBack)
{
    BevelButton& script = window.bbScriptTool;
    BevelButton& characters = window.btnCharacterTool;
    const auto expect = [&](int page, bool scriptOn, bool charactersOn) {
        EXPECT_EQ(window.PagePanel1.Value, page);
        EXPECT_EQ(script.Value, scriptOn);
        EXPECT_EQ(characters.Value, charactersOn);
        EXPECT_EQ(script.Enabled, !charactersOn);
        EXPECT_EQ(characters.Enabled, !scriptOn);
        EXPECT_EQ(window.gbDMObjects.Enabled, page == 0);
    };
    expect(0, false, false);
    script.Push();
    expect(1, true, false);
    characters.Push(); // disabled
    expect(1, true, false);
    script.Push();
    expect(0, false, false);
    characters.Push();
    expect(2, false, true);
    characters.Push();
    expect(0, false, false);
    for (BevelButton* toggle : {&script, &characters}) {
        for (const int tab : {4, 0, 4}) {
            window.TabPanel1.Value = tab == 4 ? 3 : 4;
            toggle->Push();
            window.TabPanel1.Value = tab;
            expect(0, false, false);
        }
    }
}

TEST_F(Panels, TheFrameBelongsToTheScreenOnly)
{
    Picture screen(756, 576, 32);
    window.Canvas1.Paint(screen.Graphics());
    EXPECT_EQ(screen.RGBSurface().Pixel(755, 575), black);
    EXPECT_EQ(screen.RGBSurface().Pixel(754, 574), white);
    EXPECT_EQ(window.myImage->RGBSurface().Pixel(755, 575), white);
}

TEST_F(Clicks, ReplaceTheWholeWallSetOfOneSquare)
{
    window.TabPanel1.Value = Window1::WallTool;
    const std::string blank = window.MapText();
    auto& wall = window.mySquares(2, 3)->Wall;
    wall->Bottom = true;
    window.CheckBox1.Value = true;
    window.CheckBox4.Value = true;
    window.cbDoorLeft.Value = true;
    window.rWallColor.FillColor = RGB(255, 0, 0);
    const auto old = wall;
    EXPECT_EQ(effectOf([&] { click(window.Canvas1, x2, y3); }), both);
    EXPECT_FALSE(wall == old);
    EXPECT_EQ(*wall, cWall(true, false, false, true, false, false, false, false, true, false, RGB(255, 0, 0)));
    EXPECT_EQ(*window.mySquaresTop(2, 3)->Wall, cWall());

    window.PushButton3.Push();
    window.rWallColor.FillColor = black;
    click(window.Canvas1, x2, y3);
    EXPECT_EQ(window.MapText(), blank);
}

TEST_F(Clicks, PlaceTheObjectOnTheChosenLayer)
{
    window.TabPanel1.Value = Window1::ObjectTool;
    window.pmDM.ListIndex = 3;
    const std::string blank = window.MapText();
    for (const int layer : {0, 1}) {
        window.pmObjectLayer.ListIndex = layer;
        auto& object = (layer == 0 ? window.mySquares : window.mySquaresTop)(2, 3)->thisObject;
        window.pmObjects.ListIndex = 7;
        EXPECT_EQ(effectOf([&] { click(window.Canvas1, x2, y3); }), both);
        EXPECT_EQ(object, 7);
        window.pmObjects.ListIndex = 0;
        click(window.Canvas1, x2 + 60, y3 + 60);
        EXPECT_EQ(object, 0);
        EXPECT_EQ(window.MapText(), blank);
    }
}

TEST_F(Clicks, PlaceTheMarkerOnTheBottomSquareEvenWhereItDoesNotShow)
{
    window.TabPanel1.Value = Window1::MarkerTool;
    window.cbShowDMObjects.Value = false;
    window.pmObjectLayer.ListIndex = 1;
    window.pmObjects.ListIndex = 7;
    const std::string blank = window.MapText();
    window.pmDM.ListIndex = 21;
    EXPECT_EQ(effectOf([&] { click(window.Canvas1, x2, y3); }), both);
    EXPECT_EQ(window.mySquares(2, 3)->thisDM, 21);
    window.mySquares(2, 3)->thisDM = 0;
    EXPECT_EQ(window.MapText(), blank);
}

TEST_F(Clicks, ChangeNothingInTheGapNorOnOtherTabsNorByThemselvesWhenContextual)
{
    window.pmObjects.ListIndex = 7;
    window.pmDM.ListIndex = 3;
    window.CheckBox1.Value = true;
    const std::string blank = window.MapText();
    for (int tab = 0; tab < 5; ++tab) {
        window.TabPanel1.Value = tab;
        EXPECT_EQ(effectOf([&] { click(window.Canvas1, gap, y3); }), nothing);
        EXPECT_EQ(effectOf([&] {
                      window.Canvas1.Press(x2, y3, true);
                      window.Canvas1.Release(x2, y3);
                  }),
                  nothing);
        if (tab <= Window1::GridTool) {
            EXPECT_EQ(effectOf([&] { click(window.Canvas1, x2, y3); }), nothing);
        }
    }
    EXPECT_EQ(window.MapText(), blank);

    // What counts is where the button comes up.
    window.TabPanel1.Value = Window1::ObjectTool;
    window.Canvas1.Press(7, 42);
    window.Canvas1.Release(x2, y3);
    EXPECT_EQ(window.mySquares(1, 1)->thisObject, 0);
    EXPECT_EQ(window.mySquares(2, 3)->thisObject, 7);
}

TEST_F(BulkCommands, ClearAfterTheirQuestion)
{
    using Command = bool (Window1::*)();
    struct Case {
        Command command;
        int layer;
        const char* message;
        const char* action;
        bool bottom, top, walls;
    };
    const Case cases[] = {
        {&Window1::_mnuClearAllObjects_Action, 0, "Clear All Objects? This cannot be undone.", "Clear All Objects",
         true, true, false},
        {&Window1::_mnuClearObjectCurLayer_Action, 0, "Clear all bottom layer objects? This cannot be undone.",
         "Clear Objects", true, false, false},
        {&Window1::_mnuClearObjectCurLayer_Action, 1, "Clear all top layer objects? This cannot be undone.",
         "Clear Objects", false, true, false},
        {&Window1::_mnuClearAllWalls_Action, 0, "Clear All Walls This cannot be undone.", "Clear All Walls", false,
         false, true},
    };
    const cWall wall(true, false, true, false, false, true, true, false, false, false, RGB(255, 0, 0));
    for (const auto& c : cases) {
        window.pmObjectLayer.ListIndex = c.layer;
        for (int i = 1; i <= 12; ++i) {
            for (int j = 1; j <= 12; ++j) {
                for (const auto& square : {window.mySquares(i, j), window.mySquaresTop(i, j)}) {
                    square->thisObject = 5;
                    square->thisDM = 3;
                    *square->Wall = wall;
                }
            }
        }
        const std::string full = window.MapText();
        EXPECT_EQ(effectOf([&] { (window.*c.command)(); }), nothing); // cancelled
        EXPECT_EQ(window.MapText(), full);

        person.ask = [&](const MessageDialog& dialog) {
            EXPECT_EQ(dialog.Message, c.message);
            EXPECT_EQ(dialog.Icon, 3);
            EXPECT_EQ(dialog.ActionButton.Caption, c.action);
            EXPECT_FALSE(dialog.AlternateActionButton.Visible);
            EXPECT_TRUE(dialog.CancelButton.Visible);
            EXPECT_EQ(dialog.CancelButton.Caption, "Cancel");
            return MessageDialog::Answer::Action;
        };
        EXPECT_EQ(effectOf([&] { EXPECT_TRUE((window.*c.command)()); }), both);
        person.ask = nullptr;
        for (int i = 1; i <= 12; ++i) {
            for (int j = 1; j <= 12; ++j) {
                const cSquare& bottom = *window.mySquares(i, j);
                const cSquare& top = *window.mySquaresTop(i, j);
                EXPECT_EQ(bottom.thisObject, c.bottom ? 0 : 5);
                EXPECT_EQ(top.thisObject, c.top ? 0 : 5);
                EXPECT_EQ(*bottom.Wall, c.walls ? cWall() : wall);
                EXPECT_EQ(*top.Wall, wall);
                EXPECT_EQ(bottom.thisDM + top.thisDM, 6);
            }
        }
    }
}

TEST_F(BulkCommands, FillTheBlankSquaresThatShow)
{
    window.mySquares(2, 2)->thisObject = 9;
    window.mySquaresTop(3, 3)->thisObject = 9;
    const std::string map = window.MapText();
    EXPECT_EQ(effectOf([&] { window.btnClearAllSquares.Push(); }), both); // "Blank" over blank
    EXPECT_EQ(window.MapText(), map);

    window.pmObjects.ListIndex = 4;
    window.pmObjectLayer.ListIndex = 1;
    window.btnClearAllSquares.Push();
    EXPECT_TRUE(person.questions.empty());
    for (int i = 1; i <= 12; ++i) {
        for (int j = 1; j <= 12; ++j) {
            const bool kept = i == 3 && j == 3;
            EXPECT_EQ(window.mySquaresTop(i, j)->thisObject, kept ? 9 : j <= 8 ? 4 : 0);
            EXPECT_EQ(window.mySquares(i, j)->thisObject, i == 2 && j == 2 ? 9 : 0);
        }
    }
}
