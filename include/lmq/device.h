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
    VX_ADMIN_STATUS_DOWN = 0,
    VX_ADMIN_STATUS_UP = 1,
} vx_admin_status_t;

/** @brief Which side of the interface to its PHY a port plays. */
typedef enum vx_eth_phy_mode_t LMQ_ENUM_INT {
    VX_ETH_PHY_MODE_MAC = 0,
    VX_ETH_PHY_MODE_PHY = 1,
    VX_ETH_PHY_MODE_INVALID = 65535,
} vx_eth_phy_mode_t;

/** @brief What happens when the watchdog expires. */
typedef enum vx_wd_action_e LMQ_ENUM_INT {
    VX_WD_ACTION_WARNING = 0,
    VX_WD_ACTION_REBOOT = 1,
} vx_wd_action_e;

/** @brief What vx_reset resets. */
typedef enum vx_reset_mode_t LMQ_ENUM_INT {
    VX_RESET_DRIVER = 0,
    VX_RESET_CHIP = 1,
} vx_reset_mode_t;

/** @brief What the device is used for: data or voice, as a plain ONU or as a home gateway (HGU). */
typedef enum lmq_dev_op_mode_e LMQ_ENUM_INT {
    LMQ_DEV_OP_MODE_DATA_ONLY = 0,
    LMQ_DEV_OP_MODE_DATA_N_VOIP = 1,
    LMQ_DEV_OP_MODE_HGU_DATA_ONLY = 2,
    LMQ_DEV_OP_MODE_HGU_DATA_N_VOIP = 3,
} lmq_dev_op_mode_e;

/** @brief Where packets are buffered: in internal memory alone (IBM), or also in external memory (EBM). */
typedef enum lmq_pkt_mem_mode_e LMQ_ENUM_INT {
    LMQ_PKT_MEM_MODE_IBM = 0,
    LMQ_PKT_MEM_MODE_IBM_N_EBM = 1,
} lmq_pkt_mem_mode_e;

/** @brief How far lmq_reset_device goes. */
typedef enum lmq_dev_reset_mode_e LMQ_ENUM_INT {
    LMQ_RESET_MODE_CPU_N_ASIC = 0,
    LMQ_RESET_MODE_ONLY_ASIC = 1,
    LMQ_RESET_MODE_ASIC_MODULE = 2,
} lmq_dev_reset_mode_e;

/** @brief Upstream traffic management of the GPON port: bits, which a capability may combine. */
typedef enum vx_gpon_tm_option_t LMQ_ENUM_INT {
    VX_TM_OPTION_DEFAULT = 0,
    VX_TM_OPTION_PRI_CONTROL = 1,
    VX_TM_OPTION_RATE_CONTROL = 2,
    VX_TM_OPTION_PRI_RATE_CONTROL = 4,
    VX_TM_OPTION_WRR = 8,
    VX_TM_OPTION_ALL = 15,
} vx_gpon_tm_option_t;

/** @brief Transmit clock of a gigabit port: in line with the data, or delayed. */
typedef enum vx_eth_ge_txclk_sel_t LMQ_ENUM_INT {
    VX_ETH_GE_TXCLK_INLINE = 0,
    VX_ETH_GE_TXCLK_DELAY = 1,
} vx_eth_ge_txclk_sel_t;

/** @brief How a module is reset. */
typedef enum lmq_dev_reset_type_e LMQ_ENUM_INT {
    LMQ_RESET_TYPE_HARD = 0,
    LMQ_RESET_TYPE_SOFT = 1,
} lmq_dev_reset_type_e;

/** @brief Protection of the SNI (the network side). */
typedef enum lmq_sni_mode_e LMQ_ENUM_INT {
    LMQ_SNI_MODE_NORMAL = 0,
    LMQ_SNI_MODE_FIBER_ONLY_PROTECTION = 1,
    LMQ_SNI_MODE_1_1_PROTECTION = 2,
    LMQ_SNI_MODE_1_PLUS_1_PROTECTION = 3,
    LMQ_SNI_MODE_AE_LAG = 4,
} lmq_sni_mode_e;

