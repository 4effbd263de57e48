#include "CommandTest.h"
#include "CriGetSdcStatusImpl.h"
#include "SpaceDiversityCombinerControllerDouble.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace zyr_top_api
{
namespace
{

class CriGetSdcStatusTest : public zyr_test::CommandTest
{
  protected:
    CriGetSdcStatusTest()
    {
        publish(controller1);
        publish(controller2);
        controller1.onGetSdcOperStatus = SdcStatus::Active;
        controller1.onGetSdcDadeStatus = SdcStatus::InProgress;
        controller1.onGetSdcActualPath = SdcPath::Diversity;
        controller1.onGetSdcSignalStatus = {{}, 'a', 'b', -401, -402, 13};
        controller1.onGetSdcDadeDelay = -14;
        controller2.onGetSdcOperStatus = SdcStatus::InProgress;
        controller2.onGetSdcDadeStatus = SdcStatus::Active;
        controller2.onGetSdcActualPath = SdcPath::Auto;
        controller2.onGetSdcSignalStatus = {{}, 'c', 'd', 2147483647, -2147483647, 23};
        controller2.onGetSdcDadeDelay = 24;
        transcript.clear();
    }

    zyr_test::SpaceDiversityCombinerControllerDouble controller1{transcript,
                                                                 "ISpaceDiversityCombinerController_1"};
    zyr_test::SpaceDiversityCombinerControllerDouble controller2{transcript,
                                                                 "ISpaceDiversityCombinerController_2"};
    CriGetSdcStatusImpl impl;
};

TEST_F(CriGetSdcStatusTest, ReadsTheControllerOfTheChannelInOrderThroughTheFrame)
{
    enrol<CriGetSdcStatusImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriGetSdcStatus", 7);
    transcript.clear();
    const auto response = tell(criGetSdcStatus({2U}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.GetSdcStatus Request: RadioChannelID: 2\n
6 ZYR.TI.CriGetSdcStatus: command.channelId=2
5 ZYR.TI.CriGetSdcStatus: RadioChannelID: 2\n
ISpaceDiversityCombinerController_2.getSdcOperStatus()
ISpaceDiversityCombinerController_2.getSdcDadeStatus()
ISpaceDiversityCombinerController_2.getSdcActualPath()
ISpaceDiversityCombinerController_2.getSdcSignalStatus()
ISpaceDiversityCombinerController_2.getSdcDadeDelay()
5 ZYR.TI.CriGetSdcStatus: SdcOperStatus: in-progress, SdcDadeStatus: calibrated, SdcDadeDelay: 24, SdcGain: 23, ActualPath: auto, HwErrorSdcMain: c, HwErrorSdcDiversity:d, SdcInputPowerMain: 2147483647, SdcInputPowerDiversity: -2147483647\n
5 ZYR.COMM: CRI.GetSdcStatus Response: SdcOperStatus: in-progress, SdcDadeStatus: calibrated, SdcDadeDelay: 24, SdcGain: 23, ActualPath: auto, HwErrorSdcMain: c, HwErrorSdcDiversity:d, SdcInputPowerMain: 2147483647, SdcInputPowerDiversity: -2147483647\n\n----------------------------------------------------\n
result 0x0 0 ""
prints SdcOperStatus: in-progress, SdcDadeStatus: calibrated, SdcDadeDelay: 24, SdcGain: 23, ActualPath: auto, HwErrorSdcMain: c, HwErrorSdcDiversity:d, SdcInputPowerMain: 2147483647, SdcInputPowerDiversity: -2147483647\n
)");
}

TEST_F(CriGetSdcStatusTest, EveryFieldHoldsItsReading)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    const auto response = impl.execute({1U});
    EXPECT_EQ(response.sdcOperStatus, "enabled");
    EXPECT_EQ(response.sdcDadeStatus, "in-progress");
    EXPECT_EQ(response.actualPath, "diversity");
    EXPECT_EQ(response.hwErrorSdcMain, 'a');
    EXPECT_EQ(response.hwErrorSdcDiversity, 'b');
    EXPECT_EQ(response.sdcInputPowerMain, -401);
    EXPECT_EQ(response.sdcInputPowerDiversity, -402);
    EXPECT_EQ(response.sdcGain, 13);
    EXPECT_EQ(response.sdcDadeDelay, -14);
}

TEST_F(CriGetSdcStatusTest, EmptyResponsePrintsItsDefaultsWithRawZeroBytes)
{
    tell(CriGetSdcStatus::Response());
    EXPECT_EQ(transcript.text(), R"(
result 0x0 0 ""
prints SdcOperStatus: disabled, SdcDadeStatus: not-calibrated, SdcDadeDelay: 0, SdcGain: 0, ActualPath: main, HwErrorSdcMain: \x00, HwErrorSdcDiversity:\x00, SdcInputPowerMain: 0, SdcInputPowerDiversity: 0\n
)");
}

TEST_F(CriGetSdcStatusTest, HardwareErrorsArePrintedAsTheyAre)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    controller1.onGetSdcSignalStatus = {{}, '\xFF', '\x01', 1, 2, 3};
    EXPECT_EQ(
        impl.execute({1U}).printResponse(),
        "SdcOperStatus: enabled, SdcDadeStatus: in-progress, SdcDadeDelay: -14, SdcGain: 3, ActualPath: "
        "diversity, HwErrorSdcMain: \xFF, HwErrorSdcDiversity:\x01, SdcInputPowerMain: 1, "
        "SdcInputPowerDiversity: 2\n");
}

TEST_F(CriGetSdcStatusTest, NothingIsLoggedAtTheDefaultLevel)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    controller1.onGetSdcActualPath = SdcPath::Invalid;
    impl.execute({1U});
    EXPECT_EQ(transcript.text(), R"(
ISpaceDiversityCombinerController_1.getSdcOperStatus()
ISpaceDiversityCombinerController_1.getSdcDadeStatus()
ISpaceDiversityCombinerController_1.getSdcActualPath()
)");
}

