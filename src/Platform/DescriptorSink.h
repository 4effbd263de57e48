#pragma once

#include "TraceSink.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <utility>

#include <unistd.h>

namespace zyr_platform
{

/// Writes records as text to a file descriptor, each with one `write` of the operating system and nothing
/// kept back, so that the last lines before a crash are there. No lock is held: what one thread writes never
/// waits for another here. Records of several threads stay whole on files opened for appending, and on a pipe
/// up to PIPE_BUF bytes.
class DescriptorSink : public TraceSink
{
  public:
    /// @param descriptor  stays open, and stays the caller's, as long as the sink is in use
    /// @param name        what standard error is told when records can't be written, once until they can be
    /// again;
    ///                    empty: nothing is told
    explicit DescriptorSink(int descriptor, std::string name = {})
        : m_descriptor(descriptor), m_name(std::move(name))
    {}

    void write(const TraceRecord& record) override;

    /// Number of records that could not be written whole, as when the disk is full.
    std::uint64_t lostRecords() const { return m_lostRecords; }

  private:
    void lose(int error);

    int m_descriptor;
    const std::string m_name;
    std::atomic<std::uint64_t> m_lostRecords = 0;
    std::atomic<bool> m_isFailing = false;
    std::atomic<bool> m_isTorn = false; ///< the last line has no end
};

/// Writes records to standard error.
class StandardErrorSink : public DescriptorSink
{
  public:
    StandardErrorSink() : DescriptorSink(STDERR_FILENO) {}
};

} // namespace zyr_platform
