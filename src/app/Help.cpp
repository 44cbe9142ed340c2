#include "app/Module1.h"
#include "app/frmAbout.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"

namespace quorrin {

/// The pages beside the program win over the installed ones, which open at their first page alone.
void Module1::OpenThisHelpFile(const std::string& fileName)
{
    const auto program = SpecialFolder::Executable();
    const auto installed = program->Child("..")->Child("share")->Child("quorrin-map-maker")->Child("help");
    for (const auto& page : {program->Child("help")->Child(fileName), installed->Child("index.html")}) {
        if (page->Exists()) {
            platform().Launch(*page);
            return;
        }
    }
    MsgBox("Unable to find help files.");
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
