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
        post_ = "POST " + path;
        head_ = " HTTP/1.1\r\nHost: " + host_header_ + "\r\nUser-Agent: lmqctl/" LMQCTL_VERSION "\r\n";
        if (!connection.user.empty())
            head_ += "Authorization: Basic " + base64(connection.user + ":" + connection.password) + "\r\n";
    }

    HttpAnswer post(const std::string &document) override {
        return exchange(post_ + head_ + "Content-Type: text/xml\r\nContent-Length: " + std::to_string(document.size()) +
                        "\r\n\r\n" + document);
    }

    HttpAnswer get(const std::string &name, const std::string &tag) override {
        return exchange("GET " + path_.substr(0, path_.rfind('/') + 1) + name + head_ +
                        (tag.empty() ? "" : "If-None-Match: " + tag + "\r\n") + "\r\n");
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
    std::string socket_path_, host_, port_ = "80", host_header_ = "localhost", path_, post_, head_;
    Socket socket_{connection_};
    AnswerReader reader_{connection_.url, [this](std::string &to) { return socket_.receive(to); }};
};

}  // namespace

std::unique_ptr<Http> make_http(const Connection &connection) {
    if (connection.url.starts_with("https://")) return make_https(connection);
    if (!connection.url.starts_with("http://") && !connection.url.starts_with("unix:")) throw_bad_url(connection);
    return std::make_unique<PlainHttp>(connection);
}

}  // namespace lmqctl
