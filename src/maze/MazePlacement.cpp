#include "maze/MazePlacement.h"

#include "document/Rows.h"
#include "maze/mMaze.h"

// Lays a maze on the map. The two kinds read the grid differently, and neither treats the sides of the page alike: kept
// so that mazes look as users know them.

namespace quorrin {

namespace {

struct Stamp {
    int column;
    int row;
};

/// How an object maze, carved one row and one column too small, is stretched over the page: one row is doubled, then
/// one column, each as far as its length says, and the frame that this broke is stamped shut.
struct Stretch {
    int width;
    int height;
    int doubledRow;
    int rowLength;
    Stamp rowStamps[2];
    int doubledColumn;
    int columnLength;
    Stamp columnStamps[2];
};
constexpr Stretch landscapeStretch{11, 7, 6, 11, {{1, 6}, {12, 6}}, 8, 8, {{8, 1}, {8, 8}}};
constexpr Stretch portraitStretch{7, 11, 8, 8, {{1, 7}, {8, 7}}, 6, 12, {{5, 1}, {5, 12}}};

void layObjects(Layer& squares, std::int64_t object)
{
    for (int x = 1; x <= mMaze::MAZE_X; ++x)
        for (int y = 1; y <= mMaze::MAZE_Y; ++y)
            squares(x, y)->thisObject = mMaze::blnMaze(x, y) ? blank : object;
}

void stretch(Layer& squares, const Stretch& how, std::int64_t object)
{
    for (int y = how.height; y >= how.doubledRow; --y)
        for (int x = 1; x <= how.rowLength; ++x)
            squares(x, y + 1)->thisObject = squares(x, y)->thisObject;
    for (const auto& [column, row] : how.rowStamps)
        squares(column, row)->thisObject = object;
    for (int x = how.width; x >= how.doubledColumn; --x)
        for (int y = 1; y <= how.columnLength; ++y)
            squares(x + 1, y)->thisObject = squares(x, y)->thisObject;
    for (const auto& [column, row] : how.columnStamps)
        squares(column, row)->thisObject = object;
}

/// The wall that a solid position of the grid stands for. Odd grid rows are the horizontal lines, even ones the
/// vertical lines; column 1 stands outside the maze.
void setWall(Layer& squares, bool portrait, int gridColumn, int gridRow)
{
    const int row = (gridRow + 1) / 2;
    const bool last = gridColumn == mMaze::MAZE_X;
    cWall& wall = *squares(gridColumn, row)->Wall;
    if (gridRow % 2 != 0) {
        if (gridColumn != 1 && !(portrait && last))
            wall.Top = true;
    } else if (gridColumn == 1) {
        wall.Right = true;
        wall.Top = false;
    } else if (!portrait && last) {
        wall.Right = true;
    } else {
        wall.Left = true;
        // Square column 9 is hidden in portrait, so the frame shows on the square before it.
        if (last)
            squares(gridColumn - 1, row)->Wall->Right = true;
    }
}

} // namespace

void placeObjectMaze(Map& map, Layer& layer, bool portrait, std::int64_t object)
{
    const Stretch& how = portrait ? portraitStretch : landscapeStretch;
    mMaze::CreateMaze(how.width, how.height, true);
    layObjects(layer, object);
    // Always the bottom layer, also when the maze was laid on the top one.
    stretch(map.mySquares, how, object);
}

void placeWallMaze(Map& map, bool portrait)
{
    forEachSquare(map.mySquares, [](cSquare& square) { square.Wall = New<cWall>(); });
    if (portrait)
        mMaze::CreateMaze(9, 23, true);
    else
        mMaze::CreateMaze(11, 15, true);
    for (int y = 1; y <= mMaze::MAZE_Y; ++y)
        for (int x = 1; x <= mMaze::MAZE_X; ++x)
            if (!mMaze::blnMaze(x, y))
                setWall(map.mySquares, portrait, x, y);
}

} // namespace quorrin
