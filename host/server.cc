// The event loop and the manners of HTTP. A request passes through four stages: the gate judges its head, its body is
// gathered, the pre-pass and the filter judge the document, and, if nothing was wrong with any, it waits for its turn.
#include "server.h"

#include <arpa/inet.h>
#include <microhttpd.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

#include "notify.h"

namespace lmq::host {
namespace {

using std::chrono::milliseconds;

/** A connection on which nothing moves for so many seconds is closed. */
constexpr unsigned idle_timeout_s = 30;

/**
 * Bytes of a connection's memory, which holds the head of a request and a piece of its body. The HTTP library fills it
 * with zeros for each request, so that more of it costs small calls time, and less costs large ones.
 */
constexpr std::size_t connection_memory = 16 * 1024;

/** How long the end of the host waits for clients that are slow to take their answers. */
constexpr std::chrono::seconds drain_time(10);

/** How often the connections are looked through for those that take too long. */
constexpr std::chrono::seconds sweep_interval(1);

std::string address_text(const sockaddr *address) {
    char text[INET6_ADDRSTRLEN] = "";
    if (address == nullptr || address->sa_family == AF_UNIX) return "unix";
    const void *binary = address->sa_family == AF_INET
                             ? static_cast<const void *>(&reinterpret_cast<const sockaddr_in *>(address)->sin_addr)
                             : &reinterpret_cast<const sockaddr_in6 *>(address)->sin6_addr;
    inet_ntop(address->sa_family, binary, text, sizeof text);
    return text;
}

MHD_Result send(MHD_Connection *connection, Reply reply, bool last, const std::string &origin) {
    auto body = std::make_unique<std::string>(std::move(reply.body));
    MHD_Response *response = MHD_create_response_from_buffer_with_free_callback_cls(
        body->size(), body->data(), [](void *text) { delete static_cast<std::string *>(text); }, body.get());
    if (response == nullptr) return MHD_NO;
    static_cast<void>(body.release());  // the response owns it now
    MHD_add_response_header(response, MHD_HTTP_HEADER_CONTENT_TYPE, reply.type.c_str());
    if (reply.status == MHD_HTTP_METHOD_NOT_ALLOWED) {
        MHD_add_response_header(response, MHD_HTTP_HEADER_ALLOW, MHD_HTTP_METHOD_POST);
    }
    if (reply.status == MHD_HTTP_UNAUTHORIZED) {
        MHD_add_response_header(response, MHD_HTTP_HEADER_WWW_AUTHENTICATE,
                                "Basic realm=\"lmq-host\", charset=\"UTF-8\"");
    }
    if (!origin.empty()) {
        MHD_add_response_header(response, "Access-Control-Allow-Origin", origin.c_str());
        MHD_add_response_header(response, "Access-Control-Allow-Headers", "Authorization, Content-Type");
        MHD_add_response_header(response, "Access-Control-Allow-Credentials", "true");
    }
    if (last) MHD_add_response_header(response, MHD_HTTP_HEADER_CONNECTION, "close");
    const MHD_Result result = MHD_queue_response(connection, reply.status, response);
    MHD_destroy_response(response);
    return result;
}

Reply xml(unsigned status, std::string text) { return {status, std::move(text), "text/xml; charset=utf-8"}; }

}  // namespace

/** One connection. */
struct Server::Peer {
    MHD_Connection *connection;
    int socket;
    std::string address;
    std::string user;
    /** What the client is expected to send; nothing while it has a call here or takes an answer. */
    enum class Owes { head, body, nothing } owes = Owes::head;
    /** Since when. */
    Clock::time_point since;
};

/** One request and its reply. */
struct Server::Exchange {
    MHD_Connection *connection;
    Peer *peer;
    std::string body;
    /** How much has been read and thrown away since the request was refused. */
    std::size_t discarded = 0;
    std::optional<Reply> reply;
    /** Whether the request counts in answers_due_. */
    bool is_call = false;
    std::string method;
    Clock::time_point arrived;
    int fault = 0;
    std::optional<int> driver_status;
};

/** What the HTTP library calls. No exception may pass through it. */
struct Server::Callbacks {
    static MHD_Result request(void *server, MHD_Connection *connection, const char *url, const char *method,
                              const char *, const char *data, size_t *size, void **state) try {
        auto &self = *static_cast<Server *>(server);
        if (*state == nullptr) return head(self, connection, url, method, state);
        auto &exchange = *static_cast<Exchange *>(*state);
        if (*size == 0) return end(self, exchange);
        const bool go_on = body(self, exchange, {data, *size});
        *size = 0;
        return go_on ? MHD_YES : MHD_NO;
    } catch (const std::exception &) {
        return MHD_NO;  // out of memory: the connection is closed
    }

