#include "Fixture.h"
#include "render/Catalogue.h"
#include "render/PageArt.h"

#include <functional>
#include <set>

using namespace quorrin;

namespace {

constexpr Color clear = RGB(0, 0, 0, 255);

Color at(const Ref<Picture>& picture, std::int64_t x, std::int64_t y)
{
    return picture->RGBSurface().Pixel(x, y);
}

bool same(const Ref<Picture>& a, const Ref<Picture>& b)
{
    if (a->Width() != b->Width() || a->Height() != b->Height())
        return false;
    for (std::int64_t y = 0; y < a->Height(); ++y)
        for (std::int64_t x = 0; x < a->Width(); ++x)
            if (at(a, x, y) != at(b, x, y))
                return false;
    return true;
}

/// Calls `visit` with each square of the layer that lies on the page, in the order of the page, and its corner.
void forEachSquare(const Window1::Layer& layer, const std::function<void(cSquare&, double, double)>& visit)
{
    for (int i = 1; i <= 12; ++i)
        for (int j = 1; j <= 12; ++j)
            if (cSquare& square = *layer(i, j); square.Visible)
                visit(square, static_cast<double>(square.x), static_cast<double>(square.y));
}

/// Whether a pixel of the tile shows what lies below it although the art is white there.
bool letsThroughWhite(const Ref<Picture>& tile, const Ref<Picture>& art)
{
    for (std::int64_t y = 0; y < 56; ++y)
        for (std::int64_t x = 0; x < 56; ++x)
            if (at(art, x, y) == white)
                return at(tile, x, y) == clear;
    ADD_FAILURE() << "the art has no white";
    return false;
}

} // namespace

class Tiles : public Program {
protected:
    bool isClear(const Ref<Picture>& tile) { return same(tile, New<Picture>(tile->Width(), tile->Height())); }
};

TEST_F(Tiles, NumbersWithoutAnObjectAreClear)
{
    for (const std::int64_t object : {0, -1, 124, 143, 144, 1000000}) {
        const auto tile = window.DrawObject(object, 1);
        EXPECT_EQ(tile->Width(), 56);
        EXPECT_TRUE(isClear(tile)) << object;
    }
    for (const std::int64_t marker : {-1, 0, 22})
        EXPECT_TRUE(isClear(window.DrawDM(marker))) << marker;
}

TEST_F(Tiles, TheModesFollowTheRuleAndItsDepartures)
{
    struct Case {
        std::int64_t object;
        const char* name;
        bool throughInBW;
    };
    for (const auto& [object, name, through] : {Case{1, "TreeBW", false},
                                                {2, "rock1bw", false},
                                                {12, "Castle1BW", false},
                                                {14, "Castle2BW", false},
                                                {9, "BarrelVertBW", true},
                                                {37, "ChestBW", true}})
        EXPECT_EQ(letsThroughWhite(window.DrawObject(object, 2), Picture::OpenFromApp(name)), through) << name;

    const auto mountains = window.DrawObject(4, 0);
    EXPECT_TRUE(same(mountains, window.DrawObject(4, 1)) && same(mountains, window.DrawObject(4, 2)));
    EXPECT_TRUE(same(window.DrawObject(13, 0), window.DrawObject(12, 2)));
    EXPECT_TRUE(letsThroughWhite(window.DrawObject(37, 1), Picture::OpenFromApp("ChestColor")));
    EXPECT_FALSE(same(window.DrawObject(17, 0), window.DrawObject(17, 1))) << "terrain is translucent in mode 0";
    EXPECT_TRUE(same(window.DrawObject(17, 0), window.DrawObject(17, 0)));

    // Every object draws something in every mode; the straight stairs are the same black lines in all.
    for (std::int64_t object = 1; object <= lastCatalogueObject; ++object)
        for (std::int64_t mode = 0; mode <= 3; ++mode)
            EXPECT_FALSE(isClear(window.DrawObject(object, mode))) << objectRows()[static_cast<std::size_t>(object)];
    const auto stairs = window.DrawObject(5, 0);
    EXPECT_TRUE(same(stairs, window.DrawObject(5, 2)));
    EXPECT_EQ(at(stairs, 6, 15), black);
    EXPECT_EQ(at(stairs, 48, 15), black);
    EXPECT_EQ(at(stairs, 49, 15), clear);
    EXPECT_EQ(at(stairs, 24, 45), black);
    EXPECT_EQ(at(stairs, 23, 45), clear);
    EXPECT_EQ(at(window.DrawObject(7, 0), 45, 48), black) << "east: widest on the right";
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
    EXPECT_TRUE(isClear(cWall().Render()));
    const Color color = RGB(200, 30, 30);
    const auto tile = [&](bool cWall::*flag) {
        cWall wall;
        wall.*flag = true;
        wall.myColor = color;
        return wall.Render();
    };
    struct Edge {
        bool cWall::*flag;
        int left, top, right, bottom; // inclusive
    };
    for (const auto& [flag, left, top, right, bottom] : {Edge{&cWall::Top, 0, 0, 63, 4},
                                                         {&cWall::Bottom, 0, 59, 63, 63},
                                                         {&cWall::Left, 0, 0, 4, 63},
                                                         {&cWall::Right, 59, 0, 63, 63}})
        for (int y = 0; y < 64; ++y)
            for (int x = 0; x < 64; ++x)
                ASSERT_EQ(at(tile(flag), x, y) == color, x >= left && x <= right && y >= top && y <= bottom);

    const auto slash = tile(&cWall::Slash);
    const auto backSlash = tile(&cWall::BackSlash);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            ASSERT_EQ(at(slash, x, y), at(backSlash, 63 - x, y)) << x << "," << y;
    EXPECT_EQ(at(slash, 34, 32), color);
    EXPECT_EQ(at(slash, 29, 32), clear);

    const auto door = tile(&cWall::DoorRight);
    EXPECT_EQ(at(door, 61, 5), color);
    EXPECT_EQ(at(door, 58, 5), clear);
    EXPECT_EQ(at(door, 56, 30).transparency, 136) << "the panel is half clear";
    EXPECT_NE(at(door, 54, 22), clear);
    EXPECT_EQ(at(door, 53, 22), clear);
    EXPECT_EQ(at(door, 54, 44), clear);

    Module1::gSkipWallColor = true;
    EXPECT_EQ(at(tile(&cWall::Top), 10, 2), black);
    Module1::gSkipWallColor = false;
    EXPECT_EQ(at(tile(&cWall::Top), 10, 2), color);
}

