#pragma once

#include "Session.h"

#include <CLI/CLI.hpp>

// One function per subcommand, each in a source of its own. They throw Failure when the subcommand runs.

namespace zyr_ctl
{

/// `list [PATTERN]`
void addListCommand(CLI::App& app, Session& session);

/// `help [COMMAND]`
void addHelpCommand(CLI::App& app, Session& session);

/// `call COMMAND field=value ...`, which is also meant when no subcommand is named
void addCallCommand(CLI::App& app, Session& session);

/// `status [CHANNEL]`, `frames [CHANNEL]`, `capability [CHANNEL]`, `loops`, `acm [CHANNEL]`
void addPictureCommands(CLI::App& app, Session& session);

/// `events [--follow]`
void addEventsCommand(CLI::App& app, Session& session);

/// `taps [CHANNEL]`
void addTapsCommand(CLI::App& app, Session& session);

/// `spectrum [CHANNEL]`
void addSpectrumCommand(CLI::App& app, Session& session);

/// `xpic [CHANNEL]`, `mimo [CHANNEL]`
void addSecondStreamCommands(CLI::App& app, Session& session);

/// The command behind `encrypt`.
inline constexpr const char* kEncryptMethod = "CRI.SetRadioLinkEncryption";

/// `encrypt [CHANNEL]`
void addEncryptCommand(CLI::App& app, Session& session);

/// `restart CHANNEL`, `recover`
void addRestartCommands(CLI::App& app, Session& session);

/// `pps [CHANNEL]`, `clock [--set TIME]`
void addTimingCommands(CLI::App& app, Session& session);

/// `completion SHELL`, and the hidden `__complete LINE` that the scripts call
void addCompletionCommand(CLI::App& app, Session& session);

/// The names of the subcommands that people may use.
std::vector<std::string> subcommandNames(const CLI::App& app);

/// Adds all subcommands, in the order in which the help lists them.
void addSubcommands(CLI::App& app, Session& session);

} // namespace zyr_ctl
