#include "document/Window1.h"

// To be replaced by the real operations.
namespace quorrin {
bool Window1::_mnPageSetup_Action()
{
    return true;
}
bool Window1::_mnuPrint_Action()
{
    return true;
}
void Window1::btnPrint_Action()
{}
void Window1::PrintText(Graphics&)
{}
} // namespace quorrin
