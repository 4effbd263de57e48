#include "EthernetAddress.h"

#include <charconv>
#include <cstddef>
#include <string_view>

namespace zyr_registration
{

namespace
{

constexpr std::size_t kOctetWidth = 3; // two digits and the colon behind them

} // namespace

std::string ethernetAddressText(const void* address)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const unsigned octet : static_cast<const ether_addr*>(address)->ether_addr_octet) {
        if (!text.empty()) {
            text += ':';
        }
        text += digits[octet >> 4U];
        text += digits[octet & 0xFU];
    }
    return text;
}

bool parseEthernetAddress(void* address, const std::string& text)
{
    ether_addr read{};
    if (text.size() != ETH_ALEN * kOctetWidth - 1) {
        return false;
    }
    for (std::size_t index = 0; index < ETH_ALEN; ++index) {
        const char* const first = text.data() + index * kOctetWidth;
        const auto [end, error] = std::from_chars(first, first + 2, read.ether_addr_octet[index], 16);
        const bool isLast = index + 1 == ETH_ALEN;
        if (error != std::errc{} || end != first + 2 || (!isLast && *end != ':')) {
            return false;
        }
    }
    *static_cast<ether_addr*>(address) = read;
    return true;
}

} // namespace zyr_registration
