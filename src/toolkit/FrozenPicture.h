#pragma once

#include "toolkit/Picture.h"

#include <memory>
#include <string>

namespace quorrin {

/// A picture as it was seen at one moment and natural size. Taking one copies no pixels, and it may be encoded in
/// another thread.
class FrozenPicture {
public:
    explicit FrozenPicture(Picture& picture);

    /// The bytes of a PNG file of the picture on white. Raises IOException for a picture without area.
    std::string FlattenedPng() const;

    /// Whether both are of the same picture, and it was not changed in between.
    friend bool operator==(const FrozenPicture& a, const FrozenPicture& b);

private:
    struct Pixels;
    std::shared_ptr<const Pixels> pixels_;
};

} // namespace quorrin
