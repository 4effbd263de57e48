#include "Initialise.h"

#include "AcmHandlerDouble.h"
#include "CommandTest.h"
#include "Drivers.h"
#include "DspApiDouble.h"
#include "MemorySink.h"
#include "RecoveryControllerDouble.h"
#include "RouteUpdaterDouble.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zyr_top_api
{
namespace
{

using Guard = SecondCallRule::Guard;
using nord::zyr::services::recovery::RecoveryController;

constinit TylTrace initialiseTrace{"ZYR.TEST.Initialise", 3, TylTraceHdrOption_Default};

/// Notes in a transcript that a collaborator was found. Plain functions have no other way to it.
zyr_test::Transcript* foundTranscript = nullptr;

void noteFound(const std::string& name, std::uint32_t channel, void*)
{
    foundTranscript->add("found " + name + " for " + std::to_string(channel));
}

Collaborator noted(Collaborator collaborator)
{
    collaborator.whenFound = &noteFound;
    return collaborator;
}

/// What a command keeps and how it is initialised, without the command.
struct CommandLike
{
    InitialiseRules rules = family::kPlain;
    std::uint32_t numberOfChannels = 0;
    PerChannel<IAcmHandler> acmHandler;
    PerChannel<IDspApi> dspApi;
    NodeWide<IRouteUpdater> routeUpdater;
    NodeWide<RecoveryController> recoveryController;

    ETIResult initialize(unsigned channels, std::initializer_list<Collaborator> collaborators)
    {
        return initialise(initialiseTrace, rules, channels, numberOfChannels, collaborators);
    }
    ETIResult initialize(unsigned channels)
    {
        return initialize(channels, {perChannel("IAcmHandler", acmHandler)});
    }
};

class InitialiseTest : public zyr_test::CommandTest
{
  protected:
    InitialiseTest()
    {
        publish(acmHandler1);
        publish(acmHandler2);
        publish(dspApi1);
        publish(dspApi2);
        publish(routeUpdater);
        publish(recoveryController);
        foundTranscript = &transcript;
        transcript.clear();
    }
    ~InitialiseTest() override { foundTranscript = nullptr; }

    zyr_test::AcmHandlerDouble acmHandler1{transcript, "IAcmHandler_1"};
    zyr_test::AcmHandlerDouble acmHandler2{transcript, "IAcmHandler_2"};
    zyr_test::DspApiDouble dspApi1{transcript, "IDspApi_1"};
    zyr_test::DspApiDouble dspApi2{transcript, "IDspApi_2"};
    zyr_test::RouteUpdaterDouble routeUpdater{transcript, "IRouteUpdater"};
    zyr_test::RecoveryControllerDouble recoveryController{transcript, "RecoveryController"};
    CommandLike command;
};

// The range of the number of channels.

TEST_F(InitialiseTest, PlainFamilyTakesTheHandlersOfAllChannels)
{
    EXPECT_EQ(command.initialize(2), 0U);
    EXPECT_EQ(command.numberOfChannels, 2U);
    EXPECT_EQ(command.acmHandler.find(1), &acmHandler1);
    EXPECT_EQ(command.acmHandler.find(2), &acmHandler2);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(InitialiseTest, OneChannelLeavesTheSecondSlotEmpty)
{
    EXPECT_EQ(command.initialize(1), 0U);
    EXPECT_EQ(command.numberOfChannels, 1U);
    EXPECT_EQ(command.acmHandler.find(1), &acmHandler1);
    EXPECT_EQ(command.acmHandler.find(2), nullptr);
}

TEST_F(InitialiseTest, OtherNumbersAreRefusedAndNothingIsStored)
{
    EXPECT_EQ(command.initialize(0), 0xA100U);
    EXPECT_EQ(command.initialize(3), 0xA100U);
    EXPECT_EQ(command.initialize(4294967295U), 0xA100U);
    EXPECT_EQ(command.numberOfChannels, 0U);
    EXPECT_EQ(command.acmHandler.find(1), nullptr);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: Error: numberOfChannels is out of range (0)
1 ZYR.TEST.Initialise: Error: numberOfChannels is out of range (3)
1 ZYR.TEST.Initialise: Error: numberOfChannels is out of range (4294967295)
)");
}

TEST_F(InitialiseTest, RangeTextOfItsOwnIsFollowedByTheNumber)
{
    command.rules.range.text = "Error numberOfChannels is out of range (";
    EXPECT_EQ(command.initialize(3), 0xA100U);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: Error numberOfChannels is out of range (3)
)");
}

TEST_F(InitialiseTest, BoundsRuleHasAPlainTextAndAnotherResult)
{
    command.rules.range = family::kBounds;
    EXPECT_EQ(command.initialize(3), 0x8000U);
    EXPECT_EQ(command.numberOfChannels, 0U);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: numberOfChannels is out of bounds
)");
}

