/**
 * @file
 * @brief The GPON port as an ONU (ITU-T G.984): activation, T-CONTs, GEM ports and the PLOAM channel.
 */
#ifndef LMQ_GPON_H
#define LMQ_GPON_H

#include "lmq/event.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Lengths of what identifies an ONU, in bytes */
/** @{ */
#define VX_ONU_LOID_PSWD_LEN 16
#define VX_ONU_LOID_LEN 24 /**< Logical ONU id. */
#define VX_ONU_HW_SN_LEN 16
#define VX_GPON_VENDOR_ID_LEN 4 /**< ITU-T G.984.3: the first part of the serial number. */
#define VX_GPON_PASSWD_LEN 10   /**< ITU-T G.984.3: the password. */
/** @} */

/** @name Port numbers of GEM ports and T-CONTs, where they are counted as ports of the PON */
/** @{ */
#define LMQ_PORT_GEM_BASE 0
#define LMQ_PORT_TCONT_BASE 64
/** @} */

/** @brief Types of PON protection that a device has: bits. */
typedef enum lmq_pon_protection_type_mask_t LMQ_ENUM_INT {
    LMQ_PON_FIBER_ONLY_PROTECTION_MASK = 1,
    LMQ_PON_1_1_PROTECTION_MASK = 2,
    LMQ_PON_1_PLUS_1_PROTECTION_MASK = 4,
} lmq_pon_protection_type_mask_t;

/** @brief Direction of a GEM port: upstream (US), downstream (DS) or both. */
typedef enum lmq_dir_e LMQ_ENUM_INT {
    LMQ_DIR_NONE = 0,
    LMQ_DIR_US = 1,
    LMQ_DIR_DS = 2,
    LMQ_DIR_BOTH = 3,
} lmq_dir_e;

/** @brief When the laser shines. Burst operation is what the PON needs; the others are for tests. */
typedef enum vx_pon_laser_ctrl_mode_t LMQ_ENUM_INT {
    VX_PON_LASER_ALWAYS_OFF = 0,
    VX_PON_LASER_BURST_OPERATION = 1,
    VX_PON_LASER_ALWAYS_ON = 2,
} vx_pon_laser_ctrl_mode_t;

/** @brief Length of a block in an upstream bandwidth report (DBRu, ITU-T G.984.3), in bytes. */
typedef enum vx_gpon_dba_blk_len_t LMQ_ENUM_INT {
    VX_GPON_DBA_BLK_LEN_32 = 0,
    VX_GPON_DBA_BLK_LEN_48 = 1,
    VX_GPON_DBA_BLK_LEN_64 = 2,
    VX_GPON_DBA_BLK_LEN_128 = 3,
} vx_gpon_dba_blk_len_t;

/** @brief A bit error rate: 10 to the power of minus the number in the name. */
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

/**
 * @brief The GPON port (ITU-T G.984.3): what it is set to, and behind that what it has come to.
 *
 * A set takes the members that `valid` flags. The five members without a flag are reports: a get fills them.
 */