/** @brief Where the driver runs: on the chip's own CPU or on an external one. */
typedef enum lmq_cpu_mode_e LMQ_ENUM_INT {
    LMQ_CPU_MODE_INTERNAL = 0,
    LMQ_CPU_MODE_EXTERNAL = 1,
} lmq_cpu_mode_e;

/**
 * @brief The modules of the driver and of the applications, each with the short name that logs show.
 *
 * Expand with an `xx(enumerator, name)` of your own.
 */
#define VX_MODULES_DEFINES \
    xx(VX_MOD_DRVR_GEN,           "gen") \
    xx(VX_MOD_DRVR_DEV,           "dev") \
    xx(VX_MOD_DRVR_PORT,          "port") \
    xx(VX_MOD_DRVR_EPHY,          "ephy") \
    xx(VX_MOD_DRVR_GPON,          "gpon") \
    xx(VX_MOD_DRVR_EPON,          "epon") \
    xx(VX_MOD_DRVR_FE,            "fe") \
    xx(VX_MOD_DRVR_TM,            "tm") \
    xx(VX_MOD_DRVR_EVT,           "evt") \
    xx(VX_MOD_DRVR_PERI,          "peri") \
    xx(VX_MOD_DRVR_PCM,           "pcm") \
    xx(VX_MOD_DRVR_IRQ,           "irq") \
    xx(VX_MOD_DRVR_CFM,           "cfm") \
    xx(VX_MOD_DRVR_TSYNC,         "tsync") \
    xx(VX_MOD_DRVR_PAL,           "pal") \
    xx(VX_MOD_APP_PAL,            "app_pal") \
    xx(VX_MOD_APP_OAL,            "oal") \
    xx(VX_MOD_APP_OMCI,           "omci") \
    xx(VX_MOD_APP_OAM,            "oam") \
    xx(VX_MOD_APP_SWDL,           "app_swdl") \
    xx(VX_MOD_APP_DB,             "dbm") \
    xx(VX_MOD_APP_IGMP,           "igmp") \
    xx(VX_MOD_APP_DHCPC,          "dhcpc") \
    xx(VX_MOD_APP_SYSTEM,         "system") \
    xx(VX_MOD_APP_LOOPDETECT,     "lpdt") \
    xx(VX_MOD_APP_OPM,            "opm") \
    xx(VX_MOD_APP_PLOAM,          "ploam") \
    xx(VX_MOD_APP_LAO,            "lao") \
    xx(VX_MOD_APP_WEB,            "web") \
    xx(VX_MOD_APP_PPPOE,          "pppoe") \
    xx(VX_MOD_LOG_PKT,            "pkt")

/** @brief A module. */
typedef enum vx_mod_id_e LMQ_ENUM_INT {
#define xx(id, name) id,
    VX_MODULES_DEFINES
#undef xx
} vx_mod_id_e;

#define VX_MOD_ID_MIN VX_MOD_DRVR_GEN

/** @brief Modules of the chip: bits. The last two have the top bit set. */
typedef enum lmq_asic_mod_id_e LMQ_ENUM_INT {
    LMQ_ASIC_MOD_ID_PON0 = 1,
    LMQ_ASIC_MOD_ID_PON_SDS0 = 4,
    LMQ_ASIC_MOD_ID_UNI = 16,
    LMQ_ASIC_MOD_ID_MA = 65536,
    LMQ_ASIC_MOD_ID_FE = 131072,
    LMQ_ASIC_MOD_ID_TM = 262144,
    LMQ_ASIC_MOD_ID_BM = 524288,
    LMQ_ASIC_MOD_ID_PCM = 1048576,
    LMQ_ASIC_MOD_ID_PER = 2097152,
    LMQ_ASIC_MOD_ID_DDR_PLL = 536870912,
    LMQ_ASIC_MOD_ID_SDRAM = 1073741824,
    LMQ_ASIC_MOD_ID_CPU = -2147483647 - 1,
    LMQ_ASIC_MOD_ID_ALL = -532742123,
} lmq_asic_mod_id_e;

