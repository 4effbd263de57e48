#include "CriManagePathLatencyImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "PrintIfPresent.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriManagePathLatency::identity.traceChannel, 3, TylTraceHdrOption_Default};

// The calculator's own code: it can't set the compensation before the radio unit's path latency is reset.
constexpr std::uint32_t kRauPathLatencyNeedsReset = 0x8013;

void fillIfPresent(RauLatencyGroup& group, const general_classes::Optional<std::int32_t>& latency)
{
    if (latency.hasValue()) {
        group.value = latency.value();
        group.hasValue = 1;
    }
}

RauLatencyRequest latencyRequest(const CriManagePathLatency::Command& command)
{
    RauLatencyRequest request;
    fillIfPresent(request.group2, command.rxPathLatencyXpicSlave);
    fillIfPresent(request.group5, command.rxPathLatencyMimoSpatial);
    fillIfPresent(request.group6, command.rxPathLatencyMimoSpatialSlave);
    return request;
}

bool isPureRead(const CriManagePathLatency::Command& command)
{
    return !command.rxPathLatencyXpicSlave.hasValue() && !command.rxPathLatencyMimoSpatial.hasValue() &&
           !command.rxPathLatencyMimoSpatialSlave.hasValue();
}

} // namespace

void CriManagePathLatency::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId;
    printIfPresent(text, ", RxPathLatencyXpicSlave: ", rxPathLatencyXpicSlave);
    printIfPresent(text, ", RxPathLatencyMimoSpatial: ", rxPathLatencyMimoSpatial);
    printIfPresent(text, ", RxPathLatencyMimoSpatialSlave: ", rxPathLatencyMimoSpatialSlave);
}

std::string CriManagePathLatency::Response::printResponse() const
{
    return printed(*this);
}

void CriManagePathLatency::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "IsValidValues: ";
    text.word(isValidValues) << ", RxPathLatency: " << rxPathLatency;
}

ETIResult CriManagePathLatencyImpl::initialize(unsigned numberOfChannels)
{
    return initialise(
        trace,
        {.range = family::silentRange(eTI_E_FAILED), .countStored = InitialiseRules::CountStored::Last},
        numberOfChannels, m_numberOfChannels,
        {
            perChannel("IRauLatencyCalculator", m_rauLatencyCalculator,
                       plainText("Failed to get IRauLatencyCalculator")),
            optional(nodeWide("RecoveryController", m_recoveryController, kSilent)),
        });
}

CriManagePathLatency::Response CriManagePathLatencyImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "command.channelId=" << command.channelId; });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (m_numberOfChannels < command.channelId) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds");
    }
    IRauLatencyCalculator& calculator = m_rauLatencyCalculator[command.channelId];
    if (!isPureRead(command)) {
        const RauLatencyRequest request = latencyRequest(command);
        ETIResult result = calculator.calculateAndSetDspDelayCompensation(request);
        if (code(result) == kRauPathLatencyNeedsReset) {
            log(trace, 3, "DSP recovery triggered due to needed reset of RAU path latency");
            if (!recoverDsp()) {
                return refusal<Response>(eTI_E_FAILED, "Failed to recover DSP");
            }
            result = calculator.calculateAndSetDspDelayCompensation(request);
        }
        if (failed(result)) {
            return refusal<Response>(eTI_E_FAILED, "Error in calculateAndSetDspDelayCompensation()");
        }
    }
    bool first = false;
    bool isValid = false;
    std::uint32_t third = 0;
    std::uint32_t latency = 0;
    calculator.getCurrentLatency(first, isValid, third, latency);
    Response response;
    response.isValidValues = isValid;
    response.rxPathLatency = latency;
    return response;
}

// A node without a controller can't recover.
bool CriManagePathLatencyImpl::recoverDsp()
{
    auto* const controller = m_recoveryController.find();
    return controller != nullptr && !failed(controller->startDspRecovery(Recover::Dsp));
}

CriManagePathLatency::Response criManagePathLatency(const CriManagePathLatency::Command& command)
{
    return ZyrApiHandler::executeCommand(CriManagePathLatencyImpl(), command);
}

} // namespace zyr_top_api
