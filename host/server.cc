// The event loop and the manners of HTTP. A request passes through three stages: its head is judged, its body is
// gathered, and, if nothing was wrong with either, it waits for its turn to be called. To add a refusal, see judge().
#include "server.h"

#include <microhttpd.h>
#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <limits>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace lmq::host {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/** A connection on which nothing moves for so many seconds is closed. */
constexpr unsigned idle_timeout_s = 30;

/** Open connections; further ones wait in the system's queue. Below the usual 1,024 descriptors of a process. */
constexpr unsigned connection_limit = 960;

/** How long the end of the host waits for clients that are slow to take their answers. */
constexpr std::chrono::seconds drain_time(10);

struct Reply {
    unsigned status;
    std::string body;
};

Reply refusal(unsigned status, const std::string &why) { return {status, why + "\n"}; }

/** The media type of a Content-Type header: without its parameters, in small letters. */
std::string media_type(std::string_view header) {
    header = header.substr(0, header.find(';'));
    const std::size_t first = header.find_first_not_of(" \t");
    if (first == std::string_view::npos) return "";
    std::string type(header.substr(first, header.find_last_not_of(" \t") + 1 - first));
    std::transform(type.begin(), type.end(), type.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return type;
}

/** A header of the request, if it is there. */
std::optional<std::string_view> header(MHD_Connection *connection, const char *name) {
    const char *value = MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name);
    if (value == nullptr) return std::nullopt;
    return value;
}

/** The length that the request announces. The HTTP library has refused what is not a number. */
std::uint64_t announced_length(MHD_Connection *connection) {
    const auto value = header(connection, MHD_HTTP_HEADER_CONTENT_LENGTH);
    if (!value) return 0;
    std::uint64_t length = 0;
    const auto result = std::from_chars(value->data(), value->data() + value->size(), length);
    return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint64_t>::max() : length;
}

Reply too_long(std::size_t limit) {
    return refusal(MHD_HTTP_CONTENT_TOO_LARGE, "The body is longer than " + std::to_string(limit) + " bytes.");
}

/** Judges the head of a request. The order counts: the first fault is the one that is told. */
std::optional<Reply> judge(MHD_Connection *connection, std::string_view url, std::string_view method,
                           std::size_t body_limit) {
    if (url != Server::path) {
        return refusal(MHD_HTTP_NOT_FOUND, std::string("There is nothing here; calls go to ") + Server::path + ".");
    }
    if (method != MHD_HTTP_METHOD_POST) {
        return refusal(MHD_HTTP_METHOD_NOT_ALLOWED, "Calls are sent by POST.");
    }
    const std::uint64_t length = announced_length(connection);
    if (length == 0 && !header(connection, MHD_HTTP_HEADER_TRANSFER_ENCODING)) {
        return refusal(MHD_HTTP_BAD_REQUEST, "The request has no body; it should hold an XML-RPC call.");
    }
    if (media_type(header(connection, MHD_HTTP_HEADER_CONTENT_TYPE).value_or("")) != "text/xml") {
        return refusal(MHD_HTTP_UNSUPPORTED_MEDIA_TYPE, "The Content-Type of a call is text/xml.");
    }
    if (length > body_limit) return too_long(body_limit);
    return std::nullopt;
}

MHD_Result send(MHD_Connection *connection, Reply reply, bool last) {
    auto body = std::make_unique<std::string>(std::move(reply.body));
    MHD_Response *response = MHD_create_response_from_buffer_with_free_callback_cls(
        body->size(), body->data(), [](void *text) { delete static_cast<std::string *>(text); }, body.get());
    if (response == nullptr) return MHD_NO;
    static_cast<void>(body.release());  // the response owns it now
    const bool answer = reply.status == MHD_HTTP_OK;
    MHD_add_response_header(response, MHD_HTTP_HEADER_CONTENT_TYPE,
                            answer ? "text/xml; charset=utf-8" : "text/plain; charset=utf-8");
    if (reply.status == MHD_HTTP_METHOD_NOT_ALLOWED) {
        MHD_add_response_header(response, MHD_HTTP_HEADER_ALLOW, MHD_HTTP_METHOD_POST);
    }
    if (last) MHD_add_response_header(response, MHD_HTTP_HEADER_CONNECTION, "close");
    const MHD_Result result = MHD_queue_response(connection, reply.status, response);
    MHD_destroy_response(response);
    return result;
}

}  // namespace

/** One request and its reply. */
struct Server::Exchange {
    MHD_Connection *connection;
    std::string body;
    /** How much has been read and thrown away since the request was refused. */
    std::size_t discarded = 0;
    std::optional<Reply> reply;
    /** Whether the request counts in answers_due_. */
    bool is_call = false;
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

    static MHD_Result head(Server &self, MHD_Connection *connection, const char *url, const char *method,
                           void **state) {
        auto exchange = std::make_unique<Exchange>();
        exchange->connection = connection;
        exchange->reply = judge(connection, url, method, self.body_limit_);
        *state = exchange.get();
        Exchange &kept = *exchange.release();

        const std::uint64_t length = announced_length(connection);
        if (!kept.reply) {
            kept.body.reserve(static_cast<std::size_t>(length));
        } else if (length > self.body_limit_) {
            return send(connection, *std::move(kept.reply), true);
        }
        return MHD_YES;
    }

