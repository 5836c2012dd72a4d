// The judgement of request heads. To add a refusal, see Gate::judge().
#include "gate.h"

#include <arpa/inet.h>
#include <gnutls/gnutls.h>
#include <limits.h>
#include <microhttpd.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>
#include <system_error>
#include <utility>

#include "console.h"
#include "tls.h"

namespace lmq::host {
namespace {

/// The media type of a Content-Type header: without its parameters, in small letters.
std::string media_type(std::string_view header) {
    header = header.substr(0, header.find(';'));
    const std::size_t first = header.find_first_not_of(" \t");
    if (first == std::string_view::npos) return "";
    std::string type(header.substr(first, header.find_last_not_of(" \t") + 1 - first));
    std::transform(type.begin(), type.end(), type.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return type;
}

bool is_address(const std::string &host) {
    in6_addr any{};
    if (inet_pton(AF_INET, host.c_str(), &any) == 1) return true;
    if (host.size() < 2 || host.front() != '[' || host.back() != ']') return false;
    const std::string inner =
        host.substr(1, host.find('%') == std::string::npos ? host.size() - 2 : host.find('%') - 1);
    return inet_pton(AF_INET6, inner.c_str(), &any) == 1;
}

/// Takes name and password out of an Authorization header.
bool read_credentials(std::string_view value, std::string &name, std::string &password) {
    constexpr std::string_view scheme = "Basic ";
    if (value.size() < scheme.size() || strncasecmp(value.data(), scheme.data(), scheme.size()) != 0) return false;
    value.remove_prefix(std::min(value.find_first_not_of(' ', scheme.size()), value.size()));
    const gnutls_datum_t encoded{reinterpret_cast<unsigned char *>(const_cast<char *>(value.data())),
                                 static_cast<unsigned>(value.size())};
    gnutls_datum_t raw{};
    if (value.empty() || gnutls_base64_decode2(&encoded, &raw) < 0) return false;
    const std::string text(reinterpret_cast<const char *>(raw.data), raw.size);
    gnutls_free(raw.data);
    const std::size_t colon = text.find(':');
    // The functions that hash passwords end at a zero.
    if (colon == std::string::npos || text.find('\0') != std::string::npos) return false;
    name = text.substr(0, colon);
    password = text.substr(colon + 1);
    return true;
}

/// What the headers say that a proxy may read in another way.
struct Framing {
    unsigned hosts = 0, lengths = 0, codings = 0;
    bool is_chunked = false;

    explicit Framing(MHD_Connection *connection) {
        MHD_get_connection_values(
            connection, MHD_HEADER_KIND,
            [](void *framing, MHD_ValueKind, const char *key, const char *value) {
                static_cast<Framing *>(framing)->add(key, value == nullptr ? "" : value);
                return MHD_YES;
            },
            this);
    }

  private:
    void add(const char *key, const char *value) {
        switch (std::strlen(key)) {
            case std::size(MHD_HTTP_HEADER_HOST) - 1: hosts += is(key, MHD_HTTP_HEADER_HOST); break;
            case std::size(MHD_HTTP_HEADER_CONTENT_LENGTH) - 1:
                lengths += is(key, MHD_HTTP_HEADER_CONTENT_LENGTH);
                break;
            case std::size(MHD_HTTP_HEADER_TRANSFER_ENCODING) - 1:
                if (!is(key, MHD_HTTP_HEADER_TRANSFER_ENCODING)) break;
                ++codings;
                is_chunked = is(value, "chunked");
                break;
        }
    }

    static bool is(const char *text, const char *wanted) { return strcasecmp(text, wanted) == 0; }
};

}  // namespace

std::optional<std::string_view> header(MHD_Connection *connection, const char *name) {
    const char *value = MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name);
    if (value == nullptr) return std::nullopt;
    return value;
}

// The HTTP library has refused what is not a number.
std::uint64_t announced_length(MHD_Connection *connection) {
    const auto value = header(connection, MHD_HTTP_HEADER_CONTENT_LENGTH);
    if (!value) return 0;
    std::uint64_t length = 0;
    const auto result = std::from_chars(value->data(), value->data() + value->size(), length);
    return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint64_t>::max() : length;
}

Gate::Gate(Options options, std::unique_ptr<Users> users) : options_(std::move(options)), users_(std::move(users)) {
    char name[HOST_NAME_MAX + 1] = "";
    if (gethostname(name, sizeof name - 1) == 0) options_.names.emplace_back(name);
    options_.names.emplace_back("localhost");
}

/// A page of a foreign site can have its own name point here, and then counts as this host for the browser. The name
/// still stands in the Host header. Addresses are safe: nobody can have them point elsewhere.
bool Gate::is_own_name(std::string_view host) const {
    const std::size_t colon = host.rfind(':');
    if (colon != std::string_view::npos && host.find(']', colon) == std::string_view::npos)
        host = host.substr(0, colon);
    const std::string name(host);
    return is_address(name) || std::any_of(options_.names.begin(), options_.names.end(),
                                           [&](const auto &own) { return strcasecmp(own.c_str(), name.c_str()) == 0; });
}

/// A page that this host has served: it comes from the name or address in the Host header, which has been judged.
bool Gate::is_own_page(MHD_Connection *connection, std::string_view origin, std::string_view host) const {
    const bool encrypted = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_GNUTLS_SESSION) != nullptr;
    return options_.own_page && origin == std::string(encrypted ? "https://" : "http://").append(host);
}

