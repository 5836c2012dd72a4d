// The options of lmq-host: the command line and a file, read into one structure.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "filter.h"
#include "gate.h"
#include "monitor.h"
#include "prepass.h"
#include "recorder.h"
#include "server.h"
#include "worker.h"

namespace lmq::host {

struct Options {
    std::string plugin;
    std::string driver;
    std::string listen = "127.0.0.1:8080";
    /// A Unix socket instead of an address.
    std::string socket;
    bool insecure = false;
    std::string auth;
    std::string tls_certificate;
    std::string tls_key;
    std::string tls_client_authority;
    Gate::Options gate;
    /// What anybody may call.
    Role role;
    /// Whether to refuse arrays that are shorter than the driver takes them for.
    bool guard = true;
    /// The description of the interface, to be served; looked for beside the program or in share/lmq if empty.
    std::string interface;
    /// Whether to serve the console, if there is one.
    bool console = true;
    PrepassLimits limits;
    Server::Options server;
    Worker::Options worker;
    bool in_process = false;
    std::string access_log;
    Monitor::Format log_format = Monitor::Format::text;
    Recorder::Options recorder;
    bool check = false;
    /// Print the line of a user and leave.
    std::string make_user;
};

/// Reads the options. --help and --version print what they are asked for; a mistake is told on standard error.
/// @return None if there is nothing left to do.
/// @param status What the program leaves with then.
std::optional<Options> read_options(int argc, char **argv, int &status);

}  // namespace lmq::host
