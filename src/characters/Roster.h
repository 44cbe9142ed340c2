#pragma once

#include "toolkit/Controls.h"

#include <cstdint>
#include <string>

namespace quorrin {

class Map;

/// The size of a token on the sheet.
inline constexpr int tokenWidth = 60;
inline constexpr int tokenHeight = 270;

/// The number of the token, 1 to 20, that a click at x, y of the roster opens; 0 for none. The regions are looser than
/// the tokens that one sees: the margins above and below count, and a column is a pixel wider.
std::int64_t tokenAt(int x, int y);

/// Where that token is drawn on the roster; without area for 0.
Frame tokenFrame(std::int64_t token);

/// What a screen reader says of a place on the roster; empty beside the tokens.
std::string describeToken(const Map& map, int x, int y);

/// The file name that is proposed for the sheet of a document; its name may be empty.
std::string sheetFileName(const std::string& documentName);

/// Draws the twenty tokens in their two rows, on the screen, on paper and into a file alike.
void drawRoster(const Map& map, Graphics& g);

} // namespace quorrin
