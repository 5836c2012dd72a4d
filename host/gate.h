// The gate: judges the head of a request before anything of its body is taken. Who may come in, with what, and from
// which web pages.
#ifndef LMQ_HOST_GATE_H
#define LMQ_HOST_GATE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "users.h"

struct MHD_Connection;

namespace lmq::host {

struct Reply {
    unsigned status;
    std::string body;
    std::string type = "text/plain; charset=utf-8";
};

/** A refusal: a status of HTTP and a line of text. */
Reply refusal(unsigned status, const std::string &why);

Reply too_long(std::size_t limit);

/** The length that a request announces; 0 if it announces none. */
std::uint64_t announced_length(MHD_Connection *connection);

/** The paths that are served. */
inline constexpr std::string_view calls_path = "/RPC2";
inline constexpr std::string_view health_path = "/healthz";
inline constexpr std::string_view metrics_path = "/metrics";

class Gate {
  public:
    struct Options {
        std::size_t body_limit = 0;
        /** Names, besides numeric addresses, localhost and the machine's own, that a Host header may hold. */
        std::vector<std::string> names;
        /** Whether to look at the Host header at all: no web page reaches a Unix socket. */
        bool check_host = true;
        /** The one foreign origin whose pages may call; empty for none. */
        std::string origin;
        bool client_certificates = false;
    };

    /** @param users Null if nobody has to log in. */
    Gate(Options options, std::unique_ptr<Users> users);

    /**
     * Judges a head. The order counts: the first fault is the one that is told.
     * @param user Who the client is, once known. Kept between the requests of a connection, as a certificate is.
     * @return Why the request is refused, or none.
     */
    std::optional<Reply> judge(MHD_Connection *connection, std::string_view path, std::string_view method,
                               std::string &user) const;

    /** The origin to allow in every answer; empty for none. */
    const std::string &origin() const { return options_.origin; }

  private:
    bool is_own_name(std::string_view host) const;
    std::optional<Reply> identify(MHD_Connection *connection, std::string &user) const;

    Options options_;
    std::unique_ptr<Users> users_;
};

}  // namespace lmq::host

#endif
