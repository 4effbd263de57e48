#include "TiManageMimoImpl.h"

#include "Failure.h"
#include "IDspApi.h"
#include "Initialise.h"
#include "Log.h"
#include "MimoStatusStruct.h"
#include "PrintIfPresent.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

using bcm::types::ModemChain;

constinit TylTrace trace{TiManageMimo::identity.traceChannel, 3, TylTraceHdrOption_Default};

// Replaces the response by a failure that tells the operation, its arguments and its result, if it has one.
template <class WriteOperation>
void judge(ETIResult result, TiManageMimo::Response& response, RadioChannel channel,
           const WriteOperation& writeOperation)
{
    if (!failedFromWarning(result)) {
        return;
    }
    TextWriter text;
    text << channel.logString();
    writeOperation(text);
    text << " failed: " << result;
    response = TiManageMimo::Response(eTI_E_FAILED, text.string());
}

} // namespace

std::string TiManageMimo::Command::toString() const
{
    return printed(*this);
}

void TiManageMimo::Command::print(TextWriter& text) const
{
    // sic: nothing between the fields
    printIfPresent(text, "RadioChannelID: ", radioChannelId);
    printIfPresent(text, "ConfigurationSet: ", configurationSet);
    printIfPresent(text, "DiversityMuteSet: ", diversityMuteSet);
    printIfPresent(text, "CrossConnectDelayCalibrationStart: ", crossConnectDelayCalibrationStart);
    printIfPresent(text, "CrossConnectDelayCalibrationStatusGet: ", crossConnectDelayCalibrationStatusGet);
    printIfPresent(text, "RxChainDelaySet: ", rxChainDelaySet);
    if (rxChainDelayModemChain.hasValue()) {
        text << "RxChainDelayModemChain: " << modemChainToString(rxChainDelayModemChain.value());
    }
}

std::string TiManageMimo::Response::printResponse() const
{
    return printed(*this);
}

void TiManageMimo::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << radioChannelId
         << "gainDifferenceDbTenths: " << gainDifferenceDbTenths // sic: nothing in front of the label
         << ", etaTenThousands: " << etaTenThousands << ", slaveSweepInProgress: " << slaveSweepInProgress
         << ", spatialSlaveSweepStatus: " << spatialSlaveSweepStatus << ", xpdDbTenths: " << xpdDbTenths
         << ", spatialXpdDbTenths: " << spatialXpdDbTenths
         << ", spatialCarrierOffsetHz: " << spatialCarrierOffsetHz
         << ", slaveCarrierOffsetHz: " << slaveCarrierOffsetHz
         << ", spatialSlaveCarrierOffsetHz: " << spatialSlaveCarrierOffsetHz
         << ", diversityMute: " << diversityMute
         << ", CalibrationStatus: " << mimoCalibrationStatusToString(calibrationStatus);
}

ETIResult TiManageMimoImpl::initialize(unsigned numberOfChannels)
{
    PerChannel<IDspApi> dspApi;
    return initialise(
        trace,
        family::classGuarded(SecondCallRule::Guard::BeforeRange,
                             "TiManageMimoImpl has already been initialized"),
        numberOfChannels, m_numberOfChannels,
        {
            perChannel("IDspApi", dspApi, channelAndText("Failed to fetch interface for IDspApi")),
            part<&IDspApi::getDspChannelApi>(
                dspApi, m_dspChannelApi,
                textAndChannel("failed to fetch interface IDspChannelApi for radio channel ")),
            part<&IDspApi::getDspStatusApi>(
                dspApi, m_dspStatusApi,
                textAndChannel("failed to fetch interface IDspStatusApi for radio channel ")),
        });
}

