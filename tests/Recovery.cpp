#include "Disk.h"
#include "Fixture.h"

#include "app/Recovery.h"
#include "app/frmRecovery.h"
#include "characters/frmCharacter.h"
#include "toolkit/Text.h"
#include "userpicture/frmEditUserPicture.h"

#include <optional>

using namespace quorrin;

namespace fs = std::filesystem;
using Answer = MessageDialog::Answer;

namespace {

class Recovering : public Program {
protected:
    Recovering()
    {
        person.save = [this](const std::string&) { return folder.file("Saved.qrnm"); };
        recovery.emplace(window);
    }

    /// The files of all copies that have this extension: their maps, or without one the notes about these.
    static std::vector<fs::path> files(const std::string& extension)
    {
        std::vector<fs::path> found;
        if (fs::exists(RecoveryCopy::Folder()))
            for (const auto& entry : fs::recursive_directory_iterator(RecoveryCopy::Folder()))
                if (entry.is_regular_file() && entry.path().extension() == extension && entry.path().stem() != "lock")
                    found.push_back(entry.path());
        return found;
    }
    static bool nothingIsKept() { return fs::is_empty(RecoveryCopy::Folder()); }
    /// The map in the one copy, empty when there is none.
    static std::string kept()
    {
        std::string text;
        for (const auto& map : files(".qrnm"))
            text += contentOf(map);
        return text;
    }
    std::string keep()
    {
        recovery->KeepAtOnce();
        return kept();
    }
    /// The program ends without a word and is started again.
    void crash()
    {
        recovery->KeepAtOnce();
        restart();
    }
    void restart()
    {
        recovery.reset();
        window.txtMonster.Text = window.txtGameText.Text = "";
        window.isDirty = false;
        window.ChooseMenu("mnuNew");
        window.SetSavedFileName(nullptr);
        person.questions.clear();
        person.messages.clear();
        recovery.emplace(window);
    }
    void offer(Answer answer)
    {
        person.ask = [answer](const MessageDialog& dialog) {
            EXPECT_EQ(dialog.ActionButton.Caption + dialog.AlternateActionButton.Caption + dialog.CancelButton.Caption,
                      "RecoverDiscardLater");
            return answer;
        };
        recovery->OfferAbandoned();
    }
    static int permissions(const fs::path& path) { return static_cast<int>(fs::status(path).permissions()); }

    std::optional<Recovery> recovery;
};

} // namespace

TEST_F(Recovering, UnsavedWorkIsKeptForItsUserAloneUntilItIsSavedOrGivenUp)
{
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"saved", [&] { window.ChooseMenu("mnuSave"); }},
        {"new", [&] { window.ChooseMenu("mnuNew"); }},
        {"opened", [&] { window.mOpen(folder.file("Saved.qrnm")); }},
        {"closed", [&] { recovery->Release(); }},
    };
    person.ask = [](const MessageDialog&) { return Answer::Alternate; };
    recovery->KeepAtOnce();
    EXPECT_FALSE(fs::exists(RecoveryCopy::Folder())) << "nothing is written before there is something to lose";
    for (const auto& [end, makeClean] : ends) {
        window.txtMonster.Text = std::string("Orc, ") + end;
        EXPECT_TRUE(recovery->Keep()) << "somebody is to see whether it has worked";
        EXPECT_EQ(keep(), window.MapText());
        EXPECT_FALSE(recovery->Keep());
        window.cbShowClickable.Value = !window.cbShowClickable.Value; // alone, it makes no map dirty
        EXPECT_EQ(keep(), window.MapText());
        ASSERT_EQ(files("").size(), 1);
        EXPECT_EQ(permissions(RecoveryCopy::Folder()), 0700);
        for (const auto& entry : fs::recursive_directory_iterator(RecoveryCopy::Folder()))
            EXPECT_EQ(permissions(entry.path()), entry.is_directory() ? 0700 : 0600);
        makeClean();
        recovery->KeepAtOnce();
        EXPECT_TRUE(nothingIsKept()) << end;
        recovery->Resume();
    }
    EXPECT_FALSE(fs::exists(folder / "Map.qrnm")) << "the map's own file is the person's to write";
}

