// The judgement of request heads. To add a refusal, see Gate::judge().
#include "gate.h"

#include <arpa/inet.h>
#include <limits.h>
#include <microhttpd.h>
#include <strings.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>
#include <utility>

#include "tls.h"

namespace lmq::host {
namespace {

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

bool is_address(const std::string &host) {
    in6_addr any{};
    if (inet_pton(AF_INET, host.c_str(), &any) == 1) return true;
    if (host.size() < 2 || host.front() != '[' || host.back() != ']') return false;
    const std::string inner =
        host.substr(1, host.find('%') == std::string::npos ? host.size() - 2 : host.find('%') - 1);
    return inet_pton(AF_INET6, inner.c_str(), &any) == 1;
}

struct Freed {
    void operator()(char *text) const { MHD_free(text); }
};

}  // namespace

Reply refusal(unsigned status, const std::string &why) { return {status, why + "\n"}; }

Reply too_long(std::size_t limit) {
    return refusal(MHD_HTTP_CONTENT_TOO_LARGE, "The body is longer than " + std::to_string(limit) + " bytes.");
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

/**
 * A page of a foreign site can have its own name point here, and then counts as this host for the browser. The name
 * still stands in the Host header. Addresses are safe: nobody can have them point elsewhere.
 */
bool Gate::is_own_name(std::string_view host) const {
    const std::size_t colon = host.rfind(':');
    if (colon != std::string_view::npos && host.find(']', colon) == std::string_view::npos)
        host = host.substr(0, colon);
    const std::string name(host);
    return is_address(name) || std::any_of(options_.names.begin(), options_.names.end(),
                                           [&](const auto &own) { return strcasecmp(own.c_str(), name.c_str()) == 0; });
}

std::optional<Reply> Gate::identify(MHD_Connection *connection, std::string &user) const {
    if (options_.client_certificates && user.empty()) {
        const auto name = certified_name(connection);
        if (!name) return refusal(MHD_HTTP_FORBIDDEN, "A certificate is needed that this host accepts.");
        user = name->empty() ? "certified" : *name;
    }
    if (users_ == nullptr) return std::nullopt;
    char *raw = nullptr;
    const std::unique_ptr<char, Freed> name(MHD_basic_auth_get_username_password(connection, &raw));
    const std::unique_ptr<char, Freed> password(raw);
    const auto answer =
        name == nullptr || password == nullptr ? Users::Answer::wrong : users_->check(name.get(), password.get());
    switch (answer) {
        case Users::Answer::right: user = name.get(); return std::nullopt;
        case Users::Answer::wrong:
            return refusal(MHD_HTTP_UNAUTHORIZED, "A user and a password are needed that this host knows.");
        case Users::Answer::too_many_wrong: break;
    }
    return refusal(MHD_HTTP_TOO_MANY_REQUESTS, "There were too many wrong passwords; try again in a second.");
}

std::optional<Reply> Gate::judge(MHD_Connection *connection, std::string_view path, std::string_view method,
                                 std::string &user) const {
    const auto host = header(connection, MHD_HTTP_HEADER_HOST);
    if (options_.check_host && host && !is_own_name(*host)) {
        return refusal(MHD_HTTP_MISDIRECTED_REQUEST, "This host does not go by the name in the Host header.");
    }
    const auto origin = header(connection, MHD_HTTP_HEADER_ORIGIN);
    if (origin && *origin != options_.origin) {
        return refusal(MHD_HTTP_FORBIDDEN, "Pages of this origin may not call.");
    }
    const bool reads = method == MHD_HTTP_METHOD_GET || method == MHD_HTTP_METHOD_HEAD;
    if (path == health_path || path == metrics_path) {
        if (!reads) return refusal(MHD_HTTP_METHOD_NOT_ALLOWED, "This is read by GET.");
        return path == metrics_path ? identify(connection, user) : std::nullopt;
    }
    if (path != calls_path) {
        return refusal(MHD_HTTP_NOT_FOUND, "There is nothing here; calls go to " + std::string(calls_path) + ".");
    }
    // A browser asks before it sends a call, and without the user.
    if (method == MHD_HTTP_METHOD_OPTIONS && origin) return Reply{MHD_HTTP_NO_CONTENT, ""};
    if (method != MHD_HTTP_METHOD_POST) return refusal(MHD_HTTP_METHOD_NOT_ALLOWED, "Calls are sent by POST.");
    if (auto refused = identify(connection, user)) return refused;
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
