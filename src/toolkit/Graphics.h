#pragma once

#include "toolkit/Color.h"
#include "toolkit/Picture.h"

#include <memory>
#include <string_view>

namespace quorrin {

struct GraphicsDevice;

/// A drawing surface: a picture, a window's canvas, or the pages of a printer. Coordinates are units of the page:
/// one pixel of a picture, one point (1/72 inch) of a printer. Colour, pen and text size stay until they are set again.
///
/// The pen is a rectangle PenWidth by PenHeight that hangs right and down from the point; both end points of a line
/// are included. Horizontal and vertical lines and rectangles are exact, never smoothed.
class Graphics {
public:
    explicit Graphics(std::unique_ptr<GraphicsDevice> device);
    ~Graphics();
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;

    Color ForeColor = black;
    double PenWidth = 1;
    double PenHeight = 1;
    double TextSize = 12;
    /// Slanting lines and ovals are smooth unless this is cleared.
    bool AntiAlias = true;
    /// How many copies the person asked the printer for.
    int Copies = 1;

    double Width() const;
    double Height() const;

    void FillRect(double x, double y, double width, double height);
    /// Outlines the rectangle on its inside.
    void DrawRect(double x, double y, double width, double height);
    /// Outlines the oval that fills the rectangle, on its inside.
    void DrawOval(double x, double y, double width, double height);
    void DrawLine(double x1, double y1, double x2, double y2);

    /// At natural size, honouring alpha, `Mask` and `Transparent`. Raises NilObjectException for nil, here and below.
    void DrawPicture(const Ref<Picture>& picture, double x, double y);
    /// The source rectangle scaled smoothly into the destination.
    void DrawPicture(const Ref<Picture>& picture, double x, double y, double destWidth, double destHeight,
                     double sourceX, double sourceY, double sourceWidth, double sourceHeight);
    /// The shape with its centre at x, y.
    void DrawObject(const PixmapShape& shape, double x, double y);

    /// Text whose first baseline starts at x, y; CR, LF and CR LF begin a new line. With a wrap width above 0, lines
    /// break between words there.
    void DrawString(std::string_view text, double x, double y, double wrapWidth = 0);
    double StringWidth(std::string_view text) const;
    /// The height of all lines of the text, wrapped at `wrapWidth` when that is above 0. A break at the very end of
    /// the text begins no further line.
    double StringHeight(std::string_view text, double wrapWidth) const;

    /// Begins a new page of a printer; nothing on a picture.
    void NextPage();

private:
    std::unique_ptr<GraphicsDevice> device_;
};

} // namespace quorrin
