#include "output/Printing.h"

#include "Fixture.h"
#include "Pdf.h"

#include "toolkit/Graphics.h"
#include "toolkit/Printing.h"

#include <algorithm>
#include <cmath>

using namespace quorrin;

TEST(ScriptPaging, OverlapsByALine)
{
    const std::tuple<const char*, double, std::vector<ScriptPage>> cases[] = {
        {"a,b,c", 30, {{"a\rb\rc\r", false}}},
        {"a,b,c", 20, {{"a\rb\r", false}, {"b\rc\r", true}}},
        {"a,b,c,d,e", 30, {{"a\rb\rc\r", false}, {"c\rd\re\r", true}}},
        {"a,b,c,d,e,f", 30, {{"a\rb\rc\r", false}, {"c\rd\re\r", true}, {"e\rf\r", true}}},
        // A first page of one line keeps the start at 0, and the next lies over it.
        {"a,b,c", 10, {{"a\r", false}, {"a\rb\r", false}, {"b\rc\r", true}}},
        // A line that no page holds is drawn all the same.
        {"a,b,LONG,c", 20, {{"a\rb\r", false}, {"b\rLONG\r", true}, {"LONG\rc\r", true}}},
        {"a,b", 5, {{"", false}, {"a\r", false}, {"a\rb\r", false}}},
        {"", 30, {}},
    };
    for (const auto& [lines, limit, expected] : cases) {
        const auto height = [](const std::string& text) {
            return 10.0 * static_cast<double>(std::ranges::count(text, '\r') + 3 * std::ranges::count(text, 'L'));
        };
        EXPECT_EQ(scriptPages(Split(lines, ","), limit, height), expected) << lines << " within " << limit;
    }
}

namespace {

/// Everything is printed into one file.
class Printing : public Program {
protected:
    Printing()
    {
        Module1::myPrinterSetup = New<PrinterSetup>();
        person.printer = [this](const PrinterSetup& setup) { return printToPdf(file->Path(), setup, copies); };
    }

    /// The point of the page, from its corner, where a place of a picture of this size is printed.
    static std::pair<int, int> printedPlace(double x, double y, double width, double height, bool turned, double left,
                                            double top, double areaWidth, double areaHeight)
    {
        if (turned)
            std::tie(x, y, width, height) = std::tuple(height - y, x, height, width);
        return {static_cast<int>(left + x * areaWidth / width), static_cast<int>(top + y * areaHeight / height)};
    }

    Ref<FolderItem> file = folder.file("print.pdf");
    int copies = 1;
};

} // namespace

TEST_F(Printing, HasThePrintableAreaOfTheSetup)
{
    const std::tuple<const char*, double, double> cases[] = {
        {"", 595 - 56, 842 - 56},
        {"paper=Letter;orientation=landscape;margins=0,0,0,0", 792, 612},
        {"paper=Letter;margins=10,20,30,40", 612 - 40, 792 - 60},
        {"paper=Custom.Odd;size=300x400;margins=0,0,0,0", 300, 400},
        // What makes no sense is passed over, and what does still counts.
        {"paper=A4;margins=400,0,400,0", 595 - 56, 842 - 56},
        {"size=nanxinf;margins=-5,0,0,0;;=;====;paper=A5", 420 - 56, 595 - 56},
        {"\xff\xfe<xml>%1", 595 - 56, 842 - 56},
    };
    for (const auto& [setup, width, height] : cases) {
        const auto area = printToPdf(file->Path(), {setup}, 1);
        EXPECT_NEAR(area->Width(), width, 1) << setup;
        EXPECT_NEAR(area->Height(), height, 1) << setup;
    }
}

TEST_F(Printing, AppearsWholeAtTheEndOrNotAtAll)
{
    writeFile(file->Path(), "old");
    auto print = printToPdf(file->Path(), {"paper=A4;orientation=landscape"}, 2);
    print->NextPage();
    EXPECT_EQ(contentOf(file->Path()), "old");
    print = nullptr;
    EXPECT_EQ(pagesOf(file->Path()).size(), 2u);
    EXPECT_THROW(printToPdf(folder / "no/such.pdf", {}, 1), IOException);
    EXPECT_FALSE(folder.file("no")->Exists());
}

TEST_F(Printing, PrintsEachCopyOfTheMapStretchedOverItsPage)
{
    window.mySquares(1, 1)->Wall =
        New<cWall>(true, false, false, false, false, false, false, false, false, false, RGB(255, 0, 0));
    // Setup; orientation of the map; whether it is turned; the printable area: left, top, width, height.
    const std::tuple<const char*, int, bool, double, double, double, double> cases[] = {
        {"paper=Letter;orientation=landscape;margins=30,20,60,40", 0, false, 30, 20, 702, 552},
        {"paper=Letter;margins=30,20,60,40", 0, true, 30, 20, 522, 732},
        {"paper=Letter;orientation=landscape;margins=30,5,10,5", 1, true, 30, 5, 752, 602},
        {"paper=Letter", 1, true, 28, 28, 612 - 56, 792 - 56}};
    for (const auto& [setup, orientation, turned, left, top, width, height] : cases) {
        SCOPED_TRACE(setup);
        copies = orientation == 0 ? 3 : 1;
        Module1::myPrinterSetup->SetupString = setup;
        window.pmLandscape.ListIndex = orientation;
        window.pmBackground.ListIndex = 1;
        window.isDirty = false;
        const auto page = window.myImage;
        EXPECT_TRUE(window.ChooseMenu("mnuPrint"));
        EXPECT_TRUE(window.myImage == page);
        EXPECT_FALSE(window.isDirty);
        const auto printed = pagesOf(file->Path());
        ASSERT_EQ(printed.size(), static_cast<std::size_t>(copies));
        const auto [wallX, wallY] = printedPlace(orientation ? 70 : 39, orientation ? 9.5 : 44.5, page->Width(),
                                                 page->Height(), turned, left, top, width, height);
        for (const auto& one : printed) {
            EXPECT_EQ(pixelOf(one, wallX, wallY), RGB(255, 0, 0));
            EXPECT_EQ(pixelOf(one, std::lround(left) + 2, std::lround(top + height) - 3), RGB(200, 200, 200));
            EXPECT_EQ(pixelOf(one, std::lround(left) - 3, 200), white) << "the margin";
            EXPECT_EQ(pixelOf(one, std::lround(left + width) + 2, 200), white) << "the margin";
        }
    }
    EXPECT_EQ(person.proposedNames.back(), "Map");
}

