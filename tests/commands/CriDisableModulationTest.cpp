#include "AcmHandlerDouble.h"
#include "CommandTest.h"
#include "CriDisableModulationImpl.h"
#include "DspApiDouble.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace zyr_top_api
{
namespace
{

class CriDisableModulationTest : public zyr_test::CommandTest
{
  protected:
    CriDisableModulationTest()
    {
        publish(dspApi1);
        publish(dspApi2);
        publish(acmHandler1);
        publish(acmHandler2);
        transcript.clear();
    }

    static CriDisableModulation::Command reading(std::uint32_t channel) { return {channel, {}}; }
    static CriDisableModulation::Command setting(std::uint32_t channel, bool disable)
    {
        return {channel, disable};
    }

    zyr_test::DspApiDouble dspApi1{transcript, "IDspApi_1"};
    zyr_test::DspApiDouble dspApi2{transcript, "IDspApi_2"};
    zyr_test::AcmHandlerDouble acmHandler1{transcript, "IAcmHandler_1"};
    zyr_test::AcmHandlerDouble acmHandler2{transcript, "IAcmHandler_2"};
    CriDisableModulationImpl impl;
};

TEST_F(CriDisableModulationTest, SingleToneIsSetAndTheAcmHandlerTold)
{
    openTestGate();
    enrol<CriDisableModulationImpl>();
    dspApi2.channelApi.onGetDspTxMode.inTurn(
        {{eTI_S_OK, eDspATxModeNormal, 11, 12}, {eTI_S_OK, eDspATxModeOneTone, 13, 14}});
    tell(criDisableModulation(setting(2, true)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_2.getDspTxMode(0)
IDspChannelApi_2.setDspTxMode(0, 1, 0, 0)
IAcmHandler_2.disableModulation()
3 ZYR.TI.CriDisableModulation: channel 2: Modulation successfully changed to eDspATxModeOneTone
IDspChannelApi_2.getDspTxMode(0)
result 0x0 0 ""
prints RadioChannelID: 2, DisableModulation: 1
)");
}

TEST_F(CriDisableModulationTest, TrafficIsSetAndTheAcmHandlerTold)
{
    openTestGate();
    enrol<CriDisableModulationImpl>();
    dspApi1.channelApi.onGetDspTxMode.inTurn(
        {{eTI_S_OK, eDspATxModeOneTone, 0, 0}, {eTI_S_OK, eDspATxModeNormal, 0, 0}});
    tell(criDisableModulation(setting(1, false)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.setDspTxMode(0, 0, 0, 0)
IAcmHandler_1.enableModulation()
3 ZYR.TI.CriDisableModulation: channel 1: Modulation successfully changed to eDspATxModeNormal
IDspChannelApi_1.getDspTxMode(0)
result 0x0 0 ""
prints RadioChannelID: 1, DisableModulation: 0
)");
}

TEST_F(CriDisableModulationTest, WithoutItsOptionTheCommandOnlyReads)
{
    openTestGate();
    enrol<CriDisableModulationImpl>();
    dspApi2.channelApi.onGetDspTxMode = {eTI_S_OK, eDspATxModeOneTone, 0, 0};
    tell(criDisableModulation(reading(2)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_2.getDspTxMode(0)
IDspChannelApi_2.getDspTxMode(0)
result 0x0 0 ""
prints RadioChannelID: 2, DisableModulation: 1
)");
}

TEST_F(CriDisableModulationTest, FrameShowsRequestAndResponseAtLevel5AndTheEntryStandsAtLevel6)
{
    openTestGate();
    enrol<CriDisableModulationImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriDisableModulation", 7);
    criDisableModulation(reading(2));
    criDisableModulation(setting(1, false));
    criDisableModulation(setting(3, true));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.DisableModulation Request: RadioChannelID: 2\n
6 ZYR.TI.CriDisableModulation:
IDspChannelApi_2.getDspTxMode(0)
IDspChannelApi_2.getDspTxMode(0)
5 ZYR.COMM: CRI.DisableModulation Response: RadioChannelID: 2, DisableModulation: 0\n----------------------------------------------------\n
5 ZYR.COMM: CRI.DisableModulation Request: RadioChannelID: 1, DisableModulation: 0\n
6 ZYR.TI.CriDisableModulation:
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.getDspTxMode(0)
5 ZYR.COMM: CRI.DisableModulation Response: RadioChannelID: 1, DisableModulation: 0\n----------------------------------------------------\n
5 ZYR.COMM: CRI.DisableModulation Request: RadioChannelID: 3, DisableModulation: 1\n
6 ZYR.TI.CriDisableModulation:
5 ZYR.COMM: CRI.DisableModulation Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds\n----------------------------------------------------\n
)");
}

TEST_F(CriDisableModulationTest, ClosedTestGateRefusesTheCommand)
{
    enrol<CriDisableModulationImpl>();
    tell(criDisableModulation(setting(1, true)));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.ZyrTopApi: Error: Command CRI.DisableModulation not available
result 0x8003 4 "Error: Command not available"
prints tiResult: eTI_E_OPERATION_NOT_ALLOWED, faultCode: 4, faultString: Error: Command not available
)");
}

TEST_F(CriDisableModulationTest, ModeThatIsAlreadyTheAskedOneIsNotSet)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onGetDspTxMode = {eTI_S_OK, eDspATxModeOneTone, 0, 0};
    tell(impl.execute(setting(1, true)));
    tell(impl.execute(setting(2, false)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.getDspTxMode(0)
result 0x0 0 ""
prints RadioChannelID: 1, DisableModulation: 1
IDspChannelApi_2.getDspTxMode(0)
IDspChannelApi_2.getDspTxMode(0)
result 0x0 0 ""
prints RadioChannelID: 2, DisableModulation: 0
)");
}

TEST_F(CriDisableModulationTest, AnyOtherModeDiffersFromBothAskedOnes)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const std::uint32_t number : {2U, 5U, 8U, 9U, 4294967295U}) {
        transcript.clear();
        dspApi1.channelApi.onGetDspTxMode = {eTI_S_OK, static_cast<EDspATxMode>(number), 0, 0};
        tell(impl.execute(setting(1, false)));
        tell(impl.execute(setting(1, true)));
        EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.setDspTxMode(0, 0, 0, 0)
IAcmHandler_1.enableModulation()
3 ZYR.TI.CriDisableModulation: channel 1: Modulation successfully changed to eDspATxModeNormal
IDspChannelApi_1.getDspTxMode(0)
result 0x0 0 ""
prints RadioChannelID: 1, DisableModulation: 0
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.setDspTxMode(0, 1, 0, 0)
IAcmHandler_1.disableModulation()
3 ZYR.TI.CriDisableModulation: channel 1: Modulation successfully changed to eDspATxModeOneTone
IDspChannelApi_1.getDspTxMode(0)
result 0x0 0 ""
prints RadioChannelID: 1, DisableModulation: 0
)") << number;
    }
}

