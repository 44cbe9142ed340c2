#include "document/Map.h"
#include "document/Rows.h"
#include "render/Catalogue.h"
#include "render/Tiles.h"

#include <algorithm>

namespace quorrin {

namespace {

/// Sets the picture up for the mode and returns it. The shared pictures keep `Mask` and `Transparent` afterwards; the
/// two modes that need them set both.
const Ref<Picture>& artInMode(const CatalogueRow& row, std::int64_t mode)
{
    if (row.departure == Departure::Plain)
        return row.color();
    switch (mode) {
    case translucentColor:
        row.color()->Mask = row.mask();
        return row.color();
    case solidColor:
        row.color()->Mask = nullptr;
        row.color()->Transparent = 1;
        return row.color();
    case blackAndWhite:
        if (row.departure != Departure::WhiteCoversInBW)
            row.blackAndWhite()->Transparent = 1;
        return row.blackAndWhite();
    default:
        return row.color();
    }
}

/// At natural size; what would reach beyond the tile is cut off.
void drawArt(Graphics& g, const Ref<Picture>& art, double x, double y)
{
    const auto width = static_cast<double>(std::min<std::int64_t>(art->Width(), objectTileSize));
    const auto height = static_cast<double>(std::min<std::int64_t>(art->Height(), objectTileSize));
    g.DrawPicture(art, x, y, width, height, 0, 0, width, height);
}

/// Seven steps, 5 apart from 15 to 45, each 6 wider than the last towards the side where the stairs lead.
void drawStairs(Graphics& g, Departure direction, double x, double y)
{
    const bool vertical = direction == Departure::StairsN || direction == Departure::StairsS;
    const bool backwards = direction == Departure::StairsN || direction == Departure::StairsW;
    g.ForeColor = black;
    g.PenWidth = g.PenHeight = 1;
    for (int n = 1; n <= 7; ++n) {
        const int at = 10 + 5 * (backwards ? 8 - n : n);
        if (vertical)
            g.DrawLine(x + 27 - 3 * n, y + at, x + 27 + 3 * n, y + at);
        else
            g.DrawLine(x + at, y + 27 - 3 * n, x + at, y + 27 + 3 * n);
    }
}

/// A token's figure over the whole tile. It has no black and white form.
void drawFigure(Graphics& g, const cCharacter& token, std::int64_t mode, double x, double y)
{
    if (token.IconData.empty() || !token.Icon)
        return;
    auto figure = token.Icon;
    if (mode == translucentColor) {
        figure = token.Icon->Flattened();
        figure->Transparent = 1;
    }
    g.DrawPicture(figure, x, y, objectTileSize, objectTileSize, 0, 0, static_cast<double>(figure->Width()),
                  static_cast<double>(figure->Height()));
}

} // namespace

void drawObjectTile(Graphics& g, const Map& map, std::int64_t objectNumber, std::int64_t colorMode, double x, double y)
{
    if (const auto character = characterOfObject(objectNumber)) {
        drawFigure(g, *map.myCharacters(character), colorMode, x, y);
    } else if (objectNumber > blank && objectNumber <= lastCatalogueObject) {
        const auto& row = catalogue()[static_cast<std::size_t>(objectNumber - 1)];
        if (row.color)
            drawArt(g, artInMode(row, colorMode), x, y);
        else
            drawStairs(g, row.departure, x, y);
    }
}

Ref<Picture> Map::DrawObject(std::int64_t objectNumber, std::int64_t colorMode) const
{
    auto tile = New<Picture>(objectTileSize, objectTileSize);
    drawObjectTile(tile->Graphics(), *this, objectNumber, colorMode, 0, 0);
    return tile;
}

} // namespace quorrin
