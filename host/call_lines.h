// The last calls as words for the log: so much of them as may stand there. Numbers are shown; texts, arrays and structs
// are not, for they may hold what a chip keeps secret.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace lmq::host {

/// The last few calls. They are made words of when somebody asks.
class CallLines {
  public:
    /// Keeps a call; the oldest makes room for it.
    /// @param call As it was handed to the backend. Of a document the method alone is shown.
    void add(std::string_view method, std::string call);
    void clear() { count_ = 0; }
    bool is_empty() const { return count_ == 0; }

    /// The calls, such as `lmq.vx_watchdog_set(0, {...})`, with commas between them, the newest last. One that comes
    /// several times in a row stands there once.
    std::string text() const;

  private:
    static constexpr std::size_t most = 8, longest_kept = std::size_t{256} << 10;

    /// Packed calls, or lines of what is none or is too long to be kept.
    std::array<std::string, most> calls_;
    /// How many have been added.
    std::size_t count_ = 0;
};

}  // namespace lmq::host
