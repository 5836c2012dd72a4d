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

/** @brief What a trap hands to the CPU. */
typedef enum vx_cpu_pkt_trap_type_t LMQ_ENUM_INT {
    VX_CPU_PKT_TRAP_REDIRECT = 0, /**< The packet itself, which is not forwarded then. */
    VX_CPU_PKT_TRAP_COPY = 1,     /**< A copy of the packet, which is forwarded all the same. */
} vx_cpu_pkt_trap_type_t;

/**
 * @brief Types of packet: bits. Up to IPv6 NDP, bit n is type n of vx_l2_spcl_pkt_type_t; the others are this map's
 * own.
 */
typedef enum lmq_pkt_type_bitmap_e LMQ_ENUM_INT {
    LMQ_PKT_TYPE_BITMAP_NONE = 0,            /**< No type. */
    LMQ_PKT_TYPE_BITMAP_NORMAL = 1,          /**< Packets of none of the other types. */
    LMQ_PKT_TYPE_BITMAP_BPDU = 2,            /**< Bridge protocol data units of spanning trees (IEEE 802.1Q). */
    LMQ_PKT_TYPE_BITMAP_DOT1X = 4,           /**< Port access control, EAPOL (IEEE 802.1X). */
    LMQ_PKT_TYPE_BITMAP_RSVD_MAC = 8,        /**< To another reserved address, 01-80-C2-00-00-xx (IEEE 802.1Q). */
    LMQ_PKT_TYPE_BITMAP_MY_MAC = 16,         /**< To the MAC address of the device. */
    LMQ_PKT_TYPE_BITMAP_MC_A = 32,           /**< Multicast packets of class A, as the chip defines it. */
    LMQ_PKT_TYPE_BITMAP_MC_B = 64,           /**< Multicast packets of class B, as the chip defines it. */
    LMQ_PKT_TYPE_BITMAP_MC_C = 128,          /**< Multicast packets of class C, as the chip defines it. */
    LMQ_PKT_TYPE_BITMAP_IGMP_MLD = 256,      /**< Membership of multicast groups: IGMP (RFC 3376), MLD (RFC 3810). */
    LMQ_PKT_TYPE_BITMAP_ARP = 512,           /**< Address resolution, ARP (RFC 826). */
    LMQ_PKT_TYPE_BITMAP_DHCP = 4096,         /**< Host configuration, DHCP (RFC 2131). */
    LMQ_PKT_TYPE_BITMAP_PPPOE_DISC = 8192,   /**< PPPoE discovery (RFC 2516). */
    LMQ_PKT_TYPE_BITMAP_PPPOE_SESS = 16384,  /**< PPPoE sessions (RFC 2516). */
    LMQ_PKT_TYPE_BITMAP_HELLO = 32768,       /**< Hello packets of routing protocols. */
    LMQ_PKT_TYPE_BITMAP_IPV6_NDP = 65536,    /**< IPv6 neighbour discovery (RFC 4861). */
    LMQ_PKT_TYPE_BITMAP_BC = 131072,         /**< Broadcast packets. */
    LMQ_PKT_TYPE_BITMAP_UUC = 262144,        /**< Unicast packets to an unknown destination. */
    LMQ_PKT_TYPE_BITMAP_UDP = 524288,        /**< UDP packets (RFC 768). */
    LMQ_PKT_TYPE_BITMAP_TCP = 1048576,       /**< TCP packets (RFC 9293). */
    LMQ_PKT_TYPE_BITMAP_SA_MAC_BC = 2097152, /**< From the broadcast address, which no sender has. */
    LMQ_PKT_TYPE_BITMAP_SA_MAC_MC = 4194304, /**< From a multicast address, which no sender has. */
    LMQ_SPCL_PKT_TYPE_BITMAP = 127999,       /**< NORMAL to IPV6_NDP. */
    LMQ_PKT_TYPE_BITMAP_ALL = 8385535,       /**< NORMAL to SA_MAC_MC. */
} lmq_pkt_type_bitmap_e;

