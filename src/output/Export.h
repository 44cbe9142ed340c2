#pragma once

#include "toolkit/Picture.h"

#include <functional>
#include <string>
#include <vector>

namespace quorrin {

class Window1;

/// The file name that is proposed for the current picture of a document; its name may be empty.
std::string pictureFileName(const std::string& documentName);

/// The file names of the picture set, in the order of their making.
std::vector<std::string> seriesFileNames(const std::string& documentName);

/// A version of the page. A black and white one lies on white, with the walls in black.
struct PageVersion {
    bool showMarkers = false;
    bool blackAndWhite = false;
};
using ComposeVersion = std::function<void(const PageVersion& version)>;

/// Lets `work` compose the page in any versions, all with every layer and without clickable regions. What the person
/// had comes back at the end, whatever happens.
void inVersions(Window1& window, const std::function<void(const ComposeVersion& compose)>& work);

/// The squares of the page, cut out, with `cell` pixels a square.
Ref<Picture> boardPicture(const Window1& window, int cell);

/// The page as a small picture, at most `size` pixels wide and high.
Ref<Picture> thumbnailPicture(const Window1& window, int size);

} // namespace quorrin
