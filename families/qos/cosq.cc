// Class of service: maps, queues, schedulers and shapers, inner UDTs first, then the methods, none of which has a text.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/cosq.h"

namespace lmq {

// The bounds are spelled as the preprocessor leaves LMQ_MAX_COS, LMQ_MAX_DOT1P, LMQ_MAX_DSCP and LMQ_MAX_TC: member
// lists print them so. The masks of the maps are plain members, bits of an enum, and select nothing here.
UDT(vx_qos_cos_map_t,
    ELEMENTS(vx_uint8, cos_to_policer, ((vx_uint8)8)))

UDT(vx_qos_dot1p_map_t,
    SCALAR(  vx_qos_dot1p_map_type_t, mask),
    ELEMENTS(vx_uint8,                dot1p_to_dot1p, ((vx_uint8)8)),
    ELEMENTS(vx_uint8,                dot1p_to_dscp, ((vx_uint8)8)),
    ELEMENTS(vx_uint8,                dot1p_to_tc, ((vx_uint8)8)),
    ELEMENTS(vx_uint8,                dot1p_to_cos, ((vx_uint8)8)),
    ELEMENTS(vx_uint8,                dot1p_to_policer, ((vx_uint8)8)))

UDT(vx_qos_dscp_gemid_t,
    SCALAR(vx_uint8, dscp_to_gemid),
    SCALAR(vx_uint8, dscp_to_gemid_valid))

// dscp_to_gemid is a key at two depths: of the array, and within each of its structs. So is tc_to_gemid.
UDT(vx_qos_dscp_map_t,
    SCALAR(   vx_qos_dscp_map_type_t, mask),
    ELEMENTS( vx_uint8,               dscp_to_dot1p, ((vx_uint8)64)),
    ELEMENTS( vx_uint8,               dscp_to_dscp, ((vx_uint8)64)),
    ELEMENTS( vx_uint8,               dscp_to_cos, ((vx_uint8)64)),
    ELEMENTS( vx_uint8,               dscp_to_policer, ((vx_uint8)64)),
    UDT_ARRAY(vx_qos_dscp_gemid_t,    dscp_to_gemid, ((vx_uint8)64)))

UDT(vx_qos_tc_gemid_t,
    SCALAR(vx_uint8, tc_to_gemid),
    SCALAR(vx_uint8, tc_to_gemid_valid))

UDT(vx_qos_tc_map_t,
    SCALAR(   vx_qos_tc_map_type_t, mask),
    ELEMENTS( vx_uint8,             tc_to_dot1p, ((vx_uint8)64)),
    ELEMENTS( vx_uint8,             tc_to_tc, ((vx_uint8)64)),
    ELEMENTS( vx_uint8,             tc_to_cos, ((vx_uint8)64)),
    ELEMENTS( vx_uint8,             tc_to_policer, ((vx_uint8)64)),
    UDT_ARRAY(vx_qos_tc_gemid_t,    tc_to_gemid, ((vx_uint8)64)))

// enbl_back_press is a whole word, not a vx_boolean.
UDT(vx_queue_cfg_t,
    SCALAR(vx_uint32, weight),
    SCALAR(vx_uint32, max_buff_size),
    SCALAR(vx_uint32, enbl_back_press),
    SCALAR(vx_uint32, back_press_set_thresh),
    SCALAR(vx_uint32, back_press_clr_thresh),
    SCALAR(vx_uint32, back_press_time),
    MASK(valid, vx_uint32, weight, max_buff_size, enbl_back_press, back_press_set_thresh, back_press_clr_thresh,
         back_press_time))

UDT(vx_sched_cfg_t,
    SCALAR(vx_uni_sched_mode_t, sched_mode),
    SCALAR(vx_uint16,           num_sp_queues))

UDT(vx_shaping_rate_cfg_t,
    SCALAR(vx_uint32, shaping_rate),
    SCALAR(vx_uint32, cbs))

UDT(lmq_global_egrs_shaper_cfg_s,
    SCALAR(vx_uint8, ipg_ovrhd_bytes))

METHOD(vx_cosq_cos_map_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_qos_cos_map_t, cfg))
METHOD(vx_cosq_cos_map_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_qos_cos_map_t, cfg))

METHOD(vx_cosq_dscp_map_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_qos_dscp_map_t, cfg))
METHOD(vx_cosq_dscp_map_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_qos_dscp_map_t, cfg))

METHOD(vx_cosq_tc_map_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_qos_tc_map_t, cfg))
METHOD(vx_cosq_tc_map_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_qos_tc_map_t, cfg))

METHOD(vx_cosq_dot1p_map_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_qos_dot1p_map_t, cfg))
METHOD(vx_cosq_dot1p_map_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_qos_dot1p_map_t, cfg))

METHOD(vx_cosq_queue_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, queue_id),
       UDT_PTR(vx_queue_cfg_t, p_cfg))
METHOD(vx_cosq_queue_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, queue_id),
       UDT_PTR(vx_queue_cfg_t, p_cfg))

METHOD(vx_cosq_sched_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_sched_cfg_t, p_cfg))
METHOD(vx_cosq_sched_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_sched_cfg_t, p_cfg))

METHOD(lmq_set_global_egress_shaper_config, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_global_egrs_shaper_cfg_s, p_cfg))
METHOD(lmq_get_global_egress_shaper_config, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_global_egrs_shaper_cfg_s, p_cfg))

// A set takes the enable state by value, a get puts it out through a pointer.
METHOD(vx_cosq_ds_shaping_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_boolean, enable),
       UDT_PTR(vx_shaping_rate_cfg_t, cfg))
METHOD(vx_cosq_ds_shaping_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_boolean, enable),
       UDT_PTR(vx_shaping_rate_cfg_t, cfg))

// The mirror has no port: its shaper is one of the device.
METHOD(vx_cosq_mirror_pkt_shaping_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_boolean, enable), UDT_PTR(vx_shaping_rate_cfg_t, cfg))
METHOD(vx_cosq_mirror_pkt_shaping_get, no_help,
       VALUE(vx_dev_id_t, dev_id), ELEMENT_PTR(vx_boolean, enable), UDT_PTR(vx_shaping_rate_cfg_t, cfg))

} // namespace lmq
