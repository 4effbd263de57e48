#include "TiManagePathLatencyCompensationImpl.h"

#include "Failure.h"
#include "IDspApi.h"
#include "Initialise.h"
#include "Log.h"
#include "PrintIfPresent.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

using bcm::types::ModemChain;
using bcm::types::modemChainToString;
using Response = TiManagePathLatencyCompensation::Response;

constinit TylTrace trace{TiManagePathLatencyCompensation::identity.traceChannel, 3,
                         TylTraceHdrOption_Default};

// The end of the text of a refused delay of a chain.
std::string setFailureText(RadioChannel channel, std::string_view operation, ModemChain chain,
                           unsigned char samples)
{
    TextWriter text;
    text << channel.logString() << operation << "(" << modemChainToString(chain) << ", ";
    text.raw(samples); // sic: the delay goes out as the byte that it is
    text << ") failed";
    return text.string();
}

// One delay of a chain as it is read: where it goes, and how its failure is told.
struct ChainDelay
{
    bool (IDspChannelApi::*operation)(Action, ModemChain, std::uint8_t&);
    ModemChain chain;
    std::uint8_t Response::*field;
    std::string_view failure;
};

constexpr auto kReadDelay = &IDspChannelApi::rxChainDelay;
constexpr auto kReadFilterDelay = &IDspChannelApi::rxEqualizerFeedForwardFilterDelay;

// sic: the filter's texts count the chains that are read, the others name them
constexpr std::array kChainDelays{
    ChainDelay{kReadDelay, ModemChain::Main, &Response::adjFifoMain, "rxChainDelay get failed for Main"},
    ChainDelay{kReadDelay, ModemChain::XpicSlave, &Response::adjFifoXpicSlave,
               "rxChainDelay get failed for XpicSlave"},
    ChainDelay{kReadDelay, ModemChain::MimoSpatial, &Response::adjFifoMimoSpatial,
               "rxChainDelay get failed for MimoSpatial"},
    ChainDelay{kReadDelay, ModemChain::MimoXSpatialSlave, &Response::adjFifoMimoXSpatialSlave,
               "rxChainDelay get failed for MimoXSpatialSlave"},
    ChainDelay{kReadFilterDelay, ModemChain::Main, &Response::fffFifoMain,
               "rxEqualizerFeedForwardFilterDelay get failed for Chain0"},
    ChainDelay{kReadFilterDelay, ModemChain::XpicSlave, &Response::fffFifoXpicSlave,
               "rxEqualizerFeedForwardFilterDelay get failed for Chain1"},
    ChainDelay{kReadFilterDelay, ModemChain::MimoSpatial, &Response::fffFifoMimoSpatial,
               "rxEqualizerFeedForwardFilterDelay get failed for Chain2"},
    ChainDelay{kReadFilterDelay, ModemChain::MimoXSpatialSlave, &Response::fffFifoMimoXSpatialSlave,
               "rxEqualizerFeedForwardFilterDelay get failed for Chain3"},
};

} // namespace

std::string TiManagePathLatencyCompensation::Command::toString() const
{
    return printed(*this);
}

void TiManagePathLatencyCompensation::Command::print(TextWriter& text) const
{
    // sic: nothing between one field and the next
    printIfPresent(text, "RadioChannelID: ", radioChannelId);
    printIfPresent(text, "OnePpsDelaySet: ", onePpsDelaySet);
    if (modemChain.hasValue()) {
        text << "ModemChain: " << modemChainToString(modemChain.value());
    }
    printIfPresent(text, "AdjFifoSamplesSet: ", adjFifoSamplesSet);
    printIfPresent(text, "FffFifoSamplesSet: ", fffFifoSamplesSet);
}

std::string TiManagePathLatencyCompensation::Response::printResponse() const
{
    return printed(*this);
}

void TiManagePathLatencyCompensation::Response::print(TextWriter& text) const
{
    if (!isFaultless(*this)) {
        printResultLine(*this, text);
        return;
    }
    text << "RadioChannelID: " << radioChannelId << ", DspValues: OnePpsDelayNanosec: " << onePpsDelayNanosec
         << ", AdjFifoMain: " << std::uint32_t{adjFifoMain}
         << ", AdjFifoXpicSlave: " << std::uint32_t{adjFifoXpicSlave}
         << ", AdjFifoMimoSpatial: " << std::uint32_t{adjFifoMimoSpatial}
         << ", AdjFifoMimoXSpatialSlave: " << std::uint32_t{adjFifoMimoXSpatialSlave}
         << ", FffFifoMain: " << std::uint32_t{fffFifoMain}
         << ", FffFifoXpicSlave: " << std::uint32_t{fffFifoXpicSlave}
         << ", FffFifoMimoSpatial: " << std::uint32_t{fffFifoMimoSpatial}
         << ", FffFifoMimoXSpatialSlave: " << std::uint32_t{fffFifoMimoXSpatialSlave};
}

