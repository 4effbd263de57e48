#include "AtpcControllerDouble.h"
#include "CommandTest.h"
#include "SystemPowerControllerDouble.h"
#include "TiManageRfPowerImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace zyr_top_api
{
namespace
{

class TiManageRfPowerTest : public zyr_test::CommandTest
{
  protected:
    TiManageRfPowerTest()
    {
        // What is in force, and what is in force behind the override. On the two channels together any two
        // flags differ, each time.
        power1.onGetTxBarOn.inTurn({true, false});
        power1.onGetTxRequestedStatus.inTurn({TxRequestedStatus::On, TxRequestedStatus::Off});
        power1.onGetTargetInputPowerBarOn.inTurn({false, true});
        atpc1.onGetTargetInputPower.inTurn({-401, -402});
        power1.onGetOutputPowerBarOn.inTurn({true, false});
        power1.onGetMinOutputPower.inTurn({-11, -12});
        power1.onGetMaxOutputPower.inTurn({201, 202});
        power1.onGetIgnorePowerLimits.inTurn({false, true});
        power1.onGetForceLoopMode.inTurn({ForceLoopMode::ClosedLoop, ForceLoopMode::OpenLoop});
        power2.onGetTxBarOn.inTurn({false, true});
        power2.onGetTxRequestedStatus.inTurn({TxRequestedStatus::Off, TxRequestedStatus::On});
        power2.onGetTargetInputPowerBarOn.inTurn({true, false});
        atpc2.onGetTargetInputPower.inTurn({501, 502});
        power2.onGetOutputPowerBarOn.inTurn({true, false});
        power2.onGetMinOutputPower.inTurn({31, 32});
        power2.onGetMaxOutputPower.inTurn({-41, -42});
        power2.onGetIgnorePowerLimits.inTurn({false, true});
        power2.onGetForceLoopMode.inTurn(
            {ForceLoopMode::NormalOperationNoHysteresis, ForceLoopMode::NormalOperation});
        publish(power1);
        publish(power2);
        publish(atpc1);
        publish(atpc2);
        transcript.clear();
    }

    static TiManageRfPower::Command command(std::uint32_t channel)
    {
        TiManageRfPower::Command command;
        command.RadioChannelID = channel;
        return command;
    }

    zyr_test::SystemPowerControllerDouble power1{transcript, "ISystemPowerController_1"};
    zyr_test::SystemPowerControllerDouble power2{transcript, "ISystemPowerController_2"};
    zyr_test::AtpcControllerDouble atpc1{transcript, "IAtpcController_1"};
    zyr_test::AtpcControllerDouble atpc2{transcript, "IAtpcController_2"};
    TiManageRfPowerImpl impl;
};

TEST_F(TiManageRfPowerTest, EmptyCommandGivesTheValuesInForceBackAndShowsThemAsReadAnew)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(command(1)));
    tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageRfPowerImpl:
ISystemPowerController_1.getTxBarOn()
ISystemPowerController_1.getTxRequestedStatus()
ISystemPowerController_1.getTargetInputPowerBarOn()
IAtpcController_1.getTargetInputPower()
ISystemPowerController_1.getOutputPowerBarOn()
ISystemPowerController_1.getMinOutputPower()
ISystemPowerController_1.getMaxOutputPower()
ISystemPowerController_1.getIgnorePowerLimits()
ISystemPowerController_1.getForceLoopMode()
ISystemPowerController_1.overridePowerSettings(true, 1, false, -401, true, -11, 201, false, 2)
ISystemPowerController_1.getTxBarOn()
ISystemPowerController_1.getTxRequestedStatus()
ISystemPowerController_1.getTargetInputPowerBarOn()
IAtpcController_1.getTargetInputPower()
ISystemPowerController_1.getOutputPowerBarOn()
ISystemPowerController_1.getMinOutputPower()
ISystemPowerController_1.getMaxOutputPower()
ISystemPowerController_1.getIgnorePowerLimits()
ISystemPowerController_1.getForceLoopMode()
result 0x0 0 ""
prints RadioChannelID: 1, TXRequestedStatusBarOn: 0, TXRequestedStatus: Off, TargetRFInputPowerBarOn: 1, TargetRFInputPower: -402, RFOutputPowerBarOn: 0, MinRFOutputPower: -12, MaxRFOutputPower: 202, IgnorePowerLimits: 1, ForceLoopMode: OpenLoop
6 ZYR.TI.TiManageRfPowerImpl:
ISystemPowerController_2.getTxBarOn()
ISystemPowerController_2.getTxRequestedStatus()
ISystemPowerController_2.getTargetInputPowerBarOn()
IAtpcController_2.getTargetInputPower()
ISystemPowerController_2.getOutputPowerBarOn()
ISystemPowerController_2.getMinOutputPower()
ISystemPowerController_2.getMaxOutputPower()
ISystemPowerController_2.getIgnorePowerLimits()
ISystemPowerController_2.getForceLoopMode()
ISystemPowerController_2.overridePowerSettings(false, 0, true, 501, true, 31, -41, false, 1)
ISystemPowerController_2.getTxBarOn()
ISystemPowerController_2.getTxRequestedStatus()
ISystemPowerController_2.getTargetInputPowerBarOn()
IAtpcController_2.getTargetInputPower()
ISystemPowerController_2.getOutputPowerBarOn()
ISystemPowerController_2.getMinOutputPower()
ISystemPowerController_2.getMaxOutputPower()
ISystemPowerController_2.getIgnorePowerLimits()
ISystemPowerController_2.getForceLoopMode()
result 0x0 0 ""
prints RadioChannelID: 2, TXRequestedStatusBarOn: 1, TXRequestedStatus: On, TargetRFInputPowerBarOn: 0, TargetRFInputPower: 502, RFOutputPowerBarOn: 0, MinRFOutputPower: 32, MaxRFOutputPower: -42, IgnorePowerLimits: 1, ForceLoopMode: NormalOperation
)");
}

