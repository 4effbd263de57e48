#include "AlarmHandlerTopApiDouble.h"
#include "CiGetEventsImpl.h"
#include "CiGetFastEventsImpl.h"
#include "CiReleaseFastEventsRequestsImpl.h"
#include "CommandTest.h"
#include "MemorySink.h"
#include "Probe.h"
#include "ZyrApiHandler.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace zyr_top_api
{
namespace
{

using zyr_test::GatedProbe;
using zyr_test::OpenProbe;

class FrameTest : public zyr_test::CommandTest
{
  protected:
    template <class XImpl>
    std::shared_ptr<CmdWrapper<XImpl>> add(const std::string& name)
    {
        auto wrapper = std::make_shared<CmdWrapper<XImpl>>(name);
        ZyrApiHandler::m_cmds.push_back(wrapper);
        return wrapper;
    }

    template <class XImpl>
    typename XImpl::Response call(int number = 0)
    {
        return ZyrApiHandler::executeCommand(XImpl(), typename XImpl::Command{number});
    }

    static void setFrameLevels(TylTraceLevel level)
    {
        setTraceLevel("ZYR.ZyrTopApi", level);
        setTraceLevel("ZYR.COMM", level);
    }

    /// Has each execution write a line.
    void makeTelling(OpenProbe& probe, const std::string& name)
    {
        probe.behaviour = [this, name](const OpenProbe::Command& command) {
            transcript.add(name + " executes " + std::to_string(command.number));
            return OpenProbe::answer(command);
        };
    }
};

// The common path.

TEST_F(FrameTest, RegisteredObjectExecutesAndTheDefaultLevelsAreQuiet)
{
    makeTelling(add<OpenProbe>("CRI.Probe")->impl(), "probe");
    EXPECT_EQ(tell(call<OpenProbe>(7)).number, 70);
    EXPECT_EQ(transcript.text(), R"(
probe executes 7
result 0x0 0 ""
prints number=70
)");
}

TEST_F(FrameTest, Level4IsStillQuiet)
{
    makeTelling(add<OpenProbe>("CRI.Probe")->impl(), "probe");
    setFrameLevels(4);
    call<OpenProbe>(7);
    EXPECT_EQ(transcript.text(), R"(
probe executes 7
)");
}

TEST_F(FrameTest, Level5ShowsRequestAndResponseAround)
{
    makeTelling(add<OpenProbe>("CRI.Probe")->impl(), "probe");
    setFrameLevels(5);
    call<OpenProbe>(7);
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CRI.Probe Request: Number: 7\n
probe executes 7
5 ZYR.COMM: CRI.Probe Response: number=70\n----------------------------------------------------\n
)");
}

TEST_F(FrameTest, Level6ShowsEntryRunningAndReturnInOrder)
{
    makeTelling(add<OpenProbe>("CRI.Probe")->impl(), "probe");
    setFrameLevels(6);
    call<OpenProbe>(7);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriProbe::Command
5 ZYR.COMM: CRI.Probe Request: Number: 7\n
probe executes 7
6 ZYR.ZyrTopApi: Return CriProbe::Response
5 ZYR.COMM: CRI.Probe Response: number=70\n----------------------------------------------------\n
)");
}

TEST_F(FrameTest, EntryNamesTheFunction)
{
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const zyr_platform::Registration registration = zyr_platform::TraceService::get().addSink(sink);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    call<OpenProbe>();
    const auto records = sink->records();
    ASSERT_GE(records.size(), 1U);
    EXPECT_STREQ(records[0].header.function, "executeCommand");
    EXPECT_EQ(records[0].text, "");
}

TEST_F(FrameTest, ObjectOfTheCallerIsATagThatNeverRuns)
{
    const auto wrapper = add<OpenProbe>("CRI.Probe");
    OpenProbe tag;
    ZyrApiHandler::executeCommand(tag, OpenProbe::Command{1});
    EXPECT_EQ(tag.executions, 0);
    EXPECT_EQ(wrapper->impl().executions, 1);
}

