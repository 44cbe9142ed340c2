#pragma once

#include "document/Board.h"
#include "document/Map.h"
#include "document/MapSnapshot.h"
#include "document/Rows.h"
#include "toolkit/Files.h"
#include "toolkit/Window.h"

#include <cstdint>
#include <optional>
#include <string>

namespace quorrin {

/// The main window, and the centre of the system: it is the open map with the controls that are part of it, and tells
/// what can be done with both. This is the map of the application; each section's operations are defined in the folder
/// named.
class Window1 : public Window, public Map {
public:
    Window1(); // src/app, as the next two
    ~Window1() override;
    /// The one main window. Raises NilObjectException when there is none.
    static Window1& Shared();

    // --- The document (src/document) ---------------------------------------------------------------------------

    /// The layer on which objects are drawn: the one that pmObjectLayer shows.
    Layer& DrawingLayer() { return pmObjectLayer.ListIndex == ObjectLayer::Bottom ? mySquares : mySquaresTop; }
    bool isPortrait() const { return quorrin::isPortrait(pmLandscape.ListIndex); }
    const Board& board() const { return boardOf(pmLandscape.ListIndex); }
    /// The page as it was last composed.
    Ref<Picture> myImage;
    /// The preview of the wall panel.
    Ref<Picture> myWall;
    /// The square of the last contextual click, of either layer.
    Ref<cSquare> RightClickObject;
    /// There are unsaved changes.
    Property<bool>& isDirty = ContentsChanged;
    /// The name of the document without extension; empty before it was saved or opened.
    std::string mySavedFileName;
    /// The file that it was opened from or saved to, nil before that.
    Ref<FolderItem> mySavedFile;
    /// A maze was confirmed since the document was made.
    bool didMazePrompt = false;

    /// Makes squares, script and characters anew. Leaves the settings, the user picture, the name and isDirty.
    void Initialize();

    void Event_Open() override;
    bool Event_CancelClose(bool appQuitting) override;
    bool _mnuNew_Action();
    bool _mnuOpen_Action();
    bool _mnuSave_Action();
    void Timer1_Action();
    /// Asks what to do about unsaved changes, if there are any, and does it; false when the person wants to stop or the
    /// map could not be saved.
    bool mayGoOn(const std::string& message);
    /// The document's name and the title follow the file's name up to its first dot.
    void SetSavedFileName(const Ref<FolderItem>& file);

    /// Asks for a file and writes the map to it; false when cancelled or when the file cannot be created. Raises
    /// IOException when it cannot be written to its end; the old file is whole then.
    bool mSave();
    /// Replaces the map by that of the file, of the newest form or any older one; nil re-renders the map. What
    /// cannot be read as a map is told in a message, never raised.
    void mOpen(const Ref<FolderItem>& file);
    /// Takes the map from the whole text of a file; false when it is none of a map. Raises an exception when the text
    /// breaks off.
    bool ReadMapText(const std::string& text);
    /// What the map that was opened last holds and nobody sees, as sentences: pictures that cannot be read.
    std::string UnreadPictures;
    /// The whole text of the map file.
    std::string MapText() const;
    /// The map as it is now, but for its drawing, which is this one; nil for none.
    MapSnapshot Snapshot(const Ref<Picture>& drawing) const;
    /// The map, and whether it has unsaved changes, while an export has the controls show something else.
    struct PutAside {
        MapSnapshot map;
        bool isDirty;
    };
    std::optional<PutAside> putAside;

    // --- Composition (src/render) ------------------------------------------------------------------------------

    /// Composes the page anew into myImage.
    void RenderMap(bool includeUserPicture);

    // --- The tool panels (src/edit) ----------------------------------------------------------------------------

    /// The tabs are the tools: the one that shows says what a click on the map does.
    enum Tool { BackgroundTool, GridTool, WallTool, ObjectTool, MarkerTool };
    /// The pages on the right.
    enum Page { MapPage, ScriptPage, CharactersPage };
    void TabPanel1_Change();

    void pmLandscape_Change();
    void pmBackground_Change();
    void PushButton2_Action(); // src/userpicture
    void cbOverlayUserPict_Action();
    void pmBorderTop_Change();
    void pmBorderBottom_Change();
    void pmBorderLeft_Change();
    void pmBorderRight_Change();

    void pmGrid_Change();
    void cbShowClickable_Action();

