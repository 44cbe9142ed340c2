#include "output/Paper.h"

namespace quorrin {

namespace {

constexpr Paper papers[] = {
    {"A4", 595, 842, false},
    {"A4", 842, 595, true},
    {"Letter", 612, 792, false},
    {"Letter", 792, 612, true},
};

} // namespace

std::optional<Paper> bestPaper(const PaperWish& wish, const std::function<int(const Paper&)>& pages)
{
    std::optional<Paper> best;
    int fewest = 0;
    for (const Paper& paper : papers) {
        if ((!wish.name.empty() && wish.name != paper.name) || (wish.landscape && !paper.landscape))
            continue;
        const int needed = pages(paper);
        if (needed > 0 && (!best || needed < fewest)) {
            best = paper;
            fewest = needed;
        }
    }
    return best;
}

} // namespace quorrin
