// spectrum: a spectrum scan of a radio channel, from its start to a drawing of what it has found.

#include "Failure.h"
#include "Limits.h"
#include "Spectrum.h"
#include "StopSignals.h"
#include "Subcommands.h"
#include "Text.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace zyr_ctl
{

namespace
{

constexpr const char* kSpectrum = "CRI.GetSpectrumDiagnostics";
constexpr std::chrono::milliseconds kPollInterval{100};
constexpr std::size_t kMostColumns = 200;

struct SpectrumOptions
{
    std::int64_t channel = 1;
    std::int64_t pause = 0; ///< milliseconds
    bool subBand = false;
    bool result = false;
    bool csv = false;
    bool ascii = false;
    bool yes = false;
};

// Whether the terminal takes more than ASCII, as the locale's name tells.
bool isLocaleUtf8()
{
    for (const char* const name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            const std::string locale = lowerCase(value);
            return locale.find("utf-8") != std::string::npos || locale.find("utf8") != std::string::npos;
        }
    }
    return false;
}

Value ask(Session& session, const SpectrumOptions& options, const char* option)
{
    Value command{{"RadioChannelID", options.channel}, {"RequestOption", option}};
    const std::string_view name = option;
    if (name.ends_with("-start") || name.ends_with("-stop")) {
        command["DmSleep"] = options.pause;
    }
    return session.node().call(kSpectrum, {command});
}

bool endsWith(const Value& answer, std::string_view end)
{
    return answer.value("Status", std::string()).ends_with(end);
}

/// A scan that goes on in the node. One that isn't waited for to its end is stopped, since it takes the link.
class RunningScan
{
  public:
    RunningScan(Session& session, const SpectrumOptions& options)
        : m_session(session), m_options(options),
          m_answer(ask(session, options, options.subBand ? "sub-band-scan-start" : "channel-scan-start"))
    {}
    ~RunningScan()
    {
        m_session.console.endProgress();
        try {
            stop();
        } catch (const std::exception&) { // NOLINT(bugprone-empty-catch): the failure on its way tells enough
        }
    }
    RunningScan(const RunningScan&) = delete;
    RunningScan& operator=(const RunningScan&) = delete;

    bool isOngoing() const { return endsWith(m_answer, "-ongoing"); }
    bool isFinished() const { return endsWith(m_answer, "-finished"); }
    std::int64_t progress() const { return m_answer.value("Progress", std::int64_t{0}); }
    void update() { m_answer = ask(m_session, m_options, "get-status"); }

    void stop()
    {
        if (isOngoing()) {
            m_answer = {};
            ask(m_session, m_options, "scan-stop");
        }
    }

  private:
    Session& m_session;
    const SpectrumOptions& m_options;
    Value m_answer;
};

void scan(Session& session, const SpectrumOptions& options, bool isAscii)
{
    const std::string found =
        "; zyrctl spectrum " + std::to_string(options.channel) + " --result shows what it has found";
    const StopSignals signals;
    RunningScan running(session, options);
    while (running.isOngoing()) {
        session.console.progress(progressBar(running.progress(), isAscii));
        if (signals.hasComeWithin(kPollInterval)) {
            running.stop();
            session.console.endProgress();
            throw Failure(ExitStatus::Interrupted, "interrupted, and the scan was stopped" + found);
        }
        running.update();
    }
    if (!running.isFinished()) {
        session.console.endProgress();
        throw Failure(ExitStatus::Fault, "the scan was ended before its time" + found);
    }
}

void runSpectrum(Session& session, const SpectrumOptions& options)
{
    const bool isAscii = options.ascii || !isLocaleUtf8();
    if (!options.result) {
        if (!options.yes) {
            session.confirm(kSpectrum);
        }
        scan(session, options, isAscii);
    }
    const Value answer = ask(session, options, "get-result");
    const std::size_t room = session.console.room();
    session.show(answer, options.csv ? spectrumCsv(answer)
                                     : spectrumPicture(options.channel, answer,
                                                       {isAscii, room == 0 ? SpectrumStyle{}.columns
                                                                           : std::min(room, kMostColumns)}));
}

} // namespace

void addSpectrumCommand(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<SpectrumOptions>();
    CLI::App* const spectrum = app.add_subcommand(
        "spectrum", "Scan the spectrum of a radio channel, which takes the link meanwhile, and draw it");
    spectrum->add_option("CHANNEL", options->channel, "Radio channel (1)")->check(oneOrMore());
    spectrum->add_flag("--sub-band", options->subBand, "Scan the whole sub-band");
    spectrum->add_option("--pause", options->pause, "Milliseconds to stay longer at each frequency (0)")
        ->check(CLI::Range(std::int64_t{0}, std::int64_t{1000}));
    spectrum->add_flag("--result", options->result, "Show what the last scan has found, without a new one");
    spectrum->add_flag("--csv", options->csv, "As comma-separated values");
    spectrum->add_flag("--ascii", options->ascii, "Draw in plain ASCII, as without a locale of UTF-8");
    spectrum->add_flag("--yes", options->yes, "Do not ask whether traffic may be disturbed");
    spectrum->callback([&session, options] { runSpectrum(session, *options); });
}

} // namespace zyr_ctl
