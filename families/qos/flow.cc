// Flows: the keys, actions and records of both directions, inner UDTs first, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/flow.h"

namespace lmq {

// The alternatives of a key share one storage, and key_type selects none of them: all that a client sends are read, in
// this order, and all go out. Upstream alone has ext_vlan_dscp, downstream alone subpid_ctrl_pkt.
UDT(vx_flow_us_key_t,
    SCALAR(vx_cl_key_type_t, key_type),
    INLINE(key_s,
        NESTED(vx_cl_key_mac_da_etype_t,    key_s.mac_da_etype),
        NESTED(vx_cl_key_mac_range_etype_t, key_s.mac_range_etype),
        NESTED(vx_cl_key_mac_vlan_t,        key_s.mac_vlan),
        NESTED(vx_cl_key_spcl_mac_vlan_t,   key_s.spcl_mac_vlan),
        NESTED(vx_cl_key_vlan_range_t,      key_s.vlan_range),
        NESTED(vx_cl_key_double_vlan_t,     key_s.double_vlan),
        NESTED(vx_cl_key_ext_vlan_t,        key_s.ext_vlan),
        NESTED(vx_cl_key_mac_ip_proto_t,    key_s.mac_ip_proto),
        NESTED(vx_cl_key_ctrl_pkt_t,        key_s.ctrl_pkt),
        NESTED(vx_cl_key_ipv4_long_t,       key_s.ipv4_long),
        NESTED(vx_cl_key_ipv4_short_t,      key_s.ipv4_short),
        NESTED(vx_cl_key_ipv6_long_t,       key_s.ipv6_long),
        NESTED(vx_cl_key_ipv6_short_t,      key_s.ipv6_short),
        NESTED(vx_cl_key_ext_vlan_dscp_t,   key_s.ext_vlan_dscp)))

UDT(vx_flow_ds_key_t,
    SCALAR(vx_cl_key_type_t, key_type),
    INLINE(key_s,
        NESTED(vx_cl_key_mac_da_etype_t,    key_s.mac_da_etype),
        NESTED(vx_cl_key_mac_range_etype_t, key_s.mac_range_etype),
        NESTED(vx_cl_key_mac_vlan_t,        key_s.mac_vlan),
        NESTED(vx_cl_key_spcl_mac_vlan_t,   key_s.spcl_mac_vlan),
        NESTED(vx_cl_key_vlan_range_t,      key_s.vlan_range),
        NESTED(vx_cl_key_double_vlan_t,     key_s.double_vlan),
        NESTED(vx_cl_key_ext_vlan_t,        key_s.ext_vlan),
        NESTED(vx_cl_key_mac_ip_proto_t,    key_s.mac_ip_proto),
        NESTED(vx_cl_key_ctrl_pkt_t,        key_s.ctrl_pkt),
        NESTED(vx_cl_key_subpid_ctrl_pkt_t, key_s.subpid_ctrl_pkt),
        NESTED(vx_cl_key_ipv4_long_t,       key_s.ipv4_long),
        NESTED(vx_cl_key_ipv4_short_t,      key_s.ipv4_short),
        NESTED(vx_cl_key_ipv6_long_t,       key_s.ipv6_long),
        NESTED(vx_cl_key_ipv6_short_t,      key_s.ipv6_short)))

UDT(vx_flow_vlan_action_t,
    SCALAR(vx_flow_vlan_tag_action_type_t, vlan_tag_act),
    SCALAR(vx_flow_tpid_action_type_t,     tpid_act),
    SCALAR(vx_flow_pbit_action_type_t,     pbit_act),
    SCALAR(vx_flow_de_action_type_t,       de_act),
    SCALAR(vx_uint16,                      tpid),
    SCALAR(vx_uint8,                       pbit),
    SCALAR(vx_uint8,                       de),
    SCALAR(vx_vid_t,                       vid))

UDT(vx_flow_dot1p_action_t,
    SCALAR(vx_flow_pbit_action_type_t, pbit_act),
    SCALAR(vx_flow_de_action_type_t,   de_act),
    SCALAR(vx_uint8,                   pbit),
    SCALAR(vx_uint8,                   de))

// The one action type whose name begins with cl_.
UDT(cl_flow_cos_action_t,
    SCALAR(vx_flow_cos_action_type_t, cos_act),
    SCALAR(vx_uint8,                  cos_val))

UDT(vx_flow_dscp_action_t,
    SCALAR(vx_flow_dscp_action_type_t, dscp_act),
    SCALAR(vx_uint8,                   dscp_val))

// The flags do not follow the members: dsbl_mac_learn has the lower bit, and lrn_limit_act, mirror_port and mirror_mode
// have none.
UDT(vx_flow_us_action_t,
    NESTED(vx_flow_vlan_action_t,        o_vlan_act),
    NESTED(vx_flow_vlan_action_t,        i_vlan_act),
    NESTED(vx_flow_dot1p_action_t,       o_dot1p_act),
    NESTED(vx_flow_dot1p_action_t,       i_dot1p_act),
    NESTED(cl_flow_cos_action_t,         cos_act),
    NESTED(vx_flow_dscp_action_t,        dscp_act),
    SCALAR(vx_uint8,                     queue_id),
    SCALAR(vx_flow_egrs_vlan_chk_type_t, egrs_vlan_chk_sel),
    SCALAR(vx_boolean,                   dsbl_mac_learn),
    SCALAR(vx_lrn_lmt_pkt_act_t,         lrn_limit_act),
    SCALAR(vx_boolean,                   enbl_pkt_mirror),
    SCALAR(vx_uint16,                    mirror_port),
    SCALAR(vx_flow_mirror_pkt_mode_t,    mirror_mode),
    MASK(valid, vx_uint32, o_vlan_act, i_vlan_act, o_dot1p_act, i_dot1p_act, cos_act, dscp_act, queue_id,
         dsbl_mac_learn, egrs_vlan_chk_sel, enbl_pkt_mirror))

// The same type under its own name, which its fault texts carry.
UDT_AS(vx_flow_ds_action_t, vx_flow_us_action_t)

// Upstream alone has port_num and map_sub_port.
UDT(vx_flow_us_cfg_t,
    SCALAR(vx_flow_id_t,        flow_id),
    SCALAR(vx_uint16,           port_num),
    SCALAR(vx_uint8,            pri),
    NESTED(vx_flow_us_key_t,    key),
    NESTED(vx_flow_us_action_t, action),
    SCALAR(vx_uint16,           map_port),
    SCALAR(vx_uint16,           map_sub_port))

UDT(vx_flow_ds_cfg_t,
    SCALAR(vx_flow_id_t,        flow_id),
    SCALAR(vx_uint8,            pri),
    NESTED(vx_flow_ds_key_t,    key),
    NESTED(vx_flow_ds_action_t, action),
    SCALAR(vx_uint16,           map_port))

// The first argument is device_id here, and dev_id in all others.
METHOD(vx_flow_us_add, no_help,
       VALUE(vx_dev_id_t, device_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_flow_us_key_t, p_key),
       UDT_PTR(vx_flow_us_action_t, p_action), VALUE(vx_uint8, priority), ELEMENT_PTR(vx_flow_id_t, p_flow_id))

constexpr Help help_vx_flow_us_delete{
    .title = "Delete an upstream flow",
    .text = "This API deletes an upstream flow and frees all system resources allocated to this flow.\n",
    .inputs = "flow_id : flow id\n",
};
METHOD(vx_flow_us_delete, help_vx_flow_us_delete, VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id))