TEST_F(FrameTest, CommandsResultAndFaultComeThroughUntouched)
{
    add<OpenProbe>("CRI.Probe")->impl().behaviour = [](const OpenProbe::Command&) {
        OpenProbe::Response response;
        setResult(response, eTI_W_DUPLICATE_IGNORED, "dropped");
        response.faultString = "own text";
        return response;
    };
    EXPECT_EQ(outcome(call<OpenProbe>()), R"(result 0x1001 0 "own text")");
}

TEST_F(FrameTest, EntryStaysAliveDuringTheCallThoughTheTableLetsItGo)
{
    std::weak_ptr<CmdWrapperBase> watched = add<OpenProbe>("CRI.Probe");
    static_cast<CmdWrapper<OpenProbe>*>(watched.lock().get())->impl().behaviour =
        [watched](const OpenProbe::Command& command) {
            ZyrApiHandler::m_cmds.clear();
            EXPECT_FALSE(watched.expired());
            return OpenProbe::answer(command);
        };
    EXPECT_EQ(call<OpenProbe>(1).number, 10);
    EXPECT_TRUE(watched.expired());
}

// The table.

TEST_F(FrameTest, EmptyTableGivesTheDefaultResponseWithReturnAndResponseLines)
{
    setFrameLevels(7);
    tell(call<OpenProbe>(7));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriProbe::Command
6 ZYR.ZyrTopApi: Return CriProbe::Response
5 ZYR.COMM: CRI.Probe Response: number=-1\n----------------------------------------------------\n
result 0x0 0 ""
prints number=-1
)");
}

TEST_F(FrameTest, CommandOfTheLibraryWithoutAnEntrySucceedsSilently)
{
    setFrameLevels(5);
    tell(ciReleaseFastEventsRequests({}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CI.ReleaseFastEventsRequests Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)");
}

TEST_F(FrameTest, NameCountsWholeAndWithItsCase)
{
    for (const char* const name : {"CRI.Prob", "CRI.Probes", "CRI.probe", "cri.Probe", "CRI.Probf", ""}) {
        add<OpenProbe>(name)->impl().behaviour = [name](const OpenProbe::Command& command) {
            ADD_FAILURE() << "\"" << name << "\" was run";
            return OpenProbe::answer(command);
        };
    }
    EXPECT_EQ(call<OpenProbe>(1).number, -1);
    add<OpenProbe>("CRI.Probe");
    EXPECT_EQ(call<OpenProbe>(1).number, 10);
}

TEST_F(FrameTest, NulByteInANameCounts)
{
    add<OpenProbe>(std::string("CRI.Probe\0", 10));
    EXPECT_EQ(call<OpenProbe>(1).number, -1);
}

TEST_F(FrameTest, FirstEntryWithTheNameWins)
{
    const auto other = add<GatedProbe>("CRI.Other");
    const auto first = add<OpenProbe>("CRI.Probe");
    const auto second = add<OpenProbe>("CRI.Probe");
    call<OpenProbe>();
    EXPECT_EQ(other->impl().executions, 0);
    EXPECT_EQ(first->impl().executions, 1);
    EXPECT_EQ(second->impl().executions, 0);
}

TEST_F(FrameTest, ChangeOfTheTableBetweenTwoCallsCounts)
{
    const auto first = add<OpenProbe>("CRI.Probe");
    call<OpenProbe>();
    ZyrApiHandler::m_cmds.clear();
    const auto second = add<OpenProbe>("CRI.Probe");
    call<OpenProbe>();
    EXPECT_EQ(first->impl().executions, 1);
    EXPECT_EQ(second->impl().executions, 1);
}

TEST_F(FrameTest, EntryOfAnotherTypeFailsAndTheScanGoesNoFurther)
{
    const auto wrong = add<GatedProbe>("CRI.Probe");
    const auto right = add<OpenProbe>("CRI.Probe");
    setFrameLevels(7);
    tell(call<OpenProbe>(7));
    EXPECT_EQ(wrong->impl().executions, 0);
    EXPECT_EQ(right->impl().executions, 0);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriProbe::Command
1 ZYR.ZyrTopApi: Error: Cast of CmdWrapper failed for CRI.Probe
6 ZYR.ZyrTopApi: Return CriProbe::Response
5 ZYR.COMM: CRI.Probe Response: number=-1\n----------------------------------------------------\n
result 0x8000 4 "Error: Cast of CmdWrapper failed"
prints number=-1
)");
}

