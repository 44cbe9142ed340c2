#include "output/Printing.h"

#include "Fixture.h"

#include "app/Module1.h"
#include "toolkit/Printing.h"

#include <algorithm>

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
        person.printer = [this](const PrinterSetup& setup) {
            ++printers;
            return printToPdf(file->Path(), setup, copies);
        };
    }
    ~Printing() override { Module1::myPrinterSetup = nullptr; }

    static int count(const std::string& text, const std::string& wanted)
    {
        int found = 0;
        for (auto at = text.find(wanted); at != text.npos; at = text.find(wanted, at + 1))
            ++found;
        return found;
    }
    /// The pages of the print just made.
    int pages() const { return count(pdf(), "/Type /Page\n"); }
    std::string pdf() const { return contentOf(file->Path()); }

    Ref<FolderItem> file = folder.file("print.pdf");
    int copies = 1;
    int printers = 0;
};

} // namespace

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
            EXPECT_EQ(count(pdf(), "/Width " + std::to_string(printedWidth)), 1) << setup;
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
        EXPECT_EQ(count(pdf(), "/Width 576"), 1) << setup;
        EXPECT_EQ(count(pdf(), "/Height 756"), 1) << setup;
    }
}

TEST_F(Printing, PrintsOneSetOfTheScript)
{
    copies = 3;
    window.btnPrint.Push();
    EXPECT_EQ(pages(), 1);
    for (int line = 0; line < 120; ++line)
        window.myScript->GamtText += "A door creaks.\n";
    window.btnPrint.Push();
    EXPECT_EQ(pages(), 3);
}

TEST_F(Printing, AsksForThePageSetupFirst)
{
    int setups = 0;
    person.pageSetup = [&](PrinterSetup&) {
        EXPECT_EQ(printers, setups * 2);
        ++setups;
        return false;
    };
    Module1::myPrinterSetup = nullptr;
    window.ChooseMenu("mnuPrint");
    EXPECT_EQ(setups, 1);
    EXPECT_EQ(printers, 1);
    window.btnPrint.Push();
    EXPECT_EQ(setups, 1);
    EXPECT_EQ(printers, 2);
    window.ChooseMenu("mnPageSetup");
    EXPECT_EQ(setups, 2);
}

TEST_F(Printing, StopsWhenCancelled)
{
    person.printer = nullptr;
    window.ChooseMenu("mnuPrint");
    window.btnPrint.Push();
    window.btnPrintCharacters.Push();
    EXPECT_FALSE(file->Exists());
    EXPECT_TRUE(person.messages.empty());
}
