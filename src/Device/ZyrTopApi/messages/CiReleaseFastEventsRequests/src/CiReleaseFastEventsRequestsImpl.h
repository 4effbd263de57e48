#pragma once

#include "CiReleaseFastEventsRequests.h"
#include "IAlarmHandlerTopApi.h"
#include "NodeWide.h"

namespace zyr_top_api
{

/// The live object of "CI.ReleaseFastEventsRequests".
class ZYR_EXPORT CiReleaseFastEventsRequestsImpl : public CiReleaseFastEventsRequests
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
