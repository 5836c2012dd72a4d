// 802.1ag: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
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

METHOD(vx_1ag_dm_config_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_1ag_dm_cfg_t, p_cfg))
METHOD(vx_1ag_ccm_pkt_buf_get, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_ccm_pkt_buf_cfg_t, p_cfg))
METHOD(vx_1ag_lbm_config_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_lbm_cfg_t, p_cfg))
METHOD(vx_1ag_lbm_config_set, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_lbm_cfg_t, p_cfg))
METHOD(vx_1ag_ccm_config_set, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_ccm_cfg_t, p_cfg))
METHOD(vx_1ag_ccm_pkt_buf_set, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_ccm_pkt_buf_cfg_t, p_cfg))
METHOD(vx_1ag_dm_config_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_1ag_dm_cfg_t, p_cfg))
METHOD(vx_1ag_stats_get, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_stats_t, p_stats), VALUE(vx_boolean, clear))
METHOD(vx_1ag_ccm_config_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1ag_ccm_cfg_t, p_cfg))

} // namespace lmq
