#include "TraceService.h"

#include "TraceClock.h"

#include <algorithm>
#include <cerrno>
#include <stdexcept>
#include <utility>

#include <unistd.h>

namespace zyr_platform
{

namespace
{

/// Whether the pattern stands for the name. A "*" of the pattern also stands for a "*" in the name, so that
/// this tells as well whether a pattern covers another one.
bool matches(std::string_view pattern, std::string_view name)
{
    std::size_t inPattern = 0;
    std::size_t inName = 0;
    std::size_t star = std::string_view::npos;
    std::size_t afterStar = 0;
    while (inName < name.size()) {
        if (inPattern < pattern.size() && pattern[inPattern] == '*') {
            star = inPattern++;
            afterStar = inName;
        } else if (inPattern < pattern.size() && pattern[inPattern] == name[inName]) {
            ++inPattern;
            ++inName;
        } else if (star != std::string_view::npos) {
            inPattern = star + 1;
            inName = ++afterStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', inPattern) == std::string_view::npos;
}

TylTraceLevel defaultLevelOf(const TylTrace& channel)
{
    return std::clamp(channel.defaultLevel(), TraceService::kSilent, TraceService::kHighestLevel);
}

void checkSetting(std::string_view pattern, TylTraceLevel level)
{
    if (pattern.empty()) {
        throw std::invalid_argument("no trace channel is named");
    }
    if (level < TraceService::kSilent || level > TraceService::kHighestLevel) {
        throw std::invalid_argument("trace level " + std::to_string(level) + " is not within 0 to 7");
    }
}

std::string acceptance(std::string_view pattern, TylTraceLevel level, std::size_t channels)
{
    std::string text = "trace level " + std::to_string(level) + " for \"" + std::string(pattern) + "\": ";
    if (channels == 0) {
        return text + "no channel in use yet, kept for later";
    }
    return text + std::to_string(channels) + (channels == 1 ? " channel" : " channels") + " in use";
}

pid_t threadId()
{
    static thread_local const pid_t id = ::gettid();
    return id;
}

/// Set while this thread is in the sinks: what a sink traces would lead back to it.
thread_local bool isInSinks = false;

void writeTo(TraceSink& sink, const TraceRecord& record) noexcept
{
    try {
        sink.write(record);
    } catch (...) { // NOLINT(bugprone-empty-catch): a trace must not disturb what it watches
    }
}

} // namespace

// Never destroyed: objects with static storage duration trace to the very end.
TraceService& TraceService::get()
{
    static auto* const service = new TraceService;
    return *service;
}

std::string TraceService::setLevel(std::string_view pattern, TylTraceLevel level)
{
    checkSetting(pattern, level);
    const std::scoped_lock lock(m_levelsMutex);
    std::erase_if(m_settings, [&](const Setting& old) { return matches(pattern, old.pattern); });
    m_settings.push_back({std::string(pattern), level});
    std::size_t named = 0;
    for (const TylTrace* channel : m_channels) {
        if (matches(pattern, channel->name())) {
            channel->setLevel(level);
            ++named;
        }
    }
    return acceptance(pattern, level, named);
}

std::string TraceService::setLevelForAll(TylTraceLevel level)
{
    return setLevel("*", level);
}

void TraceService::resetLevels()
{
    const std::scoped_lock lock(m_levelsMutex);
    m_settings.clear();
    for (const TylTrace* channel : m_channels) {
        channel->setLevel(defaultLevelOf(*channel));
    }
}

std::vector<TraceService::Channel> TraceService::channels() const
{
    std::vector<Channel> result;
    {
        const std::scoped_lock lock(m_levelsMutex);
        for (const TylTrace* channel : m_channels) {
            result.push_back({channel->name(), levelOf(*channel), defaultLevelOf(*channel)});
        }
    }
    std::ranges::sort(result, {}, &Channel::name);
    return result;
}

Registration TraceService::addSink(std::shared_ptr<TraceSink> sink)
{
    if (!sink) {
        throw std::invalid_argument("no trace sink is given");
    }
    const std::scoped_lock lock(m_sinksMutex);
    auto changed = std::make_shared<Sinks>(*m_sinks);
    changed->push_back(sink);
    m_sinks = std::move(changed);
    m_hasSinks = true;
    return Registration([this, sink = std::move(sink)] { removeSink(*sink); });
}

void TraceService::removeSink(const TraceSink& sink)
{
    const std::scoped_lock lock(m_sinksMutex);
    auto changed = std::make_shared<Sinks>(*m_sinks);
    // The one entry: a sink may have been added twice.
    const auto entry = std::ranges::find(*changed, &sink, &std::shared_ptr<TraceSink>::get);
    changed->erase(entry);
    m_hasSinks = !changed->empty();
    m_sinks = std::move(changed);
}

TylTraceLevel TraceService::attach(const TylTrace& channel)
{
    const std::scoped_lock lock(m_levelsMutex);
    const TylTraceLevel level = levelOf(channel);
    if (std::ranges::find(m_channels, &channel) == m_channels.end()) {
        m_channels.push_back(&channel);
        channel.setLevel(level);
    }
    return level;
}

void TraceService::write(const TylTrace& channel, TylTraceLevel level, const TylTraceHeader& header,
                         std::string_view text)
{
    if (!m_hasSinks.load(std::memory_order_relaxed) || isInSinks) {
        return;
    }
    // Callers may report errno behind a trace.
    const int error = errno;
    isInSinks = true;
    const TraceRecord record{channel.name(), level, header, text, threadId(), traceTime()};
    const std::shared_ptr<const Sinks> current = sinks();
    for (const auto& sink : *current) {
        writeTo(*sink, record);
    }
    isInSinks = false;
    errno = error;
}

TylTraceLevel TraceService::levelOf(const TylTrace& channel) const
{
    const auto latest = std::find_if(m_settings.rbegin(), m_settings.rend(), [&](const Setting& setting) {
        return matches(setting.pattern, channel.name());
    });
    return latest == m_settings.rend() ? defaultLevelOf(channel) : latest->level;
}

std::shared_ptr<const TraceService::Sinks> TraceService::sinks() const
{
    const std::scoped_lock lock(m_sinksMutex);
    return m_sinks;
}

} // namespace zyr_platform

TylTraceLevel TylTrace::attach() const noexcept
{
    return zyr_platform::TraceService::get().attach(*this);
}

void TylTrace::logMsg(TylTraceLevel level, const TylTraceHeader& header, std::string_view text) const
{
    if (isEnabled(level)) {
        zyr_platform::TraceService::get().write(*this, level, header, text);
    }
}

void TylTrace::logEnterMsg(const TylTraceHeader& header, std::string_view text) const
{
    constexpr TylTraceLevel kEntryLevel = 6;
    logMsg(kEntryLevel, header, text);
}
