// lmqctl apply: from what a chip is to what a file says.
#include <algorithm>
#include <functional>

#include "answer.h"
#include "arguments.h"
#include "command.h"
#include "differences.h"
#include "error.h"
#include "progress.h"
#include "standard_output.h"
#include "state.h"
#include "symbol.h"

namespace lmqctl {

namespace {

constexpr int most_rounds_of_steps = 5;

struct ApplyOptions {
    std::string file;
    bool dry_run = false;
};

// A call on the way from one state to the other.
struct ApplyStep {
    std::string line;                 // as it is shown
    std::string method;               // empty if there is no such call
    Json arguments = Json::object();  // by name, with symbols
    std::string keeps = {};           // the symbol that its output gets
    std::string refusal = {};
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

// All that leads from one state to another, in the order in which it is made.
struct Plan {
    std::vector<ApplyStep> undone, made, changed;
    std::map<std::string, int64_t> ids;  // of the symbols that are known by now

    std::vector<ApplyStep> steps() const {
        std::vector<ApplyStep> all = undone;
        all.insert(all.end(), made.begin(), made.end());
        all.insert(all.end(), changed.begin(), changed.end());
        return all;
    }
};

class Planner {
  public:
    /// Of two states that are aligned.
    Planner(Context &context, const Makers &makers, const State &wanted, const State &now,
            std::map<std::size_t, std::size_t> same)
        : context_(context), makers_(makers), wanted_(wanted), now_(now), same_(std::move(same)) {}

    Plan plan() {
        find_undone();
        for (std::size_t i = 0; i < wanted_.things.size(); ++i) add_thing(i);
        for (const Settings::value_type &setting : wanted_.settings) add_setting(setting);
        return std::move(plan_);
    }

  private:
    // What the chip has too much; what was made last goes first.
    void find_undone() {
        std::set<std::size_t> kept;
        for (const auto &[ours, theirs] : same_) kept.insert(theirs);
        for (std::size_t i = now_.things.size(); i-- > 0;) {
            const Thing &thing = now_.things[i];
            if (!thing.name.empty()) plan_.ids[thing.name] = thing.id;
            if (kept.contains(i) || !wanted_.complete.contains(thing.maker)) continue;
            const std::optional<Way> &undo = makers_.find(thing.maker)->contract->undone_by;
            plan_.undone.push_back(
                undo
                    ? step(*undo, thing)
                    : ApplyStep{
                          "not " + call_line(thing.maker, thing.arguments), "", {}, "", "nothing undoes it by itself"});
        }
    }

    void add_thing(std::size_t place) {
        const Thing &thing = wanted_.things[place];
        const auto found = same_.find(place);
        if (found == same_.end())
            return plan_.made.push_back({thing_line(makers_, thing), thing.maker, thing.arguments, thing.name});
        if (now_.things[found->second].arguments == thing.arguments) return;
        Thing changing = thing;
        changing.name = now_.things[found->second].name;
        plan_.changed.push_back(step(*makers_.find(thing.maker)->contract->changed_by, changing));
    }

    // A call that undoes or changes.
    ApplyStep step(const Way &way, const Thing &thing) const {
        const Method method = context_.dictionary().method_or_throw(way.by);
        const Parameter *output = Makers::output_of(*makers_.find(thing.maker));
        Json arguments = Json::object();
        for (const Parameter &parameter : method.parameters) {
            if (!way.arguments.contains(parameter.name)) continue;
            const Json &source = way.arguments[parameter.name];
            if (!source.is_string())
                arguments[parameter.name] = source;
            else if (output && source == output->name)
                arguments[parameter.name] = symbol(thing.name);
            else
                arguments[parameter.name] = inside(thing.arguments, source);
        }
        for (const auto &[place, value] : way.arguments.items())
            if (const std::size_t dot = place.find('.'); dot != std::string::npos)
                arguments[place.substr(0, dot)][place.substr(dot + 1)] = value;
        return {call_line(way.by, arguments), way.by, arguments};
    }

