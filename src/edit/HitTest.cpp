#include "edit/HitTest.h"

#include "toolkit/Numbers.h"

namespace quorrin {

namespace {

/// Corners come from map files and may be any number.
bool reaches(std::int64_t corner, std::int64_t place)
{
    return corner <= place && place <= addSaturated(corner, hitReach);
}

} // namespace

std::optional<Cell> cellAt(const Layer& squares, std::int64_t x, std::int64_t y)
{
    std::optional<Cell> first;
    forEachCell([&](int column, int row) {
        const cSquare& square = *squares(column, row);
        if (!first && square.Visible && reaches(square.x, x) && reaches(square.y, y))
            first = Cell{column, row};
    });
    return first;
}

Ref<cSquare> squareAt(Layer& squares, std::int64_t x, std::int64_t y)
{
    const auto cell = cellAt(squares, x, y);
    if (!cell)
        return nullptr;
    return squares(cell->column, cell->row);
}

} // namespace quorrin
