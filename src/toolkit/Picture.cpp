#include "toolkit/Picture.h"

#include "toolkit/Files.h"
#include "toolkit/Graphics.h"
#include "toolkit/QtBridge.h"

#include <QBuffer>
#include <QByteArray>
#include <QColorSpace>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

#include <algorithm>
#include <array>
#include <functional>

namespace quorrin {

namespace {

constexpr std::int64_t largestSide = 32767;

// No image format in use packs better than this, so a file that claims more pixels is lying about its size.
constexpr qint64 pixelBytesPerFileByte = 1100;
constexpr qint64 alwaysAllowedBytes = 16 << 20;
constexpr int decoderLimitMegabytes = 256;

int checkedSide(std::int64_t side)
{
    if (side < 0 || side > largestSide)
        throw RuntimeException("A picture cannot be " + std::to_string(side) + " wide or high.");
    return static_cast<int>(side);
}

bool isWhite(QRgb premultiplied)
{
    const int alpha = qAlpha(premultiplied);
    return alpha > 0 && qRed(premultiplied) == alpha && qGreen(premultiplied) == alpha && qBlue(premultiplied) == alpha;
}

QRgb fade(QRgb premultiplied, int cover)
{
    const auto part = [cover](int value) { return (value * cover + 127) / 255; };
    return qRgba(part(qRed(premultiplied)), part(qGreen(premultiplied)), part(qBlue(premultiplied)),
                 part(qAlpha(premultiplied)));
}

bool claimsHonestSize(QSize size, qint64 fileBytes)
{
    return size.width() <= largestSide && size.height() <= largestSide
           && qint64(size.width()) * size.height() * 4 <= alwaysAllowedBytes + fileBytes * pixelBytesPerFileByte;
}

} // namespace

struct Picture::Pixels {
    Pixels(std::int64_t width, std::int64_t height, bool isOpaque)
        : width(checkedSide(width)), height(checkedSide(height)), opaque(isOpaque)
    {}

    bool hasArea() const { return width > 0 && height > 0; }

