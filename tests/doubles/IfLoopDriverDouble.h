#pragma once

#include "Answer.h"
#include "IIfLoopDriver.h"
#include "Recorder.h"

namespace zyr_test
{

/// Recording double of `IIfLoopDriver`.
class IfLoopDriverDouble : public IIfLoopDriver, public Recorder
{
  public:
    using Recorder::Recorder;

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
