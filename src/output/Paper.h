#pragma once

#include <functional>
#include <optional>
#include <string>

namespace quorrin {

// Lengths on paper are in points of 1/72 inch.

constexpr double millimetres(double count)
{
    return count * 72 / 25.4;
}

/// Stays free of pictures on all sides: few printers reach the paper's edge.
inline constexpr double paperMargin = millimetres(10);

struct Paper {
    const char* name;
    double width;
    double height;
    bool landscape;

    double usableWidth() const { return width - 2 * paperMargin; }
    double usableHeight() const { return height - 2 * paperMargin; }
};

/// What a person asks of the paper: any where the name is empty, either way up unless landscape.
struct PaperWish {
    std::string name;
    bool landscape = false;
};

/// The paper on which the fewest pages are needed, the first of those alike. `pages` gives 0 for a paper that does not
/// do; nothing when none does.
std::optional<Paper> bestPaper(const PaperWish& wish, const std::function<int(const Paper&)>& pages);

} // namespace quorrin
