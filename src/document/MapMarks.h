#pragma once

#include "toolkit/Text.h"

#include <string>

// The marks of the map file. Each is one byte, the number of its character; everything else in a file is plain ASCII,
// because texts and pictures travel in base-64. The mark of a field is Module1::sep, character 187.

namespace quorrin {

inline const std::string SectionMark = Chr(254);
inline const std::string ItemMark = Chr(252);
inline const std::string GroupMark = Chr(251);

/// The parts of a list. No map has longer lists than 144 squares, and cutting no further keeps a file of marks alone
/// from taking up the memory.
inline TextList parts(const std::string& text, const std::string& mark)
{
    return Split(text, mark, 200);
}

/// The length of a line of base-64 in a map file.
inline constexpr std::size_t base64Line = 76;

} // namespace quorrin
