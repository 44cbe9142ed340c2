#include "toolkit/Text.h"
#include "toolkit/Errors.h"
#include "toolkit/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quorrin;

namespace {
constexpr auto most = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();
} // namespace

TEST(Text, NumbersAtTheStartOfATextAreCutAndSaturated)
{
    const std::pair<const char*, std::int64_t> cases[] = {
        // clang-format off
        {"", 0}, {"abc", 0}, {"12", 12}, {"  12.9x", 12}, {"-3.7", -3}, {"+4", 4}, {".5e1", 5}, {"-", 0}, {"inf", 0},
        {"nan", 0}, {"1e999", most}, {"-1e999", least}, {"1e-999", 0}, {"1e19", most},
        {"-9223372036854775809", least}, {"&h1F", 31}, {"&HffFFff", 0xFFFFFF}, {"&hxyz", 0}, {"&h-5", 0},
        {"&hFFFFFFFFFFFFFFFFFF", most}, {"0x10", 0}, {"1,2", 1}, {"\r\n 7", 7}, {"--1", 0}
        // clang-format on
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(Int(Val(text)), number) << text;
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(Int(Val("1" + std::string(400, '0') + "e-10")), most);
    EXPECT_EQ(addSaturated(most, 60), most);
    EXPECT_EQ(addSaturated(least, -60), least);
    EXPECT_EQ(addSaturated(most, -60), most - 60);
}

TEST(Text, SplitKeepsEmptyPartsAndRefusesAnIndexBeyond)
{
    EXPECT_EQ(Split("", ",").UBound(), -1);
    EXPECT_EQ(Split("abc", "")(0) + ReplaceAll("abc", "", "x"), "abcabc");
    EXPECT_EQ(Split("a,b,c", ",", 2).UBound(), 1);
    const auto parts = Split("a,,b,", ",");
    EXPECT_EQ(parts.UBound(), 3);
    EXPECT_EQ(parts(2) + parts(3), "b");
    for (const int beyond : {-1, 4})
        EXPECT_THROW(parts(beyond), OutOfBoundsException);
}

TEST(Text, Base64BreaksLinesAndReadsAnyBreak)
{
    std::string bytes;
    for (int n = 0; n < 300; ++n)
        bytes += static_cast<char>(n);
    const auto lines = EncodeBase64(bytes, 76);
    EXPECT_EQ(lines.find("\r\n"), 76u);
    for (const auto* lineEnd : {"\r\n", "\r", "\n"})
        EXPECT_EQ(DecodeBase64(ReplaceAll(lines, "\r\n", lineEnd)), bytes);
    EXPECT_EQ(EncodeBase64(std::string(57, 'x'), 76).size(), 76u);
}
