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
 * @brief Lets packets pass that match no flow.
 * @param dev_id  The device.
 * @param port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_unknown_flow_allow(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Drops packets that match no flow.
 * @param dev_id  The device.
 * @param port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_unknown_flow_block(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads whether packets that match no flow pass.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_allow Where to write it: TRUE when they pass.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_unknown_flow_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *p_allow);

/** @} */

/** @name Custom field parser */
/** @{ */

/** @brief Packets that the parser looks into: bits. */
typedef enum vx_acl_custom_field_pkt_type_bitmap_enum_t LMQ_ENUM_INT {
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_NON_IP = 1,
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_TCP_UDP_IP = 2,
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_NON_TCP_UDP_IP = 4,
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_ALL = 7,
} vx_acl_custom_field_pkt_type_bitmap_enum_t;

/** @brief How the parser finds a field: at a fixed offset, or from a reference point. */
typedef enum vx_acl_custom_field_ext_mode_t LMQ_ENUM_INT {
    VX_ACL_CUSTOM_FIELD_EXT_MODE_STATIC = 0,
    VX_CUSTOM_FIELD_EXT_MODE_DYNAMIC = 1,
} vx_acl_custom_field_ext_mode_t;

/** @brief The parser of a port. */
typedef struct {
    vx_acl_custom_field_ext_mode_t ext_mode;
    vx_uint8 static_mode_offset;                           /**< Offset from the start of the packet in static mode. */
    vx_acl_custom_field_pkt_type_bitmap_t pkt_type_bitmap; /**< Which packets. */
} vx_acl_custom_field_parser_cfg_t;

/**
 * @brief Sets the parser of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The parser.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_field_parser_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                                  vx_acl_custom_field_parser_cfg_t *p_cfg);

/**
 * @brief Reads the parser of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_field_parser_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                                  vx_acl_custom_field_parser_cfg_t *p_cfg);

/** @} */

/** @name Custom packet fields */
/** @{ */

/** @brief What a field begins at. */
typedef enum vx_acl_custom_field_ext_ref_point_t LMQ_ENUM_INT {
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L2_HDR = 0,
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L3_HDR = 1,
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L4_HDR = 2,
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_START_OF_PKT = 3,
} vx_acl_custom_field_ext_ref_point_t;

/** @brief An entry of the table of custom packet fields: 16 bits of a packet. */
typedef struct {
    vx_boolean valid; /**< The entry is in use. It is a member like the others; the flags are in mask. */
    vx_acl_custom_field_ext_ref_point_t ref_point;
    vx_uint16 key;          /**< What the field is compared with. */
    vx_uint16 valid_bitmap; /**< 1: the bit of key is compared. */
    vx_boolean lsb_or_msb;  /**< Which half of a word the field is. */
    struct {
        vx_uint32 ref_point : 1;
        vx_uint32 key : 1;
        vx_uint32 valid_bitmap : 1;
        vx_uint32 lsb_or_msb : 1;
    } mask; /**< Which members count. */
} vx_acl_custom_pkt_field_tbl_entry_t;

/**
 * @brief Adds, deletes or changes an entry of the table.
 * @param dev_id   The device.
 * @param port_id  The port.
 * @param tbl_indx The entry, 0 to 7.
 * @param op_mode  What to do.
 * @param p_entry  The entry; VX_ACL_OP_MODIFY takes the flagged members alone.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_field_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                              vx_acl_op_mode_t op_mode, vx_acl_custom_pkt_field_tbl_entry_t *p_entry);

/**
 * @brief Reads the table.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_entry Where to write the entries, from index 0. In: `valid` TRUE says that another element follows.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_field_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                              vx_acl_custom_pkt_field_tbl_entry_t *p_entry);

/** @} */

/** @name Custom packet filters */
/** @{ */

/** @brief The key of a filter: of an upstream or of a downstream flow, as the port is a UNI or the SNI. */
typedef union {
    vx_flow_us_key_t us;
    vx_flow_ds_key_t ds;
} vx_flow_key_t;

/** @brief A filter. */
typedef struct {
    vx_l2_filter_type_t filter_type; /**< Positive: packets that match pass; negative: they are dropped. */
    vx_flow_key_t flow_key;
} vx_acl_custom_pkt_filter_t;

/**
 * @brief Adds a filter to packets that come in by a port. It overrides all other forwarding.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_entry The filter; LMQ_FILTER_DISABLE deletes it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_filter_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_custom_pkt_filter_t *p_entry);

/**
 * @brief Deletes a filter.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_entry The filter, by its key.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_filter_delete(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                            vx_acl_custom_pkt_filter_t *p_entry);

/**
 * @brief Reads the filters of a port.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param req_cnt     How many p_entry has room for.
 * @param p_entry     Where to write them.
 * @param p_valid_cnt Where to write how many there are in p_entry.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_acl_custom_pkt_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 req_cnt,
                                         vx_acl_custom_pkt_filter_t *p_entry, vx_uint16 *p_valid_cnt);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
