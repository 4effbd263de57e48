// encrypt: the encryption of a radio link, with a key that never stands on the command line.

#include "Failure.h"
#include "Limits.h"
#include "Login.h"
#include "Secrets.h"
#include "Subcommands.h"

#include <memory>

namespace zyr_ctl
{

namespace
{

struct EncryptOptions
{
    std::int64_t channel = 1;
    std::string keyFile;
    bool keyPrompt = false;
    bool off = false;
    bool yes = false;
};

// The last line end is the editor's, not the key's.
void dropLineEnd(std::string& text)
{
    if (text.ends_with('\n')) {
        text.pop_back();
        if (text.ends_with('\r')) {
            text.pop_back();
        }
    }
}

std::string keyOf(Session& session, const EncryptOptions& options)
{
    if (options.off) {
        return {};
    }
    if (!options.keyFile.empty()) {
        std::string key = contentOfPrivateFile("key file", options.keyFile);
        dropLineEnd(key);
        return key;
    }
    if (!session.console.canAsk()) {
        throw usageFailure("there is no terminal to ask for the key on; give --key-file FILE");
    }
    std::string key = session.console.askSecretly("Key of the link:");
    std::string again = session.console.askSecretly("The same key again:");
    const Wiping wiping(again);
    if (key != again) {
        wipe(key);
        throw usageFailure("the two keys differ");
    }
    return key;
}

void runEncrypt(Session& session, const EncryptOptions& options)
{
    if (!options.yes) {
        session.confirm(kEncryptMethod);
    }
    std::string key = keyOf(session, options);
    const Wiping wiping(key);
    const Value status =
        session.node().call("CRI.GetRadioChannelStatus", {Value{{"RadioChannelID", options.channel}}});
    std::vector<Value> params{Value{{"channelId", options.channel},
                                    {"masterKey", key},
                                    {"txFrequency_kHz", status.value("TxFrequency", std::int64_t{0})},
                                    {"rxFrequency_kHz", status.value("RxFrequency", std::int64_t{0})},
                                    {"enableRle", !options.off}}};
    const Wiping wipingCopy(params.front()["masterKey"].get_ref<std::string&>());
    const Value answer = session.node().call(kEncryptMethod, params);
    const std::string channel = std::to_string(options.channel);
    session.show(answer,
                 {Line{"Radio channel " + channel + (options.off ? " is not encrypted" : " is encrypted")}});
}

} // namespace

void addEncryptCommand(CLI::App& app, Session& session)
{
    const auto options = std::make_shared<EncryptOptions>();
    CLI::App* const encrypt =
        app.add_subcommand("encrypt", "Switch the encryption of a radio link on or off, at its frequencies");
    encrypt->add_option("CHANNEL", options->channel, "Radio channel (1)")->check(oneOrMore());
    auto* const source = encrypt->add_option_group("source");
    source->add_option("--key-file", options->keyFile,
                       "File (mode 0600) with the key; a line end behind it is left out");
    source->add_flag("--key-prompt", options->keyPrompt, "Ask for the key on the terminal");
    source->add_flag("--off", options->off, "Switch encryption off, which needs no key");
    source->require_option(1);
    encrypt->add_flag("--yes", options->yes, "Do not ask whether traffic may be disturbed");
    encrypt->callback([&session, options] { runEncrypt(session, *options); });
}

} // namespace zyr_ctl
