#include "toolkit/CarriedArt.h"

#include "toolkit/Application.h"
#include "toolkit/Errors.h"
#include "toolkit/Painting.h"

#include <QBuffer>
#include <QImageReader>
#include <QResource>
#include <QtEndian>

#include <zstd.h>

#include <optional>
#include <vector>

// A page's large form is a JPEG. Everything else is packed by tools/art/pack.py: width, height, channels, and the rows
// as one zstd frame, which unpacks several times faster than a PNG.

/// Finds the resources of the library that carries the art. The macro wants to stand outside of any namespace.
static void initializeArt()
{
    Q_INIT_RESOURCE(art);
}

namespace quorrin {

namespace {

QByteArray resource(const QString& path)
{
    const QResource found(path);
    return QByteArray::fromRawData(reinterpret_cast<const char*>(found.data()), found.size());
}

QString plainPath(const std::string& name)
{
    return QStringLiteral(":/art/%1.art").arg(QString::fromStdString(name));
}

class PackedPicture {
public:
    static std::optional<PackedPicture> in(const QByteArray& bytes)
    {
        if (bytes.size() < headerSize)
            return {};
        return PackedPicture(bytes);
    }

    QSize size() const
    {
        return {qFromLittleEndian<quint16>(bytes_.constData()), qFromLittleEndian<quint16>(bytes_.constData() + 2)};
    }
    int channels() const { return bytes_[4]; }

    QImage unpacked() const
    {
        const auto stride = std::size_t(size().width()) * std::size_t(channels());
        std::vector<uchar> rows(stride * std::size_t(size().height()));
        const auto got = ZSTD_decompress(rows.data(), rows.size(), bytes_.constData() + headerSize,
                                         std::size_t(bytes_.size() - headerSize));
        if (got != rows.size())
            throw RuntimeException("A picture of the program is damaged.");
        const auto format = channels() == 1   ? QImage::Format_Grayscale8
                            : channels() == 3 ? QImage::Format_RGB888
                                              : QImage::Format_RGBA8888;
        const QImage image(rows.data(), size().width(), size().height(), qsizetype(stride), format);
        return image.convertToFormat(channels() == 4 ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    }

private:
    static constexpr qsizetype headerSize = 5;
    explicit PackedPicture(QByteArray bytes) : bytes_(std::move(bytes)) {}
    QByteArray bytes_;
};

QImage unpacked(const QString& path)
{
    const auto packed = PackedPicture::in(resource(path));
    return packed ? packed->unpacked() : QImage();
}

} // namespace

void registerArt()
{
    initializeArt();
}

CarriedArt carriedArt(const std::string& name)
{
    const auto packed = PackedPicture::in(resource(plainPath(name)));
    return packed ? CarriedArt{packed->size(), packed->channels() == 4} : CarriedArt();
}

QImage plainArt(const std::string& name)
{
    return unpacked(plainPath(name));
}

QImage largeArt(const std::string& name, QSize pixels)
{
    const QString base = QStringLiteral(":/art/4x/%1").arg(QString::fromStdString(name));
    QByteArray jpeg = resource(base + ".jpg");
    if (jpeg.isEmpty())
        return withSize(unpacked(base + ".art"), pixels);
    QBuffer buffer(&jpeg);
    QImageReader reader(&buffer, "jpeg");
    reader.setScaledSize(pixels); // decodes no more than it takes
    return reader.read().convertToFormat(QImage::Format_RGB32);
}

} // namespace quorrin
