#include "maze/mMaze.h"

#include "Fixture.h"
#include "toolkit/Random.h"

#include <set>

using namespace quorrin;
using namespace quorrin::mMaze;

using Cells = std::set<std::pair<int, int>>;

namespace {

/// All open positions of the present maze, and those of them that can be reached from a place.
Cells openPositions()
{
    Cells open;
    for (int x = 1; x <= MAZE_X; ++x)
        for (int y = 1; y <= MAZE_Y; ++y)
            if (blnMaze(x, y))
                open.insert({x, y});
    return open;
}

Cells reachable(Cells open, std::pair<int, int> from)
{
    Cells reached;
    std::vector<std::pair<int, int>> next{from};
    while (!next.empty()) {
        const auto [x, y] = next.back();
        next.pop_back();
        if (open.erase({x, y}) == 0)
            continue;
        reached.insert({x, y});
        next.insert(next.end(), {{x + 1, y}, {x - 1, y}, {x, y + 1}, {x, y - 1}});
    }
    return reached;
}

constexpr int someSeeds = 60;

} // namespace

TEST(Carving, GivesATreeOfAllCellsWithEntryAndExit)
{
    const std::pair<int, int> sizes[] = {{11, 7}, {7, 11}, {11, 15}, {9, 23}};
    for (const auto& [width, height] : sizes) {
        const Cells exits[] = {{{width, 2}}, {{2, height}}, {{width - 1, height}}};
        std::set<std::int64_t> doors;
        for (int seed = 0; seed < someSeeds; ++seed) {
            Random::SeedAll(seed);
            CreateMaze(width, height, true);
            ASSERT_TRUE(MAZE_X == width && MAZE_Y == height);
            doors.insert(LastDoorUsed);
            const Cells open = openPositions();
            Cells frame, expectedFrame = exits[LastDoorUsed - 1];
            expectedFrame.insert({2, 1});
            int cells = 0, passages = 0;
            for (const auto& [x, y] : open) {
                if (x == 1 || y == 1 || x == width || y == height)
                    frame.insert({x, y});
                else
                    ++(x % 2 == 0 && y % 2 == 0 ? cells : passages);
                EXPECT_FALSE(x % 2 == 1 && y % 2 == 1);
            }
            EXPECT_EQ(frame, expectedFrame);
            EXPECT_EQ(cells, (width - 1) * (height - 1) / 4);
            EXPECT_EQ(passages, cells - 1);
            EXPECT_EQ(reachable(open, {2, 2}), open);
        }
        EXPECT_EQ(doors, (std::set<std::int64_t>{1, 2, 3}));
    }
}

TEST(Carving, TakesAnySize)
{
    for (const auto& [width, height] : {std::pair{10, 6}, {11, 7}, {2, 2}, {3, 3}, {22, 23}}) {
        CreateMaze(width, height, true);
        EXPECT_EQ(MAZE_X, width / 2 * 2 + 1);
        EXPECT_EQ(MAZE_Y, height / 2 * 2 + 1);
        EXPECT_EQ(openPositions().size(), (MAZE_X - 1) * (MAZE_Y - 1) / 2 + 1u);
    }
    constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
    constexpr auto highest = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t wrong :
         {lowest, std::int64_t{-7}, std::int64_t{0}, std::int64_t{1}, std::int64_t{24}, highest}) {
        EXPECT_THROW(CreateMaze(wrong, 7, true), RuntimeException);
        EXPECT_THROW(CreateMaze(7, wrong, true), RuntimeException);
        EXPECT_THROW(CreateMaze(wrong, wrong, true), RuntimeException);
    }
    EXPECT_THROW(CreateMaze(24, 7, true), OutOfBoundsException);
}

TEST(Carving, KeepsItsExitWithoutANewDoor)
{
    for (const int door : {0, 1, 2, 3, 0}) {
        LastDoorUsed = door;
        CreateMaze(3, 3, false);
        EXPECT_EQ(LastDoorUsed, door);
        EXPECT_EQ(openPositions(), (Cells[]){{{2, 1}, {2, 2}},
                                             {{2, 1}, {2, 2}, {3, 2}},
                                             {{2, 1}, {2, 2}, {2, 3}},
                                             {{2, 1}, {2, 2}, {2, 3}}}[door]);
    }
}

