#include "Fixture.h"

using namespace quorrin;

using Answer = MessageDialog::Answer;
using Lifecycle = Program;

TEST_F(Lifecycle, NewResetsTheMapAndTheToolsAndLeavesTheRest)
{
    Window1& w = window;
    w.pmDM.ListIndex = w.pmObjects.ListIndex = w.pmVisibleLayers.ListIndex = w.pmLandscape.ListIndex = 1;
    w.cbOverlayUserPict.Value = w.CheckBox5.Value = w.cbDoorTop.Value = true;
    w.rWallColor.FillColor = white;
    w.txtMonster.Text = "orc";
    const auto drawing = w.UserPicture = New<Picture>(5, 5);
    w.isDirty = false;
    EXPECT_EQ(effectOf([&] { EXPECT_TRUE(w.ChooseMenu("mnuNew")); }), composed);
    EXPECT_EQ(*w.ChosenWall(), cWall());
    EXPECT_FALSE(w.pmDM.Enabled);
    EXPECT_FALSE(w.btnMaze.Enabled);
    EXPECT_EQ(w.Canvas1.Width, 756);
    EXPECT_EQ(w.UserPicture, drawing);
    EXPECT_TRUE(w.cbOverlayUserPict.Value);
    EXPECT_EQ(w.txtMonster.Text, "orc");
}

TEST_F(Lifecycle, AskWhatToDoAboutChanges)
{
    person.open = [&](const FileFilter&) { return nullptr; };
    person.save = [&](const std::string&) { return folder.file("Map.qrnm"); };
    const std::tuple<const char*, std::function<bool()>> actions[] = {
        {"Save current changes?", [&] { return window.ChooseMenu("mnuNew"); }},
        {"Save current changes?", [&] { return window.ChooseMenu("mnuOpen"); }},
        {"Save Changes?", [&] { return !window.Event_CancelClose(false); }},
    };
    for (const auto& [message, action] : actions) {
        window.isDirty = false;
        person.ask = nullptr; // would cancel
        EXPECT_TRUE(action());
        for (const Answer given : {Answer::Action, Answer::Alternate, Answer::Cancel}) {
            window.mySquares(1, 1)->thisObject = 5;
            window.isDirty = true;
            const std::string map = window.MapText();
            std::filesystem::remove(folder / "Map.qrnm");
            answer(given, message, "Save Changes", "Discard Changes");
            EXPECT_EQ(action(), given != Answer::Cancel) << message;
            EXPECT_EQ(contentOf(folder / "Map.qrnm"), given == Answer::Action ? map : "");
        }
    }
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
    writeFile(folder / "Cave.qrnm", window.MapText());
    app.Event_OpenDocument(folder.file("Cave.qrnm"));
    EXPECT_EQ(effectOf([&] { window.Timer1_Action(); }), composed);
    EXPECT_EQ(window.mySavedFileName, "Cave");
}
