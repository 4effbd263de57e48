#include "TiGetAllCommandsDataImpl.h"

#include "Initialise.h"
#include "TextWriter.h"

namespace zyr_top_api
{

namespace
{

constinit TylTrace trace{TiGetAllCommandsData::identity.traceChannel, 3, TylTraceHdrOption_Default};

} // namespace

std::string TiGetAllCommandsData::Response::printResponse() const
{
    return printed(*this);
}

void TiGetAllCommandsData::Response::print(TextWriter&) const {}

ETIResult TiGetAllCommandsDataImpl::initialize(unsigned)
{
    return initialiseNothing(trace);
}

void TiGetAllCommandsDataImpl::addCmdData(const CmdDescription& description)
{
    m_commands.push_back(description);
}

TiGetAllCommandsData::Response TiGetAllCommandsDataImpl::execute(const Command&)
{
    Response response;
    response.commands = m_commands;
    return response;
}

} // namespace zyr_top_api