TEST_F(FrameTest, EntryWithoutAnyImplementationFailsToo)
{
    ZyrApiHandler::m_cmds.push_back(std::make_shared<CmdWrapperBase>("CRI.Probe"));
    tell(call<OpenProbe>(7));
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.ZyrTopApi: Error: Cast of CmdWrapper failed for CRI.Probe
result 0x8000 4 "Error: Cast of CmdWrapper failed"
prints number=-1
)");
}

class DerivedWrapper : public CmdWrapper<OpenProbe>
{
  public:
    using CmdWrapper<OpenProbe>::CmdWrapper;
};

TEST_F(FrameTest, EntryOfADerivedTypeIsTheCommandsOwn)
{
    ZyrApiHandler::m_cmds.push_back(std::make_shared<DerivedWrapper>("CRI.Probe"));
    EXPECT_EQ(call<OpenProbe>(1).number, 10);
}

// The gate.

TEST_F(FrameTest, ClosedGateRefusesWithTheOneLineAtLevel1)
{
    const auto wrapper = add<GatedProbe>("TI.Probe");
    setFrameLevels(5);
    tell(call<GatedProbe>(7));
    EXPECT_EQ(wrapper->impl().executions, 0);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.ZyrTopApi: Error: Command TI.Probe not available
result 0x8003 4 "Error: Command not available"
prints number=-1
)");
}

TEST_F(FrameTest, ClosedGateWritesNeitherRunningNorReturnNorResponse)
{
    add<GatedProbe>("TI.Probe");
    setFrameLevels(7);
    call<GatedProbe>(7);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
1 ZYR.ZyrTopApi: Error: Command TI.Probe not available
)");
}

TEST_F(FrameTest, ClosedGateRefusesBeforeTheLookup)
{
    EXPECT_EQ(outcome(call<GatedProbe>()), R"(result 0x8003 4 "Error: Command not available")");
    add<OpenProbe>("TI.Probe");
    EXPECT_EQ(outcome(call<GatedProbe>()), R"(result 0x8003 4 "Error: Command not available")");
}

TEST_F(FrameTest, OpenGateLetsAGatedCommandThroughLikeAnyOther)
{
    add<GatedProbe>("TI.Probe");
    openTestGate();
    setFrameLevels(6);
    transcript.clear();
    EXPECT_EQ(call<GatedProbe>(7).number, 70);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running TiProbe::Command
5 ZYR.COMM: TI.Probe Request: Number: 7\n
6 ZYR.ZyrTopApi: Return TiProbe::Response
5 ZYR.COMM: TI.Probe Response: number=70\n----------------------------------------------------\n
)");
}

TEST_F(FrameTest, OpenGateWithoutAnEntrySucceedsSilently)
{
    openTestGate();
    EXPECT_EQ(outcome(call<GatedProbe>()), R"(result 0x0 0 "")");
}

TEST_F(FrameTest, GateThatClosesAgainRefusesTheNextCall)
{
    add<GatedProbe>("TI.Probe");
    ZyrApiHandler::registerTiFunctionInIm();
    EXPECT_EQ(outcome(call<GatedProbe>()), R"(result 0x0 0 "")");
    ZyrApiHandler::setTiEnabled(false);
    EXPECT_EQ(outcome(call<GatedProbe>()), R"(result 0x8003 4 "Error: Command not available")");
}

TEST_F(FrameTest, GateThatClosesDuringACallDisturbsItNot)
{
    add<GatedProbe>("TI.Probe")->impl().behaviour = [](const GatedProbe::Command& command) {
        ZyrApiHandler::setTiEnabled(false);
        return GatedProbe::answer(command);
    };
    openTestGate();
    EXPECT_EQ(call<GatedProbe>(7).number, 70);
}

TEST_F(FrameTest, ClosedGateConcernsNoOtherCommand)
{
    add<OpenProbe>("CRI.Probe");
    EXPECT_EQ(call<OpenProbe>(7).number, 70);
}

// The registration functions.

std::vector<std::string>* ran = nullptr;

