#include "CommandTest.h"
#include "ExtremeValues.h"
#include "NodeDoubles.h"
#include "TiManageRadioChannelStatusImpl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

// What a response without data prints.
constexpr const char* kDefaultText =
    "TXActualStatus: , RadioChannelStatus: , ActualTxModulation: , ActualRxModulation:, LowestTxModulation: "
    ", "
    "LowestRxModulation: , ActualRFInputPower: -99, LowestRFInputPower: 0, ReportedRFOutputPower: -99, "
    "ActualSNIR: 0, LowestSNIR: 0, ErroredBlocks: 0, EbSinceLastRxLock: 0, RxLockedCounter: 0, TxFrequency: "
    "0, "
    "RxFrequency: 0";

class TiManageRadioChannelStatusTest : public zyr_test::CommandTest
{
  protected:
    using Response = TiManageRadioChannelStatus::Response;

    TiManageRadioChannelStatusTest()
    {
        makeHealthy(node.channel1);
        makeHealthy(node.channel2);
        publishNode(node);
        transcript.clear();
    }

    static void makeHealthy(zyr_test::ChannelDoubles& channel)
    {
        channel.outputPowerController.onGetTxStatus = 2;
        channel.acmHandler.onGetCurrentTxModulationAndCode = ModulationAndCoding::QAM_4096;
        channel.acmHandler.onGetCurrentRxModulationAndCode = ModulationAndCoding::QAM_2048_LIGHT;
        channel.acmHandler.onGetLowestModulationAndCode = {eTI_S_OK, ModulationAndCoding::QAM_16,
                                                           ModulationAndCoding::QAM_4_STRONG};
        channel.rssiHandler.onGetRssi = {eTI_S_OK, -45};
        channel.rssiHandler.onGetRssiMin = -61;
        channel.dspApi.statusApi.onGetErrorBlocks = {eTI_S_OK, DspErrorBlocks{1, 2, 3, 4}};
        channel.dspApi.statusApi.onGetEbSinceLastRxLock = 5;
        channel.dspApi.statusApi.onGetRxLockedCounter = 6;
        channel.dspApi.statusApi.onGetSnir = 38;
        channel.dspApi.statusApi.onGetLowestSnir = -12;
        channel.frequencyController.onGetTxFrequency = 14500000;
        channel.frequencyController.onGetRxFrequency = 14920000;
        channel.systemPowerController.onGetReportedOutputPower = 21;
    }

    void initialise() { ASSERT_EQ(impl.initialize(2), eTI_S_OK) << transcript.text(); }

    /// That a failed response holds none of the data.
    static void expectDefaults(Response response)
    {
        setResult(response, eTI_S_OK, "");
        EXPECT_EQ(response.printResponse(), kDefaultText);
    }

    zyr_test::NodeDoubles node{transcript};
    zyr_test::ChannelDoubles& one = node.channel1;
    TiManageRadioChannelStatusImpl impl;
};

TEST_F(TiManageRadioChannelStatusTest, HealthyChannelIsReadInOrderAndPrintedWhole)
{
    initialise();
    setTraceLevel("ZYR.TI.TiManageRadioChannelStatus", 7);
    tell(impl.execute({1, false}));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getCurrentTxModulationAndCode()
IAcmHandler_1.getCurrentRxModulationAndCode()
IAcmHandler_1.getLowestModulationAndCode(false)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(false)
IDspStatusApi_1.getEbSinceLastRxLock()
IDspStatusApi_1.getRxLockedCounter()
IFrequencyController_1.getTxFrequency()
IFrequencyController_1.getRxFrequency()
IRssiHandler_1.getRssiMin(false)
ISystemPowerController_1.getReportedOutputPower()
IDspStatusApi_1.getSnir()
IDspStatusApi_1.getLowestSnir(false)
result 0x0 0 ""
prints TXActualStatus: Standby, RadioChannelStatus: Up, ActualTxModulation: 4096QAM, ActualRxModulation:2048QAM_LIGHT, LowestTxModulation: 4QAM_STRONG, LowestRxModulation: 16QAM, ActualRFInputPower: -45, LowestRFInputPower: -61, ReportedRFOutputPower: 21, ActualSNIR: -38, LowestSNIR: 12, ErroredBlocks: 1, EbSinceLastRxLock: 5, RxLockedCounter: 6, TxFrequency: 14500000, RxFrequency: 14920000
)");
}

