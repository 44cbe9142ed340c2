#include "characters/Roster.h"

#include "app/Module1.h"
#include "characters/frmCharacter.h"
#include "document/FileTypes1.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

#include <exception>

namespace quorrin {

namespace {

constexpr int columnPitch = 70;
constexpr int tokensPerRow = 10;
constexpr int upperRowTop = 15;
constexpr int lowerRowTop = 295;
/// Clicks from here on no longer count for the upper row.
constexpr int upperRowEnd = 290;

constexpr int leftOfColumn(std::int64_t column)
{
    return static_cast<int>(column) * columnPitch - 35;
}

} // namespace

std::int64_t tokenAt(int x, int y)
{
    for (std::int64_t column = 1; column <= tokensPerRow; ++column) {
        const auto left = leftOfColumn(column);
        if (x < left || x > left + tokenWidth)
            continue;
        if (y < upperRowEnd)
            return column;
        return y >= lowerRowTop ? column + tokensPerRow : 0;
    }
    return 0;
}

Frame tokenFrame(std::int64_t token)
{
    if (token == 0)
        return {};
    const bool upper = token <= tokensPerRow;
    return {leftOfColumn(upper ? token : token - tokensPerRow), upper ? upperRowTop : lowerRowTop, tokenWidth,
            tokenHeight};
}

std::string describeToken(const Window1& window, int x, int y)
{
    const auto token = tokenAt(x, y);
    if (token == 0)
        return {};
    const auto& character = *window.myCharacters(token);
    return "Character " + Str(token) + (character.Number > 0 ? ", number " + Str(character.Number) : "")
           + (character.Icon ? "" : ", no picture");
}

std::string sheetFileName(const std::string& documentName)
{
    return Trim(documentName + " Character Sheet.jpg");
}

void drawRoster(const Window1& window, Graphics& g)
{
    for (std::int64_t i = 1; i <= Window1::characters; ++i) {
        const auto frame = tokenFrame(i);
        const auto token = New<Picture>(frame.Width, frame.Height);
        window.myCharacters(i)->DrawCharacter(token->Graphics());
        g.DrawPicture(token, frame.Left, frame.Top);
    }
}

void Window1::cvCharacters_Paint(Graphics& g)
{
    g.ForeColor = white;
    g.FillRect(0, 0, g.Width(), g.Height());
    drawRoster(*this, g);
}

bool Window1::cvCharacters_MouseDown(int, int)
{
    return true;
}

void Window1::cvCharacters_MouseUp(int x, int y)
{
    const auto token = tokenAt(x, y);
    if (token == 0)
        return;
    Module1::useThisCharacter = myCharacters(token);
    frmCharacter().ShowModal();
    // Whether or not anything was changed in the editor.
    isDirty = true;
    cvCharacters.Refresh(true);
    RenderMap(true);
}

void Window1::btnSaveCharacters_Action()
{
    try {
        const auto sheet = New<Picture>(cvCharacters.Width, cvCharacters.Height, 32);
        drawRoster(*this, sheet->Graphics());
        if (const auto file = GetSaveFolderItem({FileTypes1::Jpeg}, sheetFileName(mySavedFileName)))
            sheet->Save(file, PictureFormat::Jpeg, 100);
    } catch (const std::exception&) {
        MsgBox("Error saving character sheet.");
    }
}

} // namespace quorrin
