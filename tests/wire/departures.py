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
