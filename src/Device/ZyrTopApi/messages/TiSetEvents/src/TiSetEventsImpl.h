#pragma once

#include "IAlarmHandlerTopApi.h"
#include "NodeWide.h"
#include "TiSetEvents.h"

namespace zyr_top_api
{

/// The live object of "TI.SetEvents".
class ZYR_EXPORT TiSetEventsImpl : public TiSetEvents
{
  public:
    virtual StandardResponse execute(const Command& command);

    /// Takes the node's alarm handler; the number of channels doesn't matter. To be called once, before
    /// commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    NodeWide<IAlarmHandlerTopApi> m_alarmHandler;
};

} // namespace zyr_top_api
