#include "Fixture.h"
#include "toolkit/Graphics.h"
#include "toolkit/Picture.h"
#include "toolkit/Text.h"

#include <numbers>
#include <set>

using namespace quorrin;

namespace {

constexpr Color red = RGB(255, 0, 0);
const auto at = pixelOf;

/// All pixels of a 12 by 12 picture that are not clear, after one drawing.
template <typename Draw>
std::set<std::pair<int, int>> drawn(Draw draw)
{
    const auto picture = New<Picture>(12, 12);
    draw(picture->Graphics());
    std::set<std::pair<int, int>> pixels;
    forEachPixel(12, 12, [&](int x, int y) {
        if (at(picture, x, y) != clear)
            pixels.emplace(x, y);
    });
    return pixels;
}

std::set<std::pair<int, int>> area(int x, int y, int width, int height)
{
    std::set<std::pair<int, int>> pixels;
    forEachPixel(width, height, [&](int i, int j) { pixels.emplace(x + i, y + j); });
    return pixels;
}

} // namespace

TEST(Pictures, ThePenHangsRightAndDownAndBothEndsCount)
{
    EXPECT_EQ(drawn([](Graphics& g) { g.DrawLine(2, 3, 6, 3); }), area(2, 3, 5, 1));
    EXPECT_EQ(drawn([](Graphics& g) { g.DrawLine(2, 8, 2, 3); }), area(2, 3, 1, 6));
    EXPECT_EQ(drawn([](Graphics& g) { g.PenWidth = 3, g.PenHeight = 2, g.DrawLine(1, 1, 4, 1); }), area(1, 1, 6, 2));
    EXPECT_EQ(drawn([](Graphics& g) { g.FillRect(2.9, 3.2, 4, 2); }), area(2, 3, 4, 2));
    auto ring = area(1, 1, 6, 5);
    for (const auto& inside : area(2, 2, 4, 3))
        ring.erase(inside);
    EXPECT_EQ(drawn([](Graphics& g) { g.DrawRect(1, 1, 6, 5); }), ring);
    EXPECT_EQ(drawn([](Graphics& g) { g.FillRect(3, 3, -2, 4), g.FillRect(1e300, -1e300, 5, 5); }), area(0, 0, 0, 0));
}

TEST(Pictures, StrokesWithoutSmoothingLeaveNoGap)
{
    const auto pixels = drawn([](Graphics& g) {
        g.AntiAlias = false;
        g.DrawLine(0, 0, 10, 4);
    });
    EXPECT_EQ(pixels.size(), 11u);
    EXPECT_TRUE(pixels.contains({0, 0}) && pixels.contains({10, 4}) && pixels.contains({5, 2}));
}

TEST(Pictures, TheTwoFormsAndTransparentWhite)
{
    const auto opaque = New<Picture>(4, 4, 32);
    EXPECT_EQ(at(opaque, 0, 0), white);
    opaque->RGBSurface().SetPixel(1, 1, RGB(254, 255, 255));
    opaque->Transparent = 1;
    const auto copy = New<Picture>(4, 4);
    EXPECT_EQ(at(copy, 0, 0), clear);
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
    const auto picture = New<Picture>(3, 1, 32);
    picture->Graphics().ForeColor = red;
    picture->Graphics().FillRect(0, 0, 3, 1);
    const auto mask = New<Picture>(3, 1, 32);
    mask->RGBSurface().SetPixel(0, 0, black);
    mask->RGBSurface().SetPixel(1, 0, RGB(128, 128, 128));
    picture->Mask = mask;
    const auto page = New<Picture>(3, 1, 32);
    page->Graphics().DrawPicture(picture, 0, 0);
    EXPECT_EQ(at(page, 0, 0), red);
    EXPECT_NEAR(at(page, 1, 0).green, 128, 1);
    EXPECT_EQ(at(page, 2, 0), white);
    picture->Mask = nullptr;
    page->Graphics().DrawPicture(picture, 0, 0);
    EXPECT_EQ(at(page, 2, 0), red);
}

TEST(Pictures, PicturesWithoutAreaAndNilOnes)
{
    const auto none = New<Picture>(0, 9);
    none->Graphics().FillRect(0, 0, 5, 5);
    const auto page = New<Picture>(4, 4, 32);
    page->Graphics().DrawPicture(none, 0, 0);
    page->Graphics().DrawPicture(none, 0, 0, 4, 4, 0, 0, 0, 9);
    EXPECT_EQ(at(page, 1, 1), white);
    EXPECT_THROW(page->Graphics().DrawPicture(nullptr, 0, 0), NilObjectException);
    EXPECT_THROW(Picture(-1, 4), RuntimeException);
    EXPECT_THROW(Picture(40000, 4, 32), RuntimeException);
}

