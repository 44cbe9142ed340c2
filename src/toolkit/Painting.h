#pragma once

// What is drawn, as steps that can be carried out on any surface: the pixels of a picture, a window or paper. For the
// toolkit's own .cpp files.

#include <QColor>
#include <QImage>
#include <QPolygonF>
#include <QRectF>
#include <QString>

#include <memory>
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
};

/// An oval's outline, inside the area.
struct RingStep {
    QRectF area;
    double penWidth, penHeight;
    QColor color;
    bool smooth;
};

/// A smooth line: the area that the pen covers on its way.
struct SweptStep {
    QPolygonF area;
    QColor color;
};

/// A line without smooth edges: the pen set down at each unit of the way.
struct StampedStep {
    QPointF from, to;
    double penWidth, penHeight;
    QColor color;
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
};

struct TextStep {
    QString text;
    QPointF baseline;
    double size;
    double wrapWidth;
    QColor color;
};

using Step = std::variant<FillStep, RingStep, SweptStep, StampedStep, PictureStep, TextStep>;

void carryOut(const Step& step, const Surface& surface);

/// The image with exactly these pixels, scaled smoothly where it has others.
QImage withSize(const QImage& image, QSize size);

} // namespace quorrin
