#include "RandomCalls.h"

#include "BaseResponse.h"
#include "Conversion.h"
#include "DescribedText.h"
#include "Optional.h"
#include "Reference.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <new>
#include <stdexcept>

namespace zyr_test
{

namespace
{

using zyr_registration::CommandEntry;
using zyr_registration::Exchange;
using zyr_registration::FaultNote;
using zyr_registration::Field;
using zyr_registration::Kind;
using zyr_registration::Range;
using zyr_registration::Value;
using zyr_registration::ValueType;
using zyr_top_api::BaseResponse;

// An exception that may leave a command, and the command.
struct Exception
{
    std::string_view command;
    std::string_view what;
};

// By `std::out_of_range`: the collaborator is missing on the node, or on a channel, or there is no such
// channel.
constexpr std::array kMissing{
    Exception{"CI.GetEvents", "IAlarmHandlerTopApi"},
    Exception{"CI.GetFastEvents", "IAlarmHandlerTopApi"},
    Exception{"CI.ManageLoops", "ILoopController"},
    Exception{"CI.ReleaseFastEventsRequests", "IAlarmHandlerTopApi"},
    Exception{"CRI.CalibrateDspPps", "IDspApi"},
    Exception{"CRI.CalibrateDspPps", "IDspChannelApi"},
    Exception{"CRI.CriSetRauPowerMode", "IRauHandler"},
    Exception{"CRI.DisableModulation", "IDspApi"},
    Exception{"CRI.DisableModulation", "IDspChannelApi"},
    Exception{"CRI.EnableAcm", "IAcmHandler"},
    Exception{"CRI.GetAcmMode", "IDspAcmApi"},
    Exception{"CRI.GetAcmMode", "IDspApi"},
    Exception{"CRI.GetAirInterfaceCapability", "ICapabilityHandler"},
    Exception{"CRI.GetAirInterfaceCapability", "IHardwareConfigurationHandler"},
    Exception{"CRI.GetCalibrationStatusDspPps", "IDspApi"},
    Exception{"CRI.GetCalibrationStatusDspPps", "IDspChannelApi"},
    Exception{"CRI.GetHopLengthTimeDspPps", "IDspApi"},
    Exception{"CRI.GetHopLengthTimeDspPps", "IDspChannelApi"},
    Exception{"CRI.GetRadioChannelStatus", "IDspApi"},
    Exception{"CRI.GetRadioChannelStatus", "IDspControlApi"},
    Exception{"CRI.GetRadioChannelStatus", "IOutputPowerController"},
    Exception{"CRI.GetRauPowerSupplied", "IRadio"},
    Exception{"CRI.GetSdcStatus", "ISpaceDiversityCombinerController"},
    Exception{"CRI.GetSpectrumDiagnostics", "ISpectrumDiagnosticsController"},
    Exception{"CRI.ManagePathLatency", "IRauLatencyCalculator"},
    Exception{"CRI.MimoSpatialMute", "IMimoController"},
    Exception{"CRI.RestartRadio", "IRadio"},
    Exception{"CRI.SetAcmMode", "IDspAcmApi"},
    Exception{"CRI.SetAcmMode", "IDspApi"},
    Exception{"CRI.SetAcmRlpControl", "IDspAcmApi"},
    Exception{"CRI.SetAcmRlpControl", "IDspApi"},
    Exception{"CRI.SetActiveSubBand", "IRadio"},
    Exception{"CRI.SetFarEndPmaxCapability", "IAcmHandler"},
    Exception{"CRI.SetOutputModeDspPps", "IDspApi"},
    Exception{"CRI.SetOutputModeDspPps", "IDspChannelApi"},
    Exception{"CRI.SetRFPower", "IDspApi"},
    Exception{"CRI.SetRFPower", "IDspChannelApi"},
    Exception{"CRI.SetRadioChannelNearEnd", "IDspControlApi"},
    Exception{"CRI.SetRadioChannelNearEnd", "IRadioCapability"},
    Exception{"CRI.SetRadioChannelNearEnd", "ISystemPowerController"},
    Exception{"CRI.SetRauCarrierAggregation", "IHardwareConfigurationHandler"},
    Exception{"CRI.SetRauPowerSupplied", "IRadio"},
    Exception{"CRI.SetSourceDspPps", "IDspApi"},
    Exception{"CRI.SetSourceDspPps", "IDspChannelApi"},
    Exception{"CRI.XpicSlaveMute", "ICcdpController"},
    Exception{"TI.GetAcmThresholds", "IDspAcmApi"},
    Exception{"TI.GetAcmThresholds", "IDspApi"},
    Exception{"TI.GetDspTxMode", "IDspApi"},
    Exception{"TI.GetDspTxMode", "IDspChannelApi"},
    Exception{"TI.GetEvents", "IAlarmHandlerTopApi"},
    Exception{"TI.GetIfLoop", "IIfLoopDriver"},
    Exception{"TI.GetNarrowWideFilters", "IDspApi"},
    Exception{"TI.GetNarrowWideFilters", "IDspChannelApi"},
    Exception{"TI.GetRxXcStatusLevel", "IDspApi"},
    Exception{"TI.GetRxXcStatusLevel", "IDspStatusApi"},
    Exception{"TI.GetTXRFDetectedOutputPower", "IOutputPowerHandler"},
    Exception{"TI.ManageDsp", "IDspApi"},
    Exception{"TI.ManageMimo", "IDspChannelApi"},
    Exception{"TI.ManageMimo", "IDspStatusApi"},
    Exception{"TI.ManagePathLatencyCompensation", "IDspChannelApi"},
    Exception{"TI.ManagePm", "IDspApi"},
    Exception{"TI.ManageRadioChannelStatus", "IDspApi"},
    Exception{"TI.ManageRfPower", "ISystemPowerController"},
    Exception{"TI.ManageSpc", "IAtpcController"},
    Exception{"TI.ManageSpc", "IOutputPowerController"},
    Exception{"TI.ManageSpc", "ISpcSimulator"},
    Exception{"TI.ManageTXIFOutputPower", "IOutputPowerHandler"},
    Exception{"TI.ManageTXRFGain", "IOutputPowerHandler"},
    Exception{"TI.ManageXPIC", "ICcdpController"},
    Exception{"TI.SetDspTxMode", "IDspApi"},
    Exception{"TI.SetDspTxMode", "IDspChannelApi"},
    Exception{"TI.SetEvents", "IAlarmHandlerTopApi"},
    Exception{"TI.SetIfFrequency", "IDspApi"},
    Exception{"TI.SetIfFrequency", "IDspChannelApi"},
    Exception{"TI.SetIfLoop", "IIfLoopDriver"},
    Exception{"TI.SetNarrowWideFilters", "IDspApi"},
    Exception{"TI.SetNarrowWideFilters", "IDspChannelApi"},
};

// By their type and what they say: an option was left out that the request needs, or a text is no number.
constexpr std::array kUnreadable{
    Exception{"CRI.GetSpectrumDiagnostics", "BadOptional"},
    Exception{"CRI.SetSdcRlConfiguration", "invalid_argument: stoi"},
    Exception{"CRI.SetSdcRlConfiguration", "out_of_range: stoi"},
    Exception{"TI.ManageXPIC", "BadOptional"},
};

// Fills a record as its fields are described, and as they are not.
class RandomRecord
{
  public:
    explicit RandomRecord(Chance& chance) : m_chance(chance) {}

