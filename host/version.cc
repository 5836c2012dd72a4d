// A file of its own: it is compiled anew for each commit.
#include "version.h"

#include "lmq_version.h"

namespace lmq::host {

const char *const version = LMQ_VERSION;

}  // namespace lmq::host
