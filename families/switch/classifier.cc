// The classifier: UDTs, inner ones first, then the methods with their help texts.
#include "families/help.h"
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/classifier.h"

namespace lmq {

// cls_key is read and written without a look at key_type: each alternative that a client sends lands on the one before,
// and `key`, the last, replaces the first word. Where there are several keys an array is needed: a single struct is
// refused.
UDT(vx_cls_rule_cfg_t,
    SCALAR(lmq_fe_cls_key_type_e, key_type),
    SCALAR(vx_boolean,            entryvalid),
    INLINE(cls_key,
        NESTED(  lmq_fe_cls_ipv4_long_key_s,      cls_key.ipv4_long_key),
        UDT_LIST(lmq_fe_cls_ipv4_short_key_s,     cls_key.ipv4_short_key, 4),
        NESTED(  lmq_fe_cls_ipv6_long_key_s,      cls_key.ipv6_long_key),
        NESTED(  lmq_fe_cls_ipv6_short_key_s,     cls_key.ipv6_short_key),
        UDT_LIST(lmq_fe_cls_mirror_key_s,         cls_key.mirror_key, 8),
        UDT_LIST(lmq_fe_cls_mac_vlan_key_s,       cls_key.mac_vlan_key, 4),
        UDT_LIST(lmq_fe_cls_mac_etype_key_s,      cls_key.mac_etype_key, 4),
        UDT_LIST(lmq_fe_cls_ctrl_pkt_key_s,       cls_key.ctrl_pkt_key, 4),
        UDT_LIST(lmq_fe_cls_vlan_key_s,           cls_key.vlan_key, 8),
        UDT_LIST(lmq_fe_cls_vlan_range_key_s,     cls_key.vlan_range_key, 8),
        UDT_LIST(lmq_fe_cls_proto_key_s,          cls_key.proto_key, 4),
        UDT_LIST(lmq_fe_cls_mcast_key_s,          cls_key.mcast_key, 2),
        UDT_LIST(lmq_fe_cls_ext_vlan_key_s,       cls_key.ext_vlan_key, 4),
        UDT_LIST(lmq_fe_cls_gem_mcast_key_s,      cls_key.gem_mcast_key, 2),
        UDT_LIST(lmq_fe_cls_gem_ctrl_pkt_key_s,   cls_key.gem_ctrl_pkt_key, 4),
        UDT_LIST(lmq_fe_cls_ipv4_mcast_pkt_key_s, cls_key.ipv4_mcast_key, 3),
        SCALAR(  vx_uint32,                       cls_key.key)))

// Eight flags for 36 members: each stands for a group.
UDT(vx_cls_fib_data_t,
    SCALAR(vx_boolean,                  valid_flag),
    SCALAR(vx_boolean,                  permit),
    SCALAR(vx_boolean,                  permit_filter_dis),
    SCALAR(vx_boolean,                  permit_priority),
    SCALAR(vx_uint16,                   dst_port_num),
    SCALAR(vx_boolean,                  mirror_enbl),
    SCALAR(vx_boolean,                  mirror_pkt_src),
    SCALAR(lmq_fe_cls_gem_sel_e,        gem_id_sel),
    SCALAR(vx_uint8,                    gem_subpid),
    SCALAR(lmq_fe_cls_vlan_cmd_e,       inner_vlan_cmd),
    SCALAR(lmq_fe_cls_inner_tpid_sel_e, inner_tpid_sel),
    SCALAR(vx_uint16,                   inner_vid),
    SCALAR(vx_boolean,                  top_vid_sel),
    SCALAR(lmq_fe_cls_vlan_cmd_e,       top_vlan_cmd),
    SCALAR(lmq_fe_cls_outer_tpid_sel_e, top_tpid_sel),
    SCALAR(vx_uint16,                   top_vid),
    SCALAR(lmq_fe_cls_egr_chk_vlan_e,   egr_chk_vlan_sel),
    SCALAR(vx_boolean,                  outer_de_override_enbl),
    SCALAR(vx_uint8,                    outer_de_value),
    SCALAR(vx_boolean,                  inner_de_override_enbl),
    SCALAR(vx_uint8,                    inner_de_value),
    SCALAR(lmq_fe_cls_dscp_sel_e,       dscp_sel),
    SCALAR(vx_uint8,                    dscp),
    SCALAR(lmq_fe_cls_dot1p_sel_e,      inner_dot1p_sel),
    SCALAR(vx_uint8,                    inner_dot1p),
    SCALAR(lmq_fe_cls_dot1p_sel_e,      top_dot1p_sel),
    SCALAR(vx_uint8,                    top_dot1p),
    SCALAR(lmq_fe_cls_cos_sel_e,        cos_sel),
    SCALAR(vx_uint8,                    cos),
    SCALAR(vx_boolean,                  learn_dsbl),
    SCALAR(vx_boolean,                  learn_limit_permit),
    SCALAR(lmq_fe_cls_flow_id_sel_e,    flow_id_sel),
    SCALAR(vx_uint8,                    flow_id),
    SCALAR(vx_boolean,                  bypass_rate_limiter),
    SCALAR(vx_boolean,                  sw_id_sel),
    SCALAR(vx_uint8,                    sw_id),
    MASK(valid, vx_uint32,
         dst_port_fields, vlan_fields, dscp_fields, dot1p_fields, cos_fields, learn_fields, rate_limit_fields,
         sw_id_fields))

// The mask has no mask_s and no word beside it.
UDT(vx_cls_cl_ctrl_t,
    ELEMENTS(vx_mac_addr_t, mac_da_high, 6),
    ELEMENTS(vx_mac_addr_t, mac_da_low, 6),
    SCALAR(  vx_boolean,    mac_filter_aging_en),
    SCALAR(  vx_boolean,    tos_ecn_msk_en),
    SCALAR(  vx_boolean,    ce_msk_cfi_flg),
    FLAGS(valid, mac_da_range, mac_filter_aging_en, tos_ecn_msk_en, ce_msk_cfi_flg, rsvd))

// domain_name travels as numbers and is no string.
UDT(vx_cls_domain_res_t,
    ELEMENTS(vx_uint8, domain_name, 20),
    SCALAR(  vx_uint8, cl_entry_start),
    SCALAR(  vx_uint8, cl_entry_length))

UDT(vx_cls_l4_port_range_t,
    SCALAR(vx_boolean, cmp_en),
    SCALAR(vx_uint16,  low_port),
    SCALAR(vx_uint16,  high_port))

UDT(vx_cls_spcl_ptn_t,
    SCALAR(vx_cls_spcl_ptn_type_t, spcl_ptn_type),
    SCALAR(vx_cls_spcl_ptn_cmp_t,  spcl_ptn_cmp),
    SCALAR(vx_uint16,              spcl_ptn_key),
    SCALAR(vx_uint16,              spcl_ptn_mask))

UDT(vx_cls_spcl_ptn_control_t,
    SCALAR(vx_cls_spcl_mode_t, spcl_hdr_mode_sel),
    SCALAR(vx_boolean,         spcl_hdr_after_l2hdr_en),
    SCALAR(vx_boolean,         spcl_hdr_after_iphdr_en),
    SCALAR(vx_boolean,         spcl_hdr_after_l4hdr_en),
    SCALAR(vx_boolean,         spcl_hdr_parsing_en),
    SCALAR(vx_uint8,           spcl_glb_hdr_strt_idx))

UDT(vx_cls_mac_aging_t,
    SCALAR(vx_boolean, entry_dynamic),
    SCALAR(vx_uint32,  max_limit))

UDT(vx_cls_debug_status_t,
    SCALAR(vx_uint16, hit_fibindex_recent),
    SCALAR(vx_uint16, hit_fibindex_previous),
    SCALAR(vx_uint16, hit_fibindex_earlier),
    SCALAR(vx_uint16, fibindex_vlan_rslt),
    SCALAR(vx_uint16, fibindex_dscp_rslt),
    SCALAR(vx_uint16, fibindex_dpid_rslt),
    SCALAR(vx_uint16, fibindex_cos_rslt),
    SCALAR(vx_uint16, fibindex_l2_lrn_rslt),
    SCALAR(vx_uint16, fibindex_dot1p_rslt),
    SCALAR(vx_uint16, fibindex_permit_pri_rslt),
    SCALAR(vx_uint16, fibindex_rate_lmt_rslt),
    SCALAR(vx_uint8,  entry0_hit_count),
    SCALAR(vx_uint8,  entry1_hit_count),
    SCALAR(vx_uint8,  entry2_hit_count),
    SCALAR(vx_uint8,  entry3_hit_count),
    SCALAR(vx_uint8,  entry4_hit_count),
    SCALAR(vx_uint8,  entry5_hit_count),
    SCALAR(vx_uint8,  entry6_hit_count),
    SCALAR(vx_uint8,  entry7_hit_count),
    SCALAR(vx_uint8,  entry8_hit_count),
    SCALAR(vx_uint8,  entry9_hit_count),
    SCALAR(vx_uint8,  entry10_hit_count),
    SCALAR(vx_uint8,  entry11_hit_count),
    SCALAR(vx_uint8,  entry12_hit_count),
    SCALAR(vx_uint8,  entry13_hit_count),
    SCALAR(vx_uint8,  entry14_hit_count),
    SCALAR(vx_uint8,  entry15_hit_count),
    SCALAR(vx_uint8,  user_entry),
    SCALAR(vx_uint32, user_entry_hit_cnt))

UDT(vx_cls_debug_prog_ent_cnt_t,
    SCALAR(vx_uint8,  entry_addr),
    SCALAR(vx_uint32, hit_count))

UDT(lmq_fe_pkt_stats_s,
    SCALAR(vx_uint32, ingr_pkt_cnt),
    SCALAR(vx_uint32, egrs_pkt_cnt),
    SCALAR(vx_uint32, pkt_drop_cnt),
    SCALAR(vx_uint8,  outer_pop_err),
    SCALAR(vx_uint8,  outer_swap_err),
    SCALAR(vx_uint8,  inner_pop_err),
    SCALAR(vx_uint8,  inner_swap_err),
    SCALAR(vx_uint8,  inner_push_err),
    SCALAR(vx_uint8,  vlan_op_runt_pkt))

// valid is a member, not a mask, and key_type selects among the keys of a flow.
UDT(lmq_entry_status,
    SCALAR(vx_uint8,         entry_id),
    SCALAR(vx_boolean,       valid),
    SCALAR(vx_cl_key_type_t, key_type),
    SCALAR(vx_uint8,         key_cnt),
    SCALAR(vx_uint8,         valid_key_bitmap),
    SCALAR(vx_uint32,        entry_hit_cnt))

UDT(lmq_fe_cl_entry_status,
    SCALAR(   vx_uint8,         valid_cnt),
    UDT_ARRAY(lmq_entry_status, entry_status, 48))

METHOD(vx_cls_init, no_help, VALUE(vx_dev_id_t, dev_id))

METHOD(vx_cls_ctrl_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_cls_cl_ctrl_t, cfg))
METHOD(vx_cls_ctrl_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_cls_cl_ctrl_t, cfg))

