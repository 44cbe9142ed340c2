#include "render/Art.h"

namespace quorrin {

namespace {

const Ref<Picture>& loaded(Ref<Picture>& picture, const char* name)
{
    if (!picture)
        picture = Picture::OpenFromApp(name);
    return picture;
}

/// Every cursor of the program points with the lower left end of its picture.
MouseCursor cursor(const char* name)
{
    const auto picture = Picture::OpenFromApp(name);
    return {picture, 1, static_cast<int>(picture->Height()) - 2};
}

} // namespace

#define ART_PICTURE(name)                                                                                              \
    const Ref<Picture>& _x_##name()                                                                                    \
    {                                                                                                                  \
        static Ref<Picture> pic;                                                                                       \
        return loaded(pic, #name);                                                                                     \
    }
#define ART_CURSOR(name)                                                                                               \
    const MouseCursor& _x_##name()                                                                                     \
    {                                                                                                                  \
        static const MouseCursor pointer = cursor(#name);                                                              \
        return pointer;                                                                                                \
    }
#include "ArtPictures.inc"

} // namespace quorrin
