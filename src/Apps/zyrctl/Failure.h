#pragma once

#include "Value.h"

#include <optional>
#include <stdexcept>
#include <string>

namespace zyr_ctl
{

using zyr_gateway::Value;

/// The exit statuses of the program; scripts rely on the numbers.
enum class ExitStatus
{
    Done = 0,
    Fault = 1,        ///< the node answered with a fault
    Usage = 2,        ///< the command line is wrong, or what it asks for can't be done
    NoConnection = 3, ///< the node can't be reached
    Timeout = 4,      ///< the node was reached, the answer did not come in time
    Protocol = 5,     ///< what came back is not what a node answers
    Interrupted = 130 ///< somebody stopped the program while it waited
};

/// What ends the program with a status other than 0. The text is fit for people and holds no secret.
class Failure : public std::runtime_error
{
  public:
    /// @param code  the fault's code, or the HTTP status of an answer that is none
    Failure(ExitStatus status, const std::string& text, std::optional<long> code = std::nullopt)
        : std::runtime_error(text), m_status(status), m_code(code)
    {}

    ExitStatus status() const noexcept { return m_status; }

    /// The failure as a line for people: "fault 4: Error: Command not available".
    std::string line() const;

    /// The failure for programs: {"error": {"kind", "code", "text"}}. The kind is "fault", "usage",
    /// "connect", "timeout", "protocol" or "interrupted"; the code is null where there is none.
    Value json() const;

  private:
    ExitStatus m_status;
    std::optional<long> m_code;
};

/// The node doesn't answer now, which may pass: it is starting, stopping, or out of reach.
class Unreachable : public Failure
{
  public:
    using Failure::Failure;
};

/// A wrong command line.
inline Failure usageFailure(const std::string& text)
{
    return {ExitStatus::Usage, text};
}

} // namespace zyr_ctl