std::optional<Reply> Gate::identify(Exchange &exchange) const {
    if (options_.client_certificates) {
        Peer &peer = *exchange.peer;
        if (peer.certified.empty()) {
            const auto name = certified_name(exchange.connection);
            if (!name) return refusal(MHD_HTTP_FORBIDDEN, "A certificate is needed that this host accepts.");
            peer.certified = name->empty() ? "certified" : *name;
        }
        exchange.user = peer.certified;
    }
    if (users_ == nullptr) return std::nullopt;
    std::string name, password;
    const auto value = header(exchange.connection, MHD_HTTP_HEADER_AUTHORIZATION);
    const auto answer = value && read_credentials(*value, name, password)
                            ? users_->check(name, password, exchange.peer->address)
                            : Users::Answer::wrong;
    switch (answer) {
        case Users::Answer::right: exchange.user = name; return std::nullopt;
        case Users::Answer::wrong: {
            Reply reply = refusal(MHD_HTTP_UNAUTHORIZED, "A user and a password are needed that this host knows.");
            reply.headers.emplace_back(MHD_HTTP_HEADER_WWW_AUTHENTICATE, "Basic realm=\"lmq-host\", charset=\"UTF-8\"");
            return reply;
        }
        case Users::Answer::too_many_wrong: break;
    }
    return refusal(MHD_HTTP_TOO_MANY_REQUESTS, "There were too many wrong passwords; try again in a second.");
}

/// Refuses heads that a proxy in front might read in another way, and so take a request for the body of another.
std::optional<Reply> Gate::judge_form(MHD_Connection *connection, std::string_view version) const {
    const auto closing = [](const std::string &why) {
        Reply reply = refusal(MHD_HTTP_BAD_REQUEST, why);
        reply.closes = true;
        return reply;
    };
    const Framing framing(connection);
    if (framing.lengths > 1) return closing("The request has more than one Content-Length.");
    if (framing.lengths > 0 && framing.codings > 0)
        return closing("The request has a Content-Length and a Transfer-Encoding.");
    if (framing.codings > 1 || (framing.codings == 1 && !framing.is_chunked)) {
        return closing("The only Transfer-Encoding is chunked.");
    }
    if (framing.hosts > 1 || (framing.hosts == 0 && version == MHD_HTTP_VERSION_1_1)) {
        return closing("A request has one Host header.");
    }
    return std::nullopt;
}

std::optional<Reply> Gate::judge(std::string_view path, std::string_view method, std::string_view version,
                                 Exchange &exchange) const {
    MHD_Connection *connection = exchange.connection;
    if (auto refused = judge_form(connection, version)) return refused;
    const auto host = header(connection, MHD_HTTP_HEADER_HOST);
    if (options_.check_host && host && !is_own_name(*host)) {
        return refusal(MHD_HTTP_MISDIRECTED_REQUEST, "This host does not go by the name in the Host header.");
    }
    const auto origin = header(connection, MHD_HTTP_HEADER_ORIGIN);
    if (origin && (origin->empty() || *origin != options_.origin) &&
        !(host && is_own_page(connection, *origin, *host))) {
        return refusal(MHD_HTTP_FORBIDDEN, "Pages of this origin may not call.");
    }
    const bool reads = method == MHD_HTTP_METHOD_GET || method == MHD_HTTP_METHOD_HEAD;
    const bool is_page = reads && options_.own_page && is_console_path(path);
    if (path == health_path || path == metrics_path || path == interface_path || path.starts_with(output_path) ||
        is_page) {
        if (!reads) return wrong_method("GET, HEAD", "This is read by GET.");
        return path == health_path ? std::nullopt : identify(exchange);
    }
    if (path == lease_path) return judge_lease(method, exchange);
    if (path != calls_path) {
        return refusal(MHD_HTTP_NOT_FOUND, "There is nothing here; calls go to " + std::string(calls_path) + ".");
    }
    // A browser asks before it sends a call, and without the user.
    if (method == MHD_HTTP_METHOD_OPTIONS && origin) return Reply{MHD_HTTP_NO_CONTENT, ""};
    if (method != MHD_HTTP_METHOD_POST) return wrong_method("POST", "Calls are sent by POST.");
    if (auto refused = identify(exchange)) return refused;
    return judge_call(connection);
}

std::optional<Reply> Gate::judge_lease(std::string_view method, Exchange &exchange) const {
    constexpr std::size_t longest = 4096;
    constexpr std::string_view allowed[] = {MHD_HTTP_METHOD_GET, MHD_HTTP_METHOD_HEAD, MHD_HTTP_METHOD_POST,
                                            MHD_HTTP_METHOD_DELETE};
    if (std::find(std::begin(allowed), std::end(allowed), method) == std::end(allowed)) {
        return wrong_method("GET, HEAD, POST, DELETE",
                            "The lease is read by GET, taken by POST and given back by DELETE.");
    }
    if (announced_length(exchange.connection) > longest) return too_long(longest);
    return identify(exchange);
}

/// Judges what the head says about the body.
std::optional<Reply> Gate::judge_call(MHD_Connection *connection) const {
    const std::uint64_t length = announced_length(connection);
    if (length == 0 && !header(connection, MHD_HTTP_HEADER_TRANSFER_ENCODING)) {
        return refusal(MHD_HTTP_BAD_REQUEST, "The request has no body; it should hold an XML-RPC call.");
    }
    if (media_type(header(connection, MHD_HTTP_HEADER_CONTENT_TYPE).value_or("")) != "text/xml") {
        return refusal(MHD_HTTP_UNSUPPORTED_MEDIA_TYPE, "The Content-Type of a call is text/xml.");
    }
    if (length > options_.body_limit) return too_long(options_.body_limit);
    return std::nullopt;
}

}  // namespace lmq::host
