#pragma once

#include "BaseResponse.h"
#include "CmdWrapper.h"
#include "CommandIdentity.h"
#include "Description.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace zyr_registration
{

/// The one object that executes a command.
struct LiveCommand
{
    std::shared_ptr<zyr_top_api::CmdWrapperBase>
        wrapper;                          ///< its entry for the dispatcher; null if reached directly
    std::shared_ptr<void> implementation; ///< the command's implementation type
};

/// One call: where the command's record comes from and where its response goes. The record exists only while
/// the command runs, so the two sides are handed in.
class Exchange
{
  public:
    virtual ~Exchange() = default;
    virtual void fill(void* command) const = 0;
    virtual void take(const zyr_top_api::BaseResponse& outcome, const void* response) = 0;
};

/// A command without its types. One constant per command, made from the command list.
struct CommandEntry
{
    const zyr_top_api::CommandIdentity* identity;
    MethodNotes notes;

    LiveCommand (*create)();
    zyr_top_api::ETIResult (*initialize)(void* implementation, unsigned numberOfChannels);
    std::string (*describeItself)(void* implementation); ///< null: it doesn't
    void (*run)(void* implementation, Exchange& exchange);

    constexpr std::string_view name() const { return identity->wireName; }
    constexpr bool isDirect() const { return !identity->isDispatched(); }
};

/// All commands, in the order of the command list.
std::span<const CommandEntry> allCommands();

/// The command with this wire name, case included; null if there is none.
const CommandEntry* findCommand(std::string_view name);

} // namespace zyr_registration
