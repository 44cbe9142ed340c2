#include "document/Map.h"
#include "document/Rows.h"
#include "render/Tiles.h"
#include "toolkit/Numbers.h"
#include "toolkit/Text.h"

namespace quorrin {

namespace {

constexpr std::int64_t lastMarker = 21;

void drawMarker(Graphics& g, std::int64_t markerNumber)
{
    g.ForeColor = black;
    g.DrawOval(2, 2, 54, 54);
    g.TextSize = 36;
    const auto text = markerNumber == heros ? "H" : Str(markerNumber - heros);
    const auto width = Int(g.StringWidth(text));
    const auto height = Int(g.StringHeight(text, 60));
    // The baseline stands 10 above the bottom of a centred line of text. As a line has room for descenders, which
    // digits lack, they stand a little above the ring's middle.
    const auto x = (markerTileSize - width) / 2 + 1;
    const auto y = markerTileSize - (markerTileSize - height) / 2 - 10;
    g.DrawString(text, static_cast<double>(x), static_cast<double>(y));
}

} // namespace

const Rows& markerRows()
{
    static const Rows captions = [] {
        Rows all{"Blank", "Heros"};
        for (std::int64_t marker = heros + 1; marker <= lastMarker; ++marker)
            all.push_back(Str(marker - heros));
        return all;
    }();
    return captions;
}

const Ref<Picture>& markerTile(std::int64_t markerNumber)
{
    // A marker looks the same on every map and in every mode, so each is drawn once, as if it were art.
    static Array<Ref<Picture>, lastMarker> drawn;
    const auto known = markerNumber > blank && markerNumber <= lastMarker ? markerNumber : blank;
    auto& tile = drawn(known);
    // Fonts are loaded for a marker that is seen, and for none else: that takes as long as a page.
    if (!tile)
        tile = known == blank
                   ? New<Picture>(markerTileSize, markerTileSize)
                   : Picture::Later(markerTileSize, markerTileSize, [=](Graphics& g) { drawMarker(g, known); });
    return tile;
}

Ref<Picture> Map::DrawDM(std::int64_t markerNumber)
{
    auto tile = New<Picture>(markerTileSize, markerTileSize);
    tile->Graphics().DrawPicture(markerTile(markerNumber), 0, 0);
    return tile;
}

} // namespace quorrin
