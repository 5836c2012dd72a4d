// HTTP/1.1 over TCP and Unix sockets: one POST at a time, answers with a length, in chunks, or up to the end of the
// connection.
#include "http.h"

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstring>

#include "error.h"
#include "names.h"

namespace lmqctl {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t largest_head = 64 << 10;  // bytes of a status line and its header

std::string base64(const std::string &text) {
    static constexpr char letters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string result;
    for (std::size_t i = 0; i < text.size(); i += 3) {
        unsigned bits = 0;
        for (std::size_t j = 0; j < 3; ++j)
            bits = bits << 8 | (i + j < text.size() ? static_cast<unsigned char>(text[i + j]) : 0u);
        for (std::size_t j = 0; j < 4; ++j) result += i + j > text.size() ? '=' : letters[bits >> (18 - 6 * j) & 63];
    }
    return result;
}

// A number at the beginning of a text; nothing if there is none or it is absurd.
std::optional<std::size_t> length_of(std::string_view text, int base) {
    std::size_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (failure != std::errc() || end == text.data()) return {};
    return value;
}

class PlainHttp : public Http {
  public:
    explicit PlainHttp(const Connection &connection) : connection_(connection) {
        std::string path = "/RPC2";
        if (connection.url.starts_with("unix:")) {
            socket_path_ = connection.url.substr(5);
            if (socket_path_.empty() || socket_path_.size() >= sizeof(sockaddr_un::sun_path)) throw_bad_url(connection);
            host_ = "localhost";
        } else {
            path = parse(connection.url.substr(7));
        }
        head_ = "POST " + path + " HTTP/1.1\r\nHost: " + host_header_ +
                "\r\nUser-Agent: lmqctl/" LMQCTL_VERSION "\r\nContent-Type: text/xml\r\n";
        if (!connection.user.empty())
            head_ += "Authorization: Basic " + base64(connection.user + ":" + connection.password) + "\r\n";
    }

    ~PlainHttp() override { disconnect(); }

    HttpAnswer post(const std::string &document) override {
        deadline_ = Clock::now() + std::chrono::microseconds(static_cast<int64_t>(connection_.timeout * 1e6));
        // A host closes what was idle for long; what it says after our last answer is of no use either.
        if (socket_ >= 0 && (!unread_.empty() || is_ready(POLLIN, 0))) disconnect();
        if (socket_ < 0) connect();
        try {
            send(head_ + "Content-Length: " + std::to_string(document.size()) + "\r\n\r\n" + document);
            return receive();
        } catch (...) {
            disconnect();
            throw;
        }
    }

  private:
    // Takes a URL apart behind its "http://". Returns the path.
    std::string parse(const std::string &rest) {
        const std::size_t path = rest.find_first_of("/?#");
        std::string authority = rest.substr(0, path);
        if (authority.find('@') != std::string::npos)
            throw UsageError(connection_.url + ": the user is named by --user, not in the URL");
        host_header_ = authority;
        const std::size_t bracket = authority.find(']'), colon = authority.rfind(':');
        if (colon != std::string::npos && (bracket == std::string::npos || colon > bracket)) {
            port_ = authority.substr(colon + 1);
            authority.resize(colon);
        }
        const std::optional<int64_t> port = number(port_);
        host_ = bracket == std::string::npos ? authority : authority.substr(1, bracket - 1);
        if (host_.empty() || !port || *port < 1 || *port > 65535 ||
            rest.find_first_of(" \t\r\n") != std::string::npos || (bracket != std::string::npos && authority[0] != '['))
            throw_bad_url(connection_);
        if (path == std::string::npos) return "/";
        return (rest[path] == '/' ? "" : "/") + rest.substr(path, rest.find('#', path) - path);
    }

    void disconnect() {
        if (socket_ >= 0) close(socket_);
        socket_ = -1;
        unread_.clear();
    }

    // Waits until the socket can be read or written, at most until `until` milliseconds from now if that is not -1.
    bool is_ready(short event, int until) const {
        pollfd wanted{socket_, event, 0};
        int ready = 0;
        do {
            if (connection_.stop && *connection_.stop) throw_stopped();
            ready = poll(&wanted, 1, until);
        } while (ready < 0 && errno == EINTR);
        return ready > 0;
    }

    void wait(short event) const {
        if (connection_.timeout <= 0) {
            is_ready(event, -1);
            return;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline_ - Clock::now()).count();
        if (left <= 0 || !is_ready(event, static_cast<int>(left))) throw_timeout(connection_);
    }

