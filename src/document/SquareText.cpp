#include "app/Module1.h"
#include "document/MapMarks.h"
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
    : Top(Top), Bottom(Bottom), Left(Left), Right(Right), Slash(Slash), BackSlash(BackSlash)
{}

cWall::cWall(bool Top, bool Bottom, bool Left, bool Right, bool Slash, bool BackSlash, bool DoorTop, bool DoorBottom,
             bool DoorLeft, bool DoorRight, Color myColor)
    : Top(Top), Bottom(Bottom), Left(Left), Right(Right), Slash(Slash), BackSlash(BackSlash), DoorTop(DoorTop),
      DoorLeft(DoorLeft), DoorBottom(DoorBottom), DoorRight(DoorRight), myColor(myColor)
{}

cWall::cWall(const std::string& text)
{
    const auto values = parts(text, ",");
    if (values.UBound() < 5)
        return;
    Top = isOne(values(0));
    Left = isOne(values(1));
    Bottom = isOne(values(2));
    Right = isOne(values(3));
    Slash = isOne(values(4));
    BackSlash = isOne(values(5));
    if (values.UBound() <= 6)
        return;
    DoorTop = isOne(values(6));
    DoorLeft = isOne(values(7));
    DoorBottom = isOne(values(8));
    DoorRight = isOne(values(9));
    if (values.UBound() >= 10 && !Trim(values(10)).empty())
        myColor = Module1::ColorFromHexString(values(10));
}

std::string cWall::toSave() const
{
    return value(Top) + value(Left) + value(Bottom) + value(Right) + value(Slash) + value(BackSlash) + value(DoorTop)
           + value(DoorLeft) + value(DoorBottom) + value(DoorRight) + Module1::Color2HexString(myColor) + ",";
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
