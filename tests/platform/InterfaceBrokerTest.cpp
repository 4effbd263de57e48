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
    InterfaceBroker& broker = InterfaceBroker::getInstance();
    IFirst first;
    IFirst other;
};

TEST_F(InterfaceBrokerTest, publishedInterfaceIsFoundByItsExactName)
{
    const Publication publication("IFirst_1", first);
    EXPECT_EQ(publication.name(), "IFirst_1");
    EXPECT_EQ(broker.getInterface<IFirst>("IFirst_1"), &first);
    EXPECT_EQ(broker.getInterface<IFirst>("ifirst_1"), nullptr);
    EXPECT_EQ(broker.getInterface<IFirst>("IFirst_"), nullptr);
    EXPECT_EQ(broker.getInterface<IFirst>("IFirst_11"), nullptr);
    EXPECT_EQ(broker.getInterface<IFirst>(""), nullptr);
}

TEST_F(InterfaceBrokerTest, objectOfAnotherTypeIsNotFound)
{
    const Publication publication("IFirst_1", first);
    EXPECT_EQ(broker.getInterface<ISecond>("IFirst_1"), nullptr);
}

TEST_F(InterfaceBrokerTest, objectOfSeveralInterfacesIsFoundAsTheOneAskedFor)
{
    Both both;
    const Publication publication("Both", static_cast<IFirst&>(both));
    EXPECT_EQ(broker.getInterface<ISecond>("Both"), static_cast<ISecond*>(&both));
}

TEST_F(InterfaceBrokerTest, publishedNullIsNotFoundButTakesTheName)
{
    EXPECT_TRUE(broker.registerInterface("IFirst_1", nullptr));
    EXPECT_EQ(broker.getInterface<IFirst>("IFirst_1"), nullptr);
    EXPECT_FALSE(broker.registerInterface("IFirst_1", &first));
    EXPECT_TRUE(broker.unregisterInterface("IFirst_1"));
}

TEST_F(InterfaceBrokerTest, doubledNameIsRefusedAndTheFirstStays)
{
    EXPECT_TRUE(broker.registerInterface("IFirst_1", &first));
    EXPECT_FALSE(broker.registerInterface("IFirst_1", &other));
    EXPECT_EQ(broker.getInterface<IFirst>("IFirst_1"), &first);
    EXPECT_EQ(broker.interfaces().count("IFirst_1"), 1U);
    EXPECT_TRUE(broker.unregisterInterface("IFirst_1"));
    EXPECT_FALSE(broker.unregisterInterface("IFirst_1"));
    EXPECT_EQ(broker.getInterface<IFirst>("IFirst_1"), nullptr);
}

TEST_F(InterfaceBrokerTest, doubledPublicationThrowsWithTheName)
{
    const Publication publication("IFirst_1", first);
    try {
        const Publication doubled("IFirst_1", other);
        ADD_FAILURE();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "an interface is already published under the name \"IFirst_1\"");
    }
    EXPECT_EQ(broker.getInterface<IFirst>("IFirst_1"), &first);
}

TEST_F(InterfaceBrokerTest, publicationEndsWithItsObject)
{
    {
        const Publication publication("IFirst_1", first);
    }
    EXPECT_EQ(broker.interfaces().count("IFirst_1"), 0U);
}

TEST_F(InterfaceBrokerTest, publicationLeavesANameAloneThatAnotherHasTaken)
{
    std::optional<Publication> publication;
    publication.emplace("IFirst_1", first);
    EXPECT_TRUE(broker.unregisterInterface("IFirst_1"));
    const Publication next("IFirst_1", other);
    publication.reset();
    EXPECT_EQ(broker.getInterface<IFirst>("IFirst_1"), &other);
}

} // namespace
