#include "edit/HitTest.h"

#include "Fixture.h"

#include <limits>
#include <utility>

using namespace quorrin;

using HitTest = Program;
using Panels = Program;
using Clicks = Program;
using BulkCommands = Program;

namespace {

/// In landscape: the top left corner of square (2, 3), and the gap beside it.
constexpr int x2 = 69, y3 = 166, gap = x2 - 1;

} // namespace

TEST_F(HitTest, EdgesInBothOrientations)
{
    const std::tuple<int, int, int, int, int> cases[] = {
        // column 0: no square
        {0, 7, 42, 1, 1},    {0, 67, 102, 1, 1},  {0, 6, 42, 0, 0},     {0, 7, 41, 0, 0},  {0, 68, 102, 0, 0},
        {0, 67, 103, 0, 0},  {0, 69, 42, 2, 1},   {0, 7, 104, 1, 2},    {0, 7, 538, 0, 0}, {0, 749, 536, 12, 8},
        {0, 750, 536, 0, 0}, {0, 749, 537, 0, 0}, {1, 38, 7, 1, 1},     {1, 98, 67, 1, 1}, {1, 37, 7, 0, 0},
        {1, 38, 6, 0, 0},    {1, 100, 69, 2, 2},  {1, 532, 749, 8, 12}, {1, 534, 7, 0, 0}, {1, 532, 750, 0, 0},
    };
    for (const auto& [orientation, x, y, column, row] : cases) {
        window.pmLandscape.ListIndex = orientation;
        for (const auto* layer : {&window.mySquares, &window.mySquaresTop}) {
            const auto cell = cellAt(*layer, x, y).value_or(Cell{0, 0});
            EXPECT_EQ(std::pair(cell.column, cell.row), std::pair(column, row))
                << orientation << ": " << x << ", " << y;
        }
    }
    constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    for (const auto corner : {highest, highest - 59, -highest - 1}) { // a file may say so
        window.mySquares(1, 1)->x = window.mySquares(1, 1)->y = corner;
        EXPECT_TRUE(squareAt(window.mySquares, corner, corner) == window.mySquares(1, 1));
        EXPECT_FALSE(cellAt(window.mySquares, 7, 42));
    }
}

TEST_F(HitTest, TheSquareIsToldInWords)
{
    EXPECT_EQ(window.Canvas1.DescribePlace(gap, y3), "");
    auto& square = *window.mySquares(2, 3);
    square.thisObject = 144; // shows nothing, so nothing is told
    square.thisDM = -1;
    EXPECT_EQ(window.DescribeSquare(x2, y3), "Column 2, row 3: blank");
    square.thisObject = 1;
    square.thisDM = 5;
    square.Wall = New<cWall>(true, false, true, false, false, false, false, false, false, true, black);
    window.mySquaresTop(2, 3)->thisObject = 37;
    EXPECT_EQ(window.Canvas1.DescribePlace(x2, y3),
              "Column 2, row 3: Tree; top layer Chest; walls top, left; door right; marker 4");
}

TEST_F(Panels, WhatComposesAndWhatMakesDirty)
{
    Window1& w = window;
    const std::tuple<const char*, std::function<void()>, Effect> cases[] = {
        {"overlay", [&] { w.cbOverlayUserPict.Value = true; }, both},
        {"clickable", [&] { w.cbShowClickable.Value = true; }, composed},
        {"show markers", [&] { w.cbShowDMObjects.Value = false; }, both},
        {"wall box", [&] { w.CheckBox6.Value = true; }, nothing},
        {"fill", [&] { w.btnClearAllSquares.Push(); }, both},
        {"tab", [&] { w.TabPanel1.Value = Window1::MarkerTool; }, nothing},
        {"script page", [&] { w.bbScriptTool.Push(); }, nothing},
        {"monsters", [&] { w.txtMonster.Text = "orc"; }, dirty},
        {"the same", [&] { w.txtMonster.Text = "orc"; }, nothing},
        {"game text", [&] { w.txtGameText.Text = "a cave"; }, dirty},
        {"no such row", [&] { EXPECT_THROW(w.pmGrid.ListIndex = -2, OutOfBoundsException); }, nothing},
        {"no row", [&] { w.pmGrid.ListIndex = -1; }, both},
    };
    for (const auto& [name, action, effect] : cases)
        EXPECT_EQ(effectOf(action), effect) << name;
    const std::pair<PopupMenu*, Effect> popups[] = {
        {&w.pmLandscape, both},  {&w.pmBackground, both},     {&w.pmBorderTop, both},  {&w.pmBorderBottom, both},
        {&w.pmBorderLeft, both}, {&w.pmBorderRight, both},    {&w.pmGrid, both},       {&w.pmVisibleLayers, composed},
        {&w.pmColorBW, both},    {&w.pmObjectLayer, nothing}, {&w.pmObjects, nothing}, {&w.pmDM, nothing}};
    for (const auto& [popup, effect] : popups)
        for (const char* time : {"once", "the same row again"})
            EXPECT_EQ(effectOf([&, menu = popup] { menu->ListIndex = 1; }), effect) << time;
    EXPECT_EQ(w.myScript->Monsters + w.myScript->GamtText, "orca cave");
}

