// The way of a call inside the node's process, from the body of its HTTP request to that of the answer, so
// many times: what callgrind counts. The simulated node stands behind it, on a time that stands still.

#include "Codec.h"
#include "CountedKinds.h"
#include "DocumentSink.h"
#include "RegisteringModule.h"
#include "SimulatedNode.h"
#include "VirtualTime.h"

#include <initializer_list>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace
{

struct Member
{
    std::string name;
    std::string type;
    std::string text;
};

// A call as a stock client sends it, one struct its only parameter.
std::string callOf(const std::string& method, const std::vector<Member>& members)
{
    std::string body = "<?xml version='1.0'?>\n<methodCall>\n<methodName>" + method +
                       "</methodName>\n<params>\n<param>\n<value><struct>\n";
    for (const auto& [name, type, text] : members) {
        for (const std::string_view piece :
             std::initializer_list<std::string_view>{"<member>\n<name>", name, "</name>\n<value><", type, ">",
                                                     text, "</", type, "></value>\n</member>\n"}) {
            body += piece;
        }
    }
    return body + "</struct></value>\n</param>\n</params>\n</methodCall>\n";
}

// By what they carry: next to nothing, many members there, many members back.
const std::map<std::string, std::string> kBodies{
    {"small", callOf("CRI.EnableAcm", {{"channelId", "int", "1"}, {"enable", "boolean", "1"}})},
    {"middle", callOf("CRI.SetRadioChannelNearEnd", {{"RadioChannelID", "int", "1"},
                                                     {"radioFrameId", "int", "102"},
                                                     {"minModulation", "string", "4QAM"},
                                                     {"maxModulation", "string", "256QAM"},
                                                     {"referenceSec", "string", "4L"},
                                                     {"txFrequency_kHz", "int", "14500000"},
                                                     {"rxFrequency_kHz", "int", "14920000"}})},
    {"large", callOf("CRI.GetRadioChannelStatus", {{"RadioChannelID", "int", "1"}})},
};

struct Bench
{
    zyr_platform::VirtualTime time;
    zyr_simulation::SimulatedNode node{{}, time};
    zyr_registration::RegisteringModule commands{{}};

    std::string answerTo(const std::string& body)
    {
        const zyr_gateway::MethodCall call = zyr_gateway::parseMethodCall(body);
        const auto& command = *zyr_registration::findCommand(call.method);
        zyr_gateway::ResponseDocument document;
        zyr_gateway::DocumentSink sink(document.writer());
        const zyr_registration::Outcome outcome = commands.call(command, call.params.at(0), sink);
        return outcome.faultCode > 0 ? zyr_gateway::writeFault(outcome.faultCode, outcome.faultText)
                                     : document.finish();
    }
};

auto answers(const std::string& body)
{
    return [&body](long calls) {
        Bench bench;
        for (long call = 0; call < calls; ++call) {
            bench.answerTo(body);
        }
    };
}

auto reading(const std::string& body)
{
    return [&body](long calls) {
        for (long call = 0; call < calls; ++call) {
            static_cast<void>(zyr_gateway::parseMethodCall(body));
        }
    };
}

} // namespace

int main(int argc, char** argv)
{
    benchmark_kinds::Kinds kinds;
    for (const auto& [name, body] : kBodies) {
        kinds["answer-" + name] = answers(body);
        kinds["read-" + name] = reading(body);
        kinds["show-" + name] = [&body = body](long) { std::cout << body << Bench().answerTo(body); };
    }
    return benchmark_kinds::run(kinds, argc, argv);
}
