#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The rows of the popups, and the names of their numbers. A row's number is what a map file stores, so rows are never
// moved.

namespace quorrin {

using Rows = std::vector<std::string>;

inline const Rows landscapeRows{"Landscape", "Portrait"};
namespace Orientation {
enum : std::int64_t { Landscape, Portrait };
}

inline const Rows backgroundRows{"White",       "Grey",  "Parchment",       "Grass", "Water",
                                 "Cobblestone", "Plain", "Plain with Road", "Island"};
namespace Background {
/// No popup has the last one.
enum : std::int64_t { White, Grey, Parchment, Grass, Water, Cobblestone, Plain, PlainWithRoad, Island, Cliff };
} // namespace Background

inline const Rows borderRows{"None", "Mountain Range", "Pine Trees", "Sharks"};
namespace Border {
enum : std::int64_t { None, MountainRange, PineTrees, Sharks };
}

inline const Rows gridRows{"No Grid", "Solid Grid", "Blurry Grid", "Light Grey Grid", "Green", "Brown",
                           "Blue",    "Yellow",     "Red"};
namespace Grid {
enum : std::int64_t { None, Solid, Blurry, LightGrey, Green, Brown, Blue, Yellow, Red };
}

inline const Rows visibleLayerRows{"All Layers", "Bottom Layer", "Top Layer"};
namespace VisibleLayers {
enum : std::int64_t { All, Bottom, Top };
}

inline const Rows objectLayerRows{"Bottom Layer", "Top Layer"};
namespace ObjectLayer {
enum : std::int64_t { Bottom, Top };
}

inline const Rows colorRows{"Color Translucent", "Color Solid", "B/W"};
/// Menus and tokens show the objects in solid color.
inline constexpr std::int64_t translucentColor = 0;
inline constexpr std::int64_t solidColor = 1;
inline constexpr std::int64_t blackAndWhite = 2;

/// The captions of all 144 objects in the order of their numbers, from the catalogue.
const Rows& objectRows();
/// "Blank", "Heros", "1" to "20".
const Rows& markerRows();
/// The rows of both that show nothing, and the one marker that is no number.
inline constexpr std::int64_t blank = 0;
inline constexpr std::int64_t heros = 1;

} // namespace quorrin
