#pragma once

#include <string>

namespace quorrin {

/// Writes the pictures that need no window into a folder: every object, the choices of the popups, and what comes out
/// of the map file. The application must be open. Raises std::exception.
void writeHelpPictures(const std::string& folder, const std::string& map);

} // namespace quorrin
