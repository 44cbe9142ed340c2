#pragma once

#include "document/Layer.h"

#include <cstdint>
#include <optional>

namespace quorrin {

/// A square by column and row, from 1.
struct Cell {
    int column;
    int row;
};

/// How far the hit box of a square reaches right and down from its corner, both ends included. Squares stand 62 pixels
/// apart, so a line one pixel wide between them belongs to none.
inline constexpr std::int64_t hitReach = 60;

/// The visible square at a place in page pixels, none beside the squares. Should boxes overlap, the first in the
/// columns' order counts.
std::optional<Cell> cellAt(const Layer& squares, std::int64_t x, std::int64_t y);

/// The same, nil beside the squares.
Ref<cSquare> squareAt(Layer& squares, std::int64_t x, std::int64_t y);

} // namespace quorrin
