#pragma once

#include <concepts>
#include <cstdint>
#include <type_traits>

namespace zyr_top_api
{

/// A result code: an enumeration or an integer of 32 bits, whatever module it comes from.
template <class Result>
concept ResultValue = (std::is_enum_v<Result> || std::integral<Result>)&&sizeof(Result) ==
                      sizeof(std::uint32_t);

/// The number of a result, as the texts print it and as results of different modules are compared.
template <ResultValue Result>
constexpr std::uint32_t code(Result result)
{
    return static_cast<std::uint32_t>(result);
}

/// The common law: 0x8000 and above is a failure, all below is success, warnings among it.
template <ResultValue Result>
constexpr bool failed(Result result)
{
    return code(result) >= 0x8000U;
}

/// The strict law of the MIMO operations: warnings fail too, that is 0x1000 and above.
template <ResultValue Result>
constexpr bool failedFromWarning(Result result)
{
    return code(result) >= 0x1000U;
}

/// The law of drivers and of the booster: only 0 is success.
template <ResultValue Result>
constexpr bool failedUnlessZero(Result result)
{
    return code(result) != 0U;
}

/// The law of the combiner setters: 0x8000 alone is a failure, greater values are success.
template <ResultValue Result>
constexpr bool failedExactly(Result result)
{
    return code(result) == 0x8000U;
}

} // namespace zyr_top_api
