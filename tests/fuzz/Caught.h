#pragma once

#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>

namespace zyr_fuzz
{

/// Takes what a stream gets as long as it lives.
class Caught
{
  public:
    explicit Caught(std::ostream& stream) : m_stream(stream), m_before(stream.rdbuf(m_text.rdbuf())) {}
    ~Caught() { m_stream.rdbuf(m_before); }
    Caught(const Caught&) = delete;
    Caught& operator=(const Caught&) = delete;
    std::string text() const { return m_text.str(); }

  private:
    std::ostringstream m_text;
    std::ostream& m_stream;
    std::streambuf* m_before;
};

} // namespace zyr_fuzz
