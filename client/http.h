// Documents to a host and back. Two ways: http: and unix: on plain sockets, https: with libcurl. libcurl brings thirty
// libraries, which take the dynamic loader longer than a whole call takes; so it is loaded when a URL is https: and not
// before.
#pragma once

#include <memory>
#include <string>

#include "connection.h"
#include "http_answer.h"

namespace lmqctl {

struct HttpRequest {
    const char *method = "GET";
    std::string name;  ///< of a document that stands beside the one that calls go to; empty for that one
    std::string body;
    std::string tag;  ///< of the version that is known: status 304 says that it is the same
};

class Http {
  public:
    Http() = default;
    Http(const Http &) = delete;
    Http &operator=(const Http &) = delete;
    virtual ~Http() = default;

    /// Sends a request. The connection stays open for the next one. Nothing is ever sent twice: a call may have been
    /// carried out although its answer was lost. Throws an Error if there is no answer.
    virtual HttpAnswer send(const HttpRequest &request) = 0;

    /// The token that requests show from now on; empty for none.
    void show_lease(const std::string &token) { lease_ = token; }

  protected:
    std::string lease_;
};

/// Throws a UsageError for a URL that is none.
std::unique_ptr<Http> make_http(const Connection &connection);
std::unique_ptr<Http> make_https(const Connection &connection);

}  // namespace lmqctl