TEST_F(Printing, TurnsTheSheetOnEveryPageAndKeepsItsPhotographsWhole)
{
    const auto photograph = New<Picture>(600, 1000, 32);
    photograph->Graphics().ForeColor = RGB(0, 0, 255);
    photograph->Graphics().FillRect(0, 0, 600, 500);
    for (int i = 1; i <= 20; ++i) {
        window.myCharacters(i)->IconData = photograph->ToData(PictureFormat::Png, 100);
        window.myCharacters(i)->LoadIcon();
    }
    copies = 2;
    window.myCharacters(5)->Number = 42;
    window.mySavedFileName = "Den";
    for (const auto* setup : {"paper=A4;margins=28,28,28,28", "paper=A4;orientation=landscape"}) {
        SCOPED_TRACE(setup);
        Module1::myPrinterSetup->SetupString = setup;
        window.btnPrintCharacters.Push();
        const auto printed = pagesOf(file->Path());
        ASSERT_EQ(printed.size(), 2u);
        const bool upright = printed[0]->Height() > printed[0]->Width();
        const double width = (upright ? 595 : 842) - 56, height = (upright ? 842 : 595) - 56;
        // The upper half of the lower figure of the first token, its lower half, and the upper half of the upper one.
        for (const auto& [y, blue] : {std::pair{170, true}, {240, false}, {50, false}, {120, true}}) {
            const auto [x, row] = printedPlace(65, y, 756, 576, true, 28, 28, width, height);
            EXPECT_NEAR(pixelOf(printed[1], x, row).red, blue ? 0 : 255, 2) << y;
        }
    }
    EXPECT_NE(outputOf("pdftotext '" + file->Path() + "' -").find("42"), std::string::npos);
    const auto images = imagesOf(file->Path());
    ASSERT_EQ(images.size(), 80u) << "two figures of twenty tokens on two pages";
    for (const auto& image : images)
        EXPECT_EQ(std::pair(image.width, image.height), std::pair(600, 1000));
    EXPECT_EQ(person.proposedNames.back(), "Den Character Sheet");
}

TEST_F(Printing, WrapsTheScriptAndLeavesItsMarginsFree)
{
    const auto words = [this](const std::string& options) {
        return outputOf("pdftotext " + options + " '" + file->Path() + "' -");
    };
    Module1::myPrinterSetup->SetupString = "paper=A4;margins=28,28,28,28";
    std::string text;
    for (int line = 1; line <= 150; ++line)
        text += "Line " + std::to_string(line) + ".\n";
    for (int word = 1; word <= 500; ++word)
        text += "and " + std::to_string(word) + " ";
    window.txtGameText.Text = text + "end";
    copies = 3; // of which the script has its own idea
    window.btnPrint.Push();
    EXPECT_EQ(pagesOf(file->Path()).size(), 4u);
    // The first page begins with "Monster:", an empty line and "Game Text:", and ends 10 points above its margin.
    const double height = New<Picture>(9, 9)->Graphics().StringHeight("x", 0);
    const auto last = static_cast<int>((842 - 56 - 10) / height) - 3;
    EXPECT_NE(words("-l 1").find("Line " + std::to_string(last) + "."), std::string::npos);
    EXPECT_EQ(words("-l 1").find("Line " + std::to_string(last + 1) + "."), std::string::npos);
    EXPECT_NE(words("-f 2").find("Line " + std::to_string(last) + "."), std::string::npos) << "it stands again";
    EXPECT_NE(words("").find("end"), std::string::npos);
    const auto ends = words("-bbox") + "xMax=\"";
    double widest = 0;
    for (auto at = ends.find("xMax=\""); at + 6 < ends.size(); at = ends.find("xMax=\"", at + 6))
        widest = std::max(widest, std::stod(ends.substr(at + 6)));
    EXPECT_NEAR(widest, 595 - 28 - 3 - 10, 10);
}

TEST_F(Printing, AsksForThePageSetupFirstAndStopsWhenCancelled)
{
    int setups = 0;
    person.pageSetup = [&](PrinterSetup& setup) {
        EXPECT_EQ(setup.ProposesLandscape, window.pmLandscape.ListIndex == 0);
        return ++setups, false;
    };
    Module1::myPrinterSetup = nullptr;
    person.printer = nullptr;
    window.ChooseMenu("mnuPrint");
    window.btnPrint.Push();
    window.btnPrintCharacters.Push();
    EXPECT_EQ(setups, 1);
    EXPECT_EQ(person.proposedNames, (std::vector<std::string>{"Map", "Script", "Character Sheet"}));
    window.pmLandscape.ListIndex = 1;
    window.ChooseMenu("mnPageSetup");
    EXPECT_EQ(setups, 2);
}
