#pragma once

#include "document/Rows.h"

#include <cstdint>

namespace quorrin {

/// The squares of a page: how many there are, and where they lie in page pixels.
struct Board {
    int columns;
    int rows;
    int left;
    int top;

    static constexpr int pitch = 62;
    constexpr int width() const { return columns * pitch; }
    constexpr int height() const { return rows * pitch; }
};

/// The corners of the two are no swap of one another.
inline constexpr Board landscapeBoard{12, 8, 7, 42};
inline constexpr Board portraitBoard{8, 12, 38, 7};

/// By the row of pmLandscape, of which all but the one for landscape count as portrait.
constexpr bool isPortrait(std::int64_t orientation)
{
    return orientation != Orientation::Landscape;
}

constexpr const Board& boardOf(std::int64_t orientation)
{
    return isPortrait(orientation) ? portraitBoard : landscapeBoard;
}

} // namespace quorrin
