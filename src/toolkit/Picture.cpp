#include "toolkit/Picture.h"

#include "toolkit/Files.h"
#include "toolkit/Graphics.h"
#include "toolkit/PictureDecoding.h"
#include "toolkit/PictureSource.h"
#include "toolkit/QtBridge.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace quorrin {

namespace {

constexpr std::int64_t largestSide = 32767;

QSize checkedSize(std::int64_t width, std::int64_t height)
{
    for (const auto side : {width, height})
        if (side < 0 || side > largestSide)
            throw RuntimeException("A picture cannot be " + std::to_string(side) + " wide or high.");
    return {static_cast<int>(width), static_cast<int>(height)};
}

} // namespace

struct Picture::Content {
    explicit Content(std::shared_ptr<Drawing> content) : drawing(std::move(content)) {}

    /// The drawing, to be changed: whoever keeps an earlier state of it keeps that.
    Drawing& changed()
    {
        seen = {};
        if (drawing.use_count() > 1)
            drawing = std::make_shared<Drawing>(*drawing);
        return *drawing;
    }

    std::shared_ptr<Drawing> drawing;
    std::unique_ptr<quorrin::Graphics> graphics;

    /// The picture as drawn elsewhere, by the two switches `Mask` set and `Transparent` set. The catalogue's pictures
    /// change between two of these many times a page.
    struct Seen {
        std::shared_ptr<const PictureSource> source;
        Ref<Picture> mask;
    };
    std::array<Seen, 4> seen;
};

Picture::Picture(std::unique_ptr<Content> content) : content_(std::move(content))
{}

Picture::Picture(std::int64_t width, std::int64_t height)
    : Picture(std::make_unique<Content>(std::make_shared<Drawing>(checkedSize(width, height), false)))
{}

Picture::Picture(std::int64_t width, std::int64_t height, int)
    : Picture(std::make_unique<Content>(std::make_shared<Drawing>(checkedSize(width, height), true)))
{}

Picture::~Picture() = default;

std::int64_t Picture::Width() const
{
    return content_->drawing->size().width();
}

std::int64_t Picture::Height() const
{
    return content_->drawing->size().height();
}

namespace {

/// Hands what is drawn to a picture, which paints it when somebody looks.
struct PictureDevice : GraphicsDevice {
    PictureDevice(std::function<Drawing&()> changed, QSize size) : changed_(std::move(changed)), size_(size) {}
    double width() const override { return size_.width(); }
    double height() const override { return size_.height(); }
    void draw(Step step) override { changed_().draw(std::move(step)); }

private:
    std::function<Drawing&()> changed_;
    QSize size_;
};

} // namespace

Ref<Picture> Picture::Later(std::int64_t width, std::int64_t height, std::function<void(quorrin::Graphics&)> draw)
{
    const QSize size = checkedSize(width, height);
    return QtBridge::picture(std::make_shared<Drawing>(size, [=] {
        Drawing drawn(size, false);
        quorrin::Graphics g(std::make_unique<PictureDevice>([&]() -> Drawing& { return drawn; }, size));
        draw(g);
        return drawn.steps();
    }));
}

Graphics& Picture::Graphics()
{
    if (!content_->graphics) {
        Content* content = content_.get();
        content->graphics = std::make_unique<quorrin::Graphics>(std::make_unique<PictureDevice>(
            [content]() -> Drawing& { return content->changed(); }, content->drawing->size()));
    }
    return *content_->graphics;
}

RGBSurface Picture::RGBSurface()
{
    return quorrin::RGBSurface(*this);
}

Color RGBSurface::Pixel(std::int64_t x, std::int64_t y) const
{
    const auto width = picture_.Width();
    const auto height = picture_.Height();
    if (x < 0 || y < 0 || x >= width || y >= height)
        return white;
    const QImage image = QtBridge::image(picture_);
    const QRgb pixel =
        image.pixel(static_cast<int>(x * image.width() / width), static_cast<int>(y * image.height() / height));
    return RGB(static_cast<std::uint8_t>(qRed(pixel)), static_cast<std::uint8_t>(qGreen(pixel)),
               static_cast<std::uint8_t>(qBlue(pixel)), static_cast<std::uint8_t>(255 - qAlpha(pixel)));
}

