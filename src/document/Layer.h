#pragma once

#include "document/cSquare.h"
#include "toolkit/Arrays.h"

namespace quorrin {

/// One layer of squares, addressed by column and row from 1; index 0 stays nil and is never read.
class Layer : public Array2<Owned<cSquare>, 12> {
public:
    static constexpr int columns = 12;
    static constexpr int rows = 12;
};

/// Calls `visit(column, row)` for each place of a layer, down the columns from the left: the order of the map file, of
/// hit tests and of drawing.
template <typename Visit>
void forEachCell(Visit visit)
{
    for (int column = 1; column <= Layer::columns; ++column)
        for (int row = 1; row <= Layer::rows; ++row)
            visit(column, row);
}

/// Calls `visit(square)` for each square of a layer in the same order; the squares of a constant layer are constant.
template <typename Squares, typename Visit>
void forEachSquare(Squares& squares, Visit visit)
{
    forEachCell([&](int column, int row) { visit(*squares(column, row)); });
}

} // namespace quorrin
