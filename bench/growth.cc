// Calls of several sizes, which show how the price grows.
#include "bench/growth.h"

#include <functional>

namespace lmq::bench {

namespace {

xmlrpc_value *array_of(int count, xmlrpc_value *item) {
    Env env;
    xmlrpc_value *array = xmlrpc_array_new(env);
    for (int i = 0; i < count; ++i) xmlrpc_array_append_item(env, array, item);
    return array;
}

// A method with parameters of several sizes.
Growth grow(const Plugin &plugin, const std::string &method, const std::string &title, const std::string &size,
            const std::vector<int> &sizes, const std::function<xmlrpc_value *(int)> &parameters) {
    Growth growth{title, size, {}};
    const auto registry = std::make_shared<Registry>(plugin.rows());
    for (int n : sizes) {
        xmlrpc_value *values = parameters(n);
        growth.lines.push_back({n,
                                {{"handler", plugin.handler(method), values, nullptr, "", true},
                                 {"whole way", nullptr, nullptr, registry, call_document(method, values), false}}});
    }
    return growth;
}

// The registry alone: the handler answers a value that exists already.
Growth grow_registry(const Plugin &plugin) {
    Env env;
    std::vector<Row> rows = plugin.rows();
    for (Row &row : rows) row.handler = answer_existing, row.data = xmlrpc_int_new(env, 0);
    const int all = static_cast<int>(rows.size());
    xmlrpc_value *none = xmlrpc_array_new(env);
    Growth growth{"Rows of the registry: the whole way of a call that answers a value that exists already", "rows", {}};
    for (int n : {1, all / 4, all / 2, all}) {
        const auto registry = std::make_shared<Registry>(std::vector<Row>(rows.begin(), rows.begin() + n));
        const std::string last = rows[static_cast<size_t>(n) - 1].name;
        growth.lines.push_back({n,
                                {{"first row", nullptr, nullptr, registry, call_document(rows[0].name, none), true},
                                 {"last row", nullptr, nullptr, registry, call_document(last, none), true}}});
    }
    return growth;
}

}  // namespace

std::vector<Growth> make_growth(const Plugin &plugin) {
    Env env;
    xmlrpc_limit_set(XMLRPC_XML_SIZE_LIMIT_ID, 16u << 20);  // 4,096 structs are more than a host takes
    xmlrpc_value *watchdog =
        xmlrpc_build_value(env, "{s:i,s:i,s:i,s:{s:i,s:i,s:i,s:i}}", "wd_enable", 0, "wd_timer", 30, "wd_action", 0,
                           "mask_s", "wd_enable", 1, "wd_timer", 1, "wd_action", 1, "reserved", 0);
    xmlrpc_value *number = xmlrpc_int_new(env, 85);
    return {grow(plugin, "lmq.vx_watchdog_set", "Structs in one array argument: vx_watchdog_set with full structs",
                 "structs", {1, 16, 256, 4096},
                 [&](int n) { return xmlrpc_build_value(env, "(iV)", 0, array_of(n, watchdog)); }),
            grow(plugin, "lmq.vx_1ag_ccm_pkt_buf_set",
                 "Ints in a member: p_pkt_buff of vx_1ag_ccm_pkt_buf_set, whose echo has 2,048 whatever was sent",
                 "ints", {1, 16, 256, 2048},
                 [&](int n) { return xmlrpc_build_value(env, "(i{s:V})", 0, "p_pkt_buff", array_of(n, number)); }),
            grow_registry(plugin)};
}

std::string name_of(const Growth &growth, const Growth::Line &line, const Subject &subject) {
    return growth.size + "/" + std::to_string(line.size) + "/" + subject.column;
}

}  // namespace lmq::bench
