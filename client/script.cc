// Lines into steps: what stands around a call, and the $NAMEs in it.
#include "script.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "error.h"
#include "file.h"
#include "names.h"
#include "symbol.h"
#include "words.h"

namespace lmqctl {

namespace {

bool begins_name(char letter) { return letter == '_' || std::isalpha(static_cast<unsigned char>(letter)); }
bool is_of_name(char letter) { return begins_name(letter) || std::isdigit(static_cast<unsigned char>(letter)); }

bool is_name(const std::string &text) {
    return !text.empty() && begins_name(text[0]) && std::all_of(text.begin(), text.end(), is_of_name);
}

// The text that a value has in a word.
std::string text_in_word(const Json &value, bool is_json, bool in_quotes) {
    if (!value.is_string()) return json_text(value);
    const std::string quoted = json_text(value);
    if (is_json && !in_quotes) return quoted;
    return is_json ? quoted.substr(1, quoted.size() - 2) : value.get<std::string>();
}

// A word with values in the places of $NAME and ${NAME}; $$ is a dollar sign.
std::string expanded(const std::string &word, const ValueOf &value_of) {
    const std::size_t equals = word.find('=');
    const bool is_addressed = equals != std::string::npos && begins_name(word[0]);
    const std::size_t begin = is_addressed ? equals + 1 : 0;
    const bool is_json = begin < word.size() && (word[begin] == '{' || word[begin] == '[');
    std::string result;
    bool in_quotes = false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (is_json && i >= begin && word[i] == '"' && (i == 0 || word[i - 1] != '\\')) in_quotes = !in_quotes;
        const bool is_braced = word.compare(i, 2, "${") == 0;
        const std::size_t name = i + (is_braced ? 2 : 1);
        if (word[i] != '$' || name >= word.size() || (!begins_name(word[name]) && word[name] != '$')) {
            result += word[i];
            continue;
        }
        if (!is_braced && word[name] == '$') {
            result += word[i++];
            continue;
        }
        std::size_t end = name;
        while (end < word.size() && is_of_name(word[end])) ++end;
        if (is_braced && (end == word.size() || word[end] != '}')) throw UsageError("${ without its } in " + word);
        result += text_in_word(value_of(word.substr(name, end - name)), is_json, in_quotes);
        i = is_braced ? end : end - 1;
    }
    return result;
}

}  // namespace

std::vector<std::string> expanded_words(const std::vector<std::string> &words, const ValueOf &value_of) {
    std::vector<std::string> result;
    for (const std::string &word : words) result.push_back(expanded(word, value_of));
    return result;
}

namespace {

double seconds_of(const std::string &text) {
    double value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    const std::string unit(end, text.data() + text.size());
    const double factor = unit == "s" ? 1 : unit == "ms" ? 0.001 : unit == "m" ? 60 : 0;
    if (failure != std::errc() || factor == 0 || value < 0 || value * factor > 86400)
        throw UsageError("within: expected a time such as 5s, 500ms or 2m, not " + text);
    return value * factor;
}

// Reads one line, from the outside to the call.
class LineReader {
  public:
    LineReader(Context &context, std::vector<std::string> words) : context_(context), words_(std::move(words)) {}

    Step step(const std::vector<std::string> &known, const ArgumentOptions &options) {
        Step step;
        take_keeps();
        std::string expectation;
        const bool has_expectation = words_[0] == "expect";
        if (has_expectation) expectation = take_expectation();
        const bool waits = !words_.empty() && words_[0] == "wait";
        if (waits && has_expectation) throw UsageError("expect and wait do not go together: wait expects a success");
        if (waits) take_wait();
        step.words = words_;
        ArgumentOptions symbolic = options;
        const ValueOf named = [&](const std::string &name) -> Json {
            if (std::find(known.begin(), known.end(), name) == known.end())
                throw UsageError("no line before this one keeps $" + name + did_you_mean(name, known) +
                                 " ($$ is a dollar sign)");
            step.uses.push_back(name);
            return symbol(name);
        };
        const std::vector<std::string> words = expanded_words(words_, named);
        const std::string value = expanded(value_, named);
        symbolic.symbols = !step.uses.empty();
        step.prepared = prepare_words(context_, words, symbolic);
        for (const auto &[path, name] : keeps_)
            step.kept.push_back({find_place(context_.types(), step.prepared.method, path), name});
        if (has_expectation) step.expected = expected(step.prepared.method, expectation);
        if (!waits) return step;
        step.awaited = {find_place(context_.types(), step.prepared.method, member_), value_, seconds_};
        InputOptions checking;
        checking.symbols = true;
        Input(context_.dictionary(), checking).from_text(step.awaited->place.value_type(), value, member_);
        return step;
    }

