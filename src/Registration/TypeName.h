#pragma once

#include <string_view>

namespace zyr_registration
{

/// The name of a class or an enumeration as the compiler spells it, without the namespaces, whose names begin
/// with a small letter: "AcmMode", "CriGetAirInterfaceCapability::ReleasedFilter".
template <class T>
constexpr std::string_view typeName()
{
    // "... [with T = zyr_top_api::AcmMode; ...]"
    std::string_view text = __PRETTY_FUNCTION__;
    constexpr std::string_view front = "T = ";
    text.remove_prefix(text.find(front) + front.size());
    text = text.substr(0, text.find_first_of(";]"));
    while (text.front() >= 'a' && text.front() <= 'z' && text.find("::") != std::string_view::npos) {
        text.remove_prefix(text.find("::") + 2);
    }
    return text;
}

} // namespace zyr_registration
