/**
 * @file
 * @brief IP addresses of either version, as every family of the driver interface takes them.
 */
#ifndef LMQ_ADDRESS_H
#define LMQ_ADDRESS_H

#include "lmq/types.h"

/** @brief Which version an address has: the selector of vx_ip_addr_t. */
typedef enum vx_ip_ver_t LMQ_ENUM_INT {
    VX_IPV4 = 0,        /**< An IPv4 address. */
    VX_IPV6 = 1,        /**< An IPv6 address. */
    VX_IP_DONTCARE = 2, /**< No address: whatever asks for one takes any. */
} vx_ip_ver_t;

/** @brief An IPv4 address. */
typedef struct {
    vx_uint32 s_addr; /**< {ipv4} The address as a number: 1.2.3.4 is 0x01020304. */
} vx_in_addr_t;

/** @brief An IPv6 address (RFC 4291): three views of the same 16 bytes. */
typedef struct {
    union {
        vx_uint8 u6_addr8[16];  /**< {ipv6} Byte by byte, in the order of transmission. */
        vx_uint16 u6_addr16[8]; /**< Two bytes at a time, as the processor reads them. */
        vx_uint32 u6_addr32[4]; /**< Four bytes at a time, as the processor reads them. */
    } in6_u;                    /**< {overlaid} The 16 bytes. */
} vx_in6_addr_t;

/** @brief An address of either version. */
typedef struct {
    union {
        vx_in_addr_t v4;  /**< {if VX_IPV4} The IPv4 address. */
        vx_in6_addr_t v6; /**< {if VX_IPV6} The IPv6 address. */
    } addr;               /**< {by ip_ver} The address itself; with VX_IP_DONTCARE it is not read. */
    vx_ip_ver_t ip_ver;   /**< Which alternative of addr counts. */
} vx_ip_addr_t;

#endif
