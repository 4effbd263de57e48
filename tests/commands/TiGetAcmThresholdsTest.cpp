#include "CommandTest.h"
#include "DspApiDouble.h"
#include "TiGetAcmThresholdsImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

namespace zyr_top_api
{
namespace
{

class TiGetAcmThresholdsTest : public zyr_test::CommandTest
{
  protected:
    TiGetAcmThresholdsTest()
    {
        dspApi1.acmApi.onGetAcmThresholds = std::vector<AcmThreshold>{
            {ModulationAndCoding::QAM_4_STRONG, -15}, {ModulationAndCoding::QAM_256, 283}};
        dspApi2.acmApi.onGetAcmThresholds = std::vector<AcmThreshold>{{ModulationAndCoding::QAM_16, 141}};
        publish(dspApi1);
        publish(dspApi2);
        transcript.clear();
    }

    static TiGetAcmThresholds::Command command(std::uint32_t channel) { return {RadioChannel(channel)}; }

    zyr_test::DspApiDouble dspApi1{transcript, "IDspApi_1"};
    zyr_test::DspApiDouble dspApi2{transcript, "IDspApi_2"};
    TiGetAcmThresholdsImpl impl;
};

TEST_F(TiGetAcmThresholdsTest, ThresholdsOfTheChannelAreGivenAndNotPrinted)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.GetAcmThresholds", 7);
    const TiGetAcmThresholds::Response first = tell(impl.execute(command(1)));
    const TiGetAcmThresholds::Response second = tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.GetAcmThresholds: command.channelId=1
IDspAcmApi_1.getAcmThresholds()
result 0x0 0 ""
prints tiResult: eTI_S_OK, faultCode: 0, faultString:\x20
6 ZYR.TI.GetAcmThresholds: command.channelId=2
IDspAcmApi_2.getAcmThresholds()
result 0x0 0 ""
prints tiResult: eTI_S_OK, faultCode: 0, faultString:\x20
)");
    ASSERT_EQ(first.thresholds.size(), 2U);
    EXPECT_EQ(first.thresholds[0].modulationAndCoding, ModulationAndCoding::QAM_4_STRONG);
    EXPECT_EQ(first.thresholds[0].threshold, -15);
    EXPECT_EQ(first.thresholds[1].modulationAndCoding, ModulationAndCoding::QAM_256);
    EXPECT_EQ(first.thresholds[1].threshold, 283);
    ASSERT_EQ(second.thresholds.size(), 1U);
    EXPECT_EQ(second.thresholds[0].threshold, 141);
}

TEST_F(TiGetAcmThresholdsTest, NoThresholdsAreASuccessToo)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    dspApi1.acmApi.onGetAcmThresholds = std::vector<AcmThreshold>{};
    const TiGetAcmThresholds::Response response = tell(impl.execute(command(1)));
    EXPECT_EQ(transcript.text(), R"(
IDspAcmApi_1.getAcmThresholds()
result 0x0 0 ""
prints tiResult: eTI_S_OK, faultCode: 0, faultString:\x20
)");
    EXPECT_TRUE(response.thresholds.empty());
}

TEST_F(TiGetAcmThresholdsTest, ChannelAboveTheNumberOfChannelsIsRefusedInSilence)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.GetAcmThresholds", 7);
    const TiGetAcmThresholds::Response response = tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.GetAcmThresholds: command.channelId=2
result 0xA100 2 "RadioChannelId out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelId out of bounds
)");
    EXPECT_TRUE(response.thresholds.empty());
}

TEST_F(TiGetAcmThresholdsTest, ClosedTestGateDoesNotMatter)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    openTestGate(false);
    EXPECT_EQ(impl.execute(command(1)).tiResult, 0);
}

TEST_F(TiGetAcmThresholdsTest, Channel0AndADspWithoutItsAcmPartAreNamed)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    dspApi1.onGetAcmApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "IDspApi of radio channel 0");
    try {
        impl.execute(command(1));
        FAIL() << "no exception";
    } catch (const std::out_of_range& exception) {
        EXPECT_STREQ(exception.what(), "IDspAcmApi of radio channel 1");
    }
}

TEST_F(TiGetAcmThresholdsTest, InitialiseRefusesOtherCountsAndNamesTheMissingDsp)
{
    setTraceLevel("ZYR.TI.GetAcmThresholds", 6);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.GetAcmThresholds:
1 ZYR.TI.GetAcmThresholds: Error: numberOfChannels is out of range (0)
6 ZYR.TI.GetAcmThresholds:
1 ZYR.TI.GetAcmThresholds: Error: numberOfChannels is out of range (3)
6 ZYR.TI.GetAcmThresholds:
1 ZYR.TI.GetAcmThresholds:  Error getting interface to IDspApi_2
6 ZYR.TI.GetAcmThresholds:
)");
}

TEST_F(TiGetAcmThresholdsTest, FailedInitialiseLeavesTheChannelsBeforeTheMissingOneUsable)
{
    setTraceLevel("ZYR.TI.GetAcmThresholds", 7);
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    tell(impl.execute(command(1)));
    EXPECT_EQ(missingIn([&] { impl.execute(command(2)); }), "IDspApi of radio channel 2");
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.GetAcmThresholds:
1 ZYR.TI.GetAcmThresholds:  Error getting interface to IDspApi_2
6 ZYR.TI.GetAcmThresholds: command.channelId=1
IDspAcmApi_1.getAcmThresholds()
result 0x0 0 ""
prints tiResult: eTI_S_OK, faultCode: 0, faultString:\x20
6 ZYR.TI.GetAcmThresholds: command.channelId=2
)");
}

} // namespace
} // namespace zyr_top_api
