/**
 * @file
 * @brief The device's life cycle: start, reset, watchdog, MAC address and raw registers.
 */
#ifndef LMQ_DEVICE_H
#define LMQ_DEVICE_H

#include "lmq/address.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define LMQ_WD_STROBE_PERIOD 20 /**< Seconds between two strobes of the watchdog by the driver. */
#define VX_APP_DEV_NAME_LEN 16  /**< Bytes of app_lvl_cfg_s.device_name. */
#define VX_APP_ONU_PSWD_LEN 16  /**< Bytes of app_lvl_cfg_s.onu_password. */

/** @brief Whether a port is administratively up. */
typedef enum vx_admin_status_t LMQ_ENUM_INT {
    VX_ADMIN_STATUS_DOWN = 0, /**< Switched off: the port has no link. */
    VX_ADMIN_STATUS_UP = 1,   /**< Switched on. */
} vx_admin_status_t;

/** @brief Which side of the interface to its PHY a port plays. */
typedef enum vx_eth_phy_mode_t LMQ_ENUM_INT {
    VX_ETH_PHY_MODE_MAC = 0,         /**< The port is the MAC, and a PHY is at the other end. */
    VX_ETH_PHY_MODE_PHY = 1,         /**< The port acts as the PHY of a MAC at the other end. */
    VX_ETH_PHY_MODE_INVALID = 65535, /**< No mode. */
} vx_eth_phy_mode_t;

/** @brief What happens when the watchdog expires. */
typedef enum vx_wd_action_e LMQ_ENUM_INT {
    VX_WD_ACTION_WARNING = 0, /**< A message and VX_EVENT_WD_EXPIRED, no more. */
    VX_WD_ACTION_REBOOT = 1,  /**< The same, and then the system reboots. */
} vx_wd_action_e;

/** @brief What vx_reset resets. */
typedef enum vx_reset_mode_t LMQ_ENUM_INT {
    VX_RESET_DRIVER = 0, /**< Driver and chip go down, until lmq_init_system. */
    VX_RESET_CHIP = 1,   /**< The device goes into reset, until lmq_init_device; the driver stays up. */
} vx_reset_mode_t;

/** @brief What the device is used for: data or voice, as a plain ONU or as a home gateway (HGU). */
typedef enum lmq_dev_op_mode_e LMQ_ENUM_INT {
    LMQ_DEV_OP_MODE_DATA_ONLY = 0,       /**< A plain ONU without voice. */
    LMQ_DEV_OP_MODE_DATA_N_VOIP = 1,     /**< A plain ONU with voice over IP. */
    LMQ_DEV_OP_MODE_HGU_DATA_ONLY = 2,   /**< A home gateway without voice. */
    LMQ_DEV_OP_MODE_HGU_DATA_N_VOIP = 3, /**< A home gateway with voice over IP. */
} lmq_dev_op_mode_e;

/** @brief Where packets are buffered: in internal memory alone (IBM), or also in external memory (EBM). */
typedef enum lmq_pkt_mem_mode_e LMQ_ENUM_INT {
    LMQ_PKT_MEM_MODE_IBM = 0,       /**< Internal memory alone. */
    LMQ_PKT_MEM_MODE_IBM_N_EBM = 1, /**< Internal memory first, external memory behind it. */
} lmq_pkt_mem_mode_e;

/** @brief How far lmq_reset_device goes. */
typedef enum lmq_dev_reset_mode_e LMQ_ENUM_INT {
    LMQ_RESET_MODE_CPU_N_ASIC = 0,  /**< As a reboot: driver and chip go down. */
    LMQ_RESET_MODE_ONLY_ASIC = 1,   /**< The device goes into reset and forgets everything, until lmq_init_device. */
    LMQ_RESET_MODE_ASIC_MODULE = 2, /**< Some modules of the chip, which come back as they were configured. */
} lmq_dev_reset_mode_e;

/** @brief Upstream traffic management of the GPON port: bits, which a capability may combine. */
typedef enum vx_gpon_tm_option_t LMQ_ENUM_INT {
    VX_TM_OPTION_DEFAULT = 0,          /**< The driver chooses. */
    VX_TM_OPTION_PRI_CONTROL = 1,      /**< Priorities decide, without rate limits. */
    VX_TM_OPTION_RATE_CONTROL = 2,     /**< Rate limits decide, without priorities. */
    VX_TM_OPTION_PRI_RATE_CONTROL = 4, /**< Priorities decide, within rate limits. */
    VX_TM_OPTION_WRR = 8,              /**< Weighted round robin. */
    VX_TM_OPTION_ALL = 15,             /**< All of these: a capability, not a choice. */
} vx_gpon_tm_option_t;

