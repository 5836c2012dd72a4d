// What became of a call: answered, refused, died, hung.
#include "player.h"

#include "error.h"

namespace lmqctl {

Outcome play(Session &session, const Connection &connection, const Call &call) {
    const Clock::time_point begin = Clock::now();
    try {
        Outcome outcome{Outcome::answered, session.call(call.method, call.parameters)};
        outcome.document = session.last_xml();
        return outcome;
    } catch (const Fault &fault) {
        const Outcome::Kind kind = session.lost_worker() ? Outcome::died : Outcome::fault;
        return {kind, nullptr, fault.code, fault.what(), session.last_xml()};
    } catch (const UsageError &) {
        throw;
    } catch (const Error &error) {
        if (connection.stop && *connection.stop) throw;
        const std::chrono::duration<double> took = Clock::now() - begin;
        const bool is_late = connection.timeout > 0 && took.count() >= connection.timeout;
        // A host that held the driver in its own process went with it.
        return {is_late ? Outcome::hung : Outcome::died, nullptr, 0, error.what()};
    }
}

}  // namespace lmqctl