TEST_F(Tiles, MarkersAreTellableRings)
{
    std::set<std::vector<Color>, decltype([](const auto& a, const auto& b) {
                 return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                                     [](Color x, Color y) { return x.transparency < y.transparency; });
             })>
        rings;
    for (std::int64_t marker = 1; marker <= 21; ++marker) {
        const auto tile = window.DrawDM(marker);
        EXPECT_EQ(at(tile, 0, 28), clear);
        EXPECT_LT(at(tile, 2, 28).transparency, 80) << "the ring touches its box";
        std::vector<Color> pixels;
        for (int y = 0; y < 56; ++y)
            for (int x = 0; x < 56; ++x)
                pixels.push_back(at(tile, x, y));
        rings.insert(pixels);
    }
    EXPECT_EQ(rings.size(), 21u);
}

class Page : public Program {
protected:
    void orient(int row)
    {
        window.pmLandscape.ListIndex = row;
        window.SetSquaresVisible(row);
        window.SetTopSquaresVisible(row);
        window.RenderMap(true);
    }
};

TEST_F(Page, ABlankPageIsWhiteAndSizedByItsOrientation)
{
    for (const auto& [row, width, height] : {std::tuple{0, 756, 576}, {1, 576, 756}}) {
        orient(row);
        EXPECT_TRUE(same(window.myImage, New<Picture>(width, height, 32)));
    }
}

TEST_F(Page, ColouredGridsStandOnTheirLinesWithTheShortfallInPortrait)
{
    const Color green = RGB(80, 125, 35);
    window.pmGrid.ListIndex = 4;
    orient(0);
    for (const auto& [x, y, drawn] : {std::tuple{6, 41, true},
                                      {5, 41, false},
                                      {6, 40, false},
                                      {751, 538, true},
                                      {752, 538, false},
                                      {751, 539, false},
                                      {7, 300, true},
                                      {8, 300, false},
                                      {68, 300, true},
                                      {300, 104, true}})
        EXPECT_EQ(pixel(x, y), drawn ? green : white) << x << "," << y;
    orient(1);
    for (const auto& [x, y, drawn] : {std::tuple{37, 6, true},
                                      {36, 6, false},
                                      {534, 6, true},
                                      {535, 6, false},
                                      {534, 751, true},
                                      {534, 752, false},
                                      {300, 751, true}})
        EXPECT_EQ(pixel(x, y), drawn ? green : white) << x << "," << y;

    const auto g = New<Picture>(576, 756, 32);
    drawGrid(g->Graphics(), 8, true);
    EXPECT_EQ(g->Graphics().PenWidth, 2) << "the pen stays set";
}

