// The event loop, and the stages of a request. A request passes through four stages: the gate judges its head, its body
// is gathered, the pre-pass and the filter judge the document, and, if nothing was wrong with any, it waits for its
// turn.
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
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

#include "notify.h"
#include "recorder.h"

namespace lmq::host {
namespace {

using std::chrono::milliseconds;

/// A connection on which nothing moves for so many seconds is closed.
constexpr unsigned idle_timeout_s = 30;

/// Bytes of a connection's memory, which holds the head of a request and a piece of its body. The HTTP library fills it
/// with zeros for each request, so that more of it costs small calls time, and less costs large ones.
constexpr std::size_t connection_memory = 16 * 1024;

/// For GnuTLS: what is older than TLS 1.2 has been broken.
const std::string tls_versions = "NORMAL:-VERS-ALL:+VERS-TLS1.3:+VERS-TLS1.2";

/// How long the end of the host waits for clients that are slow to take their answers.
constexpr std::chrono::seconds drain_time(10);

/// Connections beyond the limit, for those who ask for health and metrics.
constexpr unsigned reserved_connections = 8;

/// For how long a client that has just come, or has just begun with something, is not hung up on for the sake of
/// others.
constexpr milliseconds newcomer_time(100);

/// The least bytes a second that a client takes of an answer. It has the time of a request in addition.
constexpr std::size_t slowest_reader = 256 * 1024;

/// How often the connections are looked through for those that take too long.
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

Peer *peer_of(MHD_Connection *connection) {
    return static_cast<Peer *>(MHD_get_connection_info(connection, MHD_CONNECTION_INFO_SOCKET_CONTEXT)->socket_context);
}

}  // namespace

// No exception may pass through the HTTP library. When there is no memory, the request is refused, or else its
// connection closed.

MHD_Result Server::request(MHD_Connection *connection, const Head &head_of_it, std::string_view data,
                           Exchange *&exchange) try {
    Peer *peer = peer_of(connection);
    if (peer == nullptr) return MHD_NO;
    if (exchange == nullptr) return head(*peer, head_of_it, exchange);
    if (data.empty()) return end(*exchange);
    return body(*exchange, data) ? MHD_YES : MHD_NO;
} catch (const std::exception &) {
    return MHD_queue_response(connection, MHD_HTTP_SERVICE_UNAVAILABLE, no_memory_.get());
}

MHD_Result Server::head(Peer &peer, const Head &head, Exchange *&state) {
    auto exchange = std::make_unique<Exchange>(peer, bodies_);
    exchange->request.append(head.method).append(":").append(head.path);
    exchange->arrived = Clock::now();
    const Headers headers(peer.connection);
    exchange->reply = gate_.judge(head.path, head.method, head.version, headers, *exchange);
    if (!exchange->reply) exchange->reply = serve(head, peer);
    const std::uint64_t announced = headers.announced_length();
    exchange->expected = static_cast<std::size_t>(announced == 0 ? options_.max_body : announced);
    exchange->is_lease = head.path == lease_path;
    if (headers.lease) exchange->lease_token = *headers.lease;
    exchange->turn(exchange->reply ? Peer::State::refused_body : Peer::State::body, exchange->arrived);
    state = exchange.release();
    const bool closes = state->reply && (state->reply->closes || announced > options_.max_body);
    return closes ? reply(*state, true) : MHD_YES;
}

/// Answers what is no call, and refuses calls while there are too many connections.
std::optional<Reply> Server::serve(const Head &head, const Peer &peer) {
    if (head.path == health_path) return calls_.health();
    if (head.path == interface_path) return interface_.reply(peer.connection);
    if (is_console_path(head.path)) return console_.reply(peer.connection, head.path);
    if (head.path == metrics_path) {
        return Reply{
            MHD_HTTP_OK,
            monitor_.metrics(backend_.state(), {backend_.alive(), peers_.size(), calls_.waiting(), calls_.age()}),
            "text/plain; version=0.0.4; charset=utf-8"};
    }
    if (head.path.starts_with(output_path)) return calls_.output(head.path.substr(output_path.size()));
    if (head.path == lease_path && head.method != MHD_HTTP_METHOD_POST) {
        return lease_.serve(head.method, "", header(peer.connection, lease_header).value_or(""));
    }
    if (!peer.is_beyond_limit || !is_crowded()) return std::nullopt;
    Reply refused = refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "There are too many connections; try again later.");
    refused.closes = true;
    return refused;
}

