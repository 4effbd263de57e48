#include "AcmHandlerDouble.h"
#include "CommandTest.h"
#include "IBasebandSdcController.h"
#include "IOutputPowerController.h"
#include "IPpsController.h"
#include "IRauHandler.h"
#include "ISystemPowerController.h"
#include "ITapsController.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace zyr_top_api
{
namespace
{

class BrokerTest : public zyr_test::CommandTest
{
  protected:
    InterfaceBroker& broker = InterfaceBroker::getInstance();
    zyr_test::AcmHandlerDouble acmHandler{transcript, "IAcmHandler_1"};
};

TEST_F(BrokerTest, IsOneForTheProcess)
{
    EXPECT_EQ(&InterfaceBroker::getInstance(), &broker);
    EXPECT_TRUE(broker.interfaces().empty());
}

TEST_F(BrokerTest, FindsByTheExactName)
{
    publish(acmHandler);
    EXPECT_EQ(broker.getInterface<IAcmHandler>("IAcmHandler_1"), &acmHandler);
    EXPECT_EQ(broker.getInterface<IAcmHandler>("iAcmHandler_1"), nullptr);
    EXPECT_EQ(broker.getInterface<IAcmHandler>("IAcmHandler_"), nullptr);
    EXPECT_EQ(broker.getInterface<IAcmHandler>("IAcmHandler_11"), nullptr);
    EXPECT_EQ(broker.getInterface<IAcmHandler>(""), nullptr);
}

TEST_F(BrokerTest, AnotherTypeUnderTheNameIsAsGoodAsNothing)
{
    publish(acmHandler);
    EXPECT_EQ(broker.getInterface<IDspApi>("IAcmHandler_1"), nullptr);
    EXPECT_NE(broker.getInterface<IInterface>("IAcmHandler_1"), nullptr);
}

TEST_F(BrokerTest, APublishedNullIsAsGoodAsNothing)
{
    ASSERT_TRUE(broker.registerInterface("IAcmHandler_1", nullptr));
    EXPECT_EQ(broker.getInterface<IAcmHandler>("IAcmHandler_1"), nullptr);
    EXPECT_TRUE(broker.unregisterInterface("IAcmHandler_1"));
}

TEST_F(BrokerTest, ATypeWithoutTheCommonRootIsFoundByACastAcross)
{
    using nord::zyr::services::recovery::RecoveryController;
    zyr_test::RecoveryControllerDouble recoveryController(transcript, "RecoveryController");
    publish(recoveryController);
    EXPECT_EQ(broker.getInterface<RecoveryController>("RecoveryController"),
              static_cast<RecoveryController*>(&recoveryController));
}

TEST_F(BrokerTest, ARadioUnitsHandlerIsARadioUnderItsOwnName)
{
    zyr_test::RauHandlerDouble rauHandler(transcript, "IRauHandler_1");
    publish(rauHandler);
    EXPECT_EQ(broker.getInterface<IRadio>("IRauHandler_1"), static_cast<IRadio*>(&rauHandler));
    EXPECT_EQ(broker.getInterface<IRadio>("IRadio_1"), nullptr);
}

TEST_F(BrokerTest, ADoubledNameIsRefusedAndTheFirstStays)
{
    publish(acmHandler);
    zyr_test::AcmHandlerDouble other(transcript, "IAcmHandler_1");
    EXPECT_FALSE(broker.registerInterface("IAcmHandler_1", &other));
    EXPECT_EQ(broker.getInterface<IAcmHandler>("IAcmHandler_1"), &acmHandler);
}

TEST_F(BrokerTest, WhatIsWithdrawnIsGone)
{
    publish(acmHandler);
    withdraw("IAcmHandler_1");
    EXPECT_EQ(broker.getInterface<IAcmHandler>("IAcmHandler_1"), nullptr);
    EXPECT_FALSE(broker.unregisterInterface("IAcmHandler_1"));
}

TEST_F(BrokerTest, NamesHaveTheChannelBehindAnUnderscoreExceptForNumber0)
{
    EXPECT_EQ(IInterface::interfaceName("X", 0U), "X");
    EXPECT_EQ(IInterface::interfaceName("X", 1U), "X_1");
    EXPECT_EQ(IInterface::interfaceName("X", 4294967295U), "X_4294967295");
    EXPECT_EQ(IInterface::interfaceName("X", RadioChannel(0)), "X_0");
    EXPECT_EQ(IInterface::interfaceName("X", RadioChannel(2)), "X_2");
    EXPECT_EQ(IInterface::interfaceName("", RadioChannel(2)), "_2");
}

TEST_F(BrokerTest, InterfacesThatNameThemselvesFollowTheRule)
{
    EXPECT_EQ(IRauHandler::interfaceName(RadioChannel(1)), "IRauHandler_1");
    EXPECT_EQ(IRauHandler::interfaceName(RadioChannel(0)), "IRauHandler_0");
    EXPECT_EQ(ISystemPowerController::interfaceName(RadioChannel(2)), "ISystemPowerController_2");
    EXPECT_EQ(IOutputPowerController::interfaceName(RadioChannel(2)), "IOutputPowerController_2");
    EXPECT_EQ(ITapsController::interfaceName(RadioChannel(1)), "ITapsController_1");
    EXPECT_EQ(IBasebandSdcController::interfaceName(0), "IBasebandSdcController");
    EXPECT_EQ(IBasebandSdcController::interfaceName(1), "IBasebandSdcController_1");
}

TEST_F(BrokerTest, TheTimingPulseControllerHasNoUnderscore)
{
    using nord::zyr::pps::IPpsController;
    EXPECT_EQ(IPpsController::interfaceName(RadioChannel(1)), "IPpsController1");
    EXPECT_EQ(IPpsController::interfaceName(RadioChannel(2)), "IPpsController2");
}

TEST_F(BrokerTest, ANodeOfOneChannelPublishesTheseNames)
{
    zyr_test::NodeDoubles node(transcript);
    publishNode(node, 1);
    std::vector<std::string> names;
    for (const auto& entry : broker.interfaces()) {
        names.push_back(entry.first);
    }
    const std::vector<std::string> expected{
        "IAcmHandler_1",
        "IAlarmHandlerTopApi",
        "IAtpcController_1",
        "IBasebandSdcController_1",
        "ICapabilityHandler_1",
        "ICcdpController_1",
        "IDspApi_1",
        "IFrequencyController_1",
        "IHardwareConfigurationHandler",
        "IIfLoopDriver_1",
        "ILoopController",
        "IMimoController_1",
        "IOutputPowerCalculator_1",
        "IOutputPowerController_1",
        "IOutputPowerHandler.1",
        "IPpsController1",
        "IRadioCapability_1",
        "IRadio_1",
        "IRauHandler_1",
        "IRauLatencyCalculator_1",
        "IRouteUpdater",
        "IRssiHandler_1",
        "ISpaceDiversityCombinerController_1",
        "ISpcSimulator_1",
        "ISpectrumDiagnosticsController_1",
        "ISystemPowerController_1",
        "ITapsControllerLog_1",
        "ITapsController_1",
        "ITxIQImbalanceHandler_1",
        "IZyrRleHandler_1",
        "RecoveryController",
    };
    EXPECT_EQ(names, expected);
}

TEST_F(BrokerTest, ANodeOfTwoChannelsPublishesEachChannelsCollaboratorsApart)
{
    zyr_test::NodeDoubles node(transcript);
    publishNode(node, 2);
    EXPECT_EQ(broker.interfaces().size(), 56U);
    EXPECT_EQ(broker.getInterface<IDspApi>("IDspApi_1"), &node.channel1.dspApi);
    EXPECT_EQ(broker.getInterface<IDspApi>("IDspApi_2"), &node.channel2.dspApi);
}

} // namespace
} // namespace zyr_top_api
