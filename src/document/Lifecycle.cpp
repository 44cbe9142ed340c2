#include "document/DocumentName.h"
#include "document/FileTypes1.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"

namespace quorrin {

namespace {

constexpr auto applicationTitle = "Quorrin Map Maker";

} // namespace

bool Window1::mayGoOn(const std::string& message)
{
    if (!isDirty)
        return true;
    MessageDialog question;
    question.Icon = MessageDialog::QuestionIcon;
    question.Message = message;
    question.ActionButton = {"Save Changes", true};
    question.AlternateActionButton = {"Discard Changes", true};
    question.CancelButton = {"Cancel", true};
    switch (question.ShowModal()) {
    case MessageDialog::Answer::Action:
        return mSave();
    case MessageDialog::Answer::Alternate:
        return true;
    case MessageDialog::Answer::Cancel:
        break;
    }
    return false;
}

void Window1::Initialize()
{
    MakeAnew();
    btnCharacterTool.Value = false;
    btnCharacterTool.Enabled = true;
    bbScriptTool.Value = false;
    bbScriptTool.Enabled = true;
    gbDMObjects.Enabled = true;
    didMazePrompt = false;
}

void Window1::Event_Open()
{
    Initialize();
    RenderMap(true);
}

bool Window1::Event_CancelClose(bool)
{
    return !mayGoOn("Save Changes?");
}

bool Window1::_mnuNew_Action()
{
    if (!mayGoOn("Save current changes?"))
        return false;
    Initialize();
    pmLandscape.ListIndex = Orientation::Landscape;
    pmBackground.ListIndex = Background::White;
    pmGrid.ListIndex = Grid::None;
    cbShowClickable.Value = false;
    ClearAllWallChecks();
    rWallColor.FillColor = black;
    for (PopupMenu* popup : {&pmBorderTop, &pmBorderBottom, &pmBorderLeft, &pmBorderRight, &pmVisibleLayers,
                             &pmObjectLayer, &pmObjects, &pmColorBW})
        popup->ListIndex = 0;
    cbShowDMObjects.Value = false;
    pmDM.ListIndex = blank;
    RenderMap(true);
    isDirty = false;
    return true;
}

bool Window1::_mnuOpen_Action()
{
    if (!mayGoOn("Save current changes?"))
        return false;
    if (const auto file = GetOpenFolderItem({FileTypes1::QuorrinMap}))
        mOpen(file);
    RenderMap(true);
    Canvas1.Invalidate(true);
    return true;
}

bool Window1::_mnuSave_Action()
{
    if (mSave())
        isDirty = false;
    return true;
}

void Window1::Timer1_Action()
{
    if (Module1::gOpenFile)
        mOpen(Module1::gOpenFile);
}

void Window1::SetSavedFileName(const Ref<FolderItem>& file)
{
    mySavedFile = file;
    mySavedFileName = file ? documentName(file->Name()) : "";
    Title = mySavedFileName.empty() ? applicationTitle : std::string(applicationTitle) + " - " + mySavedFileName;
}

} // namespace quorrin
