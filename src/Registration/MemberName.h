#pragma once

#include <string_view>

namespace zyr_registration
{

/// The identifier of a data member, as the compiler spells it.
template <auto Member>
constexpr std::string_view memberName()
{
    // "... [with auto Member = &zyr_top_api::CriEnableAcm::Command::channelId; ...]"
    std::string_view text = __PRETTY_FUNCTION__;
    constexpr std::string_view front = "Member = ";
    text.remove_prefix(text.find(front) + front.size());
    text = text.substr(0, text.find_first_of(";]"));
    return text.substr(text.rfind(':') + 1);
}

} // namespace zyr_registration