TEST_F(Panels, PreviewsArePaintedAnew)
{
    struct Counted : ControlView {
        void Sync() override {}
        void Repaint() override { ++times; }
        void TakeFocus() override {}
        int times = 0;
    };
    Window1& w = window;
    const std::tuple<const char*, Control*, std::function<void()>> cases[] = {
        {"object", &w.Canvas3, [&] { w.pmObjects.ListIndex = 3; }},
        {"colour mode", &w.Canvas3, [&] { w.pmColorBW.ListIndex = 2; }},
        {"marker", &w.cvDMPreview, [&] { w.pmDM.ListIndex = 2; }},
        {"wall", &w.Canvas2, [&] { w.CheckBox1.Value = true; }},
        {"clear walls", &w.Canvas2, [&] { w.PushButton3.Push(); }},
        {"map", &w.Canvas1, [&] { w.pmGrid.ListIndex = 2; }},
        {"editor", &w.cvCharacters, [&] { click(w.cvCharacters, 50, 50); }},
    };
    for (const auto& [name, canvas, action] : cases) {
        Counted view;
        canvas->View = &view;
        action();
        EXPECT_GT(view.times, 0) << name;
        canvas->View = nullptr;
    }
}

TEST_F(Panels, WhatIsEnabledWhen)
{
    for (const int layer : {1, 0}) {
        window.pmObjectLayer.ListIndex = layer;
        EXPECT_EQ(window.pmColorBW.Enabled, layer == 0);
    }
    for (const bool shown : {false, true}) {
        window.cbShowDMObjects.Value = shown;
        EXPECT_EQ(window.pmDM.Enabled, shown);
        EXPECT_EQ(window.cvDMPreview.Enabled, shown);
    }
}

TEST_F(Panels, TheWallSetIsPreviewedAndItsColorChosen)
{
    const auto previewed = [&](const std::function<void()>& action) {
        const auto before = window.myWall;
        action();
        return !(window.myWall == before);
    };
    cWall chosen;
    for (const auto& [box, flag, entry] : wallFlags()) {
        EXPECT_TRUE(previewed([&, ticked = box] { ticked->Value = true; }));
        chosen.*flag = true;
        EXPECT_EQ(*window.ChosenWall(), chosen) << entry;
    }
    for (const bool accepted : {false, true}) {
        person.selectColor = [=](Color& color) { return color = RGB(9, 8, 7), accepted; };
        EXPECT_EQ(previewed([&] { click(window.rWallColor); }), accepted);
        EXPECT_EQ(window.isDirty, accepted);
        EXPECT_EQ(window.rWallColor.FillColor == RGB(9, 8, 7), accepted);
    }
    for (const bool again : {false, true})
        EXPECT_EQ(previewed([&] { window.PushButton3.Push(); }), !again);
}

TEST_F(Panels, TogglesTurnThePagesAndAnyTabBringsTheMapBack)
{
    BevelButton& script = window.bbScriptTool;
    BevelButton& characters = window.btnCharacterTool;
    const auto shows = [&](int page) {
        return window.PagePanel1.Value == page && script.Value == (page == 1) && characters.Value == (page == 2)
               && script.Enabled == (page != 2) && characters.Enabled == (page != 1)
               && window.gbDMObjects.Enabled == (page == 0);
    };
    for (const auto& [toggle, other, page] : {std::tuple{&script, &characters, 1}, {&characters, &script, 2}}) {
        toggle->Push();
        EXPECT_TRUE(shows(page));
        other->Push(); // disabled
        EXPECT_TRUE(shows(page));
        toggle->Push();
        EXPECT_TRUE(shows(0));
        for (const int tab : {Window1::GridTool, Window1::MarkerTool}) {
            toggle->Push();
            window.TabPanel1.Value = tab;
            EXPECT_TRUE(shows(0));
        }
    }
}

