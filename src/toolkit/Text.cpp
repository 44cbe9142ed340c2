#include "toolkit/Text.h"

#include "toolkit/Errors.h"

#include <QByteArray>
#include <QDateTime>
#include <QLocale>

#include <algorithm>
#include <charconv>
#include <limits>
#include <locale>
#include <sstream>
#include <system_error>

namespace quorrin {

namespace {

constexpr std::string_view blanks = " \t\r\n\v\f";

double hexadecimalValue(std::string_view digits)
{
    double value = 0;
    for (const char c : Lowercase(digits)) {
        const auto digit = std::string_view("0123456789abcdef").find(c);
        if (digit == std::string_view::npos)
            break;
        value = std::min(value * 16 + static_cast<double>(digit), std::numeric_limits<double>::max());
    }
    return value;
}

double decimalValue(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    // Words that std::from_chars would take for numbers ("inf", "nan") are none here.
    if (text.empty() || (text[0] != '.' && (text[0] < '0' || text[0] > '9')))
        return 0;
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // It leaves open whether the number is too large or too small; a stream gives the largest number or 0.
        std::istringstream number(std::string(text.data(), result.ptr));
        number.imbue(std::locale::classic());
        number >> value;
    }
    return negative ? -value : value;
}

std::size_t clampedLength(std::string_view text, std::int64_t count)
{
    return static_cast<std::size_t>(std::clamp<std::int64_t>(count, 0, Len(text)));
}

} // namespace

const std::string& TextList::operator()(std::int64_t index) const
{
    if (index < 0 || index > UBound())
        throw OutOfBoundsException(index);
    return parts_[static_cast<std::size_t>(index)];
}

std::string Str(std::int64_t number)
{
    return std::to_string(number);
}

double Val(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    if (Lowercase(text.substr(0, 2)) == "&h")
        return hexadecimalValue(text.substr(2));
    return decimalValue(text);
}

std::string Hex(std::uint64_t number)
{
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, number, 16).ptr;
    std::transform(digits, end, digits, [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
    return {digits, end};
}

std::string Chr(unsigned char number)
{
    return {static_cast<char>(number)};
}

std::string Trim(std::string_view text)
{
    const auto first = text.find_first_not_of(blanks);
    if (first == text.npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

TextList Split(std::string_view text, std::string_view delimiter, std::size_t mostParts)
{
    std::vector<std::string> parts;
    if (text.empty())
        return TextList(std::move(parts));
    for (;;) {
        // Nothing between two characters divides nothing.
        const auto end = delimiter.empty() ? text.npos : text.find(delimiter);
        parts.emplace_back(text.substr(0, end));
        if (end == text.npos || parts.size() >= mostParts)
            return TextList(std::move(parts));
        text.remove_prefix(end + delimiter.size());
    }
}

std::int64_t InStr(std::string_view text, std::string_view wanted)
{
    const auto found = text.find(wanted);
    return found == text.npos ? 0 : static_cast<std::int64_t>(found) + 1;
}

std::string Left(std::string_view text, std::int64_t count)
{
    return std::string(text.substr(0, clampedLength(text, count)));
}

std::string Right(std::string_view text, std::int64_t count)
{
    return std::string(text.substr(text.size() - clampedLength(text, count)));
}

std::int64_t Len(std::string_view text)
{
    return static_cast<std::int64_t>(text.size());
}

std::string Lowercase(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

bool HasEndlessWord(std::string_view text)
{
    constexpr std::size_t longest = 4000;
    for (std::size_t start = 0; text.size() - start > longest;) {
        const auto end = text.substr(start, longest + 1).find_last_of(blanks);
        if (end == text.npos)
            return true;
        start += end + 1;
    }
    return false;
}

std::string ReplaceAll(std::string_view text, std::string_view wanted, std::string_view replacement)
{
    std::string result;
    for (;;) {
        const auto found = wanted.empty() ? text.npos : text.find(wanted);
        result += text.substr(0, found);
        if (found == text.npos)
            return result;
        result += replacement;
        text.remove_prefix(found + wanted.size());
    }
}

std::string DateAndTime(std::int64_t seconds)
{
    return QLocale::c().toString(QDateTime::fromSecsSinceEpoch(seconds), "d MMMM yyyy, HH:mm").toStdString();
}

std::string EncodeBase64(std::string_view bytes, std::size_t lineLength)
{
    const auto encoded = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())).toBase64();
    const std::string_view all(encoded.constData(), static_cast<std::size_t>(encoded.size()));
    std::string lines;
    for (std::size_t start = 0; start < all.size(); start += lineLength) {
        if (start > 0)
            lines += "\r\n";
        lines += all.substr(start, lineLength);
    }
    return lines;
}

std::string DecodeBase64(std::string_view text)
{
    return QByteArray::fromBase64(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())))
        .toStdString();
}

} // namespace quorrin
