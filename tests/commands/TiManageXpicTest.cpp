#include "TiManageXpicFixture.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace zyr_top_api
{
namespace
{

class TiManageXpicTest : public zyr_test::TiManageXpicFixture
{};

TEST_F(TiManageXpicTest, EmptyCommandReadsBackChannel1)
{
    openTestGate();
    enrol<TiManageXpicImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.TiManageXpic", 7);
    tell(tiManageXpic({}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: TI.ManageXPIC Request:\x20
6 ZYR.TI.TiManageXpic:
ICcdpController_1.getBar()
ICcdpController_1.getLinkType()
channel.1.xpic.tx.enable.read()
IDspStatusApi_1.getSlaveAgc()
IDspStatusApi_1.getIqSlaveImbalance()
channel.1.xpic.connected.read()
5 ZYR.COMM: TI.ManageXPIC Response: RadioChannelID: 1, XpicControlBarOn: 1, XpicEnable: 0, AverageI: 0, AverageQ: 0, TxMessage: , RxMessage: , XpicLockStateMachine: 0, XpicState: , SlaveInternalAgc: -31, SlaveExternalAgc: 32, XpicCableConnected: 1, XpicTxEnable: 0, XpicEnableExt: Enable_A, SlaveDiffGain: -17, XpicPreambleGet: , XpicStatusGet: XpdDbTenths: 0, SlaveCarrierOffsetHz: 0, SlaveSweepInProgress: \x00, CalibStatus: \x00\n----------------------------------------------------\n
result 0x0 0 ""
prints RadioChannelID: 1, XpicControlBarOn: 1, XpicEnable: 0, AverageI: 0, AverageQ: 0, TxMessage: , RxMessage: , XpicLockStateMachine: 0, XpicState: , SlaveInternalAgc: -31, SlaveExternalAgc: 32, XpicCableConnected: 1, XpicTxEnable: 0, XpicEnableExt: Enable_A, SlaveDiffGain: -17, XpicPreambleGet: , XpicStatusGet: XpdDbTenths: 0, SlaveCarrierOffsetHz: 0, SlaveSweepInProgress: \x00, CalibStatus: \x00
)");
}

TEST_F(TiManageXpicTest, ClosedGateRefusesIt)
{
    enrol<TiManageXpicImpl>();
    EXPECT_EQ(outcome(tiManageXpic({})), "result 0x8003 4 \"Error: Command not available\"");
}

TEST_F(TiManageXpicTest, EverythingReachesTheChannelInOrder)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageXpic", 7);
    tell(impl.execute(allThatIsTaken(2)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageXpic:
ICcdpController_2.setBar(true)
4 ZYR.TI.TiManageXpic: XPIC Bar set to true
ICcdpController_2.getBar()
ICcdpController_2.getLinkType()
ICcdpController_2.forceXpic(3)
4 ZYR.TI.TiManageXpic: XPIC EnableExt set to Enable_C
ICcdpController_2.getLinkType()
channel.2.xpic.tx.enable.write(1)
channel.2.xpic.tx.enable.read()
IDspStatusApi_2.getSlaveAgc()
IDspStatusApi_2.getIqSlaveImbalance()
channel.2.xpic.connected.read()
ICcdpController_2.xpicMute(true)
ICcdpController_2.setPreamble(3)
ICcdpController_2.getPreamble()
ICcdpController_2.xpicAcquireStart(7, 8)
ICcdpController_2.getXpicStatusStruct()
result 0x0 0 ""
prints RadioChannelID: 2, XpicControlBarOn: 0, XpicEnable: 0, AverageI: 0, AverageQ: 0, TxMessage: , RxMessage: , XpicLockStateMachine: 0, XpicState: , SlaveInternalAgc: -62, SlaveExternalAgc: 64, XpicCableConnected: 0, XpicTxEnable: 1, XpicEnableExt: Enable_B, SlaveDiffGain: -34, XpicPreambleGet: Preamble_C, XpicStatusGet: XpdDbTenths: 602, SlaveCarrierOffsetHz: -8004, SlaveSweepInProgress: c, CalibStatus: r
)");
}

TEST_F(TiManageXpicTest, FalseFlagsSetOrReadNothingWhereTheyAskForSomething)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageXpic", 4);
    TiManageXpic::Command command = allThatIsTaken(1);
    command.xpicControlBarOn = false;
    command.xpicTxEnable = false;
    command.xpicMute = false;
    command.xpicAcquireStart = false;
    command.xpicPreambleGet = false;
    command.xpicStatusGet = false;
    tell(impl.execute(command));
    EXPECT_EQ(transcript.text(), R"(
ICcdpController_1.setBar(false)
4 ZYR.TI.TiManageXpic: XPIC Bar set to false
ICcdpController_1.getBar()
ICcdpController_1.getLinkType()
ICcdpController_1.forceXpic(3)
4 ZYR.TI.TiManageXpic: XPIC EnableExt set to Enable_C
ICcdpController_1.getLinkType()
channel.1.xpic.tx.enable.write(0)
channel.1.xpic.tx.enable.read()
IDspStatusApi_1.getSlaveAgc()
IDspStatusApi_1.getIqSlaveImbalance()
channel.1.xpic.connected.read()
ICcdpController_1.xpicMute(false)
ICcdpController_1.setPreamble(3)
result 0x0 0 ""
prints RadioChannelID: 1, XpicControlBarOn: 1, XpicEnable: 0, AverageI: 0, AverageQ: 0, TxMessage: , RxMessage: , XpicLockStateMachine: 0, XpicState: , SlaveInternalAgc: -31, SlaveExternalAgc: 32, XpicCableConnected: 1, XpicTxEnable: 0, XpicEnableExt: Enable_A, SlaveDiffGain: -17, XpicPreambleGet: , XpicStatusGet: XpdDbTenths: 0, SlaveCarrierOffsetHz: 0, SlaveSweepInProgress: \x00, CalibStatus: \x00
)");
}

TEST_F(TiManageXpicTest, OnlyOneCountsAsTheBarOn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.ccdpController.onGetBar.inTurn({0U, 1U, 2U, 4294967295U});
    for (const bool isOn : {false, true, false, false}) {
        EXPECT_EQ(impl.execute({}).xpicControlBarOn, isOn);
    }
}

TEST_F(TiManageXpicTest, ControllerWithoutABarOfItsOwnReadsBackWhatWasSet)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.ccdpController.defaultsInForce = true;
    TiManageXpic::Command command;
    command.xpicControlBarOn = true;
    EXPECT_TRUE(impl.execute(command).xpicControlBarOn);
    EXPECT_TRUE(impl.execute({}).xpicControlBarOn);
    command.xpicControlBarOn = false;
    EXPECT_FALSE(impl.execute(command).xpicControlBarOn);
}

// Link types.

TEST_F(TiManageXpicTest, LinkTypeThatIsInForceIsNotForcedAgain)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageXpic", 4);
    TiManageXpic::Command command;
    command.radioChannelId = 2U;
    command.xpicEnableExt = LinkType::Enable_B;
    impl.execute(command);
    EXPECT_EQ(transcript.text(), R"(
ICcdpController_2.getBar()
ICcdpController_2.getLinkType()
ICcdpController_2.getLinkType()
channel.2.xpic.tx.enable.read()
IDspStatusApi_2.getSlaveAgc()
IDspStatusApi_2.getIqSlaveImbalance()
channel.2.xpic.connected.read()
)");
}

