"""Counters that can be cleared: under traffic each of them moves, is cleared by its function or its argument, and only so.

The functions are found in the headers, by their names and arguments. One that is new fails here until a row below says
how its counter is made to move, or why it has none.
"""

import unittest

from harness import INTERFACE, SimTest

SNI, MGMT, ETH0 = 0, 2, 3
GPON, ETH = 1, 4
GEM, TCONT, ARP, LOS, DELAY_PORT = 100, 1, 9, 0x406, 3
PLOAM_TYPE = 9

# What is left to clear besides counters.
NO_COUNTERS = {
    "lmq_clear_gpio_intr": "clears latched interrupts of pins",
    "vx_cls_domain_rule_clear": "clears the rules of a domain",
    "vx_event_status_clear": "clears the status of an event",
    "vx_l2_fdb_entry_clear": "clears the forwarding database",
    "vx_l2_fdb_entry_port_clear": "clears the forwarding database of a port",
    "vx_mcast_ip_entry_clear": "clears a table of groups",
    "vx_mcast_l2_entry_clear": "clears a table of groups",
    "vx_mcast_vlan_clear": "clears a table of VLANs",
}

# Each counter: what reads it, with the key of the counter and what it writes to; whether it has an argument to clear; and
# the function that clears it, by the same key.
COUNTERS = (
    ("vx_1ag_stats_get", (), {}, True, None),
    ("lmq_get_fe_pkt_stats", (0,), {}, True, "lmq_clear_fe_pkt_stats"),
    ("lmq_get_cpu_pkt_trap_stats", (ARP, ETH, ETH0), 0, True, None),
    ("vx_eth_port_stats_get", (ETH0,), {}, True, "vx_eth_port_stats_clear"),
    ("vx_event_count_get", (LOS, SNI, 0), 0, True, "vx_event_count_clear"),
    ("vx_event_count_get", (LOS, SNI, 0), 0, True, "vx_event_count_clear_all"),
    ("vx_gpon_onu_mac_stats_get", (SNI,), {}, False, "vx_gpon_onu_mac_stats_clear"),
    ("vx_gpon_onu_fec_stats_get", (SNI,), {}, True, "vx_gpon_onu_fec_stats_clear"),
    ("vx_gpon_onu_ploam_stats_get", (SNI,), {}, True, "vx_gpon_onu_ploam_stats_clear"),
    ("vx_gpon_onu_tcont_stats_get", (SNI, TCONT), {}, True, "vx_gpon_onu_tcont_stats_clear"),
    ("vx_gpon_onu_omcc_stats_get", (SNI,), {}, True, "vx_gpon_onu_omcc_stats_clear"),
    ("vx_gpon_onu_gem_stats_get", (SNI, GEM), {}, True, "vx_gpon_onu_gem_stats_clear"),
    ("lmq_get_local_mgmt_if_stat", (), {}, False, "lmq_clear_local_mgmt_if_stat"),
    ("lmq_get_ip_host_interface_status", ("host",), {}, False, "lmq_clear_ip_host_interface_stats"),
    ("vx_bm_pkt_stats_get", (), {}, True, "vx_bm_pkt_stats_clear"),
    ("vx_rate_cpu_stat_get", (), {}, True, "vx_rate_cpu_stat_clear"),
    ("vx_rate_src_port_stat_get", (ETH0,), {}, True, "vx_rate_src_port_stat_clear"),
    ("vx_rate_policer_stat_get", ("policer",), {}, True, "vx_rate_policer_stat_clear"),
    ("vx_rate_group_policer_stat_get", ("group",), {}, True, "vx_rate_group_policer_stat_clear"),
)
STATES = {"admin_status", "oper_status"}  # members beside the counters


