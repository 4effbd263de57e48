#pragma once

#include "IInterface.h"

/// The loop at intermediate frequency of one channel, published as "IIfLoopDriver_<n>". Its results are the
/// driver's own: 0 is success, any other value is a failure.
class ZYR_EXPORT IIfLoopDriver : public IInterface
{
  public:
    /// Gives the loop's state. Called by `TiGetIfLoop`.
    virtual int getIfLoop(unsigned char& ifLoop) = 0;

    /// Closes or opens the loop. Called by `TiSetIfLoop`.
    virtual int setIfLoop(bool on) = 0;
};
