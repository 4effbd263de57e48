#include "SimMethods.h"

#include "Conversion.h"
#include "Field.h"
#include "RecordError.h"
#include "StateFields.h"
#include "TraceService.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>
#include <functional>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

template <>
struct zyr_registration::RecordFields<zyr_platform::TraceService::Channel>
{
    using Channel = zyr_platform::TraceService::Channel;
    static constexpr std::array fields{
        field<&Channel::name>("name of the channel"),
        field<&Channel::level>("highest level that is on", {.unit = kNoUnit}),
        field<&Channel::defaultLevel>("the level without a setting", {.unit = kNoUnit}),
    };
};

namespace zyr_node
{

namespace
{

using zyr_gateway::XmlRpcServer;
using zyr_platform::TraceService;
using zyr_registration::Effect;
using zyr_registration::Field;
using zyr_registration::field;
using zyr_registration::FieldNotes;
using zyr_registration::MethodNotes;
using zyr_registration::Range;
using zyr_registration::RecordError;
using zyr_registration::Value;
using zyr_simulation::Fault;
using zyr_simulation::Interferer;
using zyr_simulation::NodeSnapshot;
using zyr_simulation::SimulatedNode;

struct Nothing
{};

struct TraceLevelRequest
{
    std::string channel;
    TylTraceLevel level = 0;
};

struct TraceLevelAnswer
{
    std::string text;
};

struct TraceChannelsAnswer
{
    std::vector<TraceService::Channel> channels;
};

// What a setter of the node takes.
template <class T>
struct NodeSetting
{
    T value{};
};

// What a setter of one channel of the node takes.
template <class T>
struct ChannelSetting
{
    zyr_top_api::RadioChannel channel;
    T value{};
};

// Not named like the settings: what shows requests tells secrets by their names too.
struct FarEndKey
{
    zyr_top_api::RadioChannel channel;
    std::string key;
};

// A setting that is a number says what it counts; there is one of each type.
template <class T>
constexpr FieldNotes kSettingNotes{};
template <>
constexpr FieldNotes kSettingNotes<std::int32_t>{.unit = "0.1 dB"}; // losses
template <>
constexpr FieldNotes kSettingNotes<unsigned>{
    .texts = zyr_registration::oneOf<"variable", "fixed">}; // the duplex type

template <class T>
constexpr std::array kNodeSetting{
    field<&NodeSetting<T>::value>("the new setting", kSettingNotes<T>),
};

template <class T>
constexpr std::array kChannelSetting{
    field<&ChannelSetting<T>::channel>("radio channel"),
    field<&ChannelSetting<T>::value>("the new setting", kSettingNotes<T>),
};

constexpr std::array kFarEndKey{
    field<&FarEndKey::channel>("radio channel"),
    field<&FarEndKey::key>("key of up to 64 bytes; empty lets the far end do as this end does",
                           {.hasDefault = true, .isSecret = true}),
};

constexpr Range kLevels{TraceService::kSilent, TraceService::kHighestLevel};

constexpr std::array kTraceLevelRequest{
    field<&TraceLevelRequest::channel>("trace channel; a \"*\" stands for any text"),
    field<&TraceLevelRequest::level>("highest level that is on",
                                     {.unit = zyr_registration::kNoUnit, .range = kLevels}),
};
constexpr std::array kTraceLevelAnswer{
    field<&TraceLevelAnswer::text>("what was accepted"),
};
constexpr std::array kTraceChannelsAnswer{
    field<&TraceChannelsAnswer::channels>("the trace channels that have been used"),
};

// A method, and what it does on the node.
struct SimMethod
{
    MethodNotes notes;
    std::function<Value(SimulatedNode& node, unsigned numberOfChannels, const Value& members)> call;
};

// A method that turns a request into a value. What the node says to be invalid becomes a fault of the caller.
template <class Request>
SimMethod method(MethodNotes notes, std::function<Value(SimulatedNode& node, const Request&)> function)
{
    notes.makeRequest = &zyr_registration::detail::makeRecord<Request>;
    return {notes, [notes, function = std::move(function)](SimulatedNode& node, unsigned numberOfChannels,
                                                           const Value& members) {
                Request request{};
                zyr_registration::readRecord(notes.name, notes.request, members, numberOfChannels, &request);
                try {
                    return function(node, request);
                } catch (const std::invalid_argument& error) {
                    throw RecordError(zyr_top_api::eTI_E_PARAMETER_INVALID,
                                      std::string(notes.name) + ": " + error.what());
                }
            }};
}

// As TI.ManageRealTimeClock tells a time.
std::string wireTime(std::chrono::nanoseconds sinceEpoch)
{
    const std::time_t seconds = std::chrono::floor<std::chrono::seconds>(sinceEpoch).count();
    std::tm fields{};
    gmtime_r(&seconds, &fields);
    std::array<char, sizeof "yyyymmddThh:mm:ss"> text{};
    const auto length = std::strftime(text.data(), text.size(), "%Y%m%dT%H:%M:%S", &fields);
    return {text.data(), length};
}

NodeReport reportOf(const SimulatedNode& node)
{
    NodeSnapshot snapshot = node.snapshot();
    std::vector<AlarmReport> alarms;
    for (auto& alarm : snapshot.alarms) {
        std::string changedAt = wireTime(alarm.changedAt);
        alarms.push_back({std::move(alarm), std::move(changedAt)});
    }
    std::vector<RouteReport> routes;
    for (const auto& [route, destination] : snapshot.routes) {
        routes.push_back({route.first, route.second, destination});
    }
    return {.hangingLongPolls = node.alarmHandler().hangingRequests(),
            .systemTime = wireTime(snapshot.systemTime),
            .hardwareTime = snapshot.settings.hostClock ? "" : wireTime(snapshot.hardwareTime),
            .hopLengthTime_ns = snapshot.hopLatency_ns,
            .isDspRecovering = snapshot.dsp.isRecovering,
            .dspRecoveries = snapshot.dsp.recoveries,
            .channels = std::move(snapshot.channels),
            .routes = std::move(routes),
            .interferers = std::move(snapshot.interferers),
            .alarms = std::move(alarms),
            .faults = std::move(snapshot.faults)};
}

// What shows the node and lets it fail.
std::vector<SimMethod> nodeMethods()
{
    return {
        method<Nothing>({.name = "SIM.GetState",
                         .help = "Shows the state of the simulated node.",
                         .effect = Effect::Reads,
                         .response = reportFields()},
                        [](SimulatedNode& node, const Nothing&) {
                            const NodeReport report = reportOf(node);
                            return valueOf(reportFields(), &report);
                        }),
        method<FarEndKey>({.name = "SIM.SetFarEndKey",
                           .help =
                               "Gives the far end of an encrypted link a key of its own; the link carries "
                               "nothing until both ends have the same.",
                           .effect = Effect::DisturbsTraffic,
                           .request = kFarEndKey},
                          [](SimulatedNode& node, const FarEndKey& request) {
                              node.setFarEndKey(request.channel, request.key);
                              return Value::object();
                          }),
        method<Interferer>({.name = "SIM.AddInterferer",
                            .help = "Adds a foreign transmitter that the node's receivers hear, or replaces "
                                    "the one at its frequency.",
                            .effect = Effect::DisturbsTraffic,
                            .request = interfererFields()},
                           [](SimulatedNode& node, const Interferer& interferer) {
                               node.addInterferer(interferer);
                               return Value::object();
                           }),
        method<Nothing>({.name = "SIM.ClearInterferers", .help = "Removes all foreign transmitters."},
                        [](SimulatedNode& node, const Nothing&) {
                            node.clearInterferers();
                            return Value::object();
                        }),
        method<Fault>({.name = "SIM.InjectFault",
                       .help = "Lets an operation of a collaborator fail.",
                       .effect = Effect::DisturbsTraffic,
                       .request = faultFields()},
                      [](SimulatedNode& node, const Fault& fault) {
                          node.faults().inject(fault);
                          return Value::object();
                      }),
        method<Nothing>({.name = "SIM.ClearFaults", .help = "Drops all orders to fail."},
                        [](SimulatedNode& node, const Nothing&) {
                            node.faults().clear();
                            return Value::object();
                        }),
        method<Nothing>({.name = "SIM.ListFaults",
                         .help = "Shows the orders to fail that aren't used up.",
                         .effect = Effect::Reads,
                         .response = faultListFields()},
                        [](SimulatedNode& node, const Nothing&) {
                            const FaultList list{node.faultsLeft()};
                            return valueOf(faultListFields(), &list);
                        }),
    };
}

std::vector<SimMethod> traceMethods()
{
    return {
        method<TraceLevelRequest>({.name = "SIM.SetTraceLevel",
                                   .help = "Sets the level of trace channels.",
                                   .request = kTraceLevelRequest,
                                   .response = kTraceLevelAnswer},
                                  [](SimulatedNode&, const TraceLevelRequest& request) {
                                      const TraceLevelAnswer answer{
                                          TraceService::get().setLevel(request.channel, request.level)};
                                      return valueOf(kTraceLevelAnswer, &answer);
                                  }),
        method<Nothing>({.name = "SIM.ListTraceChannels",
                         .help = "Shows the trace channels that have been used, with their levels.",
                         .effect = Effect::Reads,
                         .response = kTraceChannelsAnswer},
                        [](SimulatedNode&, const Nothing&) {
                            const TraceChannelsAnswer answer{TraceService::get().channels()};
                            return valueOf(kTraceChannelsAnswer, &answer);
                        }),
    };
}

template <class T>
SimMethod setter(MethodNotes notes, void (SimulatedNode::*set)(T))
{
    notes.request = kNodeSetting<T>;
    return method<NodeSetting<T>>(notes, [set](SimulatedNode& node, const NodeSetting<T>& request) {
        (node.*set)(request.value);
        return Value::object();
    });
}

template <class T>
SimMethod setter(MethodNotes notes, void (SimulatedNode::*set)(unsigned, T))
{
    notes.request = kChannelSetting<T>;
    return method<ChannelSetting<T>>(notes, [set](SimulatedNode& node, const ChannelSetting<T>& request) {
        (node.*set)(request.channel, request.value);
        return Value::object();
    });
}

std::vector<SimMethod> setters()
{
    const auto row = [](std::string_view name, std::string_view help, auto set) {
        return setter({.name = name, .help = help, .effect = Effect::DisturbsTraffic}, set);
    };
    return {
        row("SIM.SetCarrierAggregation", "Switches carrier aggregation on or off.",
            &SimulatedNode::setCarrierAggregation),
        row("SIM.SetConfigurationBypassed", "Lets channels take no configuration, or take it again.",
            &SimulatedNode::setConfigurationBypassed),
        row("SIM.SetCrossPolarDiscrimination",
            "Sets how much weaker receivers get the other polarisation than their own.",
            &SimulatedNode::setCrossPolarDiscrimination_dBTenths),
        row("SIM.SetDiversityPathLoss", "Sets the path loss to the second antennas of the receivers.",
            &SimulatedNode::setDiversityPathLoss_dBTenths),
        row("SIM.SetDuplexType",
            "Sets the duplex type: a variable or a fixed distance between the two directions.",
            &SimulatedNode::setDuplexType),
        row("SIM.SetFarEndTransmits", "Switches the transmitters of the far end on or off.",
            &SimulatedNode::setFarEndTransmits),
        row("SIM.SetLongHaul", "Makes the radio units long haul ones, or ordinary ones.",
            &SimulatedNode::setLongHaul),
        row("SIM.SetPathLoss", "Sets the path loss of the hop.", &SimulatedNode::setPathLoss_dBTenths),
        row("SIM.SetPpsSignalPresent",
            "Brings the signal at a channel's external inputs of the pulse per second, or takes it away.",
            &SimulatedNode::setPpsSignalPresent),
        row("SIM.SetRadioAvailable", "Takes a channel's radio unit away, or brings it back.",
            &SimulatedNode::setRadioAvailable),
        row("SIM.SetXpicCableConnected", "Plugs a channel's cable to the other polarisation in or out.",
            &SimulatedNode::setXpicCableConnected),
        row("SIM.SetTwoTransmitters", "Makes the radio units such with two transmitters, or with one.",
            &SimulatedNode::setTwoTransmitters),
    };
}

// All methods, in the order of their names.
std::vector<SimMethod> allMethods()
{
    std::vector<SimMethod> all;
    for (const auto& group : {nodeMethods(), setters(), traceMethods()}) {
        all.insert(all.end(), group.begin(), group.end());
    }
    std::ranges::sort(all, {}, [](const SimMethod& one) { return one.notes.name; });
    return all;
}

} // namespace

std::vector<MethodNotes> simMethodNotes()
{
    std::vector<MethodNotes> notes;
    for (const SimMethod& method : allMethods()) {
        notes.push_back(method.notes);
    }
    return notes;
}

void addSimMethods(XmlRpcServer& server, SimulatedNode& node)
{
    const auto numberOfChannels = static_cast<unsigned>(node.snapshot().channels.size());
    for (const SimMethod& method : allMethods()) {
        server.addMethod(method.notes, [&node, numberOfChannels, call = method.call](const Value& members) {
            return call(node, numberOfChannels, members);
        });
    }
}

} // namespace zyr_node
