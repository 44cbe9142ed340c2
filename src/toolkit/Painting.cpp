#include "toolkit/Painting.h"

#include "toolkit/LaidOutText.h"
#include "toolkit/PictureSource.h"
#include "toolkit/QtBridge.h"

#include <QPainter>
#include <QPainterPath>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace quorrin {

namespace {

/// What a picture on paper has at least, so that no printer and no viewer has to invent pixels.
constexpr double paperPixelsPerInch = 260;

QRectF times(const QRectF& area, double factor)
{
    return {area.topLeft() * factor, area.size() * factor};
}

/// Paints in units, whatever the painter counts in.
template <typename Paint>
void inUnits(const Surface& surface, Paint paint)
{
    const double factor = surface.pixelsPerUnit();
    if (factor == 1)
        return paint();
    surface.painter.save();
    surface.painter.scale(factor, factor);
    paint();
    surface.painter.restore();
}

void carryOut(const FillStep& step, const Surface& surface)
{
    surface.painter.fillRect(times(step.area, surface.pixelsPerUnit()), step.color);
}

void carryOut(const RingStep& step, const Surface& surface)
{
    QPainterPath ring;
    ring.addEllipse(step.area);
    ring.addEllipse(step.area.adjusted(step.penWidth, step.penHeight, -step.penWidth, -step.penHeight));
    inUnits(surface, [&] {
        surface.painter.setRenderHint(QPainter::Antialiasing, step.smooth);
        surface.painter.fillPath(ring, step.color);
    });
}

void carryOut(const SweptStep& step, const Surface& surface)
{
    QPainterPath path;
    path.addPolygon(step.area);
    inUnits(surface, [&] {
        surface.painter.setRenderHint(QPainter::Antialiasing);
        surface.painter.fillPath(path, step.color);
    });
}

void carryOut(const StampedStep& step, const Surface& surface)
{
    const QPointF way = step.to - step.from;
    const int steps = std::max(1, static_cast<int>(std::max(std::abs(way.x()), std::abs(way.y()))));
    for (int at = 0; at <= steps; ++at) {
        const QPointF place = step.from + way * at / steps;
        const QRectF pen(std::round(place.x()), std::round(place.y()), step.penWidth, step.penHeight);
        surface.painter.fillRect(times(pen, surface.pixelsPerUnit()), step.color);
    }
}

void carryOut(const TextStep& step, const Surface& surface)
{
    const LaidOutText text(step.text, QtBridge::font(step.size), step.wrapWidth);
    inUnits(surface, [&] {
        surface.painter.setPen(step.color);
        surface.painter.setRenderHint(QPainter::TextAntialiasing);
        text.draw(surface.painter, step.baseline);
    });
}

/// How many pixels a unit of the picture are wanted for a surface of this many pixels a unit.
int pictureScale(const PictureStep& step, double pixelsPerUnit)
{
    const double larger = std::max(step.target.width() / step.part.width(), step.target.height() / step.part.height());
    const double wanted = step.fit == PictureStep::Fit::Scaled ? pixelsPerUnit * larger : pixelsPerUnit;
    return static_cast<int>(std::clamp(std::ceil(wanted - 1e-6), 1.0, double(largestPictureScale)));
}

/// The pixels of the image that show `part`, which is in units.
QRect pixelsOfPart(const PictureStep& step, const QImage& image)
{
    const QSizeF size = step.source->size();
    const double perColumn = image.width() / size.width();
    const double perRow = image.height() / size.height();
    const QRectF part(step.part.x() * perColumn, step.part.y() * perRow, step.part.width() * perColumn,
                      step.part.height() * perRow);
    return part.toRect() & image.rect();
}

QImage turned(const QImage& image, const PictureStep& step)
{
    const bool quarters = std::fmod(step.degrees, 90) == 0;
    const QImage result = step.degrees == 0
                              ? image
                              : image.transformed(QTransform().rotate(step.degrees),
                                                  quarters ? Qt::FastTransformation : Qt::SmoothTransformation);
    return step.upsideDown ? result.mirrored(false, true) : result;
}

/// What the step shows, with the pixels that it takes up on a surface of this many pixels a unit.
QImage shownPixels(const PictureStep& step, int scale, QSize wanted)
{
    const QImage all = step.source->at(scale);
    if (step.fit == PictureStep::Fit::Scaled) {
        const QRect part = pixelsOfPart(step, all);
        return part.isEmpty() ? QImage() : withSize(part == all.rect() ? all : all.copy(part), wanted);
    }
    return turned(withSize(all, step.source->size() * scale), step);
}

/// The step without what lies beyond the surface, if the picture is larger than that: to enlarge all of a drawing of
/// 4096 by 4096 four times would take a gigabyte.
PictureStep withinBounds(PictureStep step, const Surface& surface)
{
    const QPainter& painter = surface.painter;
    const QRectF bounds =
        times(painter.worldTransform().inverted().mapRect(QRectF(painter.window())), 1 / surface.pixelsPerUnit());
    if (step.fit != PictureStep::Fit::Natural
        || (step.target.width() <= bounds.width() && step.target.height() <= bounds.height()))
        return step;
    const QPointF corner = step.target.topLeft();
    step.target &= bounds;
    step.part = step.target.translated(-corner);
    step.fit = PictureStep::Fit::Scaled;
    return step;
}

void paintOnPicture(const PictureStep& step, const Surface& surface)
{
    const QRectF target = times(step.target, surface.pixelsPerUnit());
    const int scale = surface.scale == 1 ? 1 : pictureScale(step, surface.scale);
    const QImage image =
        shownPixels(step, step.fit == PictureStep::Fit::Scaled ? scale : surface.scale, target.size().toSize());
    if (!image.isNull())
        surface.painter.drawImage(target.topLeft(), image);
}

/// On the pixels of the screen, which may be any number a unit.
void paintOnScreen(const PictureStep& step, const Surface& surface)
{
    const QTransform toDevice = surface.painter.deviceTransform();
    const QRectF place = toDevice.mapRect(step.target);
    const QRect device(place.topLeft().toPoint(), place.bottomRight().toPoint() - QPoint(1, 1));
    const QImage image = shownPixels(step, pictureScale(step, surface.scale), device.size());
    if (image.isNull() || device.isEmpty())
        return;
    QPainter& painter = surface.painter;
    const QTransform fromWorld = painter.worldTransform().inverted() * toDevice;
    const QTransform world = painter.worldTransform();
    // Counted in the pixels of the screen, so that these go as they are.
    painter.setWorldTransform(QTransform::fromTranslate(device.x(), device.y()) * fromWorld.inverted());
    painter.drawImage(0, 0, withSize(image, device.size()));
    painter.setWorldTransform(world);
}

/// JPEG suits what has very many colours and spoils line art.
bool isPhotographic(const QImage& image)
{
    constexpr int smallest = 256 * 256;
    // Smooth edges over nothing make many colours of few.
    const qsizetype manyColors = image.hasAlphaChannel() ? 4096 : 512;
    if (image.width() * image.height() <= smallest)
        return false;
    QSet<QRgb> colors;
    const int step = std::max(1, static_cast<int>(std::sqrt(image.width() * image.height() / smallest)));
    for (int y = 0; y < image.height(); y += step)
        for (int x = 0; x < image.width(); x += step)
            if (colors.insert(image.pixel(x, y)); colors.size() > manyColors)
                return true;
    return false;
}

/// How many pixels a unit make up the resolution that paper wants.
double paperPixelsPerUnit(const QPainter& painter)
{
    const QTransform toDevice = painter.combinedTransform();
    const double columnsPerUnit = std::hypot(toDevice.m11(), toDevice.m12());
    const double rowsPerUnit = std::hypot(toDevice.m21(), toDevice.m22());
    return std::max(columnsPerUnit / painter.device()->logicalDpiX(), rowsPerUnit / painter.device()->logicalDpiY())
           * paperPixelsPerInch;
}

/// Lays the units of the picture on the target.
void useUnitsOf(const PictureStep& step, QPainter& painter)
{
    if (step.fit == PictureStep::Fit::Turned) {
        const QSizeF size = step.source->size();
        painter.translate(step.target.center());
        if (step.upsideDown)
            painter.scale(1, -1);
        painter.rotate(step.degrees);
        painter.translate(-size.width() / 2, -size.height() / 2);
    } else {
        painter.translate(step.target.topLeft());
        painter.scale(step.target.width() / step.part.width(), step.target.height() / step.part.height());
        painter.translate(-step.part.topLeft());
    }
    painter.setClipRect(step.part, Qt::IntersectClip);
}

/// Draws what the clip shows of the source's pixels, enlarged smoothly where they are too few: a page of a large print
/// takes no more than its own part.
void paintPixelsOnPaper(const PictureSource& source, QPainter& painter)
{
    const double density = paperPixelsPerUnit(painter);
    const auto scale = static_cast<int>(std::clamp(std::ceil(density), 1.0, double(largestPictureScale)));
    const QImage all = source.allPixels(scale);
    const QSizeF size = source.size();
    const auto toPixels = QTransform::fromScale(all.width() / size.width(), all.height() / size.height());
    const QRect pixels = toPixels.mapRect(painter.clipBoundingRect()).toAlignedRect() & all.rect();
    if (pixels.isEmpty())
        return;
    const QRectF units = toPixels.inverted().mapRect(QRectF(pixels));
    QImage image = pixels == all.rect() ? all : all.copy(pixels);
    const QSize least(static_cast<int>(std::ceil(units.width() * density)),
                      static_cast<int>(std::ceil(units.height() * density)));
    if (image.width() < least.width() || image.height() < least.height())
        image = withSize(image, image.size().expandedTo(least));
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::LosslessImageRendering, !isPhotographic(image));
    painter.drawImage(units, image);
}

