// HTTP/1.1 over TCP and Unix sockets, as much as a host needs of it: POST, and answers with a length, in chunks, or up
// to the end of the connection.
#include "remote/connection.h"

#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <strings.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstring>
#include <optional>
#include <string_view>

namespace lmq::remote {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t largest_head = 64 << 10;  // bytes

std::string base64(const std::string &text) {
    static constexpr char letters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string result;
    for (std::size_t i = 0; i < text.size(); i += 3) {
        unsigned bits = 0;
        for (std::size_t j = 0; j < 3; ++j)
            bits = bits << 8 | (i + j < text.size() ? static_cast<unsigned char>(text[i + j]) : 0U);
        for (std::size_t j = 0; j < 4; ++j) result += i + j > text.size() ? '=' : letters[bits >> (18 - 6 * j) & 63];
    }
    return result;
}

std::optional<std::size_t> number(std::string_view text, int base) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    std::size_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (failure != std::errc() || end == text.data()) return {};
    return value;
}

// The value of a header line, if it has this name.
std::optional<std::string_view> field(std::string_view line, std::string_view name) {
    if (line.size() <= name.size() || line[name.size()] != ':') return {};
    if (strncasecmp(line.data(), name.data(), name.size()) != 0) return {};
    return line.substr(name.size() + 1);
}

// Where documents stand that a host serves beside the one at this place.
std::string folder_of(const std::string &path) { return path.substr(0, path.rfind('/') + 1); }

bool holds(std::string_view value, const char *word) { return strcasestr(std::string(value).c_str(), word) != nullptr; }

class Plain : public Connection {
  public:
    explicit Plain(const Options &options) : options_(options) {
        std::string path = "/RPC2", host = "localhost";
        if (options.url.starts_with("unix:")) {
            socket_path_ = options.url.substr(5);
            if (socket_path_.empty() || socket_path_.size() >= sizeof(sockaddr_un::sun_path)) bad_url();
        } else {
            const std::string rest = options.url.substr(std::strlen("http://"));
            const std::size_t slash = rest.find('/');
            host = rest.substr(0, slash);
            if (slash != std::string::npos) path = rest.substr(slash);
            take_host(host);
            if (rest.find_first_of(" \t\r\n@?#") != std::string::npos) bad_url();
        }
        std::string head = " HTTP/1.1\r\nHost: " + host + "\r\nUser-Agent: liblmq\r\n";
        if (!options.user.empty())
            head += "Authorization: Basic " + base64(options.user + ":" + options.password) + "\r\n";
        if (!options.lease.empty()) head += "Lmq-Lease: " + options.lease + "\r\n";
        get_ = "GET " + folder_of(path);
        get_end_ = head + "\r\n";
        post_ = "POST " + path + head + "Content-Type: text/xml\r\nContent-Length: ";
    }

    ~Plain() override { disconnect(); }

    void connect() override {
        deadline_ = Clock::now() + std::chrono::microseconds(static_cast<std::int64_t>(options_.timeout * 1e6));
        // A host closes what was idle for long, and what it says after our last answer is of no use either.
        if (socket_ >= 0 && (!unread_.empty() || is_ready(POLLIN, 0))) disconnect();
        if (socket_ < 0) make_socket();
    }

    Answer post(const std::string &document) override {
        request_.assign(post_).append(std::to_string(document.size())).append("\r\n\r\n").append(document);
        return exchange();
    }

    Answer get(const std::string &name) override {
        request_.assign(get_).append(name).append(get_end_);
        return exchange();
    }

  private:
    Answer exchange() {
        connect();
        try {
            send(request_);
            has_waited_ = false;
            return receive();
        } catch (...) {
            disconnect();
            throw;
        }
    }

    [[noreturn]] void bad_url() const {
        throw Failure(
            LMQ_REMOTE_NOT_SENT,
            options_.url + ": no URL that can be used; expected http://HOST:PORT/RPC2, https://... or unix:PATH");
    }
    [[noreturn]] void cannot_connect(const std::string &why) const {
        throw Failure(LMQ_REMOTE_NOT_SENT, options_.url + ": cannot connect: " + why);
    }
    [[noreturn]] void lost(const std::string &why) const {
        throw Failure(LMQ_REMOTE_LOST, options_.url + ": no answer: " + why);
    }
    [[noreturn]] void no_http() const { lost("what answers there does not speak HTTP"); }

