"""lmqctl compat: what is compatible, what is breaking, and the interface of the last release."""

import copy
import json
import os
import pathlib
import unittest

import ctl

RELEASED = pathlib.Path(os.environ["LMQ_RELEASED"])


def member(interface, struct, name):
    return next(each for each in interface["structs"][struct]["members"] if each["name"] == name)


def argument(interface, method, name):
    return next(each for each in interface["methods"][method]["arguments"] if each["name"] == name)


# What is done to an interface, and what is then said of it, of which the first line is the only one that breaks clients.
BREAKING = {
    "method vx_reset: removed": lambda new: new["methods"].pop("vx_reset"),
    "struct vx_watchdog_cfg_t: removed": lambda new: new["structs"].pop("vx_watchdog_cfg_t"),
    "struct vx_watchdog_cfg_t: member wd_timer: removed":
        lambda new: new["structs"]["vx_watchdog_cfg_t"]["members"].remove(member(new, "vx_watchdog_cfg_t", "wd_timer")),
    "struct vx_watchdog_cfg_t: member wd_timer: type vx_uint32 (unsigned int) -> vx_uint16 (unsigned short)":
        lambda new: member(new, "vx_watchdog_cfg_t", "wd_timer").update(type="vx_uint16"),
    "struct vx_watchdog_cfg_t: member wd_timer: type vx_uint32 (unsigned int) -> vx_uint64 (unsigned long long)":
        lambda new: member(new, "vx_watchdog_cfg_t", "wd_timer").update(type="vx_uint64"),
    "struct vx_watchdog_cfg_t: member wd_timer: type vx_uint32 (unsigned int) -> int":
        lambda new: member(new, "vx_watchdog_cfg_t", "wd_timer").update(type="int"),
    'struct vx_watchdog_cfg_t: member wd_timer: unit s -> ms':
        lambda new: member(new, "vx_watchdog_cfg_t", "wd_timer").update(unit="ms"),
    "struct lmq_brg_cfg_info_s: member brg_port_info: count 2 -> 1":
        lambda new: member(new, "lmq_brg_cfg_info_s", "brg_port_info").update(count=1),
    'enum vx_wd_action_e: VX_WD_ACTION_REBOOT: value 1 -> 7':
        lambda new: new["enums"]["vx_wd_action_e"]["values"]["VX_WD_ACTION_REBOOT"].update(value=7),
    "enum vx_wd_action_e: VX_WD_ACTION_REBOOT: removed":
        lambda new: new["enums"]["vx_wd_action_e"]["values"].pop("VX_WD_ACTION_REBOOT"),
    'method vx_flow_us_map: argument sni_port_num: range [[0,1]] -> [[0,0]]':
        lambda new: argument(new, "vx_flow_us_map", "sni_port_num").update(range=[0, 0]),
    "method vx_watchdog_get: effect reads -> changes":
        lambda new: new["methods"]["vx_watchdog_get"].update(effect="changes"),
    "method vx_watchdog_get: argument p_cfg: direction out -> inout":
        lambda new: argument(new, "vx_watchdog_get", "p_cfg").update(direction="inout"),
    "method vx_reset: arguments [\"dev_id\",\"rst_mode\"] -> [\"dev_id\"]":
        lambda new: new["methods"]["vx_reset"]["arguments"].pop(),
    "id queue: range [[0,7]] -> [[0,3]]": lambda new: new["ids"]["queue"].update(range=[0, 3]),
}

COMPATIBLE = {
    "method vx_new_get: added": lambda new: new["methods"].update(vx_new_get=new["methods"]["vx_reset"]),
    "struct vx_watchdog_cfg_t: member wd_more: added":
        lambda new: new["structs"]["vx_watchdog_cfg_t"]["members"].append({"name": "wd_more", "type": "vx_uint8"}),
    "enum vx_wd_action_e: VX_WD_ACTION_NEW: added":
        lambda new: new["enums"]["vx_wd_action_e"]["values"].update(VX_WD_ACTION_NEW={"value": 9}),
    "method vx_flow_us_map: argument sni_port_num: range [[0,1]] -> [[0,5]]":
        lambda new: argument(new, "vx_flow_us_map", "sni_port_num").update(range=[0, 5]),
    "method vx_flow_us_map: argument sni_port_num: range [[0,1]] -> (none)":
        lambda new: argument(new, "vx_flow_us_map", "sni_port_num").pop("range"),
    "struct vx_watchdog_cfg_t: member wd_enable: type vx_boolean (unsigned char) -> int":
        lambda new: member(new, "vx_watchdog_cfg_t", "wd_enable").update(type="int"),
    "struct lmq_brg_cfg_info_s: member brg_port_info: count 2 -> 4":
        lambda new: member(new, "lmq_brg_cfg_info_s", "brg_port_info").update(count=4),
    "method vx_reset: effect resets -> changes": lambda new: new["methods"]["vx_reset"].update(effect="changes"),
    "method vx_watchdog_set: argument p_cfg: direction in -> inout":
        lambda new: argument(new, "vx_watchdog_set", "p_cfg").update(direction="inout"),
    "struct vx_watchdog_cfg_t: order of members": lambda new: new["structs"]["vx_watchdog_cfg_t"]["members"].reverse(),
    "struct vx_in_addr_t: member s_addr: unit (none) -> s":
        lambda new: member(new, "vx_in_addr_t", "s_addr").update(unit="s"),
}


