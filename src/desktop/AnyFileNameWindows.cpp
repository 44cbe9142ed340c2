#include "desktop/AnyFileName.h"

// File names are texts there, all of which Qt knows.

void quorrin::allowAnyFileName()
{}
