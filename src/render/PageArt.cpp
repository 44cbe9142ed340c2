#include "render/PageArt.h"

#include "document/Board.h"
#include "render/Art.h"

namespace quorrin {

namespace {

void fillPage(Graphics& g, Color color)
{
    g.ForeColor = color;
    g.FillRect(0, 0, g.Width(), g.Height());
}

/// The colours of the rows of pmGrid from Grid::Green to Grid::Red.
constexpr Color gridColors[] = {RGB(80, 125, 35), RGB(120, 110, 85), RGB(25, 95, 225), RGB(230, 215, 10),
                                RGB(235, 40, 40)};

/// The lines of a coloured grid: where the first one of each direction stands, up to where more are begun, and where
/// those of the other direction end.
struct GridLines {
    int left, top, right, bottom, lastX, lastY;
};
constexpr GridLines landscapeLines{6, 41, 750, 537, 756, 600};
/// The horizontal lines end one pixel short of the last vertical one; kept so that pages stay the same to the pixel.
constexpr GridLines portraitLines{37, 6, 532, 750, 576, 756};

void drawColoredGrid(Graphics& g, Color color, const GridLines& lines)
{
    g.PenWidth = 2;
    g.PenHeight = 2;
    g.ForeColor = color;
    for (int y = lines.top; y <= lines.lastY; y += Board::pitch)
        g.DrawLine(lines.left, y, lines.right, y);
    for (int x = lines.left; x <= lines.lastX; x += Board::pitch)
        g.DrawLine(x, lines.top, x, lines.bottom);
}

/// The art of one row of the border popups.
struct BorderStyle {
    std::int64_t row;
    const Ref<Picture>& horizontal;
    const Ref<Picture>& vertical;
};

} // namespace

void drawBackground(Graphics& g, std::int64_t background, bool portrait)
{
    switch (background) {
    case Background::White:
        return fillPage(g, RGB(255, 255, 255));
    case Background::Grey:
        return fillPage(g, RGB(200, 200, 200));
    case Background::Parchment:
        return g.DrawPicture(_x_Parchment(), 0, 0);
    case Background::Grass:
        return g.DrawPicture(_x_GrassParchment(), 0, 0);
    case Background::Water:
        return g.DrawPicture(_x_WaterParchment(), 0, 0);
    case Background::Cobblestone:
        return g.DrawPicture(_x_CobblestoneParchment(), 0, 0);
    case Background::Plain:
        return g.DrawPicture(_x_PlainParchment(), 0, 0);
    case Background::PlainWithRoad:
        // The horizontal road lies first in either orientation, and in landscape twice.
        g.DrawPicture(_x_PlainRoadHorz(), 0, 0);
        return g.DrawPicture(portrait ? _x_PlainRoadVert() : _x_PlainRoadHorz(), 0, 0);
    case Background::Island:
        return g.DrawPicture(portrait ? _x_IslandParchmentVert() : _x_IslandParchmentHorz(), 0, 0);
    case Background::Cliff:
        return g.DrawPicture(_x_CliffParchment(), portrait ? -180 : 0, 0);
    default:
        return;
    }
}

void drawGrid(Graphics& g, std::int64_t grid, bool portrait)
{
    switch (grid) {
    case Grid::Solid:
        return g.DrawPicture(portrait ? _x_GridPort() : _x_GridLand(), 0, 0);
    case Grid::Blurry:
        if (portrait)
            return g.DrawPicture(_x_GridPortBlur(), -2, 1);
        return g.DrawPicture(_x_GridLandblur(), 1, 2);
    case Grid::LightGrey:
        return g.DrawPicture(portrait ? _x_GridPortGrey() : _x_GridLandGrey(), 0, 0);
    case Grid::Green:
    case Grid::Brown:
    case Grid::Blue:
    case Grid::Yellow:
    case Grid::Red:
        return drawColoredGrid(g, gridColors[grid - Grid::Green], portrait ? portraitLines : landscapeLines);
    default:
        return;
    }
}

void drawBorders(Graphics& g, const BorderRows& rows)
{
    _x_MountianRangeBorderHorz()->Transparent = 1;
    _x_MountianRangeBorderVert()->Transparent = 1;
    _x_PineTreeBorderHorz()->Mask = _x_PineTreeBorderHorzMask();
    _x_PineTreeBorderVert()->Mask = _x_PineTreeBorderVertMask();
    _x_SharkBorderHorz()->Transparent = 1;
    _x_SharkBorderVert()->Transparent = 1;

    const BorderStyle styles[] = {
        {Border::MountainRange, _x_MountianRangeBorderHorz(), _x_MountianRangeBorderVert()},
        {Border::PineTrees, _x_PineTreeBorderHorz(), _x_PineTreeBorderVert()},
        {Border::Sharks, _x_SharkBorderHorz(), _x_SharkBorderVert()},
    };
    for (const auto& style : styles) {
        if (rows.top == style.row)
            g.DrawPicture(style.horizontal, 0, 4);
        if (rows.bottom == style.row)
            g.DrawPicture(style.horizontal, 0, g.Height() - static_cast<double>(style.horizontal->Height()) - 1);
        if (rows.left == style.row)
            g.DrawPicture(style.vertical, 1, 0);
        if (rows.right == style.row)
            g.DrawPicture(style.vertical, g.Width() - static_cast<double>(style.vertical->Width()) - 4, 0);
    }
}

} // namespace quorrin
