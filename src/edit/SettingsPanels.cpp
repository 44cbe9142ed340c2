#include "document/Window1.h"

// The tabs "Background" and "Grid": settings of the map, which live in the controls themselves.

namespace quorrin {

void Window1::pmLandscape_Change()
{
    const auto orientation = pmLandscape.ListIndex.get();
    if (orientation == Orientation::Landscape) {
        Canvas1.Width = longSide;
        Canvas1.Height = shortSide;
    } else if (orientation == Orientation::Portrait) {
        Canvas1.Width = shortSide;
        Canvas1.Height = longSide;
    }
    SetSquaresVisible(orientation);
    SetTopSquaresVisible(orientation);
    RenderMap(true);
    isDirty = true;
}

void Window1::pmBackground_Change()
{
    RenderMap(true);
    isDirty = true;
}

void Window1::cbOverlayUserPict_Action()
{
    RenderMap(true);
    isDirty = true;
}

void Window1::pmBorderTop_Change()
{
    RenderMap(true);
    isDirty = true;
}

void Window1::pmBorderBottom_Change()
{
    RenderMap(true);
    isDirty = true;
}

void Window1::pmBorderLeft_Change()
{
    RenderMap(true);
    isDirty = true;
}

void Window1::pmBorderRight_Change()
{
    RenderMap(true);
    isDirty = true;
}

void Window1::pmGrid_Change()
{
    RenderMap(true);
    isDirty = true;
}

/// Saved with the map, and yet no change of it.
void Window1::cbShowClickable_Action()
{
    RenderMap(true);
}

} // namespace quorrin