/// Gathers a body. A refused one is read to its end all the same, if that is not too far: a client that is hung up on
/// while it sends may never see why, and the connection stays usable.
/// @return Whether to go on.
bool Server::body(Exchange &exchange, std::string_view data) {
    if (!exchange.reply && data.size() > options_.max_body - exchange.body.text().size()) {
        exchange.reply = too_long(options_.max_body);
    }
    if (!exchange.reply && exchange.body.append(data, exchange.expected)) return true;
    if (!exchange.reply) {
        exchange.reply = refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "Too many calls are waiting; try again later.");
    }
    exchange.turn(Peer::State::refused_body);
    exchange.body.clear();
    exchange.discarded += data.size();
    return exchange.discarded <= options_.max_body;
}

MHD_Result Server::end(Exchange &exchange) {
    if (!exchange.reply && exchange.is_lease) {
        const std::string_view method = std::string_view(exchange.request).substr(0, exchange.request.find(':'));
        exchange.reply = lease_.serve(method, exchange.body.text(), exchange.lease_token);
    }
    if (!exchange.reply) {
        exchange.arrived = Clock::now();
        judge_document(exchange);
    }
    if (!exchange.reply && !backend_.is_synchronous()) {
        calls_.add(exchange);
        exchange.turn(Peer::State::call);
        exchange.is_call = true;
        ++answers_due_;
        // While it waits, the idle timeout does not count the time for which other calls hold the driver.
        MHD_suspend_connection(exchange.connection);
        return MHD_YES;
    }
    if (!exchange.reply) {
        calls_.carry_out(exchange);
        exchange.is_call = true;
        ++answers_due_;
    }
    return reply(exchange, stopping_);
}

void Server::judge_document(Exchange &exchange) {
    if (exchange.body.text().empty()) {
        exchange.reply = refusal(MHD_HTTP_BAD_REQUEST, "The body is empty; it should hold an XML-RPC call.");
        return;
    }
    if (stopping_) {
        exchange.reply = refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "The host is being stopped.");
        return;
    }
    Verdict verdict = prepass_.examine(exchange.body.text());
    if (!verdict.fault) verdict.fault = filters_.judge(verdict, exchange.user);
    if (!verdict.fault) verdict.fault = guard_.judge(verdict.read, filters_.read_only(exchange.user));
    if (!verdict.fault && lease_.is_held() && !guard_.reads(verdict.read)) {
        exchange.reply = lease_.judge(exchange.lease_token);
    }
    exchange.is_introspection = recorder_.keeps_last() && guard_.is_introspection(verdict);
    exchange.method = std::move(verdict.method);
    exchange.inner = std::move(verdict.inner);
    if (exchange.reply) return exchange.body.clear();
    if (verdict.fault) {
        exchange.result = {verdict.fault->code};
        exchange.reply = xml(MHD_HTTP_OK, document(*verdict.fault));
        recorder_.refused({exchange.peer->address, exchange.user, exchange.method, MHD_HTTP_OK, exchange.reply->body,
                           "", exchange.arrived, exchange.arrived},
                          exchange.body.text());
        exchange.body.clear();
    } else if (!verdict.packed.empty()) {
        exchange.body.replace(std::string(verdict.packed));
    } else if (!verdict.document.empty()) {
        exchange.body.replace(std::move(verdict.document));
    }
}

