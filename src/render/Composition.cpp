#include "document/Window1.h"
#include "render/PageArt.h"
#include "render/Tiles.h"

#include <algorithm>
#include <utility>
#include <vector>

// The one composer. Every picture of the map, on the screen, in a file or on paper, is what this leaves in myImage. The
// order of the steps is the order of the layers on the page.

namespace quorrin {

namespace {

/// Calls `draw` for each square of a layer that lies on the page. Their order has a square's tile lie over what its
/// left and upper neighbours' tiles reach into it.
template <typename Draw>
void forEachVisible(const Layer& squares, Draw draw)
{
    forEachSquare(squares, [&](const cSquare& square) {
        if (square.Visible)
            draw(square, static_cast<double>(square.x), static_cast<double>(square.y));
    });
}

void drawUserPicture(Graphics& g, const Map& map)
{
    if (map.UserPicture)
        g.DrawPicture(map.UserPicture, 0, 0);
}

/// Outlines what a click hits, with the pen that the grid has left: two pixels wide over a coloured grid, else one.
void drawClickableFrames(Graphics& g, const Map& map)
{
    g.ForeColor = RGB(0, 0, 200);
    forEachVisible(map.mySquares, [&](const cSquare&, double x, double y) { g.DrawRect(x + 1, y + 1, 60, 60); });
}

void drawObjects(Graphics& g, const Map& map, const Layer& squares, std::int64_t mode)
{
    forEachVisible(squares, [&](const cSquare& square, double x, double y) {
        drawObjectTile(g, map, square.thisObject, mode, x + objectTileOffset, y + objectTileOffset);
    });
}

/// Squares mostly share a few sets of walls, so each set is rendered once a page.
class WallTiles {
public:
    const Ref<Picture>& of(const cWall& wall)
    {
        const auto known =
            std::find_if(tiles_.begin(), tiles_.end(), [&](const auto& tile) { return tile.first == wall; });
        return known != tiles_.end() ? known->second : tiles_.emplace_back(wall, wall.Render()).second;
    }

private:
    std::vector<std::pair<cWall, Ref<Picture>>> tiles_;
};

void drawWalls(Graphics& g, const Map& map)
{
    WallTiles tiles;
    forEachVisible(map.mySquares, [&](const cSquare& square, double x, double y) {
        if (square.Wall)
            g.DrawPicture(tiles.of(*square.Wall), x, y);
    });
}

void drawMarkers(Graphics& g, const Map& map)
{
    forEachVisible(map.mySquares, [&](const cSquare& square, double x, double y) {
        g.DrawPicture(markerTile(square.thisDM), x + markerTileOffset, y + markerTileOffset);
    });
}

} // namespace

void Window1::RenderMap(bool includeUserPicture)
{
    const bool portrait = isPortrait();
    myImage = portrait ? New<Picture>(shortSide, longSide, 32) : New<Picture>(longSide, shortSide, 32);
    auto& g = myImage->Graphics();

    drawBackground(g, pmBackground.ListIndex, portrait);
    if (includeUserPicture && !cbOverlayUserPict.Value)
        drawUserPicture(g, *this);
    drawGrid(g, pmGrid.ListIndex, portrait);
    drawBorders(g, {pmBorderTop.ListIndex, pmBorderBottom.ListIndex, pmBorderLeft.ListIndex, pmBorderRight.ListIndex});
    if (cbShowClickable.Value)
        drawClickableFrames(g, *this);
    if (pmVisibleLayers.ListIndex != VisibleLayers::Top)
        drawObjects(g, *this, mySquares, pmColorBW.ListIndex);
    // The top layer is never translucent: that is how an object stands clear on the terrain below it.
    if (pmVisibleLayers.ListIndex != VisibleLayers::Bottom)
        drawObjects(g, *this, mySquaresTop, pmColorBW.ListIndex == blackAndWhite ? blackAndWhite : solidColor);
    drawWalls(g, *this);
    if (cbShowDMObjects.Value)
        drawMarkers(g, *this);
    if (includeUserPicture && cbOverlayUserPict.Value)
        drawUserPicture(g, *this);
    Canvas1.Invalidate(true);
}

} // namespace quorrin
