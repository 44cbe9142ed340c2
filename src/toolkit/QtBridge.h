#pragma once

// The one header of the toolkit that names Qt types. It is for the toolkit's own .cpp files and for src/desktop.

#include "toolkit/Graphics.h"
#include "toolkit/Painting.h"
#include "toolkit/Picture.h"

#include <QFont>
#include <QImage>
#include <QString>

#include <memory>
#include <string>

class QPagedPaintDevice;
class QPainter;

namespace quorrin {

class Drawing;
struct PrinterSetup;

/// What a Graphics draws on.
struct GraphicsDevice {
    virtual ~GraphicsDevice() = default;
    virtual double width() const = 0;
    virtual double height() const = 0;
    /// Whether everything is placed on whole units, as their edges are edges of pixels.
    virtual bool wholeUnits() const { return true; }
    virtual void draw(Step step) = 0;
    virtual void nextPage() {}
};

struct QtBridge {
    /// Paths as the toolkit has them, bytes that the file system takes, and as Qt has them.
    static QString qtPath(const std::string& path);
    static std::string plainPath(const QString& path);
    /// Whether Qt by itself would take the path for another, as it has bytes that are no UTF-8.
    static bool isMarkedPath(const QString& path);

    /// The picture's own pixels at natural size, without `Mask` and `Transparent`.
    static QImage image(const Picture& picture);
    /// What is seen of the picture when it is drawn, as it is now.
    static std::shared_ptr<const PictureSource> seen(Picture& picture);
    /// The same as an image of so many pixels a unit, which is its device pixel ratio, too.
    static QImage drawnImage(Picture& picture, double pixelsPerUnit = 1);
    /// A copy that is opaque.
    static QImage onWhite(const QImage& image);
    /// Nil for nil.
    static Ref<Picture> picture(std::shared_ptr<Drawing> drawing);
    /// The bytes of a PNG file of the image. Raises IOException for an image without pixels.
    static std::string png(const QImage& image);
    /// The bytes of a JPEG file of the image in full colour (4:4:4), `quality` from 1 to 100. Raises IOException when
    /// it cannot be encoded.
    static std::string jpeg(const QImage& image, int quality);

    /// A surface on a painter that somebody else keeps open, `width` by `height` units.
    static std::unique_ptr<Graphics> graphics(QPainter& painter, double width, double height);
    /// A surface on the pages of a printer or PDF, in points; begins painting on its first page at once.
    static std::unique_ptr<Graphics> graphics(std::unique_ptr<QPagedPaintDevice> device);

    /// The page layout that a setup asks for, put on a printer or PDF, and read back from it.
    static void applySetup(const PrinterSetup& setup, QPagedPaintDevice& device);
    static void readSetup(const QPagedPaintDevice& device, PrinterSetup& setup);

    /// The font of all drawn text, `size` units high.
    static QFont font(double size);
};

} // namespace quorrin