/** @brief Transmit clock of a gigabit port: in line with the data, or delayed. */
typedef enum vx_eth_ge_txclk_sel_t LMQ_ENUM_INT {
    VX_ETH_GE_TXCLK_INLINE = 0, /**< The edges of the clock are those of the data. */
    VX_ETH_GE_TXCLK_DELAY = 1,  /**< The clock comes later, so that its edges meet settled data. */
} vx_eth_ge_txclk_sel_t;

/** @brief How a module is reset. */
typedef enum lmq_dev_reset_type_e LMQ_ENUM_INT {
    LMQ_RESET_TYPE_HARD = 0, /**< The whole module, registers included. */
    LMQ_RESET_TYPE_SOFT = 1, /**< Its logic alone. */
} lmq_dev_reset_type_e;

/** @brief Protection of the SNI (the network side). */
typedef enum lmq_sni_mode_e LMQ_ENUM_INT {
    LMQ_SNI_MODE_NORMAL = 0,                /**< One fibre, no protection. */
    LMQ_SNI_MODE_FIBER_ONLY_PROTECTION = 1, /**< Two fibres on one PON MAC. */
    LMQ_SNI_MODE_1_1_PROTECTION = 2,        /**< Two links, of which one carries traffic and the other waits. */
    LMQ_SNI_MODE_1_PLUS_1_PROTECTION = 3,   /**< Two links, which both carry the same traffic. */
    LMQ_SNI_MODE_AE_LAG = 4,                /**< Two links of active Ethernet that work as one (IEEE 802.1AX). */
} lmq_sni_mode_e;

/** @brief Where the driver runs: on the chip's own CPU or on an external one. */
typedef enum lmq_cpu_mode_e LMQ_ENUM_INT {
    LMQ_CPU_MODE_INTERNAL = 0, /**< On the chip's own CPU. */
    LMQ_CPU_MODE_EXTERNAL = 1, /**< On a CPU beside the chip. */
} lmq_cpu_mode_e;

/**
 * @brief The modules of the driver and of the applications, each with the short name that logs show.
 *
 * Expand with an `xx(enumerator, name)` of your own.
 */
/* clang-format off */
#define VX_MODULES_DEFINES \
    xx(VX_MOD_DRVR_GEN,           "gen")      /**< Driver: what belongs to no module. */ \
    xx(VX_MOD_DRVR_DEV,           "dev")      /**< Driver: life cycle of the device. */ \
    xx(VX_MOD_DRVR_PORT,          "port")     /**< Driver: Ethernet ports. */ \
    xx(VX_MOD_DRVR_EPHY,          "ephy")     /**< Driver: PHYs of Ethernet ports. */ \
    xx(VX_MOD_DRVR_GPON,          "gpon")     /**< Driver: GPON port. */ \
    xx(VX_MOD_DRVR_EPON,          "epon")     /**< Driver: EPON port. */ \
    xx(VX_MOD_DRVR_FE,            "fe")       /**< Driver: forwarding engine. */ \
    xx(VX_MOD_DRVR_TM,            "tm")       /**< Driver: traffic manager. */ \
    xx(VX_MOD_DRVR_EVT,           "evt")      /**< Driver: events. */ \
    xx(VX_MOD_DRVR_PERI,          "peri")     /**< Driver: low-speed peripherals. */ \
    xx(VX_MOD_DRVR_PCM,           "pcm")      /**< Driver: PCM interface of voice. */ \
    xx(VX_MOD_DRVR_IRQ,           "irq")      /**< Driver: interrupts. */ \
    xx(VX_MOD_DRVR_CFM,           "cfm")      /**< Driver: connectivity fault management. */ \
    xx(VX_MOD_DRVR_TSYNC,         "tsync")    /**< Driver: time distribution. */ \
    xx(VX_MOD_DRVR_PAL,           "pal")      /**< Driver: adaptation to the platform. */ \
    xx(VX_MOD_APP_PAL,            "app_pal")  /**< Applications: adaptation to the platform. */ \
    xx(VX_MOD_APP_OAL,            "oal")      /**< Applications: adaptation of OMCI. */ \
    xx(VX_MOD_APP_OMCI,           "omci")     /**< Applications: OMCI (ITU-T G.988). */ \
    xx(VX_MOD_APP_OAM,            "oam")      /**< Applications: Ethernet OAM (IEEE 802.3, clause 57). */ \
    xx(VX_MOD_APP_SWDL,           "app_swdl") /**< Applications: software download. */ \
    xx(VX_MOD_APP_DB,             "dbm")      /**< Applications: database. */ \
    xx(VX_MOD_APP_IGMP,           "igmp")     /**< Applications: IGMP. */ \
    xx(VX_MOD_APP_DHCPC,          "dhcpc")    /**< Applications: DHCP client. */ \
    xx(VX_MOD_APP_SYSTEM,         "system")   /**< Applications: start of the system. */ \
    xx(VX_MOD_APP_LOOPDETECT,     "lpdt")     /**< Applications: detection of loops. */ \
    xx(VX_MOD_APP_OPM,            "opm")      /**< Applications: OPM, of which the driver knows the name alone. */ \
    xx(VX_MOD_APP_PLOAM,          "ploam")    /**< Applications: PLOAM messages (ITU-T G.984.3). */ \
    xx(VX_MOD_APP_LAO,            "lao")      /**< Applications: LAO, of which the driver knows the name alone. */ \
    xx(VX_MOD_APP_WEB,            "web")      /**< Applications: web pages. */ \
    xx(VX_MOD_APP_PPPOE,          "pppoe")    /**< Applications: PPPoE (RFC 2516). */ \
    xx(VX_MOD_LOG_PKT,            "pkt")      /**< Packets, as logs of any module show them. */
