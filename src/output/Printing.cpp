#include "output/Printing.h"

#include "characters/Roster.h"
#include "document/Module1.h"
#include "document/Window1.h"
#include "toolkit/Platform.h"
#include "toolkit/Text.h"

namespace quorrin {

namespace {

/// The pages that a person chose to print on, nil when cancelled. The first print of all asks for the page setup, too.
std::unique_ptr<Graphics> openPrinter(Window1& window, Print what)
{
    if (!Module1::myPrinterSetup)
        Module1::ShowPageSetup(!window.isPortrait());
    return OpenPrinterDialog(Module1::myPrinterSetup, window, printTitle(window.mySavedFileName, what));
}

/// Stretches the picture over the whole page, once for each copy. `turningWidth` is what the turning test looks at.
void printPicture(Graphics& g, const Ref<Picture>& picture, std::int64_t turningWidth)
{
    const bool upright = staysUpright(g.Width(), g.Height(), static_cast<double>(turningWidth));
    const auto shown = upright ? picture : Window1::RotatePict90(picture);
    for (int copy = 1; copy <= g.Copies; ++copy) {
        g.DrawPicture(shown, 0, 0, g.Width(), g.Height(), 0, 0, static_cast<double>(shown->Width()),
                      static_cast<double>(shown->Height()));
        if (copy < g.Copies)
            g.NextPage();
    }
}

} // namespace

std::string printTitle(const std::string& documentName, Print what)
{
    switch (what) {
    case Print::Map:
        return Trim(documentName + " Map");
    case Print::Script:
        return Trim(documentName + " Script");
    case Print::Sheet:
        return Trim(documentName + " Character Sheet");
    }
    return {};
}

/// A portrait map is turned on a portrait page, too, and stretched back over it; kept for compatibility with existing
/// maps.
bool staysUpright(double pageWidth, double pageHeight, double width)
{
    return pageHeight < pageWidth && pageHeight < width;
}

bool Window1::_mnPageSetup_Action()
{
    Module1::ShowPageSetup(!isPortrait());
    return true;
}

bool Window1::_mnuPrint_Action()
{
    if (!myImage)
        return true;
    if (const auto g = openPrinter(*this, Print::Map))
        printPicture(*g, myImage, myImage->Width());
    return true;
}

void Window1::btnPrint_Action()
{
    if (const auto g = openPrinter(*this, Print::Script))
        PrintText(*g);
}

void Window1::PrintText(Graphics& g)
{
    printScript(g, *myScript);
}

void Window1::btnPrintCharacters_Action()
{
    const auto sheet = New<Picture>(cvCharacters.Width, cvCharacters.Height);
    drawRoster(*this, sheet->Graphics());
    // The test has always looked at a token and not at the sheet, so that every real page gets the sheet turned.
    if (const auto g = openPrinter(*this, Print::Sheet))
        printPicture(*g, sheet, tokenWidth);
}

} // namespace quorrin
