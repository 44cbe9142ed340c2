#pragma once

#include "document/Window1.h"

namespace quorrin {

/// Makes the map that the help shows on a freshly opened window.
void makeDemoMap(Window1& window);

} // namespace quorrin
