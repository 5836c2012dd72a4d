// Events: the UDTs of their data, one for each kind, then those of status, holdover and throttling, then the methods
// with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
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

// A union without a selector. Of several alternatives that a client sends, the last of this order stands over the
// others; all of them are answered, each as the same bytes read.
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

constexpr Help help_vx_event_status_poll{
    .title = "Poll event status",
    .text = "This API reports the hardware status of an event regardless of whether the event is\n"
            "registered. It applies only to latched events such as link status.\n"
            "With it an application can do polling based event handling instead of interrupt\n"
            "based handling, or combine the two.\n",
    .inputs = "event_type : event type\n"
              "port_num   : port number, for events of a port\n"
              "sub_port   : logical port within a physical port, such as the llid_port. Whether it\n"
              "             is used depends on the event type. Only events specific to a sub-port\n"
              "             require it. It is ignored for events of a device or physical port.\n"
              "p_status   : where to put the status\n",
    .outputs = "p_status : status and data of the event\n",
};
METHOD(vx_event_status_poll, help_vx_event_status_poll,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num),
       VALUE(vx_uint16, sub_port), UDT_PTR(vx_event_status_s, p_status))

constexpr Help help_vx_pending_events_get{
    .title = "Get pending event status.",
    .text = "This API asks for events that have not been delivered because of throttling or\n"
            "holdover. It reports only the last pending event.\n",
    .inputs = "event_type : event type\n"
              "port_num   : port number, for events of a port\n"
              "sub_port   : logical port within a physical port, such as the llid_port. Whether it\n"
              "             is used depends on the event type. Only events specific to a sub-port\n"
              "             require it. It is ignored for events of a device or physical port.\n"
              "p_status   : where to put the status\n",
    .outputs = "p_status : status and data of the event\n",
};
METHOD(vx_pending_events_get, help_vx_pending_events_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num),
       VALUE(vx_uint16, sub_port), UDT_PTR(vx_event_status_s, p_status))

// The last argument is reserved, and a client has to send it all the same.
constexpr Help help_vx_event_status_clear{
    .title = "Clear event status.",
    .text = "This API removes a pending event from the event queue, so it isn't sent until a new\n"
            "event is detected. It also clears the hardware status where the hardware condition\n"
            "can be cleared.\n",
    .inputs = "event_type : event type\n"
              "port_num   : port number, for events of a port\n"
              "sub_port   : logical port within a physical port, such as the llid_port. Whether it\n"
              "             is used depends on the event type. Only events specific to a sub-port\n"
              "             require it. It is ignored for events of a device or physical port.\n"
              "p_status   : Reserved for future use\n",
    .outputs = "p_status : Reserved for future use\n",
};
METHOD(vx_event_status_clear, help_vx_event_status_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num),
       VALUE(vx_uint16, sub_port), UDT_PTR(vx_event_status_s, p_status))

constexpr Help help_vx_event_count_get{
    .title = "Get event count",
    .text = "This API retrieves the count of real occurrences of an event as detected by\n"
            "hardware.\n",
    .inputs = "event_type      : event type\n"
              "port_num        : port number, for events of a port\n"
              "sub_port        : logical port within a physical port, such as the llid_port. Whether\n"
              "                  it is used depends on the event type. Only events specific to a\n"
              "                  sub-port require it. It is ignored for events of a device or\n"
              "                  physical port.\n"
              "p_count         : where to put the count\n"
              "clear_after_get : TRUE to clear the counter after reading\n",
    .outputs = "p_count : number of occurrences\n",
};
METHOD(vx_event_count_get, help_vx_event_count_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num),
       VALUE(vx_uint16, sub_port), ELEMENT_PTR(vx_uint32, p_count), VALUE(vx_boolean, clear_after_get))

constexpr Help help_vx_event_count_clear{
    .title = "Clear event count",
    .text = "This API clears the counter of an event.\n",
    .inputs = "event_type : event type\n"
              "port_num   : port number, for events of a port\n"
              "sub_port   : logical port within a physical port, such as the llid_port. Whether it\n"
              "             is used depends on the event type. Only events specific to a sub-port\n"
              "             require it. It is ignored for events of a device or physical port.\n",
};
METHOD(vx_event_count_clear, help_vx_event_count_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num),
       VALUE(vx_uint16, sub_port))

// The title is that of vx_event_count_clear.
constexpr Help help_vx_event_count_clear_all{
    .title = "Clear event count",
    .text = "This API clears the counters of all events.\n",
};
METHOD(vx_event_count_clear_all, help_vx_event_count_clear_all, VALUE(vx_dev_id_t, dev_id))

constexpr Help help_vx_event_holdover_set{
    .title = "Set event report holdover",
    .text = "This API sets the holdover of an event. While holdover is active, the event is not\n"
            "notified for the duration of the holdover time, and is reported when it persists\n"
            "for at least that time. When holdover is disabled and the event is active but\n"
            "wasn't reported, the application is notified.\n"
            "If port_num is the SNI port and the sub-port is VX_INVALID_PORT_ID, the same\n"
            "configuration is set for all sub-ports.\n",
    .inputs = "event_type : event type\n"
              "p_cfg      : holdover configuration\n",
};
METHOD(vx_event_holdover_set, help_vx_event_holdover_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), UDT_PTR(vx_event_holdover_cfg_s, p_cfg))

