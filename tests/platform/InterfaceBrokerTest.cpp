#include "InterfaceBroker.h"

#include "Publication.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>

namespace
{

using zyr_platform::Publication;

class IFirst : public IInterface
{};

class ISecond : public IInterface
{};

class Both : public IFirst, public ISecond
{};

class InterfaceBrokerTest : public testing::Test
{
  protected:
    InterfaceBroker& m_broker = InterfaceBroker::getInstance();
    IFirst m_first;
    IFirst m_other;
};

TEST_F(InterfaceBrokerTest, publishedInterfaceIsFoundByItsExactName)
{
    const Publication publication("IFirst_1", m_first);
    EXPECT_EQ(publication.name(), "IFirst_1");
    EXPECT_EQ(m_broker.getInterface<IFirst>("IFirst_1"), &m_first);
    EXPECT_EQ(m_broker.getInterface<IFirst>("ifirst_1"), nullptr);
    EXPECT_EQ(m_broker.getInterface<IFirst>("IFirst_"), nullptr);
    EXPECT_EQ(m_broker.getInterface<IFirst>("IFirst_11"), nullptr);
    EXPECT_EQ(m_broker.getInterface<IFirst>(""), nullptr);
}

TEST_F(InterfaceBrokerTest, objectOfAnotherTypeIsNotFound)
{
    const Publication publication("IFirst_1", m_first);
    EXPECT_EQ(m_broker.getInterface<ISecond>("IFirst_1"), nullptr);
}

TEST_F(InterfaceBrokerTest, objectOfSeveralInterfacesIsFoundAsTheOneAskedFor)
{
    Both both;
    const Publication publication("Both", static_cast<IFirst&>(both));
    EXPECT_EQ(m_broker.getInterface<ISecond>("Both"), static_cast<ISecond*>(&both));
}

TEST_F(InterfaceBrokerTest, publishedNullIsNotFoundButTakesTheName)
{
    EXPECT_TRUE(m_broker.registerInterface("IFirst_1", nullptr));
    EXPECT_EQ(m_broker.getInterface<IFirst>("IFirst_1"), nullptr);
    EXPECT_FALSE(m_broker.registerInterface("IFirst_1", &m_first));
    EXPECT_TRUE(m_broker.unregisterInterface("IFirst_1"));
}

TEST_F(InterfaceBrokerTest, doubledNameIsRefusedAndTheFirstStays)
{
    EXPECT_TRUE(m_broker.registerInterface("IFirst_1", &m_first));
    EXPECT_FALSE(m_broker.registerInterface("IFirst_1", &m_other));
    EXPECT_EQ(m_broker.getInterface<IFirst>("IFirst_1"), &m_first);
    EXPECT_EQ(m_broker.interfaces().count("IFirst_1"), 1U);
    EXPECT_TRUE(m_broker.unregisterInterface("IFirst_1"));
    EXPECT_FALSE(m_broker.unregisterInterface("IFirst_1"));
    EXPECT_EQ(m_broker.getInterface<IFirst>("IFirst_1"), nullptr);
}

TEST_F(InterfaceBrokerTest, doubledPublicationThrowsWithTheName)
{
    const Publication publication("IFirst_1", m_first);
    try {
        const Publication doubled("IFirst_1", m_other);
        ADD_FAILURE();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "an interface is already published under the name \"IFirst_1\"");
    }
    EXPECT_EQ(m_broker.getInterface<IFirst>("IFirst_1"), &m_first);
}

TEST_F(InterfaceBrokerTest, publicationEndsWithItsObject)
{
    {
        const Publication publication("IFirst_1", m_first);
    }
    EXPECT_EQ(m_broker.interfaces().count("IFirst_1"), 0U);
}

TEST_F(InterfaceBrokerTest, publicationLeavesANameAloneThatAnotherHasTaken)
{
    std::optional<Publication> publication;
    publication.emplace("IFirst_1", m_first);
    EXPECT_TRUE(m_broker.unregisterInterface("IFirst_1"));
    const Publication next("IFirst_1", m_other);
    publication.reset();
    EXPECT_EQ(m_broker.getInterface<IFirst>("IFirst_1"), &m_other);
}

} // namespace
