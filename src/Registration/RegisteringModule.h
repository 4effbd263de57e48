#pragma once

#include "CommandEntry.h"
#include "ValueSink.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_registration
{

/// How the commands are registered.
struct RegistrationOptions
{
    unsigned numberOfChannels = 2; ///< radio channels of the node, 1 or 2
    bool enableTi = false;         ///< whether the test family is opened
};

/// The commands can't be registered. The text has one line for each entry that is missing, doubled or failed.
class RegistrationError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// What is wrong with a table of commands: a line for each null entry, for each dispatched command that is
/// not there exactly once, and for each other name. Empty if all is well.
std::vector<std::string> tableDefects(std::span<const std::shared_ptr<zyr_top_api::CmdWrapperBase>> table);

/// How a call has ended: with a value, or with a fault in its place.
struct Outcome
{
    std::int32_t faultCode = 0; ///< 1 to 4 with a fault, else 0
    std::string faultText;
};

/// What a call brought: a struct of `tiResult` and the response's fields, or a fault.
struct Answer // NOLINT(bugprone-exception-escape): moving a value throws nothing
{
    Value value;
    std::int32_t faultCode = 0; ///< 1 to 4 with a fault, else 0
    std::string faultText;
};

/// Owns the objects that execute the commands, and keeps the library's tables filled while it lives.
///
/// There is one at a time, as there is one set of tables. It is made and destroyed by one thread, while no
/// command runs; calls may come from any thread in between.
class RegisteringModule
{
  public:
    /// Creates and initialises all commands, whose collaborators must have been published; fills the
    /// library's tables and the catalogue, checks them, and runs the registration functions.
    /// @throws RegistrationError naming everything that is wrong; the tables are empty then
    explicit RegisteringModule(const RegistrationOptions& options);

    /// Empties the tables and closes the test gate.
    ~RegisteringModule();
    RegisteringModule(const RegisteringModule&) = delete;
    RegisteringModule& operator=(const RegisteringModule&) = delete;

    /// The radio channels of the node.
    unsigned numberOfChannels() const { return m_options.numberOfChannels; }

    /// Calls a command: dispatched ones through the dispatcher, direct ones on their object. Blocks until it
    /// is done. A refusal of the command comes back as a fault.
    ///
    /// Direct commands wait for nobody, not even for another call of the same command: their objects change
    /// only while this one is made, and a call keeps everything else to itself. So a caller whom
    /// "TI.ManageDsp" holds for up to 100 s holds nobody else up.
    /// @param command  one of `allCommands()`
    /// @param members  the request's members, an object
    /// @param sink     takes the answer's value, unless there is a fault
    /// @throws RecordError  if the members don't make the command's record, or if the command gave up on one
    /// of its texts, or on an option that is left out
    /// @throws anything else that leaves the command, or the sink
    Outcome call(const CommandEntry& command, const Value& members, ValueSink& sink);

    /// The same with the answer as a value.
    Answer call(const CommandEntry& command, const Value& members);

  private:
    LiveCommand& registered(const CommandEntry& command);
    void createAll();
    void initialiseAll(std::vector<std::string>& defects);
    void fillTables();
    void fillCatalogue();

    RegistrationOptions m_options;
    std::vector<LiveCommand> m_registered; // one for each of `allCommands()`, in their order
};

} // namespace zyr_registration