/** @brief Where the callback of a trap runs. */
typedef enum vx_cpu_pkt_cb_context_t LMQ_ENUM_INT {
    VX_CPU_PKT_CB_CONTEXT_USER = 0,   /**< In a thread of the application. */
    VX_CPU_PKT_CB_CONTEXT_KERNEL = 1, /**< In the kernel. */
} vx_cpu_pkt_cb_context_t;

/** @brief What becomes of a special packet. */
typedef enum vx_l2_spcl_pkt_action_t LMQ_ENUM_INT {
    VX_L2_SPCL_PKT_ACT_FORWARDING = 0, /**< It is forwarded as any other. */
    VX_L2_SPCL_PKT_ACT_TO_CPU = 1,     /**< It goes to the CPU. */
    VX_L2_SPCL_PKT_ACT_DROP = 2,       /**< It is dropped. */
    VX_L2_SPCL_PKT_ACT_MAX = 2,        /**< The last one. */
} vx_l2_spcl_pkt_action_t;

/**
 * @brief Types of packet that the forwarding engine tells apart. START to END are those with a configuration of their
 * own; the numbers between ARP and DHCP, and between IPV6_NDP and LOOPDETECT, are not used.
 */
typedef enum vx_l2_spcl_pkt_type_t LMQ_ENUM_INT {
    VX_L2_SPCL_PKT_TYPE_BASE = 0,          /**< Where the types begin. */
    VX_L2_SPCL_PKT_TYPE_NORMAL = 0,        /**< Packets of none of the other types. */
    VX_L2_SPCL_PKT_TYPE_START = 0,         /**< The first type with a configuration of its own. */
    VX_L2_SPCL_PKT_TYPE_BPDU = 1,          /**< Bridge protocol data units of spanning trees (IEEE 802.1Q). */
    VX_L2_SPCL_PKT_TYPE_DOT1X = 2,         /**< Port access control, EAPOL (IEEE 802.1X). */
    VX_L2_SPCL_PKT_TYPE_RSVD_MAC = 3,      /**< To another reserved address, 01-80-C2-00-00-xx (IEEE 802.1Q). */
    VX_L2_SPCL_PKT_TYPE_MY_MAC = 4,        /**< To the MAC address of the device. */
    VX_L2_SPCL_PKT_TYPE_MC_A = 5,          /**< Multicast packets of class A, as the chip defines it. */
    VX_L2_SPCL_PKT_TYPE_MC_B = 6,          /**< Multicast packets of class B, as the chip defines it. */
    VX_L2_SPCL_PKT_TYPE_MC_C = 7,          /**< Multicast packets of class C, as the chip defines it. */
    VX_L2_SPCL_PKT_TYPE_IGMP_MLD = 8,      /**< Membership of multicast groups: IGMP (RFC 3376), MLD (RFC 3810). */
    VX_L2_SPCL_PKT_TYPE_ARP = 9,           /**< Address resolution, ARP (RFC 826). */
    VX_L2_SPCL_PKT_TYPE_DHCP = 12,         /**< Host configuration, DHCP (RFC 2131). */
    VX_L2_SPCL_PKT_TYPE_PPPOE_DISC = 13,   /**< PPPoE discovery (RFC 2516). */
    VX_L2_SPCL_PKT_TYPE_PPPOE_SESS = 14,   /**< PPPoE sessions (RFC 2516). */
    VX_L2_SPCL_PKT_TYPE_HELLO = 15,        /**< Hello packets of routing protocols. */
    VX_L2_SPCL_PKT_TYPE_IPV6_NDP = 16,     /**< IPv6 neighbour discovery (RFC 4861). */
    VX_L2_SPCL_PKT_TYPE_LOOPDETECT = 19,   /**< Packets that find loops in the network of a user. */
    VX_L2_SPCL_PKT_TYPE_END = 19,          /**< The last type with a configuration of its own. */
    VX_L2_SPCL_PKT_TYPE_BC = 20,           /**< Broadcast packets. */
    VX_L2_SPCL_PKT_TYPE_UUC = 21,          /**< Unicast packets to an unknown destination. */
    VX_L2_SPCL_PKT_TYPE_UDP = 22,          /**< UDP packets (RFC 768). */
    VX_L2_SPCL_PKT_TYPE_TCP = 23,          /**< TCP packets (RFC 9293). */
    VX_L2_SPCL_PKT_TYPE_USER_DEFINED = 24, /**< Packets that a rule of the user picks out. */
    VX_L2_SPCL_PKT_TYPE_OMCI = 25,         /**< OMCI messages of the OLT (ITU-T G.988). */
    VX_L2_SPCL_PKT_TYPE_MAX = 26,          /**< One above the last; none itself. */
} vx_l2_spcl_pkt_type_t;

