#pragma once

#include "RadioFrameRecord.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <type_traits>
#include <vector>

namespace zyr_test
{

/// While one lives, it may put any number in the place of what doubles were told to answer, for tests that
/// want commands to stand whatever comes. One at a time; not while other threads use doubles.
class Disturbance
{
  public:
    Disturbance() { s_inForce = this; }
    virtual ~Disturbance() { s_inForce = nullptr; }
    Disturbance(const Disturbance&) = delete;
    Disturbance& operator=(const Disturbance&) = delete;

    static Disturbance* inForce() { return s_inForce; }

    /// Disturbs a result or an out-argument, if it is the turn: numbers, enumerators and flags become the
    /// number; pointers null; lists get up to three default elements; optionals become empty. Records stay.
    template <class Value>
    void disturb(Value& value)
    {
        const std::optional<std::int32_t> number = next();
        if (!number) {
            return;
        }
        if constexpr (std::is_arithmetic_v<Value> || std::is_enum_v<Value>) {
            value = static_cast<Value>(*number);
        } else if constexpr (std::is_pointer_v<Value>) {
            value = nullptr;
        } else if constexpr (requires { value.reset(); }) {
            value.reset();
        } else if constexpr (requires { value.resize(std::size_t{}); }) {
            value.resize(static_cast<std::uint32_t>(*number) % kMostElements);
        }
        if constexpr (std::same_as<Value, std::vector<zyr_top_api::RadioFrameRecord>>) {
            for (zyr_top_api::RadioFrameRecord& frame : value) {
                frame.modulations.resize(1); // a frame without one is none
            }
        }
    }

  protected:
    /// What the value at hand becomes; nothing if it stays.
    virtual std::optional<std::int32_t> next() = 0;

  private:
    static constexpr std::uint32_t kMostElements = 4; // one less

    static inline Disturbance* s_inForce = nullptr;
};

} // namespace zyr_test
