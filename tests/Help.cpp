#include "Fixture.h"

#include "app/frmAbout.h"
#include "toolkit/Application.h"

#include <functional>
#include <regex>
#include <set>

using namespace quorrin;
using Help = Program;
namespace fs = std::filesystem;

TEST_F(Help, OpensItsFirstPageBesideTheProgram)
{
    std::string launched;
    bool isThere = true;
    person.launch = [&](const FolderItem& file) { return launched = file.Path(), isThere; };
    EXPECT_TRUE(window.ChooseMenu("mnuHelp"));
    EXPECT_EQ(launched, SpecialFolder::Executable()->Path() + "/help/Index.html");
    isThere = false;
    window.Event_Help();
    Module1::OpenThisHelpFile("no such page.html");
    ASSERT_EQ(person.messages.size(), 2U);
    EXPECT_NE(person.messages[0].find("help/background.html"), std::string::npos) << "where to find it oneself";
    EXPECT_EQ(person.messages[1], "Unable to find help files.");
}

TEST_F(Help, LeadsToNothingThatIsNotThere)
{
    const fs::path folder = SpecialFolder::Executable()->Path() + "/help";
    const std::regex reference("(?:href|src)=\"([^\"]*)");
    std::set<fs::path> read;
    const std::function<void(const fs::path&)> readAll = [&](const fs::path& page) {
        if (!read.insert(page).second)
            return;
        EXPECT_TRUE(fs::exists(page)) << page;
        if (page.extension() != ".html")
            return;
        const auto html = contentOf(page);
        EXPECT_EQ(html.find('{'), html.npos) << page;
        for (std::sregex_iterator link(html.begin(), html.end(), reference), end; link != end; ++link)
            readAll(folder / link->str(1));
    };
    readAll(folder / "Index.html");
    EXPECT_TRUE(read.contains(folder / "images/objects/123-bw.png"));
    // And no page stands where nothing leads.
    for (const auto& entry : fs::directory_iterator(folder))
        if (!entry.is_directory()) {
            EXPECT_TRUE(read.contains(entry.path())) << entry.path();
        }
}

TEST_F(Help, ShowsTheVersionInTheAboutWindow)
{
    std::string shown;
    person.modal = [&](Window& about) { shown = dynamic_cast<frmAbout&>(about).lblVersion.Caption; };
    EXPECT_TRUE(window.ChooseMenu("mnuAbout"));
    EXPECT_EQ(shown, "v" + Application::Version());
}
