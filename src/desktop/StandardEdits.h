#pragma once

#include "toolkit/Menu.h"

class QWidget;

namespace quorrin {

/// Whether the platform does this by itself in text fields and areas.
bool isEditCommand(MenuItem::Standard command);
/// Whether the widget is a text that the command can do something to now; false for nil.
bool canEdit(QWidget* widget, MenuItem::Standard command);
void edit(QWidget* widget, MenuItem::Standard command);

} // namespace quorrin
