#include "document/Window1.h"
#include "edit/HitTest.h"
#include "toolkit/Text.h"

// What lies on a square, in words.

namespace quorrin {

namespace {

struct FlagName {
    bool cWall::*flag;
    const char* name;
};
constexpr FlagName wallNames[] = {{&cWall::Top, "top"},     {&cWall::Bottom, "bottom"},
                                  {&cWall::Left, "left"},   {&cWall::Right, "right"},
                                  {&cWall::Slash, "slash"}, {&cWall::BackSlash, "backslash"}};
constexpr FlagName doorNames[] = {
    {&cWall::DoorTop, "top"}, {&cWall::DoorBottom, "bottom"}, {&cWall::DoorLeft, "left"}, {&cWall::DoorRight, "right"}};

std::string joined(const std::vector<std::string>& words, const char* separator)
{
    std::string all;
    for (const auto& word : words)
        all += (all.empty() ? "" : separator) + word;
    return all;
}

/// The caption of a row; empty for "Blank" and for a number that has no row, neither of which shows on the map.
std::string nameOf(const PopupMenu& popup, std::int64_t row)
{
    return row > 0 && row < popup.ListCount() ? popup.List(row) : "";
}

} // namespace

std::string Window1::DescribeSquare(int x, int y)
{
    const auto cell = cellAt(mySquares, x, y);
    if (!cell)
        return {};
    const cSquare& square = *mySquares(cell->column, cell->row);

    std::vector<std::string> contents;
    const auto add = [&](const char* kind, const std::string& name) {
        if (!name.empty())
            contents.push_back(kind + name);
    };
    const auto addFlags = [&](const std::string& kind, const auto& names) {
        std::vector<std::string> set;
        for (const auto& [flag, name] : names)
            if ((*square.Wall).*flag)
                set.push_back(name);
        if (!set.empty())
            contents.push_back(kind + (set.size() > 1 ? "s " : " ") + joined(set, ", "));
    };
    add("", nameOf(pmObjects, square.thisObject));
    add("top layer ", nameOf(pmObjects, mySquaresTop(cell->column, cell->row)->thisObject));
    addFlags("wall", wallNames);
    addFlags("door", doorNames);
    add("marker ", nameOf(pmDM, square.thisDM));
    return "Column " + Str(cell->column) + ", row " + Str(cell->row) + ": "
           + (contents.empty() ? "blank" : joined(contents, "; "));
}

} // namespace quorrin
