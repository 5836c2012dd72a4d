// Times of calls, by Google Benchmark. Measurements that are compared with each other are made in turns, and the
// fastest of each counts: a machine that does something else can only make a call slower.
#include "bench/times.h"

#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

namespace lmq::bench {

namespace {

class Fastest : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override {
        for (const Run &run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            const double time = run.GetAdjustedCPUTime();
            const auto [at, is_new] = times.emplace(run.run_name.function_name, time);
            if (!is_new) at->second = std::min(at->second, time);
        }
    }
    Times times;
};

template <class Body>
void add(const std::string &name, Body body) {
    benchmark::RegisterBenchmark(name.c_str(), [body](benchmark::State &state) {
        for (auto _ : state) body();
    });
}

void add_handler(const std::string &name, Handler *handler, xmlrpc_value *parameters) {
    add(name, [=] {
        xmlrpc_env env;
        xmlrpc_env_init(&env);
        xmlrpc_DECREF(handler(&env, parameters, nullptr, nullptr));
        xmlrpc_env_clean(&env);
    });
}

void add_whole(const std::string &name, const Registry &registry, const std::string &document) {
    add(name, [&registry, document] {
        xmlrpc_mem_block *answer = registry.process(document);
        XMLRPC_MEMBLOCK_FREE(char, answer);
    });
}

Times run_here(const Effort &effort) {
    const std::string repetitions = "--benchmark_repetitions=" + std::to_string(effort.repetitions),
                      seconds = "--benchmark_min_time=" + std::to_string(effort.seconds);
    const char *arguments[] = {"lmq-bench", repetitions.c_str(), seconds.c_str(),
                               "--benchmark_enable_random_interleaving=true", nullptr};
    int count = static_cast<int>(std::size(arguments)) - 1;
    benchmark::Initialize(&count, const_cast<char **>(arguments));
    Fastest fastest;
    benchmark::RunSpecifiedBenchmarks(&fastest);
    return fastest.times;
}

// Runs what was added, in a process of its own: a heap that large answers have torn up makes later calls slower, up to
// three times.
Times run(const Effort &effort) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("no process");
    if (child == 0) {
        FILE *out = fdopen(ends[1], "w");
        for (const auto &[name, time] : run_here(effort)) fprintf(out, "%s\t%.17g\n", name.c_str(), time);
        _exit(fclose(out) == 0 ? 0 : 1);
    }
    benchmark::ClearRegisteredBenchmarks();
    close(ends[1]);
    FILE *in = fdopen(ends[0], "r");
    Times times;
    char name[128];
    for (double time; fscanf(in, " %127[^\t]\t%lg", name, &time) == 2;) times[name] = time;
    fclose(in);
    int status;
    if (waitpid(child, &status, 0) != child || status != 0) throw std::runtime_error("a measurement ended early");
    return times;
}

}  // namespace

Times measure_cases(const Registries &registries, const std::vector<Case> &cases, const Effort &effort) {
    Times times;
    for (const Case &one : cases) {
        add_whole(one.name + "/whole/plugin", *registries.plugin, one.document);
        add_whole(one.name + "/whole/straight", *registries.straight, one.document);
        add_whole(one.name + "/whole/floor", *registries.floor, one.document);
        times.merge(run(effort));
        add_handler(one.name + "/handler/plugin", one.plugin, one.parameters);
        add_handler(one.name + "/handler/straight", one.straight, one.parameters);
        if (one.driver) add(one.name + "/driver", one.driver);
        times.merge(run(effort));
    }
    return times;
}

Times measure_growth(const std::vector<Growth> &tables, const Effort &effort) {
    Times times;
    for (const Growth &growth : tables) {
        for (const Growth::Line &line : growth.lines) {
            for (const Subject &subject : line.subjects) {
                const std::string name = name_of(growth, line, subject);
                if (subject.registry)
                    add_whole(name, *subject.registry, subject.document);
                else
                    add_handler(name, subject.handler, subject.parameters);
                times.merge(run(effort));
            }
        }
    }
    return times;
}

}  // namespace lmq::bench
