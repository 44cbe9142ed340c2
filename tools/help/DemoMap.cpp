#include "DemoMap.h"

#include "toolkit/Text.h"

#include <map>
#include <string_view>

namespace quorrin {

namespace {

// A picture of the map, a character a square.
constexpr std::string_view bottomLayer[] = {
    "^^^^.CCC.~~.", //
    "^^^..CCC..~.", //
    ".s....s...~.", //
    ".sssssssss~s", //
    "....s.....~.", //
    "....s....~~.", //
    "....s....~..", //
    "....s...~~..", //
};
constexpr std::string_view topLayer[] = {
    "....PB.F...P", //
    ".M..Pt.b...P", //
    "i..T........", //
    "..........=.", //
    ".PT..Wc.H...", //
    "PPP..chc...O", //
    "PPP.....f.fo", //
    ".PP.T..g..r$", //
};
const std::map<char, int> objects{
    {'^', 4},  {'C', 25}, {'~', 3},   {'s', 11}, {'P', 18}, {'B', 46},  {'$', 37},  {'F', 38},
    {'t', 33}, {'b', 39}, {'M', 107}, {'i', 20}, {'T', 1},  {'=', 58},  {'W', 56},  {'c', 96},
    {'H', 73}, {'h', 74}, {'O', 80},  {'o', 83}, {'f', 34}, {'g', 112}, {'r', 117},
};

void lay(const std::string_view (&rows)[8], const Window1::Layer& layer)
{
    for (int j = 1; j <= 8; ++j)
        for (int i = 1; i <= 12; ++i)
            if (const auto object = objects.find(rows[j - 1][static_cast<std::size_t>(i - 1)]); object != objects.end())
                layer(i, j)->thisObject = object->second;
}

/// A house of three by two squares with a door to the south.
void buildHouse(const Window1::Layer& squares, int left, int top)
{
    for (int i = left; i < left + 3; ++i) {
        squares(i, top)->Wall->Top = true;
        squares(i, top + 1)->Wall->Bottom = true;
    }
    for (int j = top; j < top + 2; ++j) {
        squares(left, j)->Wall->Left = true;
        squares(left + 2, j)->Wall->Right = true;
    }
    squares(left + 1, top + 1)->Wall->DoorBottom = true;
}

void castCharacters(Window1& window)
{
    const int pictures[] = {93, 94, 99, 98, 92, 49, 49, 49, 83, 80};
    int n = 0;
    for (const int object : pictures) {
        auto& character = *window.myCharacters(++n);
        character.IconData = Str(-object);
        character.LoadIcon();
        character.Number = n;
    }
}

} // namespace

void makeDemoMap(Window1& window)
{
    window.pmBackground.ListIndex = 3;
    window.pmGrid.ListIndex = 5;
    window.pmBorderTop.ListIndex = 1;
    window.pmBorderBottom.ListIndex = 2;
    window.pmColorBW.ListIndex = 1;
    lay(bottomLayer, window.mySquares);
    lay(topLayer, window.mySquaresTop);
    buildHouse(window.mySquares, 6, 1);
    window.mySquares(5, 7)->thisDM = 1;
    window.mySquares(2, 2)->thisDM = 2;
    window.mySquares(7, 1)->thisDM = 3;
    window.mySquares(12, 6)->thisDM = 4;
    castCharacters(window);
    window.myScript->Monsters = "4 goblins in the mine, 1 orc chief in the tower";
    window.myScript->GamtText = "The miller's daughter has not come home.";
    window.RenderMap(true);
}

} // namespace quorrin
