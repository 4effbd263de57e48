#include "CommandTest.h"
#include "OutputPowerHandlerDouble.h"
#include "TiManageTXRFGainImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiManageTXRFGainTest : public zyr_test::CommandTest
{
  protected:
    TiManageTXRFGainTest()
    {
        handler.onGetTxRfGain = {eTI_S_OK, -77};
        handler.onGetReducedGain.inTurn({{0x8000, 11}, {0, -12}, {0, 13}, {0, 14}, {0, -15}, {0, 16}});
        publish(handler);
        transcript.clear();
    }

    zyr_test::OutputPowerHandlerDouble handler{transcript, "IOutputPowerHandler.1"};
    TiManageTXRFGainImpl impl;
};

TEST_F(TiManageTXRFGainTest, CommandWithNoFieldsReadsAllValues)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    handler.onIsBarOn = true;
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.ManageTXRFGain:
4 ZYR.TI.ManageTXRFGain: Request:\x20
IOutputPowerHandler.1.getTxRfGain()
IOutputPowerHandler.1.isBarOn()
IOutputPowerHandler.1.getReducedGain(1)
IOutputPowerHandler.1.getReducedGain(2)
IOutputPowerHandler.1.getReducedGain(3)
IOutputPowerHandler.1.getReducedGain(4)
IOutputPowerHandler.1.getReducedGain(5)
IOutputPowerHandler.1.getReducedGain(6)
4 ZYR.TI.ManageTXRFGain: Response: RadioChannelID: 1, BarOn: 1, Tx RF Gain: -77, Reduced gain Amplifier1: 11, Reduced gain Amplifier2: -12, Reduced gain Amplifier3: 13, Reduced gain Amplifier4: 14, Reduced gain Amplifier5: -15, Reduced gain Amplifier6: 16
result 0x0 0 ""
prints RadioChannelID: 1, BarOn: 1, Tx RF Gain: -77, Reduced gain Amplifier1: 11, Reduced gain Amplifier2: -12, Reduced gain Amplifier3: 13, Reduced gain Amplifier4: 14, Reduced gain Amplifier5: -15, Reduced gain Amplifier6: 16
)");
}

TEST_F(TiManageTXRFGainTest, GainThatIsSetIsReportedAsRequestedBehindTheBar)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    handler.onSetBarOn = 0x8000;
    handler.onSetTxRfGain = 0x7FFF;
    setTraceLevel("*", 7);
    transcript.clear();
    TiManageTXRFGain::Command all;
    all.radioChannelId = 1U;
    all.barOn = true;
    all.txRfGain = -345;
    tell(impl.execute(all));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.ManageTXRFGain:
4 ZYR.TI.ManageTXRFGain: Request: RadioChannelID: 1, BarOn: 1, Tx RF Gain: -345
IOutputPowerHandler.1.setBarOn(true)
IOutputPowerHandler.1.setTxRfGain(-345)
IOutputPowerHandler.1.isBarOn()
IOutputPowerHandler.1.getReducedGain(1)
IOutputPowerHandler.1.getReducedGain(2)
IOutputPowerHandler.1.getReducedGain(3)
IOutputPowerHandler.1.getReducedGain(4)
IOutputPowerHandler.1.getReducedGain(5)
IOutputPowerHandler.1.getReducedGain(6)
4 ZYR.TI.ManageTXRFGain: Response: RadioChannelID: 1, BarOn: 0, Tx RF Gain: -345, Reduced gain Amplifier1: 11, Reduced gain Amplifier2: -12, Reduced gain Amplifier3: 13, Reduced gain Amplifier4: 14, Reduced gain Amplifier5: -15, Reduced gain Amplifier6: 16
result 0x0 0 ""
prints RadioChannelID: 1, BarOn: 0, Tx RF Gain: -345, Reduced gain Amplifier1: 11, Reduced gain Amplifier2: -12, Reduced gain Amplifier3: 13, Reduced gain Amplifier4: 14, Reduced gain Amplifier5: -15, Reduced gain Amplifier6: 16
)");
}

TEST_F(TiManageTXRFGainTest, GainThatIsRefusedIsABadArgumentAndTheBarStaysSet)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    handler.onSetTxRfGain = 0x8000;
    setTraceLevel("*", 7);
    transcript.clear();
    TiManageTXRFGain::Command request;
    request.barOn = false;
    request.txRfGain = 9;
    const TiManageTXRFGain::Response response = tell(impl.execute(request));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.ManageTXRFGain:
4 ZYR.TI.ManageTXRFGain: Request: BarOn: 0, Tx RF Gain: 9
IOutputPowerHandler.1.setBarOn(false)
IOutputPowerHandler.1.setTxRfGain(9)
4 ZYR.TI.ManageTXRFGain: Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: TI.ManageTXRFGain, unable to set requested gain.
result 0xA100 2 "TI.ManageTXRFGain, unable to set requested gain."
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: TI.ManageTXRFGain, unable to set requested gain.
)");
    EXPECT_EQ(response.txRfGain, 0);
    EXPECT_FALSE(response.barOn);
}

TEST_F(TiManageTXRFGainTest, OtherChannelsAreRefusedBeforeAnythingIsSet)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    TiManageTXRFGain::Command request;
    request.radioChannelId = 2U;
    request.txRfGain = 9;
    const TiManageTXRFGain::Response response = tell(impl.execute(request));
    request = {};
    request.radioChannelId = 0U;
    tell(impl.execute(request));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.ManageTXRFGain:
4 ZYR.TI.ManageTXRFGain: Request: RadioChannelID: 2, Tx RF Gain: 9
4 ZYR.TI.ManageTXRFGain: Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
6 ZYR.TI.ManageTXRFGain:
4 ZYR.TI.ManageTXRFGain: Request: RadioChannelID: 0
4 ZYR.TI.ManageTXRFGain: Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
    EXPECT_EQ(response.radioChannelId, 1U);
}

TEST_F(TiManageTXRFGainTest, HandlerIsFoundUnderItsNameWithAFullStopOnlyAndThrowsWhenMissing)
{
    withdraw("IOutputPowerHandler.1");
    publish("IOutputPowerHandler_1", handler);
    setTraceLevel("*", 7);
    transcript.clear();
    EXPECT_EQ(impl.initialize(7), eTI_E_FAILED);
    EXPECT_EQ(missingIn([&] { impl.execute({}); }), "IOutputPowerHandler of the node");
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.ManageTXRFGain: numberOfChannels=7
1 ZYR.TI.ManageTXRFGain: Could not find IOutputPowerHandler.1
6 ZYR.TI.ManageTXRFGain:
4 ZYR.TI.ManageTXRFGain: Request:\x20
)");
}

} // namespace
} // namespace zyr_top_api
