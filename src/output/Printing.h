#pragma once

#include "toolkit/Text.h"

#include <functional>
#include <string>
#include <vector>

namespace quorrin {

class Graphics;
class cScript;

/// What can be printed of a map.
enum class Print { Map, Script, Sheet };

/// The title of a print, and the name of its file without the extension: "NAME Map", or "Map" without a name.
std::string printTitle(const std::string& documentName, Print what);

/// Whether a picture goes on a page as it is, rather than turned by a quarter. The page is in points, `width` of the
/// picture in its own pixels; a pixel counts as a point.
bool staysUpright(double pageWidth, double pageHeight, double width);

/// A piece of the script that is drawn at once, each of its lines followed by a carriage return.
struct ScriptPage {
    std::string text;
    /// Whether a new page begins before it.
    bool afterNextPage = false;

    friend bool operator==(const ScriptPage&, const ScriptPage&) = default;
};

/// Lays a script out on pages and draws it.
void printScript(Graphics& g, const cScript& script);

/// Divides a script into pages of at most `limit` in height. `height` measures a text as it will be wrapped.
std::vector<ScriptPage> scriptPages(const TextList& lines, double limit,
                                    const std::function<double(const std::string&)>& height);

} // namespace quorrin
