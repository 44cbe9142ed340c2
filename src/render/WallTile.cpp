#include "document/Module1.h"
#include "document/cWall.h"
#include "render/Tiles.h"

namespace quorrin {

namespace {

struct Area {
    int x, y, width, height;
};

/// The band of a wall along a whole edge.
struct Band {
    bool cWall::*flag;
    Area area;
};
constexpr Band walls[] = {
    {&cWall::Top, {0, 0, 64, 5}},
    {&cWall::Bottom, {0, 59, 64, 5}},
    {&cWall::Left, {0, 0, 5, 64}},
    {&cWall::Right, {59, 0, 5, 64}},
};

/// A thinner bar along the whole edge with a pale panel near its middle.
struct Door {
    bool cWall::*flag;
    Area bar;
    Area panel;
};
constexpr Door doors[] = {
    {&cWall::DoorTop, {0, 1, 64, 3}, {22, 0, 22, 10}},
    {&cWall::DoorBottom, {0, 60, 64, 3}, {22, 54, 22, 10}},
    {&cWall::DoorLeft, {1, 0, 3, 64}, {0, 22, 10, 22}},
    {&cWall::DoorRight, {60, 0, 3, 64}, {54, 22, 10, 22}},
};

constexpr Color halfWhite = colorFromNumber(0x88FFFFFF);

void fill(Graphics& g, const Area& area)
{
    g.FillRect(area.x, area.y, area.width, area.height);
}

} // namespace

Ref<Picture> cWall::Render() const
{
    const Color color = Module1::gSkipWallColor ? black : myColor;
    auto tile = New<Picture>(wallTileSize, wallTileSize);
    auto& g = tile->Graphics();
    g.ForeColor = color;
    for (const auto& wall : walls)
        if (this->*wall.flag)
            fill(g, wall.area);
    g.PenWidth = 5;
    // The second one starts outside the tile and ends short of the corner: with the pen hanging to the right of its
    // line, that makes the two mirror each other.
    if (Slash)
        g.DrawLine(0, 0, 64, 64);
    if (BackSlash)
        g.DrawLine(-5, 64, 59, 0);
    g.PenWidth = 1;
    for (const auto& door : doors) {
        if (!(this->*door.flag))
            continue;
        g.ForeColor = color;
        fill(g, door.bar);
        g.DrawRect(door.panel.x, door.panel.y, door.panel.width, door.panel.height);
        g.ForeColor = halfWhite;
        fill(g, door.panel);
    }
    return tile;
}

} // namespace quorrin
