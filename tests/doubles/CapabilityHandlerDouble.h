#pragma once

#include "Answer.h"
#include "ICapabilityHandler.h"
#include "Recorder.h"

#include <string>

namespace zyr_test
{

/// Recording double of `ICapabilityHandler`.
class CapabilityHandlerDouble : public ICapabilityHandler, public Recorder
{
  public:
    CapabilityHandlerDouble(Transcript& transcript, std::string name);
    ~CapabilityHandlerDouble() override;
    CapabilityHandlerDouble(const CapabilityHandlerDouble&) = delete;
    CapabilityHandlerDouble& operator=(const CapabilityHandlerDouble&) = delete;

    bool isLonghaul() override
    {
        record("isLonghaul");
        return defaultsInForce ? ICapabilityHandler::isLonghaul() : onIsLonghaul.next();
    }

    bool isTapsCapable() const override
    {
        record("isTapsCapable");
        return defaultsInForce ? ICapabilityHandler::isTapsCapable() : onIsTapsCapable.next();
    }

    bool isMaxAcmLimitedByHw() const override
    {
        record("isMaxAcmLimitedByHw");
        return defaultsInForce ? ICapabilityHandler::isMaxAcmLimitedByHw() : onIsMaxAcmLimitedByHw.next();
    }

    zyr_top_api::ModulationAndCoding
    getMaxAcmLimitedByHw(const std::vector<std::int16_t>& profile) const override
    {
        record("getMaxAcmLimitedByHw", profile);
        return defaultsInForce ? ICapabilityHandler::getMaxAcmLimitedByHw(profile)
                               : onGetMaxAcmLimitedByHw.next();
    }

    Answer<bool> onIsLonghaul;
    mutable Answer<bool> onIsTapsCapable;
    mutable Answer<bool> onIsMaxAcmLimitedByHw;
    mutable Answer<zyr_top_api::ModulationAndCoding> onGetMaxAcmLimitedByHw;
};

} // namespace zyr_test
