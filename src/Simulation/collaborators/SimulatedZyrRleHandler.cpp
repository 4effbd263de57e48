#include "SimulatedZyrRleHandler.h"

namespace zyr_simulation
{

namespace
{

constexpr std::int32_t kNotEncrypted = 0;
constexpr std::int32_t kEncrypted = 1;
constexpr std::int32_t kEncryptedWithoutLink = 2;

} // namespace

std::int32_t SimulatedZyrRleHandler::getRleStatus()
{
    return read([&] {
        if (!channel().encryption.isEnabled) {
            return kNotEncrypted;
        }
        return channel().receiver.isLinkUp ? kEncrypted : kEncryptedWithoutLink;
    });
}

bool SimulatedZyrRleHandler::setRadioLinkEncryption(const std::string& masterKey,
                                                    std::uint32_t txFrequency_kHz,
                                                    std::uint32_t rxFrequency_kHz, bool enableRle)
{
    return perform<bool>("setRadioLinkEncryption", [&] {
        if (enableRle && (masterKey.empty() || masterKey.size() > KeyPrint::kLongestKey)) {
            return false;
        }
        auto& encryption = channel().encryption;
        encryption.isEnabled = enableRle;
        encryption.key = enableRle ? KeyPrint(masterKey) : KeyPrint();
        encryption.txFrequency_kHz = txFrequency_kHz;
        encryption.rxFrequency_kHz = rxFrequency_kHz;
        return true;
    });
}

} // namespace zyr_simulation
