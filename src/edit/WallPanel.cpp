#include "document/Window1.h"
#include "edit/SquareDescription.h"
#include "toolkit/Platform.h"

// The tab "Walls". Boxes and colour prepare the next click and change no square.

namespace quorrin {

namespace {

/// The boxes in the order of wallFlags.
constexpr CheckBox Window1::*wallBoxes[] = {
    &Window1::CheckBox1, &Window1::CheckBox2, &Window1::CheckBox3,    &Window1::CheckBox4,  &Window1::CheckBox5,
    &Window1::CheckBox6, &Window1::cbDoorTop, &Window1::cbDoorBottom, &Window1::cbDoorLeft, &Window1::cbDoorRight,
};
static_assert(std::size(wallBoxes) == std::size(wallFlags));

} // namespace

void Window1::CheckBox1_Action()
{
    NewWall();
}

void Window1::CheckBox2_Action()
{
    NewWall();
}

void Window1::CheckBox3_Action()
{
    NewWall();
}

void Window1::CheckBox4_Action()
{
    NewWall();
}

void Window1::CheckBox5_Action()
{
    NewWall();
}

void Window1::CheckBox6_Action()
{
    NewWall();
}

void Window1::cbDoorTop_Action()
{
    NewWall();
}

void Window1::cbDoorBottom_Action()
{
    NewWall();
}

void Window1::cbDoorLeft_Action()
{
    NewWall();
}

void Window1::cbDoorRight_Action()
{
    NewWall();
}

bool Window1::rWallColor_MouseDown(int, int)
{
    return true;
}

void Window1::rWallColor_MouseUp(int, int)
{
    Color color = rWallColor.FillColor;
    if (!SelectColor(color, "Select Wall Color"))
        return;
    rWallColor.FillColor = color;
    isDirty = true;
    NewWall();
}

Ref<cWall> Window1::ChosenWall()
{
    auto wall = New<cWall>();
    for (std::size_t n = 0; n < std::size(wallFlags); ++n)
        (*wall).*wallFlags[n].flag = (this->*wallBoxes[n]).Value;
    wall->myColor = rWallColor.FillColor;
    return wall;
}

void Window1::NewWall()
{
    RenderWall(ChosenWall());
    Canvas2.Invalidate(true);
}

void Window1::RenderWall(const Ref<cWall>& wall)
{
    myWall = wall->Render();
}

std::string Window1::DescribeChosenWall()
{
    return describeWall(*ChosenWall());
}

void Window1::Canvas2_Paint(Graphics& g)
{
    if (myWall)
        g.DrawPicture(myWall, 0, 0);
}

void Window1::PushButton3_Action()
{
    ClearAllWallChecks();
}

void Window1::ClearAllWallChecks()
{
    for (const auto box : wallBoxes)
        (this->*box).Value = false;
}

} // namespace quorrin
