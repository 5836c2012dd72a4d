/**
 * @file
 * @brief Packets to and from the CPU: traps, special packets and what becomes of them, ingress filters, sending.
 */
#ifndef LMQ_CPU_PACKET_H
#define LMQ_CPU_PACKET_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @brief What a trap hands to the CPU: the packet itself, or a copy of it. */
typedef enum vx_cpu_pkt_trap_type_t LMQ_ENUM_INT {
    VX_CPU_PKT_TRAP_REDIRECT = 0,
    VX_CPU_PKT_TRAP_COPY = 1,
} vx_cpu_pkt_trap_type_t;

/**
 * @brief Types of packet: bits. Up to IPv6 NDP, bit n is type n of vx_l2_spcl_pkt_type_t; the others are this map's
 * own.
 */
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
    LMQ_SPCL_PKT_TYPE_BITMAP = 127999, /**< NORMAL to IPV6_NDP. */
    LMQ_PKT_TYPE_BITMAP_ALL = 8385535, /**< NORMAL to SA_MAC_MC. */
} lmq_pkt_type_bitmap_e;

/** @brief Where the callback of a trap runs. */
typedef enum vx_cpu_pkt_cb_context_t LMQ_ENUM_INT {
    VX_CPU_PKT_CB_CONTEXT_USER = 0,
    VX_CPU_PKT_CB_CONTEXT_KERNEL = 1,
} vx_cpu_pkt_cb_context_t;

/** @brief What becomes of a special packet. */
typedef enum vx_l2_spcl_pkt_action_t LMQ_ENUM_INT {
    VX_L2_SPCL_PKT_ACT_FORWARDING = 0,
    VX_L2_SPCL_PKT_ACT_TO_CPU = 1,
    VX_L2_SPCL_PKT_ACT_DROP = 2,
    VX_L2_SPCL_PKT_ACT_MAX = 2,
} vx_l2_spcl_pkt_action_t;

/**
 * @brief Types of packet that the forwarding engine tells apart. START to END are those with a configuration of their
 * own; the numbers between ARP and DHCP, and between IPV6_NDP and LOOPDETECT, are not used.
 */
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

/** @brief Types of port: bits, so that a map can hold several. */
typedef enum vx_port_type_t LMQ_ENUM_INT {
    VX_PORT_TYPE_GPON = 1,
    VX_PORT_TYPE_ETH = 4,
    VX_PORT_TYPE_AE = 8,
    VX_PORT_TYPE_AE_CASCADE = 16,
    VX_PORT_TYPE_GEM = 32,
    VX_PORT_TYPE_INVALID = 65535,
} vx_port_type_t;

/** @brief How the CPU sends a packet. */
typedef struct {
    vx_port_type_t port_type;
    vx_uint16 port_num;
    vx_uint16 sub_pid;          /**< Logical port within it, such as a GEM port. */
    vx_boolean is_gpon_omci;    /**< An OMCI message (ITU-T G.988): port and sub-port are those of the OMCC. */
    vx_boolean is_epon_oam;     /**< An OAM message of an EPON (IEEE 802.3). */
    vx_boolean fix_ipv4_chksum; /**< Let the chip write the IPv4 header checksum. */
    vx_boolean fix_l4_chksum;   /**< Let the chip write the TCP or UDP checksum. */
    vx_uint8 pkt_priority;      /**< 0 to 7. */
} vx_cpu_send_frame_cfg_t;

/** @brief Forwarding of a special packet. */
typedef struct {
    vx_boolean fwd_enbl;
    vx_uint16 dpid; /**< Port to forward to. */
} lmq_fe_spcl_pkt_fwd_op_t;