METHOD(vx_cls_domain_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, domain_id),
       UDT_PTR(vx_cls_domain_res_t, p_cfg))
METHOD(vx_cls_domain_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, domain_id),
       UDT_PTR(vx_cls_domain_res_t, p_cfg))
METHOD(vx_cls_domain_rule_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, domain_id))

METHOD(vx_cls_rule_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, domain_id),
       VALUE(vx_uint8, rule_offset), UDT_PTR(vx_cls_rule_cfg_t, p_cfg))
METHOD(vx_cls_rule_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, domain_id),
       VALUE(vx_uint8, rule_offset), UDT_PTR(vx_cls_rule_cfg_t, p_cfg))

METHOD(vx_cls_fib_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, domain_id),
       VALUE(vx_uint8, key_offset), UDT_PTR(vx_cls_fib_data_t, p_cfg))
METHOD(vx_cls_fib_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, domain_id),
       VALUE(vx_uint8, key_offset), UDT_PTR(vx_cls_fib_data_t, p_cfg))

METHOD(vx_cls_no_match_fib_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_cls_fib_data_t, p_cfg))
METHOD(vx_cls_no_match_fib_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_cls_fib_data_t, p_cfg))

METHOD(vx_cls_type_no_match_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint32, key_type_bitmap),
       VALUE(vx_uint32, deny_bitmap))
