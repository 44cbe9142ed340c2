#pragma once

#include "toolkit/Graphics.h"
#include "toolkit/Platform.h"

#include <functional>
#include <string>
#include <vector>

namespace quorrin {

/// A platform that nobody sits at: every question is answered by a function, and what has none is cancelled.
/// All that was said and asked is kept to be looked at.
class ScriptedPlatform : public Platform {
public:
    std::function<MessageDialog::Answer(const MessageDialog&)> ask;
    std::function<bool(Color&)> selectColor;
    std::function<Ref<FolderItem>(const FileFilter&)> open;
    std::function<Ref<FolderItem>(const std::string& defaultName)> save;
    /// Which of the kinds of file that a save dialog offers is chosen, from 0.
    std::size_t kindOfFile = 0;
    std::function<Ref<MenuItem>(const MenuItem&)> popUp;
    std::function<void(Window&)> modal;
    std::function<bool(PrinterSetup&)> pageSetup;
    std::function<std::unique_ptr<Graphics>(const PrinterSetup&)> printer;
    std::function<bool(const FolderItem&)> launch;
    bool shiftKey = false;
    bool controlKey = false;

    /// The sentences of MsgBox, in their order.
    std::vector<std::string> messages;
    /// The messages of the questions asked.
    std::vector<std::string> questions;
    /// The names that save dialogs proposed, and the titles of print jobs.
    std::vector<std::string> proposedNames;

    MessageDialog::Answer Ask(const MessageDialog& dialog) override;
    void MsgBox(const std::string& message) override;
    bool SelectColor(Color& color, const std::string& prompt) override;
    Ref<FolderItem> GetOpenFolderItem(const FileFilter& filter) override;
    Ref<FolderItem> GetSaveFolderItem(const FileFilter& filter, const std::string& defaultName,
                                      std::size_t* chosenKind) override;
    Ref<MenuItem> PopUp(const MenuItem& base) override;
    void ShowModal(Window& window) override;
    bool PageSetupDialog(PrinterSetup& setup) override;
    std::unique_ptr<Graphics> OpenPrinterDialog(const PrinterSetup& setup, Window& parent,
                                                const std::string& title) override;
    bool Launch(const FolderItem& file) override;
    bool AsyncShiftKey() const override { return shiftKey; }
    bool AsyncControlKey() const override { return controlKey; }
};

} // namespace quorrin
