#include "Fixture.h"
#include "render/Catalogue.h"
#include "render/PageArt.h"

#include <functional>
#include <set>
#include <utility>

using namespace quorrin;

namespace {

const auto at = pixelOf;

bool same(const Ref<Picture>& a, const Ref<Picture>& b)
{
    bool equal = a->Width() == b->Width() && a->Height() == b->Height();
    forEachPixel(a->Width(), a->Height(), [&](auto x, auto y) { equal = equal && at(a, x, y) == at(b, x, y); });
    return equal;
}

bool isClear(const Ref<Picture>& picture)
{
    return same(picture, New<Picture>(picture->Width(), picture->Height()));
}

/// Calls `visit` with each square of the layer that lies on the page, in the order of the page, and its corner.
void forEachSquare(const Window1::Layer& layer, const std::function<void(cSquare&, double, double)>& visit)
{
    for (int i = 1; i <= 12; ++i)
        for (int j = 1; j <= 12; ++j)
            if (cSquare& square = *layer(i, j); square.Visible)
                visit(square, static_cast<double>(square.x), static_cast<double>(square.y));
}

} // namespace

using Tiles = Program;

TEST_F(Tiles, TheModesFollowTheRuleAndItsDepartures)
{
    for (const auto& [object, mode, name, through] : {std::tuple{1, 2, "TreeBW", false},
                                                      {12, 2, "Castle1BW", false},
                                                      {9, 2, "BarrelVertBW", true},
                                                      {37, 1, "ChestColor", true}}) {
        int clearWhites = 0;
        const auto art = Picture::OpenFromApp(name), tile = window.DrawObject(object, mode);
        forEachPixel(56, 56, [&](auto x, auto y) { clearWhites += at(art, x, y) == white && at(tile, x, y) == clear; });
        EXPECT_EQ(clearWhites > 0, through) << name;
    }
    for (const auto& [object, mode, otherObject, otherMode, alike] : {std::tuple{4, 0, 4, 1, true},
                                                                      {4, 0, 4, 2, true},
                                                                      {13, 0, 12, 2, true},
                                                                      {17, 0, 17, 1, false},
                                                                      {5, 0, 5, 2, true}})
        EXPECT_EQ(same(window.DrawObject(object, mode), window.DrawObject(otherObject, otherMode)), alike) << object;

    for (const std::int64_t object : {0, -1, 124, 143, 144, 1000000})
        EXPECT_TRUE(isClear(window.DrawObject(object, 1))) << object;
    for (std::int64_t object = 1; object <= lastCatalogueObject; ++object)
        for (std::int64_t mode = 0; mode <= 3; ++mode)
            EXPECT_FALSE(isClear(window.DrawObject(object, mode))) << objectRows()[static_cast<std::size_t>(object)];
    for (const auto& [stairs, x, y, color] :
         {std::tuple{5, 48, 15, black}, {5, 49, 15, clear}, {5, 24, 45, black}, {5, 23, 45, clear}, {7, 45, 48, black}})
        EXPECT_EQ(at(window.DrawObject(stairs, 0), x, y), color) << stairs << ": " << x << "," << y;
}

TEST_F(Tiles, AFigureFillsTheTileAndAMissingOneIsClear)
{
    const auto icon = New<Picture>(10, 10, 32);
    icon->Graphics().ForeColor = RGB(9, 9, 200);
    icon->Graphics().FillRect(0, 0, 10, 5);
    window.myCharacters(7)->Icon = icon;
    EXPECT_TRUE(isClear(window.DrawObject(130, 1))) << "no data, no figure";
    window.myCharacters(7)->IconData = "x";
    EXPECT_EQ(at(window.DrawObject(130, 0), 28, 50), clear) << "white is clear in translucent mode";
    EXPECT_EQ(at(window.DrawObject(130, 1), 28, 50), white);
    EXPECT_EQ(at(window.DrawObject(130, 2), 2, 2), RGB(9, 9, 200)) << "no black and white form";
    window.myCharacters(7)->Icon = nullptr;
    EXPECT_TRUE(isClear(window.DrawObject(130, 0)));
}

