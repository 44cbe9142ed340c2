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

TEST_F(HitTest, ASquareReaches60PixelsBeyondItsCorner)
{
    for (const int portrait : {0, 1}) {
        window.pmLandscape.ListIndex = portrait;
        const auto [left, top, columns, rows] = portrait ? std::tuple{38, 7, 8, 12} : std::tuple{7, 42, 12, 8};
        const auto numberAt = [](std::int64_t place, int first, int count) {
            const auto beyond = place - first;
            return beyond >= 0 && beyond / 62 < count && beyond % 62 <= 60 ? static_cast<int>(beyond / 62) + 1 : 0;
        };
        forEachPixel(760, 760, [&](auto x, auto y) {
            const std::pair at(numberAt(x, left, columns), numberAt(y, top, rows));
            const auto cell = cellAt(x % 2 ? window.mySquares : window.mySquaresTop, x, y).value_or(Cell{0, 0});
            ASSERT_EQ(std::pair(cell.column, cell.row), at.first && at.second ? at : std::pair(0, 0)) << x << "," << y;
        });
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

TEST_F(Panels, PreviewsShowWhatIsChosenAndArePaintedAnew)
{
    struct Counted : ControlView {
        void Sync() override {}
        void Repaint() override { ++times; }
        void TakeFocus() override {}
        int times = 0;
    };
    Window1& w = window;
    const auto object = [&] { return w.DrawObject(w.pmObjects.ListIndex, w.pmColorBW.ListIndex); };
    const auto marker = [&] { return w.DrawDM(w.pmDM.ListIndex); };
    const auto walls = [&] { return w.ChosenWall()->Render(); };
    const auto page = [&] { return w.myImage; };
    // The canvas, what it shows and where, whether it has a frame, and what makes it show something else.
    const std::tuple<Canvas*, std::function<Ref<Picture>()>, int, bool, std::function<void()>> cases[] = {
        {&w.Canvas3, object, 2, true, [&] { w.pmObjects.ListIndex = 37; }},
        {&w.Canvas3, object, 2, true, [&] { w.pmColorBW.ListIndex = 2; }},
        {&w.cvDMPreview, marker, 1, true, [&] { w.pmDM.ListIndex = 2; }},
        {&w.Canvas2, walls, 0, false, [&] { w.CheckBox1.Value = w.cbDoorLeft.Value = true; }},
        {&w.Canvas2, walls, 0, false, [&] { w.PushButton3.Push(); }},
        {&w.Canvas1, page, 0, true, [&] { w.pmGrid.ListIndex = 2; }},
        {&w.Canvas1, page, 0, true, [&] { w.pmLandscape.ListIndex = 1; }},
    };
    int number = 0;
    for (const auto& [canvas, picture, offset, hasFrame, action] : cases) {
        SCOPED_TRACE(number++);
        Counted view;
        canvas->View = &view;
        action();
        canvas->View = nullptr;
        EXPECT_GT(view.times, 0);
        const int width = canvas->Width, height = canvas->Height;
        const auto shown = New<Picture>(width, height, 32), wanted = New<Picture>(width, height, 32);
        canvas->Paint(shown->Graphics());
        wanted->Graphics().DrawPicture(picture(), offset, offset);
        if (hasFrame)
            wanted->Graphics().DrawRect(0, 0, width, height);
        EXPECT_TRUE(alike(shown, wanted));
    }
    Counted roster;
    w.cvCharacters.View = &roster;
    click(w.cvCharacters, 50, 50);
    w.cvCharacters.View = nullptr;
    EXPECT_GT(roster.times, 0) << "after the editor";
    for (const int choice : {1, 0}) {
        w.pmObjectLayer.ListIndex = choice;
        w.cbShowDMObjects.Value = choice == 1;
        EXPECT_EQ(w.pmColorBW.Enabled, choice == 0);
        EXPECT_EQ(w.pmDM.Enabled, choice == 1);
        EXPECT_EQ(w.cvDMPreview.Enabled, choice == 1);
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
    /// The page; which of the toggles are in, and can be pressed; whether markers can be set.
    using State = std::tuple<int, bool, bool, bool, bool, bool>;
    const auto state = [&] {
        return State(window.PagePanel1.Value, script.Value, characters.Value, script.Enabled, characters.Enabled,
                     window.gbDMObjects.Enabled);
    };
    const State map(0, false, false, true, true, true);
    for (const auto& [toggle, other, shown] :
         {std::tuple{&script, &characters, State(1, true, false, true, false, false)},
          {&characters, &script, State(2, false, true, false, true, false)}}) {
        for (BevelButton* pushed : {toggle, other}) { // the other is disabled
            pushed->Push();
            EXPECT_EQ(state(), shown);
        }
        toggle->Push();
        EXPECT_EQ(state(), map);
        for (const int tab : {Window1::GridTool, Window1::MarkerTool}) {
            toggle->Push();
            window.TabPanel1.Value = tab;
            EXPECT_EQ(state(), map);
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
    for (const auto& c : cases) {
        window.pmObjectLayer.ListIndex = c.layer;
        eachSquare([&](int, int, cSquare& bottom, cSquare& top) {
            bottom.thisObject = top.thisObject = bottom.thisDM = top.thisDM = 5;
            *bottom.Wall = *top.Wall = wall;
        });
        const std::string full = window.MapText();
        person.ask = nullptr; // cancelled
        EXPECT_EQ(effectOf([&] { (window.*c.command)(); }), nothing);
        EXPECT_EQ(window.MapText(), full);
        answer(MessageDialog::Answer::Action, c.message + std::string(" This cannot be undone."), c.action);
        EXPECT_EQ(effectOf([&] { (window.*c.command)(); }), both);
        eachSquare([&](int, int, const cSquare& bottom, const cSquare& top) {
            EXPECT_EQ(bottom.thisObject, c.bottom ? 0 : 5);
            EXPECT_EQ(top.thisObject, c.top ? 0 : 5);
            EXPECT_EQ(*bottom.Wall, c.walls ? cWall() : wall);
            EXPECT_EQ(*top.Wall, wall);
            EXPECT_EQ(std::pair(bottom.thisDM, top.thisDM), (std::pair<std::int64_t, std::int64_t>(5, 5)));
        });
    }
}

TEST_F(BulkCommands, SetAllBlankSquaresFillsThoseOfTheDrawingLayerThatShow)
{
    window.pmObjects.ListIndex = 9;
    for (const int layer : {0, 1}) {
        window.pmObjectLayer.ListIndex = layer;
        const auto before = [](int column, int row) { return (column + row) % 2 ? 5 : 0; };
        eachSquare([&](int column, int row, cSquare& bottom, cSquare& top) {
            bottom.thisObject = top.thisObject = before(column, row);
        });
        EXPECT_EQ(effectOf([&] { window.btnClearAllSquares.Push(); }), both);
        eachSquare([&](int column, int row, const cSquare& bottom, const cSquare& top) {
            const int filled = column <= 12 && row <= 8 && before(column, row) == 0 ? 9 : before(column, row);
            EXPECT_EQ((layer ? top : bottom).thisObject, filled) << column << "," << row;
            EXPECT_EQ((layer ? bottom : top).thisObject, before(column, row)) << column << "," << row;
        });
    }
}
