#pragma once

namespace zyr_platform
{

/// Allows or forbids that `Util::stime` sets the host's wall clock. It is forbidden at the start of a
/// process, and then answered with EPERM. May be called from any thread.
void allowSettingTheClock(bool allowed);

} // namespace zyr_platform
