#include "toolkit/Menu.h"

namespace quorrin {

Ref<MenuBar> menuBarOf(const std::vector<MenuTable>& menus)
{
    auto bar = New<MenuBar>();
    for (const auto& table : menus) {
        auto menu = New<MenuItem>(table.text);
        menu->Name = table.name;
        for (const auto& row : table.rows) {
            auto item = New<MenuItem>(row.text);
            item->Name = row.name;
            item->KeyboardShortcut = row.shortcut;
            item->standard = row.standard;
            menu->Append(item);
        }
        bar->Append(menu);
    }
    return bar;
}

} // namespace quorrin
