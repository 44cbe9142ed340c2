#include "toolkit/Printing.h"

#include "toolkit/Errors.h"
#include "toolkit/Platform.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

using namespace quorrin;

namespace {

class PdfPages : public testing::Test {
protected:
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "quorrin-pdf-pages";
    const std::filesystem::path file = folder / "map.pdf";

    void SetUp() override { std::filesystem::create_directories(folder); }
    void TearDown() override
    {
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
        std::filesystem::remove_all(folder);
    }

    std::string bytes() const
    {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    static std::ptrdiff_t count(const std::string& text, const std::string& pattern)
    {
        const std::regex wanted(pattern);
        return std::distance(std::sregex_iterator(text.begin(), text.end(), wanted), {});
    }
};

} // namespace

TEST_F(PdfPages, HaveThePrintableAreaOfTheSetup)
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
        const auto pages = printToPdf(file.string(), {setup}, 1);
        EXPECT_NEAR(pages->Width(), width, 1) << setup;
        EXPECT_NEAR(pages->Height(), height, 1) << setup;
    }
}

TEST_F(PdfPages, AppearWholeAtTheEnd)
{
    std::ofstream(file) << "old";
    {
        const auto pages = printToPdf(file.string(), {"paper=A4;orientation=landscape"}, 3);
        EXPECT_EQ(pages->Copies, 3);
        for (int page = 0; page < 3; ++page) {
            if (page > 0)
                pages->NextPage();
            pages->FillRect(72, 36, 144, 72);
        }
        EXPECT_EQ(bytes(), "old");
    }
    const auto pdf = bytes();
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    EXPECT_EQ(count(pdf, "/Type /Page\\s"), 3);
    EXPECT_EQ(count(pdf, "/MediaBox \\[0 0 84[12](\\.\\d+)? 59[56]"), 3);
}

TEST_F(PdfPages, ThatCannotBeWrittenLeaveNothing)
{
    EXPECT_THROW(printToPdf((folder / "no" / "such.pdf").string(), {}, 1), IOException);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}
