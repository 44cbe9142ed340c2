#include "Fixture.h"
#include "render/Catalogue.h"

#include <map>

using namespace quorrin;

// The finished pictures of the whole catalogue, looked at pixel by pixel.

namespace {

constexpr int side = 56;

double share(const Ref<Picture>& art, bool (*counts)(const Color&))
{
    double count = 0;
    forEachPixel(side, side, [&](auto x, auto y) { count += counts(pixelOf(art, x, y)); });
    return count / (side * side);
}

} // namespace

TEST(ArtCatalogue, EveryObjectHasAllItsPicturesInOneSizeAndShape)
{
    for (const auto& row : catalogue()) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(!row.mask, row.departure >= Departure::Plain);
        EXPECT_EQ(!row.mask, !row.blackAndWhite);
        for (const auto accessor : {row.color, row.mask, row.blackAndWhite}) {
            if (accessor) {
                EXPECT_EQ(std::pair(accessor()->Width(), accessor()->Height()),
                          (std::pair<std::int64_t, std::int64_t>(side, side)));
            }
        }
        if (!row.mask)
            continue;
        if (row.color == row.blackAndWhite) {
            // A grey edge would look different in the two modes that share the picture.
            EXPECT_EQ(share(row.mask(), [](const Color& c) { return c == white || c == black; }), 1);
            continue;
        }
        forEachPixel(side, side, [&](auto x, auto y) {
            ASSERT_EQ(pixelOf(row.color(), x, y) == white, pixelOf(row.mask(), x, y) == white)
                << "another shape when it is solid, at " << x << ',' << y;
        });
        const auto lines = row.blackAndWhite();
        EXPECT_EQ(share(lines, [](const Color& c) { return c.red != c.green || c.red != c.blue; }), 0);
    }
}

TEST(ArtCatalogue, NoTwoObjectsShareAPicture)
{
    std::map<std::string, const char*> owners;
    for (const auto& row : catalogue())
        for (const auto accessor : {row.color, row.blackAndWhite}) {
            // Row 13 is the black and white castle of row 12 once more.
            if (!accessor || row.color == _x_Castle1BW)
                continue;
            const auto [owner, isNew] = owners.emplace(bytesOf(accessor()), row.name);
            EXPECT_STREQ(owner->second, row.name);
        }
}
