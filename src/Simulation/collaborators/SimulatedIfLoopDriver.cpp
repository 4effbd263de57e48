#include "SimulatedIfLoopDriver.h"

namespace zyr_simulation
{

int SimulatedIfLoopDriver::getIfLoop(unsigned char& ifLoop)
{
    return ask<int>("getIfLoop", [&] { ifLoop = channel().loops.isIfLoopClosed ? 1 : 0; });
}

int SimulatedIfLoopDriver::setIfLoop(bool on)
{
    return perform<int>("setIfLoop", [&] { channel().loops.isIfLoopClosed = on; });
}

} // namespace zyr_simulation