/* clang-format on */

/** @brief A module. */
typedef enum vx_mod_id_e LMQ_ENUM_INT {
#define xx(id, name) id,
    VX_MODULES_DEFINES
#undef xx
} vx_mod_id_e;

#define VX_MOD_ID_MIN VX_MOD_DRVR_GEN /**< The first module. */

/** @brief Modules of the chip: bits. The last two have the top bit set. */
typedef enum lmq_asic_mod_id_e LMQ_ENUM_INT {
    LMQ_ASIC_MOD_ID_PON0 = 1,              /**< MAC of the PON port. */
    LMQ_ASIC_MOD_ID_PON_SDS0 = 4,          /**< Serialiser of the PON port (SerDes). */
    LMQ_ASIC_MOD_ID_UNI = 16,              /**< The Ethernet ports. */
    LMQ_ASIC_MOD_ID_MA = 65536,            /**< Engine between the CPU and the packet memory, as LMQ_FE_MA_ID. */
    LMQ_ASIC_MOD_ID_FE = 131072,           /**< Forwarding engine. */
    LMQ_ASIC_MOD_ID_TM = 262144,           /**< Traffic manager. */
    LMQ_ASIC_MOD_ID_BM = 524288,           /**< Buffer manager. */
    LMQ_ASIC_MOD_ID_PCM = 1048576,         /**< PCM interface of voice. */
    LMQ_ASIC_MOD_ID_PER = 2097152,         /**< Low-speed peripherals. */
    LMQ_ASIC_MOD_ID_DDR_PLL = 536870912,   /**< Clock of the external memory. */
    LMQ_ASIC_MOD_ID_SDRAM = 1073741824,    /**< Controller of the external memory. */
    LMQ_ASIC_MOD_ID_CPU = -2147483647 - 1, /**< The chip's own CPU; the top bit. */
    LMQ_ASIC_MOD_ID_ALL = -532742123,      /**< All of these. */
} lmq_asic_mod_id_e;

/** @brief Ports of a device. Ethernet ports count on from VX_PORT_ETH0. */
typedef enum vx_port_num_t LMQ_ENUM_INT {
    VX_PORT_SNI0 = 0,  /**< The PON port, or the uplink of active Ethernet: the side of the network. */
    VX_PORT_ETH0 = 3,  /**< The first Ethernet port (UNI); there are LMQ_PORT_ETH_NUM. */
    VX_PORT_VOIP0 = 5, /**< The voice port. */
    VX_PORT_CPU = 1,   /**< The CPU. */
    VX_PORT_MGMT = 2,  /**< The local management port. */
} vx_port_num_t;

/** @brief Which chip a device is. */
typedef enum vx_chip_type_t LMQ_ENUM_INT {
    VX_CHIP_UNKNOWN = 0,     /**< No chip that the driver knows. */
    VX_CHIP_QUENTA = 1,      /**< A Quenta. */
    VX_CHIP_BRELLIN = 2,     /**< A Brellin. */
    VX_CHIP_FOLMARK = 3,     /**< A Folmark. */
    VX_CHIP_PALVEN_RODA = 4, /**< A Palven Roda. */
} vx_chip_type_t;