    void fill(std::span<const Field> fields, void* record)
    {
        for (const Field& field : fields) {
            if (!field.notes.hasDefault || m_chance.oneIn(2)) {
                fillValue(field, *field.type, field.address(record));
            }
        }
    }

  private:
    void fillValue(const Field& field, const ValueType& type, void* object)
    {
        switch (type.kind) {
        case Kind::Boolean:
            *static_cast<bool*>(object) = m_chance.oneIn(2);
            break;
        case Kind::Integer:
            type.number.set(object, integer(field, type));
            break;
        case Kind::Double:
            *static_cast<double*>(object) = m_chance.oneOf(std::array{0.0, -1.0, 0.5, 1e9, -1e300});
            break;
        case Kind::String:
            type.text.set(object, text(field, type));
            break;
        case Kind::Array:
            fillElements(field, type, object, m_chance.number(0, 3));
            break;
        case Kind::Optional:
            fillElements(field, type, object, m_chance.number(0, 1));
            break;
        case Kind::Struct:
            fill(type.fields, object);
            break;
        }
    }

    void fillElements(const Field& field, const ValueType& type, void* sequence, std::int64_t count)
    {
        for (; count > 0; --count) {
            fillValue(field, *type.element, type.sequence.append(sequence));
        }
    }

    std::int64_t integer(const Field& field, const ValueType& type)
    {
        if (field.isChannel() && !m_chance.oneIn(8)) {
            return m_chance.number(1, 2);
        }
        if (field.isChannel() && m_chance.oneIn(2)) {
            return 0; // which most commands don't check
        }
        if (const auto texts = zyr_registration::textsOf(type, field.notes);
            texts != nullptr && !m_chance.oneIn(4)) {
            return m_chance.oneOf(texts().rows).number;
        }
        const Range range = field.notes.range.value_or(type.range);
        const std::array candidates{range.minimum,
                                    range.minimum - 1,
                                    range.minimum + 1,
                                    range.maximum,
                                    range.maximum - 1,
                                    range.maximum + 1,
                                    type.range.minimum,
                                    type.range.maximum,
                                    std::int64_t{-1},
                                    std::int64_t{0},
                                    std::int64_t{1},
                                    std::int64_t{3},
                                    m_chance.number(-100, 500),
                                    m_chance.number(5'000'000, 25'000'000)}; // a frequency in kHz
        return std::clamp(m_chance.oneOf(candidates), type.range.minimum, type.range.maximum);
    }

