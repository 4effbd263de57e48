#pragma once

#include "Answer.h"
#include "IIfLoopDriver.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IIfLoopDriver`.
class IfLoopDriverDouble : public IIfLoopDriver, public Recorder
{
  public:
    IfLoopDriverDouble(Transcript& transcript, std::string name);
    ~IfLoopDriverDouble() override;
    IfLoopDriverDouble(const IfLoopDriverDouble&) = delete;
    IfLoopDriverDouble& operator=(const IfLoopDriverDouble&) = delete;

    int getIfLoop(unsigned char& ifLoop) override
    {
        record("getIfLoop");
        return onGetIfLoop.next(ifLoop);
    }

    int setIfLoop(bool on) override
    {
        record("setIfLoop", on);
        return onSetIfLoop.next();
    }

    Answer<int, unsigned char> onGetIfLoop;
    Answer<int> onSetIfLoop;
};

} // namespace zyr_test
