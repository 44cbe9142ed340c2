#include "app/Module1.h"

#include "Fixture.h"

#include <csignal>
#include <sys/resource.h>

using namespace quorrin;

using Answer = MessageDialog::Answer;

class Lifecycle : public Program {
protected:
    Lifecycle() { Module1::gOpenFile = nullptr; }

    bool menu(const char* item) { return window.ChooseMenu(item); }
    void answer(Answer given)
    {
        person.ask = [given](const MessageDialog&) { return given; };
    }
    void saveAs(const std::string& name)
    {
        person.save = [this, name](const std::string&) { return folder.file(name); };
    }
    std::string content(const std::string& name)
    {
        const auto stream = TextInputStream::Open(folder.file(name));
        return stream ? stream->ReadAll() : "";
    }
};

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
    answer(Answer::Alternate);
    EXPECT_EQ(effectOf([&] { w.isDirty = true, EXPECT_TRUE(menu("mnuNew")); }), composed);
    EXPECT_EQ(person.questions.size(), 1u);

    for (PopupMenu* popup : popups)
        EXPECT_EQ(popup->ListIndex, 0);
    EXPECT_EQ(*w.ChosenWall(), cWall());
    EXPECT_FALSE(w.didMazePrompt || w.cbShowDMObjects.Value || w.pmDM.Enabled || w.btnMaze.Enabled);
    EXPECT_EQ(w.Canvas1.Width, 756);
    EXPECT_EQ(w.myScript->Monsters, "");

    EXPECT_TRUE(w.UserPicture == drawing);
    EXPECT_TRUE(w.cbOverlayUserPict.Value);
    EXPECT_EQ(w.txtMonster.Text, "orc");
    EXPECT_EQ(w.Title, "Quorrin Map Maker - Cave");
    w._mnuSave_Action(); // cancelled
    EXPECT_EQ(person.proposedNames, std::vector<std::string>{"Cave.qrnm"});

    w.UserPicture = nullptr;
    w.cbOverlayUserPict.Value = false;
    w.cbShowDMObjects.Value = true;
    EXPECT_EQ(w.MapText(), blank);
}

TEST_F(Lifecycle, AskWhatToDoAboutChanges)
{
    struct Action {
        const char* message;
        std::function<bool()> goesOn;
    };
    int opened = 0;
    person.open = [&](const FileFilter&) { return ++opened, Ref<FolderItem>(); };
    const Action actions[] = {
        {"Save current changes?", [&] { return menu("mnuNew"); }},
        {"Save current changes?", [&] { return menu("mnuOpen"); }},
        {"Save Changes?", [&] { return !window.Event_CancelClose(false); }},
    };
    struct Case {
        Answer answer;
        const char* saveName; // nil: the save dialog is cancelled
        bool goesOn;
    };
    const Case cases[] = {
        {Answer::Action, "Map.qrnm", true},     {Answer::Action, nullptr, false},
        {Answer::Action, "none/M.qrnm", false}, {Answer::Alternate, "Map.qrnm", true},
        {Answer::Cancel, "Map.qrnm", false},
    };
    for (const auto& [message, goesOn] : actions) {
        window.isDirty = false;
        person.questions.clear();
        EXPECT_TRUE(goesOn());
        EXPECT_TRUE(person.questions.empty());
        for (const auto& c : cases) {
            window.mySquares(1, 1)->thisObject = 5;
            window.isDirty = true;
            opened = 0;
            const std::string map = window.MapText();
            person.ask = [&](const MessageDialog& dialog) {
                EXPECT_EQ(dialog.Message, message);
                EXPECT_EQ(dialog.Icon, 3);
                EXPECT_EQ(dialog.ActionButton.Caption, "Save Changes");
                EXPECT_EQ(dialog.AlternateActionButton.Caption, "Discard Changes");
                EXPECT_EQ(dialog.CancelButton.Caption, "Cancel");
                EXPECT_TRUE(dialog.AlternateActionButton.Visible && dialog.CancelButton.Visible);
                return c.answer;
            };
            person.save = [&](const std::string&) { return c.saveName ? folder.file(c.saveName) : nullptr; };
            EXPECT_EQ(goesOn(), c.goesOn);
            // Only "New" cleans the map: whoever saves and then opens nothing, or closes, leaves the flag.
            const bool isNew = &goesOn == &actions[0].goesOn;
            EXPECT_EQ(window.isDirty, !(isNew && c.goesOn));
            EXPECT_EQ(window.MapText() == map, !(isNew && c.goesOn));
            EXPECT_EQ(opened, &goesOn == &actions[1].goesOn && c.goesOn ? 1 : 0);
            if (c.answer == Answer::Action && c.goesOn)
                EXPECT_EQ(content("Map.qrnm"), map);
            std::filesystem::remove(folder.path + "/Map.qrnm");
        }
    }
    EXPECT_TRUE(person.messages.empty());
}

