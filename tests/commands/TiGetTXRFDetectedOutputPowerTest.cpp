#include "CommandTest.h"
#include "OutputPowerHandlerDouble.h"
#include "TiGetTXRFDetectedOutputPowerImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiGetTXRFDetectedOutputPowerTest : public zyr_test::CommandTest
{
  protected:
    TiGetTXRFDetectedOutputPowerTest()
    {
        handler.onTestGetDetectedPower = {0x7FFF, 199};
        handler.onTestGetDetectorInUse = {0x7FFF, true, -31, 32};
        handler.onTestGetDetectorData.inTurn({{0x7FFF, TxDetectorData{9, 11, -12, 13, 14, -15, 16, 17}},
                                              {0x7FFF, TxDetectorData{9, 21, 22, -23, 24, 25, -26, 27}}});
        publish(handler);
        transcript.clear();
    }

    zyr_test::OutputPowerHandlerDouble handler{transcript, "IOutputPowerHandler.1"};
    TiGetTXRFDetectedOutputPowerImpl impl;
};

TEST_F(TiGetTXRFDetectedOutputPowerTest, AllTermsOfBothDetectorsAreReadAndThePowerIsOnlyTraced)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({1}));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.GetTXRFDetectedOutputPower: cmd.channelId=1
4 ZYR.TI.GetTXRFDetectedOutputPower: Request: RadioChannelID: 1
IOutputPowerHandler.1.testGetDetectedPower()
4 ZYR.TI.GetTXRFDetectedOutputPower: Detected RfPower: 199
IOutputPowerHandler.1.testGetDetectorInUse()
IOutputPowerHandler.1.testGetDetectorData(1)
IOutputPowerHandler.1.testGetDetectorData(0)
4 ZYR.TI.GetTXRFDetectedOutputPower: Response: RadioChannelID: 1, usingHighDetector: 1, switchToHighLevel: -31, switchToLowLevel: 32, txRFDetectorADCValueHigh: 11, txRFDetectorADCValueLow: 21, powerFromVoltageHigh: -12, powerFromVoltageLow: 22, powerTemperatureCompensationHigh: 13, powerTemperatureCompensationLow: -23, powerFrequencyTemperatureCompensationHigh: 14, powerFrequencyTemperatureCompensationLow: 24, modulationCompensationHigh: -15, modulationCompensationLow: 25, bandwidthCompensationHigh: 16, bandwidthCompensationLow: -26, detectedPowerHigh: 17, detectedPowerLow: 27
result 0x0 0 ""
prints RadioChannelID: 1, usingHighDetector: 1, switchToHighLevel: -31, switchToLowLevel: 32, txRFDetectorADCValueHigh: 11, txRFDetectorADCValueLow: 21, powerFromVoltageHigh: -12, powerFromVoltageLow: 22, powerTemperatureCompensationHigh: 13, powerTemperatureCompensationLow: -23, powerFrequencyTemperatureCompensationHigh: 14, powerFrequencyTemperatureCompensationLow: 24, modulationCompensationHigh: -15, modulationCompensationLow: 25, bandwidthCompensationHigh: 16, bandwidthCompensationLow: -26, detectedPowerHigh: 17, detectedPowerLow: 27
)x");
}