  private:
    void take_keeps() {
        for (auto arrow = std::find(words_.begin(), words_.end(), "->"); arrow != words_.end();) {
            const auto next = std::find(arrow + 1, words_.end(), "->");
            std::vector<std::string> said(arrow + 1, next);
            const bool is_named = said.size() == 3 && said[1] == "as";
            if (said.size() != 1 && !is_named) throw UsageError("behind -> stands OUTPUT or OUTPUT as NAME");
            const std::string name = is_named ? said[2] : said[0].substr(said[0].find_last_of('.') + 1);
            if (!is_name(name))
                throw UsageError(name + " is no name for what is kept: letters, digits and _" +
                                 (is_named ? "" : "; -> " + said[0] + " as NAME gives it one"));
            keeps_.emplace_back(said[0], name);
            arrow = words_.erase(arrow, next);
        }
        if (words_.empty()) throw UsageError("there is no call in front of ->");
    }

    std::string take_expectation() {
        const auto end =
            std::find_if(words_.begin() + 1, words_.end(), [](const std::string &word) { return word.ends_with(':'); });
        std::string text;
        if (end != words_.end())
            for (auto word = words_.begin() + 1; word <= end; ++word) text += (text.empty() ? "" : " ") + *word;
        if (text.size() < 2 || end + 1 == words_.end())
            throw UsageError("expected expect STATUS: and a call behind it");
        words_.erase(words_.begin(), end + 1);
        text.pop_back();
        return text;
    }

    void take_wait() {
        const auto until = std::find(words_.begin(), words_.end(), "until");
        const std::size_t equals = words_.end() - until > 1 ? until[1].find('=') : std::string::npos;
        if (words_.end() - until != 4 || equals == std::string::npos || equals == 0 || until[2] != "within")
            throw UsageError("expected wait CALL until MEMBER=VALUE within TIME, such as 5s");
        member_ = until[1].substr(0, equals);
        value_ = until[1].substr(equals + 1);
        seconds_ = seconds_of(until[3]);
        words_.erase(until, words_.end());
        words_.erase(words_.begin());
    }

    Expected expected(const Method &method, const std::string &text) const {
        Expected result{text == "fault" || text.starts_with("fault "), {}, text};
        const std::string status = result.is_fault ? text.substr(std::min<std::size_t>(text.size(), 6)) : text;
        result.number = number(status);
        if (result.number || (result.is_fault && status.empty())) return result;
        const Enum *values = context_.dictionary().enumeration(method.result);
        const Enumerator *value = values && !result.is_fault ? values->named(status) : nullptr;
        if (!value) {
            std::vector<std::string> names;
            if (values)
                for (const Enumerator &each : values->values) names.push_back(each.name);
            throw UsageError("expect: " + text + " is nothing that " + method.name + " answers with" +
                             did_you_mean(text, names));
        }
        result.number = value->number;
        return result;
    }

    Context &context_;
    std::vector<std::string> words_;
    std::vector<std::pair<std::string, std::string>> keeps_;
    std::string member_, value_;
    double seconds_ = 0;
};

// Says where in the file an error is.
template <class Make>
Step step_of(const std::string &file, const char *unit, std::size_t line, Make make) {
    try {
        Step step = make();
        step.line = line;
        return step;
    } catch (const UsageError &error) {
        throw UsageError(file + ", " + unit + " " + std::to_string(line) + ": " + error.what() + "\nNothing was sent.");
    }
}

std::string trimmed(const std::string &text) {
    const std::size_t begin = text.find_first_not_of(" \t\r");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

std::vector<Step> steps_of_json(Context &context, const std::string &file, const std::string &text,
                                const ArgumentOptions &options) {
    std::vector<Step> found;
    for (const Json &call : json_of_user(text, file))
        found.push_back(step_of(file, "call", found.size() + 1, [&] {
            Step step;
            step.prepared = prepare_words(context, words_of_json(call), options);
            step.text = step.prepared.text;
            return step;
        }));
    return found;
}

}  // namespace

std::vector<Step> read_script(Context &context, const std::string &file, const ArgumentOptions &options) {
    const std::string text = read_text(file);
    if (const auto first = text.find_first_not_of(" \t\r\n"); first != std::string::npos && text[first] == '[')
        return steps_of_json(context, file, text, options);
    std::vector<Step> found;
    std::vector<std::string> known;
    std::size_t number = 0;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        begin = end + 1;
        ++number;
        const Words split = split_words(line);
        if (split.words.empty()) continue;
        found.push_back(step_of(file, "line", number, [&] {
            if (split.open_quote) throw UsageError(std::string("the quote ") + split.open_quote + " is not closed");
            Step step = LineReader(context, split.words).step(known, options);
            step.text = trimmed(line.substr(0, split.comment));
            return step;
        }));
        for (const Kept &kept : found.back().kept) known.push_back(kept.name);
    }
    return found;
}

PreparedCall prepared_with(Context &context, const Step &step, const ArgumentOptions &options,
                           const ValueOf &value_of) {
    if (step.uses.empty()) return step.prepared;
    return prepare_words(context, expanded_words(step.words, value_of), options);
}

Json awaited_value(Context &context, const Awaited &awaited, const ValueOf &value_of) {
    return Input(context.dictionary(), {})
        .from_text(awaited.place.value_type(), expanded(awaited.value, value_of), awaited.place.path);
}

}  // namespace lmqctl
