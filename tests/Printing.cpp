#include "output/Printing.h"

#include "Fixture.h"

#include "toolkit/Printing.h"

#include <algorithm>
#include <regex>

using namespace quorrin;

TEST(PrintTurning, TurnsAllButLandscapeOnLandscape)
{
    const std::tuple<double, double, double, bool> cases[] = {
        {792, 612, 756, true},  {612, 792, 756, false},  {792, 612, 576, false}, {792, 575, 576, true},
        {612, 792, 576, false}, {792, 576, 576, false},  {842, 595, 60, false},  {842, 59, 60, true},
        {700, 700, 756, false}, {1000, 756, 756, false},
    };
    for (const auto& [pageWidth, pageHeight, width, upright] : cases)
        EXPECT_EQ(staysUpright(pageWidth, pageHeight, width), upright) << pageWidth << ", " << pageHeight;
}

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

    /// How often something stands in the print just made.
    std::ptrdiff_t count(const std::string& pattern) const
    {
        const auto pdf = contentOf(file->Path());
        const std::regex wanted(pattern);
        return std::distance(std::sregex_iterator(pdf.begin(), pdf.end(), wanted), {});
    }
    std::ptrdiff_t pages() const { return count("/Type /Page\\s"); }

    Ref<FolderItem> file = folder.file("print.pdf");
    int copies = 1;
};

} // namespace

TEST_F(Printing, HasThePrintableAreaOfTheSetup)
{
    const std::tuple<const char*, double, double> cases[] = {
        {"", 595 - 56, 842 - 56},
        {"paper=A4;orientation=landscape", 842 - 56, 595 - 56},
        {"paper=Letter;orientation=landscape;margins=0,0,0,0", 792, 612},
        {"paper=Letter;margins=10,20,30,40", 612 - 40, 792 - 60},
        {"paper=Custom.Odd;size=300x400;margins=0,0,0,0", 300, 400},
        // What makes no sense is passed over, and what does still counts.
        {"paper=Nothing;size=0x1e999;orientation=sideways;margins=1,2,3", 595 - 56, 842 - 56},
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
    EXPECT_EQ(pages(), 2);
    EXPECT_THROW(printToPdf(folder / "no/such.pdf", {}, 1), IOException);
    EXPECT_FALSE(folder.file("no")->Exists());
}

TEST_F(Printing, PrintsEachCopyOfTheMapOnAPage)
{
    const std::tuple<const char*, int, int> cases[] = {
        {"paper=Letter;orientation=landscape;margins=30,20,30,20", 0, 756},
        {"paper=Letter", 0, 576},
        {"paper=Letter;orientation=landscape;margins=30,5,30,5", 1, 756},
        {"paper=Letter", 1, 756}};
    for (const auto& [setup, orientation, printedWidth] : cases) {
        for (const int wanted : {1, 3}) {
            copies = wanted;
            Module1::myPrinterSetup->SetupString = setup;
            window.pmLandscape.ListIndex = orientation;
            window.isDirty = false;
            const auto page = window.myImage;
            EXPECT_TRUE(window.ChooseMenu("mnuPrint"));
            EXPECT_EQ(pages(), wanted) << setup;
            EXPECT_EQ(count("/Width " + std::to_string(printedWidth)), 1) << setup;
            EXPECT_TRUE(window.myImage == page);
            EXPECT_FALSE(window.isDirty);
        }
    }
}

TEST_F(Printing, TurnsTheSheetOnEveryPage)
{
    copies = 2;
    for (const auto* setup : {"paper=A4", "paper=A4;orientation=landscape"}) {
        Module1::myPrinterSetup->SetupString = setup;
        window.btnPrintCharacters.Push();
        EXPECT_EQ(pages(), 2);
        EXPECT_EQ(count("/Width 576"), 1) << setup;
        EXPECT_EQ(count("/Height 756"), 1) << setup;
    }
}

TEST_F(Printing, AsksForThePageSetupFirstAndStopsWhenCancelled)
{
    int setups = 0, printers = 0;
    person.pageSetup = [&](PrinterSetup& setup) {
        EXPECT_EQ(setup.ProposesLandscape, window.pmLandscape.ListIndex == 0);
        return ++setups, false;
    };
    Module1::myPrinterSetup = nullptr;
    person.printer = [&](const PrinterSetup&) {
        EXPECT_EQ(setups, 1);
        return printers++, nullptr;
    };
    window.ChooseMenu("mnuPrint");
    window.btnPrint.Push();
    window.btnPrintCharacters.Push();
    EXPECT_EQ(printers, 3);
    EXPECT_TRUE(person.messages.empty());
    window.pmLandscape.ListIndex = 1;
    window.ChooseMenu("mnPageSetup");
    EXPECT_EQ(setups, 2);
}
