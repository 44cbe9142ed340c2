#include "document/Window1.h"

// To be replaced by the real operations.
namespace quorrin {
void Window1::ShowObjectPopupMenu(MenuItem&, const std::string&)
{}
} // namespace quorrin
