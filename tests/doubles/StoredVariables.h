#pragma once

#include "Storage.h"

#include <array>

namespace zyr_test
{

/// The variables of the hardware storage that commands look up, as long as this lives.
class StoredVariables
{
  public:
    StoredVariables()
    {
        for (const char* const name : kNames) {
            zyr_platform::Storage::get().set(name, 1);
        }
    }
    ~StoredVariables()
    {
        for (const char* const name : kNames) {
            zyr_platform::Storage::get().remove(name);
        }
    }
    StoredVariables(const StoredVariables&) = delete;
    StoredVariables& operator=(const StoredVariables&) = delete;

  private:
    static constexpr std::array kNames{"common.minTemp", "common.maxTemp", "common.xpicCapable"};
};

} // namespace zyr_test
