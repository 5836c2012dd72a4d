// The users of --auth: a file of names and salted hashes, and the check of a name and a password against it.
#pragma once

#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <unordered_map>

#include "filter.h"
#include "wrong_passwords.h"

namespace lmq::host {

class Users {
  public:
    enum class Answer { right, wrong, too_many_wrong };

    /// Reads a file of lines "NAME:HASH" or "NAME:HASH:ROLE", where the hash is one of crypt(5), and the role is words:
    /// "read-only", "allow=GLOB" and "deny=GLOB". Empty lines and lines that begin with '#' do not count.
    /// @throws std::runtime_error that names the file and the line.
    explicit Users(const std::filesystem::path &file);

    /// Checks a password. The time that this takes tells neither whether the user exists nor how much of the password
    /// is right. A right password is remembered in a hashed form, so that only the first check of it is slow. Wrong
    /// ones are checked a few times a second and no more, as each costs milliseconds of the one thread; an address that
    /// has sent wrong ones lately does not take the turn of one that has not.
    /// @param address Where the request comes from.
    Answer check(const std::string &name, const std::string &password, const std::string &address);

    /// What single users may call.
    const std::map<std::string, Role> &roles() const { return roles_; }

    /// The line for a new user.
    /// @throws std::runtime_error if the name does not fit in the file, or the system has no salt.
    static std::string line(const std::string &name, const std::string &password);

  private:
    using Digest = std::array<unsigned char, 32>;

    Digest digest(const std::string &name, const std::string &password) const;

    std::unordered_map<std::string, std::string> hashes_;
    std::map<std::string, Role> roles_;
    std::unordered_map<std::string, Digest> known_;
    /// Of this process alone: without it the digests could be searched like the passwords themselves.
    Digest key_{};
    /// What the password of a user that does not exist is checked against.
    std::string nobody_;
    WrongPasswords wrong_;
};

/// Asks for a password twice on the terminal, without an echo; or takes the first line of standard input if that is
/// none.
/// @throws std::runtime_error if the two differ, or there is none.
std::string ask_password();

}  // namespace lmq::host
