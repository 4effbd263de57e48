#pragma once

#include "TiGetAllCommandsData.h"

#include <vector>

namespace zyr_top_api
{

/// The live object of "TI.GetAllCommandsData".
class ZYR_EXPORT TiGetAllCommandsDataImpl : public TiGetAllCommandsData
{
  public:
    virtual Response execute(const Command& command);

    /// Has nothing to take; always `eTI_S_OK`.
    ETIResult initialize(unsigned numberOfChannels);

    /// Appends a command to the catalogue; doubled names are kept. At start-up only.
    void addCmdData(const CmdDescription& description);

  private:
    std::vector<CmdDescription> m_commands;
};

} // namespace zyr_top_api
