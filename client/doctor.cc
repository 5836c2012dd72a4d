// lmqctl doctor: what is wrong between here and the chip, one thing after the other, with what to do about it.
#include <algorithm>

#include "answer.h"
#include "command.h"
#include "error.h"
#include "safe_text.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

struct Diagnosis {
    const char *what;
    enum { good, warning, bad } verdict;
    std::string told;
    std::string advice = {};
};

class Doctor {
  public:
    explicit Doctor(Context &context) : context_(context) {}

    void examine() {
        if (!reach()) return;
        worker();
        if (!login()) return;
        lease();
        if (interface()) life_cycle();
    }

    const std::vector<Diagnosis> &findings() const { return findings_; }
    int exit_status() const { return exit_status_; }

  private:
    void say(Diagnosis finding, int status) {
        if (finding.verdict == Diagnosis::bad) exit_status_ = std::max(exit_status_, status);
        findings_.push_back(std::move(finding));
    }

    HttpAnswer get(const char *name) { return context_.session().get(name, ""); }

    // Name, port and TLS: whether anything answers. The errors on the way say what helps.
    bool reach() {
        const std::string &url = context_.connection.url;
        try {
            health_ = get("healthz");
        } catch (const UsageError &) {
            throw;
        } catch (const Error &error) {
            std::string why = error.what();
            if (why.starts_with(url + ": ")) why.erase(0, url.size() + 2);
            say({"connection", Diagnosis::bad, url + ": " + why}, exit_connection);
            return false;
        }
        const bool is_tls = url.starts_with("https:");
        say({"connection", Diagnosis::good,
             url + (is_tls ? ", with a certificate that is trusted" : ", answers without TLS")},
            exit_ok);
        return true;
    }

    void worker() {
        const std::string line = harmless(health_.body.substr(0, health_.body.find_first_of("\r\n")));
        if (health_.status == 200 && line.starts_with("ok"))
            return say({"worker", Diagnosis::good, line == "ok" ? "the driver's process is up" : line}, exit_ok);
        if (health_.status == 404)
            return say({"worker", Diagnosis::warning, "the host does not say how it is (no /healthz)",
                        "Another server than this host answers at this URL, or one beside it in a proxy."},
                       exit_ok);
        say({"worker", Diagnosis::bad, "status " + std::to_string(health_.status) + ": " + line,
             "The driver's process is not up. The host's standard error says why; it starts it again by itself."},
            exit_fault);
    }

    bool login() {
        const std::string &user = context_.connection.user;
        try {
            const Json methods = context_.session().call("system.listMethods");
            say({"login", Diagnosis::good,
                 (user.empty() ? "calls are taken without a user" : "calls are taken from " + user)},
                exit_ok);
            return true;
        } catch (const Fault &fault) {
            say({"login", Diagnosis::bad, "fault " + std::to_string(fault.code) + ": " + fault.what(),
                 "The host filters its methods (--allow, --deny); without the list lmqctl knows none."},
                exit_fault);
        } catch (const Error &error) {
            say({"login", Diagnosis::bad, error.what()}, error.status);
        }
        return false;
    }

    void lease() {
        const HttpAnswer answer = get("lease");
        const Json told = Json::parse(answer.body, nullptr, false);
        if (answer.status != 200 || !told.is_object())
            return say({"lease", Diagnosis::warning, "the host knows no lease: anybody may change something meanwhile"},
                       exit_ok);
        if (told.value("held", Json()) != true) return say({"lease", Diagnosis::good, "nobody holds it"}, exit_ok);
        say({"lease", Diagnosis::warning,
             told.value("name", Json("somebody")).dump() + " holds it until " + told.value("until", Json("?")).dump(),
             "Calls that change something are refused to all others: wait, or ask for lmqctl unlock."},
            exit_ok);
    }

    bool interface() {
        const Dictionary &dictionary = context_.dictionary();
        const std::string count = std::to_string(dictionary.names(Dictionary::methods).size()) + " methods";
        if (!dictionary.has_contract()) {
            say({"interface", Diagnosis::warning, count + ", but no description of what they read and write",
                 "interface.json is not beside the host; --interface FILE names it. Lengths are asked for by --count."},
                exit_ok);
            return true;
        }
        const Json told = Json::parse(get("interface").body, nullptr, false);
        const Json fingerprint = told.is_object() ? told.value("fingerprint", Json()) : Json();
        say({"interface", Diagnosis::good,
             count + (fingerprint.is_string() ? ", fingerprint " + fingerprint.get<std::string>() : "")},
            exit_ok);
        return true;
    }

    // A method that only reads, of a device and nothing else: what it answers is how far the chip is.
    std::optional<Method> question() {
        const Dictionary &dictionary = context_.dictionary();
        for (const std::string &name : dictionary.names(Dictionary::methods)) {
            const std::optional<Method> method = dictionary.method(name);
            if (method && method->contract && method->contract->effect == "reads" && method->parameters.size() == 2 &&
                !method->parameters[0].is_pointer() && method->parameters[1].is_udt &&
                method->parameters[1].said.direction == Direction::out)
                return method;
        }
        return {};
    }

    void life_cycle() {
        const std::optional<Method> method = question();
        if (!method) return;
        const Dictionary &dictionary = context_.dictionary();
        try {
            const Json answer =
                context_.session().call(dictionary.full_name(method->name), Json::array({0, Json::object()}));
            if (is_success(dictionary, *method, result_of(answer)))
                return say({"chip", Diagnosis::good, "device 0 answers (" + method->name + ")"}, exit_ok);
            const std::string status = Output(dictionary, context_.types(), {}).status(*method, result_of(answer));
            say({"chip", Diagnosis::bad, "device 0 answers " + method->name + " with " + status,
                 "Initialise it first: lmqctl list '*init*' shows how."},
                exit_driver);
        } catch (const Error &error) {
            say({"chip", Diagnosis::bad, method->name + ": " + error.what()}, error.status);
        }
    }

    Context &context_;
    HttpAnswer health_;
    std::vector<Diagnosis> findings_;
    int exit_status_ = exit_ok;
};

const char *const verdicts[] = {"ok", "note", "WRONG"};
const char *const colors[] = {"32", "33", "31"};

void doctor(Context &context) {
    Doctor doctor(context);
    doctor.examine();
    context.exit_status = doctor.exit_status();
    if (context.json) {
        Json json = Json::array();
        for (const Diagnosis &finding : doctor.findings())
            json.push_back({{"what", finding.what},
                            {"verdict", finding.verdict == Diagnosis::bad ? "wrong" : verdicts[finding.verdict]},
                            {"told", finding.told},
                            {"advice", finding.advice}});
        return print(json_text(json, 2) + "\n");
    }
    const Style style = context.style();
    std::string text;
    for (const Diagnosis &finding : doctor.findings()) {
        const std::string verdict = verdicts[finding.verdict], what = finding.what;
        text += style.color ? std::string("\033[") + colors[finding.verdict] + "m" + verdict + "\033[0m" : verdict;
        text.append(7 - verdict.size(), ' ').append(what).append(12 - what.size(), ' ').append(finding.told);
        if (!finding.advice.empty()) text.append("\n").append(19, ' ').append(finding.advice);
        text += "\n";
    }
    print(text);
}

}  // namespace

void set_up_doctor(CLI::App &command, Context &context) {
    command.callback([&context] { doctor(context); });
}

}  // namespace lmqctl
