#include "app/App.h"
#include "characters/Roster.h"
#include "document/Window1.h"
#include "edit/HitTest.h"

namespace quorrin {

namespace {

Window1* theWindow = nullptr;

/// What a screen reader says of the controls that no caption tells.
void nameControls(Window1& window)
{
    const std::pair<Control&, const char*> names[] = {
        {window.TabPanel1, "Tools"},
        {window.pmLandscape, "Orientation"},
        {window.pmBackground, "Background"},
        {window.pmBorderTop, "Top border"},
        {window.pmBorderBottom, "Bottom border"},
        {window.pmBorderLeft, "Left border"},
        {window.pmBorderRight, "Right border"},
        {window.pmGrid, "Grid"},
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
        {window.rWallColor, "Wall color"},
        {window.Canvas2, "Preview of the walls"},
        {window.pmVisibleLayers, "Visible layers"},
        {window.pmObjectLayer, "Drawing layer"},
        {window.pmObjects, "Object"},
        {window.pmColorBW, "Color mode"},
        {window.Canvas3, "Object palette"},
        {window.gbDMObjects, "Dungeon Master objects"},
        {window.pmDM, "Marker"},
        {window.cvDMPreview, "Marker palette"},
        {window.Canvas1, "Map"},
        {window.txtMonster, "Monsters"},
        {window.txtGameText, "Game text"},
        {window.cvCharacters, "Character sheet"},
    };
    for (const auto& [control, name] : names)
        control.AccessibleName = name;
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
    nameControls(*this);
    Canvas1.DescribePlace = [this](int x, int y) { return DescribeSquare(x, y); };
    Canvas1.PlaceAt = [this](int x, int y) { return hitBox(squareAt(mySquares, x, y)); };
    cvCharacters.DescribePlace = [this](int x, int y) { return describeToken(*this, x, y); };
    cvCharacters.PlaceAt = [](int x, int y) { return tokenFrame(tokenAt(x, y)); };
    btnMaze.Enabled = false;
    MenuBar = MainMenuBar();
    AddMenuHandlers();
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
