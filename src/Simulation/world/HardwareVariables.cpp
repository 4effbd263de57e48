#include "HardwareVariables.h"

#include "Storage.h"

#include <array>
#include <cstdint>

namespace zyr_simulation
{

namespace
{

struct Variable
{
    const char* name;
    std::int32_t value;
};

constexpr std::array<Variable, 3> kVariables{
    {{"common.minTemp", -33}, {"common.maxTemp", 55}, {"common.xpicCapable", 1}}};

} // namespace

HardwareVariables::HardwareVariables()
{
    for (const auto& variable : kVariables) {
        zyr_platform::Storage::get().set(variable.name, variable.value);
    }
}

HardwareVariables::~HardwareVariables()
{
    for (const auto& variable : kVariables) {
        zyr_platform::Storage::get().remove(variable.name);
    }
}

} // namespace zyr_simulation
