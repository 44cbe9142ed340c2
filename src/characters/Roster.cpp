#include "characters/Roster.h"

#include "document/Map.h"
#include "toolkit/Text.h"

namespace quorrin {

namespace {

constexpr int columnPitch = 70;
constexpr int tokensPerRow = 10;
constexpr int upperRowTop = 15;
constexpr int lowerRowTop = 295;
/// Clicks from here on no longer count for the upper row.
constexpr int upperRowEnd = 290;

constexpr int leftOfColumn(std::int64_t column)
{
    return static_cast<int>(column) * columnPitch - 35;
}

} // namespace

std::int64_t tokenAt(int x, int y)
{
    for (std::int64_t column = 1; column <= tokensPerRow; ++column) {
        const auto left = leftOfColumn(column);
        if (x < left || x > left + tokenWidth)
            continue;
        if (y < upperRowEnd)
            return column;
        return y >= lowerRowTop ? column + tokensPerRow : 0;
    }
    return 0;
}

Frame tokenFrame(std::int64_t token)
{
    if (token == 0)
        return {};
    const bool upper = token <= tokensPerRow;
    return {leftOfColumn(upper ? token : token - tokensPerRow), upper ? upperRowTop : lowerRowTop, tokenWidth,
            tokenHeight};
}

std::string describeToken(const Map& map, int x, int y)
{
    const auto token = tokenAt(x, y);
    if (token == 0)
        return {};
    const auto& character = *map.myCharacters(token);
    return "Character " + Str(token) + (character.Number > 0 ? ", number " + Str(character.Number) : "")
           + (character.Icon ? "" : ", no picture");
}

std::string sheetFileName(const std::string& documentName)
{
    return Trim(documentName + " Character Sheet.jpg");
}

void drawRoster(const Map& map, Graphics& g)
{
    for (std::int64_t i = 1; i <= Map::characters; ++i) {
        const auto frame = tokenFrame(i);
        const auto token = New<Picture>(frame.Width, frame.Height);
        map.myCharacters(i)->DrawCharacter(token->Graphics());
        g.DrawPicture(token, frame.Left, frame.Top);
    }
}

} // namespace quorrin
