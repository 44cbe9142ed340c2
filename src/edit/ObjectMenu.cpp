#include "document/Window1.h"
#include "render/Catalogue.h"
#include "toolkit/Text.h"

#include <map>

namespace quorrin {

namespace {

/// The submenus in the order in which they show.
constexpr std::pair<Group, const char*> groupMenus[] = {
    {Group::Terrain, "Terrain"},     {Group::Plants, "Plants"},   {Group::Objects, "Objects"},
    {Group::Inventory, "Inventory"}, {Group::Weapons, "Weapons"}, {Group::Buildings, "Buildings"},
    {Group::Stairs, "Stairs"},
};

constexpr int iconSize = 32;

Ref<Picture> menuIcon(const Ref<Picture>& tile)
{
    auto icon = New<Picture>(iconSize, iconSize);
    icon->Graphics().DrawPicture(tile, 0, 0, iconSize, iconSize, 0, 0, tile->Width(), tile->Height());
    return icon;
}

} // namespace

void Window1::ShowObjectPopupMenu(MenuItem& base, const std::string& prefix)
{
    std::map<Group, Ref<MenuItem>> groups;
    for (const auto& [group, name] : groupMenus)
        groups[group] = New<MenuItem>(name);
    const auto characterSheet = New<MenuItem>("Character Sheet");

    for (std::int64_t i = 0; i < pmObjects.ListCount(); ++i) {
        const auto entry = New<MenuItem>(pmObjects.List(i), prefix + Str(i));
        if (i == blank) {
            base.Append(entry);
        } else if (const auto character = characterOfObject(i)) {
            // A token without a picture is not offered.
            if (!myCharacters(character)->IconData.empty())
                characterSheet->Append(entry);
        } else {
            entry->Icon = menuIcon(DrawObject(i, solidColor));
            groups[catalogue()[static_cast<std::size_t>(i - 1)].group]->Append(entry);
        }
    }

    for (const auto& [group, name] : groupMenus)
        base.Append(groups[group]);
    if (!characterSheet->Items().empty())
        base.Append(characterSheet);
}

} // namespace quorrin
