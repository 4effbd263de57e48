#include "TextWriter.h"

#include "RadioChannel.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <locale>
#include <random>
#include <string>

namespace zyr_top_api
{
namespace
{

TEST(TextWriterTest, WhatIsWrittenSoFarCanBeSeenAtAnyTime)
{
    TextWriter writer;
    EXPECT_EQ(writer.view(), "");
    EXPECT_EQ(writer.string(), "");
    writer << "before";
    EXPECT_EQ(writer.view(), "before");
    writer << " after";
    EXPECT_EQ(writer.view(), "before after");
    EXPECT_EQ(writer.string(), "before after");
}

// Pieces of all kinds, of all lengths round the ends of what the writer has room for.
TEST(TextWriterTest, TextIsWholeHoweverLongItIs)
{
    for (std::size_t length = 1900; length < 4200; ++length) {
        const std::string front(length, 'x');
        const std::string text = written([&](TextWriter& writer) {
            writer << front << std::numeric_limits<std::int64_t>::min() << "|" << 1.5 << "|";
            writer.raw('r').hex(0xABC).word(true) << false << std::int16_t{-7} << std::string(60, 'y')
                                                  << std::numeric_limits<std::uint64_t>::max();
        });
        ASSERT_EQ(text, front + "-9223372036854775808|1.5|rabctrue0-7" + std::string(60, 'y') +
                            "18446744073709551615");
    }
}

// Each kind alone, since the room that one asks for may serve the next as well.
TEST(TextWriterTest, EveryKindOfPieceFindsRoomWhereTheWriterIsFull)
{
    struct Piece
    {
        void (*write)(TextWriter& writer);
        const char* text;
    };
    for (const Piece& piece : {
             Piece{[](TextWriter& writer) { writer << "text"; }, "text"},
             Piece{[](TextWriter& writer) { writer << true; }, "1"},
             Piece{[](TextWriter& writer) { writer << -1.23457e-308; }, "-1.23457e-308"},
             Piece{[](TextWriter& writer) { writer << std::int16_t{-32768}; }, "-32768"},
             Piece{[](TextWriter& writer) { writer << std::uint16_t{65535}; }, "65535"},
             Piece{[](TextWriter& writer) { writer << std::int32_t{-2147483647}; }, "-2147483647"},
             Piece{[](TextWriter& writer) { writer << std::uint32_t{4294967295}; }, "4294967295"},
             Piece{[](TextWriter& writer) { writer << std::int64_t{-9223372036854775807}; },
                   "-9223372036854775807"},
             Piece{[](TextWriter& writer) { writer << std::uint64_t{18446744073709551615U}; },
                   "18446744073709551615"},
             Piece{[](TextWriter& writer) { writer.raw('r'); }, "r"},
             Piece{[](TextWriter& writer) { writer.hex(0xABCDEF01U); }, "abcdef01"},
             Piece{[](TextWriter& writer) { writer.word(false); }, "false"},
         }) {
        for (std::size_t length = 1970; length <= 2000; ++length) {
            const std::string front(length, 'x');
            const std::string text = written([&](TextWriter& writer) {
                writer << front;
                piece.write(writer);
            });
            ASSERT_EQ(text, front + piece.text);
        }
    }
}

TEST(TextWriterTest, OnePieceMayBeLongerThanAnyUsualText)
{
    const std::string piece(100'000, 'x');
    EXPECT_EQ(written([&](TextWriter& writer) { writer << piece << piece << "end"; }), piece + piece + "end");
}

TEST(TextWriterTest, TextsOfAllKindsAreWrittenAsTheyAre)
{
    const std::string whole("a\0b", 3);
    const std::string text = written([&](TextWriter& writer) {
        writer << "literal " << std::string("string ") << std::string_view("view ") << whole << "";
    });
    EXPECT_EQ(text, std::string("literal string view a\0b", 23));
}

TEST(TextWriterTest, FlagsAreDigitsUnlessAWordIsAskedFor)
{
    EXPECT_EQ(written([](TextWriter& writer) { writer << true << false; }), "10");
    EXPECT_EQ(written([](TextWriter& writer) { writer.word(true) << "/"; }), "true/");
    EXPECT_EQ(written([](TextWriter& writer) { writer.word(false); }), "false");
}

TEST(TextWriterTest, NumbersAreDecimalToTheEndsOfTheirTypes)
{
    EXPECT_EQ(written([](TextWriter& writer) {
                  writer << std::numeric_limits<std::int16_t>::min() << " "
                         << std::numeric_limits<std::uint16_t>::max() << " "
                         << std::numeric_limits<std::int32_t>::min() << " "
                         << std::numeric_limits<std::uint32_t>::max() << " "
                         << std::numeric_limits<std::int64_t>::min() << " "
                         << std::numeric_limits<std::uint64_t>::max() << " " << 0;
              }),
              "-32768 65535 -2147483648 4294967295 -9223372036854775808 18446744073709551615 0");
}

TEST(TextWriterTest, ARadioChannelIsItsNumber)
{
    EXPECT_EQ(written([](TextWriter& writer) { writer << RadioChannel(2) << MutableRadioChannel(3); }), "23");
}

TEST(TextWriterTest, HexadecimalIsLowerCaseWithoutPrefixAndLeavesTheNextNumberDecimal)
{
    EXPECT_EQ(written([](TextWriter& writer) { writer.hex(0xABCDEF01U) << " " << 171; }), "abcdef01 171");
    EXPECT_EQ(written([](TextWriter& writer) { writer.hex(0); }), "0");
}

TEST(TextWriterTest, RawWritesAnyOneByte)
{
    EXPECT_EQ(written([](TextWriter& writer) { writer.raw(0).raw(65).raw(255); }), std::string("\0A\xFF", 3));
}

class GroupingPunctuation : public std::numpunct<char>
{
  protected:
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(TextWriterTest, KnowsNoLocale)
{
    const std::locale previous = std::locale::global(std::locale(std::locale(), new GroupingPunctuation));
    const std::string text = written([](TextWriter& writer) { writer << 1234567; });
    std::locale::global(previous);
    EXPECT_EQ(text, "1234567");
}

template <class Value>
concept Writable = requires(TextWriter& writer, Value value)
{
    writer << value;
};

TEST(TextWriterTest, BytesCannotBeStreamedByAccident)
{
    EXPECT_FALSE(Writable<char>);
    EXPECT_FALSE(Writable<signed char>);
    EXPECT_FALSE(Writable<unsigned char>);
    EXPECT_TRUE(Writable<bool>);
    EXPECT_TRUE(Writable<int>);
}

TEST(TextWriterTest, NothingIsTakenForAFlagThatIsNone)
{
    EXPECT_FALSE(Writable<int*>);
    EXPECT_FALSE(Writable<const void*>);
    EXPECT_FALSE(Writable<void (*)()>);
    EXPECT_FALSE(Writable<std::nullptr_t>);
}

// What `printf` makes of a number with six significant digits.
std::string printfText(double number)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%g", number);
    return text.data();
}

TEST(TextWriterTest, DoublesHaveSixSignificantDigits)
{
    EXPECT_EQ(written([](TextWriter& writer) {
                  writer << 0.0 << " " << -0.0 << " " << 1.0 << " " << 0.5 << " " << 1234567.0 << " "
                         << 123456.0 << " " << 0.0001 << " " << 0.00001 << " " << -2.0 / 3.0;
              }),
              "0 -0 1 0.5 1.23457e+06 123456 0.0001 1e-05 -0.666667");
}

TEST(TextWriterTest, SpecialDoublesReadAsPrintfWritesThem)
{
    using Limits = std::numeric_limits<double>;
    for (const double number :
         {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN(), -Limits::quiet_NaN(), Limits::max(),
          Limits::lowest(), Limits::min(), Limits::denorm_min(), -Limits::denorm_min(), 999999.5, 999999.4,
          0.00009999995, 9.9999949, 9.9999951}) {
        EXPECT_EQ(written([&](TextWriter& writer) { writer << number; }), printfText(number));
    }
}

TEST(TextWriterTest, AMillionDoublesReadAsPrintfWritesThem)
{
    std::mt19937_64 bits(1);
    std::uniform_real_distribution<double> plain(-2000.0, 2000.0);
    for (int count = 0; count < 500'000; ++count) {
        for (const double number : {std::bit_cast<double>(bits()), plain(bits)}) {
            ASSERT_EQ(written([&](TextWriter& writer) { writer << number; }), printfText(number));
        }
    }
}

struct Pair
{
    int first;
    int second;
    void print(TextWriter& text) const { text << first << "," << second; }
};

TEST(TextWriterTest, PrintedGivesARecordsOwnText)
{
    EXPECT_EQ(printed(Pair{1, -2}), "1,-2");
}

} // namespace
} // namespace zyr_top_api
