// The tokens of leases that this user holds, kept from one command to the next: a file for each host, which nobody else
// may read.
#pragma once

#include <string>

namespace lmqctl {

/// The token for a host; empty if there is none.
std::string kept_lease(const std::string &url);

/// Keeps a token; an empty one forgets what is kept. Throws an Error that names the file and says why it cannot be
/// written.
void keep_lease(const std::string &url, const std::string &token);

}  // namespace lmqctl
