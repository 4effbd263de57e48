#pragma once

#include "CiGetFastEvents.h"
#include "IAlarmHandlerTopApi.h"
#include "NodeWide.h"

namespace zyr_top_api
{

/// The live object of "CI.GetFastEvents". Read-only after `initialize`: several calls may hang in it at once.
class ZYR_EXPORT CiGetFastEventsImpl : public CiGetFastEvents
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the node's alarm handler; the number of channels doesn't matter. To be called once, before
    /// commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    NodeWide<IAlarmHandlerTopApi> m_alarmHandler;
};

} // namespace zyr_top_api
