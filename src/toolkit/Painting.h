#pragma once

// What is drawn, as steps that can be carried out on any surface: the pixels of a picture, a window or paper. For the
// toolkit's own .cpp files.

#include <QColor>
#include <QImage>
#include <QPolygonF>
#include <QRectF>
#include <QString>

#include <memory>
#include <optional>
#include <variant>

class QPainter;

namespace quorrin {

class Drawing;
class PictureSource;

/// Where steps are carried out.
struct Surface {
    enum class Kind {
        /// The pixels of a picture: the painter counts in pixels, of which `scale` stand for a unit.
        Picture,
        /// A window: the painter counts in units, and pictures show `scale` pixels a unit.
        Screen,
        /// A page of a printer or PDF: the painter counts in units, and what was drawn stays lines and text.
        Paper,
    };
    QPainter& painter;
    Kind kind = Kind::Picture;
    int scale = 1;

    double pixelsPerUnit() const { return kind == Kind::Picture ? scale : 1; }
};

struct FillStep {
    QRectF area;
    QColor color;

    bool operator==(const FillStep&) const = default;
};

/// An oval's outline, inside the area.
struct RingStep {
    QRectF area;
    double penWidth, penHeight;
    QColor color;
    bool smooth;

    bool operator==(const RingStep&) const = default;
};

/// A smooth line: the area that the pen covers on its way.
struct SweptStep {
    QPolygonF area;
    QColor color;

    bool operator==(const SweptStep&) const = default;
};

/// A line without smooth edges: the pen set down at each unit of the way.
struct StampedStep {
    QPointF from, to;
    double penWidth, penHeight;
    QColor color;

    bool operator==(const StampedStep&) const = default;
};

struct PictureStep {
    std::shared_ptr<const PictureSource> source;
    /// Where the picture, or `part` of it, lies; in units both.
    QRectF target;
    QRectF part;
    enum class Fit { Natural, Scaled, Turned } fit;
    /// Clockwise, and after that upside down.
    double degrees = 0;
    bool upsideDown = false;

    /// Equal when they show the same, though it was drawn anew.
    bool operator==(const PictureStep& other) const;
};

struct TextStep {
    QString text;
    QPointF baseline;
    double size;
    double wrapWidth;
    QColor color;

    bool operator==(const TextStep&) const = default;
};

using Step = std::variant<FillStep, RingStep, SweptStep, StampedStep, PictureStep, TextStep>;

void carryOut(const Step& step, const Surface& surface);

/// Where the step may change a surface, in units; nothing for what has no bounds that can be told beforehand.
std::optional<QRectF> touchedArea(const Step& step);

/// The image with exactly these pixels, scaled smoothly where it has others.
QImage withSize(const QImage& image, QSize size);

} // namespace quorrin
