#include "desktop/AnyFileName.h"

/// All names are UTF-16 there.
void quorrin::allowAnyFileName()
{}
