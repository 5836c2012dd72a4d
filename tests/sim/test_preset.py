"""The start file: what it describes is there after the first call, and what is wrong in it is told."""

import json
import os
import pathlib
import tempfile
import unittest

from harness import SimTest

EXAMPLE = pathlib.Path(__file__).resolve().parents[2] / "driver" / "preset-example.json"
DYING_GASP, LINK, LOS = 0x000, 0x203, 0x406
ETH0, ETH1 = 3, 4


class Example(SimTest):
    environment = {"LMQ_SIM_PRESET": str(EXAMPLE)}

    def test_is_applied_at_each_start(self):
        for _ in range(2):
            self.assertEqual([self.ok("vx_eth_port_status_get", 0, port, {})["link_status"] for port in (ETH0, ETH1)],
                             [1, 0])
            stats = self.call("vx_eth_port_stats_get", 0, ETH0, {}, 1)[1][2]
            self.assertEqual({name: count for name, count in stats.items() if count},
                             json.loads(EXAMPLE.read_text())["counters"]["eth0"])
            for event, port in (DYING_GASP, 0), (LOS, 0), (LINK, ETH0):
                self.assertEqual(self.ok("vx_event_status_poll", 0, event, port, 0, {})["status"], 1)
            self.refused("DEV_HW_FAILURE", "vx_gpio_read", 0, 1, 0)
            self.refused("DEV_BUSY", "vx_eth_port_loopback_set", 0, ETH0, 0)
            self.ok("vx_eth_port_loopback_set", 0, ETH0, 0)
            self.ok("lmq_shutdown_system")
            self.start()


class Bad(SimTest):
    no_round_trip = "no chip comes up"
    FILES = {
        "[]": "the file is []: expected an object",
        '{"ports":': "expected JSON",
        '{"port": {}}': 'there is no key "port": expected ports, events, counters or faults',
        '{"ports": {"eth2": "up"}}': 'there is no key "ports.eth2": expected mgmt, eth0 or eth1',
        '{"ports": {"eth0": 1}}': '"ports.eth0" is 1: expected "up" or "down"',
        '{"ports": ["eth0"]}': '"ports" is ["eth0"]: expected an object',
        '{"events": {}}': '"events" is {}: expected an array',
        '{"events": [{"type": "LOS"}]}': '"events[0].type" is "LOS": expected the name of an event',
        '{"events": [{"port": 1}]}': '"events[0]" is {"port":1}: expected a type',
        '{"events": [{"type": "VX_EVENT_GPON_ALM_LOS", "port": 3}]}': "expected an event of that port and sub-port",
        '{"counters": {"eth0": {"pkts": 1}}}':
            'there is no key "counters.eth0.pkts": expected a member of vx_eth_port_stats_t',
        '{"counters": {"eth0": {"rx_pkts": -1}}}': '"counters.eth0.rx_pkts" is -1: expected a number, 0 to ',
        '{"faults": ["vx_gpio_raed:1"]}': '"faults[0]" is "vx_gpio_raed:1": expected a driver function',
    }

    def start(self):
        pass

    def test_is_told(self):
        folder = tempfile.TemporaryDirectory()
        self.doCleanups()
        self.addCleanup(folder.cleanup)
        path = os.path.join(folder.name, "preset.json")
        self.environment = {"LMQ_SIM_PRESET": path}
        super().setUp()
        self.refused("GLBL_INVALID_PARAMS", "lmq_init_system", {"num_dev": 1})
        self.assertIn("preset.json: the file cannot be read: No such file or directory", self.printed())
        os.mkdir(path)
        self.refused("GLBL_INVALID_PARAMS", "lmq_init_system", {"num_dev": 1})
        self.assertIn("preset.json: the file cannot be read: Is a directory", self.printed())
        os.rmdir(path)
        for text, expected in self.FILES.items():
            with self.subTest(text):
                pathlib.Path(path).write_text(text)
                self.refused("GLBL_INVALID_PARAMS", "lmq_init_system", {"num_dev": 1, "dev_cfg": [{"enbl": 1}]})
                line = self.printed().splitlines()[-1]
                self.assertIn(f"lmq: lmq_init_system: LMQ_SIM_PRESET: {path}: ", line)
                self.assertIn(expected, line)
                self.refused("GLBL_SYS_UNINTIALIZED", "vx_mac_addr_get", 0, [0] * 6)


if __name__ == "__main__":
    unittest.main()
