// One call to a host and what became of it, the host's own end included.
#pragma once

#include <cstdint>
#include <string>

#include "session.h"

namespace lmqctl {

struct Outcome {
    enum Kind {
        answered,  ///< `answer` is [result, argument...]
        fault,     ///< the host or the plug-in refused it
        died,      ///< the driver's process ended over it
        hung,      ///< there was no answer in time
    };
    Kind kind = answered;
    Json answer = nullptr;
    int code = 0;               ///< of a fault
    std::string text = {};      ///< of a fault or an end
    std::string document = {};  ///< that the host answered with; empty if there was none
};

struct PlayedCall {
    Call call;
    Outcome outcome;
    int64_t time = 0;  ///< when it began, in microseconds since 1970; 0 if nobody knows
};

/// Makes a call. `connection` is that of the session: its timeout is when a call hangs. Throws an Error if Ctrl-C came.
Outcome play(Session &session, const Connection &connection, const Call &call);

}  // namespace lmqctl
