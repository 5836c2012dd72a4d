// GPON traffic management and statistics: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
#include "lmq/gpon_tm.h"

namespace lmq {

UDT(vx_gpon_tm_info_t,
    SCALAR(vx_gpon_tm_option_t, tm_options),
    SCALAR(vx_uint16,           num_tcont),
    SCALAR(vx_uint16,           num_sched),
    SCALAR(vx_uint16,           num_us_pri_q),
    SCALAR(vx_uint16,           num_ds_pri_q))

UDT(vx_gpon_tm_tcont_info_t,
    SCALAR(vx_uint16,  tcont_id),
    SCALAR(vx_boolean, is_omci))

UDT(vx_gpon_tm_tcont_cfg_t,
    SCALAR(vx_gpon_tm_sched_mode_t, sched_mode),
    SCALAR(vx_uint8,                num_sp_queues))

UDT(vx_gpon_tm_pri_q_mapping_t,
    // tcont_id is a key at two depths; uni_port, read second, lies over pon_id.
    INLINE(map_id,
        INLINE(map_id.tcont_id,
            SCALAR(vx_uint16, map_id.tcont_id.pon_id),
            SCALAR(vx_uint16, map_id.tcont_id.tcont_id)),
        SCALAR(vx_uint16, map_id.uni_port)))

UDT(vx_gpon_tm_gem_mapping_t,
    SCALAR(vx_uint16, pri_q_id))

UDT(vx_gpon_gem_traffic_desc_cfg_t,
    SCALAR(vx_wred_mode_t, pol_mode),
    SCALAR(vx_uint32,      cir_rate),
    SCALAR(vx_uint32,      pir_rate),
    SCALAR(vx_uint32,      commit_burst),
    SCALAR(vx_uint32,      peak_burst))

UDT(vx_gpon_gem_rate_limit_cfg_t,
    SCALAR(vx_boolean, enbl_us_rate_limit),
    SCALAR(vx_uint32,  us_gem_td_id),
    SCALAR(vx_boolean, enbl_ds_rate_limit),
    SCALAR(vx_uint32,  ds_gem_td_id))

UDT(vx_gpon_mac_stats_t,
    SCALAR(vx_uint32, o5_state_transition),
    SCALAR(vx_uint32, bip_err_cnt),
    SCALAR(vx_uint32, ds_gpon_frm_cnt),
    SCALAR(vx_uint32, rx_gem_frag_drop),
    SCALAR(vx_uint32, rx_gem_1bit_err),
    SCALAR(vx_uint32, rx_gem_2bit_err),
    SCALAR(vx_uint32, rx_gem_uncorr_err),
    SCALAR(vx_uint32, bwmap_drop),
    SCALAR(vx_uint32, plend_err),
    SCALAR(vx_uint32, plend_corr_bit_err),
    SCALAR(vx_uint32, ds_crc_pkt),
    SCALAR(vx_uint32, ds_undersz_pkt),
    SCALAR(vx_uint32, ds_oversz_pkt))

UDT(vx_gpon_fec_stats_t,
    SCALAR(vx_uint32, rx_blk_cnt),
    SCALAR(vx_uint32, no_err_blk_cnt),
    SCALAR(vx_uint32, corr_blk_cnt),
    SCALAR(vx_uint32, uncorr_blk_cnt),
    SCALAR(vx_uint32, tot_corr_byte_cnt))

UDT(vx_gpon_ploam_stats_t,
    SCALAR(  vx_uint32, rx_ploamd_crc),
    ELEMENTS(vx_uint32, rx_ploamd_cnt, 256),
    ELEMENTS(vx_uint32, tx_ploamu_cnt, 256))

UDT(vx_gpon_tcont_stats_t,
    SCALAR(vx_uint32, us_pkt_cnt))

UDT(vx_gpon_gem_port_stats_t,
    SCALAR(vx_uint32, ds_pkt_cnt),
    SCALAR(vx_uint32, ds_blk_cnt),
    SCALAR(vx_uint32, us_pkt_cnt))

UDT(lmq_tcont_queue_info,
    SCALAR(vx_uint8,  dwrr_ratio),
    SCALAR(vx_uint8,  pkt_cnt),
    SCALAR(vx_uint16, byte_cnt))

UDT(lmq_tcont_queue_status_s,
    SCALAR(   vx_boolean,           dual_frag_status),
    SCALAR(   vx_boolean,           tcont_sched_status),
    SCALAR(   vx_uint16,            tcont_bitmap),
    ELEMENTS( vx_uint32,            que_bitmap, VX_GPON_MAX_TCONTS),
    UDT_ARRAY(lmq_tcont_queue_info, que_status, VX_MAX_NUM_TCONT_QUEUE))

METHOD(vx_gpon_onu_tm_info_get, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_gpon_tm_info_t, p_info))
METHOD(vx_gpon_onu_tcont_tm_info_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, get_cnt), UDT_PTR(vx_gpon_tm_tcont_info_t, p_info), ELEMENT_PTR(vx_uint16, p_valid_cnt))
METHOD(vx_gpon_onu_tcont_sched_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, tcont_id), UDT_PTR(vx_gpon_tm_tcont_cfg_t, p_cfg))
METHOD(vx_gpon_onu_tcont_sched_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, tcont_id), UDT_PTR(vx_gpon_tm_tcont_cfg_t, p_cfg))
METHOD(vx_gpon_onu_tcont_queue_map_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, queue_id), UDT_PTR(vx_gpon_tm_pri_q_mapping_t, p_cfg))
METHOD(vx_gpon_onu_tcont_queue_map_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, queue_id), UDT_PTR(vx_gpon_tm_pri_q_mapping_t, p_cfg))
METHOD(vx_gpon_onu_gem_us_queue_map_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), UDT_PTR(vx_gpon_tm_gem_mapping_t, p_cfg))
METHOD(vx_gpon_onu_gem_us_queue_map_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), UDT_PTR(vx_gpon_tm_gem_mapping_t, p_cfg))
METHOD(vx_gpon_onu_gem_ds_queue_map_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), UDT_PTR(vx_gpon_tm_gem_mapping_t, p_cfg))
METHOD(vx_gpon_onu_gem_ds_queue_map_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), UDT_PTR(vx_gpon_tm_gem_mapping_t, p_cfg))
METHOD(vx_gpon_onu_gem_traffic_desc_create, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_gpon_gem_td_id_t, gem_td_id), UDT_PTR(vx_gpon_gem_traffic_desc_cfg_t, p_cfg))
METHOD(vx_gpon_onu_gem_traffic_desc_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_gpon_gem_td_id_t, gem_td_id))
METHOD(vx_gpon_onu_gem_traffic_desc_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_gpon_gem_td_id_t, gem_td_id), UDT_PTR(vx_gpon_gem_traffic_desc_cfg_t, p_cfg))
METHOD(vx_gpon_onu_gem_traffic_desc_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_gpon_gem_td_id_t, gem_td_id), UDT_PTR(vx_gpon_gem_traffic_desc_cfg_t, p_cfg))
METHOD(vx_gpon_onu_gem_rate_limit_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), UDT_PTR(vx_gpon_gem_rate_limit_cfg_t, p_cfg))
METHOD(vx_gpon_onu_gem_rate_limit_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), UDT_PTR(vx_gpon_gem_rate_limit_cfg_t, p_cfg))
METHOD(vx_gpon_onu_us_queue_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, us_pri_q), ELEMENT_PTR(vx_boolean, p_active))
METHOD(vx_gpon_onu_mac_stats_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_mac_stats_t, p_stat))
METHOD(vx_gpon_onu_mac_stats_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_gpon_onu_fec_stats_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_fec_stats_t, p_stat), VALUE(vx_boolean, clear))
METHOD(vx_gpon_onu_fec_stats_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(lmq_enable_gpon_ploam_stats, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), VALUE(vx_boolean, all_msg_types), VALUE(vx_uint8, msg_type_cnt), ELEMENT_PTR(vx_uint8, p_msg_list))
METHOD(lmq_disable_gpon_ploam_stats, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), VALUE(vx_boolean, all_msg_types), VALUE(vx_uint8, msg_type_cnt), ELEMENT_PTR(vx_uint8, p_msg_list))
METHOD(vx_gpon_onu_ploam_stats_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_ploam_stats_t, p_stats), VALUE(vx_boolean, clear))
METHOD(vx_gpon_onu_ploam_stats_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_gpon_onu_tcont_stats_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tcont_id), UDT_PTR(vx_gpon_tcont_stats_t, p_stats), VALUE(vx_boolean, clear))
METHOD(vx_gpon_onu_tcont_stats_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tcont_id))
METHOD(vx_gpon_onu_omcc_stats_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_gem_port_stats_t, p_stats), VALUE(vx_boolean, clear))
METHOD(vx_gpon_onu_omcc_stats_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_gpon_onu_gem_stats_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_id), UDT_PTR(vx_gpon_gem_port_stats_t, p_stats), VALUE(vx_boolean, clear))
METHOD(vx_gpon_onu_gem_stats_clear, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_id))
METHOD(vx_gpon_onu_tcont_queue_status_get, no_help,
       VALUE(vx_dev_id_t, device_id), VALUE(vx_port_id_t, port_id), UDT_PTR(lmq_tcont_queue_status_s, p_status))

} // namespace lmq
