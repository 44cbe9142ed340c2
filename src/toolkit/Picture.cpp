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
#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

namespace quorrin {

namespace {

constexpr std::int64_t largestSide = 32767;

// A picture may be 4096 by 4096 whatever its file, as a blank page packs into almost nothing. Beyond that the file must
// have something to fill it with.
constexpr qint64 alwaysAllowedBytes = 64 << 20;
constexpr qint64 pixelBytesPerFileByte = 256;
constexpr int decoderLimitMegabytes = 256;

/// Pictures in use have about ten.
constexpr int mostJpegScans = 64;

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

/// A PNG without its texts, which may unpack to a thousand times their size and which nobody reads.
QByteArray withoutTexts(const QByteArray& png)
{
    constexpr qsizetype signature = 8;
    constexpr qsizetype lengthTypeAndSum = 12;
    QByteArray rest = png.left(signature);
    for (qsizetype at = signature; at + lengthTypeAndSum <= png.size();) {
        const auto length = qFromBigEndian<quint32>(png.constData() + at) + lengthTypeAndSum;
        const QByteArray type = png.mid(at + 4, 4);
        if (type != "tEXt" && type != "zTXt" && type != "iTXt")
            rest += png.mid(at, length);
        at += length;
    }
    return rest;
}

/// The scans of a JPEG; each costs as much time as the whole picture, however few bytes it takes. What stands behind
/// the picture's end, as the films of phones do, counts for nothing.
int jpegScans(const QByteArray& jpeg)
{
    enum Marker : quint8 { Stuffed = 0x00, Alone = 0x01, Restart0 = 0xD0, Restart7 = 0xD7, End = 0xD9, Scan = 0xDA };
    constexpr quint8 markerStart = 0xFF;
    const auto byte = [&](qsizetype at) { return static_cast<quint8>(jpeg[at]); };
    int scans = 0;
    qsizetype at = 2;
    while (at + 3 < jpeg.size()) {
        const quint8 marker = byte(at + 1);
        if (byte(at) != markerStart || marker == markerStart) {
            ++at;
        } else if (marker == Stuffed || marker == Alone || (marker >= Restart0 && marker <= Restart7)) {
            at += 2;
        } else if (marker == End) {
            break;
        } else {
            scans += marker == Scan;
            at += 2 + qFromBigEndian<quint16>(jpeg.constData() + at + 2);
        }
    }
    return scans;
}

} // namespace

struct Picture::Pixels {
    Pixels(std::int64_t width, std::int64_t height, bool isOpaque)
        : width(checkedSide(width)), height(checkedSide(height)), opaque(isOpaque)
    {}

    bool hasArea() const { return width > 0 && height > 0; }

    /// The image, made when it is first needed: most tiles of a page stay blank and never need one. One that was kept
    /// small has fewer pixels than the picture.
    QImage& made()
    {
        if (image.isNull() && hasArea()) {
            image = QImage(width, height, opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
            image.fill(opaque ? Qt::white : Qt::transparent);
        }
        return image;
    }

    /// The same, to be changed.
    QImage& changed()
    {
        drawn = {};
        if (made().size() != QSize(width, height) && hasArea())
            image = image.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
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
        const auto image = [pixels] { return &pixels->changed(); };
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
    const QImage& image = QtBridge::image(picture_);
    const QRgb pixel = image.pixel(static_cast<int>(x * image.width() / pixels.width),
                                   static_cast<int>(y * image.height() / pixels.height));
    return RGB(static_cast<std::uint8_t>(qRed(pixel)), static_cast<std::uint8_t>(qGreen(pixel)),
               static_cast<std::uint8_t>(qBlue(pixel)), static_cast<std::uint8_t>(255 - qAlpha(pixel)));
}

void RGBSurface::SetPixel(std::int64_t x, std::int64_t y, Color color)
{
    auto& pixels = *picture_.pixels_;
    if (x < 0 || y < 0 || x >= pixels.width || y >= pixels.height)
        return;
    pixels.stopPainting();
    pixels.changed().setPixelColor(static_cast<int>(x), static_cast<int>(y),
                                   QColor(color.red, color.green, color.blue, 255 - color.transparency));
}

Ref<Picture> Picture::OpenFromApp(std::string_view name)
{
    const QImage image(QStringLiteral(":/art/%1.png").arg(QLatin1StringView(name.data(), qsizetype(name.size()))));
    return image.isNull() ? nullptr : QtBridge::picture(image);
}

Ref<Picture> Picture::Open(const Ref<FolderItem>& file)
{
    const auto bytes = readFile(file);
    return bytes ? FromData(*bytes) : nullptr;
}

Ref<Picture> Picture::FromData(const std::string& bytes, std::int64_t mostPixels)
{
    static const QList<QByteArray> readFormats{"png", "jpeg", "bmp", "gif"};
    QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (data.startsWith("\x89PNG"))
        data = withoutTexts(data);
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader::setAllocationLimit(decoderLimitMegabytes);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    if (!readFormats.contains(format) || (format == "jpeg" && jpegScans(data) > mostJpegScans))
        return nullptr;
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    QSize size = reader.size();
    if (!claimsHonestSize(size, data.size()))
        return nullptr;
    const double pixels = double(size.width()) * size.height();
    if (pixels > double(mostPixels))
        reader.setScaledSize((QSizeF(size) * std::sqrt(double(mostPixels) / pixels)).toSize().expandedTo({1, 1}));
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const QImage image = reader.read();
    if (image.isNull())
        return nullptr;
    auto picture = QtBridge::picture(image);
    if (pixels > double(mostPixels)) {
        picture->pixels_->width = turned ? size.height() : size.width();
        picture->pixels_->height = turned ? size.width() : size.height();
    }
    return picture;
}

Ref<Picture> Picture::Frozen() const
{
    auto frozen = QtBridge::picture(QtBridge::image(*this));
    frozen->Mask = Mask;
    frozen->Transparent = Transparent;
    return frozen;
}

bool Picture::SharesPixels(const Picture& other) const
{
    return QtBridge::image(*this).constBits() == QtBridge::image(other).constBits();
}

Ref<Picture> Picture::Flattened()
{
    const QImage seen = QtBridge::drawnImage(*this);
    auto flat = New<Picture>(Width(), Height(), 32);
    if (!seen.isNull()) {
        QImage& image = flat->pixels_->image = QImage(seen.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter(&image).drawImage(0, 0, seen);
    }
    return flat;
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
    auto picture =
        clear ? New<Picture>(image.width(), image.height()) : New<Picture>(image.width(), image.height(), 32);
    image.setDevicePixelRatio(1);
    image.setColorSpace({});
    picture->pixels_->image =
        std::move(image).convertToFormat(clear ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    return picture;
}

} // namespace quorrin
