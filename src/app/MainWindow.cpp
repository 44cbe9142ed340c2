#include "characters/Roster.h"
#include "document/Window1.h"
#include "edit/HitTest.h"

namespace quorrin {

namespace {

Window1* theWindow = nullptr;

/// What a screen reader says of the controls that no caption tells, and what the mouse resting on a control shows of
/// those that need a word.
struct Explanation {
    Control& control;
    const char* name;
    const char* toolTip = "";
};

void explainControls(Window1& window)
{
    const Explanation explanations[] = {
        {window.TabPanel1, "Tools"},
        {window.pmLandscape, "Orientation", "Turns the page; what has no square there is kept"},
        {window.pmBackground, "Background", "What the whole page lies on"},
        {window.PushButton2, "", "Draw freely over the map"},
        {window.cbOverlayUserPict, "", "On: the drawing lies over everything; off: right on the ground"},
        {window.pmBorderTop, "Top border"},
        {window.pmBorderBottom, "Bottom border"},
        {window.pmBorderLeft, "Left border"},
        {window.pmBorderRight, "Right border"},
        {window.pmGrid, "Grid", "The lines between the squares"},
        {window.cbShowClickable, "", "Frames the squares that answer a click"},
        {window.CheckBox1, "Top wall"},
        {window.CheckBox2, "Bottom wall"},
        {window.CheckBox3, "Left wall"},
        {window.CheckBox4, "Right wall"},
        {window.CheckBox5, "Slash wall"},
        {window.CheckBox6, "Backslash wall"},
        {window.cbDoorTop, "Top door"},
        {window.cbDoorBottom, "Bottom door"},
        {window.cbDoorLeft, "Left door"},
        {window.cbDoorRight, "Right door"},
        {window.rWallColor, "Wall color", "Click to choose the color of the next walls"},
        {window.Canvas2, "Preview of the walls", "What a click on the map gives a square"},
        {window.pmVisibleLayers, "Visible layers", "Hides a layer while you work; what lies on it is kept"},
        {window.pmObjectLayer, "Drawing layer",
         "The layer that your clicks work on; the top one stands on the bottom one"},
        {window.pmObjects, "Object", "What a click on the map puts on a square"},
        {window.pmColorBW, "Color mode", "Translucent: the ground shines through; solid: full color; B/W: saves ink"},
        {window.Canvas3, "Object palette", "Click for a menu with pictures"},
        {window.btnClearAllSquares, "", "Fills every empty square of the drawing layer with the object"},
        {window.btnMaze, "", "A new maze of the object"},
        {window.btnWallMaze, "", "A new maze in place of all walls"},
        {window.gbDMObjects, "Dungeon Master objects"},
        {window.cbShowDMObjects, "", "Hidden markers are kept"},
        {window.pmDM, "Marker", "What a click on the map puts on a square, for your eyes only"},
        {window.cvDMPreview, "Marker palette", "Click to choose a marker"},
        {window.Canvas1, "Map"},
        {window.txtMonster, "Monsters"},
        {window.txtGameText, "Game text"},
        {window.cvCharacters, "Character sheet"},
    };
    for (const auto& [control, name, toolTip] : explanations) {
        control.AccessibleName = name;
        control.ToolTip = toolTip;
    }
}

std::string chosenRow(const PopupMenu& popup)
{
    return popup.ListIndex < 0 ? "" : popup.List(popup.ListIndex);
}

Frame hitBox(const Ref<cSquare>& square)
{
    constexpr int side = static_cast<int>(hitReach) + 1;
    return square ? Frame{static_cast<int>(square->x), static_cast<int>(square->y), side, side} : Frame{};
}

} // namespace

Window1::Window1() : Window(Kind::Main, "Quorrin Map Maker", 1104, 796)
{
    theWindow = this;
    explainControls(*this);
    Canvas1.DescribePlace = [this](int x, int y) { return DescribeSquare(x, y); };
    Canvas1.PlaceAt = [this](int x, int y) { return hitBox(squareAt(mySquares, x, y)); };
    Canvas1.AnswersNow = [this] { return TabPanel1.Value >= WallTool; };
    Canvas2.DescribePlace = [this](int, int) { return DescribeChosenWall(); };
    Canvas3.DescribePlace = [this](int, int) { return chosenRow(pmObjects); };
    cvDMPreview.DescribePlace = [this](int, int) { return chosenRow(pmDM); };
    cvCharacters.DescribePlace = [this](int x, int y) { return describeToken(*this, x, y); };
    cvCharacters.PlaceAt = [](int x, int y) { return tokenFrame(tokenAt(x, y)); };
    btnMaze.Enabled = false;
    SetUpMenuBar();
}

Window1::~Window1()
{
    theWindow = nullptr;
}

Window1& Window1::Shared()
{
    if (!theWindow)
        throw NilObjectException();
    return *theWindow;
}

} // namespace quorrin
