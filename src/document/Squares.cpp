#include "document/Board.h"
#include "document/Window1.h"

namespace quorrin {

namespace {

void place(Window1::Layer& squares, const Board& board)
{
    for (int i = 1; i <= Window1::columns; ++i) {
        for (int j = 1; j <= Window1::rows; ++j) {
            cSquare& square = *squares(i, j);
            square.Visible = i <= board.columns && j <= board.rows;
            square.x = (i - 1) * Board::pitch + board.left;
            square.y = (j - 1) * Board::pitch + board.top;
        }
    }
}

void makeAnew(Window1::Layer& squares)
{
    for (int i = 1; i <= Window1::columns; ++i)
        for (int j = 1; j <= Window1::rows; ++j)
            squares(i, j) = New<cSquare>();
}

} // namespace

void Window1::SetSquaresVisible(std::int64_t orientation)
{
    place(mySquares, boardOf(orientation));
}

void Window1::SetTopSquaresVisible(std::int64_t orientation)
{
    place(mySquaresTop, boardOf(orientation));
}

void Window1::Initialize()
{
    makeAnew(mySquares);
    makeAnew(mySquaresTop);
    myScript = New<cScript>();
    SetSquaresVisible(0);
    SetTopSquaresVisible(0);
    for (int n = 1; n <= characters; ++n)
        myCharacters(n) = New<cCharacter>();

    btnCharacterTool.Value = false;
    btnCharacterTool.Enabled = true;
    bbScriptTool.Value = false;
    bbScriptTool.Enabled = true;
    gbDMObjects.Enabled = true;
    didMazePrompt = false;
}

} // namespace quorrin
