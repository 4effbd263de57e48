#pragma once

#include "Registration.h"
#include "TraceSink.h"
#include "TylTrace.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_platform
{

/// The trace of the process: the channels with their levels, and the sinks that take the messages.
///
/// A process starts without sinks, and messages go nowhere. All operations may be called from any thread, at
/// any time, also while others trace. The service lives to the end of the process.
class TraceService
{
  public:
    static constexpr TylTraceLevel kSilent = 0;       ///< level of a channel that writes nothing
    static constexpr TylTraceLevel kHighestLevel = 7; ///< everything

    static constexpr std::size_t kLongestPattern = 128; ///< characters of a pattern
    static constexpr std::size_t kMostSettings = 256;   ///< that are kept

    /// A channel as it stands. Default levels outside 0 to 7 count as the nearest of these.
    struct Channel
    {
        std::string name;
        TylTraceLevel level = 0;
        TylTraceLevel defaultLevel = 0;

        bool operator==(const Channel&) const = default;
    };

    static TraceService& get();

    /// Sets the level of the channels that the pattern names, now and when they are first used. The latest
    /// setting that names a channel counts, and replaces those whose patterns its own one covers.
    /// @param pattern  a channel's name, case counts; a "*" stands for any text, the empty one included
    /// @param level    0 (silent) to 7; this level and those below it are on
    /// @return what was accepted, as text: pattern, level, and how many channels in use it names
    /// @throws std::invalid_argument that says what is wrong, with nothing changed
    std::string setLevel(std::string_view pattern, TylTraceLevel level);

    /// Sets the level of all channels, also of those to come: `setLevel` with the pattern "*".
    std::string setLevelForAll(TylTraceLevel level);

    /// Forgets all settings: every channel has its default level.
    void resetLevels();

    /// The channels that have been used, in the order of their names.
    std::vector<Channel> channels() const;

    /// Adds a sink as long as the registration lives. Afterwards, a message that was on its way may still
    /// come in; the sink is kept alive until it is through.
    /// @throws std::invalid_argument if there is no sink
    Registration addSink(std::shared_ptr<TraceSink> sink);

    /// For `TylTrace` alone: makes a channel known, once, gives it its level and returns the level.
    TylTraceLevel attach(const TylTrace& channel);

    /// For `TylTrace` alone: hands a message to all sinks.
    void write(const TylTrace& channel, TylTraceLevel level, const TylTraceHeader& header,
               std::string_view text);

  private:
    struct Setting
    {
        std::string pattern;
        TylTraceLevel level;
    };
    using Sinks = std::vector<std::shared_ptr<TraceSink>>;

    TraceService() = default;

    using Settings = std::vector<Setting>; // the latest is the last

    static TylTraceLevel levelOf(const TylTrace& channel, const Settings& settings);
    std::shared_ptr<const Settings> settings() const;
    std::shared_ptr<const Sinks> sinks() const;
    void removeSink(const TraceSink& sink);

    std::mutex m_settingMutex;        ///< held by the one who sets levels, and taken before the next one
    mutable std::mutex m_levelsMutex; ///< guards channels and settings; nothing is matched under it
    std::vector<const TylTrace*> m_channels;
    std::shared_ptr<const Settings> m_settings = std::make_shared<const Settings>();

    mutable std::mutex m_sinksMutex; ///< guards the pointer; never held while a sink writes
    std::shared_ptr<const Sinks> m_sinks = std::make_shared<const Sinks>();
    std::atomic<bool> m_hasSinks = false;
};

} // namespace zyr_platform
