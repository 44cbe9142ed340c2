#include "Fixture.h"
#include "render/Catalogue.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace quorrin;

// The finished pictures of the whole catalogue, looked at pixel by pixel.

namespace {

constexpr int side = 56;

/// The pixels of a picture; beyond an edge it goes on as it begins on the far side.
struct Tile {
    explicit Tile(const Ref<Picture>& art)
    {
        for (int at = 0; at < side * side; ++at)
            pixels[static_cast<std::size_t>(at)] = art->RGBSurface().Pixel(at % side, at / side);
    }
    const Color& operator()(int x, int y) const
    {
        return pixels[static_cast<std::size_t>((y + side) % side * side + (x + side) % side)];
    }
    double share(bool (*counts)(const Color&)) const
    {
        return static_cast<double>(std::count_if(pixels.begin(), pixels.end(), counts)) / (side * side);
    }
    std::array<Color, std::size_t{side} * side> pixels{};
};

/// The mean colours of the cells of a tile, 4 pixels wide and high, for the tile as it is (first) and for the tile
/// moved by one pixel to every side.
struct Seen {
    static constexpr int cell = 4, across = side / cell;
    using Cells = std::array<double, std::size_t{across} * across * 3>;

    explicit Seen(const Tile& tile)
    {
        for (const int dx : {0, -1, 1})
            for (const int dy : {0, -1, 1}) {
                auto& cells = places.emplace_back();
                for (int at = 0; at < side * side; ++at) {
                    const int x = at % side, y = at / side;
                    double* mean = &cells[static_cast<std::size_t>((y / cell * across + x / cell) * 3)];
                    const Color& color = tile(x + dx, y + dy);
                    for (const int part : {color.red, color.green, color.blue})
                        *mean++ += part / double{cell * cell};
                }
            }
    }
    std::vector<Cells> places;
};

/// How far the cell that differs most is apart, 0 to 255, where the two lie best over each other.
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

} // namespace

TEST(ArtCatalogue, EveryObjectHasAllItsPicturesInOneSizeAndShape)
{
    for (const auto& row : catalogue()) {
        EXPECT_EQ(!row.mask, row.departure >= Departure::Plain) << row.name;
        EXPECT_EQ(!row.mask, !row.blackAndWhite) << row.name;
        for (const auto accessor : {row.color, row.mask, row.blackAndWhite}) {
            EXPECT_TRUE(!accessor || (accessor()->Width() == side && accessor()->Height() == side)) << row.name;
        }
        if (!row.mask)
            continue;
        const Tile color(row.color()), mask(row.mask());
        if (row.color == row.blackAndWhite) {
            // A grey edge would look different in the two modes that share the picture.
            EXPECT_EQ(mask.share([](const Color& c) { return c == white || c == black; }), 1) << row.name;
            continue;
        }
        for (std::size_t at = 0; at < color.pixels.size(); ++at)
            ASSERT_EQ(color.pixels[at] == white, mask.pixels[at] == white)
                << row.name << " has another shape when it is solid, at " << at % side << ',' << at / side;
    }
}

TEST(ArtCatalogue, NoTwoObjectsLookAlike)
{
    // The least differences allowed. Cobbles of two colours are nearest to each other, by their hue and by their marks.
    for (const auto& [look, limit] : {std::pair{&CatalogueRow::color, 18}, {&CatalogueRow::blackAndWhite, 30}}) {
        std::vector<std::pair<const char*, Seen>> others;
        for (const auto& row : catalogue()) {
            // Row 13 is the black and white castle of row 12 once more.
            if (!(row.*look) || row.color == _x_Castle1BW)
                continue;
            const Seen seen{Tile((row.*look)())};
            for (const auto& [name, other] : others)
                EXPECT_GT(difference(seen, other), limit) << row.name << " looks like " << name;
            others.emplace_back(row.name, seen);
        }
    }
}

TEST(ArtCatalogue, BlackAndWhiteIsMostlyBlackAndWhite)
{
    for (const auto& row : catalogue()) {
        if (!row.blackAndWhite)
            continue;
        const Tile lines(row.blackAndWhite());
        EXPECT_EQ(lines.share([](const Color& c) { return c.red != c.green || c.red != c.blue; }), 0) << row.name;
        EXPECT_LT(lines.share([](const Color& c) { return c.red >= 48 && c.red < 208; }), 0.2) << row.name;
        const double black = lines.share([](const Color& c) { return c.red < 48; });
        EXPECT_TRUE(black > 0.02 && black < 0.5) << row.name << ": " << black << " of it is black";
    }
}

using ArtOnPages = Program;

TEST_F(ArtOnPages, AFullPageOfThemStaysASmallFile)
{
    window.pmBackground.ListIndex = 5;
    std::int64_t object = 0;
    for (int i = 1; i <= Window1::columns; ++i)
        for (int j = 1; j <= Window1::rows; ++j)
            window.mySquares(i, j)->thisObject = object++ % lastCatalogueObject + 1;
    for (const int mode : {0, 2}) {
        window.pmColorBW.ListIndex = mode;
        EXPECT_LT(window.myImage->ToData(PictureFormat::Png, 100).size(), 800'000u) << "mode " << mode;
    }
}
