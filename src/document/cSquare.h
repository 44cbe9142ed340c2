#pragma once

#include "document/cWall.h"
#include "toolkit/Ref.h"

#include <cstdint>
#include <string>

namespace quorrin {

/// One cell of a layer.
class cSquare {
public:
    cSquare() : Wall(New<cWall>()) {}

    /// The square belongs to the page in its present orientation.
    bool Visible = false;
    /// Top left corner in page pixels.
    std::int64_t x = 0;
    std::int64_t y = 0;
    Owned<cWall> Wall;
    /// Row of pmObjects: 0 blank, 1 to 123 the catalogue, 124 to 143 the characters.
    std::int64_t thisObject = 0;
    /// Row of pmDM: 0 blank, 1 the heros, 2 to 21 the numbers 1 to 20.
    std::int64_t thisDM = 0;

    /// The text form of the map file; the walls have a section of their own there.
    std::string toSave() const;
};

} // namespace quorrin
