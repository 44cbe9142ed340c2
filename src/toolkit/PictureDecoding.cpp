#include "toolkit/PictureDecoding.h"

#include "toolkit/Picture.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace quorrin {

namespace {

constexpr int largestSide = 32767;
constexpr qint64 bytesPerPixel = 4;

// A picture may be 4096 by 4096 whatever its file, as a blank page packs into almost nothing. Beyond that the file must
// have something to fill it with.
constexpr qint64 alwaysAllowedBytes = 64 << 20;
constexpr qint64 pixelBytesPerFileByte = 256;
constexpr qint64 mostBytes = 256 << 20;

/// Few pictures in use are compressed more than this.
constexpr qint64 usualCompression = 64;

/// Pictures in use have about ten.
constexpr int mostJpegScans = 64;

qint64 pixelsOf(QSize size)
{
    return qint64(size.width()) * size.height();
}

qint64 plausibleBytes(qint64 fileBytes)
{
    return std::min(alwaysAllowedBytes + fileBytes * pixelBytesPerFileByte, mostBytes);
}

bool isHonest(QSize size, qint64 fileBytes, qint64 bytesPerPixel)
{
    return size.width() <= largestSide && size.height() <= largestSide
           && pixelsOf(size) * bytesPerPixel <= plausibleBytes(fileBytes);
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

int byteAt(const QByteArray& data, qsizetype at)
{
    return at < data.size() ? static_cast<quint8>(data[at]) : 0;
}

template <typename T>
T littleEndianAt(const QByteArray& data, qsizetype at)
{
    quint32 number = 0;
    for (qsizetype i = 0; i < qsizetype(sizeof(T)); ++i)
        number |= static_cast<quint32>(byteAt(data, at + i)) << (8 * i);
    return static_cast<T>(number);
}

/// What a PNG says of itself in its first chunk, which decoders go by.
struct PngHeader {
    explicit PngHeader(const QByteArray& png)
        : depth(byteAt(png, 24)), channels(channelsOfType[byteAt(png, 25) & 7]), interlaced(byteAt(png, 28) != 0)
    {}
    bool isDeep() const { return depth == 16; }
    /// Qt turns deep greys into deep colors before it downsamples them, and keeps both.
    bool isDeepGrey() const { return isDeep() && channels == 1; }

    static constexpr int channelsOfType[] = {1, 1, 3, 1, 2, 1, 4, 1};
    int depth;
    int channels;
    bool interlaced;
};

/// Whether a bitmap that is not compressed is all there; Qt would leave the rest of its pixels to chance.
bool isWholeBitmap(const QByteArray& bmp)
{
    constexpr quint32 oldHeader = 12;
    const bool isOld = littleEndianAt<quint32>(bmp, 14) == oldHeader;
    const qint64 width = isOld ? littleEndianAt<quint16>(bmp, 18) : littleEndianAt<qint32>(bmp, 18);
    const qint64 height = isOld ? littleEndianAt<quint16>(bmp, 20) : littleEndianAt<qint32>(bmp, 22);
    const qint64 bits = littleEndianAt<quint16>(bmp, isOld ? 24 : 28);
    const quint32 compression = isOld ? 0 : littleEndianAt<quint32>(bmp, 30);
    constexpr quint32 runLength8 = 1, runLength4 = 2;
    if (compression == runLength8 || compression == runLength4)
        return true;
    return std::abs(width) <= largestSide && std::abs(height) <= largestSide
           && std::abs(height) * ((std::abs(width) * bits + 7) / 8) <= bmp.size();
}

/// Whether the first frame of a GIF has no more data than its pixels can take: a byte of it can stand for thousands,
/// and Qt unpacks them all.
bool fitsItsFrame(const QByteArray& gif)
{
    enum Block { Extension = 0x21, Frame = 0x2C };
    constexpr int hasColors = 0x80;
    const auto colorBytes = [](int flags) { return flags & hasColors ? 3 << ((flags & 7) + 1) : 0; };
    // Leads over blocks up to one without length, and gives what they hold.
    const auto skipBlocks = [&](qsizetype& at) {
        qint64 held = 0;
        for (; byteAt(gif, at) != 0; at += byteAt(gif, at) + 1)
            held += byteAt(gif, at);
        ++at;
        return held;
    };
    qsizetype at = 13 + colorBytes(byteAt(gif, 10));
    while (byteAt(gif, at) == Extension) {
        at += 2;
        skipBlocks(at);
    }
    if (byteAt(gif, at) != Frame)
        return true;
    const qint64 pixels = qint64(littleEndianAt<quint16>(gif, at + 5)) * littleEndianAt<quint16>(gif, at + 7);
    at += 10 + colorBytes(byteAt(gif, at + 9)) + 1;
    constexpr qint64 bytesPerPixel = 2, slack = 1024;
    return skipBlocks(at) <= pixels * bytesPerPixel + slack;
}

bool isReadable(const QByteArray& data, const QByteArray& format)
{
    if (format == "jpeg")
        return jpegScans(data) <= mostJpegScans;
    if (format == "bmp")
        return isWholeBitmap(data);
    if (format == "gif")
        return fitsItsFrame(data);
    return format == "png";
}

/// The size at which a picture of `size` has about `mostPixels`.
QSize downsampled(QSize size, std::int64_t mostPixels)
{
    return (QSizeF(size) * std::sqrt(double(mostPixels) / double(pixelsOf(size)))).toSize().expandedTo({1, 1});
}

/// The whole image made smaller. Qt would make another whole one first where there is transparency.
QImage downsampled(QImage&& image, std::int64_t mostPixels)
{
    const QSize size = downsampled(image.size(), mostPixels);
    const QImage::Format format = image.format();
    if (format == QImage::Format_RGBA64)
        image.convertTo(QImage::Format_RGBA64_Premultiplied);
    else if (format == QImage::Format_ARGB32)
        image.convertTo(QImage::Format_ARGB32_Premultiplied);
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(format);
}

/// The bytes of an image file as they are decoded, and their format.
struct Source {
    explicit Source(const std::string& bytes)
        : data(QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())))
    {
        if (data.startsWith("\x89PNG"))
            data = withoutTexts(data);
        buffer.setBuffer(&data);
        buffer.open(QIODevice::ReadOnly);
        format = QImageReader::imageFormat(&buffer);
    }

