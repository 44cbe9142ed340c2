#include "Fixture.h"
#include "toolkit/Text.h"

using namespace quorrin;

namespace {

const std::string S = "\xFE", I = "\xFC", G = "\xFB", F = "\xBB";
const std::string readError = "Error opening file.";
const std::string formError = "Error opening saved file.";

std::string times(int count, const std::string& text)
{
    return ReplaceAll(std::string(static_cast<std::size_t>(count), 'x'), "x", text);
}

/// The sections of a small map in which each value differs from what a blank map has.
std::vector<std::string> sections()
{
    return {
        "1" + F + "3" + F + "1" + F + F,
        "4" + F + "1" + F,
        "1,0,0,1,0,1,0,1,0,0,FF8000," + I + times(143, "0,0,0,0,0,0,0,0,0,0,0," + I),
        "1" + G + "5,12,1,38,7," + I + times(143, "0,0,0,0,0," + I),
        "1" + F + EncodeBase64("Orcs \xE2\x9A\x94", 76) + F + EncodeBase64("Enter.", 76) + F,
        times(20, F),
        "7" + F + I + times(19, "0" + F + I),
        "1" + G + "0,0,1,38,7," + I + "2,37,1,38,69," + I + times(142, "0,0,0,0,0," + I),
        "1" + F + G + "2" + F + G + "3" + F + G + "0" + F + G,
    };
}

std::string joined(const std::vector<std::string>& parts, std::size_t count = 9)
{
    std::string text;
    for (std::size_t n = 0; n < count; ++n)
        text += parts[n] + S;
    return text;
}

std::string with(std::size_t section, const std::string& content)
{
    auto parts = sections();
    parts[section] = content;
    return joined(parts);
}

std::string asUtf8(std::string text)
{
    for (const auto& [narrow, wide] : {std::pair{F, "\xC2\xBB"}, {G, "\xC3\xBB"}, {I, "\xC3\xBC"}, {S, "\xC3\xBE"}})
        text = ReplaceAll(text, narrow, wide);
    return text;
}

} // namespace

using MapFile = Program;

TEST_F(MapFile, EachValueGoesToItsPlaceAndBackFromBothEncodings)
{
    const auto text = joined(sections());
    const std::string byteOrderMark = "\xEF\xBB\xBF";
    for (const auto& form : {text, asUtf8(text), byteOrderMark + text, byteOrderMark + asUtf8(text)}) {
        window.Initialize();
        EXPECT_TRUE(open(form).empty());
        EXPECT_EQ(window.MapText(), text);
        EXPECT_FALSE(window.isDirty);
    }
    const cSquare &square = *window.mySquares(1, 1), &top = *window.mySquaresTop(1, 2); // rows run fastest
    EXPECT_EQ(*square.Wall, cWall(1, 0, 0, 1, 0, 1, 0, 0, 1, 0, RGB(255, 128, 0)));
    EXPECT_EQ(std::pair(square.thisDM, square.thisObject), (std::pair<std::int64_t, std::int64_t>(5, 12)));
    EXPECT_EQ(std::tuple(top.thisObject, top.x, top.y),
              (std::tuple<std::int64_t, std::int64_t, std::int64_t>(37, 38, 69)));
    EXPECT_EQ(window.pmBackground.ListIndex, 3);
    EXPECT_EQ(window.pmBorderLeft.ListIndex, 3);
    EXPECT_EQ(window.Canvas1.Height, 756);
    EXPECT_EQ(window.txtMonster.Text.get(), "Orcs \xE2\x9A\x94");
    EXPECT_EQ(window.myScript->GamtText, "Enter.");
}

TEST_F(MapFile, OlderFormsReadAndKeepWhatTheyLack)
{
    window.pmBorderTop.ListIndex = 2;
    for (std::size_t count = 4; count <= 8; ++count) {
        SCOPED_TRACE(count);
        window.txtMonster.Text = "before";
        window.cbShowDMObjects.Value = false;
        EXPECT_TRUE(open(joined(sections(), count)).empty());
        EXPECT_EQ(window.pmBorderTop.ListIndex, 2);
        EXPECT_EQ(window.cbShowDMObjects.Value, count >= 5);
        EXPECT_EQ(window.txtMonster.Text.get() == "before", count < 5);
        EXPECT_EQ(window.myScript->GamtText, count >= 5 ? "Enter." : "");
        EXPECT_EQ(window.myCharacters(1)->Number, count >= 7 ? 7 : 0);
        EXPECT_EQ(window.mySquaresTop(1, 2)->thisObject, count >= 8 ? 37 : 0);
    }
    for (const std::size_t blank : {4, 5, 6, 7, 8})
        EXPECT_TRUE(open(with(blank, "\r\n ")).empty()) << blank;
    EXPECT_TRUE(open(with(0, "1" + F + "2")).empty()) << "no overlay flag, no picture";
    EXPECT_TRUE(open(with(4, "2" + F)).empty()) << "no script fields";
    EXPECT_FALSE(window.cbShowDMObjects.Value) << "on for exactly 1 alone";
    EXPECT_TRUE(open(with(1, "0" + F + "-7")).empty());
    EXPECT_TRUE(window.cbShowClickable.Value) << "on for anything but 0";
}

