"""Finding and calling: the search, forms and answers, the history, against the simulated chip."""

import json
import os
import pathlib
import re
import subprocess
import sys
import unittest

import harness
from browsing import Keys
from harness import Case

# Fills in every input of a form with a value that its field takes; alternatives bring further inputs.
FILL = """
    const values = await import("/console/values.js");
    const textOf = (entry) => {
      if (entry.isFlag) return "1";
      const {shape} = entry;
      if (shape.kind === "mac") return "02:00:5e:10:00:0a";
      if (shape.kind === "ipv6") return "2001:db8::1:2";
      if (shape.kind === "text") return "ab";
      if (shape.kind === "list") return "1, 2, 3".slice(0, shape.count < 3 ? 1 : 7);
      if (shape.isBoolean) return "1";
      if (shape.enum) return Object.keys(model.enums[shape.enum].values).at(-1);
      const [low, high] = model.limits(shape);
      const ids = model.ids[shape.id]?.range;
      return String(shape.range ? shape.range[1] : ids ? ids[1] : high);
    };
    const fill = (form) => {
      const done = new Set(), counts = new Set(form.method.arguments.map(({length}) => String(length).replace("*",
          "")));
      for (let before = -1; before !== done.size;) {
        before = done.size;
        for (const [path, entry] of [...form.inputs]) {
          if (done.has(path)) continue;
          done.add(path);
          if (entry.grow) entry.grow(counts.size > 1 ? 2 : 1);
          else form.applyOne(path, counts.has(path) ? "2" : textOf(entry));
        }
      }
    };
"""
MODEL = """
    const {Interface} = await import("/console/interface.js");
    const {Form} = await import("/console/form.js");
    const model = new Interface(await (await fetch("/interface")).json());
"""


class Find(Case):
    def test_by_keyboard(self):
        page = self.page
        page.open()
        page.one("body").send_keys("/")
        box = page.chromium.switch_to.active_element
        self.assertEqual((box.aria_role, box.accessible_name), ("searchbox", "Search"))
        box.send_keys("adds upstream flow")
        page.wait(lambda: "vx_flow_us_add" in page.one("#found").text)
        box.clear()
        box.send_keys("vx_watchdog")
        page.wait(lambda: len(page.all("#found [role=option]")) > 2)
        first = page.one("#found [aria-selected=true] b").text
        box.send_keys(Keys.ARROW_DOWN)
        second = page.one("#found [aria-selected=true] b").text
        self.assertNotEqual(first, second)
        box.send_keys(Keys.ENTER)
        page.wait(lambda: page.one("main h1").text.startswith(second))

    def test_each_kind_leads_to_its_page(self):
        page = self.page
        page.open()
        for text, found, address in (("strobes it", "vx_watchdog_cfg_t.wd_timer", "struct/vx_watchdog_cfg_t"),
                                     ("WD_ACTION_REBOOT", "VX_WD_ACTION_REBOOT", "enum/vx_wd_action_e"),
                                     ("0x7108", "VX_ERR_DEV_BUSY", "status/VX_ERR_DEV_BUSY")):
            box = page.field("Search")
            box.send_keys(text)
            page.wait(lambda: page.one("#found [role=option] b").text == found)
            box.send_keys(Keys.ENTER)
            page.wait(lambda: page.address() == address and address.split("/")[1] in page.one("main h1").text)

    def test_every_page_opens(self):
        page = self.page
        page.open()
        failed = page.asynchronous(MODEL + """
            const pages = await import("/console/pages.js"), {Rights} = await import("/console/rights.js");
            const context = {model, rights: new Rights()}, failed = [];
            const check = (name, made) => {
              const node = document.createElement("div");
              node.append(...made.main.flat(9).filter(Boolean));
              if (!node.textContent.includes(name) || /undefined|\\[object|NaN/.test(node.textContent)) failed.push(
                  name);
              for (const {hash} of node.querySelectorAll("a")) {
                const [, kind, to] = hash.split("/");
                const known = {method: model.methods, struct: model.structs, enum: model.enums,
                    status: model.enums.vx_status_e.values}[kind];
                if (known && !Object.hasOwn(known, to)) failed.push(`${name}: ${hash}`);
              }
            };
            for (const name in model.structs) check(name, pages.structPage(context, name));
            for (const name in model.enums) check(name, pages.enumPage(context, name));
            for (const name in model.enums.vx_status_e.values) check(name, pages.statusPage(context, name));
            for (const name of model.families.keys()) check(pages.familyName(name), pages.familyPage(context, name));
            return failed;""")
        self.assertEqual(failed, [])


