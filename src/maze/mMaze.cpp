#include "maze/mMaze.h"

#include "toolkit/Random.h"

namespace quorrin::mMaze {

Array2<bool, largestPosition> blnMaze;
Array<Ref<COORDS>, 3> cDir;
std::int64_t LastDoorUsed = 0;
std::int64_t MAZE_X = 0;
std::int64_t MAZE_Y = 0;

namespace {

std::int64_t even(std::int64_t number)
{
    return number / 2 * 2;
}

/// Moves to the first free cell in the order of directions and opens it, with the passage to it; false at a dead end.
bool step(COORDS& current)
{
    for (int i = 0; i <= 3; ++i) {
        const COORDS& direction = *cDir(i);
        const COORDS next{current.X + 2 * direction.X, current.Y + 2 * direction.Y};
        if (!IsFree(next))
            continue;
        blnMaze(next.X, next.Y) = true;
        blnMaze(current.X + direction.X, current.Y + direction.Y) = true;
        current = next;
        return true;
    }
    return false;
}

} // namespace

void CreateMaze(std::int64_t width, std::int64_t height, bool newDoor)
{
    MAZE_X = even(width) + 1;
    MAZE_Y = even(height) + 1;
    GenerateMaze();
    CreateDoors(newDoor);
}

/// Walks from cell to cell until a dead end, then starts again from a cell of the maze that is found by sampling.
void GenerateMaze()
{
    Random random;
    random.RandomizeSeed();
    for (std::int64_t x = 0; x <= MAZE_X; ++x)
        for (std::int64_t y = 0; y <= MAZE_Y; ++y)
            blnMaze(x, y) = false;

    std::int64_t steps = 0;
    do {
        // The last column and row are drawn half as often as the others; kept so that the same
        // random numbers carve the same maze.
        COORDS current;
        current.X = even(random.InRange(2, MAZE_X - 1));
        current.Y = even(random.InRange(2, MAZE_Y - 1));
        if (steps == 0)
            blnMaze(current.X, current.Y) = true;
        if (!blnMaze(current.X, current.Y))
            continue;
        // Redundant while every step draws its own order below; it stays.
        RandomDirections();
        for (bool walking = true; walking;) {
            if (random.InRange(0, RANDOMISATION) == 0)
                RandomDirections();
            walking = step(current);
            if (walking)
                ++steps;
        }
    } while (static_cast<double>((MAZE_X - 1) * (MAZE_Y - 1)) / 4.0 > static_cast<double>(steps + 1));
}

void CreateDoors(bool newDoor)
{
    // The one generator of the module that keeps the seed that it was born with.
    Random random;
    blnMaze(2, 1) = true;
    if (newDoor)
        LastDoorUsed = random.InRange(1, 3);
    switch (LastDoorUsed) {
    case 1:
        blnMaze(MAZE_X, 2) = true;
        break;
    case 2:
        blnMaze(2, MAZE_Y) = true;
        break;
    case 3:
        blnMaze(MAZE_X - 1, MAZE_Y) = true;
        break;
    default: // no exit before the first new door
        break;
    }
}

/// Only these four of the twenty-four orders occur, opposite directions always side by side: the limit shapes the
/// mazes.
void RandomDirections()
{
    static constexpr COORDS orders[4][4] = {
        {{-1, 0}, {1, 0}, {0, -1}, {0, 1}},
        {{0, 1}, {0, -1}, {1, 0}, {-1, 0}},
        {{0, -1}, {0, 1}, {-1, 0}, {1, 0}},
        {{1, 0}, {-1, 0}, {0, 1}, {0, -1}},
    };
    Random random;
    random.RandomizeSeed();
    const auto& order = orders[random.InRange(0, 3)];
    for (int i = 0; i <= 3; ++i)
        cDir(i) = New<COORDS>(order[i]);
}

bool IsFree(const COORDS& position)
{
    return position.X > 1 && position.X < MAZE_X && position.Y > 1 && position.Y < MAZE_Y
           && !blnMaze(position.X, position.Y);
}

} // namespace quorrin::mMaze
