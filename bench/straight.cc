// The straight-line handlers. vx_startup_cfg_t and vx_flow_us_cfg_t, which have hundreds of members, are read and made
// in straight_take.cc and straight_make.cc.
#include "bench/straight.h"

#include <cstdlib>
#include <cstring>

namespace lmq::bench {

Tracker tracker;

namespace {

bool has_parameters(xmlrpc_env *env, xmlrpc_value *parameters, int count) {
    return parameters && xmlrpc_array_size(env, parameters) == count;
}

xmlrpc_value *refuse_count(xmlrpc_env *env) {
    xmlrpc_env_set_fault(env, XMLRPC_LIMIT_EXCEEDED_ERROR, "Input argument size mismatch");
    return nullptr;
}

bool take_int(xmlrpc_env *env, xmlrpc_value *item, xmlrpc_int *into) {
    if (xmlrpc_value_type(item) != XMLRPC_TYPE_INT) return refuse(env, "expected an int but got something else");
    xmlrpc_read_int(env, item, into);
    return !env->fault_occurred;
}

bool take_int_parameter(xmlrpc_env *env, xmlrpc_value *parameters, unsigned index, xmlrpc_int *into) {
    xmlrpc_value *item;
    xmlrpc_array_read_item(env, parameters, index, &item);
    if (env->fault_occurred || !take_int(env, item, into)) return false;
    xmlrpc_DECREF(item);
    return true;
}

template <class T>
T *take_block(size_t units) {
    T *block = static_cast<T *>(calloc(units, sizeof(T)));
    tracker.add_ptr(block);
    return block;
}

// A parameter that is a struct, or an array of structs.
template <class T>
struct Structs {
    T *block = nullptr;
    int count = -1;  // -1: a struct

    template <class Take>
    bool take(xmlrpc_env *env, xmlrpc_value *parameters, unsigned index, Take take_one) {
        xmlrpc_value *item;
        xmlrpc_array_read_item(env, parameters, index, &item);
        if (env->fault_occurred) return false;
        const xmlrpc_type form = xmlrpc_value_type(item);
        if (form == XMLRPC_TYPE_STRUCT) {
            block = take_block<T>(2);
            if (!take_one(env, item, block)) return false;
        } else if (form == XMLRPC_TYPE_ARRAY) {
            count = xmlrpc_array_size(env, item);
            if (count > 0) block = take_block<T>(static_cast<size_t>(count) + 1);
            for (int i = 0; i < count; ++i) {
                xmlrpc_value *entry;
                xmlrpc_array_read_item(env, item, static_cast<unsigned>(i), &entry);
                if (env->fault_occurred) return false;
                if (xmlrpc_value_type(entry) != XMLRPC_TYPE_STRUCT) return refuse(env, "expected a struct");
                if (!take_one(env, entry, block + i)) return false;
                xmlrpc_DECREF(entry);
            }
        } else {
            return refuse(env, "expected an array or a struct, but got something else");
        }
        xmlrpc_DECREF(item);
        return true;
    }

