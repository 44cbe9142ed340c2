#include "document/Window1.h"
#include "toolkit/Numbers.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

// The markers of the tab "DM".

namespace quorrin {

void Window1::cbShowDMObjects_Action()
{
    pmDM.Enabled = cbShowDMObjects.Value;
    cvDMPreview.Enabled = cbShowDMObjects.Value;
    isDirty = true;
    RenderMap(true);
}

void Window1::pmDM_Change()
{
    cvDMPreview.Refresh(true);
}

void Window1::cvDMPreview_Paint(Graphics& g)
{
    g.DrawPicture(DrawDM(pmDM.ListIndex), 1, 1);
    g.ForeColor = black;
    g.DrawRect(0, 0, 60, 60);
}

bool Window1::cvDMPreview_MouseDown(int, int)
{
    return true;
}

void Window1::cvDMPreview_MouseUp(int, int)
{
    MenuItem palette;
    ShowMarkerPopupMenu(palette, "");
    if (const auto chosen = platform().PopUp(palette))
        pmDM.ListIndex = Int(Val(chosen->Tag));
}

void Window1::ShowMarkerPopupMenu(MenuItem& base, const std::string& prefix)
{
    for (std::int64_t i = 0; i < pmDM.ListCount(); ++i)
        base.Append(New<MenuItem>(pmDM.List(i), prefix + Str(i)));
}

} // namespace quorrin
