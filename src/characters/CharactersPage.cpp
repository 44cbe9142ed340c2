#include "characters/Roster.h"
#include "characters/frmCharacter.h"
#include "document/FileTypes1.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"

#include <exception>

// The page that shows the character sheet.

namespace quorrin {

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
