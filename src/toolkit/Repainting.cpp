#include "toolkit/Repainting.h"

#include <QPainter>

#include <algorithm>
#include <optional>
#include <utility>

namespace quorrin {

namespace {

std::optional<PaintedPicture>& kept()
{
    // Never destroyed: static pictures hand theirs in when the program ends.
    static auto& picture = *new std::optional<PaintedPicture>;
    return picture;
}

/// The area, in units, outside which both lists paint the same; nothing when it cannot be told.
std::optional<QRectF> differingArea(const std::vector<Step>& before, const std::vector<Step>& now)
{
    const auto [firstBefore, firstNow] = std::mismatch(before.begin(), before.end(), now.begin(), now.end());
    const auto [lastBefore, lastNow] = std::mismatch(before.rbegin(), std::make_reverse_iterator(firstBefore),
                                                     now.rbegin(), std::make_reverse_iterator(firstNow));
    QRectF area;
    const auto add = [&](auto first, auto last) {
        return std::all_of(first, last, [&](const Step& step) {
            const auto touched = touchedArea(step);
            area |= touched.value_or(QRectF());
            return touched.has_value();
        });
    };
    if (!add(firstBefore, lastBefore.base()) || !add(firstNow, lastNow.base()))
        return std::nullopt;
    return area;
}

void paintWithin(const QRect& pixels, QPainter& painter, bool isOpaque, int scale, const std::vector<Step>& steps)
{
    painter.setClipRect(pixels);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(pixels, isOpaque ? Qt::white : Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QRectF units(QPointF(pixels.topLeft()) / scale, QSizeF(pixels.size()) / scale);
    for (const Step& step : steps) {
        const auto touched = touchedArea(step);
        if (!touched || touched->adjusted(-1, -1, 1, 1).intersects(units))
            carryOut(step, {painter, Surface::Kind::Picture, scale});
    }
}

} // namespace

void keepForRepainting(PaintedPicture picture)
{
    // The last one goes when the new one is in place: what was drawn on it may hand itself in as it goes.
    const std::optional<PaintedPicture> last = std::exchange(kept(), std::move(picture));
}

QImage repainted(QSize size, bool isOpaque, int scale, const std::vector<Step>& steps)
{
    if (!kept() || kept()->size != size || kept()->isOpaque != isOpaque || kept()->scale != scale)
        return {};
    PaintedPicture before = std::move(*std::exchange(kept(), std::nullopt));
    const auto area = differingArea(before.steps, steps);
    if (!area || area->width() * area->height() > size.width() * size.height() / 2.0)
        return {};
    // Smooth edges may reach a pixel beyond.
    const QRect pixels = QRectF(area->topLeft() * scale, area->size() * scale).toAlignedRect().adjusted(-1, -1, 1, 1);
    if (!area->isEmpty()) {
        QPainter painter(&before.image);
        paintWithin(pixels & before.image.rect(), painter, isOpaque, scale, steps);
    }
    return std::move(before.image);
}

} // namespace quorrin
