// Each line is an order "CHANNEL=LEVEL" of the node's command line. What is taken must leave each trace
// channel at the level of the latest order that names it.

#include "Fuzz.h"
#include "Options.h"
#include "TraceService.h"
#include "TylTrace.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

using zyr_platform::TraceService;

namespace
{

constexpr TylTraceHdrOption kHeader = TylTraceHdrOption_Default;
// Like each other, for patterns that tell them apart.
constinit const std::array<TylTrace, 6> kChannels{{{"ZYR.COMM", 3, kHeader},
                                                   {"ZYR.COMMON", 2, kHeader},
                                                   {"ZYR.TEST.COMM", 0, kHeader},
                                                   {"a*b", 7, kHeader},
                                                   {"aab", 1, kHeader},
                                                   {"", 4, kHeader}}};

// Whether the pattern stands for the name, told letter by letter.
bool fits(std::string_view pattern, std::string_view name)
{
    std::vector<bool> ends(name.size() + 1);
    ends[0] = true; // where what has been read of the pattern can end in the name
    for (const char c : pattern) {
        std::vector<bool> next(ends.size());
        for (std::size_t at = 0; at < ends.size(); ++at) {
            const bool before = at > 0 && (c == '*' ? next[at - 1] : ends[at - 1] && name[at - 1] == c);
            next[at] = before || (c == '*' && ends[at]);
        }
        ends = next;
    }
    return ends.back();
}

} // namespace

void zyr_fuzz::consume(std::string_view input)
{
    auto& service = TraceService::get();
    service.resetLevels();
    std::array<TylTraceLevel, kChannels.size()> expected{};
    std::ranges::transform(kChannels, expected.begin(), &TylTrace::defaultLevel);
    for (const std::string_view line : linesOf(input)) {
        takes<std::invalid_argument>([&] {
            const auto order = zyr_node::parseTraceLevel(std::string(line));
            require(line.starts_with(order.pattern + "="), "what stands before the level is the pattern",
                    input);
            const std::string accepted = service.setLevel(order.pattern, order.level);
            require(accepted.starts_with("trace level " + std::to_string(order.level) + " for \"" +
                                         order.pattern + "\": "),
                    "what is accepted is told", input);
            for (std::size_t index = 0; index < kChannels.size(); ++index) {
                expected[index] =
                    fits(order.pattern, kChannels[index].name()) ? order.level : expected[index];
            }
        });
        for (std::size_t index = 0; index < kChannels.size(); ++index) {
            for (TylTraceLevel level = 1; level <= TraceService::kHighestLevel; ++level) {
                require(kChannels[index].isEnabled(level) == (level <= expected[index]),
                        "each channel has the level of the latest order that names it", input);
            }
        }
    }
    service.resetLevels();
}