    /// The image, made when it is first needed: most tiles of a page stay blank and never need one.
    QImage& made()
    {
        if (image.isNull() && hasArea()) {
            image = QImage(width, height, opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
            image.fill(opaque ? Qt::white : Qt::transparent);
        }
        return image;
    }

    void stopPainting()
    {
        if (painter.isActive())
            painter.end();
    }

    bool isUntouched() const { return image.isNull(); }

    int width;
    int height;
    bool opaque;
    QImage image;
    QPainter painter;
    std::unique_ptr<quorrin::Graphics> graphics;

    /// The pixels as drawn elsewhere, by the two switches `Mask` set and `Transparent` set. The catalogue's pictures
    /// change between two of these many times a page.
    struct Drawn {
        QImage image;
        Ref<Picture> mask;
    };
    std::array<Drawn, 4> drawn;

    void changed() { drawn = {}; }
};

namespace {

struct PictureDevice : GraphicsDevice {
    PictureDevice(QPainter& painter, std::function<QImage*()> image, int width, int height)
        : painter_(painter), image_(std::move(image)), width_(width), height_(height)
    {}
    QPainter* painter() override
    {
        if (!painter_.isActive()) {
            QImage* image = image_();
            if (image->isNull())
                return nullptr;
            painter_.begin(image);
        }
        return &painter_;
    }
    double width() const override { return width_; }
    double height() const override { return height_; }

private:
    QPainter& painter_;
    std::function<QImage*()> image_;
    int width_;
    int height_;
};

QImage withMaskAndTransparency(const QImage& source, const QImage* mask, bool whiteIsClear)
{
    QImage result = source.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage greys = mask ? mask->convertToFormat(QImage::Format_RGB32) : QImage();
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        const auto* grey = mask && y < greys.height() ? reinterpret_cast<const QRgb*>(greys.constScanLine(y)) : nullptr;
        for (int x = 0; x < result.width(); ++x) {
            if (whiteIsClear && isWhite(line[x]))
                line[x] = 0;
            if (mask)
                line[x] = fade(line[x], grey && x < greys.width() ? 255 - qGray(grey[x]) : 0);
        }
    }
    return result;
}

} // namespace

Picture::Picture(std::int64_t width, std::int64_t height) : pixels_(std::make_unique<Pixels>(width, height, false))
{}

Picture::Picture(std::int64_t width, std::int64_t height, int) : pixels_(std::make_unique<Pixels>(width, height, true))
{}

Picture::~Picture() = default;

std::int64_t Picture::Width() const
{
    return pixels_->width;
}

std::int64_t Picture::Height() const
{
    return pixels_->height;
}

Graphics& Picture::Graphics()
{
    if (!pixels_->graphics) {
        Pixels* pixels = pixels_.get();
        const auto image = [pixels] {
            pixels->changed();
            return &pixels->made();
        };
        pixels_->graphics = std::make_unique<quorrin::Graphics>(
            std::make_unique<PictureDevice>(pixels->painter, image, pixels->width, pixels->height));
    }
    return *pixels_->graphics;
}

RGBSurface Picture::RGBSurface()
{
    return quorrin::RGBSurface(*this);
}

Color RGBSurface::Pixel(std::int64_t x, std::int64_t y) const
{
    const auto& pixels = *picture_.pixels_;
    if (x < 0 || y < 0 || x >= pixels.width || y >= pixels.height)
        return white;
    const QRgb pixel = QtBridge::image(picture_).pixel(static_cast<int>(x), static_cast<int>(y));
    return RGB(static_cast<std::uint8_t>(qRed(pixel)), static_cast<std::uint8_t>(qGreen(pixel)),
               static_cast<std::uint8_t>(qBlue(pixel)), static_cast<std::uint8_t>(255 - qAlpha(pixel)));
}

void RGBSurface::SetPixel(std::int64_t x, std::int64_t y, Color color)
{
    auto& pixels = *picture_.pixels_;
    if (x < 0 || y < 0 || x >= pixels.width || y >= pixels.height)
        return;
    pixels.stopPainting();
    pixels.changed();
    pixels.made().setPixelColor(static_cast<int>(x), static_cast<int>(y),
                                QColor(color.red, color.green, color.blue, 255 - color.transparency));
}

Ref<Picture> Picture::OpenFromApp(std::string_view name)
{
    const QImage image(QStringLiteral(":/art/%1.png").arg(QLatin1StringView(name.data(), qsizetype(name.size()))));
    return image.isNull() ? nullptr : QtBridge::picture(image);
}

Ref<Picture> Picture::Open(const Ref<FolderItem>& file)
{
    const auto stream = TextInputStream::Open(file);
    return stream ? FromData(stream->ReadAll()) : nullptr;
}

Ref<Picture> Picture::FromData(const std::string& bytes)
{
    static const QList<QByteArray> readFormats{"png", "jpeg", "bmp", "gif"};
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader::setAllocationLimit(decoderLimitMegabytes);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    if (!readFormats.contains(format))
        return nullptr;
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    if (!claimsHonestSize(reader.size(), data.size()))
        return nullptr;
    const QImage image = reader.read();
    return image.isNull() ? nullptr : QtBridge::picture(image);
}

std::string Picture::ToData(PictureFormat format, int quality) const
{
    if (format != PictureFormat::Jpeg)
        return QtBridge::png(QtBridge::image(*this));
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(std::clamp(quality, 0, 100));
    if (!writer.write(QtBridge::image(*this)))
        throw IOException("The picture cannot be encoded: " + writer.errorString().toStdString());
    return data.toStdString();
}

void Picture::Save(const Ref<FolderItem>& file, PictureFormat format, int quality) const
{
    const auto data = ToData(format, quality);
    const auto stream = TextOutputStream::Create(file);
    if (!stream)
        throw IOException("The file \"" + file->Name() + "\" cannot be created.");
    stream->Write(data);
    stream->Close();
}

const QImage& QtBridge::image(const Picture& picture)
{
    auto& pixels = *picture.pixels_;
    pixels.stopPainting();
    return pixels.made();
}

QImage QtBridge::drawnImage(Picture& picture)
{
    auto& pixels = *picture.pixels_;
    if (pixels.isUntouched() && !pixels.opaque)
        return {};
    const QImage& own = image(picture);
    if (own.isNull() || (!picture.Mask && picture.Transparent != 1))
        return own;
    auto& drawn = pixels.drawn[(picture.Mask ? 1U : 0U) + (picture.Transparent == 1 ? 2U : 0U)];
    if (drawn.image.isNull() || !(drawn.mask == picture.Mask)) {
        const QImage* mask = picture.Mask ? &image(*picture.Mask) : nullptr;
        drawn = {withMaskAndTransparency(own, mask, picture.Transparent == 1), picture.Mask};
    }
    return drawn.image;
}

Ref<Picture> QtBridge::picture(QImage image)
{
    const bool clear = image.hasAlphaChannel();
    const auto picture =
        clear ? New<Picture>(image.width(), image.height()) : New<Picture>(image.width(), image.height(), 32);
    image.setDevicePixelRatio(1);
    image.setColorSpace({});
    picture->pixels_->image =
        std::move(image).convertToFormat(clear ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    return picture;
}

} // namespace quorrin