/** @brief Amount of logging: everything up to the level is logged. */
typedef enum vx_log_lvl_e LMQ_ENUM_INT {
    VX_LOG_LVL_MIN = 0,      /**< The lowest level that can be set. */
    VX_LOG_LVL_NONE = 0,     /**< Nothing is logged. */
    VX_LOG_LVL_CRITICAL = 1, /**< What the driver cannot go on after. */
    VX_LOG_LVL_MAJOR = 2,    /**< Failures that take a function of the device away. */
    VX_LOG_LVL_MINOR = 3,    /**< Failures without lasting effect; modules start with this level. */
    VX_LOG_LVL_INFO = 4,     /**< What happens: resets, links, events. */
    VX_LOG_LVL_DEBUG = 5,    /**< What the driver does, for its developers. */
    VX_LOG_LVL_TRACE = 5,    /**< Another name of VX_LOG_LVL_DEBUG. */
    VX_LOG_LVL_MAX = 6,      /**< The highest level that can be set: everything. */
} vx_log_lvl_e;

/** @brief Interface between a port and its PHY. */
typedef enum vx_eth_phy_type_t LMQ_ENUM_INT {
    VX_ETH_PHY_TYPE_MII = 0,         /**< MII, 10 and 100 Mbit/s (IEEE 802.3, clause 22). */
    VX_ETH_PHY_TYPE_RMII = 1,        /**< MII with fewer pins, 10 and 100 Mbit/s. */
    VX_ETH_PHY_TYPE_GMII = 2,        /**< GMII, up to 1000 Mbit/s (IEEE 802.3, clause 35). */
    VX_ETH_PHY_TYPE_RGMII = 3,       /**< GMII with fewer pins, up to 1000 Mbit/s. */
    VX_ETH_PHY_TYPE_S3MII = 4,       /**< Serial MII whose clocks come with the data, 10 and 100 Mbit/s. */
    VX_ETH_PHY_TYPE_SMII = 5,        /**< Serial MII, 10 and 100 Mbit/s. */
    VX_ETH_PHY_TYPE_SGMII = 6,       /**< Serial GMII, up to 1000 Mbit/s. */
    VX_ETH_PHY_TYPE_GIGE = 7,        /**< 1000BASE-X (IEEE 802.3, clause 36), 1000 Mbit/s. */
    VX_ETH_PHY_TYPE_INVALID = 65535, /**< No interface. */
} vx_eth_phy_type_t;

/** @brief What the SNI of the device is: GPON (ITU-T G.984), EPON or active Ethernet. */
typedef enum lmq_dev_mode_e LMQ_ENUM_INT {
    LMQ_DEV_MODE_GPON = 0,    /**< GPON (ITU-T G.984). */
    LMQ_DEV_MODE_EPON = 1,    /**< EPON (IEEE 802.3, clause 64). */
    LMQ_DEV_MODE_AE = 2,      /**< Active Ethernet: the SNI is an Ethernet port. */
    LMQ_DEV_MODE_INVALID = 3, /**< No mode. */
} lmq_dev_mode_e;

/** @brief DMA of a home gateway. */
typedef struct {
    vx_uint8 num_pkt_batch;      /**< {packets} How many are handed over at once. */
    vx_uint8 nr_desc_multiplier; /**< Factor by which there are more descriptors than usual. */
    vx_uint8 lso_checksum_en;    /**< Not 0: the hardware adds the checksums of large sends (LSO). */
} lmq_hgu_dma_cfg_s;

/** @brief General purpose pins at start. Bit n of a pin map is pin n. */
typedef struct {
    vx_uint32 gpio_valid_pins;         /**< {bits} The pins that the other maps describe; the rest start as inputs. */
    vx_uint32 gpio_intr_pins;          /**< {bits} Inputs that raise an interrupt. */
    vx_uint32 gpio_intr_lvl;           /**< {bits} Level at which these inputs raise it: 1 for high. */
    vx_uint32 gpio_dir;                /**< {bits} 1 for an output, 0 for an input. */
    vx_uint32 gpio_output_val;         /**< {bits} Level that the outputs start with. */
    vx_uint32 gpio_dying_gasp_pin;     /**< The pin that announces a loss of power (dying gasp). */
    vx_uint8 gpio_dying_gasp_intr_lvl; /**< Level of gpio_dying_gasp_pin when power is lost: 1 for high. */
    vx_uint32 gpio_phy_intr_pins;      /**< {bits} Pins that carry the interrupts of PHYs. */
    vx_uint32 gpio_phy_intr_lvl;       /**< {bits} Level at which a PHY asks for attention: 1 for high. */
    vx_uint32 gpio_power_down_sig_pin; /**< The pin that signals that power goes down. */
    vx_uint32 gpio_led_pin;            /**< The pin that LEDs hang on. */
} lmq_gpio_startup_cfg_s;

