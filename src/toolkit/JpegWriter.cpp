#include "toolkit/Errors.h"
#include "toolkit/QtBridge.h"

#include <turbojpeg.h>

#include <algorithm>
#include <memory>

namespace quorrin {

/// Qt's own writer halves the resolution of colours at any quality, which shows on lines and figures.
std::string QtBridge::jpeg(const QImage& image, int quality)
{
    const std::unique_ptr<void, decltype(&tjDestroy)> encoder(tjInitCompress(), tjDestroy);
    if (!encoder)
        throw std::bad_alloc();
    const QImage opaque = image.convertToFormat(QImage::Format_RGB888);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    const int failed = tjCompress2(encoder.get(), opaque.constBits(), opaque.width(),
                                   static_cast<int>(opaque.bytesPerLine()), opaque.height(), TJPF_RGB, &bytes, &size,
                                   TJSAMP_444, std::clamp(quality, 1, 100), TJFLAG_ACCURATEDCT);
    const std::unique_ptr<unsigned char, decltype(&tjFree)> owned(bytes, tjFree);
    if (failed)
        throw IOException(std::string("The picture cannot be encoded: ") + tjGetErrorStr2(encoder.get()));
    return {reinterpret_cast<const char*>(bytes), size};
}

} // namespace quorrin
