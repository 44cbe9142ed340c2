#include "app/iniClass.h"

#include "toolkit/Errors.h"
#include "toolkit/Text.h"

#include <string_view>

namespace quorrin {

namespace {

constexpr char lineEnd = '\r';

/// A text cut in two behind the first occurrence of a mark; the second part is empty when there is none.
struct Cut {
    std::string_view before;
    std::string_view after;
};
Cut cutBehind(std::string_view text, std::string_view mark)
{
    const auto found = text.find(mark);
    const auto end = found == text.npos ? text.size() : found + mark.size();
    return {text.substr(0, end), text.substr(end)};
}

/// The text of a file with the value put in.
std::string withValue(std::string_view text, const std::string& section, const std::string& key,
                      const std::string& value)
{
    const auto header = "[" + section + "]";
    const auto assignment = key + "=";
    const auto line = value + lineEnd;
    const auto found = text.find(header);
    if (found == text.npos)
        return std::string(text) + header + lineEnd + assignment + line;

    const auto [sectionLine, rest] = cutBehind(text.substr(found), {&lineEnd, 1});
    const auto next = rest.find(std::string(1, lineEnd) + "[");
    const auto lines = next == rest.npos ? rest : rest.substr(0, next + 1);
    auto result = std::string(text.substr(0, found)).append(sectionLine);
    if (!sectionLine.ends_with(lineEnd))
        result += lineEnd;
    if (lines.find(assignment) == lines.npos) {
        result.append(lines).append(assignment).append(line);
    } else {
        const auto [upToValue, fromValue] = cutBehind(lines, assignment);
        result.append(upToValue).append(line).append(cutBehind(fromValue, {&lineEnd, 1}).after);
    }
    return result.append(rest.substr(lines.size()));
}

} // namespace

/// The search for the key goes on to the end of the file, beyond the section.
std::int64_t iniClass::GetPreference(const std::string& section, const std::string& key, std::string& value) const
{
    value.clear();
    // A file that cannot be read counts as one without preferences, and nobody is told.
    const auto text = readFile(iniFileName);
    if (!text)
        return 0;
    const auto header = text->find("[" + section + "]" + lineEnd);
    if (header == text->npos)
        return 0;
    const auto found = text->find(key + "=", header + 1);
    if (found == text->npos)
        return 0;
    const auto end = text->find(lineEnd, found + 1);
    // A last line that was never ended counts as empty.
    if (end == text->npos)
        return 0;
    value = cutBehind(std::string_view(*text).substr(found, end - found), "=").after;
    return Len(value);
}

/// The stream replaces the file as a whole, so the old one is there until the new one is.
void iniClass::SetPreference(const std::string& section, const std::string& key, const std::string& value) const
{
    const auto text = iniFileName->Exists() ? readFile(iniFileName) : std::string();
    if (!text)
        return;
    try {
        if (const auto stream = TextOutputStream::Create(iniFileName)) {
            stream->Write(withValue(*text, section, key, value));
            stream->Close();
        }
    } catch (const IOException&) {
        // A setting that is not kept is no reason to stop the person at the work.
    }
}

} // namespace quorrin
