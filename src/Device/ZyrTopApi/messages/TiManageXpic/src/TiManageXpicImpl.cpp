#include "TiManageXpicImpl.h"

#include "Failure.h"
#include "IDspApi.h"
#include "Initialise.h"
#include "Log.h"
#include "PrintIfPresent.h"
#include "ResultLaw.h"
#include "XpicSlaveSteps.h"
#include "ZyrApiHandler.h"

#include <array>

namespace zyr_top_api
{

namespace
{

using Command = TiManageXpic::Command;
using Response = TiManageXpic::Response;

constinit TylTrace trace{TiManageXpic::identity.traceChannel, 3, TylTraceHdrOption_Default};

// What the controller answers that doesn't know link types.
constexpr ETIResult kNotSupported = eTI_W_NO_MORE_DATA;

// The form of most failure texts; those of the link type have their own.
std::string failedFor(std::string_view operation, const XpicChannel& channel, std::uint32_t status)
{
    return failureText(operation, " failed for radiochannel ", channel.number, " with status ", status);
}

std::string setBar(const XpicChannel& channel, const Command& command, Response& /*response*/)
{
    if (!command.xpicControlBarOn.hasValue()) {
        return {};
    }
    const bool on = command.xpicControlBarOn.value();
    const ETIResult result = channel.ccdpController.setBar(on);
    if (failed(result)) {
        return failedFor("ICcdpController::setBar", channel, result);
    }
    const auto outcome = [&](TextWriter& text) {
        text << "XPIC Bar set to ";
        text.word(on);
    };
    log(trace, 4, outcome, within("execute"));
    return {};
}

std::string readBar(const XpicChannel& channel, const Command& /*command*/, Response& response)
{
    response.xpicControlBarOn = channel.ccdpController.getBar() == 1;
    return {};
}

std::string refuseEnable(const XpicChannel& /*channel*/, const Command& command, Response& /*response*/)
{
    return command.xpicEnable.hasValue() ? "XpicEnable is not supported anymore" : "";
}

std::string forceLinkType(const XpicChannel& channel, const Command& command, Response& /*response*/)
{
    if (!command.xpicEnableExt.hasValue()) {
        return {};
    }
    const LinkType wanted = command.xpicEnableExt.value();
    LinkType current = {};
    const ETIResult read = channel.ccdpController.getLinkType(current);
    if (read == kNotSupported || failed(read)) {
        // sic: "radiochannel id", unlike the plain read
        return failureText("ICcdpController::getLinkType failed for radiochannel id ", channel.number,
                           " with status ", read);
    }
    if (current == wanted) {
        return {};
    }
    const ETIResult forced = channel.ccdpController.forceXpic(wanted);
    if (failed(forced)) {
        // sic: no blank in front of the status
        return failureText("ICcdpController::forceXpic failed for radiochannel ", channel.number,
                           " with status", forced);
    }
    const auto outcome = [&](TextWriter& text) {
        text << "XPIC EnableExt set to " << LinkTypeXpicMimo::enumToString(wanted);
    };
    log(trace, 4, outcome, within("execute"));
    return {};
}

std::string readLinkType(const XpicChannel& channel, const Command& /*command*/, Response& response)
{
    LinkType current = {};
    const ETIResult result = channel.ccdpController.getLinkType(current);
    if (failed(result)) {
        // sic: "radioChannel"
        return failureText("ICcdpController::getLinkType failed for radioChannel ", channel.number,
                           " with status ", result);
    }
    if (result == kNotSupported) {
        const auto unsupported = [&](TextWriter& text) {
            text << "ICcdpController::getLinkType not supported for radioChannel " << channel.number;
        };
        log(trace, 4, unsupported, within("execute"));
        return {};
    }
    response.xpicEnableExt = current;
    return {};
}

std::string refuseTxMessage(const XpicChannel& /*channel*/, const Command& command, Response& /*response*/)
{
    const bool hasText = command.txMessage.hasValue() && !command.txMessage.value().empty();
    return hasText ? "TxMessage is not supported anymore" : "";
}

std::string refuseLockStateMachine(const XpicChannel& /*channel*/, const Command& command,
                                   Response& /*response*/)
{
    return command.xpicLockStateMachine.hasValue() ? "XpicLockStateMachine is not supported anymore" : "";
}

std::string writeTxEnable(const XpicChannel& channel, const Command& command, Response& /*response*/)
{
    if (!command.xpicTxEnable.hasValue()) {
        return {};
    }
    const CDriverHandle& driver = channel.txEnableDriver;
    if (driver.write == nullptr) {
        return "XpicTxEnable is not supported in this product";
    }
    const std::uint32_t result = driver.write(driver.context, command.xpicTxEnable.value() ? 1 : 0);
    return failed(result) ? failedFor("XpicTxEnableDriver::Write", channel, result) : "";
}

// Reads a driver's flag; false where there is no such driver.
std::string readFlag(const CDriverHandle& driver, std::string_view absent, std::string_view operation,
                     const XpicChannel& channel, bool& flag)
{
    if (driver.read == nullptr) {
        log(trace, 4, absent, within("execute"));
        return {};
    }
    std::uint32_t value = 0;
    const std::uint32_t result = driver.read(driver.context, &value);
    if (failed(result)) {
        return failedFor(operation, channel, result);
    }
    flag = value != 0;
    return {};
}

std::string readTxEnable(const XpicChannel& channel, const Command& /*command*/, Response& response)
{
    return readFlag(channel.txEnableDriver, "XpicTxEnableDriver not supported", "XpicTxEnableDriver::Read",
                    channel, response.xpicTxEnable);
}

std::string readCableConnected(const XpicChannel& channel, const Command& /*command*/, Response& response)
{
    return readFlag(channel.cableDriver, "XpicCableConnected is not supported in this product",
                    "XpicCableConnected::Read", channel, response.xpicCableConnected);
}

// In this order: a later step sees what the earlier ones have set, and the first failure ends the command.
// clang-format off
constexpr std::array kSteps{
    &setBar,
    &readBar,
    &refuseEnable,
    &forceLinkType,
    &readLinkType,
    &refuseTxMessage,
    &refuseLockStateMachine,
    &writeTxEnable,
    &readTxEnable,
    &readSlaveAgc,
    &readSlaveImbalance,
    &readCableConnected,
    &muteSlave,
    &setPreamble,
    &readPreamble,
    &startAcquisition,
    &readSlaveStatus,
};
// clang-format on

} // namespace

std::string TiManageXpic::Command::toString() const
{
    return printed(*this);
}

void TiManageXpic::Command::print(TextWriter& text) const
{
    printIfPresent(text, "RadioChannelID: ", radioChannelId);
    printIfPresent(text, ", XpicControlBarOn: ", xpicControlBarOn);
    printIfPresent(text, ", XpicEnable: ", xpicEnable);
    if (xpicEnableExt.hasValue()) {
        text << ", XpicEnableExt: " << LinkTypeXpicMimo::enumToString(xpicEnableExt.value());
    }
    printIfPresent(text, ", TxMessage: ", txMessage);
    printIfPresent(text, ", XpicLockStateMachine: ", xpicLockStateMachine);
    printIfPresent(text, ", XpicTxEnable", xpicTxEnable); // sic: no colon, and the last one that prints
}

std::string TiManageXpic::Response::printResponse() const
{
    return printed(*this);
}

void TiManageXpic::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << radioChannelId << ", XpicControlBarOn: " << xpicControlBarOn
         << ", XpicEnable: " << xpicEnable << ", AverageI: " << averageI << ", AverageQ: " << averageQ
         << ", TxMessage: " << txMessage << ", RxMessage: " << rxMessage
         << ", XpicLockStateMachine: " << xpicLockStateMachine << ", XpicState: " << xpicState
         << ", SlaveInternalAgc: " << slaveInternalAgc << ", SlaveExternalAgc: " << slaveExternalAgc
         << ", XpicCableConnected: " << xpicCableConnected << ", XpicTxEnable: " << xpicTxEnable
         << ", XpicEnableExt: " << LinkTypeXpicMimo::enumToString(xpicEnableExt)
         << ", SlaveDiffGain: " << slaveDiffGain
         << ", XpicPreambleGet: " << xpicMimoPreambleToString(xpicPreambleGet)
         << ", XpicStatusGet: XpdDbTenths: " << xpdDbTenths // sic: two labels
         << ", SlaveCarrierOffsetHz: " << slaveCarrierOffsetHz << ", SlaveSweepInProgress: ";
    text.raw(slaveSweepInProgress) << ", CalibStatus: ";
    text.raw(calibStatus);
}

