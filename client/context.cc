// Session and dictionary on demand.
#include "context.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <optional>

#include "cache.h"
#include "error.h"
#include "fetch.h"
#include "lease_file.h"
#include "password.h"
#include "standard_output.h"

namespace lmqctl {

Session &Context::session() {
    if (!session_) {
        if (!connection.user.empty() && connection.password.empty()) connection.password = password_of(connection);
        session_ = std::make_unique<Session>(connection);
        session_->show_lease(kept_lease(connection.url));
    }
    return *session_;
}

template <class Check>
const Dictionary &Context::checked(Check is_current) {
    if (dictionary_) return *dictionary_;
    if (!refresh) {
        if (std::optional<std::string> text = load_cached(connection.url)) {
            try {
                auto cached = std::make_unique<Dictionary>(std::move(*text));
                if (is_current(*cached)) {
                    dictionary_ = std::move(cached);
                    if (renew_contract()) keep_dictionary();
                    return *dictionary_;
                }
                note("the host's dictionary has changed");
            } catch (const Error &) {
                throw;
            } catch (const std::exception &) {
                note("the cached dictionary is damaged");
            }
        }
    }
    fetch(is_current);
    return *dictionary_;
}

template <class Check>
void Context::fetch(Check is_current) {
    if (!refresh && take_known(is_current)) return;
    // Whoever fetches for others has a host that answers.
    const Json names = session().call("system.listMethods");
    std::optional<FetchTurn> turn;
    if (!refresh) turn.emplace(connection);
    if (turn && turn->has_waited() && take_known(is_current)) return;
    note("fetching the dictionary");
    dictionary_ = std::make_unique<Dictionary>(fetch_dictionary(session(), names));
    renew_contract();
    keep_dictionary();
}

// Many boards serve the same interface: what another host has said will do for one that has the same contract.
template <class Check>
bool Context::take_known(Check is_current) {
    std::map<std::string, std::string> known = load_cached_by_tag();
    std::string tags;
    for (const auto &[tag, text] : known) tags += (tags.empty() ? "" : ", ") + tag;
    if (known.empty()) return false;
    const HttpAnswer answer = session().get("interface", tags);
    const auto found = answer.status == 304 ? known.find(answer.tag) : known.end();
    if (found == known.end()) return false;
    try {
        dictionary_ = std::make_unique<Dictionary>(std::move(found->second));
    } catch (const std::exception &) {
        note("a cached dictionary is damaged");
        return false;
    }
    if (is_current(*dictionary_)) {
        note("the host has the interface of a dictionary that is known");
        keep_dictionary();
        return true;
    }
    dictionary_.reset();
    return false;
}

bool Context::renew_contract() {
    std::optional<std::string> text = changed_contract(session(), *dictionary_, complain);
    if (!text) return false;
    dictionary_ = std::make_unique<Dictionary>(std::move(*text));
    return true;
}

void Context::keep_dictionary() const {
    if (const std::string why = store_cached(connection.url, dictionary_->text()); !why.empty())
        note("the dictionary is not kept: " + why);
}

const Dictionary &Context::dictionary_for(const std::string &method) {
    return checked([&](const Dictionary &cached) { return is_current(session(), cached, method); });
}

const Dictionary &Context::dictionary() {
    return checked([&](const Dictionary &cached) { return is_current(session(), cached); });
}

const Dictionary *Context::dictionary_at_hand() {
    if (dictionary_) return dictionary_.get();
    if (at_hand_) return at_hand_.get();
    try {
        if (std::optional<std::string> text = load_cached(connection.url)) {
            at_hand_ = std::make_unique<Dictionary>(std::move(*text));
            return at_hand_.get();
        }
    } catch (const std::exception &) {
        note("the cached dictionary is damaged");
    }
    try {
        Connection impatient = connection;
        // Whoever pressed Tab does not wait for a host that takes its time over all of its dictionary.
        impatient.until = Clock::now() + std::chrono::seconds(3);
        const char *password = std::getenv("LMQ_PASSWORD");
        if (!connection.user.empty() && connection.password.empty()) impatient.password = password ? password : "";
        Session session(impatient);
        at_hand_ = std::make_unique<Dictionary>(fetch_dictionary(session));
        if (auto text = changed_contract(session, *at_hand_, [](const std::string &) {}))
            at_hand_ = std::make_unique<Dictionary>(std::move(*text));
        store_cached(connection.url, at_hand_->text());
    } catch (const std::exception &error) {
        note(error.what());
    }
    return at_hand_.get();
}

void Context::forget_dictionary() {
    types_.reset();
    dictionary_.reset();
    at_hand_.reset();
}

Types &Context::types() {
    if (!types_) types_ = std::make_unique<Types>(dictionary());
    return *types_;
}

Style Context::style(bool full) const {
    const char *refused = std::getenv("NO_COLOR");
    return {full, !no_color && !json && !(refused && *refused) && isatty(STDOUT_FILENO) == 1};
}

Output Context::output(bool full) { return Output(dictionary(), types(), style(full)); }

void Context::note(const std::string &text) const {
    if (verbose) complain(text);
}

}  // namespace lmqctl
