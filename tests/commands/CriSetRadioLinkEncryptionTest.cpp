#include "CommandTest.h"
#include "CriSetRadioLinkEncryptionImpl.h"
#include "NodeDoubles.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace zyr_top_api
{
namespace
{

class CriSetRadioLinkEncryptionTest : public zyr_test::CommandTest
{
  protected:
    CriSetRadioLinkEncryptionTest()
    {
        publishNode(node);
        transcript.clear();
    }

    static CriSetRadioLinkEncryption::Command command(std::uint32_t channel, const std::string& key,
                                                      bool enable = true)
    {
        return {channel, key, 18700000, 19710000, enable};
    }

    zyr_test::NodeDoubles node{transcript};
    CriSetRadioLinkEncryptionImpl impl;
};

TEST_F(CriSetRadioLinkEncryptionTest, FrameAndCommandHideTheKeyThatTheHandlerGets)
{
    enrol<CriSetRadioLinkEncryptionImpl>();
    setTraceLevel("ZYR.COMM", 5);
    setTraceLevel("ZYR.TI.CriSetRle", 7);
    tell(criSetRadioLinkEncryption(command(2, "correct horse")));
    EXPECT_EQ(transcript.text(), R"x(
5 ZYR.COMM: CRI.SetRadioLinkEncryption Request: RadioChannelID: 2, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 1\n
6 ZYR.TI.CriSetRle: msg.channelId=2
3 ZYR.TI.CriSetRle: RadioChannelID: 2, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 1\n
IZyrRleHandler_2.setRadioLinkEncryption("correct horse", 18700000, 19710000, true)
5 ZYR.COMM: CRI.SetRadioLinkEncryption Response: StandardResponse Sent\n\n----------------------------------------------------\n
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRadioLinkEncryptionTest, SwitchingOffNeedsNoKey)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(command(1, "", false)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetRle: RadioChannelID: 1, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 0\n
IZyrRleHandler_1.setRadioLinkEncryption("", 18700000, 19710000, false)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRadioLinkEncryptionTest, SwitchingOffPassesAKeyOfAnyLengthUnchanged)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    const std::string key(100, 'k');
    EXPECT_EQ(outcome(impl.execute(command(1, key, false))), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute(command(1, "short", false))), "result 0x0 0 \"\"");
    EXPECT_EQ(transcript.lines().at(1),
              "IZyrRleHandler_1.setRadioLinkEncryption(\"" + key + "\", 18700000, 19710000, false)");
    EXPECT_EQ(transcript.lines().at(3),
              "IZyrRleHandler_1.setRadioLinkEncryption(\"short\", 18700000, 19710000, false)");
}

TEST_F(CriSetRadioLinkEncryptionTest, KeyOf11BytesIsTooShortAndOf12LongEnough)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    tell(impl.execute(command(1, "elevenbytes")));
    tell(impl.execute(command(1, "twelve bytes")));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetRle: RadioChannelID: 1, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 1\n
1 ZYR.TI.CriSetRle: MasterKey is shorter than the required 12 characters: 11
result 0xA100 2 "MasterKey is shorter than the required 12 characters: 11"
prints StandardResponse Sent\n
3 ZYR.TI.CriSetRle: RadioChannelID: 1, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 1\n
IZyrRleHandler_1.setRadioLinkEncryption("twelve bytes", 18700000, 19710000, true)
result 0x0 0 ""
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRadioLinkEncryptionTest, KeyOf64BytesIsNotTooLongAndOf65Is)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(outcome(impl.execute(command(2, std::string(64, 'x')))), "result 0x0 0 \"\"");
    transcript.clear();
    tell(impl.execute(command(2, std::string(65, 'x'))));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetRle: RadioChannelID: 2, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 1\n
1 ZYR.TI.CriSetRle: MasterKey is longer than the supported 64 characters: 65
result 0xA100 2 "MasterKey is longer than the supported 64 characters: 65"
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRadioLinkEncryptionTest, EmptyKeyIsTooShortToSwitchOn)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(outcome(impl.execute(command(1, ""))),
              "result 0xA100 2 \"MasterKey is shorter than the required 12 characters: 0\"");
}

TEST_F(CriSetRadioLinkEncryptionTest, LengthOfAKeyCountsBytesNulAmongThem)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    // Eleven bytes in six characters, and twelve with a NUL as the first.
    EXPECT_EQ(outcome(impl.execute(command(1, "\u00e4\u00f6\u00fc\u00df\u00e9k"))),
              "result 0xA100 2 \"MasterKey is shorter than the required 12 characters: 11\"");
    EXPECT_EQ(outcome(impl.execute(command(1, std::string("\0 eleven bytes", 12)))), "result 0x0 0 \"\"");
}

TEST_F(CriSetRadioLinkEncryptionTest, BadChannelIsToldBeforeABadKeyAndSilently)
{
    ASSERT_EQ(impl.initialize(1), eTI_S_OK);
    setTraceLevel("ZYR.TI.CriSetRle", 7);
    tell(impl.execute(command(2, "short")));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRle: msg.channelId=2
3 ZYR.TI.CriSetRle: RadioChannelID: 2, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 1\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)x");
}

TEST_F(CriSetRadioLinkEncryptionTest, ChannelEqualToTheCountIsAcceptedAndOneAboveRefused)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(outcome(impl.execute(command(2, "twelve bytes"))), "result 0x0 0 \"\"");
    EXPECT_EQ(outcome(impl.execute(command(3, "twelve bytes"))),
              "result 0xA100 2 \"RadioChannelID out of bounds\"");
}