ETIResult TiManagePathLatencyCompensationImpl::initialize(unsigned numberOfChannels)
{
    PerChannel<IDspApi> dspApi;
    return initialise(
        trace,
        family::classGuarded(SecondCallRule::Guard::BeforeRange,
                             "TiManagePathLatencyCompensationImpl has already been initialized"),
        numberOfChannels, m_numberOfChannels,
        {
            perChannel("IDspApi", dspApi, channelAndText("Failed to fetch interface for IDspApi")),
            part<&IDspApi::getDspChannelApi>(dspApi, m_dspChannelApi,
                                             plainText("failed to fetch interface for IDspChannelApi")),
        });
}

Response TiManagePathLatencyCompensationImpl::execute(const Command& command)
{
    logEnter(trace);

    if (m_numberOfChannels == 0) {
        return refusal<Response>(eTI_E_FAILED,
                                 "TiManagePathLatencyCompensationImpl has not been initialized");
    }
    const RadioChannel channel(command.radioChannelId.valueOr(1));
    if (m_numberOfChannels < channel) {
        return refusal<Response>(eTI_E_INVALID_ARGUMENT,
                                 failureText("RadioChannelID out of bounds: ", channel));
    }
    if (!m_dspChannelApi[channel].isConfigured()) {
        return refusal<Response>(eTI_E_FAILED,
                                 "TiManagePathLatencyCompensationImpl: The DSP channel is not configured");
    }
    Response response;
    response.radioChannelId = channel;
    if (command.onePpsDelaySet.hasValue()) {
        onePpsAsymmetryCompensationSet(response, channel, static_cast<short>(command.onePpsDelaySet.value()));
        if (response.tiResult > 0) {
            return response;
        }
    }
    if (command.modemChain.hasValue()) {
        const ModemChain chain = command.modemChain.value();
        if (command.adjFifoSamplesSet.hasValue()) {
            adjFifoSamplesSet(response, channel, chain,
                              static_cast<unsigned char>(command.adjFifoSamplesSet.value()));
            if (response.tiResult > 0) {
                return response;
            }
        }
        if (command.fffFifoSamplesSet.hasValue()) {
            fffFifoSamplesSet(response, channel, chain,
                              static_cast<unsigned char>(command.fffFifoSamplesSet.value()));
            if (response.tiResult > 0) {
                return response;
            }
        }
    }
    getCurrentValues(response, channel);
    return response;
}

void TiManagePathLatencyCompensationImpl::onePpsAsymmetryCompensationSet(Response& response,
                                                                         RadioChannel channel, short nanoSec)
{
    std::int16_t value = nanoSec;
    if (!m_dspChannelApi[channel].onePpsAsymmetryCompensation(Action::Write, value)) {
        response = refusal<Response>(
            eTI_E_FAILED,
            failureText(channel.logString(), "onePpsAsymmetryCompensationSet(", nanoSec, ") failed"));
    }
}

void TiManagePathLatencyCompensationImpl::adjFifoSamplesSet(Response& response, RadioChannel channel,
                                                            ModemChain chain, unsigned char samples)
{
    std::uint8_t value = samples;
    if (!m_dspChannelApi[channel].rxChainDelay(Action::Write, chain, value)) {
        response =
            refusal<Response>(eTI_E_FAILED, setFailureText(channel, "rxChainDelaySet", chain, samples));
    }
}

void TiManagePathLatencyCompensationImpl::fffFifoSamplesSet(Response& response, RadioChannel channel,
                                                            ModemChain chain, unsigned char samples)
{
    std::uint8_t value = samples;
    if (!m_dspChannelApi[channel].rxEqualizerFeedForwardFilterDelay(Action::Write, chain, value)) {
        response = refusal<Response>(
            eTI_E_FAILED, setFailureText(channel, "rxEqualizerFeedForwardFilterDelaySet", chain, samples));
    }
}

void TiManagePathLatencyCompensationImpl::getCurrentValues(Response& response, RadioChannel channel)
{
    IDspChannelApi& dspChannelApi = m_dspChannelApi[channel];
    if (!dspChannelApi.onePpsAsymmetryCompensation(Action::Read, response.onePpsDelayNanosec)) {
        response = refusal<Response>(
            eTI_E_FAILED, failureText(channel.logString(), "onePpsAsymmetryCompensation get failed"));
        return;
    }
    for (const ChainDelay& delay : kChainDelays) {
        if (!(dspChannelApi.*delay.operation)(Action::Read, delay.chain, response.*delay.field)) {
            response = refusal<Response>(eTI_E_FAILED, failureText(channel.logString(), delay.failure));
            return;
        }
    }
}

Response tiManagePathLatencyCompensation(const TiManagePathLatencyCompensation::Command& command)
{
    return ZyrApiHandler::executeCommand(TiManagePathLatencyCompensationImpl(), command);
}

} // namespace zyr_top_api
