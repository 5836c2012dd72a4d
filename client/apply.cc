// lmqctl apply: from the settings that a chip has to those of a file.
#include <algorithm>

#include "answer.h"
#include "arguments.h"
#include "command.h"
#include "differences.h"
#include "error.h"
#include "progress.h"
#include "standard_output.h"
#include "state.h"

namespace lmqctl {

namespace {

struct ApplyOptions {
    std::string file;
    bool dry_run = false;
};

// What a call has to send: of structs with flags the members that differ, of others all.
Json to_be_sent(const Type &type, const Json &wanted, const Json &now) {
    const bool has_flags = std::any_of(type.members.begin(), type.members.end(),
                                       [&](const Member &member) { return is_valid_mask(type, member); });
    if (!wanted.is_object() || !now.is_object()) return wanted;
    Json sent = has_flags ? Json::object() : now;
    for (const auto &[name, value] : wanted.items())
        if (!has_flags || !now.contains(name) || now[name] != value) sent[name] = value;
    return sent;
}

// A setting on its way.
struct SettingStep {
    State::value_type setting;  // what is sent
    Method method;
    Call call;
    std::string refusal;
};

SettingStep step_of(Context &context, const State::value_type &wanted, const Json &now) {
    const Dictionary &dictionary = context.dictionary();
    const auto &[key, values] = wanted;
    SettingStep step{wanted, dictionary.method_or_throw(key.first), {}, {}};
    std::vector<std::string> words;
    for (std::size_t i = 0; i < step.method.parameters.size(); ++i) {
        const Parameter &parameter = step.method.parameters[i];
        if (i < key.second.size()) {
            words.push_back(parameter.name + "=" + std::to_string(key.second[i]));
            continue;
        }
        Json &value = step.setting.second[parameter.name];
        value = to_be_sent(*context.types().parameter(parameter), value, now.value(parameter.name, Json()));
        words.push_back(parameter.name + "=" + (value.is_string() ? value.get<std::string>() : json_text(value)));
    }
    ArgumentOptions options;
    options.force = true;
    step.call = {dictionary.full_name(key.first),
                 build_arguments(dictionary, context.types(), step.method, words, options)};
    return step;
}

std::vector<SettingStep> steps_between(Context &context, const State &wanted, const State &now) {
    std::vector<SettingStep> steps;
    for (const State::value_type &setting : wanted) {
        const auto found = now.find(setting.first);
        if (found != now.end() && members_in(found->second, setting.second) == setting.second) continue;
        steps.push_back(step_of(context, setting, found == now.end() ? Json::object() : found->second));
    }
    return steps;
}

// Makes the calls. One that is refused may work when others have been made: it is tried again as long as any works.
// Returns those that never did.
std::vector<SettingStep> make(Context &context, std::vector<SettingStep> steps) {
    Progress progress("settings", steps.size());
    const std::size_t all = steps.size();
    for (std::size_t before = all + 1; !steps.empty() && steps.size() < before;) {
        before = steps.size();
        std::vector<Call> calls;
        for (const SettingStep &step : steps) calls.push_back(step.call);
        const std::vector<Json> answers = context.session().multicall(calls);
        std::vector<SettingStep> refused;
        for (std::size_t i = 0; i < steps.size(); ++i) {
            const Method &method = steps[i].method;
            if (!is_fault(answers[i]) && is_success(context.dictionary(), method, result_of(answers[i]))) continue;
            steps[i].refusal = is_fault(answers[i]) ? answers[i]["faultString"].get<std::string>()
                                                    : context.output().status(method, result_of(answers[i]));
            refused.push_back(std::move(steps[i]));
        }
        steps = std::move(refused);
        progress.reached(all - steps.size());
    }
    return steps;
}

void apply(Context &context, const ApplyOptions &options) {
    const State wanted = state_of_file(context, options.file);
    const State now = state_of_chip(context, {});
    std::vector<SettingStep> steps = steps_between(context, wanted, now);
    print(differences_text(differences(state_answers(restricted(now, wanted)), state_answers(wanted)), "the chip",
                           options.file));
    if (options.dry_run) {
        for (const SettingStep &step : steps) print(setting_line(context, step.setting) + "\n");
        return print(std::to_string(steps.size()) + " to set; nothing was sent\n");
    }
    const std::size_t all = steps.size();
    const std::vector<SettingStep> refused = make(context, std::move(steps));
    for (const SettingStep &step : refused)
        print("cannot be set: " + setting_line(context, step.setting) + "  " + step.refusal + "\n");
    // A driver may take a call and keep what it had.
    const State then = restricted(state_of_chip(context, {}), wanted);
    std::size_t left = 0;
    for (const State::value_type &setting : wanted) {
        const auto is_it = [&](const SettingStep &step) { return step.setting.first == setting.first; };
        const auto found = then.find(setting.first);
        if (std::any_of(refused.begin(), refused.end(), is_it) ||
            (found != then.end() && found->second == setting.second))
            continue;
        ++left;
        print("taken, but not kept: " + setting_line(context, setting) + "\n");
    }
    print(std::to_string(all - refused.size() - left) + " set, " + std::to_string(refused.size() + left) + " not\n");
    if (!refused.empty() || left) context.exit_status = exit_driver;
}

}  // namespace

void set_up_apply(CLI::App &command, Context &context) {
    const auto options = std::make_shared<ApplyOptions>();
    command.add_option("FILE", options->file, "Settings, as save writes them; - for standard input")->required();
    command.add_flag("--dry-run", options->dry_run, "Show what differs and the calls, and send nothing");
    command.callback([&context, options] { apply(context, *options); });
}

}  // namespace lmqctl
