#pragma once

#include "toolkit/Arrays.h"
#include "toolkit/Ref.h"

#include <cstdint>

namespace quorrin {

/// A position or a step in the grid of a maze.
class COORDS {
public:
    std::int64_t X = 0;
    std::int64_t Y = 0;
};

/// Carves a random maze into a grid: a spanning tree of its cells, with an entry and an exit in the solid frame. Cells
/// are the positions inside the frame whose X and Y are both even; a passage lies midway between two of them.
namespace mMaze {

inline constexpr int largestPosition = 23;

/// The maze carved last, by X and Y from 1 to MAZE_X and MAZE_Y; true is open. What lies outside is left over from
/// larger mazes.
extern Array2<bool, largestPosition> blnMaze;
/// The four directions in their present order, each a unit step along one axis.
extern Array<Ref<COORDS>, 3> cDir;
/// The exit of the last maze that had a new one: 1 to 3, 0 before the first.
extern std::int64_t LastDoorUsed;
/// The size of the maze carved last, in positions; both odd.
extern std::int64_t MAZE_X;
extern std::int64_t MAZE_Y;
/// How rarely the order of directions changes; at 0, the only value in use, it is drawn anew at every step.
inline constexpr std::int64_t RANDOMISATION = 0;

/// Carves a maze; an even size goes up by one. Without a new door the exit of the last maze is opened again. Raises
/// RuntimeException for a size below 2, which has no cells, and OutOfBoundsException for one above 23.
void CreateMaze(std::int64_t width, std::int64_t height, bool newDoor);
/// Carves all cells of a maze of MAZE_X by MAZE_Y.
void GenerateMaze();
/// Opens the entry and the exit.
void CreateDoors(bool newDoor);
/// Puts one of four orders into cDir.
void RandomDirections();
/// Whether the walk may go there: inside the frame and still solid.
bool IsFree(const COORDS& position);

} // namespace mMaze

} // namespace quorrin
