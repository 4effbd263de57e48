#include "CommandTest.h"
#include "CriSetBoosterPresenceImpl.h"
#include "OutputPowerCalculatorDouble.h"

#include <gtest/gtest.h>

#include <limits>

namespace zyr_top_api
{
namespace
{

class CriSetBoosterPresenceTest : public zyr_test::CommandTest
{
  protected:
    CriSetBoosterPresenceTest()
    {
        publish(calculator1);
        publish(calculator2);
        transcript.clear();
    }

    static CriSetBoosterPresence::Command
    command(std::uint32_t channel, ModulationAndCoding maxMod = ModulationAndCoding::QAM_64_LIGHT)
    {
        return {channel, 1, 120, 230, maxMod};
    }

    zyr_test::OutputPowerCalculatorDouble calculator1{transcript, "IOutputPowerCalculator_1"};
    zyr_test::OutputPowerCalculatorDouble calculator2{transcript, "IOutputPowerCalculator_2"};
    CriSetBoosterPresenceImpl impl;
};

TEST_F(CriSetBoosterPresenceTest, BoosterReachesTheCalculatorOfTheChannel)
{
    enrol<CriSetBoosterPresenceImpl>();
    tell(criSetBoosterPresence(command(2)));
    tell(criSetBoosterPresence(command(1, ModulationAndCoding::HALF_BPSK_STRONG)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetBooster: RadioChannelID: 2, boosterPresence: 1, boosterGain: 120, boosterMaxInputPower: 230, boosterMaxMod: 64QAM_LIGHT
IOutputPowerCalculator_2.setBooster(1, 120, 230, 64)
result 0x0 0 ""
prints StandardResponse Sent\n
3 ZYR.TI.CriSetBooster: RadioChannelID: 1, boosterPresence: 1, boosterGain: 120, boosterMaxInputPower: 230, boosterMaxMod: HALF_BPSK_STRONG
IOutputPowerCalculator_1.setBooster(1, 120, 230, 2)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetBoosterPresenceTest, ExtremeValuesArePassedOnUnchanged)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute({1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(),
                       -1, ModulationAndCoding::QAM_65536_LIGHT}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetBooster: RadioChannelID: 1, boosterPresence: -2147483648, boosterGain: 2147483647, boosterMaxInputPower: -1, boosterMaxMod: 65536QAM_LIGHT
IOutputPowerCalculator_1.setBooster(-2147483648, 2147483647, -1, 65536)
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetBoosterPresenceTest, FrameShowsRequestAndResponseAtLevel5AndTheEntryStandsAtLevel6)
{
    enrol<CriSetBoosterPresenceImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetBooster", 7);
    criSetBoosterPresence({2, 3, 4, 5, ModulationAndCoding::QAM_4});
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.SetBoosterPresence Request: RadioChannelID: 2, boosterPresence: 3, boosterGain: 4, boosterMaxInputPower: 5, boosterMaxMod: 4QAM
6 ZYR.TI.CriSetBooster: command.channelId=2, command.boosterPresence=3
3 ZYR.TI.CriSetBooster: RadioChannelID: 2, boosterPresence: 3, boosterGain: 4, boosterMaxInputPower: 5, boosterMaxMod: 4QAM
IOutputPowerCalculator_2.setBooster(3, 4, 5, 4)
5 ZYR.COMM: CRI.SetBoosterPresence Response: StandardResponse Sent\n\n----------------------------------------------------\n
)");
}

TEST_F(CriSetBoosterPresenceTest, ModulationThatIsNotInTheTableReachesTheCalculatorAs100000)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const std::uint32_t number : {0U, 9U, 13U, 159U, 163U, 164U, 4294967295U}) {
        transcript.clear();
        tell(impl.execute(command(1, static_cast<ModulationAndCoding>(number))));
        EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetBooster: RadioChannelID: 1, boosterPresence: 1, boosterGain: 120, boosterMaxInputPower: 230, boosterMaxMod: UNDEFINED
IOutputPowerCalculator_1.setBooster(1, 120, 230, 100000)
result 0x0 0 ""
prints StandardResponse Sent\n
)") << number;
    }
}

