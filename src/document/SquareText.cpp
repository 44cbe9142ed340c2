#include "document/MapMarks.h"
#include "document/Module1.h"
#include "document/cSquare.h"
#include "toolkit/Numbers.h"
#include "toolkit/Text.h"

// The text forms of a wall and of a square in the map file: values, each followed by a comma.

namespace quorrin {

namespace {

std::string value(bool flag)
{
    return flag ? "1," : "0,";
}

std::string value(std::int64_t number)
{
    return Str(number) + ",";
}

/// A flag of a wall is set by exactly 1; the other flags of a map file by anything but 0.
bool isOne(const std::string& text)
{
    return Val(text) == 1;
}

} // namespace

cWall::cWall(bool Top, bool Bottom, bool Left, bool Right, bool Slash, bool BackSlash)
    : cWall(Top, Bottom, Left, Right, Slash, BackSlash, false, false, false, false, black)
{}

cWall::cWall(bool Top, bool Bottom, bool Left, bool Right, bool Slash, bool BackSlash, bool DoorTop, bool DoorBottom,
             bool DoorLeft, bool DoorRight, Color myColor)
    : Top(Top), Bottom(Bottom), Left(Left), Right(Right), Slash(Slash), BackSlash(BackSlash), DoorTop(DoorTop),
      DoorLeft(DoorLeft), DoorBottom(DoorBottom), DoorRight(DoorRight), myColor(myColor)
{}

cWall::cWall(const std::string& text)
{
    const auto values = parts(text, ",");
    const auto read = [&](bool doors) {
        for (const WallFlag& wall : wallFlags)
            if (wall.isDoor() == doors)
                this->*wall.flag = isOne(values(wall.position));
    };
    if (values.UBound() < 5)
        return;
    read(false);
    if (values.UBound() <= 6)
        return;
    read(true);
    if (values.UBound() >= 10 && !Trim(values(10)).empty())
        myColor = Module1::ColorFromHexString(values(10));
}

std::string cWall::toSave() const
{
    std::string flags[std::size(wallFlags)];
    for (const WallFlag& wall : wallFlags)
        flags[wall.position] = value(this->*wall.flag);
    std::string text;
    for (const auto& flag : flags)
        text += flag;
    return text + Module1::Color2HexString(myColor) + ",";
}

std::string cSquare::toSave() const
{
    return value(thisDM) + value(thisObject) + value(Visible) + value(x) + value(y);
}

std::string Module1::Color2HexString(Color color)
{
    return Hex((std::uint64_t{color.red} * 256 + color.green) * 256 + color.blue);
}

Color Module1::ColorFromHexString(const std::string& text)
{
    const auto number = static_cast<std::uint64_t>(Int(Val("&h" + text)));
    return colorFromNumber(static_cast<std::uint32_t>(number & 0xFFFFFF));
}

} // namespace quorrin
