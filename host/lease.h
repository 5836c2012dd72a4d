// The lease: for a time, one client alone may call what changes something, so that two benches do not share a board.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "reply.h"

namespace lmq::host {

class Lease {
  public:
    /// Answers a question for the lease, or the wish to take, prolong or give it back.
    /// @param method GET, HEAD, POST or DELETE.
    /// @param body   Of a POST: a JSON object with "name" and "seconds".
    /// @param token  What the client shows; empty if nothing.
    Reply serve(std::string_view method, std::string_view body, std::string_view token);

    /// Whether somebody holds it at this moment.
    bool is_held();

    /// Why a call that changes something is refused to whoever shows this token; none if it is not.
    std::optional<Reply> judge(std::string_view token);

  private:
    using Clock = std::chrono::system_clock;

    struct Holder {
        std::string name, token;
        Clock::time_point until;
    };

    bool is_holder(std::string_view token);
    Reply take(std::string_view body, std::string_view token);
    Reply refused(const std::string &what) const;
    std::string text(bool with_token) const;

    std::optional<Holder> holder_;
};

}  // namespace lmq::host
