#pragma once

#include "IInterface.h"

#include <cstdint>
#include <string>

namespace zyr
{

/// The encryption of one channel's radio link (RLE), published as "IZyrRleHandler_<n>".
class ZYR_EXPORT IZyrRleHandler : public IInterface
{
  public:
    /// The status, in the handler's own numbers. Called by `CriGetRadioChannelStatus`.
    virtual std::int32_t getRleStatus() = 0;

    /// Sets key, frequencies in kHz, and whether the link is encrypted. Called by
    /// `CriSetRadioLinkEncryption`. The key is a secret: it must not reach a log.
    /// @return True if done, false on failure.
    virtual bool setRadioLinkEncryption(const std::string& masterKey, std::uint32_t txFrequency_kHz,
                                        std::uint32_t rxFrequency_kHz, bool enableRle) = 0;
};

} // namespace zyr
