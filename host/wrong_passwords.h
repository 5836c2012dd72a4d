// How often wrong passwords are checked, so that a guesser neither gets far nor keeps others out.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <unordered_map>

namespace lmq::host {

class WrongPasswords {
  public:
    /// Whether a password from this address is to be checked now. Those who have sent wrong ones in the last minute
    /// share some checks a second, and so do all others: newcomers do not wait for guessers.
    bool may_try(const std::string &address);

    /// Says that a password from this address was wrong.
    void note(const std::string &address);

  private:
    using Clock = std::chrono::steady_clock;

    /// How many wrong ones there were in this second.
    struct Count {
        Clock::time_point window;
        unsigned wrong = 0;

        bool is_used_up(unsigned most);
    };
    struct Guesser {
        Count count;
        Clock::time_point last;
    };

    void forget_old();

    Count guesses_, slips_;
    std::unordered_map<std::string, Guesser> guessers_;
};

}  // namespace lmq::host
