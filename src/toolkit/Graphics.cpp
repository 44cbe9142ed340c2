#include "toolkit/Graphics.h"

#include "toolkit/QtBridge.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QTextLayout>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <list>
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

/// The area, on whole pixels where the device has such.
QRectF placed(const GraphicsDevice& device, double x, double y, double width, double height)
{
    // The edges are bounded, not the size: an area that begins far outside reaches as far as it did.
    const QPointF from(bounded(x), bounded(y));
    const QPointF to(bounded(x + width), bounded(y + height));
    if (!device.exactPixels())
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

/// The pen set down at every step of the line, so that nothing is smoothed and nothing left out.
void stampPen(QPainter& painter, QPointF from, QPointF to, double penWidth, double penHeight, const QColor& color)
{
    const QPointF way = to - from;
    const int steps = static_cast<int>(std::max(std::abs(way.x()), std::abs(way.y())));
    for (int step = 0; step <= steps; ++step) {
        const QPointF at = from + way * step / steps;
        painter.fillRect(QRectF(std::round(at.x()), std::round(at.y()), penWidth, penHeight), color);
    }
}

/// What is seen of a picture, all pixels that its size asks for.
QImage imageAtItsSize(Picture& picture)
{
    const QImage image = QtBridge::drawnImage(picture);
    const QSize size(static_cast<int>(picture.Width()), static_cast<int>(picture.Height()));
    return image.isNull() || image.size() == size ? image
                                                  : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// A text broken into paragraphs and these into lines.
class LaidOutText {
public:
    LaidOutText(std::string_view text, const QFont& font, double wrapWidth) : metrics_(font)
    {
        QString all = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        all.replace("\r\n", "\n").replace('\r', '\n');
        if (all.endsWith('\n'))
            all.chop(1);
        for (const QString& paragraph : all.split('\n'))
            addParagraph(paragraph, font, bounded(wrapWidth));
    }

    double height() const { return lines_ * metrics_.lineSpacing(); }

    void draw(QPainter& painter, QPointF firstBaseLine) const
    {
        for (const QTextLayout& layout : paragraphs_)
            layout.draw(&painter, firstBaseLine - QPointF(0, metrics_.ascent()));
    }

private:
    void addParagraph(const QString& paragraph, const QFont& font, double wrapWidth)
    {
        QTextLayout& layout = paragraphs_.emplace_back(paragraph, font);
        QTextOption option;
        option.setWrapMode(wrapWidth > 0 ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::ManualWrap);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(wrapWidth > 0 ? wrapWidth : 1e6);
            line.setPosition({0, lines_ * metrics_.lineSpacing()});
            ++lines_;
        }
        layout.endLayout();
    }

    QFontMetricsF metrics_;
    std::list<QTextLayout> paragraphs_;
    int lines_ = 0;
};

struct PainterDevice : GraphicsDevice {
    PainterDevice(QPainter& painter, double width, double height) : painter_(painter), width_(width), height_(height) {}
    QPainter* painter() override { return &painter_; }
    double width() const override { return width_; }
    double height() const override { return height_; }

private:
    QPainter& painter_;
    double width_;
    double height_;
};

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
    if (QPainter* painter = device_->painter(); painter && width > 0 && height > 0)
        painter->fillRect(placed(*device_, x, y, width, height), qtColor(ForeColor));
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
    QPainter* painter = device_->painter();
    if (!painter || width <= 0 || height <= 0)
        return;
    const QRectF outside = placed(*device_, x, y, width, height);
    QPainterPath ring;
    ring.addEllipse(outside);
    ring.addEllipse(outside.adjusted(PenWidth, PenHeight, -PenWidth, -PenHeight));
    painter->setRenderHint(QPainter::Antialiasing, AntiAlias);
    painter->fillPath(ring, qtColor(ForeColor));
}

