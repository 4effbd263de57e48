#pragma once

#include <string>

#include <netinet/ether.h>

namespace zyr_registration
{

/// The address (an `ether_addr`) as six pairs of small hexadecimal digits with colons between them.
std::string ethernetAddressText(const void* address);

/// Reads the same form, capital digits too, into an `ether_addr`. False, with nothing changed, for another
/// text.
bool parseEthernetAddress(void* address, const std::string& text);

} // namespace zyr_registration
