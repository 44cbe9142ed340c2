#include "toolkit/Menu.h"

#include <utility>

namespace quorrin {

std::vector<MenuRow> editRows(std::vector<MenuRow> before, const std::vector<MenuRow>& after)
{
    using Standard = MenuItem::Standard;
    auto rows = std::move(before);
    rows.insert(rows.end(), {
                                {"EditSeparator1", "-"},
                                {"EditCut", "Cu&t", "Cmd+X", Standard::Cut},
                                {"EditCopy", "&Copy", "Cmd+C", Standard::Copy},
                                {"EditPaste", "&Paste", "Cmd+V", Standard::Paste},
                                {"EditClear", "&Delete", "", Standard::Delete},
                                {"EditSeparator2", "-"},
                                {"EditSelectAll", "Select &All", "Cmd+A", Standard::SelectAll},
                            });
    rows.insert(rows.end(), after.begin(), after.end());
    return rows;
}

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