TEST_F(TiManageXpicTest, LinkTypeIsReadBackAfterItWasForced)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.ccdpController.onGetLinkType.inTurn(
        {{eTI_S_OK, LinkType::Enable_A}, {eTI_S_OK, LinkType::Enable_D}});
    TiManageXpic::Command command;
    command.xpicEnableExt = LinkType::Disable;
    EXPECT_EQ(impl.execute(command).xpicEnableExt, LinkType::Enable_D);
    EXPECT_EQ(transcript.lines().at(2), "ICcdpController_1.forceXpic(0)");
}

TEST_F(TiManageXpicTest, LinkTypeWithoutANameIsForcedAndPrintsEmpty)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageXpic", 4);
    node.channel1.ccdpController.onGetLinkType = {0x7FFF, static_cast<LinkType>(6)};
    TiManageXpic::Command command;
    command.xpicEnableExt = static_cast<LinkType>(5);
    const auto response = impl.execute(command);
    EXPECT_EQ(transcript.lines().at(2), "ICcdpController_1.forceXpic(5)");
    EXPECT_EQ(transcript.lines().at(3), "4 ZYR.TI.TiManageXpic: XPIC EnableExt set to\\x20");
    EXPECT_NE(response.printResponse().find(", XpicEnableExt: , SlaveDiffGain: "), std::string::npos);
}

