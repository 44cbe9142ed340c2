#include "toolkit/ScriptedPlatform.h"

#include "toolkit/Window.h"

namespace quorrin {

MessageDialog::Answer ScriptedPlatform::Ask(const MessageDialog& dialog)
{
    questions.push_back(dialog.Message);
    return ask ? ask(dialog) : MessageDialog::Answer::Cancel;
}

void ScriptedPlatform::MsgBox(const std::string& message)
{
    messages.push_back(message);
}

bool ScriptedPlatform::SelectColor(Color& color, const std::string&)
{
    return selectColor && selectColor(color);
}

Ref<FolderItem> ScriptedPlatform::GetOpenFolderItem(const FileFilter& filter)
{
    return open ? open(filter) : nullptr;
}

Ref<FolderItem> ScriptedPlatform::GetSaveFolderItem(const FileFilter&, const std::string& defaultName,
                                                    std::size_t* chosenKind)
{
    if (chosenKind)
        *chosenKind = kindOfFile;
    proposedNames.push_back(defaultName);
    return save ? save(defaultName) : nullptr;
}

Ref<MenuItem> ScriptedPlatform::PopUp(const MenuItem& base)
{
    return popUp ? popUp(base) : nullptr;
}

void ScriptedPlatform::ShowModal(Window& window)
{
    window.Event_Open();
    for (const Timer* timer : window.Timers)
        timer->Action();
    if (modal)
        modal(window);
}

bool ScriptedPlatform::PageSetupDialog(PrinterSetup& setup)
{
    return pageSetup && pageSetup(setup);
}

std::unique_ptr<Graphics> ScriptedPlatform::OpenPrinterDialog(const PrinterSetup& setup, Window&,
                                                              const std::string& title)
{
    proposedNames.push_back(title);
    return printer ? printer(setup) : nullptr;
}

bool ScriptedPlatform::Launch(const FolderItem& file)
{
    return launch && launch(file);
}

} // namespace quorrin
