#include "toolkit/PictureSource.h"

#include "toolkit/CarriedArt.h"
#include "toolkit/Picture.h"
#include "toolkit/PictureDecoding.h"
#include "toolkit/Repainting.h"

#include <QCache>
#include <QColorSpace>
#include <QPainter>

#include <algorithm>
#include <functional>

namespace quorrin {

namespace {

/// The scale of the large forms of the pictures that the program carries.
constexpr int largeArtScale = 4;

/// Longer lists take more room than the pixels that they stand for.
constexpr std::size_t mostSteps = 4096;
/// Pictures drawn on pictures any deeper come from copying copies.
constexpr int mostDepth = 12;

using LargerKey = std::pair<std::uint64_t, int>;

constexpr int budgetKilobytes = 160 << 10;

/// Pictures at larger scales; those that were not asked for longest go first. They outlive all static pictures, which
/// take themselves out when the program ends.
QCache<LargerKey, QImage>& largerPictures()
{
    // Never destroyed: shared pictures that live longer would ask for it at their end.
    static auto& pictures = *new QCache<LargerKey, QImage>(budgetKilobytes);
    return pictures;
}

QImage larger(std::uint64_t id, int scale, const std::function<QImage()>& make)
{
    auto& known = largerPictures();
    if (const QImage* image = known.object({id, scale}))
        return *image;
    QImage made = make();
    known.insert({id, scale}, new QImage(made), std::max<qsizetype>(1, made.sizeInBytes() >> 10));
    return made;
}

/// Drops larger pictures until this much more fits the budget.
void makeRoomFor(qint64 kilobytes)
{
    largerPictures().setMaxCost(budgetKilobytes - std::min<qint64>(kilobytes, budgetKilobytes));
    largerPictures().setMaxCost(budgetKilobytes);
}

void forgetLarger(std::uint64_t id)
{
    for (int scale = 0; scale <= largestPictureScale; ++scale)
        largerPictures().remove({id, scale});
}

std::uint64_t newId()
{
    static std::uint64_t last = 0;
    return ++last;
}

QImage pixelsOf(QImage image)
{
    image.setDevicePixelRatio(1);
    image.setColorSpace({});
    const auto form = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    return std::move(image).convertToFormat(form);
}

bool isWhite(QRgb premultiplied)
{
    const QRgb alpha = premultiplied >> 24;
    return alpha > 0 && premultiplied == alpha * 0x01010101;
}

QRgb fade(QRgb premultiplied, int cover)
{
    if (cover == 0 || cover == 255)
        return cover == 0 ? 0 : premultiplied;
    const auto part = [cover](int value) { return (value * cover + 127) / 255; };
    return qRgba(part(qRed(premultiplied)), part(qGreen(premultiplied)), part(qBlue(premultiplied)),
                 part(qAlpha(premultiplied)));
}

QImage withMaskAndTransparency(const QImage& source, const QImage* mask, bool whiteIsClear)
{
    QImage result = source.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage greys = mask ? mask->convertToFormat(QImage::Format_RGB32) : QImage();
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        const int width = result.width();
        if (whiteIsClear)
            std::replace_if(line, line + width, isWhite, QRgb{0});
        if (!mask)
            continue;
        const int masked = y < greys.height() ? std::min(width, greys.width()) : 0;
        const auto* grey = masked > 0 ? reinterpret_cast<const QRgb*>(greys.constScanLine(y)) : nullptr;
        for (int x = 0; x < masked; ++x)
            line[x] = fade(line[x], 255 - qGray(grey[x]));
        std::fill(line + masked, line + width, QRgb{0});
    }
    return result;
}

} // namespace

Drawing::Drawing(QSize size, bool opaque) : PictureSource(size), origin_(Origin::Blank), opaque_(opaque), id_(newId())
{}

Drawing::Drawing(QSize size, std::function<std::vector<Step>()> makeSteps)
    : PictureSource(size), origin_(Origin::Blank), opaque_(false), makeSteps_(std::move(makeSteps)), id_(newId())
{}

Drawing::Drawing(std::string artName, QSize size, bool opaque)
    : PictureSource(size), origin_(Origin::Art), opaque_(opaque), artName_(std::move(artName)), id_(newId())
{}

Drawing::Drawing(QSize size, QImage pixels, std::shared_ptr<const std::string> file)
    : PictureSource(size), origin_(Origin::Pixels), opaque_(!pixels.hasAlphaChannel()), file_(std::move(file)),
      plain_(pixelsOf(std::move(pixels))), id_(newId())
{}

Drawing::Drawing(const Drawing& other)
    : PictureSource(other), origin_(other.origin_), opaque_(other.opaque_), artName_(other.artName_),
      file_(other.file_), steps_(other.steps()), depth_(other.depth_), plain_(other.plain_), painted_(other.painted_),
      id_(newId())
{}

Drawing::~Drawing()
{
    if (!hasLarger_)
        return;
    if (steps_.size() >= fewestStepsToRepaint)
        for (int scale = 2; scale <= largestPictureScale; ++scale)
            if (const std::unique_ptr<QImage> image{largerPictures().take({id_, scale})})
                keepForRepainting({size(), opaque_, scale, steps_, std::move(*image)});
    forgetLarger(id_);
}

const std::vector<Step>& Drawing::steps() const
{
    if (makeSteps_)
        steps_ = std::exchange(makeSteps_, nullptr)();
    return steps_;
}

bool Drawing::coversAll(const Step& step) const
{
    const QRectF all(QPointF(0, 0), size());
    if (const auto* fill = std::get_if<FillStep>(&step))
        return fill->color.alpha() == 255 && fill->area.contains(all);
    const auto* picture = std::get_if<PictureStep>(&step);
    return picture && picture->fit == PictureStep::Fit::Natural && picture->source->isOpaque()
           && picture->target.contains(all);
}