TEST_F(CriDisableModulationTest, OnlyTheSingleToneReadsAsDisabled)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const std::uint32_t number : {0U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U, 257U}) {
        dspApi1.channelApi.onGetDspTxMode = {eTI_S_OK, static_cast<EDspATxMode>(number), 0, 0};
        EXPECT_FALSE(impl.execute(reading(1)).DisableModulation) << number;
    }
    dspApi1.channelApi.onGetDspTxMode = {eTI_S_OK, eDspATxModeOneTone, 0, 0};
    EXPECT_TRUE(impl.execute(reading(1)).DisableModulation);
}

TEST_F(CriDisableModulationTest, ResponseTellsTheSecondReading)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onGetDspTxMode.inTurn(
        {{eTI_S_OK, eDspATxModeNormal, 0, 0}, {eTI_S_OK, eDspATxModeOneTone, 0, 0}});
    EXPECT_TRUE(impl.execute(reading(1)).DisableModulation);
    dspApi1.channelApi.onGetDspTxMode.inTurn(
        {{eTI_S_OK, eDspATxModeOneTone, 0, 0}, {eTI_S_OK, eDspATxModeNormal, 0, 0}});
    EXPECT_FALSE(impl.execute(setting(1, true)).DisableModulation);
}

TEST_F(CriDisableModulationTest, BothReadingsStartFromAnUndefinedMode)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    std::vector<EDspATxMode> presets;
    dspApi1.channelApi.onGetDspTxMode.doInstead([&](EDspATxMode& mode, int&, int&) {
        presets.push_back(mode);
        mode = eDspATxModeOneTone;
        return eTI_S_OK;
    });
    impl.execute(reading(1));
    EXPECT_EQ(presets, (std::vector{eDspATxModeUndefined, eDspATxModeUndefined}));
}