TEST_F(CriSetRadioLinkEncryptionTest, BadKeyIsToldBeforeAMissingHandler)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IZyrRleHandler_1");
    ASSERT_EQ(impl.initialize(2), 0x8000);
    EXPECT_EQ(outcome(impl.execute(command(1, "short"))),
              "result 0xA100 2 \"MasterKey is shorter than the required 12 characters: 5\"");
}

TEST_F(CriSetRadioLinkEncryptionTest, MissingHandlerIsToldSilently)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    withdraw("IZyrRleHandler_1");
    ASSERT_EQ(impl.initialize(2), 0x8000);
    transcript.clear();
    setTraceLevel("ZYR.TI.CriSetRle", 7);
    tell(impl.execute(command(1, "twelve bytes")));
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRle: msg.channelId=1
3 ZYR.TI.CriSetRle: RadioChannelID: 1, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 1\n
result 0x8008 4 "ZyrRleHandler missing"
prints StandardResponse Sent\n
)x");
    EXPECT_EQ(outcome(impl.execute(command(2, "twelve bytes"))), "result 0x0 0 \"\"");
}

TEST_F(CriSetRadioLinkEncryptionTest, Channel0HasNoHandler)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    EXPECT_EQ(outcome(impl.execute(command(0, "twelve bytes"))), "result 0x8008 4 \"ZyrRleHandler missing\"");
}

TEST_F(CriSetRadioLinkEncryptionTest, HandlerThatRefusesIsToldLongerInTheTrace)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel2.rleHandler.onSetRadioLinkEncryption.inTurn({false, true});
    tell(impl.execute(command(2, "twelve bytes", false)));
    EXPECT_EQ(transcript.text(), R"x(
3 ZYR.TI.CriSetRle: RadioChannelID: 2, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 0\n
IZyrRleHandler_2.setRadioLinkEncryption("twelve bytes", 18700000, 19710000, false)
1 ZYR.TI.CriSetRle: CRI.SetRadioLinkEncryption failed to enable or disable encryption
result 0x8000 4 "Failed to enable or disable encryption"
prints StandardResponse Sent\n
)x");
    EXPECT_EQ(outcome(impl.execute(command(2, "twelve bytes", false))), "result 0x0 0 \"\"");
}

// Any key, all bytes that a string can hold, in success and failure, at all levels.
TEST_F(CriSetRadioLinkEncryptionTest, NoTraceLineAndNoResponseHoldsSixBytesOfAKeyInARow)
{
    CriSetRadioLinkEncryptionImpl& enrolled = enrol<CriSetRadioLinkEncryptionImpl>();
    setTraceLevel("*", 7);
    std::mt19937 random(20240611);
    std::uniform_int_distribution<int> anyByte(0, 255);
    for (std::size_t length = 0; length <= 200; ++length) {
        std::string key(length, '\0');
        for (char& byte : key) {
            byte = static_cast<char>(anyByte(random));
        }
        std::string shown;
        const auto handler = [&](bool refuses) {
            node.channel1.rleHandler.onSetRadioLinkEncryption = !refuses;
        };
        for (const bool refuses : {false, true}) {
            handler(refuses);
            for (const bool enable : {false, true}) {
                for (const std::uint32_t channel : {0U, 1U, 3U}) {
                    transcript.clear();
                    tell(criSetRadioLinkEncryption(command(channel, key, enable)));
                    for (const std::string& line : transcript.lines()) {
                        if (!line.starts_with("IZyrRleHandler_")) { // whom the key is for
                            shown += line + "\n";
                        }
                    }
                }
            }
        }
        ASSERT_NE(shown.find("(hidden)"), std::string::npos);
        for (std::size_t first = 0; first + 6 <= length; ++first) {
            ASSERT_EQ(shown.find(zyr_test::escaped(key.substr(first, 6))), std::string::npos)
                << "of " << length << " bytes, from byte " << first;
        }
    }
    EXPECT_EQ(enrolled.initialize(2), eTI_S_OK);
}

TEST_F(CriSetRadioLinkEncryptionTest, InitialiseTellsTheCountAndRefusesAnyButOneAndTwo)
{
    setTraceLevel("ZYR.TI.CriSetRle", 7);
    EXPECT_EQ(impl.initialize(0), 0xA100);
    EXPECT_EQ(impl.initialize(3), 0xA100);
    EXPECT_EQ(transcript.text(), R"x(
6 ZYR.TI.CriSetRle: numberOfChannels=0
1 ZYR.TI.CriSetRle: Error: numberOfChannels is out of range (0)
6 ZYR.TI.CriSetRle: numberOfChannels=3
1 ZYR.TI.CriSetRle: Error: numberOfChannels is out of range (3)
)x");
}

TEST_F(CriSetRadioLinkEncryptionTest, CountIsStoredOnlyBehindTheLookups)
{
    withdraw("IZyrRleHandler_2");
    EXPECT_EQ(impl.initialize(2), 0x8000);
    tell(impl.execute(command(1, "twelve bytes")));
    EXPECT_EQ(transcript.text(), R"x(
1 ZYR.TI.CriSetRle:  Error getting interface to IZyrRleHandler_2
3 ZYR.TI.CriSetRle: RadioChannelID: 1, masterKey: (hidden), txFrequency_kHz: 18700000, rxFrequency_kHz: 19710000, enableRle: 1\n
result 0xA100 2 "RadioChannelID out of bounds"
prints StandardResponse Sent\n
)x");
}

} // namespace
} // namespace zyr_top_api
