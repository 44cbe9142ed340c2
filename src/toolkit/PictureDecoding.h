#pragma once

// Names Qt types, as QtBridge.h does; for the toolkit's own .cpp files.

#include <QImage>
#include <QSize>

#include <cstdint>
#include <string>

namespace quorrin {

/// What came of an image file; the image is null when the file cannot be read.
struct DecodedPicture {
    QImage image;
    /// The size of the picture, which the image may be kept smaller than.
    QSize size;
};

/// The picture in the bytes of an image file. One of more than `mostPixels` is downsampled to about that many. Nothing
/// when the bytes claim a size that they cannot hold.
DecodedPicture decodedPicture(const std::string& bytes, std::int64_t mostPixels);

} // namespace quorrin