/** @brief Ports of a device. Ethernet ports count on from VX_PORT_ETH0. */
typedef enum vx_port_num_t LMQ_ENUM_INT {
    VX_PORT_SNI0 = 0,
    VX_PORT_ETH0 = 3,
    VX_PORT_VOIP0 = 5,
    VX_PORT_CPU = 1,
    VX_PORT_MGMT = 2,
} vx_port_num_t;

/** @brief Which chip a device is. */
typedef enum vx_chip_type_t LMQ_ENUM_INT {
    VX_CHIP_UNKNOWN = 0,
    VX_CHIP_QUENTA = 1,
    VX_CHIP_BRELLIN = 2,
    VX_CHIP_FOLMARK = 3,
    VX_CHIP_PALVEN_RODA = 4,
} vx_chip_type_t;

/** @brief Amount of logging: everything up to the level is logged. */
typedef enum vx_log_lvl_e LMQ_ENUM_INT {
    VX_LOG_LVL_MIN = 0,
    VX_LOG_LVL_NONE = 0,
    VX_LOG_LVL_CRITICAL = 1,
    VX_LOG_LVL_MAJOR = 2,
    VX_LOG_LVL_MINOR = 3,
    VX_LOG_LVL_INFO = 4,
    VX_LOG_LVL_DEBUG = 5,
    VX_LOG_LVL_TRACE = 5,
    VX_LOG_LVL_MAX = 6,
} vx_log_lvl_e;

/** @brief Interface between a port and its PHY. */
typedef enum vx_eth_phy_type_t LMQ_ENUM_INT {
    VX_ETH_PHY_TYPE_MII = 0,
    VX_ETH_PHY_TYPE_RMII = 1,
    VX_ETH_PHY_TYPE_GMII = 2,
    VX_ETH_PHY_TYPE_RGMII = 3,
    VX_ETH_PHY_TYPE_S3MII = 4,
    VX_ETH_PHY_TYPE_SMII = 5,
    VX_ETH_PHY_TYPE_SGMII = 6,
    VX_ETH_PHY_TYPE_GIGE = 7,
    VX_ETH_PHY_TYPE_INVALID = 65535,
} vx_eth_phy_type_t;

/** @brief What the SNI of the device is: GPON (ITU-T G.984), EPON or active Ethernet. */
typedef enum lmq_dev_mode_e LMQ_ENUM_INT {
    LMQ_DEV_MODE_GPON = 0,
    LMQ_DEV_MODE_EPON = 1,
    LMQ_DEV_MODE_AE = 2,
    LMQ_DEV_MODE_INVALID = 3,
} lmq_dev_mode_e;

/** @brief DMA of a home gateway. */
typedef struct {
    vx_uint8 num_pkt_batch;
    vx_uint8 nr_desc_multiplier;
    vx_uint8 lso_checksum_en;
} lmq_hgu_dma_cfg_s;

/** @brief General purpose pins at start. Bit n of a pin map is pin n. */
typedef struct {
    vx_uint32 gpio_valid_pins;
    vx_uint32 gpio_intr_pins;
    vx_uint32 gpio_intr_lvl;
    vx_uint32 gpio_dir; /**< 1: output. */
    vx_uint32 gpio_output_val; /**< Level of the outputs. */
    vx_uint32 gpio_dying_gasp_pin;
    vx_uint8 gpio_dying_gasp_intr_lvl;
    vx_uint32 gpio_phy_intr_pins;
    vx_uint32 gpio_phy_intr_lvl;
    vx_uint32 gpio_power_down_sig_pin;
    vx_uint32 gpio_led_pin;
} lmq_gpio_startup_cfg_s;

