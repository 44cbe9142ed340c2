#pragma once

#include "toolkit/Platform.h"

namespace quorrin {

/// The platform with a person before it. Its dialogs are in Dialogs.cpp, ColorDialog.cpp and PrintDialogs.cpp,
/// its menus in MenuViews.cpp.
class DesktopPlatform : public Platform {
public:
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
    bool AsyncShiftKey() const override;
    bool AsyncControlKey() const override;
};

/// What a QApplication needs to be the program's: style, pictures, icon and name.
void setUpDesktop();

} // namespace quorrin
