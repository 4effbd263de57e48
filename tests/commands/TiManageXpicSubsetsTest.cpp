#include "TiManageXpicFixture.h"

#include <gtest/gtest.h>

#include <string>

// All 16384 subsets of the fourteen optional fields, against a model of what is called and answered.

namespace zyr_top_api
{
namespace
{

// What a field is worth where it is there, and what the product offers.
struct World
{
    bool flags;          // the value of all flags
    const char* message; // of `txMessage`
    bool hasDrivers;     // else the product is one without
    bool knowsLinkTypes; // else the controller is one without
};

enum Field : unsigned
{
    Channel = 1U << 0U,
    Bar = 1U << 1U,
    Enable = 1U << 2U,
    EnableExt = 1U << 3U,
    Message = 1U << 4U,
    LockStateMachine = 1U << 5U,
    TxEnable = 1U << 6U,
    Mute = 1U << 7U,
    AcquireStart = 1U << 8U,
    AcquireMode = 1U << 9U,
    InversionMode = 1U << 10U,
    PreambleGet = 1U << 11U,
    PreambleSet = 1U << 12U,
    StatusGet = 1U << 13U,
    AllSubsets = 1U << 14U,
};

TiManageXpic::Command commandOf(unsigned subset, const World& world)
{
    TiManageXpic::Command command;
    const auto set = [subset](Field field, auto& member, auto value) {
        if ((subset & field) != 0) {
            member = value;
        }
    };
    set(Channel, command.radioChannelId, 2U);
    set(Bar, command.xpicControlBarOn, world.flags);
    set(Enable, command.xpicEnable, world.flags);
    set(EnableExt, command.xpicEnableExt, LinkType::Enable_B); // that of channel 2
    set(Message, command.txMessage, std::string(world.message));
    set(LockStateMachine, command.xpicLockStateMachine, world.flags);
    set(TxEnable, command.xpicTxEnable, world.flags);
    set(Mute, command.xpicMute, world.flags);
    set(AcquireStart, command.xpicAcquireStart, world.flags);
    set(AcquireMode, command.xpicAcquireMode, static_cast<XpicAcquireMode>(11));
    set(InversionMode, command.xpicSpectralInversionMode, static_cast<XpicSpectralInversionMode>(22));
    set(PreambleGet, command.xpicPreambleGet, world.flags);
    set(PreambleSet, command.xpicPreambleSet, XpicMimoPreamble::Preamble_B);
    set(StatusGet, command.xpicStatusGet, world.flags);
    return command;
}

// What the transcript of a subset says.
class Model
{
  public:
    Model(unsigned subset, const World& world) : m_subset(subset), m_world(world) {}

    std::string run()
    {
        const bool ended = callsController() || callsHardware() || callsSlave();
        if (!ended) {
            add("result 0x0 0 \"\"");
            add("prints " + printed());
        }
        return m_text;
    }

  private:
    bool has(Field field) const { return (m_subset & field) != 0; }
    bool isSecond() const { return has(Channel); }
    bool wants(Field field) const { return has(field) && m_world.flags; }
    std::string number() const { return isSecond() ? "2" : "1"; }
    std::string word() const { return m_world.flags ? "true" : "false"; }
    std::string digit() const { return m_world.flags ? "1" : "0"; }

    void add(const std::string& line) { m_text += line + "\n"; }
    void ccdp(const std::string& call) { add("ICcdpController_" + number() + "." + call); }
    void dsp(const std::string& call) { add("IDspStatusApi_" + number() + "." + call); }
    void driver(const std::string& call) { add("channel." + number() + ".xpic." + call); }
    void says(const std::string& text) { add("4 ZYR.TI.TiManageXpic: " + text); }
    bool fails(const std::string& text)
    {
        add("result 0x8000 4 \"" + text + "\"");
        add("prints tiResult: eTI_E_FAILED, faultCode: 4, faultString: " + text);
        return true;
    }

    bool callsController()
    {
        if (has(Bar)) {
            ccdp("setBar(" + word() + ")");
            says("XPIC Bar set to " + word());
        }
        ccdp("getBar()");
        if (has(Enable)) {
            return fails("XpicEnable is not supported anymore");
        }
        if (has(EnableExt)) {
            ccdp("getLinkType()");
            if (!m_world.knowsLinkTypes) {
                return fails("ICcdpController::getLinkType failed for radiochannel id " + number() +
                             " with status 4098");
            }
            if (!isSecond()) {
                ccdp("forceXpic(2)");
                says("XPIC EnableExt set to Enable_B");
            }
        }
        ccdp("getLinkType()");
        if (!m_world.knowsLinkTypes) {
            says("ICcdpController::getLinkType not supported for radioChannel " + number());
        }
        if (has(Message) && *m_world.message != '\0') {
            return fails("TxMessage is not supported anymore");
        }
        return has(LockStateMachine) && fails("XpicLockStateMachine is not supported anymore");
    }

