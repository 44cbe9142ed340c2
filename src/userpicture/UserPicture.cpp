#include "document/Module1.h"
#include "document/Window1.h"
#include "userpicture/frmEditUserPicture.h"

namespace quorrin {

/// The map counts as changed after a cancel, too.
void Window1::PushButton2_Action()
{
    RenderMap(false);
    Module1::pMain = copyOf(myImage);
    Module1::gPicture = UserPicture ? copyOf(UserPicture) : New<Picture>(myImage->Width(), myImage->Height());
    RenderMap(true);
    frmEditUserPicture().ShowModal();
    if (Module1::gPicture) {
        UserPicture = copyOf(Module1::gPicture);
        UserPicture->KeepPixels();
    }
    RenderMap(true);
    isDirty = true;
}

} // namespace quorrin