/** @brief An Ethernet port at start. */
typedef struct {
    vx_boolean add_port; /**< The port is used. */
    vx_admin_status_t admin_status;
    vx_eth_phy_mode_t phy_mode;
    vx_uint32 gpio_phy_intr_pin;
    vx_eth_phy_type_t phy_type;
    vx_uint8 phy_addr; /**< MDIO address of the PHY, 0 to 31. */
    vx_eth_ge_txclk_sel_t ge_txclk_sel;
} vx_eth_port_init_cfg_t;

/** @brief Traffic management of the GPON port at start. */
typedef struct {
    vx_gpon_tm_option_t option;
    vx_uint16 num_sp_tcont; /**< T-CONTs with strict priority. */
    vx_uint16 num_wrr_tcont; /**< T-CONTs with weighted round robin. */
    vx_uint16 pri_q_tcont[VX_MAX_NUM_TCONT_QUEUE]; /**< T-CONT of each priority queue. */
} vx_gpon_tm_init_cfg_t;

/** @brief The GPON port at start. */
typedef struct {
    vx_boolean auto_register; /**< Activate the ONU without a further call. */
    vx_uint8 vendor_id[4]; /**< ITU-T G.984.3: four letters, then serial_num. */
    vx_uint32 serial_num;
    vx_uint8 passwd[10]; /**< ITU-T G.984.3: ten bytes. */
    vx_int16 laser_on_time; /**< In bit times; may be negative. */
    vx_uint16 laser_prebias_time; /**< In bit times. */
    vx_gpon_tm_init_cfg_t tm_init_cfg;
    vx_boolean laser_tx_burst_polarity;
    vx_uint32 to1_timer_threshold; /**< Timer TO1 of ITU-T G.984.3, clause 10. */
} lmq_gpon_startup_cfg_s;

/** @brief A device at start. */
typedef struct {
    vx_boolean enbl; /**< Initialise the device with the system. */
    lmq_dev_mode_e dev_mode;
    vx_uint32 dev_baddr; /**< Base address of the register space. */
    lmq_sni_mode_e sni_mode;
    lmq_pkt_mem_mode_e pkt_mem_mode;
    vx_uint32 os_rsvd_mem_sz; /**< Memory left to the operating system. */
    lmq_dev_op_mode_e dev_op_mode;
    lmq_hgu_dma_cfg_s hgu_dma_cfg;
    vx_uint16 i2c_speed; /**< In kHz. */
    vx_boolean enbl_ssp; /**< Enable the serial port that SPI uses. */
    vx_uint16 spi_speed; /**< In kHz. */
    lmq_gpio_startup_cfg_s gpio_cfg;
    vx_boolean dsbl_1pps_pulse;
    vx_eth_port_init_cfg_t lcl_mgmt_port_cfg;
    vx_char dev_if_name[16]; /**< Name of the management interface; 16 characters fill it without a terminator. */
    vx_mac_addr_t dev_mac_addr;
    vx_ip_addr_t dev_ip_addr;
    vx_ip_addr_t dev_ip_mask;
    vx_ip_addr_t dev_gw_ip;
    lmq_gpon_startup_cfg_s gpon_cfg;
    vx_eth_port_init_cfg_t eth_port_cfg[LMQ_PORT_ETH_NUM];
} lmq_dev_startup_cfg_s;