TEST_F(CriSetBoosterPresenceTest, OnlyZeroIsASuccess)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const unsigned result : {1U, 3U, 0x7FFFU, 0x8000U, 0x8001U, 0xFFFFFFFFU}) {
        transcript.clear();
        calculator1.onSetBooster = result;
        tell(impl.execute(command(1)));
        EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetBooster: RadioChannelID: 1, boosterPresence: 1, boosterGain: 120, boosterMaxInputPower: 230, boosterMaxMod: 64QAM_LIGHT
IOutputPowerCalculator_1.setBooster(1, 120, 230, 64)
1 ZYR.TI.CriSetBooster: CRI.SetBoosterPresence failed to set booster
result 0x8000 4 "Failed to set booster"
prints StandardResponse Sent\n
)") << result;
    }
}

TEST_F(CriSetBoosterPresenceTest, ChannelAboveTheNumberOfChannelsIsRefusedInSilence)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetBooster", 7);
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetBooster: command.channelId=2, command.boosterPresence=1
3 ZYR.TI.CriSetBooster: RadioChannelID: 2, boosterPresence: 1, boosterGain: 120, boosterMaxInputPower: 230, boosterMaxMod: 64QAM_LIGHT
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetBoosterPresenceTest, MissingCalculatorIsAnsweredInSilence)
{
    withdraw("IOutputPowerCalculator_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    transcript.clear();
    setTraceLevel("ZYR.TI.CriSetBooster", 7);
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetBooster: command.channelId=2, command.boosterPresence=1
3 ZYR.TI.CriSetBooster: RadioChannelID: 2, boosterPresence: 1, boosterGain: 120, boosterMaxInputPower: 230, boosterMaxMod: 64QAM_LIGHT
result 0x8008 4 "Ouput Power Controller missing"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetBoosterPresenceTest, Channel0HasNoCalculatorInitialisedOrNot)
{
    EXPECT_EQ(impl.execute(command(0)).faultString, "Ouput Power Controller missing");
    EXPECT_EQ(impl.execute(command(1)).faultString, "RadioChannelID out of bounds");
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(impl.execute(command(0)).faultString, "Ouput Power Controller missing");
}

TEST_F(CriSetBoosterPresenceTest, NothingIsKeptBetweenCalls)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    calculator1.onSetBooster.inTurn({1, eSPC_S_OK});
    EXPECT_EQ(impl.execute(command(1)).tiResult, 0x8000);
    EXPECT_EQ(impl.execute(command(1)).tiResult, 0);
}

// initialize

TEST_F(CriSetBoosterPresenceTest, BadCountIsRefusedAndNotStoredSoThatACorrectCallSucceeds)
{
    setTraceLevel("ZYR.TI.CriSetBooster", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetBooster: numberOfChannels=0
1 ZYR.TI.CriSetBooster: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriSetBooster: numberOfChannels=3
1 ZYR.TI.CriSetBooster: Error: numberOfChannels is out of range (3)
6 ZYR.TI.CriSetBooster: numberOfChannels=2
)x");
}

TEST_F(CriSetBoosterPresenceTest, SecondInitialiseIsRefusedBehindTheRange)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetBooster: Error: numberOfChannels is out of range (3)
1 ZYR.TI.CriSetBooster: Already initialized
)x");
    EXPECT_EQ(impl.execute(command(2)).tiResult, 0xA100);
}

TEST_F(CriSetBoosterPresenceTest, FailedInitialiseCannotBeRepeated)
{
    withdraw("IOutputPowerCalculator_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    publish(calculator1);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriSetBooster:  Error getting interface to IOutputPowerCalculator_1
1 ZYR.TI.CriSetBooster: Already initialized
)");
}

} // namespace
} // namespace zyr_top_api