struct Texts
{
    std::int32_t value;
    std::string operStatus;
    std::string dadeStatus;
    std::string path;
};

TEST_F(CriGetSdcStatusTest, EveryStatusHasItsTextAndAnyOtherIsInvalid)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    const std::vector<Texts> all{
        {0, "disabled", "not-calibrated", "main"}, {1, "enabled", "calibrated", "diversity"},
        {2, "in-progress", "in-progress", "auto"}, {4, "invalid", "invalid", "invalid"},
        {-1, "invalid", "invalid", "invalid"},     {2147483647, "invalid", "invalid", "invalid"},
    };
    for (const auto& oper : all) {
        for (const auto& dade : all) {
            for (const auto& path : all) {
                controller1.onGetSdcOperStatus = oper.value;
                controller1.onGetSdcDadeStatus = dade.value;
                controller1.onGetSdcActualPath = path.value;
                const auto response = impl.execute({1U});
                EXPECT_EQ(response.tiResult, 0);
                EXPECT_EQ(response.sdcOperStatus, oper.operStatus);
                EXPECT_EQ(response.sdcDadeStatus, dade.dadeStatus);
                EXPECT_EQ(response.actualPath, path.path);
            }
        }
    }
}

TEST_F(CriGetSdcStatusTest, OperStatusWithoutAnswerEndsTheReadingAtLevel4)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetSdcStatus", 7);
    controller1.onGetSdcOperStatus = 3;
    controller1.onGetSdcDadeStatus = 3;
    controller1.onGetSdcActualPath = 3;
    transcript.clear();
    tell(impl.execute({1U}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetSdcStatus: command.channelId=1
5 ZYR.TI.CriGetSdcStatus: RadioChannelID: 1\n
ISpaceDiversityCombinerController_1.getSdcOperStatus()
4 ZYR.TI.CriGetSdcStatus: CRI.GetSdcStatus failed to get SDC Oper Status 3
result 0x8000 4 "CRI.GetSdcStatus failed to get SDC Oper Status 3"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetSdcStatus failed to get SDC Oper Status 3
)");
}

