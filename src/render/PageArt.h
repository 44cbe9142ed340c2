#pragma once

#include "toolkit/Graphics.h"

#include <cstdint>

namespace quorrin {

// The page below the squares: background, grid and borders. All positions are page pixels.

/// A row of pmBackground, or Background::Cliff. Any other value draws nothing.
void drawBackground(Graphics& g, std::int64_t background, bool portrait);

/// A row of pmGrid. The coloured grids leave the pen 2 wide and 2 high.
void drawGrid(Graphics& g, std::int64_t grid, bool portrait);

/// Rows of the four border popups.
struct BorderRows {
    std::int64_t top, bottom, left, right;
};

/// Draws style by style, so that sharks lie over pine trees and these over mountains where edges meet.
void drawBorders(Graphics& g, const BorderRows& rows);

} // namespace quorrin
