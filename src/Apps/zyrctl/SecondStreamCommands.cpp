// xpic and mimo: what beside its own stream a radio channel receives.

#include "Limits.h"
#include "SecondStream.h"
#include "Subcommands.h"

#include <cstdint>
#include <memory>

namespace zyr_ctl
{

namespace
{

constexpr const char* kChannelStatus = "CRI.GetRadioChannelStatus";
constexpr const char* kXpic = "TI.ManageXPIC";
constexpr const char* kMimo = "TI.ManageMimo";

DescribedAnswer ask(Session& session, const char* method, const Value& request)
{
    return {session.node().call(method, {request}), session.node().responseOf(method)};
}

DescribedAnswer askStatus(Session& session, std::int64_t channel)
{
    return ask(session, kChannelStatus, {{"RadioChannelID", channel}});
}

void runXpic(Session& session, std::int64_t channel)
{
    const auto xpic = ask(session, kXpic,
                          {{"radioChannelId", channel}, {"xpicPreambleGet", true}, {"xpicStatusGet", true}});
    const auto status = askStatus(session, channel);
    session.show({{kXpic, xpic.answer}, {kChannelStatus, status.answer}}, xpicPicture(channel, status, xpic));
}

// The state of the calibration comes with nothing else.
void runMimo(Session& session, std::int64_t channel)
{
    auto mimo = ask(session, kMimo, {{"radioChannelId", channel}});
    const Value calibration = session.node().call(
        kMimo, {Value{{"radioChannelId", channel}, {"crossConnectDelayCalibrationStatusGet", true}}});
    mimo.answer["calibrationStatus"] = calibration.value("calibrationStatus", Value());
    const auto status = askStatus(session, channel);
    session.show({{kMimo, mimo.answer}, {kChannelStatus, status.answer}}, mimoPicture(channel, status, mimo));
}

void addTable(CLI::App& app, Session& session, const char* name, const char* help,
              void (*run)(Session& session, std::int64_t channel))
{
    const auto channel = std::make_shared<std::int64_t>(1);
    CLI::App* const table = app.add_subcommand(name, help);
    table->add_option("CHANNEL", *channel, "Radio channel (1)")->check(oneOrMore());
    table->callback([&session, channel, run] { run(session, *channel); });
}

} // namespace

void addSecondStreamCommands(CLI::App& app, Session& session)
{
    addTable(app, session, "xpic", "How cross-polar cancelling of a radio channel stands (a test command)",
             &runXpic);
    addTable(app, session, "mimo", "How MIMO of a radio channel stands (a test command)", &runMimo);
}

} // namespace zyr_ctl
