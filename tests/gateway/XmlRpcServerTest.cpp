#include "XmlRpcServer.h"

#include "Client.h"
#include "CommandTest.h"
#include "HttpTestClient.h"
#include "IAlarmHandlerTopApi.h"
#include "NodeDoubles.h"
#include "RecordError.h"
#include "RecoveryController.h"
#include "RegisteringModule.h"
#include "StoredVariables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <future>
#include <iterator>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace
{

using zyr_gateway::MethodResponse;
using zyr_gateway::Value;
using zyr_gateway::XmlRpcClient;
using zyr_gateway::XmlRpcServer;

constexpr ResultCode kReleased = 0x8015;

// Its long polls hang until they are released.
class HangingAlarmHandler : public IAlarmHandlerTopApi
{
  public:
    ResultCode getAlarms(std::vector<zyr_top_api::AlarmEvent>& alarms) override
    {
        alarms = {{"LinkDown", true, 1, 2}};
        return 0;
    }
    ResultCode getFastAlarms(std::vector<zyr_top_api::AlarmEvent>&) override
    {
        std::unique_lock lock(m_mutex);
        const unsigned release = m_releases;
        ++m_hanging;
        m_changed.notify_all();
        m_changed.wait(lock, [&] { return m_releases != release; });
        --m_hanging;
        return kReleased;
    }
    ResultCode releaseFastAlarmRequests() override
    {
        const std::lock_guard lock(m_mutex);
        ++m_releases;
        m_changed.notify_all();
        return 0;
    }
    ResultCode getAlarmsByOption(std::int32_t, std::vector<zyr_top_api::AlarmEvent>&) override { return 0; }
    ResultCode setAlarmEvents(const zyr_top_api::TiSetEventsCommand&) override { return 0; }

    void waitForHanging(unsigned count)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_hanging == count; });
    }

  private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    unsigned m_hanging = 0;
    unsigned m_releases = 0;
};

// Its recovery takes until it is let go.
class HeldRecoveryController : public IInterface, public nord::zyr::services::recovery::RecoveryController
{
  public:
    zyr_top_api::ETIResult startDspRecovery(zyr_top_api::Recover) override
    {
        std::unique_lock lock(m_mutex);
        m_isHeld = true;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_mayGo; });
        return zyr_top_api::eTI_S_OK;
    }

    void waitUntilHeld()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_isHeld; });
    }
    void letGo()
    {
        const std::lock_guard lock(m_mutex);
        m_mayGo = true;
        m_changed.notify_all();
    }

  private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isHeld = false;
    bool m_mayGo = false;
};

// What makes a document a big one.
constexpr std::size_t kBig = 20'000;

// The HTTP request with this body.
std::string posted(const std::string& body)
{
    return "POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n\r\n" + body;
}

std::size_t numberOfThreads()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return static_cast<std::size_t>(std::distance(begin(tasks), end(tasks)));
}

class XmlRpcServerTest : public zyr_test::CommandTest
{
  protected:
    XmlRpcServerTest()
    {
        publishNode(node);
        withdraw("IAlarmHandlerTopApi");
        publish("IAlarmHandlerTopApi", alarms);
        open(false);
    }

    // Opens the commands and the server anew.
    void open(bool enableTi)
    {
        server.reset();
        module.reset();
        module.emplace(zyr_registration::RegistrationOptions{.numberOfChannels = 2, .enableTi = enableTi});
        server.emplace(zyr_gateway::HttpOptions{}, *module);
    }

    // The same with recoveries that are held.
    void openWith(HeldRecoveryController& recovery)
    {
        withdraw("RecoveryController");
        publish("RecoveryController", recovery);
        open(false);
    }

    XmlRpcClient client() const
    {
        zyr_gateway::ClientOptions options;
        options.url = "http://127.0.0.1:" + std::to_string(server->port()) + "/RPC2";
        return XmlRpcClient(options);
    }

    MethodResponse call(const std::string& method, const std::vector<Value>& params = {}) const
    {
        return client().call({method, params});
    }

    // The value of a call that must succeed, as JSON.
    std::string answer(const std::string& method, const std::vector<Value>& params = {}) const
    {
        const MethodResponse response = call(method, params);
        return response.fault ? "fault " + response.fault->text : response.value.dump();
    }

    // What a call brings that is sent as a big document or a small one: the value as JSON, or status and
    // text.
    std::string outcome(const std::string& method, const std::vector<Value>& params,
                        std::size_t padding = 0) const
    {
        const std::string body = zyr_gateway::writeMethodCall({method, params}) + std::string(padding, '\n');
        const HttpTestClient::Answer answered = HttpTestClient(server->port()).ask(posted(body));
        return answered.status == "200" ? zyr_gateway::parseMethodResponse(answered.body).value.dump()
                                        : answered.status + " " + answered.body;
    }

    // A method that waits until it is let go.
    void addHold(std::chrono::milliseconds longest = zyr_registration::kPrompt)
    {
        server->addMethod({.name = "SIM.Hold", .help = "Waits.", .longest = longest}, [this](const Value&) {
            hold.begun.set_value();
            hold.mayEnd.get_future().wait();
            return Value(1);
        });
    }

    // Has so many threads make a call at the same time, until one is refused; then the first goes on that was
    // held. Gives all outcomes, sorted.
    template <class LetGo>
    std::vector<std::string> outcomesOfMany(unsigned count, std::size_t padding, const LetGo& letGo) const;

    // The fault of a call: "<code> <text>".
    std::string fault(const std::string& method, const std::vector<Value>& params = {}) const
    {
        const MethodResponse response = call(method, params);
        return response.fault ? std::to_string(response.fault->code) + " " + response.fault->text
                              : "no fault";
    }

