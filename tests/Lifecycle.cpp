#include "Fixture.h"

using namespace quorrin;

using Answer = MessageDialog::Answer;
using Lifecycle = Program;

TEST_F(Lifecycle, NewResetsTheMapAndTheToolsAndLeavesTheRest)
{
    Window1& w = window;
    const std::string blank = w.MapText();
    PopupMenu* const popups[] = {&w.pmLandscape,    &w.pmBackground, &w.pmGrid,        &w.pmBorderTop,
                                 &w.pmBorderBottom, &w.pmBorderLeft, &w.pmBorderRight, &w.pmVisibleLayers,
                                 &w.pmObjectLayer,  &w.pmObjects,    &w.pmColorBW,     &w.pmDM};
    for (PopupMenu* popup : popups)
        popup->ListIndex = 1;
    w.cbShowClickable.Value = w.cbOverlayUserPict.Value = w.CheckBox5.Value = w.cbDoorTop.Value = true;
    w.rWallColor.FillColor = white;
    w.mySquares(1, 1)->thisObject = w.mySquaresTop(12, 12)->thisDM = w.myCharacters(20)->Number = 1;
    w.txtMonster.Text = "orc";
    w.didMazePrompt = true;
    const auto drawing = w.UserPicture = New<Picture>(5, 5);
    w.SetSavedFileName(folder.file("Cave.qrnm"));
    EXPECT_EQ(effectOf([&] { EXPECT_TRUE(w.ChooseMenu("mnuNew")); }), composed);

    for (PopupMenu* popup : popups)
        EXPECT_EQ(popup->ListIndex, 0);
    EXPECT_EQ(*w.ChosenWall(), cWall());
    for (const bool off : {w.didMazePrompt, w.pmDM.Enabled.get(), w.btnMaze.Enabled.get()})
        EXPECT_FALSE(off);
    EXPECT_EQ(w.Canvas1.Width, 756);

    EXPECT_EQ(w.UserPicture, drawing);
    EXPECT_TRUE(w.cbOverlayUserPict.Value);
    EXPECT_EQ(w.txtMonster.Text, "orc");
    EXPECT_EQ(w.Title, "Quorrin Map Maker - Cave");
    w.ChooseMenu("mnuSave"); // cancelled
    EXPECT_EQ(person.proposedNames, std::vector<std::string>{"Cave.qrnm"});

    w.UserPicture = nullptr;
    w.cbOverlayUserPict.Value = false;
    w.cbShowDMObjects.Value = true;
    EXPECT_EQ(w.MapText(), blank);
}

TEST_F(Lifecycle, AskWhatToDoAboutChanges)
{
    int opened = 0;
    person.open = [&](const FileFilter&) { return ++opened, Ref<FolderItem>(); };
    const std::tuple<const char*, const char*, std::function<bool()>> actions[] = {
        {"new", "Save current changes?", [&] { return window.ChooseMenu("mnuNew"); }},
        {"open", "Save current changes?", [&] { return window.ChooseMenu("mnuOpen"); }},
        {"close", "Save Changes?", [&] { return !window.Event_CancelClose(false); }},
    };
    const std::tuple<Answer, const char*, bool> cases[] = {
        // answer, saved as (nil: cancelled), goes on
        {Answer::Action, "Map.qrnm", true}, {Answer::Action, nullptr, false}, {Answer::Action, "none/M.qrnm", false},
        {Answer::Alternate, nullptr, true}, {Answer::Cancel, nullptr, false},
    };
    for (const auto& [name, message, action] : actions) {
        window.isDirty = false;
        person.ask = nullptr; // would cancel
        EXPECT_TRUE(action());
        for (const auto& [given, savedAs, goesOn] : cases) {
            window.mySquares(1, 1)->thisObject = 5;
            window.isDirty = true;
            opened = 0;
            const std::string map = window.MapText();
            answer(given, message, "Save Changes", "Discard Changes");
            person.save = [&, as = savedAs](const std::string&) { return as ? folder.file(as) : nullptr; };
            EXPECT_EQ(action(), goesOn) << name;
            // Only "New" cleans the map: whoever saves and then opens nothing, or closes, leaves the flag.
            const bool isNew = goesOn && name == std::string("new");
            EXPECT_EQ(window.isDirty, !isNew);
            EXPECT_EQ(window.MapText() == map, !isNew);
            EXPECT_EQ(opened, goesOn && name == std::string("open") ? 1 : 0);
            EXPECT_EQ(contentOf(folder / "Map.qrnm"), goesOn && given == Answer::Action ? map : "");
            std::filesystem::remove(folder / "Map.qrnm");
        }
    }
    EXPECT_TRUE(person.messages.empty());
}

TEST_F(Lifecycle, OpenLeavesTheScriptAndComposesWhateverComesOfIt)
{
    person.open = [](const FileFilter&) { return nullptr; };
    EXPECT_EQ(effectOf([&] { window.ChooseMenu("mnuOpen"); }), composed) << "cancelled";
    for (const auto& content : {std::string("a letter"), window.MapText()}) {
        writeFile(folder / "Map.qrnm", content);
        person.open = [&](const FileFilter&) { return folder.file("Map.qrnm"); };
        window.bbScriptTool.Push();
        EXPECT_EQ(effectOf([&] { window.ChooseMenu("mnuOpen"); }), composed);
    }
    EXPECT_FALSE(window.bbScriptTool.Value);
    EXPECT_TRUE(window.btnCharacterTool.Enabled);
    EXPECT_TRUE(window.gbDMObjects.Enabled);
    EXPECT_EQ(window.PagePanel1.Value, 0);
}

TEST_F(Lifecycle, TheNameEndsAtTheFirstDot)
{
    const std::pair<const char*, std::string> cases[] = {
        {"Dark.Cave.qrnm", "Dark"}, {".qrnm", ""}, {"No Dot", "No Dot"}, {nullptr, ""}};
    for (const auto& [file, name] : cases) {
        window.SetSavedFileName(file ? folder.file(file) : nullptr);
        EXPECT_EQ(window.mySavedFileName, name);
        EXPECT_EQ(window.Title, name.empty() ? "Quorrin Map Maker" : "Quorrin Map Maker - " + name);
    }
}

TEST_F(Lifecycle, AHandedOverFileOpensAtLaunchOnly)
{
    const std::pair<const char*, bool> names[] = {
        {"Cave.QRNM", true}, {"caveqrnm", true}, {"Cave.txt", false}, {"nm", false}, {"", false}};
    for (const auto& [name, isMap] : names) {
        app.Event_OpenDocument(folder.file("Other.qrnm"));
        app.Event_OpenDocument(folder.file(name));
        EXPECT_EQ(static_cast<bool>(Module1::gOpenFile), isMap) << name;
    }
    EXPECT_EQ(effectOf([&] { window.Timer1_Action(); }), nothing);

    window.mySquares(2, 3)->thisObject = 7;
    writeFile(folder / "Cave.qrnm", window.MapText());
    window.Initialize();
    app.Event_OpenDocument(folder.file("Cave.qrnm"));
    EXPECT_EQ(effectOf([&] { window.Timer1_Action(); }), composed);
    EXPECT_EQ(window.mySquares(2, 3)->thisObject, 7);
    EXPECT_TRUE(person.questions.empty());
    EXPECT_TRUE(person.messages.empty());
}
