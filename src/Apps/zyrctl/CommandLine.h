#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

// The command line as a whole, before it is parsed.

namespace zyr_ctl
{

/// Makes one word of --watch or --wait and a number behind it, since the number may also be left out. What
/// could be the channel of a restart is joined only if there is another number.
std::vector<std::string> withJoinedNumbers(const CLI::App& app, std::vector<std::string> words);

/// Puts "call" before the words if the first that is no option is no subcommand: the short form.
std::vector<std::string> withCallSubcommand(const CLI::App& app, std::vector<std::string> words);

/// Whether --json is among the words; asked when they could not be parsed.
bool asksForJson(const std::vector<std::string>& words);

/// Puts a blank before lists in brackets that stand alone: the parser of the command line would take them
/// apart.
std::vector<std::string> withWholeLists(const CLI::App& app, std::vector<std::string> words);

/// Blots out a password behind --user, what is assigned to a secret field, and data with one: others could
/// read it in the list of processes.
void hideSecrets(int argc, char** argv);

} // namespace zyr_ctl
