#pragma once

#include "toolkit/Platform.h"

class QPrinter;
class QWidget;

namespace quorrin {

// What the dialogs of DesktopPlatform stand on; they themselves are told in toolkit/Platform.h.

/// The window that the person looks at: the dialog that waits, else the main window; nil when none is shown.
QWidget* frontWidget();

/// The copies that a person chose for a printer, which makes one from now on: each print makes its copies itself, or
/// has its own reason to make one.
int takeCopies(QPrinter& printer);

} // namespace quorrin