TEST_F(TiManageXpicTest, ControllerWithoutLinkTypesFailsToForceOneButNotToRead)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageXpic", 4);
    node.channel2.ccdpController.onGetLinkType = {4098, LinkType::Enable_D};
    TiManageXpic::Command command;
    command.radioChannelId = 2U;
    EXPECT_EQ(impl.execute(command).xpicEnableExt, LinkType::Disable);
    command.xpicEnableExt = LinkType::Enable_A;
    tell(impl.execute(command));
    EXPECT_EQ(transcript.text(), R"(
ICcdpController_2.getBar()
ICcdpController_2.getLinkType()
4 ZYR.TI.TiManageXpic: ICcdpController::getLinkType not supported for radioChannel 2
channel.2.xpic.tx.enable.read()
IDspStatusApi_2.getSlaveAgc()
IDspStatusApi_2.getIqSlaveImbalance()
channel.2.xpic.connected.read()
ICcdpController_2.getBar()
ICcdpController_2.getLinkType()
result 0x8000 4 "ICcdpController::getLinkType failed for radiochannel id 2 with status 4098"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: ICcdpController::getLinkType failed for radiochannel id 2 with status 4098
)");
}

TEST_F(TiManageXpicTest, OnlyExactly4098MeansThatLinkTypesAreNotSupported)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    TiManageXpic::Command command;
    command.xpicEnableExt = LinkType::Enable_A;
    for (const unsigned result : {4097U, 4099U, 0x7FFFU}) {
        node.channel1.ccdpController.onGetLinkType = {result, LinkType::Enable_D};
        EXPECT_EQ(outcome(impl.execute(command)), "result 0x0 0 \"\"") << result;
        EXPECT_EQ(impl.execute({}).xpicEnableExt, LinkType::Enable_D) << result;
    }
}

TEST_F(TiManageXpicTest, ControllerWithDefaultBodiesIsOneWithoutLinkTypes)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.ccdpController.defaultsInForce = true;
    EXPECT_EQ(outcome(impl.execute({})), "result 0x0 0 \"\"");
    TiManageXpic::Command command;
    command.xpicPreambleSet = XpicMimoPreamble::Preamble_A;
    EXPECT_EQ(outcome(impl.execute(command)), "result 0x0 0 \"\"");
    command.xpicEnableExt = LinkType::Disable;
    EXPECT_EQ(outcome(impl.execute(command)),
              "result 0x8000 4 \"ICcdpController::getLinkType failed for radiochannel id 1 with status "
              "4098\"");
}

// Refused fields.

TEST_F(TiManageXpicTest, PresenceAloneRefusesTwoFieldsAndWhatWasSetBeforeStays)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const bool value : {false, true}) {
        TiManageXpic::Command command = allThatIsTaken(1);
        command.xpicEnable = value;
        transcript.clear();
        tell(impl.execute(command));
        command.xpicEnable.reset();
        command.xpicLockStateMachine = value;
        tell(impl.execute(command));
        EXPECT_EQ(transcript.text(), R"(
ICcdpController_1.setBar(true)
ICcdpController_1.getBar()
result 0x8000 4 "XpicEnable is not supported anymore"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: XpicEnable is not supported anymore
ICcdpController_1.setBar(true)
ICcdpController_1.getBar()
ICcdpController_1.getLinkType()
ICcdpController_1.forceXpic(3)
ICcdpController_1.getLinkType()
result 0x8000 4 "XpicLockStateMachine is not supported anymore"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: XpicLockStateMachine is not supported anymore
)");
    }
}

TEST_F(TiManageXpicTest, MessageWithATextIsRefusedAndAnEmptyOnePassedOver)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    TiManageXpic::Command command;
    command.txMessage = std::string(" ");
    tell(impl.execute(command));
    EXPECT_EQ(transcript.text(), R"(
ICcdpController_1.getBar()
ICcdpController_1.getLinkType()
result 0x8000 4 "TxMessage is not supported anymore"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TxMessage is not supported anymore
)");
    command.txMessage = std::string();
    EXPECT_EQ(outcome(impl.execute(command)), "result 0x0 0 \"\"");
}

