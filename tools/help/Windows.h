#pragma once

#include <string>

namespace quorrin {

/// Opens the program's real windows on a map file and writes their pictures into a folder, which must be there. The
/// application must be open. Raises std::exception.
void writeWindowPictures(const std::string& folder, const std::string& map);

} // namespace quorrin
