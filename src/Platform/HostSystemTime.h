#pragma once

#include "SystemTimeApi.h"

namespace zyr_platform
{

/// The host's wall clock. Setting it is refused with EPERM unless `allowSettingTheClock` has allowed it.
class HostSystemTime : public Util::SystemTimeApi
{
  public:
    int access(const char* path, int mode) override;
    std::time_t time() override;
    int stime(const std::time_t* seconds) override;
};

} // namespace zyr_platform
