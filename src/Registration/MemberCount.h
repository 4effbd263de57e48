#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

namespace zyr_registration
{

namespace detail
{

/// Takes the place of any initial value.
struct AnyValue
{
    template <class T>
    operator T() const; // never defined: it is only looked at
};

template <class Record, std::size_t... Index>
constexpr bool takesValues(std::index_sequence<Index...>)
{
    return requires
    {
        Record{(static_cast<void>(Index), AnyValue{})...};
    };
}

} // namespace detail

/// The number of members of an aggregate: the highest number of initial values that it takes.
template <class Record, std::size_t Count = 0>
constexpr std::size_t memberCount()
{
    static_assert(std::is_aggregate_v<Record>);
    if constexpr (detail::takesValues<Record>(std::make_index_sequence<Count + 1>())) {
        return memberCount<Record, Count + 1>();
    } else {
        return Count;
    }
}

} // namespace zyr_registration
