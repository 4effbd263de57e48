#pragma once

#include "ServiceInForce.h"
#include "SystemTimeApi.h"

#include <atomic>

namespace zyr_platform
{

template <>
ZYR_EXPORT std::atomic<Util::SystemTimeApi*>& serviceInForce<Util::SystemTimeApi>();

/// Allows or forbids that the host's own services set the host's clocks: `Util::SystemTimeApi::stime` the
/// wall clock, and the device "rtc0" of `HostDeviceFactory` the hardware clock. It is forbidden at the start
/// of a process, and then answered with EPERM. May be called from any thread.
void allowSettingTheClock(bool allowed);

/// Whether it is allowed now. May be called from any thread.
bool isSettingTheClockAllowed();

} // namespace zyr_platform
