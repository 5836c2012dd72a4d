// The access control lists: unknown flows, custom packet fields and custom filters of each port.
//
// Choices:
// - Packets of unknown flows pass until they are blocked. No packet is ever looked at: filters are kept.
// - An added field takes all members, a changed one those that are flagged; deletion looks at neither.
// - A read of the field table fills all of its eight elements, as nothing says how many the caller has room for. An
//   index that is not in use reads as zeros.
// - A port holds 48 filters, as many as the classifier has entries. Filters are told apart by the whole key. The same
//   key with the same type is a duplicate, with the other type a conflict of modes.
// - A key that names custom fields needs all of them in use, and a field that a filter names is not deleted.
#include "driver/acl.h"

#include <algorithm>
#include <cstring>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

using Field = vx_acl_custom_pkt_field_tbl_entry_t;
using Filter = vx_acl_custom_pkt_filter_t;

template <typename Body>
vx_status_e on_port(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id,
                    std::initializer_list<const void *> pointers, Body body) {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        return run(body, device.acl.ports[port_id]);
    });
}

[[nodiscard]] vx_status_e check(const Field &field, bool ref_point) {
    if (ref_point) {
        if (!is_in_range(field.ref_point, VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L2_HDR,
                         VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_START_OF_PKT))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    return VX_SUCCESS;
}

/* The custom fields that a key names, as bits. Both kinds of key have these alternatives, at the same place. */
vx_uint32 fields_of(const vx_flow_key_t &key) {
    switch (key.us.key_type) {
        case VX_CL_KEY_MAC_IP_PROTO:
            return key.us.key_s.mac_ip_proto.valid.mask_s.custom_pkt_fld_bitmap
                       ? key.us.key_s.mac_ip_proto.custom_pkt_fld_bitmap
                       : 0;
        case VX_CL_KEY_IPV4_LONG:
        case VX_CL_KEY_GEM_IPV4_LONG:
            return key.us.key_s.ipv4_long.valid.mask_s.custom_pkt_fld_bitmap
                       ? key.us.key_s.ipv4_long.custom_pkt_fld_bitmap
                       : 0;
        case VX_CL_KEY_IPV6_LONG:
        case VX_CL_KEY_GEM_IPV6_LONG:
            return key.us.key_s.ipv6_long.valid.mask_s.custom_pkt_fld_bitmap
                       ? key.us.key_s.ipv6_long.custom_pkt_fld_bitmap
                       : 0;
        default: return 0;
    }
}

auto find(Acl::Port &port, const vx_flow_key_t &key) {
    return std::find_if(port.filters.begin(), port.filters.end(),
                        [&](const Filter &filter) { return std::memcmp(&filter.flow_key, &key, sizeof key) == 0; });
}

[[nodiscard]] vx_status_e add(Acl::Port &port, const Filter &filter) {
    const vx_uint32 fields = fields_of(filter.flow_key);
    for (vx_uint32 index = 0; index < 32; ++index) {
        if ((fields >> index & 1U) == 0) continue;
        if (index >= Acl::field_count || !port.fields[index].valid) return VX_ERR_FE_CLS_KEY_RESOURCE_UNAVAIL;
    }
    const auto kept = find(port, filter.flow_key);
    if (kept != port.filters.end()) {
        return kept->filter_type == filter.filter_type ? VX_ERR_FE_DUPLICATE_CUSTOM_FILTER
                                                       : VX_ERR_FE_MAC_FILTER_MODE_CONFILCT;
    }
    if (port.filters.size() >= Acl::max_filters) return VX_ERR_FE_CLS_ENTRY_UNAVAIL;
    port.filters.push_back(filter);
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e remove(Acl::Port &port, const vx_flow_key_t &key) {
    const auto kept = find(port, key);
    if (kept == port.filters.end()) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
    port.filters.erase(kept);
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check_key_type(const Filter &filter) {
    const vx_cl_key_type_t type = filter.flow_key.us.key_type;
    if (type <= VX_CL_KEY_INVALID || type >= VX_CL_KEY_MAX) return VX_ERR_FE_CLS_INVALID_KEY_TYPE;
    return VX_SUCCESS;
}

vx_status_e set_unknown(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id, bool allow) {
    return on_port(function, dev_id, port_id, {}, [&](Acl::Port &port) { port.allow_unknown_flows = allow; });
}

}  // namespace

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_acl_unknown_flow_allow(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return set_unknown(__func__, dev_id, port_id, true);
}

vx_status_e vx_acl_unknown_flow_block(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return set_unknown(__func__, dev_id, port_id, false);
}

vx_status_e vx_acl_unknown_flow_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *p_allow) {
    return on_port(__func__, dev_id, port_id, {p_allow},
                   [&](Acl::Port &port) { *p_allow = port.allow_unknown_flows ? TRUE : FALSE; });
}

vx_status_e vx_acl_custom_field_parser_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                                  vx_acl_custom_field_parser_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Acl::Port &port) {
        if (!is_in_range(p_cfg->ext_mode, VX_ACL_CUSTOM_FIELD_EXT_MODE_STATIC, VX_CUSTOM_FIELD_EXT_MODE_DYNAMIC) ||
            !is_in_range(p_cfg->pkt_type_bitmap, 0, VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_ALL))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        port.parser = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_acl_custom_field_parser_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                                  vx_acl_custom_field_parser_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Acl::Port &port) { *p_cfg = port.parser; });
}

