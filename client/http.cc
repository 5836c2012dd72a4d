// HTTP/1.1 over TCP and Unix sockets: one request at a time.
#include "http.h"

#include <sys/un.h>

#include <optional>

#include "error.h"
#include "names.h"
#include "socket.h"
#include "xml_value.h"

namespace lmqctl {

namespace {

class PlainHttp : public Http {
  public:
    explicit PlainHttp(const Connection &connection) : connection_(connection) {
        std::string path = "/RPC2";
        if (connection.url.starts_with("unix:")) {
            socket_path_ = connection.url.substr(5);
            if (socket_path_.empty() || socket_path_.size() >= sizeof(sockaddr_un::sun_path)) throw_bad_url(connection);
        } else {
            path = parse(connection.url.substr(7));
        }
        path_ = path.substr(0, path.find('?'));
        call_path_ = path;
        head_ = " HTTP/1.1\r\nHost: " + host_header_ + "\r\nUser-Agent: lmqctl/" LMQCTL_VERSION "\r\n";
        if (!connection.user.empty())
            head_ += "Authorization: Basic " + base64(connection.user + ":" + connection.password) + "\r\n";
    }

    HttpAnswer send(const HttpRequest &request) override {
        std::string text = std::string(request.method) + " ";
        text += request.name.empty() ? call_path_ : path_.substr(0, path_.rfind('/') + 1) + request.name;
        text += head_;
        if (!lease_.empty()) text += "Lmq-Lease: " + lease_ + "\r\n";
        if (!request.tag.empty()) text += "If-None-Match: " + request.tag + "\r\n";
        if (!request.body.empty()) {
            text += std::string("Content-Type: ") + (request.name.empty() ? "text/xml" : "application/json") + "\r\n";
            text += "Content-Length: " + std::to_string(request.body.size()) + "\r\n";
        }
        return exchange(text + "\r\n" + request.body);
    }

  private:
    HttpAnswer exchange(const std::string &request) {
        socket_.set_deadline(connection_.deadline());
        // A host closes what was idle for long; what it says after our last answer is of no use either.
        if (socket_.is_connected() && (reader_.has_unread() || socket_.is_disturbed())) disconnect();
        if (!socket_.is_connected()) connect();
        try {
            socket_.send(request);
            HttpAnswer answer = reader_.read();
            if (!answer.stays_open) disconnect();
            return answer;
        } catch (...) {
            disconnect();
            throw;
        }
    }

    // Takes a URL apart behind its "http://". Returns the path.
    std::string parse(const std::string &rest) {
        const std::size_t path = rest.find_first_of("/?#");
        std::string authority = rest.substr(0, path);
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

    void connect() {
        if (socket_path_.empty())
            socket_.connect_tcp(host_, port_);
        else
            socket_.connect_unix(socket_path_);
    }

    void disconnect() {
        socket_.disconnect();
        reader_.forget_unread();
    }

    const Connection connection_;
    std::string socket_path_, host_, port_ = "80", host_header_ = "localhost", path_, call_path_, head_;
    Socket socket_{connection_};
    AnswerReader reader_{connection_.url, [this](std::string &to) { return socket_.receive(to); }};
};

}  // namespace

std::unique_ptr<Http> make_http(const Connection &connection) {
    const std::size_t scheme = connection.url.find("://");
    const std::string authority =
        scheme == std::string::npos
            ? ""
            : connection.url.substr(scheme + 3, connection.url.find_first_of("/?#", scheme + 3) - scheme - 3);
    // What stands in front of the sign may be a password: it is not repeated.
    if (authority.find('@') != std::string::npos)
        throw UsageError(connection.url.substr(0, scheme + 3) + "..." + authority.substr(authority.rfind('@')) +
                         ": the user is named by --user and the password by LMQ_PASSWORD, not in the URL");
    if (connection.url.starts_with("https://")) return make_https(connection);
    if (!connection.url.starts_with("http://") && !connection.url.starts_with("unix:")) throw_bad_url(connection);
    return std::make_unique<PlainHttp>(connection);
}

}  // namespace lmqctl
