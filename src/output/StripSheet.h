#pragma once

#include "document/cCharacter.h"
#include "output/Paper.h"
#include "toolkit/Graphics.h"

#include <vector>

namespace quorrin {

class Map;

/// Paper characters in the size of the squares that they stand on. Lengths are points.
struct StripSheet {
    Paper paper;
    double stripWidth;
    double stripHeight;
    /// How many strips a page holds side by side and below one another.
    int columns;
    int rows;
};

/// The characters that have a figure or a number.
std::vector<Ref<const cCharacter>> charactersToCut(const Map& map);

/// Strips for squares of this side on as few pages as possible; nothing when not even one strip fits.
std::optional<StripSheet> stripSheet(double square, int strips, const PaperWish& wish);

/// Draws the strips. `g` begins at the corner of the paper.
void printStrips(Graphics& g, const StripSheet& sheet, const std::vector<Ref<const cCharacter>>& characters);

} // namespace quorrin
