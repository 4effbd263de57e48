#include "XpicSlaveSteps.h"

#include "Failure.h"
#include "ResultLaw.h"

#include <array>

namespace zyr_top_api
{

namespace
{

using Command = TiManageXpic::Command;
using Response = TiManageXpic::Response;

// What the DSP answers that doesn't have a reading.
constexpr ETIResult kNotSupported = eTI_W_ALREADY_INITIALIZED;

bool isTrue(const general_classes::Optional<bool>& flag)
{
    return flag.valueOr(false);
}

} // namespace

std::string readSlaveAgc(const XpicChannel& channel, const Command& /*command*/, Response& response)
{
    std::int16_t internalAgc = 0;
    std::int16_t externalAgc = 0;
    const ETIResult result = channel.dspStatusApi.getSlaveAgc(internalAgc, externalAgc);
    if (failed(result)) {
        return failureText("DspStatusApi::getSlaveAgc failed for radiochannel ", channel.number,
                           " with status ", result);
    }
    if (result != kNotSupported) { // where it isn't, both hold a number that is no reading
        response.slaveInternalAgc = internalAgc;
        response.slaveExternalAgc = externalAgc;
    }
    return {};
}

std::string readSlaveImbalance(const XpicChannel& channel, const Command& /*command*/, Response& response)
{
    std::int16_t differentialGain = 0;
    std::array<std::int16_t, 4> others{};
    const ETIResult result = channel.dspStatusApi.getIqSlaveImbalance(others[0], differentialGain, others[1],
                                                                      others[2], others[3]);
    if (failed(result)) {
        return failureText("DspStatusApi::getIqSlaveImbalance failed for radiochannel ", channel.number,
                           " with status ", result);
    }
    if (result != kNotSupported) {
        response.slaveDiffGain = differentialGain;
    }
    return {};
}

std::string muteSlave(const XpicChannel& channel, const Command& command, Response& /*response*/)
{
    if (command.xpicMute.hasValue() && failed(channel.ccdpController.xpicMute(command.xpicMute.value()))) {
        return failureText("xpicMute, on radioChannel ", channel.number, ", failed");
    }
    return {};
}

std::string setPreamble(const XpicChannel& channel, const Command& command, Response& /*response*/)
{
    if (command.xpicPreambleSet.hasValue() &&
        failed(channel.ccdpController.setPreamble(command.xpicPreambleSet.value()))) {
        return failureText("setPreamble(", xpicMimoPreambleToString(command.xpicPreambleSet.value()),
                           "), on radioChannel ", channel.number, ", failed");
    }
    return {};
}

std::string readPreamble(const XpicChannel& channel, const Command& command, Response& response)
{
    if (isTrue(command.xpicPreambleGet) &&
        failed(channel.ccdpController.getPreamble(response.xpicPreambleGet))) {
        return failureText("getPreamble, on radioChannel ", channel.number, ", failed");
    }
    return {};
}

std::string startAcquisition(const XpicChannel& channel, const Command& command, Response& /*response*/)
{
    if (!isTrue(command.xpicAcquireStart)) {
        return {};
    }
    if (!command.xpicAcquireMode.hasValue() && !command.xpicSpectralInversionMode.hasValue()) {
        return "xpicAcquireStart: XpicAcquireMode and/or XpicSpectralInversionMode not set";
    }
    // One mode alone passes the check above: reading the other throws.
    if (failed(channel.ccdpController.xpicAcquireStart(command.xpicAcquireMode.value(),
                                                       command.xpicSpectralInversionMode.value()))) {
        return failureText("xpicAcquireStart, on radioChannel ", channel.number, ", failed");
    }
    return {};
}

std::string readSlaveStatus(const XpicChannel& channel, const Command& command, Response& response)
{
    if (!isTrue(command.xpicStatusGet)) {
        return {};
    }
    XpicStatusStruct status;
    if (failed(channel.ccdpController.getXpicStatusStruct(status))) {
        return failureText("getXpicStatusStruct, on radioChannel ", channel.number, ", failed");
    }
    response.xpdDbTenths = status.xpdDbTenths;
    response.slaveCarrierOffsetHz = status.slaveCarrierOffsetHz;
    response.slaveSweepInProgress = status.slaveSweepInProgress;
    response.calibStatus = status.calibStatus;
    return {};
}

} // namespace zyr_top_api
