// The gate: judges the head of a request before anything of its body is taken. Who may come in, with what, and from
// which web pages.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "exchange.h"
#include "reply.h"
#include "users.h"

struct MHD_Connection;

namespace lmq::host {

/// A header of the request, if it is there.
std::optional<std::string_view> header(MHD_Connection *connection, const char *name);

/// The paths that are served.
inline constexpr std::string_view calls_path = "/RPC2";
inline constexpr std::string_view health_path = "/healthz";
inline constexpr std::string_view metrics_path = "/metrics";
inline constexpr std::string_view interface_path = "/interface";
inline constexpr std::string_view lease_path = "/lease";
/// The header with which the holder of the lease shows that it is the one.
inline constexpr const char lease_header[] = "Lmq-Lease";
/// What a call has printed: its number follows.
inline constexpr std::string_view output_path = "/output/";

/// The headers of a request that are looked at, gathered in one walk. They last as long as the request.
struct Headers {
    explicit Headers(MHD_Connection *connection);

    /// The first of each.
    std::optional<std::string_view> host, origin, lease, type, authorization, length, coding;
    /// How many there are of those that a proxy may read in another way.
    unsigned hosts = 0, lengths = 0, codings = 0;

    /// The length of the body; 0 if none is announced.
    std::uint64_t announced_length() const;

  private:
    void add(const char *key, std::string_view value);
};

class Gate {
  public:
    struct Options {
        std::size_t body_limit = 0;
        /// Names, besides numeric addresses, localhost and the machine's own, that a Host header may hold.
        std::vector<std::string> names;
        /// Whether to look at the Host header at all: no web page reaches a Unix socket.
        bool check_host = true;
        /// The one foreign origin whose pages may call; empty for none.
        std::string origin;
        bool client_certificates = false;
        /// Whether the host serves a page of its own, which then may call.
        bool own_page = false;
    };

    /// @param users Null if nobody has to log in.
    Gate(Options options, std::unique_ptr<Users> users);

    /// Takes other users from now on.
    void set_users(std::unique_ptr<Users> users) { users_ = std::move(users); }

    /// Judges a head. The order counts: the first fault is the one that the client sees.
    /// @param version Of HTTP.
    /// @param exchange Takes who the client is, once known. Its peer keeps the name in the certificate.
    /// @return Why the request is refused, or none.
    std::optional<Reply> judge(std::string_view path, std::string_view method, std::string_view version,
                               const Headers &headers, Exchange &exchange) const;

    /// The origin to allow in every answer; empty for none.
    const std::string &origin() const { return options_.origin; }

  private:
    bool is_own_name(std::string_view host) const;
    bool is_own_page(MHD_Connection *connection, std::string_view origin, std::string_view host) const;
    std::optional<Reply> judge_form(const Headers &headers, std::string_view version) const;
    std::optional<Reply> judge_lease(std::string_view method, const Headers &headers, Exchange &exchange) const;
    std::optional<Reply> judge_call(const Headers &headers) const;
    std::optional<Reply> identify(const Headers &headers, Exchange &exchange) const;

    Options options_;
    std::unique_ptr<Users> users_;
    /// The last Host header that was one of this host.
    mutable std::string own_;
};

}  // namespace lmq::host