METHOD(vx_cls_type_no_match_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint32, key_type_bitmap),
       ELEMENT_PTR(vx_uint32, deny_bitmap))

METHOD(vx_cls_l4_port_range_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_cls_l4_port_type_t, port_type),
       VALUE(vx_uint8, index), UDT_PTR(vx_cls_l4_port_range_t, p_cfg))
METHOD(vx_cls_l4_port_range_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_cls_l4_port_type_t, port_type),
       VALUE(vx_uint8, index), UDT_PTR(vx_cls_l4_port_range_t, p_cfg))

METHOD(vx_cls_spcl_ptn_ctrl_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_cls_spcl_ptn_control_t, p_cfg))
METHOD(vx_cls_spcl_ptn_ctrl_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_cls_spcl_ptn_control_t, p_cfg))

METHOD(vx_cls_spcl_ptn_entry_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, index),
       UDT_PTR(vx_cls_spcl_ptn_t, p_cfg))
METHOD(vx_cls_spcl_ptn_entry_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, index),
       UDT_PTR(vx_cls_spcl_ptn_t, p_cfg))

METHOD(vx_cls_aging_timer_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, index),
       UDT_PTR(vx_cls_mac_aging_t, p_cfg))
METHOD(vx_cls_aging_timer_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, index),
       UDT_PTR(vx_cls_mac_aging_t, p_cfg))

