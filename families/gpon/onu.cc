// GPON ONU port, T-CONT and GEM: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
#include "lmq/gpon.h"

namespace lmq {

UDT(vx_gpon_port_cfg_t,
    ELEMENTS(vx_uint8,                   vendor_id, 4),
    SCALAR(  vx_uint32,                  serial_num),
    ELEMENTS(vx_uint8,                   passwd, 10),
    SCALAR(  vx_gpon_dba_blk_len_t,      dbru_blk_len),
    SCALAR(  vx_int16,                   laser_on_time),
    SCALAR(  vx_uint16,                  laser_prebias_time),
    SCALAR(  vx_boolean,                 fec_bypass_enbl),
    SCALAR(  vx_boolean,                 aes_enbl),
    SCALAR(  vx_gpon_signal_thres_val_t, sf_threshold),
    SCALAR(  vx_gpon_signal_thres_val_t, sf_clear_threshold),
    SCALAR(  vx_gpon_signal_thres_val_t, sd_threshold),
    SCALAR(  vx_gpon_signal_thres_val_t, sd_clear_threshold),
    SCALAR(  vx_uint8,                   onu_id),
    SCALAR(  vx_gpon_onu_state_t,        onu_state),
    SCALAR(  vx_int16,                   omci_port),
    SCALAR(  vx_uint16,                  num_tcont),
    SCALAR(  vx_uint16,                  num_gem),
    FLAGS(valid, vendor_id, serial_num, passwd, dbru_blk_len, laser_on_time, laser_prebias_time, fec_bypass_enbl, aes_enbl, sf_threshold, sf_clear_threshold, sd_threshold, sd_clear_threshold))

UDT(vx_tcont_cfg_t,
    SCALAR(vx_uint16, alloc_id))

UDT(vx_tcont_alloc_id_t,
    SCALAR(vx_uint16, tcont_id),
    SCALAR(vx_uint16, alloc_id),
    SCALAR(vx_uint16, tcont_subport_id))

UDT(vx_tcont_info_t,
    SCALAR(  vx_boolean, enbl_status),
    SCALAR(  vx_uint16,  alloc_id),
    SCALAR(  vx_uint16,  tcont_subport_id),
    SCALAR(  vx_uint16,  num_gem_ports),
    ELEMENTS(vx_uint16,  gem_ports, VX_MAX_GEM_PORTS))

UDT(vx_gem_port_cfg_t,
    SCALAR(lmq_dir_e,  direction),
    SCALAR(vx_uint16,  tcont_id),
    SCALAR(vx_boolean, aes_enable),
    SCALAR(vx_boolean, multicast))

UDT(vx_gem_port_info_t,
    SCALAR(vx_uint16,  gem_port_id),
    SCALAR(vx_boolean, gem_status),
    SCALAR(lmq_dir_e,  direction),
    SCALAR(vx_uint16,  tcont_id),
    SCALAR(vx_uint16,  alloc_id),
    SCALAR(vx_uint16,  gem_subport_id),
    SCALAR(vx_boolean, aes),
    SCALAR(vx_boolean, multicast))

METHOD(vx_gpon_onu_port_enable_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_boolean, enable))
METHOD(vx_gpon_onu_port_config_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_port_cfg_t, p_cfg))
METHOD(vx_gpon_onu_port_config_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_port_cfg_t, p_cfg))
METHOD(vx_gpon_onu_tcont_enable_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tcont_id), VALUE(vx_boolean, enable), UDT_PTR(vx_tcont_cfg_t, p_cfg))
METHOD(vx_gpon_onu_tcont_info_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tcont_id), UDT_PTR(vx_tcont_info_t, p_info))
METHOD(vx_gpon_onu_active_tcont_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_tcont_alloc_id_t, p_tcont_id), ELEMENT_PTR(vx_uint16, p_num_tconts))
METHOD(vx_gpon_onu_gem_port_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_port_id), UDT_PTR(vx_gem_port_cfg_t, p_cfg))
METHOD(vx_gpon_onu_gem_port_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_port_id))
METHOD(vx_gpon_onu_gem_port_id_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, index), ELEMENT_PTR(vx_uint16, p_gem_port_id))
METHOD(vx_gpon_onu_gem_port_info_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_port_id), UDT_PTR(vx_gem_port_info_t, p_info))
METHOD(vx_gpon_onu_active_gem_port_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gem_port_info_t, p_info), ELEMENT_PTR(vx_uint16, p_num_gem_ports))
METHOD(vx_gpon_onu_gem_port_loopback_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_port_id), VALUE(vx_boolean, loopback_enbl))
METHOD(vx_gpon_onu_ploam_ds_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), ELEMENT_PTR(vx_uint8, p_message), ELEMENT_PTR(vx_uint8, p_num))
METHOD(vx_gpon_onu_ploam_us_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), ELEMENT_PTR(vx_uint8, p_message), VALUE(vx_uint8, num))
METHOD(vx_gpon_onu_laser_mode_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), VALUE(vx_pon_laser_ctrl_mode_t, mode), VALUE(vx_uint8, dir))
METHOD(vx_gpon_onu_state_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), VALUE(vx_gpon_onu_state_t, onu_state))
METHOD(vx_gpon_ploamd_mask_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), VALUE(vx_boolean, overhead_enable), VALUE(vx_boolean, mask_enable))
METHOD(vx_gpon_signal_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), ELEMENT_PTR(vx_boolean, p_active))

} // namespace lmq
