// Fresh hosts, and how much memory a call loses in one.
#include "fresh_hosts.h"

#include "error.h"
#include "fetch.h"
#include "interrupt.h"

namespace lmqctl {

namespace {

// The handler frame loses a list of ten pointers with each call.
constexpr std::size_t lost_by_design = 102;
constexpr std::size_t burst = 32, warm_up = probe_calls - 2 * burst;  // calls
// Memory is counted in pages, and an allocator takes some ahead.
constexpr std::size_t noise = 12 << 10;

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

std::size_t growth(const FreshHost &host, const Call &call) {
    const auto make = [&](std::size_t times) {
        for (std::size_t i = 0; i < times; ++i)
            if (const Outcome::Kind kind = host.play(call).kind; kind == Outcome::died || kind == Outcome::hung)
                return false;
        return true;
    };
    std::size_t least = SIZE_MAX;
    if (!make(warm_up)) return 0;
    std::optional<std::size_t> before = host.host->worker_memory();
    // Twice, for what grows once may be a table.
    for (int i = 0; i < 2; ++i) {
        if (!make(burst)) return 0;
        const std::optional<std::size_t> after = host.host->worker_memory();
        if (!before || !after || *after <= *before) return 0;
        least = std::min(least, *after - *before);
        before = after;
    }
    return least > burst * lost_by_design + noise ? least / burst - lost_by_design : 0;
}

}  // namespace lmqctl
