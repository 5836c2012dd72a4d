// Packets to and from the CPU: UDTs, inner ones first, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
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

// flow_id and mirror_before_pe have no flag in the mask. Bits 10 and up of its word have no name.
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

// No method registers a trap, since none can pass a callback: the handles come from elsewhere.
constexpr Help help_lmq_enable_cpu_pkt_trap{
    .title = "Enable CPU packet trap",
    .text = "This API enables the calling of the callback registered with the packet type.\n",
    .inputs = "handle : handle given by the registration of the trap\n",
};
METHOD(lmq_enable_cpu_pkt_trap, help_lmq_enable_cpu_pkt_trap, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))

constexpr Help help_lmq_disable_cpu_pkt_trap{
    .title = "Disable CPU packet trap",
    .text = "This API disables the calling of the callback registered with the packet type.\n"
            "Disabling will not free the resources. Use lmq_deregister_cpu_pkt_trap for that.\n",
    .inputs = "handle : handle given by the registration of the trap\n",
};
METHOD(lmq_disable_cpu_pkt_trap, help_lmq_disable_cpu_pkt_trap, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))

// The title is that of the registration, which is no method.
constexpr Help help_lmq_deregister_cpu_pkt_trap{
    .title = "Registers for trapping of CPU packet",
    .text = "This API deregisters a trap of CPU packets and frees its resources.\n",
    .inputs = "handle : handle given by the registration of the trap\n",
};
METHOD(lmq_deregister_cpu_pkt_trap, help_lmq_deregister_cpu_pkt_trap,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))

constexpr Help help_lmq_add_port_to_cpu_pkt_trap{
    .title = "ADD PORT TO AN EXISTING PACKET TRAP",
    .text = "This API is used to add a port to an existing packet trap.\n",
    .inputs = "handle      : handle given by the registration of the trap\n"
              "port_type   : port type\n"
              "port_num    : port number\n"
              "sub_port_id : sub-port number\n",
};
METHOD(lmq_add_port_to_cpu_pkt_trap, help_lmq_add_port_to_cpu_pkt_trap,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_port_type_t, port_type),
       VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port_id))

// The text says "add", as that of lmq_add_port_to_cpu_pkt_trap does.
constexpr Help help_lmq_delete_port_from_cpu_pkt_trap{
    .title = "DELETE PORT FROM AN EXISTING PACKET TRAP",
    .text = "This API is used to add a port to an existing packet trap.\n",
    .inputs = "handle      : handle given by the registration of the trap\n"
              "port_type   : port type\n"
              "port_num    : port number\n"
              "sub_port_id : sub-port number\n",
};
METHOD(lmq_delete_port_from_cpu_pkt_trap, help_lmq_delete_port_from_cpu_pkt_trap,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_port_type_t, port_type),
       VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port_id))

constexpr Help help_lmq_get_cpu_pkt_trap_stats{
    .title = "GET CPU PACKET TRAP STATISTICS",
    .text = "This API retrieves the statistics of trapped packets per packet type and port, and\n"
            "clears them if required.\n",
    .inputs = "pkt_type  : packet type\n"
              "port_type : port type\n"
              "port_num  : port number\n"
              "p_stats   : where to put the statistics\n"
              "clear     : TRUE to clear the statistics\n",
    .outputs = "p_stats : number of trapped packets\n",
};
METHOD(lmq_get_cpu_pkt_trap_stats, help_lmq_get_cpu_pkt_trap_stats,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_l2_spcl_pkt_type_t, pkt_type), VALUE(vx_port_type_t, port_type),
       VALUE(vx_uint16, port_num), ELEMENT_PTR(vx_uint32, p_stats), VALUE(vx_boolean, clear))

METHOD(vx_l2_spcl_pkt_cfg_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), VALUE(vx_l2_spcl_pkt_type_t, pkt_type),
       UDT_PTR(lmq_fe_spcl_pkt_ctrl_t, cfg))