TEST_F(TiGetTXRFDetectedOutputPowerTest, EachReadThatFailsEndsTheCommandWithoutValuesAndShowsItAtLevel4)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    handler.onTestGetDetectedPower.inTurn({{0x8000, 1}, {0, -2}});
    handler.onTestGetDetectorInUse.inTurn({{0x8000, true, 3, 4}, {0, true, 5, 6}});
    handler.onTestGetDetectorData.inTurn({{0x8000, TxDetectorData{1, 1, 1, 1, 1, 1, 1, 1}},
                                          {0, TxDetectorData{1, 1, 1, 1, 1, 1, 1, 1}},
                                          {0x8000, TxDetectorData{1, 1, 1, 1, 1, 1, 1, 1}}});
    setTraceLevel("*", 4);
    for (int call = 0; call < 4; ++call) {
        TiGetTXRFDetectedOutputPower::Response response = tell(impl.execute({1}));
        response.faultCode = 0;
        EXPECT_EQ(response.printResponse(), TiGetTXRFDetectedOutputPower::Response().printResponse());
    }
    EXPECT_EQ(transcript.text(), R"x(
4 ZYR.TI.GetTXRFDetectedOutputPower: Request: RadioChannelID: 1
IOutputPowerHandler.1.testGetDetectedPower()
4 ZYR.TI.GetTXRFDetectedOutputPower: Response: tiResult: eTI_E_FAILED, faultCode: 4, faultString: testGetDetectedPower() failed
result 0x8000 4 "testGetDetectedPower() failed"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: testGetDetectedPower() failed
4 ZYR.TI.GetTXRFDetectedOutputPower: Request: RadioChannelID: 1
IOutputPowerHandler.1.testGetDetectedPower()
4 ZYR.TI.GetTXRFDetectedOutputPower: Detected RfPower: -2
IOutputPowerHandler.1.testGetDetectorInUse()
4 ZYR.TI.GetTXRFDetectedOutputPower: Response: tiResult: eTI_E_FAILED, faultCode: 4, faultString: testGetDetectorInUse() failed
result 0x8000 4 "testGetDetectorInUse() failed"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: testGetDetectorInUse() failed
4 ZYR.TI.GetTXRFDetectedOutputPower: Request: RadioChannelID: 1
IOutputPowerHandler.1.testGetDetectedPower()
4 ZYR.TI.GetTXRFDetectedOutputPower: Detected RfPower: -2
IOutputPowerHandler.1.testGetDetectorInUse()
IOutputPowerHandler.1.testGetDetectorData(1)
4 ZYR.TI.GetTXRFDetectedOutputPower: Response: tiResult: eTI_E_FAILED, faultCode: 4, faultString: testGetDetectorData() failed
result 0x8000 4 "testGetDetectorData() failed"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: testGetDetectorData() failed
4 ZYR.TI.GetTXRFDetectedOutputPower: Request: RadioChannelID: 1
IOutputPowerHandler.1.testGetDetectedPower()
4 ZYR.TI.GetTXRFDetectedOutputPower: Detected RfPower: -2
IOutputPowerHandler.1.testGetDetectorInUse()
IOutputPowerHandler.1.testGetDetectorData(1)
IOutputPowerHandler.1.testGetDetectorData(0)
4 ZYR.TI.GetTXRFDetectedOutputPower: Response: tiResult: eTI_E_FAILED, faultCode: 4, faultString: testGetDetectorData() failed
result 0x8000 4 "testGetDetectorData() failed"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: testGetDetectorData() failed
)x");
}

TEST_F(TiGetTXRFDetectedOutputPowerTest, OtherChannelsThanOneAreRefusedWhateverTheNode)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    const TiGetTXRFDetectedOutputPower::Response response = tell(impl.execute({2}));
    tell(impl.execute({0}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.GetTXRFDetectedOutputPower: cmd.channelId=2
4 ZYR.TI.GetTXRFDetectedOutputPower: Request: RadioChannelID: 2
4 ZYR.TI.GetTXRFDetectedOutputPower: Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
6 ZYR.TI.GetTXRFDetectedOutputPower: cmd.channelId=0
4 ZYR.TI.GetTXRFDetectedOutputPower: Request: RadioChannelID: 0
4 ZYR.TI.GetTXRFDetectedOutputPower: Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
    EXPECT_EQ(response.radioChannelId, 1U);
}

TEST_F(TiGetTXRFDetectedOutputPowerTest, HandlerIsFoundUnderItsNameWithAFullStopOnlyAndThrowsWhenMissing)
{
    withdraw("IOutputPowerHandler.1");
    publish("IOutputPowerHandler_1", handler);
    setTraceLevel("*", 7);
    transcript.clear();
    EXPECT_EQ(impl.initialize(1), eTI_E_FAILED);
    EXPECT_EQ(missingIn([&] { impl.execute({1}); }), "IOutputPowerHandler of the node");
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.GetTXRFDetectedOutputPower: numberOfChannels=1
1 ZYR.TI.GetTXRFDetectedOutputPower: Could not find IOutputPowerHandler.1
6 ZYR.TI.GetTXRFDetectedOutputPower: cmd.channelId=1
4 ZYR.TI.GetTXRFDetectedOutputPower: Request: RadioChannelID: 1
)");
}

} // namespace
} // namespace zyr_top_api
