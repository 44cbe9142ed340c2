#include "document/Window1.h"
#include "toolkit/Platform.h"

// The tab "Walls". Boxes and colour prepare the next click and change no square.

namespace quorrin {

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
    return New<cWall>(CheckBox1.Value, CheckBox2.Value, CheckBox3.Value, CheckBox4.Value, CheckBox5.Value,
                      CheckBox6.Value, cbDoorTop.Value, cbDoorBottom.Value, cbDoorLeft.Value, cbDoorRight.Value,
                      rWallColor.FillColor);
}

void Window1::NewWall()
{
    RenderWall(ChosenWall());
    Canvas2.Invalidate(true);
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
    for (CheckBox* box : {&CheckBox1, &CheckBox2, &CheckBox3, &CheckBox4, &CheckBox5, &CheckBox6, &cbDoorBottom,
                          &cbDoorTop, &cbDoorLeft, &cbDoorRight})
        box->Value = false;
}

} // namespace quorrin
