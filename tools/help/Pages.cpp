#include "Pages.h"

#include "document/Window1.h"
#include "toolkit/ScriptedPlatform.h"
#include "toolkit/Text.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace quorrin {

namespace fs = std::filesystem;

namespace {

std::string read(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream all;
    if (!file || !(all << file.rdbuf()))
        throw std::runtime_error("cannot read " + path.string());
    return all.str();
}

void write(const fs::path& path, const std::string& text)
{
    std::ofstream file(path, std::ios::binary);
    if (!file.write(text.data(), static_cast<std::streamsize>(text.size())).flush())
        throw std::runtime_error("cannot write " + path.string());
}

/// What stands between the first `opening` from a place on and the `closing` after it; an npos begin where there is
/// none.
struct Span {
    std::size_t begin, end;
};
Span between(std::string_view text, std::string_view opening, std::string_view closing, std::size_t from = 0)
{
    const auto found = text.find(opening, from);
    const auto end = found == text.npos ? found : text.find(closing, found);
    return end == text.npos ? Span{end, end} : Span{found + opening.size(), end};
}

std::string withPictures(const std::string& page, const fs::path& target)
{
    constexpr std::string_view opening = "<!-- picture: ";
    constexpr std::string_view closing = " -->";
    std::string result;
    std::size_t rest = 0;
    for (auto request = between(page, opening, closing); request.begin != page.npos;
         request = between(page, opening, closing, rest)) {
        const auto parts = Split(page.substr(request.begin, request.end - request.begin), " | ");
        const auto& name = parts(0);
        const auto& caption = parts(1);
        result += page.substr(rest, request.begin - opening.size() - rest);
        rest = request.end + closing.size();
        if (!fs::exists(target / "images" / name))
            throw std::runtime_error("a help page asks for a picture that is not made: " + name);
        result += "<figure><img src=\"images/" + name + "\" alt=\"" + caption + "\"><figcaption>" + caption
                  + "</figcaption></figure>";
    }
    return result + page.substr(rest);
}

/// The page in the frame that all share; its title is its first heading.
std::string framed(const std::string& frame, const std::string& page)
{
    const auto heading = between(page, "<h1>", "</h1>");
    if (heading.begin == page.npos)
        throw std::runtime_error("a help page without a heading");
    const auto title = page.substr(heading.begin, heading.end - heading.begin);
    return ReplaceAll(ReplaceAll(frame, "{title}", title), "{page}", page);
}

/// The objects in the groups of the program's own menu.
std::string objectsPage()
{
    const ScriptedPlatform nobody;
    Window1 window;
    window.Event_Open();
    MenuItem menu;
    window.ShowObjectPopupMenu(menu, "");

    std::string page = "<h1>All objects</h1>\n<p>Each object in color and in black and white, in the groups of the "
                       "object menu.</p>\n";
    for (const auto& group : menu.Items()) {
        if (group->Items().empty())
            continue;
        page += "<h2>" + group->Text + "</h2>\n<ul class=\"objects\">\n";
        for (const auto& object : group->Items()) {
            const auto picture = "images/objects/" + object->Tag;
            page += "<li><img src=\"" + picture + ".png\" alt=\"\"><img src=\"" + picture + "-bw.png\" alt=\"\"><br>"
                    + object->Text + "</li>\n";
        }
        page += "</ul>\n";
    }
    return page;
}

} // namespace

void writeHelpPages(const fs::path& source, const fs::path& target)
{
    fs::create_directories(target);
    fs::copy(source / "help.css", target / "help.css", fs::copy_options::overwrite_existing);

    const auto frame = read(source / "frame.html");
    for (const auto& entry : fs::directory_iterator(source))
        if (const auto name = entry.path().filename(); name.extension() == ".html" && name != "frame.html")
            write(target / name, framed(frame, withPictures(read(entry.path()), target)));
    write(target / "all-objects.html", framed(frame, objectsPage()));
}

} // namespace quorrin
