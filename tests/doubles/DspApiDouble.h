#pragma once

#include "DspAcmApiDouble.h"
#include "DspChannelApiDouble.h"
#include "DspControlApiDouble.h"
#include "DspStatusApiDouble.h"
#include "IDspApi.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Double of `IDspApi`, with the doubles of its parts. It hands these out without a word: how often a command
/// asks for a part is its own affair. The parts of "IDspApi_1" are called "IDspChannelApi_1" and so on.
class DspApiDouble : public IDspApi, public Recorder
{
  public:
    DspApiDouble(Transcript& transcript, const std::string& name);
    ~DspApiDouble() override;
    DspApiDouble(const DspApiDouble&) = delete;
    DspApiDouble& operator=(const DspApiDouble&) = delete;

    IDspChannelApi* getDspChannelApi() override { return onGetDspChannelApi.next(); }
    IDspStatusApi* getDspStatusApi() override { return onGetDspStatusApi.next(); }
    IDspControlApi* getDspControlApi() override { return onGetDspControlApi.next(); }
    IDspAcmApi* getAcmApi() override { return onGetAcmApi.next(); }

    DspChannelApiDouble channelApi;
    DspStatusApiDouble statusApi;
    DspControlApiDouble controlApi;
    DspAcmApiDouble acmApi;

    Answer<IDspChannelApi*> onGetDspChannelApi{&channelApi};
    Answer<IDspStatusApi*> onGetDspStatusApi{&statusApi};
    Answer<IDspControlApi*> onGetDspControlApi{&controlApi};
    Answer<IDspAcmApi*> onGetAcmApi{&acmApi};
};

} // namespace zyr_test