METHOD(vx_cls_mac_filter_aging_vld_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_uint32, bitmap_high),
       ELEMENT_PTR(vx_uint32, bitmap_low))
METHOD(vx_cls_mac_filter_aged_latest_entry_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_uint8, entry_index))

// The device is an int here, and is called device_id: it is not narrowed to the byte that other methods take.
METHOD(vx_port_mirror_set, no_help,
       VALUE(vx_int32, device_id), VALUE(vx_port_id_t, dst_port), VALUE(vx_uint32, rx_port_bitmap),
       VALUE(vx_uint32, tx_port_bitmap))
METHOD(vx_port_mirror_get, no_help,
       VALUE(vx_int32, device_id), ELEMENT_PTR(vx_port_id_t, dst_port), ELEMENT_PTR(vx_uint32, rx_port_bitmap),
       ELEMENT_PTR(vx_uint32, tx_port_bitmap))

METHOD(vx_cls_debug_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_cls_debug_status_t, p_dbg_stat))
METHOD(vx_cls_debug_prog_count_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_cls_debug_prog_ent_cnt_t, p_cfg))
METHOD(lmq_get_fe_cl_entry_status, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_fe_id_e, fe_inst), UDT_PTR(lmq_fe_cl_entry_status, p_status))

// The last sentence of the two counter methods breaks off.
constexpr Help help_lmq_get_fe_pkt_stats{
    .title = "Retrives FE packet statistics",
    .text = "This API retrieves the packet statistics of a forwarding engine, and can clear them.\n",
    .inputs = "fe_id   : forwarding engine\n"
              "p_stats : where to put the statistics\n"
              "clear   : a flag indicating that counters are cleared after reading\n",
    .outputs = "p_stats : packet statistics\n",
    .returns = returns_unfinished,
};
METHOD(lmq_get_fe_pkt_stats, help_lmq_get_fe_pkt_stats,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_fe_id_e, fe_id), UDT_PTR(lmq_fe_pkt_stats_s, p_stats),
       VALUE(vx_boolean, clear))

constexpr Help help_lmq_clear_fe_pkt_stats{
    .title = "Clears FE packet statistics",
    .text = "This API clears the packet statistics of a forwarding engine.\n",
    .inputs = "fe_id  : forwarding engine\n",
    .returns = returns_unfinished,
};
METHOD(lmq_clear_fe_pkt_stats, help_lmq_clear_fe_pkt_stats, VALUE(vx_dev_id_t, dev_id), VALUE(lmq_fe_id_e, fe_id))

METHOD(lmq_dump_cls_key, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, entry_idx))
METHOD(lmq_dump_cls_key_list, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))

// The two dumps carry the same text but for the title; what the second calls flow_id is the argument cnt.
constexpr Help help_lmq_dump_pkt_flow{
    .title = "PRINT PACKET FLOW INFO (DEBUG API)",
    .text = "Dump the packet flow\n",
    .inputs = "flow_id : flow id assigned by application.\n",
    .returns = "LMQ_OK, or error code as defined in lmq_ext_error.h\n",
};
METHOD(lmq_dump_pkt_flow, help_lmq_dump_pkt_flow, VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id))

constexpr Help help_lmq_dump_pkt_flow_all{
    .title = "PRINT PACKET FLOW(S) INFO (DEBUG API)",
    .text = "Dump the packet flow\n",
    .inputs = "flow_id : flow id assigned by application.\n",
    .returns = "LMQ_OK, or error code as defined in lmq_ext_error.h\n",
};
METHOD(lmq_dump_pkt_flow_all, help_lmq_dump_pkt_flow_all, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, cnt))

} // namespace lmq
