// Counting of wrong passwords by address.
#include "wrong_passwords.h"

#include <algorithm>

namespace lmq::host {
namespace {

/// Wrong passwords a second: from one guesser, from all of them, and from those who have not been noticed yet.
constexpr unsigned most_of_one = 5, most_of_guessers = 5, most_slips = 5;

/// How long an address counts as that of a guesser.
constexpr std::chrono::minutes memory(1);

/// Addresses that are kept in mind.
constexpr std::size_t most_guessers = 4096;

/// Whoever has one address of IPv6 has its whole network.
std::string network(const std::string &address) {
    if (address.find('.') != std::string::npos) return address;
    std::size_t end = 0;
    for (int parts = 0; parts < 4 && end != std::string::npos; ++parts) end = address.find(':', end == 0 ? 0 : end + 1);
    return address.substr(0, end);
}

}  // namespace

bool WrongPasswords::Count::is_used_up(unsigned most) {
    const auto now = Clock::now();
    if (now - window >= std::chrono::seconds(1)) *this = {now, 0};
    return wrong >= most;
}

bool WrongPasswords::may_try(const std::string &address) {
    const auto guesser = guessers_.find(network(address));
    if (guesser == guessers_.end() || Clock::now() - guesser->second.last >= memory)
        return !slips_.is_used_up(most_slips);
    return !guesser->second.count.is_used_up(most_of_one) && !guesses_.is_used_up(most_of_guessers);
}

void WrongPasswords::note(const std::string &address) {
    const std::string from = network(address);
    const bool is_known = guessers_.contains(from);
    if (!is_known && guessers_.size() >= most_guessers) forget_old();
    Guesser &guesser = guessers_[from];
    ++guesser.count.wrong;
    ++(is_known ? guesses_ : slips_).wrong;
    guesser.last = Clock::now();
}

/// Forgets those who have been quiet for longest.
void WrongPasswords::forget_old() {
    const auto oldest = std::min_element(guessers_.begin(), guessers_.end(), [](const auto &one, const auto &other) {
        return one.second.last < other.second.last;
    });
    guessers_.erase(oldest);
}

}  // namespace lmq::host
