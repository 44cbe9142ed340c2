#pragma once

#include "toolkit/Graphics.h"

#include <cstdint>

namespace quorrin {

class Map;

// The sizes of the tiles that lie on a square, in page pixels, and where they lie from the square's corner.

inline constexpr int objectTileSize = 56;
inline constexpr int objectTileOffset = 3;
inline constexpr int markerTileSize = 56;
inline constexpr int markerTileOffset = 2;
/// A wall's tile begins at the square's corner and reaches two pixels into the next square.
inline constexpr int wallTileSize = 64;

/// Draws what Map::DrawObject gives straight on a page, with the tile's corner at x, y. May set colour and pen.
void drawObjectTile(Graphics& g, const Map& map, std::int64_t objectNumber, std::int64_t colorMode, double x, double y);

/// The shared picture of what Map::DrawDM gives a copy of; only to be drawn.
const Ref<Picture>& markerTile(std::int64_t markerNumber);

} // namespace quorrin