/** @brief An Ethernet port at start. */
typedef struct {
    vx_boolean add_port;                /**< Whether the port is used; if not, nothing else of it is read. */
    vx_admin_status_t admin_status;     /**< Whether it starts switched on. */
    vx_eth_phy_mode_t phy_mode;         /**< Which side of the interface it plays. */
    vx_uint32 gpio_phy_intr_pin;        /**< The pin that carries the PHY's interrupt. */
    vx_eth_phy_type_t phy_type;         /**< The interface to the PHY, which limits the speed. */
    vx_uint8 phy_addr;                  /**< {0..31} MDIO address of the PHY (IEEE 802.3, clause 22). */
    vx_eth_ge_txclk_sel_t ge_txclk_sel; /**< Transmit clock, where the interface is a gigabit one. */
} vx_eth_port_init_cfg_t;

/** @brief Traffic management of the GPON port at start. */
typedef struct {
    vx_gpon_tm_option_t option;                    /**< What decides upstream: one of these, not several. */
    vx_uint16 num_sp_tcont;                        /**< How many T-CONTs have strict priority. */
    vx_uint16 num_wrr_tcont;                       /**< How many T-CONTs take part in weighted round robin. */
    vx_uint16 pri_q_tcont[VX_MAX_NUM_TCONT_QUEUE]; /**< {id tcont} The T-CONT of each priority queue. */
} vx_gpon_tm_init_cfg_t;

/** @brief The GPON port at start. */
typedef struct {
    vx_boolean auto_register;     /**< TRUE: the ONU activates without a further call. */
    vx_uint8 vendor_id[4];        /**< {text} First part of the serial number (ITU-T G.984.3): four letters. */
    vx_uint32 serial_num;         /**< Second part of the serial number, specific to the vendor. */
    vx_uint8 passwd[10];          /**< Password of the ranging protocol (ITU-T G.984.3): ten bytes. */
    vx_int16 laser_on_time;       /**< {bit times} When the laser goes on, relative to the burst; may be negative. */
    vx_uint16 laser_prebias_time; /**< {bit times} How long the laser is biased before it goes on. */
    vx_gpon_tm_init_cfg_t tm_init_cfg;  /**< Upstream traffic management. */
    vx_boolean laser_tx_burst_polarity; /**< Polarity of the signal that switches the laser on for a burst. */
    vx_uint32 to1_timer_threshold;      /**< Timer TO1 (ITU-T G.984.3, clause 10): how long the ONU stays in ranging. */
} lmq_gpon_startup_cfg_s;

/** @brief A device at start. */
typedef struct {
    vx_boolean enbl;                 /**< TRUE: the device starts with the system. lmq_init_device does not read it. */
    lmq_dev_mode_e dev_mode;         /**< What the SNI is. */
    vx_uint32 dev_baddr;             /**< Base address of the register space, as the CPU sees it. */
    lmq_sni_mode_e sni_mode;         /**< Protection of the SNI. */
    lmq_pkt_mem_mode_e pkt_mem_mode; /**< Where packets are buffered. */
    vx_uint32 os_rsvd_mem_sz;        /**< Memory that is left to the operating system. */
    lmq_dev_op_mode_e dev_op_mode;   /**< What the device is used for. */
    lmq_hgu_dma_cfg_s hgu_dma_cfg;   /**< DMA, in the modes of a home gateway. */
    vx_uint16 i2c_speed;             /**< {kHz} Speed of the I2C bus; 0 leaves the bus disabled. */
    vx_boolean enbl_ssp;             /**< TRUE: the serial port that SPI uses starts enabled. */
    vx_uint16 spi_speed;             /**< {kHz} Speed of SPI lines that vx_spi_set was not called for. */
    lmq_gpio_startup_cfg_s gpio_cfg; /**< General purpose pins. */
    vx_boolean dsbl_1pps_pulse;      /**< TRUE: no pulse each second (1PPS). */
    vx_eth_port_init_cfg_t lcl_mgmt_port_cfg; /**< The local management port, VX_PORT_MGMT. */
    vx_char dev_if_name[16];    /**< {text} Name of the management interface; 16 characters fill it, unterminated. */
    vx_mac_addr_t dev_mac_addr; /**< MAC address of the device; all zero: the driver gives it one. */
    vx_ip_addr_t dev_ip_addr;   /**< IP address of the management interface; all zero: none. */
    vx_ip_addr_t dev_ip_mask;   /**< Net mask that belongs to dev_ip_addr. */
    vx_ip_addr_t dev_gw_ip;     /**< Gateway of the management interface; all zero: none. */
    lmq_gpon_startup_cfg_s gpon_cfg;                       /**< The PON port; read in LMQ_DEV_MODE_GPON alone. */
    vx_eth_port_init_cfg_t eth_port_cfg[LMQ_PORT_ETH_NUM]; /**< The Ethernet ports, from VX_PORT_ETH0. */
} lmq_dev_startup_cfg_s;