    bool callsHardware()
    {
        if (has(TxEnable)) {
            if (!m_world.hasDrivers) {
                return fails("XpicTxEnable is not supported in this product");
            }
            driver("tx.enable.write(" + digit() + ")");
        }
        if (m_world.hasDrivers) {
            driver("tx.enable.read()");
        } else {
            says("XpicTxEnableDriver not supported");
        }
        dsp("getSlaveAgc()");
        dsp("getIqSlaveImbalance()");
        if (m_world.hasDrivers) {
            driver("connected.read()");
        } else {
            says("XpicCableConnected is not supported in this product");
        }
        return false;
    }

    bool callsSlave()
    {
        if (has(Mute)) {
            ccdp("xpicMute(" + word() + ")");
        }
        if (has(PreambleSet)) {
            ccdp("setPreamble(1)");
        }
        if (wants(PreambleGet)) {
            ccdp("getPreamble()");
        }
        if (wants(AcquireStart)) {
            if (!has(AcquireMode) && !has(InversionMode)) {
                return fails("xpicAcquireStart: XpicAcquireMode and/or XpicSpectralInversionMode not set");
            }
            if (!has(AcquireMode) || !has(InversionMode)) {
                add("throws bad optional access");
                return true;
            }
            ccdp("xpicAcquireStart(11, 22)");
        }
        if (wants(StatusGet)) {
            ccdp("getXpicStatusStruct()");
        }
        return false;
    }

    std::string printed() const
    {
        const bool second = isSecond();
        const auto pick = [second](const char* ofFirst, const char* ofSecond) {
            return std::string(second ? ofSecond : ofFirst);
        };
        const auto flag = [](bool on) { return std::string(on ? "1" : "0"); };
        const std::string linkType = m_world.knowsLinkTypes ? pick("Enable_A", "Enable_B") : "Disable";
        const std::string preamble = wants(PreambleGet) ? pick("Preamble_B", "Preamble_C") : "";
        const std::string status =
            wants(StatusGet)
                ? pick("301, SlaveCarrierOffsetHz: -4002, SlaveSweepInProgress: b, CalibStatus: q",
                       "602, SlaveCarrierOffsetHz: -8004, SlaveSweepInProgress: c, CalibStatus: r")
                : "0, SlaveCarrierOffsetHz: 0, SlaveSweepInProgress: \\x00, CalibStatus: \\x00";
        return "RadioChannelID: " + number() + ", XpicControlBarOn: " + pick("1", "0") +
               ", XpicEnable: 0, AverageI: 0, AverageQ: 0, TxMessage: , RxMessage: , "
               "XpicLockStateMachine: 0, XpicState: , SlaveInternalAgc: " +
               pick("-31", "-62") + ", SlaveExternalAgc: " + pick("32", "64") +
               ", XpicCableConnected: " + flag(m_world.hasDrivers && !second) +
               ", XpicTxEnable: " + flag(m_world.hasDrivers && second) + ", XpicEnableExt: " + linkType +
               ", SlaveDiffGain: " + pick("-17", "-34") + ", XpicPreambleGet: " + preamble +
               ", XpicStatusGet: XpdDbTenths: " + status;
    }

    unsigned m_subset;
    const World& m_world;
    std::string m_text = "\n";
};

class TiManageXpicSubsetsTest : public zyr_test::TiManageXpicFixture
{
  protected:
    void compareAllSubsets(const World& world)
    {
        setTraceLevel("ZYR.TI.TiManageXpic", 4);
        for (unsigned subset = 0; subset < AllSubsets; ++subset) {
            transcript.clear();
            try {
                tell(impl.execute(commandOf(subset, world)));
            } catch (const general_classes::BadOptional& failure) {
                transcript.add("throws " + std::string(failure.what()));
            }
            ASSERT_EQ(transcript.text(), Model(subset, world).run()) << "subset " << subset;
        }
    }
};

TEST_F(TiManageXpicSubsetsTest, EverySubsetWithItsFlagsTrueDoesWhatTheModelDoes)
{
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    compareAllSubsets({.flags = true, .message = "x", .hasDrivers = true, .knowsLinkTypes = true});
}

TEST_F(TiManageXpicSubsetsTest, EverySubsetWithItsFlagsFalseOnAProductWithoutDriversAndLinkTypesDoesToo)
{
    removeDrivers();
    ASSERT_EQ(impl.initialize(2), eTI_S_OK);
    node.channel1.ccdpController.onGetLinkType = eTI_W_NO_MORE_DATA;
    node.channel2.ccdpController.onGetLinkType = eTI_W_NO_MORE_DATA;
    compareAllSubsets({.flags = false, .message = "", .hasDrivers = false, .knowsLinkTypes = false});
}

} // namespace
} // namespace zyr_top_api
