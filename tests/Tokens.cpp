#include "Fixture.h"

using namespace quorrin;

namespace {

constexpr Color red = RGB(200, 0, 0);
constexpr Color blue = RGB(0, 0, 200);
constexpr Color grey = RGB(170, 170, 170);

/// A picture whose upper half is red and whose lower half is blue.
Ref<Picture> redOverBlue(std::int64_t width, std::int64_t height)
{
    auto picture = New<Picture>(width, height);
    auto& g = picture->Graphics();
    g.ForeColor = blue;
    g.FillRect(0, 0, g.Width(), g.Height());
    g.ForeColor = red;
    g.FillRect(0, 0, g.Width(), g.Height() / 2);
    return picture;
}

Ref<Picture> drawn(const cCharacter& token, std::int64_t width = 60)
{
    auto picture = New<Picture>(width, 270);
    token.DrawCharacter(picture->Graphics());
    return picture;
}

int inkedPixels(const Ref<Picture>& picture, int top, int bottom)
{
    int inked = 0;
    forEachPixel(picture->Width() - 2, bottom - top,
                 [&](auto x, auto y) { inked += pixelOf(picture, x + 1, y + top) != white; });
    return inked;
}

} // namespace

TEST(Tokens, ShrinkTheirPictureInEqualSteps)
{
    const std::tuple<int, int, int, int> cases[] = {
        {60, 100, 60, 100}, {1, 1, 1, 1},     {61, 100, 54, 90}, {61, 10, 54, 9}, {200, 200, 56, 56},
        {640, 480, 56, 42}, {10, 500, 1, 92}, {1, 200, 0, 95},   {500, 1, 54, 0},
    };
    for (const auto& [width, height, sizedWidth, sizedHeight] : cases) {
        cCharacter token;
        token.Icon = redOverBlue(width, height);
        const auto sized = token.SizeIcon();
        EXPECT_EQ(std::pair(sized->Width(), sized->Height()),
                  (std::pair<std::int64_t, std::int64_t>(sizedWidth, sizedHeight)))
            << width << " x " << height;
        EXPECT_EQ(sized == token.Icon, width <= 60 && height <= 100);
        drawn(token);
    }
    EXPECT_EQ(cCharacter().SizeIcon()->Width(), 32);
}

TEST(Tokens, ShowTheFigureOnBothHalves)
{
    cCharacter token;
    token.Icon = redOverBlue(60, 100);
    token.Icon->RGBSurface().SetPixel(5, 0, black);
    for (const int width : {60, 67}) {
        const auto picture = drawn(token, width);
        const int left = (width - 60) / 2;
        const std::pair<int, Color> rows[] = {{1, white},   {21, white}, {22, grey},  {27, white},  {28, blue},
                                              {77, blue},   {78, red},   {127, red},  {128, white}, {135, grey},
                                              {140, white}, {141, red},  {190, red},  {191, blue},  {240, blue},
                                              {241, white}, {248, grey}, {268, white}};
        for (const auto& [y, color] : rows)
            EXPECT_EQ(pixelOf(picture, 30, y), color) << y << " of " << width;
        for (const int y : {127, 141}) // turned over, the figure keeps its left side
            EXPECT_EQ(pixelOf(picture, left + 5, y), black);
        for (const int y : {0, 50, 200, 269})
            for (const int x : {0, width - 1})
                EXPECT_EQ(pixelOf(picture, x, y), black);
        EXPECT_EQ(pixelOf(picture, 1, 150), left > 1 ? white : red);
        EXPECT_EQ(pixelOf(picture, 65, 150), white);
    }
    EXPECT_EQ(inkedPixels(drawn({}), 1, 269), 3 * 58);
}

TEST(Tokens, CarryTheirNumberOnOneFoot)
{
    for (const std::int64_t number : {0LL, -5LL, 7LL, 99LL, 9223372036854775807LL}) {
        cCharacter token;
        token.Number = number;
        const auto picture = drawn(token);
        EXPECT_EQ(inkedPixels(picture, 249, 262) > 10, number > 0) << number;
        EXPECT_EQ(inkedPixels(picture, 1, 22) + inkedPixels(picture, 262, 269), 0) << number;
    }
}

using TokenData = Program;

TEST_F(TokenData, IsThePictureOfAFileOrNamesAnObject)
{
    const auto loaded = [](const std::string& data) {
        cCharacter token;
        token.Icon = New<Picture>(5, 5);
        token.IconData = data;
        token.LoadIcon();
        EXPECT_EQ(token.IconData, data);
        return token.Icon;
    };
    window.pmColorBW.ListIndex = 2;
    const auto solid = bytesOf(window.DrawObject(1, 1));
    EXPECT_NE(solid, bytesOf(window.DrawObject(1, 2)));
    EXPECT_EQ(bytesOf(loaded("-1")), solid);
    EXPECT_EQ(bytesOf(loaded("-1.9")), solid);
    for (const auto* unknown : {"-0.5", "-144", "-1e300", "-99999999999999999999"})
        EXPECT_EQ(bytesOf(loaded(unknown)), bytesOf(New<Picture>(56, 56))) << unknown;

    const auto picture = redOverBlue(90, 30);
    const auto png = bytesOf(picture);
    EXPECT_EQ(bytesOf(loaded(png)), png);
    EXPECT_EQ(loaded(picture->ToData(PictureFormat::Jpeg, 100))->Width(), 90);
    for (const auto& none : {std::string(), std::string("37"), std::string(3, '\xff'), png.substr(0, 30)})
        EXPECT_FALSE(loaded(none)) << none.size();
}
