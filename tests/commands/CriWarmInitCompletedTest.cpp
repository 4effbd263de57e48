#include "CommandTest.h"
#include "CriWarmInitCompletedImpl.h"
#include "NodeDoubles.h"
#include "StartUpState.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace zyr_top_api
{
namespace
{

using State = Zyr::ZyrInitState;
using zyr_platform::StartUpState;

// Writes the node's state behind each trace line, so that the transcript shows when it changes.
class StateSink : public zyr_platform::TraceSink
{
  public:
    explicit StateSink(zyr_test::Transcript& transcript) : m_transcript(transcript) {}

    void write(const zyr_platform::TraceRecord&) override { m_transcript.add("in " + Zyr::getInitState()); }

  private:
    zyr_test::Transcript& m_transcript;
};

// The live object with a marker file of the test's own.
class Impl : public CriWarmInitCompletedImpl
{
  public:
    using CriWarmInitCompletedImpl::m_markerFile;
};

class CriWarmInitCompletedTest : public zyr_test::CommandTest
{
  protected:
    CriWarmInitCompletedTest()
    {
        publishNode(node);
        transcript.clear();
        impl.m_markerFile = markerFile.c_str();
    }

    void putMarkerFile() const { std::ofstream(markerFile) << "anything"; }

    TemporaryFolder folder;
    const std::string markerFile = folder.path("marker");
    zyr_test::NodeDoubles node{transcript};
    Impl impl;
    zyr_platform::Registration stateSink =
        zyr_platform::TraceService::get().addSink(std::make_shared<StateSink>(transcript));
};

TEST_F(CriWarmInitCompletedTest, MarkerFileHasItsFixedPath)
{
    EXPECT_STREQ(Impl().m_markerFile, "/mnt/config/usr/dontAllowKoraInitCompletedCall");
}

TEST_F(CriWarmInitCompletedTest, NormalOperationIsWarnedOfWithoutAText)
{
    enrol<CriWarmInitCompletedImpl>();
    tell(criWarmInitCompleted({}));
    EXPECT_EQ(transcript.text(), R"x(
2 ZYR.TI.CriWarmInitCompleted: ZYR is already in normal operation.
in NormalOperation
result 0x1000 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriWarmInitCompletedTest, ColdRestartEndsWithoutAnyCollaboratorAndIsToldBefore)
{
    const StartUpState state(State::ColdRestart);
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute({}));
    EXPECT_EQ(StartUpState::current(), State::NormalOperation);
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriWarmInitCompleted: Cold restart completed, resuming normal operation
in ColdRestart
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriWarmInitCompletedTest, MarkerFileDoesNotHinderTheEndOfAColdRestart)
{
    const StartUpState state(State::ColdRestart);
    putMarkerFile();
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    impl.execute({});
    EXPECT_EQ(StartUpState::current(), State::NormalOperation);
}

TEST_F(CriWarmInitCompletedTest, MarkerFileDoesNotSwallowTheWarning)
{
    putMarkerFile();
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(outcome(impl.execute({})), "result 0x1000 0 \"\"");
}

TEST_F(CriWarmInitCompletedTest, WarmRestartSynchronisesChannelByChannelAndIsToldBehind)
{
    const StartUpState state(State::WarmRestart);
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute({}));
    EXPECT_EQ(StartUpState::current(), State::NormalOperation);
    EXPECT_EQ(transcript.text(), R"x(
IDspChannelApi_1.isConfigured()
ISystemPowerController_1.syncAfterWarmRestart()
IAcmHandler_1.syncAfterWarmRestart()
IDspChannelApi_2.isConfigured()
ISystemPowerController_2.syncAfterWarmRestart()
IAcmHandler_2.syncAfterWarmRestart()
3 ZYR.TI.CriWarmInitCompleted: Warm restart completed, resuming normal operation
in NormalOperation
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriWarmInitCompletedTest, RequestAndEntryAreTraced)
{
    const StartUpState state(State::ColdRestart);
    stateSink = {};
    enrol<CriWarmInitCompletedImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriWarmInitCompleted", 7);
    criWarmInitCompleted({});
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.WarmInitCompleted Request:  Received\n
6 ZYR.TI.CriWarmInitCompleted:
3 ZYR.TI.CriWarmInitCompleted: Cold restart completed, resuming normal operation
5 ZYR.COMM: CRI.WarmInitCompleted Response: StandardResponse Sent\n\n----------------------------------------------------\n
)x");
}

TEST_F(CriWarmInitCompletedTest, SecondCallIsWarnedAndReachesNoCollaborator)
{
    const StartUpState state(State::WarmRestart);
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    impl.execute({});
    transcript.clear();
    tell(impl.execute({}));
    EXPECT_EQ(transcript.text(), R"x(
2 ZYR.TI.CriWarmInitCompleted: ZYR is already in normal operation.
in NormalOperation
result 0x1000 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriWarmInitCompletedTest, MarkerFileSwallowsTheEndOfAWarmRestart)
{
    const StartUpState state(State::WarmRestart);
    putMarkerFile();
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute({}));
    EXPECT_EQ(StartUpState::current(), State::WarmRestart);
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriWarmInitCompleted: WarmInitCompleted from KORA blocked due to XML-RPC sub system test
in WarmRestart
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriWarmInitCompletedTest, EmptyMarkerFileSwallowsToo)
{
    const StartUpState state(State::WarmRestart);
    std::ofstream{markerFile}.close();
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    impl.execute({});
    EXPECT_EQ(StartUpState::current(), State::WarmRestart);
}

TEST_F(CriWarmInitCompletedTest, WarmRestartEndsOnceTheMarkerFileIsGone)
{
    const StartUpState state(State::WarmRestart);
    putMarkerFile();
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    impl.execute({});
    std::filesystem::remove(markerFile);
    impl.execute({});
    EXPECT_EQ(StartUpState::current(), State::NormalOperation);
}

// Root may read any file, but nobody can open a socket's.
TEST_F(CriWarmInitCompletedTest, MarkerFileThatIsThereButCannotBeOpenedCountsAsNone)
{
    const StartUpState state(State::WarmRestart);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    ASSERT_LT(markerFile.size(), sizeof address.sun_path);
    std::strcpy(address.sun_path, markerFile.c_str());
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::access(markerFile.c_str(), R_OK), 0);

    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    tell(impl.execute({}));
    EXPECT_EQ(StartUpState::current(), State::NormalOperation);
    EXPECT_EQ(transcript.text(), R"x(
IDspChannelApi_1.isConfigured()
ISystemPowerController_1.syncAfterWarmRestart()
IAcmHandler_1.syncAfterWarmRestart()
3 ZYR.TI.CriWarmInitCompleted: Warm restart completed, resuming normal operation
in NormalOperation
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
    ::close(socket);
}

TEST_F(CriWarmInitCompletedTest, MarkerFileIsClosedAgain)
{
    const StartUpState state(State::WarmRestart);
    putMarkerFile();
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    const auto openFiles = [] {
        const std::filesystem::directory_iterator files("/proc/self/fd");
        return std::distance(begin(files), end(files));
    };
    const auto before = openFiles();
    impl.execute({});
    EXPECT_EQ(openFiles(), before);
}

TEST_F(CriWarmInitCompletedTest, ChannelThatIsNotConfiguredIsPassedOver)
{
    for (const bool isFirstConfigured : {true, false}) {
        const StartUpState state(State::WarmRestart);
        Impl live;
        live.m_markerFile = markerFile.c_str();
        ASSERT_EQ(live.initialize(2), eTI_S_OK);
        node.channel1.dspApi.channelApi.onIsConfigured = isFirstConfigured;
        node.channel2.dspApi.channelApi.onIsConfigured = !isFirstConfigured;
        transcript.clear();
        live.execute({});
        EXPECT_EQ(StartUpState::current(), State::NormalOperation);
        EXPECT_EQ(transcript.text(), isFirstConfigured ? R"x(
IDspChannelApi_1.isConfigured()
ISystemPowerController_1.syncAfterWarmRestart()
IAcmHandler_1.syncAfterWarmRestart()
IDspChannelApi_2.isConfigured()
3 ZYR.TI.CriWarmInitCompleted: Warm restart completed, resuming normal operation
in NormalOperation
)x"
                                                       : R"x(
IDspChannelApi_1.isConfigured()
IDspChannelApi_2.isConfigured()
ISystemPowerController_2.syncAfterWarmRestart()
IAcmHandler_2.syncAfterWarmRestart()
3 ZYR.TI.CriWarmInitCompleted: Warm restart completed, resuming normal operation
in NormalOperation
)x");
    }
}