TEST_F(FrameTest, CriRegistrationRunsItsFunctionsInOrderAndOpensNothing)
{
    std::vector<std::string> order;
    ran = &order;
    ZyrApiHandler::m_registerInImFunctionsCri = {[] { ran->push_back("first"); },
                                                 [] { ran->push_back("second"); }};
    ZyrApiHandler::m_registerInImFunctionsTi = {[] { ran->push_back("test command"); }};
    setTraceLevel("ZYR.ZyrTopApi", 6);
    ZyrApiHandler::registerCriFunctionInIm();
    EXPECT_EQ(order, (std::vector<std::string>{"first", "second"}));
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
)");
    EXPECT_EQ(outcome(call<GatedProbe>()), R"(result 0x8003 4 "Error: Command not available")");
}

TEST_F(FrameTest, TiRegistrationRunsItsFunctionsInOrderAndThenOpensTheGate)
{
    std::vector<std::string> order;
    ran = &order;
    const auto note = [] {
        ran->push_back(outcome(ZyrApiHandler::executeCommand(GatedProbe(), GatedProbe::Command{})));
    };
    ZyrApiHandler::m_registerInImFunctionsCri = {[] { ran->push_back("radio command"); }};
    ZyrApiHandler::m_registerInImFunctionsTi = {[] { ran->push_back("first"); }, note};
    ZyrApiHandler::registerTiFunctionInIm();
    EXPECT_EQ(order,
              (std::vector<std::string>{"first", R"(result 0x8003 4 "Error: Command not available")"}));
    EXPECT_EQ(outcome(call<GatedProbe>()), R"(result 0x0 0 "")");
}

TEST_F(FrameTest, TiRegistrationTracesItsEntryAndTheGates)
{
    setTraceLevel("ZYR.ZyrTopApi", 6);
    ZyrApiHandler::registerTiFunctionInIm();
    ZyrApiHandler::setTiEnabled(false);
    ZyrApiHandler::setTiEnabled(true);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: tiEnabled=1
6 ZYR.ZyrTopApi: tiEnabled=0
6 ZYR.ZyrTopApi: tiEnabled=1
)");
}

TEST_F(FrameTest, RegistrationIsQuietBelowLevel6)
{
    setTraceLevel("ZYR.ZyrTopApi", 5);
    ZyrApiHandler::registerCriFunctionInIm();
    ZyrApiHandler::registerTiFunctionInIm();
    EXPECT_EQ(transcript.text(), "\n");
}

// Exceptions.

TEST_F(FrameTest, ExceptionReachesTheCallerAndTheNextCallRuns)
{
    OpenProbe& probe = add<OpenProbe>("CRI.Probe")->impl();
    probe.behaviour = [](const OpenProbe::Command&) -> OpenProbe::Response {
        throw std::runtime_error("out of the command");
    };
    setFrameLevels(6);
    try {
        call<OpenProbe>(7);
        ADD_FAILURE() << "no exception";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "out of the command");
    }
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
6 ZYR.ZyrTopApi: Running CriProbe::Command
5 ZYR.COMM: CRI.Probe Request: Number: 7\n
)");
    probe.behaviour = nullptr;
    EXPECT_EQ(call<OpenProbe>(7).number, 70);
}

// "CI.GetFastEvents".

class FastEventsFrameTest : public FrameTest
{
  protected:
    FastEventsFrameTest() { publish(alarmHandler); }

    zyr_test::AlarmHandlerTopApiDouble alarmHandler{transcript, "IAlarmHandlerTopApi"};
};

TEST_F(FastEventsFrameTest, RequestIsTracedBeforeRunning)
{
    enrol<CiGetFastEventsImpl>();
    setFrameLevels(7);
    ciGetFastEvents({{{"a", true, 1, 2}}});
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
5 ZYR.COMM: CI.GetFastEvents Request: Events: eventName: a, isActive: true, numberOfTimesEventHasBeenActive: 1, radioChannelId: 2\n\n
6 ZYR.ZyrTopApi: Running CiGetFastEvents::Command
IAlarmHandlerTopApi.getFastAlarms([{eventName: a, isActive: true, numberOfTimesEventHasBeenActive: 1, radioChannelId: 2\n}])
6 ZYR.ZyrTopApi: Return CiGetFastEvents::Response
5 ZYR.COMM: CI.GetFastEvents Response: Events:\neventName: a, isActive: true, numberOfTimesEventHasBeenActive: 1, radioChannelId: 2\n\n----------------------------------------------------\n
)");
}

