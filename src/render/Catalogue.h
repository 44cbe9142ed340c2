#pragma once

#include "render/Art.h"

#include <cstdint>
#include <span>

namespace quorrin {

/// The groups of the object menu.
enum class Group { Terrain, Plants, Objects, Inventory, Buildings, Stairs, Weapons };

/// How the drawing of an object departs from the common rule; kept for compatibility with existing maps.
enum class Departure {
    None,
    /// The black and white picture is drawn with its white, which covers what lies below.
    WhiteCoversInBW,
    /// One picture, drawn as it is in every mode.
    Plain,
    /// No picture: black lines that grow towards the side of the name.
    StairsN,
    StairsS,
    StairsE,
    StairsW,
};

using ArtAccessor = const Ref<Picture>& (*)();

/// One object that can stand on a square.
struct CatalogueRow {
    const char* name;
    Group group;
    ArtAccessor color;
    ArtAccessor mask;
    ArtAccessor blackAndWhite;
    Departure departure = Departure::None;
};

/// Object numbers: 0 is "Blank", 1 to 123 the catalogue, 124 to 143 the character tokens.
inline constexpr std::int64_t lastCatalogueObject = 123;
inline constexpr std::int64_t lastObject = lastCatalogueObject + 20;

/// The rows of the catalogue; the row of object n stands at n - 1.
std::span<const CatalogueRow> catalogue();

/// The number of the token, 1 to 20, for which an object stands; 0 for any other object.
constexpr std::int64_t characterOfObject(std::int64_t objectNumber)
{
    return objectNumber > lastCatalogueObject && objectNumber <= lastObject ? objectNumber - lastCatalogueObject : 0;
}

} // namespace quorrin
