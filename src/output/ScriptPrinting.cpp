#include "document/cScript.h"
#include "output/Printing.h"
#include "toolkit/Graphics.h"

#include <algorithm>

namespace quorrin {

namespace {

constexpr double bottomMargin = 10;
constexpr double rightMargin = 3;
constexpr char lineEnd = '\r';

std::string linesBetween(const TextList& lines, std::int64_t first, std::int64_t last)
{
    std::string text;
    for (auto i = first; i <= last; ++i)
        text += lines(i) + lineEnd;
    return text;
}

} // namespace

std::vector<ScriptPage> scriptPages(const TextList& lines, double limit,
                                    const std::function<double(const std::string&)>& height)
{
    std::vector<ScriptPage> pages;
    std::int64_t start = 0;
    std::int64_t i = 0;
    // No page begins while start is 0: where the first page ends after a single line, the next one lies over it.
    const auto add = [&] { pages.push_back({linesBetween(lines, start, i - 1), start > 0}); };
    for (; i <= lines.UBound(); ++i) {
        if (height(linesBetween(lines, start, i)) <= limit)
            continue;
        add();
        // The last line of a page stands again as the first of the next.
        start = std::max<std::int64_t>(i - 1, 0);
    }
    if (start < lines.UBound())
        add();
    return pages;
}

void printScript(Graphics& g, const cScript& script)
{
    const auto text = "Monster:\n" + script.Monsters + "\nGame Text:\n" + script.GamtText;
    const auto lines = Split(ReplaceAll(text, "\n", "\r"), "\r");
    const double width = g.Width() - rightMargin;
    const auto pages = scriptPages(lines, g.Height() - bottomMargin,
                                   [&](const std::string& part) { return g.StringHeight(part, width); });
    for (const auto& page : pages) {
        if (page.afterNextPage)
            g.NextPage();
        // Row 0 is the baseline of the first line, so no more than its tails lie on the page.
        g.DrawString(page.text, 0, 0, width);
    }
}

} // namespace quorrin
