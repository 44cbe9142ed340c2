#pragma once

#include "document/Board.h"
#include "document/Layer.h"
#include "toolkit/Color.h"

#include <vector>

// What stops and gives light on a map, as a virtual table top wants to know it. Positions are in squares from the top
// left of the board.

namespace quorrin {

struct Point {
    double x;
    double y;
    friend auto operator<=>(const Point&, const Point&) = default;
};
using Polyline = std::vector<Point>;

struct Segment {
    Point from;
    Point to;
    friend auto operator<=>(const Segment&, const Segment&) = default;
};

struct Light {
    Point at;
    /// In squares.
    double range;
    Color color;
};

/// What stops sight on a board.
struct Walls {
    /// Straight pieces joined where two ends meet, with gaps at the doors. Nothing is covered twice.
    std::vector<Polyline> lines;
    /// The panels of the doors, one a door, from left to right or from top to bottom.
    std::vector<Segment> doors;
};

/// The walls of all squares that show. An edge belongs to two squares, and either may have its wall or its door.
Walls wallsOf(const Layer& squares, const Board& board);

/// The lights among the objects of a layer that show.
std::vector<Light> lightsOf(const Layer& squares, const Board& board);

} // namespace quorrin
