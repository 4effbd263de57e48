#pragma once

#include "Console.h"
#include "Node.h"

#include <memory>
#include <optional>
#include <string>

namespace zyr_ctl
{

/// What stands before or behind every subcommand.
struct Settings
{
    std::string url = "http://127.0.0.1:8080/RPC2";
    std::string user;              ///< name, or name:password
    std::string credentialsFile;   ///< path
    std::optional<double> timeout; ///< seconds; 0: none
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
