// The options of lmq-host: the command line and a file, read into one structure.
#ifndef LMQ_HOST_OPTIONS_H
#define LMQ_HOST_OPTIONS_H

#include <optional>
#include <string>
#include <vector>

#include "filter.h"
#include "gate.h"
#include "monitor.h"
#include "prepass.h"
#include "server.h"
#include "worker.h"

namespace lmq::host {

struct Options {
    std::string plugin;
    std::string driver;
    std::string listen = "127.0.0.1:8080";
    /** A Unix socket instead of an address. */
    std::string socket;
    bool insecure = false;
    std::string auth;
    std::string tls_certificate;
    std::string tls_key;
    std::string tls_client_authority;
    Gate::Options gate;
    std::vector<MethodRule> rules;
    bool read_only = false;
    PrepassLimits limits;
    Server::Options server;
    Worker::Options worker;
    bool in_process = false;
    std::string access_log;
    Monitor::Format log_format = Monitor::Format::text;
    bool check = false;
    /** Print the line of a user and leave. */
    std::string make_user;
};

/**
 * Reads the options. --help and --version print what they are asked for; a mistake is told on standard error.
 * @return None if there is nothing left to do.
 * @param status What the program leaves with then.
 */
std::optional<Options> read_options(int argc, char **argv, int &status);

}  // namespace lmq::host

#endif
