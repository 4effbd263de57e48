#pragma once

#include <cstdio>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_test
{

/// A text as one line: line feeds as "\n", further control bytes as "\xNN", a backslash as "\\", and a blank
/// at its end as "\x20", since expected texts stand in source lines.
inline std::string escaped(std::string_view text)
{
    std::string line;
    for (const char byte : text) {
        const auto number = static_cast<unsigned char>(byte);
        if (byte == '\n') {
            line += "\\n";
        } else if (byte == '\\') {
            line += "\\\\";
        } else if (number < 0x20 || number == 0x7F) {
            char digits[8];
            std::snprintf(digits, sizeof digits, "\\x%02X", static_cast<unsigned>(number));
            line += digits;
        } else {
            line += byte;
        }
    }
    if (line.ends_with(' ')) {
        line.replace(line.size() - 1, 1, "\\x20");
    }
    return line;
}

/// Everything that happens in a test, in one order: calls of collaborators, trace lines, sleeps, responses.
/// From any thread.
class Transcript
{
  public:
    /// Adds an entry, escaped to one line.
    void add(std::string_view entry)
    {
        const std::lock_guard lock(m_mutex);
        m_lines.push_back(escaped(entry));
    }

    /// All lines, each ended by a line feed, and one more in front: an expected text stands in a raw string
    /// with its first line below the opening bracket.
    std::string text() const
    {
        const std::lock_guard lock(m_mutex);
        std::string all = "\n";
        for (const std::string& line : m_lines) {
            all += line + "\n";
        }
        return all;
    }

    std::vector<std::string> lines() const
    {
        const std::lock_guard lock(m_mutex);
        return m_lines;
    }

    void clear()
    {
        const std::lock_guard lock(m_mutex);
        m_lines.clear();
    }

  private:
    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
};

} // namespace zyr_test
