#pragma once

#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <vector>

// What a fuzz target is made of: it defines `consume`; libFuzzer's entry or the main function of the smoke
// run hands in the inputs.

namespace zyr_fuzz
{

/// Takes one input. What it must never do, it tells with `require`; an exception that leaves it is a finding
/// too. Calls come one after the other, and the outcome of one doesn't hang on those before it.
void consume(std::string_view input);

/// Ends the process if a property doesn't hold, with its name and the input.
void require(bool holds, const char* property, std::string_view input);

/// The lines of an input; behind the last line feed there is one more, as in "a\n" of "a" and "".
std::vector<std::string_view> linesOf(std::string_view input);

/// Calls a function, which may refuse what it is given by an exception of the one type that its callers know.
/// @return whether it took it
template <class Refusal, class Function>
bool takes(const Function& function)
{
    try {
        function();
        return true;
    } catch (const Refusal&) {
        return false;
    }
}

} // namespace zyr_fuzz
