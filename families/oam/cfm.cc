// Connectivity fault management (IEEE 802.1ag): UDTs, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/cfm.h"

namespace lmq {

UDT(vx_1ag_lbm_cfg_t,
    SCALAR(vx_boolean, enbl_lbm_proc),
    SCALAR(vx_boolean, accept_mcast_da),
    SCALAR(vx_uint8,   md_level),
    SCALAR(vx_uint16,  lbr_tx_port),
    SCALAR(vx_uint16,  lbr_tx_gem_port),
    SCALAR(vx_uint8,   lbr_cos),
    MASK(valid, vx_uint32, enbl_lbm_proc, accept_mcast_da, md_level, lbr_tx_port, lbr_tx_gem_port, lbr_cos))

UDT(vx_1ag_ccm_cfg_t,
    SCALAR(vx_cfm_ccm_tx_mode_t, ccm_tx_mode),
    SCALAR(vx_uint32,            repeat_timer),
    SCALAR(vx_boolean,           enbl_seq_num),
    SCALAR(vx_uint16,            seq_num_offset),
    SCALAR(vx_uint32,            seq_num_val),
    MASK(valid, vx_uint32, ccm_tx_mode, repeat_timer, enbl_seq_num, seq_num_offset, seq_num_val))

// gem_port_id has no flag. p_pkt_buff is the packet itself, and always goes out with all of its bytes.
UDT(vx_1ag_ccm_pkt_buf_cfg_t,
    SCALAR(  vx_uint16,  port_num),
    SCALAR(  vx_uint16,  gem_port_id),
    SCALAR(  vx_boolean, enbl_byte_swap),
    SCALAR(  vx_uint16,  pkt_len),
    ELEMENTS(vx_uint8,   p_pkt_buff, 2048),
    MASK(valid, vx_uint32, port_num, enbl_byte_swap, pkt_len, p_pkt_buff))

UDT(vx_1ag_dm_cfg_t,
    SCALAR(vx_boolean,      enbl_rx),
    SCALAR(vx_boolean,      enbl_tx),
    SCALAR(vx_cfm_opcode_t, rx_op_code))

UDT(vx_1ag_stats_t,
    SCALAR(vx_uint32, tx_lbr_pkts),
    SCALAR(vx_uint32, rx_dm_pkts),
    SCALAR(vx_uint32, tx_dm_pkts))

constexpr Help help_vx_1ag_lbm_config_set{
    .title = "Sets Loopback Message configuration",
    .text = "This API configures the processing of loopback messages (LBM) and the sending\n"
            "of the reply (LBR). Only the members that are flagged in the valid mask are set.\n",
    .inputs = "p_cfg  : pointer to a structure containing 802.1ag LBM configuration\n",
};
METHOD(vx_1ag_lbm_config_set, help_vx_1ag_lbm_config_set, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_lbm_cfg_t, p_cfg))

constexpr Help help_vx_1ag_lbm_config_get{
    .title = "Gets Loopback Message configuration",
    .text = "This API gets the configuration of loopback message processing.\n",
    .inputs = "p_cfg  : pointer to a structure containing 802.1ag LBM configuration\n",
    .outputs = "p_cfg : 802.1ag LBM configuration\n",
};
METHOD(vx_1ag_lbm_config_get, help_vx_1ag_lbm_config_get, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_lbm_cfg_t, p_cfg))

constexpr Help help_vx_1ag_ccm_config_set{
    .title = "Sets CCM Message configuration",
    .text = "This API configures the parameters of CCM packet generation. Only the members\n"
            "that are flagged in the valid mask are set.\n",
    .inputs = "p_cfg  : pointer to a structure containing 802.1ag CCM configuration\n",
};
METHOD(vx_1ag_ccm_config_set, help_vx_1ag_ccm_config_set, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_ccm_cfg_t, p_cfg))

constexpr Help help_vx_1ag_ccm_config_get{
    .title = "Gets CCM Message configuration",
    .text = "This API gets the parameters of CCM packet generation.\n",
    .inputs = "p_cfg  : pointer to a structure containing 802.1ag CCM configuration\n",
    .outputs = "p_cfg : 802.1ag CCM configuration\n",
};
METHOD(vx_1ag_ccm_config_get, help_vx_1ag_ccm_config_get, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_ccm_cfg_t, p_cfg))

constexpr Help help_vx_1ag_ccm_pkt_buf_set{
    .title = "Sets CCM Packet Buffer configuration",
    .text = "This API configures the CCM message buffer that the hardware uses when it\n"
            "transmits a CCM packet.\n",
    .inputs = "p_cfg  : pointer to a structure containing 802.1ag CCM PDU\n",
};
METHOD(vx_1ag_ccm_pkt_buf_set, help_vx_1ag_ccm_pkt_buf_set,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_ccm_pkt_buf_cfg_t, p_cfg))

constexpr Help help_vx_1ag_ccm_pkt_buf_get{
    .title = "Gets CCM Packet Buffer configuration",
    .text = "This API dumps the CCM message buffer that the hardware uses when it transmits\n"
            "a CCM packet.\n",
    .inputs = "p_cfg  : pointer to a structure containing 802.1ag CCM PDU\n",
    .outputs = "p_cfg : 802.1ag CCM PDU\n",
};
METHOD(vx_1ag_ccm_pkt_buf_get, help_vx_1ag_ccm_pkt_buf_get,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_ccm_pkt_buf_cfg_t, p_cfg))

// The text describes p_cfg as that of vx_1ag_ccm_pkt_buf_set. No method registers the callback that it speaks of,
// since none passes a function.
constexpr Help help_vx_1ag_dm_config_set{
    .title = "Sets Delay Measurement configuration",
    .text = "This API enables or disables hardware processing of received or transmitted DM\n"
            "messages. When hardware processing isn't required, DM messages can be trapped to\n"
            "the CPU as if they were normal CPU bound packets. When rx is enabled, the rx\n"
            "callback must be configured through vx_1ag_dm_rx_callback_register. Without that\n"
            "callback all trapped messages are discarded.\n",
    .inputs = "port_id : port id\n"
              "p_cfg   : pointer to a structure containing 802.1ag CCM PDU\n",
};
METHOD(vx_1ag_dm_config_set, help_vx_1ag_dm_config_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_1ag_dm_cfg_t, p_cfg))

constexpr Help help_vx_1ag_dm_config_get{
    .title = "Gets Delay Measurement configuration",
    .text = "This API gets the configuration of hardware processing of DM messages.\n",
    .inputs = "port_id : port id\n"
              "p_cfg   : pointer to a structure containing 802.1ag DM configuration\n",
    .outputs = "p_cfg : 802.1ag DM configuration\n",
};
METHOD(vx_1ag_dm_config_get, help_vx_1ag_dm_config_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_1ag_dm_cfg_t, p_cfg))

// The title is that of another function.
constexpr Help help_vx_1ag_stats_get{
    .title = "Send DM packet",
    .text = "This API retrieves 802.1ag packet counters.\n",
    .inputs = "p_stats : pointer to the packet counters\n"
              "clear   : TRUE to clear the counters after reading\n",
    .outputs = "p_stats : packet counters\n",
};
METHOD(vx_1ag_stats_get, help_vx_1ag_stats_get,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_stats_t, p_stats), VALUE(vx_boolean, clear))

} // namespace lmq
