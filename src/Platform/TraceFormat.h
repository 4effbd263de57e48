#pragma once

#include "TraceSink.h"

#include <string>

namespace zyr_platform
{

/// Appends a record as text:
///
///     2026-11-21T09:24:47.123456Z 3 ZYR.TI.CriEnableAcm src/x/X.cpp:42 execute: first line
///         second line
///
/// These are the time in UTC with microseconds, the level, the channel, file and line, the function, a colon,
/// and behind a blank the text; an empty text leaves the blank out. Every newline of the text is followed by
/// four blanks, so that a line which begins with another byte begins a record. Other control bytes (0x00 to
/// 0x1F and 0x7F) and the backslash stand as "\x" and two hexadecimal digits in capitals, so that the text
/// can be read back; all other bytes stand as they are. The record ends with a newline.
void appendTraceRecord(std::string& out, const TraceRecord& record);

} // namespace zyr_platform
