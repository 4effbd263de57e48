#include "DriverCalls.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace
{

using XpicDriversTest = SimulationFixture;

std::uint32_t valueOf(const std::string& driver)
{
    std::uint32_t value = 99;
    EXPECT_EQ(readDriver(driver, value), 0U);
    return value;
}

TEST_F(XpicDriversTest, cableOfEachChannelCanBePulled)
{
    EXPECT_EQ(valueOf("channel.1.xpic.connected"), 1U);
    node().setXpicCableConnected(1, false);
    EXPECT_EQ(valueOf("channel.1.xpic.connected"), 0U);
    EXPECT_EQ(valueOf("channel.2.xpic.connected"), 1U);
    EXPECT_EQ(writeDriver("channel.1.xpic.connected", 1), 0x8000U) << "it can only be read";
    node().setXpicCableConnected(1, true);
    EXPECT_EQ(valueOf("channel.1.xpic.connected"), 1U);
}

TEST_F(XpicDriversTest, transmissionIsSwitchedForEachChannel)
{
    EXPECT_EQ(valueOf("channel.2.xpic.tx.enable"), 1U);
    EXPECT_EQ(writeDriver("channel.2.xpic.tx.enable", 0), 0U);
    EXPECT_EQ(valueOf("channel.2.xpic.tx.enable"), 0U);
    EXPECT_EQ(valueOf("channel.1.xpic.tx.enable"), 1U);
    EXPECT_EQ(writeDriver("channel.2.xpic.tx.enable", 7), 0U);
    EXPECT_EQ(valueOf("channel.2.xpic.tx.enable"), 1U);
}

TEST_F(XpicDriversTest, driversGoWithTheNode)
{
    const auto driver = requireDriver("channel.1.xpic.tx.enable");
    endNode();
    std::uint32_t value = 0;
    EXPECT_EQ(driver.read(driver.context, &value), 0x8000U);
    EXPECT_EQ(driver.write(driver.context, 1), 0x8000U);
}

} // namespace
