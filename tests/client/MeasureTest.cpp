#include "Measure.h"

#include <gtest/gtest.h>

namespace zyr_ctl
{

namespace
{

std::string commonDigits(const Value& number, const std::string& unit)
{
    return digitsIn(commonUnit(unit), number);
}

TEST(Measure, MovesThePointOfTenths)
{
    EXPECT_EQ(measured(-398, "0.1 dBm"), "-39.8 dBm");
    EXPECT_EQ(measured(-5, "0.1 dB"), "-0.5 dB");
    EXPECT_EQ(measured(0, "0.1 dB"), "0.0 dB");
    EXPECT_EQ(measured(12345, "0.0001"), "1.2345");
}

TEST(Measure, ShowsFrequenciesAndRatesInMegaWithAllDigits)
{
    EXPECT_EQ(measured(14920000, "kHz"), "14 920.000 MHz");
    EXPECT_EQ(measured(7125250, "kHz"), "7125.250 MHz");
    EXPECT_EQ(measured(1000, "kHz"), "1.000 MHz");
    EXPECT_EQ(measured(999, "kHz"), "999 kHz");
    EXPECT_EQ(measured(-999, "kHz"), "-999 kHz");
    EXPECT_EQ(measured(-1000, "kHz"), "-1.000 MHz");
    EXPECT_EQ(measured(155520, "kbit/s"), "155.520 Mbit/s");
}

TEST(Measure, ShowsTimesInTheUnitOfWhichThereIsOneAtLeast)
{
    EXPECT_EQ(measured(999, "ns"), "999 ns");
    EXPECT_EQ(measured(1000, "ns"), "1.0 µs");
    EXPECT_EQ(measured(26678, "ns"), "26.7 µs");
    EXPECT_EQ(measured(-26648, "ns"), "-26.6 µs");
    EXPECT_EQ(measured(1999960, "us"), "2.0 s");
    EXPECT_EQ(measured(3, "us"), "3 µs");
    EXPECT_EQ(measured(123456, "s"), "123 456 s");
}

TEST(Measure, LeavesOtherNumbersAsTheyAre)
{
    EXPECT_EQ(measured(-33, "degC"), "-33 °C");
    EXPECT_EQ(measured(1234567, ""), "1234567");
    EXPECT_EQ(measured(1234567, "byte"), "1 234 567 byte");
    EXPECT_EQ(measured(15.5, "dBm"), "15.5 dBm");
    EXPECT_EQ(measured(15.5, "0.1 dBm"), "1.55 dBm");
    EXPECT_EQ(measured(1.5, ""), "1.5");
}

TEST(Measure, HasOneUnitForNumbersThatStandTogether)
{
    EXPECT_EQ(commonDigits(250, "kHz"), "0.250");
    EXPECT_EQ(commonDigits(14920000, "kHz"), "14 920.000");
    EXPECT_EQ(commonDigits(26678, "ns"), "26 678");
    EXPECT_EQ(commonDigits(INT64_MIN, "0.1 dB"), "-922 337 203 685 477 580.8");
    EXPECT_EQ(commonUnit("0.0001").name, "");
    EXPECT_EQ(commonUnit("kbit/s").name, "Mbit/s");
    EXPECT_EQ(commonUnit("min").name, "min");
}

} // namespace

} // namespace zyr_ctl
