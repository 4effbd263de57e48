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

    /// The functions that the frame's records name during a call, with the number of records in a row.
    template <class Call>
    static std::string functionsOfRecords(const Call& call)
    {
        const auto sink = std::make_shared<zyr_platform::MemorySink>();
        const zyr_platform::Registration registration = zyr_platform::TraceService::get().addSink(sink);
        setFrameLevels(6);
        call();
        setFrameLevels(3);
        std::string text;
        std::string function;
        int count = 0;
        const auto tell = [&] {
            if (count != 0) {
                text += (text.empty() ? "" : ", ") + function + " x " + std::to_string(count);
            }
        };
        for (const auto& record : sink->records()) {
            if (record.header.function != function) {
                tell();
                function = record.header.function;
                count = 0;
            }
            ++count;
        }
        tell();
        return text;
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

TEST_F(FrameTest, EveryRecordNamesTheFunctionWhoseStepItIs)
{
    EXPECT_EQ(functionsOfRecords([this] { call<OpenProbe>(); }), "executeCommand x 4");
    add<OpenProbe>("CRI.Probe");
    EXPECT_EQ(functionsOfRecords([this] { call<OpenProbe>(); }), "executeCommand x 5");
    EXPECT_EQ(functionsOfRecords([this] { call<GatedProbe>(); }), "executeCommand x 2");
    openTestGate();
    add<OpenProbe>("TI.Probe");
    EXPECT_EQ(functionsOfRecords([this] { call<GatedProbe>(); }), "executeCommand x 5");
    add<OpenProbe>("CI.GetFastEvents");
    EXPECT_EQ(functionsOfRecords([] { ciGetFastEvents({}); }), "executeCommand x 6");
}

TEST_F(FrameTest, RecordsOfTheRegistrationNameItsFunctions)
{
    EXPECT_EQ(functionsOfRecords(ZyrApiHandler::registerCriFunctionInIm), "registerCriFunctionInIm x 1");
    EXPECT_EQ(functionsOfRecords(ZyrApiHandler::registerTiFunctionInIm),
              "registerTiFunctionInIm x 1, setTiEnabled x 1");
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

zyr_test::Transcript* told = nullptr;

TEST_F(FrameTest, CriRegistrationRunsItsFunctionsInOrderBehindItsEntryAndOpensNothing)
{
    told = &transcript;
    ZyrApiHandler::m_registerInImFunctionsCri = {[] { told->add("first"); }, [] { told->add("second"); }};
    ZyrApiHandler::m_registerInImFunctionsTi = {[] { told->add("test command"); }};
    setTraceLevel("ZYR.ZyrTopApi", 6);
    ZyrApiHandler::registerCriFunctionInIm();
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
first
second
)");
    EXPECT_EQ(outcome(call<GatedProbe>()), R"(result 0x8003 4 "Error: Command not available")");
}

TEST_F(FrameTest, TiRegistrationRunsItsFunctionsInOrderBehindItsEntryAndThenOpensTheGate)
{
    told = &transcript;
    const auto note = [] {
        told->add(outcome(ZyrApiHandler::executeCommand(GatedProbe(), GatedProbe::Command{})));
    };
    ZyrApiHandler::m_registerInImFunctionsCri = {[] { told->add("radio command"); }};
    ZyrApiHandler::m_registerInImFunctionsTi = {[] { told->add("first"); }, note};
    setTraceLevel("ZYR.ZyrTopApi", 6);
    ZyrApiHandler::registerTiFunctionInIm();
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.ZyrTopApi:
first
6 ZYR.ZyrTopApi:
1 ZYR.ZyrTopApi: Error: Command TI.Probe not available
result 0x8003 4 "Error: Command not available"
6 ZYR.ZyrTopApi: tiEnabled=1
)");
    EXPECT_EQ(outcome(call<GatedProbe>()), R"(result 0x0 0 "")");
}

// Tries the gate whenever the frame traces.
class GateWatch : public zyr_platform::TraceSink
{
  public:
    void write(const zyr_platform::TraceRecord& record) override
    {
        const auto result = ZyrApiHandler::executeCommand(GatedProbe(), GatedProbe::Command{}).tiResult;
        seen += std::string(record.text) + (result == eTI_S_OK ? ": open\n" : ": closed\n");
    }

    std::string seen;
};

TEST_F(FrameTest, GateMovesBehindTheTraceOfItsMove)
{
    const auto watch = std::make_shared<GateWatch>();
    const zyr_platform::Registration registration = zyr_platform::TraceService::get().addSink(watch);
    setTraceLevel("ZYR.ZyrTopApi", 6);
    ZyrApiHandler::setTiEnabled(true);
    ZyrApiHandler::setTiEnabled(true);
    ZyrApiHandler::setTiEnabled(false);
    ZyrApiHandler::setTiEnabled(false);
    EXPECT_EQ(watch->seen,
              "tiEnabled=1: closed\ntiEnabled=1: open\ntiEnabled=0: open\ntiEnabled=0: closed\n");
}

// Before any code of this program has moved it.
const ETIResult kGateAtTheStart = ZyrApiHandler::executeCommand(GatedProbe(), GatedProbe::Command{}).tiResult;

TEST(GateTest, IsClosedFromTheStart)
{
    EXPECT_EQ(kGateAtTheStart, 0x8003U);
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