TEST_F(InitialiseTest, SilentRangeRefusesWithoutAWord)
{
    command.rules.range = family::silentRange(eTI_E_FAILED);
    EXPECT_EQ(command.initialize(0), 0x8000U);
    EXPECT_EQ(command.numberOfChannels, 0U);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(InitialiseTest, NodeWideFamilyIgnoresTheNumberAndKeepsNone)
{
    for (const unsigned channels : {0U, 1U, 2U, 3U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        NodeWide<IRouteUpdater> taken;
        EXPECT_EQ(
            initialise(initialiseTrace, family::kNodeWide, channels, {nodeWide("IRouteUpdater", taken)}), 0U);
        EXPECT_EQ(taken.find(), &routeUpdater);
    }
    EXPECT_EQ(transcript.text(), "\n");
}

// The second call.

TEST_F(InitialiseTest, UnguardedSecondCallFetchesAnew)
{
    EXPECT_EQ(command.initialize(2), 0U);
    withdraw("IAcmHandler_1");
    zyr_test::AcmHandlerDouble other(transcript, "IAcmHandler_1");
    publish(other);
    EXPECT_EQ(command.initialize(1), 0U);
    EXPECT_EQ(command.numberOfChannels, 1U);
    EXPECT_EQ(command.acmHandler.find(1), &other);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(InitialiseTest, UnguardedSecondCallThatFailsLeavesTheSlotEmpty)
{
    EXPECT_EQ(command.initialize(2), 0U);
    withdraw("IAcmHandler_2");
    EXPECT_EQ(command.initialize(2), 0x8000U);
    EXPECT_EQ(command.acmHandler.find(1), &acmHandler1);
    EXPECT_EQ(command.acmHandler.find(2), nullptr);
}

TEST_F(InitialiseTest, GuardedSecondCallIsRefusedAndChangesNothing)
{
    command.rules = family::kGuarded;
    EXPECT_EQ(command.initialize(2), 0U);
    withdraw("IAcmHandler_1");
    EXPECT_EQ(command.initialize(1), 0x8000U);
    EXPECT_EQ(command.numberOfChannels, 2U);
    EXPECT_EQ(command.acmHandler.find(1), &acmHandler1);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: Already initialized
)");
}

TEST_F(InitialiseTest, GuardedFamilyTestsTheRangeBeforeTheGuard)
{
    command.rules = family::kGuarded;
    EXPECT_EQ(command.initialize(2), 0U);
    EXPECT_EQ(command.initialize(3), 0xA100U);
    EXPECT_EQ(command.numberOfChannels, 2U);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: Error: numberOfChannels is out of range (3)
)");
}

TEST_F(InitialiseTest, GuardBeforeTheRangeComesFirst)
{
    command.rules = family::classGuarded(Guard::BeforeRange, "XImpl already initialized");
    EXPECT_EQ(command.initialize(3), 0x8000U);
    EXPECT_EQ(command.initialize(2), 0U);
    EXPECT_EQ(command.initialize(3), 0x8000U);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: numberOfChannels is out of bounds
1 ZYR.TEST.Initialise: XImpl already initialized
)");
}

TEST_F(InitialiseTest, ClassGuardBehindTheRangeComesSecond)
{
    command.rules = family::classGuarded(Guard::AfterRange, "XImpl already initialized");
    EXPECT_EQ(command.initialize(2), 0U);
    EXPECT_EQ(command.initialize(3), 0x8000U);
    EXPECT_EQ(command.initialize(2), 0x8000U);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: numberOfChannels is out of bounds
1 ZYR.TEST.Initialise: XImpl already initialized
)");
}