    // What is left out of a struct is 0.
    static Json inside(const Json &arguments, const std::string &place) {
        const Json *value = &arguments;
        for (std::size_t begin = 0; begin <= place.size();) {
            const std::size_t end = std::min(place.find('.', begin), place.size());
            const std::string name = place.substr(begin, end - begin);
            if (!value->is_object() || !value->contains(name)) return Json::object();
            value = &(*value)[name];
            begin = end + 1;
        }
        return *value;
    }

    void add_setting(const Settings::value_type &wanted) {
        const auto found = now_.settings.find(wanted.first);
        if (found != now_.settings.end() && members_in(found->second, wanted.second) == wanted.second) return;
        const Method method = context_.dictionary().method_or_throw(wanted.first.first);
        Settings::value_type setting = wanted;
        const Json now = found == now_.settings.end() ? Json::object() : found->second;
        for (auto &[name, value] : setting.second.items()) {
            const auto parameter = std::find_if(method.parameters.begin(), method.parameters.end(),
                                                [&name = name](const Parameter &each) { return each.name == name; });
            value = to_be_sent(*context_.types().parameter(*parameter), value, now.value(name, Json()));
        }
        ApplyStep step{setting_line(context_, setting), method.name};
        for (std::size_t i = 0; i < setting.first.second.size(); ++i)
            step.arguments[method.parameters[i].name] = setting.first.second[i];
        step.arguments.update(setting.second);
        plan_.changed.push_back(std::move(step));
    }

