#pragma once

#include <string>
#include <vector>

namespace quorrin {

/// The file name that is proposed for the current picture of a document; its name may be empty.
std::string pictureFileName(const std::string& documentName);

/// The file names of the picture set, in the order of their making.
std::vector<std::string> seriesFileNames(const std::string& documentName);

} // namespace quorrin
