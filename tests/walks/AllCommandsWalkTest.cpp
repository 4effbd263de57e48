#include "CommandEntry.h"
#include "Conversion.h"
#include "Optional.h"
#include "SimulatedNode.h"
#include "VirtualTime.h"
#include "ZyrApiHandler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// Random requests to all commands of a simulated node, with values inside, at and outside of what the
// descriptions tell, and with operations of collaborators that fail at random.

namespace
{

using namespace zyr_top_api;
using zyr_registration::CommandEntry;
using zyr_registration::Exchange;
using zyr_registration::Field;
using zyr_registration::Kind;
using zyr_registration::Value;
using zyr_registration::ValueType;

constexpr unsigned kCalls = 10'000;

class Chance
{
  public:
    explicit Chance(unsigned seed) : m_random(seed) {}

    std::int64_t number(std::int64_t least, std::int64_t most)
    {
        return std::uniform_int_distribution(least, most)(m_random);
    }
    bool oneIn(unsigned many) { return number(1, many) == 1; }

    template <class Range>
    const auto& oneOf(const Range& range)
    {
        return range[static_cast<std::size_t>(number(0, static_cast<std::int64_t>(std::size(range)) - 1))];
    }

  private:
    std::mt19937 m_random;
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

    bool hasOddChannel = false; ///< a channel that the node doesn't have was given

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
            type.text.set(object, text(field));
            break;
        case Kind::Array:
        case Kind::Optional:
            for (std::int64_t left = m_chance.number(0, type.kind == Kind::Optional ? 1 : 3); left > 0;
                 --left) {
                fillValue(field, *type.element, type.sequence.append(object));
            }
            break;
        case Kind::Struct:
            fill(type.fields, object);
            break;
        }
    }

    std::int64_t integer(const Field& field, const ValueType& type)
    {
        if (field.isChannel()) {
            const std::int64_t channel =
                m_chance.oneIn(8) ? m_chance.oneOf(std::array{0L, 3L, 0xFFFFFFFFL}) : m_chance.number(1, 2);
            hasOddChannel = hasOddChannel || channel < 1 || channel > 2;
            return std::min(channel, type.range.maximum);
        }
        if (type.texts != nullptr && !m_chance.oneIn(4)) {
            return m_chance.oneOf(type.texts()).number;
        }
        const auto range = field.notes.range.value_or(type.range);
        const std::array candidates{range.minimum,     range.minimum + 1,  range.maximum - 1,
                                    range.maximum,     range.minimum - 1,  range.maximum + 1,
                                    std::int64_t{0},   std::int64_t{1},    std::int64_t{-1},
                                    std::int64_t{100}, std::int64_t{101},  m_chance.number(-100, 300),
                                    std::int64_t{103}, type.range.minimum, type.range.maximum};
        return std::clamp(m_chance.oneOf(candidates), type.range.minimum, type.range.maximum);
    }

    std::string text(const Field& field)
    {
        if (field.notes.texts != nullptr && !m_chance.oneIn(4)) {
            return std::string(m_chance.oneOf(field.notes.texts()).text);
        }
        const std::array<std::string, 9> candidates{std::string(field.notes.example),
                                                    std::string(field.valueType().form),
                                                    "",
                                                    "x",
                                                    "-1",
                                                    "12345",
                                                    "99999999999999999999",
                                                    "01:02:03:04:05:06",
                                                    std::string(70, 'k')};
        return m_chance.oneOf(candidates);
    }

    Chance& m_chance;
};

// One call, with all its answer's forms looked at.
class RandomCall : public Exchange
{
  public:
    RandomCall(const CommandEntry& command, Chance& chance) : m_command(command), m_record(chance) {}

    void fill(void* command) const override { m_record.fill(m_command.notes.request, command); }

