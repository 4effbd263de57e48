#include "HttpEcho.h"

#include <microhttpd.h>

#include <array>
#include <csignal>
#include <stdexcept>
#include <string>

#include <pugixml.hpp>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

bool doesParse = false;

void parse(const std::string& body)
{
    pugi::xml_document document;
    if (!document.load_buffer(body.data(), body.size())) {
        std::terminate();
    }
}

MHD_Result answer(void*, MHD_Connection* connection, const char*, const char*, const char*, const char* data,
                  std::size_t* size, void** request)
{
    if (*request == nullptr) {
        *request = new std::string;
        return MHD_YES;
    }
    auto& body = *static_cast<std::string*>(*request);
    if (*size > 0) {
        body.append(data, *size);
        *size = 0;
        return MHD_YES;
    }
    if (doesParse) {
        parse(body);
    }
    MHD_Response* const response =
        MHD_create_response_from_buffer(body.size(), body.data(), MHD_RESPMEM_MUST_COPY);
    MHD_add_response_header(response, "Content-Type", "text/xml");
    const MHD_Result result = MHD_queue_response(connection, MHD_HTTP_OK, response);
    MHD_destroy_response(response);
    return result;
}

void completed(void*, MHD_Connection*, void** request, MHD_RequestTerminationCode)
{
    delete static_cast<std::string*>(*request);
    *request = nullptr;
}

// What the process does: tells its port, and serves until it is killed.
[[noreturn]] void serve(int portPipe)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    MHD_Daemon* const daemon =
        MHD_start_daemon(MHD_USE_EPOLL_INTERNAL_THREAD, 0, nullptr, nullptr, &answer, nullptr,
                         MHD_OPTION_NOTIFY_COMPLETED, &completed, nullptr, MHD_OPTION_END);
    const std::uint16_t port =
        daemon == nullptr ? 0 : MHD_get_daemon_info(daemon, MHD_DAEMON_INFO_BIND_PORT)->port;
    (void)!write(portPipe, &port, sizeof port);
    while (true) {
        pause();
    }
}

} // namespace

HttpEcho::HttpEcho(bool parses)
{
    std::array<int, 2> portPipe{};
    if (pipe(portPipe.data()) != 0) {
        throw std::runtime_error("no pipe");
    }
    doesParse = parses;
    m_process = fork();
    if (m_process == 0) {
        serve(portPipe[1]);
    }
    close(portPipe[1]);
    (void)!read(portPipe[0], &m_port, sizeof m_port);
    close(portPipe[0]);
    if (m_process < 0 || m_port == 0) {
        throw std::runtime_error("cannot start the echo");
    }
}

HttpEcho::~HttpEcho()
{
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
}
