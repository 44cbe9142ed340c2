#include "Fixture.h"
#include "toolkit/Graphics.h"
#include "toolkit/Picture.h"
#include "toolkit/Text.h"

using namespace quorrin;

namespace {

constexpr Color red = RGB(255, 0, 0);
const auto at = pixelOf;

/// Whether a drawing leaves a mark on all of this area and on nothing else.
template <typename Draw>
testing::AssertionResult marks(Draw draw, int left, int top, int width, int height)
{
    const auto picture = New<Picture>(12, 12), area = New<Picture>(12, 12);
    draw(picture->Graphics());
    forEachPixel(width, height, [&](auto x, auto y) { area->RGBSurface().SetPixel(left + x, top + y, black); });
    return alike(picture, area);
}

} // namespace

TEST(Pictures, ThePenHangsRightAndDownAndBothEndsCount)
{
    EXPECT_TRUE(marks([](Graphics& g) { g.DrawLine(2, 3, 6, 3); }, 2, 3, 5, 1));
    EXPECT_TRUE(marks([](Graphics& g) { g.DrawLine(2, 8, 2, 3); }, 2, 3, 1, 6));
    EXPECT_TRUE(marks([](Graphics& g) { g.PenWidth = 3, g.PenHeight = 2, g.DrawLine(1, 1, 4, 1); }, 1, 1, 6, 2));
    EXPECT_TRUE(marks([](Graphics& g) { g.FillRect(2.9, 3.2, 4, 2); }, 2, 3, 4, 2));
    EXPECT_TRUE(marks([](Graphics& g) { g.FillRect(3, 3, -2, 4), g.FillRect(1e300, -1e300, 5, 5); }, 0, 0, 0, 0));
    for (const int pen : {1, 2}) // the ring lies inside its rectangle, so what it leaves is filled exactly
        EXPECT_TRUE(marks(
            [=](Graphics& g) {
                g.PenWidth = g.PenHeight = pen, g.DrawRect(1, 1, 7, 9),
                g.FillRect(1 + pen, 1 + pen, 7 - 2 * pen, 9 - 2 * pen);
            },
            1, 1, 7, 9))
            << pen;
}

TEST(Pictures, TheTwoFormsAndTransparentWhite)
{
    const auto opaque = New<Picture>(4, 4, 32);
    opaque->RGBSurface().SetPixel(1, 1, RGB(254, 255, 255));
    opaque->Transparent = 1;
    const auto copy = New<Picture>(4, 4);
    copy->Graphics().DrawPicture(opaque, 0, 0);
    EXPECT_EQ(at(copy, 0, 0), clear);
    EXPECT_EQ(at(copy, 1, 1), RGB(254, 255, 255));
    EXPECT_EQ(at(opaque, 0, 0), white) << "the picture itself keeps its white";
    opaque->RGBSurface().SetPixel(2, 2, red);
    copy->Graphics().DrawPicture(opaque, 0, 0);
    EXPECT_EQ(at(copy, 2, 2), red) << "what was drawn later shows too";
}

TEST(Pictures, AMaskFadesAndCanBeTakenAway)
{
    const auto picture = New<Picture>(4, 2, 32), mask = New<Picture>(3, 1, 32), page = New<Picture>(4, 2, 32);
    picture->Graphics().FillRect(0, 0, 4, 2);
    mask->RGBSurface().SetPixel(0, 0, black);
    mask->RGBSurface().SetPixel(1, 0, RGB(128, 128, 128));
    for (const auto& shown : {mask, Ref<Picture>()}) {
        picture->Mask = shown;
        page->Graphics().DrawPicture(picture, 0, 0);
        EXPECT_EQ(at(page, 0, 0), black);
        EXPECT_NEAR(at(page, 1, 0).green, shown ? 128 : 0, 1);
        for (const auto& [x, y] : {std::pair{2, 0}, {3, 0}, {0, 1}}) // two of them beyond the mask
            EXPECT_EQ(at(page, x, y), shown ? white : black);
    }
    // Without area there is nothing to draw, and nil is no picture.
    const auto none = New<Picture>(0, 9);
    page->Graphics().DrawPicture(none, 0, 0);
    page->Graphics().DrawPicture(none, 0, 0, 3, 1, 0, 0, 0, 9);
    EXPECT_EQ(at(page, 1, 0), black);
    EXPECT_THROW(page->Graphics().DrawPicture(nullptr, 0, 0), NilObjectException);
    EXPECT_THROW(Picture(-1, 4), RuntimeException);
    EXPECT_THROW(Picture(32768, 4, 32), RuntimeException);
    EXPECT_EQ(Picture(32767, 1).Width(), 32767);
}

