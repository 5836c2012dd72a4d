// The way of documents to a host and back, and what an HTTP status means to the user.
#pragma once

#include <memory>
#include <string>

#include "http.h"

namespace lmqctl {

/// One connection, kept open from call to call.
class Transport {
  public:
    /// Throws a UsageError for a URL that is none.
    explicit Transport(const Connection &connection);

    /// Sends a document, returns the answer's. Throws an Error that says why there is none.
    std::string exchange(const std::string &request);

    /// The HTTP status of the last answer that `exchange` had.
    int last_status() const { return last_status_; }

    /// A document that the host serves beside its calls, as Http::get.
    HttpAnswer get(const std::string &name, const std::string &tag) { return http_->get(name, tag); }

  private:
    const Connection connection_;
    const std::unique_ptr<Http> http_;
    int last_status_ = 0;
};

}  // namespace lmqctl
