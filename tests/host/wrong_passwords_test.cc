// What the host keeps in mind of those who send wrong passwords: an attacker with a great many addresses, a network of
// IPv6 each, must not take up more and more of its memory.
#include "host/wrong_passwords.h"

#include <gtest/gtest.h>

namespace {

std::string address(int number) { return "10.0." + std::to_string(number / 256) + "." + std::to_string(number % 256); }

TEST(WrongPasswords, OfTooManyGuessersTheOldestIsForgotten) {
    constexpr int most = 4096;
    lmq::host::WrongPasswords passwords;
    for (int number = 0; number <= most; ++number) passwords.note(address(number));
    // One of them uses up what is checked for all guessers in a second. Only whoever counts as none waits no longer.
    EXPECT_TRUE(passwords.may_try(address(most)));
    for (int wrong = 0; wrong < 5; ++wrong) passwords.note(address(most));
    EXPECT_FALSE(passwords.may_try(address(1)));
    EXPECT_TRUE(passwords.may_try(address(0)));
}

}  // namespace
