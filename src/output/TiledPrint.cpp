#include "output/TiledPrint.h"

#include "document/Board.h"
#include "document/Window1.h"
#include "toolkit/Text.h"

#include <algorithm>
#include <cmath>

namespace quorrin {

namespace {

constexpr double markFrom = millimetres(1);
constexpr double markTo = millimetres(5);
constexpr double linePen = 0.5;

constexpr double planHeight = millimetres(5);
constexpr double planAboveEdge = millimetres(2.5);
constexpr double planTextSize = 9;
constexpr double planTextGap = 5;
constexpr Color planGrey = RGB(150, 150, 150);

/// An area on the paper.
struct Area {
    double left, top, right, bottom;
};

int tilesAlong(double length, double usable)
{
    constexpr double rounding = 1e-6;
    const double more = (length - usable) / (usable - TiledPrint::overlap);
    return 1 + std::max(0, static_cast<int>(std::ceil(more - rounding)));
}

double tileAlong(double length, int tiles)
{
    return (length + (tiles - 1) * TiledPrint::overlap) / tiles;
}

/// Lines with their middle where they are asked for.
void drawAcross(Graphics& g, double from, double to, double y)
{
    g.DrawLine(from, y - linePen / 2, to, y - linePen / 2);
}
void drawDown(Graphics& g, double x, double from, double to)
{
    g.DrawLine(x - linePen / 2, from, x - linePen / 2, to);
}

/// Marks beside the picture where its page is to be cut: at the middle of an overlap, or at the picture's own edge.
void drawCropMarks(Graphics& g, const TiledPrint& tiles, const Area& picture, int column, int row)
{
    const auto into = [](bool overlaps) { return overlaps ? TiledPrint::overlap / 2 : 0; };
    for (const double x : {picture.left + into(column > 0), picture.right - into(column + 1 < tiles.columns)}) {
        drawDown(g, x, picture.top - markTo, picture.top - markFrom);
        drawDown(g, x, picture.bottom + markFrom, picture.bottom + markTo);
    }
    for (const double y : {picture.top + into(row > 0), picture.bottom - into(row + 1 < tiles.rows)}) {
        drawAcross(g, picture.left - markTo, picture.left - markFrom, y);
        drawAcross(g, picture.right + markFrom, picture.right + markTo, y);
    }
}

/// All pages in small, this one filled, and its number, in the middle of the lower margin.
void drawPlan(Graphics& g, const TiledPrint& tiles, int column, int row)
{
    const auto number = Str(row * tiles.columns + column + 1) + " of " + Str(tiles.pages());
    const double height = planHeight / tiles.rows;
    const double width = height * tiles.tileWidth / tiles.tileHeight;
    g.TextSize = planTextSize;
    const double all = width * tiles.columns + planTextGap + g.StringWidth(number);
    const double left = (tiles.paper.width - all) / 2;
    const double bottom = tiles.paper.height - planAboveEdge;
    const double top = bottom - planHeight;
    g.ForeColor = planGrey;
    g.FillRect(left + column * width, top + row * height, width, height);
    g.ForeColor = black;
    for (int line = 0; line <= tiles.columns; ++line)
        drawDown(g, left + line * width, top, bottom);
    for (int line = 0; line <= tiles.rows; ++line)
        drawAcross(g, left, left + width * tiles.columns, top + line * height);
    g.DrawString(number, left + width * tiles.columns + planTextGap, bottom - (planHeight - planTextSize * 0.75) / 2);
}

/// What is printed of the page, in its units.
struct Part {
    double x, y, width, height;
};

Part partOf(const Window1& window, const PrintedMap& map)
{
    if (!map.boardOnly)
        return {0, 0, double(window.myImage->Width()), double(window.myImage->Height())};
    const Board& board = window.board();
    return {double(board.left), double(board.top), double(board.width()), double(board.height())};
}

} // namespace

TiledPrint tiledPrint(double width, double height, const PaperWish& wish)
{
    const auto onPaper = [&](const Paper& paper) {
        TiledPrint tiles{paper, tilesAlong(width, paper.usableWidth()), tilesAlong(height, paper.usableHeight()), 0, 0};
        tiles.tileWidth = tileAlong(width, tiles.columns);
        tiles.tileHeight = tileAlong(height, tiles.rows);
        return tiles;
    };
    return onPaper(bestPaper(wish, [&](const Paper& paper) { return onPaper(paper).pages(); }).value());
}

TiledPrint tiledPrint(const Window1& window, const PrintedMap& map, const PaperWish& wish)
{
    const Part part = partOf(window, map);
    const double pointsPerUnit = map.square / Board::pitch;
    return tiledPrint(part.width * pointsPerUnit, part.height * pointsPerUnit, wish);
}

void printTiles(Graphics& g, const TiledPrint& tiles, const Window1& window, const PrintedMap& map)
{
    const Part part = partOf(window, map);
    const double unitsPerPoint = Board::pitch / map.square;
    const double left = (tiles.paper.width - tiles.tileWidth) / 2;
    const double top = (tiles.paper.height - tiles.tileHeight) / 2;
    const Area picture{left, top, left + tiles.tileWidth, top + tiles.tileHeight};
    g.PenWidth = g.PenHeight = linePen;
    for (int page = 0; page < tiles.pages(); ++page) {
        const int column = page % tiles.columns;
        const int row = page / tiles.columns;
        if (page > 0)
            g.NextPage();
        g.DrawPicture(window.myImage, left, top, tiles.tileWidth, tiles.tileHeight,
                      part.x + tiles.left(column) * unitsPerPoint, part.y + tiles.top(row) * unitsPerPoint,
                      tiles.tileWidth * unitsPerPoint, tiles.tileHeight * unitsPerPoint);
        g.ForeColor = black;
        drawCropMarks(g, tiles, picture, column, row);
        drawPlan(g, tiles, column, row);
    }
}

} // namespace quorrin
