#pragma once

namespace zyr_simulation
{

/// The variables of the hardware storage that commands read, there as long as this lives: "common.minTemp"
/// (-33) and "common.maxTemp" (55), in degrees Celsius, and "common.xpicCapable" (1).
class HardwareVariables
{
  public:
    HardwareVariables();
    ~HardwareVariables();

    HardwareVariables(const HardwareVariables&) = delete;
    HardwareVariables& operator=(const HardwareVariables&) = delete;
};

} // namespace zyr_simulation
