// HTTP in front of a backend that answers XML-RPC documents: one thread, one event loop, any number of connections.
// Nothing here waits for a client or for a call.
#pragma once

#include <microhttpd.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "backend.h"
#include "budget.h"
#include "call_queue.h"
#include "console.h"
#include "exchange.h"
#include "file_descriptor.h"
#include "filter.h"
#include "gate.h"
#include "guard.h"
#include "interface_file.h"
#include "lease.h"
#include "monitor.h"
#include "prepass.h"
#include "signals.h"
#include "spinner.h"
#include "tls.h"

namespace lmq::host {

class Recorder;

class Server {
  public:
    struct Options {
        /// The longest body in bytes; a longer one is refused with status 413.
        std::size_t max_body = std::size_t{4} << 20;
        /// All bodies that are being gathered or wait, together, in bytes; and all answers that are being sent.
        std::size_t max_bodies = std::size_t{64} << 20;
        std::size_t max_answers = std::size_t{64} << 20;
        /// Open connections. When they are used up, one makes room: see make_room().
        unsigned connections = 4096;
        unsigned connections_per_address = 3072;
        /// How long a client may take for the head of a request, and again for its body.
        std::chrono::seconds request_time{30};
        /// How long the end waits for the call under way.
        std::chrono::seconds stop_time{30};
        /// A call that takes longer is reported while it lasts; 0 for never.
        std::chrono::milliseconds slow{0};
        /// How long to spin at the most before sleeping.
        std::chrono::microseconds spin{1000};
    };

    /// Starts to accept connections; nothing is answered before run(). All references must outlive the server, and what
    /// is behind them may change between two requests.
    /// @param listener A listening socket that does not block.
    /// @throws std::runtime_error if the HTTP library cannot be set up.
    Server(FileDescriptor listener, const Options &options, const Tls &tls, const Gate &gate, Prepass &prepass,
           const Filters &filters, const Guard &guard, const InterfaceFile &interface, const Console &console,
           Monitor &monitor, Recorder &recorder, Backend &backend);
    ~Server();
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

    /// Serves until a signal stops it. A call under way is then finished and its answer sent, unless it takes longer
    /// than Options::stop_time or a second signal comes; calls that wait for their turn are refused with status 503.
    /// @param reload What SIGHUP asks for.
    void run(const Signals &signals, const std::function<void()> &reload);

  private:
    // The stages of a request, as the HTTP library calls them.
    struct Head {
        std::string_view path, method, version;
    };
    MHD_Result request(MHD_Connection *connection, const Head &head, std::string_view data, Exchange *&exchange);
    MHD_Result head(Peer &peer, const Head &head, Exchange *&state);
    bool body(Exchange &exchange, std::string_view data);
    MHD_Result end(Exchange &exchange);
    void completed(Exchange *exchange);
    Peer *connected(MHD_Connection *connection);
    void disconnected(Peer *peer);

    void judge_document(Exchange &exchange);
    std::optional<Reply> serve(const Head &head, const Peer &peer);
    MHD_Result reply(Exchange &exchange, bool last);
    MHD_Result send(Exchange &exchange, bool last, Clock::time_point now);

    MHD_Daemon *start(int listener, const Tls &tls);
    void turn();
    int poll_timeout();
    bool wait(int other, int timeout);
    bool advance();
    void resume(const std::vector<Exchange *> &replied);
    void sweep();
    void make_room();
    void make_room_for(std::size_t answer, const Account &account);
    void hang_up(Peer &peer);
    bool is_crowded() const { return peers_.size() - leaving_ > options_.connections; }
    void feed_watchdog();
    void drain(const Signals &signals);

    Options options_;
    const Gate &gate_;
    Prepass &prepass_;
    const Filters &filters_;
    const Guard &guard_;
    const InterfaceFile &interface_;
    const Console &console_;
    Monitor &monitor_;
    Recorder &recorder_;
    Backend &backend_;
    CallQueue calls_;
    Lease lease_;
    /// For the waits with a call in hand, and for those without.
    Spinner answer_spinner_, request_spinner_;
    /// The bodies that are being gathered or wait, and the answers that are being sent.
    Budget bodies_, answers_;
    /// What is sent when there is no memory for a reply.
    std::unique_ptr<MHD_Response, void (*)(MHD_Response *)> no_memory_;
    MHD_Daemon *daemon_ = nullptr;
    int epoll_ = -1;
    std::unordered_set<Peer *> peers_;
    /// Those of them that have been hung up on and are about to go.
    std::size_t leaving_ = 0;
    std::unordered_map<std::string, std::weak_ptr<Account>> accounts_;
    /// Calls that have arrived in full and whose answers are not sent in full yet.
    std::size_t answers_due_ = 0;
    Clock::time_point next_sweep_;
    /// How often the service manager wants a sign of life; 0 for never. A call that hangs does not keep it back.
    std::chrono::milliseconds watchdog_{0};
    Clock::time_point next_watchdog_;
    /// Whether the HTTP library has work that no socket shows: refusals to send at the end, or, after a connection has
    /// been closed, new ones to accept, which it stops to do while there are too many.
    bool run_again_ = false;
    /// Whether a descriptor of the backend was ready when the loop last woke.
    bool backend_moved_ = false;
    bool stopping_ = false;
};

}  // namespace lmq::host
