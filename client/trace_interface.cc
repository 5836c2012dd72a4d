// The places where an interface may be, in their order.
#include "trace_interface.h"

#include <cstdio>
#include <exception>

#include "cache.h"
#include "description.h"
#include "error.h"
#include "file.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

std::unique_ptr<TraceInterface> of_file(const std::string &file) {
    try {
        std::string text = read_text(file);
        if (text.starts_with('{')) text = dictionary_of_description(text);
        return std::make_unique<TraceInterface>(std::move(text));
    } catch (const Error &) {
        throw;
    } catch (const std::exception &) {
        throw UsageError("--interface: " + file + " is neither an interface.json nor a dictionary of lmqctl's cache");
    }
}

std::unique_ptr<TraceInterface> of_host(Context &context) {
    try {
        return std::make_unique<TraceInterface>(context.dictionary().text());
    } catch (const Error &error) {
        complain(std::string("numbers have no names: this interface is not in the cache, and ") + error.what());
        return nullptr;
    }
}

}  // namespace

std::unique_ptr<TraceInterface> find_interface(Context &context, const std::string &fingerprint,
                                               const std::string &file) {
    std::unique_ptr<TraceInterface> found;
    if (file.empty()) {
        try {
            if (auto text = load_cached_interface(fingerprint))
                return std::make_unique<TraceInterface>(std::move(*text));
        } catch (const std::exception &) {
            context.note("the cached dictionary is damaged");
        }
        found = of_host(context);
    } else {
        found = of_file(file);
    }
    if (found && found->dictionary.fingerprint() != fingerprint)
        complain("the trace is of another interface than " + (file.empty() ? context.connection.url : file) +
                 ": names may be wrong");
    return found;
}

}  // namespace lmqctl
