#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <type_traits>

namespace zyr_test
{

/// The place of a virtual operation in its table, counted from 0; the destructor takes the places 0 and 1. -1
/// for an operation that isn't virtual.
///
/// A pointer to a member is two words in the C++ ABI of our platforms: the place in bytes, or the address of
/// a plain function, and an adjustment of the object's address. The lowest bit of the first is set for a
/// virtual operation; on Arm, where addresses of code may have theirs set, that of the second.
template <class Member>
std::ptrdiff_t slotOf(Member member)
{
    static_assert(std::is_member_function_pointer_v<Member>);
    std::array<std::ptrdiff_t, 2> words{};
    static_assert(sizeof(member) == sizeof(words));
    std::memcpy(words.data(), &member, sizeof(words));
#if defined(__arm__) || defined(__aarch64__)
    const auto flagged = words[1];
#else
    const auto flagged = words[0];
#endif
    return (flagged & 1) != 0 ? words[0] / static_cast<std::ptrdiff_t>(sizeof(void*)) : -1;
}

} // namespace zyr_test