    // A refused body is read to its end all the same, if that is not too far: a client that is hung up on while it
    // sends may never see why, and the connection stays usable. Returns whether to go on.
    static bool body(Server &self, Exchange &exchange, std::string_view data) {
        if (!exchange.reply && data.size() > self.body_limit_ - exchange.body.size()) {
            exchange.reply = too_long(self.body_limit_);
            exchange.body = std::string();
        }
        if (!exchange.reply) {
            exchange.body.append(data);
            return true;
        }
        exchange.discarded += data.size();
        return exchange.discarded <= self.body_limit_;
    }

    static MHD_Result end(Server &self, Exchange &exchange) {
        if (!exchange.reply && exchange.body.empty()) {
            exchange.reply = refusal(MHD_HTTP_BAD_REQUEST, "The body is empty; it should hold an XML-RPC call.");
        }
        if (!exchange.reply && self.stopping_) {
            exchange.reply = refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "The host is being stopped.");
        }
        if (exchange.reply) return send(exchange.connection, *std::move(exchange.reply), self.stopping_);
        self.waiting_.push_back(&exchange);
        exchange.is_call = true;
        ++self.answers_due_;
        MHD_suspend_connection(exchange.connection);
        return MHD_YES;
    }

    static void completed(void *server, MHD_Connection *, void **state, MHD_RequestTerminationCode) {
        const std::unique_ptr<Exchange> exchange(static_cast<Exchange *>(*state));
        *state = nullptr;
        if (exchange != nullptr && exchange->is_call) --static_cast<Server *>(server)->answers_due_;
    }

    static void connection(void *server, MHD_Connection *, void **, MHD_ConnectionNotificationCode code) {
        if (code == MHD_CONNECTION_NOTIFY_CLOSED) static_cast<Server *>(server)->run_again_ = true;
    }
};

Server::Server(FileDescriptor listener, std::size_t body_limit, Call call)
    : body_limit_(body_limit),
      call_(std::move(call)),
      daemon_(MHD_start_daemon(MHD_USE_EPOLL | MHD_ALLOW_SUSPEND_RESUME, 0, nullptr, nullptr,  //
                               &Callbacks::request, this,                                      //
                               MHD_OPTION_LISTEN_SOCKET, listener.get(),                       //
                               MHD_OPTION_NOTIFY_COMPLETED, &Callbacks::completed, this,       //
                               MHD_OPTION_NOTIFY_CONNECTION, &Callbacks::connection, this,     //
                               MHD_OPTION_CONNECTION_TIMEOUT, idle_timeout_s,                  //
                               MHD_OPTION_CONNECTION_LIMIT, connection_limit,                  //
                               MHD_OPTION_END)) {
    if (daemon_ == nullptr) throw std::runtime_error("cannot set up the HTTP server");
    listener.release();
    epoll_ = MHD_get_daemon_info(daemon_, MHD_DAEMON_INFO_EPOLL_FD)->epoll_fd;
}

Server::~Server() { MHD_stop_daemon(daemon_); }

void Server::run(const StopSignals &stop) {
    while (!wait(stop.descriptor(), poll_timeout())) {
        MHD_run(daemon_);
        // One call a turn: its answer is sent, and a signal is noticed, before the next one starts.
        if (!waiting_.empty()) answer_next();
    }
    drain();
}

/** How long the loop may sleep, in milliseconds as poll() takes them: -1 for ever. */
int Server::poll_timeout() {
    if (std::exchange(run_again_, false)) return 0;
    MHD_UNSIGNED_LONG_LONG timeout = 0;
    if (MHD_get_timeout(daemon_, &timeout) != MHD_YES) return -1;
    return static_cast<int>(std::min<MHD_UNSIGNED_LONG_LONG>(timeout, INT_MAX));
}

/**
 * Sleeps until a connection or the other descriptor (-1 for none) has something to do.
 * @return Whether the other descriptor has.
 */
bool Server::wait(int other, int timeout) const {
    pollfd descriptors[] = {{epoll_, POLLIN, 0}, {other, POLLIN, 0}};
    if (poll(descriptors, 2, timeout) < 0 && errno != EINTR) {
        throw std::system_error(errno, std::generic_category(), "cannot wait for connections");
    }
    return descriptors[1].revents != 0;
}

/**
 * Carries out the call that has waited longest. This happens outside the HTTP library, on a suspended connection: a
 * call that lasts longer than the idle timeout then costs neither its own connection nor those that wait behind it.
 */
void Server::answer_next() {
    Exchange &exchange = *waiting_.front();
    waiting_.pop_front();
    try {
        exchange.reply = Reply{MHD_HTTP_OK, call_(exchange.body)};
    } catch (const std::exception &error) {
        std::fprintf(stderr, "lmq-host: a call could not be answered: %s\n", error.what());
        exchange.reply = refusal(MHD_HTTP_INTERNAL_SERVER_ERROR,
                                 std::string("The call was made, but cannot be answered: ") + error.what());
    }
    exchange.body = std::string();
    MHD_resume_connection(exchange.connection);
    run_again_ = true;
}

/** Refuses the calls that have not begun and sends the answers that are due. */
void Server::drain() {
    stopping_ = true;
    const FileDescriptor listener(MHD_quiesce_daemon(daemon_));
    for (Exchange *exchange : waiting_) MHD_resume_connection(exchange->connection);
    waiting_.clear();
    const auto deadline = steady_clock::now() + drain_time;
    for (MHD_run(daemon_); answers_due_ > 0; MHD_run(daemon_)) {
        const auto left = std::chrono::ceil<milliseconds>(deadline - steady_clock::now());
        if (left <= milliseconds(0)) break;
        const int timeout = poll_timeout();
        const int most = static_cast<int>(left.count());
        wait(-1, timeout < 0 ? most : std::min(timeout, most));
    }
}

}  // namespace lmq::host
