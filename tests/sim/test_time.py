"""Time distribution: PTP of the device and of ports, and the 1PPS and time of day outputs."""

import unittest

from harness import SimTest

ETH0 = 3


def wire(number):
    """A number of 32 bits as an int of the wire."""
    return (number + (1 << 31)) % (1 << 32) - (1 << 31)


class TimeDistribution(SimTest):
    clock = 100

    def check(self, name, place, change, without_flag=(), bad=()):
        """A set takes what is flagged; a get flags all; what is flagged and out of range changes nothing."""
        get, set_ = (f"vx_{name}_{verb}" for verb in ("get", "set"))
        start = self.ok(get, *place, {})
        flags = start["valid"]["mask_s"]
        self.assertEqual(set(flags.values()), {1})
        for key, value in change.items():
            self.ok(set_, *place, {**change, "valid": {"mask_s": {key: 1} if key in flags else {}}})
            start.update({key: value}, **{name: change[name] for name in without_flag})
            self.assertEqual(self.ok(get, *place, {}), start, key)
        for key, value in bad:
            self.refused("GLBL_RANGE_CHECK_FAIL", set_, *place,
                         {**{k: 0 for k in change}, key: value, "valid": {"mask": -1}})
        self.assertEqual(self.ok(get, *place, {}), start)

    def test_ptp(self):
        self.check("ptp_config", [0], {"clk_type": 2, "ts_clk_sel": 1, "freq_offset": 77},
                   bad=[("clk_type", 3), ("ts_clk_sel", 2)])
        self.check("ptp_port_config", [0, 3],
                   {"enbl_rx_ptp": 1, "enbl_tx_ptp": 1, "msg_type_bitmap": 0xB0F, "enbl_two_step_msg": 1,
                    "ptp_adjust_sign": 1, "ptp_time_adjust": 5},
                   without_flag=["ptp_adjust_sign", "ptp_time_adjust"], bad=[("ptp_adjust_sign", 2)])
        self.assertEqual(self.ok("vx_ptp_port_config_get", 0, 4, {})["enbl_rx_ptp"], 0, "another port")
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_ptp_port_config_get", 0, 6, {})

    def stamp(self):
        """A new time stamp: the PTP time and the local time, in nanoseconds."""
        self.ok("lmq_dbg_generate_event", 0, self.EVENT["VX_EVENT_PTP_GET_TS"], 0, 0)
        return self.last_stamp()

    def last_stamp(self):
        data = self.ok("vx_event_status_poll", 0, self.EVENT["VX_EVENT_PTP_GET_TS"], 0, 0, {})["event_data"]
        return tuple(data["get_ts_data"][key] % (1 << 32) for key in ("ptp_nano_second", "local_ref_time"))

    def count(self, event):
        return self.echo("vx_event_count_get", 0, self.EVENT[f"VX_EVENT_PTP_{event}"], 0, 0, 0, 1)[4]

    def test_the_ptp_counter(self):
        ptp, local = self.stamp()
        self.assertEqual(ptp, local)
        later = self.stamp()
        self.assertEqual(later[1] - local, 2 * self.clock * 1000000)

        # The master's time belongs to a local time that is gone.
        self.assertEqual(self.count("SET_TS"), 0)
        self.ok("vx_ptp_master_time_set", 0, {"loc_ref_time": wire(local), "master_time_nanosec": 5000})
        ptp, now = self.last_stamp()
        self.assertEqual(ptp, 5000 + now - local)
        self.assertEqual(self.count("SET_TS"), 1)

        # A tenth faster, and then a tenth slower.
        for parts_per_billion in 100000000, -100000000:
            self.ok("vx_ptp_config_set", 0, {"freq_offset": parts_per_billion, "valid": {"mask_s": {"freq_offset": 1}}})
            first, then = self.stamp(), self.stamp()
            elapsed = then[1] - first[1]
            self.assertEqual(then[0] - first[0], elapsed + elapsed * parts_per_billion // 10 ** 9)

    def test_the_counter_rolls_over(self):
        for clock_type, times in (0, 0), (1, 1):
            self.ok("vx_ptp_config_set", 0, {"clk_type": clock_type, "valid": {"mask_s": {"clk_type": 1}}})
            self.ok("vx_ptp_master_time_set", 0, {"loc_ref_time": wire(self.stamp()[1]), "master_time_nanosec": -1})
            self.assertEqual([self.count("TIMER_ROLLOVER") for _ in range(2)], [0, 0], "it begins behind that")
            self.ok("vx_ptp_master_time_set", 0, {"loc_ref_time": wire(self.stamp()[1]), "master_time_nanosec": -900000000})
            self.assertEqual([self.count("TIMER_ROLLOVER") for _ in range(9)], [0] * 6 + [times] + [0] * 2)

    def test_packets_get_a_time_stamp(self):
        def latched():
            return self.echo("vx_event_count_get", 0, latch, 0, 0, 0, 1)[4]

        latch, sync, delay_request = self.EVENT["VX_EVENT_PTP_EGR_TIME_LATCHED"], 0, 1
        port = {"enbl_tx_ptp": 1, "msg_type_bitmap": 1 << sync, "ptp_adjust_sign": 1, "ptp_time_adjust": 7,
                "valid": {"mask": 3 | 4}}
        to = {"port_type": 4, "port_num": ETH0}
        for given, kind, protocol, count in ((None, sync, 0xF7, 0), (port, delay_request, 0xF7, 0),
                                             (port, sync, 0xF8, 0), (port, sync, 0xF7, 1)):
            if given:
                self.ok("vx_ptp_port_config_set", 0, ETH0, given)
            self.ok("vx_cpu_packet_tx", 0, 60, [0] * 12 + [0x88, protocol, 0xA0 | kind] + [0] * 45, to)
            self.assertEqual(latched(), count)
        sent = self.ok("vx_event_status_poll", 0, latch, 0, 0, {})["event_data"]["ptp_latch_data"]
        self.assertEqual(sent["port_num"], ETH0)
        self.assertEqual((self.stamp()[0] - sent["timestamp"]) % (self.clock * 1000000), 7)

    def test_outputs(self):
        self.refused("GLBL_INVALID_OP", "vx_1pps_send", 0, {"send_time": 100})
        self.check("1pps_tod", [0], {"enbl_1pps_output": 1, "enbl_tod": 1, "local_time_sel": 1, "pps_width": 300,
                                     "baud_rate": 3}, bad=[("local_time_sel", 2), ("baud_rate", 4)])
        pulses = {"send_time": wire(self.stamp()[1] + 400000000)}
        self.ok("vx_1pps_send", 0, dict(pulses, send_once=1))
        self.assertEqual([self.count("1PPS_OUTPUT_DONE") for _ in range(14)], [0, 1] + [0] * 12)
        pulses = {"send_time": wire(self.stamp()[1] + 400000000)}
        self.ok("vx_1pps_send", 0, pulses)
        self.assertEqual([self.count("1PPS_OUTPUT_DONE") for _ in range(14)], [0, 1, *[0] * 9, 1, 0, 0][:14])
        self.ok("vx_1pps_tod_set", 0, {"valid": {"mask_s": {"enbl_1pps_output": 1}}})
        self.assertEqual(sum(self.count("1PPS_OUTPUT_DONE") for _ in range(12)), 0)

        tod = {"tod_len": 2, "tod_string": [65, 66]}
        self.refused("GLBL_OP_NO_SUPPORTED_BY_SW", "vx_tod_send", 0, {"send_time": 200, "tod": tod})
        self.refused("GLBL_OP_NO_SUPPORTED_BY_SW", "vx_tod_string_update", 0, tod)
        self.refused("DEV_NULL_PTR", "vx_tod_string_update", 0, [])


if __name__ == "__main__":
    unittest.main()
