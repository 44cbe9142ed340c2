#pragma once

#include "output/Paper.h"
#include "toolkit/Graphics.h"

namespace quorrin {

class Window1;

/// A picture divided among pages that are glued together: tiles of one size, each reaching `overlap` into the next.
/// Lengths are points.
struct TiledPrint {
    static constexpr double overlap = millimetres(5);

    Paper paper;
    int columns;
    int rows;
    double tileWidth;
    double tileHeight;

    int pages() const { return columns * rows; }
    /// Where a tile of this column or row, from 0, begins on the picture.
    double left(int column) const { return column * (tileWidth - overlap); }
    double top(int row) const { return row * (tileHeight - overlap); }
};

/// Divides a picture of this size among as few pages as possible.
TiledPrint tiledPrint(double width, double height, const PaperWish& wish);

/// The page of the window, or its squares alone.
struct PrintedMap {
    /// The side of a square, in points.
    double square;
    bool boardOnly;
};

TiledPrint tiledPrint(const Window1& window, const PrintedMap& map, const PaperWish& wish);

/// Draws the tiles as the window shows the page, each on a page of its own with crop marks, a plan of the pages and its
/// number. `g` begins at the corner of the paper. Neighbours have their marks at the same places of the map: one is
/// cut there and laid on the other's.
void printTiles(Graphics& g, const TiledPrint& tiles, const Window1& window, const PrintedMap& map);

} // namespace quorrin
