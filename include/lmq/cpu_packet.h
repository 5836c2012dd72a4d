/**
 * @file
 * @brief CPU packet path.
 */
#ifndef LMQ_CPU_PACKET_H
#define LMQ_CPU_PACKET_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef enum vx_cpu_pkt_trap_type_t LMQ_ENUM_INT {
    VX_CPU_PKT_TRAP_REDIRECT = 0,
    VX_CPU_PKT_TRAP_COPY = 1,
} vx_cpu_pkt_trap_type_t;

typedef enum lmq_pkt_type_bitmap_e LMQ_ENUM_INT {
    LMQ_PKT_TYPE_BITMAP_NONE = 0,
    LMQ_PKT_TYPE_BITMAP_NORMAL = 1,
    LMQ_PKT_TYPE_BITMAP_BPDU = 2,
    LMQ_PKT_TYPE_BITMAP_DOT1X = 4,
    LMQ_PKT_TYPE_BITMAP_RSVD_MAC = 8,
    LMQ_PKT_TYPE_BITMAP_MY_MAC = 16,
    LMQ_PKT_TYPE_BITMAP_MC_A = 32,
    LMQ_PKT_TYPE_BITMAP_MC_B = 64,
    LMQ_PKT_TYPE_BITMAP_MC_C = 128,
    LMQ_PKT_TYPE_BITMAP_IGMP_MLD = 256,
    LMQ_PKT_TYPE_BITMAP_ARP = 512,
    LMQ_PKT_TYPE_BITMAP_DHCP = 4096,
    LMQ_PKT_TYPE_BITMAP_PPPOE_DISC = 8192,
    LMQ_PKT_TYPE_BITMAP_PPPOE_SESS = 16384,
    LMQ_PKT_TYPE_BITMAP_HELLO = 32768,
    LMQ_PKT_TYPE_BITMAP_IPV6_NDP = 65536,
    LMQ_PKT_TYPE_BITMAP_BC = 131072,
    LMQ_PKT_TYPE_BITMAP_UUC = 262144,
    LMQ_PKT_TYPE_BITMAP_UDP = 524288,
    LMQ_PKT_TYPE_BITMAP_TCP = 1048576,
    LMQ_PKT_TYPE_BITMAP_SA_MAC_BC = 2097152,
    LMQ_PKT_TYPE_BITMAP_SA_MAC_MC = 4194304,
    LMQ_SPCL_PKT_TYPE_BITMAP = 127999,
    LMQ_PKT_TYPE_BITMAP_ALL = 8385535,
} lmq_pkt_type_bitmap_e;

typedef enum vx_cpu_pkt_cb_context_t LMQ_ENUM_INT {
    VX_CPU_PKT_CB_CONTEXT_USER = 0,
    VX_CPU_PKT_CB_CONTEXT_KERNEL = 1,
} vx_cpu_pkt_cb_context_t;

typedef enum vx_l2_spcl_pkt_action_t LMQ_ENUM_INT {
    VX_L2_SPCL_PKT_ACT_FORWARDING = 0,
    VX_L2_SPCL_PKT_ACT_TO_CPU = 1,
    VX_L2_SPCL_PKT_ACT_DROP = 2,
    VX_L2_SPCL_PKT_ACT_MAX = 2,
} vx_l2_spcl_pkt_action_t;

typedef enum vx_l2_spcl_pkt_type_t LMQ_ENUM_INT {
    VX_L2_SPCL_PKT_TYPE_BASE = 0,
    VX_L2_SPCL_PKT_TYPE_NORMAL = 0,
    VX_L2_SPCL_PKT_TYPE_START = 0,
    VX_L2_SPCL_PKT_TYPE_BPDU = 1,
    VX_L2_SPCL_PKT_TYPE_DOT1X = 2,
    VX_L2_SPCL_PKT_TYPE_RSVD_MAC = 3,
    VX_L2_SPCL_PKT_TYPE_MY_MAC = 4,
    VX_L2_SPCL_PKT_TYPE_MC_A = 5,
    VX_L2_SPCL_PKT_TYPE_MC_B = 6,
    VX_L2_SPCL_PKT_TYPE_MC_C = 7,
    VX_L2_SPCL_PKT_TYPE_IGMP_MLD = 8,
    VX_L2_SPCL_PKT_TYPE_ARP = 9,
    VX_L2_SPCL_PKT_TYPE_DHCP = 12,
    VX_L2_SPCL_PKT_TYPE_PPPOE_DISC = 13,
    VX_L2_SPCL_PKT_TYPE_PPPOE_SESS = 14,
    VX_L2_SPCL_PKT_TYPE_HELLO = 15,
    VX_L2_SPCL_PKT_TYPE_IPV6_NDP = 16,
    VX_L2_SPCL_PKT_TYPE_LOOPDETECT = 19,
    VX_L2_SPCL_PKT_TYPE_END = 19,
    VX_L2_SPCL_PKT_TYPE_BC = 20,
    VX_L2_SPCL_PKT_TYPE_UUC = 21,
    VX_L2_SPCL_PKT_TYPE_UDP = 22,
    VX_L2_SPCL_PKT_TYPE_TCP = 23,
    VX_L2_SPCL_PKT_TYPE_USER_DEFINED = 24,
    VX_L2_SPCL_PKT_TYPE_OMCI = 25,
    VX_L2_SPCL_PKT_TYPE_MAX = 26,
} vx_l2_spcl_pkt_type_t;

