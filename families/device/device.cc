// The device's life cycle: UDTs of the start configuration, inner ones first, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/device.h"

namespace lmq {

UDT(lmq_hgu_dma_cfg_s,
    SCALAR(vx_uint8, num_pkt_batch),
    SCALAR(vx_uint8, nr_desc_multiplier),
    SCALAR(vx_uint8, lso_checksum_en))

UDT(lmq_gpio_startup_cfg_s,
    SCALAR(vx_uint32, gpio_valid_pins),
    SCALAR(vx_uint32, gpio_intr_pins),
    SCALAR(vx_uint32, gpio_intr_lvl),
    SCALAR(vx_uint32, gpio_dir),
    SCALAR(vx_uint32, gpio_output_val),
    SCALAR(vx_uint32, gpio_dying_gasp_pin),
    SCALAR(vx_uint8,  gpio_dying_gasp_intr_lvl),
    SCALAR(vx_uint32, gpio_phy_intr_pins),
    SCALAR(vx_uint32, gpio_phy_intr_lvl),
    SCALAR(vx_uint32, gpio_power_down_sig_pin),
    SCALAR(vx_uint32, gpio_led_pin))

UDT(vx_eth_port_init_cfg_t,
    SCALAR(vx_boolean,            add_port),
    SCALAR(vx_admin_status_t,     admin_status),
    SCALAR(vx_eth_phy_mode_t,     phy_mode),
    SCALAR(vx_uint32,             gpio_phy_intr_pin),
    SCALAR(vx_eth_phy_type_t,     phy_type),
    SCALAR(vx_uint8,              phy_addr),
    SCALAR(vx_eth_ge_txclk_sel_t, ge_txclk_sel))

UDT(vx_gpon_tm_init_cfg_t,
    SCALAR(  vx_gpon_tm_option_t, option),
    SCALAR(  vx_uint16,           num_sp_tcont),
    SCALAR(  vx_uint16,           num_wrr_tcont),
    ELEMENTS(vx_uint16,           pri_q_tcont, VX_MAX_NUM_TCONT_QUEUE))

UDT(lmq_gpon_startup_cfg_s,
    SCALAR(  vx_boolean,            auto_register),
    ELEMENTS(vx_uint8,              vendor_id, 4),
    SCALAR(  vx_uint32,             serial_num),
    ELEMENTS(vx_uint8,              passwd, 10),
    SCALAR(  vx_int16,              laser_on_time),
    SCALAR(  vx_uint16,             laser_prebias_time),
    NESTED(  vx_gpon_tm_init_cfg_t, tm_init_cfg),
    SCALAR(  vx_boolean,            laser_tx_burst_polarity),
    SCALAR(  vx_uint32,             to1_timer_threshold))

// dev_if_name is the one string of the interface, and the one member whose length is tested.
UDT(lmq_dev_startup_cfg_s,
    SCALAR(   vx_boolean,             enbl),
    SCALAR(   lmq_dev_mode_e,         dev_mode),
    SCALAR(   vx_uint32,              dev_baddr),
    SCALAR(   lmq_sni_mode_e,         sni_mode),
    SCALAR(   lmq_pkt_mem_mode_e,     pkt_mem_mode),
    SCALAR(   vx_uint32,              os_rsvd_mem_sz),
    SCALAR(   lmq_dev_op_mode_e,      dev_op_mode),
    NESTED(   lmq_hgu_dma_cfg_s,      hgu_dma_cfg),
    SCALAR(   vx_uint16,              i2c_speed),
    SCALAR(   vx_boolean,             enbl_ssp),
    SCALAR(   vx_uint16,              spi_speed),
    NESTED(   lmq_gpio_startup_cfg_s, gpio_cfg),
    SCALAR(   vx_boolean,             dsbl_1pps_pulse),
    NESTED(   vx_eth_port_init_cfg_t, lcl_mgmt_port_cfg),
    STRING(dev_if_name, 16),
    ELEMENTS( vx_mac_addr_t,          dev_mac_addr, 6),
    NESTED(   vx_ip_addr_t,           dev_ip_addr),
    NESTED(   vx_ip_addr_t,           dev_ip_mask),
    NESTED(   vx_ip_addr_t,           dev_gw_ip),
    NESTED(   lmq_gpon_startup_cfg_s, gpon_cfg),
    UDT_ARRAY(vx_eth_port_init_cfg_t, eth_port_cfg, LMQ_PORT_ETH_NUM))

UDT(app_lvl_cfg_s,
    SCALAR(   vx_uint32,     omci_mode),
    SCALAR(   vx_uint32,     onu_id),
    SCALAR(   vx_uint32,     l3_port),
    NESTED(   vx_ip_addr_t,  l3_ip),
    NESTED(   vx_ip_addr_t,  l3_mask),
    NESTED(   vx_ip_addr_t,  l3_gw),
    SCALAR(   vx_uint16,     l3_cvlan),
    SCALAR(   vx_uint16,     l3_svlan),
    SCALAR(   vx_uint8,      l3_prio),
    SCALAR(   vx_uint32,     l3_media_port1),
    SCALAR(   vx_uint32,     l3_media_port2),
    SCALAR(   vx_uint16,     l4_dest_port_start),
    SCALAR(   vx_uint16,     l4_dest_port_end),
    SCALAR(   vx_uint16,     l4_src_port_start),
    SCALAR(   vx_uint16,     l4_src_port_end),
    SCALAR(   vx_uint8,      ignore_arp),
    NESTED(   vx_ip_addr_t,  omcc_sim_remote_ip),
    NESTED(   vx_ip_addr_t,  omcc_sim_remote_ip1),
    NESTED(   vx_ip_addr_t,  omcc_sim_remote_ip2),
    NESTED(   vx_ip_addr_t,  omcc_sim_remote_ip3),
    SCALAR(   vx_uint32,     omcc_sim_remote_port),
    SCALAR(   vx_uint8,      no_pty),
    SCALAR(   vx_uint8,      pbit_no_change),
    SCALAR(   vx_uint8,      igmp_stack_enable),
    SCALAR(   vx_uint32,     omci_mib_ponSlotId),
    SCALAR(   vx_uint8,      omci_mib_ani_flag),
    SCALAR(   vx_uint8,      omci_mib_default_tcont_report),
    SCALAR(   vx_uint8,      omci_mib_init_avc_disable),
    SCALAR(   vx_uint8,      omci_mib_reset_disable_avc),
    SCALAR(   vx_uint32,     operator_id),
    SCALAR(   vx_uint8,      ctc_spec_version),
    SCALAR(   vx_uint8,      onu_type),
    ELEMENTS( vx_uint8,      loid, 24),
    ELEMENTS( vx_uint8,      passwd, 16),
    SCALAR(   vx_uint8,      log_console_enable),
    SCALAR(   vx_uint32,     log1_console_cfg),
    SCALAR(   vx_uint32,     log2_console_cfg),
    SCALAR(   vx_uint8,      log_telnet_enable),
    SCALAR(   vx_uint32,     log1_telnet_cfg),
    SCALAR(   vx_uint32,     log2_telnet_cfg),
    SCALAR(   vx_uint32,     log_omci_mod),
    SCALAR(   vx_uint32,     log_omci_trace_mask),
    ELEMENTS( vx_uint8,      subport_iphost_enbl, 4),
    UDT_ARRAY(vx_ip_addr_t,  subport_ip, 4),
    UDT_ARRAY(vx_ip_addr_t,  subport_mask, 4),
    UDT_ARRAY(vx_ip_addr_t,  subport_gw, 4),
    ELEMENTS( vx_uint32,     subport_vtag, 4),
    ELEMENTS( vx_uint16,     subport_port, 4),
    ELEMENTS( vx_uint16,     subport_allocid, 4),
    ELEMENTS( vx_uint16,     subport_tcontid, 4),
    SCALAR(   vx_uint8,      dyn_ip_on_reregister),
    SCALAR(   vx_uint8,      uni0_iphost_enbl),
    NESTED(   vx_ip_addr_t,  uni0_ip),
    NESTED(   vx_ip_addr_t,  uni0_mask),
    NESTED(   vx_ip_addr_t,  uni0_gw),
    SCALAR(   vx_uint32,     uni0_vtag),
    SCALAR(   vx_uint8,      uni1_iphost_enbl),
    NESTED(   vx_ip_addr_t,  uni1_ip),
    NESTED(   vx_ip_addr_t,  uni1_mask),
    NESTED(   vx_ip_addr_t,  uni1_gw),
    SCALAR(   vx_uint32,     uni1_vtag),
    SCALAR(   vx_uint8,      serial_num_enbl),
    SCALAR(   vx_uint32,     serial_vendor_id),
    ELEMENTS( vx_uint8,      serial_vendor_specific, 16),
    ELEMENTS( vx_uint8,      onu_password, 16),
    ELEMENTS( vx_uint8,      device_name, 16),
    SCALAR(   vx_uint8,      device_param_enable),
    ELEMENTS( vx_mac_addr_t, device_mac, 6),
    SCALAR(   vx_uint8,      llid_num),
    ELEMENTS( vx_mac_addr_t, llid_mac, 6),
    SCALAR(   vx_uint8,      mac_filter_egress_wa),
    SCALAR(   vx_uint8,      epon_default_flows))

UDT(vx_startup_cfg_t,
    SCALAR(   lmq_cpu_mode_e,        cpu_mode),
    SCALAR(   vx_uint8,              num_dev),
    SCALAR(   vx_boolean,            enbl_wd),
    SCALAR(   vx_uint32,             wd_time),
    SCALAR(   vx_wd_action_e,        wd_action),
    UDT_ARRAY(lmq_dev_startup_cfg_s, dev_cfg, LMQ_NUM_DEVICES),
    NESTED(   app_lvl_cfg_s,         app_level_cfg))

UDT(lmq_sys_reset_cfg_s,
    SCALAR(lmq_dev_reset_mode_e, rst_mode),
    SCALAR(lmq_dev_reset_type_e, rst_type),
    SCALAR(vx_uint32,            mod_id_bit_map))

// The mask has no level around it and no word beside it: fault texts name mask_s.
UDT(vx_watchdog_cfg_t,
    SCALAR(vx_boolean,     wd_enable),
    SCALAR(vx_uint32,      wd_timer),
    SCALAR(vx_wd_action_e, wd_action),
    FLAGS(mask_s, wd_enable, wd_timer, wd_action, reserved))

constexpr Help help_lmq_init_system{
    .title = "Initialize LMQ system",
    .text = "This API initializes the system driver and the chip from the startup configuration.\n"
            "It is to be called by an application task upon boot-up. When the application\n"
            "indicates that it wants all devices in the startup configuration enabled, all\n"
            "devices are initialized, and lmq_init_device need not be called.\n"
            "On success the system is ready to accept other requests.\n",
    .device = false,
    .inputs = "p_cfg : startup configuration\n",
};
METHOD(lmq_init_system, help_lmq_init_system, UDT_PTR(vx_startup_cfg_t, p_cfg))

// The text is that of lmq_init_system, though a dev_id stands before the configuration.
METHOD(vx_init, help_lmq_init_system, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_startup_cfg_t, p_cfg))

