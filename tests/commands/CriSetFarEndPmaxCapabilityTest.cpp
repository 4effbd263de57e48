#include "AcmHandlerDouble.h"
#include "CommandTest.h"
#include "CriSetFarEndPmaxCapabilityImpl.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class CriSetFarEndPmaxCapabilityTest : public zyr_test::CommandTest
{
  protected:
    CriSetFarEndPmaxCapabilityTest()
    {
        acmHandler1.onIsFarEndPmaxCapabilityDifferent = 3;
        acmHandler2.onIsFarEndPmaxCapabilityDifferent = 3;
        publish(acmHandler1);
        publish(acmHandler2);
        transcript.clear();
    }

    static CriSetFarEndPmaxCapability::Command command(std::uint32_t channel)
    {
        return {channel, {{ModulationAndCoding::QAM_256, 180}, {ModulationAndCoding::QAM_4_STRONG, 240}}};
    }

    /// Hides the summary of the request.
    static void showFailuresOnly() { setTraceLevel("ZYR.TI.CriSetFarEndPmaxCapability", 2); }

    zyr_test::AcmHandlerDouble acmHandler1{transcript, "IAcmHandler_1"};
    zyr_test::AcmHandlerDouble acmHandler2{transcript, "IAcmHandler_2"};
    CriSetFarEndPmaxCapabilityImpl impl;
};

TEST_F(CriSetFarEndPmaxCapabilityTest, OtherPowersAreSetWithAcmMutedOrderedByConstellation)
{
    enrol<CriSetFarEndPmaxCapabilityImpl>();
    tell(criSetFarEndPmaxCapability(command(2)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 2, Modulation-maxRFOutputPowerFarEnd:\n[256QAM, 180]\n[4QAM_STRONG, 240]\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 2
IAcmHandler_2.isFarEndPmaxCapabilityDifferent([4: 240, 256: 180])
IAcmHandler_2.muteAcm()
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch2]
IAcmHandler_2.setFarEndPmaxCapability([4: 240, 256: 180])
IAcmHandler_2.restoreAcm()
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, FrameShowsRequestAndResponseAtLevel5AndThereIsNoEntry)
{
    enrol<CriSetFarEndPmaxCapabilityImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetFarEndPmaxCapability", 7);
    criSetFarEndPmaxCapability(command(1));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.SetFarEndPmaxCapability Request: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n[256QAM, 180]\n[4QAM_STRONG, 240]\n
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n[256QAM, 180]\n[4QAM_STRONG, 240]\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 2
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([4: 240, 256: 180])
IAcmHandler_1.muteAcm()
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch1]
IAcmHandler_1.setFarEndPmaxCapability([4: 240, 256: 180])
IAcmHandler_1.restoreAcm()
5 ZYR.COMM: CRI.SetFarEndPmaxCapability Response: StandardResponse Sent\n\n----------------------------------------------------\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, EmptyListGoesToTheHandlerAsItIs)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute({1, {}}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 0
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([])
IAcmHandler_1.muteAcm()
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch1]
IAcmHandler_1.setFarEndPmaxCapability([])
IAcmHandler_1.restoreAcm()
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, FirstPairOfAConstellationWinsWhateverItsCoding)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute({1,
                       {{ModulationAndCoding::QAM_16, 11},
                        {ModulationAndCoding::QAM_16_STRONG, 12},
                        {ModulationAndCoding::QAM_4_LIGHT, std::numeric_limits<std::int32_t>::min()},
                        {ModulationAndCoding::QAM_4, 14},
                        {ModulationAndCoding::HALF_BPSK, std::numeric_limits<std::int32_t>::max()},
                        {ModulationAndCoding::BPSK_STRONG, 16}}}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n[16QAM, 11]\n[16QAM_STRONG, 12]\n[4QAM_LIGHT, -2147483648]\n[4QAM, 14]\n[HALF_BPSK, 2147483647]\n[BPSK_STRONG, 16]\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 3
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([2: 2147483647, 4: -2147483648, 16: 11])
IAcmHandler_1.muteAcm()
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch1]
IAcmHandler_1.setFarEndPmaxCapability([2: 2147483647, 4: -2147483648, 16: 11])
IAcmHandler_1.restoreAcm()
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, OneUndefinedPairRefusesTheWholeCommand)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute({1, {{ModulationAndCoding::QAM_16, 11}, {ModulationAndCoding::UNDEFINED, 12}}}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n[16QAM, 11]\n[UNDEFINED, 12]\n
result 0xA002 3 "maxRfOutputPowerFarEnd array is invalid"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, ModulationThatIsNotInTheTableRefusesTheWholeCommand)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const std::uint32_t number : {0U, 9U, 13U, 150U, 164U, 4294967295U}) {
        transcript.clear();
        tell(impl.execute({2, {{static_cast<ModulationAndCoding>(number), -5}}}));
        EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 2, Modulation-maxRFOutputPowerFarEnd:\n[UNDEFINED, -5]\n
result 0xA002 3 "maxRfOutputPowerFarEnd array is invalid"
prints StandardResponse Sent\n
)") << number;
    }
}

