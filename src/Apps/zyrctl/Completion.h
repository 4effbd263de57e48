#pragma once

#include "NodeDescription.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a shell may put in for the word that is being typed. Pure functions; the node is asked by the
// functions of the source, and only if its answer is needed.

namespace zyr_ctl
{

/// What there is to choose from.
struct CompletionSource
{
    std::vector<std::string> subcommands;
    std::vector<std::string> options;                ///< all options: "--json"
    std::vector<std::string> valueOptions;           ///< those that are followed by a value
    std::vector<std::string> shells;                 ///< whose completion there is
    std::function<std::vector<std::string>()> nodes; ///< the named ones
    std::function<std::vector<std::string>()> commands;
    std::function<std::optional<CommandDescription>(const std::string& command)> describe;
};

/// The words of a command line behind the program's name, quotes taken off. The last is the one that is being
/// typed, empty behind a blank.
std::vector<std::string> completionWords(std::string_view line);

/// What the last word can become, in full: "enable=true", not "true".
std::vector<std::string> completions(const std::vector<std::string>& words, const CompletionSource& source);

/// The value that an option has among the words: "--url X", "--url=X"; none if it isn't there.
std::optional<std::string> optionValue(const std::vector<std::string>& words, const std::string& option);

} // namespace zyr_ctl