/** @brief What the applications above the driver are started with. The driver hands it on and does not read it. */
typedef struct {
    vx_uint32 omci_mode;                    /**< In which mode the OMCI application (ITU-T G.988) runs. */
    vx_uint32 onu_id;                       /**< ONU-ID that the applications begin with. */
    vx_uint32 l3_port;                      /**< Port of the layer 3 interface. */
    vx_ip_addr_t l3_ip;                     /**< IP address of the layer 3 interface. */
    vx_ip_addr_t l3_mask;                   /**< Net mask of the layer 3 interface. */
    vx_ip_addr_t l3_gw;                     /**< Gateway of the layer 3 interface. */
    vx_uint16 l3_cvlan;                     /**< Inner VLAN of the layer 3 interface. */
    vx_uint16 l3_svlan;                     /**< Outer VLAN of the layer 3 interface. */
    vx_uint8 l3_prio;                       /**< Priority code point of the packets of the layer 3 interface. */
    vx_uint32 l3_media_port1;               /**< First media port of the layer 3 interface. */
    vx_uint32 l3_media_port2;               /**< Second media port of the layer 3 interface. */
    vx_uint16 l4_dest_port_start;           /**< First TCP or UDP destination port that is the applications'. */
    vx_uint16 l4_dest_port_end;             /**< Last TCP or UDP destination port that is the applications'. */
    vx_uint16 l4_src_port_start;            /**< First TCP or UDP source port that is the applications'. */
    vx_uint16 l4_src_port_end;              /**< Last TCP or UDP source port that is the applications'. */
    vx_uint8 ignore_arp;                    /**< Not 0: ARP packets are ignored. */
    vx_ip_addr_t omcc_sim_remote_ip;        /**< Remote host of a simulated OMCC. */
    vx_ip_addr_t omcc_sim_remote_ip1;       /**< Second remote host of a simulated OMCC. */
    vx_ip_addr_t omcc_sim_remote_ip2;       /**< Third remote host of a simulated OMCC. */
    vx_ip_addr_t omcc_sim_remote_ip3;       /**< Fourth remote host of a simulated OMCC. */
    vx_uint32 omcc_sim_remote_port;         /**< Port of the remote hosts of a simulated OMCC. */
    vx_uint8 no_pty;                        /**< Not 0: no pseudo terminal is used. */
    vx_uint8 pbit_no_change;                /**< Not 0: the applications leave priority code points as they are. */
    vx_uint8 igmp_stack_enable;             /**< Not 0: the IGMP application runs. */
    vx_uint32 omci_mib_ponSlotId;           /**< Number of the slot of the PON in the OMCI MIB. */
    vx_uint8 omci_mib_ani_flag;             /**< How the OMCI MIB shows the ANI, the PON side of the ONU. */
    vx_uint8 omci_mib_default_tcont_report; /**< Not 0: the OMCI MIB shows the default T-CONT too. */
    vx_uint8 omci_mib_init_avc_disable;  /**< Not 0: no attribute value changes are reported while the MIB is made. */
    vx_uint8 omci_mib_reset_disable_avc; /**< Not 0: no attribute value changes are reported after a MIB reset. */
    vx_uint32 operator_id;               /**< Network operator whose rules the applications follow. */
    vx_uint8 ctc_spec_version;           /**< Version of the CTC rules that the applications follow. */
    vx_uint8 onu_type;                   /**< Type of ONU, as the applications report it to the OLT. */
    vx_uint8 loid[24];                   /**< {text} Logical ONU id, by which an OLT may admit the ONU. */
    vx_uint8 passwd[16];                 /**< {text} Password that goes with the logical ONU id. */
    vx_uint8 log_console_enable;         /**< Not 0: messages go to the console. */
    vx_uint32 log1_console_cfg;          /**< {bits} Messages for the console, first word. */
    vx_uint32 log2_console_cfg;          /**< {bits} Messages for the console, second word. */
    vx_uint8 log_telnet_enable;          /**< Not 0: messages go to telnet sessions. */
    vx_uint32 log1_telnet_cfg;           /**< {bits} Messages for telnet sessions, first word. */
    vx_uint32 log2_telnet_cfg;           /**< {bits} Messages for telnet sessions, second word. */
    vx_uint32 log_omci_mod;              /**< {bits} Parts of the OMCI application that log. */
    vx_uint32 log_omci_trace_mask;       /**< {bits} Kinds of OMCI messages that are traced. */
    vx_uint8 subport_iphost_enbl[4];     /**< Not 0: the IP host of this GEM port is used; there can be four. */
    vx_ip_addr_t subport_ip[4];          /**< IP address of each IP host on a GEM port. */
    vx_ip_addr_t subport_mask[4];        /**< Net mask of each IP host on a GEM port. */
    vx_ip_addr_t subport_gw[4];          /**< Gateway of each IP host on a GEM port. */
    vx_uint32 subport_vtag[4];           /**< VLAN tag of the packets of each IP host on a GEM port. */
    vx_uint16 subport_port[4];           /**< {id gem-port} GEM port of each of these IP hosts. */
    vx_uint16 subport_allocid[4];        /**< Alloc-ID (ITU-T G.984.3) of each of these IP hosts. */
    vx_uint16 subport_tcontid[4];        /**< {id tcont} T-CONT of each of these IP hosts. */
    vx_uint8 dyn_ip_on_reregister;       /**< Not 0: addresses are obtained again when the ONU registers anew. */
    vx_uint8 uni0_iphost_enbl;           /**< Not 0: the IP host on the first Ethernet port is used. */
    vx_ip_addr_t uni0_ip;                /**< IP address of the host on the first Ethernet port. */
    vx_ip_addr_t uni0_mask;              /**< Net mask of the host on the first Ethernet port. */
    vx_ip_addr_t uni0_gw;                /**< Gateway of the host on the first Ethernet port. */
    vx_uint32 uni0_vtag;                 /**< VLAN tag of the packets of the host on the first Ethernet port. */
    vx_uint8 uni1_iphost_enbl;           /**< Not 0: the IP host on the second Ethernet port is used. */
    vx_ip_addr_t uni1_ip;                /**< IP address of the host on the second Ethernet port. */
    vx_ip_addr_t uni1_mask;              /**< Net mask of the host on the second Ethernet port. */
    vx_ip_addr_t uni1_gw;                /**< Gateway of the host on the second Ethernet port. */
    vx_uint32 uni1_vtag;                 /**< VLAN tag of the packets of the host on the second Ethernet port. */
    vx_uint8 serial_num_enbl;   /**< Not 0: the applications use serial_vendor_id and serial_vendor_specific. */
    vx_uint32 serial_vendor_id; /**< First part of the serial number: the four letters of the vendor in one word. */
    vx_uint8 serial_vendor_specific[16]; /**< Second part of the serial number, specific to the vendor. */
    vx_uint8 onu_password[16];           /**< Password of the ONU (ITU-T G.984.3). */
    vx_uint8 device_name[16];            /**< {text} Name of the device. */
    vx_uint8 device_param_enable;        /**< Not 0: the applications use device_mac. */
    vx_mac_addr_t device_mac;            /**< MAC address of the device, for the applications. */
    vx_uint8 llid_num;                   /**< How many logical links (LLIDs) there are on an EPON. */
    vx_mac_addr_t llid_mac;              /**< MAC address of the first logical link. */
    vx_uint8 mac_filter_egress_wa;       /**< Not 0: the workaround for MAC filters on the egress is on. */
    vx_uint8 epon_default_flows;         /**< Not 0: default flows are made on an EPON. */
} app_lvl_cfg_s;