    // Whether the connection stands; else errno says why not.
    bool connect_to(const sockaddr *address, socklen_t length) {
        socket_ = socket(address->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        if (socket_ < 0) return false;
        if (::connect(socket_, address, length) == 0) return true;
        int failure = errno;
        if (failure == EINPROGRESS) {
            wait(POLLOUT);
            socklen_t size = sizeof failure;
            getsockopt(socket_, SOL_SOCKET, SO_ERROR, &failure, &size);
        }
        if (failure != 0) disconnect();
        errno = failure;
        return failure == 0;
    }

    void connect() {
        if (!socket_path_.empty()) {
            sockaddr_un address{};
            address.sun_family = AF_UNIX;
            socket_path_.copy(address.sun_path, sizeof address.sun_path - 1);
            if (!connect_to(reinterpret_cast<const sockaddr *>(&address), sizeof address))
                throw_cannot_connect(connection_, std::strerror(errno));
            return;
        }
        addrinfo hints{}, *found = nullptr;
        hints.ai_socktype = SOCK_STREAM;
        if (const int failure = getaddrinfo(host_.c_str(), port_.c_str(), &hints, &found))
            throw_cannot_connect(connection_, host_ + ": " + gai_strerror(failure));
        const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> addresses(found, freeaddrinfo);
        for (const addrinfo *address = found; address; address = address->ai_next)
            if (connect_to(address->ai_addr, address->ai_addrlen)) {
                const int on = 1;
                setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
                return;
            }
        throw_cannot_connect(connection_, std::strerror(errno));
    }

    void send(const std::string &text) {
        for (std::size_t sent = 0; sent < text.size();) {
            // No signal: it would end the program quietly, as is right for standard output alone.
            const ssize_t length = ::send(socket_, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
            if (length >= 0)
                sent += static_cast<std::size_t>(length);
            else if (errno == EAGAIN || errno == EWOULDBLOCK)
                wait(POLLOUT);
            else if (errno == EPIPE || errno == ECONNRESET)
                return;  // a host that refuses a document says why before it closes
            else if (errno != EINTR)
                lost(std::strerror(errno));
        }
    }

    [[noreturn]] void lost(const std::string &why) const {
        throw Error(exit_connection,
                    connection_.url + ": the connection was lost before the answer was complete (" + why + ")");
    }

    // Appends to `unread_`. False at the end of the connection.
    bool more() {
        for (;;) {
            char buffer[65536];
            const ssize_t length = recv(socket_, buffer, sizeof buffer, 0);
            if (length > 0) unread_.append(buffer, static_cast<std::size_t>(length));
            if (length >= 0) return length > 0;
            if (errno == EAGAIN || errno == EWOULDBLOCK)
                wait(POLLIN);
            else if (errno != EINTR)
                lost(std::strerror(errno));
        }
    }

    std::string take(std::size_t length) {
        if (length > largest_answer) too_large();
        while (unread_.size() < length)
            if (!more()) lost("closed by the host");
        std::string taken = unread_.substr(0, length);
        unread_.erase(0, length);
        return taken;
    }

    // A line without its end.
    std::string line() {
        std::size_t end = 0;
        while ((end = unread_.find('\n')) == std::string::npos) {
            if (unread_.size() > largest_head) no_http();
            if (!more()) lost("closed by the host");
        }
        std::string taken = take(end + 1);
        taken.pop_back();
        if (taken.ends_with('\r')) taken.pop_back();
        return taken;
    }

    [[noreturn]] void no_http() const {
        throw Error(exit_connection, connection_.url + ": what answers there does not speak HTTP");
    }

    [[noreturn]] void too_large() const {
        throw Error(exit_connection,
                    connection_.url + ": the answer is larger than " + std::to_string(largest_answer >> 20) + " MiB");
    }

    HttpAnswer receive() {
        HttpAnswer answer;
        std::optional<std::size_t> length;
        bool is_chunked = false, stays_open = false;
        do {
            const std::string status = line();
            if (!status.starts_with("HTTP/1.") || status.size() < 12) no_http();
            stays_open = status[7] != '0';
            const std::optional<std::size_t> code = length_of(std::string_view(status).substr(9), 10);
            if (!code || *code < 100 || *code > 999) no_http();
            answer.status = static_cast<int>(*code);
            std::size_t size = 0;
            for (std::string field; !(field = line()).empty(); size += field.size()) {
                if (size > largest_head) no_http();
                const std::size_t colon = field.find(':');
                const std::string name = lower(field.substr(0, colon));
                std::string value = colon == std::string::npos ? "" : lower(field.substr(colon + 1));
                value.erase(0, value.find_first_not_of(" \t"));
                if (name == "content-length" && !(length = length_of(value, 10))) no_http();
                if (name == "transfer-encoding") is_chunked = value.ends_with("chunked");
                if (name == "connection") stays_open = value == "keep-alive" || (stays_open && value != "close");
            }
        } while (answer.status < 200);  // an interim answer
        if (is_chunked) {
            for (;;) {
                const std::optional<std::size_t> chunk = length_of(line(), 16);
                if (!chunk) no_http();
                if (*chunk == 0) break;
                if (*chunk > largest_answer - answer.body.size()) too_large();
                answer.body += take(*chunk);
                line();
            }
            while (!line().empty()) continue;
        } else if (length) {
            answer.body = take(*length);
        } else if (answer.status != 204 && answer.status != 304) {
            while (more())
                if (unread_.size() > largest_answer) too_large();
            answer.body.swap(unread_);
            stays_open = false;
        }
        if (!stays_open) disconnect();
        return answer;
    }

    const Connection connection_;
    std::string socket_path_, host_, port_ = "80", host_header_ = "localhost", head_;
    std::string unread_;  // of what has arrived
    int socket_ = -1;
    Clock::time_point deadline_;
};

}  // namespace

std::unique_ptr<Http> make_http(const Connection &connection) {
    if (connection.url.starts_with("https://")) return make_https(connection);
    if (!connection.url.starts_with("http://") && !connection.url.starts_with("unix:")) throw_bad_url(connection);
    return std::make_unique<PlainHttp>(connection);
}

void throw_stopped() { throw Error(exit_connection, "interrupted; the host goes on with the call"); }

void throw_timeout(const Connection &connection) {
    throw Error(exit_connection, connection.url + ": no answer in time; --timeout SECONDS waits longer");
}

void throw_cannot_connect(const Connection &connection, const std::string &why) {
    throw Error(exit_connection,
                connection.url + ": cannot connect (" + why + "). Is the host running? --url names another");
}

void throw_bad_url(const Connection &connection) {
    throw UsageError(connection.url +
                     ": no URL that can be used; expected http://HOST:PORT/RPC2, https://... or unix:PATH");
}

}  // namespace lmqctl
