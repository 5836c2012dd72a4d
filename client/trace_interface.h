// The interface that a trace was made with: it has a fingerprint of it and no more.
#pragma once

#include <memory>
#include <string>

#include "context.h"

namespace lmqctl {

struct TraceInterface {
    explicit TraceInterface(std::string text) : dictionary(std::move(text)), types(dictionary) {}
    Dictionary dictionary;
    Types types;
};

/// Looks for an interface: in the file that is named, else in the cache, else at the host.
/// @param fingerprint As the trace has it.
/// @param file        An interface.json, or a dictionary as the cache holds it; empty for none. One of another
/// interface is taken, and
///                    standard error told.
/// @return nullptr if there is none; standard error has been told why. Throws a UsageError for a file that cannot be
///         read or is none.
std::unique_ptr<TraceInterface> find_interface(Context &context, const std::string &fingerprint,
                                               const std::string &file);

}  // namespace lmqctl
