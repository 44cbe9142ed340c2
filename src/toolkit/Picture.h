#pragma once

#include "toolkit/Color.h"
#include "toolkit/Ref.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace quorrin {

class FolderItem;
class Graphics;
class RGBSurface;
struct QtBridge;

/// The most pixels that a unit of a picture is drawn with.
inline constexpr int largestPictureScale = 8;

/// File formats of Picture::Save, by the numbers that the program uses for them.
enum class PictureFormat { Default = 0, Png = 150, Jpeg = 151 };

/// A raster picture. Sizes are units of the page; at its natural size it has one pixel a unit. A picture remembers what
/// was drawn on it, so that screens and paper of more pixels get it as sharp as they are. A picture without area is
/// allowed and takes no drawing.
class Picture {
public:
    /// The form with an alpha channel, completely clear. Costs nothing until something is drawn on it.
    /// Raises RuntimeException for a negative size or one beyond 32767.
    Picture(std::int64_t width, std::int64_t height);

    /// The opaque form, white. `depth` is 32.
    Picture(std::int64_t width, std::int64_t height, int depth);

    /// A picture with an alpha channel that `draw` draws when somebody first looks at it.
    static Ref<Picture> Later(std::int64_t width, std::int64_t height, std::function<void(quorrin::Graphics&)> draw);

    static constexpr std::int64_t anyNumberOfPixels = std::numeric_limits<std::int64_t>::max();

    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    /// The picture that the program carries under this name, nil when there is none.
    static Ref<Picture> OpenFromApp(std::string_view name);

    /// The picture in an image file, nil when it cannot be read or claims a size that its bytes cannot hold.
    static Ref<Picture> Open(const Ref<FolderItem>& file);

    /// The same from the bytes of an image file. A picture of more than `mostPixels` keeps its size, but is drawn from
    /// no more than that many pixels.
    static Ref<Picture> FromData(const std::string& bytes, std::int64_t mostPixels = anyNumberOfPixels);

    /// How many bytes more than usual an image file unpacks to for its length; 0 for almost all pictures.
    static std::int64_t ExcessOf(const std::string& bytes);

    /// A copy on white, opaque.
    Ref<Picture> Flattened();

    /// The picture with `scale` pixels, 1 to 8, where it has one: what was drawn is drawn again that much larger. Each
    /// of these pixels is a unit of the result.
    Ref<Picture> Enlarged(int scale) const;

    /// Forgets how the picture was drawn: from now on it is its pixels at natural size, as in a file.
    void KeepPixels();

    /// Writes the picture to a file, replacing it only when all is safely on disk. `quality` (0 to 100) counts for
    /// JPEG alone: PNG loses nothing at any. Raises IOException when the file cannot be written.
    void Save(const Ref<FolderItem>& file, PictureFormat format, int quality) const;

    /// The bytes that Save would write.
    std::string ToData(PictureFormat format, int quality) const;

    std::int64_t Width() const;
    std::int64_t Height() const;

    /// The drawing surface; it lives as long as the picture and keeps its pen, colour and text size.
    quorrin::Graphics& Graphics();

    /// The pixels, one by one.
    quorrin::RGBSurface RGBSurface();

    /// Grey picture of the same size, or nil: black keeps a pixel, white removes it, greys give partial cover.
    Ref<Picture> Mask;

    /// 1 keeps exact white (255, 255, 255) from being drawn elsewhere.
    int Transparent = 0;

private:
    friend class quorrin::RGBSurface;
    friend struct QtBridge;
    struct Content;
    explicit Picture(std::unique_ptr<Content> content);
    std::unique_ptr<Content> content_;
};

/// Reads and writes single pixels of a picture, x and y from 0; outside the picture white is read and nothing written.
class RGBSurface {
public:
    Color Pixel(std::int64_t x, std::int64_t y) const;
    void SetPixel(std::int64_t x, std::int64_t y, Color color);

private:
    friend class Picture;
    explicit RGBSurface(Picture& picture) : picture_(picture) {}
    Picture& picture_;
};

/// A picture as a shape that can be turned about its centre. `Rotation` is in radians, clockwise; what comes of it may
/// be stood upside down, as in a mirror below it.
struct PixmapShape {
    explicit PixmapShape(Ref<Picture> source) : Image(std::move(source)) {}
    Ref<Picture> Image;
    double Rotation = 0;
    bool UpsideDown = false;
};

} // namespace quorrin