    QByteArray data;
    QBuffer buffer;
    QByteArray format;
};

} // namespace

std::int64_t Picture::ExcessOf(const std::string& bytes)
{
    Source source(bytes);
    const QSize size = QImageReader(&source.buffer, source.format).size();
    if (!size.isValid())
        return 0;
    const PngHeader png(source.data);
    const qint64 unpackedBits = pixelsOf(size) * (source.format == "png" ? png.channels * png.depth : 16);
    return std::max<qint64>(unpackedBits / 8 - source.data.size() * usualCompression, 0);
}

DecodedPicture decodedPicture(const std::string& bytes, std::int64_t mostPixels)
{
    Source source(bytes);
    const qint64 fileBytes = source.data.size();
    if (!isReadable(source.data, source.format))
        return {};
    QImageReader reader(&source.buffer, source.format);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    const PngHeader png(source.data);
    const bool isPng = source.format == "png";
    const bool isDeep = isPng && png.isDeep();
    const bool isLarge = size.isValid() && pixelsOf(size) > mostPixels;
    if (!isHonest(size, fileBytes, isPng && isLarge && png.isDeepGrey() ? 2 * bytesPerPixel : bytesPerPixel))
        return {};
    // Holds for the image that is really made, which need not have the size that the reader tells before: that of a
    // bitmap from top to bottom is none, that of a GIF is its first frame's and not its screen's.
    QImageReader::setAllocationLimit(static_cast<int>(plausibleBytes(fileBytes) >> 20) * (isDeep ? 2 : 1));
    const bool samplesWhileDecoding = source.format == "jpeg" || (isPng && !isDeep && !png.interlaced);
    if (isLarge && samplesWhileDecoding) {
        const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
        reader.setScaledSize(downsampled(size, mostPixels));
        return {reader.read(), turned ? size.transposed() : size};
    }
    QImage image = reader.read();
    const QSize made = image.size();
    if (!isHonest(made, fileBytes, bytesPerPixel))
        return {};
    return {pixelsOf(made) > mostPixels ? downsampled(std::move(image), mostPixels) : image, made};
}

} // namespace quorrin
