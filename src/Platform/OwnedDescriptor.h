#pragma once

#include <utility>

#include <unistd.h>

namespace zyr_platform
{

/// A file descriptor that is closed with its owner.
class OwnedDescriptor
{
  public:
    /// @param number  an open descriptor, or -1 for none
    explicit OwnedDescriptor(int number) : m_number(number) {}
    ~OwnedDescriptor()
    {
        if (isOpen()) {
            ::close(m_number);
        }
    }
    OwnedDescriptor(const OwnedDescriptor&) = delete;
    OwnedDescriptor& operator=(const OwnedDescriptor&) = delete;
    OwnedDescriptor(OwnedDescriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    OwnedDescriptor& operator=(OwnedDescriptor&&) = delete;

    bool isOpen() const { return m_number >= 0; }
    int number() const { return m_number; }

  private:
    int m_number;
};

} // namespace zyr_platform
