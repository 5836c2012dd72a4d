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
    LMQ_PON_FIBER_ONLY_PROTECTION_MASK = 1, /**< The fibre alone is doubled. */
    LMQ_PON_1_1_PROTECTION_MASK = 2,        /**< One more PON stands by (1:1, ITU-T G.984.1). */
    LMQ_PON_1_PLUS_1_PROTECTION_MASK = 4,   /**< Two PONs carry the same traffic (1+1). */
} lmq_pon_protection_type_mask_t;

/** @brief Direction of a GEM port: bits. */
typedef enum lmq_dir_e LMQ_ENUM_INT {
    LMQ_DIR_NONE = 0, /**< Neither. */
    LMQ_DIR_US = 1,   /**< Upstream, towards the OLT. */
    LMQ_DIR_DS = 2,   /**< Downstream, from the OLT. */
    LMQ_DIR_BOTH = 3, /**< Upstream and downstream. */
} lmq_dir_e;

/** @brief When the laser shines. */
typedef enum vx_pon_laser_ctrl_mode_t LMQ_ENUM_INT {
    VX_PON_LASER_ALWAYS_OFF = 0,      /**< Never: the ONU cannot be heard. */
    VX_PON_LASER_BURST_OPERATION = 1, /**< In the time that the OLT grants, as the PON needs it. */
    VX_PON_LASER_ALWAYS_ON = 2,       /**< All the time, for tests; it disturbs the other ONUs. */
} vx_pon_laser_ctrl_mode_t;

/** @brief Length of a block in an upstream bandwidth report (DBRu, ITU-T G.984.3). */
typedef enum vx_gpon_dba_blk_len_t LMQ_ENUM_INT {
    VX_GPON_DBA_BLK_LEN_32 = 0,  /**< 32 bytes. */
    VX_GPON_DBA_BLK_LEN_48 = 1,  /**< 48 bytes. */
    VX_GPON_DBA_BLK_LEN_64 = 2,  /**< 64 bytes. */
    VX_GPON_DBA_BLK_LEN_128 = 3, /**< 128 bytes. */
} vx_gpon_dba_blk_len_t;

/** @brief A bit error rate, as a threshold. */
typedef enum vx_gpon_signal_thres_val_t LMQ_ENUM_INT {
    VX_GPON_SIG_THRES_10_EXP_3 = 0,  /**< 10 to the power of -3. */
    VX_GPON_SIG_THRES_10_EXP_4 = 1,  /**< 10 to the power of -4. */
    VX_GPON_SIG_THRES_10_EXP_5 = 2,  /**< 10 to the power of -5. */
    VX_GPON_SIG_THRES_10_EXP_6 = 3,  /**< 10 to the power of -6. */
    VX_GPON_SIG_THRES_10_EXP_7 = 4,  /**< 10 to the power of -7. */
    VX_GPON_SIG_THRES_10_EXP_8 = 5,  /**< 10 to the power of -8. */
    VX_GPON_SIG_THRES_10_EXP_9 = 6,  /**< 10 to the power of -9. */
    VX_GPON_SIG_THRES_10_EXP_10 = 7, /**< 10 to the power of -10. */
    VX_GPON_SIG_THRES_10_EXP_11 = 8, /**< 10 to the power of -11. */
} vx_gpon_signal_thres_val_t;

/**
 * @brief The GPON port (ITU-T G.984.3): what it is set to, and behind that what it has come to.
 *
 * A set takes the members that `valid` flags. The five members without a flag are reports: a get fills them.
 */
typedef struct {
    vx_uint8 vendor_id[4];                   /**< {text} First part of the serial number: four letters. */
    vx_uint32 serial_num;                    /**< Second part of the serial number, specific to the vendor. */
    vx_uint8 passwd[10];                     /**< Password that the OLT may ask for (ITU-T G.984.3). */
    vx_gpon_dba_blk_len_t dbru_blk_len;      /**< In what blocks upstream traffic that waits is reported. */
    vx_int16 laser_on_time;                  /**< {bit times} How early the laser is switched on; may be negative. */
    vx_uint16 laser_prebias_time;            /**< {bit times} How early the laser gets its bias. */
    vx_boolean fec_bypass_enbl;              /**< TRUE: no forward error correction upstream. */
    vx_boolean aes_enbl;                     /**< TRUE: downstream traffic may be encrypted. */
    vx_gpon_signal_thres_val_t sf_threshold; /**< Error rate at which signal fail is raised. */
    vx_gpon_signal_thres_val_t sf_clear_threshold; /**< Error rate at which signal fail is cleared. */
    vx_gpon_signal_thres_val_t sd_threshold;       /**< Error rate at which signal degrade is raised. */
    vx_gpon_signal_thres_val_t sd_clear_threshold; /**< Error rate at which signal degrade is cleared. */
    vx_uint8 onu_id;                               /**< {report} Number of the ONU, given by the OLT; 255 for none. */
    vx_gpon_onu_state_t onu_state;                 /**< {report} State of activation, O1 to O7. */
    vx_int16 omci_port;  /**< {report} GEM port of the management channel, given by the OLT; -1 for none. */
    vx_uint16 num_tcont; /**< {report} T-CONTs that are enabled. */
    vx_uint16 num_gem;   /**< {report} GEM ports that were added. */
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
    vx_uint16 alloc_id; /**< {0..4095} The OLT's number of the T-CONT, which no other has (12 bits). */
} vx_tcont_cfg_t;