    static Peer *peer(MHD_Connection *connection) {
        return static_cast<Peer *>(
            MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT)->socket_context);
    }

    static MHD_Result head(Server &self, MHD_Connection *connection, std::string_view url, std::string_view method,
                           void **state) {
        auto exchange = std::make_unique<Exchange>();
        exchange->connection = connection;
        exchange->peer = peer(connection);
        if (exchange->peer == nullptr) return MHD_NO;
        exchange->arrived = Clock::now();
        exchange->peer->owes = Peer::Owes::body;
        exchange->peer->since = exchange->arrived;
        exchange->reply = self.gate_.judge(connection, url, method, exchange->peer->user);
        if (!exchange->reply && url == health_path) exchange->reply = self.health();
        if (!exchange->reply && url == metrics_path) {
            exchange->reply = Reply{
                MHD_HTTP_OK, self.monitor_.metrics(self.backend_.state(), self.peers_.size(), self.waiting_.size()),
                "text/plain; version=0.0.4; charset=utf-8"};
        }
        *state = exchange.get();
        Exchange &kept = *exchange.release();
        if (kept.reply && announced_length(connection) > self.options_.max_body) return reply(self, kept, true);
        return MHD_YES;
    }

    // A refused body is read to its end all the same, if that is not too far: a client that is hung up on while it
    // sends may never see why, and the connection stays usable. Returns whether to go on.
    static bool body(Server &self, Exchange &exchange, std::string_view data) {
        if (!exchange.reply && data.size() > self.options_.max_body - exchange.body.size()) {
            drop(self, exchange, too_long(self.options_.max_body));
        }
        if (!exchange.reply &&
            data.size() > self.options_.max_bodies - std::min(self.options_.max_bodies, self.bodies_)) {
            drop(self, exchange, refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "Too many calls are waiting; try again later."));
        }
        if (!exchange.reply) {
            exchange.body.append(data);
            self.bodies_ += data.size();
            return true;
        }
        exchange.discarded += data.size();
        return exchange.discarded <= self.options_.max_body;
    }

    static void drop(Server &self, Exchange &exchange, Reply why) {
        exchange.reply = std::move(why);
        self.bodies_ -= exchange.body.size();
        exchange.body = std::string();
    }

    static MHD_Result end(Server &self, Exchange &exchange) {
        exchange.peer->owes = Peer::Owes::nothing;
        if (!exchange.reply) {
            exchange.arrived = Clock::now();
            judge_document(self, exchange);
        }
        if (!exchange.reply && self.backend_.is_synchronous()) {
            self.bodies_ -= exchange.body.size();
            self.backend_.begin(std::exchange(exchange.body, {}), exchange.method);
            settle(exchange, *self.backend_.step());
        }
        if (exchange.reply) return reply(self, exchange, self.stopping_);
        self.waiting_.push_back(&exchange);
        exchange.is_call = true;
        ++self.answers_due_;
        MHD_suspend_connection(exchange.connection);
        return MHD_YES;
    }

    static void judge_document(Server &self, Exchange &exchange) {
        if (exchange.body.empty()) {
            exchange.reply = refusal(MHD_HTTP_BAD_REQUEST, "The body is empty; it should hold an XML-RPC call.");
            return;
        }
        if (self.stopping_) {
            exchange.reply = refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "The host is being stopped.");
            return;
        }
        Verdict verdict = self.prepass_.examine(exchange.body);
        if (!verdict.fault) verdict.fault = self.filter_.judge(verdict);
        exchange.method = std::move(verdict.method);
        if (!verdict.fault) {
            if (verdict.packed.empty()) return;
            self.bodies_ += verdict.packed.size() - exchange.body.size();
            exchange.body.assign(verdict.packed);
            return;
        }
        exchange.fault = verdict.fault->code;
        drop(self, exchange, xml(MHD_HTTP_OK, document(*verdict.fault)));
    }

    /** Makes the reply of a call. */
    static void settle(Exchange &exchange, Backend::Outcome outcome) {
        switch (outcome.kind) {
            case Backend::Outcome::Kind::answer: {
                exchange.fault = fault_code(outcome.text);
                int status = 0;
                if (exchange.fault == 0 && driver_status(outcome.text, status)) exchange.driver_status = status;
                exchange.reply = xml(MHD_HTTP_OK, std::move(outcome.text));
                break;
            }
            case Backend::Outcome::Kind::unanswerable:
                std::fprintf(stderr, "lmq-host: a call could not be answered: %s\n", outcome.text.c_str());
                exchange.reply = refusal(MHD_HTTP_INTERNAL_SERVER_ERROR,
                                         "The call was made, but cannot be answered: " + outcome.text);
                break;
            case Backend::Outcome::Kind::lost:
                exchange.fault = Fault::internal;
                exchange.reply = xml(MHD_HTTP_BAD_GATEWAY, document(Fault{Fault::internal, std::move(outcome.text)}));
                break;
        }
    }

    static MHD_Result reply(Server &self, Exchange &exchange, bool last) {
        self.monitor_.served({exchange.peer->address, exchange.peer->user, exchange.method, exchange.reply->status,
                              exchange.fault, exchange.driver_status.has_value(), exchange.driver_status.value_or(0),
                              std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - exchange.arrived)});
        return send(exchange.connection, *std::move(exchange.reply), last, self.gate_.origin());
    }

    static void completed(void *server, MHD_Connection *, void **state, MHD_RequestTerminationCode) {
        const std::unique_ptr<Exchange> exchange(static_cast<Exchange *>(*state));
        *state = nullptr;
        if (exchange == nullptr) return;
        auto &self = *static_cast<Server *>(server);
        self.bodies_ -= exchange->body.size();
        if (exchange->is_call) --self.answers_due_;
        exchange->peer->owes = Peer::Owes::head;
        exchange->peer->since = Clock::now();
    }

    static void connection(void *server, MHD_Connection *connection, void **context,
                           MHD_ConnectionNotificationCode code) try {
        auto &self = *static_cast<Server *>(server);
        if (code == MHD_CONNECTION_NOTIFY_CLOSED) {
            self.run_again_ = true;
            const std::unique_ptr<Peer> peer(static_cast<Peer *>(*context));
            *context = nullptr;
            self.peers_.erase(peer.get());
            return;
        }
        const auto *address = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS);
        const auto *socket = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
        auto peer = std::make_unique<Peer>();
        peer->connection = connection;
        peer->socket = socket->connect_fd;
        peer->address = address_text(address == nullptr ? nullptr : address->client_addr);
        peer->since = Clock::now();
        self.peers_.insert(peer.get());
        *context = peer.release();
        if (self.peers_.size() >= self.options_.connections) self.make_room();
    } catch (const std::exception &) {
        // Out of memory: without its context the connection is closed at its first request.
    }
};

