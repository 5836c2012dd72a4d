// Documents to a host and back. Two ways: http: and unix: on plain sockets, https: with libcurl. libcurl brings thirty
// libraries, which take the dynamic loader longer than a whole call takes; so it is loaded when a URL is https: and not
// before.
#pragma once

#include <memory>
#include <string>

#include "connection.h"
#include "http_answer.h"

namespace lmqctl {

class Http {
  public:
    Http() = default;
    Http(const Http &) = delete;
    Http &operator=(const Http &) = delete;
    virtual ~Http() = default;

    /// Posts a document. The connection stays open for the next one. Nothing is ever sent twice: a call may have been
    /// carried out although its answer was lost. Throws an Error if there is no answer.
    virtual HttpAnswer post(const std::string &document) = 0;

    /// Gets a document that stands beside the one that calls go to. With the tag of a version, status 304 says that it
    /// is the same.
    virtual HttpAnswer get(const std::string &name, const std::string &tag) = 0;
};

/// Throws a UsageError for a URL that is none.
std::unique_ptr<Http> make_http(const Connection &connection);
std::unique_ptr<Http> make_https(const Connection &connection);

}  // namespace lmqctl