    struct
    {
        std::promise<void> begun;
        std::promise<void> mayEnd;
    } hold;
    HangingAlarmHandler alarms;
    zyr_test::StoredVariables variables;
    zyr_test::NodeDoubles node{transcript};
    std::optional<zyr_registration::RegisteringModule> module;
    std::optional<XmlRpcServer> server;
};

// Long polls that hang in threads of their own, and what they brought.
class LongPolls
{
  public:
    template <class Call>
    LongPolls(unsigned count, const Call& call) : outcomes(count)
    {
        for (unsigned index = 0; index < count; ++index) {
            m_threads.emplace_back([this, index, call] { outcomes[index] = call(); });
        }
    }
    ~LongPolls() { join(); }
    LongPolls(const LongPolls&) = delete;
    LongPolls& operator=(const LongPolls&) = delete;

    void join()
    {
        for (std::thread& thread : m_threads) {
            thread.join();
        }
        m_threads.clear();
    }

    std::vector<std::string> outcomes; // to be read after `join`

  private:
    std::vector<std::thread> m_threads;
};

template <class LetGo>
std::vector<std::string> XmlRpcServerTest::outcomesOfMany(unsigned count, std::size_t padding,
                                                          const LetGo& letGo) const
{
    std::atomic<bool> hasAnswer = false;
    LongPolls calls(count, [&] {
        std::string result = outcome("CRI.EnableAcm", {{{"channelId", 1}, {"enable", true}}}, padding);
        hasAnswer = true;
        hasAnswer.notify_all();
        return result;
    });
    hasAnswer.wait(false);
    letGo();
    calls.join();
    std::ranges::sort(calls.outcomes);
    return calls.outcomes;
}

TEST_F(XmlRpcServerTest, CommandIsCalledByItsWireName)
{
    server->start();
    EXPECT_EQ(answer("CRI.EnableAcm", {{{"channelId", 2}, {"enable", true}}}), R"({"tiResult":0})");
    EXPECT_EQ(transcript.lines().back(), "IAcmHandler_2.enableAcm(true)");
}

TEST_F(XmlRpcServerTest, CommandWithoutFieldsTakesNothingOrAnEmptyStruct)
{
    server->start();
    const std::string events = R"({"tiResult":0,"events":[{"eventName":"LinkDown","isActive":true,)"
                               R"("numberOfTimesEventHasBeenActive":1,"radioChannelId":2}]})";
    EXPECT_EQ(answer("CI.GetEvents"), events);
    EXPECT_EQ(answer("CI.GetEvents", {Value::object()}), events);
}

TEST_F(XmlRpcServerTest, FailureOfACommandIsItsFault)
{
    node.channel1.acmHandler.onEnableAcm = 0x8000;
    server->start();
    EXPECT_EQ(fault("CRI.EnableAcm", {{{"channelId", 1}, {"enable", true}}}),
              "4 CRI.EnableAcm failed to enable ACM");
}

TEST_F(XmlRpcServerTest, RefusalsTellResultMethodAndMember)
{
    server->start();
    EXPECT_EQ(fault("CRI.NoSuch"),
              "1 eTI_E_METHOD_UNKNOWN: CRI.NoSuch: no such method, system.listMethods tells all of them");
    EXPECT_EQ(fault("CRI.EnableAcm", {{{"channelId", 1}}}),
              "2 eTI_E_REQUIRED_INPUT_MISSING: CRI.EnableAcm: enable is missing, it takes a boolean");
    EXPECT_EQ(fault("CRI.EnableAcm"), "2 eTI_E_REQUIRED_INPUT_MISSING: CRI.EnableAcm: channelId is missing, "
                                      "it takes an integer from 1 to 2");
    EXPECT_EQ(fault("CRI.EnableAcm", {{{"channelId", 1}, {"enable", 2}}}),
              "3 eTI_E_PARAMETER_TYPE_INVALID: CRI.EnableAcm: enable is 2, it takes a boolean");
    EXPECT_EQ(fault("CRI.EnableAcm", {{{"channelId", 3}, {"enable", true}}}),
              "3 eTI_E_PARAMETER_INVALID: CRI.EnableAcm: channelId is 3, it takes an integer from 1 to 2");
    EXPECT_EQ(fault("CI.GetEvents", {{{"all", true}}}),
              "3 eTI_E_PARAMETER_INVALID: CI.GetEvents: all is not a member, accepted are: none");
    EXPECT_EQ(
        fault("CI.GetEvents", {1}),
        "3 eTI_E_PARAMETER_TYPE_INVALID: CI.GetEvents: the parameter is no struct, it takes one struct");
    EXPECT_EQ(fault("CI.GetEvents", {Value::object(), Value::object()}),
              "3 eTI_E_PARAMETER_INVALID: CI.GetEvents: 2 parameters are given, it takes one struct");
}

TEST_F(XmlRpcServerTest, WhatStockClientsCannotSayOtherwiseIsTaken)
{
    server->start();
    EXPECT_EQ(answer("CRI.EnableAcm", {{{"channelId", 1}, {"enable", 1}}}), R"({"tiResult":0})");
    EXPECT_EQ(transcript.lines().back(), "IAcmHandler_1.enableAcm(true)");
    EXPECT_EQ(answer("CRI.EnableAcm", {{{"channelId", 2}, {"enable", 0}}}), R"({"tiResult":0})");
    EXPECT_EQ(transcript.lines().back(), "IAcmHandler_2.enableAcm(false)");
    EXPECT_EQ(answer("CI.ReleaseFastEventsRequests", {Value::array()}), R"({"tiResult":0})");
    EXPECT_EQ(
        fault("CI.ReleaseFastEventsRequests", {Value::array({1})}),
        "3 eTI_E_PARAMETER_TYPE_INVALID: CI.ReleaseFastEventsRequests: the parameter is no struct, it takes "
        "one struct");
    EXPECT_EQ(
        fault("CRI.EnableAcm", {{{"channelId", nullptr}, {"enable", true}}}),
        "3 eTI_E_PARAMETER_TYPE_INVALID: CRI.EnableAcm: channelId is nil, it takes an integer from 1 to 2");
}

