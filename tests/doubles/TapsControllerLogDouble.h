#pragma once

#include "Answer.h"
#include "ITapsControllerLog.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `ITapsControllerLog`.
class TapsControllerLogDouble : public ITapsControllerLog, public Recorder
{
  public:
    TapsControllerLogDouble(Transcript& transcript, std::string name);
    ~TapsControllerLogDouble() override;
    TapsControllerLogDouble(const TapsControllerLogDouble&) = delete;
    TapsControllerLogDouble& operator=(const TapsControllerLogDouble&) = delete;

    ESPCResult startLog() override
    {
        record("startLog");
        return onStartLog.next();
    }

    ESPCResult stopLog() override
    {
        record("stopLog");
        return onStopLog.next();
    }

    ESPCResult setLogPeriod(unsigned seconds) override
    {
        record("setLogPeriod", seconds);
        return onSetLogPeriod.next();
    }

    ESPCResult dumpLogToFile() override
    {
        record("dumpLogToFile");
        return onDumpLogToFile.next();
    }

    ESPCResult readSample(zyr_top_api::TapsLogData& sample) override
    {
        record("readSample");
        return onReadSample.next(sample);
    }

    bool isLogActive() override
    {
        record("isLogActive");
        return onIsLogActive.next();
    }

    ESPCResult getLogPeriod(unsigned& seconds) override
    {
        record("getLogPeriod");
        return onGetLogPeriod.next(seconds);
    }

    Answer<ESPCResult> onStartLog;
    Answer<ESPCResult> onStopLog;
    Answer<ESPCResult> onSetLogPeriod;
    Answer<ESPCResult> onDumpLogToFile;
    Answer<ESPCResult, zyr_top_api::TapsLogData> onReadSample;
    Answer<bool> onIsLogActive;
    Answer<ESPCResult, unsigned> onGetLogPeriod;
};

} // namespace zyr_test