    void CheckBox1_Action();
    void CheckBox2_Action();
    void CheckBox3_Action();
    void CheckBox4_Action();
    void CheckBox5_Action();
    void CheckBox6_Action();
    void cbDoorTop_Action();
    void cbDoorBottom_Action();
    void cbDoorLeft_Action();
    void cbDoorRight_Action();
    bool rWallColor_MouseDown(int x, int y);
    void rWallColor_MouseUp(int x, int y);
    void Canvas2_Paint(Graphics& g);
    void PushButton3_Action();
    void btnWallMaze_Action(); // src/maze
    /// Shows the wall set of the check boxes as the preview; no square changes.
    void NewWall();
    /// Keeps the tile of a wall as the panel's preview.
    void RenderWall(const Ref<cWall>& wall);
    /// The wall set of the check boxes and the colour well.
    Ref<cWall> ChosenWall();

    void pmVisibleLayers_Change();
    void pmObjectLayer_Change();
    void pmObjects_Change();
    void pmColorBW_Change();
    void Canvas3_Paint(Graphics& g);
    bool Canvas3_MouseDown(int x, int y);
    void Canvas3_MouseUp(int x, int y);
    void btnClearAllSquares_Action();
    void btnMaze_Action(); // src/maze

    void cbShowDMObjects_Action();
    void pmDM_Change();
    void cvDMPreview_Paint(Graphics& g);
    bool cvDMPreview_MouseDown(int x, int y);
    void cvDMPreview_MouseUp(int x, int y);
    void bbScriptTool_Action();
    void btnCharacterTool_Action();

    void txtMonster_TextChange();
    void txtGameText_TextChange();

    // --- The map canvas (src/edit) -----------------------------------------------------------------------------

    void Canvas1_Paint(Graphics& g);
    bool Canvas1_MouseDown(int x, int y);
    void Canvas1_MouseUp(int x, int y);
    bool Canvas1_ConstructContextualMenu(MenuItem& base, int x, int y);
    bool Canvas1_ContextualMenuAction(const MenuItem& chosen);
    /// What a screen reader says of a place on the map: the square and all that lies on it; empty beside the squares.
    std::string DescribeSquare(int x, int y);
    /// The same of the wall set of the check boxes.
    std::string DescribeChosenWall();
    /// Fills a menu with the objects in their groups; each tag is the prefix and the object's number.
    void ShowObjectPopupMenu(MenuItem& base, const std::string& prefix);
    /// The same with the markers.
    void ShowMarkerPopupMenu(MenuItem& base, const std::string& prefix);

    // --- Commands on many squares (src/edit) -------------------------------------------------------------------

    bool _mnuClearAllObjects_Action();
    bool _mnuClearObjectCurLayer_Action();
    bool _mnuClearAllWalls_Action();
    void ClearAllWallChecks();

    // --- Characters (src/characters) ---------------------------------------------------------------------------

    void cvCharacters_Paint(Graphics& g);
    bool cvCharacters_MouseDown(int x, int y);
    void cvCharacters_MouseUp(int x, int y);
    void btnSaveCharacters_Action();
    void btnPrintCharacters_Action(); // src/output

    // --- Output (src/output) -----------------------------------------------------------------------------------

    /// Writes the page as it stands to a PNG file that the person names. Raises IOException when it cannot be written.
    void mSavePicture();
    bool _mnuSavePicture_Action();
    bool _mnuExportPictureSeries_Action();
    /// The least pixels a unit that exported pictures have, 1 to 8. The person's choice of a file type may ask for
    /// more.
    int exportScale = 1;
    /// The pixels a square of exported pictures that are cut to the squares; 0 for the whole page.
    int exportCell = 0;
    /// A new picture: the source a quarter turn clockwise.
    static Ref<Picture> RotatePict90(const Ref<Picture>& src);
    bool _mnPageSetup_Action();
    bool _mnuPrint_Action();
    void btnPrint_Action();
    /// Lays the script out on pages and draws it.
    void PrintText(Graphics& g);

    // --- Menus and help (src/app) ------------------------------------------------------------------------------

    void SetUpMenuBar();
    void Event_EnableMenuItems() override;
    /// Opens the help on the page of the tab or page that shows.
    void Event_Help() override;
    bool _mnuHelp_Action();
    bool _mnuAbout_Action();

    // --- The controls ------------------------------------------------------------------------------------------

    TabPanel TabPanel1{
        surface(), {20, 20, 292, 756}, {"Background", "Grid", "Walls", "Objects", "DM"}, &Window1::TabPanel1_Change};

