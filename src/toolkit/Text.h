#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace quorrin {

/// A text is a run of bytes; what a person typed is UTF-8. Positions count from 1, list indices from 0.

/// The parts of a text; reading beyond the last raises OutOfBoundsException.
class TextList {
public:
    TextList() = default;
    explicit TextList(std::vector<std::string> parts) : parts_(std::move(parts)) {}
    /// Part `index`, from 0.
    const std::string& operator()(std::int64_t index) const;
    /// The highest index, -1 for an empty list.
    std::int64_t UBound() const { return static_cast<std::int64_t>(parts_.size()) - 1; }

private:
    std::vector<std::string> parts_;
};

/// The decimal text of a number, no leading zeros, "-" before a negative one.
std::string Str(std::int64_t number);

/// The number at the start of a text, 0 if there is none. Leading blanks are skipped; "&h" introduces
/// hexadecimal digits. A number too large for a double is the largest double.
double Val(std::string_view text);

/// Upper-case hexadecimal digits with no prefix and no leading zeros.
std::string Hex(std::uint64_t number);

/// The one-character text of a character number from 0 to 255, one byte long.
std::string Chr(unsigned char number);

/// The text without white space and line breaks at both ends.
std::string Trim(std::string_view text);

/// The parts between delimiters: a delimiter at the end gives an empty last part, an empty text no part at all. What
/// comes after `mostParts` parts is left out.
TextList Split(std::string_view text, std::string_view delimiter,
               std::size_t mostParts = std::numeric_limits<std::size_t>::max());

/// The position of the first occurrence, from 1; 0 when there is none.
std::int64_t InStr(std::string_view text, std::string_view wanted);

/// The first `count` bytes, or the whole text when it is shorter.
std::string Left(std::string_view text, std::int64_t count);

/// The last `count` bytes, or the whole text when it is shorter.
std::string Right(std::string_view text, std::int64_t count);

/// The length in bytes.
std::int64_t Len(std::string_view text);

/// The text with A to Z in lower case; other bytes stay.
std::string Lowercase(std::string_view text);

/// Whether the text has a word so long that whoever breaks lines must not look for its end.
bool HasEndlessWord(std::string_view text);

/// The text with every occurrence replaced.
std::string ReplaceAll(std::string_view text, std::string_view wanted, std::string_view replacement);

/// Day and time of day where the person is, as in "1 May 2026, 09:05"; of seconds since 1970.
std::string DateAndTime(std::int64_t seconds);

/// Standard base-64, broken into lines of `lineLength` characters with CR LF between them, none at the end;
/// npos leaves it whole.
std::string EncodeBase64(std::string_view bytes, std::size_t lineLength);

/// The bytes of a base-64 text; line breaks and all else outside the alphabet are skipped.
std::string DecodeBase64(std::string_view text);

} // namespace quorrin