MHD_Result Server::reply(Exchange &exchange, bool last) {
    const auto now = Clock::now();
    if (exchange.is_logged) return send(exchange, last, now);
    const Served served{exchange.peer->address,
                        exchange.user,
                        exchange.method,
                        exchange.request,
                        exchange.reply->status,
                        exchange.result,
                        std::chrono::duration_cast<std::chrono::microseconds>(now - exchange.arrived)};
    monitor_.served(served);
    for (std::size_t at = 0; at < exchange.inner_results.size(); ++at) {
        monitor_.served_inner(served, exchange.inner[at], exchange.inner_results[at]);
    }
    return send(exchange, last, now);
}

/// Sends a reply, whose body counts in the budget until it has been taken.
MHD_Result Server::send(Exchange &exchange, bool last, Clock::time_point now) {
    struct Answer {
        std::shared_ptr<Account> account;
        Charged body;
    };
    Peer &peer = *exchange.peer;
    Reply reply = *std::move(exchange.reply);
    make_room_for(reply.body.size(), *peer.account);
    std::unique_ptr<Answer> answer(new Answer{peer.account, Charged(answers_, peer.account->answers)});
    answer->body.replace(std::move(reply.body));
    const std::string &text = answer->body.text();
    const std::unique_ptr<MHD_Response, void (*)(MHD_Response *)> response(
        MHD_create_response_from_buffer_with_free_callback_cls(
            text.size(), const_cast<char *>(text.data()), [](void *kept) { delete static_cast<Answer *>(kept); },
            answer.get()),
        &MHD_destroy_response);
    if (response == nullptr) return MHD_NO;
    peer.answer = text.size();
    static_cast<void>(answer.release());  // the response owns it now
    exchange.turn(Peer::State::answer, now);
    const auto add = [&](const char *name, const std::string &value) {
        MHD_add_response_header(response.get(), name, value.c_str());
    };
    add(MHD_HTTP_HEADER_CONTENT_TYPE, reply.type);
    for (const auto &[name, value] : reply.headers) add(name.c_str(), value);
    if (!gate_.origin().empty()) {
        add("Access-Control-Allow-Origin", gate_.origin());
        add("Access-Control-Allow-Headers", "Authorization, Content-Type");
        add("Access-Control-Allow-Credentials", "true");
    }
    if (last) add(MHD_HTTP_HEADER_CONNECTION, "close");
    return MHD_queue_response(exchange.connection, reply.status, response.get());
}

void Server::completed(Exchange *exchange) {
    const std::unique_ptr<Exchange> ended(exchange);
    if (ended == nullptr) return;
    if (ended->is_call) --answers_due_;
    ended->peer->answer = 0;
    if (ended->peer->state != Peer::State::gone) ended->turn(Peer::State::head);
}

Peer *Server::connected(MHD_Connection *connection) try {
    const auto *address = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS);
    const auto *socket = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
    auto peer = std::make_unique<Peer>();
    peer->connection = connection;
    peer->socket = socket->connect_fd;
    peer->address = address_text(address == nullptr ? nullptr : address->client_addr);
    auto &account = accounts_[peer->address];
    peer->account = account.lock();
    if (peer->account == nullptr) account = peer->account = std::make_shared<Account>();
    peer->since = Clock::now();
    peers_.insert(peer.get());
    peer->is_beyond_limit = is_crowded();
    return peer.release();
} catch (const std::exception &) {
    return nullptr;  // without its peer the connection is closed at its first request
}

void Server::disconnected(Peer *peer) {
    run_again_ = true;
    const std::unique_ptr<Peer> ended(peer);
    if (ended == nullptr) return;
    peers_.erase(peer);
    if (ended->state == Peer::State::gone) --leaving_;
    if (ended->account.use_count() == 1) accounts_.erase(ended->address);
}