/** @brief Types of port: bits, so that a map can hold several; an argument is one of them. */
typedef enum vx_port_type_t LMQ_ENUM_INT {
    VX_PORT_TYPE_GPON = 1,        /**< The PON port as a GPON (ITU-T G.984). */
    VX_PORT_TYPE_ETH = 4,         /**< An Ethernet port, or the management port. */
    VX_PORT_TYPE_AE = 8,          /**< The PON port in active Ethernet mode. */
    VX_PORT_TYPE_AE_CASCADE = 16, /**< The PON port in active Ethernet mode, to a device behind this one. */
    VX_PORT_TYPE_GEM = 32,        /**< A GEM port of the PON port. */
    VX_PORT_TYPE_INVALID = 65535, /**< No type. */
} vx_port_type_t;

/** @brief How the CPU sends a packet. */
typedef struct {
    vx_port_type_t port_type;   /**< Type of the port; it has to go with port_num. */
    vx_uint16 port_num;         /**< {id port} Port that the packet leaves by; the SNI for OMCI and OAM messages. */
    vx_uint16 sub_pid;          /**< Logical port within it, such as a GEM port. */
    vx_boolean is_gpon_omci;    /**< TRUE: an OMCI message (ITU-T G.988), which leaves over the OMCC. */
    vx_boolean is_epon_oam;     /**< TRUE: an OAM message of an EPON (IEEE 802.3). */
    vx_boolean fix_ipv4_chksum; /**< TRUE: the chip writes the IPv4 header checksum. */
    vx_boolean fix_l4_chksum;   /**< TRUE: the chip writes the TCP or UDP checksum. */
    vx_uint8 pkt_priority;      /**< {0..7} Priority of the packet in the queues of the port. */
} vx_cpu_send_frame_cfg_t;

/** @brief Where a special packet is forwarded to. */
typedef struct {
    vx_boolean fwd_enbl; /**< TRUE: forward to dpid. FALSE: dpid is not looked at. */
    vx_uint16 dpid;      /**< {id port} Port to forward to. */
} lmq_fe_spcl_pkt_fwd_op_t;

