"""The reader of the contract: what it makes of comments, and that it refuses what is missing or contradicts C."""

import pathlib
import re
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "interface"))
import contract  # noqa: E402

GOOD = """
/**
 * @page ids Kinds of ids
 * - `flow`: A flow.
 * - `queue`: 0..7. A queue. Listed by queue_get.
 */
#define MOST 16
typedef unsigned char vx_uint8;
typedef unsigned short vx_uint16;
typedef unsigned char vx_mac_addr_t[6]; /**< An address. */
typedef vx_uint16 vx_flow_id_t;         /**< {id flow} A flow. */
/** @brief A status. */
typedef enum {
    GOOD = 0, /**< Good. */
    BAD = 7   /**< Bad. */
} status_e;
/** @brief A key. */
typedef struct {
    status_e which; /**< Which of them counts. */
    union {
        vx_uint8 level;    /**< {if GOOD, 1..100 %} A level. */
        vx_uint16 rate[4]; /**< {if BAD, kbit/s} Rates. */
    } u;                   /**< {by which} What counts. */
    struct {
        vx_uint8 which : 1;
        vx_uint8 reserved : 7;
    } mask_s;
} key_s;
/**
 * @brief Reads keys.
 *
 * More about it.
 * @par Effect: reads and clears if clear
 * @param[in]     queue {id queue} The queue.
 * @param[in]     room  How many fit.
 * @param[out]    keys  [room; *num filled] The keys.
 * @param[in,out] num   How many there are.
 * @param[in]     clear Whether to clear.
 * @param[out]    flow  The flow.
 * @return A status.
 */
status_e keys_get(vx_uint8 queue, vx_uint16 room, key_s *keys, vx_uint16 *num, vx_uint8 clear, vx_flow_id_t *flow);
/**
 * @brief Reads a queue.
 * @par Effect: reads
 * @param[in]  which   {id queue} Which one.
 * @param[out] p_level Its level.
 * @return A status.
 */
status_e queue_get(vx_uint8 which, vx_uint16 *p_level);

/**
 * @brief Writes.
 * @par Effect: changes
 * @param[in,out] num  How many.
 * @param[in]     list [*num or MOST] Numbers.
 * @param[in]     mac  An address.
 * @param[in]     kind {status_e} A kind.
 * @return A status.
 */
status_e write(vx_uint8 *num, vx_uint16 *list, vx_mac_addr_t mac, vx_uint8 kind);
"""


def read(text):
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder, "lmq", "a.h")
        path.parent.mkdir()
        path.write_text(text)
        return contract.Reader(folder)


MAKING = """
/** @brief A thing, as it is listed. */
typedef struct {
    vx_flow_id_t flow; /**< Its id. */
    vx_uint8 level;    /**< Its level. */
    vx_uint8 colour;   /**< Its colour. */
} listed_s;
/** @brief What a thing is made of. */
typedef struct {
    vx_uint8 level; /**< Its level. */
    vx_uint8 hue;   /**< Its colour. */
} thing_s;
/**
 * @brief Lists things.
 * @par Effect: reads
 * @param[in]  queue {id queue} Where they are.
 * @param[in]  mode  Which.
 * @param[in]  room  How many fit.
 * @param[out] list  [room; *num filled] The things.
 * @param[out] num   How many there are.
 * @return A status.
 */
status_e things_get(vx_uint8 queue, vx_uint8 mode, vx_uint8 room, listed_s *list, vx_uint8 *num);
/**
 * @brief Deletes a thing.
 * @par Effect: changes
 * @param[in] id {id flow} Which one.
 * @return A status.
 */
status_e thing_delete(vx_flow_id_t id);
/**
 * @brief Makes a thing.
 * @par Effect: changes
 * @par Read back: things_get(mode=BAD): cfg=list[], cfg.hue=list[].colour,
 *     flow=list[].flow if list[].level!=0
 * @par Undone by: thing_delete
 * @param[in]  queue {id queue} Where it is.
 * @param[in]  cfg   What it is.
 * @param[out] flow  Its id.
 * @return A status.
 */
status_e thing_make(vx_uint8 queue, thing_s *cfg, vx_flow_id_t *flow);
"""