// When the count is stored.

TEST_F(InitialiseTest, CountStoredFirstStaysAfterAnAbsenceAndBarsASecondCall)
{
    command.rules = family::kGuarded;
    withdraw("IAcmHandler_2");
    EXPECT_EQ(command.initialize(2), 0x8000U);
    EXPECT_EQ(command.numberOfChannels, 2U);
    EXPECT_EQ(command.acmHandler.find(1), &acmHandler1);
    publish(acmHandler2);
    EXPECT_EQ(command.initialize(2), 0x8000U);
    EXPECT_EQ(command.acmHandler.find(2), nullptr);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise:  Error getting interface to IAcmHandler_2
1 ZYR.TEST.Initialise: Already initialized
)");
}

TEST_F(InitialiseTest, CountStoredLastStays0AfterAnAbsenceAndLetsTheNextCallThrough)
{
    command.rules = family::classGuarded(Guard::AfterRange, "XImpl already initialized");
    withdraw("IAcmHandler_2");
    EXPECT_EQ(command.initialize(2), 0x8000U);
    EXPECT_EQ(command.numberOfChannels, 0U);
    EXPECT_EQ(command.acmHandler.find(1), &acmHandler1);
    publish(acmHandler2);
    EXPECT_EQ(command.initialize(2), 0U);
    EXPECT_EQ(command.numberOfChannels, 2U);
    EXPECT_EQ(command.acmHandler.find(2), &acmHandler2);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise:  Error getting interface to IAcmHandler_2
)");
}

// What is traced on entry, and where a message says that it comes from.

TEST_F(InitialiseTest, EntryIsSilentAboveLevel6AndHasNoTextInThePlainFamily)
{
    setTraceLevel("ZYR.TEST.Initialise", 6);
    EXPECT_EQ(command.initialize(2), 0U);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TEST.Initialise:
)");
}

TEST_F(InitialiseTest, EntryTellsTheCountInTheGuardedFamiliesAlsoOfARefusedCall)
{
    setTraceLevel("ZYR.TEST.Initialise", 6);
    command.rules = family::kGuarded;
    EXPECT_EQ(command.initialize(2), 0U);
    EXPECT_EQ(command.initialize(7), 0xA100U);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TEST.Initialise: numberOfChannels=2
6 ZYR.TEST.Initialise: numberOfChannels=7
1 ZYR.TEST.Initialise: Error: numberOfChannels is out of range (7)
)");
}

TEST_F(InitialiseTest, AllMessagesNameTheCommandsOwnPlace)
{
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const zyr_platform::Registration registration = zyr_platform::TraceService::get().addSink(sink);
    setTraceLevel("ZYR.TEST.Initialise", 7);
    withdraw("IAcmHandler_1");
    command.rules = family::kGuarded;
    EXPECT_EQ(command.initialize(9), 0xA100U);
    EXPECT_EQ(command.initialize(1), 0x8000U);
    EXPECT_EQ(command.initialize(1), 0x8000U);
    const auto records = sink->records();
    EXPECT_EQ(records.size(), 6U);
    for (const auto& record : records) {
        EXPECT_STREQ(record.header.file, "tests/library/InitialiseTest.cpp");
        EXPECT_STREQ(record.header.function, "initialize");
        EXPECT_EQ(record.header.line, records.front().header.line);
    }
}

// Missing collaborators.

TEST_F(InitialiseTest, AbsenceOnTheFirstChannelEndsAtOnce)
{
    withdraw("IAcmHandler_1");
    EXPECT_EQ(command.initialize(2), 0x8000U);
    EXPECT_EQ(command.numberOfChannels, 2U);
    EXPECT_EQ(command.acmHandler.find(1), nullptr);
    EXPECT_EQ(command.acmHandler.find(2), nullptr);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise:  Error getting interface to IAcmHandler_1
)");
}