class Forms(Case):
    def test_every_form_sends_what_the_driver_takes(self):
        """Each method with all inputs filled in and as the form begins: no fault, and every member comes back."""
        self.page.open()
        failed = self.page.asynchronous(MODEL + FILL + """
            const {multicall, Fault} = await import("/console/rpc.js");
            const lost = (sent, came, path) => {
              if (Array.isArray(sent) && !sent.length) return [];
              if (Array.isArray(sent) || typeof sent !== "object") {
                const [one, other] = [sent, came].map((each) => values.packed(each));
                return one === other || Array.isArray(sent) && !one.startsWith("[{") && other?.startsWith?.(one
                    .slice(0, -1)) ? []
                  : Array.isArray(sent) && one.startsWith("[{") ? sent.flatMap((each, at) => lost(each, came?.[at],
                      `${path}[${at}]`)) : [`${path}: ${one} ${other}`];
              }
              return Object.entries(sent).flatMap(([key, each]) => lost(each, came?.[key], `${path}.${key}`));
            };
            const failed = [];
            for (const isFilled of [false, true]) {
              const calls = [];
              for (const [name, method] of Object.entries(model.methods)) {
                if (method.effect === "resets" || /dump|print/.test(name)) continue;
                const form = new Form(model, name, () => {});
                if (isFilled) fill(form);
                const {params, errors, soft} = form.read();
                if (isFilled && errors.length && !soft) failed.push(`${name}: ${errors}`);
                calls.push([`lmq.${name}`, params]);
              }
              for (let at = 0; at < calls.length; at += 50) {
                const some = calls.slice(at, at + 50);
                (await multicall(some)).forEach((came, index) => {
                  const [method, params] = some[index], name = method.slice(4);
                  if (came instanceof Fault) failed.push(`${name}: ${came.message}`);
                  else params.forEach((sent, each) => {
                    if (model.methods[name].arguments[each].direction === "in") failed.push(...lost(sent,
                        came[1 + each], `${name} ${each}`));
                  });
                });
              }
            }
            return failed;""")
        self.assertEqual(failed, [])

    def test_flags_tick_themselves(self):
        page = self.page
        self.chip.vx_watchdog_set(0, {"wd_enable": 0, "wd_timer": 11, "wd_action": 0,
                                      "mask_s": {"wd_enable": 1, "wd_timer": 1, "wd_action": 1}})
        page.open("method/vx_watchdog_set")
        flag = page.field("p_cfg.mask_s.wd_action")
        self.assertFalse(flag.is_selected())
        page.fill("p_cfg.wd_action", "VX_WD_ACTION_REBOOT")
        self.assertTrue(flag.is_selected())
        self.assertEqual(page.field("p_cfg.wd_timer").accessible_name, "p_cfg.wd_timer")
        self.assertEqual(page.button("Call").aria_role, "button")
        self.assertIn("VX_SUCCESS", page.call())
        came = self.chip.vx_watchdog_get(0, {})[2]
        self.assertEqual((came["wd_timer"], came["wd_action"]), (11, 1))
        # A member that is filled in and not ticked is not sent.
        page.fill("p_cfg.wd_timer", "99")
        page.field("p_cfg.mask_s.wd_timer").click()
        page.call()
        self.assertEqual(self.chip.vx_watchdog_get(0, {})[2]["wd_timer"], 11)

    def test_get_first(self):
        page = self.page
        self.chip.vx_watchdog_set(0, {"wd_timer": 77, "mask_s": {"wd_timer": 1}})
        page.open("method/vx_watchdog_set")
        page.press("Get first")
        page.wait(lambda: page.field("p_cfg.wd_timer").get_attribute("value") == "77")
        self.assertFalse(page.field("p_cfg.mask_s.wd_timer").is_selected())

    def test_addresses_can_be_shared(self):
        page = self.page
        page.open("method/vx_watchdog_set?wd_timer=30")
        self.assertEqual(page.field("p_cfg.wd_timer").get_attribute("value"), "30")
        self.assertTrue(page.field("p_cfg.mask_s.wd_timer").is_selected())
        page.fill("p_cfg.wd_timer", "0x2a")
        page.wait(lambda: page.address() == "method/vx_watchdog_set?p_cfg.wd_timer=0x2a")
        page.chromium.refresh()
        self.assertEqual(page.field("p_cfg.wd_timer").get_attribute("value"), "0x2a")
        page.call()
        self.assertEqual(self.chip.vx_watchdog_get(0, {})[2]["wd_timer"], 42)

    def test_only_the_selected_alternative(self):
        page = self.page
        page.open("method/vx_flow_us_add?o_vid=100&key_type=VX_CL_KEY_MAC_VLAN&port_id=3")
        self.assertEqual(page.field("p_key.key_s.mac_vlan.o_vid").get_attribute("value"), "100")
        self.assertFalse(page.all('[aria-label^="p_key.key_s.ext_vlan."]'))
        self.assertIn("VX_SUCCESS", page.call())
        flow = page.value("p_flow_id")
        page.fill("p_key.key_type", "VX_CL_KEY_EXT_VLAN")
        self.assertTrue(page.field("p_key.key_s.ext_vlan.o_vid"))
        self.assertFalse(page.all('[aria-label^="p_key.key_s.mac_vlan."]'))
        page.open(f"method/vx_flow_us_get?flow_id={flow}")
        page.call()
        self.assertEqual(page.value("p_key.key_s.mac_vlan.o_vid"), "100")
        self.assertFalse(page.all('[data-path^="p_key.key_s.ext_vlan"]'))

    def test_rows_and_addresses(self):
        page = self.page
        page.open("method/vx_l2_mac_addr_filter_add")
        for row, address in enumerate(("02:00:5e:00:00:01", "02-00-5E-00-00-02")):
            page.press("Add a row to p_mac_addr_list")
            page.fill(f"p_mac_addr_list[{row}].mac_addr", address)
        self.assertEqual(page.field("num_mac_addr").get_attribute("value"), "2")
        page.call()
        page.press("XML")
        sent = page.answer().partition("methodResponse")[0]
        self.assertEqual(sent.count("<name>mac_addr</name>"), 2)

    def test_out_of_range_is_said_before_it_is_sent(self):
        page = self.page
        page.open("method/vx_i2c_read")
        page.fill("data_len", "2")
        page.fill("slave_addr", "128")
        self.assertIn("0–127", page.one('[data-path="slave_addr"] .problem').text)
        before = page.history()
        page.press("Call")
        self.assertIn("Nothing was sent", page.one(".note").text)
        self.assertEqual(page.history(), before)
        page.fill("slave_addr", "x")
        self.assertIn("whole number", page.one('[data-path="slave_addr"] .problem').text)
        page.fill("slave_addr", "200")
        page.press("Call")
        page.press("Send anyway")
        page.wait(lambda: page.history() != before)
        self.assertIn("VX_", page.status())

    def test_what_resets_asks_first(self):
        page = self.page
        page.open("method/lmq_shutdown_system")
        page.press("Call")
        page.press("No")
        self.assertEqual(self.chip.vx_watchdog_get(0, {})[0], 0)
        page.press("Call")
        page.press("Yes, call it")
        page.wait(lambda: "VX_SUCCESS" in page.status())
        page.wait(lambda: page.one("#state").text.strip() == "system down")
        page.open("method/vx_watchdog_get")
        self.assertIn("VX_ERR_GLBL_SYS_UNINTIALIZED", page.call())
        page.chromium.find_element("link text", "Start it").click()
        page.wait(lambda: page.field("p_cfg.dev_cfg[0].enbl").get_attribute("value") == "1")
        page.press("Call")
        page.press("Yes, call it")
        page.wait(lambda: "VX_SUCCESS" in page.status())
        page.wait(lambda: page.one("#state").text.strip() == "device up")


