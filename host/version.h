// What this program was built from.
#pragma once

namespace lmq::host {

/// "1.0.0 (commit 0123456789ab, interface 0123456789abcdef)"; without the commit if it was not built from a repository,
/// and with a + behind it if files were changed since.
extern const char *const version;

}  // namespace lmq::host
