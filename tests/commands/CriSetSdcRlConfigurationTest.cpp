#include "CommandTest.h"
#include "CriSetSdcRlConfigurationImpl.h"
#include "SpaceDiversityCombinerControllerDouble.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

// What this setter does with its two texts; what it has in common with others is in CombinerSettersTest.

namespace zyr_top_api
{
namespace
{

class CriSetSdcRlConfigurationTest : public zyr_test::CommandTest
{
  protected:
    CriSetSdcRlConfigurationTest()
    {
        publish(controller1);
        publish(controller2);
        EXPECT_EQ(impl.initialize(2), eTI_S_OK);
        setTraceLevel("ZYR.TI.CriSetSdcRlConfiguration", 2);
        transcript.clear();
    }

    /// The call that a command leads to, or the transcript if there is more than that.
    std::string callFor(const std::string& selectedMaxAcm, const std::string& channelSpacing,
                        bool xpic = false)
    {
        transcript.clear();
        EXPECT_EQ(impl.execute({1U, selectedMaxAcm, channelSpacing, xpic}).tiResult, 0);
        const auto lines = transcript.lines();
        return lines.size() == 1 ? lines.front() : transcript.text();
    }

    static std::string expectedCall(std::uint32_t modulation, std::int32_t spacingCode)
    {
        return "ISpaceDiversityCombinerController_1.setRlConfiguration(" + std::to_string(modulation) + ", " +
               std::to_string(spacingCode) + ", false)";
    }

    zyr_test::SpaceDiversityCombinerControllerDouble controller1{transcript,
                                                                 "ISpaceDiversityCombinerController_1"};
    zyr_test::SpaceDiversityCombinerControllerDouble controller2{transcript,
                                                                 "ISpaceDiversityCombinerController_2"};
    CriSetSdcRlConfigurationImpl impl;
};

TEST_F(CriSetSdcRlConfigurationTest, EveryConstellationIsFoundByItsNumber)
{
    const std::vector<std::pair<std::string, std::uint32_t>> constellations{
        {"4", 4},       {"16", 16},       {"32", 32},       {"64", 64},     {"128", 128},
        {"256", 256},   {"512", 512},     {"1024", 1024},   {"2048", 2048}, {"4096", 4096},
        {"8192", 8192}, {"16384", 16384}, {"65536", 65536},
    };
    for (const auto& [text, modulation] : constellations) {
        EXPECT_EQ(callFor(text, "28000"), expectedCall(modulation, 28)) << text;
        EXPECT_EQ(callFor("a-" + text + "-b", "28000"), expectedCall(modulation, 28)) << text;
        EXPECT_EQ(callFor(text + "QAM", "28000"), expectedCall(100000, 28)) << text;
        EXPECT_EQ(callFor(text + "0", "28000"), expectedCall(100000, 28)) << text;
        EXPECT_EQ(callFor("0" + text, "28000"), expectedCall(100000, 28)) << text;
        EXPECT_EQ(callFor(" " + text, "28000"), expectedCall(100000, 28)) << text;
    }
}

TEST_F(CriSetSdcRlConfigurationTest, CarrierAndBpskCanNotBeReached)
{
    for (const char* text :
         {"CW", "BPSK", "0", "2", "CW-", "-CW", "-BPSK-", "HALF_BPSK", "UNDEFINED", "100000"}) {
        EXPECT_EQ(callFor(text, "28000"), expectedCall(100000, 28)) << text;
    }
}

TEST_F(CriSetSdcRlConfigurationTest, ConstellationIsTakenFromBetweenTheFirstDashAndTheLast)
{
    const std::vector<std::pair<std::string, std::uint32_t>> texts{
        {"256", 256},          {"a-256", 256},         {"-256", 256},         {"a-256-b", 256},
        {"-256-", 256},        {"64-256-16", 256},     {"64-256", 256},       {"a-256-", 256},
        {"-256-b", 256},       {"256-", 100000},       {"256-64-", 64},       {"256--", 100000},
        {"--256", 100000},     {"a--256", 100000},     {"a-256-b-c", 100000}, {"a-256--", 100000},
        {"a--256-b", 100000},  {"", 100000},           {"-", 100000},         {"--", 100000},
        {"---", 100000},       {"a--b", 100000},       {"a-b", 100000},       {"a-b-c", 100000},
        {"a-16-32-b", 100000}, {"a-4_STRONG", 100000}, {"4_STRONG", 100000},
    };
    for (const auto& [text, modulation] : texts) {
        EXPECT_EQ(callFor(text, "28000"), expectedCall(modulation, 28)) << text;
    }
}

const std::map<std::int32_t, std::int32_t> kCodes{
    {3500, 3},       {5000, 5},       {6000, 6},       {7000, 7},       {10000, 10},   {14000, 14},
    {20000, 20},     {28000, 28},     {30000, 30},     {40000, 40},     {50000, 50},   {56000, 56},
    {60000, 60},     {62000, 62},     {62500, 62},     {80000, 80},     {100000, 100}, {112000, 112},
    {125000, 125},   {150000, 150},   {200000, 200},   {250000, 250},   {300000, 300}, {350000, 350},
    {400000, 400},   {450000, 450},   {500000, 500},   {600000, 600},   {750000, 750}, {1000000, 1000},
    {1250000, 1250}, {1500000, 1500}, {1750000, 1750}, {2000000, 2000},
};

TEST_F(CriSetSdcRlConfigurationTest, EverySpacingHasItsCodeAndItsNeighboursHaveThatOfNone)
{
    EXPECT_EQ(kCodes.size(), 34U);
    for (const auto& [spacing, code] : kCodes) {
        EXPECT_EQ(callFor("16", std::to_string(spacing)), expectedCall(16, code)) << spacing;
        for (const std::int32_t neighbour : {spacing - 1, spacing + 1, spacing * 10, -spacing, code}) {
            const auto found = kCodes.find(neighbour);
            const std::int32_t expected = found == kCodes.end() ? 3000 : found->second;
            EXPECT_EQ(callFor("16", std::to_string(neighbour)), expectedCall(16, expected)) << neighbour;
        }
    }
}

TEST_F(CriSetSdcRlConfigurationTest, SpacingsBetweenThoseOfTheTableHaveTheCodeOfNone)
{
    for (const char* text : {"0", "1", "3000", "4000", "8000", "29000", "61000", "62250", "1001000",
                             "2500000", "2147483647", "-2147483648"}) {
        EXPECT_EQ(callFor("16", text), expectedCall(16, 3000)) << text;
    }
}

TEST_F(CriSetSdcRlConfigurationTest, SpacingIsReadUpToItsLastDigit)
{
    for (const char* text :
         {" 28000", "\t\n28000", "+28000", "028000", "28000kHz", "28000.9", "28000 50000", "28000-"}) {
        EXPECT_EQ(callFor("16", text), expectedCall(16, 28)) << text;
    }
    EXPECT_EQ(callFor("16", "0x6D60"), expectedCall(16, 3000));
    EXPECT_EQ(callFor("16", "28e3"), expectedCall(16, 3000));
}

TEST_F(CriSetSdcRlConfigurationTest, SpacingWithoutADigitInFrontLeavesTheCommandByException)
{
    setTraceLevel("ZYR.TI.CriSetSdcRlConfiguration", 7);
    EXPECT_THROW(impl.execute({1U, "256", "abc", true}), std::invalid_argument);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetSdcRlConfiguration: command.channelId=1, command.selectedMaxAcm=256, command.channelSpacing=abc, command.xpicEnabled=1
3 ZYR.TI.CriSetSdcRlConfiguration: RadioChannelID: 1, selectedMaxAcm: 256, channelSpacing: abc, xpicEnabled: 1\n
)");
    for (const char* text : {"", " ", "-", "+", "kHz28000", "--28000", ".5"}) {
        EXPECT_THROW(impl.execute({1U, "256", text, true}), std::invalid_argument) << text;
    }
}

TEST_F(CriSetSdcRlConfigurationTest, SpacingOutOfRangeLeavesTheCommandByException)
{
    for (const char* text : {"2147483648", "-2147483649", "99999999999999999999"}) {
        EXPECT_THROW(impl.execute({1U, "256", text, true}), std::out_of_range) << text;
    }
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CriSetSdcRlConfigurationTest, ExceptionPassesTheFrameAndLeavesItFree)
{
    enrol<CriSetSdcRlConfigurationImpl>();
    setTraceLevel("ZYR.COMM", 5);
    EXPECT_THROW(criSetSdcRlConfiguration({2U, "256", "abc", true}), std::invalid_argument);
    EXPECT_EQ(criSetSdcRlConfiguration({2U, "256", "62000", true}).tiResult, 0);
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.SetSdcRlConfiguration Request: RadioChannelID: 2, selectedMaxAcm: 256, channelSpacing: abc, xpicEnabled: 1\n
5 ZYR.COMM: CRI.SetSdcRlConfiguration Request: RadioChannelID: 2, selectedMaxAcm: 256, channelSpacing: 62000, xpicEnabled: 1\n
ISpaceDiversityCombinerController_2.setRlConfiguration(256, 62, true)
5 ZYR.COMM: CRI.SetSdcRlConfiguration Response: StandardResponse Sent\n\n----------------------------------------------------\n
)");
}

