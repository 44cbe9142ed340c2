#include "PlainPage.h"

#include "render/Art.h"
#include "toolkit/QtBridge.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include <map>
#include <stdexcept>

using namespace quorrin;

namespace {

QImage clearTile(int size)
{
    QImage tile(size, size, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    return tile;
}

const QImage& preparedObject(Window1& window, std::int64_t object, std::int64_t mode)
{
    static std::map<std::pair<std::int64_t, std::int64_t>, QImage> prepared;
    QImage& image = prepared[{object, mode}];
    if (image.isNull())
        image = QtBridge::image(*window.DrawObject(object, mode));
    return image;
}

QImage objectTile(Window1& window, std::int64_t object, std::int64_t mode)
{
    QImage tile = clearTile(56);
    if (object != 0)
        QPainter(&tile).drawImage(0, 0, preparedObject(window, object, mode));
    return tile;
}

QImage wallTile(const cWall& wall)
{
    QImage tile = clearTile(64);
    QPainter painter(&tile);
    const QColor color(wall.myColor.red, wall.myColor.green, wall.myColor.blue);
    if (wall.Top)
        painter.fillRect(0, 0, 64, 5, color);
    if (wall.Bottom)
        painter.fillRect(0, 59, 64, 5, color);
    if (wall.Left)
        painter.fillRect(0, 0, 5, 64, color);
    if (wall.Right)
        painter.fillRect(59, 0, 5, 64, color);

    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    if (wall.Slash)
        painter.drawPolygon(QPolygon({{0, 0}, {5, 0}, {69, 64}, {69, 65}, {64, 65}, {0, 1}}));
    if (wall.BackSlash)
        painter.drawPolygon(QPolygon({{-5, 64}, {59, 0}, {64, 0}, {64, 1}, {0, 65}, {-5, 65}}));
    painter.setRenderHint(QPainter::Antialiasing, false);

    const auto drawDoor = [&](const QRect& bar, const QRect& panel) {
        painter.fillRect(bar, color);
        painter.setPen(color);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(panel.adjusted(0, 0, -1, -1));
        painter.fillRect(panel, QColor(255, 255, 255, 255 - 0x88));
    };
    if (wall.DoorTop)
        drawDoor({0, 1, 64, 3}, {22, 0, 22, 10});
    if (wall.DoorBottom)
        drawDoor({0, 60, 64, 3}, {22, 54, 22, 10});
    if (wall.DoorLeft)
        drawDoor({1, 0, 3, 64}, {0, 22, 10, 22});
    if (wall.DoorRight)
        drawDoor({60, 0, 3, 64}, {54, 22, 10, 22});
    return tile;
}

QImage markerTile(std::int64_t marker)
{
    QImage tile = clearTile(56);
    if (marker == 0)
        return tile;
    QPainter painter(&tile);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath ring;
    ring.addEllipse(2, 2, 54, 54);
    ring.addEllipse(3, 3, 52, 52);
    painter.fillPath(ring, Qt::black);
    const QFont font = QtBridge::font(36);
    const QFontMetricsF metrics(font);
    const QString text = marker == 1 ? QStringLiteral("H") : QString::number(marker - 1);
    const int width = static_cast<int>(metrics.horizontalAdvance(text));
    const int height = static_cast<int>(metrics.lineSpacing());
    painter.setFont(font);
    painter.drawText(QPoint((56 - width) / 2 + 1, 56 - (56 - height) / 2 - 10), text);
    return tile;
}

void drawBorders(QPainter& painter, const Window1& window)
{
    const auto edges = {&window.pmBorderTop, &window.pmBorderBottom, &window.pmBorderLeft, &window.pmBorderRight};
    static const QImage horizontal[] = {QtBridge::drawnImage(*_x_MountianRangeBorderHorz()),
                                        QtBridge::drawnImage(*_x_PineTreeBorderHorz()),
                                        QtBridge::drawnImage(*_x_SharkBorderHorz())};
    static const QImage vertical[] = {QtBridge::drawnImage(*_x_MountianRangeBorderVert()),
                                      QtBridge::drawnImage(*_x_PineTreeBorderVert()),
                                      QtBridge::drawnImage(*_x_SharkBorderVert())};
    for (int style = 0; style < 3; ++style) {
        const QImage& wide = horizontal[style];
        const QImage& high = vertical[style];
        const QPoint places[] = {{0, 4}, {0, 576 - wide.height() - 1}, {1, 0}, {756 - high.width() - 4, 0}};
        int edge = 0;
        for (const auto* chosen : edges) {
            if (chosen->ListIndex == style + 1)
                painter.drawImage(places[edge], edge < 2 ? wide : high);
            ++edge;
        }
    }
}

void drawBackground(QPainter& painter, std::int64_t background)
{
    switch (background) {
    case 0:
        return painter.fillRect(0, 0, 756, 576, Qt::white);
    case 2:
        return painter.drawImage(0, 0, QtBridge::image(*_x_Parchment()));
    case 5:
        return painter.drawImage(0, 0, QtBridge::image(*_x_CobblestoneParchment()));
    default:
        throw std::logic_error("No measured map has this background.");
    }
}

void drawGrid(QPainter& painter, std::int64_t grid)
{
    switch (grid) {
    case 0:
        return;
    case 1:
        return painter.drawImage(0, 0, QtBridge::image(*_x_GridLand()));
    case 2:
        return painter.drawImage(1, 2, QtBridge::image(*_x_GridLandblur()));
    default:
        throw std::logic_error("No measured map has this grid.");
    }
}

template <typename Draw>
void forEachVisible(const Window1::Layer& squares, Draw draw)
{
    for (int i = 1; i <= 12; ++i)
        for (int j = 1; j <= 12; ++j)
            if (const cSquare& square = *squares(i, j); square.Visible)
                draw(square, QPoint(static_cast<int>(square.x), static_cast<int>(square.y)));
}

} // namespace

QImage plainPage(Window1& window)
{
    QImage page(756, 576, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    drawBackground(painter, window.pmBackground.ListIndex);
    drawGrid(painter, window.pmGrid.ListIndex);
    drawBorders(painter, window);
    forEachVisible(window.mySquares, [&](const cSquare& square, QPoint at) {
        painter.drawImage(at + QPoint(3, 3), objectTile(window, square.thisObject, 0));
    });
    forEachVisible(window.mySquaresTop, [&](const cSquare& square, QPoint at) {
        painter.drawImage(at + QPoint(3, 3), objectTile(window, square.thisObject, 1));
    });
    forEachVisible(window.mySquares,
                   [&](const cSquare& square, QPoint at) { painter.drawImage(at, wallTile(*square.Wall)); });
    forEachVisible(window.mySquares, [&](const cSquare& square, QPoint at) {
        painter.drawImage(at + QPoint(2, 2), markerTile(square.thisDM));
    });
    if (window.UserPicture)
        painter.drawImage(0, 0, QtBridge::image(*window.UserPicture));
    return page;
}
