#include "document/MapMarks.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "toolkit/Numbers.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

#include <exception>
#include <map>
#include <string_view>

// Reads a map of the newest form or any older one. There is no version in a file: older forms have fewer sections and
// fields, and what is missing keeps the value that it had. Nothing else is checked; a list that is too short raises
// OutOfBoundsException, and so does a popup's row that does not exist.

namespace quorrin {

namespace {

std::int64_t integer(const std::string& text)
{
    return Int(Val(text));
}

/// The row of a popup; no selection is none.
std::int64_t row(const std::string& text)
{
    const auto number = integer(text);
    if (number < 0)
        throw OutOfBoundsException(number);
    return number;
}

/// Files of another writer have the four marks as two bytes of UTF-8 each, all of them or none, and some a byte-order
/// mark before them.
std::string withSingleByteMarks(std::string text)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::size_t length = 0;
    for (std::size_t at = text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0; at < text.size(); ++at) {
        const unsigned lead = static_cast<unsigned char>(text[at]);
        const unsigned trail = at + 1 < text.size() ? static_cast<unsigned char>(text[at + 1]) : 0;
        const bool wide =
            (lead == 0xC2 && trail == 0xBB) || (lead == 0xC3 && (trail == 0xBB || trail == 0xBC || trail == 0xBE));
        text[length++] = wide ? static_cast<char>(lead << 6 | (trail & 0x3F)) : text[at];
        at += wide;
    }
    text.resize(length);
    return text;
}

void readSquares(const std::string& list, Layer& squares)
{
    const auto items = parts(list, ItemMark);
    std::int64_t n = 0;
    forEachSquare(squares, [&](cSquare& square) {
        const auto values = parts(items(n++), ",");
        square.thisDM = integer(values(0));
        square.thisObject = integer(values(1));
        square.Visible = Val(values(2)) != 0;
        square.x = integer(values(3));
        square.y = integer(values(4));
    });
}

void readWalls(const std::string& section, Layer& squares)
{
    const auto items = parts(section, ItemMark);
    std::int64_t n = 0;
    forEachSquare(squares, [&](cSquare& square) { square.Wall = New<cWall>(items(n++)); });
}

/// The first section; false when it is too short to be one of a map.
bool readPage(Window1& window, const std::string& section)
{
    const auto fields = parts(section, Module1::sep);
    window.pmLandscape.ListIndex = row(fields(0));
    if (fields.UBound() < 1)
        return false;
    window.pmBackground.ListIndex = row(fields(1));
    if (fields.UBound() >= 2)
        window.cbOverlayUserPict.Value = Val(fields(2)) != 0;
    if (fields.UBound() >= 3) {
        window.UserPicture = window.ConvertDataToPicture(fields(3));
        if (!window.UserPicture && !Trim(fields(3)).empty())
            window.UnreadPictures = "The drawing cannot be read and is left out.";
    }
    return true;
}

void readGrid(Window1& window, const std::string& section)
{
    const auto fields = parts(section, Module1::sep);
    window.pmGrid.ListIndex = row(fields(0));
    window.cbShowClickable.Value = Val(fields(1)) != 0;
}

void readBottomSquares(Window1& window, const std::string& section)
{
    const auto groups = parts(section, GroupMark);
    window.pmColorBW.ListIndex = row(groups(0));
    readSquares(groups(1), window.mySquares);
}

/// The colour mode stands here a second time and is not read again.
void readTopSquares(Window1& window, const std::string& section)
{
    readSquares(parts(section, GroupMark)(1), window.mySquaresTop);
}

void readScript(Window1& window, const std::string& section)
{
    const auto fields = parts(section, Module1::sep);
    window.cbShowDMObjects.Value = Val(fields(0)) == 1;
    if (fields.UBound() <= 1)
        return;
    window.myScript->Monsters = DecodeBase64(fields(1));
    window.myScript->GamtText = DecodeBase64(fields(2));
    window.txtMonster.Text = window.myScript->Monsters;
    window.txtGameText.Text = window.myScript->GamtText;
}

/// What the icons of a map together may unpack to beyond the usual; a small file could fill many seconds otherwise.
constexpr std::int64_t mostIconExcess = 384 << 20;

/// Equal icons are decoded once.
void readIcons(Window1& window, const std::string& section)
{
    const auto fields = parts(Trim(section), Module1::sep);
    std::map<std::string_view, Ref<Picture>> loaded;
    std::int64_t excess = 0;
    std::string unread;
    for (int n = 1; n <= Window1::characters; ++n) {
        cCharacter& character = *window.myCharacters(n);
        character.IconData = DecodeBase64(fields(n - 1));
        const auto [icon, isNew] = loaded.try_emplace(character.IconData.get());
        if (isNew) {
            excess += Picture::ExcessOf(character.IconData);
            if (excess <= mostIconExcess)
                character.LoadIcon();
            icon->second = character.Icon;
        }
        character.Icon = icon->second;
        if (!character.Icon && !character.IconData.empty())
            unread += (unread.empty() ? "" : ", ") + Str(n);
    }
    if (!unread.empty())
        window.UnreadPictures += (window.UnreadPictures.empty() ? "" : " ")
                                 + ("Of these characters the picture cannot be read: " + unread + ".");
}

void readNumbers(Window1& window, const std::string& section)
{
    const auto items = parts(Trim(section), ItemMark);
    for (int n = 1; n <= Window1::characters; ++n)
        window.myCharacters(n)->Number = integer(parts(items(n - 1), Module1::sep)(0));
}

void readBorders(Window1& window, const std::string& section)
{
    const auto groups = parts(section, GroupMark);
    PopupMenu* const popups[] = {&window.pmBorderTop, &window.pmBorderBottom, &window.pmBorderLeft,
                                 &window.pmBorderRight};
    std::int64_t n = 0;
    for (PopupMenu* popup : popups)
        popup->ListIndex = row(parts(groups(n++), Module1::sep)(0));
}

} // namespace

bool Window1::ReadMapText(const std::string& text)
{
    UnreadPictures.clear();
    const auto sections = parts(withSingleByteMarks(text), SectionMark);
    if (!readPage(*this, sections(0)))
        return false;
    readGrid(*this, sections(1));
    readWalls(sections(2), mySquares);
    readBottomSquares(*this, sections(3));
    if (!Trim(sections(4)).empty())
        readScript(*this, sections(4));

    // Older maps end before some of these.
    const auto readIfThere = [&](std::int64_t n, auto read) {
        if (sections.UBound() >= n && !Trim(sections(n)).empty())
            read(*this, sections(n));
    };
    readIfThere(5, readIcons);
    readIfThere(6, readNumbers);
    readIfThere(7, readTopSquares);
    readIfThere(8, readBorders);
    return true;
}

void Window1::mOpen(const Ref<FolderItem>& file)
{
    try {
        if (const auto stream = TextInputStream::Open(file)) {
            Initialize();
            if (ReadMapText(stream->ReadAll())) {
                SetSavedFileName(file);
                bbScriptTool.Value = false;
                PagePanel1.Value = MapPage;
            } else {
                MsgBox("Error opening saved file.");
            }
        }
        RenderMap(true);
        Canvas1.Invalidate(true);
        isDirty = false;
    } catch (const std::exception&) {
        MsgBox("Error opening file.");
    }
}

} // namespace quorrin
