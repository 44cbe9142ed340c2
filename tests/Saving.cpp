#include "Disk.h"
#include "Fixture.h"

#include <sys/stat.h>

using namespace quorrin;

// What happens to the file when saving does not come to its end.

class Saving : public Program {
protected:
    Saving()
    {
        person.save = [this](const std::string&) { return folder.file("Map.qrnm"); };
    }

    std::string file() const { return contentOf(folder / "Map.qrnm"); }

    /// Changes the map and chooses "Save"; the changes are not on disk, and the window knows.
    void expectSilentRefusal()
    {
        const auto old = file();
        window.pmGrid.ListIndex = window.pmGrid.ListIndex + 1;
        EXPECT_TRUE(window.ChooseMenu("mnuSave"));
        EXPECT_TRUE(window.isDirty);
        EXPECT_EQ(file(), old);
        EXPECT_TRUE(person.messages.empty());
    }

    TestFolder folder; // not that of the preferences
};

TEST_F(Saving, PutsAWholeNewFileInThePlaceOfTheOldOne)
{
    ASSERT_TRUE(window.mSave());
    const auto old = file();
    // Another name of the old file shows whether that itself is written to, which a crash would leave half done.
    const TestFolder other;
    std::filesystem::create_hard_link(folder / "Map.qrnm", other / "Old.qrnm");
    window.txtGameText.Text = std::string(200'000, 'a');
    ASSERT_TRUE(window.mSave());
    EXPECT_EQ(file(), window.MapText());
    EXPECT_EQ(contentOf(other / "Old.qrnm"), old);
}

TEST_F(Saving, AFullDiskOrAFolderThatGoesLeavesNothingBehind)
{
    ASSERT_TRUE(window.mSave());
    const auto old = file();
    person.ask = [](const MessageDialog&) { return MessageDialog::Answer::Action; };
    for (const auto& [length, lacking] : {std::pair{200'000, 200'000}, {200'000, 1}, {10, 500}, {10, 1}}) {
        window.txtGameText.Text = std::string(static_cast<std::size_t>(length), 'x');
        {
            const FullDisk disk(window.MapText().size() - static_cast<std::size_t>(lacking));
            EXPECT_THROW(window.ChooseMenu("mnuSave"), IOException) << lacking;
            EXPECT_THROW(window.ChooseMenu("mnuNew"), IOException) << "what is not saved stays open";
        }
        EXPECT_TRUE(window.isDirty);
        EXPECT_EQ(file(), old);
        for (const auto& entry : std::filesystem::directory_iterator(folder.path))
            EXPECT_EQ(entry.path().filename(), "Map.qrnm");
    }
    EXPECT_TRUE(window.ChooseMenu("mnuSave"));
    EXPECT_FALSE(window.isDirty);

    const auto stream = TextOutputStream::Create(folder.file("Map.qrnm"));
    std::filesystem::remove_all(folder.path);
    stream->Write("text");
    EXPECT_THROW(stream->Close(), IOException);
    expectSilentRefusal();
}

TEST_F(Saving, WhereNoFileCanBeReplacedItIsWrittenInPlaceOrRefusedInSilence)
{
    ASSERT_TRUE(window.mSave());
    std::filesystem::create_directory(folder / "state");
    std::filesystem::permissions(folder / "state", std::filesystem::perms(0777));
    setenv("XDG_STATE_HOME", (folder / "state").c_str(), true);
    const std::tuple<int, int, bool> cases[] = {{0555, 0666, true}, {0777, 0444, false}, {0555, 0444, false}};
    for (const auto& [folders, files, isSaved] : cases) {
        SCOPED_TRACE(files);
        std::filesystem::permissions(folder.path, std::filesystem::perms(folders));
        std::filesystem::permissions(folder / "Map.qrnm", std::filesystem::perms(files));
        struct stat before {
        }, after{};
        stat((folder / "Map.qrnm").c_str(), &before);
        EXPECT_TRUE(holdsForNobody([&, isSaved = isSaved] {
            if (!isSaved)
                return expectSilentRefusal();
            for (const std::size_t length : {90'000, 10}) {
                window.txtGameText.Text = std::string(length, 'x');
                EXPECT_TRUE(window.ChooseMenu("mnuSave"));
                EXPECT_FALSE(window.isDirty);
                EXPECT_TRUE(file() == window.MapText());
            }
            // A file that cannot grow stays what it was.
            const auto old = file();
            const FullDisk disk(4096);
            window.txtGameText.Text = std::string(90'000, 'y');
            EXPECT_THROW(window.mSave(), IOException);
            EXPECT_TRUE(file() == old);
        }));
        stat((folder / "Map.qrnm").c_str(), &after);
        EXPECT_EQ(std::tuple(before.st_ino, before.st_uid, before.st_mode),
                  std::tuple(after.st_ino, after.st_uid, after.st_mode));
        if (isSaved) {
            EXPECT_TRUE(std::filesystem::is_empty(folder / "state/quorrin-map-maker/recovery"));
        }
    }
    std::filesystem::permissions(folder.path, std::filesystem::perms(0777));
}
