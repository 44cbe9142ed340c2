#include "toolkit/Graphics.h"

#include "toolkit/LaidOutText.h"
#include "toolkit/PictureSource.h"
#include "toolkit/QtBridge.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPolygonF>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quorrin {

namespace {

/// Keeps any number inside what a painter can calculate with; far outside every surface.
double bounded(double number)
{
    constexpr double limit = 100000;
    return std::isnan(number) ? 0 : std::clamp(number, -limit, limit);
}

QColor qtColor(Color color)
{
    return {color.red, color.green, color.blue, 255 - color.transparency};
}

QString qtString(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The area, on whole units where the device has such.
QRectF placed(const GraphicsDevice& device, double x, double y, double width, double height)
{
    // The edges are bounded, not the size: an area that begins far outside reaches as far as it did.
    const QPointF from(bounded(x), bounded(y));
    const QPointF to(bounded(x + width), bounded(y + height));
    if (!device.wholeUnits())
        return {from, to};
    return {QPointF(std::floor(from.x()), std::floor(from.y())), QPointF(std::floor(to.x()), std::floor(to.y()))};
}

/// The area that the pen covers on its way: a hexagon around the first and the last position of its rectangle.
QPolygonF sweptPen(QPointF from, QPointF to, double penWidth, double penHeight)
{
    if (from.x() > to.x())
        std::swap(from, to);
    const QPointF right(penWidth, 0);
    const QPointF down(0, penHeight);
    if (from.y() < to.y())
        return {{from, from + right, to + right, to + right + down, to + down, from + down}};
    return {{from, to, to + right, to + right + down, from + right + down, from + down}};
}

struct PainterDevice : GraphicsDevice {
    PainterDevice(QPainter& painter, double width, double height)
        : surface_{painter, Surface::Kind::Screen, static_cast<int>(std::ceil(painter.device()->devicePixelRatioF()))},
          width_(width), height_(height)
    {}
    double width() const override { return width_; }
    double height() const override { return height_; }
    void draw(Step step) override { carryOut(step, surface_); }

private:
    Surface surface_;
    double width_;
    double height_;
};

QRectF wholePart(const PictureSource& source)
{
    return {QPointF(0, 0), QSizeF(source.size())};
}

} // namespace

Graphics::Graphics(std::unique_ptr<GraphicsDevice> device) : device_(std::move(device))
{}

Graphics::~Graphics() = default;

double Graphics::Width() const
{
    return device_->width();
}

double Graphics::Height() const
{
    return device_->height();
}

void Graphics::NextPage()
{
    device_->nextPage();
}

void Graphics::FillRect(double x, double y, double width, double height)
{
    if (width > 0 && height > 0)
        device_->draw(FillStep{placed(*device_, x, y, width, height), qtColor(ForeColor)});
}

void Graphics::DrawRect(double x, double y, double width, double height)
{
    if (width <= 2 * PenWidth || height <= 2 * PenHeight)
        return FillRect(x, y, width, height);
    FillRect(x, y, width, PenHeight);
    FillRect(x, y + height - PenHeight, width, PenHeight);
    FillRect(x, y + PenHeight, PenWidth, height - 2 * PenHeight);
    FillRect(x + width - PenWidth, y + PenHeight, PenWidth, height - 2 * PenHeight);
}

void Graphics::DrawOval(double x, double y, double width, double height)
{
    if (width > 0 && height > 0)
        device_->draw(
            RingStep{placed(*device_, x, y, width, height), PenWidth, PenHeight, qtColor(ForeColor), AntiAlias});
}

void Graphics::DrawLine(double x1, double y1, double x2, double y2)
{
    if (x1 == x2 || y1 == y2)
        return FillRect(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + PenWidth,
                        std::abs(y2 - y1) + PenHeight);
    const QPointF from(bounded(x1), bounded(y1));
    const QPointF to(bounded(x2), bounded(y2));
    if (AntiAlias)
        device_->draw(SweptStep{sweptPen(from, to, PenWidth, PenHeight), qtColor(ForeColor)});
    else
        device_->draw(StampedStep{from, to, PenWidth, PenHeight, qtColor(ForeColor)});
}

void Graphics::DrawPicture(const Ref<Picture>& picture, double x, double y)
{
    const auto source = QtBridge::seen(*picture);
    if (source->isClear())
        return;
    const QRectF whole = wholePart(*source);
    device_->draw(
        PictureStep{source, placed(*device_, x, y, whole.width(), whole.height()), whole, PictureStep::Fit::Natural});
}

void Graphics::DrawPicture(const Ref<Picture>& picture, double x, double y, double destWidth, double destHeight,
                           double sourceX, double sourceY, double sourceWidth, double sourceHeight)
{
    const auto source = QtBridge::seen(*picture);
    if (source->isClear())
        return;
    const QRectF part(bounded(sourceX), bounded(sourceY), bounded(sourceWidth), bounded(sourceHeight));
    device_->draw(PictureStep{source, placed(*device_, x, y, destWidth, destHeight), part, PictureStep::Fit::Scaled});
}

void Graphics::DrawObject(const PixmapShape& shape, double x, double y)
{
    const auto source = QtBridge::seen(*shape.Image);
    if (source->isClear())
        return;
    // Whole quarter turns move pixels and lose none; the constants that callers use come close enough to count as such.
    const double quarters = shape.Rotation / (std::numbers::pi / 2);
    const bool exact = std::abs(quarters - std::round(quarters)) < 1e-4;
    const double degrees = exact ? std::round(quarters) * 90 : shape.Rotation * 180 / std::numbers::pi;
    const QRectF whole = wholePart(*source);
    const QSizeF turned = QTransform().rotate(degrees).mapRect(whole).size();
    device_->draw(PictureStep{
        source, placed(*device_, x - turned.width() / 2, y - turned.height() / 2, turned.width(), turned.height()),
        whole, PictureStep::Fit::Turned, degrees, shape.UpsideDown});
}

void Graphics::DrawString(std::string_view text, double x, double y, double wrapWidth)
{
    device_->draw(TextStep{qtString(text), {bounded(x), bounded(y)}, TextSize, bounded(wrapWidth), qtColor(ForeColor)});
}

double Graphics::StringWidth(std::string_view text) const
{
    return QFontMetricsF(QtBridge::font(TextSize)).horizontalAdvance(qtString(text));
}

double Graphics::StringHeight(std::string_view text, double wrapWidth) const
{
    return LaidOutText(qtString(text), QtBridge::font(TextSize), bounded(wrapWidth)).height();
}

std::unique_ptr<Graphics> QtBridge::graphics(QPainter& painter, double width, double height)
{
    return std::make_unique<Graphics>(std::make_unique<PainterDevice>(painter, width, height));
}

QFont QtBridge::font(double size)
{
    // One family everywhere, so that a marker looks the same on every desktop, on the page and on paper.
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(bounded(size)))));
    return font;
}

} // namespace quorrin