class Answers(Case):
    variables = {"LMQ_SIM_TRAFFIC": "7:500"}

    def test_a_failure_is_explained(self):
        page = self.page
        page.open("method/vx_watchdog_get?dev_id=9")
        status = page.call()
        self.assertIn("VX_ERR_DEV_ID_INVALID", status)
        self.assertIn("28928 = 0x7100", status)
        self.assertEqual(page.one('section[aria-label="Answer"]').aria_role, "region")

    def test_a_fault_marks_its_argument(self):
        page = self.page
        page.open("method/vx_i2c_write?p_tx_data=1,2")
        page.fill("data_len", "5")
        self.assertIn("Fault -507", page.call())
        self.assertIn("p_tx_data holds 2 elements, but data_len asks for 5", page.answer())
        self.assertIn("named", page.one('.field[data-path="p_tx_data"]').get_attribute("class"))

    def test_changes_against_the_last_answer(self):
        page = self.page
        page.open("method/vx_eth_port_stats_get?port_id=3")
        page.call()
        self.assertFalse(page.all(".row.differs"))
        page.wait(lambda: page.call() and page.all('[data-path="p_stats.rx_pkts"].differs .was'))
        self.assertFalse(page.all('[data-path="p_stats.rx_crc_frm"].differs'))

    def test_code_to_copy(self):
        page = self.page
        page.open()
        made = page.asynchronous(MODEL + """
            const {codes} = await import("/console/codegen.js");
            const form = new Form(model, "vx_watchdog_set", () => {});
            form.apply([["wd_timer", "30"], ["wd_action", "VX_WD_ACTION_REBOOT"]]);
            return Object.fromEntries(Object.entries(codes).map(([name, make]) => [name,
                make(model, "vx_watchdog_set", form.read().params)]));""")
        self.assertIn("call vx_watchdog_set dev_id=0 p_cfg.wd_timer=30 p_cfg.wd_action=1", made["lmqctl"])
        self.assertIn(".wd_action = VX_WD_ACTION_REBOOT, .mask_s = {.wd_timer = 1U, .wd_action = 1U}", made["C"])
        command = made["lmqctl"].replace("lmqctl", os.environ["LMQ_CLIENT"], 1)
        for line in (command, made["curl"]):
            done = subprocess.run(["bash", "-c", line], capture_output=True, text=True, timeout=60)
            self.assertRegex(done.stdout, r"(?s)VX_SUCCESS.*wd_timer\s+30|<i4>0</i4>.*<i4>30</i4>", line)
        printed = {}
        exec(made["Python"], {"print": lambda value: printed.update(came=value)})
        self.assertEqual(printed["came"], [0, 0, {"wd_enable": 0, "wd_timer": 30, "wd_action": 1, "mask_s": {
            "wd_enable": 0, "wd_timer": 1, "wd_action": 1, "reserved": 0}}])

    def test_c_compiles_for_every_method(self):
        self.page.open()
        made = self.page.asynchronous(MODEL + FILL + """
            const {codes} = await import("/console/codegen.js");
            return Object.keys(model.methods).map((name) => {
              const form = new Form(model, name, () => {});
              fill(form);
              return codes.C(model, name, form.read().params);
            });""")
        included = "".join(sorted(set(re.findall(r"^#include .*\n", "".join(made), re.MULTILINE))))
        functions = "".join(f"void f{number}(void) {{\n{text.partition(chr(10) * 2)[2]}}}\n"
                            for number, text in enumerate(made))
        include = pathlib.Path(__file__).parents[2] / "include"
        done = subprocess.run(["cc", "-std=c11", "-Wall", "-Wno-unused", "-Wno-missing-braces", "-Werror",
                               "-fsyntax-only", f"-I{include}", "-xc", "-"],
                              input=included + functions, capture_output=True, text=True)
        self.assertEqual(done.stderr, "")


