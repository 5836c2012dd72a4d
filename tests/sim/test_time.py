"""Time distribution: PTP of the device and of ports, and the 1PPS and time of day outputs."""

import unittest

from harness import RANGE_CHECK_FAIL, SimTest

INVALID_OP, PORT_OUT_OF_RANGE = 0x700B, 0x720A
TSYNC, INFO = 13, 4


class TimeDistribution(SimTest):
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
            self.refused(RANGE_CHECK_FAIL, set_, *place, {**{k: 0 for k in change}, key: value, "valid": {"mask": -1}})
        self.assertEqual(self.ok(get, *place, {}), start)

    def test_ptp(self):
        self.check("ptp_config", [0], {"clk_type": 2, "ts_clk_sel": 1, "freq_offset": 77},
                   bad=[("clk_type", 3), ("ts_clk_sel", 2)])
        self.check("ptp_port_config", [0, 3],
                   {"enbl_rx_ptp": 1, "enbl_tx_ptp": 1, "msg_type_bitmap": 0xB0F, "enbl_two_step_msg": 1,
                    "ptp_adjust_sign": 1, "ptp_time_adjust": 5},
                   without_flag=["ptp_adjust_sign", "ptp_time_adjust"], bad=[("ptp_adjust_sign", 2)])
        self.assertEqual(self.ok("vx_ptp_port_config_get", 0, 4, {})["enbl_rx_ptp"], 0, "another port")
        self.refused(PORT_OUT_OF_RANGE, "vx_ptp_port_config_get", 0, 6, {})

    def test_outputs(self):
        tod = {"tod_len": 2, "tod_string": [65, 66]}
        self.ok("lmq_dbg_set_log_level", TSYNC, INFO)
        for function, argument in (("vx_1pps_send", {"send_time": 100}), ("vx_tod_send", {"tod": tod}),
                                   ("vx_tod_string_update", tod)):
            self.refused(INVALID_OP, function, 0, argument)
        self.check("1pps_tod", [0], {"enbl_1pps_output": 1, "enbl_tod": 1, "local_time_sel": 1, "pps_width": 300,
                                     "baud_rate": 3}, bad=[("local_time_sel", 2), ("baud_rate", 4)])
        self.ok("vx_1pps_send", 0, {"send_time": 100, "send_once": 1})
        self.ok("vx_tod_send", 0, {"send_time": 200, "tod": tod})
        self.ok("vx_tod_string_update", 0, tod)
        self.ok("vx_ptp_master_time_set", 0, {"loc_ref_time": 1, "master_time_nanosec": 42})
        for words in ("one pulse, 100 ns", "a time of day each second, 200 ns", "new time of day, 2 bytes",
                      "master time, 42 ns"):
            self.assertIn(words, self.printed())
        for length in 0, 49:
            self.refused(RANGE_CHECK_FAIL, "vx_tod_string_update", 0, {"tod_len": length})


if __name__ == "__main__":
    unittest.main()