ETIResult TiManageXpicImpl::initialize(unsigned numberOfChannels)
{
    PerChannel<IDspApi> dspApi;
    return initialise(
        trace,
        family::classGuarded(SecondCallRule::Guard::BeforeRange,
                             "TiManageXpicImpl already initialize"), // sic: no "d"
        numberOfChannels, m_numberOfChannels,
        {
            perChannel("ICcdpController", m_ccdpController,
                       textAndChannel("failed to fetch interface ICcdpController for radiochannel ")),
            perChannel("IDspApi", dspApi,
                       textAndChannel("failed to fetch interface IDspApi for radiochannel ")),
            part<&IDspApi::getDspStatusApi>(
                dspApi, m_dspStatusApi,
                textAndChannel("failed to fetch interface IDspStatusApi for radiochannel ")),
            driver("channel.", ".xpic.connected", m_cableDriver,
                   textAroundName("driver ", " not supported", 5)),
            driver("channel.", ".xpic.tx.enable", m_txEnableDriver,
                   textAroundName("driver ", " not supported", 5)),
        });
}

TiManageXpic::Response TiManageXpicImpl::execute(const Command& command)
{
    logEnter(trace);
    if (m_numberOfChannels == 0) {
        return refusal<Response>(eTI_E_FAILED, "TiManageXpicImpl has not been initialized");
    }
    // No range check: a channel that isn't there throws before anything is called.
    const std::uint32_t number = command.radioChannelId.valueOr(1);
    const XpicChannel channel{number, m_ccdpController[number], m_dspStatusApi[number], m_cableDriver[number],
                              m_txEnableDriver[number]};
    Response response;
    response.radioChannelId = number;
    for (const XpicStep step : kSteps) {
        const std::string failure = step(channel, command, response);
        if (!failure.empty()) {
            return refusal<Response>(eTI_E_FAILED, failure); // without what was read
        }
    }
    return response;
}

TiManageXpic::Response tiManageXpic(const TiManageXpic::Command& command)
{
    return ZyrApiHandler::executeCommand(TiManageXpicImpl(), command);
}

} // namespace zyr_top_api
