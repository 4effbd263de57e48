#include "CriGetRadioChannelStatusImpl.h"

#include "Failure.h"
#include "IDspStatusApi.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

constinit TylTrace CriGetRadioChannelStatusImpl::s_trace{CriGetRadioChannelStatus::identity.traceChannel, 3,
                                                         TylTraceHdrOption_Default};

namespace
{

// Two pieces of news that change nothing.
void reportBasebandSdc(const TylTrace& trace, const std::string& name, std::uint32_t channel,
                       IBasebandSdcController& controller)
{
    const auto found = [&](TextWriter& text) { text << " --> Found the interface to " << name; };
    log(trace, 5, found, within("initialize"));
    const bool isStarted = controller.isStarted();
    const auto state = [&](TextWriter& text) {
        if (isStarted) {
            text << " --> basebandSdc IS STARTED for channel " << channel;
        } else {
            text << " --> basebandSdc IS NOT STARTED";
        }
    };
    log(trace, 5, state, within("initialize"));
}

} // namespace

void CriGetRadioChannelStatus::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << RadioChannelID << ", ResetErrorBlocks: " << ResetErrorBlocks << "\n";
}

std::string CriGetRadioChannelStatus::Response::printResponse() const
{
    return printed(*this);
}

void CriGetRadioChannelStatus::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "TXActualStatus: " << TXActualStatus << ", RadioChannelStatus: " << RadioChannelStatus
         << ", ActualModulation: " << ActualModulation << ", ActualTxModulation: " << ActualTxModulation
         << ", ActualRxModulation:" << ActualRxModulation // sic: no blank behind the colon
         << ", ActualRFInputPower: " << ActualRFInputPower
         << ", ReportedRFOutputPower: " << ReportedRFOutputPower << ", ClockStatus: " << ClockStatus
         << ", ActualSNIR: " << ActualSNIR << ", ErroredBlocks: " << ErroredBlocks
         << ", BackgroundBlocks: " << BackgroundBlocks << ", ErrorBytes: " << ErrorBytes
         << ", TotalBytes: " << TotalBytes << ", TxFrequency: " << TxFrequency
         << ", RxFrequency: " << RxFrequency << ", ZyrState: " << ZyrState
         << ", HopLengthLatency: " << HopLengthLatency << ", XpicIsStarted: ";
    text.word(XpicIsStarted) << ", MimoIsStarted: ";
    text.word(MimoIsStarted) << ", IsMimo4x4: ";
    text.word(IsMimo4x4) << ", ActualXpi: " << ActualXpi << ", ActualEta: " << ActualEta
                         << ", XpicStatus: " << XpicStatus << ", MimoStatus: " << MimoStatus
                         << ", PpfLocked: " << ppfLockedStatusToString(PpfLocked)
                         << ", ActualGainBasebandSdc: " << ActualGainBasebandSdc
                         << ", ActualSnirMainBasebandSdc: " << ActualSnirMainBasebandSdc
                         << ", ActualSnirDiversityBasebandSdc: " << ActualSnirDiversityBasebandSdc
                         << ", ActualXpiMainBasebandSdc: " << ActualXpiMainBasebandSdc
                         << ", ActualXpiDiversityBasebandSdc: " << ActualXpiDiversityBasebandSdc
                         << ", ActualDadeStatusBasebandSdc: " << ActualDadeStatusBasebandSdc
                         << ", ActualDadeDelayBasebandSdc: " << ActualDadeDelayBasebandSdc
                         << ", BasebandSdcCalibrationDataMain: " << BasebandSdcCalibrationDataMain
                         << ", BasebandSdcCalibrationDataDiversity: " << BasebandSdcCalibrationDataDiversity;
}

