#include "Fixture.h"
#include "render/Catalogue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

using namespace quorrin;

namespace {

const auto at = pixelOf;

testing::AssertionResult isClear(const Ref<Picture>& picture)
{
    return alike(picture, New<Picture>(picture->Width(), picture->Height()));
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
    for (const auto& [object, mode, otherObject, otherMode, equal] : {std::tuple{4, 0, 4, 1, true},
                                                                      {4, 0, 4, 2, true},
                                                                      {13, 0, 12, 2, true},
                                                                      {17, 0, 17, 1, false},
                                                                      {5, 0, 5, 2, true}})
        EXPECT_EQ(bytesOf(window.DrawObject(object, mode)) == bytesOf(window.DrawObject(otherObject, otherMode)), equal)
            << object;

    for (const std::int64_t object : {0, -1, 124, 143, 144, 1000000})
        EXPECT_TRUE(isClear(window.DrawObject(object, 1))) << object;
    for (std::int64_t object = 1; object <= lastCatalogueObject; ++object)
        for (std::int64_t mode = 0; mode <= 3; ++mode)
            EXPECT_FALSE(isClear(window.DrawObject(object, mode))) << objectRows()[static_cast<std::size_t>(object)];
    // The four stairs are seven lines, from 7 to 43 pixels long; the longest lies on the side that the name tells.
    for (const auto& [stairs, x, y] : {std::tuple{5, 48, 15}, {6, 48, 45}, {7, 45, 48}, {8, 15, 48}}) {
        int inked = 0;
        const auto tile = window.DrawObject(stairs, 0);
        forEachPixel(56, 56, [&](auto column, auto row) { inked += at(tile, column, row) == black; });
        EXPECT_EQ(inked, 175) << stairs;
        EXPECT_EQ(at(tile, x, y), black) << stairs;
    }
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

TEST_F(Tiles, WallsAndDoorsStandOnTheirEdgesAndTheSlantingOnesMirrorEachOther)
{
    const Color color = RGB(200, 30, 30), panel = RGB(255, 255, 255, 136);
    const auto tile = [&](bool cWall::*flag) {
        cWall wall;
        wall.*flag = true;
        wall.myColor = color;
        return wall.Render();
    };
    // The band of each, and the panel of a door: left, top, width, height.
    using Area = std::array<int, 4>;
    const std::tuple<bool cWall::*, Area, Area> edges[] = {
        {&cWall::Top, {0, 0, 64, 5}, {}},     {&cWall::DoorTop, {0, 1, 64, 3}, {22, 0, 22, 10}},
        {&cWall::Bottom, {0, 59, 64, 5}, {}}, {&cWall::DoorBottom, {0, 60, 64, 3}, {22, 54, 22, 10}},
        {&cWall::Left, {0, 0, 5, 64}, {}},    {&cWall::DoorLeft, {1, 0, 3, 64}, {0, 22, 10, 22}},
        {&cWall::Right, {59, 0, 5, 64}, {}},  {&cWall::DoorRight, {60, 0, 3, 64}, {54, 22, 10, 22}},
    };
    const auto inside = [](const Area& area, auto x, auto y, int rim = 0) {
        return x >= area[0] + rim && x < area[0] + area[2] - rim && y >= area[1] + rim && y < area[1] + area[3] - rim;
    };
    for (const auto& [flag, band, door] : edges) {
        const auto got = tile(flag), wanted = New<Picture>(64, 64);
        const Color veiled = RGB(226, 135, 135); // the panel's half white over the colour
        forEachPixel(64, 64, [&, band = band, door = door](auto x, auto y) {
            const bool solid = inside(band, x, y) || (inside(door, x, y) && !inside(door, x, y, 1));
            const Color pale = solid ? veiled : panel;
            wanted->RGBSurface().SetPixel(x, y, inside(door, x, y) ? pale : solid ? color : clear);
        });
        EXPECT_TRUE(alike(got, wanted, 1)) << band[0] << "," << band[1];
    }
    const auto slash = tile(&cWall::Slash), backSlash = tile(&cWall::BackSlash);
    forEachPixel(64, 64,
                 [&](auto x, auto y) { ASSERT_EQ(at(slash, x, y), at(backSlash, 63 - x, y)) << x << "," << y; });
    EXPECT_EQ(at(slash, 34, 32), color);
    EXPECT_EQ(at(slash, 29, 32), clear);
}

TEST_F(Tiles, MarkersAreTellableRingsWithTheirTextInTheMiddle)
{
    std::set<std::string> rings;
    for (std::int64_t marker = 1; marker <= 21; ++marker) {
        const auto tile = window.DrawDM(marker);
        EXPECT_EQ(at(tile, 0, 28), clear);
        EXPECT_LT(at(tile, 2, 28).transparency, 80) << "the ring touches its box";
        std::int64_t left = 56, top = 56, right = 0, bottom = 0;
        forEachPixel(56, 56, [&](auto x, auto y) {
            if (at(tile, x, y).transparency > 128 || std::hypot(x - 28.5, y - 28.5) > 25)
                return;
            left = std::min(left, x), right = std::max(right, x), top = std::min(top, y), bottom = std::max(bottom, y);
        });
        EXPECT_NEAR(static_cast<double>(top), 12.5, 0.5) << marker;
        EXPECT_NEAR(static_cast<double>(bottom), 38.5, 0.5) << marker;
        EXPECT_LE(std::abs(left + right - 56), 4) << marker;
        rings.insert(bytesOf(tile));
    }
    EXPECT_EQ(rings.size(), 21u);
    for (const std::int64_t marker : {-1, 0, 22})
        EXPECT_TRUE(isClear(window.DrawDM(marker))) << marker;
}

namespace {

/// How a page is to look: the rows of the popups, and the boxes.
struct Look {
    int portrait, background, grid;
    std::array<int, 4> borders; // top, bottom, left, right
    int layers, mode;
    bool over, clickable, markers;
};

class Page : public Program {
protected:
    /// Something different on every square of both layers, whether it lies on the page or not.
    void fillMap()
    {
        window.myCharacters(1)->IconData = "-1";
        window.myCharacters(1)->Icon = window.DrawObject(78, 1);
        forEachPixel(12, 12, [&](int x, int y) {
            const int n = 12 * y + x;
            cSquare& square = *window.mySquares(x + 1, y + 1);
            square.thisObject = n % 10 == 0 ? 0 : (n * 7 + 28) % 125;
            square.thisDM = n % 24;
            square.Wall = n % 7 == 0 ? nullptr
                                     : New<cWall>(n % 2 == 0, n % 3 == 0, n % 5 == 0, false, n % 4 == 0, n % 6 == 0,
                                                  true, false, n % 8 == 0, false, RGB(200, 0, n % 2 == 0 ? 0 : 90));
            window.mySquaresTop(x + 1, y + 1)->thisObject = n % 3 ? 0 : n % 60;
            window.mySquaresTop(x + 1, y + 1)->thisDM = 7;
            window.mySquaresTop(x + 1, y + 1)->Wall->Slash = true;
        });
        window.UserPicture = New<Picture>(756, 576);
        auto& g = window.UserPicture->Graphics();
        g.ForeColor = RGB(0, 160, 0);
        g.FillRect(0, 60, 400, 14);
        g.FillRect(60, 0, 14, 500);
    }

    void show(const Look& look)
    {
        const std::pair<PopupMenu*, int> rows[] = {{&window.pmLandscape, look.portrait},
                                                   {&window.pmBackground, look.background},
                                                   {&window.pmGrid, look.grid},
                                                   {&window.pmBorderTop, look.borders[0]},
                                                   {&window.pmBorderBottom, look.borders[1]},
                                                   {&window.pmBorderLeft, look.borders[2]},
                                                   {&window.pmBorderRight, look.borders[3]},
                                                   {&window.pmVisibleLayers, look.layers},
                                                   {&window.pmColorBW, look.mode}};
        for (const auto& [popup, row] : rows)
            popup->ListIndex = row;
        window.cbOverlayUserPict.Value = look.over;
        window.cbShowClickable.Value = look.clickable;
        window.cbShowDMObjects.Value = look.markers;
    }

    /// The page by its rules, one layer after the other, from tiles and art alone.
    Ref<Picture> pageByRules(const Look& look, bool withDrawing)
    {
        const int width = look.portrait ? 576 : 756, height = 756 + 576 - width;
        auto page = New<Picture>(width, height, 32);
        auto& g = page->Graphics();
        const auto fill = [&](Color color, int x, int y, int w, int h) { g.ForeColor = color, g.FillRect(x, y, w, h); };
        const auto art = [&](const std::string& name, int x, int y) {
            g.DrawPicture(Picture::OpenFromApp(name), x, y);
        };
        const auto drawing = [&](bool over) {
            if (withDrawing && over == look.over)
                g.DrawPicture(window.UserPicture, 0, 0);
        };
        const bool portrait = look.portrait;

        const std::string grounds[] = {"",
                                       "",
                                       "Parchment",
                                       "GrassParchment",
                                       "WaterParchment",
                                       "CobblestoneParchment",
                                       "PlainParchment",
                                       portrait ? "PlainRoadVert" : "PlainRoadHorz",
                                       portrait ? "IslandParchmentVert" : "IslandParchmentHorz"};
        if (look.background == 1)
            fill(RGB(200, 200, 200), 0, 0, width, height);
        if (look.background == 7)
            art("PlainRoadHorz", 0, 0);
        if (look.background > 1)
            art(grounds[look.background], 0, 0);
        drawing(false);

        if (look.grid == 1 || look.grid == 3)
            art(std::string(portrait ? "GridPort" : "GridLand") + (look.grid == 3 ? "Grey" : ""), 0, 0);
        if (look.grid == 2)
            portrait ? art("GridPortBlur", -2, 1) : art("GridLandblur", 1, 2);
        const Color inks[] = {RGB(80, 125, 35), RGB(120, 110, 85), RGB(25, 95, 225), RGB(230, 215, 10),
                              RGB(235, 40, 40)};
        for (int n = 0; look.grid >= 4 && n < 13; ++n) {
            if (n < (portrait ? 13 : 9)) // one pixel short of the last line across them in portrait
                fill(inks[look.grid - 4], portrait ? 37 : 6, (portrait ? 6 : 41) + 62 * n, portrait ? 497 : 746, 2);
            if (n < (portrait ? 9 : 13))
                fill(inks[look.grid - 4], (portrait ? 37 : 6) + 62 * n, portrait ? 6 : 41, 2, portrait ? 746 : 498);
        }

        const std::string styles[] = {"", "MountianRangeBorder", "PineTreeBorder", "SharkBorder"};
        for (int style = 1; style <= 3; ++style)
            for (std::size_t edge = 0; edge < 4; ++edge) {
                if (look.borders[edge] != style)
                    continue;
                const std::string name = styles[style] + (edge < 2 ? "Horz" : "Vert");
                const auto border = Picture::OpenFromApp(name);
                border->Transparent = style == 2 ? 0 : 1;
                if (style == 2)
                    border->Mask = Picture::OpenFromApp(name + "Mask");
                const std::int64_t x[] = {0, 0, 1, width - border->Width() - 4};
                const std::int64_t y[] = {4, height - border->Height() - 1, 0, 0};
                g.DrawPicture(border, static_cast<double>(x[edge]), static_cast<double>(y[edge]));
            }

        const auto eachSquare = [&](auto draw) {
            for (int i = 0; i < (portrait ? 8 : 12); ++i)
                for (int j = 0; j < (portrait ? 12 : 8); ++j)
                    draw(i + 1, j + 1, (portrait ? 38 : 7) + 62 * i, (portrait ? 7 : 42) + 62 * j);
        };
        const auto tiles = [&](int offset, auto tileOf) {
            eachSquare([&](int i, int j, int x, int y) {
                if (const Ref<Picture> tile = tileOf(i, j))
                    g.DrawPicture(tile, x + offset, y + offset);
            });
        };
        const int pen = look.grid >= 4 ? 2 : 1;
        if (look.clickable)
            eachSquare([&](int, int, int x, int y) {
                for (const auto& [left, top, w, h] :
                     {std::tuple{1, 1, 60, pen}, {1, 61 - pen, 60, pen}, {1, 1, pen, 60}, {61 - pen, 1, pen, 60}})
                    fill(RGB(0, 0, 200), x + left, y + top, w, h);
            });
        const int topMode = look.mode == 2 ? 2 : 1;
        if (look.layers != 2)
            tiles(3, [&](int i, int j) { return window.DrawObject(window.mySquares(i, j)->thisObject, look.mode); });
        if (look.layers != 1)
            tiles(3, [&](int i, int j) { return window.DrawObject(window.mySquaresTop(i, j)->thisObject, topMode); });
        tiles(0, [&](int i, int j) {
            return window.mySquares(i, j)->Wall ? window.mySquares(i, j)->Wall->Render() : nullptr;
        });
        if (look.markers)
            tiles(2, [&](int i, int j) { return window.DrawDM(window.mySquares(i, j)->thisDM); });
        drawing(true);
        return page;
    }
};

} // namespace

TEST_F(Page, IsComposedOfItsLayersInTheirOrderAndPlaces)
{
    const Look looks[] = {
        // clang-format off
        {0, 0, 0, {0, 0, 0, 0}, 0, 0, true, false, false}, {1, 7, 2, {1, 2, 3, 1}, 0, 0, false, false, true},
        {0, 7, 2, {2, 3, 1, 2}, 0, 1, true, false, true},  {1, 8, 1, {3, 1, 2, 3}, 0, 2, true, true, true},
        {0, 8, 1, {1, 1, 2, 3}, 1, 2, false, true, true},  {1, 2, 3, {2, 2, 1, 1}, 2, 0, true, false, true},
        {0, 3, 3, {3, 3, 3, 1}, 2, 1, false, false, true}, {1, 4, 4, {1, 3, 1, 2}, 1, 1, true, true, false},
        {0, 5, 5, {2, 1, 3, 3}, 0, 0, true, true, true},   {1, 6, 6, {1, 1, 1, 1}, 0, 1, false, true, true},
        {0, 1, 7, {3, 2, 2, 2}, 2, 2, false, true, true},  {1, 1, 8, {2, 3, 2, 2}, 0, 0, false, false, false},
        // clang-format on
    };
    int number = 0;
    for (const bool filled : {false, true}) {
        if (filled)
            fillMap();
        for (const auto& look : looks) {
            SCOPED_TRACE("look " + std::to_string(number++));
            // On the bare page the borders and grids show, which objects hide.
            show(look);
            window.RenderMap(true);
            EXPECT_TRUE(alike(window.myImage, pageByRules(look, filled)));
            if (!filled)
                continue;
            window.RenderMap(false);
            EXPECT_TRUE(alike(window.myImage, pageByRules(look, false)));
        }
    }
    window.pmBackground.ListIndex = -1;
    EXPECT_TRUE(alike(window.myImage, pageByRules({1, 0, 8, {2, 3, 2, 2}, 0, 0, false, false, false}, true)));
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
    EXPECT_EQ(window.pmVisibleLayers.ListIndex, 2);
    EXPECT_TRUE(window.cbShowClickable.Value);
    EXPECT_TRUE(alike(window.myImage, page));

    const auto color = Picture::Open(folder.file("Quorrin Map Keep Color.png"));
    const auto bw = Picture::Open(folder.file("Quorrin Map Keep BW.png"));
    EXPECT_EQ(at(color, 8, 43), RGB(200, 200, 200)) << "no clickable regions";
    EXPECT_EQ(at(color, 150, 168), RGB(255, 0, 0));
    EXPECT_EQ(at(bw, 150, 168), black);
    EXPECT_EQ(at(bw, 8, 43), white) << "no coloured ground";
    EXPECT_FALSE(alike(color, Picture::Open(folder.file("Quorrin Map Keep DM Color.png"))));

    window.mySavedFileName = "";
    EXPECT_TRUE(window.ChooseMenu("mnuSavePicture"));
    EXPECT_TRUE(alike(Picture::Open(folder.file("Quorrin Map.png")), page)) << "exactly what the canvas shows";
}
