#include "SimulatedTxIQImbalanceHandler.h"

namespace zyr_simulation
{

EFHResult SimulatedTxIQImbalanceHandler::OnTxFrequencyChanged(unsigned frequency_kHz)
{
    return perform<EFHResult>("OnTxFrequencyChanged",
                              [&] { channel().transmitter.iqFrequency_kHz = frequency_kHz; });
}

} // namespace zyr_simulation