    template <class Make>
    xmlrpc_value *make(xmlrpc_env *env, Make make_one) const {
        if (!block) return xmlrpc_nil_new(env);
        if (count < 0) return make_one(env, block);
        xmlrpc_value *array = xmlrpc_array_new(env);
        for (int i = 0; i < count; ++i) append(env, array, make_one(env, block + i));
        return array;
    }
};

// An int of a struct, where the client has sent it.
template <class T>
bool take_member(xmlrpc_env *env, xmlrpc_value *value, const char *name, T *to) {
    if (!xmlrpc_struct_has_key(env, value, name)) return true;
    xmlrpc_value *item;
    xmlrpc_struct_read_value(env, value, name, &item);
    xmlrpc_int number;
    if (!take_int(env, item, &number)) return false;
    *to = static_cast<T>(number);
    xmlrpc_DECREF(item);
    return true;
}

void put_int(xmlrpc_env *env, xmlrpc_value *into, const char *name, int number) {
    put(env, into, name, xmlrpc_int_new(env, number));
}

void put_text(xmlrpc_env *env, xmlrpc_value *into, const char *name, const char *text) {
    put(env, into, name, xmlrpc_string_new(env, text));
}

bool take_watchdog(xmlrpc_env *env, xmlrpc_value *value, vx_watchdog_cfg_t *to) {
    if (!take_member(env, value, "wd_enable", &to->wd_enable)) return false;
    if (!take_member(env, value, "wd_timer", &to->wd_timer)) return false;
    if (!take_member(env, value, "wd_action", &to->wd_action)) return false;
    if (!xmlrpc_struct_has_key(env, value, "mask_s")) return true;
    xmlrpc_value *mask;
    xmlrpc_struct_read_value(env, value, "mask_s", &mask);
    if (xmlrpc_value_type(mask) != XMLRPC_TYPE_STRUCT) return refuse(env, "expected an inline struct");
    auto &flags = to->mask_s;
    unsigned wd_enable = flags.wd_enable, wd_timer = flags.wd_timer, wd_action = flags.wd_action,
             reserved = flags.reserved;
    if (!take_member(env, mask, "wd_enable", &wd_enable)) return false;
    if (!take_member(env, mask, "wd_timer", &wd_timer)) return false;
    if (!take_member(env, mask, "wd_action", &wd_action)) return false;
    if (!take_member(env, mask, "reserved", &reserved)) return false;
    flags.wd_enable = wd_enable & 1;
    flags.wd_timer = wd_timer & 1;
    flags.wd_action = wd_action & 1;
    flags.reserved = reserved & 0x1fffffff;
    xmlrpc_DECREF(mask);
    return true;
}

xmlrpc_value *make_watchdog(xmlrpc_env *env, const vx_watchdog_cfg_t *from) {
    xmlrpc_value *value = xmlrpc_struct_new(env);
    put_int(env, value, "wd_enable", from->wd_enable);
    put_int(env, value, "wd_timer", static_cast<int>(from->wd_timer));
    put_int(env, value, "wd_action", from->wd_action);
    xmlrpc_value *mask = xmlrpc_struct_new(env);
    put_int(env, mask, "wd_enable", from->mask_s.wd_enable);
    put_int(env, mask, "wd_timer", from->mask_s.wd_timer);
    put_int(env, mask, "wd_action", from->mask_s.wd_action);
    put_int(env, mask, "reserved", from->mask_s.reserved);
    put(env, value, "mask_s", mask);
    return value;
}

// Expands STAT(member) for each member of vx_eth_port_stats_t.
#define ALL_STATS(STAT)         \
    STAT(rx_uc_pkt)             \
    STAT(rx_mc_pkt)             \
    STAT(rx_bc_pkt)             \
    STAT(rx_oam_frm)            \
    STAT(rx_pause_frm)          \
    STAT(rx_unknown_ctrl_op)    \
    STAT(rx_crc_frm)            \
    STAT(rx_short_frm)          \
    STAT(rx_runt_frm)           \
    STAT(rx_long_frm)           \
    STAT(rx_jabber_frm)         \
    STAT(rx_64_byte_pkt)        \
    STAT(rx_65_127_byte_pkt)    \
    STAT(rx_128_255_byte_pkt)   \
    STAT(rx_256_511_byte_pkt)   \
    STAT(rx_512_1023_byte_pkt)  \
    STAT(rx_1024_1518_byte_pkt) \
    STAT(rx_1519_max_byte_pkt)  \
    STAT(rx_bytes)              \
    STAT(rx_pkts)               \
    STAT(rx_fifo_overflow_drop) \
    STAT(rx_user_drop)          \
    STAT(rx_fifo_bytes)         \
    STAT(rx_fifo_pkt)           \
    STAT(tx_uc_pkt)             \
    STAT(tx_mc_pkt)             \
    STAT(tx_bc_pkt)             \
    STAT(tx_oam_frm)            \
    STAT(tx_pause_frm)          \
    STAT(tx_crc_frm)            \
    STAT(tx_long_frm)           \
    STAT(tx_64_byte_pkt)        \
    STAT(tx_65_127_byte_pkt)    \
    STAT(tx_128_255_byte_pkt)   \
    STAT(tx_256_511_byte_pkt)   \
    STAT(tx_512_1023_byte_pkt)  \
    STAT(tx_1024_1518_byte_pkt) \
    STAT(tx_1519_max_byte_pkt)  \
    STAT(tx_bytes)              \
    STAT(tx_pkts)

bool take_stat(xmlrpc_env *env, xmlrpc_value *value, const char *name, vx_uint64 *to) {
    if (!xmlrpc_struct_has_key(env, value, name)) return true;
    xmlrpc_value *item;
    xmlrpc_struct_read_value(env, value, name, &item);
    xmlrpc_int64 number;
    if (xmlrpc_value_type(item) == XMLRPC_TYPE_I8) {
        xmlrpc_read_i8(env, item, &number);
        if (env->fault_occurred) return false;
    } else {
        xmlrpc_int narrow;
        if (!take_int(env, item, &narrow)) return false;
        number = narrow;
    }
    *to = static_cast<vx_uint64>(number);
    xmlrpc_DECREF(item);
    return true;
}

bool take_stats(xmlrpc_env *env, xmlrpc_value *value, vx_eth_port_stats_t *to) {
#define STAT(member) \
    if (!take_stat(env, value, #member, &to->member)) return false;
    ALL_STATS(STAT)
#undef STAT
    return true;
}

xmlrpc_value *make_stats(xmlrpc_env *env, const vx_eth_port_stats_t *from) {
    xmlrpc_value *value = xmlrpc_struct_new(env);
#define STAT(member) put(env, value, #member, xmlrpc_i8_new(env, static_cast<xmlrpc_int64>(from->member)));
    ALL_STATS(STAT)
#undef STAT
    return value;
}

// A pointer to numbers: an array of ints, or an int.
struct Valid {
    vx_uint16 *block = nullptr;
    int count = -1;  // -1: an int

    bool take(xmlrpc_env *env, xmlrpc_value *parameters, unsigned index) {
        xmlrpc_value *item;
        xmlrpc_array_read_item(env, parameters, index, &item);
        if (env->fault_occurred) return false;
        const xmlrpc_type form = xmlrpc_value_type(item);
        if (form == XMLRPC_TYPE_ARRAY) {
            count = xmlrpc_array_size(env, item);
            if (count > 0) block = take_block<vx_uint16>(static_cast<size_t>(count) + 1);
            for (int i = 0; i < count; ++i) {
                xmlrpc_int number;
                if (!take_int_parameter(env, item, static_cast<unsigned>(i), &number)) return false;
                block[i] = static_cast<vx_uint16>(number);
            }
        } else if (form == XMLRPC_TYPE_INT) {
            block = take_block<vx_uint16>(2);
            xmlrpc_int number;
            xmlrpc_read_int(env, item, &number);
            if (env->fault_occurred) return false;
            memcpy(block, &number, sizeof number);
        } else {
            return refuse(env, "expected an array or an int");
        }
        xmlrpc_DECREF(item);
        return true;
    }

    xmlrpc_value *make(xmlrpc_env *env) const {
        if (count < 0) return xmlrpc_int_new(env, *block);
        if (!block) return xmlrpc_nil_new(env);
        xmlrpc_value *array = xmlrpc_array_new(env);
        for (int i = 0; i < count; ++i) append(env, array, xmlrpc_int_new(env, block[i]));
        return array;
    }
};

}  // namespace

xmlrpc_value *straight_vx_reset(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {
    if (!has_parameters(env, parameters, 2)) return refuse_count(env);
    tracker.initialize();
    xmlrpc_int dev_id, rst_mode;
    if (!take_int_parameter(env, parameters, 0, &dev_id)) return nullptr;
    if (!take_int_parameter(env, parameters, 1, &rst_mode)) return nullptr;
    const auto device = static_cast<vx_dev_id_t>(dev_id);

    const vx_status_e status = vx_reset(device, static_cast<vx_reset_mode_t>(rst_mode));

    xmlrpc_value *result = xmlrpc_array_new(env);
    append(env, result, xmlrpc_int_new(env, status));
    append(env, result, xmlrpc_int_new(env, device));
    append(env, result, xmlrpc_int_new(env, rst_mode));
    tracker.free();
    return result;
}

xmlrpc_value *straight_vx_watchdog_set(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {
    if (!has_parameters(env, parameters, 2)) return refuse_count(env);
    tracker.initialize();
    xmlrpc_int dev_id;
    Structs<vx_watchdog_cfg_t> config;
    if (!take_int_parameter(env, parameters, 0, &dev_id)) return nullptr;
    if (!config.take(env, parameters, 1, take_watchdog)) return nullptr;
    const auto device = static_cast<vx_dev_id_t>(dev_id);

    const vx_status_e status = vx_watchdog_set(device, config.block);

    xmlrpc_value *result = xmlrpc_array_new(env);
    append(env, result, xmlrpc_int_new(env, status));
    append(env, result, xmlrpc_int_new(env, device));
    append(env, result, config.make(env, make_watchdog));
    tracker.free();
    return result;
}

xmlrpc_value *straight_vx_eth_port_stats_get(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {
    if (!has_parameters(env, parameters, 4)) return refuse_count(env);
    tracker.initialize();
    xmlrpc_int dev_id, port_id, clear;
    Structs<vx_eth_port_stats_t> stats;
    if (!take_int_parameter(env, parameters, 0, &dev_id)) return nullptr;
    if (!take_int_parameter(env, parameters, 1, &port_id)) return nullptr;
    if (!stats.take(env, parameters, 2, take_stats)) return nullptr;
    if (!take_int_parameter(env, parameters, 3, &clear)) return nullptr;
    const auto device = static_cast<vx_dev_id_t>(dev_id);
    const auto port = static_cast<vx_port_id_t>(port_id);
    const auto cleared = static_cast<vx_boolean>(clear);

    const vx_status_e status = vx_eth_port_stats_get(device, port, stats.block, cleared);

    xmlrpc_value *result = xmlrpc_array_new(env);
    append(env, result, xmlrpc_int_new(env, status));
    append(env, result, xmlrpc_int_new(env, device));
    append(env, result, xmlrpc_int_new(env, port));
    append(env, result, stats.make(env, make_stats));
    append(env, result, xmlrpc_int_new(env, cleared));
    tracker.free();
    return result;
}

xmlrpc_value *straight_lmq_init_system(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {
    if (!has_parameters(env, parameters, 1)) return refuse_count(env);
    tracker.initialize();
    Structs<vx_startup_cfg_t> config;
    const auto take_config = [](auto... arguments) { return bench::take(arguments...); };
    if (!config.take(env, parameters, 0, take_config)) return nullptr;

    const vx_status_e status = lmq_init_system(config.block);

    xmlrpc_value *result = xmlrpc_array_new(env);
    append(env, result, xmlrpc_int_new(env, status));
    append(env, result, config.make(env, [](auto... arguments) { return bench::make(arguments...); }));
    tracker.free();
    return result;
}

xmlrpc_value *straight_vx_flow_us_all_get(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {
    if (!has_parameters(env, parameters, 5)) return refuse_count(env);
    tracker.initialize();
    xmlrpc_int dev_id, port_id, get_cnt;
    Structs<vx_flow_us_cfg_t> flows;
    Valid valid;
    if (!take_int_parameter(env, parameters, 0, &dev_id)) return nullptr;
    if (!take_int_parameter(env, parameters, 1, &port_id)) return nullptr;
    if (!take_int_parameter(env, parameters, 2, &get_cnt)) return nullptr;
    const auto take_flow = [](auto... arguments) { return bench::take(arguments...); };
    if (!flows.take(env, parameters, 3, take_flow)) return nullptr;
    if (!valid.take(env, parameters, 4)) return nullptr;
    const auto device = static_cast<vx_dev_id_t>(dev_id);
    const auto port = static_cast<vx_port_id_t>(port_id);
    const auto count = static_cast<vx_uint16>(get_cnt);

    const vx_status_e status = vx_flow_us_all_get(device, port, count, flows.block, valid.block);

    xmlrpc_value *result = xmlrpc_array_new(env);
    append(env, result, xmlrpc_int_new(env, status));
    append(env, result, xmlrpc_int_new(env, device));
    append(env, result, xmlrpc_int_new(env, port));
    append(env, result, xmlrpc_int_new(env, count));
    append(env, result, flows.make(env, [](auto... arguments) { return bench::make(arguments...); }));
    append(env, result, valid.make(env));
    tracker.free();
    return result;
}

static xmlrpc_value *told(xmlrpc_env *env, const char *application_type, const char *primitive_type, const char *name,
                          bool is_udt, const char *doc) {
    xmlrpc_value *record = xmlrpc_struct_new(env);
    put_text(env, record, "application_type", application_type);
    put_text(env, record, "primative_type", primitive_type);
    put(env, record, "declaration_name", name ? xmlrpc_string_new(env, name) : xmlrpc_nil_new(env));
    put(env, record, "isUDT", xmlrpc_bool_new(env, is_udt));
    put_text(env, record, "doc", doc);
    return record;
}

static constexpr char no_help[] = "No help available";

// Loses the item's reference, as the plug-in does.
xmlrpc_value *straight_methodSignature(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {
    if (!has_parameters(env, parameters, 1)) return refuse_count(env);
    xmlrpc_value *item;
    xmlrpc_array_read_item(env, parameters, 0, &item);
    if (env->fault_occurred) return nullptr;
    if (xmlrpc_value_type(item) != XMLRPC_TYPE_STRING) return refuse_count(env);
    const char *name;
    xmlrpc_read_string(env, item, &name);
    if (env->fault_occurred) return nullptr;
    if (strcmp(name, told_method) != 0) return refuse_count(env);

    xmlrpc_value *list = xmlrpc_array_new(env);
    append(env, list,
           told(env, "vx_status_e", "int", nullptr, false,
                "vx_status_e vx_eth_port_stats_get( vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_stats_t * "
                "p_stats, vx_boolean clear )\n"
                "\n"
                "Retrives ETH port statistics\n"
                "\n"
                " This API retrieves ethernet port statistics. When clear is TRUE, the counters are\n"
                " cleared after they are read.\n"
                "  \n"
                "INPUTS:\n"
                "\n"
                "  dev_id  : device id\n"
                "  port_id : port id\n"
                "  p_stats : where to put the counters\n"
                "  clear   : TRUE to clear the counters after reading\n"
                "\n"
                "OUTPUTS:\n"
                "\n"
                "  p_stats : ethernet port statistics\n"
                "\n"
                "Returns:\n"
                "  VX_SUCCESS, or as defined in \n"));
    append(env, list, told(env, "vx_dev_id_t", "unsigned char", "dev_id", false, no_help));
    append(env, list, told(env, "vx_port_id_t", "unsigned short", "port_id", false, no_help));
    append(env, list, told(env, "vx_eth_port_stats_t *", "vx_eth_port_stats_t *", "p_stats", true, no_help));
    append(env, list, told(env, "vx_boolean", "unsigned char", "clear", false, no_help));
    free(const_cast<char *>(name));
    return list;
}

static xmlrpc_value *begin_enum(xmlrpc_env *env, const char *type, xmlrpc_value **values) {
    xmlrpc_value *record = xmlrpc_struct_new(env);
    put_text(env, record, "type", type);
    put_text(env, record, "doc", no_help);
    *values = xmlrpc_array_new(env);
    return record;
}

static void add_enumerator(xmlrpc_env *env, xmlrpc_value *values, const char *name, int value) {
    xmlrpc_value *record = xmlrpc_struct_new(env);
    put_text(env, record, "name", name);
    put_int(env, record, "value", value);
    put_text(env, record, "doc", no_help);
    append(env, values, record);
}

// Of each enumerator one call.
xmlrpc_value *straight_listEnums(xmlrpc_env *env, xmlrpc_value *, void *, void *) {
    xmlrpc_value *list = xmlrpc_array_new(env);
    xmlrpc_value *type = nullptr, *values = nullptr;
    const auto end_enum = [&] {
        put(env, type, "values", values);
        append(env, list, type);
    };
#define ENUM(T)           \
    if (type) end_enum(); \
    type = begin_enum(env, #T, &values);
#define ENUMERATOR(name) add_enumerator(env, values, #name, name);
#define BASED(base, name) \
    add_enumerator(env, values, #name, static_cast<int>(name) == static_cast<int>(base) ? name : name - base);
#include "introspect/enums.def"
#undef ENUM
#undef ENUMERATOR
#undef BASED
    end_enum();
    return list;
}

}  // namespace lmq::bench
