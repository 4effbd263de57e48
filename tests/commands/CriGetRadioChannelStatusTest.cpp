#include "CommandTest.h"
#include "CriGetRadioChannelStatusImpl.h"
#include "ExtremeValues.h"
#include "MemorySink.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zyr_top_api
{
namespace
{

// What a response without data prints.
constexpr const char* kDefaultData =
    "TXActualStatus: , RadioChannelStatus: , ActualModulation: , ActualTxModulation: , ActualRxModulation:, "
    "ActualRFInputPower: -99, ReportedRFOutputPower: -99, ClockStatus: 0, ActualSNIR: 0, ErroredBlocks: 0, "
    "BackgroundBlocks: 0, ErrorBytes: 0, TotalBytes: 0, TxFrequency: 0, RxFrequency: 0, ZyrState: , "
    "HopLengthLatency: 0, XpicIsStarted: false, MimoIsStarted: false, IsMimo4x4: false, ActualXpi: 0, "
    "ActualEta: 0, XpicStatus: , MimoStatus: , PpfLocked: notSupported, ActualGainBasebandSdc: 0, "
    "ActualSnirMainBasebandSdc: 0, ActualSnirDiversityBasebandSdc: 0, ActualXpiMainBasebandSdc: 0, "
    "ActualXpiDiversityBasebandSdc: 0, ActualDadeStatusBasebandSdc: , ActualDadeDelayBasebandSdc: 0, "
    "BasebandSdcCalibrationDataMain: 0, BasebandSdcCalibrationDataDiversity: 0";

// What a healthy channel without XPIC, MIMO and baseband combining prints.
constexpr const char* kHealthyData =
    "TXActualStatus: On, RadioChannelStatus: Up, ActualModulation: 256QAM, ActualTxModulation: 256QAM, "
    "ActualRxModulation:128QAM_LIGHT, ActualRFInputPower: -45, ReportedRFOutputPower: 21, ClockStatus: 1, "
    "ActualSNIR: -38, ErroredBlocks: 1, BackgroundBlocks: 2, ErrorBytes: 3, TotalBytes: 4, TxFrequency: "
    "14500000, RxFrequency: 14920000, ZyrState: NormalOperation, HopLengthLatency: 66713, XpicIsStarted: "
    "false, MimoIsStarted: false, IsMimo4x4: false, ActualXpi: 0, ActualEta: 0, XpicStatus: , MimoStatus: , "
    "PpfLocked: locked, ActualGainBasebandSdc: 0, ActualSnirMainBasebandSdc: 0, "
    "ActualSnirDiversityBasebandSdc: 0, ActualXpiMainBasebandSdc: 0, ActualXpiDiversityBasebandSdc: 0, "
    "ActualDadeStatusBasebandSdc: , ActualDadeDelayBasebandSdc: 0, BasebandSdcCalibrationDataMain: 0, "
    "BasebandSdcCalibrationDataDiversity: 0";

class CriGetRadioChannelStatusTest : public zyr_test::CommandTest
{
  protected:
    using Response = CriGetRadioChannelStatus::Response;

    CriGetRadioChannelStatusTest()
    {
        makeHealthy(node.channel1);
        makeHealthy(node.channel2);
        publishNode(node);
        transcript.clear();
    }

    static void makeHealthy(zyr_test::ChannelDoubles& channel)
    {
        channel.outputPowerController.onGetTxStatus = 1;
        channel.acmHandler.onGetLowestModulationAndCode = {eTI_S_OK, ModulationAndCoding::QAM_128_LIGHT,
                                                           ModulationAndCoding::QAM_256};
        channel.rssiHandler.onGetRssi = {eTI_S_OK, -45};
        channel.dspApi.statusApi.onGetErrorBlocks = {eTI_S_OK, DspErrorBlocks{1, 2, 3, 4}};
        channel.dspApi.statusApi.onGetSnir = 38;
        channel.dspApi.channelApi.onGetPpfLockStatus = {eTI_S_OK, true};
        channel.frequencyController.onGetTxFrequency = 14500000;
        channel.frequencyController.onGetRxFrequency = 14920000;
        channel.ppsController.onGetHopLengthLatency = {eTI_S_OK, 66713U};
        channel.systemPowerController.onGetReportedOutputPower = 21;
        channel.rleHandler.onGetRleStatus = 3;
    }

    static void startXpic(zyr_test::ChannelDoubles& channel)
    {
        channel.ccdpController.onIsStarted = true;
        channel.ccdpController.onGetXpi = {eTI_S_OK, 27};
        channel.ccdpController.onGetState = {eTI_S_OK, std::string("Locked to the other")};
    }

    static void startMimo(zyr_test::ChannelDoubles& channel, int mode)
    {
        channel.mimoController.onIsStarted = true;
        channel.dspApi.controlApi.onGetMimoMode = {eTI_S_OK, mode};
        channel.mimoController.onGetEta = general_classes::Optional<std::int32_t>(-6);
        channel.mimoController.onGetStatus = 2;
        channel.mimoController.onGetXpi = general_classes::Optional<std::int32_t>(19);
        channel.mimoController.onGetXpicStatus = general_classes::Optional(MimoLockStatus::Locked);
    }

    static void startBasebandSdc(zyr_test::ChannelDoubles& channel)
    {
        channel.basebandSdcController.onIsStarted = true;
        channel.basebandSdcController.onGetStatus = BasebandSdcStatusData{
            .gain = 11, .xpiMain = 12, .xpiDiversity = 13, .snirMain = 14, .snirDiversity = 15};
        channel.basebandSdcController.onGetDadeStatus = 4;
        channel.basebandSdcController.onGetDadeDelay = -16;
        channel.basebandSdcController.onGetCalibrationData = 0x80010002U;
    }

    /// Leaves no lines in the transcript.
    void initialise()
    {
        ASSERT_EQ(impl.initialize(2), eTI_S_OK) << transcript.text();
        transcript.clear();
    }

    /// The data of a response, printed as if it hadn't failed.
    static std::string dataOf(Response response)
    {
        setResult(response, eTI_S_OK, "");
        return response.printResponse();
    }

    /// That a failed response holds none of the data, those that aren't printed among them.
    static void expectDefaults(const Response& response)
    {
        EXPECT_EQ(dataOf(response), kDefaultData);
        EXPECT_FALSE(response.BasebandSdcIsStarted);
        EXPECT_FALSE(response.RleStatus.hasValue());
    }

    zyr_test::NodeDoubles node{transcript};
    zyr_test::ChannelDoubles& one = node.channel1;
    CriGetRadioChannelStatusImpl impl;
};

TEST_F(CriGetRadioChannelStatusTest, HealthyChannelIsReadInOrderAndPrintedWhole)
{
    enrol<CriGetRadioChannelStatusImpl>();
    const Response response = tell(criGetRadioChannelStatus({1, false}));
    EXPECT_FALSE(response.BasebandSdcIsStarted);
    EXPECT_EQ(response.RleStatus.value(), 3);
    EXPECT_EQ(transcript.text(), std::string(R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(false)
IDspStatusApi_1.getSnir()
ICcdpController_1.isStarted()
IMimoController_1.isStarted()
IBasebandSdcController_1.isStarted()
IDspChannelApi_1.getPpfLockStatus()
IFrequencyController_1.getTxFrequency()
IFrequencyController_1.getRxFrequency()
IPpsController1.getHopLengthLatency()
ISystemPowerController_1.getReportedOutputPower()
IZyrRleHandler_1.getRleStatus()
result 0x0 0 ""
prints )") + kHealthyData + "\n");
}

TEST_F(CriGetRadioChannelStatusTest, SecondChannelAsksItsOwnCollaborators)
{
    initialise();
    node.channel2.rleHandler.onGetRleStatus = -1;
    const Response response = tell(impl.execute({2, true}));
    EXPECT_EQ(response.RleStatus.value(), -1);
    EXPECT_EQ(transcript.text(), std::string(R"(
IOutputPowerController_2.getTxStatus()
IDspStatusApi_2.isLinkUp()
IAcmHandler_2.getLowestModulationAndCode(true)
IRssiHandler_2.getRssi()
IDspStatusApi_2.getErrorBlocks(true)
IDspStatusApi_2.getSnir()
ICcdpController_2.isStarted()
IMimoController_2.isStarted()
IBasebandSdcController_2.isStarted()
IDspChannelApi_2.getPpfLockStatus()
IFrequencyController_2.getTxFrequency()
IFrequencyController_2.getRxFrequency()
IPpsController2.getHopLengthLatency()
ISystemPowerController_2.getReportedOutputPower()
IZyrRleHandler_2.getRleStatus()
result 0x0 0 ""
prints )") + kHealthyData + "\n");
}

TEST_F(CriGetRadioChannelStatusTest, FrameShowsRequestAndResponseAtLevel5)
{
    enrol<CriGetRadioChannelStatusImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriGetRadioChannelStatus", 7);
    criGetRadioChannelStatus({3, true});
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.GetRadioChannelStatus Request: RadioChannelID: 3, ResetErrorBlocks: 1\n
5 ZYR.COMM: CRI.GetRadioChannelStatus Response: tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds\n----------------------------------------------------\n
)");
}

TEST_F(CriGetRadioChannelStatusTest, FrameShowsTheDataOfAResponse)
{
    enrol<CriGetRadioChannelStatusImpl>();
    setTraceLevel("ZYR.COMM", 5);
    criGetRadioChannelStatus({2, false});
    const std::vector<std::string> lines = transcript.lines();
    EXPECT_EQ(lines.front(),
              "5 ZYR.COMM: CRI.GetRadioChannelStatus Request: RadioChannelID: 2, ResetErrorBlocks: 0\\n");
    EXPECT_EQ(lines.back(), std::string("5 ZYR.COMM: CRI.GetRadioChannelStatus Response: ") + kHealthyData +
                                "\\n----------------------------------------------------\\n");
}

TEST_F(CriGetRadioChannelStatusTest, FrameRunsAndReturnsUnderTheClassName)
{
    enrol<CriGetRadioChannelStatusImpl>();
    setTraceLevel("*", 6);
    setTraceLevel("ZYR.COMM", 3);
    criGetRadioChannelStatus({3, false});
    const std::string text = transcript.text();
    EXPECT_NE(text.find(": Running CriGetRadioChannelStatus::Command\n"), std::string::npos) << text;
    EXPECT_NE(text.find(": Return CriGetRadioChannelStatus::Response\n"), std::string::npos) << text;
}

// Print form.

TEST_F(CriGetRadioChannelStatusTest, ResponseWithoutDataPrintsItsDefaults)
{
    EXPECT_EQ(Response().printResponse(), kDefaultData);
    EXPECT_FALSE(Response().BasebandSdcIsStarted);
    EXPECT_FALSE(Response().RleStatus.hasValue());
}

TEST_F(CriGetRadioChannelStatusTest, ExtremeResponsePrintsEveryFieldButTwo)
{
    Response response;
    response.TXActualStatus = "Standby";
    response.RadioChannelStatus = "Down";
    response.ActualModulation = "a";
    response.ActualTxModulation = "b";
    response.ActualRxModulation = "c";
    response.ActualRFInputPower = kMin;
    response.ReportedRFOutputPower = kMax;
    response.ClockStatus = kMin;
    response.ActualSNIR = kMax;
    response.ErroredBlocks = kMin;
    response.BackgroundBlocks = kMax;
    response.ErrorBytes = kMin;
    response.TotalBytes = kMax;
    response.TxFrequency = kMin;
    response.RxFrequency = kMax;
    response.ZyrState = "ColdRestart";
    response.HopLengthLatency = 4294967295U;
    response.XpicIsStarted = true;
    response.MimoIsStarted = true;
    response.IsMimo4x4 = true;
    response.BasebandSdcIsStarted = true;
    response.ActualXpi = kMin;
    response.ActualEta = kMax;
    response.XpicStatus = "d";
    response.MimoStatus = "e";
    response.PpfLocked = PpfLockedStatus::unlocked;
    response.ActualGainBasebandSdc = kMin;
    response.ActualSnirMainBasebandSdc = kMax;
    response.ActualSnirDiversityBasebandSdc = kMin;
    response.ActualXpiMainBasebandSdc = kMax;
    response.ActualXpiDiversityBasebandSdc = kMin;
    response.ActualDadeStatusBasebandSdc = "f";
    response.ActualDadeDelayBasebandSdc = kMax;
    response.BasebandSdcCalibrationDataMain = 65535;
    response.BasebandSdcCalibrationDataDiversity = 65534;
    response.RleStatus = 77777;
    EXPECT_EQ(
        response.printResponse(),
        "TXActualStatus: Standby, RadioChannelStatus: Down, ActualModulation: a, ActualTxModulation: b, "
        "ActualRxModulation:c, ActualRFInputPower: -2147483648, ReportedRFOutputPower: 2147483647, "
        "ClockStatus: -2147483648, ActualSNIR: 2147483647, ErroredBlocks: -2147483648, "
        "BackgroundBlocks: 2147483647, ErrorBytes: -2147483648, TotalBytes: 2147483647, TxFrequency: "
        "-2147483648, RxFrequency: 2147483647, ZyrState: ColdRestart, HopLengthLatency: 4294967295, "
        "XpicIsStarted: true, MimoIsStarted: true, IsMimo4x4: true, ActualXpi: -2147483648, ActualEta: "
        "2147483647, XpicStatus: d, MimoStatus: e, PpfLocked: unlocked, ActualGainBasebandSdc: "
        "-2147483648, ActualSnirMainBasebandSdc: 2147483647, ActualSnirDiversityBasebandSdc: "
        "-2147483648, ActualXpiMainBasebandSdc: 2147483647, ActualXpiDiversityBasebandSdc: "
        "-2147483648, ActualDadeStatusBasebandSdc: f, ActualDadeDelayBasebandSdc: 2147483647, "
        "BasebandSdcCalibrationDataMain: 65535, BasebandSdcCalibrationDataDiversity: 65534");
}

TEST_F(CriGetRadioChannelStatusTest, UnknownPpfStatusPrintsNotSupported)
{
    Response response;
    response.PpfLocked = static_cast<PpfLockedStatus>(3);
    EXPECT_NE(response.printResponse().find(", PpfLocked: notSupported, "), std::string::npos);
    response.PpfLocked = static_cast<PpfLockedStatus>(4294967295U);
    EXPECT_NE(response.printResponse().find(", PpfLocked: notSupported, "), std::string::npos);
}

TEST_F(CriGetRadioChannelStatusTest, FailedResponsePrintsTheResultLineAlone)
{
    Response response;
    response.TXActualStatus = "On";
    setResult(response, eTI_E_FAILED, "why");
    EXPECT_EQ(response.printResponse(), "tiResult: eTI_E_FAILED, faultCode: 4, faultString: why");
}

// The channel.

TEST_F(CriGetRadioChannelStatusTest, ChannelAboveTheNumberOfChannelsIsRefusedWithoutARecord)
{
    initialise();
    setTraceLevel("ZYR.TI.CriGetRadioChannelStatus", 7);
    expectDefaults(tell(impl.execute({3, true})));
    expectDefaults(tell(impl.execute({4294967295U, true})));
    EXPECT_EQ(transcript.text(), R"(
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
}

TEST_F(CriGetRadioChannelStatusTest, ObjectThatWasNotInitialisedRefusesEveryChannel)
{
    EXPECT_EQ(outcome(impl.execute({1, false})), "result 0xA100 2 \"RadioChannelID out of bounds\"");
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(CriGetRadioChannelStatusTest, Channel0PassesTheBoundCheckAndReachesNoCollaborator)
{
    initialise();
    EXPECT_EQ(missingIn([&] { impl.execute({0, true}); }), "IOutputPowerController of radio channel 0");
    EXPECT_EQ(transcript.text(), "\n");
}

// Readings that fail.

TEST_F(CriGetRadioChannelStatusTest, FailedModulationReadTellsItsResult)
{
    initialise();
    one.acmHandler.onGetLowestModulationAndCode = {eTI_E_FAILED, ModulationAndCoding::QAM_4,
                                                   ModulationAndCoding::QAM_4};
    expectDefaults(tell(impl.execute({1, true})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode 32768
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode 32768"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode 32768
)");
}

TEST_F(CriGetRadioChannelStatusTest, AcmHandlerWithoutABodyOfItsOwnFailsWith32769)
{
    initialise();
    one.acmHandler.defaultsInForce = true;
    expectDefaults(tell(impl.execute({1, false})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode 32769
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode 32769"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get lowest rx and tx modulationAndCode 32769
)");
}

TEST_F(CriGetRadioChannelStatusTest, FailedLevelReadTellsItsResult)
{
    initialise();
    one.rssiHandler.onGetRssi = {0xFFFFFFFFU, 7};
    expectDefaults(tell(impl.execute({1, true})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get rssi value 4294967295
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get rssi value 4294967295"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get rssi value 4294967295
)");
}

TEST_F(CriGetRadioChannelStatusTest, DspWithoutStatusPartFailsOnlyBehindTheLevel)
{
    initialise();
    one.dspApi.onGetDspStatusApi = nullptr;
    expectDefaults(tell(impl.execute({1, true})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get DSP API interface
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get DSP API interface"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get DSP API interface
)");
}

TEST_F(CriGetRadioChannelStatusTest, StatusPartIsAskedForAgainForTheErrorBlocks)
{
    initialise();
    one.dspApi.onGetDspStatusApi.inTurn({&one.dspApi.statusApi, nullptr});
    EXPECT_EQ(outcome(impl.execute({1, false})),
              "result 0x8000 4 \"CRI.GetRadioChannelStatus failed to get DSP API interface\"");
    EXPECT_EQ(transcript.lines().at(1), "IDspStatusApi_1.isLinkUp()");

    one.dspApi.onGetDspStatusApi.inTurn({nullptr, &one.dspApi.statusApi});
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_EQ(response.RadioChannelStatus, "Down");
}

TEST_F(CriGetRadioChannelStatusTest, FailedErrorBlockReadTellsNoResult)
{
    initialise();
    one.dspApi.statusApi.onGetErrorBlocks = {eTI_E_FAILED, DspErrorBlocks{1, 0, 3, 4}};
    expectDefaults(tell(impl.execute({1, true})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(true)
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get errored blocks from DSP
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get errored blocks from DSP"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get errored blocks from DSP
)");
}

TEST_F(CriGetRadioChannelStatusTest, FailedXpiReadTellsItsResultAndComesBehindTheReset)
{
    initialise();
    startXpic(one);
    one.ccdpController.onGetXpi = {0x8005, 5};
    expectDefaults(tell(impl.execute({1, true})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(true)
IDspStatusApi_1.getSnir()
ICcdpController_1.isStarted()
ICcdpController_1.getXpi()
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get XPI from CCDP controller 32773
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get XPI from CCDP controller 32773"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get XPI from CCDP controller 32773
)");
}

TEST_F(CriGetRadioChannelStatusTest, FailedXpicStateReadTellsItsResult)
{
    initialise();
    startXpic(one);
    one.ccdpController.onGetState = {0xA100, std::string("half")};
    expectDefaults(tell(impl.execute({1, false})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(false)
IDspStatusApi_1.getSnir()
ICcdpController_1.isStarted()
ICcdpController_1.getXpi()
ICcdpController_1.getState()
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get state from CCDP controller 41216
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get state from CCDP controller 41216"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get state from CCDP controller 41216
)");
}

TEST_F(CriGetRadioChannelStatusTest, DspWithoutChannelPartFailsAtThePpf)
{
    initialise();
    startMimo(one, 9);
    startBasebandSdc(one);
    one.dspApi.onGetDspChannelApi = nullptr;
    expectDefaults(tell(impl.execute({1, false})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(false)
IDspStatusApi_1.getSnir()
ICcdpController_1.isStarted()
IMimoController_1.isStarted()
IDspControlApi_1.getMimoMode()
IMimoController_1.isStarted()
IMimoController_1.getEta()
IMimoController_1.getStatus()
IMimoController_1.getXpi()
IMimoController_1.getXpicStatus()
IBasebandSdcController_1.isStarted()
IBasebandSdcController_1.isStarted()
IBasebandSdcController_1.getStatus()
IBasebandSdcController_1.getDadeStatus()
IBasebandSdcController_1.getDadeDelay()
IBasebandSdcController_1.getCalibrationData()
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get DSP API interface
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get DSP API interface"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get DSP API interface
)");
}

TEST_F(CriGetRadioChannelStatusTest, FailedPpfReadTellsNoResult)
{
    initialise();
    one.dspApi.channelApi.onGetPpfLockStatus = {eTI_E_FAILED, true};
    expectDefaults(tell(impl.execute({1, true})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(true)
IDspStatusApi_1.getSnir()
ICcdpController_1.isStarted()
IMimoController_1.isStarted()
IBasebandSdcController_1.isStarted()
IDspChannelApi_1.getPpfLockStatus()
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get PPF locked status from DSP
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get PPF locked status from DSP"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get PPF locked status from DSP
)");
}

TEST_F(CriGetRadioChannelStatusTest, FailedLatencyReadTellsNoResultAndDropsAllThatWasRead)
{
    initialise();
    one.ppsController.onGetHopLengthLatency = {eTI_E_FAILED, 5U};
    expectDefaults(tell(impl.execute({1, true})));
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(true)
IDspStatusApi_1.getSnir()
ICcdpController_1.isStarted()
IMimoController_1.isStarted()
IBasebandSdcController_1.isStarted()
IDspChannelApi_1.getPpfLockStatus()
IFrequencyController_1.getTxFrequency()
IFrequencyController_1.getRxFrequency()
IPpsController1.getHopLengthLatency()
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus failed to get hopLengthLatency from PPS
result 0x8000 4 "CRI.GetRadioChannelStatus failed to get hopLengthLatency from PPS"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus failed to get hopLengthLatency from PPS
)");
}

TEST_F(CriGetRadioChannelStatusTest, MimoAndXpicTogetherFailWithTheCommonDataFilled)
{
    initialise();
    startXpic(one);
    startMimo(one, 9);
    startBasebandSdc(one);
    const Response response = tell(impl.execute({1, true}));
    EXPECT_TRUE(response.BasebandSdcIsStarted);
    EXPECT_FALSE(response.RleStatus.hasValue());
    // XPI, XPIC status and the data of the baseband combiner come behind the failure.
    EXPECT_EQ(
        dataOf(response),
        "TXActualStatus: On, RadioChannelStatus: Up, ActualModulation: 256QAM, ActualTxModulation: "
        "256QAM, ActualRxModulation:128QAM_LIGHT, ActualRFInputPower: -45, ReportedRFOutputPower: 21, "
        "ClockStatus: 1, ActualSNIR: -38, ErroredBlocks: 1, BackgroundBlocks: 2, ErrorBytes: 3, "
        "TotalBytes: 4, TxFrequency: 14500000, RxFrequency: 14920000, ZyrState: NormalOperation, "
        "HopLengthLatency: 66713, XpicIsStarted: true, MimoIsStarted: true, IsMimo4x4: true, ActualXpi: "
        "0, ActualEta: -6, XpicStatus: , MimoStatus: Mute, PpfLocked: locked, ActualGainBasebandSdc: 0, "
        "ActualSnirMainBasebandSdc: 0, ActualSnirDiversityBasebandSdc: 0, ActualXpiMainBasebandSdc: 0, "
        "ActualXpiDiversityBasebandSdc: 0, ActualDadeStatusBasebandSdc: , ActualDadeDelayBasebandSdc: "
        "0, BasebandSdcCalibrationDataMain: 0, BasebandSdcCalibrationDataDiversity: 0");
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(true)
IDspStatusApi_1.getSnir()
ICcdpController_1.isStarted()
ICcdpController_1.getXpi()
ICcdpController_1.getState()
IMimoController_1.isStarted()
IDspControlApi_1.getMimoMode()
IMimoController_1.isStarted()
IMimoController_1.getEta()
IMimoController_1.getStatus()
IMimoController_1.getXpi()
IMimoController_1.getXpicStatus()
IBasebandSdcController_1.isStarted()
IBasebandSdcController_1.isStarted()
IBasebandSdcController_1.getStatus()
IBasebandSdcController_1.getDadeStatus()
IBasebandSdcController_1.getDadeDelay()
IBasebandSdcController_1.getCalibrationData()
IDspChannelApi_1.getPpfLockStatus()
IFrequencyController_1.getTxFrequency()
IFrequencyController_1.getRxFrequency()
IPpsController1.getHopLengthLatency()
ISystemPowerController_1.getReportedOutputPower()
1 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus ERROR: both MIMO and XPIC controller are active at the same time!!
result 0x8000 4 "CRI.GetRadioChannelStatus ERROR: both MIMO and XPIC controller are active at the same time!!"
prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: CRI.GetRadioChannelStatus ERROR: both MIMO and XPIC controller are active at the same time!!
)");
}

TEST_F(CriGetRadioChannelStatusTest, GreatestSuccessOfEveryReadingComesOutAsPlainSuccess)
{
    initialise();
    startXpic(one);
    one.acmHandler.onGetLowestModulationAndCode = 0x7FFF;
    one.rssiHandler.onGetRssi = 0x7FFF;
    one.dspApi.statusApi.onGetErrorBlocks = 0x7FFF;
    one.ccdpController.onGetXpi = 0x7FFF;
    one.ccdpController.onGetState = 0x7FFF;
    one.dspApi.channelApi.onGetPpfLockStatus = {0x7FFF, true};
    one.ppsController.onGetHopLengthLatency = 0x7FFF;
    const Response response = impl.execute({1, false});
    EXPECT_EQ(outcome(response), "result 0x0 0 \"\"");
    EXPECT_EQ(response.PpfLocked, PpfLockedStatus::locked);
}

TEST_F(CriGetRadioChannelStatusTest, CollaboratorsThatWriteNothingLeaveTheStartingValues)
{
    initialise();
    one.acmHandler.onGetLowestModulationAndCode = eTI_S_OK;
    one.rssiHandler.onGetRssi = eTI_S_OK;
    one.dspApi.statusApi.onGetErrorBlocks = eTI_S_OK;
    one.ccdpController.onIsStarted = true;
    one.ccdpController.onGetXpi = eTI_S_OK;
    one.ccdpController.onGetState = eTI_S_OK;
    one.dspApi.channelApi.onGetPpfLockStatus = eTI_S_OK;
    one.ppsController.onGetHopLengthLatency = eTI_S_OK;
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.ActualTxModulation, "UNDEFINED");
    EXPECT_EQ(response.ActualModulation, "UNDEFINED");
    EXPECT_EQ(response.ActualRxModulation, "UNDEFINED");
    EXPECT_EQ(response.ActualRFInputPower, -99);
    EXPECT_EQ(response.ErroredBlocks, 0);
    EXPECT_EQ(response.BackgroundBlocks, 0);
    EXPECT_EQ(response.ErrorBytes, 0);
    EXPECT_EQ(response.TotalBytes, 0);
    EXPECT_EQ(response.ActualXpi, 0);
    EXPECT_EQ(response.XpicStatus, "");
    EXPECT_EQ(response.PpfLocked, PpfLockedStatus::unlocked);
    EXPECT_EQ(response.HopLengthLatency, 0U);
}

// Transmitter, link, modulation, blocks, state.

TEST_F(CriGetRadioChannelStatusTest, TransmitterStatusIsGivenAsText)
{
    initialise();
    std::string texts;
    for (const unsigned status : {0U, 1U, 2U, 3U, 4294967295U}) {
        one.outputPowerController.onGetTxStatus = status;
        texts += impl.execute({1, false}).TXActualStatus + ";";
    }
    EXPECT_EQ(texts, "Off;On;Standby;UNDEFINED;UNDEFINED;");
}

TEST_F(CriGetRadioChannelStatusTest, UnknownModulationIsUndefined)
{
    initialise();
    one.acmHandler.onGetLowestModulationAndCode = {eTI_S_OK, static_cast<ModulationAndCoding>(9),
                                                   ModulationAndCoding::HALF_BPSK_STRONG};
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.ActualRxModulation, "UNDEFINED");
    EXPECT_EQ(response.ActualTxModulation, "HALF_BPSK_STRONG");
    EXPECT_EQ(response.ActualModulation, "HALF_BPSK_STRONG");
}

TEST_F(CriGetRadioChannelStatusTest, LinkThatIsUpWithoutBackgroundBlocksIsToldAndNotFailed)
{
    initialise();
    one.dspApi.statusApi.onGetErrorBlocks = {eTI_S_OK, DspErrorBlocks{1, 0, 3, 4}};
    EXPECT_EQ(impl.execute({1, false}).tiResult, 0);
    const std::vector<std::string> lines = transcript.lines();
    ASSERT_GT(lines.size(), 6U);
    EXPECT_EQ(lines[4], "IDspStatusApi_1.getErrorBlocks(false)");
    EXPECT_EQ(lines[5], "2 ZYR.TI.CriGetRadioChannelStatus: CRI.GetRadioChannelStatus Radiolink is Up but "
                        "BackgroundBlocks is 0!");
    EXPECT_EQ(lines[6], "IDspStatusApi_1.getSnir()");
}

TEST_F(CriGetRadioChannelStatusTest, OtherCountsAndALinkThatIsDownAreNotTold)
{
    initialise();
    setTraceLevel("ZYR.TI.CriGetRadioChannelStatus", 7);
    for (const std::int32_t count : {-1, 1}) {
        one.dspApi.statusApi.onGetErrorBlocks = {eTI_S_OK, DspErrorBlocks{0, count, 0, 0}};
        impl.execute({1, false});
    }
    one.dspApi.statusApi.onIsLinkUp = false;
    one.dspApi.statusApi.onGetErrorBlocks = {eTI_S_OK, DspErrorBlocks{0, 0, 0, 0}};
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_EQ(response.RadioChannelStatus, "Down");
    EXPECT_EQ(transcript.text().find("ZYR.TI.CriGetRadioChannelStatus"), std::string::npos)
        << transcript.text();
}

TEST_F(CriGetRadioChannelStatusTest, ExtremeReadingsAreTakenOverAndNegatedWithoutOverflow)
{
    initialise();
    startXpic(one);
    startBasebandSdc(one);
    one.rssiHandler.onGetRssi = {eTI_S_OK, kMin};
    one.systemPowerController.onGetReportedOutputPower = kMin;
    one.dspApi.statusApi.onGetErrorBlocks = {eTI_S_OK, DspErrorBlocks{kMin, kMax, kMin, kMax}};
    one.dspApi.statusApi.onGetSnir = kMin;
    one.frequencyController.onGetTxFrequency = kMin;
    one.frequencyController.onGetRxFrequency = kMax;
    one.ppsController.onGetHopLengthLatency = {eTI_S_OK, 4294967295U};
    one.ccdpController.onGetXpi = {eTI_S_OK, kMin};
    one.basebandSdcController.onGetStatus = BasebandSdcStatusData{
        .gain = kMin, .xpiMain = kMin, .xpiDiversity = kMax, .snirMain = kMin, .snirDiversity = kMax};
    one.basebandSdcController.onGetDadeDelay = kMin;
    one.basebandSdcController.onGetCalibrationData = 4294967295U;
    EXPECT_EQ(impl.execute({1, false}).printResponse(),
              "TXActualStatus: On, RadioChannelStatus: Up, ActualModulation: 256QAM, ActualTxModulation: "
              "256QAM, ActualRxModulation:128QAM_LIGHT, ActualRFInputPower: -2147483648, "
              "ReportedRFOutputPower: -2147483648, ClockStatus: 1, ActualSNIR: -2147483648, ErroredBlocks: "
              "-2147483648, BackgroundBlocks: 2147483647, ErrorBytes: -2147483648, TotalBytes: 2147483647, "
              "TxFrequency: -2147483648, RxFrequency: 2147483647, ZyrState: NormalOperation, "
              "HopLengthLatency: 4294967295, XpicIsStarted: true, MimoIsStarted: false, IsMimo4x4: false, "
              "ActualXpi: -2147483648, ActualEta: 0, XpicStatus: Locked to the other, MimoStatus: , "
              "PpfLocked: locked, ActualGainBasebandSdc: -2147483648, ActualSnirMainBasebandSdc: "
              "-2147483648, ActualSnirDiversityBasebandSdc: -2147483647, ActualXpiMainBasebandSdc: "
              "-2147483648, ActualXpiDiversityBasebandSdc: 2147483647, ActualDadeStatusBasebandSdc: "
              "Calibrated, ActualDadeDelayBasebandSdc: -2147483648, BasebandSdcCalibrationDataMain: 65535, "
              "BasebandSdcCalibrationDataDiversity: 65535");
}

TEST_F(CriGetRadioChannelStatusTest, StartUpStateIsGivenAsText)
{
    initialise();
    const zyr_platform::StartUpState state{Zyr::ZyrInitState::WarmRestart};
    EXPECT_EQ(impl.execute({1, false}).ZyrState, "WarmRestart");
    Zyr::setInitState(Zyr::ZyrInitState::ColdRestart);
    EXPECT_EQ(impl.execute({1, false}).ZyrState, "ColdRestart");
}

TEST_F(CriGetRadioChannelStatusTest, NothingIsKeptBetweenCalls)
{
    initialise();
    startXpic(one);
    startBasebandSdc(one);
    EXPECT_EQ(impl.execute({1, false}).ActualXpi, 27);
    one.ccdpController.onIsStarted = false;
    one.basebandSdcController.onIsStarted = false;
    EXPECT_EQ(impl.execute({1, false}).printResponse(), kHealthyData);
}

// XPIC and MIMO.

TEST_F(CriGetRadioChannelStatusTest, StartedXpicGivesXpiAndItsStateAsItIs)
{
    initialise();
    startXpic(one);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_TRUE(response.XpicIsStarted);
    EXPECT_EQ(response.ActualXpi, 27);
    EXPECT_EQ(response.XpicStatus, "Locked to the other");
    EXPECT_FALSE(response.MimoIsStarted);
    EXPECT_EQ(response.MimoStatus, "");
}

TEST_F(CriGetRadioChannelStatusTest, Mimo4x4WithoutXpicGivesXpiAndXpicStatusOfMimo)
{
    initialise();
    startMimo(one, 9);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_TRUE(response.MimoIsStarted);
    EXPECT_TRUE(response.IsMimo4x4);
    EXPECT_FALSE(response.XpicIsStarted);
    EXPECT_EQ(response.ActualXpi, 19);
    EXPECT_EQ(response.XpicStatus, "Locked");
    EXPECT_EQ(response.ActualEta, -6);
    EXPECT_EQ(response.MimoStatus, "Mute");
}

TEST_F(CriGetRadioChannelStatusTest, Mimo4x4WithNothingToGiveIsUnlockedWithZeroes)
{
    initialise();
    startMimo(one, 9);
    one.mimoController.onGetEta = general_classes::Optional<std::int32_t>();
    one.mimoController.onGetXpi = general_classes::Optional<std::int32_t>();
    one.mimoController.onGetXpicStatus = general_classes::Optional<MimoLockStatus>();
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.ActualEta, 0);
    EXPECT_EQ(response.ActualXpi, 0);
    EXPECT_EQ(response.XpicStatus, "Unlocked");
}

TEST_F(CriGetRadioChannelStatusTest, Mimo2x2WithoutXpicGivesNeitherXpiNorXpicStatus)
{
    initialise();
    for (const int mode : {0, 8, 10, kMin}) {
        startMimo(one, mode);
        transcript.clear();
        const Response response = impl.execute({1, false});
        EXPECT_TRUE(response.MimoIsStarted);
        EXPECT_FALSE(response.IsMimo4x4) << mode;
        EXPECT_EQ(response.ActualXpi, 0);
        EXPECT_EQ(response.XpicStatus, "");
        EXPECT_EQ(response.ActualEta, -6);
        EXPECT_EQ(response.MimoStatus, "Mute");
        EXPECT_EQ(transcript.text().find("IMimoController_1.getXpi"), std::string::npos) << mode;
    }
}

TEST_F(CriGetRadioChannelStatusTest, ModeCountsWhateverItsResultAndIsZeroIfNotWritten)
{
    initialise();
    startMimo(one, 9);
    one.dspApi.controlApi.onGetMimoMode = {eTI_E_FAILED, 9};
    EXPECT_TRUE(impl.execute({1, false}).IsMimo4x4);
    one.dspApi.controlApi.onGetMimoMode = eTI_S_OK;
    EXPECT_FALSE(impl.execute({1, false}).IsMimo4x4);
}

TEST_F(CriGetRadioChannelStatusTest, MimoStatusesAreGivenAsTextsAndUnknownOnesAreEmpty)
{
    initialise();
    startMimo(one, 9);
    std::string texts;
    for (const unsigned status : {0U, 1U, 2U, 3U, 4294967295U}) {
        one.mimoController.onGetStatus = status;
        one.mimoController.onGetXpicStatus = general_classes::Optional(static_cast<MimoLockStatus>(status));
        const Response response = impl.execute({1, false});
        texts += response.MimoStatus + "/" + response.XpicStatus + ";";
    }
    EXPECT_EQ(texts, "Locked/Locked;Unlocked/Unlocked;Mute/Mute;/;/;");
}

TEST_F(CriGetRadioChannelStatusTest, SecondAnswerOfMimoIsTheOneThatCounts)
{
    initialise();
    startXpic(one);
    startMimo(one, 9);
    one.mimoController.onIsStarted.inTurn({true, false});
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_FALSE(response.MimoIsStarted);
    EXPECT_TRUE(response.XpicIsStarted);
    EXPECT_TRUE(response.IsMimo4x4);
    EXPECT_EQ(response.ActualXpi, 19);
    EXPECT_EQ(response.XpicStatus, "Locked");
}

TEST_F(CriGetRadioChannelStatusTest, MimoThatStopsMeanwhileStillGivesItsXpi)
{
    initialise();
    startMimo(one, 9);
    one.mimoController.onIsStarted.inTurn({true, false});
    const Response response = impl.execute({1, false});
    EXPECT_FALSE(response.MimoIsStarted);
    EXPECT_FALSE(response.XpicIsStarted);
    EXPECT_TRUE(response.IsMimo4x4);
    EXPECT_EQ(response.ActualXpi, 19);
    EXPECT_EQ(response.XpicStatus, "Locked");
}

TEST_F(CriGetRadioChannelStatusTest, Mimo2x2AndXpicTogetherFailToo)
{
    initialise();
    startXpic(one);
    startMimo(one, 2);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0x8000);
    EXPECT_TRUE(response.XpicIsStarted);
    EXPECT_TRUE(response.MimoIsStarted);
    EXPECT_FALSE(response.IsMimo4x4);
    EXPECT_EQ(response.ActualXpi, 0);
    EXPECT_EQ(response.XpicStatus, "");
}

// Baseband combining.

TEST_F(CriGetRadioChannelStatusTest, BasebandSdcWithoutXpicGivesAllButTheXpiValues)
{
    initialise();
    startBasebandSdc(one);
    const Response response = impl.execute({1, false});
    EXPECT_TRUE(response.BasebandSdcIsStarted);
    EXPECT_EQ(response.ActualGainBasebandSdc, 11);
    EXPECT_EQ(response.ActualXpiMainBasebandSdc, 0);
    EXPECT_EQ(response.ActualXpiDiversityBasebandSdc, 0);
    EXPECT_EQ(response.ActualSnirMainBasebandSdc, -14);
    EXPECT_EQ(response.ActualSnirDiversityBasebandSdc, -15);
    EXPECT_EQ(response.ActualDadeStatusBasebandSdc, "Calibrated");
    EXPECT_EQ(response.ActualDadeDelayBasebandSdc, -16);
    EXPECT_EQ(response.BasebandSdcCalibrationDataMain, 2);
    EXPECT_EQ(response.BasebandSdcCalibrationDataDiversity, 32769);
}

TEST_F(CriGetRadioChannelStatusTest, BasebandSdcWithXpicGivesTheXpiValuesToo)
{
    initialise();
    startBasebandSdc(one);
    startXpic(one);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.ActualXpiMainBasebandSdc, 12);
    EXPECT_EQ(response.ActualXpiDiversityBasebandSdc, 13);
    EXPECT_EQ(response.ActualXpi, 27);
}

TEST_F(CriGetRadioChannelStatusTest, BasebandSdcWithMimo4x4GivesNoXpiValues)
{
    initialise();
    startBasebandSdc(one);
    startMimo(one, 9);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.ActualXpiMainBasebandSdc, 0);
    EXPECT_EQ(response.ActualXpiDiversityBasebandSdc, 0);
    EXPECT_EQ(response.ActualGainBasebandSdc, 11);
}

TEST_F(CriGetRadioChannelStatusTest, SecondAnswerOfTheBasebandSdcIsTheOneThatCounts)
{
    initialise();
    startBasebandSdc(one);
    startXpic(one);
    one.basebandSdcController.onIsStarted.inTurn({true, false});
    const Response response = impl.execute({1, false});
    EXPECT_FALSE(response.BasebandSdcIsStarted);
    EXPECT_EQ(response.ActualGainBasebandSdc, 0);
    EXPECT_EQ(response.ActualXpiMainBasebandSdc, 0);
    EXPECT_EQ(response.ActualDadeStatusBasebandSdc, "");
    EXPECT_EQ(response.BasebandSdcCalibrationDataDiversity, 0);
    EXPECT_NE(transcript.text().find("IBasebandSdcController_1.getCalibrationData()"), std::string::npos);
}

TEST_F(CriGetRadioChannelStatusTest, DadeStatusesAreGivenAsTexts)
{
    initialise();
    startBasebandSdc(one);
    std::string texts;
    for (const unsigned status : {0U, 1U, 2U, 3U, 4U, 5U, 4294967295U}) {
        one.basebandSdcController.onGetDadeStatus = status;
        texts += impl.execute({1, false}).ActualDadeStatusBasebandSdc + ";";
    }
    EXPECT_EQ(texts, "CalibrationNotStarted;CalibrationOngoing;CalibrationStopping;CalibrationFailed;"
                     "Calibrated;UndefinedStatus;UndefinedStatus;");
}

TEST_F(CriGetRadioChannelStatusTest, StartedBasebandSdcIsToldAtLevel7)
{
    initialise();
    startBasebandSdc(one);
    setTraceLevel("ZYR.TI.CriGetRadioChannelStatus", 7);
    impl.execute({1, false});
    const std::vector<std::string> lines = transcript.lines();
    ASSERT_GT(lines.size(), 10U);
    EXPECT_EQ(lines[8], "IBasebandSdcController_1.isStarted()");
    EXPECT_EQ(lines[9], "7 ZYR.TI.CriGetRadioChannelStatus:  --> basebandSdc IS STARTED");
    EXPECT_EQ(lines[10], "IBasebandSdcController_1.isStarted()");
}

// PPF.

TEST_F(CriGetRadioChannelStatusTest, PpfIsLockedUnlockedOrNotSupported)
{
    initialise();
    const auto ppfLocked = [this] { return static_cast<unsigned>(impl.execute({1, false}).PpfLocked); };
    one.dspApi.channelApi.onGetPpfLockStatus = {0, true};
    EXPECT_EQ(ppfLocked(), 1U);
    one.dspApi.channelApi.onGetPpfLockStatus = {0, false};
    EXPECT_EQ(ppfLocked(), 2U);
    one.dspApi.channelApi.onGetPpfLockStatus = {4100, true};
    EXPECT_EQ(ppfLocked(), 0U);
    one.dspApi.channelApi.onGetPpfLockStatus = {4099, true};
    EXPECT_EQ(ppfLocked(), 1U);
    one.dspApi.channelApi.onGetPpfLockStatus = {4101, false};
    EXPECT_EQ(ppfLocked(), 2U);
}

TEST_F(CriGetRadioChannelStatusTest, DspChannelWithoutABodyOfItsOwnDoesNotSupportPpf)
{
    initialise();
    one.dspApi.channelApi.defaultsInForce = true;
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_NE(response.printResponse().find(", PpfLocked: notSupported, "), std::string::npos);
}

// Collaborators that may be absent.

TEST_F(CriGetRadioChannelStatusTest, WithoutXpicMimoSdcPpsAndEncryptionTheirFieldsKeepTheDefaults)
{
    for (const char* name : {"ICcdpController_1", "IMimoController_1", "IBasebandSdcController_1",
                             "IPpsController1", "IZyrRleHandler_1"}) {
        withdraw(name);
    }
    initialise();
    setTraceLevel("ZYR.TI.CriGetRadioChannelStatus", 7);
    const Response response = tell(impl.execute({1, true}));
    EXPECT_FALSE(response.BasebandSdcIsStarted);
    EXPECT_FALSE(response.RleStatus.hasValue());
    EXPECT_EQ(transcript.text(), R"(
IOutputPowerController_1.getTxStatus()
IDspStatusApi_1.isLinkUp()
IAcmHandler_1.getLowestModulationAndCode(true)
IRssiHandler_1.getRssi()
IDspStatusApi_1.getErrorBlocks(true)
IDspStatusApi_1.getSnir()
7 ZYR.TI.CriGetRadioChannelStatus:  --> ptr basebandSdc to m_basebandSdcController IS NOT initialize\x20
IDspChannelApi_1.getPpfLockStatus()
IFrequencyController_1.getTxFrequency()
IFrequencyController_1.getRxFrequency()
ISystemPowerController_1.getReportedOutputPower()
result 0x0 0 ""
prints TXActualStatus: On, RadioChannelStatus: Up, ActualModulation: 256QAM, ActualTxModulation: 256QAM, ActualRxModulation:128QAM_LIGHT, ActualRFInputPower: -45, ReportedRFOutputPower: 21, ClockStatus: 1, ActualSNIR: -38, ErroredBlocks: 1, BackgroundBlocks: 2, ErrorBytes: 3, TotalBytes: 4, TxFrequency: 14500000, RxFrequency: 14920000, ZyrState: NormalOperation, HopLengthLatency: 0, XpicIsStarted: false, MimoIsStarted: false, IsMimo4x4: false, ActualXpi: 0, ActualEta: 0, XpicStatus: , MimoStatus: , PpfLocked: locked, ActualGainBasebandSdc: 0, ActualSnirMainBasebandSdc: 0, ActualSnirDiversityBasebandSdc: 0, ActualXpiMainBasebandSdc: 0, ActualXpiDiversityBasebandSdc: 0, ActualDadeStatusBasebandSdc: , ActualDadeDelayBasebandSdc: 0, BasebandSdcCalibrationDataMain: 0, BasebandSdcCalibrationDataDiversity: 0
)");
}

TEST_F(CriGetRadioChannelStatusTest, WithoutXpicAloneTheRestIsRead)
{
    withdraw("ICcdpController_1");
    initialise();
    startMimo(one, 9);
    startBasebandSdc(one);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_FALSE(response.XpicIsStarted);
    EXPECT_EQ(response.ActualXpi, 19);
    EXPECT_EQ(response.ActualGainBasebandSdc, 11);
    EXPECT_EQ(response.HopLengthLatency, 66713U);
    EXPECT_EQ(response.RleStatus.value(), 3);
}

TEST_F(CriGetRadioChannelStatusTest, WithoutMimoAloneTheRestIsRead)
{
    withdraw("IMimoController_1");
    initialise();
    startXpic(one);
    startBasebandSdc(one);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_FALSE(response.MimoIsStarted);
    EXPECT_EQ(response.MimoStatus, "");
    EXPECT_EQ(response.ActualXpi, 27);
    EXPECT_EQ(response.ActualXpiMainBasebandSdc, 12);
    EXPECT_EQ(response.HopLengthLatency, 66713U);
    EXPECT_EQ(response.RleStatus.value(), 3);
}

TEST_F(CriGetRadioChannelStatusTest, WithoutBasebandSdcAloneTheRestIsRead)
{
    withdraw("IBasebandSdcController_1");
    initialise();
    startXpic(one);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_FALSE(response.BasebandSdcIsStarted);
    EXPECT_EQ(response.ActualXpi, 27);
    EXPECT_EQ(response.ActualXpiMainBasebandSdc, 0);
    EXPECT_EQ(response.ActualDadeStatusBasebandSdc, "");
    EXPECT_EQ(response.HopLengthLatency, 66713U);
    EXPECT_EQ(response.RleStatus.value(), 3);
}

TEST_F(CriGetRadioChannelStatusTest, WithoutPpsAloneTheLatencyIsZero)
{
    withdraw("IPpsController1");
    initialise();
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_EQ(response.HopLengthLatency, 0U);
    EXPECT_EQ(response.RleStatus.value(), 3);
}

TEST_F(CriGetRadioChannelStatusTest, WithoutEncryptionAloneItsStatusIsAbsent)
{
    withdraw("IZyrRleHandler_1");
    initialise();
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.printResponse(), kHealthyData);
    EXPECT_FALSE(response.RleStatus.hasValue());
}

TEST_F(CriGetRadioChannelStatusTest, FrequencyControllerThatIsLostInASecondInitialiseGivesZeroes)
{
    initialise();
    withdraw("IFrequencyController_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.tiResult, 0);
    EXPECT_EQ(response.TxFrequency, 0);
    EXPECT_EQ(response.RxFrequency, 0);
    EXPECT_EQ(response.HopLengthLatency, 66713U);
}

// initialize

TEST_F(CriGetRadioChannelStatusTest, InitialiseRefusesAnyOtherCountAndStoresNothing)
{
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(impl.initialize(4294967295U), 0xA100);
    tell(impl.execute({1, false}));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetRadioChannelStatus: Error: numberOfChannels is out of range (0)
1 ZYR.TI.CriGetRadioChannelStatus: Error: numberOfChannels is out of range (3)
1 ZYR.TI.CriGetRadioChannelStatus: Error: numberOfChannels is out of range (4294967295)
result 0xA100 2 "RadioChannelID out of bounds"
prints tiResult: eTI_E_INVALID_ARGUMENT, faultCode: 2, faultString: RadioChannelID out of bounds
)");
}

TEST_F(CriGetRadioChannelStatusTest, InitialiseIsSilentAtTheDefaultLevelButAsksTheBasebandSdc)
{
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
IBasebandSdcController_1.isStarted()
IBasebandSdcController_2.isStarted()
)");
}

TEST_F(CriGetRadioChannelStatusTest, InitialiseTellsWhetherTheBasebandSdcIsStarted)
{
    setTraceLevel("ZYR.TI.CriGetRadioChannelStatus", 7);
    node.channel2.basebandSdcController.onIsStarted = true;
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetRadioChannelStatus:
5 ZYR.TI.CriGetRadioChannelStatus:  --> Found the interface to IBasebandSdcController_1
IBasebandSdcController_1.isStarted()
5 ZYR.TI.CriGetRadioChannelStatus:  --> basebandSdc IS NOT STARTED
5 ZYR.TI.CriGetRadioChannelStatus:  --> Found the interface to IBasebandSdcController_2
IBasebandSdcController_2.isStarted()
5 ZYR.TI.CriGetRadioChannelStatus:  --> basebandSdc IS STARTED for channel 2
)");
}

TEST_F(CriGetRadioChannelStatusTest, InitialiseTellsAbsentOptionalInterfacesAtLevel5AndSucceeds)
{
    for (const char* name : {"ICcdpController_1", "IMimoController_1", "IBasebandSdcController_1",
                             "IPpsController1", "IZyrRleHandler_1", "ICcdpController_2", "IMimoController_2",
                             "IBasebandSdcController_2", "IPpsController2", "IZyrRleHandler_2"}) {
        withdraw(name);
    }
    setTraceLevel("ZYR.TI.CriGetRadioChannelStatus", 7);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TI.CriGetRadioChannelStatus:
5 ZYR.TI.CriGetRadioChannelStatus:  Could not find the interface to IZyrRleHandler_1
5 ZYR.TI.CriGetRadioChannelStatus:  Could not find the interface to IMimoController_1
5 ZYR.TI.CriGetRadioChannelStatus:  --> Could not find the interface to IBasebandSdcController_1
5 ZYR.TI.CriGetRadioChannelStatus:  Could not find the interface to IPpsController1
5 ZYR.TI.CriGetRadioChannelStatus:  Could not find the interface to IZyrRleHandler_2
5 ZYR.TI.CriGetRadioChannelStatus:  Could not find the interface to IMimoController_2
5 ZYR.TI.CriGetRadioChannelStatus:  --> Could not find the interface to IBasebandSdcController_2
5 ZYR.TI.CriGetRadioChannelStatus:  Could not find the interface to IPpsController2
)");
}

TEST_F(CriGetRadioChannelStatusTest, InitialiseTellsTheFirstMissingRequiredInterface)
{
    for (const char* name : {"IDspApi_1", "IRssiHandler_1", "IFrequencyController_1", "IAcmHandler_1",
                             "IOutputPowerController_1", "ISystemPowerController_1"}) {
        withdraw(name);
        EXPECT_EQ(impl.initialize(2), 0x8000) << name;
    }
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TI.CriGetRadioChannelStatus: Could not find the DSP API interface
1 ZYR.TI.CriGetRadioChannelStatus: Could not find the RSSI Handler interface
1 ZYR.TI.CriGetRadioChannelStatus: Could not find the Frequency Controller interface
1 ZYR.TI.CriGetRadioChannelStatus: Could not find the Acm Handler interface
1 ZYR.TI.CriGetRadioChannelStatus: Could not find the Output Power Controller interface: IOutputPowerController_1
1 ZYR.TI.CriGetRadioChannelStatus: Could not find the System Power Controller interface: ISystemPowerController_1
)");
}

TEST_F(CriGetRadioChannelStatusTest, InitialiseLooksForTheOptionalOnesBehindTheDspAndChannelByChannel)
{
    setTraceLevel("ZYR.TI.CriGetRadioChannelStatus", 5);
    withdraw("IZyrRleHandler_1");
    withdraw("IMimoController_1");
    withdraw("ISystemPowerController_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    withdraw("IDspApi_1");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.TI.CriGetRadioChannelStatus:  Could not find the interface to IZyrRleHandler_1
5 ZYR.TI.CriGetRadioChannelStatus:  Could not find the interface to IMimoController_1
5 ZYR.TI.CriGetRadioChannelStatus:  --> Found the interface to IBasebandSdcController_1
IBasebandSdcController_1.isStarted()
5 ZYR.TI.CriGetRadioChannelStatus:  --> basebandSdc IS NOT STARTED
1 ZYR.TI.CriGetRadioChannelStatus: Could not find the System Power Controller interface: ISystemPowerController_2
1 ZYR.TI.CriGetRadioChannelStatus: Could not find the DSP API interface
)");
}

TEST_F(CriGetRadioChannelStatusTest, FailedInitialiseKeepsTheChannelBefore)
{
    withdraw("IDspApi_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.execute({1, false}).printResponse(), kHealthyData);
    EXPECT_EQ(missingIn([&] { impl.execute({2, false}); }), "IDspApi of radio channel 2");
}

TEST_F(CriGetRadioChannelStatusTest, SecondInitialiseFetchesTheCollaboratorsAnew)
{
    initialise();
    withdraw("IRssiHandler_1");
    withdraw("IZyrRleHandler_1");
    zyr_test::RssiHandlerDouble other(transcript, "other");
    other.onGetRssi = {eTI_S_OK, -77};
    publish("IRssiHandler_1", other);
    EXPECT_EQ(impl.initialize(1), 0);
    const Response response = impl.execute({1, false});
    EXPECT_EQ(response.ActualRFInputPower, -77);
    EXPECT_FALSE(response.RleStatus.hasValue());
    EXPECT_EQ(impl.execute({2, false}).tiResult, 0xA100);
}

TEST_F(CriGetRadioChannelStatusTest, InitialiseOfOneChannelNeedsNothingOfTheSecond)
{
    for (const char* name : {"IDspApi_2", "IRssiHandler_2", "IFrequencyController_2", "IAcmHandler_2",
                             "IOutputPowerController_2", "ISystemPowerController_2"}) {
        withdraw(name);
    }
    EXPECT_EQ(impl.initialize(1), 0);
    EXPECT_EQ(transcript.text(), R"(
IBasebandSdcController_1.isStarted()
)");
}

TEST_F(CriGetRadioChannelStatusTest, RecordsNameTheFunctionWhoseStepTheyAre)
{
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const zyr_platform::Registration registration = zyr_platform::TraceService::get().addSink(sink);
    setTraceLevel("ZYR.TI.CriGetRadioChannelStatus", 7);
    one.basebandSdcController.onIsStarted = true;
    initialise();
    startXpic(one);
    startMimo(one, 2);
    one.dspApi.statusApi.onGetErrorBlocks = {eTI_S_OK, DspErrorBlocks{}};
    impl.execute({1, false});
    std::string functions;
    for (const auto& record : sink->records()) {
        EXPECT_EQ(record.header.file,
                  std::string("src/Device/ZyrTopApi/messages/CriGetRadioChannelStatus/src/"
                              "CriGetRadioChannelStatusImpl.cpp"))
            << record.text;
        functions += std::string(record.header.function) + "\n";
    }
    EXPECT_EQ(functions, "initialize\ninitialize\ninitialize\ninitialize\ninitialize\n"
                         "execute\nexecute\nexecute\n");
}

// What the DSP hands out is named with its channel, and nothing of the failed call stays.
TEST_F(CriGetRadioChannelStatusTest, DspWithoutControlPartThrowsOnceMimoIsStarted)
{
    initialise();
    node.channel2.mimoController.onIsStarted = true;
    node.channel2.dspApi.onGetDspControlApi = nullptr;
    try {
        impl.execute({2, false});
        FAIL() << "nothing thrown";
    } catch (const std::out_of_range& missing) {
        EXPECT_STREQ(missing.what(), "IDspControlApi of radio channel 2");
    }
    node.channel2.mimoController.onIsStarted = false;
    EXPECT_EQ(outcome(impl.execute({2, false})), "result 0x0 0 \"\"");
}

} // namespace
} // namespace zyr_top_api