TEST_F(XmlRpcServerTest, DatesAndBase64AreRefusedByTheirNames)
{
    server->start();
    const auto faultOf = [this](const std::string& value) {
        const std::string body = "<methodCall><methodName>CRI.EnableAcm</"
                                 "methodName><params><param><value><struct><member><name>channelId"
                                 "</name><value>" +
                                 value + "</value></member></struct></value></param></params></methodCall>";
        HttpTestClient raw(server->port());
        return zyr_gateway::parseMethodResponse(
                   raw.ask("POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: "
                           "text/xml\r\nContent-Length: " +
                           std::to_string(body.size()) + "\r\n\r\n" + body)
                       .body)
            .fault->text;
    };
    const std::string begin = "eTI_E_PARAMETER_TYPE_INVALID: CRI.EnableAcm: channelId is ";
    EXPECT_EQ(faultOf("<dateTime.iso8601>20240102T03:04:05</dateTime.iso8601>"),
              begin + "a dateTime.iso8601, it takes an integer from 1 to 2");
    EXPECT_EQ(faultOf("<base64>MQ==</base64>"), begin + "base64, it takes an integer from 1 to 2");
}

TEST_F(XmlRpcServerTest, MalformedDocumentIsAFault)
{
    server->start();
    const std::string body = "<methodCall>\n<methodName>CI.GetEvents</methodNam></methodCall>";
    HttpTestClient raw(server->port());
    const auto response = raw.ask(
        "POST /RPC2 HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(server->port()) +
        "\r\nContent-Type: text/xml\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body);
    EXPECT_EQ(response.status, "200");
    const MethodResponse parsed = zyr_gateway::parseMethodResponse(response.body);
    ASSERT_TRUE(parsed.fault);
    EXPECT_EQ(parsed.fault->code, 2);
    EXPECT_TRUE(parsed.fault->text.starts_with("eTI_E_MALFORMED_REQUEST: line 2: ")) << parsed.fault->text;
}

TEST_F(XmlRpcServerTest, TestCommandsAreRefusedUntilTheirFamilyIsOpen)
{
    server->start();
    EXPECT_EQ(fault("TI.GetEvents", {{{"requestOption", 0}}}), "4 Error: Command not available");
    open(true);
    server->start();
    EXPECT_EQ(answer("TI.GetEvents", {{{"requestOption", 0}}}),
              R"({"tiResult":0,"events":[],"requestOption":0})");
}

TEST_F(XmlRpcServerTest, MethodsAreListed)
{
    server->addMethod({.name = "SIM.Test", .help = "Tests."}, [](const Value&) { return Value::object(); });
    server->start();
    std::vector<std::string> expected{"SIM.Test",          "system.getCapabilities", "system.listMethods",
                                      "system.methodHelp", "system.methodSignature", "system.multicall",
                                      "zyr.describe",      "zyr.describeHash"};
    for (const auto& command : zyr_registration::allCommands()) {
        expected.emplace_back(command.name());
    }
    std::ranges::sort(expected);
    EXPECT_EQ(call("system.listMethods").value.get<std::vector<std::string>>(), expected);
}

TEST_F(XmlRpcServerTest, SignaturesAndHelpComeFromTheDescriptions)
{
    server->start();
    EXPECT_EQ(answer("system.methodSignature", {"CRI.EnableAcm"}), R"([["struct","struct"]])");
    EXPECT_EQ(answer("system.methodSignature", {"CI.GetEvents"}), R"([["struct"],["struct","struct"]])");
    EXPECT_EQ(answer("system.methodSignature", {"system.methodHelp"}), R"([["string","string"]])");
    EXPECT_EQ(
        call("system.methodHelp", {"CI.ReleaseFastEventsRequests"}).value,
        "Releases all hanging CI.GetFastEvents requests.\n"
        "Group events. Changes the node. Answers within 1 s.\n"
        "Faults:\n"
        "  4 \"CI.ReleaseFastEventsRequestsImpl failed to release hanging GetFastAlarm requests\": The alarm "
        "handler failed.\n");
    EXPECT_EQ(fault("system.methodHelp", {"CRI.Nothing"}),
              "1 eTI_E_METHOD_UNKNOWN: CRI.Nothing: no such method, system.listMethods tells all of them");
    EXPECT_EQ(fault("system.methodHelp"),
              "3 eTI_E_PARAMETER_TYPE_INVALID: system.methodHelp: it takes one string, the name of a method");
    EXPECT_EQ(fault("system.listMethods", {1}),
              "3 eTI_E_PARAMETER_INVALID: system.listMethods: it takes no parameters");
}

TEST_F(XmlRpcServerTest, CapabilitiesAreTold)
{
    server->start();
    const Value capabilities = call("system.getCapabilities").value;
    for (const char* const name : {"xmlrpc", "nil", "introspection", "system.multicall"}) {
        EXPECT_EQ(capabilities[name]["specVersion"], 1) << name;
        EXPECT_TRUE(capabilities[name]["specUrl"].get<std::string>().starts_with("http://")) << name;
    }
}

TEST_F(XmlRpcServerTest, MethodsAreDescribedForPrograms)
{
    server->start();
    const Value answer = call("zyr.describe").value;
    const Value& all = answer["methods"];
    ASSERT_EQ(all.size(), zyr_registration::allCommands().size());
    const Value one = call("zyr.describe", {"CRI.EnableAcm"}).value;
    EXPECT_EQ(one["name"], "CRI.EnableAcm");
    EXPECT_EQ(one["request"][0]["maximum"], 2);
    EXPECT_EQ(std::count(all.begin(), all.end(), one), 1);
    EXPECT_EQ(answer["hash"].get<std::string>().size(), 16U);
    EXPECT_EQ(call("zyr.describeHash").value, answer["hash"]);
    EXPECT_EQ(
        fault("zyr.describe", {"system.listMethods"}),
        "3 eTI_E_PARAMETER_INVALID: zyr.describe: system.listMethods takes no struct, system.methodHelp "
        "tells of it");
}

TEST_F(XmlRpcServerTest, MulticallAnswersInOrder)
{
    server->start();
    const Value calls = Value::parse(R"([
        {"methodName": "CRI.EnableAcm", "params": [{"channelId": 1, "enable": true}]},
        {"methodName": "CRI.NoSuch", "params": []},
        {"methodName": "system.multicall", "params": [[]]},
        {"methodName": "CI.GetFastEvents", "params": [{"events": []}]},
        {"methodName": "CRI.EnableAcm"},
        {"methodName": "CRI.EnableAcm", "params": [{"channelId": 2, "enable": false}]}])");
    transcript.clear();
    EXPECT_EQ(
        answer("system.multicall", {calls}),
        R"([[{"tiResult":0}],)"
        R"({"faultCode":1,"faultString":"eTI_E_METHOD_UNKNOWN: CRI.NoSuch: no such method, )"
        R"(system.listMethods tells all of them"},)"
        R"({"faultCode":3,"faultString":"eTI_E_PARAMETER_INVALID: system.multicall: not to be called by )"
        R"(system.multicall"},)"
        R"({"faultCode":3,"faultString":"eTI_E_PARAMETER_INVALID: CI.GetFastEvents: not to be called by )"
        R"(system.multicall"},)"
        R"({"faultCode":3,"faultString":"eTI_E_PARAMETER_TYPE_INVALID: system.multicall: a call is no struct )"
        R"(of methodName, a string, and params, an array"},)"
        R"([{"tiResult":0}]])");
    std::vector<std::string> calledHandlers;
    for (const std::string& line : transcript.lines()) {
        if (line.starts_with("IAcmHandler")) {
            calledHandlers.push_back(line);
        }
    }
    EXPECT_EQ(calledHandlers,
              (std::vector<std::string>{"IAcmHandler_1.enableAcm(true)", "IAcmHandler_2.enableAcm(false)"}));
}

