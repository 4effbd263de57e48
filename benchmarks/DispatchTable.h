#pragma once

#include "CmdWrapper.h"
#include "CommandEntry.h"
#include "CriEnableAcmImpl.h"
#include "IAcmHandler.h"
#include "InterfaceBroker.h"
#include "ZyrApiHandler.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

/// A command table, with "CRI.EnableAcm" at a chosen place and entries of other commands'
/// names elsewhere.
namespace benchmark_table
{

/// Length of the table that the bars are for.
inline constexpr std::size_t kBarLength = 52;

/// The names of the commands that are dispatched, the measured one left out.
inline std::vector<std::string> otherNames()
{
    std::vector<std::string> names;
    for (const auto& entry : zyr_registration::allCommands()) {
        if (!entry.isDirect() && entry.name() != "CRI.EnableAcm") {
            names.emplace_back(entry.name());
        }
    }
    return names;
}

/// The collaborator that the measured command calls: it does next to nothing.
class QuietAcmHandler final : public IAcmHandler
{
  public:
    EACMHResult enableAcm(bool enable) override
    {
        m_enabled = enable;
        return eACMH_S_OK;
    }

  private:
    bool m_enabled = false;
};

struct OtherCommand
{};

/// Fills the table up to a length, with the measured command behind so many others, and initialises it on the
/// handler. Names run out or are left out where the list of commands has another length.
inline void fill(std::size_t place, std::size_t length, IAcmHandler& handler)
{
    using namespace zyr_top_api;
    InterfaceBroker::getInstance().unregisterInterface("IAcmHandler_1");
    InterfaceBroker::getInstance().registerInterface("IAcmHandler_1", &handler);
    auto measured = std::make_shared<CmdWrapper<CriEnableAcmImpl>>("CRI.EnableAcm");
    measured->impl().initialize(1);
    auto names = otherNames();
    names.resize(length - 1, "CRI.NotListedSoFar");
    auto& table = ZyrApiHandler::m_cmds;
    table.clear();
    for (const std::string& name : names) {
        table.push_back(std::make_shared<CmdWrapper<OtherCommand>>(name));
    }
    table.insert(table.begin() + static_cast<std::ptrdiff_t>(place), measured);
}

} // namespace benchmark_table