/** @brief What the forwarding engine does with a type of special packet. */
typedef struct {
    vx_uint8 pri; /**< Priority of this type among those that a packet has. */
    vx_boolean permit;
    lmq_fe_spcl_pkt_fwd_op_t fwd_op;
    vx_boolean lrn_enbl;    /**< Learn the source address. */
    vx_boolean lmt_fwd;     /**< Limit forwarding. */
    vx_uint8 cos;           /**< Class of service, 0 to 7. */
    vx_boolean bypass_plcy; /**< Bypass the policers. */
    vx_boolean flow_enbl;   /**< Put the packet into flow flow_id. */
    vx_uint8 flow_id;       /**< Goes with flow_enbl: valid has no flag of its own for it. */
    vx_boolean mirror_enbl;
    vx_boolean mirror_before_pe; /**< Goes with mirror_enbl: mirror the packet as it came, before it is edited. */
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

/**
 * @brief Enables the callback of a trap.
 * @param dev_id The device.
 * @param handle The trap, as its registration gave it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Disables the callback of a trap. The trap keeps its resources.
 * @param dev_id The device.
 * @param handle The trap, as its registration gave it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Removes a trap and frees its resources.
 * @param dev_id The device.
 * @param handle The trap, as its registration gave it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_deregister_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Adds a port to a trap.
 * @param dev_id      The device.
 * @param handle      The trap, as its registration gave it.
 * @param port_type   Type of the port.
 * @param port_num    The port.
 * @param sub_port_id Logical port within it; VX_INVALID_PORT_ID for the whole port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_port_to_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_type_t port_type,
                                         vx_uint16 port_num, vx_uint16 sub_port_id);

/**
 * @brief Deletes a port from a trap.
 * @param dev_id      The device.
 * @param handle      The trap, as its registration gave it.
 * @param port_type   Type of the port.
 * @param port_num    The port.
 * @param sub_port_id Logical port within it; VX_INVALID_PORT_ID for the whole port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_port_from_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_type_t port_type,
                                              vx_uint16 port_num, vx_uint16 sub_port_id);

/**
 * @brief Reads how many packets were trapped.
 * @param dev_id    The device.
 * @param pkt_type  The type of packet.
 * @param port_type Type of the port.
 * @param port_num  The port.
 * @param p_stats   Where to write the number.
 * @param clear     TRUE to begin again at 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_cpu_pkt_trap_stats(vx_dev_id_t dev_id, vx_l2_spcl_pkt_type_t pkt_type, vx_port_type_t port_type,
                                       vx_uint16 port_num, vx_uint32 *p_stats, vx_boolean clear);

/**
 * @brief Sets what is done with a type of special packet: the members that valid flags.
 * @param dev_id   The device.
 * @param port_num The port that it comes in by.
 * @param pkt_type The type of packet.
 * @param cfg      What to do.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_spcl_pkt_cfg_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_spcl_pkt_type_t pkt_type,
                                   lmq_fe_spcl_pkt_ctrl_t *cfg);

/**
 * @brief Reads what is done with a type of special packet.
 * @param dev_id   The device.
 * @param port_num The port that it comes in by.
 * @param pkt_type The type of packet.
 * @param cfg      Where to write it; valid reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_spcl_pkt_cfg_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_spcl_pkt_type_t pkt_type,
                                   lmq_fe_spcl_pkt_ctrl_t *cfg);

/**
 * @brief Sets what becomes of a type of special packet.
 * @param dev_id       The device.
 * @param port_id      The port.
 * @param sub_pid      Logical port within it.
 * @param pkt_type     The type of packet.
 * @param spcl_pkt_act The action.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_spcl_pkt_behavior_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 sub_pid,
                                        vx_l2_spcl_pkt_type_t pkt_type, vx_l2_spcl_pkt_action_t spcl_pkt_act);

/**
 * @brief Reads what becomes of a type of special packet.
 * @param dev_id       The device.
 * @param port_id      The port.
 * @param sub_pid      Logical port within it.
 * @param pkt_type     The type of packet.
 * @param spcl_pkt_act Where to write the action.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_spcl_pkt_behavior_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 sub_pid,
                                        vx_l2_spcl_pkt_type_t pkt_type, vx_l2_spcl_pkt_action_t *spcl_pkt_act);

/**
 * @brief Switches the block of all traffic of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param enbl    TRUE to switch it on.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_traffic_block_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enbl);

/**
 * @brief Reads the block of all traffic of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param enbl    Where to write whether it is on.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_traffic_block_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enbl);

/**
 * @brief Switches the PPPoE filter of a port, which lets no other packets pass.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param enbl    TRUE to switch it on.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_pppoe_filter_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enbl);

/**
 * @brief Reads the PPPoE filter of a port, which lets no other packets pass.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param enbl    Where to write whether it is on.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_pppoe_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enbl);

/**
 * @brief Adds types of packet to the ingress filter of a port, which drops them.
 * @param dev_id          The device.
 * @param port_id         The port: the SNI or a UNI.
 * @param pkt_type_bitmap The types: bits of lmq_pkt_type_bitmap_e.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                    vx_l2_spcl_pkt_type_bitmap_t pkt_type_bitmap);

/**
 * @brief Removes types of packet from the ingress filter of a port.
 * @param dev_id          The device.
 * @param port_id         The port: the SNI or a UNI.
 * @param pkt_type_bitmap The types: bits of lmq_pkt_type_bitmap_e.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                       vx_l2_spcl_pkt_type_bitmap_t pkt_type_bitmap);

/**
 * @brief Reads the ingress filter of a port.
 * @param dev_id            The device.
 * @param port_id           The port: the SNI or a UNI.
 * @param p_pkt_type_bitmap Where to write the types: bits of lmq_pkt_type_bitmap_e.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                    vx_l2_spcl_pkt_type_bitmap_t *p_pkt_type_bitmap);

/**
 * @brief Sends a packet.
 * @param dev_id     The device.
 * @param pkt_len    Bytes of the packet.
 * @param p_pkt_buff The packet, from its destination address on.
 * @param p_cfg      Where and how to send it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cpu_packet_tx(vx_dev_id_t dev_id, vx_uint16 pkt_len, vx_uint8 *p_pkt_buff,
                             vx_cpu_send_frame_cfg_t *p_cfg);

/**
 * @brief Frees a packet that a trap has handed out.
 * @param cookie What came with the packet; NULL is none.
 */
void lmq_pkt_free_fnc(void *cookie);

#ifdef __cplusplus
}
#endif

#endif