/** @brief What the forwarding engine does with a type of special packet. */
typedef struct {
    vx_uint8 pri;                    /**< Which type wins when a packet is of several. */
    vx_boolean permit;               /**< TRUE: the packet may pass. FALSE: it is dropped. */
    lmq_fe_spcl_pkt_fwd_op_t fwd_op; /**< Where it is forwarded to. */
    vx_boolean lrn_enbl;             /**< TRUE: its source address is learned. */
    vx_boolean lmt_fwd;              /**< TRUE: its forwarding is limited. */
    vx_uint8 cos;                    /**< {0..7} Its class of service. */
    vx_boolean bypass_plcy;          /**< TRUE: no policer meters it. */
    vx_boolean flow_enbl;            /**< TRUE: it is put into flow flow_id. */
    vx_uint8 flow_id;                /**< {id flow} The flow; the flag flow_enbl stands for it, too. */
    vx_boolean mirror_enbl;          /**< TRUE: it is mirrored. */
    vx_boolean mirror_before_pe; /**< TRUE: mirrored before it is edited; the flag mirror_enbl stands for it, too. */
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
            vx_uint32 rsvd : 1; /**< Reserved. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_spcl_pkt_ctrl_t;

/**
 * @brief Enables the callback of a trap.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] handle {id trap} The trap, as its registration gave it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Disables the callback of a trap, which keeps its resources.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] handle {id trap} The trap, as its registration gave it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Removes a trap and frees its resources.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] handle {id trap} The trap, as its registration gave it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_deregister_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Adds a port to a trap.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] handle      {id trap} The trap, as its registration gave it.
 * @param[in] port_type   Type of the port; it has to go with port_num.
 * @param[in] port_num    {id port} The port.
 * @param[in] sub_port_id Logical port within it, such as a GEM port; VX_INVALID_PORT_ID for the whole port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_port_to_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_type_t port_type,
                                         vx_uint16 port_num, vx_uint16 sub_port_id);

/**
 * @brief Deletes a port from a trap.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] handle      {id trap} The trap, as its registration gave it.
 * @param[in] port_type   Type of the port; it has to go with port_num.
 * @param[in] port_num    {id port} The port.
 * @param[in] sub_port_id Logical port within it, such as a GEM port; VX_INVALID_PORT_ID for the whole port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_port_from_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_type_t port_type,
                                              vx_uint16 port_num, vx_uint16 sub_port_id);

/**
 * @brief Reads how many packets of a type that came in by a port were trapped.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id    The device.
 * @param[in]  pkt_type  {VX_L2_SPCL_PKT_TYPE_BASE..VX_L2_SPCL_PKT_TYPE_OMCI} The type of packet; there has to be a trap
 *                       of it.
 * @param[in]  port_type Type of the port; it has to go with port_num.
 * @param[in]  port_num  {id port} The port.
 * @param[out] p_stats   {counter, packets} How many.
 * @param[in]  clear     TRUE to begin again at 0 once it is read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_cpu_pkt_trap_stats(vx_dev_id_t dev_id, vx_l2_spcl_pkt_type_t pkt_type, vx_port_type_t port_type,
                                       vx_uint16 port_num, vx_uint32 *p_stats, vx_boolean clear);

/**
 * @brief Sets what is done with a type of special packet: the members that valid flags.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_num {id port} The port that it comes in by.
 * @param[in] pkt_type {VX_L2_SPCL_PKT_TYPE_START..VX_L2_SPCL_PKT_TYPE_END} The type of packet.
 * @param[in] cfg      What to do.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_spcl_pkt_cfg_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_spcl_pkt_type_t pkt_type,
                                   lmq_fe_spcl_pkt_ctrl_t *cfg);

/**
 * @brief Reads what is done with a type of special packet.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_num {id port} The port that it comes in by.
 * @param[in]  pkt_type {VX_L2_SPCL_PKT_TYPE_START..VX_L2_SPCL_PKT_TYPE_END} The type of packet.
 * @param[out] cfg      What is done; valid flags every member.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_spcl_pkt_cfg_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_spcl_pkt_type_t pkt_type,
                                   lmq_fe_spcl_pkt_ctrl_t *cfg);

/**
 * @brief Sets what becomes of a type of special packet on a logical port.
 * @par Effect: changes
 * @par Read back: vx_l2_spcl_pkt_behavior_get(sub_pid=0): sub_pid=0
 * @par Changed by: vx_l2_spcl_pkt_behavior_set(port_id, sub_pid, pkt_type)
 * @param[in] dev_id       The device.
 * @param[in] port_id      The port.
 * @param[in] sub_pid      Logical port within it, such as a GEM port.
 * @param[in] pkt_type     {VX_L2_SPCL_PKT_TYPE_BASE..VX_L2_SPCL_PKT_TYPE_OMCI} The type of packet.
 * @param[in] spcl_pkt_act The action.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_spcl_pkt_behavior_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 sub_pid,
                                        vx_l2_spcl_pkt_type_t pkt_type, vx_l2_spcl_pkt_action_t spcl_pkt_act);

/**
 * @brief Reads what becomes of a type of special packet on a logical port.
 * @par Effect: reads
 * @param[in]  dev_id       The device.
 * @param[in]  port_id      The port.
 * @param[in]  sub_pid      Logical port within it, such as a GEM port.
 * @param[in]  pkt_type     {VX_L2_SPCL_PKT_TYPE_BASE..VX_L2_SPCL_PKT_TYPE_OMCI} The type of packet.
 * @param[out] spcl_pkt_act The action.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_spcl_pkt_behavior_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 sub_pid,
                                        vx_l2_spcl_pkt_type_t pkt_type, vx_l2_spcl_pkt_action_t *spcl_pkt_act);

/**
 * @brief Switches the block of all traffic of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] enbl    TRUE to switch it on.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_traffic_block_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enbl);

/**
 * @brief Reads the block of all traffic of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] enbl    Whether it is on.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_traffic_block_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enbl);

/**
 * @brief Switches the PPPoE filter of a port, which lets no other packets pass.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] enbl    TRUE to switch it on.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_pppoe_filter_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enbl);

/**
 * @brief Reads the PPPoE filter of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] enbl    Whether it is on.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_pppoe_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enbl);

/**
 * @brief Adds types of packet to the ingress filter of a port, which drops them.
 * @par Effect: changes
 * @par Read back: lmq_get_pkt_type_filter: pkt_type_bitmap=p_pkt_type_bitmap if p_pkt_type_bitmap!=0
 * @par Undone by: lmq_delete_pkt_type_filter
 * @param[in] dev_id          The device.
 * @param[in] port_id         The port: the SNI or a UNI.
 * @param[in] pkt_type_bitmap {bits of lmq_pkt_type_bitmap_e} Types to drop, on top of those in the filter; at least
 *                            one.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                    vx_l2_spcl_pkt_type_bitmap_t pkt_type_bitmap);

/**
 * @brief Removes types of packet from the ingress filter of a port.
 * @par Effect: changes
 * @param[in] dev_id          The device.
 * @param[in] port_id         The port: the SNI or a UNI.
 * @param[in] pkt_type_bitmap {bits of lmq_pkt_type_bitmap_e} Types to let pass again; one of them has to be in the
 *                            filter.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                       vx_l2_spcl_pkt_type_bitmap_t pkt_type_bitmap);

/**
 * @brief Reads the ingress filter of a port.
 * @par Effect: reads
 * @param[in]  dev_id            The device.
 * @param[in]  port_id           The port: the SNI or a UNI.
 * @param[out] p_pkt_type_bitmap {bits of lmq_pkt_type_bitmap_e} The types that are dropped.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                    vx_l2_spcl_pkt_type_bitmap_t *p_pkt_type_bitmap);

/**
 * @brief Sends a packet.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] pkt_len    {1..2000 bytes} Length of the packet; at least 14, but for OMCI and OAM messages.
 * @param[in] p_pkt_buff [pkt_len] The packet, from its destination address on.
 * @param[in] p_cfg      Where and how to send it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cpu_packet_tx(vx_dev_id_t dev_id, vx_uint16 pkt_len, vx_uint8 *p_pkt_buff,
                             vx_cpu_send_frame_cfg_t *p_cfg);

/**
 * @brief Frees a packet that a trap has handed out.
 * @par Effect: changes
 * @param[in] cookie What came with the packet; NULL for none.
 */
void lmq_pkt_free_fnc(void *cookie);

#ifdef __cplusplus
}
#endif

#endif