    void take(const BaseResponse& outcome, const void* response) override
    {
        const bool hasFailed = outcome.tiResult >= 0x8000;
        EXPECT_EQ(outcome.faultCode > 0, hasFailed);
        EXPECT_EQ(outcome.faultString.empty(), !hasFailed);
        outcome.printResponse();
        Value value = Value::object();
        zyr_registration::writeRecord(m_command.notes.response, response, value);
        EXPECT_LE(value.size(), m_command.notes.response.size());
        hasAnswered = true;
    }

    bool hasOddChannel() const { return m_record.hasOddChannel; }

    bool hasAnswered = false;

  private:
    const CommandEntry& m_command;
    mutable RandomRecord m_record; // told what it gave
};

class AllCommandsWalkTest : public testing::Test
{
  protected:
    AllCommandsWalkTest()
    {
        for (const CommandEntry& command : zyr_registration::allCommands()) {
            m_live.push_back(command.create());
            EXPECT_EQ(command.initialize(m_live.back().implementation.get(), 2), eTI_S_OK) << command.name();
            if (!command.isDirect()) {
                ZyrApiHandler::m_cmds.push_back(m_live.back().wrapper);
            }
        }
        ZyrApiHandler::setTiEnabled(true);
        m_operations = m_node.faults().operations();
    }
    ~AllCommandsWalkTest() override
    {
        ZyrApiHandler::setTiEnabled(false);
        ZyrApiHandler::m_cmds.clear();
    }

    void injectAtRandom()
    {
        auto collaborator = m_operations.begin();
        std::advance(collaborator, m_chance.number(0, static_cast<std::int64_t>(m_operations.size()) - 1));
        const auto code = m_chance.oneOf(std::array{0U, 1U, 3U, 0x7FFFU, 0x8000U, 0x8001U, 0x8003U, 0xA100U});
        m_node.faults().inject({collaborator->first, m_chance.oneOf(collaborator->second), 0, code,
                                static_cast<unsigned>(m_chance.number(1, 3))});
    }

    void step()
    {
        const auto commands = zyr_registration::allCommands();
        const auto index =
            static_cast<std::size_t>(m_chance.number(0, static_cast<std::int64_t>(commands.size()) - 1));
        const CommandEntry& command = commands[index];
        SCOPED_TRACE(command.name());
        if (m_chance.oneIn(3)) {
            injectAtRandom();
        }
        if (command.notes.isLongPoll) {
            m_node.faults().inject({"IAlarmHandlerTopApi", "getFastAlarms", 0, 0x8000, 1}); // or it hangs
        }
        RandomCall call(command, m_chance);
        try {
            command.run(m_live[index].implementation.get(), call);
            EXPECT_TRUE(call.hasAnswered);
            m_answered.insert(command.name());
        } catch (const general_classes::BadOptional&) {
            m_thrown[std::string(command.name())].insert("BadOptional");
        } catch (const std::out_of_range& exception) {
            if (!call.hasOddChannel()) {
                m_thrown[std::string(command.name())].insert(exception.what());
            }
        } catch (const std::invalid_argument& exception) {
            m_thrown[std::string(command.name())].insert(exception.what());
        }
        m_time.advance(std::chrono::milliseconds(m_chance.number(0, 500)));
    }

    Chance m_chance{1};
    zyr_platform::VirtualTime m_time;
    zyr_simulation::SimulatedNode m_node{{}, m_time};
    std::vector<zyr_registration::LiveCommand> m_live;
    std::map<std::string, std::vector<std::string>, std::less<>> m_operations;
    std::set<std::string_view> m_answered;
    std::map<std::string, std::set<std::string>> m_thrown; ///< with channels that the node has
};

TEST_F(AllCommandsWalkTest, NothingButTheToldExceptionsLeavesACommand)
{
    for (unsigned call = 1; call <= kCalls && !HasFailure(); ++call) {
        SCOPED_TRACE("call " + std::to_string(call));
        step();
    }
    EXPECT_EQ(m_answered.size(), 72U);
    std::string thrown;
    for (const auto& [command, texts] : m_thrown) {
        for (const auto& text : texts) {
            thrown += command + ": " + text + "\n";
        }
    }
    EXPECT_EQ(thrown, "");
}

} // namespace
