#include "TraceFormat.h"

#include <gtest/gtest.h>

#include <chrono>

namespace
{

using zyr_platform::TraceRecord;

std::string formatted(std::string_view text)
{
    using namespace std::chrono;
    const auto time = sys_days(2026y / November / 21d) + 9h + 24min + 47s + 123456us;
    const TraceRecord record{"ZYR.TI.CriEnableAcm",         3, {"src/x/X.cpp", 42, "execute"}, text, 1,
                             system_clock::time_point(time)};
    std::string out;
    zyr_platform::appendTraceRecord(out, record);
    return out;
}

TEST(TraceFormat, recordIsOneLine)
{
    EXPECT_EQ(formatted("Sent"),
              "2026-11-21T09:24:47.123456Z 3 ZYR.TI.CriEnableAcm src/x/X.cpp:42 execute: Sent\n");
}

TEST(TraceFormat, smallNumbersOfTheTimeArePadded)
{
    using namespace std::chrono;
    const auto time = sys_days(1970y / January / 2d) + 3h + 4min + 5s + 7us;
    const TraceRecord record{"C", 1, {"f", 0, "g"}, "t", 1, system_clock::time_point(time)};
    std::string out = "before|";
    zyr_platform::appendTraceRecord(out, record);
    EXPECT_EQ(out, "before|1970-01-02T03:04:05.000007Z 1 C f:0 g: t\n");
}

TEST(TraceFormat, timeIsCutToMicroseconds)
{
    const TraceRecord record{"C", 1, {"f", 0, "g"},
                             "t", 1, std::chrono::system_clock::time_point(std::chrono::nanoseconds(1999))};
    std::string out;
    zyr_platform::appendTraceRecord(out, record);
    EXPECT_EQ(out, "1970-01-01T00:00:00.000001Z 1 C f:0 g: t\n");
}

TEST(TraceFormat, emptyTextLeavesTheBlankOut)
{
    EXPECT_EQ(formatted(""), "2026-11-21T09:24:47.123456Z 3 ZYR.TI.CriEnableAcm src/x/X.cpp:42 execute:\n");
}

TEST(TraceFormat, furtherLinesAreIndented)
{
    EXPECT_EQ(formatted("one\ntwo\n\n  three\n"),
              "2026-11-21T09:24:47.123456Z 3 ZYR.TI.CriEnableAcm src/x/X.cpp:42 execute: one\n"
              "    two\n"
              "    \n"
              "      three\n"
              "    \n");
}

TEST(TraceFormat, controlBytesAndBackslashAreEscapedAndOtherBytesStand)
{
    using namespace std::string_view_literals;
    EXPECT_EQ(formatted("\0a\t\r\x1B[1m\x7F \\x09 \xC3\xA5\xFF~"sv),
              "2026-11-21T09:24:47.123456Z 3 ZYR.TI.CriEnableAcm src/x/X.cpp:42 execute: "
              "\\x00a\\x09\\x0D\\x1B[1m\\x7F \\x5Cx09 \xC3\xA5\xFF~\n");
}

} // namespace
