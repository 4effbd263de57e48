#include "CriStartRecoveryImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ResultLaw.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriStartRecovery::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr InitialiseRules kRules{
    .range = family::silentRange(eTI_E_INVALID_ARGUMENT),
    .secondCall = {SecondCallRule::Guard::AfterRange, "CriStartRecoveryImpl already initialized"},
    .countStored = InitialiseRules::CountStored::Last};

} // namespace

void CriStartRecovery::Command::print(TextWriter& text) const
{
    text << "Recover: " << recoverToString(Recover) << "\n";
}

ETIResult CriStartRecoveryImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, kRules, numberOfChannels, m_numberOfChannels,
                      {optional(nodeWide("RecoveryController", m_recoveryController,
                                         textAroundName("Failed to get ", " interface.")))});
}

StandardResponse CriStartRecoveryImpl::execute(const Command& command)
{
    logEnter(trace);

    if (command.Recover != zyr_top_api::Recover::Dsp) {
        log(trace, 1, [&](TextWriter& text) {
            text << "CRI.StartRecovery does not support recover of: " << recoverToString(command.Recover);
        });
        return {eTI_E_FAILED, "CRI.StartRecovery recovery type not supported"};
    }
    log(trace, 3, "DSP recovery triggered");

    auto* const recoveryController = m_recoveryController.find();
    if (recoveryController == nullptr) {
        return failedResponse(
            trace, "Failed to start recovery as RecoveryController Interface is NULL",
            "CRI.StartRecovery Failed to recover dsp. RecoveryController Interface is not set.");
    }
    if (failed(recoveryController->startDspRecovery(command.Recover))) {
        return failedResponse(trace, "CRI.StartRecovery failed to recover dsp");
    }
    log(trace, 4,
        [&](TextWriter& text) { text << recoverToString(command.Recover) << " recovery performed"; });
    return {};
}

StandardResponse criStartRecovery(const CriStartRecovery::Command& command)
{
    return ZyrApiHandler::executeCommand(CriStartRecoveryImpl(), command);
}

} // namespace zyr_top_api
