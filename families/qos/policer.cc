// Rate limits and policers, their counters, and the buffer manager: inner UDTs first, then the methods with their help
// texts.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/policer.h"

namespace lmq {

// "commited" is the spelling of the interface, as flw_pol_id below is.
UDT(vx_rate_limit_cfg_t,
    SCALAR(vx_rate_mode_t, pol_type),
    SCALAR(vx_uint32,      peak_rate),
    SCALAR(vx_uint32,      commited_burst))

UDT(vx_global_policer_cfg_t,
    SCALAR(vx_uint8,        ipg_ovrhd_bytes),
    SCALAR(vx_pol_td_sel_t, tail_drp_sel))

UDT(vx_global_policer_cap_t,
    SCALAR(vx_pol_type_t,         pol_type),
    SCALAR(vx_wred_mode_t,        wred_mode),
    SCALAR(vx_pol_col_mode_t,     color_mode),
    SCALAR(vx_pol_tkn_bkt_type_t, tkn_bkt_type),
    SCALAR(vx_uint8,              num_flow_pol))

UDT(vx_flow_policing_cfg_t,
    SCALAR(vx_flow_pol_sel_t, flow_pol_sel),
    SCALAR(vx_pol_id_t,       flw_pol_id))

UDT(vx_flow_policer_status_t,
    SCALAR(vx_boolean,  flow_pol_enb),
    SCALAR(vx_pol_id_t, flow_pol_id),
    SCALAR(vx_pol_id_t, grp_pol_id))

UDT(vx_lmq_rate_limit_t,
    SCALAR(lmq_policer_rl_mode_t, rl_mode),
    SCALAR(vx_uint32,             cbs),
    SCALAR(vx_uint32,             rate))

UDT(vx_lmq_pol_port_shape_t,
    SCALAR(lmq_policer_shp_mode_t, shp_mode),
    SCALAR(vx_uint32,              cbs),
    SCALAR(vx_uint32,              rate))

// A mask at the top of its UDT, with no `valid` around it: fault texts name mask_s and mask.
UDT(vx_lmq_storm_ctrl_mod_t,
    FLAGS(mask_s, un_bc, un_mc, un_unicast, bc, mc),
    SCALAR(vx_uint32, mask))

// Counters of 64 bits: an i8 on the wire, which shows those from 2^63 on as negative.
UDT(vx_pol_cpu_stats_t,
    SCALAR(vx_uint64, fwd_pkt),
    SCALAR(vx_uint64, pir_drop_pkt),
    SCALAR(vx_uint64, tail_drop_pkt))

UDT(vx_pol_flow_stat_t,
    SCALAR(vx_uint64, fwd_pkt),
    SCALAR(vx_uint64, pir_drop_pkt),
    SCALAR(vx_uint64, tail_drop_pkt))

UDT(vx_pol_group_stats_t,
    SCALAR(vx_uint64, fwd_pkt),
    SCALAR(vx_uint64, drop_pkt))

UDT(vx_pol_src_port_stat_t,
    SCALAR(vx_uint64, fwd_pkt),
    SCALAR(vx_uint64, pir_drop_pkt),
    SCALAR(vx_uint64, tail_drop_pkt),
    SCALAR(vx_uint64, mc_fwd),
    SCALAR(vx_uint64, mc_pir_drop),
    SCALAR(vx_uint64, mc_tail_drop),
    SCALAR(vx_uint64, bc_fwd),
    SCALAR(vx_uint64, bc_pir_drop),
    SCALAR(vx_uint64, bc_tail_drop),
    SCALAR(vx_uint64, uuc_fwd),
    SCALAR(vx_uint64, uuc_pir_drop),
    SCALAR(vx_uint64, uuc_tail_drop))

// The ma_ group alone has no bm_abr_drop.
UDT(lmq_bm_pkt_stats_s,
    SCALAR(vx_uint32, pon_rx_pkt),
    SCALAR(vx_uint32, pon_tx_pkt),
    SCALAR(vx_uint32, pon_fe_pkt_drop),
    SCALAR(vx_uint32, pon_bm_pkt_drop),
    SCALAR(vx_uint32, pon_bm_abr_drop),
    SCALAR(vx_uint32, pon_enq_pkt_cnt),
    SCALAR(vx_uint32, pon_deque_pkt_cnt),
    SCALAR(vx_uint32, pon_ingr_pkt_drop),
    SCALAR(vx_uint32, ge_rx_pkt),
    SCALAR(vx_uint32, ge_tx_pkt),
    SCALAR(vx_uint32, ge_fe_pkt_drop),
    SCALAR(vx_uint32, ge_bm_pkt_drop),
    SCALAR(vx_uint32, ge_bm_abr_drop),
    SCALAR(vx_uint32, ge_enq_pkt_cnt),
    SCALAR(vx_uint32, ge_deque_pkt_cnt),
    SCALAR(vx_uint32, ge_ingr_pkt_drop),
    SCALAR(vx_uint32, ma_rx_pkt),
    SCALAR(vx_uint32, ma_tx_pkt),
    SCALAR(vx_uint32, ma_fe_pkt_drop),
    SCALAR(vx_uint32, ma_bm_pkt_drop),
    SCALAR(vx_uint32, ma_enq_pkt_cnt),
    SCALAR(vx_uint32, ma_deque_pkt_cnt),
    SCALAR(vx_uint32, ma_ingr_pkt_drop))

UDT(lmq_bm_queue_sts,
    SCALAR(vx_uint32,  buf_limit),
    SCALAR(vx_boolean, rx_stat),
    SCALAR(vx_boolean, tx_stat),
    SCALAR(vx_uint16,  dwrr_ratio),
    SCALAR(vx_uint16,  used_buf_cnt))

UDT(lmq_ebm_queue_sts,
    SCALAR(vx_uint32,  que_size),
    SCALAR(vx_boolean, rx_stat),
    SCALAR(vx_boolean, tx_stat),
    SCALAR(vx_uint16,  dwrr_ratio),
    SCALAR(vx_uint32,  high_thresh),
    SCALAR(vx_uint32,  low_thresh),
    SCALAR(vx_uint32,  rx_pkt_cnt),
    SCALAR(vx_uint32,  tx_pkt_cnt),
    SCALAR(vx_uint16,  used_byte_cnt),
    SCALAR(vx_uint32,  used_buf_cnt))

UDT(lmq_bm_queue_status_s,
    SCALAR(   vx_uint32,         tot_port_limit),
    SCALAR(   vx_uint16,         tot_used_buf_cnt),
    SCALAR(   vx_uint32,         valid_que_bitmap),
    UDT_ARRAY(lmq_bm_queue_sts,  bm_que_status, ((vx_uint8)8)),
    UDT_ARRAY(lmq_ebm_queue_sts, ebm_que_status, ((vx_uint8)8)))

// The bounds are numbers here, though LMQ_MAX_NUM_GRP_POL and LMQ_MAX_NUM_FLOW_POL have the same values.
UDT(lmq_flow_policer_info_s,
    SCALAR(  vx_uint32, grp_pol_bitmap),
    SCALAR(  vx_uint32, flow_pol_bitmap),
    ELEMENTS(vx_uint32, grp_pol_mem_bitmap, 4),
    ELEMENTS(vx_uint32, flow_pol_mem_bitmap, 64))

METHOD(vx_rate_global_policer_capability_get, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_global_policer_cap_t, cfg))

