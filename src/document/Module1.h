#pragma once

#include "toolkit/Color.h"
#include "toolkit/Ref.h"

#include <string>

namespace quorrin {

class FolderItem;
class Picture;
class cCharacter;
class iniClass;
struct PrinterSetup;

/// The globals that the program's parts share, and the few functions that belong to none of them.
namespace Module1 {

/// The mark that ends a field of a map file; set once when the application opens.
extern std::string sep;
/// The file that the system handed over at launch.
extern Ref<FolderItem> gOpenFile;
/// The preferences.
extern Ref<iniClass> myINI;
/// The page setup of all prints; nil until there was one.
extern Ref<PrinterSetup> myPrinterSetup;
/// The drawing on its way into the user picture editor and out of it; nil after a cancel.
extern Ref<Picture> gPicture;
/// The map as it shows under that drawing.
extern Ref<Picture> pMain;
/// The token in the character editor.
extern Ref<cCharacter> useThisCharacter;
/// All walls are drawn black while this is set.
extern bool gSkipWallColor;

/// Shows the page-setup dialog and keeps what was chosen, across runs too.
/// At first it proposes this orientation.
void ShowPageSetup(bool landscape = true); // src/app
/// Opens a page of the help beside the program, or else the first page of the installed one, in the system's browser.
void OpenThisHelpFile(const std::string& fileName); // src/app
/// Opens that very page wherever the help is.
void OpenHelpPage(const std::string& fileName); // src/app
/// The colour as the hexadecimal number RRGGBB with no leading zeros.
std::string Color2HexString(Color color); // SquareText.cpp
/// The colour of a hexadecimal text; of a longer number the lowest six digits.
Color ColorFromHexString(const std::string& text); // SquareText.cpp

} // namespace Module1

} // namespace quorrin