class Compat(ctl.CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.old = json.loads(pathlib.Path(os.environ["LMQ_INTERFACE"]).read_text())

    def compare(self, change):
        """Exit status and lines of a comparison with an interface that was changed."""
        new = copy.deepcopy(self.old)
        change(new)
        file = self.folder / "new.json"
        file.write_text(json.dumps(new))
        status, printed, errors = self.run_ctl("compat", os.environ["LMQ_INTERFACE"], str(file))
        self.assertEqual(errors, "")
        return status, printed.splitlines()

    def test_the_last_release(self):
        """Clients of the released interface work with this one. If this fails, what was promised is broken."""
        status, printed, _ = self.run_ctl("compat", str(RELEASED), os.environ["LMQ_INTERFACE"])
        self.assertEqual(status, ctl.OK, printed)
        self.assertNotIn("worded", printed)

    def test_what_breaks(self):
        for said, change in BREAKING.items():
            with self.subTest(said):
                status, lines = self.compare(change)
                self.assertEqual(status, 1, lines)
                self.assertEqual([line for line in lines if line.startswith("breaking ")], ["breaking    " + said])
                self.assertRegex(lines[-1], r"^breaking: 1 of \d+ changes?$")

    def test_what_does_not(self):
        for said, change in COMPATIBLE.items():
            with self.subTest(said):
                status, lines = self.compare(change)
                self.assertEqual((status, len(lines), lines[-1]), (0, 2, "compatible: 1 change"))
                self.assertTrue(lines[0].startswith("compatible  " + said), lines[0])

    def test_typedefs(self):
        """What stands behind a typedef changes all places where it is used; another name for the same changes nothing."""
        status, lines = self.compare(lambda new: new["typedefs"]["vx_port_id_t"].update(type="vx_uint8"))
        self.assertEqual(status, 1)
        self.assertIn("breaking    method vx_flow_us_add: argument port_id: type vx_port_id_t (unsigned short) -> "
                      "vx_port_id_t (unsigned char)", lines)
        status, lines = self.compare(lambda new: member(new, "vx_watchdog_cfg_t", "wd_timer").update(type="vx_reg"))
        self.assertEqual((status, lines), (0, ["compatible  struct vx_watchdog_cfg_t: member wd_timer: type vx_uint32 "
                                               "(unsigned int) -> vx_reg (unsigned int)", "compatible: 1 change"]))

    def test_words_are_no_change(self):
        self.assertEqual(self.compare(lambda new: new["methods"]["vx_reset"].update(brief="It resets.")),
                         (0, ["same; 1 text worded differently"]))

    def test_hosts(self):
        changed = self.folder / "changed.json"
        changed.write_text(json.dumps({**self.old, "methods": {**self.old["methods"], "vx_new": self.old["methods"]["vx_reset"]}}))
        other = self.start_host("--listen", "127.0.0.1:0", "--interface", str(changed))
        self.assertEqual(self.ok("compat", os.environ["LMQ_INTERFACE"], self.url), "same\n")
        said = json.loads(self.ok("--json", "compat", self.url.removesuffix("/RPC2"), other))
        self.assertEqual(said, {"judgement": "compatible", "texts": 0, "changes": [
            {"kind": "method", "name": "vx_new", "place": "", "what": "added", "before": None, "after": None,
             "breaking": False}]})
        self.assertEqual(self.run_ctl("compat", other, self.url)[0], 1)

    def test_what_cannot_be_compared(self):
        here = os.environ["LMQ_INTERFACE"]
        wrong = self.folder / "wrong.json"
        wrong.write_text('{"methods": {"vx_reset": {}}}')
        self.refused(ctl.USAGE, "wrong.json is no description of an interface: ", "compat", here, str(wrong))
        self.refused(ctl.USAGE, "cannot read /no/such: ", "compat", "/no/such", here)
        self.refused(ctl.USAGE, ".gz is compressed", "compat", here + ".gz", here)
        self.refused(ctl.CONNECTION, "http://127.0.0.1:1/RPC2: cannot connect", "compat", here, "http://127.0.0.1:1")
        bare = self.start_host("--listen", "127.0.0.1:0", "--interface", "/dev/null")
        self.refused(ctl.CONNECTION, "no description of an interface", "compat", here, bare)


if __name__ == "__main__":
    unittest.main()