constexpr Help help_lmq_init_device{
    .title = "DEIVCE LEVEL LMQ INITIALIZATION",
    .text = "This API initializes the ASIC device after taking it out of the reset state.\n"
            "It is to be called when the ASIC is not initialized by lmq_init_system.\n",
    .inputs = "p_cfg  : device level startup configuration\n",
};
METHOD(lmq_init_device, help_lmq_init_device, VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_dev_startup_cfg_s, p_cfg))

// The one text without an INPUTS section.
constexpr Help help_lmq_shutdown_system{
    .title = "Shutdown LMQ system",
    .text = "This API frees all system resources and places the ASIC in the reset state.\n"
            "The state is that before lmq_init_system after boot-up. The application may\n"
            "restart by calling lmq_init_system.\n",
};
METHOD(lmq_shutdown_system, help_lmq_shutdown_system)

constexpr Help help_lmq_reset_device{
    .title = "Reset a device",
    .text = "This API resets a device in one of three modes.\n"
            "CPU_AND_ASIC: the same as a reboot. The reset type is ignored.\n"
            "ASIC_ONLY: all device-related data is cleaned up, including event registrations\n"
            "and CPU trap registrations. The state is that after lmq_init_system and before\n"
            "lmq_init_device. A hard reset is always issued, and the reset type is ignored.\n"
            "ASIC_MODULE: all configuration data is preserved, and the driver restores the\n"
            "hardware state from before a module was reset.\n",
    .inputs = "p_cfg  : reset configuration\n",
};
METHOD(lmq_reset_device, help_lmq_reset_device, VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_sys_reset_cfg_s, p_cfg))

