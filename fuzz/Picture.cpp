#include "Fuzz.h"

#include "document/cCharacter.h"
#include "toolkit/Graphics.h"
#include "toolkit/Picture.h"

// Decodes any bytes as a picture, as a drawing and as an icon. Whatever they claim, the picture is none or one that so
// few bytes may honestly hold; the fuzzer's own limits watch memory and time.

using namespace quorrin;

static void decode(const std::string& bytes, std::int64_t mostPixels)
{
    const auto picture = Picture::FromData(bytes, mostPixels);
    if (!picture)
        return;
    const auto pixels = picture->Width() * picture->Height();
    fuzz::expect(pixels > 0, "a picture has an area");
    fuzz::expect(pixels <= (16 << 20) + 64 * static_cast<std::int64_t>(bytes.size()), "a small file has few pixels");
    picture->RGBSurface().Pixel(picture->Width() - 1, picture->Height() - 1);
    if (pixels < 1 << 22)
        return;
    // Enlarged as a whole, it would take gigabytes.
    Picture page(100, 100, 32);
    picture->Transparent = 1;
    page.Graphics().DrawPicture(picture, 0, 0);
    page.Enlarged(4);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto bytes = fuzz::text(data, size);
    decode(bytes, Picture::anyNumberOfPixels);
    decode(bytes, cCharacter::mostIconPixels);
    fuzz::expect(Picture::ExcessOf(bytes) >= 0, "no file unpacks to less than nothing");
    return 0;
}