TEST_F(CriSetFarEndPmaxCapabilityTest, AnyAnswerBut3TouchesNothing)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const unsigned answer : {0U, 1U, 2U, 4U, 0x7FFFU, 0x8000U, 0x8001U, 0x8003U, 0x800CU, 0xFFFFFFFFU}) {
        transcript.clear();
        acmHandler1.onIsFarEndPmaxCapabilityDifferent = answer;
        tell(impl.execute(command(1)));
        EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n[256QAM, 180]\n[4QAM_STRONG, 240]\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 2
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([4: 240, 256: 180])
result 0x0 0 ""
prints StandardResponse Sent\n
)") << answer;
    }
}

TEST_F(CriSetFarEndPmaxCapabilityTest, HandlerWithoutBodiesOfItsOwnIsASuccessWithNothingDone)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    acmHandler1.defaultsInForce = true;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([4: 240, 256: 180])
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, FailedMuteAndFailedRestoreAreToldAtLevel4AndDoNotFail)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetFarEndPmaxCapability", 4);
    acmHandler1.onMuteAcm = 0x8000;
    acmHandler1.onRestoreAcm = 0xFFFFFFFFU;
    tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n[256QAM, 180]\n[4QAM_STRONG, 240]\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 2
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([4: 240, 256: 180])
IAcmHandler_1.muteAcm()
4 ZYR.TI.CriSetFarEndPmaxCapability: DSP not accessible, DSP not muted
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch1]
IAcmHandler_1.setFarEndPmaxCapability([4: 240, 256: 180])
IAcmHandler_1.restoreAcm()
4 ZYR.TI.CriSetFarEndPmaxCapability: DSP not accessible, DSP not restored
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, GreatestSuccessOfEveryStepComesOutAsPlainSuccess)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetFarEndPmaxCapability", 7);
    acmHandler2.onMuteAcm = 0x7FFF;
    acmHandler2.onSetFarEndPmaxCapability = 0x7FFF;
    acmHandler2.onRestoreAcm = 0x7FFF;
    tell(impl.execute({2, {}}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 2, Modulation-maxRFOutputPowerFarEnd:\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 0
IAcmHandler_2.isFarEndPmaxCapabilityDifferent([])
IAcmHandler_2.muteAcm()
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch2]
IAcmHandler_2.setFarEndPmaxCapability([])
IAcmHandler_2.restoreAcm()
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, UnreachableDspIsASuccessThatCachesTheThresholds)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetFarEndPmaxCapability", 4);
    acmHandler2.onMuteAcm = 0x8001;
    acmHandler2.onSetFarEndPmaxCapability = 0x800C;
    acmHandler2.onRestoreAcm = 0x8001;
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 2, Modulation-maxRFOutputPowerFarEnd:\n[256QAM, 180]\n[4QAM_STRONG, 240]\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 2
IAcmHandler_2.isFarEndPmaxCapabilityDifferent([4: 240, 256: 180])
IAcmHandler_2.muteAcm()
4 ZYR.TI.CriSetFarEndPmaxCapability: DSP not accessible, DSP not muted
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch2]
IAcmHandler_2.setFarEndPmaxCapability([4: 240, 256: 180])
1 ZYR.TI.CriSetFarEndPmaxCapability: DSP is not accessibled but new FE Pmax capabilities are cached
IAcmHandler_2.cacheThresholds()
IAcmHandler_2.restoreAcm()
4 ZYR.TI.CriSetFarEndPmaxCapability: DSP not accessible, DSP not restored
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, FailedSetLeavesAcmMutedAndTellsTheCodeInHex)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetFarEndPmaxCapability", 7);
    acmHandler1.onSetFarEndPmaxCapability.inTurn({0x8000, 0x800B, 0x800D, 0xABCDEF01U});
    for (int call = 0; call < 4; ++call) {
        tell(impl.execute({1, {}}));
    }
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 0
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([])
IAcmHandler_1.muteAcm()
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch1]
IAcmHandler_1.setFarEndPmaxCapability([])
1 ZYR.TI.CriSetFarEndPmaxCapability: CRI.SetFarEndPmaxCapability failed (EACMHResult = 0x8000)
result 0x8000 4 "CRI.SetFarEndPmaxCapability failed"
prints StandardResponse Sent\n
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 0
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([])
IAcmHandler_1.muteAcm()
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch1]
IAcmHandler_1.setFarEndPmaxCapability([])
1 ZYR.TI.CriSetFarEndPmaxCapability: CRI.SetFarEndPmaxCapability failed (EACMHResult = 0x800b)
result 0x8000 4 "CRI.SetFarEndPmaxCapability failed"
prints StandardResponse Sent\n
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 0
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([])
IAcmHandler_1.muteAcm()
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch1]
IAcmHandler_1.setFarEndPmaxCapability([])
1 ZYR.TI.CriSetFarEndPmaxCapability: CRI.SetFarEndPmaxCapability failed (EACMHResult = 0x800d)
result 0x8000 4 "CRI.SetFarEndPmaxCapability failed"
prints StandardResponse Sent\n
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 1, Modulation-maxRFOutputPowerFarEnd:\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 0
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([])
IAcmHandler_1.muteAcm()
3 ZYR.TI.CriSetFarEndPmaxCapability: Using Pmax capabilities from far end [ch1]
IAcmHandler_1.setFarEndPmaxCapability([])
1 ZYR.TI.CriSetFarEndPmaxCapability: CRI.SetFarEndPmaxCapability failed (EACMHResult = 0xabcdef01)
result 0x8000 4 "CRI.SetFarEndPmaxCapability failed"
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, UnreachableIsOnlyTheSetsOwnAnswer)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    acmHandler1.onMuteAcm = 0x800C;
    acmHandler1.onRestoreAcm = 0x800C;
    tell(impl.execute({1, {}}));
    EXPECT_EQ(transcript.text(), R"(
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([])
IAcmHandler_1.muteAcm()
IAcmHandler_1.setFarEndPmaxCapability([])
IAcmHandler_1.restoreAcm()
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, ChannelAboveTheNumberOfChannelsIsRefusedBeforeTheArrayIsLookedAt)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetFarEndPmaxCapability", 7);
    tell(impl.execute({2, {{ModulationAndCoding::UNDEFINED, 7}}}));
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 2, Modulation-maxRFOutputPowerFarEnd:\n[UNDEFINED, 7]\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, Channel0HasItsArrayCheckedAndReachesNoHandler)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute({0, {{ModulationAndCoding::UNDEFINED, 7}}}));
    EXPECT_EQ(missingIn([&] { impl.execute({0, {}}); }), "IAcmHandler of radio channel 0");
    EXPECT_EQ(transcript.text(), R"(
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 0, Modulation-maxRFOutputPowerFarEnd:\n[UNDEFINED, 7]\n
result 0xA002 3 "maxRfOutputPowerFarEnd array is invalid"
prints StandardResponse Sent\n
3 ZYR.TI.CriSetFarEndPmaxCapability: radioChannelId: 0, Modulation-maxRFOutputPowerFarEnd:\n
3 ZYR.TI.CriSetFarEndPmaxCapability: capabilities.size() : 0
)");
}

