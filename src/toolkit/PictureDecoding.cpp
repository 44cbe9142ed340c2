#include "toolkit/PictureDecoding.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QtEndian>

#include <cmath>

namespace quorrin {

namespace {

constexpr int largestSide = 32767;

// A picture may be 4096 by 4096 whatever its file, as a blank page packs into almost nothing. Beyond that the file must
// have something to fill it with.
constexpr qint64 alwaysAllowedBytes = 64 << 20;
constexpr qint64 pixelBytesPerFileByte = 256;
constexpr int decoderLimitMegabytes = 256;

/// Pictures in use have about ten.
constexpr int mostJpegScans = 64;

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

DecodedPicture decodedPicture(const std::string& bytes, std::int64_t mostPixels)
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
        return {};
    QImageReader reader(&buffer, format);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!claimsHonestSize(size, data.size()))
        return {};
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    const double pixels = double(size.width()) * size.height();
    if (pixels <= double(mostPixels)) {
        const QImage image = reader.read();
        return {image, image.size()};
    }
    reader.setScaledSize((QSizeF(size) * std::sqrt(double(mostPixels) / pixels)).toSize().expandedTo({1, 1}));
    return {reader.read(), turned ? size.transposed() : size};
}

} // namespace quorrin
