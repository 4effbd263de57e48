#include "SimulatedRauHandler.h"

#include "Processes.h"
#include "RadioType.h"

namespace zyr_simulation
{

using zyr_top_api::ERAUHResult;
using zyr_top_api::ETIResult;
using zyr_top_api::RadioRestartStatus;
using zyr_top_api::RauPowerMode;

namespace
{

constexpr unsigned kFirst = 1;
constexpr unsigned kSecond = 2;
constexpr unsigned kBoth = 255;

// A power mode has two bits for each transmitter.
constexpr unsigned kFirstBits = 0x3;
constexpr unsigned kSecondBits = 0xC;

/// The bits of a transmitter's power mode, 0 for a number that names none.
unsigned bitsOf(unsigned transmitter)
{
    switch (transmitter) {
    case kFirst:
        return kFirstBits;
    case kSecond:
        return kSecondBits;
    case kBoth:
        return kFirstBits | kSecondBits;
    default:
        return 0;
    }
}

} // namespace

bool SimulatedRauHandler::isAvailable()
{
    return read([&] { return radio().isUp(); });
}

ERAUHResult SimulatedRauHandler::triggerRestart(unsigned /*restartType*/)
{
    if (const auto code = fault("triggerRestart")) {
        locked([&] {
            if (radio().restart != RadioRestartStatus::Restarting) {
                radio().restart = RadioRestartStatus::RestartFailed;
            }
        });
        return static_cast<ERAUHResult>(*code);
    }
    return locked([&] {
        if (radio().restart == RadioRestartStatus::Restarting) {
            return zyr_top_api::eRAUH_E_RADIO_NOT_UP;
        }
        radio().restart = RadioRestartStatus::Restarting;
        radio().restartEndsAt = node().settleAfter(kRadioRestartTime);
        return zyr_top_api::eRAUH_S_OK;
    });
}

RadioRestartStatus SimulatedRauHandler::getRestartStatus()
{
    return read([&] { return radio().restart; });
}

ERAUHResult SimulatedRauHandler::endRestart()
{
    return perform<ERAUHResult>("endRestart", [&] {
        if (radio().restart == RadioRestartStatus::Restarting) {
            return zyr_top_api::eRAUH_E_RADIO_NOT_UP;
        }
        radio().restart = RadioRestartStatus::Idle;
        return zyr_top_api::eRAUH_S_OK;
    });
}

bool SimulatedRauHandler::isPowerSupplied()
{
    return read([&] { return radio().isPowerSupplied; });
}

ERAUHResult SimulatedRauHandler::setPowerSupplied(std::uint32_t value)
{
    return perform<ERAUHResult>("setPowerSupplied", [&] {
        const bool isSupplied = value != 0;
        if (isSupplied && !radio().isPowerSupplied) {
            radio().startEndsAt = node().settleAfter(kRadioStartTime);
        }
        radio().isStarting = isSupplied && (radio().isStarting || !radio().isPowerSupplied);
        radio().isPowerSupplied = isSupplied;
    });
}

ETIResult SimulatedRauHandler::setActiveSubBand(unsigned char subBand)
{
    return perform<ETIResult>("setActiveSubBand", [&] {
        if (!radio().isUp()) {
            return zyr_top_api::eTI_E_OPERATION_NOT_ALLOWED;
        }
        if (subBand > kSubBands) {
            return zyr_top_api::eTI_E_INVALID_ARGUMENT;
        }
        radio().subBand = subBand;
        return zyr_top_api::eTI_S_OK;
    });
}

ERAUHResult SimulatedRauHandler::setTxIfSwitch2T2R(unsigned mode, unsigned channelIndex)
{
    return perform<ERAUHResult>("setTxIfSwitch2T2R", [&] {
        if (!radio().isUp()) {
            return zyr_top_api::eRAUH_E_RADIO_NOT_UP;
        }
        if (!node().settings.twoTransmitters) {
            return zyr_top_api::eRAUH_E_NOT_IMPLEMENTED;
        }
        radio().ifSwitchModes[channelIndex] = mode;
        return zyr_top_api::eRAUH_S_OK;
    });
}

ERAUHResult SimulatedRauHandler::setPowerMode(RauPowerMode mode)
{
    return perform<ERAUHResult>("setPowerMode", [&] {
        const auto bits = bitsOf(mode.trxId);
        if (bits == 0) {
            return zyr_top_api::eRAUH_E_OUT_OF_RANGE;
        }
        if (!radio().isUp()) {
            return zyr_top_api::eRAUH_E_RADIO_NOT_UP;
        }
        radio().powerMode = (radio().powerMode & ~bits) | (mode.powerMode & bits);
        return zyr_top_api::eRAUH_S_OK;
    });
}

ERAUHResult SimulatedRauHandler::getPowerMode(unsigned char trxId, unsigned char& powerMode)
{
    return ask<ERAUHResult>("getPowerMode", [&] {
        const auto bits = bitsOf(trxId);
        if (bits == 0) {
            return zyr_top_api::eRAUH_E_OUT_OF_RANGE;
        }
        if (!radio().isUp()) {
            return zyr_top_api::eRAUH_E_RADIO_NOT_UP;
        }
        powerMode = static_cast<unsigned char>(radio().powerMode & bits);
        return zyr_top_api::eRAUH_S_OK;
    });
}

bool SimulatedRauHandler::isRau2T2R()
{
    return read([&] { return node().settings.twoTransmitters; });
}

} // namespace zyr_simulation
