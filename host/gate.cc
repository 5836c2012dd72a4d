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

}  // namespace

std::optional<std::string_view> header(MHD_Connection *connection, const char *name) {
    const char *value = MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name);
    if (value == nullptr) return std::nullopt;
    return value;
}

Headers::Headers(MHD_Connection *connection) {
    const auto add_one = [](void *headers, MHD_ValueKind, const char *key, const char *value) {
        static_cast<Headers *>(headers)->add(key, value == nullptr ? "" : value);
        return MHD_YES;
    };
    MHD_get_connection_values(connection, MHD_HEADER_KIND, add_one, this);
}

// No two of the names have the same length.
void Headers::add(const char *key, std::string_view value) {
    const auto take = [&](const char *name, std::optional<std::string_view> &header) {
        const bool is_it = strcasecmp(key, name) == 0;
        if (is_it && !header) header = value;
        return is_it ? 1U : 0U;
    };
    switch (std::strlen(key)) {
        case std::size(MHD_HTTP_HEADER_HOST) - 1: hosts += take(MHD_HTTP_HEADER_HOST, host); break;
        case std::size(MHD_HTTP_HEADER_ORIGIN) - 1: take(MHD_HTTP_HEADER_ORIGIN, origin); break;
        case std::size(lease_header) - 1: take(lease_header, lease); break;
        case std::size(MHD_HTTP_HEADER_CONTENT_TYPE) - 1: take(MHD_HTTP_HEADER_CONTENT_TYPE, type); break;
        case std::size(MHD_HTTP_HEADER_AUTHORIZATION) - 1: take(MHD_HTTP_HEADER_AUTHORIZATION, authorization); break;
        case std::size(MHD_HTTP_HEADER_CONTENT_LENGTH) - 1:
            lengths += take(MHD_HTTP_HEADER_CONTENT_LENGTH, length);
            break;
        case std::size(MHD_HTTP_HEADER_TRANSFER_ENCODING) - 1:
            codings += take(MHD_HTTP_HEADER_TRANSFER_ENCODING, coding);
            break;
    }
}

// The HTTP library has refused what is not a number.
std::uint64_t Headers::announced_length() const {
    if (!length) return 0;
    std::uint64_t number = 0;
    const auto result = std::from_chars(length->data(), length->data() + length->size(), number);
    return result.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint64_t>::max() : number;
}

Gate::Gate(Options options, std::unique_ptr<Users> users) : options_(std::move(options)), users_(std::move(users)) {
    char name[HOST_NAME_MAX + 1] = "";
    if (gethostname(name, sizeof name - 1) == 0) options_.names.emplace_back(name);
    options_.names.emplace_back("localhost");
}

/// A page of a foreign site can have its own name point here, and then counts as this host for the browser. The name
/// still stands in the Host header. Addresses are safe: nobody can have them point elsewhere.
bool Gate::is_own_name(std::string_view host) const {
    if (host == own_) return true;
    const std::string_view whole = host;
    const std::size_t colon = host.rfind(':');
    if (colon != std::string_view::npos && host.find(']', colon) == std::string_view::npos)
        host = host.substr(0, colon);
    const std::string name(host);
    const auto is_name = [&](const std::string &own) { return strcasecmp(own.c_str(), name.c_str()) == 0; };
    if (!is_address(name) && std::ranges::none_of(options_.names, is_name)) return false;
    own_ = whole;
    return true;
}

/// A page that this host has served: it comes from the name or address in the Host header, which has been judged.
bool Gate::is_own_page(MHD_Connection *connection, std::string_view origin, std::string_view host) const {
    const bool encrypted = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_GNUTLS_SESSION) != nullptr;
    return options_.own_page && origin == std::string(encrypted ? "https://" : "http://").append(host);
}

