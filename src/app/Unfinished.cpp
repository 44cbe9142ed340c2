#include "app/App.h"
#include "app/Module1.h"
#include "document/Window1.h"

// To be replaced by the real operations.
namespace quorrin {
bool Window1::_mnuHelp_Action()
{
    return true;
}
bool Window1::_mnuAbout_Action()
{
    return true;
}
void App::SetupPreferences()
{}
void Module1::ShowPageSetup()
{}
void Module1::OpenThisHelpFile(const std::string&)
{}
} // namespace quorrin
