#include "document/Window1.h"

namespace quorrin {

namespace {

constexpr int pitch = 62;
/// How many squares the shorter side of a page holds; the longer holds all twelve.
constexpr int squaresOnShortSide = 8;

/// Where the first square of a page stands, in page pixels. The two are no swap of one another.
struct Origin {
    int x;
    int y;
};
constexpr Origin landscapeOrigin{7, 42};
constexpr Origin portraitOrigin{38, 7};

void place(const Window1::Layer& squares, bool landscape)
{
    const Origin origin = landscape ? landscapeOrigin : portraitOrigin;
    for (int i = 1; i <= Window1::columns; ++i) {
        for (int j = 1; j <= Window1::rows; ++j) {
            cSquare& square = *squares(i, j);
            square.Visible = (landscape ? j : i) <= squaresOnShortSide;
            square.x = (i - 1) * pitch + origin.x;
            square.y = (j - 1) * pitch + origin.y;
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
    place(mySquares, orientation == 0);
}

void Window1::SetTopSquaresVisible(std::int64_t orientation)
{
    place(mySquaresTop, orientation == 0);
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