typedef struct {
    vx_uint8 vendor_id[4]; /**< First part of the serial number: four letters. */
    vx_uint32 serial_num;  /**< Its second part, specific to the vendor. */
    vx_uint8 passwd[10];   /**< Password of the ranging protocol. */
    vx_gpon_dba_blk_len_t dbru_blk_len;
    vx_int16 laser_on_time;                        /**< In bit times; may be negative. */
    vx_uint16 laser_prebias_time;                  /**< In bit times. */
    vx_boolean fec_bypass_enbl;                    /**< No forward error correction upstream. */
    vx_boolean aes_enbl;                           /**< Downstream may be encrypted. */
    vx_gpon_signal_thres_val_t sf_threshold;       /**< Signal fail is raised at this rate. */
    vx_gpon_signal_thres_val_t sf_clear_threshold; /**< Signal fail is cleared at this rate. */
    vx_gpon_signal_thres_val_t sd_threshold;       /**< Signal degrade is raised at this rate. */
    vx_gpon_signal_thres_val_t sd_clear_threshold; /**< Signal degrade is cleared at this rate. */
    vx_uint8 onu_id;                               /**< Given by the OLT; 255 for none. */
    vx_gpon_onu_state_t onu_state;
    vx_int16 omci_port;  /**< GEM port of the management channel, given by the OLT; -1 for none. */
    vx_uint16 num_tcont; /**< T-CONTs that are enabled. */
    vx_uint16 num_gem;   /**< GEM ports that were added. */
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

/** @brief What a T-CONT is enabled with. */
typedef struct {
    vx_uint16 alloc_id; /**< Given by the OLT. */
} vx_tcont_cfg_t;

/** @brief A T-CONT and its Alloc-Id. */
typedef struct {
    vx_uint16 tcont_id;         /**< The driver's number. */
    vx_uint16 alloc_id;         /**< The OLT's number. */
    vx_uint16 tcont_subport_id; /**< Its number among the ports of the PON, from LMQ_PORT_TCONT_BASE. */
} vx_tcont_alloc_id_t;

/** @brief A T-CONT, with the GEM ports that are mapped to it. */
typedef struct {
    vx_boolean enbl_status;
    vx_uint16 alloc_id;
    vx_uint16 tcont_subport_id; /**< Its number among the ports of the PON, from LMQ_PORT_TCONT_BASE. */
    vx_uint16 num_gem_ports;    /**< Elements of gem_ports that count. */
    vx_uint16 gem_ports[VX_MAX_GEM_PORTS];
} vx_tcont_info_t;

/** @brief What a GEM port is added with. */
typedef struct {
    lmq_dir_e direction;
    vx_uint16 tcont_id;    /**< T-CONT that carries it upstream. */
    vx_boolean aes_enable; /**< It is encrypted; vx_gem_port_info_t calls the same aes. */
    vx_boolean multicast;
} vx_gem_port_cfg_t;

/** @brief A GEM port. */
typedef struct {
    vx_uint16 gem_port_id; /**< The OLT's number, 12 bits. */
    vx_boolean gem_status; /**< The port was added. */
    lmq_dir_e direction;
    vx_uint16 tcont_id;       /**< T-CONT that carries it upstream. */
    vx_uint16 alloc_id;       /**< Of that T-CONT. */
    vx_uint16 gem_subport_id; /**< Its number among the ports of the PON, from LMQ_PORT_GEM_BASE. */
    vx_boolean aes;
    vx_boolean multicast;
} vx_gem_port_info_t;

/** @name Port */
/** @{ */

/**
 * @brief Sets the members of the GPON port that `valid` flags.
 * @param dev_id  The device.
 * @param port_id The PON port.
 * @param p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_port_cfg_t *p_cfg);

/**
 * @brief Reads the GPON port.
 * @param dev_id  The device.
 * @param port_id The PON port.
 * @param p_cfg   Where to write it; `valid` reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_port_cfg_t *p_cfg);

/**
 * @brief Activates the GPON port for ranging.
 * @param dev_id  The device.
 * @param port_id The PON port.
 * @param enable  TRUE to activate, FALSE to leave the PON.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_port_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enable);

/**
 * @brief Forces a state of the ONU.
 * @param dev_id    The device.
 * @param port_id   The PON port.
 * @param onu_state The state.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_state_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_gpon_onu_state_t onu_state);

/**
 * @brief Sets when the laser shines.
 * @param dev_id  The device.
 * @param port_id The PON port.
 * @param mode    When.
 * @param dir     Direction that the mode holds for: a number of 8 bits.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_laser_mode_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_pon_laser_ctrl_mode_t mode,
                                       vx_uint8 dir);

/**
 * @brief Reads whether there is a signal.
 * @param dev_id   The device.
 * @param port_id  The PON port.
 * @param p_active Where to write it: TRUE or FALSE.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_signal_status_get(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean *p_active);

/** @} */

/** @name T-CONTs */
/** @{ */

/**
 * @brief Enables a T-CONT that is not the default one, and gives it its Alloc-Id.
 * @param dev_id   The device.
 * @param port_id  The PON port.
 * @param tcont_id The T-CONT, below VX_GPON_MAX_TCONTS.
 * @param enable   TRUE to enable.
 * @param p_cfg    Its Alloc-Id; not read when it is disabled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id,
                                         vx_boolean enable, vx_tcont_cfg_t *p_cfg);

/**
 * @brief Reads a T-CONT and the GEM ports that are mapped to it.
 * @param dev_id   The device.
 * @param port_id  The PON port.
 * @param tcont_id The T-CONT, below VX_GPON_MAX_TCONTS.
 * @param p_info   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_info_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id,
                                       vx_tcont_info_t *p_info);

/**
 * @brief Reads all T-CONTs that are enabled.
 * @param dev_id       The device.
 * @param port_id      The PON port.
 * @param p_tcont_id   Where to write them: an array of VX_GPON_MAX_TCONTS.
 * @param p_num_tconts Where to write how many.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_active_tcont_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_tcont_alloc_id_t *p_tcont_id,
                                         vx_uint16 *p_num_tconts);

/** @} */

/** @name GEM ports */
/** @{ */

/**
 * @brief Adds a GEM port, and maps it to a T-CONT.
 * @param dev_id      The device.
 * @param port_id     The PON port.
 * @param gem_port_id The GEM port, as the OLT numbers it: 12 bits.
 * @param p_cfg       Direction, T-CONT and the like.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id,
                                     vx_gem_port_cfg_t *p_cfg);

/**
 * @brief Deletes a GEM port.
 * @param dev_id      The device.
 * @param port_id     The PON port.
 * @param gem_port_id The GEM port, as the OLT numbers it: 12 bits.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id);

/**
 * @brief Reads the OLT's number of a GEM port from the chip's.
 * @param dev_id        The device.
 * @param port_id       The PON port.
 * @param index         Index in the GPON block, below VX_MAX_GEM_PORTS.
 * @param p_gem_port_id Where to write the OLT's number.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_id_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 index,
                                        vx_uint16 *p_gem_port_id);

/**
 * @brief Reads a GEM port.
 * @param dev_id      The device.
 * @param port_id     The PON port.
 * @param gem_port_id The GEM port, as the OLT numbers it: 12 bits.
 * @param p_info      Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_info_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id,
                                          vx_gem_port_info_t *p_info);

/**
 * @brief Reads all GEM ports.
 * @param dev_id          The device.
 * @param port_id         The PON port.
 * @param p_info          Where to write them: an array of VX_MAX_GEM_PORTS.
 * @param p_num_gem_ports Where to write how many.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_active_gem_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gem_port_info_t *p_info,
                                            vx_uint16 *p_num_gem_ports);

/**
 * @brief Switches loopback of a GEM port. It blocks the flows that are mapped to the port as long as it is on.
 * @param dev_id        The device.
 * @param port_id       The PON port.
 * @param gem_port_id   The GEM port, as the OLT numbers it: 12 bits.
 * @param loopback_enbl TRUE to loop.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_loopback_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id,
                                              vx_boolean loopback_enbl);

/** @} */

/** @name PLOAM channel
 *  ITU-T G.984.3: messages of the physical layer, 13 bytes each. */
/** @{ */

/**
 * @brief Takes the oldest downstream message that was received.
 * @param dev_id    The device.
 * @param port_num  The PON port.
 * @param p_message Where to write it.
 * @param p_num     Bytes that there is room for; where to write how many the message has, 0 for no message.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_ploam_ds_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_uint8 *p_message, vx_uint8 *p_num);

/**
 * @brief Sends a message upstream.
 * @param dev_id    The device.
 * @param port_num  The PON port.
 * @param p_message The message.
 * @param num       Its bytes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_ploam_us_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_uint8 *p_message, vx_uint8 num);

/**
 * @brief Switches the mask of downstream messages.
 * @param dev_id          The device.
 * @param port_num        The PON port.
 * @param overhead_enable Upstream_Overhead messages are handed on.
 * @param mask_enable     The mask is applied.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_ploamd_mask_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_boolean overhead_enable,
                                    vx_boolean mask_enable);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
