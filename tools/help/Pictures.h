#pragma once

#include <string>

namespace quorrin {

/// Writes the pictures that need no window into a folder: every object, the choices of the popups, and what comes out
/// of a map. The application must be open.
void writeHelpPictures(const std::string& folder);

} // namespace quorrin