TEST_F(CriSetFarEndPmaxCapabilityTest, NothingIsKeptBetweenCalls)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    showFailuresOnly();
    impl.execute({1, {{ModulationAndCoding::QAM_16, 1}}});
    transcript.clear();
    acmHandler1.onIsFarEndPmaxCapabilityDifferent = 0;
    impl.execute({1, {{ModulationAndCoding::QAM_16_LIGHT, 2}}});
    EXPECT_EQ(transcript.text(), R"(
IAcmHandler_1.isFarEndPmaxCapabilityDifferent([16: 2])
)");
}

// initialize

TEST_F(CriSetFarEndPmaxCapabilityTest, InitialiseRefusesOtherCountsWithNothingButItsEntry)
{
    setTraceLevel("ZYR.TI.CriSetFarEndPmaxCapability", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetFarEndPmaxCapability:
6 ZYR.TI.CriSetFarEndPmaxCapability:
)");
    EXPECT_EQ(impl.execute({1, {}}).tiResult, 0xA100);
}

TEST_F(CriSetFarEndPmaxCapabilityTest, InitialiseNamesTheMissingHandlerAndHasStoredTheCount)
{
    withdraw("IAcmHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriSetFarEndPmaxCapability:  Error getting interface to IAcmHandler_2
)");
    showFailuresOnly();
    EXPECT_EQ(impl.execute(command(1)).tiResult, 0);
    EXPECT_EQ(missingIn([&] { impl.execute(command(2)); }), "IAcmHandler of radio channel 2");
}

} // namespace
} // namespace zyr_top_api
