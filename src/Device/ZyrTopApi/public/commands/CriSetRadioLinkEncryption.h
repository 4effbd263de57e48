#pragma once

#include "BaseResponse.h"
#include "CommandIdentity.h"
#include "Export.h"

#include <cstdint>
#include <string>

namespace zyr_top_api
{

/// Switches the encryption of one channel's radio link on or off.
class ZYR_EXPORT CriSetRadioLinkEncryption
{
  public:
    static constexpr CommandIdentity identity{
        .wireName = "CRI.SetRadioLinkEncryption",
        .className = "CriSetRadioLinkEncryption",
        .responseLabel = "StandardResponse",
        .traceChannel = "ZYR.TI.CriSetRle", // sic: shorter than the command's name
    };

    struct ZYR_EXPORT Command
    {
        std::uint32_t channelId = 1; ///< 1 up to the number of channels
        /// Secret: printed nowhere, kept nowhere. 12 to 64 bytes; not looked at when encryption goes off.
        std::string masterKey;
        std::uint32_t txFrequency_kHz = 0; ///< passed on unchecked
        std::uint32_t rxFrequency_kHz = 0; ///< passed on unchecked
        bool enableRle = false;            ///< true switches encryption on, false off

        /// The record without the key.
        void print(TextWriter& text) const;
    };

    /// `eTI_E_INVALID_ARGUMENT` for a channel above the number of channels and for a key of a wrong length;
    /// `eTI_E_FAILED_TO_GET_EXTERNAL_INTERFACE` without an encryption handler; `eTI_E_FAILED` if the handler
    /// refuses.
    using Response = StandardResponse;

    virtual ~CriSetRadioLinkEncryption() = default;
};

/// Dispatches "CRI.SetRadioLinkEncryption". From any thread; waits for other commands.
ZYR_EXPORT StandardResponse criSetRadioLinkEncryption(const CriSetRadioLinkEncryption::Command& command);

} // namespace zyr_top_api