METHOD(vx_rate_global_policer_set, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_global_policer_cfg_t, cfg))
METHOD(vx_rate_global_policer_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_global_policer_cfg_t, cfg))

METHOD(vx_rate_cpu_set, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_rate_limit_cfg_t, cfg))
METHOD(vx_rate_cpu_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_rate_limit_cfg_t, cfg))

METHOD(vx_rate_storm_control_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_storm_control_type_t, pol_pkt_type),
       UDT_PTR(vx_rate_limit_cfg_t, cfg))
METHOD(vx_rate_storm_control_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_storm_control_type_t, pol_pkt_type),
       UDT_PTR(vx_rate_limit_cfg_t, cfg))

METHOD(vx_rate_src_port_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_rate_limit_cfg_t, cfg))
METHOD(vx_rate_src_port_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_rate_limit_cfg_t, cfg))

METHOD(vx_rate_group_policer_create, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_rate_limit_cfg_t, cfg), ELEMENT_PTR(vx_pol_id_t, p_grp_pol_id))
METHOD(vx_rate_group_policer_delete, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, grp_pol_id))
METHOD(vx_rate_group_policer_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, grp_pol_id), UDT_PTR(vx_rate_limit_cfg_t, cfg))
METHOD(vx_rate_group_policer_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, grp_pol_id), UDT_PTR(vx_rate_limit_cfg_t, cfg))

