#pragma once

#include "Export.h"

#include <exception>
#include <optional>
#include <utility>

namespace general_classes
{

/// Raised when the value of an empty `Optional` is read.
class ZYR_EXPORT BadOptional : public std::exception
{
  public:
    const char* what() const noexcept override { return "bad optional access"; }
};

/// A value that a record's sender may leave out: holds a `T` or nothing.
///
/// As safe between threads as a plain `T`: one object needs a lock if a thread changes it.
template <class T>
class Optional
{
  public:
    /// Holds nothing.
    constexpr Optional() = default;

    /// Holds `value`. Implicit, so that a field can be set from a plain value.
    constexpr Optional(T value) : m_value(std::move(value)) {}

    /// Whether a value is held.
    constexpr bool hasValue() const noexcept { return m_value.has_value(); }

    /// The held value.
    /// @throws BadOptional if nothing is held.
    constexpr const T& value() const
    {
        requireValue();
        return *m_value;
    }

    /// The held value, to be changed in place.
    /// @throws BadOptional if nothing is held.
    constexpr T& value()
    {
        requireValue();
        return *m_value;
    }

    /// The held value, or `fallback` if nothing is held.
    constexpr T valueOr(T fallback) const { return m_value ? *m_value : std::move(fallback); }

    /// Drops the held value, if any.
    constexpr void reset() noexcept { m_value.reset(); }

  private:
    constexpr void requireValue() const
    {
        if (!m_value) {
            throw BadOptional{};
        }
    }

    std::optional<T> m_value;
};

} // namespace general_classes
