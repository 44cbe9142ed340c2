#include "output/Export.h"

#include "app/Module1.h"
#include "document/FileTypes1.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

#include <algorithm>

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
    {FileTypes1::PngPicture, 1},
    {FileTypes1::SharpPngPicture, 4},
};

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
    const int scale = std::max(window.exportScale, pictureKinds[chosen].scale);
    const auto picture = scale == 1 ? window.myImage : window.myImage->Enlarged(scale);
    picture->Save(file, PictureFormat::Png, bestQuality);
}

/// One picture of the series. Black and white ones lie on white, with the walls in black.
struct SeriesStep {
    const char* suffix;
    bool showMarkers;
    bool blackAndWhite;
};
constexpr SeriesStep series[] = {
    {" Color", false, false},
    {" DM Color", true, false},
    {" BW", false, true},
    {" DM BW", true, true},
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

bool Window1::_mnuExportPictureSeries_Action()
{
    const bool showMarkers = cbShowDMObjects.Value;
    const auto colorMode = pmColorBW.ListIndex.get();
    const auto background = pmBackground.ListIndex.get();
    const bool showClickable = cbShowClickable.Value;
    const bool dirty = isDirty;
    const auto visibleLayers = pmVisibleLayers.ListIndex.get();
    Module1::gSkipWallColor = false;

    // What the person had comes back even when a picture cannot be written.
    putAside = {Snapshot(UserPicture), dirty};
    const auto restore = [&] {
        Module1::gSkipWallColor = false;
        cbShowDMObjects.Value = showMarkers;
        pmColorBW.ListIndex = colorMode;
        pmBackground.ListIndex = background;
        cbShowClickable.Value = showClickable;
        isDirty = dirty;
        pmVisibleLayers.ListIndex = visibleLayers;
        putAside.reset();
        RenderMap(true);
    };

    try {
        pmVisibleLayers.ListIndex = 0;
        cbShowDMObjects.Value = false;
        cbShowClickable.Value = false;
        for (const auto& step : series) {
            Module1::gSkipWallColor = step.blackAndWhite;
            cbShowDMObjects.Value = step.showMarkers;
            pmBackground.ListIndex = step.blackAndWhite ? 0 : background;
            pmColorBW.ListIndex = step.blackAndWhite ? blackAndWhite : colorMode;
            RenderMap(true);
            savePageAs(*this, seriesName(mySavedFileName, step));
        }
    } catch (...) {
        restore();
        throw;
    }
    restore();
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
