#pragma once

#include "ITapsController.h"
#include "ITapsControllerLog.h"
#include "PerChannel.h"
#include "TiManageTaps.h"

#include <cstdint>

namespace zyr_top_api
{

/// The live object of "TI.ManageTaps".
class ZYR_EXPORT TiManageTapsImpl : public TiManageTaps
{
  public:
    virtual Response execute(const Command& command);

    /// Takes TAPS and its log of each channel. To be called once, before commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    static void setPlainValues(const Command& command, ITapsController& tapsController);
    static bool handleLogRequest(const Command& command, ITapsControllerLog& log, Response& response);
    static void readBack(const Command& command, ITapsController& tapsController, ITapsControllerLog& log,
                         Response& response);

    std::uint32_t m_numberOfChannels = 0;
    PerChannel<ITapsController> m_tapsController;
    PerChannel<ITapsControllerLog> m_tapsControllerLog;
};

} // namespace zyr_top_api
