// lmqctl lock, unlock, who: the host's lease, which keeps others from changing something for a time.
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <map>

#include "command.h"
#include "error.h"
#include "lease_file.h"
#include "names.h"
#include "safe_text.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

constexpr double longest = 24 * 60 * 60;  // seconds

struct LockOptions {
    double seconds = 20 * 60;
    std::string name;
};

// Who asks: the user of the host, else the one of this machine.
std::string own_name(const Context &context) {
    if (!context.connection.user.empty()) return context.connection.user;
    const passwd *user = getpwuid(geteuid());
    char host[100] = "";
    gethostname(host, sizeof host - 1);
    return std::string(user ? user->pw_name : std::to_string(geteuid())) + "@" + host;
}

Json lease(Context &context, const char *method, const std::string &body = "") {
    const HttpAnswer answer = context.session().document({method, "lease", body, ""});
    if (answer.status == 404) throw Error(exit_fault, context.connection.url + ": this host knows no lease");
    if (answer.status != 200) context.session().refuse(answer);
    const Json told = Json::parse(answer.body, nullptr, false);
    const bool is_held = told.is_object() && told.value("held", Json()) == true;
    const bool is_whole =
        told.is_object() && told.contains("held") &&
        (!is_held || (told.value("name", Json()).is_string() && told.value("until", Json()).is_string() &&
                      told.value("seconds", Json()).is_number_integer()));
    if (!is_whole) throw Error(exit_connection, context.connection.url + ": /lease answered no lease");
    return told;
}

// "1 h 5 min", "20 min", "40 s".
std::string duration(int64_t seconds) {
    if (seconds < 60) return std::to_string(seconds) + " s";
    const int64_t minutes = (seconds + 30) / 60;
    const std::string rest = std::to_string(minutes % 60) + " min";
    if (minutes < 60) return rest;
    return std::to_string(minutes / 60) + " h" + (minutes % 60 ? " " + rest : "");
}

std::string end_of(const Json &told) {
    return "until " + told["until"].get<std::string>() + ", for " + duration(told["seconds"]);
}

void lock(Context &context, const LockOptions &options) {
    if (options.seconds < 1 || options.seconds > longest)
        throw UsageError("--for: a lease lasts from 1 second to 24 hours");
    const Json wish{{"name", options.name.empty() ? own_name(context) : options.name},
                    {"seconds", static_cast<int64_t>(options.seconds)}};
    const Json told = lease(context, "POST", wish.dump());
    if (!told.value("token", Json()).is_string())
        throw Error(exit_connection, context.connection.url + ": /lease answered no token");
    const std::string token = told["token"];
    keep_lease(context.connection.url, token);
    context.session().show_lease(token);
    print(context.json ? json_text(told, 2) + "\n"
                       : "You hold the lease " + end_of(told) + ". lmqctl unlock gives it back.\n");
}

void unlock(Context &context) {
    const bool was_held = lease(context, "GET")["held"];
    const Json told = lease(context, "DELETE");
    keep_lease(context.connection.url, "");
    context.session().show_lease("");
    print(context.json ? json_text(told, 2) + "\n"
          : was_held   ? "The lease is given back.\n"
                       : "Nobody held the lease.\n");
}

void who(Context &context) {
    const Json told = lease(context, "GET");
    if (context.json) return print(json_text(told, 2) + "\n");
    print(told["held"] ? told["name"].get<std::string>() + " holds the lease " + end_of(told) + ".\n"
                       : "Nobody holds the lease.\n");
}

}  // namespace

void set_up_lock(CLI::App &command, Context &context) {
    const auto options = std::make_shared<LockOptions>();
    const std::map<std::string, double> units{{"s", 1}, {"m", 60}, {"min", 60}, {"h", 3600}};
    command.add_option("--for", options->seconds, "For how long: 90 or 90s, 20m, 2h; 24h at the most")
        ->transform(CLI::AsNumberWithUnit(units))
        ->default_str("20m")
        ->type_name("TIME");
    command.add_option("--name", options->name, "Who holds it, for others to read; the user's name without it")
        ->type_name("NAME");
    command.callback([&context, options] { lock(context, *options); });
}

void set_up_unlock(CLI::App &command, Context &context) {
    command.callback([&context] { unlock(context); });
}

void set_up_who(CLI::App &command, Context &context) {
    command.callback([&context] { who(context); });
}

}  // namespace lmqctl
