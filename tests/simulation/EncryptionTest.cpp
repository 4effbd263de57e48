#include "IZyrRleHandler.h"
#include "KeyPrint.h"
#include "SimulationFixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <string>

namespace
{

using namespace std::chrono_literals;
using zyr_simulation::KeyPrint;
using zyr_top_api::DspErrorBlocks;

/// A hop without fading and with a good level, on which no block comes errored by itself.
class EncryptionTest : public SimulationFixture
{
  protected:
    EncryptionTest()
    {
        startNode({.fading_dBTenths = 0});
        configure(1);
    }

    static zyr::IZyrRleHandler& handler(unsigned channel = 1)
    {
        return require<zyr::IZyrRleHandler>("IZyrRleHandler", channel);
    }

    static bool encrypt(const std::string& key) { return handler().setRadioLinkEncryption(key, 1, 2, true); }
    static bool decrypt() { return handler().setRadioLinkEncryption("", 1, 2, false); }

    /// What comes in during a second: "<errored> of <all>".
    std::string blocksOfASecond()
    {
        DspErrorBlocks blocks;
        EXPECT_EQ(dspStatus(1).getErrorBlocks(blocks, true), 0U);
        time().advance(1s);
        EXPECT_EQ(dspStatus(1).getErrorBlocks(blocks, true), 0U);
        return std::to_string(blocks.erroredBlocks) + " of " + std::to_string(blocks.backgroundBlocks);
    }
};

TEST_F(EncryptionTest, farEndWithoutAKeyOfItsOwnDoesAsThisEnd)
{
    const auto plain = blocksOfASecond();
    EXPECT_EQ(plain.substr(0, 5), "0 of ");
    EXPECT_TRUE(encrypt("a key of this length"));
    EXPECT_EQ(blocksOfASecond(), plain);
    EXPECT_TRUE(encrypt("another one like that"));
    EXPECT_EQ(blocksOfASecond(), plain);
    EXPECT_EQ(alarms(), "");
}

TEST_F(EncryptionTest, linkWithDifferentKeysStaysUpAndCarriesNothingUntilTheyAgree)
{
    EXPECT_TRUE(encrypt("a key of this length"));
    const auto whole = blocksOfASecond();
    const auto all = whole.substr(5);

    node().setFarEndKey(1, "a key of this lengtH");
    EXPECT_EQ(blocksOfASecond(), all + " of " + all);
    EXPECT_TRUE(dspStatus(1).isLinkUp());
    EXPECT_EQ(handler().getRleStatus(), 1);
    EXPECT_EQ(alarms(), "EncryptionKeyMismatch 1 active 1\n");

    EXPECT_TRUE(encrypt("a key of this lengtH"));
    EXPECT_EQ(blocksOfASecond(), whole);
    EXPECT_EQ(alarms(), "EncryptionKeyMismatch 1 inactive 1\n");
}

TEST_F(EncryptionTest, farEndThatEncryptsAloneIsNotUnderstood)
{
    node().setFarEndKey(1, "a key of this length");
    EXPECT_EQ(handler().getRleStatus(), 0);
    EXPECT_EQ(alarms(), "EncryptionKeyMismatch 1 active 1\n");
    EXPECT_TRUE(encrypt("a key of this length"));
    EXPECT_EQ(alarms(), "EncryptionKeyMismatch 1 inactive 1\n");
    EXPECT_TRUE(decrypt());
    EXPECT_EQ(alarms(), "EncryptionKeyMismatch 1 active 2\n");
    node().setFarEndKey(1, "");
    EXPECT_EQ(alarms(), "EncryptionKeyMismatch 1 inactive 2\n");
    EXPECT_EQ(blocksOfASecond().substr(0, 5), "0 of ");
}

TEST_F(EncryptionTest, channelsHaveKeysOfTheirOwn)
{
    configure(2, 102, ModulationAndCoding::QAM_4_STRONG, ModulationAndCoding::QAM_4096_LIGHT, 14'510'000,
              14'930'000);
    node().setFarEndKey(2, "a key of this length");
    EXPECT_EQ(blocksOfASecond().substr(0, 5), "0 of ");
    EXPECT_EQ(alarms(), "EncryptionKeyMismatch 2 active 1\n");
}

TEST_F(EncryptionTest, keysDontMatterWhileTheLinkIsDown)
{
    node().setFarEndKey(1, "a key of this length");
    node().setFarEndTransmits(false);
    EXPECT_EQ(alarms(), "EncryptionKeyMismatch 1 inactive 1\nLinkDown 1 active 1\n");
    EXPECT_EQ(blocksOfASecond(), "0 of 0");
}

TEST_F(EncryptionTest, keyThatIsTooLongIsRefusedWithItsLengthAlone)
{
    const std::string longest(64, 'k');
    EXPECT_TRUE(encrypt(longest));
    EXPECT_FALSE(encrypt(longest + "k"));
    node().setFarEndKey(1, longest);
    EXPECT_EQ(alarms(), "") << "the refused key has changed nothing";
    try {
        node().setFarEndKey(1, longest + "k");
        FAIL() << "a key of 65 bytes was taken";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "a key has at most 64 bytes, not 65");
    }
}

TEST(KeyPrintTest, TellsKeysApartByEveryByte)
{
    using namespace std::string_literals;
    EXPECT_EQ(KeyPrint("a key\0 of bytes\xFF"s), KeyPrint("a key\0 of bytes\xFF"s));
    EXPECT_FALSE(KeyPrint("a key\0 of bytes\xFF"s) == KeyPrint("a key\0 of bytes\xFE"s));
    EXPECT_FALSE(KeyPrint("\0a"s) == KeyPrint("\0b"s));
    EXPECT_FALSE(KeyPrint("\0"s) == KeyPrint(""s));
    EXPECT_FALSE(KeyPrint(""s) == KeyPrint());
}

} // namespace