std::optional<Reply> Gate::identify(const Headers &headers, Exchange &exchange) const {
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
    const auto answer = headers.authorization && read_credentials(*headers.authorization, name, password)
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
std::optional<Reply> Gate::judge_form(const Headers &headers, std::string_view version) const {
    const auto closing = [](const std::string &why) {
        Reply reply = refusal(MHD_HTTP_BAD_REQUEST, why);
        reply.closes = true;
        return reply;
    };
    const bool is_chunked = headers.coding && strcasecmp(std::string(*headers.coding).c_str(), "chunked") == 0;
    if (headers.lengths > 1) return closing("The request has more than one Content-Length.");
    if (headers.lengths > 0 && headers.codings > 0)
        return closing("The request has a Content-Length and a Transfer-Encoding.");
    if (headers.codings > 1 || (headers.codings == 1 && !is_chunked)) {
        return closing("The only Transfer-Encoding is chunked.");
    }
    if (headers.hosts > 1 || (headers.hosts == 0 && version == MHD_HTTP_VERSION_1_1)) {
        return closing("A request has one Host header.");
    }
    return std::nullopt;
}

std::optional<Reply> Gate::judge(std::string_view path, std::string_view method, std::string_view version,
                                 const Headers &headers, Exchange &exchange) const {
    if (auto refused = judge_form(headers, version)) return refused;
    const auto &host = headers.host;
    const auto &origin = headers.origin;
    if (options_.check_host && host && !is_own_name(*host)) {
        return refusal(MHD_HTTP_MISDIRECTED_REQUEST, "This host does not go by the name in the Host header.");
    }
    if (origin && (origin->empty() || *origin != options_.origin) &&
        !(host && is_own_page(exchange.connection, *origin, *host))) {
        return refusal(MHD_HTTP_FORBIDDEN, "Pages of this origin may not call.");
    }
    const bool reads = method == MHD_HTTP_METHOD_GET || method == MHD_HTTP_METHOD_HEAD;
    const bool is_page = reads && options_.own_page && is_console_path(path);
    if (path == health_path || path == metrics_path || path == interface_path || path.starts_with(output_path) ||
        is_page) {
        if (!reads) return wrong_method("GET, HEAD", "This is read by GET.");
        return path == health_path ? std::nullopt : identify(headers, exchange);
    }
    if (path == lease_path) return judge_lease(method, headers, exchange);
    if (path != calls_path) {
        return refusal(MHD_HTTP_NOT_FOUND, "There is nothing here; calls go to " + std::string(calls_path) + ".");
    }
    // A browser asks before it sends a call, and without the user.
    if (method == MHD_HTTP_METHOD_OPTIONS && origin) return Reply{MHD_HTTP_NO_CONTENT, ""};
    if (method != MHD_HTTP_METHOD_POST) return wrong_method("POST", "Calls are sent by POST.");
    if (auto refused = identify(headers, exchange)) return refused;
    return judge_call(headers);
}

std::optional<Reply> Gate::judge_lease(std::string_view method, const Headers &headers, Exchange &exchange) const {
    constexpr std::size_t longest = 4096;
    constexpr std::string_view allowed[] = {MHD_HTTP_METHOD_GET, MHD_HTTP_METHOD_HEAD, MHD_HTTP_METHOD_POST,
                                            MHD_HTTP_METHOD_DELETE};
    if (std::find(std::begin(allowed), std::end(allowed), method) == std::end(allowed)) {
        return wrong_method("GET, HEAD, POST, DELETE",
                            "The lease is read by GET, taken by POST and given back by DELETE.");
    }
    if (headers.announced_length() > longest) return too_long(longest);
    return identify(headers, exchange);
}

/// Judges what the head says about the body.
std::optional<Reply> Gate::judge_call(const Headers &headers) const {
    const std::uint64_t length = headers.announced_length();
    if (length == 0 && !headers.coding) {
        return refusal(MHD_HTTP_BAD_REQUEST, "The request has no body; it should hold an XML-RPC call.");
    }
    if (headers.type != "text/xml" && media_type(headers.type.value_or("")) != "text/xml") {
        return refusal(MHD_HTTP_UNSUPPORTED_MEDIA_TYPE, "The Content-Type of a call is text/xml.");
    }
    if (length > options_.body_limit) return too_long(options_.body_limit);
    return std::nullopt;
}

}  // namespace lmq::host