TEST_F(CriWarmInitCompletedTest, NodeWithOneChannelSynchronisesThatAlone)
{
    const StartUpState state(State::WarmRestart);
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    impl.execute({});
    EXPECT_EQ(transcript.text(), R"x(
IDspChannelApi_1.isConfigured()
ISystemPowerController_1.syncAfterWarmRestart()
IAcmHandler_1.syncAfterWarmRestart()
3 ZYR.TI.CriWarmInitCompleted: Warm restart completed, resuming normal operation
in NormalOperation
)x");
}

TEST_F(CriWarmInitCompletedTest, FailuresOfTheSynchronisationAreDropped)
{
    const StartUpState state(State::WarmRestart);
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.systemPowerController.onSyncAfterWarmRestart = 0x8000;
    node.channel1.acmHandler.defaultsInForce = true;
    node.channel2.systemPowerController.onSyncAfterWarmRestart = 0xFFFFFFFFU;
    node.channel2.acmHandler.onSyncAfterWarmRestart = 0x8000;
    tell(impl.execute({}));
    EXPECT_EQ(StartUpState::current(), State::NormalOperation);
    EXPECT_EQ(transcript.text(), R"x(
IDspChannelApi_1.isConfigured()
ISystemPowerController_1.syncAfterWarmRestart()
IAcmHandler_1.syncAfterWarmRestart()
IDspChannelApi_2.isConfigured()
ISystemPowerController_2.syncAfterWarmRestart()
IAcmHandler_2.syncAfterWarmRestart()
3 ZYR.TI.CriWarmInitCompleted: Warm restart completed, resuming normal operation
in NormalOperation
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriWarmInitCompletedTest, StateWithoutANameTakesTheWarmPath)
{
    const StartUpState state(static_cast<State>(7));
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    impl.execute({});
    EXPECT_EQ(StartUpState::current(), State::NormalOperation);
    EXPECT_EQ(transcript.lines().front(), "IDspChannelApi_1.isConfigured()");
}

TEST_F(CriWarmInitCompletedTest, ObjectThatWasNotInitialisedEndsTheWarmRestartWithoutAChannel)
{
    const StartUpState state(State::WarmRestart);
    tell(impl.execute({}));
    EXPECT_EQ(StartUpState::current(), State::NormalOperation);
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriWarmInitCompleted: Warm restart completed, resuming normal operation
in NormalOperation
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriWarmInitCompletedTest, MissingPartOfTheSecondDspThrowsBehindTheFirstChannelAndLeavesTheState)
{
    const StartUpState state(State::WarmRestart);
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.dspApi.onGetDspChannelApi = nullptr;
    EXPECT_EQ(missingIn([&] { impl.execute({}); }), "IDspChannelApi of radio channel 2");
    EXPECT_EQ(StartUpState::current(), State::WarmRestart);
    EXPECT_EQ(transcript.text(), R"x(
IDspChannelApi_1.isConfigured()
ISystemPowerController_1.syncAfterWarmRestart()
IAcmHandler_1.syncAfterWarmRestart()
)x");
}

// initialize

class CriWarmInitCompletedInitialiseTest : public CriWarmInitCompletedTest
{
  protected:
    CriWarmInitCompletedInitialiseTest() { stateSink = {}; }
};

TEST_F(CriWarmInitCompletedInitialiseTest, CountIsToldAtLevel6AndAnyOtherCountRefused)
{
    setTraceLevel("ZYR.TI.CriWarmInitCompleted", 7);
    EXPECT_EQ(impl.initialize(0), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriWarmInitCompleted: numberOfChannels=0
1 ZYR.TI.CriWarmInitCompleted: numberOfChannels is out of bounds
6 ZYR.TI.CriWarmInitCompleted: numberOfChannels=3
1 ZYR.TI.CriWarmInitCompleted: numberOfChannels is out of bounds
6 ZYR.TI.CriWarmInitCompleted: numberOfChannels=2
)x");
}

TEST_F(CriWarmInitCompletedInitialiseTest, SecondCallIsRefusedBehindTheRange)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    EXPECT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(impl.initialize(3), 0x8000);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriWarmInitCompleted: CriWarmInitCompletedImpl already initialized
1 ZYR.TI.CriWarmInitCompleted: numberOfChannels is out of bounds
)x");
}