TEST_F(InitialiseTest, AnotherTypeUnderTheNameIsAnAbsence)
{
    withdraw("IAcmHandler_1");
    publish("IAcmHandler_1", dspApi1);
    EXPECT_EQ(command.initialize(1), 0x8000U);
    EXPECT_EQ(command.acmHandler.find(1), nullptr);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise:  Error getting interface to IAcmHandler_1
)");
}

TEST_F(InitialiseTest, MissingTextCanEndInTheNameTheChannelOrNothing)
{
    withdraw("IAcmHandler_2");
    EXPECT_EQ(command.initialize(2, {perChannel("IAcmHandler", command.acmHandler, textAndName("no "))}),
              0x8000U);
    EXPECT_EQ(
        command.initialize(2, {perChannel("IAcmHandler", command.acmHandler, textAndChannel("none for "))}),
        0x8000U);
    EXPECT_EQ(command.initialize(2, {perChannel("IAcmHandler", command.acmHandler, plainText("none"))}),
              0x8000U);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: no IAcmHandler_2
1 ZYR.TEST.Initialise: none for 2
1 ZYR.TEST.Initialise: none
)");
}

TEST_F(InitialiseTest, MissingTextHasALevelOfItsOwn)
{
    withdraw("IAcmHandler_1");
    setTraceLevel("ZYR.TEST.Initialise", 5);
    EXPECT_EQ(command.initialize(1, {perChannel("IAcmHandler", command.acmHandler, plainText("at 5", 5))}),
              0x8000U);
    EXPECT_EQ(command.initialize(1, {perChannel("IAcmHandler", command.acmHandler, textAndName("at 2 ", 2))}),
              0x8000U);
    setTraceLevel("ZYR.TEST.Initialise", 4);
    EXPECT_EQ(command.initialize(1, {perChannel("IAcmHandler", command.acmHandler, plainText("at 5", 5))}),
              0x8000U);
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.TEST.Initialise: at 5
2 ZYR.TEST.Initialise: at 2 IAcmHandler_1
)");
}

TEST_F(InitialiseTest, SilentAbsenceFailsWithoutAWord)
{
    withdraw("IAcmHandler_1");
    setTraceLevel("ZYR.TEST.Initialise", 5);
    EXPECT_EQ(command.initialize(1, {perChannel("IAcmHandler", command.acmHandler, kSilent)}), 0x8000U);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(InitialiseTest, OptionalAbsenceIsToldAndTheRestIsTaken)
{
    withdraw("IAcmHandler_1");
    EXPECT_EQ(command.initialize(2, {optional(perChannel("IAcmHandler", command.acmHandler)),
                                     perChannel("IDspApi", command.dspApi)}),
              0U);
    EXPECT_EQ(command.numberOfChannels, 2U);
    EXPECT_EQ(command.acmHandler.find(1), nullptr);
    EXPECT_EQ(command.acmHandler.find(2), &acmHandler2);
    EXPECT_EQ(command.dspApi.find(1), &dspApi1);
    EXPECT_EQ(command.dspApi.find(2), &dspApi2);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise:  Error getting interface to IAcmHandler_1
)");
}

TEST_F(InitialiseTest, OptionalSilentAbsenceLeavesNoTrace)
{
    withdraw("IRouteUpdater");
    EXPECT_EQ(command.initialize(1, {optional(nodeWide("IRouteUpdater", command.routeUpdater, kSilent)),
                                     nodeWide("RecoveryController", command.recoveryController)}),
              0U);
    EXPECT_EQ(command.routeUpdater.find(), nullptr);
    EXPECT_EQ(command.recoveryController.find(), &recoveryController);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(InitialiseTest, NodeWideAbsenceEndsBeforeWhatIsBehindIt)
{
    withdraw("IRouteUpdater");
    EXPECT_EQ(command.initialize(1, {perChannel("IAcmHandler", command.acmHandler),
                                     nodeWide("IRouteUpdater", command.routeUpdater),
                                     perChannel("IDspApi", command.dspApi)}),
              0x8000U);
    EXPECT_EQ(command.acmHandler.find(1), &acmHandler1);
    EXPECT_EQ(command.dspApi.find(1), nullptr);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise:  Error getting interface to IRouteUpdater
)");
}

// Order and names of the lookups.

