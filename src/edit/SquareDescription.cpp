#include "edit/SquareDescription.h"

#include "document/Rows.h"
#include "edit/HitTest.h"
#include "toolkit/Text.h"

// What lies on a square, or would after a click, in words.

namespace quorrin {

namespace {

std::string joined(const std::vector<std::string>& words, const char* separator)
{
    std::string all;
    for (const auto& word : words)
        all += (all.empty() ? "" : separator) + word;
    return all;
}

/// The caption of a row; empty for "Blank" and for a number that has no row, neither of which shows on the map.
std::string nameOf(const Rows& rows, std::int64_t row)
{
    return row > blank && row < std::ssize(rows) ? rows[static_cast<std::size_t>(row)] : "";
}

/// The flags of one kind that are set, as in "walls top, left"; nothing when none is.
std::vector<std::string> flagsOf(const cWall& wall, const std::string& kind, bool doors)
{
    std::vector<std::string> set;
    for (const WallFlag& flag : wallFlags)
        if (flag.isDoor() == doors && wall.*flag.flag)
            set.push_back(flag.side);
    if (set.empty())
        return {};
    return {kind + (set.size() > 1 ? "s " : " ") + joined(set, ", ")};
}

void append(std::vector<std::string>& words, const std::vector<std::string>& more)
{
    words.insert(words.end(), more.begin(), more.end());
}

std::vector<std::string> flagsOf(const cWall& wall)
{
    auto flags = flagsOf(wall, "wall", false);
    append(flags, flagsOf(wall, "door", true));
    return flags;
}

} // namespace

std::string describeSquare(const Map& map, int x, int y)
{
    const auto cell = cellAt(map.mySquares, x, y);
    if (!cell)
        return {};
    const cSquare& square = *map.mySquares(cell->column, cell->row);

    std::vector<std::string> contents;
    const auto add = [&](const char* kind, const std::string& name) {
        if (!name.empty())
            contents.push_back(kind + name);
    };
    add("", nameOf(objectRows(), square.thisObject));
    add("top layer ", nameOf(objectRows(), map.mySquaresTop(cell->column, cell->row)->thisObject));
    append(contents, flagsOf(*square.Wall));
    add("marker ", nameOf(markerRows(), square.thisDM));
    return "Column " + Str(cell->column) + ", row " + Str(cell->row) + ": "
           + (contents.empty() ? "blank" : joined(contents, "; "));
}

std::string describeWall(const cWall& wall)
{
    const auto flags = flagsOf(wall);
    return flags.empty() ? "No walls" : joined(flags, "; ");
}

} // namespace quorrin
