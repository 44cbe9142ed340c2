#include "maze/mMaze.h"

#include "Fixture.h"
#include "toolkit/Random.h"

#include <limits>
#include <set>

using namespace quorrin;
using namespace quorrin::mMaze;

using Cell = std::pair<int, int>;
using Cells = std::set<Cell>;

namespace {

constexpr int someSeeds = 60;

Cells openPositions()
{
    Cells open;
    forEachPixel(MAZE_X, MAZE_Y, [&](int x, int y) {
        if (blnMaze(x + 1, y + 1))
            open.insert({x + 1, y + 1});
    });
    return open;
}

/// Takes out all that can be reached from a place.
void walk(Cells& open, Cell from)
{
    if (open.erase(from) == 0)
        return;
    const auto [x, y] = from;
    for (const Cell& next : {Cell{x + 1, y}, {x - 1, y}, {x, y + 1}, {x, y - 1}})
        walk(open, next);
}

} // namespace

TEST(Carving, GivesATreeOfAllCellsWithEntryAndExit)
{
    for (const auto& [width, height] : {Cell{11, 7}, {7, 11}, {11, 15}, {9, 23}}) {
        const Cells exits[] = {{{width, 2}}, {{2, height}}, {{width - 1, height}}};
        std::set<std::int64_t> doors;
        for (int seed = 0; seed < someSeeds; ++seed) {
            Random::SeedAll(seed);
            CreateMaze(width, height, true);
            ASSERT_EQ(Cell(MAZE_X, MAZE_Y), Cell(width, height));
            doors.insert(LastDoorUsed);
            Cells open = openPositions();
            Cells frame = exits[LastDoorUsed - 1];
            frame.insert({2, 1});
            for (const auto& [x, y] : open) {
                EXPECT_NE(std::pair(x % 2, y % 2), std::pair(1, 1));
                EXPECT_EQ(x == 1 || y == 1 || x == width || y == height, frame.contains({x, y}));
            }
            // All cells, one passage less, the entry and the exit; all to be reached: a tree.
            EXPECT_EQ(open.size(), (width - 1) * (height - 1) / 2 + 1u);
            walk(open, {2, 1});
            EXPECT_TRUE(open.empty());
        }
        EXPECT_EQ(doors, (std::set<std::int64_t>{1, 2, 3}));
    }
}

TEST(Carving, TakesAnySizeAndKeepsItsExitWithoutANewDoor)
{
    for (const auto& [width, height] : {Cell{10, 6}, {2, 2}, {22, 23}}) {
        CreateMaze(width, height, true);
        EXPECT_EQ(Cell(MAZE_X, MAZE_Y), Cell(width / 2 * 2 + 1, height / 2 * 2 + 1));
        EXPECT_EQ(openPositions().size(), (MAZE_X - 1) * (MAZE_Y - 1) / 2 + 1u);
    }
    constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t wrong : {-highest - 1, std::int64_t{0}, std::int64_t{1}, std::int64_t{24}, highest}) {
        EXPECT_THROW(CreateMaze(wrong, 7, true), RuntimeException);
        EXPECT_THROW(CreateMaze(7, wrong, true), RuntimeException);
    }
    const Cells oneCell[] = {{}, {{3, 2}}, {{2, 3}}, {{2, 3}}};
    for (const int door : {0, 1, 2, 3}) {
        LastDoorUsed = door;
        CreateMaze(3, 3, false);
        Cells expected = oneCell[door];
        expected.merge(Cells{{2, 1}, {2, 2}});
        EXPECT_EQ(openPositions(), expected);
    }
}

class Placement : public Program {
protected:
    static constexpr std::int64_t object = 9;

    Placement()
    {
        person.ask = [](const MessageDialog&) { return MessageDialog::Answer::Action; };
        window.pmObjects.ListIndex = object;
    }

    static std::int64_t own(int i, int j) { return 1000 + 100 * i + j; }

    /// Makes a maze over squares that each hold an object of their own, a marker and walls; then looks at each square.
    template <typename Look>
    void make(PushButton& button, bool landscape, Look look)
    {
        window.pmLandscape.ListIndex = landscape ? 0 : 1;
        forEachPixel(12, 12, [&](int x, int y) {
            for (const auto& square : {window.mySquares(x + 1, y + 1), window.mySquaresTop(x + 1, y + 1)}) {
                square->thisObject = own(x + 1, y + 1);
                square->thisDM = 2;
                square->Wall = New<cWall>(true, true, true, true, true, true);
            }
        });
        EXPECT_EQ(effectOf([&] { button.Push(); }), both);
        forEachPixel(12, 12, [&](int x, int y) {
            const cSquare &bottom = *window.mySquares(x + 1, y + 1), &top = *window.mySquaresTop(x + 1, y + 1);
            EXPECT_EQ(bottom.thisDM + 10 * top.thisDM, 22);
            look(x + 1, y + 1, bottom, top);
        });
    }
};

