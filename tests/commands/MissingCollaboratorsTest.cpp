#include "CiGetEventsImpl.h"
#include "CiGetFastEventsImpl.h"
#include "CiReleaseFastEventsRequestsImpl.h"
#include "CmdWrapper.h"
#include "CommandTest.h"
#include "CriCalibrateDspPpsImpl.h"
#include "CriEnableAcmImpl.h"
#include "CriGetAirInterfaceCapabilityImpl.h"
#include "CriGetCalibrationStatusDspPpsImpl.h"
#include "CriGetHopLengthTimeDspPpsImpl.h"
#include "CriGetRadioChannelStatusImpl.h"
#include "CriGetRauPowerSuppliedImpl.h"
#include "CriGetSdcStatusImpl.h"
#include "CriManagePathLatencyImpl.h"
#include "CriMimoSpatialMuteImpl.h"
#include "CriSetActiveSubBandImpl.h"
#include "CriSetOutputModeDspPpsImpl.h"
#include "CriSetRadioChannelNearEndImpl.h"
#include "CriSetRauCarrierAggregationImpl.h"
#include "CriSetRauPowerModeImpl.h"
#include "CriSetRauPowerSuppliedImpl.h"
#include "CriSetRfPowerImpl.h"
#include "CriSetSourceDspPpsImpl.h"
#include "CriXpicSlaveMuteImpl.h"
#include "TiGetDspTxModeImpl.h"
#include "TiGetEventsImpl.h"
#include "TiGetNarrowWideFiltersImpl.h"
#include "TiGetTXRFDetectedOutputPowerImpl.h"
#include "TiManageDspImpl.h"
#include "TiManagePmImpl.h"
#include "TiManageRadioChannelStatusImpl.h"
#include "TiManageTXIFOutputPowerImpl.h"
#include "TiManageTXRFGainImpl.h"
#include "TiSetEventsImpl.h"
#include "TiSetIfFrequencyImpl.h"
#include "TiSetNarrowWideFiltersImpl.h"
#include "ZyrApiHandler.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

// What a command does whose collaborators were never found: it throws, and nothing but the call is lost.

namespace
{

using namespace zyr_top_api;

class NodeWideCollaboratorTest : public zyr_test::CommandTest
{};

template <class XImpl>
class CollaboratorOfChannelTest : public zyr_test::CommandTest
{};

using CommandsOfAChannel = testing::Types<
    CriCalibrateDspPpsImpl, CriEnableAcmImpl, CriGetAirInterfaceCapabilityImpl,
    CriGetCalibrationStatusDspPpsImpl, CriGetHopLengthTimeDspPpsImpl, CriGetRadioChannelStatusImpl,
    CriGetRauPowerSuppliedImpl, CriGetSdcStatusImpl, CriManagePathLatencyImpl, CriMimoSpatialMuteImpl,
    CriSetActiveSubBandImpl, CriSetOutputModeDspPpsImpl, CriSetRadioChannelNearEndImpl,
    CriSetRauPowerModeImpl, CriSetRauPowerSuppliedImpl, CriSetRfPowerImpl, CriSetSourceDspPpsImpl,
    CriXpicSlaveMuteImpl, TiGetDspTxModeImpl, TiGetNarrowWideFiltersImpl, TiManageDspImpl, TiManagePmImpl,
    TiManageRadioChannelStatusImpl, TiSetIfFrequencyImpl, TiSetNarrowWideFiltersImpl>;
TYPED_TEST_SUITE(CollaboratorOfChannelTest, CommandsOfAChannel);

// Channel 0 passes the check of an object that was not initialised.
template <class XImpl>
typename XImpl::Command commandForChannelZero()
{
    typename XImpl::Command command{};
    if constexpr (requires { command.channelId; }) {
        command.channelId = RadioChannel(0);
    } else {
        command.RadioChannelID = RadioChannel(0);
    }
    return command;
}

TYPED_TEST(CollaboratorOfChannelTest, ThrowsIfItWasNeverLookedUp)
{
    TypeParam impl;
    EXPECT_THROW(impl.execute(commandForChannelZero<TypeParam>()), std::out_of_range);
}

TEST_F(NodeWideCollaboratorTest, ThrowsIfItWasNeverFound)
{
    EXPECT_THROW(CiGetEventsImpl().execute({}), std::out_of_range);
    EXPECT_THROW(CiGetFastEventsImpl().execute({}), std::out_of_range);
    EXPECT_THROW(CiReleaseFastEventsRequestsImpl().execute({}), std::out_of_range);
    EXPECT_THROW(CriSetRauCarrierAggregationImpl().execute({}), std::out_of_range);
    EXPECT_THROW(TiGetEventsImpl().execute({}), std::out_of_range);
    EXPECT_THROW(TiGetTXRFDetectedOutputPowerImpl().execute({}), std::out_of_range);
    EXPECT_THROW(TiManageTXIFOutputPowerImpl().execute({}), std::out_of_range);
    EXPECT_THROW(TiManageTXRFGainImpl().execute({}), std::out_of_range);
    EXPECT_THROW(TiSetEventsImpl().execute({}), std::out_of_range);
}

TEST_F(NodeWideCollaboratorTest, ExceptionPassesTheDispatcherAndLeavesItFree)
{
    ZyrApiHandler::m_cmds = {std::make_shared<CmdWrapper<CiGetEventsImpl>>("CI.GetEvents")};
    EXPECT_THROW(ciGetEvents({}), std::out_of_range);
    EXPECT_THROW(ciGetEvents({}), std::out_of_range);
    ZyrApiHandler::m_cmds.clear();
    EXPECT_EQ(ciGetEvents({}).tiResult, 0U);
}

} // namespace
