#include "edit/HitTest.h"

#include "Fixture.h"

#include <limits>

using namespace quorrin;

using HitTest = Program;
using Panels = Program;
using BulkCommands = Program;

namespace {

/// In landscape: the top left corner of square (2, 3), and the gap beside it.
constexpr int x2 = 69, y3 = 166, gap = x2 - 1;

} // namespace

TEST_F(HitTest, ASquareReaches60PixelsBeyondItsCorner)
{
    for (const int portrait : {0, 1}) {
        window.pmLandscape.ListIndex = portrait;
        const int left = portrait ? 38 : 7, columns = portrait ? 8 : 12;
        const int top = portrait ? 7 : 42, rows = portrait ? 12 : 8;
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
        {"fill", [&] { w.btnClearAllSquares.Push(); }, both},
        {"a click on the tab Background", [&] { click(w.Canvas1, x2, y3); }, nothing},
        {"wall box", [&] { w.CheckBox6.Value = true; }, nothing},
        {"tab", [&] { w.TabPanel1.Value = Window1::MarkerTool; }, nothing},
        {"a click where no square is", [&] { click(w.Canvas1, gap, y3); }, nothing},
        {"a click", [&] { click(w.Canvas1, x2, y3); }, both},
        {"a contextual click", [&] { click(w.Canvas1, x2, y3, true); }, nothing},
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
        EXPECT_GT(paintings(*canvas, action), 0);
        const int width = canvas->Width, height = canvas->Height;
        const auto shown = New<Picture>(width, height, 32), wanted = New<Picture>(width, height, 32);
        canvas->Paint(shown->Graphics());
        wanted->Graphics().DrawPicture(picture(), offset, offset);
        if (hasFrame)
            wanted->Graphics().DrawRect(0, 0, width, height);
        EXPECT_TRUE(alike(shown, wanted));
    }
    for (const auto& [box, flag, entry] : wallFlags()) {
        const auto preview = w.myWall;
        box->Value = !box->Value;
        EXPECT_NE(w.myWall, preview) << entry;
    }
    EXPECT_GT(paintings(w.cvCharacters, [&] { click(w.cvCharacters, 50, 50); }), 0) << "after the editor";
    for (const int choice : {1, 0}) {
        w.pmObjectLayer.ListIndex = choice;
        w.cbShowDMObjects.Value = choice == 1;
        EXPECT_EQ(w.pmColorBW.Enabled, choice == 0);
        EXPECT_EQ(w.pmDM.Enabled, choice == 1);
        EXPECT_EQ(w.cvDMPreview.Enabled, choice == 1);
    }
}

TEST_F(Panels, TheWallsColorIsChosenOnceAccepted)
{
    for (const bool accepted : {false, true}) {
        person.selectColor = [=](Color& color) { return color = RGB(9, 8, 7), accepted; };
        const auto preview = window.myWall;
        EXPECT_EQ(effectOf([&] { click(window.rWallColor); }), accepted ? dirty : nothing);
        EXPECT_EQ(window.myWall == preview, !accepted);
        EXPECT_EQ(window.rWallColor.FillColor.get(), accepted ? RGB(9, 8, 7) : black);
    }
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

TEST_F(BulkCommands, AskFirst)
{
    const std::tuple<bool (Window1::*)(), int, const char*, const char*> cases[] = {
        {&Window1::_mnuClearAllObjects_Action, 0, "Clear All Objects?", "Clear All Objects"},
        {&Window1::_mnuClearObjectCurLayer_Action, 0, "Clear all bottom layer objects?", "Clear Objects"},
        {&Window1::_mnuClearObjectCurLayer_Action, 1, "Clear all top layer objects?", "Clear Objects"},
        {&Window1::_mnuClearAllWalls_Action, 0, "Clear All Walls", "Clear All Walls"},
    };
    for (const auto& [command, layer, message, action] : cases) {
        window.pmObjectLayer.ListIndex = layer;
        for (const auto given : {MessageDialog::Answer::Cancel, MessageDialog::Answer::Action}) {
            answer(given, message + std::string(" This cannot be undone."), action);
            EXPECT_EQ(effectOf([&, run = command] { (window.*run)(); }),
                      given == MessageDialog::Answer::Action ? both : nothing);
        }
    }
}
