/**
 * @file
 * @brief IP addresses of either version, as every family of the driver interface takes them.
 */
#ifndef LMQ_ADDRESS_H
#define LMQ_ADDRESS_H

#include "lmq/types.h"

/** @brief Which version an address has: the selector of vx_ip_addr_t. */
typedef enum vx_ip_ver_t LMQ_ENUM_INT {
    VX_IPV4 = 0,
    VX_IPV6 = 1,
    VX_IP_DONTCARE = 2,
} vx_ip_ver_t;

/** @brief An IPv4 address. */
typedef struct {
    vx_uint32 s_addr; /**< The address as a number: 1.2.3.4 is 0x01020304. */
} vx_in_addr_t;

/** @brief An IPv6 address (RFC 4291): three views of the same 16 bytes. */
typedef struct {
    union {
        vx_uint8 u6_addr8[16];
        vx_uint16 u6_addr16[8];
        vx_uint32 u6_addr32[4];
    } in6_u;
} vx_in6_addr_t;

/** @brief An address of either version. */
typedef struct {
    union {
        vx_in_addr_t v4;
        vx_in6_addr_t v6;
    } addr;
    vx_ip_ver_t ip_ver; /**< Which alternative of addr counts. */
} vx_ip_addr_t;

#endif
