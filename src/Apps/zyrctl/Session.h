#pragma once

#include "Connection.h"
#include "Console.h"
#include "Node.h"

#include <memory>
#include <string>
#include <vector>

namespace zyr_ctl
{

/// What stands before or behind every subcommand.
struct Settings
{
    ConnectionSettings connection;
    bool json = false;
    bool verbose = false;
};

/// What a subcommand works with.
class Session
{
  public:
    /// The node; the first call gets it ready, none is made before.
    /// @throws Failure (usage) if the settings don't make a connection
    Node& node();

    /// Lets calls take as long as the command can, unless the user has said how long.
    void waitFor(const CommandDescription& command);

    /// Writes an answer as data: as JSON if that is asked for, else in lines.
    void show(const Value& value, const std::vector<Line>& lines);

    /// Asks whether a command that can disturb traffic shall be called.
    /// @throws Failure (usage) if it shall not, or if there is nobody to ask
    void confirm(const std::string& method);

    Settings settings;
    Console console;

  private:
    std::unique_ptr<Node> m_node;
};

} // namespace zyr_ctl
