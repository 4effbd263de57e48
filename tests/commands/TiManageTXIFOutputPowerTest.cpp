#include "CommandTest.h"
#include "OutputPowerHandlerDouble.h"
#include "TiManageTXIFOutputPowerImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

class TiManageTXIFOutputPowerTest : public zyr_test::CommandTest
{
  protected:
    TiManageTXIFOutputPowerTest()
    {
        handler.onIsTxIfBarOn = true;
        handler.onGetTxIfOutputPower = {0x8000, -77};
        handler.onGetDacValue = {0x8000, 1023};
        publish(handler);
        transcript.clear();
    }

    zyr_test::OutputPowerHandlerDouble handler{transcript, "IOutputPowerHandler.1"};
    TiManageTXIFOutputPowerImpl impl;
};

TEST_F(TiManageTXIFOutputPowerTest, CommandWithNoFieldsReadsAllValues)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.ManageTXIFOutputPower:
4 ZYR.TI.ManageTXIFOutputPower: Request:\x20
IOutputPowerHandler.1.isTxIfBarOn()
IOutputPowerHandler.1.getTxIfOutputPower()
IOutputPowerHandler.1.getDacValue()
4 ZYR.TI.ManageTXIFOutputPower: Response: RadioChannelID: 1, TXIFBAROn: 1, TXIFOutputPower: -77, DACValue: 1023
result 0x0 0 ""
prints RadioChannelID: 1, TXIFBAROn: 1, TXIFOutputPower: -77, DACValue: 1023
)");
}

TEST_F(TiManageTXIFOutputPowerTest, SettingsThatTheHandlerRefusesSucceedWithWhatIsReadBack)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    handler.onSetTxIfBarOn = 0x8000;
    handler.onSetTxIfOutputPower = 0x8000;
    setTraceLevel("*", 7);
    transcript.clear();
    TiManageTXIFOutputPower::Command all;
    all.radioChannelId = 1U;
    all.txIfBarOn = false;
    all.txIfOutputPower = -345;
    tell(impl.execute(all));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.ManageTXIFOutputPower:
4 ZYR.TI.ManageTXIFOutputPower: Request: RadioChannelID: 1, TXIFBAROn: 0, TXIFOutputPower: -345
IOutputPowerHandler.1.setTxIfBarOn(false)
IOutputPowerHandler.1.setTxIfOutputPower(-345)
IOutputPowerHandler.1.isTxIfBarOn()
IOutputPowerHandler.1.getTxIfOutputPower()
IOutputPowerHandler.1.getDacValue()
4 ZYR.TI.ManageTXIFOutputPower: Response: RadioChannelID: 1, TXIFBAROn: 1, TXIFOutputPower: -77, DACValue: 1023
result 0x0 0 ""
prints RadioChannelID: 1, TXIFBAROn: 1, TXIFOutputPower: -77, DACValue: 1023
)");
}

TEST_F(TiManageTXIFOutputPowerTest, EachFieldAloneIsSet)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("*", 4);
    TiManageTXIFOutputPower::Command bar;
    bar.txIfBarOn = true;
    TiManageTXIFOutputPower::Command power;
    power.txIfOutputPower = 5;
    impl.execute(bar);
    impl.execute(power);
    EXPECT_EQ(transcript.text(), R"(
4 ZYR.TI.ManageTXIFOutputPower: Request: TXIFBAROn: 1
IOutputPowerHandler.1.setTxIfBarOn(true)
IOutputPowerHandler.1.isTxIfBarOn()
IOutputPowerHandler.1.getTxIfOutputPower()
IOutputPowerHandler.1.getDacValue()
4 ZYR.TI.ManageTXIFOutputPower: Response: RadioChannelID: 1, TXIFBAROn: 1, TXIFOutputPower: -77, DACValue: 1023
4 ZYR.TI.ManageTXIFOutputPower: Request: TXIFOutputPower: 5
IOutputPowerHandler.1.setTxIfOutputPower(5)
IOutputPowerHandler.1.isTxIfBarOn()
IOutputPowerHandler.1.getTxIfOutputPower()
IOutputPowerHandler.1.getDacValue()
4 ZYR.TI.ManageTXIFOutputPower: Response: RadioChannelID: 1, TXIFBAROn: 1, TXIFOutputPower: -77, DACValue: 1023
)");
}

TEST_F(TiManageTXIFOutputPowerTest, OtherChannelsAreRefusedBeforeAnythingIsSet)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    TiManageTXIFOutputPower::Command request;
    request.radioChannelId = 2U;
    request.txIfBarOn = true;
    tell(impl.execute(request));
    request = {};
    request.radioChannelId = 0U;
    tell(impl.execute(request));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.ManageTXIFOutputPower:
4 ZYR.TI.ManageTXIFOutputPower: Request: RadioChannelID: 2, TXIFBAROn: 1
4 ZYR.TI.ManageTXIFOutputPower: Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
6 ZYR.TI.ManageTXIFOutputPower:
4 ZYR.TI.ManageTXIFOutputPower: Request: RadioChannelID: 0
4 ZYR.TI.ManageTXIFOutputPower: Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
}

TEST_F(TiManageTXIFOutputPowerTest, HandlerIsFoundUnderItsNameWithAFullStopOnlyAndThrowsWhenMissing)
{
    withdraw("IOutputPowerHandler.1");
    publish("IOutputPowerHandler_1", handler);
    setTraceLevel("*", 7);
    transcript.clear();
    EXPECT_EQ(impl.initialize(0), eTI_E_FAILED);
    EXPECT_EQ(missingIn([&] { impl.execute({}); }), "IOutputPowerHandler of the node");
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.ManageTXIFOutputPower: numberOfChannels=0
1 ZYR.TI.ManageTXIFOutputPower: Could not find IOutputPowerHandler.1
6 ZYR.TI.ManageTXIFOutputPower:
4 ZYR.TI.ManageTXIFOutputPower: Request:\x20
)");
}

} // namespace
} // namespace zyr_top_api
