#pragma once

#include "IZyrRleHandler.h"
#include "SimulatedCollaborator.h"

#include <cstdint>
#include <string>

namespace zyr_simulation
{

inline constexpr CollaboratorOperations kZyrRleHandlerOperations{"IZyrRleHandler", "setRadioLinkEncryption"};

/// The encryption of a channel's radio link. Of the key a salted hash is kept alone.
class SimulatedZyrRleHandler final
    : public SimulatedCollaborator<zyr::IZyrRleHandler, kZyrRleHandlerOperations>
{
  public:
    using SimulatedCollaborator::SimulatedCollaborator;

    /// 0 not encrypted, 1 encrypted and the link is up, 2 encrypted and the link is down.
    std::int32_t getRleStatus() override;

    /// Refuses to encrypt without a key, and with one that is longer than `KeyPrint` takes.
    bool setRadioLinkEncryption(const std::string& masterKey, std::uint32_t txFrequency_kHz,
                                std::uint32_t rxFrequency_kHz, bool enableRle) override;
};

} // namespace zyr_simulation