TEST_F(CriDisableModulationTest, DspThatSucceedsWithoutAModeDiffersFromTheAskedOne)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onGetDspTxMode = 0x7FFF; // leaves its arguments
    dspApi1.channelApi.onSetDspTxMode = 0x7FFF;
    tell(impl.execute(setting(1, true)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.setDspTxMode(0, 1, 0, 0)
IAcmHandler_1.disableModulation()
3 ZYR.TI.CriDisableModulation: channel 1: Modulation successfully changed to eDspATxModeOneTone
IDspChannelApi_1.getDspTxMode(0)
result 0x0 0 ""
prints RadioChannelID: 1, DisableModulation: 0
)");
}

TEST_F(CriDisableModulationTest, FailedFirstReadingEndsTheCommand)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi2.channelApi.onGetDspTxMode = {0x8000, eDspATxModeOneTone, 0, 0};
    const CriDisableModulation::Response response = tell(impl.execute(setting(2, false)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_2.getDspTxMode(0)
1 ZYR.TI.CriDisableModulation: channel 2: Failed to get DSP TX mode
result 0x8000 4 "Unable to get DSP TX mode"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Unable to get DSP TX mode
)");
    EXPECT_EQ(response.RadioChannelID, 1U);
    EXPECT_FALSE(response.DisableModulation);
}

TEST_F(CriDisableModulationTest, FailedSecondReadingLeavesTheModeSet)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi2.channelApi.onGetDspTxMode.inTurn(
        {{eTI_S_OK, eDspATxModeNormal, 0, 0}, {0xFFFFFFFFU, eDspATxModeOneTone, 0, 0}});
    const CriDisableModulation::Response response = tell(impl.execute(setting(2, true)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_2.getDspTxMode(0)
IDspChannelApi_2.setDspTxMode(0, 1, 0, 0)
IAcmHandler_2.disableModulation()
3 ZYR.TI.CriDisableModulation: channel 2: Modulation successfully changed to eDspATxModeOneTone
IDspChannelApi_2.getDspTxMode(0)
1 ZYR.TI.CriDisableModulation: channel 2: Failed to get DSP TX mode
result 0x8000 4 "Unable to get DSP TX mode"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Unable to get DSP TX mode
)");
    EXPECT_EQ(response.RadioChannelID, 1U);
    EXPECT_FALSE(response.DisableModulation);
}

