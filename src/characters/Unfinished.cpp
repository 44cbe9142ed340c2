#include "document/Window1.h"

// To be replaced by the real operations.
namespace quorrin {
void cCharacter::DrawCharacter(Graphics&) const
{}
Ref<Picture> cCharacter::SizeIcon() const
{
    return New<Picture>(32, 32, 32);
}
Ref<Picture> cCharacter::FlipIcon(const Ref<Picture>& src)
{
    return src;
}
void cCharacter::LoadIcon()
{}
void Window1::cvCharacters_Paint(Graphics&)
{}
bool Window1::cvCharacters_MouseDown(int, int)
{
    return true;
}
void Window1::cvCharacters_MouseUp(int, int)
{}
void Window1::btnSaveCharacters_Action()
{}
void Window1::btnPrintCharacters_Action()
{}
} // namespace quorrin
