// CPU packet path: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
#include "lmq/cpu_packet.h"

namespace lmq {

UDT(vx_cpu_send_frame_cfg_t,
    SCALAR(vx_port_type_t, port_type),
    SCALAR(vx_uint16,      port_num),
    SCALAR(vx_uint16,      sub_pid),
    SCALAR(vx_boolean,     is_gpon_omci),
    SCALAR(vx_boolean,     is_epon_oam),
    SCALAR(vx_boolean,     fix_ipv4_chksum),
    SCALAR(vx_boolean,     fix_l4_chksum),
    SCALAR(vx_uint8,       pkt_priority))

UDT(lmq_fe_spcl_pkt_fwd_op_t,
    SCALAR(vx_boolean, fwd_enbl),
    SCALAR(vx_uint16,  dpid))

UDT(lmq_fe_spcl_pkt_ctrl_t,
    SCALAR(vx_uint8,                 pri),
    SCALAR(vx_boolean,               permit),
    NESTED(lmq_fe_spcl_pkt_fwd_op_t, fwd_op),
    SCALAR(vx_boolean,               lrn_enbl),
    SCALAR(vx_boolean,               lmt_fwd),
    SCALAR(vx_uint8,                 cos),
    SCALAR(vx_boolean,               bypass_plcy),
    SCALAR(vx_boolean,               flow_enbl),
    SCALAR(vx_uint8,                 flow_id),
    SCALAR(vx_boolean,               mirror_enbl),
    SCALAR(vx_boolean,               mirror_before_pe),
    MASK(valid, vx_uint32, pri, permit, fwd_op, lrn_enbl, lmt_fwd, cos, bypass_plcy, flow_enbl, mirror_enbl, rsvd))

METHOD(lmq_enable_cpu_pkt_trap, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))
METHOD(vx_l2_spcl_pkt_cfg_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), VALUE(vx_l2_spcl_pkt_type_t, pkt_type), UDT_PTR(lmq_fe_spcl_pkt_ctrl_t, cfg))
METHOD(lmq_delete_pkt_type_filter, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_l2_spcl_pkt_type_bitmap_t, pkt_type_bitmap))
METHOD(lmq_add_port_to_cpu_pkt_trap, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_port_type_t, port_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port_id))
METHOD(lmq_get_cpu_pkt_trap_stats, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_l2_spcl_pkt_type_t, pkt_type), VALUE(vx_port_type_t, port_type), VALUE(vx_uint16, port_num), ELEMENT_PTR(vx_uint32, p_stats), VALUE(vx_boolean, clear))
METHOD(lmq_disable_cpu_pkt_trap, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))
METHOD(vx_l2_spcl_pkt_cfg_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), VALUE(vx_l2_spcl_pkt_type_t, pkt_type), UDT_PTR(lmq_fe_spcl_pkt_ctrl_t, cfg))
METHOD(vx_cpu_packet_tx, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pkt_len), ELEMENT_PTR(vx_uint8, p_pkt_buff), UDT_PTR(vx_cpu_send_frame_cfg_t, p_cfg))
METHOD(vx_l2_pppoe_filter_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_boolean, enbl))
METHOD(vx_l2_pppoe_filter_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_boolean, enbl))
METHOD(lmq_deregister_cpu_pkt_trap, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))
METHOD(lmq_add_pkt_type_filter, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_l2_spcl_pkt_type_bitmap_t, pkt_type_bitmap))
METHOD(lmq_pkt_free_fnc, no_help, COOKIE(cookie))
METHOD(vx_l2_traffic_block_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_boolean, enbl))
METHOD(lmq_get_pkt_type_filter, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_l2_spcl_pkt_type_bitmap_t, p_pkt_type_bitmap))
METHOD(vx_l2_spcl_pkt_behavior_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, sub_pid), VALUE(vx_l2_spcl_pkt_type_t, pkt_type), ELEMENT_PTR(vx_l2_spcl_pkt_action_t, spcl_pkt_act))
METHOD(vx_l2_spcl_pkt_behavior_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, sub_pid), VALUE(vx_l2_spcl_pkt_type_t, pkt_type), VALUE(vx_l2_spcl_pkt_action_t, spcl_pkt_act))
METHOD(vx_l2_traffic_block_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_boolean, enbl))
METHOD(lmq_delete_port_from_cpu_pkt_trap, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_port_type_t, port_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port_id))

} // namespace lmq
