#include "Credentials.h"
#include "HttpServer.h"
#include "HttpTestClient.h"
#include "MemorySink.h"
#include "TraceService.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <memory>

#include <sys/stat.h>
#include <unistd.h>

using namespace zyr_gateway;

namespace
{

constexpr const char* kAnna =
    "anna:$6$Zx81Kq2v$dMij5oTVrEzkfj.7AGytxRbE//gT4L8y//3PbQ7Qk21q1Xi/kgYEy4tv9EiUxUPUdmCmteNL9jjSsEv5vHaIL/";
constexpr const char* kBert =
    "bert:$y$j75$k2XAnEHBqQ1Ct2aMXFKNa/$uZyyyQglewM2QSlStiW6iC.azIFKIgAHwjlFU2C9uPA";
constexpr const char* kAnnaHeader = "Authorization: Basic YW5uYTpnZWhlaW0=\r\n";
constexpr const char* kBertHeader = "Authorization: Basic YmVydDpvZmZlbg==\r\n";

/// A credentials file that goes with the test.
class TemporaryFile
{
  public:
    explicit TemporaryFile(const std::string& content, mode_t mode = 0600)
    {
        m_path = testing::TempDir() + "credentialsXXXXXX";
        const int descriptor = mkstemp(m_path.data());
        EXPECT_GE(descriptor, 0);
        close(descriptor);
        std::ofstream(m_path) << content;
        EXPECT_EQ(chmod(m_path.c_str(), mode), 0);
    }
    ~TemporaryFile() { unlink(m_path.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    [[nodiscard]] const std::string& path() const { return m_path; }

  private:
    std::string m_path;
};

std::string both()
{
    return std::string("# who may call\n\n") + kAnna + "\r\n" + kBert;
}

std::string errorOf(const std::string& path)
{
    try {
        (void)Credentials::fromFile(path);
    } catch (const CredentialsError& error) {
        return error.what();
    }
    ADD_FAILURE() << "accepted";
    return "";
}

std::string request(const std::string& fields)
{
    return "POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\n" + fields +
           "Content-Length: 1\r\n\r\nx";
}

HttpOptions guarded()
{
    const TemporaryFile file(both());
    HttpOptions options;
    options.credentials.emplace(Credentials::fromFile(file.path()));
    return options;
}

void tellUser(const HttpRequest& request, const HttpServer::Answer& answer)
{
    answer({200, "text/xml", "hello " + request.user});
}

} // namespace

TEST(HttpCredentialsTest, RightPasswordIsAcceptedAndRememberedForItsUserAlone)
{
    const TemporaryFile file(both());
    const Credentials credentials = Credentials::fromFile(file.path());
    EXPECT_FALSE(credentials.isRemembered("anna", "geheim"));
    EXPECT_TRUE(credentials.accepts("anna", "geheim"));
    EXPECT_TRUE(credentials.isRemembered("anna", "geheim"));
    EXPECT_FALSE(credentials.isRemembered("bert", "geheim"));
    EXPECT_FALSE(credentials.isRemembered("anna", "geheim "));
    EXPECT_TRUE(credentials.accepts("bert", "offen"));
    EXPECT_TRUE(credentials.isRemembered("anna", "geheim"));
}

TEST(HttpCredentialsTest, WrongUserOrPasswordIsRefusedAndNotRemembered)
{
    const TemporaryFile file(both());
    const Credentials credentials = Credentials::fromFile(file.path());
    EXPECT_FALSE(credentials.accepts("anna", "offen"));
    EXPECT_FALSE(credentials.accepts("anna", ""));
    EXPECT_FALSE(credentials.accepts("", ""));
    EXPECT_FALSE(credentials.accepts("carl", "geheim"));
    EXPECT_FALSE(credentials.accepts("anna", std::string("geheim\0x", 8)));
    EXPECT_FALSE(credentials.accepts("anna", std::string(100'000, 'x')));
    EXPECT_FALSE(credentials.isRemembered("anna", "offen"));
    EXPECT_FALSE(credentials.isRemembered("carl", "geheim"));
}

TEST(HttpCredentialsTest, FileThatOthersCanReadIsRefusedWithTheCure)
{
    for (const mode_t mode : {0640U, 0604U, 0620U, 0666U, 0610U}) {
        const TemporaryFile file(both(), mode);
        EXPECT_EQ(errorOf(file.path()),
                  "the credentials file " + file.path() +
                      " can be read or written by others than its owner; run: chmod 600 " + file.path());
    }
}

TEST(HttpCredentialsTest, StricterModeIsFine)
{
    const TemporaryFile file(both(), 0400);
    EXPECT_NO_THROW((void)Credentials::fromFile(file.path()));
}

TEST(HttpCredentialsTest, MissingFileAndDirectoryAreRefused)
{
    EXPECT_EQ(errorOf("/no/such/file"),
              "cannot open the credentials file /no/such/file: No such file or directory");
    EXPECT_EQ(errorOf("/"), "the credentials file / is not a regular file");
}

TEST(HttpCredentialsTest, WrongLineIsNamedByNumberNeverByContent)
{
    const auto errorFor = [](const std::string& line) {
        const TemporaryFile file(std::string(kAnna) + "\n" + line + "\n");
        const std::string text = errorOf(file.path());
        EXPECT_EQ(text.find("geheim2"), std::string::npos) << text;
        const std::size_t at = text.find(file.path());
        return text.substr(0, at) + "FILE" + text.substr(at + file.path().size());
    };
    const std::string noHash = "line 2 of the credentials file FILE holds no salted hash of a strong method; "
                               "make one with: mkpasswd --method=yescrypt, or openssl passwd -6";
    EXPECT_EQ(errorFor("geheim2"), "line 2 of the credentials file FILE is not of the form user:hash");
    EXPECT_EQ(errorFor(":geheim2"), "line 2 of the credentials file FILE is not of the form user:hash");
    EXPECT_EQ(errorFor("carl:geheim2"), noHash);
    EXPECT_EQ(errorFor("carl:"), noHash);
    EXPECT_EQ(errorFor("carl:$1$salt$geheim2"), noHash) << "MD5";
    EXPECT_EQ(errorFor(kAnna), "line 2 of the credentials file FILE names a user for the second time");
}

TEST(HttpCredentialsTest, FileWithoutUsersIsRefused)
{
    const TemporaryFile file("# nobody\n\n");
    EXPECT_EQ(errorOf(file.path()),
              "the credentials file " + file.path() + " names no user; add a line user:hash");
}

TEST(HttpCredentialsTest, FileOfMoreThanAMebibyteIsRefused)
{
    const std::size_t most = 1024UL * 1024UL;
    const std::string users = both() + "\n#";
    const TemporaryFile longest(users + std::string(most - users.size(), 'x'));
    EXPECT_TRUE(Credentials::fromFile(longest.path()).accepts("bert", "offen"));
    const TemporaryFile longer(users + std::string(most - users.size() + 1, 'x'));
    EXPECT_EQ(errorOf(longer.path()), "the credentials file " + longer.path() + " is longer than 1 MiB");
}

TEST(HttpCredentialsServerTest, MissingOrWrongLoginIs401)
{
    HttpServer server(guarded(), &tellUser);
    server.start();
    for (const std::string fields :
         {"", "Authorization: Basic YW5uYTpvZmZlbg==\r\n", "Authorization: Basic !\r\n",
          "Authorization: Bearer YW5uYTpnZWhlaW0=\r\n", "Authorization: \r\n",
          "Authorization: Basic YW5uYTpnZWhlaW0=\r\nAuthorization: Basic YW5uYTpnZWhlaW0=\r\n"}) {
        const auto answer = HttpTestClient(server.port()).ask(request(fields));
        EXPECT_EQ(answer.status, "401") << fields;
        EXPECT_NE(answer.head.find("WWW-Authenticate: Basic realm=\"zyrnode\", charset=\"UTF-8\"\r\n"),
                  std::string::npos)
            << answer.head;
    }
}

TEST(HttpCredentialsServerTest, RightLoginReachesTheHandlerWithTheUser)
{
    HttpServer server(guarded(), &tellUser);
    server.start();
    HttpTestClient client(server.port());
    EXPECT_EQ(client.ask(request(kAnnaHeader)).body, "hello anna");
    EXPECT_EQ(client.ask(request(kAnnaHeader)).body, "hello anna") << "remembered";
    EXPECT_EQ(client.ask(request(kBertHeader)).body, "hello bert");
}

TEST(HttpCredentialsServerTest, TheTraceNamesTheUser)
{
    HttpServer server(guarded(), &tellUser);
    server.start();
    const auto sink = std::make_shared<zyr_platform::MemorySink>();
    const auto added = zyr_platform::TraceService::get().addSink(sink);
    zyr_platform::TraceService::get().setLevel("ZYR.GATEWAY", 5);
    EXPECT_EQ(HttpTestClient(server.port()).ask(request(kAnnaHeader)).body, "hello anna");
    zyr_platform::TraceService::get().resetLevels();
    const auto records = sink->take();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_THAT(records.front().text,
                testing::MatchesRegex("200 in [0-9]+ ms, [0-9]+ bytes in, 10 bytes out, user \"anna\", "
                                      "127.0.0.1 port [0-9]+"));
}

TEST(HttpCredentialsServerTest, LoginIsAskedBeforePathsAreTold)
{
    HttpServer server(guarded(), &tellUser);
    server.start();
    EXPECT_EQ(HttpTestClient(server.port()).ask("GET /other HTTP/1.1\r\nHost: localhost\r\n\r\n").status,
              "401");
}

TEST(HttpCredentialsServerTest, ListensBeyondLoopbackWithCredentials)
{
    HttpOptions options = guarded();
    options.address = "0.0.0.0";
    HttpServer server(std::move(options), &tellUser);
    server.start();
    const std::string named = "POST /RPC2 HTTP/1.1\r\nHost: node.example\r\nContent-Type: text/xml\r\n" +
                              std::string(kAnnaHeader) + "Content-Length: 0\r\n\r\n";
    EXPECT_EQ(HttpTestClient(server.port()).ask(named).body, "hello anna");
}