    // Tab "Background"
    const Place backgroundTab = TabPanel1.Page(BackgroundTool);
    PopupMenu pmLandscape{backgroundTab, {40, 58, 252, 22}, landscapeRows, &Window1::pmLandscape_Change};
    PopupMenu pmBackground{backgroundTab, {40, 92, 252, 22}, backgroundRows, &Window1::pmBackground_Change};
    PushButton PushButton2{backgroundTab, {40, 126, 252, 22}, "Edit User Picture", &Window1::PushButton2_Action};
    CheckBox cbOverlayUserPict{
        backgroundTab, {40, 160, 252, 20}, "Overlay User Picture", &Window1::cbOverlayUserPict_Action};
    Separator Separator1{backgroundTab, {40, 192, 252, 4}};
    Label Label10{backgroundTab, {40, 208, 252, 20}, "Borders"};
    Label Label11{backgroundTab, {40, 240, 76, 20}, "Top:"};
    PopupMenu pmBorderTop{backgroundTab, {128, 239, 164, 22}, borderRows, &Window1::pmBorderTop_Change};
    Label Label12{backgroundTab, {40, 273, 76, 20}, "Bottom:"};
    PopupMenu pmBorderBottom{backgroundTab, {128, 272, 164, 22}, borderRows, &Window1::pmBorderBottom_Change};
    Label Label13{backgroundTab, {40, 306, 76, 20}, "Left:"};
    PopupMenu pmBorderLeft{backgroundTab, {128, 305, 164, 22}, borderRows, &Window1::pmBorderLeft_Change};
    Label Label14{backgroundTab, {40, 339, 76, 20}, "Right:"};
    PopupMenu pmBorderRight{backgroundTab, {128, 338, 164, 22}, borderRows, &Window1::pmBorderRight_Change};

    // Tab "Grid"
    const Place gridTab = TabPanel1.Page(GridTool);
    PopupMenu pmGrid{gridTab, {40, 58, 252, 22}, gridRows, &Window1::pmGrid_Change};
    CheckBox cbShowClickable{gridTab, {40, 92, 229, 20}, "Show Clickable Regions", &Window1::cbShowClickable_Action};

    // Tab "Walls"
    const Place wallsTab = TabPanel1.Page(WallTool);
    Label Label3{wallsTab, {40, 58, 107, 20}, "Walls"};
    CheckBox CheckBox1{wallsTab, {40, 90, 107, 20}, "Top", &Window1::CheckBox1_Action};
    CheckBox CheckBox2{wallsTab, {40, 122, 107, 20}, "Bottom", &Window1::CheckBox2_Action};
    CheckBox CheckBox3{wallsTab, {40, 154, 107, 20}, "Left", &Window1::CheckBox3_Action};
    CheckBox CheckBox4{wallsTab, {40, 186, 107, 20}, "Right", &Window1::CheckBox4_Action};
    CheckBox CheckBox5{wallsTab, {40, 218, 107, 20}, "Slash", &Window1::CheckBox5_Action};
    CheckBox CheckBox6{wallsTab, {40, 250, 107, 20}, "Backslash", &Window1::CheckBox6_Action};
    Label Label4{wallsTab, {185, 58, 107, 20}, "Doors"};
    CheckBox cbDoorTop{wallsTab, {185, 90, 107, 20}, "Top", &Window1::cbDoorTop_Action};
    CheckBox cbDoorBottom{wallsTab, {185, 122, 107, 20}, "Bottom", &Window1::cbDoorBottom_Action};
    CheckBox cbDoorLeft{wallsTab, {185, 154, 107, 20}, "Left", &Window1::cbDoorLeft_Action};
    CheckBox cbDoorRight{wallsTab, {185, 186, 107, 20}, "Right", &Window1::cbDoorRight_Action};
    Label Label6{wallsTab, {40, 282, 65, 20}, "Color:"};
    Rectangle rWallColor{
        wallsTab,
        {108, 282, 177, 19},
        black,
        MouseHandlers<Window1>{.MouseDown = &Window1::rWallColor_MouseDown, .MouseUp = &Window1::rWallColor_MouseUp}};
    Rectangle Rectangle1{wallsTab, {131, 313, 70, 70}, white};
    Canvas Canvas2{wallsTab, {134, 316, 64, 64}, MouseHandlers<Window1>{.Paint = &Window1::Canvas2_Paint}};
    PushButton PushButton3{wallsTab, {40, 407, 252, 22}, "Clear All Checkboxes", &Window1::PushButton3_Action};
    PushButton btnWallMaze{wallsTab, {40, 441, 252, 22}, "Generate Maze", &Window1::btnWallMaze_Action};

