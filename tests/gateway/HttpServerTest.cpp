#include "HttpServer.h"

#include "HttpTestClient.h"
#include "MemorySink.h"
#include "TraceService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <future>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

#include <sys/resource.h>

using namespace zyr_gateway;
using namespace std::chrono_literals;

namespace
{

/// A request that is in order.
std::string post(const std::string& body, const std::string& moreFields = "")
{
    return "POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\n" + moreFields +
           "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

/// A request with the given request line and fields, without a body.
std::string head(const std::string& line, const std::string& fields = "")
{
    return line + "\r\nHost: localhost\r\n" + fields + "\r\n";
}

HttpOptions quickOptions()
{
    HttpOptions options;
    options.requestDeadline = 100ms;
    options.idleTimeout = 300ms;
    return options;
}

/// Answers at once: the method, the path, the media type and the body.
void echo(const HttpRequest& request, const HttpServer::Answer& answer)
{
    answer({200, "text/xml",
            request.method + " " + request.path + " " + request.contentType + " " + request.body});
}

/// Keeps requests and their answers for the test to give.
class Desk
{
  public:
    HttpServer::Handler handler()
    {
        return [this](HttpRequest request, HttpServer::Answer answer) {
            const std::lock_guard lock(m_mutex);
            m_waiting.emplace_back(std::move(request), std::move(answer));
            m_changed.notify_all();
        };
    }

    /// Waits until so many requests are here.
    bool waitFor(std::size_t count)
    {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, 10s, [&] { return m_waiting.size() >= count; });
    }

    std::size_t size()
    {
        const std::lock_guard lock(m_mutex);
        return m_waiting.size();
    }

    /// Takes the oldest request's answer.
    HttpServer::Answer take()
    {
        const std::lock_guard lock(m_mutex);
        HttpServer::Answer answer = std::move(m_waiting.front().second);
        m_waiting.pop_front();
        return answer;
    }

    /// Gives all that are here the same answer; in which order they came is not known.
    void answerAll(const std::string& body)
    {
        while (size() > 0) {
            take()({200, "text/xml", body});
        }
    }

  private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<std::pair<HttpRequest, HttpServer::Answer>> m_waiting;
};

/// A server that answers at once.
class HttpServerTest : public testing::Test
{
  protected:
    HttpServerTest() { mServer.start(); }

    HttpTestClient::Answer ask(const std::string& request)
    {
        return HttpTestClient(mServer.port()).ask(request);
    }

    HttpServer mServer{HttpOptions{}, &echo};
};

} // namespace

TEST_F(HttpServerTest, PostToBothPathsReachesTheHandler)
{
    const auto answer = ask(post("<x/>"));
    EXPECT_EQ(answer.status, "200");
    EXPECT_EQ(answer.body, "POST /RPC2 text/xml <x/>");
    EXPECT_NE(answer.head.find("Content-Type: text/xml\r\n"), std::string::npos);
    EXPECT_EQ(
        ask("POST / HTTP/1.1\r\nHost: 127.0.0.1:99\r\nContent-Type: Application/XML; charset=\"UTF-8\"\r\n"
            "Content-Length: 1\r\n\r\nx")
            .body,
        "POST / application/xml x");
}

TEST_F(HttpServerTest, EmptyBodyReachesTheHandler)
{
    EXPECT_EQ(ask(post("")).body, "POST /RPC2 text/xml ");
}

TEST_F(HttpServerTest, LongestBodyReachesTheHandlerWhole)
{
    const std::string body(524288, 'b');
    EXPECT_EQ(ask(post(body)).body, "POST /RPC2 text/xml " + body);
}

TEST_F(HttpServerTest, OtherPathIs404)
{
    const auto answer = ask("POST /other HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\n"
                            "Content-Length: 1\r\n\r\nx");
    EXPECT_EQ(answer.status, "404");
    EXPECT_EQ(answer.body, "Nothing is served here; call /RPC2.\n");
}

TEST_F(HttpServerTest, OtherMethodIs405WithAllow)
{
    for (const std::string method : {"GET", "PUT", "DELETE", "OPTIONS"}) {
        const auto answer = ask(head(method + " /RPC2 HTTP/1.1"));
        EXPECT_EQ(answer.status, "405") << method;
        EXPECT_NE(answer.head.find("Allow: POST\r\n"), std::string::npos) << method;
    }
}

TEST_F(HttpServerTest, MissingLengthAndChunksAre411)
{
    EXPECT_EQ(ask(head("POST /RPC2 HTTP/1.1", "Content-Type: text/xml\r\n")).status, "411");
    EXPECT_EQ(ask(head("POST /RPC2 HTTP/1.1", "Content-Type: text/xml\r\nTransfer-Encoding: chunked\r\n") +
                  "1\r\nx\r\n0\r\n\r\n")
                  .status,
              "411");
}

TEST_F(HttpServerTest, TooLongBodyIs413WithoutWaitingForIt)
{
    const auto answer =
        ask(head("POST /RPC2 HTTP/1.1", "Content-Type: text/xml\r\nContent-Length: 524289\r\n"));
    EXPECT_EQ(answer.status, "413");
    EXPECT_EQ(answer.body, "The body is longer than 524288 bytes.\n");
    EXPECT_EQ(ask(head("POST /RPC2 HTTP/1.1", "Content-Type: text/xml\r\nContent-Length: 99999999999999\r\n"))
                  .status,
              "413");
}

