#pragma once

#include <cstdint>

// The results of the sibling modules. All are on one scale: 0 is success, values below 0x8000 are success
// with a remark, 0x8000 and above are failures. Only the codes that a command tells apart have names here;
// any other 32-bit value may come, and texts print it as a decimal number.

/// A result of a collaborator that has no result type of its own.
using ResultCode = std::uint32_t;

/// Results of the power control family: system power, output power calculator, TAPS, simulator.
enum ESPCResult : std::uint32_t
{
    eSPC_S_OK = 0,
    eSPC_E_FAILED = 0x8000,
};

/// Results of the adaptive modulation handler.
enum EACMHResult : std::uint32_t
{
    eACMH_S_OK = 0,
    eACMH_S_DIFFERENT = 3, ///< The far end's Pmax capability differs from the known one.
    eACMH_E_FAILED = 0x8000,
    eACMH_E_NOT_IMPLEMENTED = 0x8001, ///< Answer of the default bodies.
    eACMH_E_CACHED = 0x800C,          ///< DSP not accessible, values kept for later; success for the caller.
};

/// Results of the RSSI handler's threshold operations.
enum ERSSIResult : std::uint32_t
{
    eRSSI_S_OK = 0,
    eRSSI_E_FAILED = 0x8000,
};

/// Results of the frequency controller.
enum EFCResult : std::uint32_t
{
    eFC_S_OK = 0,
    eFC_E_FAILED = 0x8000,
};

/// Results of the transmitter's IQ imbalance handler.
enum EFHResult : std::uint32_t
{
    eFH_S_OK = 0,
    eFH_E_FAILED = 0x8000,
};

/// Results of the hardware configuration handler.
enum EHCHResult : std::uint32_t
{
    eHCH_S_OK = 0,
    eHCH_E_FAILED = 0x8000,
};