class Kept(Case):
    def test_history(self):
        page = self.page
        page.open("method/vx_watchdog_set?wd_timer=41")
        page.call()
        for port in (3, 4):
            page.open(f"method/vx_eth_port_config_get?port_id={port}")
            page.call()
        page.open("history")
        self.assertEqual(len(page.all("tbody tr")), 3)
        for box in page.all("tbody input")[:2]:
            box.click()
        page.chromium.find_element("link text", "Compare the two").click()
        page.wait(lambda: page.all(".compare td"))
        page.open("history")
        page.field("Filter").send_keys("watchdog")
        page.wait(lambda: len(page.all("tbody tr")) == 1)
        page.one("tbody a").click()
        page.wait(lambda: page.field("p_cfg.wd_timer").get_attribute("value") == "41")

    def test_passwords_are_not_kept(self):
        page = self.page
        page.open("method/vx_gpon_onu_port_config_set")
        page.fill("p_cfg.passwd", "83, 69, 67, 82, 69, 84")
        page.fill("p_cfg.laser_on_time", "5")
        page.call()
        page.press("XML")
        self.assertIn("<int>83</int>", page.answer())
        page.wait(lambda: "laser_on_time=5" in page.address())
        self.assertNotIn("passwd=", page.address())
        kept = json.loads(page.history())[0]
        self.assertEqual(kept["params"][2]["laser_on_time"], 5)
        self.assertEqual(kept["params"][2]["passwd"], [0] * 6)


if __name__ == "__main__":
    harness.main(sys.modules[__name__])