Server::Server(FileDescriptor listener, const Options &options, const Tls &tls, const Gate &gate, Prepass &prepass,
               const MethodFilter &filter, Monitor &monitor, Backend &backend)
    : options_(options),
      gate_(gate),
      prepass_(prepass),
      filter_(filter),
      monitor_(monitor),
      backend_(backend),
      answer_spinner_(options.spin),
      request_spinner_(options.spin) {
    std::vector<MHD_OptionItem> more;
    const auto add = [&more](MHD_OPTION option, const std::string &text) {
        if (!text.empty()) more.push_back({option, 0, const_cast<char *>(text.c_str())});
    };
    add(MHD_OPTION_HTTPS_MEM_CERT, tls.certificate);
    add(MHD_OPTION_HTTPS_MEM_KEY, tls.key);
    add(MHD_OPTION_HTTPS_MEM_TRUST, tls.client_authority);
    more.push_back({MHD_OPTION_END, 0, nullptr});
    const unsigned tls_flag = tls.certificate.empty() ? 0U : static_cast<unsigned>(MHD_USE_TLS);
    daemon_ = MHD_start_daemon(MHD_USE_EPOLL | MHD_ALLOW_SUSPEND_RESUME | tls_flag, 0, nullptr, nullptr,
                               &Callbacks::request, this,                                            //
                               MHD_OPTION_LISTEN_SOCKET, listener.get(),                             //
                               MHD_OPTION_NOTIFY_COMPLETED, &Callbacks::completed, this,             //
                               MHD_OPTION_NOTIFY_CONNECTION, &Callbacks::connection, this,           //
                               MHD_OPTION_CONNECTION_TIMEOUT, idle_timeout_s,                        //
                               MHD_OPTION_CONNECTION_MEMORY_LIMIT, connection_memory,                //
                               MHD_OPTION_CONNECTION_LIMIT, options.connections,                     //
                               MHD_OPTION_PER_IP_CONNECTION_LIMIT, options.connections_per_address,  //
                               MHD_OPTION_ARRAY, more.data(),                                        //
                               MHD_OPTION_END);
    if (daemon_ == nullptr) throw std::runtime_error("cannot set up the HTTP server");
    listener.release();
    epoll_ = MHD_get_daemon_info(daemon_, MHD_DAEMON_INFO_EPOLL_FD)->epoll_fd;
    next_sweep_ = Clock::now() + sweep_interval;
    watchdog_ = watchdog_interval();
    next_watchdog_ = Clock::now();
}