TEST_F(XmlRpcServerTest, MulticallRefusesEachCallOfAnotherShape)
{
    server->start();
    const Value calls = Value::parse(R"([
        "CRI.EnableAcm",
        {"methodName": 1, "params": []},
        {"methodName": "CRI.EnableAcm", "params": 1},
        {"method": "CRI.EnableAcm", "params": []},
        {"methodName": "CRI.EnableAcm", "param": []},
        {"methodName": "CRI.EnableAcm", "params": [], "more": 1}])");
    const Value answers = call("system.multicall", {calls}).value;
    ASSERT_EQ(answers.size(), 6U);
    for (const Value& one : answers) {
        EXPECT_EQ(one.dump(), R"({"faultCode":3,"faultString":"eTI_E_PARAMETER_TYPE_INVALID: )"
                              R"(system.multicall: a call is no struct of methodName, a string, and params, )"
                              R"(an array"})");
    }
    EXPECT_EQ(fault("system.multicall", {}),
              "3 eTI_E_PARAMETER_TYPE_INVALID: system.multicall: it takes one array, of calls");
}

TEST_F(XmlRpcServerTest, HelpIsGivenForOneMethodNamedByAString)
{
    server->start();
    const std::string text =
        "3 eTI_E_PARAMETER_TYPE_INVALID: system.methodHelp: it takes one string, the name of a "
        "method";
    EXPECT_EQ(fault("system.methodHelp", {}), text);
    EXPECT_EQ(fault("system.methodHelp", {1}), text);
    EXPECT_EQ(fault("system.methodHelp", {std::string(65, 'x')}),
              "1 eTI_E_METHOD_UNKNOWN: " + std::string(64, 'x') +
                  "...: no such method, system.listMethods tells all of them");
}

TEST_F(XmlRpcServerTest, MulticallTakesAHundredCalls)
{
    server->start();
    const Value one = Value::parse(R"({"methodName": "CI.ReleaseFastEventsRequests", "params": []})");
    Value calls = Value::array();
    calls.insert(calls.end(), 100, one);
    EXPECT_EQ(call("system.multicall", {calls}).value.size(), 100U);
    calls.push_back(one);
    EXPECT_EQ(fault("system.multicall", {calls}),
              "3 eTI_E_PARAMETER_INVALID: system.multicall: 101 calls are given, it takes at most 100");
    EXPECT_EQ(fault("system.multicall", {1}),
              "3 eTI_E_PARAMETER_TYPE_INVALID: system.multicall: it takes one array, of calls");
}

// A method whose answers are so long.
void addLongMethod(XmlRpcServer& server, std::size_t size)
{
    server.addMethod({.name = "SIM.Long", .help = "Answers much."},
                     [size](const Value&) { return Value(std::string(size, 'x')); });
}