/** @brief What the applications above the driver are started with. The driver hands it on and does not read it. */
typedef struct {
    vx_uint32 omci_mode;
    vx_uint32 onu_id;
    vx_uint32 l3_port;
    vx_ip_addr_t l3_ip;
    vx_ip_addr_t l3_mask;
    vx_ip_addr_t l3_gw;
    vx_uint16 l3_cvlan;
    vx_uint16 l3_svlan;
    vx_uint8 l3_prio;
    vx_uint32 l3_media_port1;
    vx_uint32 l3_media_port2;
    vx_uint16 l4_dest_port_start;
    vx_uint16 l4_dest_port_end;
    vx_uint16 l4_src_port_start;
    vx_uint16 l4_src_port_end;
    vx_uint8 ignore_arp;
    vx_ip_addr_t omcc_sim_remote_ip;
    vx_ip_addr_t omcc_sim_remote_ip1;
    vx_ip_addr_t omcc_sim_remote_ip2;
    vx_ip_addr_t omcc_sim_remote_ip3;
    vx_uint32 omcc_sim_remote_port;
    vx_uint8 no_pty;
    vx_uint8 pbit_no_change;
    vx_uint8 igmp_stack_enable;
    vx_uint32 omci_mib_ponSlotId;
    vx_uint8 omci_mib_ani_flag;
    vx_uint8 omci_mib_default_tcont_report;
    vx_uint8 omci_mib_init_avc_disable;
    vx_uint8 omci_mib_reset_disable_avc;
    vx_uint32 operator_id;
    vx_uint8 ctc_spec_version;
    vx_uint8 onu_type;
    vx_uint8 loid[24];
    vx_uint8 passwd[16];
    vx_uint8 log_console_enable;
    vx_uint32 log1_console_cfg;
    vx_uint32 log2_console_cfg;
    vx_uint8 log_telnet_enable;
    vx_uint32 log1_telnet_cfg;
    vx_uint32 log2_telnet_cfg;
    vx_uint32 log_omci_mod;
    vx_uint32 log_omci_trace_mask;
    vx_uint8 subport_iphost_enbl[4];
    vx_ip_addr_t subport_ip[4];
    vx_ip_addr_t subport_mask[4];
    vx_ip_addr_t subport_gw[4];
    vx_uint32 subport_vtag[4];
    vx_uint16 subport_port[4];
    vx_uint16 subport_allocid[4];
    vx_uint16 subport_tcontid[4];
    vx_uint8 dyn_ip_on_reregister;
    vx_uint8 uni0_iphost_enbl;
    vx_ip_addr_t uni0_ip;
    vx_ip_addr_t uni0_mask;
    vx_ip_addr_t uni0_gw;
    vx_uint32 uni0_vtag;
    vx_uint8 uni1_iphost_enbl;
    vx_ip_addr_t uni1_ip;
    vx_ip_addr_t uni1_mask;
    vx_ip_addr_t uni1_gw;
    vx_uint32 uni1_vtag;
    vx_uint8 serial_num_enbl;
    vx_uint32 serial_vendor_id;
    vx_uint8 serial_vendor_specific[16];
    vx_uint8 onu_password[16];
    vx_uint8 device_name[16];
    vx_uint8 device_param_enable;
    vx_mac_addr_t device_mac;
    vx_uint8 llid_num;
    vx_mac_addr_t llid_mac;
    vx_uint8 mac_filter_egress_wa;
    vx_uint8 epon_default_flows;
} app_lvl_cfg_s;

/** @brief The whole start configuration: system, devices and applications. */
typedef struct {
    lmq_cpu_mode_e cpu_mode;
    vx_uint8 num_dev; /**< Devices in dev_cfg that count, at most LMQ_NUM_DEVICES. */
    vx_boolean enbl_wd; /**< Start the watchdog. */
    vx_uint32 wd_time; /**< Watchdog period, as vx_watchdog_cfg_t.wd_timer. */
    vx_wd_action_e wd_action;
    lmq_dev_startup_cfg_s dev_cfg[LMQ_NUM_DEVICES];
    app_lvl_cfg_s app_level_cfg;
} vx_startup_cfg_t;

/** @brief What lmq_reset_device resets, and how. */
typedef struct {
    lmq_dev_reset_mode_e rst_mode;
    lmq_dev_reset_type_e rst_type; /**< Read in mode LMQ_RESET_MODE_ASIC_MODULE alone. */
    vx_uint32 mod_id_bit_map; /**< The modules to reset: bits of lmq_asic_mod_id_e; read in mode LMQ_RESET_MODE_ASIC_MODULE alone. */
} lmq_sys_reset_cfg_s;

/** @brief The watchdog. */
typedef struct {
    vx_boolean wd_enable;
    vx_uint32 wd_timer; /**< Period, in seconds. */
    vx_wd_action_e wd_action;
    struct {
        vx_uint32 wd_enable : 1;
        vx_uint32 wd_timer : 1;
        vx_uint32 wd_action : 1;
        vx_uint32 reserved : 29;
    } mask_s;
} vx_watchdog_cfg_t;