class Reading(unittest.TestCase):
    def test_what_is_made(self):
        reader = read(GOOD + MAKING)
        self.assertEqual(reader.problems, [])
        made = reader.interface["methods"]["thing_make"]
        self.assertEqual(made["read_back"], {
            "by": "things_get", "with": {"mode": 7}, "if": ["list[].level", "!=", 0],
            "arguments": {"queue": "queue", "cfg": {"level": "list[].level", "hue": "list[].colour"},
                          "flow": "list[].flow"}})
        self.assertEqual(made["undone_by"], {"by": "thing_delete", "arguments": {"id": "flow"}})
        for old, new, said in ((", cfg.hue=list[].colour", "", "does not say where cfg.hue is"),
                               ("cfg=list[]", "cfg=list[].nothing", "has no member nothing"),
                               ("things_get(mode", "things_gett(mode", "names no function"),
                               ("if list[].level!=0", "if nothing!=0", "names no argument: nothing"),
                               ("Undone by: thing_delete", "Undone by: keys_get", "does not say what room of keys_get is"),
                               ("mode=BAD", "mood=BAD", "names no argument of things_get: mood")):
            with self.subTest(new):
                self.assertIn(said, "\n".join(read(GOOD + MAKING.replace(old, new)).problems))

    def test_everything_that_can_be_said(self):
        reader = read(GOOD)
        self.assertEqual(reader.problems, [])
        method = reader.interface["methods"]["keys_get"]
        self.assertEqual((method["family"], method["brief"], method["documentation"], method["effect"],
                          method["clears_if"]), ("a", "Reads keys.", "More about it.", "reads and clears", "clear"))
        queue, room, keys, num, _, flow = method["arguments"]
        self.assertEqual((queue["id"], queue["direction"], queue["length"]), ("queue", "in", None))
        self.assertEqual((keys["length"], keys["filled"], keys["direction"]), ("room", "*num", "out"))
        self.assertEqual((num["direction"], num["length"], flow["id"], room["brief"]),
                         ("inout", 1, "flow", "How many fit."))
        _, numbers, mac, kind = reader.interface["methods"]["write"]["arguments"]
        self.assertEqual((numbers["length"], numbers["length_if_zero"], numbers["filled"]), ("*num", 16, "*num"))
        self.assertEqual((mac["pointer"], mac["length"], kind["enum"]), (True, 6, "status_e"))
        which, union, mask = reader.interface["structs"]["key_s"]["members"]
        self.assertEqual((which["enum"], union["by"], mask["mask"]), ("status_e", "which", True))
        level, rate = union["members"]
        self.assertEqual((level["if"], level["range"], level["unit"]), (["GOOD"], [1, 100], "%"))
        self.assertEqual((rate["count"], rate["unit"]), (4, "kbit/s"))
        self.assertEqual(reader.interface["enums"]["status_e"]["values"]["BAD"], {"value": 7, "brief": "Bad."})
        self.assertEqual(reader.interface["ids"]["queue"], {"range": [0, 7], "brief": "A queue.", "lists": ["queue_get"]})

    def test_lists_of_what_enumerators_stand_for(self):
        text = GOOD.replace("A flow.\n * - `queue`", "A flow.\n * - `key`: A key. Listed by keys_get(room=MOST) for each\n *   key_e.\n"
                            " * - `queue`").replace("vx_uint8 queue, vx_uint16 room", "key_e queue, vx_uint16 room").replace(
            "/** @brief A key. */", "/** @brief A kind. */\ntypedef enum {\n    KEY = 0 /**< One. */\n} key_e;\n/** @brief A key. */", 1)
        reader = read(text.replace("{id queue} The", "The"))
        self.assertEqual(reader.problems, [])
        self.assertEqual(reader.interface["ids"]["key"],
                         {"lists": ["keys_get"], "with": {"keys_get": {"room": 16}}, "each": "key_e", "brief": "A key."})
        for old, new, said in (("each\n *   key_e", "each key", "for each key, which is no enum"),
                               ("room=MOST", "rooms=1", "keys_get, which has no rooms"),
                               ("reads and clears if clear", "reads and clears", "which does not read any")):
            self.assertIn(said, str(read(text.replace(old, new)).problems))

    def test_the_fingerprint_is_of_the_wire(self):
        first = read(GOOD).interface["fingerprint"]
        self.assertEqual(read(GOOD.replace("A level.", "How high it is.")).interface["fingerprint"], first)
        for old, new in (("level;", "height;"), ("BAD = 7", "BAD = 8"), ("rate[4]", "rate[5]"),
                         ("vx_uint16 room,", "vx_uint8 room,")):
            self.assertNotEqual(read(GOOD.replace(old, new)).interface["fingerprint"], first, new)

    def test_what_is_missing_or_contradicts_is_reported_with_its_line(self):
        for old, new, said in (
                ("/**< Good. */", "", "GOOD has no comment"),
                ("/**< Bad. */", "/**< Bad */", "full stop"),
                ("@param[in]     queue", "@param         queue", "queue of keys_get: @param[in], [out] or [in,out]"),
                ("@param[in]     room", "@param[out]    room", "cannot be [out]"),
                (" * @param[in]     room  How many fit.\n", "", "in this order was expected"),
                ("[room; *num filled]", "[rooms]", "'rooms' is no number or constant"),
                ("[room; *num filled]", "[*room]", "room is no pointer"),
                ("[room; *num filled]", "[room, num]", "[room, num] of keys of keys_get"),
                ("{id queue} The", "{id queues} The", "'queues' is no kind of id"),
                ("- `queue`: 0..7. A", "- `queue`: A", "'queue' has no range"),
                ("Listed by queue_get.", "Listed by queues_get.", "listed by queues_get, which is no function"),
                ("Listed by queue_get.", "Listed by write.", "listed by write, which does not read any"),
                ("reads and clears if clear", "looks", "'@par Effect: '"),
                ("reads and clears if clear", "reads if clear", "goes with 'reads and clears'"),
                (" * @par Effect: changes\n", "", "write: '@par Effect: '"),
                ("{if GOOD, 1..100 %}", "{if GOOD, 1..100 percent}", "the unit 'percent'"),
                ("1..100 %", "1..300 %", "not within 0..255"),
                ("1..100 %", "9..5 %", "the range"),
                ("{if BAD,", "{if WORSE,", "there is no such enumerator"),
                ("/**< {by which} What counts. */", "/**< What counts. */", "is a union"),
                ("{by which}", "{by what}", "names no member"),
                ("{status_e} A kind", "{stati_e} A kind", "is no enum, range, unit"),
                ("vx_uint8 which : 1", "vx_uint8 other : 1", "flags no member"),
                ("@brief Writes.", "Writes.", "should begin with @brief")):
            with self.subTest(new):
                self.assertEqual(GOOD.count(old), 1, old)
                problems = read(GOOD.replace(old, new)).problems
                self.assertTrue(any(said in problem for problem in problems), problems)
                self.assertTrue(all(re.match(r"a\.h:\d+: ", problem) for problem in problems), problems)


if __name__ == "__main__":
    unittest.main()
