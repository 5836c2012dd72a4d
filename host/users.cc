// Password hashes by crypt(3), and digests by gnutls, which the HTTP library brings along.
#include "users.h"

#include <bsd/readpassphrase.h>
#include <crypt.h>
#include <gnutls/crypto.h>
#include <gnutls/gnutls.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace lmq::host {
namespace {

std::string hash(const std::string &password, const std::string &setting) {
    crypt_data data{};
    const char *result = crypt_r(password.c_str(), setting.c_str(), &data);
    return result == nullptr || result[0] == '*' ? std::string() : std::string(result);
}

std::string new_hash(const std::string &password) {
    char setting[CRYPT_GENSALT_OUTPUT_SIZE];
    // The system's preferred method, with its preferred cost and a salt of the system's randomness.
    if (crypt_gensalt_rn(nullptr, 0, nullptr, 0, setting, sizeof setting) == nullptr) {
        throw std::runtime_error("the system has no salt for a password");
    }
    return hash(password, setting);
}

/// Asks on the terminal, without an echo. A signal meanwhile leaves the terminal as it was.
std::string read_hidden(const char *prompt) {
    char text[1024];
    if (readpassphrase(prompt, text, sizeof text, RPP_REQUIRE_TTY) == nullptr) {
        throw std::runtime_error("the terminal gives no password");
    }
    return text;
}

/// Whether a text is a whole hash of a method that the system does not advise against. Any text of letters would do as
/// a setting of the oldest one, a password in clear too.
bool is_hash(const std::string &text) {
    const int advice = text.empty() ? CRYPT_SALT_INVALID : crypt_checksalt(text.c_str());
    return (advice == CRYPT_SALT_OK || advice == CRYPT_SALT_TOO_CHEAP) && hash("", text).size() == text.size();
}

/// The role that some words stand for; none if there is another word.
std::optional<Role> role_of(const std::string &text) {
    constexpr std::string_view allow = "allow=", deny = "deny=";
    Role role;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (word == "read-only") {
            role.read_only = ReadOnly::strict;
        } else if (word == "read-only=registers") {
            role.read_only = ReadOnly::registers;
        } else if (word.starts_with(allow)) {
            role.rules.push_back({true, word.substr(allow.size())});
        } else if (word.starts_with(deny)) {
            role.rules.push_back({false, word.substr(deny.size())});
        } else {
            return std::nullopt;
        }
    }
    return role;
}

bool equal(const void *left, const void *right, std::size_t size) { return gnutls_memcmp(left, right, size) == 0; }

}  // namespace

Users::Users(const std::filesystem::path &file) : nobody_(new_hash("nobody")) {
    std::ifstream lines(file);
    if (!lines) throw std::runtime_error("cannot read the users '" + file.string() + "'");
    std::string text;
    for (int number = 1; std::getline(lines, text); ++number) {
        if (text.empty() || text.front() == '#') continue;
        const auto complain = [&](const std::string &what) {
            throw std::runtime_error("the users '" + file.string() + "': line " + std::to_string(number) + what);
        };
        const std::size_t colon = text.find(':');
        const std::size_t second = colon == std::string::npos ? colon : text.find(':', colon + 1);
        const std::string setting = colon == std::string::npos ? "" : text.substr(colon + 1, second - colon - 1);
        const std::string name = text.substr(0, colon);
        if (name.empty() || !is_hash(setting)) complain(" is not NAME:HASH (lmq-host --make-user NAME writes one)");
        if (!hashes_.emplace(name, setting).second) complain(" has the user '" + name + "' again");
        if (second == std::string::npos) continue;
        const auto role = role_of(text.substr(second + 1));
        if (!role) complain(": a role is words: read-only, read-only=registers, allow=GLOB and deny=GLOB");
        roles_[name] = *role;
    }
    if (hashes_.empty()) throw std::runtime_error("the users '" + file.string() + "': there is none");
    if (gnutls_rnd(GNUTLS_RND_KEY, key_.data(), key_.size()) < 0) throw std::runtime_error("no random numbers");
}

Users::Digest Users::digest(const std::string &name, const std::string &password) const {
    const std::string text = name + '\0' + password;
    Digest result{};
    gnutls_hmac_fast(GNUTLS_MAC_SHA256, key_.data(), key_.size(), text.data(), text.size(), result.data());
    return result;
}

Users::Answer Users::check(const std::string &name, const std::string &password, const std::string &address) {
    const Digest mark = digest(name, password);
    const auto known = known_.find(name);
    if (known != known_.end() && equal(known->second.data(), mark.data(), mark.size())) return Answer::right;

    if (!wrong_.may_try(address)) return Answer::too_many_wrong;

    const auto user = hashes_.find(name);
    const std::string &wanted = user == hashes_.end() ? nobody_ : user->second;
    const std::string given = hash(password, wanted);
    const bool same = given.size() == wanted.size() && equal(given.data(), wanted.data(), wanted.size());
    if (user != hashes_.end() && same) {
        known_[name] = mark;
        return Answer::right;
    }
    wrong_.note(address);
    return Answer::wrong;
}

std::string Users::line(const std::string &name, const std::string &password) {
    if (name.empty() || name.front() == '#' || name.find_first_of(":\r\n") != std::string::npos) {
        throw std::runtime_error("'" + name + "' cannot be a user: a name holds no colon and does not begin with '#'");
    }
    const std::string result = new_hash(password);
    if (result.empty()) throw std::runtime_error("the system cannot hash this password");
    return name + ":" + result;
}

std::string ask_password() {
    std::string password;
    if (isatty(STDIN_FILENO) == 1) {
        password = read_hidden("Password: ");
        if (password != read_hidden("Once more: ")) throw std::runtime_error("the two passwords differ");
    } else {
        std::getline(std::cin, password);
    }
    if (password.empty()) throw std::runtime_error("an empty password is none");
    return password;
}

}  // namespace lmq::host