Server::~Server() { MHD_stop_daemon(daemon_); }

void Server::feed_watchdog() {
    if (watchdog_.count() == 0 || Clock::now() < next_watchdog_) return;
    notify("WATCHDOG=1");
    next_watchdog_ = Clock::now() + watchdog_;
}

void Server::run(const StopSignals &stop) {
    while (!wait(stop.descriptor(), poll_timeout())) {
        MHD_run(daemon_);
        // An answer goes out at once, without a look at what else there is.
        if (advance()) MHD_run(daemon_);
        if (Clock::now() >= next_sweep_) sweep();
        feed_watchdog();
    }
    notify("STOPPING=1");
    drain();
}

/** How long the loop may sleep, in milliseconds as poll() takes them: -1 for ever. */
int Server::poll_timeout() {
    if (std::exchange(run_again_, false)) return 0;
    long long least = INT_MAX;
    const auto consider = [&least](long long ms) { least = std::clamp(ms, 0LL, least); };
    const auto until = [&consider](Clock::time_point when) {
        consider(std::chrono::ceil<milliseconds>(when - Clock::now()).count());
    };
    MHD_UNSIGNED_LONG_LONG timeout = 0;
    if (MHD_get_timeout(daemon_, &timeout) == MHD_YES) {
        consider(static_cast<long long>(std::min<MHD_UNSIGNED_LONG_LONG>(timeout, INT_MAX)));
    }
    if (backend_.timeout() >= 0) consider(backend_.timeout());
    if (!peers_.empty()) until(next_sweep_);
    if (watchdog_.count() > 0) until(next_watchdog_);
    if (current_ != nullptr && options_.slow.count() > 0 && !told_slow_) until(begun_ + options_.slow);
    return least == INT_MAX ? -1 : static_cast<int>(least);
}

/**
 * Waits until a connection, the backend or the other descriptor (-1 for none) has something to do.
 * @return Whether the other descriptor has.
 */
bool Server::wait(int other, int timeout) {
    const auto backend = backend_.waits();
    pollfd descriptors[] = {{epoll_, POLLIN, 0}, {other, POLLIN, 0}, backend[0], backend[1]};
    const auto look = [&](int ms) {
        const int count = poll(descriptors, std::size(descriptors), ms);
        if (count < 0 && errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "cannot wait for connections");
        }
        return count > 0;
    };
    if (timeout == 0) {
        look(0);
    } else {
        Spinner &spinner = current_ == nullptr ? request_spinner_ : answer_spinner_;
        spinner.wait([&] { return look(0); }, [&] { look(timeout); });
    }
    backend_moved_ = descriptors[2].revents != 0 || descriptors[3].revents != 0;
    return descriptors[1].revents != 0;
}

