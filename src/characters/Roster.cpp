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

constexpr std::int64_t columnPitch = 70;
constexpr std::int64_t tokensPerRow = 10;
constexpr std::int64_t upperRowTop = 15;
constexpr std::int64_t lowerRowTop = 295;
/// Clicks from here on no longer count for the upper row.
constexpr std::int64_t upperRowEnd = 290;

constexpr std::int64_t leftOfColumn(std::int64_t column)
{
    return column * columnPitch - 35;
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

std::string sheetFileName(const std::string& documentName)
{
    return Trim(documentName + " Character Sheet.jpg");
}

void drawRoster(const Window1& window, Graphics& g)
{
    for (std::int64_t i = 1; i <= Window1::characters; ++i) {
        const bool upper = i <= tokensPerRow;
        const auto token = New<Picture>(tokenWidth, tokenHeight);
        window.myCharacters(i)->DrawCharacter(token->Graphics());
        g.DrawPicture(token, static_cast<double>(leftOfColumn(upper ? i : i - tokensPerRow)),
                      static_cast<double>(upper ? upperRowTop : lowerRowTop));
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
