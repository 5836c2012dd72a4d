// The calls whose price is measured, and the state of the simulated chip in which they are made.
#include "bench/cases.h"

#include <stdexcept>

namespace lmq::bench {

namespace {

constexpr int records = 16;           // of vx_flow_us_all_get
constexpr vx_port_id_t eth_port = 3;  // behind SNI, CPU and management

xmlrpc_value *call(Handler *handler, xmlrpc_value *parameters, const std::string &what) {
    Env env;
    xmlrpc_value *answer = handler(env, parameters, nullptr, nullptr);
    env.check(what);
    return answer;
}

// Parameters from a format of xmlrpc_build_value.
template <class... T>
xmlrpc_value *parameters(const char *format, T... values) {
    Env env;
    xmlrpc_value *made = xmlrpc_build_value(env, format, values...);
    env.check(format);
    return made;
}

void succeed(const char *what, int status) {
    if (status != VX_SUCCESS) throw std::runtime_error(std::string(what) + " answers " + std::to_string(status));
}

// Starts the system with its device. Returns the echo of the configuration.
xmlrpc_value *start_system(const Plugin &plugin) {
    Env env;
    xmlrpc_value *answer = call(
        plugin.handler("lmq.lmq_init_system"),
        parameters("({s:i,s:({s:i,s:({s:i})})})", "num_dev", 1, "dev_cfg", "enbl", 1, "eth_port_cfg", "add_port", 1),
        "lmq_init_system");
    xmlrpc_int status;
    xmlrpc_value *echo;
    xmlrpc_decompose_value(env, answer, "(iV)", &status, &echo);
    env.check("the answer of lmq_init_system");
    succeed("lmq_init_system", status);
    return echo;
}

void add_flows() {
    vx_flow_us_key_t key{};
    key.key_type = VX_CL_KEY_MAC_VLAN;
    vx_flow_us_action_t action{};
    for (int i = 0; i < records; ++i) {
        key.key_s.mac_vlan.o_vid = static_cast<vx_vid_t>(i + 1);
        vx_flow_id_t id;
        succeed("vx_flow_us_add", vx_flow_us_add(DEFAULT_DEVICE_ID, eth_port, &key, &action, 0, &id));
    }
}

xmlrpc_value *array_of_empty_structs(int count) {
    Env env;
    xmlrpc_value *array = xmlrpc_array_new(env);
    for (int i = 0; i < count; ++i) append(env, array, xmlrpc_struct_new(env));
    return array;
}

}  // namespace

std::vector<Case> make_cases(const Plugin &plugin) {
    xmlrpc_value *startup = start_system(plugin);
    auto config = std::make_shared<vx_startup_cfg_t>();
    {
        Env env;
        tracker.initialize();
        take(env, startup, config.get());
        tracker.free();
        env.check("the echo of lmq_init_system");
    }
    add_flows();
    auto flows = std::make_shared<std::vector<vx_flow_us_cfg_t>>(records);
    auto watchdog = std::make_shared<vx_watchdog_cfg_t>();
    watchdog->wd_timer = 30;
    watchdog->mask_s = {1, 1, 1, 0};
    auto stats = std::make_shared<vx_eth_port_stats_t>();
    constexpr int device = DEFAULT_DEVICE_ID, port = eth_port;

    std::vector<Case> cases;
    const auto add = [&](const char *name, Handler *straight, xmlrpc_value *values, std::function<void()> driver) {
        const std::string method = std::string("lmq.") + name;
        cases.push_back(
            {name, method, values, call_document(method, values), plugin.handler(method), straight, std::move(driver)});
    };
    // A mode that does not exist: a reset would be over after the first call.
    add("vx_reset", straight_vx_reset, parameters("(ii)", device, 7),
        [] { vx_reset(device, static_cast<vx_reset_mode_t>(7)); });
    add("vx_watchdog_set", straight_vx_watchdog_set,
        parameters("(i{s:i,s:i,s:i,s:{s:i,s:i,s:i,s:i}})", device, "wd_enable", 0, "wd_timer", 30, "wd_action", 0,
                   "mask_s", "wd_enable", 1, "wd_timer", 1, "wd_action", 1, "reserved", 0),
        [watchdog] { vx_watchdog_set(device, watchdog.get()); });
    add("vx_eth_port_stats_get", straight_vx_eth_port_stats_get, parameters("(ii{}i)", device, port, 0),
        [stats] { vx_eth_port_stats_get(device, port, stats.get(), 0); });
    // The system is up: the driver refuses it at once.
    add("lmq_init_system", straight_lmq_init_system, parameters("(V)", startup),
        [config] { lmq_init_system(config.get()); });
    add("vx_flow_us_all_get", straight_vx_flow_us_all_get,
        parameters("(iiiVi)", device, port, records, array_of_empty_structs(records), 0), [flows] {
            vx_uint16 valid[2];
            vx_flow_us_all_get(device, port, records, flows->data(), valid);
        });
    add("methodSignature", straight_methodSignature, parameters("(s)", told_method), {});
    add("listEnums", straight_listEnums, parameters("()"), {});
    return cases;
}

Registries::Registries(const Plugin &all, const std::vector<Case> &cases) {
    std::vector<Row> rows = all.rows(), straight_rows = rows, floor_rows = rows;
    for (const Case &one : cases) {
        for (size_t i = 0; i < rows.size(); ++i) {
            if (rows[i].name != one.method) continue;
            straight_rows[i].handler = one.straight;
            floor_rows[i].handler = answer_existing;
            floor_rows[i].data = call(one.plugin, one.parameters, one.name);
        }
    }
    plugin = std::make_unique<Registry>(rows);
    straight = std::make_unique<Registry>(straight_rows);
    floor = std::make_unique<Registry>(floor_rows);
}

void check_answers(const Registries &registries, const std::vector<Case> &cases) {
    for (const Case &one : cases) {
        const std::string answer = registries.plugin->answer(one.document);
        if (answer.find("<fault>") != std::string::npos) throw std::runtime_error(one.name + " is a fault: " + answer);
        const auto compare = [&](const Registry &other, const char *what) {
            const std::string text = other.answer(one.document);
            size_t at = 0;
            while (at < answer.size() && at < text.size() && answer[at] == text[at]) ++at;
            if (at == answer.size() && at == text.size()) return;
            const size_t begin = at < 60 ? 0 : at - 60;
            throw std::runtime_error(one.name + ": " + what + " answers otherwise at byte " + std::to_string(at) +
                                     ": the plug-in \"" + answer.substr(begin, 120) + "\", it \"" +
                                     text.substr(begin, 120) + "\"");
        };
        compare(*registries.straight, "the straight-line handler");
        compare(*registries.floor, "the existing value");
    }
}

}  // namespace lmq::bench