TEST_F(Recovering, WorkInAnEditorIsKeptAsOfTheLastStroke)
{
    std::string inWork;
    person.modal = [&](Window& opened) {
        auto& editor = dynamic_cast<frmEditUserPicture&>(opened);
        EXPECT_EQ(keep(), "") << "nothing is drawn yet";
        editor.Canvas1.Press(100, 100);
        editor.Canvas1.Drag(300, 200);
        editor.Canvas1.Release(300, 200);
        inWork = keep();
        editor.PushButton1.Push();
    };
    window.PushButton2.Push();
    EXPECT_EQ(inWork, window.MapText());

    window.isDirty = false;
    person.modal = [&](Window& opened) {
        EXPECT_EQ(keep(), "");
        dynamic_cast<frmCharacter&>(opened).TextField1.Text = "12";
        inWork = keep();
    };
    click(window.cvCharacters, 50, 50);
    EXPECT_EQ(window.myCharacters(1)->Number, 12);
    EXPECT_EQ(inWork, window.MapText());

    // A series of pictures has the controls show what is not the map's.
    const auto map = window.MapText();
    person.save = [&](const std::string&) {
        EXPECT_EQ(keep(), map);
        return nullptr;
    };
    window.ChooseMenu("mnuExportPictureSeries");
    EXPECT_EQ(person.proposedNames.size(), 4);
    EXPECT_EQ(keep(), map);
}

