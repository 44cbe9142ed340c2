#include "toolkit/Platform.h"

#include "toolkit/Graphics.h"

#include <utility>

namespace quorrin {

namespace {
Platform* thePlatform = nullptr;
}

Platform& platform()
{
    if (!thePlatform)
        throw NilObjectException();
    return *thePlatform;
}

Platform::Platform() : before_(std::exchange(thePlatform, this))
{}

Platform::~Platform()
{
    thePlatform = before_;
}

MessageDialog::Answer MessageDialog::ShowModal() const
{
    return platform().Ask(*this);
}

bool Confirmed(const std::string& message, const std::string& action)
{
    MessageDialog question;
    question.Icon = MessageDialog::QuestionIcon;
    question.Message = message;
    question.ActionButton = {action, true};
    question.CancelButton = {"Cancel", true};
    return question.ShowModal() == MessageDialog::Answer::Action;
}

bool PrinterSetup::PageSetupDialog()
{
    return platform().PageSetupDialog(*this);
}

void MsgBox(const std::string& message)
{
    platform().MsgBox(message);
}

bool SelectColor(Color& color, const std::string& prompt)
{
    return platform().SelectColor(color, prompt);
}

Ref<FolderItem> GetOpenFolderItem(const FileFilter& filter)
{
    return platform().GetOpenFolderItem(filter);
}

Ref<FolderItem> GetSaveFolderItem(const FileFilter& filter, const std::string& defaultName, std::size_t* chosenKind)
{
    return platform().GetSaveFolderItem(filter, defaultName, chosenKind);
}

std::unique_ptr<Graphics> OpenPrinterDialog(const Ref<PrinterSetup>& setup, Window& parent, const std::string& title)
{
    return platform().OpenPrinterDialog(*setup, parent, title);
}

bool IsContextualClick()
{
    return platform().IsContextualClick;
}

bool Keyboard::AsyncShiftKey()
{
    return platform().AsyncShiftKey();
}

bool Keyboard::AsyncControlKey()
{
    return platform().AsyncControlKey();
}

} // namespace quorrin
