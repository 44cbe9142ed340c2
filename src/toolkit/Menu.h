#pragma once

#include "toolkit/Picture.h"
#include "toolkit/Ref.h"

#include <string>
#include <vector>

namespace quorrin {

/// An entry of a menu, or a menu itself when it has entries of its own. A text of "-" is a separator line.
class MenuItem {
public:
    MenuItem() = default;
    explicit MenuItem(std::string text, std::string tag = {}) : Text(std::move(text)), Tag(std::move(tag)) {}

    /// The key by which a handler finds the entry of a menu bar.
    std::string Name;
    /// The caption; "&" marks the letter that chooses it.
    std::string Text;
    /// What the builder of a menu wants to know of the chosen entry.
    std::string Tag;
    Ref<Picture> Icon;
    /// "Cmd+" and a letter; "Cmd" is the platform's command key.
    std::string KeyboardShortcut;
    /// What the platform does by itself about the entry.
    enum class Standard { None, Quit, About, Undo, Cut, Copy, Paste, Delete, SelectAll };
    Standard standard = Standard::None;
    bool Enabled = true;

    void Append(const Ref<MenuItem>& item) { items_.push_back(item); }
    const std::vector<Ref<MenuItem>>& Items() const { return items_; }
    bool IsSeparator() const { return Text == "-"; }

    /// The entry of that name here or in the menus below, nil when there is none.
    Ref<MenuItem> Find(const std::string& name) const
    {
        for (const auto& item : items_) {
            if (item->Name == name)
                return item;
            if (auto found = item->Find(name))
                return found;
        }
        return nullptr;
    }

private:
    std::vector<Ref<MenuItem>> items_;
};

/// A menu bar: an item whose entries are the menus.
using MenuBar = MenuItem;

/// The table of a menu bar: the menus with their entries, each with what a MenuItem says of itself.
struct MenuRow {
    const char* name;
    const char* text;
    const char* shortcut = "";
    MenuItem::Standard standard = MenuItem::Standard::None;
};
struct MenuTable {
    const char* name;
    const char* text;
    std::vector<MenuRow> rows;
};

/// The rows of an Edit menu: the standard entries, with undoing and whatever else comes before them, and the window's
/// own after them.
std::vector<MenuRow> editRows(std::vector<MenuRow> before, const std::vector<MenuRow>& after = {});

/// Makes a new menu bar of its table.
Ref<MenuBar> menuBarOf(const std::vector<MenuTable>& menus);

} // namespace quorrin