TEST_F(Recovering, WhatACrashHasLeftIsOfferedUntilItIsDecided)
{
    writeFile(folder / "Dark.Cave.qrnm", window.MapText());
    window.mOpen(folder.file("Dark.Cave.qrnm"));
    window.pmLandscape.ListIndex = 1;
    window.txtGameText.Text = "Beware.";
    window.mySquares(3, 4)->thisObject = 37;
    for (int n = 1; n <= 20; ++n)
        window.myCharacters(n)->IconData = std::string(500'000, static_cast<char>(n));
    window.UserPicture = New<Picture>(4000, 3000, 32);
    const auto map = window.MapText();
    recovery->Keep();
    // Drawn on while it is being written, it is kept as it was.
    window.UserPicture->Graphics().FillRect(0, 0, 4000, 3000);
    window.myCharacters(20)->IconData.clear();
    restart();
    offer(Answer::Cancel);
    EXPECT_FALSE(window.isDirty);
    offer(Answer::Action);
    ASSERT_EQ(person.questions.size(), 2);
    EXPECT_NE(person.questions[1].find("\"Dark\""), std::string::npos);
    EXPECT_TRUE(window.MapText() == map);
    EXPECT_TRUE(window.isDirty);
    EXPECT_EQ(window.Title.get(), "Quorrin Map Maker - Dark");
    EXPECT_EQ(window.mySavedFile->Path(), folder / "Dark.Cave.qrnm");

    // The copy lives on as that of the map that is open, and nobody else is asked about it.
    EXPECT_TRUE(RecoveryCopy::Abandoned().empty());
    window.txtGameText.Text = "Beware!";
    EXPECT_TRUE(keep() == window.MapText());
    window.ChooseMenu("mnuSave");
    EXPECT_EQ(person.proposedNames.back(), "Dark.qrnm");
    recovery->KeepAtOnce();
    EXPECT_TRUE(nothingIsKept());

    window.SetSavedFileName(nullptr);
    window.pmGrid.ListIndex = 1;
    crash();
    offer(Answer::Alternate);
    EXPECT_NE(person.questions[0].find("unnamed"), std::string::npos);
    EXPECT_TRUE(nothingIsKept());
    offer(Answer::Action);
    EXPECT_EQ(person.questions.size(), 1) << "there is nothing left to ask about";
}

TEST_F(Recovering, SeveralCopiesStandInOneListAndThoseOfOthersInNone)
{
    for (const int grid : {1, 2, 3}) {
        window.SetSavedFileName(folder.file("Map " + std::to_string(grid) + ".qrnm"));
        window.pmGrid.ListIndex = grid;
        crash();
    }
    Window1 otherWindow;
    otherWindow.Event_Open();
    Recovery other(otherWindow);
    otherWindow.pmGrid.ListIndex = 8;
    other.KeepAtOnce();

    std::vector<std::size_t> rows;
    person.modal = [&](Window& opened) {
        auto& list = dynamic_cast<frmRecovery&>(opened);
        rows.push_back(list.ListBox1.Rows.size());
        std::int64_t row = 0;
        const auto* wanted = rows.size() == 1 ? "Map 1" : "Map 2";
        while (InStr(list.ListBox1.Rows[static_cast<std::size_t>(row)], wanted) == 0)
            ++row;
        list.ListBox1.ListIndex = row;
        (rows.size() == 1 ? list.btnDiscard : list.btnRecover).Push();
    };
    offer(Answer::Cancel);
    EXPECT_EQ(rows, (std::vector<std::size_t>{3, 2}));
    EXPECT_EQ(window.pmGrid.ListIndex, 2);
    EXPECT_EQ(window.mySavedFileName, "Map 2");
    EXPECT_EQ(files("").size(), 3) << "this map's, the other window's, and the one that waits";
}

TEST_F(Recovering, ADamagedCopyIsRefusedAndStays)
{
    const std::pair<const char*, std::function<std::string(std::string)>> faults[] = {
        {".qrnm", [](std::string text) { return text.substr(0, text.size() / 2); }},
        {".qrnm", [](std::string text) { return text[200] ^= 1, text; }},
        {".qrnm", [](const std::string&) { return ""; }},
        {"", [](const std::string& about) { return about.substr(0, about.size() / 2); }},
        {"", [](const std::string&) { return ""; }},
    };
    std::size_t damaged = 0;
    for (const auto& [extension, fault] : faults) {
        window.txtMonster.Text = "Orc";
        recovery->KeepAtOnce();
        for (const auto& file : files(extension))
            if (file.parent_path().extension().empty()) // not put aside already
                writeFile(file, fault(contentOf(file)));
        restart();
        offer(Answer::Action);
        EXPECT_EQ(person.questions.size(), 1);
        ASSERT_EQ(person.messages.size(), 1);
        EXPECT_NE(person.messages[0].find("damaged"), std::string::npos);
        EXPECT_EQ(window.txtMonster.Text.get(), "");
        EXPECT_EQ(files(".qrnm").size(), ++damaged) << "each is kept for a later look";
        offer(Answer::Action);
        EXPECT_EQ(person.questions.size(), 1) << "but not asked about again";
    }
}

TEST_F(Recovering, ADiskThatTakesNothingIsPassedOverAndTriedAgain)
{
    window.txtGameText.Text = "The first.";
    const auto first = keep();
    window.txtGameText.Text = std::string(200'000, 'x');
    for (const std::size_t room : {std::size_t{0}, std::size_t{4096}, window.MapText().size() - 1}) {
        const FullDisk disk(room);
        EXPECT_EQ(keep(), first) << "the copy from before stays whole";
        EXPECT_TRUE(recovery->Keep()) << "it is to be tried again";
    }
    EXPECT_EQ(keep(), window.MapText());
    fs::remove_all(RecoveryCopy::Folder());
    window.txtGameText.Text = "The last.";
    keep();
    EXPECT_EQ(keep(), window.MapText()) << "a folder that somebody has removed is made again";
    setenv("XDG_STATE_HOME", (folder / "none").c_str(), true);
    fs::permissions(folder.path, fs::perms(0555));
    EXPECT_TRUE(holdsForNobody([&] {
        Recovery unlucky(window);
        unlucky.KeepAtOnce();
        EXPECT_TRUE(unlucky.Keep());
        unlucky.OfferAbandoned();
        EXPECT_TRUE(person.messages.empty());
    }));
    fs::permissions(folder.path, fs::perms(0755));
}
