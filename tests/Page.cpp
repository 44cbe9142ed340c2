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
    icon->Graphics().FillRect(0, 0, 10, 5);
    window.myCharacters(7)->Icon = icon;
    EXPECT_TRUE(isClear(window.DrawObject(130, 1))) << "no data, no figure";
    window.myCharacters(7)->IconData = "x";
    for (const int mode : {0, 1, 2}) {
        EXPECT_EQ(at(window.DrawObject(130, mode), 2, 2), black) << mode;
        EXPECT_EQ(at(window.DrawObject(130, mode), 28, 50), mode == 0 ? clear : white) << mode;
    }
    window.myCharacters(7)->Icon = nullptr;
    EXPECT_TRUE(isClear(window.DrawObject(130, 0)));
}

TEST_F(Tiles, WallsAndDoorsStandOnTheirEdgesAndTheSlantingOnesMirrorEachOther)
{
    const Color color = RGB(200, 30, 30), panel = RGB(119, 119, 119, 136);
    const auto tile = [&](bool cWall::*flag) {
        cWall wall;
        wall.*flag = true;
        wall.myColor = color;
        return wall.Render();
    };
    const Color veiled = RGB(226, 135, 135); // half white over the colour, as over nothing in the panel
    const std::array walls{&cWall::Top, &cWall::Bottom, &cWall::Left, &cWall::Right};
    const std::array doors{&cWall::DoorTop, &cWall::DoorBottom, &cWall::DoorLeft, &cWall::DoorRight};
    for (const auto& edges : {walls, doors}) {
        const bool isDoor = edges == doors;
        const auto top = tile(edges[0]), bottom = tile(edges[1]), left = tile(edges[2]), right = tile(edges[3]);
        forEachPixel(64, 64, [&](auto x, auto y) {
            const bool bar = isDoor ? y >= 1 && y <= 3 : y < 5;
            const bool inPanel = isDoor && x >= 22 && x <= 43 && y <= 9;
            const bool rim = x == 22 || x == 43 || y == 0 || y == 9;
            const Color wanted = !inPanel ? (bar ? color : clear) : bar || rim ? veiled : panel;
            ASSERT_NEAR(at(top, x, y).green, wanted.green, 1) << x << "," << y;
            ASSERT_EQ(at(top, x, y).transparency, wanted.transparency) << x << "," << y;
            ASSERT_EQ(at(bottom, x, 63 - y), at(top, x, y)) << x << "," << y;
            ASSERT_EQ(at(left, y, x), at(top, x, y)) << x << "," << y;
            ASSERT_EQ(at(right, 63 - y, x), at(top, x, y)) << x << "," << y;
        });
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

using Page = Program;

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
