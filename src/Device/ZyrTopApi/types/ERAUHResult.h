#pragma once

#include "Export.h"

#include <cstdint>
#include <iosfwd>
#include <string>

namespace zyr_top_api
{

/// The result of an operation of the radio unit (RAU): below 0x8000 success, from 0x8000 failure.
///
/// Any 32-bit value may occur, not only the named ones.
enum ERAUHResult : std::uint32_t
{
    eRAUH_S_OK = 0,
    eRAUH_E_FAILED = 0x8000,
    eRAUH_E_NOT_CONNECTED = 0x8001,
    eRAUH_E_NO_TOM_RESPONSE = 0x8002,
    eRAUH_E_TOM_NOT_ACCEPTED = 0x8003,
    eRAUH_E_NOT_IMPLEMENTED = 0x8004,
    eRAUH_E_INVALID_ARGUMENT = 0x8005,
    eRAUH_E_ALREADY_INITIALIZED = 0x8007,
    eRAUH_E_MODULE_REGISTRATION_ERROR = 0x8008,
    eRAUH_E_FAILED_TO_REGISTER_MODULE_CALLBACK = 0x8009,
    eRAUH_E_UNKNOWN_PHASE = 0x800A,
    eRAUH_E_UNEVEN_DATA_LENGTH = 0x800B,
    eRAUH_E_OUT_OF_RANGE = 0x800C,
    eRAUH_E_RADIO_NOT_UP = 0x800D,
    eRAUH_E_TOM_NOT_RECOGNIZED = 0x800E,
    eRAUH_E_TOM_NOT_PERFORMED = 0x800F,
    eRAUH_E_TOM_NOT_ALLOWED = 0x8010,
    eRAUH_E_RF_LOOP_NOT_SUPPORTED = 0x8011,
    eRAUH_E_SDC_NOT_SUPPORTED = 0x8012,
    eRAUH_E_PATH_LATENCY_RESET_NEEDED = 0x8013,
};

/// The text of a failure, and the decimal number of any value without a text, success included.
ZYR_EXPORT std::string rauhResultToString(ERAUHResult result);

/// Prints `rauhResultToString(result)`, whatever number format the stream is set to.
ZYR_EXPORT std::ostream& operator<<(std::ostream& stream, ERAUHResult result);

} // namespace zyr_top_api