TEST_F(CriWarmInitCompletedInitialiseTest, MissingInterfacesAreToldInOrderAndTheCallCanBeRepeated)
{
    for (const char* name : {"IAcmHandler_2", "ISystemPowerController_2", "IDspApi_2", "IAcmHandler_1",
                             "ISystemPowerController_1", "IDspApi_1"}) {
        withdraw(name);
        EXPECT_EQ(impl.initialize(2), 0x8000) << name;
    }
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriWarmInitCompleted:  Error getting interface to IAcmHandler_2
1 ZYR.TI.CriWarmInitCompleted:  Error getting interface to ISystemPowerController_2
1 ZYR.TI.CriWarmInitCompleted: Could not find the DSP API interface
1 ZYR.TI.CriWarmInitCompleted:  Error getting interface to IAcmHandler_1
1 ZYR.TI.CriWarmInitCompleted:  Error getting interface to ISystemPowerController_1
1 ZYR.TI.CriWarmInitCompleted: Could not find the DSP API interface
)x");
}

TEST_F(CriWarmInitCompletedInitialiseTest, FailedCallStoresNoCount)
{
    withdraw("IAcmHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    const StartUpState state(State::WarmRestart);
    impl.execute({});
    publish(node.channel2.acmHandler);
    EXPECT_EQ(impl.initialize(2), 0);
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriWarmInitCompleted:  Error getting interface to IAcmHandler_2
3 ZYR.TI.CriWarmInitCompleted: Warm restart completed, resuming normal operation
)x");
}

} // namespace
} // namespace zyr_top_api
