// Instructions and heap calls, counted by callgrind. Each measurement asks valgrind for a dump under its name; the
// dumps are read when the program is over.
#include "bench/instructions.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <valgrind/callgrind.h>

#include <fstream>
#include <stdexcept>

#include "bench/folder.h"

namespace lmq::bench {

namespace {

namespace fs = std::filesystem;

constexpr int calls = 2;  // in each dump

// Runs a measurement: `call` is counted, and what it returns goes to `release` uncounted. In a process of its own, so
// that all measurements begin with the same heap: what malloc does depends on all that went before.
template <class Call, class Release>
void dump(const std::string &name, Call call, Release release) {
    const pid_t child = fork();
    if (child != 0) {
        int status;
        if (child < 0 || waitpid(child, &status, 0) != child || status != 0)
            throw std::runtime_error("cannot count " + name);
        return;
    }
    for (int i = 0; i < 2; ++i) release(call());  // the heap has what it needs then
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    for (int i = 0; i < calls; ++i) {
        CALLGRIND_TOGGLE_COLLECT;
        auto made = call();
        CALLGRIND_TOGGLE_COLLECT;
        release(made);
    }
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    _exit(0);
}

void dump_handler(const std::string &name, Handler *handler, xmlrpc_value *parameters) {
    Env env;
    dump(
        name, [&] { return handler(env, parameters, nullptr, nullptr); }, xmlrpc_DECREF);
}

void dump_whole(const std::string &name, const Registry &registry, const std::string &document) {
    dump(
        name, [&] { return registry.process(document); },
        [](xmlrpc_mem_block *answer) { XMLRPC_MEMBLOCK_FREE(char, answer); });
}

bool is_heap_function(const std::string &name) { return name == "malloc" || name == "calloc" || name == "realloc"; }

// Reads a dump into the counts, under the name that it was asked for by. Names of functions are written out where they
// come first, "(ID) NAME", and stand as "(ID)" from then on.
void read_dump(const fs::path &file, Counts &counts) {
    std::map<std::string, std::string> functions;
    constexpr std::string_view trigger = "desc: Trigger: Client Request: ";
    std::string name;
    Count count;
    bool heap_called = false, in_heap = false;
    const auto function = [&](const std::string &text) -> const std::string & {
        const size_t end = text.find(')') + 1;
        std::string &known = functions[text.substr(0, end)];
        if (end < text.size()) known = text.substr(end + 1);
        return known;
    };
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with(trigger))
            name = line.substr(trigger.size());
        else if (line.starts_with("totals: "))
            count.instructions = std::stod(line.substr(8));
        else if (line.starts_with("fn="))
            in_heap = is_heap_function(function(line.substr(3)));
        else if (line.starts_with("cfn="))
            heap_called = is_heap_function(function(line.substr(4)));
        else if (line.starts_with("calls=") && heap_called && !in_heap)
            count.heap_calls += std::stod(line.substr(6));
    }
    if (name.empty()) return;  // the rest of the program
    counts[name] = {count.instructions / calls, count.heap_calls / calls};
}

void run_under_valgrind(const fs::path &folder, const std::vector<std::string> &arguments) {
    std::vector<std::string> words{"valgrind",
                                   "--tool=callgrind",
                                   "--quiet",
                                   "--instr-atstart=no",
                                   "--collect-atstart=no",
                                   "--callgrind-out-file=" + (folder / "%p").string(),
                                   fs::read_symlink("/proc/self/exe").string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char *> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string &word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    pid_t child;
    if (posix_spawnp(&child, "valgrind", nullptr, nullptr, pointers.data(), environ) != 0)
        throw std::runtime_error("valgrind is not installed");
    int status;
    if (waitpid(child, &status, 0) != child || status != 0) throw std::runtime_error("the run under valgrind failed");
}

}  // namespace

void run_for_counting(const Registries &registries, const std::vector<Case> &cases) {
    for (const Case &one : cases) {
        dump_whole(one.name + "/whole/plugin", *registries.plugin, one.document);
        dump_whole(one.name + "/whole/straight", *registries.straight, one.document);
        dump_whole(one.name + "/whole/floor", *registries.floor, one.document);
        dump_handler(one.name + "/handler/plugin", one.plugin, one.parameters);
        dump_handler(one.name + "/handler/straight", one.straight, one.parameters);
        if (one.driver)
            dump(
                one.name + "/driver", [&] { return one.driver(), 0; }, [](int) {});
    }
}

void run_for_counting(const std::vector<Growth> &tables) {
    for (const Growth &growth : tables) {
        for (const Growth::Line &line : growth.lines) {
            for (const Subject &subject : line.subjects) {
                if (!subject.is_counted) continue;
                const std::string name = name_of(growth, line, subject);
                if (subject.registry)
                    dump_whole(name, *subject.registry, subject.document);
                else
                    dump_handler(name, subject.handler, subject.parameters);
            }
        }
    }
}

Counts count(const std::vector<std::string> &arguments) {
    const Folder folder;
    run_under_valgrind(folder.path(), arguments);

    Counts counts;
    for (const auto &file : fs::directory_iterator(folder.path())) read_dump(file.path(), counts);
    return counts;
}

}  // namespace lmq::bench
