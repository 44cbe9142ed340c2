#include "document/MapSnapshot.h"

#include "document/MapMarks.h"

namespace quorrin {

void MapSnapshot::Write(const std::function<void(std::string_view)>& take) const
{
    for (const Part& part : parts_) {
        switch (part.kind) {
        case Part::Plain:
            take(part.text.get());
            break;
        case Part::Base64:
            take(EncodeBase64(part.text.get(), base64Line));
            break;
        case Part::Drawing:
            take(EncodeBase64(part.picture->FlattenedPng(), base64Line));
            break;
        }
    }
}

std::string MapSnapshot::Text() const
{
    std::string text;
    Write([&text](std::string_view piece) { text += piece; });
    return text;
}

} // namespace quorrin