METHOD(vx_rate_policer_group_member_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, flow_pol_id), VALUE(vx_pol_id_t, grp_pol_id))
METHOD(vx_rate_policer_group_member_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, flow_pol_id), VALUE(vx_pol_id_t, grp_pol_id))

METHOD(vx_rate_policer_create, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_rate_limit_cfg_t, cfg), ELEMENT_PTR(vx_pol_id_t, flow_pol_id))
METHOD(vx_rate_policer_delete, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, flow_pol_id))
METHOD(vx_rate_policer_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, flow_pol_id), UDT_PTR(vx_rate_limit_cfg_t, cfg))
METHOD(vx_rate_policer_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, flow_pol_id), UDT_PTR(vx_rate_limit_cfg_t, cfg))

METHOD(vx_rate_flow_id_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id), UDT_PTR(vx_flow_policing_cfg_t, cfg))
METHOD(lmq_disable_flow_policing, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, flw_pol_id))

METHOD(vx_rate_policer_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id), UDT_PTR(vx_flow_policer_status_t, policer_status))
METHOD(lmq_get_flow_policer_info, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_flow_policer_info_s, p_info))

METHOD(vx_lmq_rate_limit_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_lmq_pol_flow_type_t, type), UDT_PTR(vx_lmq_rate_limit_t, cfg))
METHOD(vx_lmq_rate_limit_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_lmq_pol_flow_type_t, type), UDT_PTR(vx_lmq_rate_limit_t, cfg))

METHOD(vx_lmq_rate_storm_ctrl_mode_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_lmq_storm_ctrl_mod_t, mode))
METHOD(vx_lmq_rate_storm_ctrl_mode_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_lmq_storm_ctrl_mod_t, mode))

METHOD(vx_lmq_rate_shaper_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_lmq_pol_port_shape_t, cfg))
METHOD(vx_lmq_rate_shaper_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_lmq_pol_port_shape_t, cfg))

// flow_id is a plain word here, not a vx_flow_id_t.
METHOD(vx_lmq_rate_group_member_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, flow_id), VALUE(lmq_pol_acc_flow_type_t, flow_type))
METHOD(vx_lmq_rate_group_member_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, flow_id), VALUE(lmq_pol_acc_flow_type_t, flow_type))

METHOD(vx_lmq_rate_shape_stats_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_uint32, count))

constexpr Help help_vx_bm_pkt_stats_get{
    .title = "Retrives BM packet statistics",
    .text = "This LMQ API retrieves the packet counters of the buffer manager.\n",
    .inputs = "p_stats : where to put the counters\n"
              "clear   : a flag indicating that counters are cleared after reading\n",
    .outputs = "p_stats : BM packet counters\n",
};
METHOD(vx_bm_pkt_stats_get, help_vx_bm_pkt_stats_get,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_bm_pkt_stats_s, p_stats), VALUE(vx_boolean, clear))

constexpr Help help_vx_bm_pkt_stats_clear{
    .title = "Clears BM packet statistics",
    .text = "This LMQ API clears the packet counters of the buffer manager.\n",
};
METHOD(vx_bm_pkt_stats_clear, help_vx_bm_pkt_stats_clear, VALUE(vx_dev_id_t, dev_id))

constexpr Help help_vx_bm_queue_status_get{
    .title = "Retrives BM queue statistics",
    .text = "This LMQ API retrieves the status of the queues of a port.\n"
            "tot_port_limit   : buffer limit per port, the total number of buffers that can be\n"
            "                   allocated to a port across all queues; 0 when the limit per port is\n"
            "                   disabled\n"
            "tot_used_buf_cnt : total number of buffers used on the port\n"
            "valid_que_bitmap : bitmap of valid queues\n"
            "Of a queue in internal memory:\n"
            "buf_limit        : maximum number of buffers for the queue\n"
            "rx_stat          : TRUE when enqueuing is enabled\n"
            "tx_stat          : TRUE when dequeuing is enabled\n"
            "dwrr_ratio       : DWRR weight ratio\n"
            "used_buf_cnt     : number of used buffers of 48 bytes\n"
            "Of a queue in external memory:\n"
            "que_size         : queue size in bytes\n"
            "high_thresh      : high mark of back pressure in bytes\n"
            "low_thresh       : low mark of back pressure in bytes\n"
            "used_byte_cnt    : number of occupied bytes\n"
            "used_buf_cnt     : number of used buffers of 8 bytes\n",
    .inputs = "device_id : device id\n"
              "port_num  : port number\n"
              "p_status  : where to put the status\n",
    .outputs = "p_status : status of the queues\n",
};
METHOD(vx_bm_queue_status_get, help_vx_bm_queue_status_get,
       VALUE(vx_dev_id_t, device_id), VALUE(vx_uint16, port_num), UDT_PTR(lmq_bm_queue_status_s, p_status))