TEST(Carving, KnowsFourOrdersOfDirections)
{
    std::set<std::string> orders;
    for (int i = 0; i < someSeeds; ++i) {
        RandomDirections();
        std::string order;
        for (int n = 0; n < 4; ++n)
            order += cDir(n)->X < 0 ? 'W' : cDir(n)->X > 0 ? 'E' : cDir(n)->Y < 0 ? 'N' : 'S';
        orders.insert(order);
    }
    EXPECT_EQ(orders, (std::set<std::string>{"WENS", "SNEW", "NSWE", "EWSN"}));
}

class Placement : public Program {
protected:
    static constexpr std::int64_t object = 9;

    Placement()
    {
        person.ask = [](const MessageDialog&) { return MessageDialog::Answer::Action; };
        window.pmObjects.ListIndex = object;
    }

    /// Every square of a layer with an object of its own, and its marker and wall.
    static std::int64_t own(int i, int j) { return 1000 + 100 * i + j; }
    static void fill(const Window1::Layer& squares)
    {
        for (int i = 1; i <= 12; ++i) {
            for (int j = 1; j <= 12; ++j) {
                squares(i, j)->thisObject = own(i, j);
                squares(i, j)->thisDM = 2;
                squares(i, j)->Wall = New<cWall>(true, true, true, true, true, true);
            }
        }
    }
};

TEST_F(Placement, OfObjectsStretchesTheMazeOverTheBottomLayer)
{
    for (int seed = 0; seed < someSeeds; ++seed) {
        Random::SeedAll(seed);
        const bool landscape = seed % 2 == 0;
        const int width = landscape ? 12 : 8;
        const int height = landscape ? 8 : 12;
        window.pmLandscape.ListIndex = landscape ? 0 : 1;
        fill(window.mySquares);
        fill(window.mySquaresTop);
        EXPECT_EQ(effectOf([&] { window.btnMaze.Push(); }), both);
        Cells gaps;
        for (int i = 1; i <= 12; ++i) {
            for (int j = 1; j <= 12; ++j) {
                // One column and one row stand twice: 8 and 6 in landscape, 6 and 8 in portrait.
                const int x = i > (landscape ? 8 : 6) ? i - 1 : i;
                const int y = j > (landscape ? 6 : 8) ? j - 1 : j;
                const cSquare& square = *window.mySquares(i, j);
                const bool onPage = i <= width && j <= height;
                EXPECT_EQ(square.thisObject, !onPage ? own(i, j) : blnMaze(x, y) ? 0 : object) << i << ", " << j;
                EXPECT_EQ(window.mySquaresTop(i, j)->thisObject, own(i, j));
                EXPECT_TRUE(square.thisDM == 2 && square.Wall->Slash && square.Visible == onPage);
                if (onPage && square.thisObject == 0 && (i == 1 || j == 1 || i == width || j == height))
                    gaps.insert({i, j});
            }
        }
        // The entry and the exit; the doubled column makes one exit two wide in portrait.
        const Cells exits[] = {{{width, 2}}, {{2, height}}, landscape ? Cells{{11, 8}} : Cells{{6, 12}, {7, 12}}};
        Cells expected = exits[LastDoorUsed - 1];
        expected.insert({2, 1});
        EXPECT_EQ(gaps, expected);
    }
}

