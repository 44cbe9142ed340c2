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

/// The menu of the tool "Walls", and what each entry turns over in a wall set.
struct WallEntry {
    const char* text;
    bool cWall::*flag = nullptr;
};
constexpr WallEntry wallEntries[] = {
    {"Toggle Top Wall", &cWall::Top},
    {"Toggle Bottom Wall", &cWall::Bottom},
    {"Toggle Left Wall", &cWall::Left},
    {"Toggle Right Wall", &cWall::Right},
    {"Toggle Slash Wall", &cWall::Slash},
    {"Toggle Backslash Wall", &cWall::BackSlash},
    {"-"},
    {"Toggle Door Top", &cWall::DoorTop},
    {"Toggle Door Bottom", &cWall::DoorBottom},
    {"Toggle Door Left", &cWall::DoorLeft},
    {"Toggle Door Right", &cWall::DoorRight},
    {"-"},
    {clearWalls},
};

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

template <typename Entries>
void append(MenuItem& base, const Entries& entries)
{
    for (const auto& entry : entries)
        base.Append(New<MenuItem>(entry.text));
}

/// The entry with that text, nil when there is none.
template <typename Entries>
auto find(const Entries& entries, const std::string& text)
{
    const auto found =
        std::find_if(std::begin(entries), std::end(entries), [&](const auto& entry) { return entry.text == text; });
    return found == std::end(entries) ? nullptr : &*found;
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
        append(base, switchEntries);
        return true;
    }
    const auto square = squareAt(tool == ObjectTool ? DrawingLayer() : mySquares, x, y);
    if (!square)
        return false;
    RightClickObject = square;
    if (tool == WallTool)
        append(base, wallEntries);
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
    } else if (const auto* entry = find(wallEntries, chosen.Text); entry && entry->flag) {
        bool& flag = (*RightClickObject->Wall).*entry->flag;
        flag = !flag;
    } else {
        if (const auto* change = find(switchEntries, chosen.Text))
            TabPanel1.Value = change->tool;
        return false;
    }
    RenderMap(true);
    isDirty = true;
    return false;
}

} // namespace quorrin