TEST_F(CriGetSdcStatusTest, DadeStatusWithoutAnswerEndsTheReadingAtLevel4)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetSdcStatus", 7);
    controller2.onGetSdcDadeStatus = 3;
    controller2.onGetSdcActualPath = 3;
    transcript.clear();
    tell(impl.execute({2U}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetSdcStatus: command.channelId=2
5 ZYR.TI.CriGetSdcStatus: RadioChannelID: 2\n
ISpaceDiversityCombinerController_2.getSdcOperStatus()
ISpaceDiversityCombinerController_2.getSdcDadeStatus()
4 ZYR.TI.CriGetSdcStatus: CRI.GetSdcStatus failed to get SDC DADE Status 3
result 0x8000 4 "CRI.GetSdcStatus failed to get SDC DADE Status 3"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetSdcStatus failed to get SDC DADE Status 3
)");
}

TEST_F(CriGetSdcStatusTest, PathWithoutAnswerEndsTheReadingAtLevel4AndLeavesTheDefaults)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetSdcStatus", 7);
    controller1.onGetSdcActualPath = 3;
    transcript.clear();
    const auto response = tell(impl.execute({1U}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetSdcStatus: command.channelId=1
5 ZYR.TI.CriGetSdcStatus: RadioChannelID: 1\n
ISpaceDiversityCombinerController_1.getSdcOperStatus()
ISpaceDiversityCombinerController_1.getSdcDadeStatus()
ISpaceDiversityCombinerController_1.getSdcActualPath()
4 ZYR.TI.CriGetSdcStatus: CRI.GetSdcStatus failed to get SDC Actual Path 3
result 0x8000 4 "CRI.GetSdcStatus failed to get SDC Actual Path 3"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetSdcStatus failed to get SDC Actual Path 3
)");
    EXPECT_EQ(response.sdcOperStatus, "disabled");
    EXPECT_EQ(response.sdcDadeStatus, "not-calibrated");
    EXPECT_EQ(response.actualPath, "main");
    EXPECT_EQ(response.hwErrorSdcMain, '\0');
    EXPECT_EQ(response.hwErrorSdcDiversity, '\0');
    EXPECT_EQ(response.sdcInputPowerMain, 0);
    EXPECT_EQ(response.sdcInputPowerDiversity, 0);
    EXPECT_EQ(response.sdcGain, 0);
    EXPECT_EQ(response.sdcDadeDelay, 0);
}

TEST_F(CriGetSdcStatusTest, ChannelAboveTheNumberOfChannelsIsRefusedWithALineAtLevel1)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriGetSdcStatus", 7);
    transcript.clear();
    tell(impl.execute({2U}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetSdcStatus: command.channelId=2
5 ZYR.TI.CriGetSdcStatus: RadioChannelID: 2\n
1 ZYR.TI.CriGetSdcStatus: command.channelId: 2 m_numberOfChannels 1
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
    EXPECT_EQ(impl.execute({4294967295U}).tiResult, 0xA100);
}

TEST_F(CriGetSdcStatusTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(impl.execute({1U}).tiResult, 0xA100);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetSdcStatus: command.channelId: 1 m_numberOfChannels 0
)");
}

TEST_F(CriGetSdcStatusTest, MissingControllerIsNotTested)
{
    withdraw("ISpaceDiversityCombinerController_2");
    ASSERT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(missingIn([&] { impl.execute({2U}); }), "ISpaceDiversityCombinerController of radio channel 2");
    EXPECT_EQ(missingIn([&] { impl.execute({0U}); }), "ISpaceDiversityCombinerController of radio channel 0");
    EXPECT_EQ(impl.execute({1U}).tiResult, 0);
}

TEST_F(CriGetSdcStatusTest, InitialiseRefusesZeroAndThreeChannels)
{
    setTraceLevel("ZYR.TI.CriGetSdcStatus", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriGetSdcStatus: numberOfChannels=0
1 ZYR.TI.CriGetSdcStatus: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriGetSdcStatus: numberOfChannels=3
1 ZYR.TI.CriGetSdcStatus: Error: numberOfChannels is out of range (3)
)x");
}

TEST_F(CriGetSdcStatusTest, FailedInitialiseHasATextOfItsOwnAndCountsAsACall)
{
    withdraw("ISpaceDiversityCombinerController_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.initialize(1), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetSdcStatus: Could not find the Space Diversity Combiner Controller interface: ISpaceDiversityCombinerController_2
1 ZYR.TI.CriGetSdcStatus: Already initialized
)");
}

} // namespace
} // namespace zyr_top_api
