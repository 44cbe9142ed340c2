#include "Fixture.h"

#include <utility>

using namespace quorrin;

using Entries = std::vector<std::string>;

class ContextualMenu : public Program {
protected:
    /// A contextual click at square (2, 3) of a landscape map, or at another place; the entries that it offered.
    Entries offered(int x = 69, int y = 166)
    {
        Entries texts;
        person.popUp = [&](const MenuItem& base) {
            for (const auto& item : base.Items())
                texts.push_back(item->Text);
            return Ref<MenuItem>();
        };
        window.Canvas1.Press(x, y, true);
        return texts;
    }

    /// The same with an entry chosen by its text, here or in a submenu.
    Effect choose(const std::string& text)
    {
        person.popUp = [&](const MenuItem& base) { return entryOf(base, text); };
        return effectOf([&] { window.Canvas1.Press(69, 166, true); });
    }
};

TEST_F(ContextualMenu, FitsTheTool)
{
    const Entries switches{"Switch to Walls", "Switch to Objects", "Switch to DM"};
    Entries walls{"-", "Clear Walls"};
    for (const auto& [box, flag, text] : wallFlags())
        walls.insert(walls.end() - 2, text);
    walls.insert(walls.begin() + 6, "-");
    const Entries objects{"Blank", "Terrain", "Plants", "Objects", "Inventory", "Weapons", "Buildings", "Stairs"};
    const Entries expected[] = {switches, switches, walls, objects, markerRows()};
    for (int tab = 0; tab < 5; ++tab) {
        window.TabPanel1.Value = tab;
        EXPECT_EQ(offered(0, 0), tab < 2 ? switches : Entries{}); // the margin
        EXPECT_EQ(offered(), expected[tab]);
    }
}

TEST_F(ContextualMenu, AnEntryChangesTheSquareAndComposesThePage)
{
    const std::string blank = window.MapText();
    for (const auto& [tool, entry] :
         {std::pair{Window1::WallTool, "Toggle Top Wall"}, {Window1::ObjectTool, "Key"}, {Window1::MarkerTool, "20"}}) {
        window.TabPanel1.Value = tool;
        EXPECT_EQ(choose("-"), nothing);
        EXPECT_EQ(choose(entry), both);
        EXPECT_NE(window.MapText(), blank) << entry;
        EXPECT_EQ(choose(tool == Window1::WallTool ? "Clear Walls" : "Blank"), both);
        EXPECT_EQ(window.MapText(), blank);
    }
}

TEST_F(ContextualMenu, ObjectsStandInTheirGroupsWithIcons)
{
    const std::pair<const char*, std::size_t> groups[] = {{"Terrain", 17},   {"Plants", 17},        {"Objects", 28},
                                                          {"Inventory", 26}, {"Weapons", 9},        {"Buildings", 21},
                                                          {"Stairs", 5},     {"Character Sheet", 2}};
    window.myCharacters(3)->IconData = "-37";
    window.myCharacters(20)->IconData = "-37";
    MenuItem base;
    window.ShowObjectPopupMenu(base, "");
    ASSERT_EQ(base.Items().size(), 1 + std::size(groups));
    std::size_t n = 1;
    for (const auto& [name, size] : groups) {
        const MenuItem& menu = *base.Items()[n++];
        EXPECT_EQ(menu.Text, name);
        EXPECT_EQ(menu.Items().size(), size) << name;
        std::int64_t before = 0;
        for (const auto& entry : menu.Items()) {
            const auto number = std::stoll(entry->Tag);
            EXPECT_GT(number, std::exchange(before, number)) << "in the order of the popup";
            EXPECT_EQ(entry->Text, window.pmObjects.List(number));
            EXPECT_EQ(entry->Icon ? entry->Icon->Width() : 0, number > 123 ? 0 : 32);
        }
    }
}
