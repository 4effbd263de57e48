#include "TraceService.h"

#include "TraceClock.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <stdexcept>
#include <utility>

#include <unistd.h>

namespace zyr_platform
{

namespace
{

/// Whether the pattern stands for the name. A "*" of the pattern also stands for a "*" in the name, so that
/// this tells as well whether a pattern covers another one. The parts between the stars are sought one after
/// the other, each behind the one before, and never again.
bool matches(std::string_view pattern, std::string_view name)
{
    const std::size_t firstStar = pattern.find('*');
    if (firstStar == std::string_view::npos) {
        return pattern == name;
    }
    const std::string_view beginning = pattern.substr(0, firstStar);
    const std::string_view end = pattern.substr(pattern.rfind('*') + 1);
    if (name.size() < beginning.size() + end.size() || !name.starts_with(beginning) || !name.ends_with(end)) {
        return false;
    }
    name = name.substr(beginning.size(), name.size() - beginning.size() - end.size());
    pattern = pattern.substr(beginning.size(), pattern.size() - beginning.size() - end.size());
    while (!pattern.empty()) {
        pattern.remove_prefix(1);
        const std::string_view part = pattern.substr(0, pattern.find('*'));
        const std::size_t found = name.find(part);
        if (found == std::string_view::npos) {
            return false;
        }
        name.remove_prefix(found + part.size());
        pattern.remove_prefix(part.size());
    }
    return true;
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
    if (pattern.size() > TraceService::kLongestPattern) {
        throw std::invalid_argument("the name of the trace channel has " + std::to_string(pattern.size()) +
                                    " characters, it may have " +
                                    std::to_string(TraceService::kLongestPattern));
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

/// What is kept of a thread.
struct ThisThread
{
    pid_t id = 0;           ///< 0 while it has not been asked for
    bool isInSinks = false; ///< what a sink traces would lead back to it
};

/// It is small, so there is always room for it where it is reached without a call, even if this library is
/// loaded late.
[[gnu::tls_model("initial-exec")]] constinit thread_local ThisThread thisThread;

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
    // Those who set levels wait for each other, but those who trace don't wait for the matching.
    const std::scoped_lock setting(m_settingMutex);
    Settings changed = *settings();
    std::erase_if(changed, [&](const Setting& old) { return matches(pattern, old.pattern); });
    if (changed.size() >= kMostSettings) {
        throw std::invalid_argument(
            "there are " + std::to_string(kMostSettings) +
            " settings of trace levels, no more can be kept; one for \"*\" replaces all");
    }
    changed.push_back({std::string(pattern), level});
    std::vector<const TylTrace*> known;
    std::vector<const TylTrace*> named;
    {
        const std::scoped_lock lock(m_levelsMutex);
        m_settings = std::make_shared<const Settings>(std::move(changed));
        known = m_channels;
    }
    // A channel that attaches itself from now on finds the new settings.
    std::ranges::copy_if(known, std::back_inserter(named),
                         [&](const TylTrace* channel) { return matches(pattern, channel->name()); });
    for (const TylTrace* channel : named) {
        channel->setLevel(level);
    }
    return acceptance(pattern, level, named.size());
}

std::string TraceService::setLevelForAll(TylTraceLevel level)
{
    return setLevel("*", level);
}

void TraceService::resetLevels()
{
    const std::scoped_lock lock(m_settingMutex, m_levelsMutex);
    m_settings = std::make_shared<const Settings>();
    for (const TylTrace* channel : m_channels) {
        channel->setLevel(defaultLevelOf(*channel));
    }
}

std::vector<TraceService::Channel> TraceService::channels() const
{
    std::vector<const TylTrace*> known;
    {
        const std::scoped_lock lock(m_levelsMutex);
        known = m_channels;
    }
    const std::shared_ptr<const Settings> current = settings();
    std::vector<Channel> result;
    result.reserve(known.size());
    for (const TylTrace* channel : known) {
        result.push_back({channel->name(), levelOf(*channel, *current), defaultLevelOf(*channel)});
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
    while (true) {
        const std::shared_ptr<const Settings> current = settings();
        const TylTraceLevel level = levelOf(channel, *current);
        const std::scoped_lock lock(m_levelsMutex);
        if (current != m_settings) {
            continue; // changed while we looked
        }
        if (std::ranges::find(m_channels, &channel) == m_channels.end()) {
            m_channels.push_back(&channel);
            channel.setLevel(level);
        }
        return level;
    }
}

void TraceService::write(const TylTrace& channel, TylTraceLevel level, const TylTraceHeader& header,
                         std::string_view text)
{
    if (!m_hasSinks.load(std::memory_order_relaxed)) {
        return;
    }
    ThisThread& self = thisThread;
    if (self.isInSinks) {
        return;
    }
    // Callers may report errno behind a trace.
    int& lastError = errno;
    const int error = lastError;
    if (self.id == 0) {
        self.id = ::gettid();
    }
    self.isInSinks = true;
    const TraceRecord record{channel.name(), level, header, text, self.id, traceTime()};
    const std::shared_ptr<const Sinks> current = sinks();
    for (const auto& sink : *current) {
        writeTo(*sink, record);
    }
    self.isInSinks = false;
    lastError = error;
}

TylTraceLevel TraceService::levelOf(const TylTrace& channel, const Settings& settings)
{
    const auto latest = std::find_if(settings.rbegin(), settings.rend(), [&](const Setting& setting) {
        return matches(setting.pattern, channel.name());
    });
    return latest == settings.rend() ? defaultLevelOf(channel) : latest->level;
}

std::shared_ptr<const TraceService::Settings> TraceService::settings() const
{
    const std::scoped_lock lock(m_levelsMutex);
    return m_settings;
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