constexpr Help help_vx_event_holdover_get{
    .title = "Get event report holdover configurations",
    .text = "This API retrieves the holdover of an event.\n",
    .inputs = "event_type : event type\n"
              "port_num   : port number, for events of a port\n"
              "sub_port   : logical port within a physical port, such as the llid_port. Whether it\n"
              "             is used depends on the event type. Only events specific to a sub-port\n"
              "             require it. It is ignored for events of a device or physical port.\n"
              "p_cfg      : where to put the holdover configuration\n",
    .outputs = "p_cfg : holdover configuration\n",
};
METHOD(vx_event_holdover_get, help_vx_event_holdover_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_uint16, port_num),
       VALUE(vx_uint16, sub_port), UDT_PTR(vx_event_holdover_cfg_s, p_cfg))

constexpr Help help_vx_event_global_throttle_set{
    .title = "Set global event throttle configuration",
    .text = "This API sets the throttle over all events. The occurrences of all events are\n"
            "counted against a threshold of count in an interval. When the counter reaches the\n"
            "threshold, all interrupts are disabled globally for the rest of the current\n"
            "interval. At the end of the interval the counter is reset and interrupts are\n"
            "enabled. Timer interrupts are excluded.\n",
    .inputs = "p_cfg  : throttle configuration\n",
};
METHOD(vx_event_global_throttle_set, help_vx_event_global_throttle_set,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_event_throttle_cfg_s, p_cfg))

constexpr Help help_vx_event_global_throttle_get{
    .title = "Get global event throttle configuration",
    .text = "This API retrieves the throttle over all events.\n",
    .inputs = "p_cfg  : where to put the throttle configuration\n",
    .outputs = "p_cfg : throttle configuration\n",
};
METHOD(vx_event_global_throttle_get, help_vx_event_global_throttle_get,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_event_throttle_cfg_s, p_cfg))

constexpr Help help_vx_event_throttle_set{
    .title = "Set event throttle configuration",
    .text = "This API sets the throttle of one event type. It works the same way as global\n"
            "throttling, with the count kept per event type. Global throttling, when enabled,\n"
            "takes precedence over per-event throttling. Timer interrupts are excluded.\n",
    .inputs = "event_type : event type\n"
              "p_cfg      : throttle configuration\n",
};
METHOD(vx_event_throttle_set, help_vx_event_throttle_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), UDT_PTR(vx_intr_throttle_cfg_s, p_cfg))

constexpr Help help_vx_event_throttle_get{
    .title = "Get event throttle configuration",
    .text = "This API retrieves the throttle of one event type.\n",
    .inputs = "event_type : event type\n"
              "p_cfg      : where to put the throttle configuration\n",
    .outputs = "p_cfg : throttle configuration\n",
};
METHOD(vx_event_throttle_get, help_vx_event_throttle_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), UDT_PTR(vx_intr_throttle_cfg_s, p_cfg))

constexpr Help help_lmq_ctrl_interrupts{
    .title = "Control interrupts",
    .text = "This API enables or disables all interrupts in the chip.\n",
    .inputs = "enable : TRUE to enable, FALSE to disable\n",
};
METHOD(lmq_ctrl_interrupts, help_lmq_ctrl_interrupts, VALUE(vx_dev_id_t, dev_id), VALUE(vx_boolean, enable))

constexpr Help help_lmq_register_debug_event{
    .title = "Register a debug event",
    .text = "This API registers a debug event handler.\n",
    .inputs = "event_type : event type\n"
              "in_kernel  : TRUE if the registration happens in kernel space, FALSE if in user space\n"
              "p_cfg      : configuration of the handler\n",
};
METHOD(lmq_register_debug_event, help_lmq_register_debug_event,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_boolean, in_kernel),
       UDT_PTR(lmq_dbg_event_cfg_s, p_cfg))

constexpr Help help_lmq_deregister_debug_event{
    .title = "Deregister a debug event",
    .text = "This API deregisters a debug event handler.\n",
    .inputs = "event_type : event type\n"
              "in_kernel  : TRUE if the registration happened in kernel space, FALSE if in user space\n"
              "p_cfg      : configuration of the handler\n",
};
METHOD(lmq_deregister_debug_event, help_lmq_deregister_debug_event,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type), VALUE(vx_boolean, in_kernel),
       UDT_PTR(lmq_dbg_event_cfg_s, p_cfg))

// The title is that of lmq_register_debug_event. The type is a plain word here, named so by the fault, and its name is
// shorter than elsewhere.
constexpr Help help_lmq_dbg_generate_event{
    .title = "Register a debug event",
    .text = "This API generates a debug event if mapping information is present in the driver's\n"
            "database. It is for debugging only.\n",
    .inputs = "evt_type : event type\n"
              "port_num : port number\n"
              "sub_port : sub-port number\n",
};
METHOD(lmq_dbg_generate_event, help_lmq_dbg_generate_event,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, evt_type), VALUE(vx_uint16, port_num), VALUE(vx_uint16, sub_port))

constexpr Help help_lmq_dump_event_db{
    .title = "Dumps LMQ event data base",
    .text = "This API prints the data base entry of an event on the console.\n",
    .inputs = "event_type : event type\n",
};
METHOD(lmq_dump_event_db, help_lmq_dump_event_db, VALUE(vx_dev_id_t, dev_id), VALUE(vx_event_type_e, event_type))

} // namespace lmq
