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

TEST_F(IniFile, FindsAValueAndPutsOneInItsPlace)
{
    // The file, a section, what stands there for the key "k", and the file after "new" has been put there.
    const std::tuple<const char*, const char*, const char*, const char*> cases[] = {
        {"", "A", "", "[A]\rk=new\r"},
        {"[A]", "A", "", "[A]\rk=new\r"},
        {"[A]\r", "A", "", "[A]\rk=new\r"},
        {"[A]\rk=\r", "A", "", "[A]\rk=new\r"},
        {"[A]\rk=a=b==\r", "A", "a=b==", "[A]\rk=new\r"},
        {"[A]\rk=unended", "A", "", "[A]\rk=new\r"},
        {"[A]\rk=old\r", "B", "", "[A]\rk=old\r[B]\rk=new\r"},
        {"[A]\rx=1\r", "A", "", "[A]\rx=1\rk=new\r"},
        {"[A]\rx=1\r[B]\rk=2\r", "A", "2", "[A]\rx=1\rk=new\r[B]\rk=2\r"}, // found beyond the section
        {"[A]\rlook=2\r", "A", "2", "[A]\rlook=new\r"},                    // any text that ends so is the key
        {"[A]\rk=1\r[B]\rk=2\ry=3\r", "B", "2", "[A]\rk=1\r[B]\rk=new\ry=3\r"},
        {"[A]\rx=1\rk=old\ry=2\r[B]\rk=2\r", "A", "old", "[A]\rx=1\rk=new\ry=2\r[B]\rk=2\r"},
    };
    for (const auto& [before, section, found, after] : cases) {
        writeFile(file->Path(), before);
        std::string value = "old";
        EXPECT_EQ(ini.GetPreference(section, "k", value), static_cast<std::int64_t>(std::string(found).size()));
        EXPECT_EQ(value, found) << before;
        EXPECT_EQ(contentOf(file->Path()), before);
        ini.SetPreference(section, "k", "new");
        EXPECT_EQ(contentOf(file->Path()), after) << before;
    }
}

TEST_F(IniFile, ThatCannotBeReadIsLeftAlone)
{
    std::string value;
    file->CreateAsFolder();
    EXPECT_EQ(ini.GetPreference("A", "k", value), 0);
    ini.SetPreference("A", "k", "new");
}

using Preferences = Program;

TEST_F(Preferences, KeepThePageSetupAcrossRuns)
{
    const std::string chosen(300, '\xFE'); // long enough for several lines of base-64
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
