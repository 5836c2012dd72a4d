// Multicast: UDTs, inner ones first, then the methods. The four list methods take the count before the list.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/mcast.h"

namespace lmq {

UDT(vx_acl_mcast_grp_addr_t,
    SCALAR(  vx_mcast_addr_type_t, addr_type),
    NESTED(  vx_ip_addr_t,         mc_ip_addr),
    ELEMENTS(vx_mac_addr_t,        mc_mac_addr, 6))

// Member list and fault texts spell the type of mcast_grp with the tag of its struct.
UDT(vx_mcast_acl_t,
    SCALAR(vx_uint16,    sub_port_id),
    SCALAR(vx_uint16,    mcast_vlan),
    NESTED(vx_ip_addr_t, grp_start),
    NESTED(vx_ip_addr_t, grp_end),
    NESTED(vx_ip_addr_t, src_ip),
    SCALAR(vx_uint16,    mcast_grp_cnt),
    UDT_ARRAY_SPELLED(vx_acl_mcast_grp_addr_t, "struct vx_acl_mcast_grp_addr_s", mcast_grp, 2))

UDT(vx_mcast_vlan_cfg_t,
    SCALAR(vx_uint16,                  mcast_vlan),
    SCALAR(vx_mcast_vlan_tag_action_t, ds_vlan_cmd),
    SCALAR(vx_uint16,                  uni_vlan_id))

UDT(vx_mcast_l2_entry_t,
    SCALAR(  vx_uint16,     sub_port),
    SCALAR(  vx_uint16,     mcast_vlan),
    ELEMENTS(vx_mac_addr_t, mac_addr, 6))

UDT(vx_mcast_ip_entry_t,
    SCALAR(   vx_uint16,                  mcast_vlan),
    SCALAR(   vx_uint16,                  sub_port),
    NESTED(   vx_ip_addr_t,               grp_addr),
    SCALAR(   vx_mcast_src_filter_mode_t, filter_mode),
    SCALAR(   vx_uint8,                   src_num),
    UDT_ARRAY(vx_ip_addr_t,               src_list, 2))

UDT(lmq_igmp_vlan_cfg_s,
    SCALAR(lmq_igmp_vlan_tag_action_e, us_vlan_cmd),
    SCALAR(lmq_igmp_vid_src_e,         us_vid_src),
    SCALAR(vx_uint16,                  us_igmp_tci),
    SCALAR(lmq_igmp_vlan_tag_action_e, ds_vlan_cmd),
    SCALAR(vx_uint16,                  ds_igmp_tci))

UDT(vx_mcast_host_info_dbg_t,
    SCALAR(  vx_uint8,  host_vid_cnt),
    ELEMENTS(vx_uint16, host_vid_list, 10))

UDT(lmq_mcast_src_filter_list_dbg_s,
    SCALAR(   vx_mcast_src_filter_mode_t, filter_mode),
    SCALAR(   vx_uint8,                   src_ip_cnt),
    UDT_ARRAY(vx_ip_addr_t,               src_ip_list, 10))

UDT(lmq_mcast_filter_cfg_dbg_s,
    SCALAR(vx_uint16,                       sub_port_id),
    SCALAR(vx_vid_t,                        mcast_vlan),
    NESTED(vx_acl_mcast_grp_addr_t,         mcast_grp_addr),
    NESTED(lmq_mcast_src_filter_list_dbg_s, src_filter_list))

METHOD(vx_mcast_vlan_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, mcast_vlan))
METHOD(vx_mcast_vlan_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, mcast_vlan))
METHOD(vx_mcast_vlan_clear, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_mcast_vlan_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_uint16, num),
       UDT_PTR(vx_mcast_vlan_cfg_t, p_cfg))

// The VLAN comes twice, by itself and in p_cfg. Both are handed on.
METHOD(vx_mcast_vlan_config_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, mcast_vlan),
       UDT_PTR(vx_mcast_vlan_cfg_t, p_cfg))
METHOD(vx_mcast_vlan_config_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, mcast_vlan),
       UDT_PTR(vx_mcast_vlan_cfg_t, p_cfg))

METHOD(vx_mcast_l2_entry_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_mcast_l2_entry_t, entry))
METHOD(vx_mcast_l2_entry_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_mcast_l2_entry_t, entry))
METHOD(vx_mcast_l2_entry_clear, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_mcast_l2_entry_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_uint16, num),
       UDT_PTR(vx_mcast_l2_entry_t, entry))

METHOD(vx_mcast_ip_entry_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_mcast_ip_entry_t, entry))
METHOD(vx_mcast_ip_entry_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_mcast_ip_entry_t, entry))
METHOD(vx_mcast_ip_entry_clear, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_mcast_ip_entry_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_uint16, num),
       UDT_PTR(vx_mcast_ip_entry_t, entry))

METHOD(vx_mcast_acl_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_mcast_acl_t, p_mcast_acl))
METHOD(vx_mcast_acl_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_mcast_acl_t, p_mcast_acl))
METHOD(vx_mcast_acl_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_uint16, num),
       UDT_PTR(vx_mcast_acl_t, p_mcast_acl))

METHOD(lmq_enable_port_igmp_snooping, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), VALUE(lmq_igmp_proto_type_e, proto_type))
METHOD(lmq_disable_port_igmp_snooping, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num))

METHOD(lmq_set_port_igmp_vlan_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(lmq_igmp_vlan_cfg_s, p_cfg))
METHOD(lmq_get_port_igmp_vlan_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(lmq_igmp_vlan_cfg_s, p_cfg))
METHOD(lmq_print_port_igmp_vlan_config, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num))

METHOD(lmq_dbg_set_mcast_filter_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_mcast_host_info_dbg_t, p_host_info),
       UDT_PTR(lmq_mcast_filter_cfg_dbg_s, p_mcast_filter))

METHOD(lmq_dbg_print_mc_grp_acl, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, uni_port_num))
METHOD(lmq_dbg_print_mc_vlan_cfg, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, uni_port_num))
METHOD(lmq_dbg_print_all_mc_vlan_cfg, no_help, VALUE(vx_dev_id_t, dev_id))
METHOD(lmq_dbg_print_mc_db, no_help, VALUE(vx_dev_id_t, dev_id))

} // namespace lmq
