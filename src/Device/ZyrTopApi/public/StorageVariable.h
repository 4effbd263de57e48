#pragma once

#include "Missing.h"

#include <cstdint>

namespace zyr_top_api
{

/// A variable of the node's hardware storage. Its address stays valid for the life of the process.
class StorageVariable
{
  public:
    /// @param name  the variable's, with static storage duration
    explicit constexpr StorageVariable(const char* name) : m_name(name) {}

    const char* name() const { return m_name; }

    /// The variable's value now. @throws std::out_of_range naming it, if it was not found
    std::int32_t operator*() const
    {
        if (m_content == nullptr) {
            throwMissing(m_name);
        }
        return *m_content;
    }

    /// Stores where it was found.
    void set(const std::int32_t* content) { m_content = content; }

  private:
    const char* m_name;
    const std::int32_t* m_content = nullptr;
};

} // namespace zyr_top_api
