"""Where the interface departs from its own rules. The sweeps take everything else from the text of the headers.

Each entry needs a comment that says what is odd.
"""

# Inline structs whose keys a fault text names by themselves, as members of "inline struct": pairs of UDT and path.
OVERLAID = {
    # Addresses and VLAN pairs of the forwarding engine's keys are laid over one another.
    ("lmq_fe_cls_mcast_key_s", "addr"),
    ("lmq_fe_cls_gem_mcast_key_s", "addr"),
    ("lmq_fe_cls_ipv4_mcast_pkt_key_s", "dest_addr"),
    ("lmq_fe_cls_vlan_range_key_s", "vid"),
}

# Arrays of UDTs for which a single struct is refused: pairs of UDT and path.
LISTS = {
    # The alternatives of a classifier rule that hold several keys.
    ("vx_cls_rule_cfg_t", f"cls_key.{kind}_key")
    for kind in ("ipv4_short", "mirror", "mac_vlan", "mac_etype", "ctrl_pkt", "vlan", "vlan_range", "proto", "mcast",
                 "ext_vlan", "gem_mcast", "gem_ctrl_pkt", "ipv4_mcast")
}

# Members whose type the fault texts spell otherwise than the header: pair of UDT and path to the spelling.
SPELLED = {
    # By the struct behind its typedef.
    ("vx_mcast_acl_t", "mcast_grp"): "struct vx_acl_mcast_grp_addr_s",
}

# Enum types whose enumerators are told by their offset from the base before them, and each base by its own number.
BASED = {"vx_status_e", "vx_event_type_e"}

# Bases that stand in the range of another one, and count on from that one.
INNER_BASES = {"VX_EVENT_FE_DEV_BASE", "VX_EVENT_BM_DEV_BASE"}

# Enum types that are told without their enumerators.
BARE_ENUMS = {
    # Clients find them in the macro VX_MODULES_DEFINES.
    "vx_mod_id_e",
}

# Macros that are told and not declared: the C library has them.
MACROS_OF_C = {"NULL": "0"}

# Macros that are not told: array bounds that member lists spell all the same, and what tells the compiler an enum's size.
UNTOLD_MACROS = {"LMQ_NUM_DEVICES", "LMQ_PORT_ETH_NUM", "LMQ_MAX_UNI_PORT_NUM", "VX_GPON_MAX_TCONTS",
                 "VX_MAX_NUM_TCONT_QUEUE", "VX_MAX_GEM_PORTS", "LMQ_ENUM_INT"}

# Typedefs that are told and not declared, since no function that is a method needs them.
UNDECLARED_TYPEDEFS = {
    # Pointers to functions end behind the opening parenthesis.
    **dict.fromkeys(("vx_ptp_tx_ack_func_t", "lmq_igmp_pkt_free_fnc_ptr_t", "lmq_event_handler_t",
                     "vx_ptp_get_time_func_t", "fp_vx_log_api_t", "vx_1ag_tx_ack_func_t", "lmq_igmp_rx_func_t",
                     "vx_cpu_pkt_rx_hndlr_t", "vx_ptp_rx_func_t", "vx_1ag_rx_func_t", "vx_cpu_pkt_free_fnc_ptr_t"),
                    "void(*"),
    "vx_mcast_host_info_t": "struct vx_mcast_host_info_s",
    "vx_mcast_vlan_info_t": "struct vx_mcast_vlan_info_s",
    "vx_mcast_grp_cfg_t": "struct vx_mcast_grp_cfg_s",
    "vx_l2_custom_pkt_type_cfg_t": "vx_flow_ds_key_t",
}