constexpr Help help_vx_flow_us_modify{
    .title = "Configure an upstream flow",
    .text = "This API sets the action of the upstream flow.\n",
    .inputs = "flow_id  : flow id\n"
              "p_key    : packet classification rule which is used to identify a packet flow\n"
              "p_action : action on the packets of the flow\n",
};
METHOD(vx_flow_us_modify, help_vx_flow_us_modify,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id), UDT_PTR(vx_flow_us_key_t, p_key),
       UDT_PTR(vx_flow_us_action_t, p_action))

METHOD(vx_flow_us_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id), UDT_PTR(vx_flow_us_key_t, p_key),
       UDT_PTR(vx_flow_us_action_t, p_action))

// The text begins with title and description of vx_flow_us_modify, and lists sni_port_num as port_num.
constexpr Help help_vx_flow_us_map{
    .title = "Configure an upstream flow",
    .text = "This API sets the action of the upstream flow.\n"
            "\n"
            "Map an upstream flow to a SNI port\n"
            "\n"
            "This API maps an upstream flow to a SNI port and sub-port.\n"
            "when a fixed queue_id is configured in the flow action, this API is not needed. However,\n"
            "when this API is called later, this API will override queue_id configured via the action\n"
            "whenever there is a conflict.\n"
            "For example, a flow is mapped to queue0 in the action, and queue0 is mapped to LLID0.\n"
            "When this API is called with LLID1, the flow is moved to LLID1. When it is called with\n"
            "LLID0, no action is taken and the flow stays on the fixed queue 0.\n",
    .inputs = "flow_id      : flow id\n"
              "port_num     : SNI or CPU port number\n"
              "sni_sub_port : either GEM port for GPON or LLID for EPON\n",
};
METHOD(vx_flow_us_map, help_vx_flow_us_map,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id), VALUE(vx_uint16, sni_port_num),
       VALUE(vx_uint16, sni_sub_port))

METHOD(vx_flow_us_all_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, get_cnt),
       UDT_PTR(vx_flow_us_cfg_t, p_cfg), ELEMENT_PTR(vx_uint16, p_valid_cnt))

METHOD(vx_flow_ds_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_flow_ds_key_t, p_key),
       UDT_PTR(vx_flow_ds_action_t, p_action), VALUE(vx_uint8, priority), ELEMENT_PTR(vx_flow_id_t, p_flow_id))
METHOD(vx_flow_ds_delete, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id))
METHOD(vx_flow_ds_modify, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id), UDT_PTR(vx_flow_ds_key_t, p_key),
       UDT_PTR(vx_flow_ds_action_t, p_action))
METHOD(vx_flow_ds_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id), UDT_PTR(vx_flow_ds_key_t, p_key),
       UDT_PTR(vx_flow_ds_action_t, p_action))
METHOD(vx_flow_ds_map, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_flow_id_t, flow_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_flow_ds_all_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, get_cnt),
       UDT_PTR(vx_flow_ds_cfg_t, p_cfg), ELEMENT_PTR(vx_uint16, p_valid_cnt))

} // namespace lmq
