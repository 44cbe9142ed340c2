#pragma once

#include "toolkit/Platform.h"

class QWidget;

namespace quorrin {

// The dialogs of the platform, each over the window in front; what they return is told in toolkit/Platform.h.

/// The window that the person looks at: the dialog that waits, else the main window; nil when none is shown.
QWidget* frontWidget();

MessageDialog::Answer askPerson(const MessageDialog& question);
void showMessage(const std::string& message);
bool selectColor(Color& color, const std::string& prompt);
/// File dialogs start in the folder of this file from now on.
void rememberFolderOf(const FolderItem& file);
Ref<FolderItem> openFileDialog(const FileFilter& filter);
/// Proposes a name, adds that name's extension (or else the filter's first) to what the person types without one, and
/// asks before an existing file is replaced.
Ref<FolderItem> saveFileDialog(const FileFilter& filter, const std::string& defaultName);

bool pageSetupDialog(PrinterSetup& setup);
/// `jobName` is what the queue of a printer shows, and the proposed name of a file.
std::unique_ptr<Graphics> printerDialog(const PrinterSetup& setup, const std::string& jobName);

} // namespace quorrin
