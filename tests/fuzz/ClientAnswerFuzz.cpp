// The bytes that a server sends in the place of an answer, to the client's side of the wire. It takes them,
// or refuses them with the errors that its callers know.

#include "Client.h"
#include "Fuzz.h"
#include "Socket.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <thread>

using zyr_fuzz::require;
using zyr_fuzz::Socket;
using zyr_gateway::ClientError;
using zyr_gateway::ClientOptions;
using zyr_gateway::MethodResponse;
using zyr_gateway::XmlRpcClient;

void zyr_fuzz::consume(std::string_view input)
{
    static const Socket listening;
    constexpr std::size_t longest = 65'536;
    ClientOptions options;
    options.url = "http://127.0.0.1:" + std::to_string(listening.port()) + "/RPC2";
    options.timeout = std::chrono::seconds(5);
    options.maxResponseSize = longest;
    options.login = {"user", "hush"};
    std::string sent;
    options.watch = [&](ClientOptions::Wire direction, std::string_view bytes) {
        sent += direction == ClientOptions::Wire::Sent ? bytes : "";
    };

    std::thread server([&] {
        const Socket connection = listening.accepted();
        (void)connection.read("</methodCall>");
        connection.sendAll(input);
        (void)connection.read({});
    });
    takes<ClientError>([&] {
        XmlRpcClient client(options);
        const MethodResponse response = client.call({"CRI.EnableAcm", {}});
        require(!response.fault || response.value.is_null(), "there is a value or a fault", input);
    });
    server.join();
    require(sent.find("dXNlcjpodXNo") == std::string::npos, "the login is not shown", input);
}
