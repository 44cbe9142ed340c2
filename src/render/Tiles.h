#pragma once

namespace quorrin {

// The sizes of the tiles that lie on a square, in page pixels, and where they lie from the square's corner.

inline constexpr int objectTileSize = 56;
inline constexpr int objectTileOffset = 3;
inline constexpr int markerTileSize = 56;
inline constexpr int markerTileOffset = 2;
/// A wall's tile begins at the square's corner and reaches two pixels into the next square.
inline constexpr int wallTileSize = 64;

} // namespace quorrin