METHOD(vx_reset, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_reset_mode_t, rst_mode))

METHOD(vx_watchdog_set, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_watchdog_cfg_t, p_cfg))
METHOD(vx_watchdog_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_watchdog_cfg_t, p_cfg))

METHOD(vx_mac_addr_set, no_help, VALUE(vx_dev_id_t, dev_id), ELEMENT_PTR(vx_mac_addr_t, p_mac_addr))
METHOD(vx_mac_addr_get, no_help, VALUE(vx_dev_id_t, dev_id), ELEMENT_PTR(vx_mac_addr_t, p_mac_addr))

METHOD(vx_jtag_id_get, no_help, VALUE(vx_dev_id_t, dev_id), ELEMENT_PTR(vx_uint32, jtag_id))

constexpr Help help_lmq_read_register{
    .title = "Read ASIC Register (DEBUG)",
    .text = "This API reads a register of the ASIC. It is for debugging only.\n",
    .inputs = "addr       : register address\n"
              "p_reg_data : where to put the register's content\n",
    .outputs = "p_reg_data : content of the register\n",
};
METHOD(lmq_read_register, help_lmq_read_register,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, addr), ELEMENT_PTR(vx_uint32, p_reg_data))

constexpr Help help_lmq_write_register{
    .title = "Write ASIC Register (DEBUG)",
    .text = "This API writes a register of the ASIC. It is for debugging only.\n",
    .inputs = "addr     : register address\n"
              "reg_data : what to write\n",
};
METHOD(lmq_write_register, help_lmq_write_register,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, addr), VALUE(vx_uint32, reg_data))

