#pragma once

#include <string>

namespace quorrin {

/// The name of a document by the name of its file: all before the first dot, or the whole name where there is none.
inline std::string documentName(const std::string& fileName)
{
    return fileName.substr(0, fileName.find('.'));
}

} // namespace quorrin
