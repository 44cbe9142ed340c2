#include "document/MapSnapshot.h"

#include "document/MapMarks.h"
#include "document/Window1.h"

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
            take(Window1::ConvertPictureToData(part.picture));
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

bool MapSnapshot::Part::operator==(const Part& other) const
{
    return kind == other.kind && text == other.text && (!picture || picture->SharesPixels(*other.picture));
}

} // namespace quorrin
