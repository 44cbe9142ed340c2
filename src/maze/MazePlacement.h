#pragma once

#include "document/Map.h"

#include <cstdint>

namespace quorrin {

/// Lays a new maze of an object on that layer of the map, and stretches the bottom one over the page, whichever it was.
void placeObjectMaze(Map& map, Layer& layer, bool portrait, std::int64_t object);

/// Puts a new maze in place of all walls.
void placeWallMaze(Map& map, bool portrait);

} // namespace quorrin