TEST_F(TiManageRadioChannelStatusTest, ResetReachesTheLowestValuesAndNeverTheErrorBlocks)
{
    initialise();
    tell(impl.execute({2, true}));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_2.getTxStatus()
IDspStatusApi_2.isLinkUp()
IAcmHandler_2.getCurrentTxModulationAndCode()
IAcmHandler_2.getCurrentRxModulationAndCode()
IAcmHandler_2.getLowestModulationAndCode(true)
IRssiHandler_2.getRssi()
IDspStatusApi_2.getErrorBlocks(false)
IDspStatusApi_2.getEbSinceLastRxLock()
IDspStatusApi_2.getRxLockedCounter()
IFrequencyController_2.getTxFrequency()
IFrequencyController_2.getRxFrequency()
IRssiHandler_2.getRssiMin(true)
ISystemPowerController_2.getReportedOutputPower()
IDspStatusApi_2.getSnir()
IDspStatusApi_2.getLowestSnir(true)
result 0x0 0 ""
prints TXActualStatus: Standby, RadioChannelStatus: Up, ActualTxModulation: 4096QAM, ActualRxModulation:2048QAM_LIGHT, LowestTxModulation: 4QAM_STRONG, LowestRxModulation: 16QAM, ActualRFInputPower: -45, LowestRFInputPower: -61, ReportedRFOutputPower: 21, ActualSNIR: -38, LowestSNIR: 12, ErroredBlocks: 1, EbSinceLastRxLock: 5, RxLockedCounter: 6, TxFrequency: 14500000, RxFrequency: 14920000
)");
}

TEST_F(TiManageRadioChannelStatusTest, DescriptionPointsToTheOperatingCommand)
{
    CommandMessageBase& base = impl;
    EXPECT_EQ(base.getCommandDescription(), "This is a TI version of the CRI.GetRadioChannelStatus");
}

// Print form.

TEST_F(TiManageRadioChannelStatusTest, ResponseWithoutDataPrintsItsDefaults)
{
    EXPECT_EQ(Response().printResponse(), kDefaultText);
}

TEST_F(TiManageRadioChannelStatusTest, ExtremeResponsePrintsEveryField)
{
    Response response;
    response.TXActualStatus = "a";
    response.RadioChannelStatus = "b";
    response.ActualTxModulation = "c";
    response.ActualRxModulation = "d";
    response.LowestTxModulation = "e";
    response.LowestRxModulation = "f";
    response.ActualRFInputPower = kMin;
    response.LowestRFInputPower = kMax;
    response.ReportedRFOutputPower = kMin;
    response.ActualSNIR = kMax;
    response.LowestSNIR = kMin;
    response.ErroredBlocks = kMax;
    response.EbSinceLastRxLock = kMin;
    response.RxLockedCounter = kMax;
    response.TxFrequency = kMin;
    response.RxFrequency = kMax;
    EXPECT_EQ(response.printResponse(),
              "TXActualStatus: a, RadioChannelStatus: b, ActualTxModulation: c, ActualRxModulation:d, "
              "LowestTxModulation: e, LowestRxModulation: f, ActualRFInputPower: -2147483648, "
              "LowestRFInputPower: 2147483647, ReportedRFOutputPower: -2147483648, ActualSNIR: 2147483647, "
              "LowestSNIR: -2147483648, ErroredBlocks: 2147483647, EbSinceLastRxLock: -2147483648, "
              "RxLockedCounter: 2147483647, TxFrequency: -2147483648, RxFrequency: 2147483647");
}

TEST_F(TiManageRadioChannelStatusTest, FailedResponsePrintsTheResultLineAlone)
{
    Response response;
    response.TXActualStatus = "On";
    setResult(response, eTI_E_FAILED, "why");
    EXPECT_EQ(response.printResponse(), "tiResult: eTI_E_FAILED, faultCode: 4, faultString: why");
}

// The channel.

TEST_F(TiManageRadioChannelStatusTest, ChannelAboveTheNumberOfChannelsIsRefusedWithoutARecord)
{
    initialise();
    setTraceLevel("ZYR.TI.TiManageRadioChannelStatus", 7);
    expectDefaults(tell(impl.execute({3, true})));
    expectDefaults(tell(impl.execute({4294967295U, true})));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
}

TEST_F(TiManageRadioChannelStatusTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(outcome(impl.execute({1, false})), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(TiManageRadioChannelStatusTest, Channel0PassesTheBoundCheckAndReachesNoCollaborator)
{
    initialise();
    EXPECT_EQ(missingIn([&] { impl.execute({0, true}); }), "IDspApi of radio channel 0");
    EXPECT_EQ(transcript.text(), "\n");
}

// Readings that fail.

TEST_F(TiManageRadioChannelStatusTest, FailedModulationReadTellsItsResult)
{
    initialise();
    one.acmHandler.onGetLowestModulationAndCode = eTI_E_FAILED;
    expectDefaults(tell(impl.execute({1, true})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getCurrentTxModulationAndCode()
IAcmHandler_1.getCurrentRxModulationAndCode()
IAcmHandler_1.getLowestModulationAndCode(true)
1 ZYR.TI.TiManageRadioChannelStatus: TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes 32768
result 0x8000 4 "TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes 32768"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes 32768
)");
}

TEST_F(TiManageRadioChannelStatusTest, AcmHandlerWithoutABodyOfItsOwnFailsWith32769)
{
    initialise();
    one.acmHandler.defaultsInForce = true;
    expectDefaults(tell(impl.execute({1, false})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getCurrentTxModulationAndCode()
IAcmHandler_1.getCurrentRxModulationAndCode()
IAcmHandler_1.getLowestModulationAndCode(false)
1 ZYR.TI.TiManageRadioChannelStatus: TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes 32769
result 0x8000 4 "TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes 32769"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageRadioChannelStatus failed to get lowest Rx and Tx modulationAndCodes 32769
)");
}

TEST_F(TiManageRadioChannelStatusTest, FailedLevelReadTellsItsResult)
{
    initialise();
    one.rssiHandler.onGetRssi = {0xFFFFFFFFU, 7};
    expectDefaults(tell(impl.execute({1, false})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getCurrentTxModulationAndCode()
IAcmHandler_1.getCurrentRxModulationAndCode()
IAcmHandler_1.getLowestModulationAndCode(false)
IRssiHandler_1.getRssi()
1 ZYR.TI.TiManageRadioChannelStatus: TI.ManageRadioChannelStatus failed to get rssi value 4294967295
result 0x8000 4 "TI.ManageRadioChannelStatus failed to get rssi value 4294967295"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageRadioChannelStatus failed to get rssi value 4294967295
)");
}

TEST_F(TiManageRadioChannelStatusTest, DspWithoutStatusPartFailsOnlyBehindTheLevel)
{
    initialise();
    one.dspApi.onGetDspStatusApi = nullptr;
    expectDefaults(tell(impl.execute({1, false})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IAcmHandler_1.getCurrentTxModulationAndCode()
IAcmHandler_1.getCurrentRxModulationAndCode()
IAcmHandler_1.getLowestModulationAndCode(false)
IRssiHandler_1.getRssi()
1 ZYR.TI.TiManageRadioChannelStatus: TI.ManageRadioChannelStatus failed to get DSP API interface
result 0x8000 4 "TI.ManageRadioChannelStatus failed to get DSP API interface"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageRadioChannelStatus failed to get DSP API interface
)");
}

TEST_F(TiManageRadioChannelStatusTest, StatusPartIsAskedForAgainForTheErrorBlocks)
{
    initialise();
    one.dspApi.onGetDspStatusApi.inTurn({&one.dspApi.statusApi, nullptr});
    EXPECT_EQ(outcome(impl.execute({1, false})),
              "result 0x8000 4 \"TI.ManageRadioChannelStatus failed to get DSP API interface\"");
    EXPECT_EQ(transcript.lines().at(1), "IDspStatusApi_1.isLinkUp()");

    one.dspApi.onGetDspStatusApi.inTurn({nullptr, &one.dspApi.statusApi});
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_EQ(response.RadioChannelStatus, "Down");
}

TEST_F(TiManageRadioChannelStatusTest, FailedErrorBlockReadTellsNoResult)
{
    initialise();
    one.dspApi.statusApi.onGetErrorBlocks = {eTI_E_FAILED, DspErrorBlocks{1, 2, 3, 4}};
    expectDefaults(tell(impl.execute({1, true})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getCurrentTxModulationAndCode()
IAcmHandler_1.getCurrentRxModulationAndCode()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(false)
1 ZYR.TI.TiManageRadioChannelStatus: TI.ManageRadioChannelStatus failed to get errored blocks from DSP
result 0x8000 4 "TI.ManageRadioChannelStatus failed to get errored blocks from DSP"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: TI.ManageRadioChannelStatus failed to get errored blocks from DSP
)");
}

TEST_F(TiManageRadioChannelStatusTest, GreatestSuccessOfEveryReadingComesOutAsPlainSuccess)
{
    initialise();
    one.acmHandler.onGetLowestModulationAndCode = 0x7FFF;
    one.rssiHandler.onGetRssi = 0x7FFF;
    one.dspApi.statusApi.onGetErrorBlocks = 0x7FFF;
    EXPECT_EQ(outcome(impl.execute({1, false})), "result 0x0 0 \"\"");
}

TEST_F(TiManageRadioChannelStatusTest, CollaboratorsThatWriteNothingLeaveTheStartingValues)
{
    initialise();
    one.acmHandler.onGetLowestModulationAndCode = eTI_S_OK;
    one.rssiHandler.onGetRssi = eTI_S_OK;
    one.dspApi.statusApi.onGetErrorBlocks = eTI_S_OK;
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.LowestTxModulation, "UNDEFINED");
    EXPECT_EQ(response.LowestRxModulation, "UNDEFINED");
    EXPECT_EQ(response.ActualRFInputPower, -99);
    EXPECT_EQ(response.ErroredBlocks, 0);
}

// Values.

TEST_F(TiManageRadioChannelStatusTest, RssiHandlerWithoutABodyOfItsOwnGivesMinus9999)
{
    initialise();
    one.rssiHandler.defaultsInForce = true;
    const Response response = impl.execute({1, true});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_EQ(response.LowestRFInputPower, -9999);
    EXPECT_EQ(response.ActualRFInputPower, -45);
}

TEST_F(TiManageRadioChannelStatusTest, ModulationsWithoutATextAreUndefined)
{
    initialise();
    one.acmHandler.onGetCurrentTxModulationAndCode = static_cast<ModulationAndCoding>(0);
    one.acmHandler.onGetCurrentRxModulationAndCode = ModulationAndCoding::UNDEFINED;
    one.acmHandler.onGetLowestModulationAndCode = {eTI_S_OK, static_cast<ModulationAndCoding>(164),
                                                   static_cast<ModulationAndCoding>(4294967295U)};
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.ActualTxModulation, "UNDEFINED");
    EXPECT_EQ(response.ActualRxModulation, "UNDEFINED");
    EXPECT_EQ(response.LowestTxModulation, "UNDEFINED");
    EXPECT_EQ(response.LowestRxModulation, "UNDEFINED");
}

TEST_F(TiManageRadioChannelStatusTest, TransmitterStatusIsGivenAsText)
{
    initialise();
    std::string texts;
    for (const unsigned status : {0U, 1U, 2U, 3U, 4294967295U}) {
        one.outputPowerController.onGetTxStatus = status;
        texts += impl.execute({1, false}).TXActualStatus + ";";
    }
    EXPECT_EQ(texts, "Off;On;Standby;UNDEFINED;UNDEFINED;");
}

TEST_F(TiManageRadioChannelStatusTest, LinkWithoutBackgroundBlocksIsNotTold)
{
    initialise();
    setTraceLevel("ZYR.TI.TiManageRadioChannelStatus", 7);
    one.dspApi.statusApi.onGetErrorBlocks = {eTI_S_OK, DspErrorBlocks{9, 0, 0, 0}};
    EXPECT_EQ(impl.execute({1, false}).RadioChannelStatus, "Up");
    one.dspApi.statusApi.onIsLinkUp = false;
    EXPECT_EQ(impl.execute({1, false}).RadioChannelStatus, "Down");
    EXPECT_EQ(transcript.text().find("ZYR.TI.TiManageRadioChannelStatus"), std::string::npos)
        << transcript.text();
}

TEST_F(TiManageRadioChannelStatusTest, ExtremeReadingsAreTakenOverAndNegatedWithoutOverflow)
{
    initialise();
    one.rssiHandler.onGetRssi = {eTI_S_OK, kMin};
    one.rssiHandler.onGetRssiMin = kMin;
    one.systemPowerController.onGetReportedOutputPower = kMin;
    one.dspApi.statusApi.onGetSnir = kMin;
    one.dspApi.statusApi.onGetLowestSnir = kMin;
    one.dspApi.statusApi.onGetErrorBlocks = {eTI_S_OK, DspErrorBlocks{kMin, kMax, kMax, kMax}};
    one.dspApi.statusApi.onGetEbSinceLastRxLock = kMin;
    one.dspApi.statusApi.onGetRxLockedCounter = kMin;
    one.frequencyController.onGetTxFrequency = kMin;
    one.frequencyController.onGetRxFrequency = kMin;
    EXPECT_EQ(impl.execute({1, false}).printResponse(),
              "TXActualStatus: Standby, RadioChannelStatus: Up, ActualTxModulation: 4096QAM, "
              "ActualRxModulation:2048QAM_LIGHT, LowestTxModulation: 4QAM_STRONG, LowestRxModulation: 16QAM, "
              "ActualRFInputPower: -2147483648, LowestRFInputPower: -2147483648, ReportedRFOutputPower: "
              "-2147483648, ActualSNIR: -2147483648, LowestSNIR: -2147483648, ErroredBlocks: -2147483648, "
              "EbSinceLastRxLock: -2147483648, RxLockedCounter: -2147483648, TxFrequency: -2147483648, "
              "RxFrequency: -2147483648");
    one.dspApi.statusApi.onGetSnir = kMax;
    one.dspApi.statusApi.onGetLowestSnir = kMax;
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.ActualSNIR, -2147483647);
    EXPECT_EQ(response.LowestSNIR, -2147483647);
}

TEST_F(TiManageRadioChannelStatusTest, FrequencyControllerThatIsLostInASecondInitialiseGivesZeroes)
{
    initialise();
    withdraw("IFrequencyController_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_EQ(response.TxFrequency, 0);
    EXPECT_EQ(response.RxFrequency, 0);
    EXPECT_EQ(response.RxLockedCounter, 6);
}

// initialize

TEST_F(TiManageRadioChannelStatusTest, InitialiseEntersAtLevel6WithoutAText)
{
    setTraceLevel("ZYR.TI.TiManageRadioChannelStatus", 7);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.TiManageRadioChannelStatus:
)");
}

TEST_F(TiManageRadioChannelStatusTest, InitialiseRefusesAnyOtherCountAndStoresNothing)
{
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(4294967295U), 0xA100);
    EXPECT_EQ(outcome(impl.execute({1, false})), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiManageRadioChannelStatus: Error: numberOfChannels is out of range (0)
1 ZYR.TI.TiManageRadioChannelStatus: Error: numberOfChannels is out of range (3)
1 ZYR.TI.TiManageRadioChannelStatus: Error: numberOfChannels is out of range (4294967295)
)");
}

TEST_F(TiManageRadioChannelStatusTest, InitialiseTellsTheFirstMissingInterface)
{
    for (const char* name : {"IDspApi_1", "IRssiHandler_1", "IFrequencyController_1", "IAcmHandler_1",
                             "IOutputPowerController_1", "ISystemPowerController_1"}) {
        withdraw(name);
        EXPECT_EQ(impl.initialize(2), 0x8000) << name;
    }
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiManageRadioChannelStatus: Could not find the DSP API interface
1 ZYR.TI.TiManageRadioChannelStatus: Could not find the RSSI Handler interface
1 ZYR.TI.TiManageRadioChannelStatus: Could not find the Frequency Controller interface
1 ZYR.TI.TiManageRadioChannelStatus: Could not find the Acm Handler interface
1 ZYR.TI.TiManageRadioChannelStatus: Could not find : IOutputPowerController_1
1 ZYR.TI.TiManageRadioChannelStatus: Could not find the System Power Controller interface: ISystemPowerController_1
)");
}

TEST_F(TiManageRadioChannelStatusTest, InitialiseGoesChannelByChannelAndKeepsTheOneBefore)
{
    withdraw("ISystemPowerController_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.execute({1, false}).tiResult, 0);
    EXPECT_EQ(missingIn([&] { impl.execute({2, false}); }), "IDspApi of radio channel 2");
    transcript.clear();
    withdraw("IDspApi_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.TiManageRadioChannelStatus: Could not find the DSP API interface
)");
}

TEST_F(TiManageRadioChannelStatusTest, InitialiseNeedsNoneOfTheOperatingCommandsFurtherInterfaces)
{
    for (const char* name : {"ICcdpController_1", "IMimoController_1", "IBasebandSdcController_1",
                             "IPpsController1", "IZyrRleHandler_1"}) {
        withdraw(name);
    }
    setTraceLevel("ZYR.TI.TiManageRadioChannelStatus", 5);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(impl.execute({1, false}).tiResult, 0);
    EXPECT_EQ(transcript.text().find("ZYR.TI.TiManageRadioChannelStatus"), std::string::npos);
}

TEST_F(TiManageRadioChannelStatusTest, SecondInitialiseFetchesTheCollaboratorsAnew)
{
    initialise();
    withdraw("IRssiHandler_1");
    zyr_test::RssiHandlerDouble other(transcript, "other");
    other.onGetRssi = {eTI_S_OK, -77};
    publish("IRssiHandler_1", other);
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(impl.execute({1, false}).ActualRFInputPower, -77);
    EXPECT_EQ(impl.execute({2, false}).tiResult, 0xA100);
}

} // namespace
} // namespace zyr_top_api
