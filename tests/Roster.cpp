#include "Fixture.h"

#include "characters/Roster.h"

using namespace quorrin;

TEST(RosterRegions, AreLooserThanTheTokens)
{
    const std::array<int, 3> cases[] = {{35, 0, 1},    {34, 0, 0},       {95, 100, 1},   {96, 100, 0},
                                        {105, 289, 2}, {105, 290, 0},    {105, 294, 0},  {105, 295, 12},
                                        {726, 575, 0}, {665, 99999, 20}, {-99999, 0, 0}, {99999, 9999, 0}};
    for (const auto& [x, y, token] : cases)
        EXPECT_EQ(tokenAt(x, y), token) << x << "," << y;
}

using Roster = Program;

TEST_F(Roster, OpensTheEditorOfATokenAndShowsItOnTheMap)
{
    person.modal = [&](Window& editor) {
        EXPECT_EQ(editor.Title.get(), "Character");
        EXPECT_EQ(Module1::useThisCharacter, window.myCharacters(12));
    };
    for (const bool hit : {false, true})
        EXPECT_EQ(effectOf([&] { click(window.cvCharacters, hit ? 105 : 100, 300); }), hit ? both : nothing);
}

TEST_F(Roster, DrawsTwoRowsOfTen)
{
    const auto sheet = New<Picture>(756, 576, 32), wanted = New<Picture>(756, 576, 32);
    for (int n = 0; n < 20; ++n) {
        const auto token = New<Picture>(60, 270, 32);
        window.myCharacters(n + 1)->Number = n;
        window.myCharacters(n + 1)->DrawCharacter(token->Graphics());
        wanted->Graphics().DrawPicture(token, 35 + 70 * (n % 10), n < 10 ? 15 : 295);
    }
    window.cvCharacters.Paint(sheet->Graphics());
    EXPECT_TRUE(alike(sheet, wanted));
}

TEST_F(Roster, TellsWhatLiesAtAPlace)
{
    window.myCharacters(12)->Number = 7;
    window.myCharacters(12)->Icon = New<Picture>(1, 1);
    EXPECT_EQ(window.cvCharacters.DescribePlace(105, 300), "Character 12, number 7");
    EXPECT_EQ(window.cvCharacters.DescribePlace(105, 20), "Character 2, no picture");
    EXPECT_EQ(window.cvCharacters.DescribePlace(100, 20), "");
    EXPECT_EQ(window.cvCharacters.PlaceAt(130, 560).Top, 295);
}

TEST_F(Roster, SavesTheSheetAsJpeg)
{
    window.btnSaveCharacters.Push();
    window.mySavedFileName = "Dark Cave";
    window.myCharacters(3)->Icon = window.DrawObject(27, solidColor);
    person.save = [this](const std::string& name) { return folder.file(name); };
    window.btnSaveCharacters.Push();
    EXPECT_EQ(person.proposedNames, (std::vector<std::string>{"Character Sheet.jpg", "Dark Cave Character Sheet.jpg"}));
    EXPECT_TRUE(person.messages.empty());
    const auto sheet = Picture::Open(folder.file("Dark Cave Character Sheet.jpg"));
    const auto drawn = New<Picture>(756, 576, 32);
    drawRoster(window, drawn->Graphics());
    EXPECT_TRUE(alike(sheet, drawn, 5)) << "colours are kept in full";

    person.save = [this](const std::string& name) { return folder.file("no such folder/" + name); };
    window.btnSaveCharacters.Push();
    EXPECT_EQ(person.messages, std::vector<std::string>{"Error saving character sheet."});
    EXPECT_FALSE(window.isDirty);
}