ETIResult CriGetRadioChannelStatusImpl::initialize(unsigned numberOfChannels)
{
    constexpr MissingText kNotFound = textAndName(" Could not find the interface to ", 5);
    Collaborator basebandSdc = optional(perChannel("IBasebandSdcController", m_basebandSdcController,
                                                   textAndName(" --> Could not find the interface to ", 5)));
    basebandSdc.whenFound = [](const std::string& name, std::uint32_t channel, void* slot) {
        reportBasebandSdc(s_trace, name, channel,
                          (*static_cast<PerChannel<IBasebandSdcController>*>(slot))[channel]);
    };
    return initialise(
        s_trace, family::kPlain, numberOfChannels, m_numberOfChannels,
        {
            perChannel("ISystemPowerController", m_systemPowerController,
                       textAndName("Could not find the System Power Controller interface: ")),
            perChannel("IOutputPowerController", m_outputPowerController,
                       textAndName("Could not find the Output Power Controller interface: ")),
            perChannel("IAcmHandler", m_acmHandler, plainText("Could not find the Acm Handler interface")),
            perChannel("IFrequencyController", m_frequencyController,
                       plainText("Could not find the Frequency Controller interface")),
            perChannel("IRssiHandler", m_rssiHandler, plainText("Could not find the RSSI Handler interface")),
            optional(perChannel("ICcdpController", m_ccdpController, kSilent)),
            perChannel("IDspApi", m_dspApi, plainText("Could not find the DSP API interface")),
            optional(perChannel("IZyrRleHandler", m_rleHandler, kNotFound)),
            optional(perChannel("IMimoController", m_mimoController, kNotFound)),
            basebandSdc,
            optional(withoutUnderscore(perChannel("IPpsController", m_ppsController, kNotFound))),
        });
}

CriGetRadioChannelStatus::Response CriGetRadioChannelStatusImpl::execute(const Command& command)
{
    Response response;
    if (command.RadioChannelID > m_numberOfChannels) {
        setResult(response, eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
        return response;
    }
    Readings readings;
    if (!read(command, readings)) {
        fail(response, s_trace, readings.failure);
        return response;
    }
    fillCommon(command.RadioChannelID, readings, response);
    if (response.MimoIsStarted && response.XpicIsStarted) {
        fail(response, s_trace,
             "CRI.GetRadioChannelStatus ERROR: both MIMO and XPIC controller are active at the same time!!");
        return response;
    }
    fillOptional(command.RadioChannelID, readings, response);
    return response;
}

// The readings that log: all records of the command name its source.

bool CriGetRadioChannelStatusImpl::readErrorBlocks(const Command& command, Readings& readings)
{
    IDspStatusApi* const statusApi = m_dspApi[command.RadioChannelID].getDspStatusApi();
    if (statusApi == nullptr) {
        return readings.failsWith("CRI.GetRadioChannelStatus failed to get DSP API interface");
    }
    if (failed(statusApi->getErrorBlocks(readings.blocks, command.ResetErrorBlocks))) {
        return readings.failsWith(
            "CRI.GetRadioChannelStatus failed to get errored blocks from DSP"); // sic: no code
    }
    if (readings.isLinkUp && readings.blocks.backgroundBlocks == 0) {
        log(s_trace, 2, "CRI.GetRadioChannelStatus Radiolink is Up but BackgroundBlocks is 0!",
            within("execute"));
    }
    readings.snir = statusApi->getSnir();
    return true;
}

void CriGetRadioChannelStatusImpl::readBasebandSdc(std::uint32_t channel, Readings& readings)
{
    IBasebandSdcController* const controller = m_basebandSdcController.find(channel);
    if (controller == nullptr) {
        // sic: ends in a blank
        log(s_trace, 7, " --> ptr basebandSdc to m_basebandSdcController IS NOT initialize ",
            within("execute"));
        return;
    }
    if (!controller->isStarted()) {
        return;
    }
    log(s_trace, 7, " --> basebandSdc IS STARTED", within("execute"));
    readings.basebandSdcIsStarted = controller->isStarted(); // the second answer is the one that is reported
    readings.basebandSdc = controller->getStatus();
    readings.dadeStatus = controller->getDadeStatus();
    readings.dadeDelay = controller->getDadeDelay();
    readings.calibrationData = controller->getCalibrationData();
}

CriGetRadioChannelStatus::Response criGetRadioChannelStatus(const CriGetRadioChannelStatus::Command& command)
{
    return ZyrApiHandler::executeCommand(CriGetRadioChannelStatusImpl(), command);
}

} // namespace zyr_top_api
