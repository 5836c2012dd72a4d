"""The access control lists: unknown flows, the table of custom fields, and filters with their conflicts."""

import unittest

from harness import SimTest

ETH0, ETH1 = 3, 4
ADD, DELETE, MODIFY = 0, 1, 2
DISABLE, POSITIVE, NEGATIVE = 0, 1, 2
MAC_DA_ETYPE, IPV4_LONG = 1, 10


def filter_on(eth_type, filter_type=POSITIVE):
    key = {"eth_type": eth_type, "valid": {"mask_s": {"eth_type": 1}}}
    return {"filter_type": filter_type, "flow_key": {"us": {"key_type": MAC_DA_ETYPE, "key_s": {"mac_da_etype": key}}}}


def filter_on_fields(bitmap):
    key = {"custom_pkt_fld_bitmap": bitmap, "valid": {"mask_s": {"custom_pkt_fld_bitmap": 1}}}
    return {"filter_type": POSITIVE, "flow_key": {"us": {"key_type": IPV4_LONG, "key_s": {"ipv4_long": key}}}}


class Acl(SimTest):
    def eth_types(self, room):
        status, echo = self.call("vx_acl_custom_pkt_filter_get", 0, ETH0, room, [{}] * room, 0)
        self.assertEqual(status, 0)
        return [entry["flow_key"]["us"]["key_s"]["mac_da_etype"]["eth_type"] for entry in echo[3][:echo[4]]]

    def test_unknown_flows_and_parser(self):
        self.assertEqual(self.ok("vx_acl_unknown_flow_status_get", 0, ETH0, 0), 1)
        self.ok("vx_acl_unknown_flow_block", 0, ETH0)
        self.assertEqual(self.ok("vx_acl_unknown_flow_status_get", 0, ETH0, 0), 0)
        self.assertEqual(self.ok("vx_acl_unknown_flow_status_get", 0, ETH1, 0), 1)
        self.ok("vx_acl_unknown_flow_allow", 0, ETH0)
        self.assertEqual(self.ok("vx_acl_unknown_flow_status_get", 0, ETH0, 0), 1)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_acl_unknown_flow_block", 0, 6)

        parser = {"ext_mode": 1, "static_mode_offset": 200, "pkt_type_bitmap": 7}
        self.ok("vx_acl_custom_field_parser_config_set", 0, ETH0, parser)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_acl_custom_field_parser_config_set", 0, ETH0, {"pkt_type_bitmap": 8})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_acl_custom_field_parser_config_set", 0, ETH0, {"ext_mode": 2})
        self.assertEqual(self.ok("vx_acl_custom_field_parser_config_get", 0, ETH0, {}), parser)

    def test_fields(self):
        table_set = "vx_acl_custom_pkt_field_table_set"
        self.ok(table_set, 0, ETH0, 0, ADD, {"ref_point": 2, "key": 7, "valid_bitmap": 255, "lsb_or_msb": 1})
        self.ok(table_set, 0, ETH0, 7, ADD, {"key": 70})
        self.refused("GLBL_ENTRY_EXIST", table_set, 0, ETH0, 7, ADD, {})
        self.refused("GLBL_ENTRY_NOT_FOUND", table_set, 0, ETH0, 6, MODIFY, {})
        self.refused("GLBL_RANGE_CHECK_FAIL", table_set, 0, ETH0, 8, ADD, {})
        self.refused("GLBL_RANGE_CHECK_FAIL", table_set, 0, ETH0, 6, 3, {})
        self.refused("GLBL_RANGE_CHECK_FAIL", table_set, 0, ETH0, 6, ADD, {"ref_point": 4})
        self.ok(table_set, 0, ETH0, 0, MODIFY, {"ref_point": 9, "key": 8, "valid_bitmap": 1, "mask": {"key": 1}})

        flags = {"ref_point": 1, "key": 1, "valid_bitmap": 1, "lsb_or_msb": 1}
        first = {"valid": 1, "ref_point": 2, "key": 8, "valid_bitmap": 255, "lsb_or_msb": 1, "mask": flags}
        listed = self.ok("vx_acl_custom_pkt_field_table_get", 0, ETH0, [{}] * 6 + [{"key": 5}] * 2)
        self.assertEqual(listed[0], first)
        self.assertEqual([entry["key"] for entry in listed], [8, 0, 0, 0, 0, 0, 0, 70])

        # A field that a filter names stays, and a filter needs the fields that it names.
        self.refused("FE_CLS_KEY_RESOURCE_UNAVAIL", "vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on_fields(3))
        self.refused("FE_CLS_KEY_RESOURCE_UNAVAIL", "vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on_fields(1 << 8))
        self.ok("vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on_fields(1 << 7))
        self.refused("GLBL_INVALID_OP", table_set, 0, ETH0, 7, DELETE, {})
        self.ok("vx_acl_custom_pkt_filter_delete", 0, ETH0, filter_on_fields(1 << 7))
        self.ok(table_set, 0, ETH0, 7, DELETE, {})
        self.refused("GLBL_ENTRY_NOT_FOUND", table_set, 0, ETH0, 7, DELETE, {})

    def test_filters(self):
        for eth_type in range(1, 49):
            self.ok("vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on(eth_type))
        self.refused("FE_CLS_ENTRY_UNAVAIL", "vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on(49))
        self.refused("FE_DUPLICATE_CUSTOM_FILTER", "vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on(48))
        self.refused("FE_MAC_FILTER_MODE_CONFILCT", "vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on(48, NEGATIVE))
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on(1, 3))
        self.refused("FE_CLS_INVALID_KEY_TYPE", "vx_acl_custom_pkt_filter_add", 0, ETH0, {})
        self.ok("vx_acl_custom_pkt_filter_delete", 0, ETH0, filter_on(1, NEGATIVE))
        self.ok("vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on(2, DISABLE))
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_acl_custom_pkt_filter_add", 0, ETH0, filter_on(2, DISABLE))
        self.assertEqual(self.eth_types(3), [3, 4, 5])
        self.assertEqual(self.eth_types(60), list(range(3, 49)))


if __name__ == "__main__":
    unittest.main()
