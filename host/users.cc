// Password hashes by crypt(3), and digests by gnutls, which the HTTP library brings along.
#include "users.h"

#include <crypt.h>
#include <gnutls/crypto.h>
#include <gnutls/gnutls.h>
#include <termios.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <stdexcept>

namespace lmq::host {
namespace {

/** Wrong passwords a second; further logins are put off. */
constexpr unsigned most_wrong = 5;

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

bool equal(const void *left, const void *right, std::size_t size) { return gnutls_memcmp(left, right, size) == 0; }

}  // namespace

Users::Users(const std::filesystem::path &file) : nobody_(new_hash("nobody")) {
    std::ifstream lines(file);
    if (!lines) throw std::runtime_error("cannot read the users '" + file.string() + "'");
    std::string text;
    for (int number = 1; std::getline(lines, text); ++number) {
        if (text.empty() || text.front() == '#') continue;
        const std::size_t colon = text.find(':');
        const std::string setting = colon == std::string::npos ? std::string() : text.substr(colon + 1);
        if (colon == 0 || setting.empty() || hash("", setting).empty()) {
            throw std::runtime_error("the users '" + file.string() + "': line " + std::to_string(number) +
                                     " is not NAME:HASH (lmq-host --make-user NAME writes one)");
        }
        hashes_[text.substr(0, colon)] = setting;
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

Users::Answer Users::check(const std::string &name, const std::string &password) {
    const Digest mark = digest(name, password);
    const auto known = known_.find(name);
    if (known != known_.end() && equal(known->second.data(), mark.data(), mark.size())) return Answer::right;

    const auto now = std::chrono::steady_clock::now();
    if (now - window_ >= std::chrono::seconds(1)) {
        window_ = now;
        wrong_ = 0;
    }
    if (wrong_ >= most_wrong) return Answer::too_many_wrong;

    const auto user = hashes_.find(name);
    const std::string &wanted = user == hashes_.end() ? nobody_ : user->second;
    const std::string given = hash(password, wanted);
    const bool same = given.size() == wanted.size() && equal(given.data(), wanted.data(), wanted.size());
    if (user != hashes_.end() && same) {
        known_[name] = mark;
        return Answer::right;
    }
    ++wrong_;
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
    const bool terminal = isatty(STDIN_FILENO) == 1;
    termios shown{};
    if (terminal) {
        tcgetattr(STDIN_FILENO, &shown);
        termios hidden = shown;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    const auto ask = [terminal](const char *prompt) {
        std::string password;
        if (terminal) std::cerr << prompt << std::flush;
        std::getline(std::cin, password);
        if (terminal) std::cerr << '\n';
        return password;
    };
    const std::string password = ask("Password: ");
    const bool same = !terminal || password == ask("Once more: ");
    if (terminal) tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown);
    if (!same) throw std::runtime_error("the two passwords differ");
    if (password.empty()) throw std::runtime_error("an empty password is none");
    return password;
}

}  // namespace lmq::host
