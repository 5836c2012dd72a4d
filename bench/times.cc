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

xmlrpc_value *array_of(int count, xmlrpc_value *item) {
    Env env;
    xmlrpc_value *array = xmlrpc_array_new(env);
    for (int i = 0; i < count; ++i) xmlrpc_array_append_item(env, array, item);
    return array;
}

// Measures a method with parameters of several sizes, the handler alone and the whole way.
Growth grow(const Plugin &plugin, const std::string &method, const std::string &title, const std::string &size,
            const std::vector<int> &sizes, const std::function<xmlrpc_value *(int)> &parameters, const Effort &effort) {
    const Registry registry(plugin.rows());
    Growth growth{title, size, {"handler", "whole way"}, {}};
    for (int n : sizes) {
        xmlrpc_value *values = parameters(n);
        add_handler("handler", plugin.handler(method), values);
        Times times = run(effort);
        add_whole("whole way", registry, call_document(method, values));
        times.merge(run(effort));
        growth.lines.push_back({n, times});
    }
    return growth;
}

// The registry alone: the handler answers a value that exists already.
Growth grow_registry(const Plugin &plugin, const Effort &effort) {
    Env env;
    std::vector<Row> rows = plugin.rows();
    for (Row &row : rows) row.handler = answer_existing, row.data = xmlrpc_int_new(env, 0);
    const int all = static_cast<int>(rows.size());
    const std::vector<int> sizes{1, all / 4, all / 2, all};
    xmlrpc_value *none = xmlrpc_array_new(env);
    Growth growth{
        "Rows of the registry, a call that answers a value that exists already", "rows", {"first row", "last row"}, {}};
    for (int n : sizes) {
        const Registry registry({rows.begin(), rows.begin() + n});
        add_whole("first row", registry, call_document(rows[0].name, none));
        add_whole("last row", registry, call_document(rows[static_cast<size_t>(n) - 1].name, none));
        growth.lines.push_back({n, run(effort)});
    }
    return growth;
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

std::vector<Growth> measure_growth(const Plugin &plugin, const Effort &effort) {
    Env env;
    xmlrpc_limit_set(XMLRPC_XML_SIZE_LIMIT_ID, 16u << 20);  // 4,096 structs are more than a host takes
    std::vector<Growth> tables;
    tables.push_back(grow(
        plugin, "lmq.vx_watchdog_set", "Structs in one array argument: vx_watchdog_set with full structs", "structs",
        {1, 16, 256, 4096},
        [&](int n) {
            xmlrpc_value *item = xmlrpc_build_value(env, "{s:i,s:i,s:i,s:{s:i,s:i,s:i,s:i}}", "wd_enable", 0,
                                                    "wd_timer", 30, "wd_action", 0, "mask_s", "wd_enable", 1,
                                                    "wd_timer", 1, "wd_action", 1, "reserved", 0);
            return xmlrpc_build_value(env, "(iV)", 0, array_of(n, item));
        },
        effort));
    tables.push_back(grow(
        plugin, "lmq.vx_1ag_ccm_pkt_buf_set",
        "Ints in a member: p_pkt_buff of vx_1ag_ccm_pkt_buf_set, whose echo has 2,048 whatever was sent", "ints",
        {1, 16, 256, 1024, 2048},
        [&](int n) {
            return xmlrpc_build_value(env, "(i{s:V})", 0, "p_pkt_buff", array_of(n, xmlrpc_int_new(env, 85)));
        },
        effort));
    tables.push_back(grow_registry(plugin, effort));
    return tables;
}

}  // namespace lmq::bench
