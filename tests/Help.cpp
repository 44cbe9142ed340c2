#include "Fixture.h"

#include "app/Module1.h"
#include "app/frmAbout.h"
#include "toolkit/Application.h"

#include <set>

using namespace quorrin;
namespace fs = std::filesystem;

namespace {

class Help : public Program {
protected:
    Help()
    {
        person.launch = [this](const FolderItem& file) {
            launched.push_back(file.Path());
            return true;
        };
    }
    std::vector<std::string> launched;
};

} // namespace

TEST_F(Help, OpensItsFirstPageBesideTheProgram)
{
    EXPECT_TRUE(window.ChooseMenu("mnuHelp"));
    EXPECT_EQ(launched, std::vector<std::string>{SpecialFolder::Executable()->Path() + "/help/Index.html"});
    EXPECT_TRUE(fs::exists(launched.at(0)));
    EXPECT_TRUE(person.messages.empty());

    Module1::OpenThisHelpFile("no such page.html");
    EXPECT_EQ(launched.size(), 1U);
    EXPECT_EQ(person.messages, std::vector<std::string>{"Unable to find help files."});
}

TEST_F(Help, LeadsToNothingThatIsNotThere)
{
    const fs::path folder = SpecialFolder::Executable()->Path() + "/help";
    std::set<fs::path> unread{folder / "Index.html"};
    std::set<fs::path> read;
    while (!unread.empty()) {
        const fs::path page = *unread.begin();
        unread.erase(unread.begin());
        read.insert(page);
        EXPECT_TRUE(fs::exists(page)) << page;
        if (page.extension() != ".html")
            continue;
        const auto html = contentOf(page);
        EXPECT_EQ(html.find('{'), html.npos) << page;
        for (const std::string_view attribute : {"href=\"", "src=\""}) {
            for (auto at = html.find(attribute); at != html.npos; at = html.find(attribute, at + 1)) {
                const auto begin = at + attribute.size();
                if (const auto target = folder / html.substr(begin, html.find('"', begin) - begin);
                    !read.contains(target))
                    unread.insert(target);
            }
        }
    }
    EXPECT_TRUE(read.contains(folder / "images/objects/123-bw.png"));
    // And no page stands where nothing leads.
    for (const auto& entry : fs::directory_iterator(folder))
        EXPECT_TRUE(entry.is_directory() || read.contains(entry.path())) << entry.path();
}

TEST_F(Help, ShowsTheVersionInTheAboutWindow)
{
    int opened = 0;
    person.modal = [&](Window& about) {
        ++opened;
        EXPECT_EQ(dynamic_cast<frmAbout&>(about).lblVersion.Caption.get(), "v" + Application::Version());
        const auto icon = New<Picture>(128, 128);
        dynamic_cast<frmAbout&>(about).Canvas1.Paint(icon->Graphics());
        EXPECT_EQ(icon->RGBSurface().Pixel(0, 0), black);
        EXPECT_EQ(icon->RGBSurface().Pixel(64, 64).transparency, 0);
    };
    EXPECT_TRUE(window.ChooseMenu("mnuAbout"));
    EXPECT_EQ(opened, 1);
}
