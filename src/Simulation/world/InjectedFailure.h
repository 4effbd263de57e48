#pragma once

#include <cstdint>
#include <optional>
#include <type_traits>
#include <utility>

namespace zyr_simulation
{

/// A failure that a command has ordered for the next accesses to a part of the DSP. It is apart from the
/// faults that people order from outside.
struct InjectedFailure
{
    std::uint32_t code = 0;
    unsigned count = 0; ///< Accesses that are still to fail.

    /// Answers the failure if the access at hand is to fail, and uses up one count; else does the work. Work
    /// without an answer of its own always succeeds.
    template <class Result, class Work>
    Result orElse(Work&& work)
    {
        if (count > 0) {
            --count;
            return static_cast<Result>(code);
        }
        if constexpr (std::is_void_v<std::invoke_result_t<Work>>) {
            std::forward<Work>(work)();
            return Result{};
        } else {
            return std::forward<Work>(work)();
        }
    }
};

} // namespace zyr_simulation
