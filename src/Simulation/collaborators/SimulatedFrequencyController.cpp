#include "SimulatedFrequencyController.h"

#include "RadioType.h"

namespace zyr_simulation
{

namespace
{

/// Sets a frequency if it lies in the range and on a step of the radio.
EFCResult setFrequency(unsigned& target_kHz, unsigned frequency_kHz, unsigned min_kHz, unsigned max_kHz,
                       unsigned step_kHz)
{
    if (frequency_kHz < min_kHz || frequency_kHz > max_kHz || (frequency_kHz - min_kHz) % step_kHz != 0) {
        return eFC_E_FAILED;
    }
    target_kHz = frequency_kHz;
    return eFC_S_OK;
}

} // namespace

EFCResult SimulatedFrequencyController::setTxFrequency(unsigned frequency_kHz, int)
{
    return perform<EFCResult>("setTxFrequency", [&] {
        const auto range = frequenciesOf(radioType(node().settings.radioType), channel().radio.subBand);
        return setFrequency(channel().txFrequency_kHz, frequency_kHz, range.MinTXFrequency,
                            range.MaxTXFrequency, range.FrequencyStepSize);
    });
}

EFCResult SimulatedFrequencyController::setRxFrequency(unsigned frequency_kHz, int)
{
    return perform<EFCResult>("setRxFrequency", [&] {
        const auto range = frequenciesOf(radioType(node().settings.radioType), channel().radio.subBand);
        return setFrequency(channel().rxFrequency_kHz, frequency_kHz, range.MinRXFrequency,
                            range.MaxRXFrequency, range.FrequencyStepSize);
    });
}

std::int32_t SimulatedFrequencyController::getTxFrequency()
{
    return read([&] { return static_cast<std::int32_t>(channel().txFrequency_kHz); });
}

std::int32_t SimulatedFrequencyController::getRxFrequency()
{
    return read([&] { return static_cast<std::int32_t>(channel().rxFrequency_kHz); });
}

} // namespace zyr_simulation
