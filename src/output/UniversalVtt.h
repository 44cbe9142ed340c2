#pragma once

#include <string>

namespace quorrin {

class Window1;

/// The file name for a document; its name may be empty.
std::string vttFileName(const std::string& documentName);

/// The map in the form that virtual table tops share: a JSON text with the players' colour picture, `cell` pixels a
/// square, and its walls, doors and lights. The window is as before at the end.
std::string universalVtt(Window1& window, int cell);

} // namespace quorrin