TEST_F(Clicks, ChangeWhatTheToolIsForAndNothingElse)
{
    window.pmObjects.ListIndex = 7;
    window.pmDM.ListIndex = 3;
    window.cbShowDMObjects.Value = false; // markers are placed all the same
    window.CheckBox4.Value = window.cbDoorLeft.Value = true;
    window.rWallColor.FillColor = RGB(255, 0, 0);
    cSquare& bottom = *window.mySquares(2, 3);
    cSquare& top = *window.mySquaresTop(2, 3);
    bottom.Wall->Bottom = true; // a click replaces the whole set
    const auto old = bottom.Wall;
    const std::string before = window.MapText();

    const std::tuple<int, int, std::function<bool()>> cases[] = {
        // tool, layer, undoes the change
        {Window1::BackgroundTool, 0, nullptr},
        {Window1::GridTool, 0, nullptr},
        {Window1::WallTool, 1,
         [&] { return *std::exchange(bottom.Wall, old) == cWall(0, 0, 0, 1, 0, 0, 0, 0, 1, 0, RGB(255, 0, 0)); }},
        {Window1::ObjectTool, 0, [&] { return std::exchange(bottom.thisObject, 0) == 7; }},
        {Window1::ObjectTool, 1, [&] { return std::exchange(top.thisObject, 0) == 7; }},
        {Window1::MarkerTool, 1, [&] { return std::exchange(bottom.thisDM, 0) == 3; }},
    };
    for (const auto& [tool, layer, undo] : cases) {
        window.TabPanel1.Value = tool;
        window.pmObjectLayer.ListIndex = layer;
        EXPECT_EQ(effectOf([&] { click(window.Canvas1, gap, y3); }), nothing);
        EXPECT_EQ(effectOf([&] { click(window.Canvas1, x2, y3, true); }), nothing);
        // What counts is where the button comes up.
        EXPECT_EQ(effectOf([&] { window.Canvas1.Press(7, 42), window.Canvas1.Release(x2, y3); }),
                  undo ? both : nothing);
        if (undo) {
            EXPECT_TRUE(undo()) << tool << ", " << layer;
        }
        EXPECT_EQ(window.MapText(), before);
        EXPECT_EQ(*top.Wall, cWall());
    }
}

TEST_F(BulkCommands, ClearAfterTheirQuestion)
{
    const struct {
        bool (Window1::*command)();
        int layer;
        const char *message, *action;
        bool bottom, top, walls;
    } cases[] = {
        {&Window1::_mnuClearAllObjects_Action, 0, "Clear All Objects?", "Clear All Objects", true, true, false},
        {&Window1::_mnuClearObjectCurLayer_Action, 0, "Clear all bottom layer objects?", "Clear Objects", true, false,
         false},
        {&Window1::_mnuClearObjectCurLayer_Action, 1, "Clear all top layer objects?", "Clear Objects", false, true,
         false},
        {&Window1::_mnuClearAllWalls_Action, 0, "Clear All Walls", "Clear All Walls", false, false, true},
    };
    const cWall wall(true, false, true, false, false, true, true, false, false, false, RGB(255, 0, 0));
    const auto forAll = [&](auto action) {
        for (int n = 0; n < 144; ++n)
            action(*window.mySquares(n / 12 + 1, n % 12 + 1), *window.mySquaresTop(n / 12 + 1, n % 12 + 1));
    };
    for (const auto& c : cases) {
        window.pmObjectLayer.ListIndex = c.layer;
        forAll([&](cSquare& bottom, cSquare& top) {
            bottom.thisObject = top.thisObject = bottom.thisDM = top.thisDM = 5;
            *bottom.Wall = *top.Wall = wall;
        });
        const std::string full = window.MapText();
        person.ask = nullptr; // cancelled
        EXPECT_EQ(effectOf([&] { (window.*c.command)(); }), nothing);
        EXPECT_EQ(window.MapText(), full);
        answer(MessageDialog::Answer::Action, c.message + std::string(" This cannot be undone."), c.action);
        EXPECT_EQ(effectOf([&] { (window.*c.command)(); }), both);
        forAll([&](const cSquare& bottom, const cSquare& top) {
            EXPECT_EQ(bottom.thisObject, c.bottom ? 0 : 5);
            EXPECT_EQ(top.thisObject, c.top ? 0 : 5);
            EXPECT_EQ(*bottom.Wall, c.walls ? cWall() : wall);
            EXPECT_EQ(*top.Wall, wall);
            EXPECT_EQ(std::pair(bottom.thisDM, top.thisDM), (std::pair<std::int64_t, std::int64_t>(5, 5)));
        });
    }
}
