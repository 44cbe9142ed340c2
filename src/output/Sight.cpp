#include "output/Sight.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace quorrin {

namespace {

/// Where the panel of a door begins and ends on its edge.
constexpr double panelFrom = 20.0 / Board::pitch;
constexpr double panelTo = 42.0 / Board::pitch;

/// The straight pieces that a square can have: from one corner to another, both counted from its top left, with the
/// wall and, on an edge, the door.
struct Piece {
    int fromX, fromY, toX, toY;
    bool cWall::*wall;
    bool cWall::*door;
};
constexpr Piece pieces[] = {
    {0, 0, 1, 0, &cWall::Top, &cWall::DoorTop},   {0, 1, 1, 1, &cWall::Bottom, &cWall::DoorBottom},
    {0, 0, 0, 1, &cWall::Left, &cWall::DoorLeft}, {1, 0, 1, 1, &cWall::Right, &cWall::DoorRight},
    {0, 0, 1, 1, &cWall::Slash, nullptr},         {0, 1, 1, 0, &cWall::BackSlash, nullptr},
};

/// Objects that shine, by their rows in the catalogue.
struct Shining {
    std::int64_t object;
    double range;
    Color color;
};
constexpr Shining shiningObjects[] = {
    {34, 8, RGB(255, 150, 64)},   // Campfire
    {35, 8, RGB(255, 176, 88)},   // Torch Lit
    {38, 6, RGB(255, 158, 74)},   // Stone Fireplace
    {48, 9, RGB(255, 216, 140)},  // Lantern
    {120, 2, RGB(255, 204, 120)}, // Candle
};

template <typename Visit>
void forEachShown(const Layer& squares, const Board& board, Visit visit)
{
    forEachCell([&](int column, int row) {
        const cSquare& square = *squares(column, row);
        if (square.Visible && column <= board.columns && row <= board.rows)
            visit(square, column - 1, row - 1);
    });
}

Point between(const Segment& piece, double part)
{
    return {piece.from.x + (piece.to.x - piece.from.x) * part, piece.from.y + (piece.to.y - piece.from.y) * part};
}

/// All pieces of all squares, each once, and whether there is a door in it.
std::map<Segment, bool> piecesOf(const Layer& squares, const Board& board)
{
    std::map<Segment, bool> found;
    forEachShown(squares, board, [&](const cSquare& square, int x, int y) {
        if (!square.Wall)
            return;
        for (const Piece& piece : pieces) {
            const bool door = piece.door && (*square.Wall).*piece.door;
            // A door alone is drawn with a bar along the whole edge.
            if (!door && !((*square.Wall).*piece.wall))
                continue;
            found[{{double(x + piece.fromX), double(y + piece.fromY)},
                   {double(x + piece.toX), double(y + piece.toY)}}] |= door;
        }
    });
    return found;
}

bool sameDirection(const Segment& a, const Segment& b)
{
    // All directions are multiples of 45 degrees to the right or straight down.
    const auto sign = [](double number) { return (number > 0) - (number < 0); };
    return sign(a.to.x - a.from.x) == sign(b.to.x - b.from.x) && sign(a.to.y - a.from.y) == sign(b.to.y - b.from.y);
}

/// Makes one of pieces that continue each other straight. Pieces come from left to right and from top to bottom.
std::vector<Segment> straightened(const std::vector<Segment>& parts)
{
    std::vector<Segment> whole;
    for (const Segment& part : parts) {
        const auto before = std::ranges::find_if(
            whole, [&](const Segment& known) { return known.to == part.from && sameDirection(known, part); });
        if (before == whole.end())
            whole.push_back(part);
        else
            before->to = part.to;
    }
    return whole;
}

/// The line that goes on from the end of `line`, when it is the only one that ends there.
std::optional<std::size_t> continuation(const std::vector<Polyline>& lines, const Polyline& line)
{
    std::optional<std::size_t> found;
    int ends = 0;
    for (std::size_t n = 0; n < lines.size(); ++n) {
        for (const Point& end : {lines[n].front(), lines[n].back()}) {
            if (end != line.back())
                continue;
            ++ends;
            if (&lines[n] != &line)
                found = n;
        }
    }
    return ends == 2 ? found : std::nullopt;
}

/// Joins lines at the corners where exactly two of them end.
std::vector<Polyline> joined(std::vector<Polyline> lines)
{
    for (std::size_t n = 0; n < lines.size();) {
        auto next = continuation(lines, lines[n]);
        if (!next) {
            std::ranges::reverse(lines[n]);
            next = continuation(lines, lines[n]);
        }
        if (!next) {
            ++n;
            continue;
        }
        Polyline& other = lines[*next];
        if (other.front() != lines[n].back())
            std::ranges::reverse(other);
        lines[n].insert(lines[n].end(), other.begin() + 1, other.end());
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(*next));
        n -= *next < n;
    }
    return lines;
}

} // namespace

Walls wallsOf(const Layer& squares, const Board& board)
{
    Walls walls;
    std::vector<Segment> parts;
    for (const auto& [piece, hasDoor] : piecesOf(squares, board)) {
        if (!hasDoor) {
            parts.push_back(piece);
            continue;
        }
        const Segment panel{between(piece, panelFrom), between(piece, panelTo)};
        walls.doors.push_back(panel);
        parts.push_back({piece.from, panel.from});
        parts.push_back({panel.to, piece.to});
    }
    for (const Segment& whole : straightened(parts))
        walls.lines.push_back({whole.from, whole.to});
    walls.lines = joined(std::move(walls.lines));
    return walls;
}

std::vector<Light> lightsOf(const Layer& squares, const Board& board)
{
    std::vector<Light> lights;
    forEachShown(squares, board, [&](const cSquare& square, int x, int y) {
        const auto shining = std::ranges::find(shiningObjects, square.thisObject, &Shining::object);
        if (shining != std::end(shiningObjects))
            lights.push_back({{x + 0.5, y + 0.5}, shining->range, shining->color});
    });
    return lights;
}

} // namespace quorrin