    // Takes HOST, HOST:PORT or [ADDRESS]:PORT apart.
    void take_host(const std::string &authority) {
        host_ = authority;
        const std::size_t bracket = authority.rfind(']'), colon = authority.rfind(':');
        if (colon != std::string::npos && (bracket == std::string::npos || colon > bracket)) {
            port_ = authority.substr(colon + 1);
            host_.resize(colon);
        }
        if (bracket != std::string::npos && host_.starts_with('[')) host_ = host_.substr(1, bracket - 1);
        const auto port = number(port_, 10);
        if (host_.empty() || !port || *port < 1 || *port > 65535) bad_url();
    }

    void disconnect() {
        if (socket_ >= 0) close(socket_);
        socket_ = -1;
        unread_.clear();
    }

    bool is_ready(short event, int milliseconds) const {
        pollfd wanted{socket_, event, 0};
        int ready = 0;
        do ready = poll(&wanted, 1, milliseconds);
        while (ready < 0 && errno == EINTR);
        return ready > 0;
    }

    // Whether the socket can be read or written before time is up.
    bool wait(short event) const {
        if (options_.timeout <= 0) return is_ready(event, -1);
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline_ - Clock::now()).count();
        return left > 0 && is_ready(event, static_cast<int>(std::min<std::int64_t>(left, 1 << 30)));
    }

    // The first look for an answer waits in the kernel, so the descriptor blocks and has a limit of its own.
    void wait_in_kernel() const {
        const auto seconds = static_cast<time_t>(options_.timeout);
        const timeval limit{seconds, static_cast<suseconds_t>((options_.timeout - static_cast<double>(seconds)) * 1e6)};
        setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        fcntl(socket_, F_SETFL, fcntl(socket_, F_GETFL) & ~O_NONBLOCK);
    }

    // Whether the connection stands; else errno says why not.
    bool connect_to(const sockaddr *address, socklen_t length) {
        socket_ = socket(address->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
        if (socket_ < 0) return false;
        int failure = ::connect(socket_, address, length) == 0 ? 0 : errno;
        if (failure == EINPROGRESS) {
            socklen_t size = sizeof failure;
            failure = ETIMEDOUT;
            if (wait(POLLOUT)) getsockopt(socket_, SOL_SOCKET, SO_ERROR, &failure, &size);
        }
        if (failure == 0)
            wait_in_kernel();
        else
            disconnect();
        errno = failure;
        return failure == 0;
    }

    void make_socket() {
        if (!socket_path_.empty()) {
            sockaddr_un address{};
            address.sun_family = AF_UNIX;
            socket_path_.copy(address.sun_path, sizeof address.sun_path - 1);
            if (!connect_to(reinterpret_cast<const sockaddr *>(&address), sizeof address))
                cannot_connect(std::strerror(errno));
            return;
        }
        addrinfo hints{}, *found = nullptr;
        hints.ai_socktype = SOCK_STREAM;
        if (const int failure = getaddrinfo(host_.c_str(), port_.c_str(), &hints, &found))
            cannot_connect(gai_strerror(failure));
        const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> addresses(found, freeaddrinfo);
        for (const addrinfo *address = found; address; address = address->ai_next)
            if (connect_to(address->ai_addr, address->ai_addrlen)) {
                const int on = 1;
                setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
                return;
            }
        cannot_connect(std::strerror(errno));
    }

    void send(const std::string &text) {
        for (std::size_t sent = 0; sent < text.size();) {
            const ssize_t length = ::send(socket_, text.data() + sent, text.size() - sent, MSG_NOSIGNAL | MSG_DONTWAIT);
            if (length >= 0)
                sent += static_cast<std::size_t>(length);
            else if (errno == EAGAIN || errno == EWOULDBLOCK) {
                if (!wait(POLLOUT)) lost("time is up");
            } else if (errno == EPIPE || errno == ECONNRESET)
                return;  // a host that refuses a document says why before it closes
            else if (errno != EINTR)
                lost(std::strerror(errno));
        }
    }

    // Appends to what is unread. False at the end of the connection.
    bool more() {
        for (;;) {
            char buffer[65536];
            const ssize_t length = recv(socket_, buffer, sizeof buffer, has_waited_ ? MSG_DONTWAIT : 0);
            has_waited_ = true;
            if (length > 0) unread_.append(buffer, static_cast<std::size_t>(length));
            if (length >= 0) return length > 0;
            if (errno == EAGAIN || errno == EWOULDBLOCK) {
                if (!wait(POLLIN)) lost("time is up");
            } else if (errno != EINTR) {
                lost(std::strerror(errno));
            }
        }
    }

    std::string take(std::size_t length) {
        if (length > largest_answer) lost("it is too large");
        while (unread_.size() < length)
            if (!more()) lost("the host closed the connection");
        std::string taken = unread_.substr(0, length);
        unread_.erase(0, length);
        return taken;
    }

    // A line without its end.
    std::string line() {
        std::size_t end = 0;
        while ((end = unread_.find('\n')) == std::string::npos) {
            if (unread_.size() > largest_head) no_http();
            if (!more()) lost("the host closed the connection");
        }
        std::string taken = take(end + 1);
        taken.pop_back();
        if (taken.ends_with('\r')) taken.pop_back();
        return taken;
    }

    Answer receive() {
        Answer answer;
        std::optional<std::size_t> length;
        bool is_chunked = false, stays_open = false;
        do {
            const std::string status = line();
            const auto code = number(std::string_view(status).substr(std::min<std::size_t>(9, status.size())), 10);
            if (!status.starts_with("HTTP/1.") || !code || *code < 100 || *code > 999) no_http();
            answer.status = static_cast<int>(*code);
            stays_open = status[7] != '0';
            std::size_t size = 0;
            for (std::string text; !(text = line()).empty(); size += text.size()) {
                if (size > largest_head) no_http();
                if (const auto value = field(text, "Content-Length"); value && !(length = number(*value, 10)))
                    no_http();
                if (const auto value = field(text, "Transfer-Encoding")) is_chunked = holds(*value, "chunked");
                keep_field(text, answer);
                if (const auto value = field(text, "Connection")) stays_open = !holds(*value, "close");
            }
        } while (answer.status < 200);  // an interim answer
        if (is_chunked) {
            take_chunks(answer.body);
        } else if (length) {
            answer.body = take(*length);
        } else if (answer.status != 204 && answer.status != 304) {
            while (more())
                if (unread_.size() > largest_answer) lost("it is too large");
            answer.body.swap(unread_);
            stays_open = false;
        }
        if (!stays_open) disconnect();
        return answer;
    }

    void take_chunks(std::string &body) {
        for (;;) {
            const auto chunk = number(line(), 16);
            if (!chunk) no_http();
            if (*chunk == 0) break;
            if (*chunk > largest_answer - body.size()) lost("it is too large");
            body += take(*chunk);
            line();
        }
        while (!line().empty()) continue;
    }

    const Options options_;
    std::string socket_path_, host_, port_ = "80", post_, get_, get_end_;
    std::string request_;  // kept, as its memory serves the next one
    std::string unread_;   // of what has arrived
    int socket_ = -1;
    bool has_waited_ = false;  // for the answer
    Clock::time_point deadline_;
};

}  // namespace

void keep_field(std::string_view line, Answer &answer) {
    const auto value = field(line, "Lmq-Output");
    if (!value) return;
    constexpr std::string_view place = "/output/";
    const std::size_t begin = std::min(value->find_first_not_of(" \t"), value->size());
    const std::string_view path = value->substr(begin, value->find_last_not_of(" \t\r\n") + 1 - begin);
    // It becomes part of a request.
    if (path.starts_with(place) && path.size() > place.size() && path.size() < 40 &&
        path.find_first_not_of("0123456789", place.size()) == std::string_view::npos)
        answer.output = path.substr(1);
}

std::unique_ptr<Connection> make_connection(const Options &options) {
    if (options.url.starts_with("https://")) return make_tls_connection(options);
    if (!options.url.starts_with("http://") && !options.url.starts_with("unix:"))
        throw Failure(
            LMQ_REMOTE_NOT_SENT,
            options.url + ": no URL that can be used; expected http://HOST:PORT/RPC2, https://... or unix:PATH");
    return std::make_unique<Plain>(options);
}

}  // namespace lmq::remote
