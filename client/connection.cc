// Deadlines, and the words for what goes wrong on the way to a host.
#include "connection.h"

#include <algorithm>

#include "error.h"

namespace lmqctl {

Clock::time_point Connection::deadline() const {
    if (timeout <= 0) return until;
    const auto patience = std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(timeout));
    return std::min(until, Clock::now() + patience);
}

std::string with_path(std::string url) {
    const std::size_t scheme = url.find("://");
    const bool bare = url.starts_with("http") && scheme != std::string::npos && scheme + 3 < url.size() &&
                      url.find('/', scheme + 3) == std::string::npos;
    if (bare) url += "/RPC2";
    return url;
}

void throw_stopped() { throw Error(exit_connection, "interrupted; the host goes on with the call"); }

void throw_timeout(const Connection &connection) {
    throw Error(exit_connection, connection.url + ": no answer in time; --timeout SECONDS waits longer");
}

void throw_cannot_connect(const Connection &connection, const std::string &why) {
    throw Error(exit_connection,
                connection.url + ": cannot connect (" + why + "). Is the host running? --url names another");
}

void throw_bad_url(const Connection &connection) {
    throw UsageError(connection.url +
                     ": no URL that can be used; expected http://HOST:PORT/RPC2, https://... or unix:PATH");
}

void throw_lost(const std::string &url, const std::string &why) {
    throw Error(exit_connection, url + ": the connection was lost before the answer was complete (" + why + ")");
}

}  // namespace lmqctl
