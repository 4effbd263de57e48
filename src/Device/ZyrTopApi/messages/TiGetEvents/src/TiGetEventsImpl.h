#pragma once

#include "IAlarmHandlerTopApi.h"
#include "NodeWide.h"
#include "TiGetEvents.h"

namespace zyr_top_api
{

/// The live object of "TI.GetEvents".
class ZYR_EXPORT TiGetEventsImpl : public TiGetEvents
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
