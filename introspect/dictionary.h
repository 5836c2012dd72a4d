// The typedef chain of the driver interface.
#pragma once

namespace lmq {

/// The type behind a name: follows the typedef chain until it ends. A name without a typedef is its own.
const char *behind_typedefs(const char *name);

}  // namespace lmq