Server::Server(FileDescriptor listener, const Options &options, const Tls &tls, const Gate &gate, Prepass &prepass,
               const Filters &filters, const Guard &guard, const InterfaceFile &interface, const Console &console,
               Monitor &monitor, Recorder &recorder, Backend &backend)
    : options_(options),
      gate_(gate),
      prepass_(prepass),
      filters_(filters),
      guard_(guard),
      interface_(interface),
      console_(console),
      monitor_(monitor),
      recorder_(recorder),
      backend_(backend),
      calls_(backend, monitor, recorder, options.slow),
      answer_spinner_(options.spin),
      request_spinner_(options.spin),
      bodies_(options.max_bodies),
      answers_(options.max_answers),
      no_memory_(MHD_create_response_from_buffer(0, nullptr, MHD_RESPMEM_PERSISTENT), &MHD_destroy_response),
      daemon_(start(listener.get(), tls)) {
    if (daemon_ == nullptr) throw std::runtime_error("cannot set up the HTTP server");
    listener.release();
    epoll_ = MHD_get_daemon_info(daemon_, MHD_DAEMON_INFO_EPOLL_FD)->epoll_fd;
    next_sweep_ = Clock::now() + sweep_interval;
    watchdog_ = watchdog_interval();
    next_watchdog_ = Clock::now();
}

MHD_Daemon *Server::start(int listener, const Tls &tls) {
    const MHD_AccessHandlerCallback on_request = [](void *server, MHD_Connection *connection, const char *path,
                                                    const char *method, const char *version, const char *data,
                                                    std::size_t *size, void **state) {
        const std::string_view piece(data, std::exchange(*size, 0));
        auto *exchange = static_cast<Exchange *>(*state);
        const MHD_Result result =
            static_cast<Server *>(server)->request(connection, {path, method, version}, piece, exchange);
        *state = exchange;
        return result;
    };
    const MHD_RequestCompletedCallback on_completed = [](void *server, MHD_Connection *, void **state,
                                                         MHD_RequestTerminationCode) {
        static_cast<Server *>(server)->completed(static_cast<Exchange *>(std::exchange(*state, nullptr)));
    };
    const MHD_NotifyConnectionCallback on_connection = [](void *server, MHD_Connection *connection, void **peer,
                                                          MHD_ConnectionNotificationCode code) {
        if (code == MHD_CONNECTION_NOTIFY_STARTED) {
            *peer = static_cast<Server *>(server)->connected(connection);
        } else {
            static_cast<Server *>(server)->disconnected(static_cast<Peer *>(std::exchange(*peer, nullptr)));
        }
    };
    std::vector<MHD_OptionItem> more;
    const auto add = [&more](MHD_OPTION option, const std::string &text) {
        if (!text.empty()) more.push_back({option, 0, const_cast<char *>(text.c_str())});
    };
    if (!tls.certificate.empty()) {
        more.push_back({MHD_OPTION_HTTPS_CERT_CALLBACK, 0, reinterpret_cast<void *>(choose_certificate)});
    }
    add(MHD_OPTION_HTTPS_MEM_TRUST, tls.client_authority);
    if (!tls.certificate.empty()) add(MHD_OPTION_HTTPS_PRIORITIES, tls_versions);
    more.push_back({MHD_OPTION_END, 0, nullptr});
    const unsigned tls_flag = tls.certificate.empty() ? 0U : static_cast<unsigned>(MHD_USE_TLS);
    return MHD_start_daemon(MHD_USE_EPOLL | MHD_ALLOW_SUSPEND_RESUME | tls_flag, 0, nullptr, nullptr,  //
                            on_request, this,                                                          //
                            MHD_OPTION_LISTEN_SOCKET, listener,                                        //
                            MHD_OPTION_NOTIFY_COMPLETED, on_completed, this,                           //
                            MHD_OPTION_NOTIFY_CONNECTION, on_connection, this,                         //
                            MHD_OPTION_CONNECTION_TIMEOUT, idle_timeout_s,                             //
                            MHD_OPTION_CONNECTION_MEMORY_LIMIT, connection_memory,                     //
                            MHD_OPTION_CONNECTION_LIMIT, options_.connections + reserved_connections,  //
                            MHD_OPTION_PER_IP_CONNECTION_LIMIT, options_.connections_per_address,      //
                            MHD_OPTION_ARRAY, more.data(),                                             //
                            MHD_OPTION_END);
}

