#include "output/StripSheet.h"

#include "characters/Roster.h"
#include "document/Map.h"
#include "toolkit/Text.h"

#include <algorithm>
#include <cmath>

namespace quorrin {

namespace {

/// A strip is that much narrower than its square.
constexpr double narrower = millimetres(1);
constexpr double gap = millimetres(2);
constexpr double linePen = 0.5;

constexpr const char* instructions[] = {
    "Cut along the solid lines.",
    "Fold along the dashed lines: the middle up, the feet outwards.",
};
constexpr double textSize = 9;
constexpr double textLine = 12;
constexpr double textHeight = std::size(instructions) * textLine + 6;

constexpr double dash = 4;
constexpr double dashPitch = 7;

int fitting(double strip, double usable)
{
    return std::max(0, static_cast<int>((usable + gap) / (strip + gap)));
}

void drawFoldLine(Graphics& g, double left, double right, double y)
{
    for (double x = left; x < right; x += dashPitch)
        g.DrawLine(x, y - linePen / 2, std::min(x + dash, right) - linePen, y - linePen / 2);
}

/// One figure with its middle at x, y; `unit` is a pixel of the token, in points. A small picture is not enlarged.
void drawFigure(Graphics& g, const Ref<Picture>& figure, double x, double y, double unit)
{
    const auto width = static_cast<double>(figure->Width());
    const auto height = static_cast<double>(figure->Height());
    const double scale = unit * std::min({1.0, cCharacter::widestIcon / width, cCharacter::highestIcon / height});
    g.DrawPicture(figure, x - width * scale / 2, y - height * scale / 2, width * scale, height * scale, 0, 0, width,
                  height);
}

/// The token as on the roster, but for its lines, with its corner at left, top.
void drawStrip(Graphics& g, const StripSheet& sheet, const cCharacter& character, double left, double top)
{
    const double unit = sheet.stripWidth / tokenWidth;
    const double right = left + sheet.stripWidth;
    const double bottom = top + sheet.stripHeight;
    const double middle = left + sheet.stripWidth / 2;
    const double fold = top + sheet.stripHeight / 2;
    const double foot = cCharacter::footHeight * unit;
    const double panel = sheet.stripHeight / 2 - foot;
    if (const auto figure = character.Icon) {
        drawFigure(g, cCharacter::FlipIcon(figure), middle, fold - panel / 2, unit);
        drawFigure(g, figure, middle, fold + panel / 2, unit);
    }
    g.ForeColor = black;
    if (character.Number > 0) {
        const auto number = Str(character.Number);
        g.TextSize = std::round(cCharacter::numberSize * unit);
        g.DrawString(number, middle - g.StringWidth(number) / 2, bottom - cCharacter::numberAboveEdge * unit);
    }
    for (const double y : {top + foot, fold, bottom - foot})
        drawFoldLine(g, left, right, y);
    g.DrawRect(left, top, sheet.stripWidth, sheet.stripHeight);
}

void drawInstructions(Graphics& g)
{
    g.ForeColor = black;
    g.TextSize = textSize;
    double baseline = paperMargin + textSize;
    for (const char* line : instructions) {
        g.DrawString(line, paperMargin, baseline);
        baseline += textLine;
    }
}

} // namespace

std::vector<Ref<const cCharacter>> charactersToCut(const Map& map)
{
    std::vector<Ref<const cCharacter>> found;
    for (int n = 1; n <= Map::characters; ++n)
        if (const auto& character = map.myCharacters(n); character->Icon || character->Number > 0)
            found.push_back(character);
    return found;
}

std::optional<StripSheet> stripSheet(double square, int strips, const PaperWish& wish)
{
    const double width = square - narrower;
    const double height = width * tokenHeight / tokenWidth;
    const auto onPaper = [&](const Paper& paper) {
        return StripSheet{paper, width, height, fitting(width, paper.usableWidth()),
                          fitting(height, paper.usableHeight() - textHeight)};
    };
    const auto paper = bestPaper(wish, [&](const Paper& paper) {
        const auto sheet = onPaper(paper);
        const int perPage = sheet.columns * sheet.rows;
        return perPage == 0 ? 0 : (strips + perPage - 1) / perPage;
    });
    return paper ? std::optional(onPaper(*paper)) : std::nullopt;
}

void printStrips(Graphics& g, const StripSheet& sheet, const std::vector<Ref<const cCharacter>>& characters)
{
    const int perPage = sheet.columns * sheet.rows;
    g.PenWidth = g.PenHeight = linePen;
    for (int n = 0; n < static_cast<int>(characters.size()); ++n) {
        const int place = n % perPage;
        const int column = place % sheet.columns;
        const int row = place / sheet.columns;
        if (n > 0 && place == 0)
            g.NextPage();
        if (place == 0)
            drawInstructions(g);
        drawStrip(g, sheet, *characters[static_cast<std::size_t>(n)], paperMargin + column * (sheet.stripWidth + gap),
                  paperMargin + textHeight + row * (sheet.stripHeight + gap));
    }
}

} // namespace quorrin