TEST_F(XmlRpcServerTest, AnswerHas8MiBAtTheMost)
{
    addLongMethod(*server, 8UL * 1024UL * 1024UL);
    server->start();
    EXPECT_EQ(fault("SIM.Long"), "4 eTI_E_FAILED: SIM.Long: the answer is longer than 8 MiB");
    open(false);
    addLongMethod(*server, 8'000'000);
    server->start();
    EXPECT_EQ(call("SIM.Long").value.get_ref<const std::string&>().size(), 8'000'000U);
}

TEST_F(XmlRpcServerTest, MulticallAsAWholeHas8MiBAtTheMostAndStopsThere)
{
    addLongMethod(*server, 3'000'000);
    server->start();
    const Value one = Value::parse(R"({"methodName": "SIM.Long", "params": []})");
    const Value effect =
        Value::parse(R"({"methodName": "CRI.EnableAcm", "params": [{"channelId": 1, "enable": true}]})");
    EXPECT_EQ(call("system.multicall", {Value::array({one, one})}).value.size(), 2U);
    transcript.clear();
    EXPECT_EQ(
        fault("system.multicall", {Value::array({one, one, one, effect})}),
        "4 eTI_E_FAILED: system.multicall: the answers are longer than 8 MiB with that of call 3, which was "
        "the last one made");
    EXPECT_TRUE(transcript.lines().empty());
}

TEST_F(XmlRpcServerTest, WhatAMethodThrowsIsAFaultAndTheServerGoesOn)
{
    server->addMethod({.name = "SIM.Throw", .help = "Throws."},
                      [](const Value&) -> Value { throw std::runtime_error("out of luck"); });
    server->addMethod({.name = "SIM.ThrowNumber", .help = "Throws."}, [](const Value&) -> Value { throw 7; });
    server->addMethod({.name = "SIM.Deep", .help = "Answers what can't be written."}, [](const Value&) {
        Value value = 1;
        for (int depth = 0; depth < 40; ++depth) {
            value = Value::array({value});
        }
        return value;
    });
    server->start();
    EXPECT_EQ(fault("SIM.Throw"), "4 eTI_E_FAILED: SIM.Throw: internal error: out of luck");
    EXPECT_EQ(fault("SIM.ThrowNumber"),
              "4 eTI_E_FAILED: SIM.ThrowNumber: internal error: an exception of unknown type");
    EXPECT_TRUE(fault("SIM.Deep").starts_with("4 eTI_E_FAILED: SIM.Deep: internal error: "));
    EXPECT_EQ(answer("CI.ReleaseFastEventsRequests"), R"({"tiResult":0})");
}

TEST_F(XmlRpcServerTest, MethodThatRunsOutOfMemoryIsAnsweredWith503)
{
    const auto runOut = [](const Value&) -> Value { throw std::bad_alloc(); };
    server->addMethod({.name = "SIM.Short", .help = "Takes memory."}, runOut);
    server->addMethod({.name = "SIM.Lasting", .help = "Takes memory.", .longest = std::chrono::minutes(1)},
                      runOut);
    server->addMethod({.name = "SIM.Poll", .help = "Takes memory.", .isLongPoll = true}, runOut);
    server->start();
    for (const std::string method : {"SIM.Short", "SIM.Lasting", "SIM.Poll"}) {
        EXPECT_EQ(outcome(method, {}), "503 The server is out of memory.\n") << method;
    }
    const Value calls = Value::parse(R"([{"methodName": "SIM.Short", "params": []}])");
    EXPECT_EQ(outcome("system.multicall", {calls}), "503 The server is out of memory.\n");
    EXPECT_EQ(answer("CI.ReleaseFastEventsRequests"), R"({"tiResult":0})");
}

TEST_F(XmlRpcServerTest, DoubledMethodIsRefused)
{
    try {
        server->addMethod({.name = "CI.GetEvents", .help = "Again."}, [](const Value&) { return Value(); });
        FAIL() << "a doubled method was accepted";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "there is already a method CI.GetEvents");
    }
}

TEST_F(XmlRpcServerTest, HangingLongPollsHoldUpNobody)
{
    server->start();
    LongPolls polls(64, [this] { return fault("CI.GetFastEvents", {{{"events", Value::array()}}}); });
    alarms.waitForHanging(64);
    LongPolls others(64, [this] { return answer("CRI.EnableAcm", {{{"channelId", 1}, {"enable", true}}}); });
    others.join();
    for (const std::string& outcome : others.outcomes) {
        EXPECT_EQ(outcome, R"({"tiResult":0})");
    }
    EXPECT_EQ(answer("CI.ReleaseFastEventsRequests"), R"({"tiResult":0})");
    polls.join();
    for (const std::string& outcome : polls.outcomes) {
        EXPECT_EQ(outcome, "4 CI.GetFastEvents has been terminated");
    }
}

TEST_F(XmlRpcServerTest, MethodThatIsHeldHoldsUpNeitherOtherMethodsNorMoreOfItsOwn)
{
    std::mutex mutex;
    std::condition_variable changed;
    int held = 0;
    bool mayGo = false;
    server->addMethod({.name = "SIM.Hold", .help = "Waits.", .longest = std::chrono::minutes(1)},
                      [&](const Value&) {
                          std::unique_lock lock(mutex);
                          ++held;
                          changed.notify_all();
                          changed.wait(lock, [&] { return mayGo; });
                          return Value(1);
                      });
    server->start();
    LongPolls holding(6, [this] { return answer("SIM.Hold"); });
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [&] { return held == 6; });
    }
    EXPECT_EQ(answer("CRI.EnableAcm", {{{"channelId", 1}, {"enable", true}}}), R"({"tiResult":0})");
    {
        const std::lock_guard lock(mutex);
        mayGo = true;
    }
    changed.notify_all();
    holding.join();
    EXPECT_EQ(holding.outcomes, std::vector<std::string>(6, "1"));
}

