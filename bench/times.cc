// Times of calls, by Google Benchmark. Measurements that are compared with each other are made in turns, and the
// fastest of each counts: a machine that does something else can only make a call slower.
#include "bench/times.h"

#include <benchmark/benchmark.h>

#include <algorithm>
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

// Runs what was added.
Times run(const Effort &effort) {
    const std::string repetitions = "--benchmark_repetitions=" + std::to_string(effort.repetitions),
                      seconds = "--benchmark_min_time=" + std::to_string(effort.seconds);
    const char *arguments[] = {"lmq-bench", repetitions.c_str(), seconds.c_str(),
                               "--benchmark_enable_random_interleaving=true", nullptr};
    int count = static_cast<int>(std::size(arguments)) - 1;
    benchmark::Initialize(&count, const_cast<char **>(arguments));
    Fastest fastest;
    benchmark::RunSpecifiedBenchmarks(&fastest);
    benchmark::ClearRegisteredBenchmarks();
    return fastest.times;
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
    for (int n : sizes) {
        xmlrpc_value *values = parameters(n);
        add_handler(std::to_string(n) + "/handler", plugin.handler(method), values);
        add_whole(std::to_string(n) + "/whole", registry, call_document(method, values));
    }
    const Times times = run(effort);
    Growth growth{title, size, {"handler", "whole way"}, {}};
    for (int n : sizes) {
        const std::string name = std::to_string(n);
        growth.lines.push_back(
            {n, {{"handler", times.at(name + "/handler")}, {"whole way", times.at(name + "/whole")}}});
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
    std::vector<std::unique_ptr<Registry>> registries;
    xmlrpc_value *none = xmlrpc_array_new(env);
    for (int n : sizes) {
        rows.resize(static_cast<size_t>(all), rows[0]);
        const std::vector<Row> part(rows.begin(), rows.begin() + n);
        registries.push_back(std::make_unique<Registry>(part));
        add_whole(std::to_string(n) + "/first", *registries.back(), call_document(part.front().name, none));
        add_whole(std::to_string(n) + "/last", *registries.back(), call_document(part.back().name, none));
    }
    const Times times = run(effort);
    Growth growth{
        "Rows of the registry, a call that answers a value that exists already", "rows", {"first row", "last row"}, {}};
    for (int n : sizes) {
        const std::string name = std::to_string(n);
        growth.lines.push_back({n, {{"first row", times.at(name + "/first")}, {"last row", times.at(name + "/last")}}});
    }
    return growth;
}

}  // namespace

Times measure_cases(const Registries &registries, const std::vector<Case> &cases, const Effort &effort) {
    for (const Case &one : cases) {
        add_whole(one.name + "/whole/plugin", *registries.plugin, one.document);
        add_whole(one.name + "/whole/straight", *registries.straight, one.document);
        add_whole(one.name + "/whole/floor", *registries.floor, one.document);
        add_handler(one.name + "/handler/plugin", one.plugin, one.parameters);
        add_handler(one.name + "/handler/straight", one.straight, one.parameters);
        if (one.driver) add(one.name + "/driver", one.driver);
    }
    return run(effort);
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
        {0, 1, 8, 64, 512, 2048},
        [&](int n) {
            return xmlrpc_build_value(env, "(i{s:V})", 0, "p_pkt_buff", array_of(n, xmlrpc_int_new(env, 85)));
        },
        effort));
    tables.push_back(grow_registry(plugin, effort));
    return tables;
}

}  // namespace lmq::bench