Server::~Server() {
    // The HTTP library wants no connection to be suspended at its end.
    resume(calls_.stop(true));
    MHD_stop_daemon(daemon_);
}

void Server::feed_watchdog() {
    if (watchdog_.count() == 0 || Clock::now() < next_watchdog_) return;
    notify("WATCHDOG=1");
    next_watchdog_ = Clock::now() + watchdog_;
}

void Server::run(const Signals &signals, const std::function<void()> &reload) {
    for (bool stops = false; !stops;) {
        if (wait(signals.descriptor(), poll_timeout())) {
            const Signals::Wish wish = signals.next();
            stops = wish == Signals::Wish::stop;
            if (wish == Signals::Wish::reload) reload();
        }
        if (stops) break;
        turn();
        if (Clock::now() >= next_sweep_) sweep();
    }
    notify("STOPPING=1");
    drain(signals);
}

/// One turn of the loop. A request for which there is no memory has been refused, or will be looked at again.
void Server::turn() try {
    MHD_run(daemon_);
    // An answer goes out at once, without a look at what else there is.
    if (advance()) MHD_run(daemon_);
    make_room();
    feed_watchdog();
} catch (const std::bad_alloc &) {
    run_again_ = false;
}

/// How long the loop may sleep, in milliseconds as poll() takes them: -1 for ever.
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
    if (calls_.timeout() >= 0) consider(calls_.timeout());
    if (!peers_.empty()) until(next_sweep_);
    if (watchdog_.count() > 0) until(next_watchdog_);
    return least == INT_MAX ? -1 : static_cast<int>(least);
}

/// Waits until a connection, the backend or the other descriptor (-1 for none) has something to do.
/// @return Whether the other descriptor has.
bool Server::wait(int other, int timeout) {
    const auto backend = backend_.waits();
    pollfd descriptors[] = {{epoll_, POLLIN, 0}, {other, POLLIN, 0}, backend[0], backend[1], backend[2], backend[3]};
    const auto look = [&](int ms) {
        const int count = poll(descriptors, std::size(descriptors), ms);
        if (count < 0 && errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "cannot wait for connections");
        }
        return count > 0;
    };
    // The trace is written while the driver has a call in hand, or when nothing has come for a while: an answer that is
    // out at once brings the next call at once.
    const bool is_busy = calls_.has_call_in_hand();
    if (timeout == 0) {
        look(0);
    } else if (!recorder_.has_unwritten() || !is_busy || !(backend_.is_there() || look(0))) {
        if (is_busy) recorder_.flush();
        Spinner &spinner = is_busy ? answer_spinner_ : request_spinner_;
        const auto sleep = [&] {
            recorder_.flush();
            backend_.sleep(true);
            look(backend_.is_there() ? 0 : timeout);
            backend_.sleep(false);
        };
        spinner.wait([&] { return backend_.is_there() || look(0); }, sleep, calls_.are_many());
    }
    backend_moved_ = std::any_of(std::begin(descriptors) + 2, std::end(descriptors),
                                 [](const pollfd &one) { return one.revents != 0; });
    return descriptors[1].revents != 0;
}

/// Goes on with the calls.
/// @return Whether there is an answer to be sent.
bool Server::advance() {
    const auto &replied = calls_.advance(backend_moved_);
    resume(replied);
    return !replied.empty();
}

/// Has replies sent.
void Server::resume(const std::vector<Exchange *> &replied) {
    for (const Exchange *exchange : replied) MHD_resume_connection(exchange->connection);
}

