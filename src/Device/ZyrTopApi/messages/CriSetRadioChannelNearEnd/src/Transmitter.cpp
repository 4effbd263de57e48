// The transmitter is forced off while the channel is reconfigured, and handed back at the end.

#include "CriSetRadioChannelNearEndImpl.h"
#include "DefaultSleepApi.h"
#include "Failure.h"
#include "IDspControlApi.h"
#include "Log.h"
#include "Required.h"
#include "ResultLaw.h"
#include "SteadyClockApi.h"
#include "Zyr.h"

#include <chrono>

namespace zyr_top_api
{

namespace
{

constexpr std::uint32_t kPollPause_ms = 100;

// Under carrier aggregation the transmitter of channel 1 serves both channels.
RadioChannel transmittingChannel(RadioChannel channel, bool isCarrierAggregationActive)
{
    return isCarrierAggregationActive ? RadioChannel(1) : channel;
}

} // namespace

bool CriSetRadioChannelNearEndImpl::isRadioAvailable(RadioChannel channel) const
{
    IRadio* const radio = m_radio.find(channel);
    return radio == nullptr || radio->isAvailable();
}

bool CriSetRadioChannelNearEndImpl::waitForTxStatus(RadioChannel channel, ETxPowerActualStatus wanted)
{
    const std::chrono::nanoseconds start = Util::SteadyClockApi::get().now();
    while (m_outputPowerController[channel].getTxStatus() != wanted) {
        const std::chrono::nanoseconds passed = Util::SteadyClockApi::get().now() - start;
        if (std::chrono::milliseconds(m_txOffTimeout) < passed) {
            return false;
        }
        Util::DefaultSleepApi::get().sleep(kPollPause_ms);
    }
    return true;
}

CriSetRadioChannelNearEndImpl::Failure CriSetRadioChannelNearEndImpl::turnOffTransmitter(RadioChannel channel)
{
    if (Zyr::isWarmRestartInProgress()) {
        log(s_trace, 4, "Set Transmitter Off skipped due to warm restart");
        return {};
    }
    const bool inCa = required(m_dspApi[channel].getDspControlApi(), channel).isCarrierAggregationActive();
    const RadioChannel txChannel = transmittingChannel(channel, inCa);
    if (!isRadioAvailable(txChannel)) {
        log(s_trace, 4, "Set Transmitter Off skipped due to RAU not available");
        return {};
    }
    log(s_trace, 4, inCa ? "Initiating Tx OFF in CA" : "Initiating Tx OFF");
    const ESPCResult result =
        m_systemPowerController[txChannel].overrideTxPowerState(ETxPowerOverrideState::ForcedOff);
    if (failed(result)) {
        // sic: neither the I of the interface nor a blank before the bracket
        return failureText("SystemPowerController overrideTxPowerState off failed(ESPCResult = ", result,
                           ")");
    }
    log(s_trace, 4, "Start waiting for TX off");
    if (!waitForTxStatus(txChannel, ETxPowerActualStatus::Off)) {
        // sic: no blank behind the colon
        return failureText("TX OFF didn't happen during timeout:", m_txOffTimeout, " ms");
    }
    log(s_trace, 4, "Done waiting for TX off");
    return {};
}

CriSetRadioChannelNearEndImpl::Failure CriSetRadioChannelNearEndImpl::restoreTransmitter(RadioChannel channel)
{
    // sic: a blank behind a channel's text that ends in one already, in both skips
    if (Zyr::isWarmRestartInProgress()) {
        log(s_trace, 4, [&](TextWriter& text) {
            text << "Return transmitter of " << channel.logString()
                 << " to configured TxPowerState skipped due to warm restart";
        });
        return {};
    }
    const bool inCa = required(m_dspApi[channel].getDspControlApi(), channel).isCarrierAggregationActive();
    const RadioChannel txChannel = transmittingChannel(channel, inCa);
    if (!isRadioAvailable(txChannel)) {
        log(s_trace, 4, [&](TextWriter& text) {
            text << "Skip return transmitter of " << txChannel.logString() << " since RAU is not available";
        });
        return {};
    }
    log(s_trace, 4, [&](TextWriter& text) {
        text << "Return transmitter of CH" << txChannel << (inCa ? " in CA" : "") << " to requested state";
    });
    const ESPCResult result =
        m_systemPowerController[txChannel].overrideTxPowerState(ETxPowerOverrideState::AsRequested);
    if (failed(result)) {
        return failureText("ISystemPowerController->overrideTxPowerState failed(ESPCResult = ", result, ")");
    }
    return {};
}

} // namespace zyr_top_api