    std::string text(const Field& field, const ValueType& type)
    {
        if (field.notes.texts != nullptr && !m_chance.oneIn(4)) {
            return std::string(m_chance.oneOf(field.notes.texts().rows).text);
        }
        const std::array<std::string, 12> candidates{std::string(field.notes.example),
                                                     std::string(field.notes.example),
                                                     std::string(type.form),
                                                     "",
                                                     "x",
                                                     "-1",
                                                     "12345",
                                                     "99999999999999999999",
                                                     "01:02:03:04:05:06",
                                                     "20260114T08:30:05",
                                                     std::string("\n\0\x7F\xFF%s", 6),
                                                     std::string(70, 'k')};
        return m_chance.oneOf(candidates);
    }

    Chance& m_chance;
};

bool isDescribed(const FaultNote& described, const BaseResponse& outcome)
{
    return described.result == outcome.tiResult && matches(described.text, outcome.faultString);
}

// One call, with its answer looked at in each of its forms.
class RandomExchange : public Exchange
{
  public:
    RandomExchange(const CommandEntry& command, Chance& chance, Request request)
        : m_command(command), m_chance(chance), m_request(request)
    {}

    // With the example, which serves on a node, on any channel.
    void fill(void* command) const override
    {
        constexpr std::uint32_t channels = 2;
        const auto& fields = m_command.notes.request;
        if (m_request == Request::Random) {
            RandomRecord(m_chance).fill(fields, command);
            return;
        }
        zyr_registration::readRecord(m_command.name(), fields,
                                     zyr_registration::exampleRequest(m_command.notes, channels), channels,
                                     command);
        for (const Field& field : fields) {
            if (field.isChannel() && field.type->kind == Kind::Integer) {
                field.type->number.set(field.address(command), m_chance.number(1, channels));
            }
        }
    }

    void take(const BaseResponse& outcome, const void* response) override
    {
        hasAnswered = true;
        isSuccess = outcome.tiResult < 0x8000;
        EXPECT_EQ(outcome.faultCode > 0, !isSuccess);
        EXPECT_EQ(outcome.faultString.empty(), isSuccess);
        const auto isIt = [&](const FaultNote& described) { return isDescribed(described, outcome); };
        if (!isSuccess && std::ranges::none_of(m_command.notes.faults, isIt)) {
            unknownFault = outcome.faultString;
        }
        outcome.printResponse();
        const Value value = zyr_registration::valueOf(m_command.notes.response, response);
        EXPECT_LE(value.size(), m_command.notes.response.size());
    }

    bool hasAnswered = false;
    bool isSuccess = false;
    std::string unknownFault;

  private:
    const CommandEntry& m_command;
    Chance& m_chance;
    Request m_request;
};

} // namespace

// As many bytes as the range takes, so that a byte more or less changes little of what follows.
std::int64_t Chance::told(std::int64_t least, std::int64_t most)
{
    const std::uint64_t range = static_cast<std::uint64_t>(most) - static_cast<std::uint64_t>(least);
    std::uint64_t number = 0;
    for (std::uint64_t rest = range; rest > 0 && !m_bytes->empty(); rest >>= 8U) {
        number = number << 8U | static_cast<unsigned char>(m_bytes->front());
        m_bytes->remove_prefix(1);
    }
    const std::uint64_t offset = range == UINT64_MAX ? number : number % (range + 1);
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(least) + offset);
}

