#include "Fixture.h"

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
        person.popUp = [&](const MenuItem& base) { return find(base, text); };
        return effectOf([&] { window.Canvas1.Press(69, 166, true); });
    }

    static Ref<MenuItem> find(const MenuItem& base, const std::string& text)
    {
        for (const auto& item : base.Items()) {
            if (item->Text == text)
                return item;
            if (const auto found = find(*item, text))
                return found;
        }
        return nullptr;
    }
};

TEST_F(ContextualMenu, FitsTheTool)
{
    const Entries switches{"Switch to Walls", "Switch to Objects", "Switch to DM"};
    Entries walls;
    for (const auto& [box, flag, text] : wallFlags()) {
        if (flag == &cWall::DoorTop)
            walls.push_back("-");
        walls.push_back(text);
    }
    walls.insert(walls.end(), {"-", "Clear Walls"});
    const Entries objects{"Blank", "Terrain", "Plants", "Objects", "Inventory", "Weapons", "Buildings", "Stairs"};
    const Entries expected[] = {switches, switches, walls, objects, markerRows()};
    for (int tab = 0; tab < 5; ++tab) {
        window.TabPanel1.Value = tab;
        MenuItem base;
        EXPECT_EQ(window.Canvas1_ConstructContextualMenu(base, 0, 0), tab < 2);
        EXPECT_EQ(offered(0, 0), tab < 2 ? switches : Entries{}); // the margin
        EXPECT_EQ(offered(), expected[tab]);
    }
    EXPECT_FALSE(window.isDirty);
    for (const int tab : {Window1::WallTool, Window1::ObjectTool, Window1::MarkerTool}) {
        window.TabPanel1.Value = Window1::GridTool;
        EXPECT_EQ(choose(switches[static_cast<std::size_t>(tab - 2)]), nothing);
        EXPECT_EQ(window.TabPanel1.Value, tab);
    }
}

TEST_F(ContextualMenu, EachToggleTurnsOneFlagOver)
{
    window.TabPanel1.Value = Window1::WallTool;
    window.CheckBox2.Value = true;
    window.rWallColor.FillColor = RGB(255, 0, 0);
    auto& wall = window.mySquares(2, 3)->Wall;
    const std::string blank = window.MapText();
    for (const cWall& before : {cWall(), cWall(true, true, true, true, true, true, true, true, true, true, white)}) {
        *wall = before;
        const auto same = wall;
        for (const auto& [box, flag, text] : wallFlags()) {
            cWall turned = before;
            turned.*flag = !(turned.*flag);
            for (const cWall& expected : {turned, before}) {
                EXPECT_EQ(choose(text), both);
                EXPECT_EQ(*wall, expected) << text;
            }
        }
        EXPECT_TRUE(wall == same);
    }
    EXPECT_EQ(choose("-"), nothing);
    EXPECT_EQ(choose("Clear Walls"), both);
    EXPECT_EQ(window.MapText(), blank);
}

TEST_F(ContextualMenu, PlacesObjectsAndMarkersAndMovesTheirPopups)
{
    const std::string blank = window.MapText();
    window.TabPanel1.Value = Window1::ObjectTool;
    for (const int layer : {0, 1}) {
        window.pmObjectLayer.ListIndex = layer;
        auto& object = (layer == 0 ? window.mySquares : window.mySquaresTop)(2, 3)->thisObject;
        for (const auto& [text, number] : {std::pair{"Key", 122}, {"Blank", 0}}) {
            EXPECT_EQ(choose(text), both);
            EXPECT_TRUE(object == number && window.pmObjects.ListIndex == number) << text;
            EXPECT_EQ(window.btnMaze.Enabled, number > 0);
        }
        EXPECT_EQ(window.MapText(), blank);
    }
    window.TabPanel1.Value = Window1::MarkerTool;
    EXPECT_EQ(choose("20"), both);
    EXPECT_EQ(window.mySquares(2, 3)->thisDM, 21);
    EXPECT_EQ(window.pmDM.ListIndex, 21);
    EXPECT_EQ(choose("Blank"), both);
    EXPECT_EQ(window.MapText(), blank);
}

TEST_F(ContextualMenu, ObjectsStandInTheirGroupsWithIcons)
{
    using Numbers = std::vector<std::int64_t>;
    const std::pair<const char*, Numbers> groups[] = {
        {"Terrain", {3, 4, 11, 16, 17, 23, 24, 25, 26, 27, 28, 29, 52, 62, 86, 87, 107}},
        {"Plants", {1, 18, 19, 22, 31, 32, 40, 63, 69, 70, 75, 89, 112, 113, 114, 115, 116}},
        {"Objects", {2,  9,  10, 20, 33, 34, 38, 39, 46, 50, 53, 54, 55,  60,
                     64, 67, 68, 71, 72, 74, 76, 82, 83, 88, 90, 91, 117, 123}},
        {"Inventory", {35,  36,  37,  42,  43,  44,  45,  47,  48,  49,  51,  85,  101,
                       102, 103, 104, 105, 106, 108, 109, 110, 111, 118, 119, 120, 122}},
        {"Weapons", {41, 92, 93, 94, 95, 98, 99, 100, 121}},
        {"Buildings", {12, 13, 14, 15, 21, 56, 57, 58, 59, 61, 65, 66, 73, 77, 78, 79, 80, 81, 84, 96, 97}},
        {"Stairs", {5, 6, 7, 8, 30}},
        {"Character Sheet", {126, 143}},
    };
    window.myCharacters(3)->IconData = "-37";
    window.myCharacters(20)->IconData = "-37";
    MenuItem base;
    window.ShowObjectPopupMenu(base, "Object-");
    ASSERT_EQ(base.Items().size(), 1 + std::size(groups));
    EXPECT_EQ(base.Items()[0]->Tag, "Object-0");
    EXPECT_FALSE(base.Items()[0]->Icon);
    std::size_t n = 1;
    for (const auto& [name, numbers] : groups) {
        const MenuItem& menu = *base.Items()[n++];
        EXPECT_EQ(menu.Text, name);
        ASSERT_EQ(menu.Items().size(), numbers.size()) << name;
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const MenuItem& entry = *menu.Items()[i];
            EXPECT_EQ(entry.Tag, "Object-" + std::to_string(numbers[i]));
            EXPECT_EQ(entry.Text, window.pmObjects.List(numbers[i]));
            EXPECT_EQ(entry.Icon ? entry.Icon->Width() : 0, numbers[i] > 123 ? 0 : 32);
        }
    }
}
