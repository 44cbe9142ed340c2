#include "Maps.h"

#include "render/Catalogue.h"

using namespace quorrin;

namespace {

constexpr Color wallColors[] = {RGB(0, 0, 0), RGB(120, 60, 20), RGB(90, 90, 90), RGB(160, 0, 0)};

cSquare& bottom(Window1& window, int i, int j)
{
    return *window.mySquares(i, j);
}

cSquare& top(Window1& window, int i, int j)
{
    return *window.mySquaresTop(i, j);
}

std::int64_t objectAt(int i, int j, int shift)
{
    return 1 + (i * 12 + j + shift) % lastCatalogueObject;
}

void fillOrdinary(Window1& window)
{
    for (int i = 1; i <= 12; ++i)
        for (int j = 1; j <= 8; ++j) {
            const int n = (i - 1) * 8 + j - 1;
            if (n % 3 != 0)
                continue;
            const int used = n / 3;
            cSquare& square = bottom(window, i, j);
            square.thisObject = objectAt(i, j, 0);
            if (used % 2 == 0)
                top(window, i, j).thisObject = objectAt(i, j, 40);
            if (used % 3 == 0) {
                square.Wall->Top = true;
                square.Wall->Left = used % 2 == 0;
                square.Wall->DoorTop = used % 4 == 0;
            }
            if (used % 4 == 0)
                square.thisDM = 1 + used / 4;
        }
    window.pmBackground.ListIndex = 2;
    window.pmGrid.ListIndex = 1;
}

Ref<Picture> userPicture()
{
    auto picture = New<Picture>(756, 576);
    auto& g = picture->Graphics();
    g.PenWidth = g.PenHeight = 4;
    for (int n = 0; n < 40; ++n) {
        g.ForeColor = wallColors[n % 4];
        g.DrawLine(20 * n, 10, 740 - 15 * n, 560);
    }
    return picture;
}

void fillDensest(Window1& window)
{
    for (int i = 1; i <= 12; ++i)
        for (int j = 1; j <= 8; ++j) {
            cSquare& square = bottom(window, i, j);
            square.thisObject = objectAt(i, j, 0);
            top(window, i, j).thisObject = objectAt(i, j, 40);
            square.Wall = New<cWall>(true, true, true, true, true, true, true, true, true, true,
                                     wallColors[(i + j) % std::size(wallColors)]);
            square.thisDM = 1 + (i * 8 + j) % 21;
        }
    window.pmBackground.ListIndex = 5;
    window.pmGrid.ListIndex = 2;
    window.pmBorderTop.ListIndex = 1;
    window.pmBorderBottom.ListIndex = 2;
    window.pmBorderLeft.ListIndex = 3;
    window.pmBorderRight.ListIndex = 1;
    window.UserPicture = userPicture();
    window.cbOverlayUserPict.Value = true;
}

} // namespace

void fillMap(Window1& window, Density density)
{
    if (density == Density::Ordinary)
        fillOrdinary(window);
    if (density == Density::Densest)
        fillDensest(window);
    window.RenderMap(true);
}