// Drivers.

TEST_F(TiManageXpicTest, ProductWithoutDriversInitialisesAndReadsFalse)
{
    removeDrivers();
    setTraceLevel("ZYR.TI.TiManageXpic", 7);
    EXPECT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageXpic: numberOfChannels=2
5 ZYR.TI.TiManageXpic: driver channel.1.xpic.connected not supported
5 ZYR.TI.TiManageXpic: driver channel.1.xpic.tx.enable not supported
5 ZYR.TI.TiManageXpic: driver channel.2.xpic.connected not supported
5 ZYR.TI.TiManageXpic: driver channel.2.xpic.tx.enable not supported
6 ZYR.TI.TiManageXpic:
ICcdpController_1.getBar()
ICcdpController_1.getLinkType()
4 ZYR.TI.TiManageXpic: XpicTxEnableDriver not supported
IDspStatusApi_1.getSlaveAgc()
IDspStatusApi_1.getIqSlaveImbalance()
4 ZYR.TI.TiManageXpic: XpicCableConnected is not supported in this product
result 0x0 0 ""
prints RadioChannelID: 1, XpicControlBarOn: 1, XpicEnable: 0, AverageI: 0, AverageQ: 0, TxMessage: , RxMessage: , XpicLockStateMachine: 0, XpicState: , SlaveInternalAgc: -31, SlaveExternalAgc: 32, XpicCableConnected: 0, XpicTxEnable: 0, XpicEnableExt: Enable_A, SlaveDiffGain: -17, XpicPreambleGet: , XpicStatusGet: XpdDbTenths: 0, SlaveCarrierOffsetHz: 0, SlaveSweepInProgress: \x00, CalibStatus: \x00
)");
}

TEST_F(TiManageXpicTest, TransmitEnableOnAProductWithoutItsDriverIsRefused)
{
    drivers1.reset();
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    TiManageXpic::Command command;
    command.xpicTxEnable = false;
    tell(impl.execute(command));
    EXPECT_EQ(transcript.text(), R"(
ICcdpController_1.getBar()
ICcdpController_1.getLinkType()
result 0x8000 4 "XpicTxEnable is not supported in this product"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: XpicTxEnable is not supported in this product
)");
    command.radioChannelId = 2U;
    EXPECT_EQ(outcome(impl.execute(command)), "result 0x0 0 \"\"");
}

TEST_F(TiManageXpicTest, EachDriverCanBeMissingAlone)
{
    drivers1.reset();
    const zyr_test::DriverDouble txEnable(transcript, "channel.1.xpic.tx.enable");
    drivers2.reset();
    zyr_test::DriverDouble cable(transcript, "channel.2.xpic.connected");
    cable.onRead = {0x7FFFU, 2U};
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageXpic", 4);
    EXPECT_FALSE(impl.execute({}).xpicCableConnected);
    TiManageXpic::Command command;
    command.radioChannelId = 2U;
    EXPECT_TRUE(impl.execute(command).xpicCableConnected);
    EXPECT_EQ(transcript.text(), R"(
ICcdpController_1.getBar()
ICcdpController_1.getLinkType()
channel.1.xpic.tx.enable.read()
IDspStatusApi_1.getSlaveAgc()
IDspStatusApi_1.getIqSlaveImbalance()
4 ZYR.TI.TiManageXpic: XpicCableConnected is not supported in this product
ICcdpController_2.getBar()
ICcdpController_2.getLinkType()
4 ZYR.TI.TiManageXpic: XpicTxEnableDriver not supported
IDspStatusApi_2.getSlaveAgc()
IDspStatusApi_2.getIqSlaveImbalance()
channel.2.xpic.connected.read()
)");
}

// The slave.

TEST_F(TiManageXpicTest, DspWithoutSlaveReadingsReportsZeros)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.dspApi.statusApi.defaultsInForce = true;
    const auto response = impl.execute({});
    EXPECT_EQ(outcome(response), "result 0x0 0 \"\"");
    EXPECT_EQ(response.slaveInternalAgc, 0);
    EXPECT_EQ(response.slaveExternalAgc, 0);
    EXPECT_EQ(response.slaveDiffGain, 0);
}

