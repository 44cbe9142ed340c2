#include "Fixture.h"

#include "app/iniClass.h"
#include "document/FileTypes1.h"
#include "toolkit/Platform.h"

using namespace quorrin;

namespace {

class IniFile : public testing::Test {
protected:
    TestFolder folder;
    Ref<FolderItem> file = folder.file("settings.ini");
    iniClass ini{file};
};

} // namespace

TEST_F(IniFile, FindsAValueByItsSectionAndKey)
{
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"[A]\rk=v\r", "A", "k", "v"},
        {"[A]\rk=v\r", "B", "k", ""},
        {"[A]\rk=v\r", "A", "x", ""},
        {"[A]\rk=\r", "A", "k", ""},
        {"[A]\rk=a=b==\r", "A", "k", "a=b=="},
        {"[A]\rk=1\r[B]\rk=2\r", "B", "k", "2"},
        {"[A]\r[B]\rk=2\r", "A", "k", "2"}, // the search goes on beyond the section
        {"[A]\rlook=2\r", "A", "k", "2"},   // and takes any text that ends so
        {"[A]\rk=unended", "A", "k", ""},
        {"[A]", "A", "k", ""},
        {"", "A", "k", ""},
    };
    for (const auto& [before, section, key, expected] : cases) {
        writeFile(file->Path(), before);
        std::string value = "old";
        const auto length = ini.GetPreference(section, key, value);
        EXPECT_EQ(value, expected) << before;
        EXPECT_EQ(length, static_cast<std::int64_t>(value.size()));
        EXPECT_EQ(contentOf(file->Path()), before);
    }
}

TEST_F(IniFile, PutsAValueInItsPlace)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"", "A", "[A]\rk=new\r"},
        {"[A]\rk=old\r", "A", "[A]\rk=new\r"},
        {"[A]\rk=new\r", "A", "[A]\rk=new\r"},
        {"[A]\rk=old\r", "B", "[A]\rk=old\r[B]\rk=new\r"},
        {"[A]\rx=1\r", "A", "[A]\rx=1\rk=new\r"},
        {"[A]\rx=1\r[B]\rk=2\r", "A", "[A]\rx=1\rk=new\r[B]\rk=2\r"},
        {"[A]\rk=1\r[B]\rk=2\ry=3\r", "B", "[A]\rk=1\r[B]\rk=new\ry=3\r"},
        {"[A]\rx=1\rk=old\ry=2\r[B]\rk=2\r", "A", "[A]\rx=1\rk=new\ry=2\r[B]\rk=2\r"},
        {"[A]\rk=unended", "A", "[A]\rk=new\r"},
        {"[A]\r", "A", "[A]\rk=new\r"},
        {"[A]", "A", "[A]\rk=new\r"},
    };
    for (const auto& [before, section, after] : cases) {
        writeFile(file->Path(), before);
        ini.SetPreference(section, "k", "new");
        EXPECT_EQ(contentOf(file->Path()), after) << before;
    }
}

TEST_F(IniFile, ThatCannotBeReadIsLeftAlone)
{
    std::string value;
    const auto tooLarge = folder.file("large.ini");
    writeFile(tooLarge->Path(), "[A]\rk=1\r");
    std::filesystem::resize_file(tooLarge->Path(), std::uintmax_t{2} << 30);
    file->CreateAsFolder();
    for (const auto& bad : {file, tooLarge}) {
        EXPECT_EQ(iniClass(bad).GetPreference("A", "k", value), 0);
        iniClass(bad).SetPreference("A", "k", "new");
    }
    EXPECT_EQ(std::filesystem::file_size(tooLarge->Path()), std::uintmax_t{2} << 30);
    iniClass(folder.file("no folder/settings.ini")).SetPreference("A", "k", "new");
    EXPECT_FALSE(folder.file("no folder")->Exists());
}

using Preferences = Program;

TEST_F(Preferences, KeepThePageSetupAcrossRuns)
{
    // Long enough for several lines of base-64, and no text of ours.
    std::string chosen;
    for (int i = 0; i < 300; ++i)
        chosen += static_cast<char>(i);
    const auto file = folder.file("ZVKQuorrinMapMaker/QuorrinMapMaker.ini");
    EXPECT_FALSE(Module1::myPrinterSetup);
    Module1::ShowPageSetup();
    EXPECT_FALSE(file->Exists());
    EXPECT_EQ(Module1::myPrinterSetup->SetupString, ""); // a fresh one, though the dialog was cancelled
    person.pageSetup = [&](PrinterSetup& setup) { return setup.SetupString = chosen, true; };
    Module1::ShowPageSetup();
    const auto content = contentOf(file->Path());
    EXPECT_EQ(content.substr(0, 21), "[PageSetup]\rSettings=");
    EXPECT_EQ(content.find_first_of("\r\n", 21), content.size() - 1);

    Module1::myPrinterSetup = nullptr;
    App().Event_Open();
    EXPECT_EQ(Module1::myPrinterSetup->SetupString, chosen);

    // A cancelled dialog works on a copy.
    person.pageSetup = [&](PrinterSetup& setup) { return setup.SetupString = "tried", false; };
    Module1::ShowPageSetup();
    EXPECT_EQ(Module1::myPrinterSetup->SetupString, chosen);
    EXPECT_EQ(contentOf(file->Path()), content);
}

/// That a map opens with the program is tested on the installation itself.
TEST(FileTypes, TheInstallationTellsMapsByTheirExtension)
{
    const auto entry = contentOf(QUORRIN_SOURCE_DIR "/packaging/org.quorrin.mapmaker.mime.xml");
    for (const auto& type : FileTypes1::pAllFileTypes) {
        const auto glob = "<glob pattern=\"*" + type.Extensions + "\"/>";
        EXPECT_EQ(entry.find(glob) == entry.npos, type.Imported) << type.Name;
    }
}
