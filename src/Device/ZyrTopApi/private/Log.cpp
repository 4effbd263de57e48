#include "Log.h"

#include <string>

namespace zyr_top_api::detail
{

namespace
{

// One buffer a thread, kept from message to message so that a traced call allocates nothing. A text that is
// built while another is being built (a collaborator's trace inside ours) finds it taken and uses its own.
class ReusedBuffer
{
  public:
    ReusedBuffer() : m_isShared(!s_isTaken)
    {
        if (m_isShared) {
            s_isTaken = true;
            s_buffer.clear();
        }
    }
    ~ReusedBuffer()
    {
        if (m_isShared) {
            s_isTaken = false;
        }
    }
    ReusedBuffer(const ReusedBuffer&) = delete;
    ReusedBuffer& operator=(const ReusedBuffer&) = delete;

    std::string& text() { return m_isShared ? s_buffer : m_own; }

  private:
    static thread_local bool s_isTaken;
    static thread_local std::string s_buffer;

    bool m_isShared;
    std::string m_own;
};

thread_local bool ReusedBuffer::s_isTaken = false;
thread_local std::string ReusedBuffer::s_buffer;

} // namespace

void logBuilt(const TylTrace& trace, TylTraceLevel level, const TylTraceHeader& header, TextSource text)
{
    ReusedBuffer buffer;
    TextWriter writer(buffer.text());
    text.write(text.callable, writer);
    trace.logMsg(level, header, buffer.text());
}

void logEnterBuilt(const TylTrace& trace, const TylTraceHeader& header, TextSource text)
{
    ReusedBuffer buffer;
    TextWriter writer(buffer.text());
    text.write(text.callable, writer);
    trace.logEnterMsg(header, buffer.text());
}

} // namespace zyr_top_api::detail