TEST_F(FastEventsFrameTest, RequestIsTracedAlsoWithoutAnEntry)
{
    setFrameLevels(5);
    tell(ciGetFastEvents({}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CI.GetFastEvents Request: Events:\x20
5 ZYR.COMM: CI.GetFastEvents Response: Events:\n\n----------------------------------------------------\n
result 0x0 0 ""
prints Events:\n
)");
}

TEST_F(FastEventsFrameTest, EntryOfAnotherTypeFailsBehindTheRequest)
{
    add<OpenProbe>("CI.GetFastEvents");
    setFrameLevels(5);
    tell(ciGetFastEvents({}));
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.COMM: CI.GetFastEvents Request: Events:\x20
1 ZYR.ZyrTopApi: Error: Cast of CmdWrapper failed for CI.GetFastEvents
5 ZYR.COMM: CI.GetFastEvents Response: Events:\n\n----------------------------------------------------\n
result 0x8000 4 "Error: Cast of CmdWrapper failed"
prints Events:\n
)");
}

TEST_F(FastEventsFrameTest, RunsWhileAnotherCommandHoldsTheMutex)
{
    enrol<CiGetFastEventsImpl>();
    // On the same thread: a mutex that were taken once more would hang here.
    add<OpenProbe>("CRI.Probe")->impl().behaviour = [this](const OpenProbe::Command& command) {
        tell(ciGetFastEvents({}));
        return OpenProbe::answer(command);
    };
    EXPECT_EQ(call<OpenProbe>(7).number, 70);
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getFastAlarms([])
result 0x0 0 ""
prints Events:\n
)");
}

TEST_F(FastEventsFrameTest, OthersRunWhileItBlocks)
{
    enrol<CiGetFastEventsImpl>();
    enrol<CiGetEventsImpl>();
    enrol<CiReleaseFastEventsRequestsImpl>();
    alarmHandler.onGetFastAlarms.doInstead([this](std::vector<AlarmEvent>&) {
        tell(ciGetEvents({}));
        tell(ciReleaseFastEventsRequests({}));
        return 0x8015U;
    });
    tell(ciGetFastEvents({}));
    EXPECT_EQ(transcript.text(), R"(
IAlarmHandlerTopApi.getFastAlarms([])
IAlarmHandlerTopApi.getAlarms()
result 0x0 0 ""
prints Sent\n
IAlarmHandlerTopApi.releaseFastAlarmRequests()
result 0x0 0 ""
prints StandardResponse Sent\n
2 ZYR.TI.CiGetFastEvents: CI.GetFastEvents has been terminated
result 0x8000 4 "CI.GetFastEvents has been terminated"
prints Events:\n
)");
}

TEST_F(FastEventsFrameTest, RunsInsideItself)
{
    enrol<CiGetFastEventsImpl>();
    int depth = 0;
    alarmHandler.onGetFastAlarms.doInstead([&](std::vector<AlarmEvent>& alarms) {
        if (++depth == 1) {
            ciGetFastEvents({{{"inner", true, 1, 1}}});
        }
        alarms.push_back({"at depth", true, depth, 1});
        return 0U;
    });
    EXPECT_EQ(ciGetFastEvents({{{"outer", true, 1, 1}}}).events.size(), 2U);
    EXPECT_EQ(depth, 2);
}

TEST_F(FastEventsFrameTest, ExceptionReachesTheCallerAndTheNextCallRuns)
{
    enrol<CiGetFastEventsImpl>();
    alarmHandler.onGetFastAlarms.doInstead(
        [](std::vector<AlarmEvent>&) -> ResultCode { throw std::runtime_error("handler"); });
    EXPECT_THROW(ciGetFastEvents({}), std::runtime_error);
    alarmHandler.onGetFastAlarms = 0;
    EXPECT_EQ(outcome(ciGetFastEvents({})), R"(result 0x0 0 "")");
}

} // namespace
} // namespace zyr_top_api