TEST_F(Page, DrawnGridsStandWhereTheColouredOnesDo)
{
    for (const int orientation : {0, 1}) {
        window.pmGrid.ListIndex = 6;
        orient(orientation);
        const auto coloured = window.myImage;
        for (const int grid : {1, 3}) {
            window.pmGrid.ListIndex = grid;
            window.RenderMap(true);
            int misplaced = 0;
            for (std::int64_t y = 0; y < coloured->Height(); ++y)
                for (std::int64_t x = 0; x < coloured->Width(); ++x)
                    misplaced += (pixel(x, y) == white) != (at(coloured, x, y) == white);
            EXPECT_LE(misplaced, 60) << grid << " in orientation " << orientation;
        }
    }
}

TEST_F(Page, ClickableFramesTakeTheGridsPen)
{
    window.cbShowClickable.Value = true;
    window.RenderMap(true);
    EXPECT_EQ(pixel(8, 43), RGB(0, 0, 200));
    EXPECT_EQ(pixel(9, 44), white);
    EXPECT_EQ(pixel(67, 102), RGB(0, 0, 200));
    window.pmGrid.ListIndex = 7;
    window.RenderMap(true);
    EXPECT_EQ(pixel(9, 44), RGB(0, 0, 200));
    EXPECT_EQ(pixel(10, 45), white);
}

TEST_F(Page, LayersLieInTheirOrderAndShowAsChosen)
{
    const auto bottomOnly = [&] { return at(window.DrawObject(37, 1), 28, 30); };
    auto& bottom = *window.mySquares(2, 1);
    auto& top = *window.mySquaresTop(2, 1);
    bottom.thisObject = 25;
    top.thisObject = 37;
    bottom.Wall = New<cWall>(false, false, true, false, false, false);
    bottom.thisDM = 2;
    window.cbShowDMObjects.Value = true;
    window.RenderMap(true);
    const auto all = window.myImage;
    EXPECT_EQ(pixel(69 + 3 + 28, 42 + 3 + 48), at(window.DrawObject(37, 1), 28, 48)) << "the top layer is solid";
    EXPECT_EQ(pixel(69 + 2, 42 + 10), black) << "walls lie over objects";
    EXPECT_EQ(pixel(69 + 2 + 30, 42 + 2 + 20), at(window.DrawDM(2), 30, 20).transparency == 0 ? black : pixel(101, 64));

    window.pmVisibleLayers.ListIndex = 2;
    window.RenderMap(true);
    EXPECT_EQ(pixel(69 + 3, 42 + 3 + 50), at(window.DrawDM(0), 0, 0) == clear ? pixel(69 + 3, 95) : white);
    EXPECT_FALSE(same(window.myImage, all));
    EXPECT_EQ(pixel(69 + 2, 42 + 10), black) << "walls show whatever layers do";
    window.pmVisibleLayers.ListIndex = 1;
    window.RenderMap(true);
    EXPECT_NE(pixel(69 + 3 + 28, 42 + 3 + 30), bottomOnly());

    // A hidden square draws nothing and loses nothing.
    window.pmVisibleLayers.ListIndex = 0;
    window.mySquares(1, 9)->thisObject = 1;
    window.RenderMap(true);
    EXPECT_TRUE(same(window.myImage, all));
    EXPECT_EQ(window.mySquares(1, 9)->thisObject, 1);
}

