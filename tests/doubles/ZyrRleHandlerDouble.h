#pragma once

#include "Answer.h"
#include "IZyrRleHandler.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `IZyrRleHandler`.
class ZyrRleHandlerDouble : public zyr::IZyrRleHandler, public Recorder
{
  public:
    ZyrRleHandlerDouble(Transcript& transcript, std::string name);
    ~ZyrRleHandlerDouble() override;
    ZyrRleHandlerDouble(const ZyrRleHandlerDouble&) = delete;
    ZyrRleHandlerDouble& operator=(const ZyrRleHandlerDouble&) = delete;

    std::int32_t getRleStatus() override
    {
        record("getRleStatus");
        return onGetRleStatus.next();
    }

    bool setRadioLinkEncryption(const std::string& masterKey, std::uint32_t txFrequency_kHz,
                                std::uint32_t rxFrequency_kHz, bool enableRle) override
    {
        record("setRadioLinkEncryption", masterKey, txFrequency_kHz, rxFrequency_kHz, enableRle);
        return onSetRadioLinkEncryption.next();
    }

    Answer<std::int32_t> onGetRleStatus;
    Answer<bool> onSetRadioLinkEncryption{true};
};

} // namespace zyr_test
