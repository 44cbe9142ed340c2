#pragma once

#include <string>

namespace quorrin {

/// Writes the objects of the program's object menu, a line each: group, number and name, with tabs between. The
/// application must be open. Raises std::runtime_error.
void writeObjectList(const std::string& path);

} // namespace quorrin
