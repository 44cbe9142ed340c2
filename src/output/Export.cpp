#include "app/Module1.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

namespace quorrin {

namespace {

constexpr int bestQuality = 100;

/// The constant of a quarter turn; it differs from the exact one by far less than a pixel.
constexpr double quarterTurn = 1.570795;

/// "Quorrin Map", and the document's name after a blank when it has one.
std::string pictureName(const Window1& window)
{
    const auto name = Trim(window.mySavedFileName);
    return name.empty() ? "Quorrin Map" : "Quorrin Map " + name;
}

/// Asks for a file and writes the page to it; nothing happens when the person cancels.
void savePageAs(Window1& window, const std::string& name)
{
    if (const auto file = GetSaveFolderItem({}, name + ".png"))
        window.myImage->Save(file, PictureFormat::Png, bestQuality);
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

} // namespace

void Window1::mSavePicture()
{
    savePageAs(*this, pictureName(*this));
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
    const auto restore = [&] {
        Module1::gSkipWallColor = false;
        cbShowDMObjects.Value = showMarkers;
        pmColorBW.ListIndex = colorMode;
        pmBackground.ListIndex = background;
        cbShowClickable.Value = showClickable;
        isDirty = dirty;
        pmVisibleLayers.ListIndex = visibleLayers;
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
            pmColorBW.ListIndex = step.blackAndWhite ? 2 : colorMode;
            RenderMap(true);
            savePageAs(*this, pictureName(*this) + step.suffix);
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