METHOD(vx_l2_spcl_pkt_cfg_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), VALUE(vx_l2_spcl_pkt_type_t, pkt_type),
       UDT_PTR(lmq_fe_spcl_pkt_ctrl_t, cfg))

METHOD(vx_l2_spcl_pkt_behavior_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, sub_pid),
       VALUE(vx_l2_spcl_pkt_type_t, pkt_type), VALUE(vx_l2_spcl_pkt_action_t, spcl_pkt_act))
METHOD(vx_l2_spcl_pkt_behavior_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, sub_pid),
       VALUE(vx_l2_spcl_pkt_type_t, pkt_type), ELEMENT_PTR(vx_l2_spcl_pkt_action_t, spcl_pkt_act))

METHOD(vx_l2_traffic_block_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_boolean, enbl))
METHOD(vx_l2_traffic_block_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_boolean, enbl))

METHOD(vx_l2_pppoe_filter_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_boolean, enbl))
METHOD(vx_l2_pppoe_filter_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_boolean, enbl))

constexpr Help help_lmq_add_pkt_type_filter{
    .title = "ENABLE INGRESS PACKET FILTER ON A PORT",
    .text = "This API enables an ingress filter on a UNI or SNI physical port. Filters are of\n"
            "negative nature: matching packets are dropped. The bitmap of packet types is\n"
            "accumulative.\n",
    .inputs = "port_id         : port id\n"
              "pkt_type_bitmap : packet types to filter\n",
};
METHOD(lmq_add_pkt_type_filter, help_lmq_add_pkt_type_filter,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_l2_spcl_pkt_type_bitmap_t, pkt_type_bitmap))

constexpr Help help_lmq_delete_pkt_type_filter{
    .title = "DELETE THE PACKET FILTER",
    .text = "This API removes the specified packet types from the current filter.\n",
    .inputs = "port_id         : port id\n"
              "pkt_type_bitmap : packet types to remove\n",
};
METHOD(lmq_delete_pkt_type_filter, help_lmq_delete_pkt_type_filter,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_l2_spcl_pkt_type_bitmap_t, pkt_type_bitmap))

constexpr Help help_lmq_get_pkt_type_filter{
    .title = "RETRIEVE CURRENT PACKET FILTER",
    .text = "This API retrieves all packet types in the current filter.\n",
    .inputs = "port_id           : port id\n"
              "p_pkt_type_bitmap : where to put the packet types\n",
    .outputs = "p_pkt_type_bitmap : packet types in the filter\n",
};
METHOD(lmq_get_pkt_type_filter, help_lmq_get_pkt_type_filter,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id),
       ELEMENT_PTR(vx_l2_spcl_pkt_type_bitmap_t, p_pkt_type_bitmap))

// The text begins with that of another operation, twice, and the title is that of the first.
constexpr Help help_vx_cpu_packet_tx{
    .title = "Get Device IP configuration",
    .text = "This API retrieves the IP address of the local management I/F.\n"
            "\n"
            "Get Device IP configuration\n"
            "\n"
            "This API retrieves the IP address of the local management I/F.\n"
            "\n"
            "Send a packet\n"
            "\n"
            "This API sends a frame to the indicated port.\n",
    .inputs = "pkt_len    : length of the packet\n"
              "p_pkt_buff : the packet\n"
              "p_cfg      : port and manner of sending\n",
};
// pkt_len goes to the driver as it is, however many bytes the client has sent.
METHOD(vx_cpu_packet_tx, help_vx_cpu_packet_tx,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pkt_len), ELEMENT_PTR(vx_uint8, p_pkt_buff),
       UDT_PTR(vx_cpu_send_frame_cfg_t, p_cfg))

// The one argument that is a pointer to anything. No document can carry its form, so that over the wire an empty array
// alone gets as far as the driver.
METHOD(lmq_pkt_free_fnc, no_help, COOKIE(cookie))

} // namespace lmq