/**
 * Takes the outcome of the call in hand if there may be one, and starts the next call.
 * @return Whether there is an answer to be sent.
 */
bool Server::advance() {
    const auto take = [this] {
        auto outcome = backend_.step();
        if (!outcome || current_ == nullptr) return false;
        finish(*std::move(outcome));
        return true;
    };
    bool finished = (backend_moved_ || backend_.timeout() == 0) && take();
    if (current_ == nullptr && !waiting_.empty() && backend_.ready()) {
        begin_next();
        if (backend_.timeout() == 0 && take()) finished = true;
    }
    if (current_ != nullptr && options_.slow.count() > 0 && !told_slow_ && Clock::now() >= begun_ + options_.slow) {
        told_slow_ = true;
        std::fprintf(stderr, "lmq-host: %s for %s has been in the driver for more than %lld ms\n",
                     current_->method.c_str(), current_->peer->address.c_str(),
                     static_cast<long long>(options_.slow.count()));
    }
    return finished;
}

/**
 * Hands the call that has waited longest to the backend. Its connection stays suspended: a call that lasts longer than
 * the idle timeout costs neither its own connection nor those that wait behind it.
 */
void Server::begin_next() {
    current_ = waiting_.front();
    waiting_.pop_front();
    begun_ = Clock::now();
    told_slow_ = false;
    bodies_ -= current_->body.size();
    backend_.begin(std::exchange(current_->body, {}), current_->method);
}

void Server::finish(Backend::Outcome outcome) {
    Exchange &exchange = *std::exchange(current_, nullptr);
    Callbacks::settle(exchange, std::move(outcome));
    MHD_resume_connection(exchange.connection);
}

/** Hangs up on clients that take too long. The idle timeout does not see those that send a byte now and then. */
void Server::sweep() {
    const auto now = Clock::now();
    next_sweep_ = now + sweep_interval;
    for (Peer *peer : peers_) {
        if (peer->owes == Peer::Owes::nothing) continue;
        const auto idle = std::chrono::seconds(peer->owes == Peer::Owes::head ? idle_timeout_s : 0U);
        if (now - peer->since > options_.request_time + idle) shutdown(peer->socket, SHUT_RDWR);
    }
}

/** Hangs up on the client that has owed the head of a request for longest. */
void Server::make_room() {
    Peer *oldest = nullptr;
    for (Peer *peer : peers_) {
        if (peer->owes == Peer::Owes::head && (oldest == nullptr || peer->since < oldest->since)) oldest = peer;
    }
    if (oldest != nullptr) shutdown(oldest->socket, SHUT_RDWR);
}

Reply Server::health() const {
    if (!backend_.alive()) return refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "no worker");
    if (current_ == nullptr) return {MHD_HTTP_OK, "ok\n"};
    const auto time = std::chrono::duration_cast<milliseconds>(Clock::now() - begun_).count();
    return {MHD_HTTP_OK, "ok, in a call for " + std::to_string(time) + " ms\n"};
}

/** Refuses the calls that have not begun and sends the answers that are due. */
void Server::drain() {
    stopping_ = true;
    const FileDescriptor listener(MHD_quiesce_daemon(daemon_));
    for (Exchange *exchange : waiting_) {
        exchange->reply = refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "The host is being stopped.");
        MHD_resume_connection(exchange->connection);
    }
    waiting_.clear();
    run_again_ = true;
    auto deadline = Clock::now() + drain_time;
    while (answers_due_ > 0 && Clock::now() < deadline) {
        wait(-1, static_cast<int>(std::min(static_cast<unsigned>(poll_timeout()), 1000U)));
        MHD_run(daemon_);
        if (current_ != nullptr) deadline = Clock::now() + drain_time;
        feed_watchdog();
        if (advance()) MHD_run(daemon_);
    }
}

}  // namespace lmq::host
