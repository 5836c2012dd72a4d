// HTTP in front of a backend that answers XML-RPC documents: one thread, one event loop, any number of connections.
// Nothing here waits for a client or for a call.
#ifndef LMQ_HOST_SERVER_H
#define LMQ_HOST_SERVER_H

#include <chrono>
#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "backend.h"
#include "file_descriptor.h"
#include "filter.h"
#include "gate.h"
#include "monitor.h"
#include "prepass.h"
#include "spinner.h"
#include "stop.h"
#include "tls.h"

struct MHD_Connection;
struct MHD_Daemon;

namespace lmq::host {

class Server {
  public:
    struct Options {
        /** The longest body in bytes; a longer one is refused with status 413. */
        std::size_t max_body = 0;
        /** All bodies that are being gathered or wait, together, in bytes. */
        std::size_t max_bodies = 0;
        /** Open connections. When they are used up, the one that has been idle longest makes room. */
        unsigned connections = 0;
        unsigned connections_per_address = 0;
        /** How long a client may take for the head of a request, and again for its body. */
        std::chrono::seconds request_time{0};
        /** A call that takes longer is told of while it lasts; 0 for never. */
        std::chrono::milliseconds slow{0};
        /** How long to spin at the most before sleeping. */
        std::chrono::microseconds spin{0};
    };

    /**
     * Starts to accept connections; nothing is answered before run(). All references must outlive the server.
     * @param listener A listening socket that does not block.
     * @throws std::runtime_error if the HTTP library cannot be set up, say for a key that does not fit its certificate.
     */
    Server(FileDescriptor listener, const Options &options, const Tls &tls, const Gate &gate, Prepass &prepass,
           const MethodFilter &filter, Monitor &monitor, Backend &backend);
    ~Server();
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    /**
     * Serves until a signal stops it. A call under way is then finished and its answer sent; calls that wait for their
     * turn are refused with status 503.
     */
    void run(const StopSignals &stop);

  private:
    struct Peer;
    struct Exchange;
    struct Callbacks;
    using Clock = std::chrono::steady_clock;

    int poll_timeout();
    bool wait(int other, int timeout);
    bool advance();
    void begin_next();
    void finish(Backend::Outcome outcome);
    void sweep();
    void make_room();
    void feed_watchdog();
    Reply health() const;
    void drain();

    Options options_;
    const Gate &gate_;
    Prepass &prepass_;
    const MethodFilter &filter_;
    Monitor &monitor_;
    Backend &backend_;
    /** For the waits with a call in hand, and for those without. */
    Spinner answer_spinner_, request_spinner_;
    MHD_Daemon *daemon_ = nullptr;
    int epoll_ = -1;
    std::unordered_set<Peer *> peers_;
    /** Calls that have arrived in full and wait for their turn. Their connections are suspended meanwhile. */
    std::deque<Exchange *> waiting_;
    /** The call that the backend has in hand. */
    Exchange *current_ = nullptr;
    Clock::time_point begun_;
    bool told_slow_ = false;
    /** Calls that have arrived in full and whose answers are not sent in full yet. */
    std::size_t answers_due_ = 0;
    /** The bytes of all bodies. */
    std::size_t bodies_ = 0;
    Clock::time_point next_sweep_;
    /** How often the service manager wants a sign of life; 0 for never. A call that hangs does not keep it back. */
    std::chrono::milliseconds watchdog_{0};
    Clock::time_point next_watchdog_;
    /**
     * Whether the HTTP library has work that no socket tells of: refusals to send at the end, or, after a connection
     * has been closed, new ones to accept, which it stops to do while there are too many.
     */
    bool run_again_ = false;
    /** Whether the backend had something to tell when the loop last woke. */
    bool backend_moved_ = false;
    bool stopping_ = false;
};

}  // namespace lmq::host

#endif
