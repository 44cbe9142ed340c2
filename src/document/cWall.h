#pragma once

#include "toolkit/Color.h"
#include "toolkit/Ref.h"

#include <cstdint>
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

/// One wall or door, and what it is called.
struct WallFlag {
    bool cWall::*flag;
    /// Which value of the text form it is, from 0; the doors follow on the walls there.
    std::int64_t position;
    const char* caption;
    const char* side;

    constexpr bool isDoor() const { return position >= 6; }
};

/// All of them in the order of the panel, of menus and of descriptions.
inline constexpr WallFlag wallFlags[] = {
    {&cWall::Top, 0, "Top Wall", "top"},        {&cWall::Bottom, 2, "Bottom Wall", "bottom"},
    {&cWall::Left, 1, "Left Wall", "left"},     {&cWall::Right, 3, "Right Wall", "right"},
    {&cWall::Slash, 4, "Slash Wall", "slash"},  {&cWall::BackSlash, 5, "Backslash Wall", "backslash"},
    {&cWall::DoorTop, 6, "Door Top", "top"},    {&cWall::DoorBottom, 8, "Door Bottom", "bottom"},
    {&cWall::DoorLeft, 7, "Door Left", "left"}, {&cWall::DoorRight, 9, "Door Right", "right"},
};

} // namespace quorrin