TEST_F(TiManageRfPowerTest, AllOptionsGoToTheControllerWithoutAReadInFront)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    power2.onOverridePowerSettings = 0x7FFF;
    TiManageRfPower::Command all = command(2);
    all.TXRequestedStatusBarOn = true;
    all.TXRequestedStatus = static_cast<TxRequestedStatus>(7);
    all.TargetRFInputPowerBarOn = false;
    all.TargetRFInputPower = -300;
    all.RFOutputPowerBarOn = true;
    all.MinRFOutputPower = -50;
    all.MaxRFOutputPower = 250;
    all.IgnorePowerLimits = false;
    all.ForceLoopMode = ForceLoopMode::OpenLoop;
    tell(impl.execute(all));
    EXPECT_EQ(transcript.text(), R"(
ISystemPowerController_2.overridePowerSettings(true, 7, false, -300, true, -50, 250, false, 3)
ISystemPowerController_2.getTxBarOn()
ISystemPowerController_2.getTxRequestedStatus()
ISystemPowerController_2.getTargetInputPowerBarOn()
IAtpcController_2.getTargetInputPower()
ISystemPowerController_2.getOutputPowerBarOn()
ISystemPowerController_2.getMinOutputPower()
ISystemPowerController_2.getMaxOutputPower()
ISystemPowerController_2.getIgnorePowerLimits()
ISystemPowerController_2.getForceLoopMode()
result 0x0 0 ""
prints RadioChannelID: 2, TXRequestedStatusBarOn: 0, TXRequestedStatus: Off, TargetRFInputPowerBarOn: 1, TargetRFInputPower: 501, RFOutputPowerBarOn: 1, MinRFOutputPower: 31, MaxRFOutputPower: -41, IgnorePowerLimits: 0, ForceLoopMode: NormalOperationNoHysteresis
)");
}

TEST_F(TiManageRfPowerTest, EachOptionAloneReplacesItsValueOnly)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    const auto overridden = [&](auto setOption) {
        TiManageRfPower::Command one = command(1);
        setOption(one);
        power1.onGetTxBarOn = true;
        power1.onGetTxRequestedStatus = TxRequestedStatus::On;
        power1.onGetTargetInputPowerBarOn = false;
        atpc1.onGetTargetInputPower = -401;
        power1.onGetOutputPowerBarOn = true;
        power1.onGetMinOutputPower = -11;
        power1.onGetMaxOutputPower = 201;
        power1.onGetIgnorePowerLimits = false;
        power1.onGetForceLoopMode = ForceLoopMode::ClosedLoop;
        transcript.clear();
        impl.execute(one);
        return transcript.lines().at(8);
    };
    const std::string front = "ISystemPowerController_1.overridePowerSettings";
    EXPECT_EQ(overridden([](auto& one) { one.TXRequestedStatusBarOn = false; }),
              front + "(false, 1, false, -401, true, -11, 201, false, 2)");
    EXPECT_EQ(overridden([](auto& one) { one.TXRequestedStatus = TxRequestedStatus::Off; }),
              front + "(true, 0, false, -401, true, -11, 201, false, 2)");
    EXPECT_EQ(overridden([](auto& one) { one.TargetRFInputPowerBarOn = true; }),
              front + "(true, 1, true, -401, true, -11, 201, false, 2)");
    EXPECT_EQ(overridden([](auto& one) { one.TargetRFInputPower = 5; }),
              front + "(true, 1, false, 5, true, -11, 201, false, 2)");
    EXPECT_EQ(overridden([](auto& one) { one.RFOutputPowerBarOn = false; }),
              front + "(true, 1, false, -401, false, -11, 201, false, 2)");
    EXPECT_EQ(overridden([](auto& one) { one.MinRFOutputPower = 6; }),
              front + "(true, 1, false, -401, true, 6, 201, false, 2)");
    EXPECT_EQ(overridden([](auto& one) { one.MaxRFOutputPower = 7; }),
              front + "(true, 1, false, -401, true, -11, 7, false, 2)");
    EXPECT_EQ(overridden([](auto& one) { one.IgnorePowerLimits = true; }),
              front + "(true, 1, false, -401, true, -11, 201, true, 2)");
    EXPECT_EQ(overridden([](auto& one) { one.ForceLoopMode = ForceLoopMode::NormalOperation; }),
              front + "(true, 1, false, -401, true, -11, 201, false, 0)");
}

