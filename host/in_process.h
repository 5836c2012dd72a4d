// Calls in the host's own process: for a debugger, and where a second process is too much. A driver that crashes takes
// the host along, and while it hangs nobody is answered.
#pragma once

#include <unistd.h>

#include <exception>
#include <string>
#include <utility>

#include "backend.h"

namespace lmq::host {

class InProcess : public Backend {
  public:
    explicit InProcess(Service service) : call_(std::move(service.call)) { methods_ = std::move(service.methods); }

    bool is_synchronous() const override { return true; }
    bool ready() const override { return !outcome_; }

    void begin(std::string call, const std::string &) override {
        in_hand_ = std::move(call);
        try {
            outcome_ = Outcome{Outcome::Kind::answer, call_(in_hand_), {}};
        } catch (const std::exception &error) {
            outcome_ = Outcome{Outcome::Kind::unanswerable, error.what(), {}};
        }
    }

    std::optional<Outcome> step(bool) override { return std::exchange(outcome_, std::nullopt); }
    std::string take_call() override { return std::exchange(in_hand_, {}); }
    std::array<pollfd, 4> waits() const override { return {{{-1, 0, 0}, {-1, 0, 0}, {-1, 0, 0}, {-1, 0, 0}}}; }
    int timeout() const override { return outcome_ ? 0 : -1; }
    bool alive() const override { return true; }
    State state() const override { return {process_, 0, 0, 0}; }

  private:
    const pid_t process_ = getpid();
    Call call_;
    std::string in_hand_;
    std::optional<Outcome> outcome_;
};

}  // namespace lmq::host