TEST_F(TiManageXpicTest, OnlyExactly4100MeansThatTheSlaveHasNoReadings)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    auto& statusApi = node.channel1.dspApi.statusApi;
    for (const unsigned result : {4099U, 4100U, 4101U, 0x7FFFU}) {
        statusApi.onGetSlaveAgc = {result, std::int16_t{-32768}, std::int16_t{32767}};
        statusApi.onGetIqSlaveImbalance = {result,          std::int16_t{1}, std::int16_t{-9},
                                           std::int16_t{3}, std::int16_t{4}, std::int16_t{5}};
        const auto response = impl.execute({});
        const bool isSupported = result != 4100;
        EXPECT_EQ(response.slaveInternalAgc, isSupported ? -32768 : 0) << result;
        EXPECT_EQ(response.slaveExternalAgc, isSupported ? 32767 : 0) << result;
        EXPECT_EQ(response.slaveDiffGain, isSupported ? -9 : 0) << result;
    }
}

TEST_F(TiManageXpicTest, OutsThatTheDspLeavesAloneAreZero)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    auto& statusApi = node.channel1.dspApi.statusApi;
    statusApi.onGetSlaveAgc = eTI_S_OK;
    statusApi.onGetIqSlaveImbalance = eTI_S_OK;
    node.channel1.ccdpController.onGetLinkType = eTI_S_OK;
    drivers1->cable.onRead = 0U;
    const auto response = impl.execute({});
    EXPECT_EQ(response.slaveInternalAgc, 0);
    EXPECT_EQ(response.slaveExternalAgc, 0);
    EXPECT_EQ(response.slaveDiffGain, 0);
    EXPECT_EQ(response.xpicEnableExt, LinkType::Disable);
    EXPECT_FALSE(response.xpicCableConnected);
}

TEST_F(TiManageXpicTest, PreambleIsNoneAtAllBeforeItIsRead)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    std::uint32_t given = 0;
    node.channel1.ccdpController.onGetPreamble.doInstead([&](XpicMimoPreamble& preamble) {
        given = static_cast<std::uint32_t>(preamble);
        return eTI_S_OK;
    });
    TiManageXpic::Command command;
    command.xpicPreambleGet = true;
    EXPECT_EQ(impl.execute(command).xpicPreambleGet, static_cast<XpicMimoPreamble>(4));
    EXPECT_EQ(given, 4U);
    EXPECT_EQ(impl.execute({}).xpicPreambleGet, static_cast<XpicMimoPreamble>(4));
}

TEST_F(TiManageXpicTest, AcquisitionWithoutAnyModeIsRefusedAndWithOneThrows)
{
    openTestGate();
    enrol<TiManageXpicImpl>();
    TiManageXpic::Command command;
    command.xpicAcquireStart = true;
    tell(tiManageXpic(command));
    command.xpicAcquireMode = static_cast<XpicAcquireMode>(1);
    EXPECT_THROW(tiManageXpic(command), general_classes::BadOptional);
    command.xpicAcquireMode.reset();
    command.xpicSpectralInversionMode = static_cast<XpicSpectralInversionMode>(1);
    EXPECT_THROW(tiManageXpic(command), general_classes::BadOptional);
    command.xpicAcquireStart = false;
    EXPECT_EQ(outcome(tiManageXpic(command)), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.lines().at(6), "result 0x8000 4 \"xpicAcquireStart: XpicAcquireMode and/or "
                                        "XpicSpectralInversionMode not set\"");
    for (const std::string& line : transcript.lines()) {
        EXPECT_EQ(line.find("xpicAcquireStart("), std::string::npos);
    }
}

TEST_F(TiManageXpicTest, ModesOfAnyNumberPass)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    TiManageXpic::Command command;
    command.xpicAcquireStart = true;
    command.xpicAcquireMode = static_cast<XpicAcquireMode>(0);
    command.xpicSpectralInversionMode = static_cast<XpicSpectralInversionMode>(4294967295U);
    impl.execute(command);
    EXPECT_EQ(transcript.lines().back(), "ICcdpController_1.xpicAcquireStart(0, 4294967295)");
}

// Failures of the collaborators.

struct Break
{
    std::function<void(unsigned result)> step;
    std::size_t lines; // up to and with the call that fails
    std::string text;  // "<s>" stands for the result
};