TEST_F(Lifecycle, SaveCleansTheMapOnlyWhenItIsOnDisk)
{
    const auto save = [&] { return window.isDirty = true, menu("mnuSave"); };
    EXPECT_TRUE(save()); // cancelled
    EXPECT_TRUE(window.isDirty);
    saveAs("none/Map.qrnm"); // cannot be created
    EXPECT_TRUE(save());
    EXPECT_TRUE(window.isDirty);
    EXPECT_EQ(window.Title, "Quorrin Map Maker");
    saveAs("Dark.Cave.qrnm");
    EXPECT_TRUE(save());
    EXPECT_FALSE(window.isDirty);
    EXPECT_EQ(window.Title, "Quorrin Map Maker - Dark");
    EXPECT_EQ(content("Dark.Cave.qrnm"), window.MapText());

    // The disk is full: the failure is raised, the old file stays whole and the map dirty.
    const std::string old = content("Dark.Cave.qrnm");
    window.mySquares(1, 1)->thisObject = 5;
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit full{100, limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    EXPECT_THROW(save(), IOException);
    answer(Answer::Action);
    EXPECT_THROW(menu("mnuNew"), IOException);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_TRUE(window.isDirty);
    EXPECT_EQ(window.mySquares(1, 1)->thisObject, 5);
    EXPECT_EQ(content("Dark.Cave.qrnm"), old);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1);
}

TEST_F(Lifecycle, TheNameEndsAtTheFirstDot)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Dark.Cave.qrnm", "Dark"}, {"NoDot", "NoDot"}, {".qrnm", ""}, {"Two Words.qrnm", "Two Words"}};
    for (const auto& [file, name] : cases) {
        window.SetSavedFileName(folder.file(file));
        EXPECT_EQ(window.mySavedFileName, name);
        EXPECT_EQ(window.Title, *name ? std::string("Quorrin Map Maker - ") + name : "Quorrin Map Maker");
    }
    window.SetSavedFileName(folder.file("A"));
    window.SetSavedFileName(nullptr);
    EXPECT_EQ(window.mySavedFileName, "");
    EXPECT_EQ(window.Title, "Quorrin Map Maker");
}

TEST_F(Lifecycle, AHandedOverFileOpensAtLaunchOnly)
{
    const std::pair<const char*, bool> names[] = {{"Cave.QRNM", true}, {"caveqrnm", true}, {"qrnm", true},
                                                  {"Cave.txt", false}, {"nm", false},      {"", false}};
    for (const auto& [name, isMap] : names) {
        app.Event_OpenDocument(folder.file("Other.qrnm"));
        app.Event_OpenDocument(folder.file(name));
        EXPECT_EQ(static_cast<bool>(Module1::gOpenFile), isMap) << name;
    }
    const std::string blank = window.MapText();
    Module1::gOpenFile = nullptr;
    EXPECT_EQ(effectOf([&] { window.Timer1_Action(); }), nothing);

    window.mySquares(2, 3)->thisObject = 7;
    saveAs("Cave.qrnm");
    menu("mnuSave");
    window.SetSavedFileName(nullptr);
    window.Initialize();
    window.didMazePrompt = true;
    app.Event_OpenDocument(folder.file("Cave.qrnm"));
    EXPECT_EQ(window.MapText(), blank);
    EXPECT_EQ(effectOf([&] { window.isDirty = true, window.Timer1_Action(); }), composed);
    EXPECT_EQ(window.mySquares(2, 3)->thisObject, 7);
    EXPECT_EQ(window.Title, "Quorrin Map Maker - Cave");
    EXPECT_FALSE(window.didMazePrompt);
    EXPECT_TRUE(person.questions.empty() && person.messages.empty());

    app.Event_OpenDocument(folder.file("Second.qrnm")); // while running: remembered and nothing else
    EXPECT_EQ(Module1::gOpenFile->Name(), "Second.qrnm");
    EXPECT_EQ(window.Title, "Quorrin Map Maker - Cave");
}
