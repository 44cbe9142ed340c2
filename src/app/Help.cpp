#include "app/frmAbout.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"

#include <vector>

namespace quorrin {

namespace {

Ref<FolderItem> helpBesideProgram()
{
    return SpecialFolder::Executable()->Child("help");
}

Ref<FolderItem> installedHelp()
{
    return SpecialFolder::Executable()->Child("..")->Child("share")->Child("quorrin-map-maker")->Child("help");
}

/// Opens the first of the pages that there is.
void openOneOf(const std::vector<Ref<FolderItem>>& pages)
{
    for (const auto& page : pages) {
        if (!page->Exists())
            continue;
        if (!platform().Launch(*page))
            MsgBox("No browser could be started to show the help. You can open it yourself: " + page->Path());
        return;
    }
    MsgBox("Unable to find help files.");
}

} // namespace

void Module1::OpenThisHelpFile(const std::string& fileName)
{
    openOneOf({helpBesideProgram()->Child(fileName), installedHelp()->Child("index.html")});
}

void Module1::OpenHelpPage(const std::string& fileName)
{
    openOneOf({helpBesideProgram()->Child(fileName), installedHelp()->Child(fileName)});
}

void Window1::Event_Help()
{
    constexpr const char* pages[] = {"", "script.html", "characters.html"};
    constexpr const char* tabs[] = {"background.html", "grid.html", "walls.html", "objects.html", "markers.html"};
    Module1::OpenHelpPage(PagePanel1.Value != MapPage ? pages[PagePanel1.Value] : tabs[TabPanel1.Value]);
}

bool Window1::_mnuHelp_Action()
{
    Module1::OpenThisHelpFile("Index.html");
    return true;
}

bool Window1::_mnuAbout_Action()
{
    frmAbout().ShowModal();
    return true;
}

} // namespace quorrin
