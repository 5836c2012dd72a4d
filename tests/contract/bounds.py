"""Proof that the ranges of the contract are the chip's: what lies just outside is refused, the ends are taken.

Each call of a sweep is first made with one argument or member just out of its range, and then as it should be. If the
second succeeds and the first did not, the range is kept at that end.
"""

import copy
import os
import re
import unittest

import sweep

# Where values outside pass, and why. Patterns for FUNCTION PATH.
UNCHECKED = {
    r".* \S*(key_s|flow_key|cls_key)\.": "keys are kept as they came: no packet is matched with them",
    r"vlan_(in|e)gress_filter\S* pkt\.": "a packet of a port that has no rule goes on",
    r"vx_event_status_clear p_status\.": "reserved: it is not read",
    r"vx_event_\S+ (p_cfg\.)?port_num|lmq_dbg_generate_event port_num": "counts for events of a port alone",
    r"lmq_dump_register dev_id": "its result is no status",
    r"lmq_add_dev_ip_addr p_cfg\.net_mask\.ip_ver": "the version of the address counts",
    r"vx_1ag_ccm_pkt_buf_set p_cfg\.pkt_len": "counts when the packet is set too",
    r"vx_cls_(no_match_)?fib_set p_cfg\.": "counts when another member says so",
    r"vx_flow_\w+ p_action\.": "counts when another member says so",
    r"vx_gpon_onu_port_config_set p_cfg\.onu_state": "cannot be set: nothing flags it",
    r"vx_l2_port_static_pkt_fwd_config_set p_cfg\.enbl_": "anything but 0 enables",
    r"vx_gpon_onu_gem_port_delete_from_bridge gem_port_id": "succeeds for what is not in the bridge",
    r"vx_eth_port_config_set p_cfg\.(phy_mode|phy_type|port_type)": "cannot be set: nothing flags it",
}

class Bounded(sweep.Chip):
    """A chip that is also called with values just outside of their ranges."""

    tries = 3  # of each call

    def __init__(self, *arguments):
        super().__init__(*arguments)
        self.ends = {}  # what has been seen at (function, path, end): "refused", "taken"
        self.passed = {}  # how often what lies outside has been taken there
        self.busy = False

    def call(self, name, sent=None):
        if self.busy or sent is not None:
            return super().call(name, sent)
        self.busy = True
        try:
            method = self.contract.methods[name]
            sent = self.generator.arguments(method)
            places = [place for place in self.places(method["arguments"], sent)
                      if set(self.ends.get((name, place[0], place[2]), ())) < {"refused", "taken"}]
            self.generator.random.shuffle(places)
            tried = []
            for path, bounds, end, change in places[:self.tries]:
                outside = copy.deepcopy(sent)
                change(outside, bounds[0] - 1 if end == "low" else bounds[1] + 1)
                tried.append((path, end, super().call(name, outside)[0]))
            for path, bounds, end, change in places[:1]:  # the end itself
                change(sent, bounds[0] if end == "low" else bounds[1])
            status, contents = super().call(name, sent)
            if not status:
                for path, end, answered in tried:
                    place = name, path, end
                    if answered:
                        self.ends.setdefault(place, set()).add("refused")
                    else:
                        self.passed[place] = self.passed.get(place, 0) + 1
                for path, bounds, end, change in places[:1]:
                    self.ends.setdefault((name, path, end), set()).add("taken")
            return status, contents
        finally:
            self.busy = False

    def places(self, arguments, sent):
        """Every input with a range: its path, the range, which end, and how to set it. Counts must fit their arrays."""
        counts = {said["length"].lstrip("*") for said in arguments if isinstance(said["length"], str)}
        for at, (said, value) in enumerate(zip(arguments, sent)):
            if said["direction"] == "out" or said["name"] in counts:
                continue
            if isinstance(value, list):
                if len(value) == 1 and isinstance(value[0], dict):
                    yield from self.members(self.contract.structs[said["type"]]["members"], value[0], said["name"],
                                            lambda all, at=at: all[at][0])
            else:
                def change(all, new, at=at):
                    all[at] = new
                yield from self.both(said, said["name"], change)

    def members(self, members, values, path, find):
        for member in members:
            name, inner = member["name"], values.get(member["name"])
            if name not in values or member.get("mask") or member.get("flag"):
                continue
            place = f"{path}.{name}"
            if isinstance(inner, dict):
                known = member["members"] if "members" in member else self.contract.structs[member["type"]]["members"]
                yield from self.members(known, inner, place, lambda all, find=find, name=name: find(all)[name])
            elif isinstance(inner, int):
                def change(all, new, find=find, name=name):
                    find(all)[name] = new
                yield from self.both(member, place, change)

    def both(self, said, path, change):
        if "enum" in said and "bits_of" not in said and "range" not in said:
            values = [each["value"] for each in self.contract.enums[said["enum"]]["values"].values()]
            yield path, [min(values), max(values)], "high", change
            return
        bounds = said.get("range") or (self.contract.ids[said["id"]].get("range") if "id" in said else None)
        if not bounds or "or" in said:
            return
        bits = 8 * self.contract.size(said["type"])
        signed = self.contract.signed(said["type"])
        least, most = (-(1 << bits - 1), (1 << bits - 1) - 1) if signed else (0, (1 << bits) - 1)
        if bounds[0] > least:
            yield path, bounds, "low", change
        if bounds[1] < most:
            yield path, bounds, "high", change


class Bounds(unittest.TestCase):
    def test_the_ranges_are_the_chips(self):
        os.environ.update(LMQ_SIM_CLOCK="1", LMQ_SIM_TRAFFIC="1")
        contract = sweep.values.Contract(os.environ["LMQ_INTERFACE_JSON"], os.environ["LMQ_LAYOUT"])
        chip = Bounded(os.environ["LMQ_DRIVER"], contract, 1)
        with sweep.silent():
            chip.sweep(150)
        open_ends = [f"{name} {path}" for (name, path, end), times in chip.passed.items()
                     if times >= 4 and "refused" not in chip.ends.get((name, path, end), ())]
        self.assertEqual([place for place in open_ends if not any(re.match(each, place) for each in UNCHECKED)], [])
        seen = list(chip.ends.values())
        self.assertGreater(sum("refused" in each for each in seen), 900)
        self.assertGreater(sum("taken" in each for each in seen), 900)


if __name__ == "__main__":
    unittest.main()
