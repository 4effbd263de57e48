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
#include <string>

// What a command does whose collaborators were never found: it throws, and nothing but the call is lost.

namespace
{

using namespace zyr_top_api;

class MissingCollaboratorTest : public zyr_test::CommandTest
{
  protected:
    // What is missing in a call of an object that was not initialised.
    template <class XImpl>
    static std::string missingFor(const typename XImpl::Command& command)
    {
        return missingIn([&] { XImpl().execute(command); });
    }

    // Channel 0 passes the check of such an object.
    template <class XImpl>
    static std::string missingForChannelZero()
    {
        typename XImpl::Command command{};
        if constexpr (requires { command.channelId; }) {
            command.channelId = RadioChannel(0);
        } else {
            command.RadioChannelID = RadioChannel(0);
        }
        return missingFor<XImpl>(command);
    }
};

TEST_F(MissingCollaboratorTest, FirstOneOfTheChannelThatIsNeededIsNamed)
{
    EXPECT_EQ(missingForChannelZero<CriCalibrateDspPpsImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriEnableAcmImpl>(), "IAcmHandler of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriGetAirInterfaceCapabilityImpl>(),
              "IHardwareConfigurationHandler of the node");
    EXPECT_EQ(missingForChannelZero<CriGetCalibrationStatusDspPpsImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriGetHopLengthTimeDspPpsImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriGetRadioChannelStatusImpl>(),
              "IOutputPowerController of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriGetRauPowerSuppliedImpl>(), "IRadio of radio channel 1");
    EXPECT_EQ(missingForChannelZero<CriGetSdcStatusImpl>(),
              "ISpaceDiversityCombinerController of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriManagePathLatencyImpl>(), "IRauLatencyCalculator of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriMimoSpatialMuteImpl>(), "IMimoController of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriSetActiveSubBandImpl>(), "IRadio of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriSetOutputModeDspPpsImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriSetRadioChannelNearEndImpl>(),
              "ISystemPowerController of radio channel 1");
    EXPECT_EQ(missingForChannelZero<CriSetRauPowerModeImpl>(), "IRauHandler of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriSetRauPowerSuppliedImpl>(), "IRadio of radio channel 1");
    EXPECT_EQ(missingForChannelZero<CriSetRfPowerImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriSetSourceDspPpsImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<CriXpicSlaveMuteImpl>(), "ICcdpController of radio channel 0");
    EXPECT_EQ(missingForChannelZero<TiGetDspTxModeImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<TiGetNarrowWideFiltersImpl>(), "IDspApi of radio channel 1");
    EXPECT_EQ(missingForChannelZero<TiManageDspImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<TiManagePmImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<TiManageRadioChannelStatusImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<TiSetIfFrequencyImpl>(), "IDspApi of radio channel 0");
    EXPECT_EQ(missingForChannelZero<TiSetNarrowWideFiltersImpl>(), "IDspApi of radio channel 1");
}

TEST_F(MissingCollaboratorTest, FirstOneOfTheNodeThatIsNeededIsNamed)
{
    EXPECT_EQ(missingFor<CiGetEventsImpl>({}), "IAlarmHandlerTopApi of the node");
    EXPECT_EQ(missingFor<CiGetFastEventsImpl>({}), "IAlarmHandlerTopApi of the node");
    EXPECT_EQ(missingFor<CiReleaseFastEventsRequestsImpl>({}), "IAlarmHandlerTopApi of the node");
    EXPECT_EQ(missingFor<CriSetRauCarrierAggregationImpl>({}), "IHardwareConfigurationHandler of the node");
    EXPECT_EQ(missingFor<TiGetEventsImpl>({}), "IAlarmHandlerTopApi of the node");
    EXPECT_EQ(missingFor<TiGetTXRFDetectedOutputPowerImpl>({}), "IOutputPowerHandler of the node");
    EXPECT_EQ(missingFor<TiManageTXIFOutputPowerImpl>({}), "IOutputPowerHandler of the node");
    EXPECT_EQ(missingFor<TiManageTXRFGainImpl>({}), "IOutputPowerHandler of the node");
    EXPECT_EQ(missingFor<TiSetEventsImpl>({}), "IAlarmHandlerTopApi of the node");
}

TEST_F(MissingCollaboratorTest, ExceptionPassesTheDispatcherAndLeavesItFree)
{
    ZyrApiHandler::m_cmds = {std::make_shared<CmdWrapper<CiGetEventsImpl>>("CI.GetEvents")};
    EXPECT_THROW(ciGetEvents({}), std::out_of_range);
    EXPECT_THROW(ciGetEvents({}), std::out_of_range);
    ZyrApiHandler::m_cmds.clear();
    EXPECT_EQ(ciGetEvents({}).tiResult, 0U);
}

} // namespace