TEST_F(Tiles, WallsStandOnTheirEdgesAndMirrorEachOther)
{
    const Color color = RGB(200, 30, 30);
    const auto tile = [&](bool cWall::*flag) {
        cWall wall;
        wall.*flag = true;
        wall.myColor = color;
        return wall.Render();
    };
    const auto top = tile(&cWall::Top), bottom = tile(&cWall::Bottom), left = tile(&cWall::Left),
               right = tile(&cWall::Right), slash = tile(&cWall::Slash), backSlash = tile(&cWall::BackSlash);
    forEachPixel(64, 64, [&](auto x, auto y) {
        ASSERT_EQ(at(top, x, y), y <= 4 ? color : clear);
        ASSERT_EQ(at(bottom, x, y), y >= 59 ? color : clear);
        ASSERT_EQ(at(left, x, y), x <= 4 ? color : clear);
        ASSERT_EQ(at(right, x, y), x >= 59 ? color : clear);
        ASSERT_EQ(at(slash, x, y), at(backSlash, 63 - x, y)) << x << "," << y;
    });
    const auto door = tile(&cWall::DoorRight);
    EXPECT_EQ(at(door, 56, 30).transparency, 136) << "the panel is half clear";
    for (const auto& [picture, x, y, expected] : {std::tuple{slash, 34, 32, color},
                                                  {slash, 29, 32, clear},
                                                  {door, 61, 5, color},
                                                  {door, 58, 5, clear},
                                                  {door, 53, 22, clear},
                                                  {door, 54, 44, clear}})
        EXPECT_EQ(at(picture, x, y), expected) << x << "," << y;
}

TEST_F(Tiles, MarkersAreTellableRings)
{
    std::set<std::string> rings;
    for (std::int64_t marker = 1; marker <= 21; ++marker) {
        const auto tile = window.DrawDM(marker);
        EXPECT_EQ(at(tile, 0, 28), clear);
        EXPECT_LT(at(tile, 2, 28).transparency, 80) << "the ring touches its box";
        rings.insert(bytesOf(tile));
    }
    EXPECT_EQ(rings.size(), 21u);
    for (const std::int64_t marker : {-1, 0, 22})
        EXPECT_TRUE(isClear(window.DrawDM(marker))) << marker;
}

using Page = Program;

TEST_F(Page, ColouredGridsStandOnTheirLinesWithTheShortfallInPortrait)
{
    const Color green = RGB(80, 125, 35);
    for (const auto& [row, width, height] : {std::tuple{0, 756, 576}, {1, 576, 756}}) {
        window.pmGrid.ListIndex = 0;
        window.pmLandscape.ListIndex = row;
        EXPECT_TRUE(same(window.myImage, New<Picture>(width, height, 32))) << "a blank page is white";
        window.pmGrid.ListIndex = 4;
        // clang-format off
        const std::vector<std::tuple<int, int, bool>> places[] = {
            {{6, 41, true}, {5, 41, false}, {6, 40, false}, {751, 538, true}, {752, 538, false}, {751, 539, false},
             {7, 300, true}, {8, 300, false}, {68, 300, true}, {300, 104, true}},
            {{37, 6, true}, {36, 6, false}, {534, 6, true}, {535, 6, false}, {534, 751, true}, {534, 752, false},
             {300, 751, true}}};
        // clang-format on
        for (const auto& [x, y, drawn] : places[row])
            EXPECT_EQ(pixel(x, y), drawn ? green : white) << x << "," << y;
        const auto coloured = window.myImage;
        for (const int grid : {1, 3}) {
            window.pmGrid.ListIndex = grid;
            int misplaced = 0;
            forEachPixel(width, height,
                         [&](auto x, auto y) { misplaced += (pixel(x, y) == white) != (at(coloured, x, y) == white); });
            EXPECT_LE(misplaced, 60) << "a drawn grid stands where the coloured ones do";
        }
    }
}

