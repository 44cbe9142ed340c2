#include "document/Window1.h"
#include "edit/HitTest.h"
#include "toolkit/Numbers.h"
#include "toolkit/Text.h"

#include <algorithm>
#include <iterator>

// The menu of a contextual click on the map. Entries of objects and markers are told by their tags, all others by their
// texts.

namespace quorrin {

namespace {

const std::string objectPrefix = "Object-";
const std::string markerPrefix = "DM-";
constexpr auto clearWalls = "Clear Walls";

/// The menu of the tools that edit nothing.
struct SwitchEntry {
    const char* text;
    Window1::Tool tool;
};
constexpr SwitchEntry switchEntries[] = {
    {"Switch to Walls", Window1::WallTool},
    {"Switch to Objects", Window1::ObjectTool},
    {"Switch to DM", Window1::MarkerTool},
};

void append(MenuItem& base, const std::string& text)
{
    base.Append(New<MenuItem>(text));
}

std::string toggleText(const WallFlag& wall)
{
    return std::string("Toggle ") + wall.caption;
}

void appendWallEntries(MenuItem& base)
{
    for (const WallFlag& wall : wallFlags) {
        if (wall.flag == &cWall::DoorTop)
            append(base, "-");
        append(base, toggleText(wall));
    }
    append(base, "-");
    append(base, clearWalls);
}

std::int64_t numberInTag(const std::string& tag)
{
    return Int(Val(Split(tag, "-")(1)));
}

} // namespace

/// Answers true for the entries that switch the tool alone; a menu with entries shows in any case.
bool Window1::Canvas1_ConstructContextualMenu(MenuItem& base, int x, int y)
{
    const int tool = TabPanel1.Value;
    if (tool == BackgroundTool || tool == GridTool) {
        for (const auto& entry : switchEntries)
            append(base, entry.text);
        return true;
    }
    const auto square = squareAt(tool == ObjectTool ? DrawingLayer() : mySquares, x, y);
    if (!square)
        return false;
    RightClickObject = square;
    if (tool == WallTool)
        appendWallEntries(base);
    else if (tool == ObjectTool)
        ShowObjectPopupMenu(base, objectPrefix);
    else
        ShowMarkerPopupMenu(base, markerPrefix);
    return false;
}

bool Window1::Canvas1_ContextualMenuAction(const MenuItem& chosen)
{
    if (InStr(chosen.Tag, "Object") > 0) {
        pmObjects.ListIndex = numberInTag(chosen.Tag);
        RightClickObject->thisObject = pmObjects.ListIndex;
    } else if (InStr(chosen.Tag, markerPrefix) > 0) {
        pmDM.ListIndex = numberInTag(chosen.Tag);
        RightClickObject->thisDM = pmDM.ListIndex;
    } else if (chosen.Text == clearWalls) {
        RightClickObject->Wall = New<cWall>();
    } else if (const auto* wall = std::ranges::find(wallFlags, chosen.Text, toggleText); wall != std::end(wallFlags)) {
        bool& flag = (*RightClickObject->Wall).*wall->flag;
        flag = !flag;
    } else {
        const auto* entry = std::ranges::find(switchEntries, chosen.Text, &SwitchEntry::text);
        if (entry != std::end(switchEntries))
            TabPanel1.Value = entry->tool;
        return false;
    }
    RenderMap(true);
    isDirty = true;
    return false;
}

} // namespace quorrin
