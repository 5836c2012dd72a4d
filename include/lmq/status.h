/**
 * @file
 * @brief vx_status_e: what most driver functions return.
 *
 * Each family of statuses begins at a base of its own and counts on from there, as a C enum does, so that every status
 * is a distinct number. (The type dictionary answers other numbers for the statuses behind a base: see introspect/.)
 */
#ifndef LMQ_STATUS_H
#define LMQ_STATUS_H

#include "lmq/types.h"

#define VX_ERR_CODE_BASE 0x7000 /**< Where the statuses of the driver begin. */

/** @brief Result of a driver function: VX_SUCCESS, or what went wrong. */
typedef enum vx_status_e LMQ_ENUM_INT {
    VX_SUCCESS = 0, /**< The function did what it was asked. */

    /* Global */
    VX_ERR_GLBL_BASE = 0x7000, /**< Where the statuses of no family begin: the number of the first. */
    VX_ERR_GLBL_DRVR_NOT_LOADED = VX_ERR_GLBL_BASE, /**< The driver is not loaded. */
    VX_ERR_GLBL_DRVR_ALRDY_LOADED,                  /**< The driver is loaded already. */
    VX_ERR_GLBL_SYS_UNINTIALIZED,                   /**< The system is down: lmq_init_system comes first. */
    VX_ERR_GLBL_SYS_ALRDY_INTIALIZED,               /**< The system is up already. */
    VX_ERR_GLBL_INVALID_PARAMS, /**< Arguments that are each in range make no sense together, or are badly aligned. */
    VX_ERR_GLBL_NULL_PTR,       /**< A pointer is NULL, in a call that names no device. */
    VX_ERR_GLBL_MALLOC_FAIL,    /**< Memory is exhausted. */
    VX_ERR_GLBL_MUTEX_CREATE_FAIL,     /**< The operating system gave the driver no lock. */
    VX_ERR_GLBL_MUTEX_TAKE_FAIL,       /**< The driver could not take a lock. */
    VX_ERR_GLBL_MUTEX_GIVE_FAIL,       /**< The driver could not release a lock. */
    VX_ERR_GLBL_DUPLICATE_REQ,         /**< The same was asked before, or its place is taken by another use. */
    VX_ERR_GLBL_INVALID_OP,            /**< The operation does not fit what is configured. */
    VX_ERR_GLBL_ENTRY_NOT_FOUND,       /**< There is no such entry. */
    VX_ERR_GLBL_ENTRY_EXIST,           /**< There is such an entry already. */
    VX_ERR_GLBL_SW_RESOURCE_UNAVAIL,   /**< A table of the driver is full. */
    VX_ERR_GLBL_SW_INTERNAL_ERR,       /**< A fault in the driver itself. */
    VX_ERR_GLBL_INVALID_ENTITY_ID,     /**< An id names nothing, such as an unknown module. */
    VX_ERR_GLBL_RANGE_CHECK_FAIL,      /**< A number or an enumerator is out of range. */
    VX_ERR_GLBL_INVALID_DIRECTION,     /**< The direction is none, or not that of the pin or port. */
    VX_ERR_GLBL_OP_NO_SUPPORTED_BY_SW, /**< The driver cannot do this. */
    VX_ERR_GLBL_OP_NO_SUPPORTED_BY_HW, /**< The chip cannot do this. */
    VX_ERR_GLBL_END,                   /**< One past the last of them; none itself. */

    /* Device */
    VX_ERR_DEV_BASE = 0x7100,                /**< Where the statuses of the device begin: the number of the first. */
    VX_ERR_DEV_ID_INVALID = VX_ERR_DEV_BASE, /**< There is no such device. */
    VX_ERR_DEV_NULL_PTR,                     /**< A pointer is NULL, in a call that names a device. */
    VX_ERR_DEV_ALRDY_INITIALIZED,            /**< The device is up already. */
    VX_ERR_DEV_STATE_INVALID, /**< The device, or a bus of it, is in no state for this: not enabled, not set up. */
    VX_ERR_DEV_INIT_FAIL,     /**< The device did not start. */
    VX_ERR_DEV_UNINTIALIZED,  /**< The device is in reset. */
    VX_ERR_DEV_HW_FAILURE,    /**< The chip reports a failure. */
    VX_ERR_DEV_HW_RESOURCE_UNAVAIL, /**< A table of the chip is full. */
    VX_ERR_DEV_BUSY,                /**< What should be changed or deleted is in use. */
    VX_ERR_DEV_GRAM_ACCESS_FAIL,    /**< The memory of the chip's tables (GRAM) could not be accessed. */
    VX_ERR_DEV_REG_ACCESS_TIMEOUT,  /**< A register did not answer in time. */
    VX_ERR_DEV_NOT_SUPPORTED_BY_HW, /**< This type of chip cannot do this. */
    VX_ERR_DEV_END,                 /**< One past the last of them; none itself. */

    /* Port */
    VX_ERR_PORT_BASE = 0x7200,                    /**< Where the statuses of ports begin: the number of the first. */
    VX_ERR_PORT_TYPE_MISMATCH = VX_ERR_PORT_BASE, /**< The port is of a type that does not have this. */
    VX_ERR_PORT_ALRDY_INITIALIZED,                /**< The port is in use already. */
    VX_ERR_PORT_INIT_FAIL,                        /**< The port did not start. */
    VX_ERR_PORT_DEINIT_FAIL,                      /**< The port could not be taken out of use. */
    VX_ERR_PORT_UNINTIALIZED,                     /**< The port is not in use. */
    VX_ERR_PORT_INVALID_PORT,                     /**< The device does not have this port. */
    VX_ERR_PORT_ETH_PHY_INIT_FAIL,                /**< The PHY did not start. */
    VX_ERR_PORT_ETH_PHY_DEINIT_FAIL,              /**< The PHY could not be taken out of use. */
    VX_ERR_PORT_ETH_PHY_NOT_SUPPORTED,            /**< The driver does not know this type of PHY. */
    VX_ERR_PORT_ETH_PHY_ACCESS_TIME_OUT,          /**< The PHY did not answer on MDIO in time. */
    VX_ERR_PORT_NUM_OUT_OF_RANGE,                 /**< The number is that of no port. */
    VX_ERR_PORT_RANGE_ERR,                        /**< A number of the port's configuration is out of range. */
    VX_ERR_PORT_NULL_PTR,                         /**< A pointer is NULL, in a call for a port. */
    VX_ERR_PORT_INVALID_CFG,                      /**< The port's configuration contradicts itself. */
    VX_ERR_PORT_INVALID_OP,                       /**< The operation does not fit the state of the port. */
    VX_ERR_PORT_EXIST,                            /**< The port was added already. */
    VX_ERR_PORT_NOT_FOUND,                        /**< The port was not added. */
    VX_ERR_PORT_INTERNAL_ERR,                     /**< A fault in the driver's port module. */
    VX_ERR_PORT_INVALID_HW_STATE,                 /**< The port's hardware is in an unexpected state. */
    VX_ERR_PORT_GRAM_ACCESS_FAIL,                 /**< The port's tables in the chip (GRAM) could not be accessed. */
    VX_ERR_PORT_INVALID_USER_ARG,                 /**< An argument of a call for a port is wrong. */
    VX_ERR_PORT_INVALID_GPIO_PIN,                 /**< The pin of the PHY's interrupt is none. */
    VX_ERR_PORT_EVT_NOT_SUPPORTED,                /**< The port does not raise this event. */
    VX_ERR_PORT_POLL_NOT_SUPPORTED,               /**< The port's event cannot be polled. */
    VX_ERR_PORT_EEE_NOT_SUPPORTED,       /**< The port, or its PHY, has no energy-efficient Ethernet (IEEE 802.3az). */
    VX_ERR_PORT_LOOP_BACK_ALRDY_ENABLED, /**< The port is looped back already. */
    VX_ERR_PORT_END,                     /**< One past the last of them; none itself. */

    /* GPON */
    VX_ERR_GPON_BASE = 0x7300, /**< Where the statuses of the GPON port begin: the number of the first. */
    VX_ERR_GPON_INVALID_TCONT = VX_ERR_GPON_BASE, /**< There is no such T-CONT. */
    VX_ERR_GPON_INVALID_GEM_PORT,       /**< The number is that of no GEM port, or of one that was not added. */
    VX_ERR_GPON_ONU_NOT_RANGED,         /**< The ONU is not in operation (state O5, ITU-T G.984.3). */
    VX_ERR_GPON_INVALID_Q_NUMBER,       /**< There is no such upstream queue. */
    VX_ERR_GPON_GEM_NOT_MAPPED_TO_PRIQ, /**< The GEM port goes through no priority queue. */
    VX_ERR_GPON_INVALID_TCONT_NUMBER,   /**< There are not so many T-CONTs. */
    VX_ERR_GPON_TCONT_NOT_ENABLED,      /**< The T-CONT is not enabled: no Alloc-ID belongs to it. */
    VX_ERR_GPON_INVALID_TCONT_WT,       /**< The weight of a T-CONT is out of range. */
    VX_ERR_GPON_Q_FLUSH_FAILED,         /**< A queue could not be emptied. */
    VX_ERR_GPON_END,                    /**< One past the last of them; none itself. */

    /* Forwarding engine */
    VX_ERR_FE_BASE = 0x7500, /**< Where the statuses of the forwarding engine begin: the number of the first. */
    VX_ERR_FE_INVALID_FLOW_ID = VX_ERR_FE_BASE, /**< There is no such flow. */
    VX_ERR_FE_INVALID_VLAN_ID,     /**< The number is that of no VLAN (0 to 4095), or a range of VLANs is empty. */
    VX_ERR_FE_INVALID_FE_ID,       /**< There is no such forwarding engine. */
    VX_ERR_FE_INVALID_VLAN_MEMBER, /**< The port cannot be, or is not, a member of the VLAN; filters drop such packets.
                                    */
    VX_ERR_FE_INVALID_VLAN_ACTION, /**< The action on tags is none, or cannot be done with these tags. */
    VX_ERR_FE_INVALID_PBIT_ACTION, /**< The action on priority bits is none. */
    VX_ERR_FE_INVALID_TPID_ACTION, /**< The action on the TPID is none. */
    VX_ERR_FE_CPU_PKT_TRAP_NOT_ACTIVE,     /**< There is no such trap for packets to the CPU. */
    VX_ERR_FE_CLS_INVALID_KEY_TYPE,        /**< The type of the classifier key is none, or not that of the domain. */
    VX_ERR_FE_CLS_INVALID_PRIORITY,        /**< The priority of the classifier rule is out of range. */
    VX_ERR_FE_CLS_ENTRY_UNAVAIL,           /**< The classifier has no such entry, or none is free. */
    VX_ERR_FE_FDB_ENTRY_NOT_FOUND,         /**< The forwarding database has no such entry. */
    VX_ERR_FE_FDB_ENTRY_UNAVAIL,           /**< The forwarding database is full. */
    VX_ERR_FE_FDB_INVALID_TBL_SZ,          /**< The forwarding database cannot have this size. */
    VX_ERR_FE_FDB_INVALID_VLAN_LRN_OP,     /**< Addresses of VLANs cannot be learnt in this way. */
    VX_ERR_FE_FDB_INVALID_LRN_LMT_PKT_ACT, /**< The action on packets beyond the learning limit is none. */
    VX_ERR_FE_FDB_INVALID_LRN_LMT_LRN_ACT, /**< The action on learning at the learning limit is none. */
    VX_ERR_FE_CLS_INVALID_RULE,            /**< The classifier rule contradicts itself. */
    VX_ERR_FE_INVALID_BRG_PARAMS,          /**< The configuration of the bridge is wrong: it needs a type. */
    VX_ERR_FE_INVALID_BRG_ID,              /**< There is no such bridge. */
    VX_ERR_FE_INVALID_BRG_PORT_ID,         /**< There is no such bridge port. */
    VX_ERR_FE_SUB_ID_NOT_BRG_MEMBER,       /**< The GEM port is not a member of the bridge. */
    VX_ERR_FE_DUPLICATE_BRG_VLAN_ID,       /**< Another bridge has this VLAN. */
    VX_ERR_FE_ACTION_ON_DUP_FLOW_NOT_SUPPORTED, /**< A flow that shares its key cannot have this action. */
    VX_ERR_FE_CLS_INVALID_TPID,                 /**< The TPID is none that the classifier knows. */
    VX_ERR_FE_CLS_INVALID_ETH_TYPE,             /**< The EtherType is none that the classifier can compare. */
    VX_ERR_FE_CLS_ALL_TPID_USED,                /**< All TPID registers of the classifier are in use. */
    VX_ERR_FE_CLS_ALL_ETH_TYPE_USED,            /**< All EtherType registers of the classifier are in use. */
    VX_ERR_FE_CLS_MAC_RANGE_KEY_UNAVAIL,        /**< The range of MAC addresses is not set, or not free. */
    VX_ERR_FE_CLS_MAC_DA_RANGE_USED,            /**< Another range of destination addresses is in use. */
    VX_ERR_FE_CLS_ALL_VLAN_RANGE_USED,          /**< All VLAN ranges of the classifier are in use. */
    VX_ERR_FE_CLS_KEY_RESOURCE_UNAVAIL, /**< The key needs a resource of the classifier that is used up or not set. */
    VX_ERR_FE_CLS_IP_PROTO_MISSING,     /**< A key with a layer 4 port needs the IP protocol. */
    VX_ERR_FE_CLS_INVALID_IP_PROTO_FOR_L4_PORT,   /**< The IP protocol has no layer 4 ports. */
    VX_ERR_FE_CLS_INVALID_PORT_RANGE_FOR_L4_PORT, /**< The range of layer 4 ports is empty. */
    VX_ERR_FE_CLS_ALL_L4_PORT_RANGE_USED,         /**< All ranges of layer 4 ports are in use. */
    VX_ERR_FE_CLS_HW_SW_KEY_CONFIG_MISMATCH,      /**< The chip's key configuration is not what the driver keeps. */
    VX_ERR_FE_CLS_HW_SW_KEY_TYPE_MISMATCH,        /**< The chip's key type is not what the driver keeps. */
    VX_ERR_FE_CLS_KEY_DUPLICATE_DSCP_VALUE,       /**< A DSCP stands twice in the key. */
    VX_ERR_FE_CLS_KEY_INVALID_DSCP_VALUE,         /**< A DSCP of the key is above 63. */
    VX_ERR_FE_DUPLICATE_CUSTOM_FILTER,            /**< There is a custom packet filter like this already. */
    VX_ERR_FE_MCAST_ENTRY_BLACK_LISTED,           /**< The multicast group is on the black list. */
    VX_ERR_FE_MCAST_VLAN_NOT_CONFIGURED,          /**< The multicast VLAN was not added. */
    VX_ERR_FE_MCAST_SRC_FILTER_PRESENT,           /**< The multicast group is there with other sources. */
    VX_ERR_FE_MAC_FILTER_MODE_CONFILCT,           /**< The same filter is there in the opposite mode. */
    VX_ERR_FE_END,                                /**< One past the last of them; none itself. */

    /* Traffic manager */
    VX_ERR_TM_BASE = 0x7600, /**< Where the statuses of the traffic manager begin: the number of the first. */
    VX_ERR_TM_INVALID_QUEUE_ID = VX_ERR_TM_BASE, /**< There is no such queue. */
    VX_ERR_TM_QUEUE_UNAVAIL,                     /**< No queue is free. */
    VX_ERR_TM_POLICER_UNAVAIL,                   /**< No policer is free. */
    VX_ERR_TM_PROFILE_UNAVAIL,                   /**< No rate profile is free. */
    VX_ERR_TM_BW_TOO_BIG,                        /**< The rate is above what the chip can do. */
    VX_ERR_TM_BW_TOO_SMALL,                      /**< The rate is below what the chip can do. */
    VX_ERR_TM_PIR_CIR_CHECK_FAIL,                /**< The peak rate (PIR) is below the committed rate (CIR). */
    VX_ERR_TM_BURST_SIZE,                        /**< The burst size is out of range. */
    VX_ERR_TM_INVALID_USR_ARG,                   /**< An argument of a call for the traffic manager is wrong. */
    VX_ERR_TM_INVALID_POLICER_ID,                /**< There is no such policer. */
    VX_ERR_TM_CANT_SET_QUEUE_PRI,                /**< The priority of this queue is fixed. */
    VX_ERR_TM_CANT_SET_WEIGHT_OF_SP_QUEUE,       /**< A queue with strict priority has no weight. */
    VX_ERR_TM_QUEUE_NOT_MAPPED,                  /**< The queue belongs to no T-CONT or port. */
    VX_ERR_TM_NOT_SUPPORTED_BY_HW,               /**< The chip's traffic manager cannot do this. */
    VX_ERR_TM_RATE_LIMITER_NOT_CONFIGURED,       /**< The rate limiter was not set. */
    VX_ERR_TM_END,                               /**< One past the last of them; none itself. */

    /* Events */
    VX_ERR_EVT_BASE = 0x7700,                      /**< Where the statuses of events begin: the number of the first. */
    VX_ERR_EVT_INVALID_EVT_TYPE = VX_ERR_EVT_BASE, /**< There is no such event. */
    VX_ERR_EVT_REG_FAILED,                         /**< No room for another handler. */
    VX_ERR_EVT_DEREG_FAILED,                       /**< The handler could not be removed. */
    VX_ERR_EVT_NOT_REGISTERED,                     /**< No such handler is registered. */
    VX_ERR_EVT_NOT_SUPPORTED,                      /**< The chip does not raise this event. */
    VX_ERR_EVT_INVALID_CONTEXT_TYPE,               /**< The context of the handler is none. */
    VX_ERR_EVT_INVALID_PORT,                       /**< The event is none of this port, or of this sub-port. */
    VX_ERR_EVT_INVALID_CFG,                        /**< A throttle that is enabled needs a count and an interval. */
    VX_ERR_EVT_INVALID_PORT_BITMAP,                /**< The bitmap has a bit that is no type of port. */
    VX_ERR_EVT_POLL_ONLY_SUPPORT,                  /**< The event can be polled, but raises no interrupt. */
    VX_ERR_EVT_HOLDOVER_NOT_SUPPORTED,             /**< The event is a moment, so it has no holdover. */
    VX_ERR_EVT_POLLING_NOT_SUPPORTED,              /**< The event is a moment, so it has no status to poll. */
    VX_ERR_EVT_THROTTLE_NOT_SUPPORTED,             /**< The event has no throttle, as those of timers. */
    VX_ERR_EVT_END,                                /**< One past the last of them; none itself. */

    /* IGMP */
    VX_ERR_IGMP_BASE = 0x7800,     /**< Where the statuses of IGMP begin; none itself. */
    VX_ERR_IGMP_PREVIEW_EXCEEDED,  /**< The time for which a host may preview the group is over. */
    VX_ERR_IGMP_REPORT_TOO_SOON,   /**< A host reports again before the least interval is over. */
    VX_ERR_IGMP_VALIDATION_FAILED, /**< The IGMP message is malformed. */
    VX_ERR_IGMP_END,               /**< One past the last of them; none itself. */

    /* OMCI */
    VX_ERR_OMCI_BASE = 0x7900, /**< Where the statuses of OMCI begin; none itself. */
    VX_ERR_OMCI_INVALID_LEN,   /**< The OMCI message has a wrong length. */
    VX_ERR_OMCI_END,           /**< One past the last of them; none itself. */

    /* Software download */
    VX_ERR_SWDL_BASE = 0x7b00, /**< Where the statuses of the software download begin: the number of the first. */
    VX_ERR_SWDL_BUSY = VX_ERR_SWDL_BASE, /**< Another download is going on. */
    VX_ERR_SWDL_TIME_OUT,                /**< The next part of the image did not come in time. */
    VX_ERR_SWDL_BAD_HEADER,              /**< The header of the image is malformed. */
    VX_ERR_SWDL_BAD_IMAGE,               /**< The image is no software for this device. */
    VX_ERR_SWDL_IMAGE_MISMATCH,          /**< The image is not the one that was announced. */
    VX_ERR_SWDL_IMAGE_CORRUPTED,         /**< The checksum of the image is wrong. */
    VX_ERR_SWDL_INVALID_IMAGE_FORMAT,    /**< The image has a format that the device does not know. */
    VX_ERR_SWDL_UNKNOWN_IMAGE_TYPE,      /**< The image has a type that the device does not know. */
    VX_ERR_SWDL_COMMIT_FAIL,             /**< The image could not be made the one to start from. */
    VX_ERR_SWDL_ACTIVATE_FAIL,           /**< The image could not be started. */
    VX_ERR_SWDL_REBOOT_FAIL,             /**< The device could not be rebooted into the image. */
    VX_ERR_SWDL_FAILURE,                 /**< The download failed for another reason. */
    VX_ERR_SWDL_END,                     /**< One past the last of them; none itself. */

    /* Peripherals */
    VX_ERR_PER_BASE = 0x7c00, /**< Where statuses of peripherals would begin: there are none. */
    VX_ERR_PER_END,           /**< One past the last of them; none itself. */

    /* Platform adaptation of applications */
    VX_ERR_APP_PAL_BASE = 0x7d00,   /**< Where those of the applications' platform adaptation begin; none itself. */
    VX_ERR_APP_PAL_ERR,             /**< The platform adaptation failed for a reason of its own. */
    VX_ERR_APP_PAL_OSAL_OP_ERR,     /**< A call of the operating system failed. */
    VX_ERR_APP_PAL_TIMER_FAIL,      /**< A timer could not be made or started. */
    VX_ERR_APP_PAL_STARUP_CFG_FAIL, /**< The start configuration could not be read. */
    VX_ERR_APP_PAL_APP_CFG_FAIL,    /**< The applications' configuration could not be read. */
    VX_ERR_APP_PAL_END,             /**< One past the last of them; none itself. */

    /* DHCP client */
    VX_ERR_APP_DHCPC_BASE = 0x7e00,       /**< Where the statuses of the DHCP client (RFC 2131) begin; none itself. */
    VX_ERR_APP_DHCPC_MBX_UNINITIALIZED,   /**< The mailbox of the DHCP client does not exist yet. */
    VX_ERR_APP_DHCPC_INVALID_IF,          /**< The DHCP client does not run on this interface. */
    VX_ERR_APP_DHCPC_MBX_CREATE_FAIL,     /**< The mailbox of the DHCP client could not be made. */
    VX_ERR_APP_DHCPC_ALRDY_INITIALIZED,   /**< The DHCP client runs already. */
    VX_ERR_APP_DHCPC_NOT_INITIALIZED,     /**< The DHCP client does not run. */
    VX_ERR_APP_DHCPC_NOT_IN_BOUND_STATE,  /**< The client holds no lease: it is not in state BOUND. */
    VX_ERR_APP_DHCPC_RECORD_NOT_PRESENT,  /**< There is no record of this lease. */
    VX_ERR_APP_DHCPC_XID_NOT_MATCH,       /**< The answer has the transaction id of no request. */
    VX_ERR_APP_DHCPC_OPTION_NOT_FOUND,    /**< The answer lacks an option that is needed (RFC 2132). */
    VX_ERR_APP_DHCPC_ADDR_IN_USE,         /**< Another host has the address that was offered. */
    VX_ERR_APP_DHCPC_SUBNET_UNACCEPTABLE, /**< The subnet that was offered does not suit. */
    VX_ERR_APP_DHCPC_LEASE_TIME_UNACCEPTABLE, /**< The lease time that was offered does not suit. */
    VX_ERR_APP_DHCPC_PARAMS_UNACCEPTABLE,     /**< Something else that was offered does not suit. */
    VX_ERR_APP_DHCPC_DB_ERR,                  /**< The lease could not be stored in the database. */
    VX_ERR_APP_DHCPC_END,                     /**< One past the last of them; none itself. */

    /* Database */
    VX_ERR_DBM_BASE = 0x7f00,      /**< Where the statuses of the database begin; none itself. */
    VX_ERR_DBM_EVENT_INIT_FAILED,  /**< The database of events did not start. */
    VX_ERR_DBM_CONFIG_INIT_FAILED, /**< The database of the configuration did not start. */
    VX_ERR_DBM_OP_FAILED,          /**< The database could not be read or written. */

    /* IEEE 802.1X supplicant */
    VX_ERR_1X_SUPP_BASE = 0x8000, /**< Where the statuses of the IEEE 802.1X supplicant begin; none itself. */
    VX_ERR_1X_SUPP_INIT_FAILED,   /**< The supplicant did not start. */
    VX_ERR_1X_SUPP_OP_FAILED,     /**< The supplicant could not do what it was asked. */
    VX_ERR_1X_SUPP_CFG_FAILED,    /**< The supplicant refused its configuration. */
    VX_ERR_1X_SUPP_DB_ERR,        /**< The supplicant could not use its database. */

    /* Application stubs */
    VX_ERR_APP_STUBS_BASE = 0x8100, /**< Where the statuses of the application stubs begin; none itself. */
    VX_ERR_APP_STUBS_OP_FAILED,     /**< A stub could not do what it was asked. */

    /* OMCI adaptation */
    VX_ERR_OAL_BASE = 0x8200, /**< Where the statuses of the OMCI adaptation begin; none itself. */
    VX_ERR_OAL_OP_FAILED,     /**< The OMCI adaptation could not do what it was asked. */
    VX_ERR_OAL_END,           /**< One past the last of them; none itself. */
    VX_ERR_CODE_MAX,          /**< One past the last status of all; none itself. */
} vx_status_e;

#endif
