// The events.
#include "driver/event.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e lmq_dump_event_db(vx_dev_id_t, vx_event_type_e) { return kNotModelled; }
vx_status_e vx_event_holdover_set(vx_dev_id_t, vx_event_type_e, vx_event_holdover_cfg_s *) { return kNotModelled; }
vx_status_e vx_event_count_clear_all(vx_dev_id_t) { return kNotModelled; }
vx_status_e lmq_ctrl_interrupts(vx_dev_id_t, vx_boolean) { return kNotModelled; }
vx_status_e vx_event_status_clear(vx_dev_id_t, vx_event_type_e, vx_uint16, vx_uint16, vx_event_status_s *) {
    return kNotModelled;
}
vx_status_e vx_event_count_get(vx_dev_id_t, vx_event_type_e, vx_uint16, vx_uint16, vx_uint32 *, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_event_throttle_get(vx_dev_id_t, vx_event_type_e, vx_intr_throttle_cfg_s *) { return kNotModelled; }
vx_status_e vx_event_status_poll(vx_dev_id_t, vx_event_type_e, vx_uint16, vx_uint16, vx_event_status_s *) {
    return kNotModelled;
}
vx_status_e vx_event_global_throttle_set(vx_dev_id_t, vx_event_throttle_cfg_s *) { return kNotModelled; }
vx_status_e vx_event_count_clear(vx_dev_id_t, vx_event_type_e, vx_uint16, vx_uint16) { return kNotModelled; }
vx_status_e lmq_register_debug_event(vx_dev_id_t, vx_event_type_e, vx_boolean, lmq_dbg_event_cfg_s *) {
    return kNotModelled;
}
vx_status_e vx_pending_events_get(vx_dev_id_t, vx_event_type_e, vx_uint16, vx_uint16, vx_event_status_s *) {
    return kNotModelled;
}
vx_status_e vx_event_global_throttle_get(vx_dev_id_t, vx_event_throttle_cfg_s *) { return kNotModelled; }
vx_status_e vx_event_holdover_get(vx_dev_id_t, vx_event_type_e, vx_uint16, vx_uint16, vx_event_holdover_cfg_s *) {
    return kNotModelled;
}
vx_status_e lmq_deregister_debug_event(vx_dev_id_t, vx_event_type_e, vx_boolean, lmq_dbg_event_cfg_s *) {
    return kNotModelled;
}
vx_status_e lmq_dbg_generate_event(vx_dev_id_t, vx_uint32, vx_uint16, vx_uint16) { return kNotModelled; }
vx_status_e vx_event_throttle_set(vx_dev_id_t, vx_event_type_e, vx_intr_throttle_cfg_s *) { return kNotModelled; }
