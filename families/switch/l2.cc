// Layer 2 forwarding: its UDTs, then its methods with the help texts.
#include "families/help.h"
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/l2.h"

namespace lmq {

// dsbl_stn_mv is a flag without a member.
UDT(vx_l2_learn_cfg_t,
    SCALAR(vx_boolean,      dsbl_hw_lrn),
    SCALAR(vx_boolean,      dsbl_hw_aging),
    SCALAR(vx_stn_mv_act_t, stn_mv_act),
    SCALAR(vx_lp_det_act_t, loop_det_act),
    SCALAR(vx_uint16,       loop_det_timer),
    MASK(valid, vx_uint32, dsbl_hw_lrn, dsbl_hw_aging, dsbl_stn_mv, stn_mv_act, loop_det_act, loop_det_timer, rsvd))

UDT(vx_l2_learn_port_cfg_t,
    SCALAR(vx_boolean,           enbl_pbit_lrn),
    SCALAR(vx_boolean,           enbl_vid_lrn),
    SCALAR(vx_lrn_vid_sel_t,     lrn_vid_sel),
    SCALAR(vx_boolean,           enbl_mac_lrn),
    SCALAR(vx_boolean,           dsbl_drp_pkt_lrn),
    SCALAR(vx_boolean,           dsbl_cpu_pkt_lrn),
    SCALAR(vx_lrn_lmt_pkt_act_t, lrn_lmt_pkt_act),
    SCALAR(vx_lrn_lmt_lrn_act_t, lrn_lmt_lrn_act),
    SCALAR(vx_uint16,            lrn_lmt),
    MASK(valid, vx_uint32, enbl_pbit_lrn, enbl_vid_lrn, lrn_vid_sel, enbl_mac_lrn, dsbl_drp_pkt_lrn, dsbl_cpu_pkt_lrn,
         lrn_lmt_pkt_act, lrn_lmt_lrn_act, lrn_lmt, rsvd))

UDT(vx_l2_fdb_entry_t,
    ELEMENTS(vx_mac_addr_t, mac_addr, 6),
    SCALAR(  vx_uint8,      p_bit),
    SCALAR(  vx_uint16,     vlan_id),
    SCALAR(  vx_boolean,    mac_addr_valid),
    SCALAR(  vx_boolean,    p_bit_valid),
    SCALAR(  vx_boolean,    vid_valid),
    SCALAR(  vx_uint16,     port_id))

UDT(vx_l2_mac_tbl_entry_t,
    ELEMENTS(vx_mac_addr_t, mac_addr, 6),
    SCALAR(  vx_uint8,      p_bit),
    SCALAR(  vx_uint16,     vlan_id),
    SCALAR(  vx_boolean,    mac_addr_valid),
    SCALAR(  vx_boolean,    p_bit_valid),
    SCALAR(  vx_boolean,    vid_valid),
    SCALAR(  vx_uint16,     port_id),
    SCALAR(  vx_boolean,    is_static),
    SCALAR(  vx_uint32,     aging_time))

UDT(vx_l2_mtu_cfg_t,
    SCALAR(vx_uint16,  max_pkt_size),
    SCALAR(vx_boolean, exclude_tag),
    MASK(valid, vx_uint32, max_pkt_size, exclude_tag))

UDT(vx_l2_mac_addr_filter_cfg_t,
    SCALAR(vx_l2_filter_type_t, filter_type))

UDT(vx_l2_user_mac_addr_cfg_t,
    ELEMENTS(vx_mac_addr_t, mac_addr, 6))

UDT(vx_l2_tpid_cfg_t,
    SCALAR(vx_l2_tpid_mode_t, mode),
    SCALAR(vx_boolean,        admit_outer_tag),
    SCALAR(vx_boolean,        admit_inner_tag))

// The word over the nine flags has eight bits: the last flag goes through mask_s alone.
UDT(vx_l2_fe_tpid_cfg_t,
    SCALAR(vx_uint16, ingr_outer_tpid1),
    SCALAR(vx_uint16, ingr_outer_tpid2),
    SCALAR(vx_uint16, ingr_outer_tpid3),
    SCALAR(vx_uint16, ingr_outer_tpid4),
    SCALAR(vx_uint16, ingr_inner_tpid1),
    SCALAR(vx_uint16, ingr_inner_tpid2),
    SCALAR(vx_uint16, ingr_inner_tpid3),
    SCALAR(vx_uint8,  tpid_detection_enbl_bitmap),
    SCALAR(vx_uint8,  tpid_deny_filter_bitmap),
    MASK(valid, vx_uint8, ingr_outer_tpid1, ingr_outer_tpid2, ingr_outer_tpid3, ingr_outer_tpid4, ingr_inner_tpid1,
         ingr_inner_tpid2, ingr_inner_tpid3, tpid_detection_enbl_bitmap, tpid_deny_filter_bitmap))

UDT(vx_l2_port_cfg_t,
    SCALAR(vx_vid_t,               dft_pvid),
    SCALAR(vx_uint8,               dft_pbit),
    SCALAR(vx_uint16,              dft_tpid),
    SCALAR(vx_uint8,               dft_dscp),
    SCALAR(vx_uint8,               dft_cos),
    SCALAR(vx_uint8,               bc_cos),
    SCALAR(vx_uint8,               umc_cos),
    SCALAR(vx_uint8,               uuc_cos),
    SCALAR(vx_uint8,               ipv4_dscp_mask),
    SCALAR(vx_uint8,               ipv6_tc_mask),
    SCALAR(vx_egrs_pvid_vlan_op_t, egrs_pvid_vlan_op),
    MASK(valid, vx_uint32, dft_pvid, dft_pbit, dft_tpid, dft_dscp, dft_cos, bc_cos, umc_cos, uuc_cos, ipv4_dscp_mask,
         ipv6_tc_mask, egrs_pvid_vlan_op))

UDT(vx_l2_port_oam_lpbk_t,
    SCALAR(vx_boolean, enbl_lpbk),
    SCALAR(vx_boolean, enbl_da_sa_swap))

// enbl_uuc_pkt_dpid is 16 bits wide beside its two companions, and none of the three has a flag.
UDT(vx_l2_static_pkt_fwd_cfg_t,
    SCALAR(vx_boolean, enbl_bc_pkt_dpid),
    SCALAR(vx_uint16,  bc_pkt_dpid),
    SCALAR(vx_boolean, enbl_mc_pkt_dpid),
    SCALAR(vx_uint16,  mc_pkt_dpid),
    SCALAR(vx_uint16,  enbl_uuc_pkt_dpid),
    SCALAR(vx_uint16,  uuc_pkt_dpid),
    MASK(valid, vx_uint32, bc_pkt_dpid, mc_pkt_dpid, uuc_pkt_dpid))

UDT(vx_l2_flood_ctrl_t,
    SCALAR(vx_boolean, bcast_drop),
    SCALAR(vx_boolean, unknown_unicast_drop),
    SCALAR(vx_boolean, unknown_mcast_drop),
    SCALAR(vx_uint8,   rsvd))

METHOD(vx_l2_learn_set, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_l2_learn_cfg_t, p_cfg))
METHOD(vx_l2_learn_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_l2_learn_cfg_t, p_cfg))
METHOD(vx_l2_learn_port_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_l2_learn_port_cfg_t, p_cfg))
METHOD(vx_l2_learn_port_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_l2_learn_port_cfg_t, p_cfg))
// The port is a plain vx_uint16 here, and in the methods below that call it port_num.
METHOD(vx_l2_learn_port_enable_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), VALUE(vx_boolean, enbl))
METHOD(vx_l2_learn_port_enable_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), ELEMENT_PTR(vx_boolean, p_enbl))