TEST_F(Page, ClickableFramesTakeTheGridsPen)
{
    window.cbShowClickable.Value = true;
    for (const bool thick : {false, true}) {
        window.pmGrid.ListIndex = thick ? 7 : 0;
        EXPECT_EQ(pixel(67, 102), RGB(0, 0, 200));
        EXPECT_EQ(pixel(9, 44), thick ? RGB(0, 0, 200) : white);
        EXPECT_EQ(pixel(10, 45), white);
    }
}

TEST_F(Page, LayersShowAsChosenAndHiddenSquaresDrawNothing)
{
    window.mySquares(2, 1)->thisObject = 25;
    window.mySquaresTop(2, 1)->thisObject = 37;
    window.mySquares(2, 1)->Wall->Left = true;
    window.mySquares(1, 9)->thisObject = 1; // hidden
    for (const int shown : {1, 2}) {
        window.pmVisibleLayers.ListIndex = shown;
        EXPECT_EQ(pixel(69 + 2, 42 + 10), black) << "walls show over objects, whatever layers do";
        const auto page = window.myImage;
        window.pmVisibleLayers.ListIndex = 0;
        auto& object = (shown == 2 ? window.mySquares : window.mySquaresTop)(2, 1)->thisObject;
        EXPECT_FALSE(same(page, window.myImage));
        const auto kept = std::exchange(object, 0);
        window.RenderMap(true);
        EXPECT_TRUE(same(page, window.myImage));
        object = kept;
    }
    EXPECT_EQ(pixel(38, 560), white) << "the tree of a hidden square would stand here";
}

// The composer may take shorter ways than a fresh tile for each square, but never to another page.
TEST_F(Page, ThePageIsWhatTheTilesGive)
{
    window.pmGrid.ListIndex = 8;
    window.cbShowClickable.Value = true;
    const auto draw = [](Graphics& g, const Window1::Layer& layer, double offset, auto tileOf) {
        forEachSquare(layer, [&](const cSquare& square, double x, double y) {
            if (const Ref<Picture> tile = tileOf(square))
                g.DrawPicture(tile, x + offset, y + offset);
        });
    };
    for (const std::int64_t mode : {0, 1, 2}) {
        window.Initialize();
        window.pmColorBW.ListIndex = mode;
        window.RenderMap(true);
        const auto expected = window.myImage;
        window.myCharacters(1)->IconData = "-1";
        window.myCharacters(1)->Icon = window.DrawObject(78, 1);
        int n = 0;
        forEachSquare(window.mySquares, [&](cSquare& square, double, double) {
            ++n;
            square.thisObject = n % 10 == 0 ? 0 : n + 28;
            square.thisDM = n % 24;
            square.Wall = n % 7 == 0 ? nullptr
                                     : New<cWall>(n % 2 == 0, n % 3 == 0, n % 5 == 0, false, n % 4 == 0, n % 6 == 0,
                                                  true, false, n % 8 == 0, false, RGB(200, 0, n % 2 == 0 ? 0 : 90));
        });
        forEachSquare(window.mySquaresTop, [&](cSquare& square, double, double) { square.thisObject = ++n % 60; });
        // The shared pictures keep what a drawing has set on them, so they are brought there first.
        window.RenderMap(true);
        auto& g = expected->Graphics();
        draw(g, window.mySquares, 3, [&](auto& square) { return window.DrawObject(square.thisObject, mode); });
        const auto topMode = mode == 2 ? 2 : 1;
        draw(g, window.mySquaresTop, 3, [&](auto& square) { return window.DrawObject(square.thisObject, topMode); });
        draw(g, window.mySquares, 0, [](auto& square) { return square.Wall ? square.Wall->Render() : nullptr; });
        draw(g, window.mySquares, 2, [&](auto& square) { return window.DrawDM(square.thisDM); });
        window.RenderMap(true);
        EXPECT_TRUE(same(window.myImage, expected)) << "mode " << mode;
    }
}