TEST_F(XmlRpcServerTest, LongCommandKeepsNobodyWaitingButThoseThatMustWaitForIt)
{
    HeldRecoveryController recovery;
    openWith(recovery);
    server->start();
    EXPECT_EQ(answer("CRI.EnableAcm", {{{"channelId", 2}, {"enable", true}}}), R"({"tiResult":0})");
    LongPolls recovering(1, [this] { return answer("CRI.StartRecovery", {{{"Recover", "Dsp"}}}); });
    recovery.waitUntilHeld();
    const std::size_t threads = numberOfThreads();
    transcript.clear();
    const Value enabling =
        Value::parse(R"({"methodName": "CRI.EnableAcm", "params": [{"channelId": 1, "enable": true}]})");
    LongPolls waiting(20, [this] { return answer("CRI.EnableAcm", {{{"channelId", 1}, {"enable", true}}}); });
    LongPolls waitingTogether(20, [&] {
        return answer("system.multicall", {Value::array({enabling, enabling})});
    });
    for (int round = 0; round < 10; ++round) {
        EXPECT_EQ(call("zyr.describeHash").value.type(), Value::value_t::string);
        EXPECT_EQ(call("system.listMethods").value.type(), Value::value_t::array);
    }
    EXPECT_TRUE(transcript.lines().empty());
    // The clients of this test have 40 threads of their own.
    EXPECT_LE(numberOfThreads(), threads + 40);
    recovery.letGo();
    recovering.join();
    waiting.join();
    waitingTogether.join();
    EXPECT_EQ(recovering.outcomes, std::vector<std::string>{R"({"tiResult":0})"});
    EXPECT_EQ(waiting.outcomes, std::vector<std::string>(20, R"({"tiResult":0})"));
    EXPECT_EQ(waitingTogether.outcomes,
              std::vector<std::string>(20, R"([[{"tiResult":0}],[{"tiResult":0}]])"));
    std::vector<std::string> enabledOneByOne;
    for (int count = 0; count < 60; ++count) {
        enabledOneByOne.insert(
            enabledOneByOne.end(),
            {"3 ZYR.TI.CriEnableAcm: RadioChannelID: 1\\nEnabled: 1\\n", "IAcmHandler_1.enableAcm(true)"});
    }
    EXPECT_EQ(transcript.lines(), enabledOneByOne);
}

TEST_F(XmlRpcServerTest, CommandThatHasWaitedForItsTurnIsNotMadeIfItsClientHasLeft)
{
    HeldRecoveryController recovery;
    openWith(recovery);
    server->start();
    LongPolls recovering(1, [this] { return answer("CRI.StartRecovery", {{{"Recover", "Dsp"}}}); });
    recovery.waitUntilHeld();
    const auto request = [](const std::string& method, const Value& members) {
        return posted(zyr_gateway::writeMethodCall({method, {members}}));
    };
    transcript.clear();
    HttpTestClient staying(server->port());
    ASSERT_TRUE(staying.send(request("CRI.EnableAcm", {{"channelId", 2}, {"enable", true}})));
    HttpTestClient leaving(server->port());
    ASSERT_TRUE(leaving.send(request("CRI.EnableAcm", {{"channelId", 1}, {"enable", true}})));
    leaving.endSending();
    // Ends are noticed one after the other: behind that of a poll, this one has been.
    HttpTestClient polling(server->port());
    ASSERT_TRUE(polling.send(request("CI.GetFastEvents", {{"events", Value::array()}})));
    polling.endSending();
    while (server->longPolls().orphans == 0) {
        std::this_thread::yield();
    }
    recovery.letGo();
    const HttpTestClient::Answer refused = leaving.answer();
    EXPECT_EQ(refused.status, "503");
    EXPECT_EQ(refused.body, "The client's side had ended before the command's turn came: not made.\n");
    EXPECT_EQ(staying.answer().status, "200");
    recovering.join();
    EXPECT_EQ(transcript.lines(),
              (std::vector<std::string>{"3 ZYR.TI.CriEnableAcm: RadioChannelID: 2\\nEnabled: 1\\n",
                                        "IAcmHandler_2.enableAcm(true)"}));
}