TEST_F(InitialiseTest, RunsOfPerChannelCollaboratorsAreTakenChannelByChannel)
{
    EXPECT_EQ(command.initialize(2, {noted(nodeWide("IRouteUpdater", command.routeUpdater)),
                                     noted(perChannel("IAcmHandler", command.acmHandler)),
                                     noted(perChannel("IDspApi", command.dspApi)),
                                     noted(nodeWide("RecoveryController", command.recoveryController))}),
              0U);
    EXPECT_EQ(transcript.text(), R"(
found IRouteUpdater for 0
found IAcmHandler_1 for 1
found IDspApi_1 for 1
found IAcmHandler_2 for 2
found IDspApi_2 for 2
found RecoveryController for 0
)");
}

TEST_F(InitialiseTest, NodeWideCollaboratorEndsARunOfPerChannelOnes)
{
    EXPECT_EQ(command.initialize(2, {noted(perChannel("IAcmHandler", command.acmHandler)),
                                     noted(nodeWide("IRouteUpdater", command.routeUpdater)),
                                     noted(perChannel("IDspApi", command.dspApi))}),
              0U);
    EXPECT_EQ(transcript.text(), R"(
found IAcmHandler_1 for 1
found IAcmHandler_2 for 2
found IRouteUpdater for 0
found IDspApi_1 for 1
found IDspApi_2 for 2
)");
}

TEST_F(InitialiseTest, NothingIsNotedForAnAbsence)
{
    withdraw("IAcmHandler_1");
    EXPECT_EQ(
        command.initialize(2, {noted(optional(perChannel("IAcmHandler", command.acmHandler, kSilent)))}), 0U);
    EXPECT_EQ(transcript.text(), R"(
found IAcmHandler_2 for 2
)");
}

TEST_F(InitialiseTest, NameCanDoWithoutTheUnderscore)
{
    publish("IAcmHandler1", acmHandler1);
    EXPECT_EQ(command.initialize(2, {withoutUnderscore(perChannel("IAcmHandler", command.acmHandler))}),
              0x8000U);
    EXPECT_EQ(command.acmHandler.find(1), &acmHandler1);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise:  Error getting interface to IAcmHandler2
)");
}

// Parts and drivers.

TEST_F(InitialiseTest, PartIsTakenFromTheCollaboratorOfItsChannel)
{
    PerChannel<IDspStatusApi> statusApi;
    EXPECT_EQ(command.initialize(2, {perChannel("IDspApi", command.dspApi),
                                     part<&IDspApi::getDspStatusApi>(command.dspApi, statusApi, kSilent)}),
              0U);
    EXPECT_EQ(statusApi.find(1), &dspApi1.statusApi);
    EXPECT_EQ(statusApi.find(2), &dspApi2.statusApi);
    EXPECT_EQ(transcript.text(), "\n");
}

TEST_F(InitialiseTest, AbsentPartEndsWithItsOwnText)
{
    PerChannel<IDspStatusApi> statusApi;
    dspApi2.onGetDspStatusApi = nullptr;
    EXPECT_EQ(command.initialize(2, {perChannel("IDspApi", command.dspApi),
                                     part<&IDspApi::getDspStatusApi>(command.dspApi, statusApi,
                                                                     textAndChannel("none for "))}),
              0x8000U);
    EXPECT_EQ(statusApi.find(1), &dspApi1.statusApi);
    EXPECT_EQ(statusApi.find(2), nullptr);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: none for 2
)");
}

TEST_F(InitialiseTest, MissingTextCanHaveTheChannelInFrontOrTheNameInItsMiddle)
{
    withdraw("IAcmHandler_2");
    EXPECT_EQ(command.initialize(2, {perChannel("IAcmHandler", command.acmHandler, channelAndText("none"))}),
              0x8000U);
    EXPECT_EQ(command.initialize(
                  2, {perChannel("IAcmHandler", command.acmHandler, textAroundName("no ", " here"))}),
              0x8000U);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: channel 2: none
1 ZYR.TEST.Initialise: no IAcmHandler_2 here
)");
}

