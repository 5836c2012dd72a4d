// Events: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
#include "lmq/event.h"

namespace lmq {

UDT(lmq_tmr_event_data_s,
    SCALAR(vx_uint16, timer_id))

UDT(lmq_gpio_event_data_s,
    SCALAR(vx_uint32, gpio_pin_mask))

UDT(lmq_dma_event_data_s,
    SCALAR(vx_uint8, dma_id))

UDT(lmq_thrtl_event_data_s,
    SCALAR(vx_event_type_e,        thrtld_event),
    SCALAR(lmq_event_thrtl_type_e, thrtl_type),
    SCALAR(vx_uint32,              thrtl_cnt))

UDT(lmq_eth_phy_event_info_s,
    SCALAR(vx_uint16, intr_status))

UDT(lmq_eth_phy_mode_chng_data_s,
    SCALAR(vx_speed_t,  speed),
    SCALAR(vx_duplex_t, duplex))

UDT(lmq_eth_link_status_chng_event_data_s,
    SCALAR(vx_speed_t,  speed),
    SCALAR(vx_duplex_t, duplex),
    SCALAR(vx_boolean,  link_up))

UDT(lmq_ptp_get_ts_event_data_s,
    SCALAR(vx_uint32, ptp_nano_second),
    SCALAR(vx_uint32, local_ref_time),
    SCALAR(vx_uint16, local_ref_lsb),
    SCALAR(vx_uint32, ptp_freq_offset))

UDT(lmq_ptp_tmr_latch_data_s,
    SCALAR(vx_uint16, port_num),
    SCALAR(vx_uint32, timestamp))

UDT(lmq_onu_state_event_data_s,
    SCALAR(vx_gpon_onu_state_t, onu_state))

UDT(lmq_gpon_alm_event_data_s,
    SCALAR(vx_boolean, status))

UDT(lmq_gpon_onu_id_event_data_s,
    SCALAR(vx_uint16, onu_id))

UDT(lmq_gpon_omcc_state_data_s,
    SCALAR(vx_boolean, status),
    SCALAR(vx_uint16,  gem_port_id))

UDT(lmq_gpon_omcc_gem_port_data_s,
    SCALAR(vx_uint16, gem_port_id))

UDT(lmq_fe_stn_move_event_data_s,
    SCALAR(vx_uint8, stn_move_indx))

UDT(lmq_eee_event_data_s,
    SCALAR(vx_eee_dir_t,   eee_dir),
    SCALAR(vx_eee_state_t, eee_state))

UDT(lmq_eee_queue_status_event_data_s,
    SCALAR(vx_uint16, low_thresh),
    SCALAR(vx_uint16, high_thresh))

UDT(lmq_event_data_u,
    SCALAR(vx_uint32,                             data),
    NESTED(lmq_tmr_event_data_s,                  tmr_data),
    NESTED(lmq_gpio_event_data_s,                 gpio_data),
    NESTED(lmq_dma_event_data_s,                  dma_data),
    NESTED(lmq_thrtl_event_data_s,                thrtl_data),
    NESTED(lmq_eth_phy_event_info_s,              phy_intr_data),
    NESTED(lmq_eth_phy_mode_chng_data_s,          phy_mode_data),
    NESTED(lmq_eth_link_status_chng_event_data_s, link_chng_data),
    NESTED(lmq_ptp_get_ts_event_data_s,           get_ts_data),
    NESTED(lmq_ptp_tmr_latch_data_s,              ptp_latch_data),
    NESTED(lmq_onu_state_event_data_s,            onu_state_data),
    NESTED(lmq_gpon_alm_event_data_s,             gpon_alm_data),
    NESTED(lmq_gpon_onu_id_event_data_s,          onu_id_data),
    NESTED(lmq_gpon_omcc_state_data_s,            omcc_state),
    NESTED(lmq_gpon_omcc_gem_port_data_s,         omcc_gem_data),
    NESTED(lmq_fe_stn_move_event_data_s,          stn_move_data),
    NESTED(lmq_eee_event_data_s,                  eee_data),
    NESTED(lmq_eee_queue_status_event_data_s,     eee_queue_status))

UDT(vx_event_status_s,
    SCALAR(vx_boolean,       status),
    NESTED(lmq_event_data_u, event_data))

UDT(vx_event_holdover_cfg_s,
    SCALAR(vx_boolean, enable),
    SCALAR(vx_uint16,  port_num),
    SCALAR(vx_uint16,  sub_port),
    SCALAR(vx_uint16,  holdover_time))

UDT(vx_event_throttle_cfg_s,
    SCALAR(vx_boolean, enable),
    SCALAR(vx_uint32,  count),
    SCALAR(vx_uint32,  interval))

UDT(vx_intr_throttle_cfg_s,
    SCALAR(vx_boolean, enable),
    SCALAR(vx_boolean, per_port),
    SCALAR(vx_uint32,  count),
    SCALAR(vx_uint32,  interval))

UDT(lmq_dbg_event_cfg_s,
    SCALAR(vx_uint32,           user_data),
    SCALAR(lmq_event_context_e, context),
    SCALAR(vx_uint8,            context_id),
    SCALAR(vx_uint8,            priority),
    SCALAR(vx_uint32,           port_type_bitmap),
    SCALAR(vx_boolean,          all_ports),
    SCALAR(vx_uint16,           port_num),
    SCALAR(vx_uint16,           gem_port_id))

METHOD(lmq_dump_event_db, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type))
METHOD(vx_event_holdover_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), UDT_PTR(vx_event_holdover_cfg_s, p_cfg))
METHOD(vx_event_count_clear_all, no_help, VALUE(vx_dev_id_t, dev_id))
METHOD(lmq_ctrl_interrupts, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_boolean, enable))
METHOD(vx_event_status_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port), UDT_PTR(vx_event_status_s, p_status))
METHOD(vx_event_count_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port), ELEMENT_PTR(vx_uint32, p_count), VALUE(vx_boolean, clear_after_get))
METHOD(vx_event_throttle_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), UDT_PTR(vx_intr_throttle_cfg_s, p_cfg))
METHOD(vx_event_status_poll, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port), UDT_PTR(vx_event_status_s, p_status))
METHOD(vx_event_global_throttle_set, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_event_throttle_cfg_s, p_cfg))
METHOD(vx_event_count_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port))
METHOD(lmq_register_debug_event, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_boolean, in_kernel), UDT_PTR(lmq_dbg_event_cfg_s, p_cfg))
METHOD(vx_pending_events_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port), UDT_PTR(vx_event_status_s, p_status))
METHOD(vx_event_global_throttle_get, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_event_throttle_cfg_s, p_cfg))
METHOD(vx_event_holdover_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port), UDT_PTR(vx_event_holdover_cfg_s, p_cfg))
METHOD(lmq_deregister_debug_event, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_boolean, in_kernel), UDT_PTR(lmq_dbg_event_cfg_s, p_cfg))
METHOD(lmq_dbg_generate_event, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, evt_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port))
METHOD(vx_event_throttle_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), UDT_PTR(vx_intr_throttle_cfg_s, p_cfg))

} // namespace lmq