METHOD(vx_l2_aging_timer_set, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, aging_time))
METHOD(vx_l2_aging_timer_get, no_help, VALUE(vx_dev_id_t, dev_id), ELEMENT_PTR(vx_uint32, p_aging_time))

METHOD(vx_l2_fdb_entry_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_l2_fdb_entry_op_type_t, type), UDT_PTR(vx_l2_fdb_entry_t, p_mac_entry),
       ELEMENT_PTR(vx_l2_fdb_entry_handle_t, p_handle))
METHOD(vx_l2_fdb_entry_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_l2_fdb_entry_op_type_t, type), VALUE(vx_l2_fdb_entry_handle_t, handle),
       UDT_PTR(vx_l2_fdb_entry_t, p_mac_entry))
METHOD(vx_l2_fdb_entry_get_next, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_l2_fdb_entry_handle_t, handle),
       VALUE(vx_l2_fdb_entry_op_type_t, mode), UDT_PTR(vx_l2_mac_tbl_entry_t, p_mac_entry),
       ELEMENT_PTR(vx_l2_fdb_entry_handle_t, p_handle))
METHOD(vx_l2_fdb_entry_clear, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_l2_fdb_entry_op_type_t, type))
METHOD(vx_l2_fdb_entry_port_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_l2_fdb_entry_op_type_t, type))

