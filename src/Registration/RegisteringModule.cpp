#include "RegisteringModule.h"

#include "Conversion.h"
#include "Optional.h"
#include "ResultLaw.h"
#include "TiGetAllCommandsDataImpl.h"
#include "ValueBuilder.h"
#include "ZyrApiHandler.h"

#include <algorithm>
#include <atomic>
#include <iterator>

namespace zyr_registration
{

namespace
{

using zyr_top_api::BaseResponse;
using zyr_top_api::CmdDescription;
using zyr_top_api::TiGetAllCommandsDataImpl;
using zyr_top_api::ZyrApiHandler;

// What the registration functions do: from then on the family's methods may be called.
std::atomic<bool> controlFamilyOpen{false};
std::atomic<bool> testFamilyOpen{false};

void openControlFamily()
{
    controlFamilyOpen = true;
}
void openTestFamily()
{
    testFamilyOpen = true;
}

void emptyTables()
{
    ZyrApiHandler::setTiEnabled(false);
    controlFamilyOpen = false;
    testFamilyOpen = false;
    ZyrApiHandler::m_cmds.clear();
    ZyrApiHandler::m_registerInImFunctionsCri.clear();
    ZyrApiHandler::m_registerInImFunctionsTi.clear();
    ZyrApiHandler::m_allCommandsDescData.clear();
}

std::string joinedLines(const std::vector<std::string>& lines)
{
    std::string text = "the commands can't be registered:";
    for (const std::string& line : lines) {
        text += "\n  " + line;
    }
    return text;
}

Outcome outcomeOf(const BaseResponse& response)
{
    return response.faultCode > 0 ? Outcome{response.faultCode, response.faultString} : Outcome{};
}

// A call from a value into a sink.
class SinkExchange : public Exchange
{
  public:
    SinkExchange(const CommandEntry& entry, const Value& members, std::uint32_t numberOfChannels,
                 ValueSink& sink)
        : m_entry(entry), m_members(members), m_numberOfChannels(numberOfChannels), m_sink(sink)
    {}

    void fill(void* command) const override
    {
        readRecord(m_entry.name(), m_entry.notes.request, m_members, m_numberOfChannels, command);
    }

    void take(const BaseResponse& outcome, const void* response) override
    {
        result = outcomeOf(outcome);
        if (result.faultCode == 0) {
            m_sink.beginStruct();
            m_sink.beginMember("tiResult");
            m_sink.integer(static_cast<std::uint32_t>(outcome.tiResult));
            m_sink.endMember();
            writeRecord(m_entry.notes.response, response, m_sink);
            m_sink.endStruct();
        }
    }

    Outcome result;

  private:
    const CommandEntry& m_entry;
    const Value& m_members;
    std::uint32_t m_numberOfChannels;
    ValueSink& m_sink;
};

bool isOpen(const CommandEntry& command)
{
    // The gated ones are let through: refusing them is the dispatcher's business.
    return command.isDirect() ? testFamilyOpen : controlFamilyOpen;
}

} // namespace

std::vector<std::string> tableDefects(std::span<const std::shared_ptr<zyr_top_api::CmdWrapperBase>> table)
{
    std::vector<std::string> defects;
    std::vector<std::size_t> counts(allCommands().size());
    for (const auto& entry : table) {
        const CommandEntry* const command = entry == nullptr ? nullptr : findCommand(entry->name());
        if (entry == nullptr) {
            defects.emplace_back("an entry is null");
        } else if (command == nullptr || command->isDirect()) {
            defects.push_back(entry->name() + ": no dispatched command");
        } else {
            ++counts[static_cast<std::size_t>(command - allCommands().data())];
        }
    }
    for (std::size_t index = 0; index < counts.size(); ++index) {
        const CommandEntry& command = allCommands()[index];
        if (!command.isDirect() && counts[index] != 1) {
            defects.push_back(std::string(command.name()) +
                              (counts[index] == 0 ? ": missing" : ": more than one entry"));
        }
    }
    return defects;
}

RegisteringModule::RegisteringModule(const RegistrationOptions& options)
    : m_options(options), m_registered(allCommands().size())
{
    if (!ZyrApiHandler::m_cmds.empty()) {
        throw RegistrationError("the commands can't be registered: the table of commands is already in use");
    }
    std::vector<std::string> defects;
    createAll();
    initialiseAll(defects);
    fillTables();
    std::ranges::move(tableDefects(ZyrApiHandler::m_cmds), std::back_inserter(defects));
    if (!defects.empty()) {
        emptyTables();
        throw RegistrationError(joinedLines(defects));
    }
    fillCatalogue();
    ZyrApiHandler::registerCriFunctionInIm();
    if (m_options.enableTi) {
        ZyrApiHandler::registerTiFunctionInIm();
    }
}

RegisteringModule::~RegisteringModule()
{
    emptyTables();
}

Outcome RegisteringModule::call(const CommandEntry& command, const Value& members, ValueSink& sink)
{
    if (!isOpen(command)) {
        return outcomeOf({zyr_top_api::eTI_E_OPERATION_NOT_ALLOWED, "Error: Command not available"});
    }
    SinkExchange exchange(command, members, m_options.numberOfChannels, sink);
    try {
        command.run(registered(command).implementation.get(), exchange);
    } catch (const general_classes::BadOptional&) {
        refuseMissingOption(command.name(), command.notes.request, members);
        throw;
    } catch (const std::logic_error&) { // maybe of a text that the command couldn't read: then say which
        checkWholeNumbers(command.name(), command.notes.request, members);
        throw;
    }
    return std::move(exchange.result);
}

Answer RegisteringModule::call(const CommandEntry& command, const Value& members)
{
    ValueBuilder builder;
    Outcome outcome = call(command, members, builder);
    return {builder.take(), outcome.faultCode, std::move(outcome.faultText)};
}

LiveCommand& RegisteringModule::registered(const CommandEntry& command)
{
    return m_registered[static_cast<std::size_t>(&command - allCommands().data())];
}

void RegisteringModule::createAll()
{
    for (const CommandEntry& command : allCommands()) {
        registered(command) = command.create();
    }
}

void RegisteringModule::initialiseAll(std::vector<std::string>& defects)
{
    for (const CommandEntry& command : allCommands()) {
        const auto result =
            command.initialize(registered(command).implementation.get(), m_options.numberOfChannels);
        if (zyr_top_api::failed(result)) {
            defects.push_back(std::string(command.name()) + ": initialize failed with " +
                              std::string(zyr_top_api::etiResultToString(result)) + ", see the trace of " +
                              command.identity->traceChannel);
        }
    }
}

void RegisteringModule::fillTables()
{
    for (const LiveCommand& entry : m_registered) {
        if (entry.wrapper != nullptr) {
            ZyrApiHandler::m_cmds.push_back(entry.wrapper);
        }
    }
    ZyrApiHandler::m_registerInImFunctionsCri.push_back(&openControlFamily);
    ZyrApiHandler::m_registerInImFunctionsTi.push_back(&openTestFamily);
}

void RegisteringModule::fillCatalogue()
{
    auto* const catalogue = static_cast<TiGetAllCommandsDataImpl*>(
        registered(*findCommand(TiGetAllCommandsDataImpl::identity.wireName)).implementation.get());
    for (const CommandEntry& command : allCommands()) {
        const CmdDescription description{
            std::string(command.name()),
            command.describeItself != nullptr
                ? command.describeItself(registered(command).implementation.get())
                : std::string(command.notes.help)};
        ZyrApiHandler::m_allCommandsDescData.push_back(description);
        catalogue->addCmdData(description);
    }
}

} // namespace zyr_registration
