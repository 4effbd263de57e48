#include "RequestHead.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using namespace zyr_gateway;

namespace
{

using Fields = std::vector<std::pair<std::string, std::string>>;

/// A head of version 1.1 as the HTTP library keeps it: the texts where they came in, with zeros for what
/// stood between them.
class KeptHead
{
  public:
    KeptHead(const std::string& method, const std::string& target, const Fields& fields)
    {
        const std::string version = "HTTP/1.1";
        const std::string end(2, '\0');
        m_bytes = method + '\0' + target + '\0' + version + end;
        for (const auto& [name, value] : fields) {
            m_bytes += name + '\0' + ' ' + value + end;
        }
        m_bytes += end;
        const std::string_view bytes = m_bytes;
        m_head.method = bytes.substr(0, method.size());
        m_head.target = bytes.substr(method.size() + 1, target.size());
        m_head.targetPlace = m_head.target.data();
        std::size_t place = method.size() + 1 + target.size() + 1;
        m_head.version = bytes.substr(place, version.size());
        place += version.size() + end.size();
        for (const auto& [name, value] : fields) {
            const std::size_t valuePlace = place + name.size() + 2;
            m_head.add(bytes.substr(place, name.size()), bytes.substr(valuePlace, value.size()));
            place = valuePlace + value.size() + end.size();
        }
        m_head.size = m_bytes.size();
    }
    KeptHead(const KeptHead&) = delete;
    KeptHead& operator=(const KeptHead&) = delete;

    /// Status and text of the refusal; "none" without one.
    [[nodiscard]] std::string refusal() const
    {
        const auto refused = refusalOf(m_head, HttpOptions{}, false);
        return refused ? std::to_string(refused->status) + " " + refused->body : "none";
    }

  private:
    std::string m_bytes;
    RequestHead m_head;
};

std::string refusal(const std::string& method, const std::string& target, const Fields& fields)
{
    return KeptHead(method, target, fields).refusal();
}

std::string refusalOfLength(const std::string& length)
{
    return refusal("POST", "/RPC2",
                   {{"Host", "localhost"}, {"Content-Type", "text/xml"}, {"Content-Length", length}});
}

// What the HTTP library of today refuses itself is refused without it too.

TEST(RequestHeadTest, LengthIsANumberOf64Bits)
{
    EXPECT_EQ(refusalOfLength("524288"), "none");
    EXPECT_EQ(refusalOfLength("524289"), "413 The body is longer than 524288 bytes.\n");
    EXPECT_EQ(refusalOfLength("18446744073709551616"), "413 The body is longer than 524288 bytes.\n");
    EXPECT_EQ(refusalOfLength("1x"), "400 The Content-Length field is not a number.\n");
    EXPECT_EQ(refusalOfLength("-1"), "400 The Content-Length field is not a number.\n");
    EXPECT_EQ(refusalOfLength(""), "400 The Content-Length field is not a number.\n");
}

TEST(RequestHeadTest, MethodAndNamesHaveAtLeastOneCharacter)
{
    const Fields fields{{"Host", "localhost"}, {"Content-Type", "text/xml"}, {"Content-Length", "1"}};
    EXPECT_EQ(refusal("POST", "/RPC2", fields), "none");
    EXPECT_EQ(refusal("", "/RPC2", fields),
              "400 The request line is not of the form METHOD PATH HTTP/1.1.\n");
    EXPECT_EQ(refusal("POST", "/RPC2", {{"Host", "localhost"}, {"", "x"}}),
              "400 A header line is not a name with a colon right behind it.\n");
}

} // namespace
