#include "document/Window1.h"
#include "edit/HitTest.h"
#include "edit/SquareDescription.h"
#include "toolkit/Platform.h"

// The map: a click is a whole edit of one square, done when the button comes up.

namespace quorrin {

void Window1::Canvas1_Paint(Graphics& g)
{
    if (myImage)
        g.DrawPicture(myImage, 0, 0);
    g.ForeColor = black;
    g.DrawRect(0, 0, Canvas1.Width, Canvas1.Height);
}

/// A contextual click makes no edit; its menu does.
bool Window1::Canvas1_MouseDown(int, int)
{
    return !IsContextualClick();
}

void Window1::Canvas1_MouseUp(int x, int y)
{
    const int tool = TabPanel1.Value;
    if (tool != WallTool && tool != ObjectTool && tool != MarkerTool)
        return;
    const auto square = squareAt(tool == ObjectTool ? DrawingLayer() : mySquares, x, y);
    if (!square)
        return;
    if (tool == WallTool)
        square->Wall = ChosenWall();
    else if (tool == ObjectTool)
        square->thisObject = pmObjects.ListIndex;
    else
        square->thisDM = pmDM.ListIndex;
    RenderMap(true);
    isDirty = true;
}

std::string Window1::DescribeSquare(int x, int y)
{
    return describeSquare(*this, x, y);
}

} // namespace quorrin
