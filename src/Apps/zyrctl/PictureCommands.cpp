// status, frames, capability, loops, acm and sdc: commands of the node whose answers people would rather
// look at.

#include "Failure.h"
#include "Limits.h"
#include "Pictures.h"
#include "Subcommands.h"
#include "Watch.h"

#include <algorithm>
#include <memory>

namespace zyr_ctl
{

namespace
{

constexpr const char* kStatus = "CRI.GetRadioChannelStatus";
constexpr const char* kFrames = "CRI.GetAirInterfaceCapability";
constexpr const char* kLoops = "CI.ManageLoops";
constexpr const char* kAcmMode = "CRI.GetAcmMode";
constexpr const char* kThresholds = "TI.GetAcmThresholds";
constexpr const char* kCapability = "CRI.GetRadioChannelCapability";
constexpr const char* kCombiner = "CRI.GetSdcStatus";

// Of the received level, as far as the line goes.
constexpr std::size_t kLevels = 60;

struct ChannelOptions
{
    std::int64_t channel = 1;
    WatchOptions watch;
    std::int64_t frame = 0;
};

void addChannel(CLI::App& subcommand, ChannelOptions& options)
{
    subcommand.add_option("CHANNEL", options.channel, "Radio channel (1)")->check(oneOrMore());
}

void addLevel(std::vector<std::int64_t>& levels, const Value& answer, const Fields& fields)
{
    const auto level = answer.find("ActualRFInputPower");
    if (level == answer.end() || !level->is_number_integer()) {
        return;
    }
    const auto number = level->get<std::int64_t>();
    const FieldDescription* const field = findField(fields, "ActualRFInputPower");
    const bool isNone = field != nullptr && std::ranges::find(field->noValues, number, &EnumText::number) !=
                                                field->noValues.end();
    if (!isNone) {
        levels.push_back(number);
    }
    if (levels.size() > kLevels) {
        levels.erase(levels.begin());
    }
}

void runStatus(Session& session, const ChannelOptions& options)
{
    const auto ask = [&] {
        return session.node().call(kStatus, {Value{{"RadioChannelID", options.channel}}});
    };
    const Fields fields = session.node().responseOf(kStatus);
    std::vector<std::int64_t> levels;
    const auto picture = [&](const Value& answer) {
        addLevel(levels, answer, fields);
        return statusPicture(options.channel, answer, fields, levels);
    };
    if (options.watch.watch->count() == 0) {
        const Value answer = ask();
        session.show(answer, picture(answer));
        return;
    }
    watchPicture(session, options.watch, ask, picture);
}

Value askFrames(Session& session, const ChannelOptions& options)
{
    return session.node().call(kFrames, {Value{{"RadioChannelID", options.channel}, {"ReleasedFilter", 2}}});
}

void runFrames(Session& session, const ChannelOptions& options)
{
    const auto response = session.node().responseOf(kFrames);
    const Value answer = askFrames(session, options);
    session.show(answer, framesPicture(answer, response));
}

// The power depends on the frame: the one that was named, or else the channel's first.
std::int64_t frameOf(Session& session, const ChannelOptions& options)
{
    if (options.frame != 0) {
        return options.frame;
    }
    const Value answer = askFrames(session, options);
    const Value frames = answer.value("FrameFormatCapabilities", Value::array());
    return frames.empty() ? 0 : frames.front().value("RadioFrameID", std::int64_t{0});
}

void runCapability(Session& session, const ChannelOptions& options)
{
    const auto response = session.node().responseOf(kCapability);
    const Value answer = session.node().call(kCapability, {Value{{"RadioChannelID", options.channel},
                                                                 {"radioFrameId", frameOf(session, options)},
                                                                 {"minModulation", "4QAM_STRONG"},
                                                                 {"maxModulation", "4096QAM_LIGHT"},
                                                                 {"referenceSec", "4L"}}});
    session.show(answer, capabilityPicture(options.channel, answer, response));
}

void runLoops(Session& session)
{
    const Value answer = session.node().call(kLoops, {Value{{"loops", Value::array()}}});
    session.show(answer, loopsPicture(answer));
}

// Nothing if the node has the test commands switched off.
Value askThresholds(Session& session, const ChannelOptions& options)
{
    try {
        return session.node().call(kThresholds, {Value{{"channelId", options.channel}}});
    } catch (const Failure& failure) {
        if (failure.status() != ExitStatus::Fault) {
            throw;
        }
        return {};
    }
}

void runAcm(Session& session, const ChannelOptions& options)
{
    AcmAnswers answers{.mode = {session.node().call(kAcmMode, {Value{{"channelId", options.channel}}}),
                                session.node().responseOf(kAcmMode)},
                       .status = {session.node().call(kStatus, {Value{{"RadioChannelID", options.channel}}}),
                                  session.node().responseOf(kStatus)},
                       .thresholds = {askThresholds(session, options), {}}};
    if (!answers.thresholds.answer.empty()) {
        answers.thresholds.fields = session.node().responseOf(kThresholds);
    }
    session.show({{kAcmMode, answers.mode.answer},
                  {kStatus, answers.status.answer},
                  {kThresholds, answers.thresholds.answer}},
                 acmPicture(options.channel, answers));
}

void runCombiner(Session& session, const ChannelOptions& options)
{
    const Value answer = session.node().call(kCombiner, {Value{{"channelId", options.channel}}});
    session.show(answer, combinerPicture(options.channel, answer, session.node().responseOf(kCombiner)));
}

} // namespace

void addPictureCommands(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<ChannelOptions>();

    CLI::App* const status = app.add_subcommand("status", "What a radio channel is doing");
    addChannel(*status, *options);
    addWatchOptions(*status, options->watch);
    status->callback([&session, options] { runStatus(session, *options); });

    CLI::App* const frames = app.add_subcommand("frames", "The radio frames that a channel supports");
    addChannel(*frames, *options);
    frames->callback([&session, options] { runFrames(session, *options); });

    CLI::App* const capability = app.add_subcommand("capability", "What a radio channel can do");
    addChannel(*capability, *options);
    capability->add_option("--frame", options->frame,
                           "Radio frame for which the power is asked (the channel's first)");
    capability->callback([&session, options] { runCapability(session, *options); });

    CLI::App* const loops = app.add_subcommand("loops", "The node's test loops and which are closed");
    loops->callback([&session] { runLoops(session); });

    CLI::App* const acm =
        app.add_subcommand("acm", "Mode, modulations and thresholds of a channel's adaptive modulation");
    addChannel(*acm, *options);
    acm->callback([&session, options] { runAcm(session, *options); });

    CLI::App* const combiner = app.add_subcommand("sdc", "The space diversity combiner of a radio channel");
    addChannel(*combiner, *options);
    combiner->callback([&session, options] { runCombiner(session, *options); });
}

} // namespace zyr_ctl
