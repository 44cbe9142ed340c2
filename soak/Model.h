#pragma once

#include "toolkit/Text.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>

// What the program should hold, in the plainest form and written from its rules alone: it shares no code with the
// document, the reader and the writer.

struct ModelSquare {
    std::int64_t marker = 0, object = 0, x = 0, y = 0;
    bool visible = false;
    /// Top, Left, Bottom, Right, Slash, BackSlash, then the doors in the same order: that of the map file.
    std::array<bool, 10> walls{};
    unsigned color = 0;
};

struct Model {
    using Layer = std::array<ModelSquare, 144>;
    enum Setting { Landscape, Background, Grid, ColorMode, BorderTop, BorderBottom, BorderLeft, BorderRight, settings };
    struct Token {
        std::string data;
        std::int64_t number = 0;
    };

    Layer bottom, top;
    std::array<std::int64_t, settings> setting{};
    bool overlay = false, clickable = false, showMarkers = true;
    /// The two texts of the script, and what stands in their fields: the same but for a map without a script.
    std::array<std::string, 2> script, fields;
    std::array<Token, 20> tokens;
    std::string picture;
    bool dirty = false, mazeConfirmed = false;
    std::string name;

    Model() { makeAnew(); }

    void makeAnew()
    {
        bottom = top = {};
        place(0);
        script = {};
        tokens = {};
        mazeConfirmed = false;
    }

    void place(std::int64_t orientation)
    {
        for (Layer* layer : {&bottom, &top}) {
            for (int n = 0; n < 144; ++n) {
                const int column = n / 12, row = n % 12;
                ModelSquare& square = (*layer)[static_cast<std::size_t>(n)];
                square.x = 62 * column + (orientation == 0 ? 7 : 38);
                square.y = 62 * row + (orientation == 0 ? 42 : 7);
                square.visible = (orientation == 0 ? row : column) < 8;
            }
        }
    }

    static ModelSquare* hit(Layer& layer, int x, int y)
    {
        for (ModelSquare& square : layer)
            if (square.visible && x >= square.x && x <= square.x + 60 && y >= square.y && y <= square.y + 60)
                return &square;
        return nullptr;
    }

    void setText(std::size_t which, const std::string& text)
    {
        if (fields[which] == text)
            return;
        fields[which] = script[which] = text;
        dirty = true;
    }

    /// What opening the map file of `saved` makes of this; an older form of five sections has only the first half.
    void open(const Model& saved, bool older)
    {
        const Model before = *this;
        *this = saved;
        fields = script;
        dirty = mazeConfirmed = false;
        if (!older)
            return;
        tokens = {};
        Model blank;
        blank.place(setting[Landscape]);
        top = blank.top;
        for (const int border : {BorderTop, BorderBottom, BorderLeft, BorderRight})
            setting[static_cast<std::size_t>(border)] = before.setting[static_cast<std::size_t>(border)];
    }

    /// The map file, its first `sections` sections.
    std::string text(int sections = 9) const
    {
        const std::string F = "\xBB", G = "\xFB", I = "\xFC", S = "\xFE";
        const auto number = [](std::int64_t n) { return std::to_string(n); };
        const auto base64 = [](const std::string& bytes) { return quorrin::EncodeBase64(bytes, 76); };
        const auto layer = [&](const Layer& squares) {
            std::string all = number(setting[ColorMode]) + G;
            for (const auto& s : squares)
                all += number(s.marker) + "," + number(s.object) + "," + number(s.visible) + "," + number(s.x) + ","
                       + number(s.y) + "," + I;
            return all;
        };
        std::string walls, icons, numbers, borders;
        for (const auto& square : bottom) {
            for (const bool wall : square.walls)
                walls += wall ? "1," : "0,";
            char color[8];
            std::snprintf(color, sizeof color, "%X,", square.color);
            walls += color + I;
        }
        for (const auto& token : tokens) {
            icons += base64(token.data) + F;
            numbers += number(token.number) + F + I;
        }
        for (std::size_t border = BorderTop; border <= BorderRight; ++border)
            borders += number(setting[border]) + F + G;
        const std::string all[] = {number(setting[Landscape]) + F + number(setting[Background]) + F + number(overlay)
                                       + F + picture + F,
                                   number(setting[Grid]) + F + number(clickable) + F,
                                   walls,
                                   layer(bottom),
                                   number(showMarkers) + F + base64(script[0]) + F + base64(script[1]) + F,
                                   icons,
                                   numbers,
                                   layer(top),
                                   borders};
        std::string file;
        for (int n = 0; n < sections; ++n)
            file += all[n] + S;
        return file;
    }
};
