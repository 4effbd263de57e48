#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

// The command line as a whole, before it is parsed.

namespace zyr_ctl
{

/// Puts "call" before the words if the first that is no option is no subcommand: the short form.
std::vector<std::string> withCallSubcommand(const CLI::App& app, std::vector<std::string> words);

/// Whether --json is among the words; asked when they could not be parsed.
bool asksForJson(const std::vector<std::string>& words);

/// Blots out a password behind --user, and what is assigned to a secret field: others could read it in the
/// list of processes.
void hideSecrets(int argc, char** argv);

} // namespace zyr_ctl
