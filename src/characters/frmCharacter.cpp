#include "characters/frmCharacter.h"

#include "document/FileTypes1.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "toolkit/Numbers.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

#include <algorithm>

namespace quorrin {

using Module1::useThisCharacter;

namespace {

const frmCharacter* theEditor = nullptr;

constexpr std::int64_t highestNumber = 99;

} // namespace

frmCharacter::frmCharacter() : Window(Kind::Modal, "Character", 267, 344)
{
    Canvas1.AccessibleName = "Token";
    Canvas2.AccessibleName = "Picture of the token";
    TextField1.AccessibleName = "Number";
    TakesPictures = true;
}

frmCharacter::~frmCharacter()
{
    theEditor = nullptr;
}

const frmCharacter* frmCharacter::Current()
{
    return theEditor;
}

bool frmCharacter::HasChanged() const
{
    const auto& now = *useThisCharacter;
    return now.Number != before_.Number || !(now.IconData == before_.IconData);
}

void frmCharacter::Event_Open()
{
    before_ = *useThisCharacter;
    theEditor = this;
    if (useThisCharacter->Number >= 1)
        TextField1.Text = Str(useThisCharacter->Number);
}

void frmCharacter::Event_Help()
{
    Module1::OpenHelpPage("characters.html");
}

void frmCharacter::Canvas1_Paint(Graphics& g)
{
    useThisCharacter->DrawCharacter(g);
}

void frmCharacter::Canvas2_Paint(Graphics& g)
{
    g.ForeColor = white;
    g.FillRect(0, 0, g.Width(), g.Height());
    const auto figure = useThisCharacter->SizeIcon();
    g.DrawPicture(figure, (g.Width() - static_cast<double>(figure->Width())) / 2,
                  (g.Height() - static_cast<double>(figure->Height())) / 2);
    g.ForeColor = black;
    g.DrawRect(0, 0, g.Width(), g.Height());
}

void frmCharacter::Event_TakePicture(const std::optional<std::string>& bytes)
{
    useThisCharacter->Icon = bytes ? Picture::FromData(*bytes, cCharacter::mostIconPixels) : nullptr;
    // After a failure IconData keeps the earlier picture, though none shows: saving and reopening brings it back.
    if (useThisCharacter->Icon)
        useThisCharacter->IconData = *bytes;
    else
        MsgBox("Error Opening Picture.");
    Canvas2.Refresh(true);
    Canvas1.Refresh(true);
}

void frmCharacter::PushButton1_Action()
{
    if (const auto file = GetOpenFolderItem({FileTypes1::AllImages}))
        Event_TakePicture(readFile(file));
}

bool frmCharacter::BevelButton1_MouseDown(int, int)
{
    auto& main = Window1::Shared();
    MenuItem base;
    main.ShowObjectPopupMenu(base, "");
    if (const auto chosen = platform().PopUp(base)) {
        const auto object = Int(Val(chosen->Tag));
        useThisCharacter->Icon = main.DrawObject(object, solidColor);
        useThisCharacter->IconData = Str(-object);
        Canvas1.Refresh(true);
        Canvas2.Refresh(true);
    }
    return false;
}

void frmCharacter::PushButton2_Action()
{
    useThisCharacter->Icon = nullptr;
    useThisCharacter->IconData.clear();
    Canvas1.Refresh(true);
    Canvas2.Refresh(true);
}

/// The field keeps what was typed, whatever number comes of it.
void frmCharacter::TextField1_TextChange()
{
    useThisCharacter->Number = std::clamp<std::int64_t>(Int(Val(TextField1.Text.get())), 0, highestNumber);
    Canvas1.Refresh(true);
}

void frmCharacter::PushButton3_Action()
{
    Close();
}

} // namespace quorrin
