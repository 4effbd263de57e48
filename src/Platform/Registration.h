#pragma once

#include <functional>
#include <utility>

namespace zyr_platform
{

/// What was added stays added as long as this lives.
///
/// Move-only. It must not outlive the service that gave it; the services reached by `get()` live to the end
/// of the process.
class [[nodiscard]] Registration
{
  public:
    /// Nothing registered.
    Registration() = default;

    /// @param withdrawal  takes back what was added; called once
    explicit Registration(std::function<void()> withdrawal) : m_withdrawal(std::move(withdrawal)) {}

    ~Registration() { withdraw(); }
    Registration(const Registration&) = delete;
    Registration& operator=(const Registration&) = delete;
    Registration(Registration&& other) noexcept : m_withdrawal(std::exchange(other.m_withdrawal, nullptr)) {}
    Registration& operator=(Registration&& other) noexcept
    {
        if (this != &other) {
            withdraw();
            m_withdrawal = std::exchange(other.m_withdrawal, nullptr);
        }
        return *this;
    }

    /// Withdraws at once. Does nothing the second time.
    void withdraw()
    {
        if (const auto withdrawal = std::exchange(m_withdrawal, nullptr)) {
            withdrawal();
        }
    }

  private:
    std::function<void()> m_withdrawal;
};

} // namespace zyr_platform