METHOD(vx_l2_port_stp_state_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_l2_stp_state_t, stp_state))
METHOD(vx_l2_port_stp_state_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_l2_stp_state_t, stp_state))

METHOD(vx_l2_mtu_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_l2_mtu_cfg_t, p_cfg))
METHOD(vx_l2_mtu_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_l2_mtu_cfg_t, p_cfg))

// The five texts of the filter name the statuses "vx_statue_e".
constexpr Help help_vx_l2_mac_addr_filter_config_set{
    .title = "SET MAC ADDRESS FILTER CONFIG",
    .text = "This API sets the mode of the host MAC address filter of a port. A positive filter\n"
            "passes the addresses in the list only, a negative filter drops them.\n",
    .inputs = "port_id : port id\n"
              "p_cfg   : filter mode\n",
    .returns = returns_statue,
};
METHOD(vx_l2_mac_addr_filter_config_set, help_vx_l2_mac_addr_filter_config_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_l2_mac_addr_filter_cfg_t, p_cfg))

constexpr Help help_vx_l2_mac_addr_filter_config_get{
    .title = "GET MAC ADDRESS FILTER CONFIG",
    .text = "This API retrieves the mode of the host MAC address filter of a port.\n",
    .inputs = "port_id : port id\n"
              "p_cfg   : where to put the filter mode\n",
    .outputs = "p_cfg : filter mode\n",
    .returns = returns_statue,
};
METHOD(vx_l2_mac_addr_filter_config_get, help_vx_l2_mac_addr_filter_config_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_l2_mac_addr_filter_cfg_t, p_cfg))

constexpr Help help_vx_l2_mac_addr_filter_add{
    .title = "ADD MAC ADDRESSES TO THE FILTER LIST",
    .text = "This API adds MAC addresses to the host MAC address filter list of a port.\n",
    .inputs = "port_id         : port id\n"
              "num_mac_addr    : number of MAC addresses in the list\n"
              "p_mac_addr_list : MAC addresses to add\n",
    .returns = returns_statue,
};
METHOD(vx_l2_mac_addr_filter_add, help_vx_l2_mac_addr_filter_add,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, num_mac_addr),
       UDT_PTR(vx_l2_user_mac_addr_cfg_t, p_mac_addr_list))

constexpr Help help_vx_l2_mac_addr_filter_delete{
    .title = "DELETE MAC ADDRESSES FROM THE FILTER LIST",
    .text = "This API deletes MAC addresses from the host MAC address filter list of a port.\n",
    .inputs = "port_id         : port id\n"
              "delete_all      : delete all MAC addresses. When TRUE, below two params are ignored\n"
              "num_mac_addr    : number of MAC addresses in the list\n"
              "p_mac_addr_list : MAC addresses to delete\n",
    .returns = returns_statue,
};
METHOD(vx_l2_mac_addr_filter_delete, help_vx_l2_mac_addr_filter_delete,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_boolean, delete_all),
       VALUE(vx_uint8, num_mac_addr), UDT_PTR(vx_l2_user_mac_addr_cfg_t, p_mac_addr_list))

constexpr Help help_vx_l2_mac_addr_filter_get{
    .title = "GET MAC ADDRESSES FROM THE FILTER LIST",
    .text = "This API retrieves MAC addresses from the host MAC address filter list of a port.\n",
    .inputs = "port_id         : port id\n"
              "get_cnt         : number of MAC addresses to retrieve\n"
              "p_mac_addr_list : where to put the MAC addresses\n"
              "p_valid_cnt     : where to put the number of MAC addresses retrieved\n",
    .outputs = "p_mac_addr_list : MAC addresses\n"
               "p_valid_cnt     : number of MAC addresses retrieved\n",
    .returns = returns_statue,
};
METHOD(vx_l2_mac_addr_filter_get, help_vx_l2_mac_addr_filter_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint8, get_cnt),
       UDT_PTR(vx_l2_user_mac_addr_cfg_t, p_mac_addr_list), ELEMENT_PTR(vx_uint8, p_valid_cnt))