constexpr Help help_vx_rate_cpu_stat_get{
    .title = "Retrives CPU policer statistics",
    .text = "This LMQ API retrieves CPU policer counters.\n",
    .inputs = "stats  : where to put the counters\n"
              "clear  : a flag indicating that counters are cleared after reading\n",
    .outputs = "(2) CPU policer counters\n",
};
METHOD(vx_rate_cpu_stat_get, help_vx_rate_cpu_stat_get,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_pol_cpu_stats_t, stats), VALUE(vx_boolean, clear))

constexpr Help help_vx_rate_cpu_stat_clear{
    .title = "Clears CPU policer statistics",
    .text = "This LMQ API clears CPU policer counters.\n",
};
METHOD(vx_rate_cpu_stat_clear, help_vx_rate_cpu_stat_clear, VALUE(vx_dev_id_t, dev_id))

// The outputs are listed as (2) here and below, whatever the position of the argument.
constexpr Help help_vx_rate_src_port_stat_get{
    .title = "Retrives source port policer statistics",
    .text = "This LMQ API retrieves source port policer counters.\n",
    .inputs = "port_num : port number\n"
              "stats    : where to put the counters\n"
              "clear    : a flag indicating that counters are cleared after reading\n",
    .outputs = "(2) source port policer counters\n",
};
METHOD(vx_rate_src_port_stat_get, help_vx_rate_src_port_stat_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_pol_src_port_stat_t, stats),
       VALUE(vx_boolean, clear))

constexpr Help help_vx_rate_src_port_stat_clear{
    .title = "Clears source port policer statistics",
    .text = "This LMQ API clears source port policer counters.\n",
    .inputs = "port_num : port number\n",
};
METHOD(vx_rate_src_port_stat_clear, help_vx_rate_src_port_stat_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num))

constexpr Help help_vx_rate_policer_stat_get{
    .title = "Retrives flow policer statistics",
    .text = "This LMQ API retrieves flow policer counters.\n",
    .inputs = "flow_pol_id : Flow policer id\n"
              "stats       : where to put the counters\n"
              "clear       : a flag indicating that counters are cleared after reading\n",
    .outputs = "(2) flow policer counters\n",
};
METHOD(vx_rate_policer_stat_get, help_vx_rate_policer_stat_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, flow_pol_id), UDT_PTR(vx_pol_flow_stat_t, stats),
       VALUE(vx_boolean, clear))

constexpr Help help_vx_rate_policer_stat_clear{
    .title = "Clears flow policer statistics",
    .text = "This LMQ API clears flow policer counters\n",
    .inputs = "flow_pol_id : Flow policer id\n",
};
METHOD(vx_rate_policer_stat_clear, help_vx_rate_policer_stat_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, flow_pol_id))

constexpr Help help_vx_rate_group_policer_stat_get{
    .title = "Retrives group policer statistics",
    .text = "This LMQ API retrieves group policer counters.\n",
    .inputs = "grp_pol_id : Group policer id\n"
              "stats      : where to put the counters\n"
              "clear      : a flag indicating that counters are cleared after reading\n",
    .outputs = "(2) group policer counters\n",
};
METHOD(vx_rate_group_policer_stat_get, help_vx_rate_group_policer_stat_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, grp_pol_id), UDT_PTR(vx_pol_group_stats_t, stats),
       VALUE(vx_boolean, clear))

// Title and sentence speak of a flow policer, though it is a group policer that is cleared.
constexpr Help help_vx_rate_group_policer_stat_clear{
    .title = "Clears flow policer statistics",
    .text = "This LMQ API clears flow policer counters\n",
    .inputs = "grp_pol_id : Group policer id\n",
};
METHOD(vx_rate_group_policer_stat_clear, help_vx_rate_group_policer_stat_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_pol_id_t, grp_pol_id))

} // namespace lmq
