#pragma once

#include "document/Map.h"

#include <string>

namespace quorrin {

/// What lies on the square at a place in page pixels, and which square that is; empty beside the squares.
std::string describeSquare(const Map& map, int x, int y);

/// The walls and doors of a set, or that there are none.
std::string describeWall(const cWall& wall);

} // namespace quorrin