TEST(Pictures, AQuarterTurnMovesEveryPixelClockwise)
{
    const auto source = New<Picture>(6, 4, 32);
    source->RGBSurface().SetPixel(0, 0, red);
    source->RGBSurface().SetPixel(5, 3, black);
    const auto turned = Window1::RotatePict90(source);
    ASSERT_TRUE(turned->Width() == 4 && turned->Height() == 6);
    forEachPixel(4, 6, [&](int x, int y) {
        EXPECT_EQ(at(turned, x, y), x == 3 && y == 0 ? red : x == 0 && y == 5 ? black : white);
    });
}

TEST(Pictures, TextIsMeasuredByItsLines)
{
    const auto page = New<Picture>(200, 100, 32);
    auto& g = page->Graphics();
    const double line = g.StringHeight("x", 0);
    EXPECT_DOUBLE_EQ(g.StringHeight("a\rb\r\nc\n", 0), 3 * line);
    EXPECT_DOUBLE_EQ(g.StringHeight("a\r\rb", 0), 3 * line);
    EXPECT_GT(g.StringHeight("many words that need more than one line", 60), 2 * line);
    EXPECT_GT(g.StringWidth("mm"), g.StringWidth("m"));
    EXPECT_EQ(g.StringWidth(""), 0);
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
            ASSERT_EQ(std::pair(back->Width(), back->Height()), (std::pair<std::int64_t, std::int64_t>(width, height)));
            for (int n = 0; n < width * height; ++n)
                ASSERT_EQ(at(back, n % width, n / width), at(picture, n % width, n / width)) << opaque << ' ' << n;
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
    EXPECT_EQ(at(page, 299, 199), red);
    EXPECT_EQ(at(page, 330, 10), white);
    small->RGBSurface().SetPixel(299, 199, black);
    EXPECT_EQ(at(small, 299, 199), black);
    EXPECT_EQ(at(small, 298, 199), red);
    EXPECT_EQ(at(small, 10, 199), white);
}

TEST(Pictures, DataThatIsNoPictureOrLiesAboutItsSizeIsRefused)
{
    const auto picture = New<Picture>(9, 7, 32);
    picture->RGBSurface().SetPixel(3, 2, red);
    const auto png = picture->ToData(PictureFormat::Default, 100);
    const auto back = Picture::FromData(png);
    ASSERT_TRUE(back && back->Width() == 9);
    EXPECT_EQ(at(back, 3, 2), red);

    std::string huge = png; // the size stands in bytes 16 to 23, behind a checksum that decoders test late
    huge.replace(16, 8, std::string("\x00\x00\x7F\x00\x00\x00\x7F\x00", 8));
    for (const std::string& bytes :
         {huge, std::string(), std::string("\x89PNG"), png.substr(0, 30), std::string(500, 'B')})
        EXPECT_FALSE(Picture::FromData(bytes)) << bytes.size();
}

TEST(Files, AFileIsReplacedWholeOrNotAtAll)
{
    const TestFolder folder;
    const auto file = folder.file("a.txt");
    writeFile(folder / "a.txt", "old");
    TextOutputStream::Create(file)->Write("half of the n");
    EXPECT_EQ(contentOf(folder / "a.txt"), "old");

    std::filesystem::permissions(folder / "a.txt", std::filesystem::perms(0640));
    std::filesystem::create_symlink(folder / "a.txt", folder / "link.txt");
    const auto stream = TextOutputStream::Create(folder.file("link.txt"));
    stream->Write("new\n\xFE");
    stream->Close();
    EXPECT_EQ(contentOf(folder / "a.txt"), "new\n\xFE");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "link.txt"));
    EXPECT_EQ(std::filesystem::status(folder / "a.txt").permissions(), std::filesystem::perms(0640));

    EXPECT_FALSE(TextOutputStream::Create(folder.file("nowhere/a.txt")));
    for (const auto& none : {folder.file("missing"), folder.file(""), Ref<FolderItem>()})
        EXPECT_FALSE(TextInputStream::Open(none));
}

TEST(Controls, PropertiesFireAsTheirKindDoes)
{
    struct Probe : Window {
        Probe() : Window(Kind::Main, "Probe", 10, 10) {}
        void popupChange() { ++popupFired; }
        void boxAction() { ++boxFired; }
        void textChange() { ++textFired; }
        int popupFired = 0, boxFired = 0, textFired = 0;
        PopupMenu popup{surface(), {}, {"a", "b"}, &Probe::popupChange};
        CheckBox box{surface(), {}, "box", &Probe::boxAction};
        TextField text{surface(), {}, &Probe::textChange};
    } probe;
    probe.popup.ListIndex = 0;
    probe.popup.ListIndex = -1;
    for (const int wrong : {2, -2})
        EXPECT_THROW(probe.popup.ListIndex = wrong, OutOfBoundsException);
    EXPECT_EQ(probe.popup.ListIndex, -1);
    EXPECT_EQ(probe.popupFired, 2) << "also for the row that it shows, never for one refused";
    probe.box.Value = false;
    probe.box.Value = true;
    probe.text.Text = "";
    probe.text.Text = "x";
    EXPECT_TRUE(probe.boxFired == 1 && probe.textFired == 1);
}