/** @brief A T-CONT and its Alloc-Id. */
typedef struct {
    vx_uint16 tcont_id;         /**< {id tcont} The driver's number. */
    vx_uint16 alloc_id;         /**< {0..4095} The OLT's number (12 bits). */
    vx_uint16 tcont_subport_id; /**< Its number among the ports of the PON, from LMQ_PORT_TCONT_BASE. */
} vx_tcont_alloc_id_t;

/** @brief A T-CONT, with the GEM ports that are mapped to it. */
typedef struct {
    vx_boolean enbl_status;                /**< TRUE: the T-CONT is enabled. */
    vx_uint16 alloc_id;                    /**< {0..4095} The OLT's number (12 bits). */
    vx_uint16 tcont_subport_id;            /**< Its number among the ports of the PON, from LMQ_PORT_TCONT_BASE. */
    vx_uint16 num_gem_ports;               /**< {0..VX_MAX_GEM_PORTS} Elements of gem_ports that count. */
    vx_uint16 gem_ports[VX_MAX_GEM_PORTS]; /**< {id gem-port} GEM ports that it carries upstream. */
} vx_tcont_info_t;

/** @brief What a GEM port is added with. */
typedef struct {
    lmq_dir_e direction;   /**< {1..3} Where the port carries packets to. */
    vx_uint16 tcont_id;    /**< {id tcont} T-CONT that carries it upstream; not looked at with LMQ_DIR_DS. */
    vx_boolean aes_enable; /**< TRUE: the port is encrypted; vx_gem_port_info_t calls the same aes. */
    vx_boolean multicast;  /**< TRUE: it carries multicast packets. */
} vx_gem_port_cfg_t;

/** @brief A GEM port. */
typedef struct {
    vx_uint16 gem_port_id;    /**< {id gem-port} The OLT's number. */
    vx_boolean gem_status;    /**< TRUE: the port was added. */
    lmq_dir_e direction;      /**< Where the port carries packets to. */
    vx_uint16 tcont_id;       /**< {id tcont} T-CONT that carries it upstream. */
    vx_uint16 alloc_id;       /**< The OLT's number of that T-CONT; LMQ_INVALID_ID16 if nothing carries it upstream. */
    vx_uint16 gem_subport_id; /**< Its number among the ports of the PON, from LMQ_PORT_GEM_BASE. */
    vx_boolean aes;           /**< TRUE: the port is encrypted. */
    vx_boolean multicast;     /**< TRUE: it carries multicast packets. */
} vx_gem_port_info_t;

/** @name Port */
/** @{ */

/**
 * @brief Sets the members of the GPON port that valid flags.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id pon-port} The PON port.
 * @param[in] p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_port_cfg_t *p_cfg);

/**
 * @brief Reads what the GPON port is set to, and what it has come to.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id pon-port} The PON port.
 * @param[out] p_cfg   The port; valid flags every member that a set can take.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_port_cfg_t *p_cfg);

/**
 * @brief Activates the GPON port for ranging, or leaves the PON.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id pon-port} The PON port.
 * @param[in] enable  TRUE to activate, which changes nothing in an active port; FALSE to leave.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_port_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enable);

/**
 * @brief Forces a state of the ONU.
 *
 * The ONU stays in it until another is forced, or the port is activated or left.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] port_id   {id pon-port} The PON port.
 * @param[in] onu_state {VX_GPON_STATE_INITIAL..VX_GPON_STATE_ESTOP} The state.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_state_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_gpon_onu_state_t onu_state);

/**
 * @brief Sets when the laser shines.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id pon-port} The PON port.
 * @param[in] mode    When.
 * @param[in] dir     A number whose meaning is the chip's.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_laser_mode_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_pon_laser_ctrl_mode_t mode,
                                       vx_uint8 dir);

/**
 * @brief Reads whether there is a signal.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_id  {id pon-port} The PON port.
 * @param[out] p_active TRUE: there is a signal from the OLT.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_signal_status_get(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean *p_active);

/** @} */

/** @name T-CONTs */
/** @{ */