TEST(Pictures, APngFileKeepsEveryPixel)
{
    for (const bool opaque : {true, false}) {
        for (const auto& [width, height] : {std::pair{1, 1}, {3, 1}, {1, 4}, {60, 41}}) {
            const auto picture = opaque ? New<Picture>(width, height, 32) : New<Picture>(width, height);
            unsigned mixed = 1;
            for (int n = 0; n < width * height; ++n, mixed = mixed * 1664525 + 1013904223)
                picture->RGBSurface().SetPixel(n % width, n / width, colorFromNumber(n % 3 ? mixed : 0xFFFFFF));
            const auto back = Picture::FromData(picture->ToData(PictureFormat::Png, 100));
            ASSERT_TRUE(back);
            EXPECT_TRUE(alike(back, picture));
        }
    }
    EXPECT_THROW(New<Picture>(0, 5)->ToData(PictureFormat::Png, 100), IOException);
}

TEST(Pictures, OneOfWhichFewPixelsAreKeptHasItsSizeEverywhere)
{
    const auto large = New<Picture>(300, 200, 32);
    large->Graphics().ForeColor = red;
    large->Graphics().FillRect(150, 0, 150, 200);
    const auto small = Picture::FromData(large->ToData(PictureFormat::Png, 100), 600);
    ASSERT_TRUE(small);
    const auto page = New<Picture>(700, 200, 32);
    page->Graphics().DrawPicture(small, 0, 0);
    page->Graphics().DrawPicture(small, 300, 0, 20, 20, 150, 100, 150, 100);
    page->Graphics().DrawPicture(small->Flattened(), 400, 0);
    EXPECT_EQ(std::pair(small->Width(), small->Height()), (std::pair<std::int64_t, std::int64_t>(300, 200)));
    for (const int x : {20, 130, 170, 299, 301, 319, 420, 570, 699})
        EXPECT_EQ(at(page, x, 10), x < 150 || (x > 400 && x < 550) ? white : red) << x;
    small->RGBSurface().SetPixel(299, 199, black);
    for (const auto& [x, color] : {std::pair{299, black}, {298, red}, {10, white}})
        EXPECT_EQ(at(small, x, 199), color);
}

TEST(Pictures, ThoseOfOddSizesAreTakenOrRefusedByTheirTrueSize)
{
    // The films that phones put behind a picture look in places like its parts.
    std::string film = New<Picture>(9, 7, 32)->ToData(PictureFormat::Jpeg, 100);
    for (int i = 0; i < 200; ++i)
        film += "film\xFF\xDA";
    EXPECT_TRUE(Picture::FromData(film));
    for (const auto& none : {std::string(), bytesOf(New<Picture>(9, 7, 32)).substr(0, 30), std::string(500, 'B')})
        EXPECT_FALSE(Picture::FromData(none)) << none.size();
    using Size = std::pair<std::int64_t, std::int64_t>;
    const std::pair<const char*, Size> cases[] = {
        // clang-format off
        {"bitmap-upright.bmp", {3, 1}}, {"bitmap-top-down.bmp", {3, 1}}, {"bitmap-deep.bmp", {3, 3}},
        {"bitmap-runs.bmp", {4096, 4096}}, {"bitmap-bomb-top-down.bmp", {}}, {"bitmap-runs-top-down.bmp", {}},
        {"bitmap-bit.bmp", {}}, {"bitmap-short.bmp", {}}, {"bitmap-least.bmp", {}}, {"bitmap-negative-width.bmp", {}},
        {"gif-plain.gif", {7, 5}}, {"gif-screen-larger.gif", {2000, 2000}}, {"gif-cut.gif", {4000, 4000}},
        {"gif-screen-bomb.gif", {}}, {"gif-much-data.gif", {}}, {"gif-screen-disbelieved.gif", {}},
        {"png-plain.png", {5, 3}}, {"png-interlaced.png", {20, 20}}, {"png-bit.png", {4096, 4096}}, {"png-negative.png", {}},
        {"jpeg-plain-cmyk-progressive.jpg", {17, 9}}, {"jpeg-turned.jpg", {10, 30}}, {"jpeg-size-full.jpg", {}},
        // clang-format on
    };
    for (const auto& [name, size] : cases) {
        const auto bytes = contentOf(QUORRIN_SOURCE_DIR "/fuzz/corpus/Picture/" + std::string(name));
        for (const std::int64_t mostPixels : {Picture::anyNumberOfPixels, std::int64_t{6000}}) {
            const auto picture = Picture::FromData(bytes, mostPixels);
            EXPECT_EQ(picture ? Size(picture->Width(), picture->Height()) : Size(), size) << name;
        }
    }
}

TEST(Files, AFileIsReplacedWholeOrNotAtAll)
{
    const TestFolder folder;
    writeFile(folder / "a.txt", "old");
    std::filesystem::permissions(folder / "a.txt", std::filesystem::perms(0640));
    std::filesystem::create_symlink(folder / "a.txt", folder / "link.txt");
    const auto stream = TextOutputStream::Create(folder.file("link.txt"));
    stream->Write("new");
    stream->Close();
    EXPECT_EQ(contentOf(folder / "a.txt"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.txt"));
    EXPECT_EQ(std::filesystem::status(folder / "a.txt").permissions(), std::filesystem::perms(0640));
}
