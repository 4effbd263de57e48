// Bytes become calls of any commands, with requests of known and of unknown values, through the dispatcher on
// a simulated node under virtual time where anything fails and changes. Nothing but described faults and the
// known exceptions may come out, and every response can be printed and written.

#include "Fuzz.h"
#include "RandomCalls.h"
#include "TraceService.h"
#include "TraceSink.h"
#include "WalkOnNode.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace
{

// As if somebody read the trace.
class Reader : public zyr_platform::TraceSink
{
  public:
    void write(const zyr_platform::TraceRecord& record) override { m_read += record.text.size(); }

  private:
    std::size_t m_read = 0;
};

// An assertion that fails ends the process.
bool areAssertionsFatal()
{
    testing::FLAGS_gtest_throw_on_failure = true;
    return true;
}

} // namespace

void zyr_fuzz::consume(std::string_view input)
{
    static const bool fatal = areAssertionsFatal();
    static const auto reader = zyr_platform::TraceService::get().addSink(std::make_shared<Reader>());
    constexpr int most = 40;
    zyr_test::Chance chance(input);
    zyr_test::WalkOnNode steps(chance);
    steps.renew();
    for (int call = 0; call < most && !chance.isOver(); ++call) {
        const auto& command = chance.oneOf(zyr_registration::allCommands());
        zyr_test::setAnyTraceLevel(chance);
        steps.step(command);
    }
    zyr_platform::TraceService::get().resetLevels();
    require(fatal && steps.calls().surprises().empty(), steps.calls().surprises().c_str(), input);
}
