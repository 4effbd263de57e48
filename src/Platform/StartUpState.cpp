#include "StartUpState.h"

#include <atomic>

namespace
{

constinit std::atomic<Zyr::ZyrInitState> initState{Zyr::ZyrInitState::NormalOperation};

} // namespace

bool Zyr::isWarmRestartInProgress()
{
    return initState == ZyrInitState::WarmRestart;
}

bool Zyr::isColdRestartInProgress()
{
    return initState == ZyrInitState::ColdRestart;
}

bool Zyr::isZyrInNormalOperation()
{
    return initState == ZyrInitState::NormalOperation;
}

void Zyr::setInitState(const ZyrInitState& state)
{
    initState = state;
}

std::string Zyr::getInitState()
{
    switch (initState.load()) {
    case ZyrInitState::ColdRestart:
        return "ColdRestart";
    case ZyrInitState::WarmRestart:
        return "WarmRestart";
    case ZyrInitState::NormalOperation:
        return "NormalOperation";
    }
    return "Unknown";
}

namespace zyr_platform
{

StartUpState::StartUpState(Zyr::ZyrInitState state) : m_previous(initState.exchange(state)) {}

StartUpState::~StartUpState()
{
    initState = m_previous;
}

Zyr::ZyrInitState StartUpState::current()
{
    return initState;
}

} // namespace zyr_platform
