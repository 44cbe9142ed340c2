#include "document/Map.h"

#include "document/Board.h"

namespace quorrin {

namespace {

void place(Layer& squares, const Board& board)
{
    forEachCell([&](int column, int row) {
        cSquare& square = *squares(column, row);
        square.Visible = column <= board.columns && row <= board.rows;
        square.x = (column - 1) * Board::pitch + board.left;
        square.y = (row - 1) * Board::pitch + board.top;
    });
}

void makeAnew(Layer& squares)
{
    forEachCell([&](int column, int row) { squares(column, row) = New<cSquare>(); });
}

} // namespace

void Map::SetSquaresVisible(std::int64_t orientation)
{
    place(mySquares, boardOf(orientation));
}

void Map::SetTopSquaresVisible(std::int64_t orientation)
{
    place(mySquaresTop, boardOf(orientation));
}

void Map::MakeAnew()
{
    makeAnew(mySquares);
    makeAnew(mySquaresTop);
    myScript = New<cScript>();
    SetSquaresVisible(Orientation::Landscape);
    SetTopSquaresVisible(Orientation::Landscape);
    for (int n = 1; n <= characters; ++n)
        myCharacters(n) = New<cCharacter>();
}

} // namespace quorrin
