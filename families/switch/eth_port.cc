// The Ethernet ports: their UDTs, then their methods with the help texts. Two methods alone have a text.
#include "families/help.h"
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/eth_port.h"

namespace lmq {

// No flag selects port_type, phy_mode and phy_type: they are only reported.
UDT(vx_eth_port_cfg_t,
    SCALAR(vx_admin_status_t, admin_status),
    SCALAR(vx_eth_cap_t,      port_type),
    SCALAR(vx_eth_phy_mode_t, phy_mode),
    SCALAR(vx_eth_phy_type_t, phy_type),
    SCALAR(vx_uint8,          tx_ipg),
    SCALAR(vx_uint8,          rx_ipg),
    SCALAR(vx_boolean,        tx_enable),
    SCALAR(vx_boolean,        rx_enable),
    SCALAR(vx_boolean,        crc_bypass),
    SCALAR(vx_boolean,        drop_under_sized_pkt),
    SCALAR(vx_mdi_mode_t,     mdix_mode),
    FLAGS(valid, admin_status, tx_ipg, rx_ipg, tx_enable, rx_enable, crc_bypass, drop_under_sized_pkt, mdix_mode))

UDT(vx_eth_port_status_t,
    SCALAR(vx_link_status_t, link_status),
    SCALAR(vx_speed_t,       speed),
    SCALAR(vx_duplex_t,      duplex))

UDT(vx_eth_port_eee_cfg_t,
    SCALAR(vx_boolean, enbl_eee),
    SCALAR(vx_uint8,   min_tx_sleep_time),
    SCALAR(vx_uint16,  pre_tx_sleep_timeout_delay),
    SCALAR(vx_uint8,   min_tx_wake_time),
    SCALAR(vx_uint16,  pre_tx_wake_timeout_delay),
    FLAGS(valid, enbl_eee, min_tx_sleep_time, pre_tx_sleep_timeout_delay, min_tx_wake_time, pre_tx_wake_timeout_delay))

UDT(vx_eth_port_eee_sleep_ctrl_t,
    SCALAR(vx_eth_eee_cmd_t, sleep_cmd))

// The bounds are spelled as numbers, and printed so: (0x3) is VX_EEE_THRES_MAX_NUM, ((vx_uint8)8) is LMQ_MAX_COS.
UDT(vx_eth_port_eee_tx_q_thresh_cfg_t,
    ELEMENTS(vx_uint16, low_thresh, (0x3)),
    ELEMENTS(vx_uint16, high_thresh, (0x3)),
    ELEMENTS(vx_uint8,  queue_low_thresh_sel, ((vx_uint8)8)),
    ELEMENTS(vx_uint8,  queue_high_thresh_sel, ((vx_uint8)8)),
    FLAGS(valid, low_thresh, high_thresh, queue_low_thresh_sel, queue_high_thresh_sel))

UDT(vx_eth_port_eee_tx_q_status_t,
    SCALAR(vx_boolean, tx_fifo_empty),
    SCALAR(vx_uint8,   queue_below_low_thresh_bitmap),
    SCALAR(vx_uint8,   queue_above_high_thresh_bitmap))

UDT(vx_eth_port_state_t,
    SCALAR(vx_eee_state_t,       eee_state),
    SCALAR(vx_eee_hw_sm_state_t, hw_sm_state),
    SCALAR(vx_boolean,           rx_in_pause),
    SCALAR(vx_boolean,           tx_pause_state))

// flow_control_mode has no flag.
UDT(vx_flow_control_cfg_t,
    SCALAR(  vx_flow_ctl_mode_t, flow_control_mode),
    SCALAR(  vx_uint8,           high_water_mark),
    SCALAR(  vx_uint8,           low_water_mark),
    SCALAR(  vx_uint8,           pause_time),
    SCALAR(  vx_uint32,          traffic_rate),
    ELEMENTS(vx_mac_addr_t,      mac_sa, 6),
    FLAGS(valid, high_water_mark, low_water_mark, pause_time, traffic_rate, mac_sa))

UDT(vx_eth_port_stats_t,
    SCALAR(vx_uint64, rx_uc_pkt),
    SCALAR(vx_uint64, rx_mc_pkt),
    SCALAR(vx_uint64, rx_bc_pkt),
    SCALAR(vx_uint64, rx_oam_frm),
    SCALAR(vx_uint64, rx_pause_frm),
    SCALAR(vx_uint64, rx_unknown_ctrl_op),
    SCALAR(vx_uint64, rx_crc_frm),
    SCALAR(vx_uint64, rx_short_frm),
    SCALAR(vx_uint64, rx_runt_frm),
    SCALAR(vx_uint64, rx_long_frm),
    SCALAR(vx_uint64, rx_jabber_frm),
    SCALAR(vx_uint64, rx_64_byte_pkt),
    SCALAR(vx_uint64, rx_65_127_byte_pkt),
    SCALAR(vx_uint64, rx_128_255_byte_pkt),
    SCALAR(vx_uint64, rx_256_511_byte_pkt),
    SCALAR(vx_uint64, rx_512_1023_byte_pkt),
    SCALAR(vx_uint64, rx_1024_1518_byte_pkt),
    SCALAR(vx_uint64, rx_1519_max_byte_pkt),
    SCALAR(vx_uint64, rx_bytes),
    SCALAR(vx_uint64, rx_pkts),
    SCALAR(vx_uint64, rx_fifo_overflow_drop),
    SCALAR(vx_uint64, rx_user_drop),
    SCALAR(vx_uint64, rx_fifo_bytes),
    SCALAR(vx_uint64, rx_fifo_pkt),
    SCALAR(vx_uint64, tx_uc_pkt),
    SCALAR(vx_uint64, tx_mc_pkt),
    SCALAR(vx_uint64, tx_bc_pkt),
    SCALAR(vx_uint64, tx_oam_frm),
    SCALAR(vx_uint64, tx_pause_frm),
    SCALAR(vx_uint64, tx_crc_frm),
    SCALAR(vx_uint64, tx_long_frm),
    SCALAR(vx_uint64, tx_64_byte_pkt),
    SCALAR(vx_uint64, tx_65_127_byte_pkt),
    SCALAR(vx_uint64, tx_128_255_byte_pkt),
    SCALAR(vx_uint64, tx_256_511_byte_pkt),
    SCALAR(vx_uint64, tx_512_1023_byte_pkt),
    SCALAR(vx_uint64, tx_1024_1518_byte_pkt),
    SCALAR(vx_uint64, tx_1519_max_byte_pkt),
    SCALAR(vx_uint64, tx_bytes),
    SCALAR(vx_uint64, tx_pkts))

METHOD(vx_eth_port_config_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_cfg_t, p_cfg))
METHOD(vx_eth_port_config_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_cfg_t, p_cfg))