void RGBSurface::SetPixel(std::int64_t x, std::int64_t y, Color color)
{
    if (x < 0 || y < 0 || x >= picture_.Width() || y >= picture_.Height())
        return;
    picture_.content_->changed().pixels().setPixelColor(
        static_cast<int>(x), static_cast<int>(y), QColor(color.red, color.green, color.blue, 255 - color.transparency));
}

Ref<Picture> Picture::OpenFromApp(std::string_view name)
{
    return QtBridge::picture(carriedPicture(std::string(name)));
}

Ref<Picture> Picture::Open(const Ref<FolderItem>& file)
{
    const auto bytes = readFile(file);
    return bytes ? FromData(*bytes) : nullptr;
}

Ref<Picture> Picture::FromData(const std::string& bytes, std::int64_t mostPixels)
{
    auto decoded = decodedPicture(bytes, mostPixels);
    if (decoded.image.isNull())
        return nullptr;
    const bool keptSmaller = decoded.image.size() != decoded.size;
    return QtBridge::picture(std::make_shared<Drawing>(decoded.size, std::move(decoded.image),
                                                       keptSmaller ? std::make_shared<std::string>(bytes) : nullptr));
}

Ref<Picture> Picture::Flattened()
{
    const auto source = QtBridge::seen(*this);
    if (!content_->drawing->isPixels()) {
        const auto flat = std::make_shared<Drawing>(source->size(), true);
        const QRectF whole(QPointF(0, 0), source->size());
        flat->draw(PictureStep{source, whole, whole, PictureStep::Fit::Natural});
        return QtBridge::picture(flat);
    }
    // Drawing would reduce a photograph to a pixel a unit.
    return QtBridge::picture(std::make_shared<Drawing>(content_->drawing->size(), QtBridge::onWhite(source->at(1))));
}

Ref<Picture> Picture::Enlarged(int scale) const
{
    const QImage image = content_->drawing->at(std::clamp(scale, 1, largestPictureScale));
    const QSize size = content_->drawing->size() * std::clamp(scale, 1, largestPictureScale);
    return QtBridge::picture(std::make_shared<Drawing>(size, withSize(image, size)));
}

void Picture::KeepPixels()
{
    content_->changed().pixels();
}

std::string Picture::ToData(PictureFormat format, int quality) const
{
    const QImage image = QtBridge::image(*this);
    return format == PictureFormat::Jpeg ? QtBridge::jpeg(image, quality) : QtBridge::png(image);
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

QImage QtBridge::onWhite(const QImage& image)
{
    QImage flat(image.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter(&flat).drawImage(0, 0, image);
    return flat;
}

QImage QtBridge::image(const Picture& picture)
{
    return picture.content_->drawing->at(1);
}

std::shared_ptr<const PictureSource> QtBridge::seen(Picture& picture)
{
    auto& content = *picture.content_;
    if (!picture.Mask && picture.Transparent != 1)
        return content.drawing;
    auto& seen = content.seen[(picture.Mask ? 1U : 0U) + (picture.Transparent == 1 ? 2U : 0U)];
    if (!seen.source || !(seen.mask == picture.Mask)) {
        const auto mask = picture.Mask ? picture.Mask->content_->drawing : nullptr;
        seen = {std::make_shared<MaskedPicture>(content.drawing, mask, picture.Transparent == 1), picture.Mask};
    }
    return seen.source;
}

QImage QtBridge::drawnImage(Picture& picture, double pixelsPerUnit)
{
    const auto source = seen(picture);
    if (source->isClear())
        return {};
    QImage image = source->at(std::clamp(static_cast<int>(std::ceil(pixelsPerUnit)), 1, largestPictureScale));
    image = withSize(image, (QSizeF(source->size()) * pixelsPerUnit).toSize());
    image.setDevicePixelRatio(pixelsPerUnit);
    return image;
}

Ref<Picture> QtBridge::picture(std::shared_ptr<Drawing> drawing)
{
    if (!drawing)
        return nullptr;
    return Ref<Picture>(std::shared_ptr<Picture>(new Picture(std::make_unique<Picture::Content>(std::move(drawing)))));
}

} // namespace quorrin
