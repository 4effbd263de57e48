#pragma once

#include "CommandTest.h"
#include "DspApiDouble.h"
#include "MemorySink.h"

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

namespace zyr_test
{

/// Fixture of commands whose only collaborator is the DSP of the channel.
class DspApiFixture : public CommandTest
{
  protected:
    DspApiFixture()
    {
        publish(dspApi1);
        publish(dspApi2);
        transcript.clear();
    }

    /// Runs the function and expects that each line that it traces on the channel names the file, without its
    /// ending, and the function.
    template <class Function>
    static void expectTraceOf(std::string_view channel, std::string_view file, std::string_view function,
                              Function run)
    {
        const auto sink = std::make_shared<zyr_platform::MemorySink>();
        {
            const auto registration = zyr_platform::TraceService::get().addSink(sink);
            setTraceLevel(channel, 7);
            run();
        }
        const auto records = sink->records();
        EXPECT_FALSE(records.empty());
        for (const auto& record : records) {
            EXPECT_EQ(record.channel, channel);
            EXPECT_EQ(record.header.file, std::string(file) + ".cpp") << record.text;
            EXPECT_EQ(record.header.function, function) << record.text;
        }
    }

    DspApiDouble dspApi1{transcript, "IDspApi_1"};
    DspApiDouble dspApi2{transcript, "IDspApi_2"};
};

} // namespace zyr_test
