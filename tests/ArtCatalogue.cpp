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

/// The mean difference of two tiles in that part of 14 by 14 pixels where they differ most, 0 to 255.
double difference(const Tile& a, const Tile& b)
{
    constexpr int quarter = 14, across = side / quarter;
    std::array<double, across * across> off{};
    for (int at = 0; at < side * side; ++at) {
        const Color &one = a(at % side, at / side), &other = b(at % side, at / side);
        off[static_cast<std::size_t>(at / side / quarter * across + at % side / quarter)] +=
            (std::abs(one.red - other.red) + std::abs(one.green - other.green) + std::abs(one.blue - other.blue))
            / (3.0 * quarter * quarter);
    }
    return *std::max_element(off.begin(), off.end());
}

} // namespace

TEST(ArtCatalogue, EveryObjectHasAllItsPicturesInOneSizeAndShape)
{
    for (const auto& row : catalogue()) {
        EXPECT_EQ(!row.mask, row.departure >= Departure::Plain) << row.name;
        EXPECT_EQ(!row.mask, !row.blackAndWhite) << row.name;
        for (const auto accessor : {row.color, row.mask, row.blackAndWhite}) {
            if (accessor) {
                EXPECT_EQ(std::pair(accessor()->Width(), accessor()->Height()),
                          (std::pair<std::int64_t, std::int64_t>(side, side)))
                    << row.name;
            }
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
    for (const auto& [look, limit] : {std::pair{&CatalogueRow::color, 14}, {&CatalogueRow::blackAndWhite, 19}}) {
        std::vector<std::pair<const char*, Tile>> others;
        for (const auto& row : catalogue()) {
            // Row 13 is the black and white castle of row 12 once more.
            if (!(row.*look) || row.color == _x_Castle1BW)
                continue;
            const Tile seen((row.*look)());
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
        EXPECT_NEAR(black, 0.26, 0.24) << row.name;
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
