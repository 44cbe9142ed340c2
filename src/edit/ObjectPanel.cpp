#include "document/Window1.h"
#include "toolkit/Numbers.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

// The tab "Objects".

namespace quorrin {

/// How the person looks at the map is no change of it.
void Window1::pmVisibleLayers_Change()
{
    RenderMap(true);
    Canvas3.Refresh(true);
}

/// The top layer is never translucent, so the mode cannot be chosen from there.
void Window1::pmObjectLayer_Change()
{
    pmColorBW.Enabled = pmObjectLayer.ListIndex == ObjectLayer::Bottom;
}

void Window1::pmObjects_Change()
{
    Canvas3.Refresh(true);
    btnMaze.Enabled = pmObjects.ListIndex != blank;
}

void Window1::pmColorBW_Change()
{
    RenderMap(true);
    Canvas3.Refresh(true);
    isDirty = true;
}

void Window1::Canvas3_Paint(Graphics& g)
{
    g.DrawPicture(DrawObject(pmObjects.ListIndex, pmColorBW.ListIndex), 2, 2);
    g.ForeColor = black;
    g.DrawRect(0, 0, 60, 60);
}

bool Window1::Canvas3_MouseDown(int, int)
{
    return true;
}

void Window1::Canvas3_MouseUp(int, int)
{
    MenuItem palette;
    ShowObjectPopupMenu(palette, "");
    if (const auto chosen = platform().PopUp(palette))
        pmObjects.ListIndex = Int(Val(chosen->Tag));
}

} // namespace quorrin
