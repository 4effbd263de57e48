#pragma once

#include "CommandEntry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace zyr_test
{

/// Chance, the same one in every run.
class Chance
{
  public:
    explicit Chance(unsigned seed) : m_random(seed) {}

    /// What bytes say, one behind the other; behind their end it is always the least number.
    explicit Chance(std::string_view bytes) : m_bytes(bytes) {}

    /// A number from `least` to `most`, both included.
    std::int64_t number(std::int64_t least, std::int64_t most)
    {
        return m_bytes ? told(least, most) : std::uniform_int_distribution(least, most)(m_random);
    }

    /// Whether the bytes are at their end.
    bool isOver() const { return m_bytes && m_bytes->empty(); }

    bool oneIn(unsigned many) { return number(1, many) == 1; }

    /// An element of a range that has some.
    template <class Range>
    const auto& oneOf(const Range& range)
    {
        return range[static_cast<std::size_t>(number(0, static_cast<std::int64_t>(std::size(range)) - 1))];
    }

    /// What an operation may answer: the special results and their neighbours, and any small number.
    std::uint32_t code();

  private:
    std::int64_t told(std::int64_t least, std::int64_t most);

    std::mt19937 m_random;
    std::optional<std::string_view> m_bytes;
};

/// How many calls a walk makes: what the environment variable `ZYR_WALK_CALLS` says, else 10 000.
unsigned numberOfCalls();

/// What a request holds.
enum class Request
{
    Random,  ///< values by the fields' descriptions, those that they tell and others
    Example, ///< the described example, which serves on the simulated node, for any of two channels
};

/// Calls commands with requests that are filled by the fields' descriptions, with what they tell and with
/// what they don't, and looks at what comes out: a response that can be printed and written, with a fault
/// that is described or without one, or an exception that may leave the command (the table in the source).
class RandomCalls
{
  public:
    explicit RandomCalls(Chance& chance) : m_chance(chance) {}

    /// Calls a command once.
    /// @param completeChannels  0: any collaborator may be missing; else the number of channels of a node
    /// that has them all
    void call(const zyr_registration::CommandEntry& command, void* implementation, unsigned completeChannels,
              Request request);

    /// What else has come out so far, a line for each kind.
    std::string surprises() const;

    /// The commands that have never answered without a fault, a line each.
    std::string neverSucceeded() const;

    /// The rows of the tables that no call has come to, a line each.
    std::string exceptionsNotSeen() const;

  private:
    void note(const zyr_registration::CommandEntry& command, bool isSuccess, const std::string& unknownFault);
    void expectUnreadable(const zyr_registration::CommandEntry& command, const std::string& exception);
    void expectMissing(const zyr_registration::CommandEntry& command, std::string_view collaborator,
                       std::string_view place, unsigned completeChannels);
    template <class Rows>
    bool seeRow(const Rows& rows, std::size_t first, const zyr_registration::CommandEntry& command,
                std::string_view what);
    void surprise(const zyr_registration::CommandEntry& command, const std::string& what);

    Chance& m_chance;
    std::set<std::string> m_surprises;
    std::set<std::string_view> m_succeeded;
    std::set<std::size_t> m_rowsSeen; ///< of the tables, one behind the other
};

} // namespace zyr_test
