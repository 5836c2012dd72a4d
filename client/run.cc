// lmqctl run: starts a program with the remote driver in the place of the local one.
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "command.h"
#include "error.h"

namespace lmqctl {

namespace {

// In a build folder beside this program, else where an installation has it.
std::string remote_driver() {
    const std::filesystem::path here = std::filesystem::canonical("/proc/self/exe").parent_path();
    for (const char *way : {"remote/liblmq.so", LMQCTL_LIBRARIES_FROM_PROGRAM "/remote/liblmq.so"}) {
        std::error_code ignored;
        const std::filesystem::path found = std::filesystem::weakly_canonical(here / way, ignored);
        if (!ignored && std::filesystem::exists(found, ignored)) return found;
    }
    throw UsageError("run: the remote driver is neither in " + (here / "remote").string() + " nor in " +
                     (here / LMQCTL_LIBRARIES_FROM_PROGRAM "/remote").lexically_normal().string());
}

void set(const char *name, const std::string &value) {
    if (!value.empty()) setenv(name, value.c_str(), 1);
}

void run(const Context &context, std::vector<std::string> words) {
    const Connection &connection = context.connection;
    set("LMQ_URL", connection.url);
    set("LMQ_USER", connection.user);
    set("LMQ_PASSWORD", connection.password);
    set("LMQ_CACERT", connection.cacert);
    set("LMQ_CERT", connection.cert);
    set("LMQ_KEY", connection.key);
    set("LMQ_TIMEOUT", std::to_string(connection.timeout));
    // Loaded first, it is the driver of that name for everything that the program loads, wherever that was to be found.
    const char *const before = std::getenv("LD_PRELOAD");
    set("LD_PRELOAD", remote_driver() + (before && *before ? std::string(":") + before : ""));
    std::vector<char *> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string &word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    throw UsageError("run: cannot start " + words[0] + ": " + std::strerror(errno));
}

}  // namespace

void set_up_run(CLI::App &command, Context &context) {
    const auto words = std::make_shared<std::vector<std::string>>();
    command.add_option("program", *words, "The program and its arguments, behind --")->required();
    command.callback([&context, words] { run(context, *words); });
}

}  // namespace lmqctl
