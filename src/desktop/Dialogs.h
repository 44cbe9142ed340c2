#pragma once

#include "toolkit/Platform.h"

class QWidget;

namespace quorrin {

// What the dialogs of DesktopPlatform stand on; they themselves are told in toolkit/Platform.h.

/// The window that the person looks at: the dialog that waits, else the main window; nil when none is shown.
QWidget* frontWidget();

} // namespace quorrin