TEST_F(InitialiseTest, DriverThatIsAbsentIsToldAndLeavesItsHandleEmpty)
{
    setTraceLevel("ZYR.TEST.Initialise", 5);
    const auto readsSeven = [](std::uint32_t& value) {
        value = 7;
        return 0U;
    };
    const zyr_platform::Registration added =
        zyr_platform::Drivers::get().add("channel.2.test", {.read = readsSeven, .write = {}});
    DriverPerChannel drivers;
    EXPECT_EQ(command.initialize(
                  2, {driver("channel.", ".test", drivers, textAroundName("driver ", " not supported", 5)),
                      perChannel("IAcmHandler", command.acmHandler)}),
              0U);
    EXPECT_EQ(drivers[1].read, nullptr);
    std::uint32_t value = 0;
    EXPECT_EQ(drivers[2].read(drivers[2].context, &value), 0U);
    EXPECT_EQ(value, 7U);
    EXPECT_EQ(command.acmHandler.find(2), &acmHandler2);
    EXPECT_EQ(transcript.text(), R"(
5 ZYR.TEST.Initialise: driver channel.1.test not supported
)");
}

TEST_F(InitialiseTest, DriverThatIsGoneEmptiesItsHandle)
{
    DriverPerChannel drivers;
    CDriverHandle handle;
    handle.context = this;
    drivers.set(1, handle);
    EXPECT_EQ(command.initialize(1, {driver("channel.", ".test", drivers, kSilent)}), 0U);
    EXPECT_EQ(drivers[1].context, nullptr);
}

// Commands without a number of channels of their own.

TEST_F(InitialiseTest, UncountedCommandMayTestTheRange)
{
    NodeWide<IRouteUpdater> taken;
    EXPECT_EQ(initialise(initialiseTrace, UncountedRules{.isRangeTested = true}, 3,
                         {nodeWide("IRouteUpdater", taken)}),
              0xA100U);
    EXPECT_EQ(taken.find(), nullptr);
    EXPECT_EQ(initialise(initialiseTrace, UncountedRules{.isRangeTested = true}, 2,
                         {nodeWide("IRouteUpdater", taken)}),
              0U);
    EXPECT_EQ(taken.find(), &routeUpdater);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise: Error: numberOfChannels is out of range (3)
)");
}

TEST_F(InitialiseTest, UncountedCommandMayTellTheCountAndEndsAtTheFirstAbsence)
{
    setTraceLevel("ZYR.TEST.Initialise", 6);
    NodeWide<IRouteUpdater> first;
    NodeWide<RecoveryController> second;
    withdraw("IRouteUpdater");
    EXPECT_EQ(initialise(initialiseTrace, UncountedRules{.entryTellsCount = true}, 0xFFFFFFFFU,
                         {nodeWide("IRouteUpdater", first, textAndName("Could not find ")),
                          nodeWide("RecoveryController", second)}),
              0x8000U);
    EXPECT_EQ(second.find(), nullptr);
    EXPECT_EQ(transcript.text(), R"(
6 ZYR.TEST.Initialise: numberOfChannels=4294967295
1 ZYR.TEST.Initialise: Could not find IRouteUpdater
)");
}

TEST_F(InitialiseTest, ClassGuardThatStoresTheCountFirstBarsACallBehindAFailedOne)
{
    command.rules = family::classGuarded(Guard::BeforeRange, "XImpl already initialized",
                                         InitialiseRules::CountStored::First);
    withdraw("IAcmHandler_1");
    EXPECT_EQ(command.initialize(1), 0x8000U);
    EXPECT_EQ(command.numberOfChannels, 1U);
    EXPECT_EQ(command.initialize(3), 0x8000U);
    EXPECT_EQ(transcript.text(), R"(
1 ZYR.TEST.Initialise:  Error getting interface to IAcmHandler_1
1 ZYR.TEST.Initialise: XImpl already initialized
)");
}

TEST_F(InitialiseTest, WithoutCollaboratorsOnlyTheRulesCount)
{
    EXPECT_EQ(command.initialize(2, {}), 0U);
    EXPECT_EQ(command.numberOfChannels, 2U);
    EXPECT_EQ(command.initialize(0, {}), 0xA100U);
}

} // namespace
} // namespace zyr_top_api
