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

TEST(Carving, TakesAnySize)
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
}

using Placement = Program;

TEST_F(Placement, IsAsUsersKnowIt)
{
    person.ask = [](const MessageDialog&) { return MessageDialog::Answer::Action; };
    window.pmObjects.ListIndex = 9;
    // Portrait; a maze of walls; the drawing layer; for each square of the page what lay there in the mazes of twenty
    // seeds: a figure for objects, on both layers together, or for twice the left walls, the top ones and four right
    // ones.
    const std::tuple<int, bool, int, const char*> cases[] = {
        {0, false, 0,
         "D0DDDDDDDDDDD0209080010AD5D;D8D>>D4DD090;080090DD3D8D;D;;D8DD0705040040DD0705040040DD<DDDDDDDD;D"},
        {0, false, 1,
         "D0DDDDDXDDD0D020908010A0D5D;D8D>D4D0D090;08090D0D3D8D;D;D8D0X070504040D0D<DDDDDDD;D00000000D0000"},
        {1, false, 0,
         "D0DDDDDDD040400@D6D;D66DD070<00DD9D;D33DD080:00DD3D:D;;DD0=0500DD0=0500DD4D<D44DD040300DD;DDD==D"},
        {0, true, 1,
         "X0<:D:<:<:V0X2B6D5D7B1b0X4F4B5D6B5b0X3H4F7B5B3b0X1D4F3F6B3b0X2F6D4F6>6b0X2:4H1@6>1b006:::::::7:0"},
        {1, true, 0,
         "X0>:@:<RX4B6H4DYX2D5D4B\\X2F5F6@[X2D4F4B^X4D4F4B[X2D4J6>ZX5D2J5>^X1@5B6@\\X5D6>7D[X1:6D6<Z06:::::8"},
    };
    for (const auto& [portrait, ofWalls, layer, expected] : cases) {
        window._mnuNew_Action();
        window.pmObjects.ListIndex = 9;
        window.pmLandscape.ListIndex = portrait;
        window.pmObjectLayer.ListIndex = layer;
        const int width = portrait ? 8 : 12;
        std::string sums(96, '0');
        for (int seed = 0; seed < (ofWalls ? 10 : 20); ++seed) {
            Random::SeedAll(seed);
            EXPECT_EQ(effectOf([&, walls = ofWalls] { (walls ? window.btnWallMaze : window.btnMaze).Push(); }), both);
            eachSquare([&, walls = ofWalls](int i, int j, cSquare& bottom, cSquare& top) {
                const cWall& wall = *bottom.Wall;
                const int sum = walls ? wall.Top + 2 * wall.Left + 4 * wall.Right
                                      : (bottom.thisObject == 9) + (top.thisObject == 9);
                if (i <= width && j <= 20 - width)
                    sums[static_cast<std::size_t>((j - 1) * width + i - 1)] += static_cast<char>(sum);
                bottom.thisObject = top.thisObject = 0;
            });
        }
        EXPECT_EQ(sums, expected) << portrait << ofWalls << layer;
        window.isDirty = false;
    }
}

TEST_F(Placement, AsksOnceForBothKinds)
{
    const std::pair<PushButton*, const char*> kinds[] = {
        {&window.btnMaze, "Generating a maze will change all objects on this layer. Do you want to create a maze?"},
        {&window.btnWallMaze, "Generating a maze will change all walls on this layer. Do you want to create a maze?"},
    };
    window.btnMaze.Push(); // disabled, with "Blank" chosen
    for (const auto& [button, question] : kinds) {
        window.isDirty = false;
        window._mnuNew_Action();
        window.pmObjects.ListIndex = 9;
        for (const auto given : {MessageDialog::Answer::Cancel, MessageDialog::Answer::Action}) {
            answer(given, question, "Create Maze");
            EXPECT_EQ(effectOf([&, pushed = button] { pushed->Push(); }),
                      given == MessageDialog::Answer::Action ? both : nothing);
        }
        kinds[0].first->Push();
    }
    EXPECT_EQ(person.questions.size(), 4u);
}
