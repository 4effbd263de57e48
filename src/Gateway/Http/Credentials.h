#pragma once

#include <array>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zyr_gateway
{

/// A credentials file that cannot be used. The text names the file, the line and what to do; it never holds
/// the content of a line.
class CredentialsError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// The users that may call, with salted hashes of their passwords.
///
/// The file has one line per user, `user:hash`, where the hash is in the self-describing form of crypt(3),
/// such as `$y$...` (yescrypt) or `$6$...` (SHA-512), as `mkpasswd` and `openssl passwd -6` make it. Blank
/// lines and lines that begin with `#` are skipped.
///
/// Any thread may call any operation.
class Credentials
{
  public:
    /// Reads the file, which must be a regular one that only its owner can read (mode 0600 or less).
    /// @throws CredentialsError
    [[nodiscard]] static Credentials fromFile(const std::string& path);

    Credentials(Credentials&& other) noexcept;
    Credentials& operator=(Credentials&&) = delete;
    Credentials(const Credentials&) = delete;
    Credentials& operator=(const Credentials&) = delete;
    ~Credentials();

    /// Whether this user and password have been accepted before. Fast; a false says nothing yet.
    [[nodiscard]] bool isRemembered(std::string_view user, std::string_view password) const;

    /// Whether the password is the user's. Takes as long as the hash wants, tens of milliseconds, for users
    /// that do not exist too; a right one is remembered, as a keyed digest.
    [[nodiscard]] bool accepts(std::string_view user, std::string_view password) const;

  private:
    using Digest = std::array<unsigned char, 32>;

    struct User
    {
        std::string name;
        std::string hash;
        std::optional<Digest> accepted;
    };

    explicit Credentials(std::vector<User> users);
    [[nodiscard]] Digest digestOf(std::string_view user, std::string_view password) const;

    mutable std::mutex m_mutex;
    mutable std::vector<User> m_users;
    Digest m_key = {};
};

} // namespace zyr_gateway
