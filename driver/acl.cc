// The access control lists.
#include "driver/acl.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_acl_custom_pkt_field_table_get(vx_dev_id_t, vx_port_id_t, vx_acl_custom_pkt_field_tbl_entry_t *) {
    return kNotModelled;
}
vx_status_e vx_acl_custom_pkt_field_table_set(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_acl_op_mode_t,
                                              vx_acl_custom_pkt_field_tbl_entry_t *) {
    return kNotModelled;
}
vx_status_e vx_acl_custom_pkt_filter_delete(vx_dev_id_t, vx_port_id_t, vx_acl_custom_pkt_filter_t *) {
    return kNotModelled;
}
vx_status_e vx_acl_custom_field_parser_config_set(vx_dev_id_t, vx_port_id_t, vx_acl_custom_field_parser_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_acl_unknown_flow_status_get(vx_dev_id_t, vx_port_id_t, vx_boolean *) { return kNotModelled; }
vx_status_e vx_acl_custom_pkt_filter_add(vx_dev_id_t, vx_port_id_t, vx_acl_custom_pkt_filter_t *) {
    return kNotModelled;
}
vx_status_e vx_acl_custom_field_parser_config_get(vx_dev_id_t, vx_port_id_t, vx_acl_custom_field_parser_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_acl_unknown_flow_allow(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_acl_custom_pkt_filter_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_acl_custom_pkt_filter_t *,
                                         vx_uint16 *) {
    return kNotModelled;
}
vx_status_e vx_acl_unknown_flow_block(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
