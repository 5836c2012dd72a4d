// What carries out calls, one at a time, and comes back with their answers, without ever holding up whoever asks.
// in_process.h does it in this process, worker.h in another one.
#pragma once

#include <poll.h>
#include <sys/types.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lmq::host {

/// Takes a call, as a document or packed (packed_call.h), and returns the document of the answer. Throws if the result
/// has no form in XML.
using Call = std::function<std::string(std::string_view call)>;

/// A method that is registered.
struct Method {
    std::string name;
    /// Whether it tells about the interface and calls nothing of the driver: it is the XML-RPC library's own, or the
    /// plug-in has registered it under the name of no function of the driver.
    bool is_introspection;
};

/// What serves calls.
struct Service {
    Call call;
    std::vector<Method> methods;
};

class Backend {
  public:
    struct Outcome {
        /// An answer; a result that has no form in XML; or a process that ended over the call.
        enum class Kind { answer, unanswerable, lost };
        Kind kind;
        /// The answer's document, or what happened.
        std::string text;
        /// What the call printed, as far as it is known.
        std::string printed = {};
        /// When the call began, if that is known.
        std::optional<std::chrono::steady_clock::time_point> begun = {};
    };

    /// How the process that held the driver ended unasked.
    struct Death {
        pid_t process = 0;
        /// The signal, or else the status; both 0 if the host has ended it for a misdeed.
        int signal = 0, status = 0;
        /// The same in words.
        std::string how;
        /// What it had in hand; empty if that was nothing.
        std::string method;
        /// What it printed since the last call, if it had nothing in hand.
        std::string printed;
    };

    /// For the metrics.
    struct State {
        /// The process that holds the driver.
        pid_t pid = 0;
        std::uint64_t restarts = 0;
        std::uint64_t recycled = 0;
        /// Bytes that the driver printed and nobody took.
        std::uint64_t dropped = 0;
    };

    Backend() = default;
    virtual ~Backend() = default;
    Backend(const Backend &) = delete;
    Backend &operator=(const Backend &) = delete;

    /// The methods that are registered.
    const std::vector<Method> &methods() const { return methods_; }

    /// Whether step() has the outcome as soon as begin() returns, so that nothing is won by letting a call wait.
    virtual bool is_synchronous() const { return false; }

    /// Whether begin() may be called, and there is no call in hand.
    virtual bool ready() const = 0;

    /// Whether begin() may be called while there is one, which has not been answered.
    /// @param size Of the call.
    virtual bool ready_for_next(std::size_t size) const {
        static_cast<void>(size);
        return false;
    }

    /// Hands over a call. It begins when all that were handed over before have ended. step() returns its outcome,
    /// sooner or later, or take_back() gives it back.
    /// @param call   The call, as Call takes it. The backend keeps it for as long as it needs it.
    /// @param method Its method, for the log.
    virtual void begin(std::string call, const std::string &method) = 0;

    /// Does what can be done without waiting. Returns the outcome of the oldest call, once.
    /// @param moved Whether a descriptor of waits() is ready, or the time of timeout() is over. Without that only an
    /// outcome
    ///              that is_there() is taken.
    virtual std::optional<Outcome> step(bool moved) = 0;

    /// Whether there is an outcome of which no descriptor tells.
    virtual bool is_there() const { return false; }

    /// Before whoever asks goes to sleep, so that a descriptor tells, and after that. is_there() is to be asked again
    /// between the two.
    virtual void sleep(bool begins) { static_cast<void>(begins); }

    /// The calls that have not begun, oldest first: they never will, and may be handed over again. They are those that
    /// were handed over last.
    /// @param all Whether to take back what might still begin, or else only what cannot, since the process has died or
    ///            wants to be handed calls alone.
    virtual std::vector<std::string> take_back(bool all) {
        static_cast<void>(all);
        return {};
    }

    /// The call whose outcome step() has returned last, or the oldest, which is then given up. Gives it once.
    virtual std::string take_call() = 0;

    /// After step(): whether the process has died, and how. Tells it once.
    virtual std::optional<Death> take_death() { return std::nullopt; }

    /// The descriptors that make step() worth calling; -1 stands for none.
    virtual std::array<pollfd, 4> waits() const = 0;

    /// In how many milliseconds step() is worth calling whatever the descriptors say; -1 for never.
    virtual int timeout() const = 0;

    /// Whether calls can be carried out, now or after those in hand.
    virtual bool alive() const = 0;

    virtual State state() const = 0;

  protected:
    std::vector<Method> methods_;
};

}  // namespace lmq::host
