#pragma once

#include "TylTrace.h"

#include <deque>
#include <string>

/// A trace channel that nobody has used before, also when a test is repeated in one process. It stays to the
/// end of the process, as trace channels do.
inline TylTrace& freshChannel(const std::string& stem, TylTraceLevel defaultLevel = 3)
{
    static int number = 0;
    static std::deque<std::string> names;
    static std::deque<TylTrace> channels;
    names.push_back(stem + "." + std::to_string(++number));
    return channels.emplace_back(names.back().c_str(), defaultLevel, TylTraceHdrOption_Default);
}
