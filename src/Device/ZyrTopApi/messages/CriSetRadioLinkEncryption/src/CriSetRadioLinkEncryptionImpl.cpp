#include "CriSetRadioLinkEncryptionImpl.h"

#include "Failure.h"
#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

#include <cstddef>

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetRadioLinkEncryption::identity.traceChannel, 3, TylTraceHdrOption_Default};

constexpr std::size_t kShortestKey = 12;
constexpr std::size_t kLongestKey = 64;

} // namespace

// The one print form of the record: the frame's log and the command's own both show this.
void CriSetRadioLinkEncryption::Command::print(TextWriter& text) const
{
    text << "RadioChannelID: " << channelId << ", masterKey: (hidden)"
         << ", txFrequency_kHz: " << txFrequency_kHz << ", rxFrequency_kHz: " << rxFrequency_kHz
         << ", enableRle: " << enableRle << "\n";
}

ETIResult CriSetRadioLinkEncryptionImpl::initialize(unsigned numberOfChannels)
{
    constexpr InitialiseRules rules{.countStored = InitialiseRules::CountStored::Last,
                                    .entryTellsCount = true};
    return initialise(trace, rules, numberOfChannels, m_numberOfChannels,
                      {perChannel("IZyrRleHandler", m_rleHandler)});
}

StandardResponse CriSetRadioLinkEncryptionImpl::execute(const Command& command)
{
    logEnter(trace, [&](TextWriter& text) { text << "msg.channelId=" << command.channelId; });
    log(trace, 3, [&](TextWriter& text) { command.print(text); });

    if (command.channelId > m_numberOfChannels) {
        return {eTI_E_INVALID_ARGUMENT, "RadioChannelID out of bounds"};
    }
    // Switching off needs no key.
    const std::size_t length = command.masterKey.size();
    if (command.enableRle && length < kShortestKey) {
        return failedResponse(trace,
                              failureText("MasterKey is shorter than the required 12 characters: ", length),
                              eTI_E_INVALID_ARGUMENT);
    }
    if (command.enableRle && length > kLongestKey) {
        return failedResponse(trace,
                              failureText("MasterKey is longer than the supported 64 characters: ", length),
                              eTI_E_INVALID_ARGUMENT);
    }
    zyr::IZyrRleHandler* const rleHandler = m_rleHandler.find(command.channelId);
    if (rleHandler == nullptr) {
        return {eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE, "ZyrRleHandler missing"};
    }
    if (!rleHandler->setRadioLinkEncryption(command.masterKey, command.txFrequency_kHz,
                                            command.rxFrequency_kHz, command.enableRle)) {
        return failedResponse(trace, "CRI.SetRadioLinkEncryption failed to enable or disable encryption",
                              "Failed to enable or disable encryption");
    }
    return {};
}

StandardResponse criSetRadioLinkEncryption(const CriSetRadioLinkEncryption::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetRadioLinkEncryptionImpl(), command);
}

} // namespace zyr_top_api
