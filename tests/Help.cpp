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
    std::vector<std::string> launched;
    person.launch = [&](const FolderItem& file) { return launched.push_back(file.Path()), true; };
    EXPECT_TRUE(window.ChooseMenu("mnuHelp"));
    EXPECT_EQ(launched, std::vector<std::string>{SpecialFolder::Executable()->Path() + "/help/Index.html"});
    EXPECT_TRUE(fs::exists(launched.at(0)));
    EXPECT_TRUE(person.messages.empty());

    Module1::OpenThisHelpFile("no such page.html");
    EXPECT_EQ(launched.size(), 1U);
    EXPECT_EQ(person.messages, std::vector<std::string>{"Unable to find help files."});

    person.launch = [](const FolderItem&) { return false; };
    window.Event_Help();
    ASSERT_EQ(person.messages.size(), 2U);
    EXPECT_NE(person.messages.at(1).find("help/background.html"), std::string::npos) << "where to find it oneself";
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
