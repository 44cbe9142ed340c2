#include "document/Window1.h"

namespace quorrin {

namespace {

Ref<MenuBar> MainMenuBar()
{
    using Standard = MenuItem::Standard;
    return menuBarOf({
        {"MainFileMenu",
         "&File",
         {
             {"mnuNew", "New", "Cmd+N"},
             {"mnuOpen", "Open", "Cmd+O"},
             {"mnuSave", "Save", "Cmd+S"},
             {"UntitledItem1", "-"},
             {"mnuSavePicture", "Export Current Picture"},
             {"mnuExportPictureSeries", "Export Picture Set"},
             {"UntitledSeparator", "-"},
             {"mnPageSetup", "Page Setup"},
             {"mnuPrint", "Print", "Cmd+P"},
             {"UntitledItem01", "-"},
             {"FileQuit", "&Quit", "Cmd+Q", Standard::Quit},
         }},
        {"EditMenu", "&Edit",
         editRows({{"EditUndo", "&Undo", "Cmd+Z", Standard::Undo}},
                  {
                      {"UntitledItem2", "-"},
                      {"mnuClearAllObjects", "Clear Objects - All Layers"},
                      {"mnuClearObjectCurLayer", "Clear Objects - Current Layer"},
                      {"mnuClearAllWalls", "Clear All Walls"},
                  })},
        {"HelpMenu",
         "Help",
         {
             {"mnuHelp", "Open Help File"},
             {"mnuAbout", "About...", "", Standard::About},
         }},
    });
}

} // namespace

/// The menu bar of the window is the application's, too.
void Window1::SetUpMenuBar()
{
    MenuBar = MainMenuBar();
    AddMenuHandler("mnuSavePicture", &Window1::_mnuSavePicture_Action);
    AddMenuHandler("mnuAbout", &Window1::_mnuAbout_Action);
    AddMenuHandler("mnuSave", &Window1::_mnuSave_Action);
    AddMenuHandler("mnuOpen", &Window1::_mnuOpen_Action);
    AddMenuHandler("mnuHelp", &Window1::_mnuHelp_Action);
    AddMenuHandler("mnuExportPictureSeries", &Window1::_mnuExportPictureSeries_Action);
    AddMenuHandler("mnuPrint", &Window1::_mnuPrint_Action);
    AddMenuHandler("mnPageSetup", &Window1::_mnPageSetup_Action);
    AddMenuHandler("mnuClearAllObjects", &Window1::_mnuClearAllObjects_Action);
    AddMenuHandler("mnuClearAllWalls", &Window1::_mnuClearAllWalls_Action);
    AddMenuHandler("mnuNew", &Window1::_mnuNew_Action);
    AddMenuHandler("mnuClearObjectCurLayer", &Window1::_mnuClearObjectCurLayer_Action);
}

/// Two commands stand enabled on their own tab only; the command for the current layer has no such rule.
void Window1::Event_EnableMenuItems()
{
    MenuBar->Find("mnuClearAllWalls")->Enabled = TabPanel1.Value == WallTool;
    MenuBar->Find("mnuClearAllObjects")->Enabled = TabPanel1.Value == ObjectTool;
}

} // namespace quorrin