void Drawing::draw(Step step)
{
    if (hasLarger_)
        forgetLarger(id_);
    const auto* picture = std::get_if<PictureStep>(&step);
    const int depth = picture ? picture->source->depth() + 1 : 1;
    // A line without smooth edges belongs to a drawing that is kept as pixels, in memory as in the map's file.
    const bool asPixels = origin_ != Origin::Blank || std::holds_alternative<StampedStep>(step)
                          || steps().size() >= mostSteps || depth > mostDepth;
    if (asPixels) {
        QImage& image = pixels();
        if (image.isNull())
            return;
        QPainter painter(&image);
        return carryOut(step, {painter});
    }
    if (coversAll(step)) {
        steps_.clear();
        painted_ = 0;
        plain_ = {};
    }
    depth_ = std::max(depth_, depth);
    steps_.push_back(std::move(step));
}

QImage& Drawing::pixels()
{
    QImage& image = plain();
    image = withSize(image, size());
    origin_ = Origin::Pixels;
    file_ = nullptr;
    steps_.clear();
    painted_ = 0;
    depth_ = 0;
    return image;
}

QImage Drawing::blank(int scale) const
{
    if (size().isEmpty())
        return {};
    QImage image(size() * scale, opaque_ ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (steps().empty() || !coversAll(steps().front()))
        image.fill(opaque_ ? Qt::white : Qt::transparent);
    return image;
}

QImage& Drawing::plain() const
{
    if (plain_.isNull())
        plain_ = origin_ == Origin::Art ? plainArt(artName_) : blank(1);
    if (painted_ < steps().size() && !plain_.isNull()) {
        QPainter painter(&plain_);
        for (; painted_ < steps_.size(); ++painted_)
            carryOut(steps_[painted_], {painter});
    }
    return plain_;
}

QImage Drawing::enlarged(int scale) const
{
    if (origin_ == Origin::Art)
        return largeArt(artName_, size() * scale);
    if (steps().size() >= fewestStepsToRepaint)
        if (QImage image = repainted(size(), opaque_, scale, steps_); !image.isNull())
            return image;
    QImage image = blank(scale);
    if (!image.isNull()) {
        QPainter painter(&image);
        for (const Step& step : steps_)
            carryOut(step, {painter, Surface::Kind::Picture, scale});
    }
    return image;
}

QImage Drawing::at(int scale) const
{
    if (scale == 1 || origin_ == Origin::Pixels)
        return plain();
    hasLarger_ = true;
    return larger(id_, scale, [&] { return enlarged(scale); });
}

QImage Drawing::allPixels(int scale) const
{
    if (!file_)
        return at(scale);
    constexpr int asInFile = 0;
    hasLarger_ = true;
    return larger(id_, asInFile, [&] {
        // A file of 16 bits a channel takes three times as much while it is decoded.
        constexpr int whileDecoding = 3;
        makeRoomFor(whileDecoding * (qint64(size().width()) * size().height() >> 8));
        const QImage decoded = decodedPicture(*file_, Picture::anyNumberOfPixels).image;
        return decoded.isNull() ? plain() : pixelsOf(decoded);
    });
}

int Drawing::scaleToMaskAt(int scale) const
{
    return origin_ == Origin::Art && scale > 1 ? largeArtScale : scale;
}

bool Drawing::replay(const Surface& surface) const
{
    if (origin_ != Origin::Blank)
        return false;
    if (opaque_)
        surface.painter.fillRect(QRectF(QPointF(0, 0), size()), Qt::white);
    for (const Step& step : steps())
        carryOut(step, surface);
    return true;
}

bool Drawing::isClear() const
{
    return size().isEmpty() || (origin_ == Origin::Blank && !opaque_ && !makeSteps_ && steps_.empty());
}

bool Drawing::showsWhat(const PictureSource& other) const
{
    if (this == &other)
        return true;
    const auto* drawing = dynamic_cast<const Drawing*>(&other);
    return drawing && origin_ == Origin::Blank && drawing->origin_ == Origin::Blank && opaque_ == drawing->opaque_
           && size() == drawing->size() && steps() == drawing->steps();
}

MaskedPicture::MaskedPicture(std::shared_ptr<const PictureSource> own, std::shared_ptr<const PictureSource> mask,
                             bool whiteIsClear)
    : PictureSource(own->size()), own_(std::move(own)), mask_(std::move(mask)), whiteIsClear_(whiteIsClear),
      id_(newId())
{}

MaskedPicture::~MaskedPicture()
{
    if (hasLarger_)
        forgetLarger(id_);
}

QImage MaskedPicture::masked(int scale) const
{
    const QImage own = own_->at(scale);
    if (own.isNull() || !mask_)
        return own.isNull() ? own : withMaskAndTransparency(own, nullptr, whiteIsClear_);
    QImage mask = mask_->at(scale);
    if (scale > 1)
        mask = withSize(mask, own.size());
    return withMaskAndTransparency(own, &mask, whiteIsClear_);
}

QImage MaskedPicture::at(int scale) const
{
    if (scale == 1 || (!mask_ && own_->isPixels())) {
        if (plain_.isNull())
            plain_ = masked(1);
        return plain_;
    }
    hasLarger_ = true;
    return larger(id_, scale, [&] {
        const int maskScale = own_->scaleToMaskAt(scale);
        const QImage seen = masked(maskScale);
        return maskScale == scale ? seen : withSize(seen, size() * scale);
    });
}

std::shared_ptr<Drawing> carriedPicture(const std::string& name)
{
    const auto [size, hasAlpha] = carriedArt(name);
    return size.isEmpty() ? nullptr : std::make_shared<Drawing>(name, size, !hasAlpha);
}

} // namespace quorrin