// The mode is a pointer in the set, too: the operation only reads it, and the echo shows it as it was left.
METHOD(vx_eth_port_mode_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_eth_port_mode_t, p_cfg))
METHOD(vx_eth_port_mode_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_eth_port_mode_t, p_cfg))

METHOD(vx_eth_port_auto_nego_restart, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_eth_port_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_status_t, p_cfg))

METHOD(vx_eth_port_loopback_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_eth_port_loopback_t, lpbk_mode))
METHOD(vx_eth_port_loopback_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_eth_port_loopback_t, p_lpbk_mode))

// These two have no prefix vx_, and address a PHY of the device instead of a port.
METHOD(eth_port_phy_mdio_write, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, phy_addr), VALUE(vx_uint8, reg_addr), VALUE(vx_uint16, phy_reg_val))
METHOD(eth_port_phy_mdio_read, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, phy_addr), VALUE(vx_uint8, reg_addr),
       ELEMENT_PTR(vx_uint16, p_phy_reg_val))

METHOD(vx_eth_port_eee_cfg_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_eee_cfg_t, p_cfg))
METHOD(vx_eth_port_eee_cfg_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_eee_cfg_t, p_cfg))
METHOD(vx_eth_port_eee_sleep_ctrl_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_eee_sleep_ctrl_t, p_cfg))
METHOD(vx_eth_port_eee_sleep_ctrl_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_eee_sleep_ctrl_t, p_cfg))
METHOD(vx_eth_port_eee_tx_q_threshold_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_eee_tx_q_thresh_cfg_t, p_cfg))
METHOD(vx_eth_port_eee_tx_q_threshold_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_eee_tx_q_thresh_cfg_t, p_cfg))
METHOD(vx_eth_port_eee_tx_q_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_eee_tx_q_status_t, p_status))
METHOD(vx_eth_port_eee_state_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_state_t, p_state))

METHOD(vx_eth_port_flowctrl_config_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_flow_control_cfg_t, p_cfg))
METHOD(vx_eth_port_flowctrl_config_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_flow_control_cfg_t, p_cfg))
// The flags are values in the set, and two pointers in the get, each with a block of its own.
METHOD(vx_eth_port_flowctrl_enable_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_boolean, rx_pause),
       VALUE(vx_boolean, tx_pause))
METHOD(vx_eth_port_flowctrl_enable_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_boolean, p_rx_pause),
       ELEMENT_PTR(vx_boolean, p_tx_pause))

// The last line of both texts breaks off behind "in ", where the driver's header has a reference.
constexpr Help help_vx_eth_port_stats_get{
    .title = "Retrives ETH port statistics",
    .text = "This API retrieves ethernet port statistics. When clear is TRUE, the counters are\n"
            "cleared after they are read.\n",
    .inputs = "port_id : port id\n"
              "p_stats : where to put the counters\n"
              "clear   : TRUE to clear the counters after reading\n",
    .outputs = "p_stats : ethernet port statistics\n",
    .returns = returns_unfinished,
};
METHOD(vx_eth_port_stats_get, help_vx_eth_port_stats_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_eth_port_stats_t, p_stats),
       VALUE(vx_boolean, clear))

// The title is that of the get, and the last input is none of this operation.
constexpr Help help_vx_eth_port_stats_clear{
    .title = "Retrives ETH port statistics",
    .text = "This API clears ethernet port statistics\n",
    .inputs = "port_id : port id\n"
              ": o Pointer to a structure containing fe port configuration.\n",
    .outputs = "none\n",
    .returns = returns_unfinished,
};
METHOD(vx_eth_port_stats_clear, help_vx_eth_port_stats_clear, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))

} // namespace lmq
