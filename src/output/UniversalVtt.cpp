#include "output/UniversalVtt.h"

#include "document/Window1.h"
#include "output/Export.h"
#include "output/Sight.h"
#include "toolkit/Text.h"

#include <nlohmann/json.hpp>

#include <cstdio>
#include <numbers>

namespace quorrin {

namespace {

using Json = nlohmann::ordered_json;

constexpr double formatVersion = 0.3;

Json toJson(const Point& point)
{
    return {{"x", point.x}, {"y", point.y}};
}

Json toJson(const Polyline& line)
{
    Json points = Json::array();
    for (const Point& point : line)
        points.push_back(toJson(point));
    return points;
}

Json doorJson(const Segment& door)
{
    const bool upright = door.from.x == door.to.x;
    return {{"position", toJson(Point{(door.from.x + door.to.x) / 2, (door.from.y + door.to.y) / 2})},
            {"bounds", toJson(Polyline{door.from, door.to})},
            {"rotation", upright ? std::numbers::pi / 2 : 0.0},
            {"closed", true},
            {"freestanding", false}};
}

/// Eight hexadecimal digits, alpha first.
std::string hexColor(Color color)
{
    char text[9];
    std::snprintf(text, sizeof text, "%02x%02x%02x%02x", 255U - color.transparency, unsigned{color.red},
                  unsigned{color.green}, unsigned{color.blue});
    return text;
}

Json lightJson(const Light& light)
{
    return {{"position", toJson(light.at)},
            {"range", light.range},
            {"intensity", 1.0},
            {"color", hexColor(light.color)},
            {"shadows", true}};
}

/// An array even of nothing, as readers walk it unasked.
template <typename Item, typename ToJson>
Json array(const std::vector<Item>& items, ToJson json)
{
    Json all = Json::array();
    for (const Item& item : items)
        all.push_back(json(item));
    return all;
}

std::string playersPicture(Window1& window, int cell)
{
    std::string png;
    inVersions(window, [&](const ComposeVersion& compose) {
        compose({.showMarkers = false, .blackAndWhite = false});
        png = boardPicture(window, cell)->ToData(PictureFormat::Png, 100);
    });
    return png;
}

} // namespace

std::string vttFileName(const std::string& documentName)
{
    const auto name = Trim(documentName);
    return (name.empty() ? "Map" : name) + ".dd2vtt";
}

std::string universalVtt(Window1& window, int cell)
{
    const Board& board = window.board();
    const Walls walls = wallsOf(window.mySquares, board);
    auto lights = lightsOf(window.mySquares, board);
    for (const Light& light : lightsOf(window.mySquaresTop, board))
        lights.push_back(light);
    const Json map{
        {"format", formatVersion},
        {"resolution",
         {{"map_origin", toJson(Point{0, 0})},
          {"map_size", {{"x", board.columns}, {"y", board.rows}}},
          {"pixels_per_grid", cell}}},
        {"line_of_sight", array(walls.lines, [](const Polyline& line) { return toJson(line); })},
        {"objects_line_of_sight", Json::array()},
        {"portals", array(walls.doors, doorJson)},
        {"environment", {{"baked_lighting", false}, {"ambient_light", hexColor(white)}}},
        {"lights", array(lights, lightJson)},
        {"image", EncodeBase64(playersPicture(window, cell), std::string::npos)},
    };
    return map.dump() + "\n";
}

} // namespace quorrin
