// Fresh hosts, and how much memory a call loses in one.
#include "fresh_hosts.h"

#include <algorithm>
#include <limits>

#include "error.h"
#include "fetch.h"
#include "interrupt.h"
#include "xml_value.h"

namespace lmqctl {

namespace {

// The handler frame loses a list of ten pointers with each call.
constexpr int64_t lost_by_design = 128;
constexpr int64_t least_growth = 64;                     // bytes a call
constexpr int64_t warm_up = 16, bursts = 4, burst = 24;  // calls

}  // namespace

FreshHosts::FreshHosts(std::vector<std::string> command, double hang) : command_(std::move(command)), hang_(hang) {
    const FreshHost first = next();
    dictionary_ = std::make_unique<Dictionary>(fetch_dictionary(*first.session));
    std::string why;
    const auto complain = [&](const std::string &text) { why = ": " + text; };
    if (std::optional<std::string> text = changed_contract(*first.session, *dictionary_, complain))
        dictionary_ = std::make_unique<Dictionary>(std::move(*text));
    if (!dictionary_->has_contract())
        throw Error(exit_connection, "the host that was started does not describe its interface" + why);
    types_ = std::make_unique<Types>(*dictionary_);
    checks_ = std::make_unique<Checks>(*dictionary_, *types_);
}

FreshHost FreshHosts::next() {
    FreshHost made;
    made.host = ahead_ ? std::move(ahead_) : std::make_unique<OwnHost>(command_);
    made.connection.url = made.host->url();
    made.connection.timeout = hang_;
    made.connection.stop = &interrupted;
    made.session = std::make_unique<Session>(made.connection);
    ahead_ = std::make_unique<OwnHost>(command_);
    return made;
}

bool is_growth(int64_t bytes) { return bytes >= lost_by_design + least_growth; }

Growth growth(const FreshHost &host, const Call &call) {
    Growth grown;
    const std::string request = request_xml(call.method, call.parameters);
    // Bytes on the heap after some calls; nothing if nobody can say.
    const auto heap_after = [&](int64_t calls) -> std::optional<int64_t> {
        std::optional<int64_t> heap;
        for (int64_t i = 0; i < calls; ++i, ++grown.calls) {
            if (!host.session->is_answered(request)) return {};
            heap = host.host->heap();
            if (!heap) return {};
        }
        return heap;
    };
    std::optional<int64_t> before = heap_after(warm_up);
    // A table grows once, a list until it is full: only what grows all the time is lost.
    int64_t least = std::numeric_limits<int64_t>::max();
    for (int64_t i = 0; i < bursts && before; ++i) {
        const std::optional<int64_t> after = heap_after(burst);
        if (!after) return grown;
        least = std::min(least, (*after - *before) / burst);
        if (!is_growth(least)) return grown;
        before = after;
    }
    if (before) grown.bytes = least - lost_by_design;
    return grown;
}

}  // namespace lmqctl
