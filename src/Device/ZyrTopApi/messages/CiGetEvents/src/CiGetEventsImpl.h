#pragma once

#include "CiGetEvents.h"
#include "IAlarmHandlerTopApi.h"

namespace zyr_top_api
{

/// The live object of "CI.GetEvents".
class ZYR_EXPORT CiGetEventsImpl : public CiGetEvents
{
  public:
    virtual Response execute(const Command& command);

    /// Takes the node's alarm handler; the number of channels doesn't matter. To be called once, before
    /// commands arrive.
    ETIResult initialize(unsigned numberOfChannels);

  private:
    IAlarmHandlerTopApi* m_alarmHandler = nullptr;
};

} // namespace zyr_top_api