TEST_F(CriDisableModulationTest, FailedSetNamesTheAskedModeAndTellsTheAcmHandlerNothing)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onGetDspTxMode = {eTI_S_OK, eDspATxModeMute, 0, 0};
    dspApi1.channelApi.onSetDspTxMode.inTurn({0x8000, 0xFFFFFFFFU});
    tell(impl.execute(setting(1, true)));
    tell(impl.execute(setting(1, false)));
    EXPECT_EQ(transcript.text(), R"(
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.setDspTxMode(0, 1, 0, 0)
1 ZYR.TI.CriDisableModulation: channel 1: Failed to set DSP TX mode eDspATxModeOneTone
result 0x8000 4 "Failed to set DSP TX mode"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to set DSP TX mode
IDspChannelApi_1.getDspTxMode(0)
IDspChannelApi_1.setDspTxMode(0, 0, 0, 0)
1 ZYR.TI.CriDisableModulation: channel 1: Failed to set DSP TX mode eDspATxModeNormal
result 0x8000 4 "Failed to set DSP TX mode"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: Failed to set DSP TX mode
)");
}

TEST_F(CriDisableModulationTest, ChannelAboveTheNumberOfChannelsIsRefusedInSilence)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriDisableModulation", 7);
    const CriDisableModulation::Response response = tell(impl.execute(setting(2, true)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriDisableModulation:
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
    EXPECT_EQ(response.RadioChannelID, 1U);
}

TEST_F(CriDisableModulationTest, ObjectThatWasNotInitialisedSaysSoBeforeTheChannelIsLookedAt)
{
    setTraceLevel("ZYR.TI.CriDisableModulation", 7);
    tell(impl.execute(setting(7, true)));
    tell(impl.execute(setting(0, true)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriDisableModulation:
result 0x8000 4 "CriDisableModulationImpl has not been initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CriDisableModulationImpl has not been initialized
6 ZYR.TI.CriDisableModulation:
result 0x8000 4 "CriDisableModulationImpl has not been initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CriDisableModulationImpl has not been initialized
)");
}

TEST_F(CriDisableModulationTest, Channel0AndADspWithoutItsChannelPartAreNamed)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi2.onGetDspChannelApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute(reading(0)); }), "IDspApi of radio channel 0");
    try {
        impl.execute(reading(2));
        FAIL() << "no exception";
    } catch (const std::out_of_range& exception) {
        EXPECT_STREQ(exception.what(), "IDspChannelApi of radio channel 2");
    }
}

TEST_F(CriDisableModulationTest, NothingIsKeptBetweenCalls)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.channelApi.onGetDspTxMode.inTurn(
        {{0x8000, eDspATxModeOneTone, 0, 0}, {eTI_S_OK, eDspATxModeNormal, 0, 0}});
    EXPECT_EQ(impl.execute(reading(1)).tiResult, 0x8000);
    const CriDisableModulation::Response response = impl.execute(reading(1));
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_EQ(response.faultString, "");
}

// initialize

TEST_F(CriDisableModulationTest, SecondInitialiseIsRefusedBeforeTheRange)
{
    setTraceLevel("ZYR.TI.CriDisableModulation", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriDisableModulation: numberOfChannels=0
1 ZYR.TI.CriDisableModulation: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriDisableModulation: numberOfChannels=3
1 ZYR.TI.CriDisableModulation: Error: numberOfChannels is out of range (3)
6 ZYR.TI.CriDisableModulation: numberOfChannels=2
6 ZYR.TI.CriDisableModulation: numberOfChannels=3
1 ZYR.TI.CriDisableModulation: CriDisableModulationImpl already initialize
)x");
}

TEST_F(CriDisableModulationTest, MissingInterfacesFailInSilenceAndInitialiseCanBeRepeated)
{
    setTraceLevel("ZYR.TI.CriDisableModulation", 5);
    for (const char* const name : {"IAcmHandler_2", "IDspApi_2", "IAcmHandler_1", "IDspApi_1"}) {
        withdraw(name);
        EXPECT_EQ(impl.initialize(2), 0x8000) << name;
    }
    EXPECT_EQ(impl.execute(reading(1)).faultString, "CriDisableModulationImpl has not been initialized");
    EXPECT_EQ(transcript.text(), "\n");
    publish(dspApi1);
    publish(acmHandler1);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(impl.execute(reading(1)).tiResult, 0);
}

} // namespace
} // namespace zyr_top_api
