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
    auto picture = New<Picture>(width, 270, 32);
    token.DrawCharacter(picture->Graphics());
    return picture;
}

/// A token without a number by its rules: the lines at which it is folded, a figure of 60 by 100 on both halves, upside
/// down on the upper one, and the frame.
Ref<Picture> tokenByRules(const Ref<Picture>& figure, int width)
{
    auto token = New<Picture>(width, 270, 32);
    auto& g = token->Graphics();
    g.ForeColor = grey;
    for (const int fold : {22, 135, 248})
        g.FillRect(0, fold, width, 1);
    const int left = (width - 60) / 2;
    forEachPixel(60, figure ? 100 : 0, [&](auto x, auto y) {
        token->RGBSurface().SetPixel(left + x, 141 + y, pixelOf(figure, x, y));
        token->RGBSurface().SetPixel(left + x, 127 - y, pixelOf(figure, x, y));
    });
    g.ForeColor = black;
    g.DrawRect(0, 0, width, 270);
    return token;
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

TEST(Tokens, ShowTheFigureOnBothHalvesAndTheirNumberOnOneFoot)
{
    cCharacter token;
    for (const int width : {60, 67})
        EXPECT_TRUE(alike(drawn(token, width), tokenByRules(nullptr, width)));
    token.Icon = redOverBlue(60, 100);
    token.Icon->RGBSurface().SetPixel(5, 0, black); // turned over, the figure keeps its left side
    for (const std::int64_t number : {0LL, -5LL, 7LL, 99LL, 9223372036854775807LL})
        for (const int width : {60, 67}) {
            SCOPED_TRACE(number);
            token.Number = number;
            const auto got = drawn(token, width), wanted = tokenByRules(token.Icon, width);
            int inked = 0;
            forEachPixel(width - 2, 11, [&](auto x, auto y) {
                inked += pixelOf(got, x + 1, y + 250) != white;
                wanted->RGBSurface().SetPixel(x + 1, y + 250, pixelOf(got, x + 1, y + 250));
            });
            EXPECT_EQ(inked > 10, number > 0);
            EXPECT_TRUE(alike(got, wanted));
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
    for (const auto* unknown : {"-0.5", "-144", "-1e300"})
        EXPECT_EQ(bytesOf(loaded(unknown)), bytesOf(New<Picture>(56, 56))) << unknown;

    const auto picture = redOverBlue(90, 30);
    const auto png = bytesOf(picture);
    EXPECT_EQ(bytesOf(loaded(png)), png);
    EXPECT_EQ(loaded(picture->ToData(PictureFormat::Jpeg, 100))->Width(), 90);
    for (const auto& none : {std::string(), std::string("37"), std::string(3, '\xff'), png.substr(0, 30)})
        EXPECT_FALSE(loaded(none)) << none.size();
}
