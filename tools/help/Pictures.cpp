#include "Pictures.h"

#include "characters/Roster.h"
#include "document/Window1.h"
#include "render/Catalogue.h"
#include "toolkit/Random.h"
#include "toolkit/ScriptedPlatform.h"
#include "toolkit/Text.h"
#include "userpicture/frmEditUserPicture.h"

#include <stdexcept>

namespace quorrin {

namespace {

constexpr Color captionGrey = RGB(60, 60, 60);

struct Thumbnail {
    std::string caption;
    Ref<Picture> picture;
};

double size(std::int64_t side)
{
    return static_cast<double>(side);
}

/// Small pictures with their captions below, in rows; each fills `width` by `height`.
Ref<Picture> contactSheet(const std::vector<Thumbnail>& thumbnails, int perRow, int width, int height)
{
    constexpr int gap = 14;
    constexpr int captionHeight = 22;
    const int rows = (static_cast<int>(thumbnails.size()) + perRow - 1) / perRow;
    auto sheet = New<Picture>(perRow * (width + gap) - gap, rows * (height + captionHeight + gap) - gap, 32);
    auto& g = sheet->Graphics();
    int n = 0;
    for (const auto& [caption, picture] : thumbnails) {
        const int x = n % perRow * (width + gap);
        const int y = n / perRow * (height + captionHeight + gap);
        g.DrawPicture(picture, x, y, width, height, 0, 0, size(picture->Width()), size(picture->Height()));
        g.ForeColor = captionGrey;
        g.DrawString(caption, x + (width - g.StringWidth(caption)) / 2, y + height + 16);
        ++n;
    }
    return sheet;
}

/// A part of a page.
Ref<Picture> part(const Ref<Picture>& page, const Frame& frame)
{
    auto picture = New<Picture>(frame.Width, frame.Height);
    picture->Graphics().DrawPicture(page, -frame.Left, -frame.Top);
    return picture;
}

/// A part of the page as it looks with each row of a popup.
Ref<Picture> choicesOf(Window1& window, PopupMenu& popup, std::int64_t first, const Frame& frame)
{
    std::vector<Thumbnail> thumbnails;
    for (auto row = first; row < popup.ListCount(); ++row) {
        popup.ListIndex = row;
        thumbnails.push_back({popup.List(row), part(window.myImage, frame)});
    }
    popup.ListIndex = 0;
    return contactSheet(thumbnails, 3, 240, 240 * frame.Height / frame.Width);
}

Ref<Picture> wallChoices()
{
    const struct {
        const char* caption;
        bool cWall::*flag;
    } kinds[] = {
        {"Top", &cWall::Top},
        {"Bottom", &cWall::Bottom},
        {"Left", &cWall::Left},
        {"Right", &cWall::Right},
        {"Slash", &cWall::Slash},
        {"Backslash", &cWall::BackSlash},
        {"Door Top", &cWall::DoorTop},
        {"Door Bottom", &cWall::DoorBottom},
        {"Door Left", &cWall::DoorLeft},
        {"Door Right", &cWall::DoorRight},
    };
    std::vector<Thumbnail> thumbnails;
    for (const auto& [caption, flag] : kinds) {
        cWall wall;
        wall.*flag = true;
        auto tile = New<Picture>(68, 68, 32);
        auto& g = tile->Graphics();
        g.ForeColor = RGB(220, 220, 220);
        g.DrawRect(2, 2, 64, 64);
        g.DrawPicture(wall.Render(), 2, 2);
        thumbnails.push_back({caption, tile});
    }
    return contactSheet(thumbnails, 5, 90, 90);
}

class Folder {
public:
    explicit Folder(std::string path) : path_(std::move(path)) { FolderItem(path_).CreateAsFolder(); }
    void save(const std::string& name, const Ref<Picture>& picture) const
    {
        picture->Save(New<FolderItem>(path_ + "/" + name + ".png"), PictureFormat::Png, 100);
    }

private:
    std::string path_;
};

void saveObjects(Window1& window, const std::string& path)
{
    const Folder folder(path);
    for (std::int64_t object = 1; object <= lastCatalogueObject; ++object) {
        folder.save(Str(object), window.DrawObject(object, solidColor));
        folder.save(Str(object) + "-bw", window.DrawObject(object, blackAndWhite));
    }
}

void saveChoices(Window1& window, const Folder& folder)
{
    folder.save("backgrounds", choicesOf(window, window.pmBackground, 0, {0, 0, 756, 576}));
    folder.save("grids", choicesOf(window, window.pmGrid, 1, {0, 36, 240, 130}));
    folder.save("borders", choicesOf(window, window.pmBorderTop, 1, {0, 0, 240, 60}));
    folder.save("walls", wallChoices());
}

void saveMaze(const Folder& folder, const std::string& name, PushButton Window1::*button)
{
    Window1 window;
    window.Event_Open();
    window.pmBackground.ListIndex = 3;
    window.pmColorBW.ListIndex = solidColor;
    window.pmObjects.ListIndex = 63;
    (window.*button).Push();
    folder.save(name, window.myImage);
}

/// The four pictures of the set, the sheet and a drawing, from one map.
void saveResults(ScriptedPlatform& person, const Folder& folder, const std::string& map)
{
    Window1 window;
    window.Event_Open();
    window.mOpen(New<FolderItem>(map));
    if (!person.messages.empty())
        throw std::runtime_error(map + ": " + person.messages.front());

    std::vector<Thumbnail> modes;
    for (std::int64_t mode = 0; mode < window.pmColorBW.ListCount(); ++mode) {
        window.pmColorBW.ListIndex = mode;
        modes.push_back({window.pmColorBW.List(mode), part(window.myImage, {503, 166, 248, 186})});
    }
    folder.save("color-modes", contactSheet(modes, 3, 248, 186));
    window.pmColorBW.ListIndex = solidColor;

    int n = 0;
    const char* const names[] = {"map-color", "map-dm-color", "map-bw", "map-dm-bw"};
    person.save = [&](const std::string&) {
        folder.save(names[n++], window.myImage);
        return nullptr;
    };
    window._mnuExportPictureSeries_Action();

    auto sheet = New<Picture>(window.cvCharacters.Width, window.cvCharacters.Height, 32);
    drawRoster(window, sheet->Graphics());
    folder.save("sheet", sheet);
    folder.save("token", part(sheet, tokenFrame(1)));

    person.modal = [](Window& opened) {
        auto& editor = dynamic_cast<frmEditUserPicture&>(opened);
        editor.PopupMenu2.ListIndex = 4;
        constexpr std::pair<int, int> way[] = {{285, 440}, {285, 262}, {104, 258}, {104, 190}};
        editor.Canvas1.Press(way[0].first, way[0].second);
        for (const auto& [x, y] : way)
            editor.Canvas1.Drag(x, y);
        for (const int tip : {88, 120}) {
            editor.Canvas1.Drag(104, 176);
            editor.Canvas1.Drag(tip, 204);
        }
        editor.Canvas1.Release(120, 204);
        editor.PushButton1.Push();
    };
    window.cbShowDMObjects.Value = false;
    window.cbOverlayUserPict.Value = true;
    window.PushButton2.Push();
    folder.save("drawing", window.myImage);
}

} // namespace

void writeHelpPictures(const std::string& path, const std::string& map)
{
    ScriptedPlatform person;
    const Folder folder(path);
    {
        Window1 window;
        window.Event_Open();
        saveObjects(window, path + "/objects");
        saveChoices(window, folder);
    }
    person.ask = [](const MessageDialog&) { return MessageDialog::Answer::Action; };
    Random::SeedAll(12);
    saveMaze(folder, "maze-objects", &Window1::btnMaze);
    saveMaze(folder, "maze-walls", &Window1::btnWallMaze);
    saveResults(person, folder, map);
}

} // namespace quorrin