TEST_F(Page, TheUserPictureLiesBelowOrAboveOrStaysOut)
{
    window.pmGrid.ListIndex = 8;
    const auto bare = window.myImage;
    window.UserPicture = New<Picture>(756, 576);
    window.UserPicture->Graphics().ForeColor = RGB(0, 200, 0);
    window.UserPicture->Graphics().FillRect(0, 0, 200, 200);
    for (const bool over : {true, false}) {
        window.cbOverlayUserPict.Value = over;
        window.RenderMap(true);
        EXPECT_EQ(pixel(6, 100), over ? RGB(0, 200, 0) : RGB(235, 40, 40));
        EXPECT_EQ(pixel(30, 70), RGB(0, 200, 0));
    }
    window.RenderMap(false);
    EXPECT_TRUE(same(window.myImage, bare));
}

TEST_F(Page, BackgroundsCoverThePageAndBordersReachTheirEdges)
{
    for (const auto& [width, height] : {std::pair{756, 576}, {576, 756}}) {
        for (int background = 1; background <= 9; ++background) {
            const auto page = New<Picture>(width, height);
            drawBackground(page->Graphics(), background, height > width);
            for (const auto& [x, y] : {std::pair{0, 0}, {width / 2, height / 2}, {width - 1, height - 1}})
                EXPECT_EQ(at(page, x, y).transparency, 0) << background << " at " << x << "," << y;
        }
        for (const auto edge : {&BorderRows::top, &BorderRows::bottom, &BorderRows::left, &BorderRows::right}) {
            for (std::int64_t style = 1; style <= 3; ++style) {
                BorderRows rows{};
                rows.*edge = style;
                const auto page = New<Picture>(width, height);
                drawBorders(page->Graphics(), rows);
                int near = 0, middle = 0;
                forEachPixel(width, height, [&, width = width, height = height](auto x, auto y) {
                    const auto depth = rows.top ? y : rows.bottom ? height - y : rows.left ? x : width - x;
                    (depth < 48 ? near : middle) += at(page, x, y) != clear;
                });
                EXPECT_GT(near, 2000);
                EXPECT_EQ(middle, 0) << "the first row stays readable";
            }
        }
    }
}

TEST_F(Page, TheSeriesWritesFourPicturesAndPutsEverythingBack)
{
    window.mySavedFileName = " Keep ";
    window.pmBackground.ListIndex = 1;
    window.pmVisibleLayers.ListIndex = 2;
    window.cbShowClickable.Value = true;
    window.mySquares(1, 1)->thisDM = 3;
    window.mySquares(3, 3)->Wall->Top = true;
    window.mySquares(3, 3)->Wall->myColor = RGB(255, 0, 0);
    window.isDirty = false;
    window.RenderMap(true);
    const auto before = window.MapText();
    const auto page = window.myImage;
    person.save = [&](const std::string& name) { return folder.file("missing/" + name); };
    EXPECT_THROW(window.ChooseMenu("mnuExportPictureSeries"), IOException);
    person.proposedNames.clear();
    person.save = [&](const std::string& name) { return name.ends_with(" DM BW.png") ? nullptr : folder.file(name); };
    EXPECT_TRUE(window.ChooseMenu("mnuExportPictureSeries"));
    EXPECT_EQ(person.proposedNames,
              (std::vector<std::string>{"Quorrin Map Keep Color.png", "Quorrin Map Keep DM Color.png",
                                        "Quorrin Map Keep BW.png", "Quorrin Map Keep DM BW.png"}));
    EXPECT_EQ(window.MapText(), before);
    EXPECT_FALSE(window.isDirty);
    EXPECT_TRUE(same(window.myImage, page));

    const auto color = Picture::Open(folder.file("Quorrin Map Keep Color.png"));
    const auto bw = Picture::Open(folder.file("Quorrin Map Keep BW.png"));
    EXPECT_EQ(at(color, 8, 43), RGB(200, 200, 200)) << "no clickable regions";
    EXPECT_EQ(at(color, 150, 168), RGB(255, 0, 0));
    EXPECT_EQ(at(bw, 150, 168), black);
    EXPECT_FALSE(same(color, Picture::Open(folder.file("Quorrin Map Keep DM Color.png"))));

    window.mySavedFileName = "";
    EXPECT_TRUE(window.ChooseMenu("mnuSavePicture"));
    EXPECT_TRUE(same(Picture::Open(folder.file("Quorrin Map.png")), page)) << "exactly what the canvas shows";
}
