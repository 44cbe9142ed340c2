#include "toolkit/FrozenPicture.h"

#include "toolkit/PictureSource.h"
#include "toolkit/QtBridge.h"

namespace quorrin {

struct FrozenPicture::Pixels {
    QImage image;
};

FrozenPicture::FrozenPicture(Picture& picture)
    : pixels_(std::make_shared<const Pixels>(Pixels{QtBridge::seen(picture)->at(1)}))
{}

std::string FrozenPicture::FlattenedPng() const
{
    return QtBridge::png(QtBridge::onWhite(pixels_->image));
}

bool operator==(const FrozenPicture& a, const FrozenPicture& b)
{
    return a.pixels_->image.constBits() == b.pixels_->image.constBits();
}

} // namespace quorrin