TEST_F(XmlRpcServerTest, BigCommandWaitsForItsTurnToo)
{
    HeldRecoveryController recovery;
    openWith(recovery);
    server->start();
    LongPolls recovering(1, [this] { return answer("CRI.StartRecovery", {{{"Recover", "Dsp"}}}); });
    recovery.waitUntilHeld();
    const std::string body =
        zyr_gateway::writeMethodCall({"CRI.EnableAcm", {{{"channelId", 2}, {"enable", true}}}}) +
        std::string(20'000, '\n');
    transcript.clear();
    HttpTestClient waiting(server->port());
    ASSERT_TRUE(waiting.send(posted(body)));
    // Big documents are read one after the other: behind another one, this one has been.
    EXPECT_EQ(fault("system.methodHelp", {std::string(20'000, 'x')}).substr(0, 2), "1 ");
    EXPECT_TRUE(transcript.lines().empty());
    recovery.letGo();
    const HttpTestClient::Answer answered = waiting.answer();
    EXPECT_EQ(answered.status, "200");
    EXPECT_EQ(zyr_gateway::parseMethodResponse(answered.body).value, (Value{{"tiResult", 0}}));
    recovering.join();
    EXPECT_EQ(transcript.lines(),
              (std::vector<std::string>{"3 ZYR.TI.CriEnableAcm: RadioChannelID: 2\\nEnabled: 1\\n",
                                        "IAcmHandler_2.enableAcm(true)"}));
}

TEST_F(XmlRpcServerTest, CommandBehindAHundredThatWaitForTheirTurnIsRefused)
{
    HeldRecoveryController recovery;
    openWith(recovery);
    server->start();
    LongPolls recovering(1, [this] { return answer("CRI.StartRecovery", {{{"Recover", "Dsp"}}}); });
    recovery.waitUntilHeld();
    std::vector<std::string> expected(100, R"({"tiResult":0})");
    expected.insert(expected.begin(), "503 Too many commands are waiting for their turn.\n");
    EXPECT_EQ(outcomesOfMany(101, 0, [&] { recovery.letGo(); }), expected);
    recovering.join();
    EXPECT_EQ(recovering.outcomes, std::vector<std::string>{R"({"tiResult":0})"});
}

TEST_F(XmlRpcServerTest, BigRequestBehindAHundredThatWaitIsRefusedAndWhatIsMadeAmongThem)
{
    addHold();
    server->start();
    LongPolls holding(1, [this] { return outcome("SIM.Hold", {}, kBig); });
    hold.begun.get_future().wait();
    std::string description;
    std::vector<std::string> expected(100, R"({"tiResult":0})");
    expected.insert(expected.begin(), "503 Too many big requests are waiting.\n");
    EXPECT_EQ(outcomesOfMany(101, kBig,
                             [&] {
                                 description = outcome("zyr.describe", {});
                                 hold.mayEnd.set_value();
                             }),
              expected);
    EXPECT_EQ(description, "503 Too many requests are waiting.\n");
    holding.join();
    EXPECT_EQ(holding.outcomes, std::vector<std::string>{"1"});
}

TEST_F(XmlRpcServerTest, MulticallsThatHoldTooMuchTogetherAreRefused)
{
    std::atomic<unsigned> heldOnes = 0;
    std::shared_future<void> mayAllGo = hold.mayEnd.get_future().share();
    server->addMethod({.name = "SIM.Hold", .help = "Waits.", .longest = std::chrono::minutes(1)},
                      [&, mayAllGo](const Value&) {
                          ++heldOnes;
                          heldOnes.notify_all();
                          mayAllGo.wait();
                          return Value(1);
                      });
    server->start();
    const Value calls = Value::parse(R"([{"methodName": "SIM.Hold", "params": []}])");
    // A byte of a document counts for 16, and all together for 24 MiB at the most.
    LongPolls holding(3, [&] { return outcome("system.multicall", {calls}, 500'000); });
    for (unsigned count = 0; count < 3; count = heldOnes) {
        heldOnes.wait(count);
    }
    EXPECT_EQ(outcome("system.multicall", {calls}, 100'000), "503 There is too much in work.\n");
    hold.mayEnd.set_value();
    holding.join();
    EXPECT_EQ(holding.outcomes, std::vector<std::string>(3, "[[1]]"));
}

TEST_F(XmlRpcServerTest, MulticallGoesOnBehindAMethodThatIsHeld)
{
    addHold(std::chrono::minutes(1));
    server->start();
    LongPolls calling(1, [this] {
        return answer("system.multicall", {Value::parse(R"([[
            {"methodName": "SIM.Hold", "params": []},
            {"methodName": "CRI.EnableAcm", "params": [{"channelId": 1, "enable": true}]}]])")
                                               .front()});
    });
    hold.begun.get_future().wait();
    EXPECT_EQ(answer("CRI.EnableAcm", {{{"channelId", 2}, {"enable", true}}}), R"({"tiResult":0})");
    hold.mayEnd.set_value();
    calling.join();
    EXPECT_EQ(calling.outcomes, std::vector<std::string>{R"([[1],[{"tiResult":0}]])"});
}

TEST_F(XmlRpcServerTest, LongPollBeyondTheCapIsRefusedByAFault)
{
    server->start();
    LongPolls polls(64, [this] { return fault("CI.GetFastEvents", {{{"events", Value::array()}}}); });
    alarms.waitForHanging(64);
    EXPECT_EQ(fault("CI.GetFastEvents", {{{"events", Value::array()}}}),
              "4 eTI_E_FAILED: CI.GetFastEvents: too many long polls hang already, 64 can");
    EXPECT_EQ(server->longPolls().hanging, 64U);
    EXPECT_EQ(server->longPolls().orphans, 0U);
    answer("CI.ReleaseFastEventsRequests");
    polls.join();
}

TEST_F(XmlRpcServerTest, LongPollBringsAShortViewOnly)
{
    server->start();
    Value events = Value::array();
    events.insert(events.end(), 400,
                  {{"eventName", "LinkDown"},
                   {"isActive", true},
                   {"numberOfTimesEventHasBeenActive", 1},
                   {"radioChannelId", 2}});
    EXPECT_EQ(fault("CI.GetFastEvents", {{{"events", events}}}),
              "3 eTI_E_PARAMETER_INVALID: CI.GetFastEvents: the request is longer than 64 KiB");
}

TEST_F(XmlRpcServerTest, ClientsThatLeaveTheirPollsLeaveTheServerAsItWas)
{
    server->start();
    LongPolls staying(2, [this] { return fault("CI.GetFastEvents", {{{"events", Value::array()}}}); });
    alarms.waitForHanging(2);
    const std::string body =
        zyr_gateway::writeMethodCall({"CI.GetFastEvents", {{{"events", Value::array()}}}});
    for (int count = 0; count < 300; ++count) {
        HttpTestClient leaving(server->port());
        leaving.send(posted(body));
    }
    const auto isSettled = [](XmlRpcServer::LongPollCount count) {
        return count.hanging == 2 && count.orphans == 0;
    };
    while (!isSettled(server->longPolls())) {
        std::this_thread::yield();
    }
    EXPECT_EQ(answer("CRI.EnableAcm", {{{"channelId", 1}, {"enable", true}}}), R"({"tiResult":0})");
    // Those who stayed have noticed nothing so far, and the release that a client asks for ends them.
    EXPECT_EQ(answer("CI.ReleaseFastEventsRequests"), R"({"tiResult":0})");
    staying.join();
    EXPECT_EQ(staying.outcomes, std::vector<std::string>(2, "4 CI.GetFastEvents has been terminated"));
}

TEST_F(XmlRpcServerTest, StopReleasesAndAnswersLongPolls)
{
    server->start();
    LongPolls polls(8, [this] { return fault("CI.GetFastEvents"); });
    alarms.waitForHanging(8);
    const std::uint16_t port = server->port();
    server->stop();
    polls.join();
    for (const std::string& outcome : polls.outcomes) {
        EXPECT_EQ(outcome, "4 CI.GetFastEvents has been terminated");
    }
    EXPECT_FALSE(HttpTestClient(port).connected());
}

TEST_F(XmlRpcServerTest, WhatHasNotBegunWhenTheServerStopsIsRefused)
{
    HeldRecoveryController recovery;
    openWith(recovery);
    addHold();
    server->start();
    LongPolls polling(1, [this] { return fault("CI.GetFastEvents"); });
    alarms.waitForHanging(1);
    LongPolls recovering(1, [this] {
        return outcome("system.multicall", {Value::parse(R"([[
            {"methodName": "CRI.StartRecovery", "params": [{"Recover": "Dsp"}]},
            {"methodName": "CRI.EnableAcm", "params": [{"channelId": 2, "enable": true}]}]])")
                                                .front()});
    });
    recovery.waitUntilHeld();
    transcript.clear();
    const std::string enabling =
        zyr_gateway::writeMethodCall({"CRI.EnableAcm", {{{"channelId", 1}, {"enable", true}}}});
    const std::string poll = zyr_gateway::writeMethodCall({"CI.GetFastEvents", {}});
    const std::string padding(20'000, '\n');
    HttpTestClient small(server->port());
    ASSERT_TRUE(small.send(posted(enabling)));
    HttpTestClient big(server->port());
    ASSERT_TRUE(big.send(posted(enabling + padding)));
    // Big documents are read one after the other: behind another one, this one has been.
    EXPECT_EQ(fault("system.methodHelp", {std::string(20'000, 'x')}).substr(0, 2), "1 ");
    LongPolls holding(1, [this] { return outcome("SIM.Hold", {}, kBig); });
    hold.begun.get_future().wait();
    HttpTestClient latePoll(server->port());
    ASSERT_TRUE(latePoll.send(posted(poll + padding)));
    EXPECT_EQ(call("zyr.describeHash").value.type(), Value::value_t::string);

    const std::uint16_t port = server->port();
    std::thread stopping([this] { server->stop(); });
    while (HttpTestClient(port).connected()) {
    }
    recovery.letGo();
    const auto expectRefusal = [](HttpTestClient& client) {
        const HttpTestClient::Answer answered = client.answer();
        EXPECT_EQ(answered.status, "503");
        EXPECT_EQ(answered.body, "The server is stopping.\n");
    };
    expectRefusal(small);
    expectRefusal(big);
    polling.join(); // and so no more polls are taken
    hold.mayEnd.set_value();
    expectRefusal(latePoll);
    stopping.join();
    holding.join();
    recovering.join();
    EXPECT_EQ(recovering.outcomes, std::vector<std::string>{"503 The server is stopping.\n"});
    EXPECT_EQ(polling.outcomes, std::vector<std::string>{"4 CI.GetFastEvents has been terminated"});
    EXPECT_EQ(holding.outcomes, std::vector<std::string>{"1"});
    EXPECT_EQ(transcript.lines(),
              std::vector<std::string>{"2 ZYR.TI.CiGetFastEvents: CI.GetFastEvents has been terminated"});
}

TEST_F(XmlRpcServerTest, StopWaitsForTheCommandThatRunsAndAnswersIt)
{
    std::mutex mutex;
    std::condition_variable changed;
    bool isRunning = false;
    bool mayEnd = false;
    server->addMethod({.name = "SIM.Wait", .help = "Waits."}, [&](const Value&) {
        std::unique_lock lock(mutex);
        isRunning = true;
        changed.notify_all();
        changed.wait(lock, [&] { return mayEnd; });
        return Value("done");
    });
    server->start();
    LongPolls waiting(1, [this] { return answer("SIM.Wait"); });
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return isRunning; });
    std::thread stopping([this] { server->stop(); });
    mayEnd = true;
    changed.notify_all();
    lock.unlock();
    stopping.join();
    waiting.join();
    EXPECT_EQ(waiting.outcomes.front(), R"("done")");
}

TEST_F(XmlRpcServerTest, CallsFromManyThreadsAreAllAnswered)
{
    server->start();
    std::atomic<unsigned> answered{0};
    LongPolls callers(16, [&] {
        XmlRpcClient own = client();
        for (int round = 0; round < 20; ++round) {
            const auto channel = 1 + round % 2;
            const MethodResponse response =
                own.call({"CRI.EnableAcm", {{{"channelId", channel}, {"enable", true}}}});
            if (!response.fault) {
                ++answered;
            }
        }
        return std::string();
    });
    callers.join();
    EXPECT_EQ(answered, 320U);
}

} // namespace