class TiManageXpicFailureTest : public TiManageXpicTest
{
  protected:
    // From the last step to the first.
    std::vector<Break> breaks()
    {
        auto& ccdp = node.channel2.ccdpController;
        auto& statusApi = node.channel2.dspApi.statusApi;
        auto& cable = drivers2->cable;
        auto& txEnable = drivers2->txEnable;
        return {
            {[&](unsigned result) { ccdp.onGetXpicStatusStruct = result; }, 18,
             "getXpicStatusStruct, on radioChannel 2, failed"},
            {[&](unsigned result) { ccdp.onXpicAcquireStart = result; }, 17,
             "xpicAcquireStart, on radioChannel 2, failed"},
            {[&](unsigned result) { ccdp.onGetPreamble = result; }, 16,
             "getPreamble, on radioChannel 2, failed"},
            {[&](unsigned result) { ccdp.onSetPreamble = result; }, 15,
             "setPreamble(Preamble_D), on radioChannel 2, failed"},
            {[&](unsigned result) { ccdp.onXpicMute = result; }, 14, "xpicMute, on radioChannel 2, failed"},
            {[&](unsigned result) { cable.onRead = result; }, 13,
             "XpicCableConnected::Read failed for radiochannel 2 with status <s>"},
            {[&](unsigned result) { statusApi.onGetIqSlaveImbalance = result; }, 12,
             "DspStatusApi::getIqSlaveImbalance failed for radiochannel 2 with status <s>"},
            {[&](unsigned result) { statusApi.onGetSlaveAgc = result; }, 11,
             "DspStatusApi::getSlaveAgc failed for radiochannel 2 with status <s>"},
            {[&](unsigned result) { txEnable.onRead = result; }, 10,
             "XpicTxEnableDriver::Read failed for radiochannel 2 with status <s>"},
            {[&](unsigned result) { txEnable.onWrite = result; }, 9,
             "XpicTxEnableDriver::Write failed for radiochannel 2 with status <s>"},
            {[&](unsigned result) {
                 ccdp.onGetLinkType.inTurn({{eTI_S_OK, LinkType::Enable_B}, result});
             },
             8, "ICcdpController::getLinkType failed for radioChannel 2 with status <s>"},
            {[&](unsigned result) { ccdp.onForceXpic = result; }, 6,
             "ICcdpController::forceXpic failed for radiochannel 2 with status<s>"},
            {[&](unsigned result) { ccdp.onGetLinkType = result; }, 5,
             "ICcdpController::getLinkType failed for radiochannel id 2 with status <s>"},
            {[&](unsigned result) { ccdp.onSetBar = result; }, 2,
             "ICcdpController::setBar failed for radiochannel 2 with status <s>"},
        };
    }

    static std::string withResult(std::string text, unsigned result)
    {
        const auto place = text.find("<s>");
        return place == std::string::npos ? text : text.replace(place, 3, std::to_string(result));
    }

    // A complete run, up to its result.
    const std::vector<std::string> lines{
        "6 ZYR.TI.TiManageXpic:",
        "ICcdpController_2.setBar(true)",
        "4 ZYR.TI.TiManageXpic: XPIC Bar set to true",
        "ICcdpController_2.getBar()",
        "ICcdpController_2.getLinkType()",
        "ICcdpController_2.forceXpic(3)",
        "4 ZYR.TI.TiManageXpic: XPIC EnableExt set to Enable_C",
        "ICcdpController_2.getLinkType()",
        "channel.2.xpic.tx.enable.write(1)",
        "channel.2.xpic.tx.enable.read()",
        "IDspStatusApi_2.getSlaveAgc()",
        "IDspStatusApi_2.getIqSlaveImbalance()",
        "channel.2.xpic.connected.read()",
        "ICcdpController_2.xpicMute(true)",
        "ICcdpController_2.setPreamble(3)",
        "ICcdpController_2.getPreamble()",
        "ICcdpController_2.xpicAcquireStart(7, 8)",
        "ICcdpController_2.getXpicStatusStruct()",
    };
};