/** @brief The whole start configuration: system, devices and applications. */
typedef struct {
    lmq_cpu_mode_e cpu_mode;  /**< Where the driver runs. */
    vx_uint8 num_dev;         /**< {0..LMQ_NUM_DEVICES} Devices in dev_cfg that count. */
    vx_boolean enbl_wd;       /**< TRUE: the watchdog starts with the system. */
    vx_uint32 wd_time;        /**< {s} Time after which it expires, as vx_watchdog_cfg_t.wd_timer. */
    vx_wd_action_e wd_action; /**< What happens when it expires. */
    lmq_dev_startup_cfg_s dev_cfg[LMQ_NUM_DEVICES]; /**< The devices; the first num_dev count. */
    app_lvl_cfg_s app_level_cfg; /**< What the applications are started with; the driver does not read it. */
} vx_startup_cfg_t;

/** @brief What lmq_reset_device resets, and how. */
typedef struct {
    lmq_dev_reset_mode_e rst_mode; /**< How far the reset goes. */
    lmq_dev_reset_type_e rst_type; /**< How the modules are reset; read in mode LMQ_RESET_MODE_ASIC_MODULE alone. */
    vx_uint32 mod_id_bit_map;      /**< {bits of lmq_asic_mod_id_e} The modules, one at least; read in mode
                                      LMQ_RESET_MODE_ASIC_MODULE alone. */
} lmq_sys_reset_cfg_s;

