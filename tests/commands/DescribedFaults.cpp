#include "CommandEntry.h"
#include "DescribedText.h"
#include "ToldFaults.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <string_view>

// At the end of a run the faults that the commands' tests have told are compared with those that the commands
// describe, both ways. A command's tests stand in files whose names begin with its class name, or are an
// instantiation of that name of tests that several commands share.

namespace
{

using zyr_registration::CommandEntry;
using zyr_registration::FaultNote;
using zyr_test::ToldFault;

// What the frame answers in the place of any command.
constexpr std::array kFaultsOfTheFrame{
    FaultNote{zyr_top_api::eTI_E_OPERATION_NOT_ALLOWED, "Error: Command not available", ""},
    FaultNote{zyr_top_api::eTI_E_FAILED, "Error: Cast of CmdWrapper failed", ""},
};

bool matches(const FaultNote& described, const ToldFault& told)
{
    return described.result == told.result && zyr_test::matches(described.text, told.text);
}

bool belongsTo(std::string_view testFile, std::string_view testSuite, const CommandEntry& command)
{
    return testFile.substr(testFile.rfind('/') + 1).starts_with(command.identity->className) ||
           testSuite.starts_with(std::string(command.identity->className) + "/");
}

// The tests of a command, whether they ran or not.
bool hasTests(const CommandEntry& command)
{
    const auto& unitTest = *::testing::UnitTest::GetInstance();
    for (int suite = 0; suite < unitTest.total_test_suite_count(); ++suite) {
        const auto& test = *unitTest.GetTestSuite(suite)->GetTestInfo(0);
        if (belongsTo(test.file(), test.test_suite_name(), command)) {
            return true;
        }
    }
    return false;
}

bool haveAllTestsRun()
{
    const auto& unitTest = *::testing::UnitTest::GetInstance();
    return unitTest.test_to_run_count() + unitTest.disabled_test_count() == unitTest.total_test_count();
}

std::string shown(const CommandEntry& command, zyr_top_api::ETIResult result, std::string_view text)
{
    return std::string(command.name()) + " " + std::string(zyr_top_api::etiResultToString(result)) + " \"" +
           std::string(text) + "\"";
}

void expectDescribed(const CommandEntry& command, const ToldFault& told)
{
    const auto isIt = [&](const FaultNote& described) { return matches(described, told); };
    if (std::ranges::none_of(command.notes.faults, isIt) && std::ranges::none_of(kFaultsOfTheFrame, isIt)) {
        ADD_FAILURE() << "not described: " << shown(command, told.result, told.text);
    }
}

void expectTold(const CommandEntry& command, const FaultNote& described,
                const std::set<ToldFault>& toldFaults)
{
    const auto isIt = [&](const ToldFault& told) {
        return belongsTo(told.testFile, told.testSuite, command) && matches(described, told);
    };
    if (std::ranges::none_of(toldFaults, isIt)) {
        ADD_FAILURE() << "told by no test: " << shown(command, described.result, described.text);
    }
}

class DescribedFaults : public ::testing::Environment
{
  public:
    void TearDown() override
    {
        const std::set<ToldFault> toldFaults = zyr_test::ToldFaults::get().all();
        for (const CommandEntry& command : zyr_registration::allCommands()) {
            if (!hasTests(command)) {
                ADD_FAILURE() << "without tests: " << command.name();
            }
            for (const ToldFault& told : toldFaults) {
                if (belongsTo(told.testFile, told.testSuite, command)) {
                    expectDescribed(command, told);
                }
            }
            if (haveAllTestsRun()) {
                for (const FaultNote& described : command.notes.faults) {
                    expectTold(command, described, toldFaults);
                }
            }
        }
    }
};

// GoogleTest owns it.
[[maybe_unused]] const auto* const kDescribedFaults =
    ::testing::AddGlobalTestEnvironment(new DescribedFaults()); // NOLINT(cert-err58-cpp)

} // namespace