void Server::hang_up(Peer &peer) {
    if (peer.state == Peer::State::gone) return;
    peer.state = Peer::State::gone;
    ++leaving_;
    shutdown(peer.socket, SHUT_RDWR);
}

/// Hangs up on clients that take too long, and forgets the calls of those that have gone. The idle timeout does not see
/// those that send or take a byte now and then.
void Server::sweep() {
    const auto now = Clock::now();
    next_sweep_ = now + sweep_interval;
    for (Peer *peer : peers_) {
        if (peer->state == Peer::State::call || peer->state == Peer::State::gone) continue;
        const std::size_t idle = peer->state == Peer::State::head ? idle_timeout_s : peer->answer / slowest_reader;
        if (now - peer->since > options_.request_time + std::chrono::seconds(idle)) hang_up(*peer);
    }
    resume(calls_.drop_gone());
    run_again_ = true;
}

/// Hangs up on clients while there are too many: on those whose requests have been refused already, then on those that
/// have been idle for longest, then on the slowest. Who has just come, or has a call here, stays.
void Server::make_room() {
    const auto rank = [now = Clock::now()](const Peer &peer) {
        const bool is_new = now - peer.since < newcomer_time;
        switch (peer.state) {
            case Peer::State::refused_body: return 0;
            case Peer::State::head: return is_new ? 3 : 1;
            case Peer::State::body:
            case Peer::State::answer: return is_new ? 3 : 2;
            default: return 3;
        }
    };
    while (is_crowded()) {
        const auto first = std::min_element(peers_.begin(), peers_.end(), [&](const Peer *one, const Peer *other) {
            return rank(*one) != rank(*other) ? rank(*one) < rank(*other) : one->since < other->since;
        });
        if (rank(**first) == 3) break;
        hang_up(**first);
    }
}

/// Hangs up on the clients that have been reading for longest until there is room for an answer: first on those of the
/// same address, if that has more than its share.
void Server::make_room_for(std::size_t answer, const Account &account) {
    std::size_t freed = 0, freed_of_account = 0;
    const auto has_room = [&](bool all) {
        const std::size_t more = answer - std::min(answer, all ? freed : freed_of_account);
        return all ? answers_.has_room({}, more) : answers_.share_has_room(account.answers, more);
    };
    for (const bool all : {false, true}) {
        while (!has_room(all)) {
            Peer *oldest = nullptr;
            for (Peer *peer : peers_) {
                const bool counts = peer->state == Peer::State::answer && peer->answer > 0;
                if (!counts || (!all && peer->account.get() != &account)) continue;
                if (oldest == nullptr || peer->since < oldest->since) oldest = peer;
            }
            if (oldest == nullptr) break;
            freed += oldest->answer;
            if (oldest->account.get() == &account) freed_of_account += oldest->answer;
            hang_up(*oldest);
        }
    }
}

/// Refuses the calls that have not begun and sends the answers that are due.
void Server::drain(const Signals &signals) {
    stopping_ = true;
    const FileDescriptor listener(MHD_quiesce_daemon(daemon_));
    resume(calls_.stop(false));
    run_again_ = true;
    const auto last = Clock::now() + options_.stop_time;
    auto deadline = Clock::now() + drain_time;
    while ((answers_due_ > 0 || calls_.has_call_in_hand()) && Clock::now() < deadline) {
        const auto timeout = static_cast<int>(std::min(static_cast<unsigned>(poll_timeout()), 1000U));
        if (wait(signals.descriptor(), timeout) && signals.next() == Signals::Wish::stop) break;
        if (calls_.has_call_in_hand()) deadline = std::min(Clock::now() + drain_time, last);
        turn();
    }
    if (!calls_.has_call_in_hand()) return;
    std::fprintf(stderr, "lmq-host: the call under way is given up\n");
    resume(calls_.stop(true));
    MHD_run(daemon_);
}

}  // namespace lmq::host
