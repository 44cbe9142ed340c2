#pragma once

#include <string>

namespace quorrin {

/// Opens the program's real windows on a map, the demo map when `map` is empty, and writes their pictures into a
/// folder.
void writeWindowPictures(const std::string& folder, const std::string& map);

} // namespace quorrin