    Context &context_;
    const Makers &makers_;
    const State &wanted_, &now_;
    const std::map<std::size_t, std::size_t> same_;
    Plan plan_;
};

// The ids of symbols in their places. Throws a UsageError for one that is not there yet.
Json with_ids(Json value, const std::map<std::string, int64_t> &ids) {
    if (value.is_structured())
        for (Json &inside : value) inside = with_ids(std::move(inside), ids);
    const std::optional<std::string> name = symbol_name(value);
    if (!name) return value;
    const auto found = ids.find(*name);
    if (found == ids.end()) throw UsageError(*name + " is not there");
    return found->second;
}

Call call_of(Context &context, const ApplyStep &step, const std::map<std::string, int64_t> &ids) {
    const Dictionary &dictionary = context.dictionary();
    std::vector<std::string> words;
    for (const auto &[name, value] : step.arguments.items()) {
        const Json with = with_ids(value, ids);
        words.push_back(name + "=" + (with.is_string() ? with.get<std::string>() : json_text(with)));
    }
    ArgumentOptions options;
    options.force = true;
    const Method method = dictionary.method_or_throw(step.method);
    return {dictionary.full_name(step.method), build_arguments(dictionary, context.types(), method, words, options)};
}

void keep_id(Context &context, const ApplyStep &step, const Json &answer, std::map<std::string, int64_t> &ids) {
    if (step.keeps.empty()) return;
    const Method method = context.dictionary().method_or_throw(step.method);
    const Parameter *output = Makers::output_of(method);
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i) {
        if (!output || method.parameters[i].name != output->name) continue;
        const Json &id = answer[i + 1].is_array() && !answer[i + 1].empty() ? answer[i + 1][0] : answer[i + 1];
        if (id.is_number_integer()) ids[step.keeps] = id.get<int64_t>();
    }
}

// Makes the calls. One that is refused may work when others have been made: it is tried again as long as any works.
// Returns those that never did.
std::vector<ApplyStep> make(Context &context, std::vector<ApplyStep> steps, std::map<std::string, int64_t> &ids) {
    Progress progress("steps", steps.size());
    const std::size_t all = steps.size();
    for (std::size_t before = all + 1; !steps.empty() && steps.size() < before;) {
        before = steps.size();
        std::vector<Call> calls;
        std::vector<ApplyStep> sent, refused;
        for (ApplyStep &step : steps) {
            try {
                if (!step.method.empty()) calls.push_back(call_of(context, step, ids));
                (step.method.empty() ? refused : sent).push_back(step);
            } catch (const UsageError &error) {
                step.refusal = error.what();
                refused.push_back(step);
            }
        }
        const std::vector<Json> answers = context.session().multicall(calls);
        for (std::size_t i = 0; i < sent.size(); ++i) {
            const Method method = context.dictionary().method_or_throw(sent[i].method);
            if (!is_fault(answers[i]) && is_success(context.dictionary(), method, result_of(answers[i]))) {
                keep_id(context, sent[i], answers[i], ids);
                continue;
            }
            sent[i].refusal = is_fault(answers[i]) ? answers[i]["faultString"].get<std::string>()
                                                   : context.output().status(method, result_of(answers[i]));
            refused.push_back(std::move(sent[i]));
        }
        steps = std::move(refused);
        progress.reached(all - steps.size());
    }
    return steps;
}

// What is not there in the end, with what the driver said of it last.
struct Applied {
    std::size_t all = 0;
    std::vector<ApplyStep> left;
};

// One thing may take others with it: the chip is looked at again, until it is as it should be or nothing moves.
Applied carry_out(Context &context, const Makers &makers, State &wanted, Plan plan) {
    Applied applied{plan.steps().size(), plan.steps()};
    for (int round = 0; round < most_rounds_of_steps && !applied.left.empty(); ++round) {
        std::map<std::string, std::string> refusals;
        for (std::vector<ApplyStep> *steps : {&plan.undone, &plan.made, &plan.changed})
            for (const ApplyStep &step : make(context, *steps, plan.ids)) refusals[step.line] = step.refusal;
        State now = state_of_chip(context, spoken_of(wanted));
        std::map<std::size_t, std::size_t> same = align(makers, wanted, now);
        plan = Planner(context, makers, wanted, now, std::move(same)).plan();
        std::vector<ApplyStep> next = plan.steps();
        for (ApplyStep &step : next) step.refusal = refusals[step.line];
        const bool moves =
            next.size() != applied.left.size() ||
            !std::equal(next.begin(), next.end(), applied.left.begin(),
                        [](const ApplyStep &one, const ApplyStep &other) { return one.line == other.line; });
        applied.left = std::move(next);
        if (!moves) break;
    }
    return applied;
}

void apply(Context &context, const ApplyOptions &options) {
    const Makers makers(context);
    State wanted = state_of_file(context, options.file), now = state_of_chip(context, spoken_of(wanted));
    const std::map<std::size_t, std::size_t> same = align(makers, wanted, now);
    const Plan plan = Planner(context, makers, wanted, now, same).plan();
    print(differences_text(
        differences(state_answers(makers, restricted(now, wanted, same)), state_answers(makers, wanted)), "the chip",
        options.file));
    if (options.dry_run) {
        for (const ApplyStep &step : plan.steps()) print(step.line + "\n");
        return print(std::to_string(plan.steps().size()) + " to set; nothing was sent\n");
    }
    const Applied applied = carry_out(context, makers, wanted, plan);
    for (const ApplyStep &step : applied.left)
        print((step.refusal.empty() ? "taken, but not kept: " : "cannot be set: ") + step.line +
              (step.refusal.empty() ? "" : "  " + step.refusal) + "\n");
    const std::size_t left = std::min(applied.left.size(), applied.all);
    print(std::to_string(applied.all - left) + " set, " + std::to_string(applied.left.size()) + " not\n");
    if (!applied.left.empty()) context.exit_status = exit_driver;
}

}  // namespace

void set_up_apply(CLI::App &command, Context &context) {
    const auto options = std::make_shared<ApplyOptions>();
    command.add_option("FILE", options->file, "What the chip is to be, as save writes it; - for standard input")
        ->required();
    command.add_flag("--dry-run", options->dry_run, "Show what differs and the calls, and send nothing");
    command.callback([&context, options] { apply(context, *options); });
}

}  // namespace lmqctl
