#pragma once

#include "toolkit/Color.h"
#include "toolkit/Ref.h"

#include <string>

namespace quorrin {

class Picture;

/// The walls and doors of one square, and their colour.
class cWall {
public:
    /// No walls, no doors, black.
    cWall() = default;
    cWall(bool Top, bool Bottom, bool Left, bool Right, bool Slash, bool BackSlash);
    /// The doors come in another order here than in the fields and in the file.
    cWall(bool Top, bool Bottom, bool Left, bool Right, bool Slash, bool BackSlash, bool DoorTop, bool DoorBottom,
          bool DoorLeft, bool DoorRight, Color myColor);
    /// From the text form. Accepts the older forms of six walls, and of six walls and four doors; anything shorter
    /// gives the blank wall.
    explicit cWall(const std::string& text);

    bool Top = false;
    bool Bottom = false;
    bool Left = false;
    bool Right = false;
    /// Falls from the top left to the bottom right; BackSlash rises from the bottom left to the top right.
    bool Slash = false;
    bool BackSlash = false;
    bool DoorTop = false;
    bool DoorLeft = false;
    bool DoorBottom = false;
    bool DoorRight = false;
    Color myColor = black;

    friend bool operator==(const cWall&, const cWall&) = default;

    /// A new tile of 64 by 64 with all walls and doors on it, clear elsewhere.
    Ref<Picture> Render() const;
    /// The text form of the map file.
    std::string toSave() const;
};

} // namespace quorrin