/**
 * @brief Initialises a device after taking it out of reset; for a device that lmq_init_system was told to leave.
 * @param dev_id The device.
 * @param p_cfg  Its start configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_init_device(vx_dev_id_t dev_id, lmq_dev_startup_cfg_s *p_cfg);

/**
 * @brief Initialises the driver, and with it all devices that are enabled in the start configuration.
 * @param p_cfg The start configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_init_system(vx_startup_cfg_t *p_cfg);

/** @brief Frees all resources and places the chip in reset: the state before lmq_init_system. @return VX_SUCCESS or a status. */
vx_status_e lmq_shutdown_system(void);

/**
 * @brief Reads the watchdog.
 * @param dev_id The device.
 * @param p_cfg  Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_watchdog_get(vx_dev_id_t dev_id, vx_watchdog_cfg_t *p_cfg);

/**
 * @brief Sets how much a module logs.
 * @param mod_id  The module.
 * @param log_lvl The level.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_set_log_level(vx_mod_id_e mod_id, vx_log_lvl_e log_lvl);

/**
 * @brief Reads a register.
 * @param dev_id     The device.
 * @param addr       Address of the register.
 * @param p_reg_data Where to write its content.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_read_register(vx_dev_id_t dev_id, vx_uint32 addr, vx_uint32 *p_reg_data);

/**
 * @brief Switches printing of every register access.
 * @param enable TRUE to print.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_set_reg_dump(vx_boolean enable);

/**
 * @brief Reads the MAC address of the device.
 * @param dev_id     The device.
 * @param p_mac_addr Where to write its six bytes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mac_addr_get(vx_dev_id_t dev_id, vx_mac_addr_t p_mac_addr);

/**
 * @brief Reads the JTAG identification (IEEE 1149.1) of the device.
 * @param dev_id  The device.
 * @param jtag_id Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_jtag_id_get(vx_dev_id_t dev_id, vx_uint32 *jtag_id);

/**
 * @brief Does what lmq_init_system does, for callers that name a device.
 * @param dev_id The device.
 * @param p_cfg  The start configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_init(vx_dev_id_t dev_id, vx_startup_cfg_t *p_cfg);

/**
 * @brief Sets the members of the watchdog that the mask flags.
 * @param dev_id The device.
 * @param p_cfg  The watchdog.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_watchdog_set(vx_dev_id_t dev_id, vx_watchdog_cfg_t *p_cfg);

/**
 * @brief Prints registers.
 * @param dev_id    The device.
 * @param addr      Address of the first.
 * @param addr_skip Bytes from one to the next; 0 means 4.
 * @param cnt       How many.
 * @return Registers printed.
 */
vx_uint32 lmq_dump_register(vx_dev_id_t dev_id, vx_uint32 addr, vx_uint8 addr_skip, vx_uint8 cnt);

/**
 * @brief Sets the MAC address of the device.
 * @param dev_id     The device.
 * @param p_mac_addr Its six bytes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mac_addr_set(vx_dev_id_t dev_id, vx_mac_addr_t p_mac_addr);

/**
 * @brief Resets a device as far as p_cfg->rst_mode says.
 * @param dev_id The device.
 * @param p_cfg  Mode, and for modules the type and which.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_reset_device(vx_dev_id_t dev_id, lmq_sys_reset_cfg_s *p_cfg);

/**
 * @brief Resets the driver or the chip.
 * @param dev_id   The device.
 * @param rst_mode Which of the two.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_reset(vx_dev_id_t dev_id, vx_reset_mode_t rst_mode);

/**
 * @brief Writes a register.
 * @param dev_id   The device.
 * @param addr     Address of the register.
 * @param reg_data What to write.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_write_register(vx_dev_id_t dev_id, vx_uint32 addr, vx_uint32 reg_data);

#ifdef __cplusplus
}
#endif

#endif