    // Tab "Objects"
    const Place objectsTab = TabPanel1.Page(ObjectTool);
    Label Label9{objectsTab, {40, 58, 252, 20}, "Visible Layers"};
    PopupMenu pmVisibleLayers{objectsTab, {40, 90, 252, 22}, visibleLayerRows, &Window1::pmVisibleLayers_Change};
    Label Label7{objectsTab, {40, 139, 252, 20}, "Drawing Layer"};
    PopupMenu pmObjectLayer{objectsTab, {40, 171, 252, 22}, objectLayerRows, &Window1::pmObjectLayer_Change};
    Label Label8{objectsTab, {40, 220, 252, 20}, "Object"};
    PopupMenu pmObjects{objectsTab, {40, 252, 252, 22}, objectRows(), &Window1::pmObjects_Change};
    PopupMenu pmColorBW{objectsTab, {40, 286, 252, 22}, colorRows, &Window1::pmColorBW_Change};
    Canvas Canvas3{objectsTab,
                   {136, 320, 60, 60},
                   MouseHandlers<Window1>{.Paint = &Window1::Canvas3_Paint,
                                          .MouseDown = &Window1::Canvas3_MouseDown,
                                          .MouseUp = &Window1::Canvas3_MouseUp}};
    Separator Separator2{objectsTab, {40, 392, 252, 4}};
    PushButton btnClearAllSquares{
        objectsTab, {40, 407, 252, 22}, "Set All Blank Squares", &Window1::btnClearAllSquares_Action};
    PushButton btnMaze{objectsTab, {40, 441, 252, 22}, "Generate Maze", &Window1::btnMaze_Action};

    // Tab "DM"
    const Place dmTab = TabPanel1.Page(MarkerTool);
    GroupBox gbDMObjects{dmTab, {40, 58, 252, 168}};
    CheckBox cbShowDMObjects{
        gbDMObjects, {60, 78, 212, 20}, "Show Dungeon Master Objects", &Window1::cbShowDMObjects_Action, true};
    PopupMenu pmDM{gbDMObjects, {60, 110, 212, 22}, markerRows(), &Window1::pmDM_Change};
    Canvas cvDMPreview{gbDMObjects,
                       {136, 149, 60, 60},
                       MouseHandlers<Window1>{.Paint = &Window1::cvDMPreview_Paint,
                                              .MouseDown = &Window1::cvDMPreview_MouseDown,
                                              .MouseUp = &Window1::cvDMPreview_MouseUp}};
    BevelButton bbScriptTool{dmTab, {40, 238, 252, 30}, "Script Editor", &Window1::bbScriptTool_Action};
    BevelButton btnCharacterTool{dmTab, {40, 280, 252, 30}, "Character Sheet", &Window1::btnCharacterTool_Action};

    // The pages on the right
    PagePanel PagePanel1{surface(), {324, 20, 760, 769}, 3};

    const Place mapPage = PagePanel1.Page(MapPage);
    Canvas Canvas1{mapPage,
                   {326, 22, 756, 576},
                   MouseHandlers<Window1>{.Paint = &Window1::Canvas1_Paint,
                                          .MouseDown = &Window1::Canvas1_MouseDown,
                                          .MouseUp = &Window1::Canvas1_MouseUp,
                                          .ConstructContextualMenu = &Window1::Canvas1_ConstructContextualMenu,
                                          .ContextualMenuAction = &Window1::Canvas1_ContextualMenuAction}};

    const Place scriptPage = PagePanel1.Page(ScriptPage);
    Label Label1{scriptPage, {344, 28, 720, 20}, "Monsters:"};
    TextArea txtMonster{scriptPage, {344, 53, 720, 100}, &Window1::txtMonster_TextChange};
    Label Label2{scriptPage, {344, 185, 720, 20}, "Game Text:"};
    TextArea txtGameText{scriptPage, {344, 217, 720, 375}, &Window1::txtGameText_TextChange};
    PushButton btnPrint{scriptPage, {344, 604, 100, 22}, "Print Script", &Window1::btnPrint_Action};

    const Place charactersPage = PagePanel1.Page(CharactersPage);
    Canvas cvCharacters{charactersPage,
                        {326, 21, 756, 576},
                        MouseHandlers<Window1>{.Paint = &Window1::cvCharacters_Paint,
                                               .MouseDown = &Window1::cvCharacters_MouseDown,
                                               .MouseUp = &Window1::cvCharacters_MouseUp}};
    Label Label5{charactersPage, {344, 609, 720, 20}, "Click to edit a character"};
    PushButton btnSaveCharacters{
        charactersPage, {344, 747, 200, 22}, "Save Character Sheet", &Window1::btnSaveCharacters_Action};
    PushButton btnPrintCharacters{
        charactersPage, {864, 747, 200, 22}, "Print Character Sheet", &Window1::btnPrintCharacters_Action};

    /// Opens a file that was handed over at launch.
    Timer Timer1{this, 10, &Window1::Timer1_Action};
};

} // namespace quorrin