// Each failure is added to those behind it: the first one ends the command, silently and without readings.
TEST_F(TiManageXpicFailureTest, FirstFailureEndsTheCommandSilently)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    setTraceLevel("ZYR.TI.TiManageXpic", 7);
    const std::vector<Break> all = breaks();
    for (std::size_t first = 0; first < all.size(); ++first) {
        const unsigned result = first == 0 ? 0x8000U : 0xFFFFFFFFU - static_cast<unsigned>(first);
        for (std::size_t broken = 0; broken <= first; ++broken) {
            all[broken].step(result);
        }
        transcript.clear();
        tell(impl.execute(allThatIsTaken(2)));
        std::string expected = "\n";
        for (std::size_t line = 0; line < all[first].lines; ++line) {
            expected += lines[line] + "\n";
        }
        const std::string text = withResult(all[first].text, result);
        expected += "result 0x8000 4 \"" + text + "\"\n";
        expected += "prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: " + text + "\n";
        EXPECT_EQ(transcript.text(), expected);
    }
}

TEST_F(TiManageXpicFailureTest, GreatestSuccessOfEveryCallIsSuccess)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    for (const Break& step : breaks()) {
        step.step(0x7FFF);
    }
    EXPECT_EQ(outcome(impl.execute(allThatIsTaken(2))), "result 0x0 0 \"\"");
}

TEST_F(TiManageXpicFailureTest, FailureGivesAResponseWithoutReadings)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.ccdpController.onGetXpicStatusStruct = {0x8000, XpicStatusStruct{1, 2, 3, 4}};
    const auto response = impl.execute(allThatIsTaken(2));
    EXPECT_EQ(response.radioChannelId, 1U);
    EXPECT_EQ(response.slaveInternalAgc, 0);
    EXPECT_EQ(response.slaveDiffGain, 0);
    EXPECT_FALSE(response.xpicTxEnable);
    EXPECT_EQ(response.xpicEnableExt, LinkType::Disable);
    EXPECT_EQ(response.xpicPreambleGet, static_cast<XpicMimoPreamble>(4));
    EXPECT_EQ(response.xpdDbTenths, 0);
    EXPECT_EQ(response.calibStatus, 0);
}

TEST_F(TiManageXpicFailureTest, ResponseOfAResultAndATextHoldsNoReadings)
{
    const TiManageXpic::Response response(eTI_E_FAILED, "no words of the command");
    EXPECT_EQ(response.printResponse(),
              "tiResult: eTI_E_FAILED, faultCode: 4, faultString: no words of the command");
    EXPECT_EQ(response.radioChannelId, 1U);
    EXPECT_EQ(response.xpicPreambleGet, static_cast<XpicMimoPreamble>(4));
    EXPECT_EQ(TiManageXpic::Response(eTI_W_WARNING, "dropped").faultString, "");
}

TEST_F(TiManageXpicFailureTest, PreambleWithoutANameIsEmptyInTheText)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.ccdpController.onSetPreamble = 0x8000;
    TiManageXpic::Command command;
    command.xpicPreambleSet = static_cast<XpicMimoPreamble>(4);
    EXPECT_EQ(impl.execute(command).faultString, "setPreamble(), on radioChannel 1, failed");
}

// The channel.

TEST_F(TiManageXpicTest, ChannelThatIsNotThereThrowsBeforeAnyCall)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    for (const std::uint32_t channel : {0U, 2U, 3U, 4294967295U}) {
        const std::string missing = "ICcdpController of radio channel " + std::to_string(channel);
        EXPECT_EQ(missingIn([&] { impl.execute(allThatIsTaken(channel)); }), missing);
        TiManageXpic::Command read;
        read.radioChannelId = channel;
        EXPECT_EQ(missingIn([&] { impl.execute(read); }), missing);
    }
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiManageXpicTest, ObjectThatWasNotInitialisedSaysSoForAnyChannel)
{
    setTraceLevel("ZYR.TI.TiManageXpic", 7);
    tell(impl.execute(allThatIsTaken(3)));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageXpic:
result 0x8000 4 "TiManageXpicImpl has not been initialized"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TiManageXpicImpl has not been initialized
)");
}

// Print forms.

