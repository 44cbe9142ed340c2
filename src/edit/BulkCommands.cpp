#include "document/Window1.h"
#include "toolkit/Platform.h"

// Commands on many squares at once. Clearing also reaches the squares that the orientation hides, filling does not.

namespace quorrin {

namespace {

void clearObject(cSquare& square)
{
    square.thisObject = blank;
}

} // namespace

bool Window1::_mnuClearAllObjects_Action()
{
    if (!Confirmed("Clear All Objects? This cannot be undone.", "Clear All Objects"))
        return true;
    forEachSquare(mySquares, clearObject);
    forEachSquare(mySquaresTop, clearObject);
    RenderMap(true);
    isDirty = true;
    return true;
}

bool Window1::_mnuClearObjectCurLayer_Action()
{
    const auto question = pmObjectLayer.ListIndex == ObjectLayer::Bottom
                              ? "Clear all bottom layer objects? This cannot be undone."
                              : "Clear all top layer objects? This cannot be undone.";
    if (!Confirmed(question, "Clear Objects"))
        return true;
    forEachSquare(DrawingLayer(), clearObject);
    RenderMap(true);
    isDirty = true;
    return true;
}

bool Window1::_mnuClearAllWalls_Action()
{
    // Without its question mark: kept, as people and scripts know the question by this text.
    if (!Confirmed("Clear All Walls This cannot be undone.", "Clear All Walls"))
        return true;
    forEachSquare(mySquares, [](cSquare& square) { square.Wall = New<cWall>(); });
    RenderMap(true);
    isDirty = true;
    return true;
}

/// "Set All Blank Squares": fills, in spite of its name.
void Window1::btnClearAllSquares_Action()
{
    forEachSquare(DrawingLayer(), [this](cSquare& square) {
        if (square.Visible && square.thisObject == blank)
            square.thisObject = pmObjects.ListIndex;
    });
    RenderMap(true);
    isDirty = true;
}

} // namespace quorrin
