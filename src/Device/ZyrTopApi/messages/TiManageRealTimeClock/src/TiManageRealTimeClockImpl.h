#pragma once

#include "TiManageRealTimeClock.h"

#include <ctime>

namespace zyr_top_api
{

/// The live object of "TI.ManageRealTimeClock". It has no collaborators and keeps nothing; its virtual
/// operations are the hardware.
class ZYR_EXPORT TiManageRealTimeClockImpl : public TiManageRealTimeClock
{
  public:
    // Each gives true if it was done. All times are UTC.

    /// Sets the hardware clock to these fields as they are.
    virtual bool writeRealTimeClock(const std::tm& time);
    virtual bool readRealTimeClock(std::tm& time);

    /// Sets the system clock; fields out of range count on into the next month, hour and so on. Changes TZ as
    /// `TiManageRealTimeClock` tells.
    virtual bool setSystemTime(const std::tm& time);
    virtual bool getSystemTime(std::tm& time);

    /// Whether the node has a hardware clock.
    virtual bool hasRealTimeClock() const;

    Response execute(const Command& command);

    /// Does nothing.
    ETIResult initialize(int numberOfChannels);
};

} // namespace zyr_top_api
