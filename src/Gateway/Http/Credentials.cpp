#include "Credentials.h"

#include "PrivateFile.h"

#include <crypt.h>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/rand.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace zyr_gateway
{

namespace
{

std::string contentOf(const std::string& path)
{
    try {
        return readPrivateFile(path, "credentials file");
    } catch (const FileError& error) {
        throw CredentialsError(error.what());
    }
}

/// Takes the first line off the text.
std::string_view nextLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    return line;
}

/// The crypt(3) hash of the password with the method and salt of `setting`; empty when there is none.
std::string hashOf(std::string_view password, const std::string& setting)
{
    // 32 KiB: not for the stack. crypt_r wants it zeroed.
    const auto work = std::make_unique<crypt_data>();
    const char* hash = crypt_r(std::string(password).c_str(), setting.c_str(), work.get());
    return hash == nullptr || hash[0] == '*' ? std::string() : std::string(hash);
}

bool equalInConstantTime(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && CRYPTO_memcmp(a.data(), b.data(), a.size()) == 0;
}

} // namespace

Credentials Credentials::fromFile(const std::string& path)
{
    const std::string content = contentOf(path);
    std::string_view rest = content;
    std::vector<User> users;
    for (int number = 1; !rest.empty(); ++number) {
        const std::string_view line = nextLine(rest);
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        const std::string where = "line " + std::to_string(number) + " of the credentials file " + path;
        const std::size_t colon = line.find(':');
        if (colon == 0 || colon == std::string_view::npos) {
            throw CredentialsError(where + " is not of the form user:hash");
        }
        User user{std::string(line.substr(0, colon)), std::string(line.substr(colon + 1)), std::nullopt};
        if (crypt_checksalt(user.hash.c_str()) != CRYPT_SALT_OK) {
            throw CredentialsError(where + " holds no salted hash of a strong method; make one with: "
                                           "mkpasswd --method=yescrypt, or openssl passwd -6");
        }
        if (std::any_of(users.begin(), users.end(), [&](const User& u) { return u.name == user.name; })) {
            throw CredentialsError(where + " names a user for the second time");
        }
        users.push_back(std::move(user));
    }
    if (users.empty()) {
        throw CredentialsError("the credentials file " + path + " names no user; add a line user:hash");
    }
    return Credentials(std::move(users));
}

Credentials::Credentials(std::vector<User> users) : m_users(std::move(users))
{
    if (RAND_bytes(m_key.data(), static_cast<int>(m_key.size())) != 1) {
        throw CredentialsError("the system gives no random numbers for the credentials");
    }
}

Credentials::Credentials(Credentials&& other) noexcept : m_users(std::move(other.m_users)), m_key(other.m_key)
{}

Credentials::~Credentials()
{
    OPENSSL_cleanse(m_key.data(), m_key.size());
}

bool Credentials::isRemembered(std::string_view user, std::string_view password) const
{
    const Digest digest = digestOf(user, password);
    const std::lock_guard lock(m_mutex);
    return std::any_of(m_users.begin(), m_users.end(), [&](const User& known) {
        return known.accepted && CRYPTO_memcmp(known.accepted->data(), digest.data(), digest.size()) == 0;
    });
}

bool Credentials::accepts(std::string_view user, std::string_view password) const
{
    const auto known =
        std::find_if(m_users.begin(), m_users.end(), [&](const User& u) { return u.name == user; });
    // Somebody's hash is computed for unknown users too, so that time does not tell which users exist.
    const std::string& hash = known == m_users.end() ? m_users.front().hash : known->hash;
    const bool same = equalInConstantTime(hashOf(password, hash), hash);
    // crypt(3) would stop reading at a zero byte.
    const bool whole = password.find('\0') == std::string_view::npos;
    if (known == m_users.end() || !same || !whole) {
        return false;
    }
    const Digest digest = digestOf(user, password);
    const std::lock_guard lock(m_mutex);
    known->accepted = digest;
    return true;
}

Credentials::Digest Credentials::digestOf(std::string_view user, std::string_view password) const
{
    std::string text(user);
    text += '\0';
    text += password;
    Digest digest{};
    unsigned length = 0;
    HMAC(EVP_sha256(), m_key.data(), static_cast<int>(m_key.size()),
         reinterpret_cast<const unsigned char*>(text.data()), text.size(), digest.data(), &length);
    OPENSSL_cleanse(text.data(), text.size());
    return digest;
}

} // namespace zyr_gateway
