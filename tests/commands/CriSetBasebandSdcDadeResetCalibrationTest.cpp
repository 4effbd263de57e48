#include "BasebandSdcControllerDouble.h"
#include "CommandTest.h"
#include "CriSetBasebandSdcDadeResetCalibrationImpl.h"

#include <gtest/gtest.h>

// The result that this setter knows beyond those of others; what it has in common is in CombinerSettersTest.

namespace zyr_top_api
{
namespace
{

class CriSetBasebandSdcDadeResetCalibrationTest : public zyr_test::CommandTest
{
  protected:
    CriSetBasebandSdcDadeResetCalibrationTest()
    {
        publish(controller);
        EXPECT_EQ(impl.initialize(1), eTI_S_OK);
        transcript.clear();
    }

    zyr_test::BasebandSdcControllerDouble controller{transcript, "IBasebandSdcController_1"};
    CriSetBasebandSdcDadeResetCalibrationImpl impl;
};

TEST_F(CriSetBasebandSdcDadeResetCalibrationTest, RunningCalibrationIsToldAtLevel7AndSucceeds)
{
    setTraceLevel("ZYR.TI.CriSetBasebandSdcDadeResetCalibration", 7);
    controller.onResetDadeCalibration = 0x1003;
    tell(impl.execute({1U}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetBasebandSdcDadeResetCalibration: command.channelId=1
3 ZYR.TI.CriSetBasebandSdcDadeResetCalibration: RadioChannelID: 1\n
IBasebandSdcController_1.resetDadeCalibration()
7 ZYR.TI.CriSetBasebandSdcDadeResetCalibration: CRI.SetSdcDadeResetCalibration is not executed because Calibration Status is In Progress or in Stopping\x20
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(CriSetBasebandSdcDadeResetCalibrationTest, NeighbouringResultsAreToldNowhere)
{
    setTraceLevel("ZYR.TI.CriSetBasebandSdcDadeResetCalibration", 7);
    for (const unsigned result : {0U, 0x1002U, 0x1004U, 0x8001U, 0x11003U}) {
        transcript.clear();
        controller.onResetDadeCalibration = result;
        tell(impl.execute({1U}));
        EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriSetBasebandSdcDadeResetCalibration: command.channelId=1
3 ZYR.TI.CriSetBasebandSdcDadeResetCalibration: RadioChannelID: 1\n
IBasebandSdcController_1.resetDadeCalibration()
result 0x0 0 ""
prints StandardResponse Sent\n
)") << std::hex
    << result;
    }
}

} // namespace
} // namespace zyr_top_api
