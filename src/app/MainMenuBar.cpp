#include "app/App.h"
#include "document/Window1.h"

namespace quorrin {

namespace {

using Standard = MenuItem::Standard;

struct ItemRow {
    const char* name;
    const char* text;
    const char* shortcut = "";
    Standard standard = Standard::None;
};

struct MenuRow {
    const char* name;
    const char* text;
    std::vector<ItemRow> items;
};

const std::vector<MenuRow>& mainMenus()
{
    static const std::vector<MenuRow> menus{
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
        {"EditMenu",
         "&Edit",
         {
             {"EditUndo", "&Undo", "Cmd+Z", Standard::Undo},
             {"EditSeparator1", "-"},
             {"EditCut", "Cu&t", "Cmd+X", Standard::Cut},
             {"EditCopy", "&Copy", "Cmd+C", Standard::Copy},
             {"EditPaste", "&Paste", "Cmd+V", Standard::Paste},
             {"EditClear", "&Delete", "", Standard::Delete},
             {"EditSeparator2", "-"},
             {"EditSelectAll", "Select &All", "Cmd+A", Standard::SelectAll},
             {"UntitledItem2", "-"},
             {"mnuClearAllObjects", "Clear Objects - All Layers"},
             {"mnuClearObjectCurLayer", "Clear Objects - Current Layer"},
             {"mnuClearAllWalls", "Clear All Walls"},
         }},
        {"HelpMenu",
         "Help",
         {
             {"mnuHelp", "Open Help File"},
             {"mnuAbout", "About...", "", Standard::About},
         }},
    };
    return menus;
}

} // namespace

Ref<MenuBar> MainMenuBar()
{
    auto bar = New<MenuBar>();
    for (const auto& menuRow : mainMenus()) {
        auto menu = New<MenuItem>(menuRow.text);
        menu->Name = menuRow.name;
        for (const auto& row : menuRow.items) {
            auto item = New<MenuItem>(row.text);
            item->Name = row.name;
            item->KeyboardShortcut = row.shortcut;
            item->standard = row.standard;
            menu->Append(item);
        }
        bar->Append(menu);
    }
    return bar;
}

void Window1::AddMenuHandlers()
{
    const auto add = [this](const char* name, bool (Window1::*action)()) {
        AddMenuHandler(name, [this, action] { return (this->*action)(); });
    };
    add("mnuSavePicture", &Window1::_mnuSavePicture_Action);
    add("mnuAbout", &Window1::_mnuAbout_Action);
    add("mnuSave", &Window1::_mnuSave_Action);
    add("mnuOpen", &Window1::_mnuOpen_Action);
    add("mnuHelp", &Window1::_mnuHelp_Action);
    add("mnuExportPictureSeries", &Window1::_mnuExportPictureSeries_Action);
    add("mnuPrint", &Window1::_mnuPrint_Action);
    add("mnPageSetup", &Window1::_mnPageSetup_Action);
    add("mnuClearAllObjects", &Window1::_mnuClearAllObjects_Action);
    add("mnuClearAllWalls", &Window1::_mnuClearAllWalls_Action);
    add("mnuNew", &Window1::_mnuNew_Action);
    add("mnuClearObjectCurLayer", &Window1::_mnuClearObjectCurLayer_Action);
}

/// Two commands stand enabled on their own tab only; the command for the current layer has no such rule.
void Window1::Event_EnableMenuItems()
{
    MenuBar->Find("mnuClearAllWalls")->Enabled = TabPanel1.Value == WallTool;
    MenuBar->Find("mnuClearAllObjects")->Enabled = TabPanel1.Value == ObjectTool;
}

} // namespace quorrin
