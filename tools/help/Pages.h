#pragma once

#include <filesystem>

namespace quorrin {

/// Puts the pages of the help together in `target`, whose pictures stand there already: each page of `source` in its
/// frame, and a page of all objects. A page asks for a picture with a line "<!-- picture: NAME.png | caption -->",
/// where images/NAME.png is one of them. Raises std::exception, also for a picture that is not there.
void writeHelpPages(const std::filesystem::path& source, const std::filesystem::path& target);

} // namespace quorrin