class Clear(SimTest):
    clock = 10
    environment = {"LMQ_SIM_TRAFFIC": "3:10000"}
    device = {"eth_port_cfg": [{"add_port": 1, "admin_status": 1}],
              "lcl_mgmt_port_cfg": {"add_port": 1, "admin_status": 1}}

    def setUp(self):
        super().setUp()
        self.ids = {}
        limit = {"pol_type": 2, "peak_rate": 1}
        for name, function in ("policer", "vx_rate_policer_create"), ("group", "vx_rate_group_policer_create"):
            self.ids[name] = self.ok(function, 0, limit, 0)
        flow = self.ok("vx_flow_us_add", 0, ETH0, {"key_type": 3}, {}, 0, 0)
        self.ok("vx_rate_policer_group_member_add", 0, self.ids["policer"], self.ids["group"])
        self.ok("vx_rate_flow_id_set", 0, flow, {"flow_pol_sel": 1, "flw_pol_id": self.ids["policer"]})
        self.ids["host"] = self.ok("lmq_create_ip_host_interface", 0, ETH0, {}, 0)
        self.ok("lmq_add_port_to_cpu_pkt_trap", 0, ARP, ETH, ETH0, 0)
        self.ok("vx_1ag_dm_config_set", 0, DELAY_PORT, {"enbl_tx": 1})
        self.ok("vx_gpon_onu_tcont_enable_set", 0, SNI, TCONT, 1, {"alloc_id": 256})
        self.ok("vx_gpon_onu_gem_port_add", 0, SNI, GEM, {"direction": 3, "tcont_id": TCONT})
        self.ok("lmq_enable_gpon_ploam_stats", 0, SNI, 1, 0, [])
        self.ok("vx_gpon_onu_state_set", 0, SNI, 4)

    def move(self):
        """Gives all counters something to count, and then time to stand still for the calls of a test."""
        self.ok("lmq_dbg_generate_event", 0, LOS, SNI, 0)
        self.ok("vx_gpon_onu_ploam_us_set", 0, SNI, [1, PLOAM_TYPE] + [0] * 11, 13)
        # Delays are measured once a second. Traffic is counted each 100 ms, so that the next nine calls see the same.
        for _ in range(1000 // self.clock):
            self.ok("lmq_ctrl_interrupts", 0, 1)
        before = self.frames()
        while self.frames() == before:
            pass

    def frames(self):
        return self.ok("vx_gpon_onu_mac_stats_get", 0, SNI, {})["ds_gpon_frm_cnt"]

    def test_every_counter(self):
        for reader, key, empty, reads_and_clears, clearer in COUNTERS:
            key = tuple(self.ids.get(part, part) for part in key)

            def total(*clear):
                output = self.echo(reader, 0, *key, empty, *clear)[1 + len(key)]
                numbers = output.values() if isinstance(output, dict) else [output]
                names = output if isinstance(output, dict) else [""]
                return sum(sum(number) if isinstance(number, list) else number
                           for name, number in zip(names, numbers) if name not in STATES)

            keep = (0,) if reads_and_clears else ()
            with self.subTest(reader, clearer=clearer):
                self.move()
                moved = total(*keep)
                self.assertGreater(moved, 0)
                self.assertEqual(total(*keep), moved, "reading it has changed it")
                if reads_and_clears:
                    self.assertEqual(total(1), moved)
                    self.assertEqual(total(*keep), 0, "it is not cleared on reading")
                    self.move()
                    self.assertGreater(total(*keep), 0)
                if clearer:
                    self.ok(clearer, 0, *(() if clearer.endswith("_all") else key))
                    self.assertEqual(total(*keep), 0, "it is not cleared")

    def test_no_counter_is_left_out(self):
        cleared = {name for name in INTERFACE.functions if "clear" in name.split("_")}
        reads_and_clears = {name for name, function in INTERFACE.functions.items()
                            if any("clear" in argument.name.split("_") for argument in function.arguments)}
        self.assertGreater(len(reads_and_clears), 10)
        self.assertEqual(cleared - set(NO_COUNTERS), {clearer for *_, clearer in COUNTERS if clearer})
        self.assertEqual(reads_and_clears, {reader for reader, _, _, clear, _ in COUNTERS if clear})


if __name__ == "__main__":
    unittest.main()