constexpr Help help_lmq_dump_register{
    .title = "Dump ASIC Register (DEBUG)",
    .text = "This API prints registers of the ASIC on the console. It is for debugging only.\n",
    .inputs = "addr      : address of the first register\n"
              "addr_skip : distance from one register to the next\n"
              "cnt       : number of registers\n",
    .returns = "number of registers printed\n",
};
METHOD(lmq_dump_register, help_lmq_dump_register,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, addr), VALUE(vx_uint8, addr_skip), VALUE(vx_uint8, cnt))

constexpr Help help_lmq_dbg_set_reg_dump{
    .title = "Enable/Disable Register Read Write Dump (DEBUG)",
    .text = "This API switches the printing of register reads and writes.\n"
            "It is for debugging only.\n",
    .inputs = "enable : TRUE to print, FALSE not to\n",
};
METHOD(lmq_dbg_set_reg_dump, help_lmq_dbg_set_reg_dump, VALUE(vx_boolean, enable))

constexpr Help help_lmq_dbg_set_log_level{
    .title = "Set Debug Log Level",
    .text = "This API sets the level up to which a module logs.\n",
    .inputs = "mod_id  : module id\n"
              "log_lvl : log level\n",
};
METHOD(lmq_dbg_set_log_level, help_lmq_dbg_set_log_level, VALUE(vx_mod_id_e, mod_id), VALUE(vx_log_lvl_e, log_lvl))

} // namespace lmq