// The composer may take shorter ways than a fresh tile for each square, but never to another page.
TEST_F(Page, ThePageIsWhatTheTilesGive)
{
    window.pmGrid.ListIndex = 8;
    window.cbShowClickable.Value = true;
    const auto drawTiles = [&](Graphics& g, const Window1::Layer& layer, std::int64_t mode) {
        forEachSquare(layer, [&](const cSquare& square, double x, double y) {
            g.DrawPicture(window.DrawObject(square.thisObject, mode), x + 3, y + 3);
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
        drawTiles(g, window.mySquares, mode);
        drawTiles(g, window.mySquaresTop, mode == 2 ? 2 : 1);
        forEachSquare(window.mySquares, [&](const cSquare& square, double x, double y) {
            if (square.Wall)
                g.DrawPicture(square.Wall->Render(), x, y);
        });
        forEachSquare(window.mySquares, [&](const cSquare& square, double x, double y) {
            g.DrawPicture(window.DrawDM(square.thisDM), x + 2, y + 2);
        });
        window.RenderMap(true);
        EXPECT_TRUE(same(window.myImage, expected)) << "mode " << mode;
    }
}

TEST_F(Page, TheUserPictureLiesBelowOrAboveOrStaysOut)
{
    window.pmGrid.ListIndex = 8;
    window.RenderMap(false);
    const auto bare = window.myImage;
    window.UserPicture = New<Picture>(756, 576);
    window.UserPicture->Graphics().ForeColor = RGB(0, 200, 0);
    window.UserPicture->Graphics().FillRect(0, 0, 200, 200);
    window.cbOverlayUserPict.Value = false;
    window.RenderMap(true);
    EXPECT_EQ(pixel(6, 100), RGB(235, 40, 40));
    EXPECT_EQ(pixel(30, 70), RGB(0, 200, 0));
    window.cbOverlayUserPict.Value = true;
    window.RenderMap(true);
    EXPECT_EQ(pixel(6, 100), RGB(0, 200, 0));
    window.RenderMap(false);
    EXPECT_TRUE(same(window.myImage, bare));
}

TEST_F(Page, BackgroundsCoverThePageAndBordersReachTheirEdges)
{
    for (const int orientation : {0, 1}) {
        orient(orientation);
        const auto width = window.myImage->Width();
        const auto height = window.myImage->Height();
        for (const int background : {1, 2, 3, 4, 5, 6, 7, 8, 9}) {
            const auto page = New<Picture>(width, height);
            drawBackground(page->Graphics(), background, orientation == 1);
            for (const auto x : {std::int64_t{0}, width / 2, width - 1})
                for (const auto y : {std::int64_t{0}, height / 2, height - 1})
                    EXPECT_EQ(at(page, x, y).transparency, 0) << background << " at " << x << "," << y;
        }
        for (const std::int64_t style : {1, 2, 3}) {
            window.pmBorderTop.ListIndex = window.pmBorderRight.ListIndex = 0;
            const auto all = New<Picture>(width, height);
            drawBorders(all->Graphics(), {style, style, style, style});
            EXPECT_EQ(at(all, width / 2, height / 2), clear);
            for (const BorderRows& rows :
                 {BorderRows{style, 0, 0, 0}, {0, style, 0, 0}, {0, 0, style, 0}, {0, 0, 0, style}}) {
                const auto one = New<Picture>(width, height);
                drawBorders(one->Graphics(), rows);
                int edge = 0, middle = 0;
                for (std::int64_t y = 0; y < height; ++y)
                    for (std::int64_t x = 0; x < width; ++x) {
                        if (at(one, x, y) == clear)
                            continue;
                        const bool near = rows.top      ? y < 48
                                          : rows.bottom ? y > height - 48
                                          : rows.left   ? x < 48
                                                        : x > width - 48;
                        near ? ++edge : ++middle;
                    }
                EXPECT_GT(edge, 2000);
                EXPECT_EQ(middle, 0) << "the first row stays readable";
            }
        }
    }
    drawBackground(window.myImage->Graphics(), 77, false);
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
    person.save = [&](const std::string& name) { return name.ends_with(" DM BW.png") ? nullptr : folder.file(name); };
    EXPECT_TRUE(window.ChooseMenu("mnuExportPictureSeries"));
    EXPECT_EQ(person.proposedNames,
              (std::vector<std::string>{"Quorrin Map Keep Color.png", "Quorrin Map Keep DM Color.png",
                                        "Quorrin Map Keep BW.png", "Quorrin Map Keep DM BW.png"}));
    EXPECT_EQ(window.MapText(), before);
    EXPECT_EQ(window.pmVisibleLayers.ListIndex, 2);
    EXPECT_FALSE(window.isDirty);
    EXPECT_TRUE(same(window.myImage, page));
    EXPECT_FALSE(std::filesystem::exists(folder / "Quorrin Map Keep DM BW.png"));

    const auto color = Picture::Open(folder.file("Quorrin Map Keep Color.png"));
    const auto bw = Picture::Open(folder.file("Quorrin Map Keep BW.png"));
    EXPECT_EQ(color->Width(), 756);
    EXPECT_EQ(at(color, 8, 43), RGB(200, 200, 200)) << "no clickable regions";
    EXPECT_EQ(at(color, 150, 168), RGB(255, 0, 0));
    EXPECT_EQ(at(bw, 150, 168), black);
    EXPECT_EQ(at(bw, 40, 300), white);
    EXPECT_FALSE(same(color, Picture::Open(folder.file("Quorrin Map Keep DM Color.png"))));

    window.mySavedFileName = "";
    EXPECT_TRUE(window.ChooseMenu("mnuSavePicture"));
    EXPECT_EQ(person.proposedNames.back(), "Quorrin Map.png");
    EXPECT_TRUE(same(Picture::Open(folder.file("Quorrin Map.png")), page)) << "exactly what the canvas shows";
    EXPECT_LT(std::filesystem::file_size(folder / "Quorrin Map.png"), 1u << 20);
}

TEST_F(Page, APictureThatCannotBeWrittenLeavesTheControlsAsTheyWere)
{
    window.isDirty = false;
    const auto before = window.MapText();
    person.save = [&](const std::string& name) { return folder.file("missing/" + name); };
    EXPECT_THROW(window.ChooseMenu("mnuExportPictureSeries"), IOException);
    EXPECT_EQ(window.MapText(), before);
    EXPECT_FALSE(window.isDirty);
    EXPECT_FALSE(Module1::gSkipWallColor);
}