TiManageMimo::Response TiManageMimoImpl::execute(const Command& command)
{
    logEnter(trace);
    if (m_numberOfChannels == 0) {
        return {eTI_E_FAILED, "TiManageMimoImpl has not been initialized"};
    }
    const RadioChannel channel(command.radioChannelId.valueOr(1));
    if (channel > m_numberOfChannels) {
        return {eTI_E_INVALID_ARGUMENT, failureText("RadioChannelID out of bounds: ", channel)};
    }

    Response response;
    response.radioChannelId = channel;
    if (command.rxChainDelaySet.hasValue()) {
        rxChainDelaySet(response, channel, command.rxChainDelayModemChain.valueOr(ModemChain::Max),
                        static_cast<unsigned char>(command.rxChainDelaySet.value()));
        if (response.tiResult > eTI_S_OK) {
            return response;
        }
    }
    if (command.diversityMuteSet.hasValue()) {
        diversityMuteSet(response, channel, command.diversityMuteSet.value());
        if (response.tiResult > eTI_S_OK) {
            return response;
        }
    }
    if (command.configurationSet.hasValue()) {
        configurationSet(response, channel);
        if (response.tiResult > eTI_S_OK) {
            return response;
        }
    }
    if (command.crossConnectDelayCalibrationStart.hasValue()) {
        crossConnectDelayCalibrationStart(response, channel);
        if (response.tiResult > eTI_S_OK) {
            return response;
        }
    }
    if (command.crossConnectDelayCalibrationStatusGet.hasValue()) {
        crossConnectDelayCalibrationStatusGet(response, channel);
        return response;
    }
    statusGet(response, channel);
    return response;
}

void TiManageMimoImpl::rxChainDelaySet(Response& response, RadioChannel channel, ModemChain chain,
                                       unsigned char delay)
{
    judge(m_dspChannelApi[channel].setRxChainDelay(chain, delay), response, channel, [&](TextWriter& text) {
        text << "setRxChainDelay(" << modemChainToString(chain) << ", ";
        text.raw(delay) << ")"; // sic: one raw byte
    });
}

void TiManageMimoImpl::diversityMuteSet(Response& response, RadioChannel channel, bool mute)
{
    judge(m_dspChannelApi[channel].mimoDiversityMute(mute), response, channel, [&](TextWriter& text) {
        text << "diversityMuteSet(";
        text.word(mute) << ")";
    });
}

void TiManageMimoImpl::configurationSet(Response& response, RadioChannel channel)
{
    judge(m_dspChannelApi[channel].mimoConfigurationSet(), response, channel,
          [](TextWriter& text) { text << "mimoConfigurationSet()"; });
}

void TiManageMimoImpl::statusGet(Response& response, RadioChannel channel)
{
    MimoStatusStruct status;
    const ETIResult result = m_dspStatusApi[channel].mimoStatusGet(status);
    response.gainDifferenceDbTenths = status.gainDifferenceDbTenths;
    response.etaTenThousands = status.etaTenThousands;
    response.slaveSweepInProgress = status.slaveSweepInProgress;
    response.spatialSlaveSweepStatus = status.spatialSlaveSweepStatus;
    response.xpdDbTenths = status.xpdDbTenths;
    response.spatialXpdDbTenths = status.spatialXpdDbTenths;
    response.spatialCarrierOffsetHz = status.spatialCarrierOffsetHz;
    response.slaveCarrierOffsetHz = status.slaveCarrierOffsetHz;
    response.spatialSlaveCarrierOffsetHz = status.spatialSlaveCarrierOffsetHz;
    response.diversityMute = status.diversityMute;
    judge(result, response, channel, [](TextWriter& text) { text << "mimoStatusGet()"; });
}

void TiManageMimoImpl::crossConnectDelayCalibrationStart(Response& response, RadioChannel channel)
{
    judge(m_dspChannelApi[channel].mimoCrossConnectDelayCalibrationStart(), response, channel,
          [](TextWriter& text) { text << "crossConnectDelayCalibrationStart()"; });
}

void TiManageMimoImpl::crossConnectDelayCalibrationStatusGet(Response& response, RadioChannel channel)
{
    const ETIResult result =
        m_dspChannelApi[channel].mimoCrossConnectDelayCalibrationStatusGet(response.calibrationStatus);
    judge(result, response, channel,
          [](TextWriter& text) { text << "crossConnectDelayCalibrationStatusGet()"; });
}

TiManageMimo::Response tiManageMimo(const TiManageMimo::Command& command)
{
    return ZyrApiHandler::executeCommand(TiManageMimoImpl(), command);
}

} // namespace zyr_top_api