/**
 * @brief Enables a T-CONT that is not the default one and gives it its Alloc-Id, or disables it.
 *
 * A T-CONT that carries GEM ports cannot be disabled. Enabling one again gives it another Alloc-Id.
 * @par Effect: changes
 * @par Read back: vx_gpon_onu_active_tcont_get: tcont_id=p_tcont_id[].tcont_id, enable=TRUE, p_cfg=p_tcont_id[]
 * @par Undone by: vx_gpon_onu_tcont_enable_set(enable=FALSE)
 * @par Changed by: vx_gpon_onu_tcont_enable_set(port_id, tcont_id)
 * @param[in] dev_id   The device.
 * @param[in] port_id  {id pon-port} The PON port.
 * @param[in] tcont_id {id tcont} The T-CONT.
 * @param[in] enable   TRUE to enable, FALSE to disable.
 * @param[in] p_cfg    Its Alloc-Id; not read, and may be NULL, when it is disabled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id,
                                         vx_boolean enable, vx_tcont_cfg_t *p_cfg);

/**
 * @brief Reads a T-CONT that is enabled, and the GEM ports that are mapped to it.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_id  {id pon-port} The PON port.
 * @param[in]  tcont_id {id tcont} The T-CONT.
 * @param[out] p_info   The T-CONT.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_info_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id,
                                       vx_tcont_info_t *p_info);

/**
 * @brief Reads all T-CONTs that are enabled.
 * @par Effect: reads
 * @param[in]     dev_id       The device.
 * @param[in]     port_id      {id pon-port} The PON port.
 * @param[out]    p_tcont_id   [*p_num_tconts or VX_GPON_MAX_TCONTS] The T-CONTs.
 * @param[in,out] p_num_tconts Room for T-CONTs, 0 for all; then how many there are, which may be more than the room.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_active_tcont_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_tcont_alloc_id_t *p_tcont_id,
                                         vx_uint16 *p_num_tconts);

/** @} */

/** @name GEM ports */
/** @{ */

/**
 * @brief Adds a GEM port, and maps it to a T-CONT.
 * @par Effect: changes
 * @par Read back: vx_gpon_onu_active_gem_port_get: gem_port_id=p_info[].gem_port_id, p_cfg=p_info[],
 *     p_cfg.aes_enable=p_info[].aes
 * @par Undone by: vx_gpon_onu_gem_port_delete
 * @param[in] dev_id      The device.
 * @param[in] port_id     {id pon-port} The PON port.
 * @param[in] gem_port_id {id gem-port} The GEM port.
 * @param[in] p_cfg       Direction, T-CONT and encryption.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id,
                                     vx_gem_port_cfg_t *p_cfg);

/**
 * @brief Deletes a GEM port.
 *
 * Its queue maps, its rate limit, its places in bridges and its counters go with it. Flows keep its number.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] port_id     {id pon-port} The PON port.
 * @param[in] gem_port_id {id gem-port} The GEM port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id);

/**
 * @brief Reads the OLT's number of a GEM port from the chip's.
 * @par Effect: reads
 * @param[in]  dev_id        The device.
 * @param[in]  port_id       {id pon-port} The PON port.
 * @param[in]  index         {0..(VX_MAX_GEM_PORTS - 1)} Index in the GPON block.
 * @param[out] p_gem_port_id {id gem-port} The OLT's number.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_id_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 index,
                                        vx_uint16 *p_gem_port_id);

/**
 * @brief Reads a GEM port that was added.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  port_id     {id pon-port} The PON port.
 * @param[in]  gem_port_id {id gem-port} The GEM port.
 * @param[out] p_info      The GEM port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_info_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id,
                                          vx_gem_port_info_t *p_info);

/**
 * @brief Reads all GEM ports that were added.
 * @par Effect: reads
 * @param[in]     dev_id          The device.
 * @param[in]     port_id         {id pon-port} The PON port.
 * @param[out]    p_info          [*p_num_gem_ports or VX_MAX_GEM_PORTS] The GEM ports.
 * @param[in,out] p_num_gem_ports Room for GEM ports, 0 for all; then how many there are, which may be more
 *                                than the room.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_active_gem_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gem_port_info_t *p_info,
                                            vx_uint16 *p_num_gem_ports);

/**
 * @brief Switches loopback of a GEM port.
 *
 * The flows that are mapped to the port are blocked as long as it is on.
 * @par Effect: changes
 * @param[in] dev_id        The device.
 * @param[in] port_id       {id pon-port} The PON port.
 * @param[in] gem_port_id   {id gem-port} The GEM port.
 * @param[in] loopback_enbl TRUE to loop packets back.
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
 * @par Effect: reads and clears
 * @param[in]     dev_id    The device.
 * @param[in]     port_num  {id pon-port} The PON port.
 * @param[out]    p_message [*p_num] The message (ITU-T G.984.3).
 * @param[in,out] p_num     {bytes} Room, at least 13; and then the length of the message, 0 for none.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_ploam_ds_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_uint8 *p_message, vx_uint8 *p_num);

/**
 * @brief Sends a message upstream.
 *
 * The ONU has to be in a state from O3 to O6, and its laser must not be off.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] port_num  {id pon-port} The PON port.
 * @param[in] p_message [num] The message (ITU-T G.984.3).
 * @param[in] num       {13..13 bytes} Length of the message.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_ploam_us_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_uint8 *p_message, vx_uint8 num);

/**
 * @brief Switches the mask of downstream messages.
 * @par Effect: changes
 * @param[in] dev_id          The device.
 * @param[in] port_num        {id pon-port} The PON port.
 * @param[in] overhead_enable TRUE: Upstream_Overhead messages are handed on in any case.
 * @param[in] mask_enable     TRUE to mask: downstream messages are dropped.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_ploamd_mask_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_boolean overhead_enable,
                                    vx_boolean mask_enable);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
