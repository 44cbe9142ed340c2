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

std::optional<Cell> cellAt(const Window1::Layer& squares, std::int64_t x, std::int64_t y)
{
    for (int i = 1; i <= Window1::columns; ++i) {
        for (int j = 1; j <= Window1::rows; ++j) {
            const cSquare& square = *squares(i, j);
            if (square.Visible && reaches(square.x, x) && reaches(square.y, y))
                return Cell{i, j};
        }
    }
    return {};
}

Ref<cSquare> squareAt(Window1::Layer& squares, std::int64_t x, std::int64_t y)
{
    const auto cell = cellAt(squares, x, y);
    if (!cell)
        return nullptr;
    return squares(cell->column, cell->row);
}

} // namespace quorrin