TEST_F(CriSetSdcRlConfigurationTest, ChannelAndControllerAreCheckedBeforeTheSpacingIsRead)
{
    EXPECT_EQ(impl.execute({3U, "256", "abc", true}).tiResult, 0xA100);
    EXPECT_EQ(impl.execute({0U, "256", "abc", true}).tiResult, 0x8008);
}

TEST_F(CriSetSdcRlConfigurationTest, ConvertedValuesAreToldAtLevel5WithTheirNames)
{
    setTraceLevel("ZYR.TI.CriSetSdcRlConfiguration", 5);
    impl.execute({2U, "65536", "2000000", true});
    impl.execute({2U, "CW", "1", false});
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetSdcRlConfiguration: RadioChannelID: 2, selectedMaxAcm: 65536, channelSpacing: 2000000, xpicEnabled: 1\n
5 ZYR.TI.CriSetSdcRlConfiguration: Max modulation: 65536QAM, channel spacing: 2000, xpic enabled: 1
ISpaceDiversityCombinerController_2.setRlConfiguration(65536, 2000, true)
3 ZYR.TI.CriSetSdcRlConfiguration: RadioChannelID: 2, selectedMaxAcm: CW, channelSpacing: 1, xpicEnabled: 0\n
5 ZYR.TI.CriSetSdcRlConfiguration: Max modulation: UNDEFINED, channel spacing: 3000, xpic enabled: 0
ISpaceDiversityCombinerController_2.setRlConfiguration(100000, 3000, false)
)");
}

} // namespace
} // namespace zyr_top_api
