#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The rows of the popups. A row's number is what a map file stores, so rows are never moved.

namespace quorrin {

using Rows = std::vector<std::string>;

inline const Rows landscapeRows{"Landscape", "Portrait"};
inline const Rows backgroundRows{"White",       "Grey",  "Parchment",       "Grass", "Water",
                                 "Cobblestone", "Plain", "Plain with Road", "Island"};
inline const Rows borderRows{"None", "Mountain Range", "Pine Trees", "Sharks"};
inline const Rows gridRows{"No Grid", "Solid Grid", "Blurry Grid", "Light Grey Grid", "Green", "Brown",
                           "Blue",    "Yellow",     "Red"};
inline const Rows visibleLayerRows{"All Layers", "Bottom Layer", "Top Layer"};
inline const Rows objectLayerRows{"Bottom Layer", "Top Layer"};
inline const Rows colorRows{"Color Translucent", "Color Solid", "B/W"};
/// The rows of colorRows. Menus and tokens show the objects in solid color.
inline constexpr std::int64_t translucentColor = 0;
inline constexpr std::int64_t solidColor = 1;
inline constexpr std::int64_t blackAndWhite = 2;

/// The captions of all 144 objects in the order of their numbers, from the catalogue.
const Rows& objectRows();
/// "Blank", "Heros", "1" to "20".
const Rows& markerRows();

} // namespace quorrin
