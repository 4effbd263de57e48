#pragma once

#include "CriSetRadioLinkEncryption.h"
#include "IZyrRleHandler.h"
#include "PerChannel.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "CRI.SetRadioLinkEncryption".
class ZYR_EXPORT CriSetRadioLinkEncryptionImpl : public CriSetRadioLinkEncryption
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the encryption handler of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    std::uint32_t m_numberOfChannels = 0;
    PerChannel<zyr::IZyrRleHandler> m_rleHandler;
};

} // namespace zyr_top_api