TEST(WallText, OlderFormsAndExactFlags)
{
    const std::pair<const char*, cWall> cases[] = {
        {"1,1,1,1", cWall()},
        {"1,0,2,1,0,-1,", cWall(true, false, false, true, false, false)},
        {"0,1,1,0,1.0,0", cWall(false, true, true, false, true, false)},
        {"0,0,0,0,0,0,1,1,0,0,", cWall(false, false, false, false, false, false, true, false, true, false, black)},
        {"0,0,0,0,0,0,0,0,1,0,ff,", cWall(0, 0, 0, 0, 0, 0, 0, 1, 0, 0, RGB(0, 0, 255))},
        {"0,0,0,0,0,0,0,0,0,1,AA112233", cWall(0, 0, 0, 0, 0, 0, 0, 0, 0, 1, RGB(0x11, 0x22, 0x33))},
    };
    for (const auto& [text, wall] : cases)
        EXPECT_EQ(cWall(text), wall) << text;
    EXPECT_EQ(cWall().toSave(), "0,0,0,0,0,0,0,0,0,0,0,");
    EXPECT_THROW(cWall("0,0,0,0,0,0,1,1"), OutOfBoundsException);
}

TEST_F(MapFile, WhatIsNoMapSaysSo)
{
    const std::pair<std::string, std::string> cases[] = {
        {"", readError},
        {"just a letter to a friend", formError},
        {"1" + F.substr(1), formError},
        {joined(sections(), 3), readError},
        {joined(sections(), 3) + sections()[3], readError},
        {with(0, "2" + F + "0" + F), readError},
        {with(0, "0" + F + "99999999999999999999" + F), readError},
        {with(1, "-2" + F + "0" + F), readError},
        {with(0, "-1" + F + "0" + F), readError},
        {with(0, "0" + F + "-1" + F), readError},
        {with(1, "-1" + F + "0" + F), readError},
        {with(3, "-1" + G + times(144, "0,0,0,0,0," + I)), readError},
        {with(8, times(3, "0" + F + G) + "-1" + F + G), readError},
        {with(2, times(142, "0," + I)), readError},
        {with(3, "0" + G + times(143, "0,0,0,0,0," + I)), readError},
        {with(3, "0" + G + times(144, "0,0,0" + I)), readError},
        {with(5, times(10, F)), readError},
        {with(8, "1" + F + G), readError},
        {std::string(100000, '\xFE'), readError},
    };
    for (const auto& [content, message] : cases) {
        window.mySavedFileName = "Old";
        window.isDirty = false;
        EXPECT_EQ(open(content), std::vector{message}) << content.substr(0, 40);
        EXPECT_EQ(window.mySavedFileName, "Old");
    }
}

TEST_F(MapFile, OneThatIsTooLargeIsNotRead)
{
    window.pmGrid.ListIndex = 5;
    writeFile(folder / "Large.qrnm", window.MapText());
    std::filesystem::resize_file(folder / "Large.qrnm", (256 << 20) + 1); // takes no room on the disk
    window.pmGrid.ListIndex = 6;
    window.mOpen(folder.file("Large.qrnm"));
    EXPECT_EQ(person.messages, std::vector{readError});
    EXPECT_EQ(window.pmGrid.ListIndex, 6) << "the open map stays";
    EXPECT_TRUE(window.isDirty);
}

TEST_F(MapFile, EqualIconsAreOnePictureAndTheirUnpackingHasAnEnd)
{
    const auto icons = [](const std::vector<std::string>& all) {
        std::string section;
        for (int n = 0; n < 20; ++n)
            section += EncodeBase64(all[static_cast<std::size_t>(n) % all.size()], 76) + F;
        return with(5, section);
    };
    EXPECT_TRUE(open(icons({bytesOf(New<Picture>(9, 9, 32)), "-5", "no picture"})).empty());
    EXPECT_TRUE(window.myCharacters(1)->Icon);
    EXPECT_EQ(window.myCharacters(1)->Icon, window.myCharacters(19)->Icon);
    EXPECT_FALSE(window.myCharacters(3)->Icon);
    EXPECT_EQ(window.UnreadPictures, "Of these characters the picture cannot be read: 3, 6, 9, 12, 15, 18.");

    const auto large = bytesOf(New<Picture>(4096, 4095, 32));
    std::vector<std::string> blank;
    for (std::size_t n = 0; n < 20; ++n)
        blank.push_back(large + std::string(n, 'x'));
    EXPECT_TRUE(open(icons(blank)).empty());
    EXPECT_TRUE(window.myCharacters(8)->Icon);
    EXPECT_FALSE(window.myCharacters(20)->Icon);
    EXPECT_EQ(window.myCharacters(20)->IconData, blank[19]) << "what is not shown is kept";
}

TEST_F(MapFile, SavingProposesTheNameAndKeepsItOnFailure)
{
    EXPECT_FALSE(window.mSave());
    window.mySavedFileName = " Keep ";
    person.save = [&](const std::string&) { return folder.file("missing/x.qrnm"); };
    EXPECT_FALSE(window.mSave());
    EXPECT_EQ(window.mySavedFileName, " Keep ");
    EXPECT_EQ(person.proposedNames, (std::vector<std::string>{"New Map.qrnm", "Keep.qrnm"}));
    EXPECT_TRUE(person.messages.empty());
}
