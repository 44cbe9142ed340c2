#include "Fixture.h"

#include "toolkit/Graphics.h"

#include <algorithm>
#include <cstdlib>
#include <random>

using namespace quorrin;

// A page with more pixels than units is the same page: where it is averaged to a pixel a unit, it equals the plain one
// on everything straight, and comes near it on art and slanting lines.

namespace {

/// How the plain page and the averaged one differ: the largest difference of a channel, and the mean.
struct Difference {
    int largest = 0;
    double mean = 0;
};

Difference difference(const Ref<Picture>& plain, int scale)
{
    const auto large = plain->Enlarged(scale);
    Difference all;
    const double pixels = static_cast<double>(plain->Width() * plain->Height());
    forEachPixel(plain->Width(), plain->Height(), [&](auto x, auto y) {
        int sum[3] = {};
        forEachPixel(scale, scale, [&](auto dx, auto dy) {
            const Color part = pixelOf(large, x * scale + dx, y * scale + dy);
            sum[0] += part.red, sum[1] += part.green, sum[2] += part.blue;
        });
        const Color one = pixelOf(plain, x, y);
        const int area = scale * scale;
        const int off = std::max({std::abs(sum[0] / area - one.red), std::abs(sum[1] / area - one.green),
                                  std::abs(sum[2] / area - one.blue)});
        all.largest = std::max(all.largest, off);
        all.mean += off / pixels;
    });
    return all;
}

using SharpPages = Program;

} // namespace

TEST_F(SharpPages, EqualThePlainOneOnEverythingStraightAndComeNearItOnArt)
{
    const auto addWalls = [this](bool slanting) {
        for (int i = 1; i <= 8; ++i)
            window.mySquares(i, 9 - i)->Wall =
                New<cWall>(i % 2 == 0, i % 3 == 0, i % 4 == 0, i == 7, slanting, slanting, i == 1, i == 2, i == 3,
                           i == 5, RGB(120, 20, i * 20));
    };
    for (const int portrait : {0, 1}) {
        SCOPED_TRACE(portrait);
        window._mnuNew_Action();
        window.pmLandscape.ListIndex = portrait;
        window.pmBackground.ListIndex = 1;
        addWalls(false);
        for (int stairs = 5; stairs <= 8; ++stairs)
            window.mySquares(stairs, 3)->thisObject = stairs;
        for (const int grid : {3, 6}) {
            window.pmGrid.ListIndex = grid;
            window.cbShowClickable.Value = grid == 6;
            for (const int scale : {3, 4})
                EXPECT_LE(difference(window.myImage, scale).largest, scale == 4 ? 0 : 1) << grid << ", " << scale;
        }

        window.pmGrid.ListIndex = 2;
        window.cbShowClickable.Value = false;
        window.pmBorderTop.ListIndex = window.pmBorderRight.ListIndex = 1 + portrait;
        window.pmBorderBottom.ListIndex = window.pmBorderLeft.ListIndex = 3 - portrait;
        window.cbShowDMObjects.Value = true;
        addWalls(true);
        eachSquare([](int column, int row, cSquare& bottom, cSquare& top) {
            const int n = 12 * row + column - 12;
            bottom.thisObject = n % 3 ? n % 124 : 0;
            top.thisObject = n % 5 ? 0 : (n * 7) % 124;
            bottom.thisDM = n % 21;
        });
        for (const int mode : {0, 1, 2}) {
            window.pmColorBW.ListIndex = mode;
            window.pmBackground.ListIndex = mode == 2 ? 0 : 2 + 6 * mode;
            const auto off = difference(window.myImage, 4);
            EXPECT_LT(off.mean, 8) << mode;
        }
        window.isDirty = false;
    }
}

/// A page is painted over the one before, only where they differ; while the one before is held, it is painted whole.
TEST_F(SharpPages, AreTheSamePaintedOverTheOneBefore)
{
    std::mt19937 dice(1);
    const auto any = [&](std::int64_t from, std::int64_t to) {
        return std::uniform_int_distribution<std::int64_t>(from, to)(dice);
    };
    window.cbShowDMObjects.Value = true;
    window.pmBackground.ListIndex = 3;
    const std::vector<std::function<void(const Ref<cSquare>&, const Ref<cSquare>&)>> edits = {
        [&](auto square, auto) { square->thisObject = any(0, 123); },
        [&](auto, auto square) { square->thisObject = any(0, 123); },
        [&](auto square, auto) { square->thisDM = any(0, 21); },
        [&](auto square, auto) { square->Wall = New<cWall>(any(0, 1), true, any(0, 1), true, any(0, 1), any(0, 1)); },
        [&](auto square, auto) { std::swap(square->Wall->Slash, square->Wall->DoorTop); },
        [&](auto, auto) { window.pmBorderLeft.ListIndex = any(0, 3); },
        [&](auto, auto) { window.pmGrid.ListIndex = any(0, 6); },
        [&](auto, auto) { window.cbShowClickable.Value = !window.cbShowClickable.Value; },
        [&](auto, auto) {
            window.UserPicture = New<Picture>(756, 576);
            window.UserPicture->Graphics().DrawOval(any(0, 300), 20, 99, 300);
        },
    };
    for (int i = 0; i < 36; ++i) {
        edits[static_cast<std::size_t>(i) % edits.size()](window.mySquares(any(1, 12), any(1, 9)),
                                                          window.mySquaresTop(any(1, 12), any(1, 9)));
        const int scale = 2 + i / 18;
        window.RenderMap(true);
        const auto over = window.myImage->Enlarged(scale);
        const auto held = window.myImage;
        window.RenderMap(true);
        const auto whole = window.myImage->Enlarged(scale);
        if (bytesOf(over) != bytesOf(whole))
            FAIL() << "edit " << i << ": " << alike(over, whole).message();
    }
}