void Graphics::DrawLine(double x1, double y1, double x2, double y2)
{
    if (x1 == x2 || y1 == y2)
        return FillRect(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + PenWidth,
                        std::abs(y2 - y1) + PenHeight);
    QPainter* painter = device_->painter();
    if (!painter)
        return;
    const QPointF from(bounded(x1), bounded(y1));
    const QPointF to(bounded(x2), bounded(y2));
    if (!AntiAlias)
        return stampPen(*painter, from, to, PenWidth, PenHeight, qtColor(ForeColor));
    QPainterPath path;
    path.addPolygon(sweptPen(from, to, PenWidth, PenHeight));
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(path, qtColor(ForeColor));
}

void Graphics::DrawPicture(const Ref<Picture>& picture, double x, double y)
{
    const QImage image = imageAtItsSize(*picture);
    QPainter* painter = image.isNull() ? nullptr : device_->painter();
    if (!painter)
        return;
    const QRectF area =
        placed(*device_, x, y, static_cast<double>(picture->Width()), static_cast<double>(picture->Height()));
    if (device_->exactPixels())
        painter->drawImage(area.topLeft(), image);
    else
        painter->drawImage(area, image);
}

void Graphics::DrawPicture(const Ref<Picture>& picture, double x, double y, double destWidth, double destHeight,
                           double sourceX, double sourceY, double sourceWidth, double sourceHeight)
{
    const QImage image = QtBridge::drawnImage(*picture);
    QPainter* painter = image.isNull() ? nullptr : device_->painter();
    if (!painter)
        return;
    const QRectF area = placed(*device_, x, y, destWidth, destHeight);
    const double perColumn = static_cast<double>(image.width()) / static_cast<double>(picture->Width());
    const double perRow = static_cast<double>(image.height()) / static_cast<double>(picture->Height());
    const QRect source = QRectF(bounded(sourceX) * perColumn, bounded(sourceY) * perRow,
                                bounded(sourceWidth) * perColumn, bounded(sourceHeight) * perRow)
                             .toRect()
                         & image.rect();
    if (source.isEmpty() || area.width() <= 0 || area.height() <= 0)
        return;
    if (device_->exactPixels() && area.size() == source.size())
        return painter->drawImage(area.topLeft(), image, source);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    // A painter looks at four pixels of the source for each of its own, too few where a picture becomes much smaller.
    if (device_->exactPixels())
        painter->drawImage(area.topLeft(), image.copy(source).scaled(area.size().toSize(), Qt::IgnoreAspectRatio,
                                                                     Qt::SmoothTransformation));
    else
        painter->drawImage(area, image, source);
}

void Graphics::DrawObject(const PixmapShape& shape, double x, double y)
{
    QImage image = imageAtItsSize(*shape.Image);
    QPainter* painter = image.isNull() ? nullptr : device_->painter();
    if (!painter)
        return;
    // Whole quarter turns move pixels and lose none; the constants that callers use come close enough to count as such.
    const double quarters = shape.Rotation / (std::numbers::pi / 2);
    const bool exact = std::abs(quarters - std::round(quarters)) < 1e-4;
    const double degrees = exact ? std::round(quarters) * 90 : shape.Rotation * 180 / std::numbers::pi;
    image = image.transformed(QTransform().rotate(degrees), exact ? Qt::FastTransformation : Qt::SmoothTransformation);
    const QRectF area =
        placed(*device_, x - image.width() / 2.0, y - image.height() / 2.0, image.width(), image.height());
    painter->drawImage(area.topLeft(), image);
}

void Graphics::DrawString(std::string_view text, double x, double y, double wrapWidth, bool)
{
    QPainter* painter = device_->painter();
    if (!painter)
        return;
    painter->setPen(qtColor(ForeColor));
    painter->setRenderHint(QPainter::TextAntialiasing);
    LaidOutText(text, QtBridge::font(TextSize), wrapWidth).draw(*painter, {bounded(x), bounded(y)});
}

double Graphics::StringWidth(std::string_view text) const
{
    const QString all = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return QFontMetricsF(QtBridge::font(TextSize)).horizontalAdvance(all);
}

double Graphics::StringHeight(std::string_view text, double wrapWidth) const
{
    return LaidOutText(text, QtBridge::font(TextSize), wrapWidth).height();
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
