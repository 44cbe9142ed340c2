#include "userpicture/frmEditUserPicture.h"

#include "document/FileTypes1.h"
#include "document/Module1.h"
#include "render/Art.h"
#include "toolkit/Platform.h"

namespace quorrin {

namespace {

const frmEditUserPicture* theEditor = nullptr;

Ref<MenuBar> mbUserPict()
{
    return menuBarOf({
        {"FileMenu",
         "&File",
         {
             {"mnuOpenUserPicture", "Open Picture", "Cmd+O"},
         }},
        {"EditMenu", "&Edit",
         editRows({
             {"mnUPEditUndo", "&Undo", "Cmd+Z"},
             {"mnuClearDrawing", "Clear User Picture"},
         })},
    });
}

} // namespace

Ref<Picture> copyOf(const Ref<Picture>& source)
{
    auto copy = New<Picture>(source->Width(), source->Height());
    copy->Graphics().DrawPicture(source, 0, 0);
    return copy;
}

frmEditUserPicture::frmEditUserPicture() : Window(Kind::Modal, "Edit User Picture", 1100, 796)
{
    Canvas1_Open();
    Canvas1.AccessibleName = "Drawing";
    PopupMenu1.AccessibleName = "Color";
    PopupMenu2.AccessibleName = "Pen width";
    TakesPictures = true;
    MenuBar = mbUserPict();
    AddMenuHandler("mnuOpenUserPicture", &frmEditUserPicture::_mnuOpenUserPicture_Action);
    AddMenuHandler("mnUPEditUndo", &frmEditUserPicture::_mnUPEditUndo_Action);
    AddMenuHandler("mnuClearDrawing", &frmEditUserPicture::_mnuClearDrawing_Action);
    // No item of this bar bears the name; the handler waits for one.
    AddMenuHandler("mnuSavePicture", &frmEditUserPicture::_mnuSavePicture_Action);
}

frmEditUserPicture::~frmEditUserPicture()
{
    theEditor = nullptr;
}

const frmEditUserPicture* frmEditUserPicture::Current()
{
    return theEditor;
}

Ref<Picture> frmEditUserPicture::Drawn() const
{
    return myImage && !(FrozenPicture(*myImage) == *before_) ? myImage : nullptr;
}

void frmEditUserPicture::Event_Open()
{
    myImage = copyOf(Module1::gPicture);
    before_.emplace(*myImage);
    theEditor = this;
    Canvas1.Width = static_cast<int>(myImage->Width());
    Canvas1.Height = static_cast<int>(myImage->Height());
    ox = -1;
    oy = -1;
}

void frmEditUserPicture::Event_EnableMenuItems()
{
    MenuBar->Find("mnUPEditUndo")->Enabled = static_cast<bool>(pUndo);
    MenuBar->Find("mnuClearDrawing")->Enabled = static_cast<bool>(myImage);
}

void frmEditUserPicture::Event_Help()
{
    Module1::OpenHelpPage("drawing.html");
}

/// Sets the menu bar anew, so that it shows once the window stands.
void frmEditUserPicture::Timer1_Action()
{
    const auto bar = MenuBar;
    MenuBar = bar;
    if (View)
        View->Sync();
}

void frmEditUserPicture::Canvas1_Open()
{
    Canvas1.MouseCursor = _x_curPencil();
}

void frmEditUserPicture::Canvas1_Paint(Graphics& g)
{
    const auto& size = Module1::gPicture;
    const auto buffer = size ? New<Picture>(size->Width(), size->Height())
                             : New<Picture>(static_cast<int>(g.Width()), static_cast<int>(g.Height()));
    auto& drawing = buffer->Graphics();
    if (Module1::pMain)
        drawing.DrawPicture(Module1::pMain, 0, 0);
    if (myImage)
        drawing.DrawPicture(myImage, 0, 0);
    drawing.ForeColor = black;
    drawing.DrawRect(0, 0, g.Width(), g.Height());
    g.DrawPicture(buffer, 0, 0);
}

bool frmEditUserPicture::Canvas1_MouseDown(int x, int y)
{
    ox = fx = x;
    oy = fy = y;
    lineDirection = -1;
    pUndo = copyOf(myImage);
    return true;
}

/// A constrained line always starts where the stroke began, and the keys are asked again at each step.
void frmEditUserPicture::Canvas1_MouseDrag(int x, int y)
{
    auto& g = myImage->Graphics();
    g.AntiAlias = false; // or white would leave grey edges where it erases
    g.ForeColor = PopupMenu1.ListIndex == BlackPen ? black : white;
    g.PenWidth = g.PenHeight = static_cast<double>(PopupMenu2.ListIndex + 1);
    const auto line = [&g](std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2) {
        g.DrawLine(static_cast<double>(x1), static_cast<double>(y1), static_cast<double>(x2), static_cast<double>(y2));
    };
    if (Keyboard::AsyncShiftKey())
        line(fx, fy, x, fy);
    else if (Keyboard::AsyncControlKey())
        line(fx, fy, fx, y);
    else
        line(ox, oy, x, y);
    ox = x;
    oy = y;
    Canvas1.Invalidate(false);
}

/// Takes the white out of the drawing, which makes white an eraser.
void frmEditUserPicture::Canvas1_MouseUp(int, int)
{
    const auto flat = myImage->Flattened();
    flat->Transparent = 1;
    myImage = copyOf(flat);
    Canvas1.Invalidate(false);
}

void frmEditUserPicture::LayOver(const Ref<Picture>& picture)
{
    if (picture) {
        picture->Transparent = 1;
        const auto clear = copyOf(picture);
        const auto size = [](std::int64_t side) { return static_cast<double>(side); };
        myImage->Graphics().DrawPicture(clear, 0, 0, size(myImage->Width()), size(myImage->Height()), 0, 0,
                                        size(clear->Width()), size(clear->Height()));
        // The map's file keeps no more than these pixels.
        myImage->KeepPixels();
    }
    Canvas1.Invalidate(true);
}

bool frmEditUserPicture::_mnuOpenUserPicture_Action()
{
    LayOver(Picture::Open(GetOpenFolderItem({FileTypes1::Bmp, FileTypes1::Jpeg, FileTypes1::Png})));
    return true;
}

void frmEditUserPicture::Event_TakePicture(const std::optional<std::string>& bytes)
{
    LayOver(bytes ? Picture::FromData(*bytes) : nullptr);
}

bool frmEditUserPicture::_mnUPEditUndo_Action()
{
    myImage = copyOf(pUndo);
    pUndo = nullptr;
    Canvas1.Invalidate(true);
    return true;
}

bool frmEditUserPicture::_mnuClearDrawing_Action()
{
    pUndo = copyOf(myImage);
    myImage = New<Picture>(pUndo->Width(), pUndo->Height());
    Canvas1.Invalidate(true);
    return true;
}

bool frmEditUserPicture::_mnuSavePicture_Action()
{
    const auto file = GetSaveFolderItem({}, "Quorrin Map.bmp");
    if (file && myImage)
        myImage->Save(file, PictureFormat::Default, 100);
    return true;
}

void frmEditUserPicture::PushButton1_Action()
{
    Module1::gPicture = copyOf(myImage);
    Close();
}

void frmEditUserPicture::PushButton2_Action()
{
    Module1::gPicture = nullptr;
    Close();
}

} // namespace quorrin
