#include "app/App.h"
#include "app/iniClass.h"
#include "document/Module1.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

namespace quorrin {

namespace {

constexpr auto folderName = "ZVKQuorrinMapMaker";
constexpr auto fileName = "QuorrinMapMaker.ini";

// The one setting: the text of the page setup, in base-64 on a single line.
constexpr auto pageSetupSection = "PageSetup";
constexpr auto pageSetupKey = "Settings";

} // namespace

void App::SetupPreferences()
{
    const auto folder = SpecialFolder::ApplicationData()->Child(folderName);
    folder->CreateAsFolder();
    Module1::myINI = New<iniClass>(folder->Child(fileName));
    std::string value;
    if (Module1::myINI->GetPreference(pageSetupSection, pageSetupKey, value) > 0)
        Module1::myPrinterSetup = New<PrinterSetup>(PrinterSetup{DecodeBase64(value)});
}

/// The dialog works on a copy, so that a cancelled one changes nothing; but from then on there is a setup.
void Module1::ShowPageSetup(bool landscape)
{
    PrinterSetup setup;
    setup.ProposesLandscape = landscape;
    if (myPrinterSetup)
        setup.SetupString = myPrinterSetup->SetupString;
    else
        myPrinterSetup = New<PrinterSetup>();
    if (!setup.PageSetupDialog())
        return;
    myPrinterSetup->SetupString = setup.SetupString;
    myINI->SetPreference(pageSetupSection, pageSetupKey, EncodeBase64(setup.SetupString, std::string::npos));
}

} // namespace quorrin