TEST_F(HttpServerTest, WhoSendsATooLongBodyWholeCanDoSoAndSeesTheAnswer)
{
    for (int round = 0; round < 5; ++round) {
        HttpTestClient client(mServer.port());
        ASSERT_TRUE(client.send(
            head("POST /RPC2 HTTP/1.1", "Content-Type: text/xml\r\nContent-Length: 2000000\r\n")));
        for (int piece = 0; piece < 200; ++piece) {
            ASSERT_TRUE(client.send(std::string(10'000, 'b'))) << "round " << round << " piece " << piece;
        }
        EXPECT_EQ(client.answer().status, "413");
        EXPECT_TRUE(client.readToEnd());
    }
}

TEST_F(HttpServerTest, MissingOrOtherContentTypeIs415)
{
    EXPECT_EQ(ask(head("POST /RPC2 HTTP/1.1", "Content-Length: 0\r\n")).status, "415");
    for (const std::string type :
         {"text/plain", "application/json", "application/x-www-form-urlencoded", "text/xmlx",
          "text/xml; charset=iso-8859-1", "text/xml;a=b; Charset=\"UTF-16\"", "text/xml; charset=\"utf-8",
          "text/xml; charset=x"}) {
        EXPECT_EQ(
            ask(head("POST /RPC2 HTTP/1.1", "Content-Type: " + type + "\r\nContent-Length: 0\r\n")).status,
            "415")
            << type;
    }
    for (const std::string type : {"text/xml;charset=utf-8", "TEXT/XML ; charset=US-ASCII", "text/xml; a=b",
                                   "text/xml; a", "text/xml;", "text/xml; charset="}) {
        EXPECT_EQ(
            ask(head("POST /RPC2 HTTP/1.1", "Content-Type: " + type + "\r\nContent-Length: 0\r\n")).status,
            "200")
            << type;
    }
}

TEST_F(HttpServerTest, HeaderUpTo8KibIsTakenAndMoreIs431)
{
    const std::string rest = post("");
    const std::string pad(8192 - rest.size() - std::string("X-Pad: \r\n").size(), 'p');
    EXPECT_EQ(ask(post("", "X-Pad: " + pad + "\r\n")).status, "200");
    EXPECT_EQ(ask(post("", "X-Pad: " + pad + "p\r\n")).status, "431");
    EXPECT_EQ(ask(post("", "X-Pad: " + std::string(20'000, 'p') + "\r\n")).status, "431");
}

TEST_F(HttpServerTest, HeaderWithoutEndIsRefused)
{
    HttpTestClient client(mServer.port());
    client.send("POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nX-Pad: " + std::string(100'000, 'p'));
    EXPECT_EQ(client.answer().status, "431");
}

TEST_F(HttpServerTest, HostOfAnotherNameIs400OnLoopback)
{
    const auto statusFor = [&](const std::string& fields) {
        return ask("POST /RPC2 HTTP/1.1\r\n" + fields + "Content-Type: text/xml\r\nContent-Length: 0\r\n\r\n")
            .status;
    };
    for (const std::string host :
         {"localhost", "LOCALHOST:80", "127.0.0.1", "127.1.2.3:8080", "[::1]", "[::1]:1"}) {
        EXPECT_EQ(statusFor("Host: " + host + "\r\n"), "200") << host;
    }
    for (const std::string host : {"evil.example", "localhost.evil.example", "10.0.0.1", "[::2]", "[::1",
                                   "localhost:x", "localhost:", "[::1]x", "[::1]:", ""}) {
        EXPECT_EQ(statusFor("Host: " + host + "\r\n"), "400") << host;
    }
    EXPECT_EQ(statusFor(""), "400");
    EXPECT_EQ(statusFor("Host: localhost\r\nHost: localhost\r\n"), "400");
}

TEST_F(HttpServerTest, NewHttpWithoutHostIs400InOneAnswer)
{
    HttpTestClient client(mServer.port());
    const auto answer =
        client.ask("POST /RPC2 HTTP/1.1\r\nContent-Type: text/xml\r\nContent-Length: 1\r\n\r\nx");
    EXPECT_EQ(answer.status, "400");
    EXPECT_EQ(answer.body, "The request has no Host field; it must have one.\n");
    EXPECT_TRUE(client.readToEnd());
    EXPECT_EQ(client.pending(), "");
}

TEST_F(HttpServerTest, TargetWithABlankIs400)
{
    EXPECT_EQ(ask(head("POST /RPC2 /RPC2 HTTP/1.1")).body,
              "The request line is not of the form METHOD PATH HTTP/1.1.\n");
}

TEST_F(HttpServerTest, OldHttpNeedsNoHost)
{
    HttpTestClient client(mServer.port());
    EXPECT_EQ(
        client.ask("POST /RPC2 HTTP/1.0\r\nContent-Type: text/xml\r\nContent-Length: 1\r\n\r\nx").status,
        "200");
    EXPECT_TRUE(client.readToEnd());
}

TEST_F(HttpServerTest, DoubledContentLengthIs400)
{
    for (const std::string second : {"1", "2"}) {
        HttpTestClient client(mServer.port());
        const auto answer = client.ask(head("POST /RPC2 HTTP/1.1", "Content-Type: text/xml\r\n"
                                                                   "Content-Length: 1\r\nContent-Length: " +
                                                                       second + "\r\n") +
                                       "xx");
        EXPECT_EQ(answer.status, "400") << second;
        EXPECT_TRUE(client.readToEnd());
    }
}

TEST_F(HttpServerTest, AmbiguousOrMalformedLengthIs400)
{
    for (const std::string fields :
         {"Content-Length: 1\r\nTransfer-Encoding: chunked\r\n", "Content-Length: x\r\n",
          "Content-Length: -1\r\n", "Content-Length: +1\r\n", "Content-Length: 1, 1\r\n",
          "Content-Length: \r\n"}) {
        EXPECT_EQ(ask(head("POST /RPC2 HTTP/1.1", "Content-Type: text/xml\r\n" + fields) + "x").status, "400")
            << fields;
    }
}

TEST_F(HttpServerTest, WhatIsNotHttpIsRefusedAndClosed)
{
    for (const std::string bytes : {"\r\n\r\nnonsense\r\n\r\n", "POST\r\n\r\n", "\x16\x03\x01\x02\r\n\r\n"}) {
        HttpTestClient client(mServer.port());
        client.send(bytes);
        const auto answer = client.answer();
        EXPECT_TRUE(answer.status.empty() || answer.status[0] == '4' || answer.status[0] == '5')
            << answer.status;
        EXPECT_TRUE(client.readToEnd());
    }
    EXPECT_EQ(ask(post("x")).status, "200") << "the server lives";
}

TEST_F(HttpServerTest, ConnectionIsKeptForFurtherRequests)
{
    HttpTestClient client(mServer.port());
    for (const std::string body : {"a", "bb", "ccc"}) {
        EXPECT_EQ(client.ask(post(body)).body, "POST /RPC2 text/xml " + body);
    }
}

TEST_F(HttpServerTest, ConnectionFieldIsAList)
{
    for (const std::string list : {"close", "foo, Close", "keep-alive, close, x"}) {
        HttpTestClient client(mServer.port());
        EXPECT_EQ(client.ask(post("x", "Connection: " + list + "\r\n")).status, "200") << list;
        EXPECT_TRUE(client.readToEnd()) << list;
        EXPECT_EQ(client.pending(), "") << list;
    }
    HttpTestClient client(mServer.port());
    EXPECT_EQ(client.ask(post("x", "Connection: foo, keep-alive\r\n")).status, "200");
    EXPECT_EQ(client.ask(post("x")).status, "200");
}

TEST_F(HttpServerTest, ContinueIsSentToWhoAsksForIt)
{
    HttpTestClient client(mServer.port());
    client.send(head("POST /RPC2 HTTP/1.1",
                     "Content-Type: text/xml\r\nExpect: 100-continue\r\nContent-Length: 1\r\n"));
    EXPECT_EQ(client.answer().status, "100");
    EXPECT_EQ(client.ask("x").status, "200");
}

TEST_F(HttpServerTest, BodyInManyPiecesIsPutTogether)
{
    HttpTestClient client(mServer.port());
    for (const char c : post("<methodCall/>")) {
        ASSERT_TRUE(client.send(std::string(1, c)));
    }
    EXPECT_EQ(client.answer().body, "POST /RPC2 text/xml <methodCall/>");
}

TEST(HttpServerPipeliningTest, AnswersComeInTheOrderOfTheRequests)
{
    Desk desk;
    HttpServer server(HttpOptions{}, desk.handler());
    server.start();
    HttpTestClient client(server.port());
    client.send(post("1") + post("2") + post("3"));
    for (const std::string body : {"one", "two", "three"}) {
        ASSERT_TRUE(desk.waitFor(1));
        EXPECT_EQ(desk.size(), 1U);
        desk.take()({200, "text/xml", body});
        EXPECT_EQ(client.answer().body, body);
    }
}

TEST(HttpServerDeadlineTest, SlowHeaderIsCut)
{
    HttpOptions options = quickOptions();
    options.idleTimeout = 60s;
    HttpServer server(std::move(options), &echo);
    server.start();
    HttpTestClient client(server.port());
    const auto start = std::chrono::steady_clock::now();
    client.send("P");
    EXPECT_TRUE(client.readToEnd());
    EXPECT_GE(std::chrono::steady_clock::now() - start, 100ms);
    EXPECT_EQ(client.pending(), "");
}

TEST(HttpServerDeadlineTest, SlowBodyIsCut)
{
    HttpOptions options = quickOptions();
    options.idleTimeout = 60s;
    HttpServer server(std::move(options), &echo);
    server.start();
    HttpTestClient client(server.port());
    const std::string request = post("0123456789");
    client.send(request.substr(0, request.size() - 1));
    EXPECT_TRUE(client.readToEnd());
    EXPECT_EQ(client.pending(), "");
}

TEST(HttpServerDeadlineTest, WhoSendsByteAfterByteIsCutToo)
{
    HttpServer server(quickOptions(), &echo);
    server.start();
    HttpTestClient slow(server.port());
    std::string request = post(std::string(100'000, 'x'));
    std::size_t sent = 0;
    // Another client's answer is the pause between two bytes.
    while (sent < request.size() && slow.send(request.substr(sent, 1))) {
        ++sent;
        EXPECT_EQ(HttpTestClient(server.port()).ask(post("x")).status, "200");
    }
    EXPECT_LT(sent, request.size());
}

TEST(HttpServerDeadlineTest, BeginningOfASecondRequestHasTheDeadlineNotTheIdleTime)
{
    HttpOptions options = quickOptions();
    options.idleTimeout = 60s;
    HttpServer server(std::move(options), &echo);
    server.start();
    HttpTestClient together(server.port());
    together.send(post("x") + "POST /RPC2 HT");
    EXPECT_EQ(together.answer().status, "200");
    EXPECT_TRUE(together.readToEnd());
    HttpTestClient apart(server.port());
    EXPECT_EQ(apart.ask(post("x")).status, "200");
    apart.send("POST /RPC2 HT");
    EXPECT_TRUE(apart.readToEnd());
}

TEST(HttpServerDeadlineTest, SilentConnectionHasTheIdleTime)
{
    HttpOptions options = quickOptions();
    options.requestDeadline = 60s;
    options.idleTimeout = 100ms;
    HttpServer server(std::move(options), &echo);
    server.start();
    HttpTestClient fresh(server.port());
    EXPECT_TRUE(fresh.readToEnd());
    HttpTestClient used(server.port());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(used.ask(post("x")).status, "200");
    EXPECT_TRUE(used.readToEnd());
    EXPECT_GE(std::chrono::steady_clock::now() - start, 90ms);
}

TEST(HttpServerDeadlineTest, IdleTimeIsNotTheDeadline)
{
    HttpOptions options = quickOptions();
    options.idleTimeout = 60s;
    HttpServer server(std::move(options), &echo);
    server.start();
    HttpTestClient client(server.port());
    EXPECT_EQ(client.ask(post("x")).status, "200");
    HttpTestClient clock(server.port());
    clock.send("P");
    EXPECT_TRUE(clock.readToEnd()) << "the deadline has passed";
    EXPECT_EQ(client.ask(post("y")).status, "200");
}

TEST(HttpServerDeadlineTest, AnswerMayTakeLongerThanAnyLimit)
{
    Desk desk;
    HttpServer server(quickOptions(), desk.handler());
    server.start();
    HttpTestClient client(server.port());
    client.send(post("x"));
    ASSERT_TRUE(desk.waitFor(1));
    HttpTestClient clock(server.port());
    EXPECT_TRUE(clock.readToEnd()) << "the idle time has passed";
    desk.take()({200, "text/xml", "late"});
    EXPECT_EQ(client.answer().body, "late");
}

TEST(HttpServerDeadlineTest, WhoDoesNotTakeTheAnswerIsCut)
{
    constexpr std::size_t size = 64UL * 1024UL * 1024UL;
    HttpServer server(quickOptions(), [&](const HttpRequest&, const HttpServer::Answer& answer) {
        answer({200, "text/xml", std::string(size, 'x')});
    });
    server.start();
    HttpTestClient client(server.port());
    client.send(post("x"));
    HttpTestClient clock(server.port());
    EXPECT_TRUE(clock.readToEnd()) << "the idle time, three times the deadline, has passed";
    EXPECT_TRUE(client.readToEnd());
    EXPECT_LT(client.pending().size(), size);
}

TEST(HttpServerLimitTest, ConnectionOverTheLimitIsTold503AtOnceWhenNoneIsIdle)
{
    Desk desk;
    HttpOptions options;
    options.maxConnections = 3;
    HttpServer server(std::move(options), desk.handler());
    server.start();
    std::list<HttpTestClient> clients;
    for (int i = 0; i < 3; ++i) {
        clients.emplace_back(server.port()).send(post("x"));
    }
    ASSERT_TRUE(desk.waitFor(3));
    HttpTestClient excess(server.port());
    const auto answer = excess.ask(post("x"));
    EXPECT_EQ(answer.status, "503");
    EXPECT_EQ(answer.body, "There are too many connections.\n");
    EXPECT_TRUE(excess.readToEnd());
    desk.answerAll("here");
    for (HttpTestClient& client : clients) {
        EXPECT_EQ(client.answer().body, "here");
    }
}

TEST(HttpServerLimitTest, ConnectionOverTheLimitTakesThePlaceOfTheLongestIdleOne)
{
    HttpOptions options;
    options.maxConnections = 3;
    HttpServer server(std::move(options), &echo);
    server.start();
    HttpTestClient first(server.port());
    HttpTestClient second(server.port());
    HttpTestClient third(server.port());
    for (HttpTestClient* const client : {&first, &second, &third, &first}) {
        ASSERT_EQ(client->ask(post("x")).status, "200");
    }
    HttpTestClient fourth(server.port());
    EXPECT_EQ(fourth.ask(post("x")).status, "200");
    EXPECT_TRUE(second.readToEnd());
    EXPECT_EQ(first.ask(post("x")).status, "200");
    EXPECT_EQ(third.ask(post("x")).status, "200");
}

TEST(HttpServerLimitTest, ThereAre128ConnectionsByDefault)
{
    Desk desk;
    HttpServer server(HttpOptions{}, desk.handler());
    server.start();
    std::list<HttpTestClient> clients;
    for (int i = 0; i < 128; ++i) {
        clients.emplace_back(server.port()).send(post("x"));
    }
    ASSERT_TRUE(desk.waitFor(128));
    EXPECT_EQ(HttpTestClient(server.port()).ask(post("x")).status, "503");
    std::list<HttpTestClient> more;
    // Some more may begin a request. Beyond these, the one goes that has begun first, so that everybody is
    // told.
    for (int i = 0; i < 32; ++i) {
        ASSERT_TRUE(more.emplace_back(server.port()).send("P"));
    }
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(HttpTestClient(server.port()).ask(post("x")).status, "503");
    }
    EXPECT_TRUE(more.front().readToEnd());
    EXPECT_EQ(more.front().pending(), "");
    EXPECT_EQ(more.back().ask("OST / HTTP/1.1\r\nHost: localhost\r\n\r\n").status, "503");
}

TEST_F(HttpServerTest, ManyWhoAreRefusedAndStayAreAllToldAndLetGo)
{
    std::list<HttpTestClient> clients;
    for (int i = 0; i < 80; ++i) {
        ASSERT_EQ(clients.emplace_back(mServer.port()).ask(head("GET / HTTP/1.1")).status, "405") << i;
    }
    for (HttpTestClient& client : clients) {
        EXPECT_TRUE(client.readToEnd());
        EXPECT_EQ(client.pending(), "");
    }
}

TEST(HttpServerLimitTest, TwoHundredIdleConnectionsKeepNobodyWaiting)
{
    HttpServer server(HttpOptions{}, &echo);
    server.start();
    std::list<HttpTestClient> idle;
    for (int i = 0; i < 200; ++i) {
        ASSERT_TRUE(idle.emplace_back(server.port()).connected());
    }
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(HttpTestClient(server.port()).ask(post("x")).status, "200");
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
}

TEST(HttpServerLimitTest, WhatIsHeldIsBoundedAndCountedOut)
{
    Desk desk;
    HttpOptions options;
    options.maxHeld = 1'000'000;
    HttpServer server(std::move(options), desk.handler());
    server.start();
    HttpTestClient first(server.port());
    HttpTestClient second(server.port());
    HttpTestClient third(server.port());
    first.send(post(std::string(400'000, 'a')));
    ASSERT_TRUE(desk.waitFor(1));
    second.send(post(std::string(400'000, 'b')));
    ASSERT_TRUE(desk.waitFor(2));
    third.send(post(std::string(210'000, 'c')));
    const auto refused = third.answer();
    EXPECT_EQ(refused.status, "503");
    EXPECT_EQ(refused.body, "There is too much in work.\n");
    desk.take()({200, "text/xml", std::string(610'000, 'd')});
    const auto tooLong = first.answer();
    EXPECT_EQ(tooLong.status, "503") << "an answer counts too";
    EXPECT_EQ(tooLong.body, "There is too much in work.\n");
    desk.take()({200, "text/xml", std::string(990'000, 'e')});
    EXPECT_EQ(second.answer().body.size(), 990'000U) << "in the place of its request";
    for (int round = 0; round < 5; ++round) {
        HttpTestClient client(server.port());
        client.send(post(std::string(500'000, 'd')));
        ASSERT_TRUE(desk.waitFor(1));
        desk.take()({200, "text/xml", "in time"});
        EXPECT_EQ(client.answer().body, "in time") << round;
    }
}

/// The process's limit of open files; goes back with the test.
class KeptFileLimit
{
  public:
    KeptFileLimit() { getrlimit(RLIMIT_NOFILE, &m_before); }
    ~KeptFileLimit() { setrlimit(RLIMIT_NOFILE, &m_before); }
    KeptFileLimit(const KeptFileLimit&) = delete;
    KeptFileLimit& operator=(const KeptFileLimit&) = delete;

    [[nodiscard]] rlim_t hard() const { return m_before.rlim_max; }
    void setSoft(rlim_t count) const
    {
        const rlimit limit{count, m_before.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_NOFILE, &limit), 0);
    }
    [[nodiscard]] static rlim_t soft()
    {
        rlimit now{};
        getrlimit(RLIMIT_NOFILE, &now);
        return now.rlim_cur;
    }

  private:
    rlimit m_before{};
};

TEST(HttpServerLimitTest, OpenFileLimitIsRaisedToWhatIsNeeded)
{
    const KeptFileLimit limit;
    limit.setSoft(100);
    HttpServer server(HttpOptions{}, &echo);
    server.start();
    EXPECT_EQ(KeptFileLimit::soft(), 352U);
    HttpServer another(HttpOptions{}, &echo);
    another.start();
    EXPECT_EQ(KeptFileLimit::soft(), 352U);
}

TEST(HttpServerLimitTest, OpenFileLimitThatIsTooLowIsNamed)
{
    const KeptFileLimit limit;
    HttpOptions options;
    options.maxConnections = 3'999'999'776;
    HttpServer server(std::move(options), &echo);
    try {
        server.start();
        ADD_FAILURE();
    } catch (const HttpServerError& error) {
        EXPECT_EQ(std::string(error.what()), "the limit of open files is " + std::to_string(limit.hard()) +
                                                 ", and 4000000000 are needed; raise it, as with: ulimit "
                                                 "-Hn 4000000000");
    }
}

TEST(HttpServerLeavingTest, ClientThatLeavesBeforeItsAnswerIsTold)
{
    std::mutex mutex;
    std::condition_variable changed;
    int left = 0;
    std::deque<HttpServer::Answer> kept;
    HttpServer server(HttpOptions{}, [&](const HttpRequest&, const HttpServer::Answer& answer) {
        answer.whenClientLeaves([&] {
            const std::lock_guard lock(mutex);
            ++left;
            changed.notify_all();
        });
        const std::lock_guard lock(mutex);
        kept.push_back(answer);
        changed.notify_all();
    });
    server.start();
    HttpTestClient stays(server.port());
    stays.send(post("x"));
    {
        HttpTestClient atOnce(server.port());
        atOnce.send(post("x"));
    }
    {
        std::unique_lock lock(mutex);
        ASSERT_TRUE(changed.wait_for(lock, 10s, [&] { return kept.size() == 2 && left == 1; }));
    }
    for (const HttpServer::Answer& answer : kept) {
        answer({200, "text/xml", "here"});
    }
    EXPECT_EQ(stays.answer().body, "here");
    EXPECT_EQ(left, 1);
}

TEST_F(HttpServerTest, BeginningOfARequestThatEndsIsNoticedAtOnce)
{
    HttpTestClient client(mServer.port());
    const auto start = std::chrono::steady_clock::now();
    client.send("POST /RPC2 HT");
    client.endSending();
    EXPECT_TRUE(client.readToEnd());
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
    EXPECT_EQ(client.pending(), "");
}

TEST_F(HttpServerTest, WholeRequestThatIsHalfClosedAtOnceIsAnswered)
{
    for (int round = 0; round < 200; ++round) {
        HttpTestClient client(mServer.port());
        client.send(post("x"));
        client.endSending();
        ASSERT_EQ(client.answer().status, "200") << round;
        ASSERT_TRUE(client.readToEnd());
    }
}

TEST(HttpServerLeavingTest, HalfClosedRequestWhoseAnswerComesLaterIsAnswered)
{
    Desk desk;
    HttpServer server(HttpOptions{}, desk.handler());
    server.start();
    for (int round = 0; round < 100; ++round) {
        HttpTestClient client(server.port());
        client.send(post("x"));
        client.endSending();
        ASSERT_TRUE(desk.waitFor(1));
        desk.take()({200, "text/xml", "here"});
        ASSERT_EQ(client.answer().body, "here") << round;
        ASSERT_TRUE(client.readToEnd());
    }
}

TEST(HttpServerLeavingTest, ClientsThatLeaveTheirRequestsTakeNobodysPlace)
{
    Desk desk;
    HttpOptions options;
    options.maxConnections = 4;
    HttpServer server(std::move(options), desk.handler());
    server.start();
    for (int count = 0; count < 20; ++count) {
        HttpTestClient leaving(server.port());
        leaving.send(post("x"));
        ASSERT_TRUE(desk.waitFor(static_cast<std::size_t>(count) + 1));
    }
    std::optional<HttpTestClient> client(server.port());
    client->send(post("y"));
    ASSERT_TRUE(desk.waitFor(21));
    desk.answerAll("here");
    EXPECT_EQ(client->answer().body, "here");
}

TEST_F(HttpServerTest, WhatBreaksTheGrammarIs400OnceAndEndsTheConnection)
{
    const std::string fine = "Host: localhost\r\nContent-Type: text/xml\r\nContent-Length: 1\r\n";
    const std::string line = "POST /RPC2 HTTP/1.1\r\n";
    const auto zero = std::string(1, '\0');
    const std::vector<std::string> heads{
        line + fine + "Transfer-Encoding : chunked\r\n",
        line + fine + "X-Folded: a\r\n b\r\n",
        line + " folded: first\r\n" + fine,
        line + fine + "X-Pad: a" + zero + "b\r\n",
        line + "Host: localhost" + zero + ".evil\r\nContent-Type: text/xml\r\nContent-Length: 1\r\n",
        line + "Host: localhost\r\nContent-Type: text/xml" + zero + "\r\nContent-Length: 1\r\n",
        "POST /RPC2" + zero + " HTTP/1.1\r\n" + fine,
        "POST /RPC2\x7F HTTP/1.1\r\n" + fine,
        "POST  /RPC2 HTTP/1.1\r\n" + fine,
        "POST /RPC2 HTTP/1.1 \r\n" + fine,
        "POST /RPC2\r\n" + fine,
        "POST /RPC2 http/1.1\r\n" + fine,
        "PO(ST /RPC2 HTTP/1.1\r\n" + fine,
        line + fine + "no colon\r\n",
        line + fine + ": no name\r\n",
        line + fine + "X\x01Y: a\r\n",
        line + fine + "X-Pad: a\rb\r\n",
        line + fine + "X-Pad: a\x7F\r\n",
        "POST /RPC2 HTTP/1.1\n" + fine,
        line + fine + "X-Pad: a\n",
    };
    for (const std::string& bytes : heads) {
        HttpTestClient client(mServer.port());
        const auto answer = client.ask(bytes + "\r\nx" + post("second"));
        EXPECT_EQ(answer.status, "400") << bytes;
        EXPECT_NE(answer.head.find("Connection: close\r\n"), std::string::npos) << bytes;
        EXPECT_TRUE(client.readToEnd()) << bytes;
        EXPECT_EQ(client.pending(), "") << bytes;
    }
    EXPECT_EQ(ask(line + fine + "X-Blank:\r\nX-Tab: a\tb\xC3\xA4\r\n\r\nx").status, "200");
    EXPECT_EQ(ask("POST /RPC2 HTTP/2.0\r\n" + fine + "\r\nx").status, "505");
    EXPECT_EQ(ask("\r\n" + line + fine + "\r\nx").status, "200") << "an empty line before is lawful";
}

TEST_F(HttpServerTest, PageOfAnotherSiteIsRefusedWhateverItSends)
{
    for (const std::string fields :
         {"Origin: http://evil.example\r\n", "Origin: null\r\n", "Origin: \r\n",
          "Origin: http://localhost:1\r\n", "Sec-Fetch-Site: cross-site\r\n", "Sec-Fetch-Site: same-site\r\n",
          "Sec-Fetch-Site: none\r\nSec-Fetch-Site: cross-site\r\n",
          "Origin: http://localhost\r\nOrigin: http://localhost\r\n",
          "Origin: http://localhost\r\nSec-Fetch-Site: Cross-Site\r\n"}) {
        const auto answer = ask(post("x", fields));
        EXPECT_EQ(answer.status, "403") << fields;
        EXPECT_EQ(answer.body, "A page of another site may not call this server.\n");
        EXPECT_EQ(
            ask(head("POST /RPC2 HTTP/1.1", "Content-Type: text/plain\r\nContent-Length: 1\r\n" + fields) +
                "x")
                .status,
            "403")
            << fields;
    }
    for (const std::string fields : {"Origin: http://localhost\r\nSec-Fetch-Site: same-origin\r\n",
                                     "Origin: https://LOCALHOST\r\n", "Sec-Fetch-Site: none\r\n"}) {
        EXPECT_EQ(ask(post("x", fields)).status, "200") << fields;
    }
}

TEST_F(HttpServerTest, RefusalsAndRequestsAreTraced)
{
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const auto added = zyr_platform::TraceService::get().addSink(sink);
    const auto traced = [&] {
        std::vector<std::string> texts;
        for (const auto& record : sink->take()) {
            texts.push_back(std::to_string(record.level) + " " + record.channel + " " + record.text);
        }
        return texts;
    };
    zyr_platform::TraceService::get().setLevel("ZYR.GATEWAY", 4);
    EXPECT_EQ(ask(post("x")).status, "200");
    EXPECT_EQ(traced(), std::vector<std::string>{});
    EXPECT_EQ(ask("POST /RPC2 HTTP/1.1\r\nHost: evil.\"example\r\n\r\n").status, "400");
    const auto refused = traced();
    ASSERT_EQ(refused.size(), 1U);
    EXPECT_THAT(refused.front(),
                testing::MatchesRegex(
                    "2 ZYR.GATEWAY refused with 400: 127.0.0.1 port [0-9]+, Host \"evil.\\?example\", "
                    "\"POST\" \"/RPC2\": The Host field does not name this machine; use localhost or "
                    "127.0.0.1."));
    zyr_platform::TraceService::get().setLevel("ZYR.GATEWAY", 5);
    EXPECT_EQ(ask(post("x")).status, "200");
    zyr_platform::TraceService::get().resetLevels();
    const auto served = traced();
    ASSERT_EQ(served.size(), 1U);
    EXPECT_THAT(served.front(),
                testing::MatchesRegex("5 ZYR.GATEWAY 200 in [0-9]+ ms, 84 bytes in, 21 bytes out, "
                                      "127.0.0.1 port [0-9]+"));
}

TEST_F(HttpServerTest, ControlCharactersOfARefusedRequestAreReplacedInTheTrace)
{
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const auto added = zyr_platform::TraceService::get().addSink(sink);
    EXPECT_EQ(ask("POST /\x7F HTTP/1.1\r\nHost: a\x01\x1F b\x7F\r\n\r\n").status, "400");
    const auto records = sink->take();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_THAT(records.front().text, testing::HasSubstr(", Host \"a?? b?\", \"POST\" \"/?\": "));
}

TEST(HttpServerLeavingTest, AnswerForAClientThatIsGoneIsTracedAsSuch)
{
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const auto added = zyr_platform::TraceService::get().addSink(sink);
    zyr_platform::TraceService::get().setLevel("ZYR.GATEWAY", 5);
    std::promise<HttpServer::Answer> kept;
    std::promise<void> left;
    HttpServer server(HttpOptions{}, [&](const HttpRequest&, const HttpServer::Answer& answer) {
        answer.whenClientLeaves([&] { left.set_value(); });
        kept.set_value(answer);
    });
    server.start();
    std::optional<HttpTestClient> client(server.port());
    client->resetAtEnd();
    client->send(post("x"));
    const HttpServer::Answer answer = kept.get_future().get();
    client.reset();
    left.get_future().wait();
    answer({200, "text/xml", "for nobody"});
    server.stop(10s);
    zyr_platform::TraceService::get().resetLevels();
    const auto records = sink->take();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_THAT(records.front().text,
                testing::MatchesRegex("200 in [0-9]+ ms, 84 bytes in, 10 bytes out, a client that is gone"));
}

TEST_F(HttpServerTest, LongTextsOfARefusedRequestAreCutInTheTrace)
{
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const auto added = zyr_platform::TraceService::get().addSink(sink);
    const std::string host(64, 'h');
    const std::string path = "/" + std::string(64, 'p');
    EXPECT_EQ(ask("POST " + path + " HTTP/1.1\r\nHost: " + host + "\r\n\r\n").status, "400");
    const auto records = sink->take();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_THAT(records.front().text,
                testing::HasSubstr(", Host \"" + host + "\", \"POST\" \"" + path.substr(0, 64) + "\"...: "));
}

TEST(HttpServerLimitTest, SixtyFourHangingRequestsHoldNobodyUp)
{
    Desk desk;
    const auto hang = desk.handler();
    HttpServer server(HttpOptions{}, [&](HttpRequest request, HttpServer::Answer answer) {
        if (request.body == "hang") {
            hang(std::move(request), std::move(answer));
        } else {
            echo(request, answer);
        }
    });
    server.start();
    std::list<HttpTestClient> hanging;
    for (int i = 0; i < 64; ++i) {
        hanging.emplace_back(server.port()).send(post("hang"));
    }
    ASSERT_TRUE(desk.waitFor(64));
    std::list<HttpTestClient> others;
    for (int i = 0; i < 64; ++i) {
        others.emplace_back(server.port());
    }
    for (int round = 0; round < 5; ++round) {
        for (HttpTestClient& other : others) {
            ASSERT_EQ(other.ask(post("now")).body, "POST /RPC2 text/xml now");
        }
    }
    desk.answerAll("freed");
    for (HttpTestClient& client : hanging) {
        EXPECT_EQ(client.answer().body, "freed");
    }
}

TEST(HttpServerAnswerTest, AnswerMayComeFromAnyThreadWhileTheHandlerReturns)
{
    std::mutex mutex;
    std::vector<std::thread> threads;
    HttpServer server(HttpOptions{}, [&](HttpRequest request, HttpServer::Answer answer) {
        const std::lock_guard lock(mutex);
        threads.emplace_back([body = std::move(request.body), answer = std::move(answer)] {
            answer({200, "text/xml", body});
        });
    });
    server.start();
    {
        HttpTestClient client(server.port());
        for (int i = 0; i < 500; ++i) {
            ASSERT_EQ(client.ask(post(std::to_string(i))).body, std::to_string(i));
        }
    }
    server.stop(0ms);
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(HttpServerAnswerTest, OnlyTheFirstAnswerCounts)
{
    HttpServer server(HttpOptions{}, [](const HttpRequest&, const HttpServer::Answer& answer) {
        answer({200, "text/xml", "first"});
        answer({200, "text/xml", "second"});
    });
    server.start();
    HttpTestClient client(server.port());
    EXPECT_EQ(client.ask(post("x")).body, "first");
    EXPECT_EQ(client.ask(post("x")).body, "first");
}

TEST(HttpServerAnswerTest, HandlerThatThrowsOrForgetsIs500)
{
    HttpServer server(HttpOptions{}, [](const HttpRequest& request, const HttpServer::Answer&) {
        if (request.body == "throw") {
            throw std::runtime_error("secret reason");
        }
    });
    server.start();
    HttpTestClient client(server.port());
    const auto thrown = client.ask(post("throw"));
    EXPECT_EQ(thrown.status, "500");
    EXPECT_EQ(thrown.body, "The request has failed.\n");
    const auto forgotten = client.ask(post("forget"));
    EXPECT_EQ(forgotten.status, "500");
    EXPECT_EQ(forgotten.body, "The request was not answered.\n");
}

TEST(HttpServerAnswerTest, ClientThatLeavesBeforeItsAnswerDoesNoHarm)
{
    Desk desk;
    HttpServer server(HttpOptions{}, desk.handler());
    server.start();
    {
        HttpTestClient client(server.port());
        client.send(post("x"));
        ASSERT_TRUE(desk.waitFor(1));
    }
    desk.take()({200, "text/xml", "for nobody"});
    HttpTestClient client(server.port());
    client.send(post("x"));
    ASSERT_TRUE(desk.waitFor(1));
    desk.take()({200, "text/xml", "here"});
    EXPECT_EQ(client.answer().body, "here");
}

TEST(HttpServerStopTest, RunningRequestIsAnsweredWithinTheGrace)
{
    Desk desk;
    HttpServer server(HttpOptions{}, desk.handler());
    server.start();
    HttpTestClient client(server.port());
    client.send(post("x"));
    ASSERT_TRUE(desk.waitFor(1));
    std::thread stopper([&] { server.stop(10s); });
    while (HttpTestClient(server.port()).connected()) {
    }
    desk.take()({200, "text/xml", "in time"});
    const auto answer = client.answer();
    EXPECT_EQ(answer.body, "in time");
    EXPECT_NE(answer.head.find("Connection: close\r\n"), std::string::npos) << answer.head;
    EXPECT_TRUE(client.readToEnd());
    stopper.join();
}

TEST(HttpServerStopTest, StopEndsAsSoonAsAllIsAnswered)
{
    HttpServer server(HttpOptions{}, &echo);
    server.start();
    HttpTestClient client(server.port());
    EXPECT_EQ(client.ask(post("x")).status, "200");
    const auto start = std::chrono::steady_clock::now();
    server.stop(60s);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
    EXPECT_TRUE(client.readToEnd());
}

TEST(HttpServerStopTest, RequestBeyondTheGraceIs503AndItsLateAnswerHarmless)
{
    Desk desk;
    std::optional<HttpServer> server(std::in_place, HttpOptions{}, desk.handler());
    server->start();
    HttpTestClient client(server->port());
    client.send(post("x"));
    ASSERT_TRUE(desk.waitFor(1));
    server->stop(0ms);
    EXPECT_EQ(client.answer().status, "503");
    const HttpServer::Answer late = desk.take();
    late({200, "text/xml", "too late"});
    server.reset();
    late({200, "text/xml", "much too late"});
    EXPECT_TRUE(client.readToEnd());
    EXPECT_EQ(client.pending(), "");
}

TEST(HttpServerStopTest, AfterStopAcceptingOpenConnectionsGet503)
{
    HttpServer server(HttpOptions{}, &echo);
    server.start();
    HttpTestClient client(server.port());
    EXPECT_EQ(client.ask(post("x")).status, "200");
    server.stopAccepting();
    EXPECT_FALSE(HttpTestClient(server.port()).connected());
    const auto answer = client.ask(post("x"));
    EXPECT_EQ(answer.status, "503");
    EXPECT_EQ(answer.body, "The server is stopping.\n");
}

TEST(HttpServerStopTest, StopIsHarmlessTwiceAndBeforeStart)
{
    HttpServer server(HttpOptions{}, &echo);
    server.stop(0ms);
    HttpServer another(HttpOptions{}, &echo);
    another.start();
    another.stop(0ms);
    another.stop(0ms);
}

TEST(HttpServerStartTest, BeyondLoopbackNeedsCredentials)
{
    for (const std::string address :
         {"0.0.0.0", "::", "192.0.2.1", "128.0.0.1", "::ffff:127.0.0.1", "1::1", "0:0:1::1", "::1:0:1"}) {
        HttpOptions options;
        options.address = address;
        try {
            const HttpServer server(std::move(options), &echo);
            ADD_FAILURE() << address;
        } catch (const HttpServerError& error) {
            EXPECT_EQ(std::string(error.what()),
                      "listening on " + address +
                          " is open to other machines and needs --credentials FILE; TLS is recommended too: "
                          "a TLS proxy, or --tls-cert FILE and --tls-key FILE");
        }
    }
}

TEST(HttpServerStartTest, AnyLoopbackAddressIsTaken)
{
    for (const std::string address : {"127.0.0.1", "127.0.0.2", "localhost", "::1"}) {
        HttpOptions options;
        options.address = address;
        EXPECT_NO_THROW(HttpServer(std::move(options), &echo)) << address;
    }
}

TEST(HttpServerStartTest, AddressMustBeNumeric)
{
    for (const std::string address : {"", "example.org", "127.0.0.1:80", "1.2.3"}) {
        HttpOptions options;
        options.address = address;
        EXPECT_THROW(HttpServer(std::move(options), &echo), HttpServerError) << address;
    }
}

TEST(HttpServerStartTest, TakenPortIsNamed)
{
    HttpServer first(HttpOptions{}, &echo);
    first.start();
    HttpOptions options;
    options.port = first.port();
    HttpServer second(std::move(options), &echo);
    try {
        second.start();
        ADD_FAILURE();
    } catch (const HttpServerError& error) {
        EXPECT_EQ(std::string(error.what()), "cannot listen on 127.0.0.1 port " +
                                                 std::to_string(first.port()) + ": Address already in use");
    }
}

TEST(HttpServerStartTest, PortIsKnownAfterStart)
{
    HttpServer server(HttpOptions{}, &echo);
    EXPECT_EQ(server.port(), 0);
    server.start();
    EXPECT_NE(server.port(), 0);
}