/// What was drawn is drawn again; where there are only pixels, these.
void paintOnPaper(const PictureStep& step, const Surface& surface)
{
    QPainter& painter = surface.painter;
    painter.save();
    useUnitsOf(step, painter);
    if (!painter.clipBoundingRect().isEmpty() && !step.source->replay(surface))
        paintPixelsOnPaper(*step.source, painter);
    painter.restore();
}

void carryOut(const PictureStep& step, const Surface& surface)
{
    if (step.target.width() <= 0 || step.target.height() <= 0 || step.part.isEmpty())
        return;
    if (surface.kind == Surface::Kind::Paper)
        paintOnPaper(step, surface);
    else if (surface.scale == 1)
        paintOnPicture(step, surface);
    else if (const PictureStep seen = withinBounds(step, surface); !seen.target.isEmpty())
        surface.kind == Surface::Kind::Screen ? paintOnScreen(seen, surface) : paintOnPicture(seen, surface);
}

} // namespace

void carryOut(const Step& step, const Surface& surface)
{
    std::visit([&](const auto& known) { carryOut(known, surface); }, step);
}

bool PictureStep::operator==(const PictureStep& other) const
{
    return target == other.target && part == other.part && fit == other.fit && degrees == other.degrees
           && upsideDown == other.upsideDown && source->showsWhat(*other.source);
}

std::optional<QRectF> touchedArea(const Step& step)
{
    struct Area {
        std::optional<QRectF> operator()(const FillStep& fill) const { return fill.area; }
        std::optional<QRectF> operator()(const RingStep& ring) const { return ring.area; }
        std::optional<QRectF> operator()(const SweptStep& line) const { return line.area.boundingRect(); }
        std::optional<QRectF> operator()(const StampedStep& line) const
        {
            return QRectF(line.from, line.to).normalized().adjusted(-1, -1, line.penWidth + 1, line.penHeight + 1);
        }
        std::optional<QRectF> operator()(const PictureStep& picture) const { return picture.target; }
        std::optional<QRectF> operator()(const TextStep&) const { return std::nullopt; }
    };
    return std::visit(Area(), step);
}

QImage withSize(const QImage& image, QSize size)
{
    return image.isNull() || image.size() == size ? image
                                                  : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace quorrin
