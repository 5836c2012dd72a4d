"""How people write values: characters, bytes, booleans, alternatives, numbers of any base; and what they are told of a
slip. What is sent is what --dry-run shows."""

import json
import unittest

from ctl import USAGE, CtlTest


class Input(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    def request(self, *words, **options):
        return json.loads(self.ok("call", "--dry-run", *words, **options).split(" ", 1)[1])

    def port(self, *words):
        """What is sent for the configuration of the GPON port."""
        return self.request("vx_gpon_onu_port_config_set", "0", "0", *words)[2]

    def test_texts_for_characters_and_bytes(self):
        digits = [ord(digit) for digit in "1234567890"]
        for word, member, sent in (
                ("p_cfg.vendor_id=LMQX", "vendor_id", [76, 77, 81, 88]), ("p_cfg.vendor_id=1234", "vendor_id", digits[:4]),
                ("p_cfg.vendor_id=a,b", "vendor_id", [97, 44, 98]), ("p_cfg.vendor_id=0x4c4d5158", "vendor_id", [76, 77, 81, 88]),
                ("p_cfg.passwd=secret", "passwd", list(b"secret")), ('p_cfg.passwd="1234567890"', "passwd", digits),
                ('p_cfg={"passwd": "1234567890"}', "passwd", digits), ('p_cfg={"passwd": "1,2"}', "passwd", list(b"1,2")),
                # Numbers stay numbers where characters are one of several readings.
                ("p_cfg.passwd=1,0x10,3", "passwd", [1, 16, 3]), ("p_cfg.passwd=7", "passwd", [7]),
                ("p_cfg.passwd=0x10", "passwd", [16]), ("p_cfg.passwd=0x0102ff", "passwd", [1, 2, 255]), ("p_cfg.passwd=", "passwd", [])):
            self.assertEqual(self.port(word)[member], sent, word)
        self.assertEqual(self.request("vx_i2c_write", "0", "0x50", "0", "p_tx_data=hello")[3:], [5, list(b"hello")])
        self.assertEqual(self.request("vx_mac_addr_set", "0", "0x02005e100001")[1], [2, 0, 0x5e, 0x10, 0, 1])
        path = self.folder / "password"
        path.write_text("secret\n")
        self.assertEqual(self.port(f"p_cfg.passwd=@{path}")["passwd"], list(b"secret"))
        call = ("call", "vx_gpon_onu_port_config_set", "0", "0")
        self.refused(USAGE, 'p_cfg.vendor_id: "LMQXY" is 5 bytes, but at most 4 fit', *call, "p_cfg.vendor_id=LMQXY")
        self.refused(USAGE, "a text of digits stands in double quotes", *call, "p_cfg.passwd=1234567890")
        self.refused(USAGE, "p_cfg.passwd[1]: b is not a whole number", *call, "p_cfg.passwd=1,b")
        # Characters are shown as such.
        self.assertIn('vendor_id               "LMQX"\n', self.ok(*call, "p_cfg.vendor_id=LMQX"))

    def test_booleans(self):
        for word, sent in (("true", 1), ("ON", 1), ("false", 0), ("off", 0), ("1", 1)):
            self.assertEqual(self.port(f"p_cfg.aes_enbl={word}")["aes_enbl"], sent)
            self.assertEqual(self.request("vx_gpon_onu_port_enable_set", "0", "0", word)[2], sent)
        self.assertEqual(self.port('{"aes_enbl": true, "fec_bypass_enbl": "off"}')["aes_enbl"], 1)
        self.refused(USAGE, "or one of true, false, on, off", "call", "vx_gpon_onu_port_enable_set", "0", "0", "maybe")
        self.refused(USAGE, "serial_num: on is not", "call", "vx_gpon_onu_port_config_set", "0", "0", "p_cfg.serial_num=on")

    def test_an_alternative_sets_its_selector(self):
        def key(*words, method="vx_flow_us_add"):
            return self.request(method, "0", "3", *words, "p_action={}", "priority=0")[2]
        vlan = "p_key.key_s.mac_vlan.o_vid=100"
        self.assertEqual(key(vlan)["key_type"], 3)
        self.assertEqual(key('p_key={"key_s": {"mac_vlan": {"o_vid": 100}}}')["key_type"], 3)
        self.assertEqual(key("p_key.key_type=VX_CL_KEY_MAC_VLAN", vlan)["key_type"], 3)
        # Further inside.
        group = self.request("vx_mcast_ip_entry_add", "0", "3", "entry.mcast_vlan=5", "entry.grp_addr.addr.v6=ff02::1")[2]["grp_addr"]
        self.assertEqual((group["ip_ver"], list(group["addr"])), (1, ["v6"]))
        refused = ("call", "--dry-run", "vx_flow_us_add", "0", "3", "p_action={}", "priority=0")
        self.refused(USAGE, "p_key.key_s: mac_vlan is given, but key_type selects ipv4_long", *refused, vlan,
                     "p_key.key_type=VX_CL_KEY_IPV4_LONG")
        self.refused(USAGE, "but key_type selects no alternative", *refused, vlan, "p_key.key_type=0")
        self.refused(USAGE, "ext_vlan stands for several: VX_CL_KEY_EXT_VLAN, VX_CL_KEY_GEM_EXT_VLAN", "call", "vx_flow_ds_add", "0",
                     "3", "p_key.key_s.ext_vlan.o_vid=100", "p_action={}", "priority=0")
        forced = self.request("--force", "vx_flow_us_add", "0", "3", "p_action={}", "priority=0", vlan, "p_key.key_type=0")
        self.assertEqual(forced[2]["key_type"], 0)

    def test_numbers_of_any_base(self):
        self.assertEqual(self.port('{"serial_num": 0x10, /* 0x11 */ "passwd": [0xff, 0b11], "vendor_id": "0x10"}'),
                         {"serial_num": 16, "passwd": [255, 3], "vendor_id": list(b"0x10"),
                          "valid": {"serial_num": 1, "passwd": 1, "vendor_id": 1}})
        self.refused(USAGE, "broken JSON", "call", "vx_gpon_onu_port_config_set", "0", "0", '{"serial_num": 0xg}')
        self.assertEqual(self.request("--count", "0x3", "vx_mcast_vlan_get", "0", "3")[2], [3])

    def test_an_unknown_member_lists_what_there_is(self):
        call = ("call", "vx_watchdog_set", "0")
        members = "no member xyzzy in vx_watchdog_cfg_t; there are wd_enable, wd_timer, wd_action, mask_s\n"
        self.refused(USAGE, members, *call, "p_cfg.xyzzy=1")
        self.refused(USAGE, members, *call, '{"xyzzy": 1}')
        self.refused(USAGE, "no alternative xyzzy; there are mac_da_etype, ", "call", "vx_flow_us_add", "0", "3",
                     "p_key.key_s.xyzzy.o_vid=100", "p_action={}", "priority=0")

    def test_enumerators_beside_numbers(self):
        told = json.loads(self.ok("--json", "call", "vx_watchdog_set", "0", "p_cfg.wd_action=VX_WD_ACTION_REBOOT"))
        self.assertEqual((told["arguments"]["p_cfg"]["wd_action"], told["names"]), (1, {"p_cfg": {"wd_action": "VX_WD_ACTION_REBOOT"}}))
        self.ok("call", "lmq_create_bridge", "0", "9", "p_cfg.brg_type=1")
        told = json.loads(self.ok("--json", "call", "lmq_get_bridge_config_all", "0", "2"))
        # As long as the list, so that one number leads to both.
        self.assertEqual(len(told["names"]["p_cfg"]), 2)
        self.assertEqual(json.loads(self.ok("--json", "call", "system.listMethods")).get("names"), None)


if __name__ == "__main__":
    unittest.main()
