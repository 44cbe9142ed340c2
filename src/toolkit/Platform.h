#pragma once

#include "toolkit/Color.h"
#include "toolkit/Files.h"
#include "toolkit/Menu.h"
#include "toolkit/Ref.h"

#include <memory>
#include <string>

namespace quorrin {

class Graphics;
class Window;

/// A button of a MessageDialog.
struct DialogButton {
    std::string Caption;
    bool Visible = false;
};

/// A question with up to three buttons. Return presses the action button, Escape the cancel button.
struct MessageDialog {
    static constexpr int QuestionIcon = 3;
    int Icon = 0;
    std::string Message;
    DialogButton ActionButton{"OK", true};
    DialogButton AlternateActionButton;
    DialogButton CancelButton;

    enum class Answer { Action, Alternate, Cancel };
    Answer ShowModal() const;
};

/// Asks a question with this action button and "Cancel"; true when the person chose the action.
bool Confirmed(const std::string& message, const std::string& action);

/// The page setup: an opaque text that the platform's page-setup dialog makes and understands; empty is its default.
struct PrinterSetup {
    std::string SetupString;
    /// The orientation that the dialog proposes where the text tells none.
    bool ProposesLandscape = false;
    /// Shows the dialog on this setup; true when the person confirmed, and only then it has changed.
    bool PageSetupDialog();
};

/// Everything that asks, shows or reaches outside the program. The desktop has the real one, the tests and the
/// command-line companion have scripted ones; nothing else blocks or asks. The one made last is the platform while it
/// lives.
class Platform {
public:
    Platform();
    virtual ~Platform();
    Platform(const Platform&) = delete;
    Platform& operator=(const Platform&) = delete;

    virtual MessageDialog::Answer Ask(const MessageDialog& dialog) = 0;
    /// Shows one sentence until the person has read it.
    virtual void MsgBox(const std::string& message) = 0;
    /// Lets the person choose a colour; false, and the colour as it was, when cancelled.
    virtual bool SelectColor(Color& color, const std::string& prompt) = 0;
    /// Nil when cancelled, here and below.
    virtual Ref<FolderItem> GetOpenFolderItem(const FileFilter& filter) = 0;
    /// With `chosenKind`, each kind of the filter is a choice of its own, and the place of the chosen one is told.
    virtual Ref<FolderItem> GetSaveFolderItem(const FileFilter& filter, const std::string& defaultName,
                                              std::size_t* chosenKind) = 0;
    /// Shows the entries of `base` as a menu at the mouse.
    virtual Ref<MenuItem> PopUp(const MenuItem& base) = 0;
    /// Opens the window and returns when it has closed.
    virtual void ShowModal(Window& window) = 0;
    virtual bool PageSetupDialog(PrinterSetup& setup) = 0;
    /// The pages of the printer that the person chose, in points of the printable size, with `Copies`. The title names
    /// the job, and the file that is proposed for a print to a file.
    virtual std::unique_ptr<Graphics> OpenPrinterDialog(const PrinterSetup& setup, Window& parent,
                                                        const std::string& title) = 0;
    /// Hands a file to the program that the system has registered for it; false when that fails.
    virtual bool Launch(const FolderItem& file) = 0;
    virtual bool AsyncShiftKey() const = 0;
    virtual bool AsyncControlKey() const = 0;

    /// Whether the press that is being handled asks for a contextual menu.
    bool IsContextualClick = false;

private:
    Platform* before_;
};

/// The platform that the program runs on. Raises NilObjectException when there is none.
Platform& platform();

// The same by the short names that the program uses.
void MsgBox(const std::string& message);
bool SelectColor(Color& color, const std::string& prompt);
Ref<FolderItem> GetOpenFolderItem(const FileFilter& filter);
Ref<FolderItem> GetSaveFolderItem(const FileFilter& filter, const std::string& defaultName,
                                  std::size_t* chosenKind = nullptr);
std::unique_ptr<Graphics> OpenPrinterDialog(const Ref<PrinterSetup>& setup, Window& parent, const std::string& title);
bool IsContextualClick();

namespace Keyboard {
bool AsyncShiftKey();
bool AsyncControlKey();
} // namespace Keyboard

} // namespace quorrin
