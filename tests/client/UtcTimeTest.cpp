#include "UtcTime.h"

#include "KeptZone.h"
#include "Refusal.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <string>

namespace
{

using namespace std::chrono_literals;
using zyr_ctl::utcTime;
using zyr_ctl::wireTime;
using zyr_ctl::test::refusalOf;

class UtcTimeTest : public testing::Test
{
  protected:
    // An hour and in summer two ahead of UTC, whatever the computer has.
    UtcTimeTest() { setenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3", 1); }

    static std::string refusal(const std::string& text)
    {
        return refusalOf([&] { wireTime(text); });
    }

    zyr_test::KeptZone zone;
};

TEST_F(UtcTimeTest, TimeInUtcIsTakenInTheFormOfTheWire)
{
    EXPECT_EQ(wireTime("2026-01-14T08:30:05Z"), "20260114T08:30:05");
    EXPECT_EQ(wireTime("2024-02-29 23:59:59 Z"), "20240229T23:59:59");
}

TEST_F(UtcTimeTest, MomentIsWrittenInTheFormOfTheWire)
{
    EXPECT_EQ(wireTime(std::chrono::sys_seconds(0s)), "19700101T00:00:00");
    EXPECT_EQ(wireTime(std::chrono::sys_seconds(1'768'379'405s)), "20260114T08:30:05");
}

TEST_F(UtcTimeTest, TimeOfANodeIsShownAsPeopleWriteIt)
{
    EXPECT_EQ(utcTime("20260114T08:30:05"), "2026-01-14T08:30:05Z");
    EXPECT_EQ(utcTime("20260114 08:30:05"), "20260114 08:30:05");
    EXPECT_EQ(utcTime("2026-01-14T08:30"), "2026-01-14T08:30");
    EXPECT_EQ(utcTime(""), "");
}

TEST_F(UtcTimeTest, OffsetIsRefusedWithTheMomentInUtc)
{
    const std::string front = "the clock is set in UTC: give ";
    EXPECT_EQ(refusal("2026-01-14T08:30:05+01:00"), front + "2026-01-14T07:30:05Z");
    EXPECT_EQ(refusal("2026-01-01T00:30:05+0545"), front + "2025-12-31T18:45:05Z");
    EXPECT_EQ(refusal("2026-12-31T20:30:05 -08"), front + "2027-01-01T04:30:05Z");
    EXPECT_EQ(refusal("2026-01-14T08:30:05-00:30"), front + "2026-01-14T09:00:05Z");
    EXPECT_EQ(refusal("2026-01-14T08:30:05+00:00"), front + "2026-01-14T08:30:05Z");
}

TEST_F(UtcTimeTest, OtherNamesOfUtcAreRefusedWithTheRightOne)
{
    const std::string expected = "the clock is set in UTC: give 2026-01-14T08:30:05Z";
    EXPECT_EQ(refusal("2026-01-14T08:30:05z"), expected);
    EXPECT_EQ(refusal("2026-01-14 08:30:05 UTC"), expected);
    EXPECT_EQ(refusal("2026-01-14 08:30:05 GMT"), expected);
}

TEST_F(UtcTimeTest, TimeWithoutAZoneIsRefusedWithBothMomentsThatMayBeMeant)
{
    EXPECT_EQ(refusal("2026-01-14T08:30:05"), "the clock is set in UTC: give 2026-01-14T08:30:05Z, or "
                                              "2026-01-14T07:30:05Z if this computer's zone is meant");
    EXPECT_EQ(refusal("2026-07-14T00:30:05"), "the clock is set in UTC: give 2026-07-14T00:30:05Z, or "
                                              "2026-07-13T22:30:05Z if this computer's zone is meant");
}

TEST_F(UtcTimeTest, LocalZoneIsRefusedWithTheMomentInUtcWhereItIsKnown)
{
    EXPECT_EQ(refusal("2026-01-14T08:30:05 CET"), "the clock is set in UTC: give 2026-01-14T07:30:05Z");
    EXPECT_EQ(refusal("2026-07-14T08:30:05CEST"), "the clock is set in UTC: give 2026-07-14T06:30:05Z");
    EXPECT_EQ(
        refusal("2026-07-14T08:30:05 CET"),
        "the clock is set in UTC: give a time as 2026-01-14T08:30:05Z; the zone \"CET\" is not known here");
    EXPECT_EQ(
        refusal("2026-01-14T08:30:05 Europe/\x1b"),
        "the clock is set in UTC: give a time as 2026-01-14T08:30:05Z; the zone \"Europe/\\x1b\" is not "
        "known here");
    EXPECT_EQ(
        refusal("2026-01-14T08:30:05+1"),
        "the clock is set in UTC: give a time as 2026-01-14T08:30:05Z; the zone \"+1\" is not known here");
    EXPECT_EQ(
        refusal("2026-01-14T08:30:05.5Z"),
        "the clock is set in UTC: give a time as 2026-01-14T08:30:05Z; the zone \".5Z\" is not known here");
}

TEST_F(UtcTimeTest, WhatIsNoTimeIsRefused)
{
    for (const std::string text :
         {"", "Now", "today", "2026-01-14", "20260114T08:30:05", "2026-01-14T08:30Z", "2026-01-14T08:30:0",
          "2026-1-14T08:30:05Z", "2026-01-14t08:30:05Z", "2026/01/14T08:30:05Z", "2026-00-14T08:30:05Z",
          "2026-13-14T08:30:05Z", "2026-01-00T08:30:05Z", "2026-04-31T08:30:05Z", "2026-02-29T08:30:05Z",
          "2026-01-14T24:00:00Z", "2026-01-14T08:60:05Z", "2026-01-14T23:59:60Z", "-026-01-14T08:30:05Z"}) {
        EXPECT_EQ(refusal(text), "\"" + text + "\" is no time; give one as 2026-01-14T08:30:05Z, or now");
    }
}

} // namespace