TEST_F(Placement, OfObjectsStretchesTheBottomLayerWhicheverTheMazeIsOn)
{
    for (int seed = 0; seed < someSeeds; ++seed) {
        Random::SeedAll(seed);
        const bool landscape = seed % 2 == 0;
        const bool onTop = seed % 4 >= 2;
        window.pmObjectLayer.ListIndex = onTop ? 1 : 0;
        // One column and one row stand twice in the end.
        const int width = landscape ? 12 : 8, height = landscape ? 8 : 12;
        const int twiceColumn = landscape ? 8 : 6, twiceRow = landscape ? 6 : 8;
        const Cells stamps = landscape ? Cells{{1, 6}, {8, 1}, {8, 8}} : Cells{{1, 7}, {5, 1}, {5, 12}};
        make(window.btnMaze, landscape, [&](int i, int j, const cSquare& bottom, const cSquare& top) {
            const bool onPage = i <= width && j <= height;
            const int x = onPage && i > twiceColumn ? i - 1 : i;
            const int y = onPage && j > twiceRow ? j - 1 : j;
            const auto asCarved = [](int column, int row) {
                const bool inMaze = column <= MAZE_X && row <= MAZE_Y;
                return !inMaze ? own(column, row) : blnMaze(column, row) ? 0 : object;
            };
            const auto stretched = onTop ? own(x, y) : asCarved(x, y);
            EXPECT_EQ(bottom.thisObject, stamps.contains({i, j}) ? object : stretched) << i << ", " << j;
            EXPECT_EQ(top.thisObject, onTop ? asCarved(i, j) : own(i, j)) << i << ", " << j;
            EXPECT_TRUE(bottom.Wall->Slash);
            EXPECT_EQ(bottom.Visible, onPage);
        });
    }
}

// A sum of 1 for a top wall, 2 for a left and 4 for a right one stands for each square of the page.
TEST_F(Placement, OfWallsIsTheSameForTheSameSeed)
{
    window.pmObjectLayer.ListIndex = 1;
    window.rWallColor.FillColor = RGB(255, 0, 0);
    for (const auto& [landscape, expected] :
         {std::pair{true,
                    "401111111150401131111050403011111150411131313050403030301050403110301150401030111050001111111110"},
          {false,
           "401111114011303441111034403111344030113440113034413030144030311540101015411111144011111501111111"}}) {
        Random::SeedAll(5);
        std::string rows(landscape ? 12 * 8 : 8 * 12, ' ');
        make(window.btnWallMaze, landscape,
             [&, width = landscape ? 12 : 8](int i, int j, const cSquare& bottom, const cSquare& top) {
                 const cWall& wall = *bottom.Wall;
                 EXPECT_EQ(wall, cWall(wall.Top, false, wall.Left, wall.Right, false, false));
                 const int sum = wall.Top + 2 * wall.Left + 4 * wall.Right;
                 if (i <= width && j <= 20 - width)
                     rows[static_cast<std::size_t>((j - 1) * width + i - 1)] = static_cast<char>('0' + sum);
                 EXPECT_TRUE(top.Wall->Slash);
                 EXPECT_EQ(std::pair(bottom.thisObject, top.thisObject), std::pair(own(i, j), own(i, j)));
             });
        EXPECT_EQ(rows, expected);
    }
}

TEST_F(Placement, AsksOnceForBothKinds)
{
    const std::pair<PushButton*, const char*> kinds[] = {
        {&window.btnMaze, "Generating a maze will change all objects on this layer. Do you want to create a maze?"},
        {&window.btnWallMaze, "Generating a maze will change all walls on this layer. Do you want to create a maze?"},
    };
    for (const int first : {0, 1}) {
        window.isDirty = false;
        window._mnuNew_Action();
        person.questions.clear();
        window.btnMaze.Push(); // disabled, with "Blank" chosen
        window.pmObjects.ListIndex = object;
        const std::string map = window.MapText();
        for (const auto given : {MessageDialog::Answer::Cancel, MessageDialog::Answer::Action}) {
            answer(given, kinds[first].second, "Create Maze");
            const bool made = given == MessageDialog::Answer::Action;
            EXPECT_EQ(effectOf([&] { kinds[first].first->Push(); }), made ? both : nothing);
            EXPECT_EQ(window.MapText() == map, !made);
        }
        kinds[1 - first].first->Push();
        EXPECT_EQ(person.questions.size(), 2u);
    }
}