METHOD(vx_l2_tpid_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tpid),
       UDT_PTR(vx_l2_tpid_cfg_t, p_cfg))
METHOD(vx_l2_tpid_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tpid),
       UDT_PTR(vx_l2_tpid_cfg_t, p_cfg))
METHOD(vx_l2_port_tpid_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_l2_fe_tpid_cfg_t, p_cfg))
METHOD(vx_l2_port_tpid_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_l2_fe_tpid_cfg_t, p_cfg))

// The lone letter at the end of the title belongs to it.
constexpr Help help_vx_l2_port_config_set{
    .title = "Sets FE port config i",
    .text = "This API sets the default VLAN, priority and class of service parameters of an FE port.\n",
    .inputs = "port_num : FE port number\n"
              "p_cfg    : FE port configuration\n",
};
METHOD(vx_l2_port_config_set, help_vx_l2_port_config_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_l2_port_cfg_t, p_cfg))

constexpr Help help_vx_l2_port_config_get{
    .title = "Retrieves FE port config",
    .text = "This API retrieves the default VLAN, priority and class of service parameters of an\n"
            "FE port.\n",
    .inputs = "port_num : FE port number\n"
              "p_cfg    : where to put the FE port configuration\n",
    .outputs = "p_cfg : FE port configuration\n",
};
METHOD(vx_l2_port_config_get, help_vx_l2_port_config_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_l2_port_cfg_t, p_cfg))

METHOD(vx_l2_port_isolation_set, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_boolean, isolate))
METHOD(vx_l2_port_isolation_get, no_help, VALUE(vx_dev_id_t, dev_id), ELEMENT_PTR(vx_boolean, isolate))

METHOD(vx_l2_port_flood_ctrl_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_l2_flood_ctrl_t, ctrl))
METHOD(vx_l2_port_flood_ctrl_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_l2_flood_ctrl_t, ctrl))

constexpr Help help_vx_l2_port_oam_lpbk_set{
    .title = "Sets FE port OAM loopback parameters",
    .text = "This API enables or disables OAM loopback on an FE port, and the swap of destination\n"
            "and source MAC address of the looped packets.\n",
    .inputs = "port_num : FE port number\n"
              "p_cfg    : OAM loopback parameters\n",
};
METHOD(vx_l2_port_oam_lpbk_set, help_vx_l2_port_oam_lpbk_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_l2_port_oam_lpbk_t, p_cfg))

constexpr Help help_vx_l2_port_oam_lpbk_get{
    .title = "Retrieves FE port OAM loopback parameters",
    .text = "This API retrieves the OAM loopback parameters of an FE port.\n",
    .inputs = "port_num : FE port number\n"
              "p_cfg    : where to put the OAM loopback parameters\n",
    .outputs = "p_cfg : OAM loopback parameters\n",
};
METHOD(vx_l2_port_oam_lpbk_get, help_vx_l2_port_oam_lpbk_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_l2_port_oam_lpbk_t, p_cfg))

constexpr Help help_vx_l2_port_static_pkt_fwd_config_set{
    .title = "Configures static mapping of bc/mc/uuc packets.",
    .text = "This API maps broadcast, multicast and unknown unicast packets that are received on\n"
            "a source port to a destination port.\n",
    .inputs = "src_port_num : source port number\n"
              "p_cfg        : static packet forwarding configuration\n",
};
METHOD(vx_l2_port_static_pkt_fwd_config_set, help_vx_l2_port_static_pkt_fwd_config_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, src_port_num), UDT_PTR(vx_l2_static_pkt_fwd_cfg_t, p_cfg))

constexpr Help help_vx_l2_port_static_pkt_fwd_config_get{
    .title = "Retrieves static mapping of bc/mc/uuc packets.",
    .text = "This API retrieves the mapping of broadcast, multicast and unknown unicast packets\n"
            "that are received on a source port.\n",
    .inputs = "src_port_num : source port number\n"
              "p_cfg        : where to put the static packet forwarding configuration\n",
    .outputs = "p_cfg : static packet forwarding configuration\n",
};
METHOD(vx_l2_port_static_pkt_fwd_config_get, help_vx_l2_port_static_pkt_fwd_config_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, src_port_num), UDT_PTR(vx_l2_static_pkt_fwd_cfg_t, p_cfg))

} // namespace lmq
