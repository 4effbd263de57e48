#pragma once

#include "IDspAcmApi.h"
#include "IDspChannelApi.h"
#include "IDspControlApi.h"
#include "IDspStatusApi.h"
#include "IInterface.h"

/// The modem DSP of one channel, published as "IDspApi_<n>": gives the way to its parts.
///
/// The DSP owns its parts, and each may be null while the DSP can't serve it. Most commands ask anew at each
/// execution; `TiManageXpic`, `TiManageMimo` and `TiManagePathLatencyCompensation` ask once, when they are
/// initialised, and keep the answer.
class ZYR_EXPORT IDspApi : public IInterface
{
  public:
    /// The part that configures the channel, or null.
    virtual IDspChannelApi* getDspChannelApi() = 0;

    /// The part that reports on the channel, or null.
    virtual IDspStatusApi* getDspStatusApi() = 0;

    /// The part that controls the DSP as a whole, or null.
    virtual IDspControlApi* getDspControlApi() = 0;

    /// The part that adapts the modulation, or null.
    virtual IDspAcmApi* getAcmApi() = 0;
};
