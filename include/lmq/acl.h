/**
 * @file
 * @brief Access control of packets that come in by a port: unknown flows, custom packet fields and custom filters.
 */
#ifndef LMQ_ACL_H
#define LMQ_ACL_H

#include "lmq/flow.h"
#include "lmq/l2.h"
#include "lmq/status.h"
#include "lmq/types.h"
#include "lmq/vlan_bridge.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Rules */
/** @{ */

#define LMQ_MIN_ACL_PRI 0                                   /**< Lowest number of a priority. */
#define LMQ_MAX_ACL_PRI 14                                  /**< Highest number of a priority. */
#define LMQ_INVALID_ACL_RULE_ID ((lmq_acl_rule_id_t)0xffff) /**< No rule. */

/** @} */

/** @name Packets of unknown flows */
/** @{ */

/**
 * @brief Lets packets of a port pass that match no flow.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_unknown_flow_allow(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Drops packets of a port that match no flow.
 * @par Effect: changes
 * @par Read back: vx_acl_unknown_flow_status_get if p_allow=FALSE
 * @par Undone by: vx_acl_unknown_flow_allow
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_unknown_flow_block(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads whether packets of a port that match no flow pass.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_allow TRUE when they pass.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_unknown_flow_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *p_allow);

/** @} */

/** @name Custom field parser */
/** @{ */

/** @brief Packets that the parser looks into: bits. */
typedef enum vx_acl_custom_field_pkt_type_bitmap_enum_t LMQ_ENUM_INT {
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_NON_IP = 1,         /**< Packets that are not IP. */
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_TCP_UDP_IP = 2,     /**< IP packets with TCP or UDP. */
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_NON_TCP_UDP_IP = 4, /**< IP packets with neither. */
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_ALL = 7,            /**< All packets. */
} vx_acl_custom_field_pkt_type_bitmap_enum_t;

/** @brief How the parser finds a field: at a fixed offset, or from a reference point. */
typedef enum vx_acl_custom_field_ext_mode_t LMQ_ENUM_INT {
    VX_ACL_CUSTOM_FIELD_EXT_MODE_STATIC = 0, /**< At static_mode_offset. */
    VX_CUSTOM_FIELD_EXT_MODE_DYNAMIC = 1,    /**< From the reference point of the field. */
} vx_acl_custom_field_ext_mode_t;

/** @brief The parser that takes custom fields out of the packets of a port. */
typedef struct {
    vx_acl_custom_field_ext_mode_t ext_mode; /**< At a fixed offset, or from a reference point. */
    vx_uint8 static_mode_offset;             /**< Offset from the start of the packet; read in static mode. */
    vx_acl_custom_field_pkt_type_bitmap_t pkt_type_bitmap; /**< Packets that the parser looks into. */
} vx_acl_custom_field_parser_cfg_t;

/**
 * @brief Sets the parser that takes custom fields out of the packets of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   How it finds fields, and in which packets.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_field_parser_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                                  vx_acl_custom_field_parser_cfg_t *p_cfg);

/**
 * @brief Reads how the parser takes custom fields out of the packets of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_cfg   How it finds fields, and in which packets.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_field_parser_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                                  vx_acl_custom_field_parser_cfg_t *p_cfg);

/** @} */

/** @name Custom packet fields */
/** @{ */

/** @brief What a field begins at. */
typedef enum vx_acl_custom_field_ext_ref_point_t LMQ_ENUM_INT {
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L2_HDR = 0,       /**< The header of layer 2. */
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L3_HDR = 1,       /**< The IP header. */
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L4_HDR = 2,       /**< The TCP or UDP header. */
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_START_OF_PKT = 3, /**< The start of the packet. */
} vx_acl_custom_field_ext_ref_point_t;

/** @brief An entry of the table of custom packet fields: 16 bits of a packet. */
typedef struct {
    vx_boolean valid; /**< The entry is in use. A member like the others; the flags are in mask. */
    vx_acl_custom_field_ext_ref_point_t ref_point; /**< What the field begins at. */
    vx_uint16 key;                                 /**< What the field is compared with. */
    vx_uint16 valid_bitmap;                        /**< {bits} 1: the bit of key is compared. */
    vx_boolean lsb_or_msb;                         /**< Which half of a word the field is. */
    struct {
        vx_uint32 ref_point : 1;
        vx_uint32 key : 1;
        vx_uint32 valid_bitmap : 1;
        vx_uint32 lsb_or_msb : 1;
    } mask; /**< Which members count. */
} vx_acl_custom_pkt_field_tbl_entry_t;

/**
 * @brief Adds, deletes or changes an entry of the table of custom packet fields.
 *
 * An entry that a filter names is not deleted.
 * @par Effect: changes
 * @par Read back: vx_acl_custom_pkt_field_table_get: tbl_indx=#p_entry[], op_mode=VX_ACL_OP_ADD, p_entry=p_entry[] if
 *     p_entry[].valid!=0
 * @par Undone by: vx_acl_custom_pkt_field_table_set(op_mode=VX_ACL_OP_DELETE)
 * @param[in] dev_id   The device.
 * @param[in] port_id  The port.
 * @param[in] tbl_indx {0..7} Index of the entry.
 * @param[in] op_mode  What to do with it.
 * @param[in] p_entry  The entry; VX_ACL_OP_MODIFY takes the members that `mask` flags, VX_ACL_OP_DELETE none.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_field_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                              vx_acl_op_mode_t op_mode, vx_acl_custom_pkt_field_tbl_entry_t *p_entry);

/**
 * @brief Reads the table of custom packet fields.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_entry [8] The entries by their index; one that is not in use is all zeros.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_field_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                              vx_acl_custom_pkt_field_tbl_entry_t *p_entry);

/** @} */

/** @name Custom packet filters */
/** @{ */

/** @brief The key of a filter: of an upstream or of a downstream flow, as the port is a UNI or the SNI. */
typedef union {
    vx_flow_us_key_t us; /**< Packets from a UNI. */
    vx_flow_ds_key_t ds; /**< Packets from the SNI. */
} vx_flow_key_t;

/** @brief A filter of packets that come in by a port. */
typedef struct {
    vx_l2_filter_type_t filter_type; /**< Positive: packets that match pass; negative: they are dropped. */
    vx_flow_key_t flow_key;          /**< {id acl-filter} Which packets match; filters are told apart by it. */
} vx_acl_custom_pkt_filter_t;

/**
 * @brief Adds a filter to packets that come in by a port. It overrides all other forwarding.
 *
 * A key that names entries of the table of custom packet fields needs all of them in use.
 * @par Effect: changes
 * @par Read back: vx_acl_custom_pkt_filter_get: p_entry=p_entry[]
 * @par Undone by: vx_acl_custom_pkt_filter_delete
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_entry The filter; LMQ_FILTER_DISABLE deletes the one with its key.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_filter_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_custom_pkt_filter_t *p_entry);

/**
 * @brief Deletes a filter of packets that come in by a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_entry The filter, by its whole key; its type is not looked at.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_filter_delete(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                            vx_acl_custom_pkt_filter_t *p_entry);

/**
 * @brief Lists the filters of packets that come in by a port.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  port_id     The port.
 * @param[in]  req_cnt     How many there is room for.
 * @param[out] p_entry     [req_cnt; *p_valid_cnt filled] The filters, in the order of their addition.
 * @param[out] p_valid_cnt How many were filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 req_cnt,
                                         vx_acl_custom_pkt_filter_t *p_entry, vx_uint16 *p_valid_cnt);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
