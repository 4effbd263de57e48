#pragma once

#include "BaseResponse.h"
#include "CmdWrapper.h"
#include "DefaultSleepApi.h"
#include "InterfaceBroker.h"
#include "ModuleManager.h"
#include "Publication.h"
#include "ServiceInForce.h"
#include "StartUpState.h"
#include "TextWriter.h"
#include "ToldFaults.h"
#include "ToldSource.h"
#include "TraceService.h"
#include "Transcript.h"
#include "VirtualTime.h"
#include "ZyrApiHandler.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <list>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zyr_test
{

/// Writes trace records into the transcript: "<level> <channel>: <text>". Fails the test at a record that
/// names another source than it has to.
class TranscriptSink : public zyr_platform::TraceSink
{
  public:
    explicit TranscriptSink(Transcript& transcript) : m_transcript(transcript) {}

    void write(const zyr_platform::TraceRecord& record) override
    {
        expectToldSource(record);
        const std::string front = std::to_string(record.level) + " " + std::string(record.channel) + ":";
        m_transcript.add(record.text.empty() ? front : front + " " + std::string(record.text));
    }

  private:
    Transcript& m_transcript;
};

/// Writes sleeps into the transcript, "sleep <milliseconds>", before they pass in virtual time.
class TranscriptSleeper : public Util::DefaultSleepApi
{
  public:
    TranscriptSleeper(Transcript& transcript, Util::DefaultSleepApi& sleeper)
        : m_transcript(transcript), m_sleeper(sleeper)
    {}

    void sleep(std::uint32_t milliSec) override
    {
        m_transcript.add("sleep " + std::to_string(milliSec));
        m_sleeper.sleep(milliSec);
    }

  private:
    Transcript& m_transcript;
    Util::DefaultSleepApi& m_sleeper;
};

/// Fixture of everything that runs commands: one transcript of collaborator calls, trace lines, sleeps, runs
/// of phase group 5 and responses; default trace levels; virtual time; a node in normal operation; an empty
/// command table and a closed test gate. Whatever a test publishes, registers or sets is taken back at its
/// end.
class CommandTest : public ::testing::Test
{
  protected:
    CommandTest()
    {
        zyr_platform::TraceService::get().resetLevels();
        resetFrame();
        transcript.clear();
    }
    ~CommandTest() override
    {
        zyr_platform::TraceService::get().resetLevels();
        resetFrame();
    }

    /// Sets the highest level that a trace channel shows, 0 to 7; "*" stands for all. Default: 3.
    static void setTraceLevel(std::string_view channel, TylTraceLevel level)
    {
        zyr_platform::TraceService::get().setLevel(channel, level);
    }

    /// Publishes a double under its own name.
    template <class Double>
    void publish(Double& collaborator)
    {
        publish(collaborator.name(), collaborator);
    }

    /// Publishes any interface under any name.
    void publish(const std::string& name, IInterface& interface)
    {
        m_publications.emplace_back(name, interface);
    }

    /// Publishes the doubles of a node with so many channels (NodeDoubles.h).
    template <class Node>
    void publishNode(Node& node, unsigned numberOfChannels = 2)
    {
        node.forEach(numberOfChannels, [this](auto& collaborator) { this->publish(collaborator); });
    }

    /// Takes back what the test has published under a name.
    void withdraw(const std::string& name)
    {
        const auto count =
            m_publications.remove_if([&](const auto& publication) { return publication.name() == name; });
        ASSERT_EQ(count, 1U) << name << " isn't published";
    }

    /// Initialises an implementation and puts it into the command table, as the registering module does.
    /// Leaves no lines in the transcript.
    template <class XImpl>
    XImpl& enrol(unsigned numberOfChannels = 2)
    {
        const auto wrapper =
            std::make_shared<zyr_top_api::CmdWrapper<XImpl>>(std::string(XImpl::identity.wireName));
        zyr_top_api::ZyrApiHandler::m_cmds.push_back(wrapper);
        EXPECT_EQ(wrapper->impl().initialize(numberOfChannels), zyr_top_api::eTI_S_OK) << transcript.text();
        transcript.clear();
        return wrapper->impl();
    }

    /// Opens or closes the gate of the gated commands. Leaves no lines in the transcript.
    void openTestGate(bool open = true)
    {
        zyr_top_api::ZyrApiHandler::setTiEnabled(open);
        transcript.clear();
    }

    /// Writes a response into the transcript, and gives it on:
    ///
    ///     result 0x8000 4 "CRI.EnableAcm failed to enable ACM"
    ///     prints StandardResponse Sent\n
    ///
    /// A fault text that ends in a bracket ends a plain raw string: expect it in one with a delimiter,
    /// R"x(...)x".
    template <class Response>
    Response tell(Response response)
    {
        transcript.add(outcome(response));
        transcript.add("prints " + response.printResponse());
        return response;
    }

    /// The outcome of a response in one line, as `tell` writes it. Tests look at outcomes in no other way, so
    /// that each fault is compared with the command's description at the end of the run.
    static std::string outcome(const zyr_top_api::BaseResponse& response)
    {
        ToldFaults::get().add(response);
        char number[16];
        std::snprintf(number, sizeof number, "0x%X", static_cast<unsigned>(response.tiResult));
        return "result " + std::string(number) + " " + std::to_string(response.faultCode) + " \"" +
               response.faultString + "\"";
    }

    /// What a call says is missing, as the exception that it throws puts it; "nothing" if it throws none.
    template <class Call>
    static std::string missingIn(const Call& call)
    {
        try {
            call();
        } catch (const std::out_of_range& exception) {
            return exception.what();
        }
        return "nothing";
    }

    Transcript transcript;
    zyr_platform::VirtualTime time;
    /// What phase group 5 answers; each run stands in the transcript as "group 5 for channel <n>".
    std::uint32_t resultOfPhaseGroup5 = 0;

  private:
    static void resetFrame()
    {
        using zyr_top_api::ZyrApiHandler;
        ZyrApiHandler::m_cmds.clear();
        ZyrApiHandler::m_registerInImFunctionsCri.clear();
        ZyrApiHandler::m_registerInImFunctionsTi.clear();
        ZyrApiHandler::m_allCommandsDescData.clear();
        ZyrApiHandler::setTiEnabled(false);
    }

    zyr_platform::Registration m_sink =
        zyr_platform::TraceService::get().addSink(std::make_shared<TranscriptSink>(transcript));
    TranscriptSleeper m_sleeper{transcript, Util::DefaultSleepApi::get()};
    zyr_platform::Replacement<Util::DefaultSleepApi> m_sleeperInForce{m_sleeper};
    zyr_platform::StartUpState m_startUpState{Zyr::ZyrInitState::NormalOperation};
    zyr_platform::Registration m_phase =
        zyr_platform::ModuleManager::get().registerPhase(5, "test", [this](std::uint32_t channel) {
            transcript.add("group 5 for channel " + std::to_string(channel));
            return resultOfPhaseGroup5;
        });
    std::list<zyr_platform::Publication> m_publications;
};

} // namespace zyr_test