TEST_F(TiManageRfPowerTest, RefusalHasTheWordsOfAnotherCommandAndShowsNoValues)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("*", 7);
    transcript.clear();
    power2.onOverridePowerSettings = 0x8001;
    const TiManageRfPower::Response response = tell(impl.execute(command(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageRfPowerImpl:
ISystemPowerController_2.getTxBarOn()
ISystemPowerController_2.getTxRequestedStatus()
ISystemPowerController_2.getTargetInputPowerBarOn()
IAtpcController_2.getTargetInputPower()
ISystemPowerController_2.getOutputPowerBarOn()
ISystemPowerController_2.getMinOutputPower()
ISystemPowerController_2.getMaxOutputPower()
ISystemPowerController_2.getIgnorePowerLimits()
ISystemPowerController_2.getForceLoopMode()
ISystemPowerController_2.overridePowerSettings(false, 0, true, 501, true, 31, -41, false, 1)
1 ZYR.TI.TiManageRfPowerImpl: ICcdpController::setBar failed for radiochannel 2 with status 32769
result 0x8000 4 "ICcdpController::setBar failed for radiochannel 2 with status 32769"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: ICcdpController::setBar failed for radiochannel 2 with status 32769
)");
    EXPECT_EQ(response.RadioChannelID, 1U);
    EXPECT_EQ(static_cast<unsigned>(response.TXRequestedStatus), 2U);
    EXPECT_EQ(static_cast<unsigned>(response.ForceLoopMode), 4U);
}

TEST_F(TiManageRfPowerTest, ObjectThatWasNotInitialisedIsNamedWhateverTheChannel)
{
    withdraw("IAtpcController_2");
    EXPECT_EQ(impl.initialize(2), eTI_E_FAILED);
    setTraceLevel("*", 7);
    transcript.clear();
    tell(impl.execute(command(1)));
    tell(impl.execute(command(9)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageRfPowerImpl:
result 0x8000 4 "TiManageRfPowerImpl has not been initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TiManageRfPowerImpl has not been initialized
6 ZYR.TI.TiManageRfPowerImpl:
result 0x8000 4 "TiManageRfPowerImpl has not been initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TiManageRfPowerImpl has not been initialized
)");
}

TEST_F(TiManageRfPowerTest, ChannelsOutsideTheCountThrowBeforeAnyCall)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    EXPECT_EQ(missingIn([&] { impl.execute(command(0)); }), "ISystemPowerController of radio channel 0");
    EXPECT_EQ(missingIn([&] { impl.execute(command(2)); }), "ISystemPowerController of radio channel 2");
    EXPECT_EQ(missingIn([&] { impl.execute(command(0xFFFFFFFF)); }),
              "ISystemPowerController of radio channel 4294967295");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiManageRfPowerTest, NewResponseIsUndefinedAndDoesNotFail)
{
    EXPECT_EQ(
        TiManageRfPower::Response().printResponse(),
        "RadioChannelID: 1, TXRequestedStatusBarOn: 0, TXRequestedStatus: Undefined, "
        "TargetRFInputPowerBarOn: 0, TargetRFInputPower: 0, RFOutputPowerBarOn: 0, MinRFOutputPower: 0, "
        "MaxRFOutputPower: 0, IgnorePowerLimits: 0, ForceLoopMode: Undefined");
}

} // namespace
} // namespace zyr_top_api
