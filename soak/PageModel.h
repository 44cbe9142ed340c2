#pragma once

#include "document/Window1.h"

#include <array>
#include <cstddef>
#include <string>

// What the page should show, one layer after the other, from tiles and art alone: it shares no code with the composer.

inline quorrin::Ref<quorrin::Picture> modelPage(quorrin::Window1& window)
{
    using namespace quorrin;
    const bool portrait = window.pmLandscape.ListIndex == 1;
    const auto background = static_cast<std::size_t>(window.pmBackground.ListIndex);
    const auto grid = window.pmGrid.ListIndex.get();
    const auto layers = window.pmVisibleLayers.ListIndex.get();
    const auto mode = window.pmColorBW.ListIndex.get();
    const int width = portrait ? 576 : 756, height = 756 + 576 - width;
    auto page = New<Picture>(width, height, 32);
    auto& g = page->Graphics();
    const auto fill = [&](Color color, int x, int y, int w, int h) { g.ForeColor = color, g.FillRect(x, y, w, h); };
    const auto art = [&](const std::string& name, int x, int y) { g.DrawPicture(Picture::OpenFromApp(name), x, y); };
    const auto drawing = [&](bool over) {
        if (window.UserPicture && over == window.cbOverlayUserPict.Value)
            g.DrawPicture(window.UserPicture, 0, 0);
    };

    const std::string grounds[] = {"",
                                   "",
                                   "Parchment",
                                   "GrassParchment",
                                   "WaterParchment",
                                   "CobblestoneParchment",
                                   "PlainParchment",
                                   portrait ? "PlainRoadVert" : "PlainRoadHorz",
                                   portrait ? "IslandParchmentVert" : "IslandParchmentHorz"};
    if (background == 1)
        fill(RGB(200, 200, 200), 0, 0, width, height);
    if (background == 7)
        art("PlainRoadHorz", 0, 0);
    if (background > 1)
        art(grounds[background], 0, 0);
    drawing(false);

    if (grid == 1 || grid == 3)
        art(std::string(portrait ? "GridPort" : "GridLand") + (grid == 3 ? "Grey" : ""), 0, 0);
    if (grid == 2)
        portrait ? art("GridPortBlur", -2, 1) : art("GridLandblur", 1, 2);
    const Color inks[] = {RGB(80, 125, 35), RGB(120, 110, 85), RGB(25, 95, 225), RGB(230, 215, 10), RGB(235, 40, 40)};
    for (int n = 0; grid >= 4 && n < 13; ++n) {
        const Color ink = inks[grid - 4];
        if (n < (portrait ? 13 : 9)) // one pixel short of the last line across them in portrait
            fill(ink, portrait ? 37 : 6, (portrait ? 6 : 41) + 62 * n, portrait ? 497 : 746, 2);
        if (n < (portrait ? 9 : 13))
            fill(ink, (portrait ? 37 : 6) + 62 * n, portrait ? 6 : 41, 2, portrait ? 746 : 498);
    }

    const std::array borders{window.pmBorderTop.ListIndex.get(), window.pmBorderBottom.ListIndex.get(),
                             window.pmBorderLeft.ListIndex.get(), window.pmBorderRight.ListIndex.get()};
    const std::string styles[] = {"", "MountianRangeBorder", "PineTreeBorder", "SharkBorder"};
    for (std::size_t style = 1; style <= 3; ++style)
        for (std::size_t edge = 0; edge < 4; ++edge) {
            if (borders[edge] != static_cast<std::int64_t>(style))
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

    // Where the squares lie is compared with the map's model.
    const auto eachSquare = [&](auto draw) {
        for (int n = 0; n < 144; ++n) {
            const cSquare& square = *window.mySquares(n / 12 + 1, n % 12 + 1);
            if (square.Visible)
                draw(n / 12 + 1, n % 12 + 1, static_cast<int>(square.x), static_cast<int>(square.y));
        }
    };
    const auto tiles = [&](int offset, auto tileOf) {
        eachSquare([&](int i, int j, int x, int y) { g.DrawPicture(tileOf(i, j), x + offset, y + offset); });
    };
    const int pen = grid >= 4 ? 2 : 1;
    if (window.cbShowClickable.Value)
        eachSquare([&](int, int, int x, int y) {
            const std::array<int, 4> sides[] = {
                {1, 1, 60, pen}, {1, 61 - pen, 60, pen}, {1, 1, pen, 60}, {61 - pen, 1, pen, 60}};
            for (const auto& [left, top, w, h] : sides)
                fill(RGB(0, 0, 200), x + left, y + top, w, h);
        });
    if (layers != 2)
        tiles(3, [&](int i, int j) { return window.DrawObject(window.mySquares(i, j)->thisObject, mode); });
    if (layers != 1)
        tiles(3, [&](int i, int j) {
            return window.DrawObject(window.mySquaresTop(i, j)->thisObject, mode == 2 ? 2 : 1);
        });
    tiles(0, [&](int i, int j) { return window.mySquares(i, j)->Wall->Render(); });
    if (window.cbShowDMObjects.Value)
        tiles(2, [&](int i, int j) { return window.DrawDM(window.mySquares(i, j)->thisDM); });
    drawing(true);
    return page;
}
