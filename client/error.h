// The exit statuses, and the one exception of the client: a text for the user with the status that the program ends
// with.
#pragma once

#include <stdexcept>
#include <string>

namespace lmqctl {

enum Exit {
    exit_ok = 0,
    exit_driver = 1,  ///< the driver answered with a failure
    exit_fault = 2,   ///< the host answered with a fault
    exit_connection = 3,
    exit_usage = 64,
    exit_output = 74,  ///< what was to be written could not be
};

struct Error : std::runtime_error {
    Error(int exit_status, const std::string &text) : std::runtime_error(text), status(exit_status) {}
    int status;
};

/// Something the user typed cannot be.
struct UsageError : Error {
    explicit UsageError(const std::string &text) : Error(exit_usage, text) {}
};

/// A fault of the host or of the plug-in behind it. The text is the fault's own.
struct Fault : Error {
    Fault(int fault_code, const std::string &text) : Error(exit_fault, text), code(fault_code) {}
    int code;
};

}  // namespace lmqctl
