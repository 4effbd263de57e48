#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace zyr_test
{

/// Gives TZ back to the process at its end.
class KeptZone
{
  public:
    KeptZone()
    {
        if (const char* const zone = std::getenv("TZ")) {
            m_zone = zone;
        }
    }
    ~KeptZone() { m_zone ? setenv("TZ", m_zone->c_str(), 1) : unsetenv("TZ"); }
    KeptZone(const KeptZone&) = delete;
    KeptZone& operator=(const KeptZone&) = delete;

  private:
    std::optional<std::string> m_zone;
};

} // namespace zyr_test
