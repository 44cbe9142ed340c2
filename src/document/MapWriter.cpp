#include "document/FileTypes1.h"
#include "document/MapMarks.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

namespace quorrin {

namespace {

std::string field(const std::string& value)
{
    return value + Module1::sep;
}

std::string field(const PopupMenu& popup)
{
    return field(Str(popup.ListIndex));
}

std::string field(const CheckBox& box)
{
    return field(box.Value ? "1" : "0");
}

template <typename Text>
std::string items(const Layer& squares, Text text)
{
    std::string all;
    forEachSquare(squares, [&](const cSquare& square) { all += text(square) + ItemMark; });
    return all;
}

std::string squareItems(const PopupMenu& colorMode, const Layer& squares)
{
    return Str(colorMode.ListIndex) + GroupMark + items(squares, [](const cSquare& square) { return square.toSave(); });
}

} // namespace

MapSnapshot Window1::Snapshot(const Ref<Picture>& drawing) const
{
    MapSnapshot map;
    map.Add(field(pmLandscape) + field(pmBackground) + field(cbOverlayUserPict));
    if (drawing)
        map.AddPicture(*drawing);
    map.Add(field("") + SectionMark + field(pmGrid) + field(cbShowClickable) + SectionMark
            + items(mySquares, [](const cSquare& square) { return square.Wall->toSave(); }) + SectionMark
            + squareItems(pmColorBW, mySquares) + SectionMark + field(cbShowDMObjects));
    const auto addBase64Field = [&map](const SharedText& bytes) {
        map.AddBase64(bytes);
        map.Add(field(""));
    };
    addBase64Field(myScript->Monsters);
    addBase64Field(myScript->GamtText);
    map.Add(SectionMark);
    std::string numbers;
    for (int n = 1; n <= characters; ++n) {
        addBase64Field(myCharacters(n)->IconData);
        numbers += field(Str(myCharacters(n)->Number)) + ItemMark;
    }
    map.Add(SectionMark + numbers + SectionMark + squareItems(pmColorBW, mySquaresTop) + SectionMark
            + field(pmBorderTop) + GroupMark + field(pmBorderBottom) + GroupMark + field(pmBorderLeft) + GroupMark
            + field(pmBorderRight) + GroupMark + SectionMark);
    return map;
}

std::string Window1::MapText() const
{
    return Snapshot(UserPicture).Text();
}

bool Window1::mSave()
{
    const auto text = MapText();
    const auto name = mySavedFileName.empty() ? "New Map.qrnm" : Trim(mySavedFileName) + ".qrnm";
    const auto file = GetSaveFolderItem({FileTypes1::QuorrinMap}, name);
    if (!file)
        return false;
    const auto stream = TextOutputStream::Create(file);
    if (!stream)
        return false;
    stream->Write(text);
    stream->Close();
    SetSavedFileName(file);
    return true;
}

} // namespace quorrin