vx_status_e vx_acl_custom_pkt_field_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                              vx_acl_op_mode_t op_mode, vx_acl_custom_pkt_field_tbl_entry_t *p_entry) {
    return on_port(__func__, dev_id, port_id, {p_entry}, [&](Acl::Port &port) {
        if (!is_in_range(tbl_indx, 0, Acl::field_count - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        Field &kept = port.fields[tbl_indx];
        const auto &flags = p_entry->mask;
        const vx_boolean half = p_entry->lsb_or_msb ? TRUE : FALSE;
        switch (op_mode) {
            case VX_ACL_OP_ADD:
                if (kept.valid) return VX_ERR_GLBL_ENTRY_EXIST;
                if (const vx_status_e refused = check(*p_entry, true)) return refused;
                kept = *p_entry;
                kept.valid = TRUE;
                kept.lsb_or_msb = half;
                kept.mask = {.ref_point = 1, .key = 1, .valid_bitmap = 1, .lsb_or_msb = 1};
                return VX_SUCCESS;
            case VX_ACL_OP_DELETE:
                if (!kept.valid) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
                if (std::any_of(port.filters.begin(), port.filters.end(),
                                [&](const Filter &filter) { return fields_of(filter.flow_key) >> tbl_indx & 1U; }))
                    return VX_ERR_GLBL_INVALID_OP;
                kept = {};
                return VX_SUCCESS;
            case VX_ACL_OP_MODIFY:
                if (!kept.valid) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
                if (const vx_status_e refused = check(*p_entry, flags.ref_point)) return refused;
                merge(flags.ref_point, kept.ref_point, p_entry->ref_point);
                merge(flags.key, kept.key, p_entry->key);
                merge(flags.valid_bitmap, kept.valid_bitmap, p_entry->valid_bitmap);
                merge(flags.lsb_or_msb, kept.lsb_or_msb, half);
                return VX_SUCCESS;
        }
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    });
}

vx_status_e vx_acl_custom_pkt_field_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                              vx_acl_custom_pkt_field_tbl_entry_t *p_entry) {
    return on_port(__func__, dev_id, port_id, {p_entry},
                   [&](Acl::Port &port) { std::copy(port.fields.begin(), port.fields.end(), p_entry); });
}

vx_status_e vx_acl_custom_pkt_filter_add(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                         vx_acl_custom_pkt_filter_t *p_entry) {
    return on_port(__func__, dev_id, port_id, {p_entry}, [&](Acl::Port &port) {
        if (!is_in_range(p_entry->filter_type, LMQ_FILTER_DISABLE, LMQ_FILTER_NEGATIVE))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (const vx_status_e refused = check_key_type(*p_entry)) return refused;
        if (p_entry->filter_type == LMQ_FILTER_DISABLE) return remove(port, p_entry->flow_key);
        return add(port, *p_entry);
    });
}

vx_status_e vx_acl_custom_pkt_filter_delete(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                            vx_acl_custom_pkt_filter_t *p_entry) {
    return on_port(__func__, dev_id, port_id, {p_entry}, [&](Acl::Port &port) {
        if (const vx_status_e refused = check_key_type(*p_entry)) return refused;
        return remove(port, p_entry->flow_key);
    });
}

vx_status_e vx_acl_custom_pkt_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 req_cnt,
                                         vx_acl_custom_pkt_filter_t *p_entry, vx_uint16 *p_valid_cnt) {
    return on_port(__func__, dev_id, port_id, {p_entry, p_valid_cnt}, [&](Acl::Port &port) {
        const std::size_t count = std::min<std::size_t>(req_cnt, port.filters.size());
        std::copy_n(port.filters.begin(), count, p_entry);
        *p_valid_cnt = static_cast<vx_uint16>(count);
    });
}

}  // extern "C"
