#include "output/Export.h"

#include "document/Board.h"
#include "document/FileTypes1.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

#include <algorithm>
#include <cmath>

namespace quorrin {

namespace {

constexpr int bestQuality = 100;

/// The constant of a quarter turn; it differs from the exact one by far less than a pixel.
constexpr double quarterTurn = 1.570795;

/// The kinds of picture that the person can choose from, and the pixels a unit of each.
struct PictureKind {
    FileType type;
    int scale;
};
const PictureKind pictureKinds[] = {
    {{"PNG picture", FileTypes1::Png.Extensions}, 1},
    {{"PNG picture, 4 times as sharp", FileTypes1::Png.Extensions}, 4},
};

/// An area of the page, in its units.
struct Area {
    std::int64_t x, y, width, height;
};

/// A part of the page with exactly these pixels: drawn with at least as many, then reduced smoothly.
Ref<Picture> partOfPage(const Picture& page, const Area& area, std::int64_t width, std::int64_t height)
{
    const double wanted = std::max(double(width) / double(area.width), double(height) / double(area.height));
    const int scale = std::clamp(static_cast<int>(std::ceil(wanted)), 1, largestPictureScale);
    auto part = New<Picture>(width, height, 32);
    part->Graphics().DrawPicture(page.Enlarged(scale), 0, 0, double(width), double(height), double(area.x * scale),
                                 double(area.y * scale), double(area.width * scale), double(area.height * scale));
    return part;
}

/// The page cut to its squares, or with as many pixels a unit as are wanted by the caller or by the person.
Ref<Picture> pageToExport(const Window1& window, int scaleOfKind)
{
    if (window.exportCell > 0)
        return boardPicture(window, window.exportCell);
    const int scale = std::max(window.exportScale, scaleOfKind);
    return scale == 1 ? window.myImage : window.myImage->Enlarged(scale);
}

/// Asks for a file and writes the page to it; nothing happens when the person cancels.
void savePageAs(Window1& window, const std::string& name)
{
    FileFilter types;
    for (const auto& kind : pictureKinds)
        types.push_back(kind.type);
    std::size_t chosen = 0;
    const auto file = GetSaveFolderItem(types, name, &chosen);
    if (!file)
        return;
    pageToExport(window, pictureKinds[chosen].scale)->Save(file, PictureFormat::Png, bestQuality);
}

/// One picture of the series.
struct SeriesStep {
    const char* suffix;
    PageVersion version;
};
constexpr SeriesStep series[] = {
    {" Color", {.showMarkers = false, .blackAndWhite = false}},
    {" DM Color", {.showMarkers = true, .blackAndWhite = false}},
    {" BW", {.showMarkers = false, .blackAndWhite = true}},
    {" DM BW", {.showMarkers = true, .blackAndWhite = true}},
};

/// "Quorrin Map", and the document's name after a blank when it has one.
std::string baseName(const std::string& documentName)
{
    const auto name = Trim(documentName);
    return name.empty() ? "Quorrin Map" : "Quorrin Map " + name;
}

std::string seriesName(const std::string& documentName, const SeriesStep& step)
{
    return baseName(documentName) + step.suffix + ".png";
}

} // namespace

Ref<Picture> boardPicture(const Window1& window, int cell)
{
    const Board& board = window.board();
    return partOfPage(*window.myImage, {board.left, board.top, board.width(), board.height()}, board.columns * cell,
                      board.rows * cell);
}

Ref<Picture> thumbnailPicture(const Window1& window, int size)
{
    const auto& page = *window.myImage;
    const double factor = size / static_cast<double>(Window1::longSide);
    const auto pixels = [&](std::int64_t side) { return std::max<std::int64_t>(1, std::llround(side * factor)); };
    return partOfPage(page, {0, 0, page.Width(), page.Height()}, pixels(page.Width()), pixels(page.Height()));
}

std::string pictureFileName(const std::string& documentName)
{
    return baseName(documentName) + ".png";
}

std::vector<std::string> seriesFileNames(const std::string& documentName)
{
    std::vector<std::string> names;
    for (const auto& step : series)
        names.push_back(seriesName(documentName, step));
    return names;
}

void Window1::mSavePicture()
{
    savePageAs(*this, pictureFileName(mySavedFileName));
}

bool Window1::_mnuSavePicture_Action()
{
    mSavePicture();
    return true;
}

void inVersions(Window1& window, const std::function<void(const ComposeVersion& compose)>& work)
{
    const bool showMarkers = window.cbShowDMObjects.Value;
    const auto colorMode = window.pmColorBW.ListIndex.get();
    const auto background = window.pmBackground.ListIndex.get();
    const bool showClickable = window.cbShowClickable.Value;
    const bool dirty = window.isDirty;
    const auto visibleLayers = window.pmVisibleLayers.ListIndex.get();
    Module1::gSkipWallColor = false;

    const auto compose = [&](const PageVersion& version) {
        Module1::gSkipWallColor = version.blackAndWhite;
        window.cbShowDMObjects.Value = version.showMarkers;
        window.pmBackground.ListIndex = version.blackAndWhite ? Background::White : background;
        window.pmColorBW.ListIndex = version.blackAndWhite ? blackAndWhite : colorMode;
        window.RenderMap(true);
    };
    // What the person had comes back even when a picture cannot be written.
    window.putAside = {window.Snapshot(window.UserPicture), dirty};
    const auto restore = [&] {
        Module1::gSkipWallColor = false;
        window.cbShowDMObjects.Value = showMarkers;
        window.pmColorBW.ListIndex = colorMode;
        window.pmBackground.ListIndex = background;
        window.cbShowClickable.Value = showClickable;
        window.isDirty = dirty;
        window.pmVisibleLayers.ListIndex = visibleLayers;
        window.putAside.reset();
        window.RenderMap(true);
    };

    try {
        window.pmVisibleLayers.ListIndex = VisibleLayers::All;
        window.cbShowDMObjects.Value = false;
        window.cbShowClickable.Value = false;
        work(compose);
    } catch (...) {
        restore();
        throw;
    }
    restore();
}

bool Window1::_mnuExportPictureSeries_Action()
{
    inVersions(*this, [this](const ComposeVersion& compose) {
        for (const auto& step : series) {
            compose(step.version);
            savePageAs(*this, seriesName(mySavedFileName, step));
        }
    });
    return true;
}

Ref<Picture> Window1::RotatePict90(const Ref<Picture>& src)
{
    PixmapShape shape(src);
    shape.Rotation = quarterTurn;
    auto out = New<Picture>(src->Height(), src->Width(), 32);
    auto& g = out->Graphics();
    g.DrawObject(shape, g.Width() / 2, g.Height() / 2);
    return out;
}

} // namespace quorrin
