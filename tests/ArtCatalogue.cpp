#include "Fixture.h"
#include "render/Catalogue.h"

#include <algorithm>
#include <cmath>

using namespace quorrin;

// The finished pictures of the whole catalogue, looked at pixel by pixel.

namespace {

constexpr int side = 56;
constexpr int cell = 4;

/// Picks the pixel of a changed copy from the picture that it is made of.
using Change = Color (*)(const RGBSurface&, int x, int y);

Ref<Picture> changed(const Ref<Picture>& art, Change change)
{
    const auto copy = New<Picture>(side, side, 32);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            copy->RGBSurface().SetPixel(x, y, change(art->RGBSurface(), x, y));
    return copy;
}

/// Calls `see` with the three parts of every pixel, moved by dx and dy around the edges of the tile.
template <typename See>
void forEachPart(const Ref<Picture>& art, int dx, int dy, See see)
{
    const auto pixels = art->RGBSurface();
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const Color color = pixels.Pixel((x + dx + side) % side, (y + dy + side) % side);
            const int parts[] = {color.red, color.green, color.blue};
            for (int part = 0; part < 3; ++part)
                see(x, y, part, parts[part]);
        }
}

using Cells = std::vector<double>;

/// The mean colours of the cells, 4 pixels wide and high.
Cells meanCells(const Ref<Picture>& art, int dx, int dy)
{
    constexpr int across = side / cell;
    Cells cells(std::size_t{across} * across * 3);
    forEachPart(art, dx, dy, [&](int x, int y, int part, int value) {
        cells[static_cast<std::size_t>((y / cell * across + x / cell) * 3 + part)] += value / double{cell * cell};
    });
    return cells;
}

/// A picture as it is, and moved by a pixel to every side.
struct Seen {
    explicit Seen(const Ref<Picture>& art)
    {
        for (const int dx : {0, -1, 1})
            for (const int dy : {0, -1, 1})
                places.push_back(meanCells(art, dx, dy));
    }
    std::vector<Cells> places;
};

/// How far the cell that differs most is apart, 0 to 255, where the two pictures lie best over each other.
double difference(const Seen& a, const Seen& b)
{
    double least = 255;
    for (const auto& place : b.places) {
        double most = 0;
        for (std::size_t i = 0; i < place.size() && most < least; ++i)
            most = std::max(most, std::abs(place[i] - a.places[0][i]));
        least = std::min(least, most);
    }
    return least;
}

/// The least difference that is seen on a page. Cobbles of two colours are nearest, by their colour or by their marks.
constexpr double seenInColor = 18;
constexpr double seenInBlackAndWhite = 30;

/// From the last column (or row) to the first one, over the largest step between two neighbours inside.
double wrapStep(const Ref<Picture>& art, bool acrossColumns)
{
    double steps[side] = {};
    const auto pixels = art->RGBSurface();
    for (int from = 0; from < side; ++from)
        for (int along = 0; along < side; ++along) {
            const int to = (from + 1) % side;
            const Color a = acrossColumns ? pixels.Pixel(from, along) : pixels.Pixel(along, from);
            const Color b = acrossColumns ? pixels.Pixel(to, along) : pixels.Pixel(along, to);
            steps[from] += std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue);
        }
    return steps[side - 1] / *std::max_element(steps, steps + side - 1);
}

double shareOfPixels(const Ref<Picture>& art, bool (*counts)(const Color&))
{
    int count = 0;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            count += counts(art->RGBSurface().Pixel(x, y));
    return count / double{side * side};
}

/// Row 13 is the black and white castle of row 12 once more.
bool isSecondCastle(const CatalogueRow& row)
{
    return row.color == _x_Castle1BW;
}

void expectAllDiffer(ArtAccessor CatalogueRow::*look, double limit)
{
    std::vector<std::pair<const char*, Seen>> others;
    for (const auto& row : catalogue()) {
        if (!(row.*look) || isSecondCastle(row))
            continue;
        const Seen seen((row.*look)());
        for (const auto& [name, other] : others)
            EXPECT_GT(difference(seen, other), limit) << row.name << " looks like " << name;
        others.emplace_back(row.name, seen);
    }
}

} // namespace

