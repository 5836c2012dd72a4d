/**
 * @file
 * @brief Scalar types of the driver interface, and what every other header of it needs.
 *
 * All headers in this folder are C11 and also compile as C++. They can be swapped for the headers that come with a
 * driver: the plug-in takes its layouts from whichever it is built against.
 */
#ifndef LMQ_TYPES_H
#define LMQ_TYPES_H

/**
 * @brief Gives an enum the width and the range of a 32-bit int.
 *
 * Any int may arrive from the wire in an enum type. With a fixed underlying type every int is a value of the enum in
 * C++, so that carrying it is no undefined behaviour; in C an enum is an integer type of that size anyway.
 */
#ifdef __cplusplus
#define LMQ_ENUM_INT : int
#else
#define LMQ_ENUM_INT
#endif

typedef char vx_char;
typedef signed char vx_int8;
typedef unsigned char vx_uint8;
typedef short vx_int16;
typedef unsigned short vx_uint16;
typedef int vx_int32;
typedef unsigned int vx_uint32;
typedef long long vx_int64;
typedef unsigned long long vx_uint64;

typedef vx_uint8 vx_boolean;       /**< FALSE or TRUE. */
typedef vx_uint8 vx_mac_addr_t[6]; /**< An IEEE 802 MAC address, in the order of transmission. */

typedef vx_uint8 vx_dev_id_t;   /**< A device, from 0; LMQ_NUM_DEVICES of them. */
typedef vx_uint16 vx_port_id_t; /**< A port of a device. */
typedef vx_uint16 vx_vid_t;     /**< A VLAN identifier (IEEE 802.1Q, 12 bits). */
typedef vx_uint32 vx_addr;      /**< An address in the device's register space. */
typedef vx_uint32 vx_reg;       /**< The content of a register. */

#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif
#define VX_OK 0x0
#define DEFAULT_DEVICE_ID 0
#define VX_INVALID_PORT_ID (0xFFFF)

/** @name Sizes of the chip */
/** @{ */
#define LMQ_NUM_DEVICES 1        /**< Devices that one driver drives. */
#define LMQ_PORT_ETH_NUM 2       /**< Ethernet ports of a device. */
#define VX_MAX_NUM_TCONT_QUEUE 8 /**< Priority queues of a T-CONT. */
/** @} */

#endif
