#include "document/Map.h"
#include "document/MapMarks.h"
#include "toolkit/FrozenPicture.h"
#include "toolkit/Text.h"

namespace quorrin {

std::string Map::ConvertPictureToData(const Ref<Picture>& picture)
{
    return EncodeBase64(FrozenPicture(*picture).FlattenedPng(), base64Line);
}

Ref<Picture> Map::ConvertDataToPicture(const std::string& text)
{
    if (Trim(text).empty())
        return nullptr;
    auto picture = Picture::FromData(DecodeBase64(text));
    // The file keeps the drawing flattened on white; this lets the map show through again.
    if (picture)
        picture->Transparent = 1;
    return picture;
}

} // namespace quorrin