/** @brief The watchdog. */
typedef struct {
    vx_boolean wd_enable;     /**< Whether the watchdog runs. */
    vx_uint32 wd_timer;       /**< {s} Time after which it expires unless the driver strobes it; it does so each
                                 LMQ_WD_STROBE_PERIOD. */
    vx_wd_action_e wd_action; /**< What happens when it expires. */
    struct {
        vx_uint32 wd_enable : 1;
        vx_uint32 wd_timer : 1;
        vx_uint32 wd_action : 1;
        vx_uint32 reserved : 29;
    } mask_s;
} vx_watchdog_cfg_t;

/**
 * @brief Initialises a device after taking it out of reset; for a device that lmq_init_system was told to leave.
 * @par Effect: resets
 * @param[in] dev_id The device.
 * @param[in] p_cfg  Its start configuration; enbl is not read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_init_device(vx_dev_id_t dev_id, lmq_dev_startup_cfg_s *p_cfg);

/**
 * @brief Initialises the driver, and with it all devices that are enabled in the start configuration.
 * @par Effect: resets
 * @param[in] p_cfg The start configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_init_system(vx_startup_cfg_t *p_cfg);

/**
 * @brief Frees all resources and places the chip in reset: the state before lmq_init_system.
 * @par Effect: resets
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_shutdown_system(void);

/**
 * @brief Reads the watchdog.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  The watchdog; the mask flags all of its members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_watchdog_get(vx_dev_id_t dev_id, vx_watchdog_cfg_t *p_cfg);

/**
 * @brief Sets how much a module logs.
 * @par Effect: changes
 * @param[in] mod_id  The module.
 * @param[in] log_lvl The level.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_set_log_level(vx_mod_id_e mod_id, vx_log_lvl_e log_lvl);

/**
 * @brief Reads a register.
 * @par Effect: reads registers
 * @param[in]  dev_id     The device.
 * @param[in]  addr       Address of the register, a multiple of 4.
 * @param[out] p_reg_data {bits} Its content.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_read_register(vx_dev_id_t dev_id, vx_uint32 addr, vx_uint32 *p_reg_data);

/**
 * @brief Switches printing of every register access.
 * @par Effect: changes
 * @param[in] enable TRUE to print each access, FALSE to print none.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_set_reg_dump(vx_boolean enable);

/**
 * @brief Reads the MAC address of the device.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[out] p_mac_addr Its six bytes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mac_addr_get(vx_dev_id_t dev_id, vx_mac_addr_t p_mac_addr);

/**
 * @brief Reads the JTAG identification (IEEE 1149.1) of the device.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[out] jtag_id The identification: version, part number, manufacturer, and a 1 at the end.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_jtag_id_get(vx_dev_id_t dev_id, vx_uint32 *jtag_id);

/**
 * @brief Does what lmq_init_system does, for callers that name a device.
 * @par Effect: resets
 * @param[in] dev_id A device; all devices that are enabled start, whichever it is.
 * @param[in] p_cfg  The start configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_init(vx_dev_id_t dev_id, vx_startup_cfg_t *p_cfg);

/**
 * @brief Sets the members of the watchdog that the mask flags.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The watchdog. Its time begins again.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_watchdog_set(vx_dev_id_t dev_id, vx_watchdog_cfg_t *p_cfg);

/**
 * @brief Prints registers.
 * @par Effect: reads registers
 * @param[in] dev_id    The device.
 * @param[in] addr      Address of the first, a multiple of 4.
 * @param[in] addr_skip {bytes} From one to the next; 0 means 4.
 * @param[in] cnt       How many.
 * @return Registers printed: fewer than cnt if one could not be read.
 */
vx_uint32 lmq_dump_register(vx_dev_id_t dev_id, vx_uint32 addr, vx_uint8 addr_skip, vx_uint8 cnt);

/**
 * @brief Sets the MAC address of the device.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] p_mac_addr Its six bytes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mac_addr_set(vx_dev_id_t dev_id, vx_mac_addr_t p_mac_addr);

/**
 * @brief Resets a device as far as p_cfg->rst_mode says.
 * @par Effect: resets
 * @param[in] dev_id The device.
 * @param[in] p_cfg  Mode, and for modules the type and which.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_reset_device(vx_dev_id_t dev_id, lmq_sys_reset_cfg_s *p_cfg);

/**
 * @brief Resets the driver or the chip.
 * @par Effect: resets
 * @param[in] dev_id   The device.
 * @param[in] rst_mode Which of the two.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_reset(vx_dev_id_t dev_id, vx_reset_mode_t rst_mode);

/**
 * @brief Writes a register.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] addr     Address of the register, a multiple of 4.
 * @param[in] reg_data {bits} What to write.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_write_register(vx_dev_id_t dev_id, vx_uint32 addr, vx_uint32 reg_data);

#ifdef __cplusplus
}
#endif

#endif