std::uint32_t Chance::code()
{
    constexpr std::array<std::uint32_t, 14> special{0,      1,      0x1000, 0x1001,    0x1003,
                                                    0x7FFF, 0x8000, 0x8001, 0x8003,    0x8015,
                                                    0x801E, 0xA100, 0xFFFF, 0x80000000};
    return oneIn(4) ? static_cast<std::uint32_t>(number(-10, 300)) : oneOf(special);
}

unsigned numberOfCalls()
{
    const char* const told = std::getenv("ZYR_WALK_CALLS");
    return told == nullptr ? 10'000 : static_cast<unsigned>(std::stoul(told));
}

void RandomCalls::call(const CommandEntry& command, void* implementation, unsigned completeChannels,
                       Request request)
{
    RandomExchange exchange(command, m_chance, request);
    try {
        command.run(implementation, exchange);
        EXPECT_TRUE(exchange.hasAnswered);
        note(command, exchange.isSuccess, exchange.unknownFault);
    } catch (const general_classes::BadOptional&) {
        expectUnreadable(command, "BadOptional");
    } catch (const std::invalid_argument& exception) {
        expectUnreadable(command, std::string("invalid_argument: ") + exception.what());
    } catch (const std::out_of_range& exception) {
        const std::string_view what = exception.what();
        const std::size_t end = what.find(" of ");
        if (end == std::string_view::npos) {
            expectUnreadable(command, "out_of_range: " + std::string(what));
        } else {
            expectMissing(command, what.substr(0, end), what.substr(end + 4), completeChannels);
        }
    } catch (const std::exception& exception) {
        surprise(command, exception.what());
    }
}

void RandomCalls::note(const CommandEntry& command, bool isSuccess, const std::string& unknownFault)
{
    if (isSuccess) {
        m_succeeded.insert(command.name());
    }
    if (!unknownFault.empty()) {
        surprise(command, "a fault that isn't described: " + unknownFault);
    }
}

void RandomCalls::expectUnreadable(const CommandEntry& command, const std::string& exception)
{
    if (!seeRow(kUnreadable, 0, command, exception)) {
        surprise(command, exception);
    }
}

// @param place  "the node" or "radio channel <n>"
void RandomCalls::expectMissing(const CommandEntry& command, std::string_view collaborator,
                                std::string_view place, unsigned completeChannels)
{
    bool isThere = completeChannels > 0 && place == "the node";
    for (unsigned channel = 1; channel <= completeChannels; ++channel) {
        isThere = isThere || place == "radio channel " + std::to_string(channel);
    }
    if (isThere || !seeRow(kMissing, kUnreadable.size(), command, collaborator)) {
        surprise(command, std::string(collaborator) + " of " + std::string(place));
    }
}

template <class Rows>
bool RandomCalls::seeRow(const Rows& rows, std::size_t first, const CommandEntry& command,
                         std::string_view what)
{
    const auto* const row = std::ranges::find_if(
        rows, [&](const auto& known) { return known.command == command.name() && known.what == what; });
    if (row != rows.end()) {
        m_rowsSeen.insert(first + static_cast<std::size_t>(row - rows.begin()));
    }
    return row != rows.end();
}

void RandomCalls::surprise(const CommandEntry& command, const std::string& what)
{
    m_surprises.insert(std::string(command.name()) + ": " + what);
}

std::string RandomCalls::surprises() const
{
    std::string lines;
    for (const std::string& surprise : m_surprises) {
        lines += surprise + "\n";
    }
    return lines;
}

std::string RandomCalls::neverSucceeded() const
{
    std::string lines;
    for (const CommandEntry& command : zyr_registration::allCommands()) {
        if (!m_succeeded.contains(command.name())) {
            lines.append(command.name()).append("\n");
        }
    }
    return lines;
}

std::string RandomCalls::exceptionsNotSeen() const
{
    std::string lines;
    std::size_t row = 0;
    const auto addUnseen = [&](const auto& rows) {
        for (const Exception& known : rows) {
            if (!m_rowsSeen.contains(row++)) {
                lines.append(known.command).append(": ").append(known.what).append("\n");
            }
        }
    };
    addUnseen(kUnreadable);
    addUnseen(kMissing);
    return lines;
}

} // namespace zyr_test