TEST_F(TiManageXpicTest, CommandPrintsItsFirstSevenFieldsIfTheyAreThere)
{
    EXPECT_EQ(TiManageXpic::Command().toString(), "");
    TiManageXpic::Command command = allThatIsTaken(2);
    command.xpicEnable = false;
    command.txMessage = std::string("hello");
    command.xpicLockStateMachine = true;
    EXPECT_EQ(command.toString(), "RadioChannelID: 2, XpicControlBarOn: 1, XpicEnable: 0, XpicEnableExt: "
                                  "Enable_C, TxMessage: hello, XpicLockStateMachine: 1, XpicTxEnable1");
    command.radioChannelId.reset();
    command.xpicControlBarOn.reset();
    command.xpicEnable.reset();
    command.xpicEnableExt = static_cast<LinkType>(5);
    command.txMessage = std::string();
    command.xpicLockStateMachine.reset();
    command.xpicTxEnable = false;
    EXPECT_EQ(command.toString(), ", XpicEnableExt: , TxMessage: , XpicTxEnable0");
}

TEST_F(TiManageXpicTest, ResponsePrintsEveryFieldWithOneByteFieldsRaw)
{
    TiManageXpic::Response response;
    response.radioChannelId = 4294967295U;
    response.xpicEnable = true;
    response.averageI = -1;
    response.averageQ = -2;
    response.txMessage = "tx";
    response.rxMessage = "rx";
    response.xpicLockStateMachine = true;
    response.xpicState = "state";
    response.xpicEnableExt = LinkType::Enable_D;
    response.xpicPreambleGet = XpicMimoPreamble::Preamble_A;
    response.slaveSweepInProgress = '\n';
    response.calibStatus = 0xE4;
    EXPECT_EQ(response.printResponse(),
              "RadioChannelID: 4294967295, XpicControlBarOn: 0, XpicEnable: 1, AverageI: -1, AverageQ: -2, "
              "TxMessage: tx, RxMessage: rx, XpicLockStateMachine: 1, XpicState: state, SlaveInternalAgc: 0, "
              "SlaveExternalAgc: 0, XpicCableConnected: 0, XpicTxEnable: 0, XpicEnableExt: Enable_D, "
              "SlaveDiffGain: 0, XpicPreambleGet: Preamble_A, XpicStatusGet: XpdDbTenths: 0, "
              "SlaveCarrierOffsetHz: 0, SlaveSweepInProgress: \n, CalibStatus: \xE4");
}

// initialize

TEST_F(TiManageXpicTest, InitialiseGuardsTheSecondCallBeforeTheRange)
{
    setTraceLevel("ZYR.TI.TiManageXpic", 7);
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageXpic: numberOfChannels=0
1 ZYR.TI.TiManageXpic: numberOfChannels is out of bounds
6 ZYR.TI.TiManageXpic: numberOfChannels=3
1 ZYR.TI.TiManageXpic: numberOfChannels is out of bounds
6 ZYR.TI.TiManageXpic: numberOfChannels=1
6 ZYR.TI.TiManageXpic: numberOfChannels=3
1 ZYR.TI.TiManageXpic: TiManageXpicImpl already initialize
)");
}

TEST_F(TiManageXpicTest, InitialiseTellsWhatIsMissingOfWhichChannelAndCanBeRepeated)
{
    node.channel2.dspApi.onGetDspStatusApi = nullptr;
    EXPECT_EQ(impl.initialize(2), 0x8000);
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    withdraw("ICcdpController_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    withdraw("IDspApi_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(outcome(impl.execute({})), "result 0x8000 4 \"TiManageXpicImpl has not been initialized\"");
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiManageXpic: failed to fetch interface IDspStatusApi for radiochannel 2
1 ZYR.TI.TiManageXpic: failed to fetch interface IDspApi for radiochannel 2
1 ZYR.TI.TiManageXpic: failed to fetch interface ICcdpController for radiochannel 2
1 ZYR.TI.TiManageXpic: failed to fetch interface IDspApi for radiochannel 1
)");
    publish(node.channel1.dspApi);
    EXPECT_EQ(impl.initialize(1), 0);
}

TEST_F(TiManageXpicTest, DriversOfAChannelAreTakenBehindItsInterfaces)
{
    removeDrivers();
    withdraw("ICcdpController_2");
    setTraceLevel("ZYR.TI.TiManageXpic", 5);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.TI.TiManageXpic: driver channel.1.xpic.connected not supported
5 ZYR.TI.TiManageXpic: driver channel.1.xpic.tx.enable not supported
1 ZYR.TI.TiManageXpic: failed to fetch interface ICcdpController for radiochannel 2
)");
}

} // namespace
} // namespace zyr_top_api
