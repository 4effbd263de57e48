#include "CriSetRauCarrierAggregationImpl.h"

#include "Initialise.h"
#include "Log.h"
#include "ZyrApiHandler.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{CriSetRauCarrierAggregation::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

void CriSetRauCarrierAggregation::Command::print(TextWriter& text) const
{
    text << "IsRauCarrierAggregation: " << IsRauCarrierAggregation << "\n";
}

ETIResult CriSetRauCarrierAggregationImpl::initialize(unsigned numberOfChannels)
{
    return initialise(trace, family::kPlain, numberOfChannels, m_numberOfChannels,
                      {nodeWide("IHardwareConfigurationHandler", m_hardwareConfigurationHandler,
                                plainText("could not get hardwareConfigurationHandler."))});
}

StandardResponse CriSetRauCarrierAggregationImpl::execute(const Command& command)
{
    logEnter(trace);
    log(trace, 5, [&](TextWriter& text) { command.print(text); });

    m_hardwareConfigurationHandler->setRauCarrierAggregation(command.IsRauCarrierAggregation);
    return {};
}

StandardResponse criSetRauCarrierAggregation(const CriSetRauCarrierAggregation::Command& command)
{
    return ZyrApiHandler::executeCommand(CriSetRauCarrierAggregationImpl(), command);
}

} // namespace zyr_top_api