TEST_F(Placement, OfObjectsOnTheTopLayerStillStretchesTheBottomOne)
{
    window.pmObjectLayer.ListIndex = 1;
    for (const int orientation : {0, 1}) {
        window.pmLandscape.ListIndex = orientation;
        fill(window.mySquares);
        fill(window.mySquaresTop);
        window.btnMaze.Push();
        const Cells stamps = orientation == 0 ? Cells{{1, 6}, {8, 1}, {8, 8}} : Cells{{1, 7}, {5, 1}, {5, 12}};
        for (int i = 1; i <= 12; ++i) {
            for (int j = 1; j <= 12; ++j) {
                const bool onPage = orientation == 0 ? j <= 8 : i <= 8;
                const int x = onPage && i > (orientation == 0 ? 8 : 6) ? i - 1 : i;
                const int y = onPage && j > (orientation == 0 ? 6 : 8) ? j - 1 : j;
                EXPECT_EQ(window.mySquares(i, j)->thisObject, stamps.contains({i, j}) ? object : own(x, y))
                    << i << ", " << j;
                const bool inMaze = i <= MAZE_X && j <= MAZE_Y;
                EXPECT_EQ(window.mySquaresTop(i, j)->thisObject, !inMaze ? own(i, j) : blnMaze(i, j) ? 0 : object);
            }
        }
    }
}

TEST_F(Placement, OfWallsReplacesAllWallsOfTheBottomLayer)
{
    window.pmObjectLayer.ListIndex = 1;
    window.rWallColor.FillColor = RGB(255, 0, 0);
    for (int seed = 0; seed < someSeeds; ++seed) {
        Random::SeedAll(seed);
        const bool landscape = seed % 2 == 0;
        window.pmLandscape.ListIndex = landscape ? 0 : 1;
        fill(window.mySquares);
        fill(window.mySquaresTop);
        EXPECT_EQ(effectOf([&] { window.btnWallMaze.Push(); }), both);
        EXPECT_TRUE(MAZE_X == (landscape ? 11 : 9) && MAZE_Y == (landscape ? 15 : 23));
        const auto solid = [](int x, int y) { return x <= MAZE_X && y <= MAZE_Y && !blnMaze(x, y); };
        for (int i = 1; i <= 12; ++i) {
            for (int j = 1; j <= 12; ++j) {
                cWall expected;
                expected.Top = i >= 2 && i <= (landscape ? 11 : 8) && solid(i, 2 * j - 1);
                expected.Left = i >= 2 && i <= (landscape ? 10 : 9) && solid(i, 2 * j);
                expected.Right = (i == 1 && solid(1, 2 * j)) || (landscape && i == 11 && solid(11, 2 * j))
                                 || (!landscape && i == 8 && solid(9, 2 * j));
                EXPECT_EQ(*window.mySquares(i, j)->Wall, expected) << i << ", " << j;
                EXPECT_EQ(window.mySquares(i, j)->thisObject, own(i, j));
                EXPECT_TRUE(window.mySquaresTop(i, j)->Wall->Slash);
            }
        }
        EXPECT_FALSE(window.mySquares(2, 1)->Wall->Top); // the entry
    }
}

TEST_F(Placement, AsksOnceForBothKinds)
{
    PushButton* const buttons[] = {&window.btnMaze, &window.btnWallMaze};
    const char* const questions[] = {
        "Generating a maze will change all objects on this layer. Do you want to create a maze?",
        "Generating a maze will change all walls on this layer. Do you want to create a maze?",
    };
    for (int first = 0; first < 2; ++first) {
        window._mnuNew_Action();
        EXPECT_FALSE(window.btnMaze.Enabled);
        window.btnMaze.Push();
        window.pmObjects.ListIndex = object;
        person.questions.clear();
        const std::string map = window.MapText();
        for (const auto answer : {MessageDialog::Answer::Cancel, MessageDialog::Answer::Action}) {
            person.ask = [&](const MessageDialog& dialog) {
                EXPECT_EQ(dialog.Message, questions[first]);
                EXPECT_EQ(dialog.Icon, 3);
                EXPECT_EQ(dialog.ActionButton.Caption, "Create Maze");
                EXPECT_FALSE(dialog.AlternateActionButton.Visible);
                EXPECT_TRUE(dialog.CancelButton.Visible);
                return answer;
            };
            const bool made = answer == MessageDialog::Answer::Action;
            EXPECT_EQ(effectOf([&] { buttons[first]->Push(); }), made ? both : nothing);
            EXPECT_EQ(window.MapText() == map, !made);
        }
        buttons[1 - first]->Push();
        EXPECT_EQ(person.questions.size(), 2u);
        window.isDirty = false;
    }
}