TEST(ArtCatalogue, EveryObjectHasAllItsPicturesInOneSizeAndShape)
{
    for (const auto& row : catalogue()) {
        for (const auto accessor : {row.color, row.mask, row.blackAndWhite}) {
            if (!accessor)
                continue;
            ASSERT_TRUE(accessor()) << row.name;
            ASSERT_EQ(accessor()->Width(), side) << row.name;
            ASSERT_EQ(accessor()->Height(), side) << row.name;
        }
        EXPECT_EQ(!row.mask, row.departure >= Departure::Plain) << row.name;
        EXPECT_EQ(!row.mask, !row.blackAndWhite) << row.name;
        if (!row.mask || row.color == row.blackAndWhite)
            continue;
        int apart = 0;
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                apart +=
                    (row.color()->RGBSurface().Pixel(x, y) == white) != (row.mask()->RGBSurface().Pixel(x, y) == white);
        EXPECT_EQ(apart, 0) << row.name << ": solid and translucent show different pixels";
    }
}

TEST(ArtCatalogue, WholeTilesOfTerrainAreSeamless)
{
    int wholeTiles = 0;
    for (const auto& row : catalogue()) {
        if (row.group != Group::Terrain || shareOfPixels(row.color(), [](const Color& c) { return c == white; }) > 0)
            continue;
        ++wholeTiles;
        for (const auto look : {row.color, row.blackAndWhite})
            for (const bool acrossColumns : {false, true})
                EXPECT_LE(look ? wrapStep(look(), acrossColumns) : 0, 1.02) << row.name << ", columns: " << acrossColumns;
    }
    EXPECT_EQ(wholeTiles, 12);

    const auto sheared =
        changed(_x_Mountians(), [](const RGBSurface& p, int x, int y) { return p.Pixel(x, (y + x / 2) % side); });
    EXPECT_LE(wrapStep(sheared, false), 1);
    EXPECT_GT(wrapStep(sheared, true), 1) << "a torn edge is noticed";
}

TEST(ArtCatalogue, NoTwoObjectsLookAlike)
{
    expectAllDiffer(&CatalogueRow::color, seenInColor);
    expectAllDiffer(&CatalogueRow::blackAndWhite, seenInBlackAndWhite);

    const Seen original(_x_BarrelVertColor());
    const auto copy = changed(_x_BarrelVertColor(), [](const RGBSurface& p, int x, int y) {
        const Color c = p.Pixel(x + 1, y - 1);
        return c == white ? c : RGB(c.red * 15 / 16, c.green, c.blue);
    });
    EXPECT_LT(difference(original, Seen(copy)), seenInColor) << "a copy, moved and tinted, is noticed";
    const auto recolour =
        changed(_x_BarrelVertBW(), [](const RGBSurface& p, int x, int y) { return p.Pixel(x, y - 1); });
    EXPECT_LT(difference(Seen(_x_BarrelVertBW()), Seen(recolour)), seenInBlackAndWhite)
        << "a recolour, the same in black and white, is noticed";
}

TEST(ArtCatalogue, BlackAndWhiteIsMostlyBlackAndWhite)
{
    for (const auto& row : catalogue()) {
        if (!row.blackAndWhite)
            continue;
        const auto& art = row.blackAndWhite();
        EXPECT_EQ(shareOfPixels(art, [](const Color& c) { return c.red != c.green || c.red != c.blue; }), 0)
            << row.name;
        EXPECT_LT(shareOfPixels(art, [](const Color& c) { return c.red >= 48 && c.red < 208; }), 0.2) << row.name;
        const double black = shareOfPixels(art, [](const Color& c) { return c.red < 48; });
        EXPECT_TRUE(black > 0.02 && black < 0.5) << row.name << ": " << black << " of it is black";
    }
}
