#pragma once

#include "Answer.h"
#include "Drivers.h"
#include "Recorder.h"

#include <cstdint>

namespace zyr_test
{

/// Recording double of a hardware driver, there as long as it lives.
class DriverDouble : public Recorder
{
  public:
    using Recorder::Recorder;

    Answer<std::uint32_t, std::uint32_t> onRead;
    Answer<std::uint32_t> onWrite;

  private:
    zyr_platform::Registration m_registration =
        zyr_platform::Drivers::get().add(name(), {.read =
                                                      [this](std::uint32_t& value) {
                                                          record("read");
                                                          return onRead.next(value);
                                                      },
                                                  .write =
                                                      [this](std::uint32_t value) {
                                                          record("write", value);
                                                          return onWrite.next();
                                                      }});
};

} // namespace zyr_test
