#include "app/frmAbout.h"

#include "render/Art.h"
#include "toolkit/Application.h"

namespace quorrin {

frmAbout::frmAbout() : Window(Kind::ModalWithCloseBox, "About...", 508, 234)
{
    Canvas1.AccessibleName = "Icon of the program";
}

void frmAbout::Event_Open()
{
    lblVersion.Caption = "v" + Application::Version();
}

void frmAbout::Canvas1_Paint(Graphics& g)
{
    g.DrawPicture(_x_Icon128(), 0, 0);
    g.ForeColor = black;
    g.DrawRect(0, 0, g.Width(), g.Height());
}

void frmAbout::PushButton1_Action()
{
    Close();
}

} // namespace quorrin
