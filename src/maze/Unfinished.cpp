#include "document/Window1.h"

// To be replaced by the real operations.
namespace quorrin {
void Window1::btnMaze_Action()
{}
void Window1::btnWallMaze_Action()
{}
} // namespace quorrin
