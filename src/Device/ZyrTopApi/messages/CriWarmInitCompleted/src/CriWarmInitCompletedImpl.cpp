#include "CriWarmInitCompletedImpl.h"

#include "IDspChannelApi.h"
#include "Initialise.h"
#include "Log.h"
#include "Required.h"
#include "Zyr.h"
#include "ZyrApiHandler.h"

#include <cstdio>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriWarmInitCompleted::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriWarmInitCompleted::Command::print(TextWriter& text) const
{
    text << " Received\n";
}

ETIResult CriWarmInitCompletedImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace,
                      family::classGuarded(SecondCallRule::Guard::AfterRange,
                                           "CriWarmInitCompletedImpl already initialized"),
                      numberOfChannels, m_numberOfChannels,
                      {
                          perChannel("IDspApi", m_dspApi, plainText("Could not find the DSP API interface")),
                          perChannel("ISystemPowerController", m_systemPowerController),
                          perChannel("IAcmHandler", m_acmHandler),
                      });
}

StandardResponse CriWarmInitCompletedImpl::execute(const Command&)
{
    logEnter(trace);

    if (Zyr::isZyrInNormalOperation()) {
        log(trace, 2, "ZYR is already in normal operation.");
        return {eTI_W_WARNING, "ZYR is already in normal operation"}; // a warning carries no text
    }
    if (Zyr::isColdRestartInProgress()) {
        log(trace, 3, "Cold restart completed, resuming normal operation");
        Zyr::setInitState(Zyr::ZyrInitState::NormalOperation);
        return {};
    }
    if (canOpenMarkerFile()) {
        log(trace, 3, "WarmInitCompleted from KORA blocked due to XML-RPC sub system test");
        return {};
    }
    synchroniseChannels();
    Zyr::setInitState(Zyr::ZyrInitState::NormalOperation);
    log(trace, 3, "Warm restart completed, resuming normal operation");
    return {};
}

bool CriWarmInitCompletedImpl::canOpenMarkerFile() const
{
    std::FILE* const file = std::fopen(m_markerFile, "re");
    if (file == nullptr) {
        return false;
    }
    std::fclose(file);
    return true;
}

// Nothing here can fail: what the collaborators answer is dropped.
void CriWarmInitCompletedImpl::synchroniseChannels()
{
    for (std::uint32_t channel = 1; channel <= m_numberOfChannels; ++channel) {
        if (required(m_dspApi[channel].getDspChannelApi(), channel).isConfigured()) {
            m_systemPowerController[channel].syncAfterWarmRestart();
            m_acmHandler[channel].syncAfterWarmRestart();
        }
    }
}

StandardResponse criWarmInitCompleted(const CriWarmInitCompleted::Command& command)
{
    return ZyrApiHandler::executeCommand(CriWarmInitCompletedImpl(), command);
}

} // namespace zyr_top_api