typedef enum vx_port_type_t LMQ_ENUM_INT {
    VX_PORT_TYPE_GPON = 1,
    VX_PORT_TYPE_ETH = 4,
    VX_PORT_TYPE_AE = 8,
    VX_PORT_TYPE_AE_CASCADE = 16,
    VX_PORT_TYPE_GEM = 32,
    VX_PORT_TYPE_INVALID = 65535,
} vx_port_type_t;

typedef struct {
    vx_port_type_t port_type;
    vx_uint16 port_num;
    vx_uint16 sub_pid;
    vx_boolean is_gpon_omci;
    vx_boolean is_epon_oam;
    vx_boolean fix_ipv4_chksum;
    vx_boolean fix_l4_chksum;
    vx_uint8 pkt_priority;
} vx_cpu_send_frame_cfg_t;

typedef struct {
    vx_boolean fwd_enbl;
    vx_uint16 dpid;
} lmq_fe_spcl_pkt_fwd_op_t;

typedef struct {
    vx_uint8 pri;
    vx_boolean permit;
    lmq_fe_spcl_pkt_fwd_op_t fwd_op;
    vx_boolean lrn_enbl;
    vx_boolean lmt_fwd;
    vx_uint8 cos;
    vx_boolean bypass_plcy;
    vx_boolean flow_enbl;
    vx_uint8 flow_id;
    vx_boolean mirror_enbl;
    vx_boolean mirror_before_pe;
    union {
        struct {
            vx_uint32 pri : 1;
            vx_uint32 permit : 1;
            vx_uint32 fwd_op : 1;
            vx_uint32 lrn_enbl : 1;
            vx_uint32 lmt_fwd : 1;
            vx_uint32 cos : 1;
            vx_uint32 bypass_plcy : 1;
            vx_uint32 flow_enbl : 1;
            vx_uint32 mirror_enbl : 1;
            vx_uint32 rsvd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_spcl_pkt_ctrl_t;

vx_status_e lmq_enable_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle);

vx_status_e vx_l2_spcl_pkt_cfg_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_spcl_pkt_type_t pkt_type, lmq_fe_spcl_pkt_ctrl_t *cfg);

vx_status_e lmq_delete_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_spcl_pkt_type_bitmap_t pkt_type_bitmap);

vx_status_e lmq_add_port_to_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_type_t port_type, vx_uint16 port_num, vx_uint16 sub_port_id);

vx_status_e lmq_get_cpu_pkt_trap_stats(vx_dev_id_t dev_id, vx_l2_spcl_pkt_type_t pkt_type, vx_port_type_t port_type, vx_uint16 port_num, vx_uint32 *p_stats, vx_boolean clear);

vx_status_e lmq_disable_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle);

vx_status_e vx_l2_spcl_pkt_cfg_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_spcl_pkt_type_t pkt_type, lmq_fe_spcl_pkt_ctrl_t *cfg);

vx_status_e vx_cpu_packet_tx(vx_dev_id_t dev_id, vx_uint16 pkt_len, vx_uint8 *p_pkt_buff, vx_cpu_send_frame_cfg_t *p_cfg);

vx_status_e vx_l2_pppoe_filter_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enbl);

vx_status_e vx_l2_pppoe_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enbl);

vx_status_e lmq_deregister_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle);

vx_status_e lmq_add_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_spcl_pkt_type_bitmap_t pkt_type_bitmap);

void lmq_pkt_free_fnc(void *cookie);

vx_status_e vx_l2_traffic_block_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enbl);

vx_status_e lmq_get_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_spcl_pkt_type_bitmap_t *p_pkt_type_bitmap);

vx_status_e vx_l2_spcl_pkt_behavior_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 sub_pid, vx_l2_spcl_pkt_type_t pkt_type, vx_l2_spcl_pkt_action_t *spcl_pkt_act);

vx_status_e vx_l2_spcl_pkt_behavior_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 sub_pid, vx_l2_spcl_pkt_type_t pkt_type, vx_l2_spcl_pkt_action_t spcl_pkt_act);

vx_status_e vx_l2_traffic_block_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enbl);

vx_status_e lmq_delete_port_from_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_type_t port_type, vx_uint16 port_num, vx_uint16 sub_port_id);

#ifdef __cplusplus
}
#endif

#endif
