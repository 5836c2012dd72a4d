"""The GPON port: from power-on to operation, T-CONTs and GEM ports, the PLOAM channel, laser and forced states."""

import unittest

from harness import SimTest

UP, DOWN, BOTH = 1, 2, 3
STANDBY, SERIAL_NUMBER, OPERATION, POPUP = 1, 2, 4, 5
OFF, BURST = 0, 1
PON, ETH0 = 0, 3


class Gpon(SimTest):
    clock = 50  # two calls for each state on the way to operation
    device = {"gpon_cfg": {"vendor_id": [77, 78, 79, 80], "serial_num": 0x01020304, "passwd": [1, 2],
                           "laser_on_time": -3}}

    def port(self):
        return self.ok("vx_gpon_onu_port_config_get", 0, PON, {})

    def wait_for(self, state):
        for _ in range(20):
            if self.port()["onu_state"] == state:
                return
        self.fail(f"not in state {state}: {self.port()}")

    def gem_ports(self, room):
        infos, count = self.call("vx_gpon_onu_active_gem_port_get", 0, PON, [{}] * 64, [room])[1][2:]
        return [info["gem_port_id"] for info in infos if info["gem_status"]], count[0]

    def message(self):
        return self.call("vx_gpon_onu_ploam_ds_get", 0, PON, [0] * 13, 13)[1][2:]

    def test_configuration(self):
        start = self.port()
        self.assertEqual(start["vendor_id"], [77, 78, 79, 80])
        self.assertEqual(start["passwd"], [1, 2] + [0] * 8)
        self.assertEqual((start["serial_num"], start["laser_on_time"]), (0x01020304, -3))
        self.assertEqual((start["onu_id"], start["onu_state"], start["omci_port"]), (255, 0, -1))
        self.assertEqual(set(start["valid"].values()), {1})

        self.ok("vx_gpon_onu_port_config_set", 0, PON,
                {"serial_num": 9, "aes_enbl": 5, "dbru_blk_len": 77, "onu_id": 7,
                 "valid": {"serial_num": 1, "aes_enbl": 1}})
        self.assertEqual(self.port(), dict(start, serial_num=9, aes_enbl=1))
        for name, value in ("dbru_blk_len", 4), ("sd_clear_threshold", 9), ("sf_threshold", -1):
            self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpon_onu_port_config_set", 0, PON,
                         {name: value, "serial_num": 1, "valid": {name: 1, "serial_num": 1}})
        self.assertEqual(self.port()["serial_num"], 9)
        self.refused("PORT_TYPE_MISMATCH", "vx_gpon_onu_port_config_get", 0, ETH0, {})
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_gpon_onu_port_config_get", 0, 6, {})

    def test_from_power_on_to_operation_and_back(self):
        self.refused("GPON_ONU_NOT_RANGED", "vx_gpon_onu_ploam_us_set", 0, PON, [0] * 13, 13)
        self.assertEqual(self.ok("vx_gpon_signal_status_get", 0, PON, 7), 0)
        self.ok("vx_gpon_onu_port_enable_set", 0, PON, 1)
        states = [self.port() for _ in range(10)]
        self.assertEqual([port["onu_state"] for port in states], [0, 1, 1, 2, 2, 3, 3, 4, 4, 4])
        self.assertEqual([port["onu_id"] for port in states], [255] * 5 + [1] * 5)
        self.assertEqual(states[-1]["omci_port"], 1)
        self.assertEqual(self.ok("vx_gpon_signal_status_get", 0, PON, 0), 1)
        self.ok("vx_gpon_onu_port_enable_set", 0, PON, 1)
        self.assertEqual(self.port()["onu_state"], OPERATION, "activation began again")

        # Type, and the data of Assign_ONU-ID: ONU-ID and serial number. The last byte is a CRC.
        messages = [self.message() for _ in range(4)]
        self.assertEqual([(bytes[1], count) for bytes, count in messages], [(1, 13), (3, 13), (4, 13), (0, 0)])
        self.assertEqual(messages[1][0][2:11], [1, 77, 78, 79, 80, 1, 2, 3, 4])
        self.assertEqual(messages[0][0], [255, 1] + [0] * 10 + [messages[0][0][12]])
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpon_onu_ploam_ds_get", 0, PON, [0] * 12, 12)
        self.ok("vx_gpon_onu_ploam_us_set", 0, PON, [1, 9] + [0] * 11, 13)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpon_onu_ploam_us_set", 0, PON, [0] * 12, 12)

        self.ok("vx_gpon_onu_laser_mode_set", 0, PON, OFF, 0)
        self.wait_for(SERIAL_NUMBER)
        self.refused("GPON_ONU_NOT_RANGED", "vx_gpon_onu_ploam_us_set", 0, PON, [0] * 13, 13)
        self.ok("vx_gpon_onu_laser_mode_set", 0, PON, BURST, 0)
        self.wait_for(OPERATION)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpon_onu_laser_mode_set", 0, PON, 3, 0)
        self.refused("GLBL_OP_NO_SUPPORTED_BY_SW", "vx_gpon_onu_laser_mode_set", 0, PON, OFF, 1)

        self.ok("vx_gpon_onu_state_set", 0, PON, POPUP)
        self.wait_for(POPUP)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpon_onu_state_set", 0, PON, 7)
        self.ok("vx_gpon_onu_port_enable_set", 0, PON, 0)
        self.assertEqual((self.port()["onu_state"], self.port()["onu_id"]), (0, 255))

        # A reset of the PON begins anew, without the messages that nobody took.
        self.ok("vx_gpon_onu_port_enable_set", 0, PON, 1)
        self.wait_for(OPERATION)
        self.ok("lmq_reset_device", 0, {"rst_mode": 2, "mod_id_bit_map": 4})
        self.assertEqual((self.port()["onu_state"], self.message()[1]), (0, 0))
        self.wait_for(OPERATION)
        self.ok("vx_gpon_onu_port_enable_set", 0, PON, 0)

        # Masked, but for Upstream_Overhead.
        self.ok("vx_gpon_ploamd_mask_set", 0, PON, 1, 1)
        self.ok("vx_gpon_onu_port_enable_set", 0, PON, 1)
        self.wait_for(OPERATION)
        self.assertEqual([self.message()[0][1] for _ in range(2)], [1, 0])

    def test_tconts_and_gem_ports(self):
        for tcont in range(8):
            self.ok("vx_gpon_onu_tcont_enable_set", 0, PON, tcont, 1, {"alloc_id": 256 + tcont})
        self.refused("GPON_INVALID_TCONT", "vx_gpon_onu_tcont_enable_set", 0, PON, 8, 1, {"alloc_id": 300})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpon_onu_tcont_enable_set", 0, PON, 1, 1, {"alloc_id": 4096})
        self.refused("GLBL_ENTRY_EXIST", "vx_gpon_onu_tcont_enable_set", 0, PON, 1, 1, {"alloc_id": 256})
        self.refused("DEV_NULL_PTR", "vx_gpon_onu_tcont_enable_set", 0, PON, 1, 1, [])
        self.ok("vx_gpon_onu_tcont_enable_set", 0, PON, 1, 1, {"alloc_id": 300})
        self.ok("vx_gpon_onu_tcont_enable_set", 0, PON, 7, 0, [])
        self.refused("GPON_TCONT_NOT_ENABLED", "vx_gpon_onu_tcont_enable_set", 0, PON, 7, 0, [])
        self.refused("GPON_TCONT_NOT_ENABLED", "vx_gpon_onu_tcont_info_get", 0, PON, 7, {})
        for room, listed in (3, 3), (0, 7):  # none given is room for all that there can be
            tconts, count = self.call("vx_gpon_onu_active_tcont_get", 0, PON, [{}] * 8, room)[1][2:]
            self.assertEqual(count, 7)
            self.assertEqual([tuple(tcont.values()) for tcont in tconts],
                             [(n, {1: 300}.get(n, 256 + n), 64 + n) for n in range(listed)] + [(0, 0, 0)] * (8 - listed))
        self.refused("DEV_NULL_PTR", "vx_gpon_onu_active_tcont_get", 0, PON, [], 0)

        add = "vx_gpon_onu_gem_port_add"
        self.refused("GPON_TCONT_NOT_ENABLED", add, 0, PON, 100, {"direction": BOTH, "tcont_id": 7})
        self.refused("GLBL_INVALID_DIRECTION", add, 0, PON, 100, {"direction": 0})
        self.refused("GPON_INVALID_GEM_PORT", add, 0, PON, 4096, {"direction": DOWN})
        self.ok(add, 0, PON, 4095, {"direction": DOWN, "tcont_id": 99, "multicast": 1})
        self.ok(add, 0, PON, 100, {"direction": BOTH, "tcont_id": 1, "aes_enable": 1})
        self.refused("GLBL_ENTRY_EXIST", add, 0, PON, 100, {"direction": DOWN})
        for gem in range(200, 262):
            self.ok(add, 0, PON, gem, {"direction": UP, "tcont_id": 2})
        self.refused("DEV_HW_RESOURCE_UNAVAIL", add, 0, PON, 300, {"direction": DOWN})
        self.assertEqual(self.gem_ports(3), ([100, 200, 201], 64))
        self.assertEqual(self.gem_ports(0), ([100, *range(200, 262), 4095], 64))
        self.assertEqual((self.port()["num_tcont"], self.port()["num_gem"]), (7, 64))

        self.assertEqual(self.ok("vx_gpon_onu_gem_port_info_get", 0, PON, 100, {}),
                         {"gem_port_id": 100, "gem_status": 1, "direction": BOTH, "tcont_id": 1, "alloc_id": 300,
                          "gem_subport_id": 1, "aes": 1, "multicast": 0})
        info = self.ok("vx_gpon_onu_tcont_info_get", 0, PON, 1, {})
        self.assertEqual((info["num_gem_ports"], info["gem_ports"]), (1, [100] + [0] * 63))
        self.refused("DEV_BUSY", "vx_gpon_onu_tcont_enable_set", 0, PON, 1, 0, {})

        # The index of a port that is deleted goes to the next that is added.
        self.assertEqual(self.ok("vx_gpon_onu_gem_port_id_get", 0, PON, 1, 0), 100)
        self.ok("vx_gpon_onu_gem_port_loopback_set", 0, PON, 100, 1)
        self.ok("vx_gpon_onu_gem_port_delete", 0, PON, 100)
        for call in ("gem_port_delete", 100), ("gem_port_id_get", 1, 0), ("gem_port_info_get", 100, {}), \
                ("gem_port_loopback_set", 100, 0):
            self.refused("GLBL_ENTRY_NOT_FOUND", f"vx_gpon_onu_{call[0]}", 0, PON, *call[1:])
        self.ok("vx_gpon_onu_tcont_enable_set", 0, PON, 1, 0, {})
        self.ok(add, 0, PON, 5, {"direction": DOWN})
        self.assertEqual(self.ok("vx_gpon_onu_gem_port_id_get", 0, PON, 1, 0), 5)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpon_onu_gem_port_id_get", 0, PON, 64, 0)


class AutoRegister(SimTest):
    clock = 100
    device = {"gpon_cfg": {"auto_register": 1}}

    def test_activates_without_a_call(self):
        states = [self.ok("vx_gpon_onu_port_config_get", 0, PON, {})["onu_state"] for _ in range(6)]
        self.assertEqual(states, [1, 2, 3, 4, 4, 4])


class ActiveEthernet(SimTest):
    device = {"dev_mode": 2}

    def test_has_no_pon(self):
        self.refused("PORT_TYPE_MISMATCH", "vx_gpon_onu_port_enable_set", 0, PON, 1)


if __name__ == "__main__":
    unittest.main()
