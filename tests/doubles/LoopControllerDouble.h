#pragma once

#include "Answer.h"
#include "ILoopController.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `ILoopController`.
class LoopControllerDouble : public nord::zyr::loops::ILoopController, public Recorder
{
  public:
    LoopControllerDouble(Transcript& transcript, std::string name);
    ~LoopControllerDouble() override;
    LoopControllerDouble(const LoopControllerDouble&) = delete;
    LoopControllerDouble& operator=(const LoopControllerDouble&) = delete;

    ResultCode getLoops(std::vector<zyr_top_api::LoopStatePair>& loops) override
    {
        record("getLoops");
        return onGetLoops.next(loops);
    }

    ResultCode setLoop(const std::string& loopName, bool closed) override
    {
        record("setLoop", loopName, closed);
        return onSetLoop.next();
    }

    Answer<ResultCode, std::vector<zyr_top_api::LoopStatePair>> onGetLoops;
    Answer<ResultCode> onSetLoop;
};

} // namespace zyr_test
