/**
 * @file
 * @brief GPON ONU port, T-CONT and GEM.
 */
#ifndef LMQ_GPON_H
#define LMQ_GPON_H

#include "lmq/event.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define VX_ONU_LOID_PSWD_LEN 16
#define VX_ONU_LOID_LEN 24
#define VX_ONU_HW_SN_LEN 16
#define VX_GPON_VENDOR_ID_LEN 4
#define VX_GPON_PASSWD_LEN 10
#define LMQ_PORT_GEM_BASE 0
#define LMQ_PORT_TCONT_BASE 64

typedef enum lmq_pon_protection_type_mask_t LMQ_ENUM_INT {
    LMQ_PON_FIBER_ONLY_PROTECTION_MASK = 1,
    LMQ_PON_1_1_PROTECTION_MASK = 2,
    LMQ_PON_1_PLUS_1_PROTECTION_MASK = 4,
} lmq_pon_protection_type_mask_t;

typedef enum lmq_dir_e LMQ_ENUM_INT {
    LMQ_DIR_NONE = 0,
    LMQ_DIR_US = 1,
    LMQ_DIR_DS = 2,
    LMQ_DIR_BOTH = 3,
} lmq_dir_e;

typedef enum vx_pon_laser_ctrl_mode_t LMQ_ENUM_INT {
    VX_PON_LASER_ALWAYS_OFF = 0,
    VX_PON_LASER_BURST_OPERATION = 1,
    VX_PON_LASER_ALWAYS_ON = 2,
} vx_pon_laser_ctrl_mode_t;

typedef enum vx_gpon_dba_blk_len_t LMQ_ENUM_INT {
    VX_GPON_DBA_BLK_LEN_32 = 0,
    VX_GPON_DBA_BLK_LEN_48 = 1,
    VX_GPON_DBA_BLK_LEN_64 = 2,
    VX_GPON_DBA_BLK_LEN_128 = 3,
} vx_gpon_dba_blk_len_t;

typedef enum vx_gpon_signal_thres_val_t LMQ_ENUM_INT {
    VX_GPON_SIG_THRES_10_EXP_3 = 0,
    VX_GPON_SIG_THRES_10_EXP_4 = 1,
    VX_GPON_SIG_THRES_10_EXP_5 = 2,
    VX_GPON_SIG_THRES_10_EXP_6 = 3,
    VX_GPON_SIG_THRES_10_EXP_7 = 4,
    VX_GPON_SIG_THRES_10_EXP_8 = 5,
    VX_GPON_SIG_THRES_10_EXP_9 = 6,
    VX_GPON_SIG_THRES_10_EXP_10 = 7,
    VX_GPON_SIG_THRES_10_EXP_11 = 8,
} vx_gpon_signal_thres_val_t;

typedef struct {
    vx_uint8 vendor_id[4];
    vx_uint32 serial_num;
    vx_uint8 passwd[10];
    vx_gpon_dba_blk_len_t dbru_blk_len;
    vx_int16 laser_on_time;
    vx_uint16 laser_prebias_time;
    vx_boolean fec_bypass_enbl;
    vx_boolean aes_enbl;
    vx_gpon_signal_thres_val_t sf_threshold;
    vx_gpon_signal_thres_val_t sf_clear_threshold;
    vx_gpon_signal_thres_val_t sd_threshold;
    vx_gpon_signal_thres_val_t sd_clear_threshold;
    vx_uint8 onu_id;
    vx_gpon_onu_state_t onu_state;
    vx_int16 omci_port;
    vx_uint16 num_tcont;
    vx_uint16 num_gem;
    struct {
        vx_uint32 vendor_id : 1;
        vx_uint32 serial_num : 1;
        vx_uint32 passwd : 1;
        vx_uint32 dbru_blk_len : 1;
        vx_uint32 laser_on_time : 1;
        vx_uint32 laser_prebias_time : 1;
        vx_uint32 fec_bypass_enbl : 1;
        vx_uint32 aes_enbl : 1;
        vx_uint32 sf_threshold : 1;
        vx_uint32 sf_clear_threshold : 1;
        vx_uint32 sd_threshold : 1;
        vx_uint32 sd_clear_threshold : 1;
    } valid;
} vx_gpon_port_cfg_t;

typedef struct {
    vx_uint16 alloc_id;
} vx_tcont_cfg_t;

typedef struct {
    vx_uint16 tcont_id;
    vx_uint16 alloc_id;
    vx_uint16 tcont_subport_id;
} vx_tcont_alloc_id_t;

typedef struct {
    vx_boolean enbl_status;
    vx_uint16 alloc_id;
    vx_uint16 tcont_subport_id;
    vx_uint16 num_gem_ports;
    vx_uint16 gem_ports[VX_MAX_GEM_PORTS];
} vx_tcont_info_t;

typedef struct {
    lmq_dir_e direction;
    vx_uint16 tcont_id;
    vx_boolean aes_enable;
    vx_boolean multicast;
} vx_gem_port_cfg_t;

typedef struct {
    vx_uint16 gem_port_id;
    vx_boolean gem_status;
    lmq_dir_e direction;
    vx_uint16 tcont_id;
    vx_uint16 alloc_id;
    vx_uint16 gem_subport_id;
    vx_boolean aes;
    vx_boolean multicast;
} vx_gem_port_info_t;

vx_status_e vx_gpon_onu_port_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enable);

vx_status_e vx_gpon_onu_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_port_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_port_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_tcont_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id, vx_boolean enable, vx_tcont_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_tcont_info_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id, vx_tcont_info_t *p_info);

vx_status_e vx_gpon_onu_active_tcont_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_tcont_alloc_id_t *p_tcont_id, vx_uint16 *p_num_tconts);

vx_status_e vx_gpon_onu_gem_port_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id, vx_gem_port_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_gem_port_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id);

vx_status_e vx_gpon_onu_gem_port_id_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 index, vx_uint16 *p_gem_port_id);

vx_status_e vx_gpon_onu_gem_port_info_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id, vx_gem_port_info_t *p_info);

vx_status_e vx_gpon_onu_active_gem_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gem_port_info_t *p_info, vx_uint16 *p_num_gem_ports);

vx_status_e vx_gpon_onu_gem_port_loopback_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id, vx_boolean loopback_enbl);

vx_status_e vx_gpon_onu_ploam_ds_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_uint8 *p_message, vx_uint8 *p_num);

vx_status_e vx_gpon_onu_ploam_us_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_uint8 *p_message, vx_uint8 num);

vx_status_e vx_gpon_onu_laser_mode_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_pon_laser_ctrl_mode_t mode, vx_uint8 dir);

vx_status_e vx_gpon_onu_state_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_gpon_onu_state_t onu_state);

vx_status_e vx_gpon_ploamd_mask_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_boolean overhead_enable, vx_boolean mask_enable);

vx_status_e vx_gpon_signal_status_get(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean *p_active);

#ifdef __cplusplus
}
#endif

#endif
