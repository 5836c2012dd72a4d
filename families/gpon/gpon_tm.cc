// GPON traffic management and counters: inner UDTs first, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
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

// num_sp_queues has 8 bits, and 16 in vx_sched_cfg_t.
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

// The ids are plain words here, not vx_gpon_gem_td_id_t.
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

constexpr Help help_vx_gpon_onu_tm_info_get{
    .title = "Retrieve GPON TM capability",
    .text = "This API retrieves the capability of the GPON traffic manager.\n",
    .inputs = "p_info : where to put the capability\n",
    .outputs = "p_info : TM capability\n",
};
METHOD(vx_gpon_onu_tm_info_get, help_vx_gpon_onu_tm_info_get,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_gpon_tm_info_t, p_info))

constexpr Help help_vx_gpon_onu_tcont_tm_info_get{
    .title = "Retrieve TCONT information related to TM",
    .text = "This API retrieves the T-CONTs as the traffic manager sees them.\n",
    .inputs = "get_cnt     : number of T-CONTs that p_info has room for\n"
              "p_info      : where to put the T-CONTs\n"
              "p_valid_cnt : where to put the number of T-CONTs\n",
    .outputs = "p_info      : T-CONT information\n"
               "p_valid_cnt : number of T-CONTs in p_info\n",
};
METHOD(vx_gpon_onu_tcont_tm_info_get, help_vx_gpon_onu_tcont_tm_info_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, get_cnt), UDT_PTR(vx_gpon_tm_tcont_info_t, p_info),
       ELEMENT_PTR(vx_uint16, p_valid_cnt))

constexpr Help help_vx_gpon_onu_tcont_sched_set{
    .title = "Set T-CONT config",
    .text = "This API sets the scheduler of a T-CONT.\n",
    .inputs = "pon_id   : PON id\n"
              "tcont_id : T-CONT id\n"
              "p_cfg    : scheduler configuration\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_tcont_sched_set, help_vx_gpon_onu_tcont_sched_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, tcont_id),
       UDT_PTR(vx_gpon_tm_tcont_cfg_t, p_cfg))

constexpr Help help_vx_gpon_onu_tcont_sched_get{
    .title = "Get T-CONT config",
    .text = "This API retrieves the scheduler of a T-CONT.\n",
    .inputs = "pon_id   : PON id\n"
              "tcont_id : T-CONT id\n"
              "p_cfg    : where to put the configuration\n",
    .outputs = "p_cfg : scheduler configuration\n",
};
METHOD(vx_gpon_onu_tcont_sched_get, help_vx_gpon_onu_tcont_sched_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, tcont_id),
       UDT_PTR(vx_gpon_tm_tcont_cfg_t, p_cfg))

constexpr Help help_vx_gpon_onu_tcont_queue_map_set{
    .title = "Set U/S Pri-Q Mapping",
    .text = "This API maps an upstream priority queue to a T-CONT.\n",
    .inputs = "queue_id : priority queue id\n"
              "p_cfg    : mapping\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_tcont_queue_map_set, help_vx_gpon_onu_tcont_queue_map_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, queue_id), UDT_PTR(vx_gpon_tm_pri_q_mapping_t, p_cfg))

constexpr Help help_vx_gpon_onu_tcont_queue_map_get{
    .title = "Get U/S Pri-Q Mapping",
    .text = "This API retrieves the mapping of an upstream priority queue.\n",
    .inputs = "queue_id : priority queue id\n"
              "p_cfg    : where to put the mapping\n",
    .outputs = "p_cfg : mapping\n",
};
METHOD(vx_gpon_onu_tcont_queue_map_get, help_vx_gpon_onu_tcont_queue_map_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, queue_id), UDT_PTR(vx_gpon_tm_pri_q_mapping_t, p_cfg))

constexpr Help help_vx_gpon_onu_gem_us_queue_map_set{
    .title = "Set U/S GEM Port Mapping",
    .text = "This API maps a GEM port to an upstream priority queue.\n",
    .inputs = "pon_id      : PON id\n"
              "gem_port_id : GEM port id\n"
              "p_cfg       : mapping\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_us_queue_map_set, help_vx_gpon_onu_gem_us_queue_map_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id),
       UDT_PTR(vx_gpon_tm_gem_mapping_t, p_cfg))

constexpr Help help_vx_gpon_onu_gem_us_queue_map_get{
    .title = "Get U/S GEM Port Mapping",
    .text = "This API retrieves the upstream mapping of a GEM port.\n",
    .inputs = "pon_id      : PON id\n"
              "gem_port_id : GEM port id\n"
              "p_cfg       : where to put the mapping\n",
    .outputs = "p_cfg : mapping\n",
};
METHOD(vx_gpon_onu_gem_us_queue_map_get, help_vx_gpon_onu_gem_us_queue_map_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id),
       UDT_PTR(vx_gpon_tm_gem_mapping_t, p_cfg))

constexpr Help help_vx_gpon_onu_gem_ds_queue_map_set{
    .title = "Set D/S GEM Port Mapping",
    .text = "This API maps a GEM port to a downstream priority queue.\n",
    .inputs = "pon_id      : PON id\n"
              "gem_port_id : GEM port id\n"
              "p_cfg       : mapping\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_ds_queue_map_set, help_vx_gpon_onu_gem_ds_queue_map_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id),
       UDT_PTR(vx_gpon_tm_gem_mapping_t, p_cfg))

constexpr Help help_vx_gpon_onu_gem_ds_queue_map_get{
    .title = "Get D/S GEM Port Mapping",
    .text = "This API retrieves the downstream mapping of a GEM port.\n",
    .inputs = "pon_id      : PON id\n"
              "gem_port_id : GEM port id\n"
              "p_cfg       : where to put the mapping\n",
    .outputs = "p_cfg : mapping\n",
};
METHOD(vx_gpon_onu_gem_ds_queue_map_get, help_vx_gpon_onu_gem_ds_queue_map_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id),
       UDT_PTR(vx_gpon_tm_gem_mapping_t, p_cfg))

constexpr Help help_vx_gpon_onu_gem_traffic_desc_create{
    .title = "Create GEM Traffic Descriptor",
    .text = "This API creates a GEM traffic descriptor.\n",
    .inputs = "gem_td_id : GEM traffic descriptor id\n"
              "p_cfg     : traffic descriptor configuration\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_traffic_desc_create, help_vx_gpon_onu_gem_traffic_desc_create,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_gpon_gem_td_id_t, gem_td_id),
       UDT_PTR(vx_gpon_gem_traffic_desc_cfg_t, p_cfg))

// The text lists a p_cfg, which the method does not take.
constexpr Help help_vx_gpon_onu_gem_traffic_desc_delete{
    .title = "Delete GEM Traffic Descriptor",
    .text = "This API deletes a GEM traffic descriptor.\n",
    .inputs = "gem_td_id : GEM traffic descriptor id\n"
              "p_cfg     : traffic descriptor configuration\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_traffic_desc_delete, help_vx_gpon_onu_gem_traffic_desc_delete,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_gpon_gem_td_id_t, gem_td_id))

constexpr Help help_vx_gpon_onu_gem_traffic_desc_set{
    .title = "Set GEM Traffic Descriptor Config",
    .text = "This API sets the configuration of a GEM traffic descriptor.\n",
    .inputs = "gem_td_id : GEM traffic descriptor id\n"
              "p_cfg     : traffic descriptor configuration\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_traffic_desc_set, help_vx_gpon_onu_gem_traffic_desc_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_gpon_gem_td_id_t, gem_td_id),
       UDT_PTR(vx_gpon_gem_traffic_desc_cfg_t, p_cfg))

constexpr Help help_vx_gpon_onu_gem_traffic_desc_get{
    .title = "Get GEM Traffic Descriptor Config",
    .text = "This API retrieves the configuration of a GEM traffic descriptor.\n",
    .inputs = "gem_td_id : GEM traffic descriptor id\n"
              "p_cfg     : where to put the configuration\n",
    .outputs = "p_cfg : traffic descriptor configuration\n",
};
METHOD(vx_gpon_onu_gem_traffic_desc_get, help_vx_gpon_onu_gem_traffic_desc_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_gpon_gem_td_id_t, gem_td_id),
       UDT_PTR(vx_gpon_gem_traffic_desc_cfg_t, p_cfg))

constexpr Help help_vx_gpon_onu_gem_rate_limit_set{
    .title = "Set GEM Rate Limiter Config",
    .text = "This API sets the rate limiters of a GEM port.\n",
    .inputs = "pon_id      : PON id\n"
              "gem_port_id : GEM port id\n"
              "p_cfg       : rate limiter configuration\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_rate_limit_set, help_vx_gpon_onu_gem_rate_limit_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id),
       UDT_PTR(vx_gpon_gem_rate_limit_cfg_t, p_cfg))

constexpr Help help_vx_gpon_onu_gem_rate_limit_get{
    .title = "Get GEM Rate Limiter Config",
    .text = "This API retrieves the rate limiters of a GEM port.\n",
    .inputs = "pon_id      : PON id\n"
              "gem_port_id : GEM port id\n"
              "p_cfg       : where to put the configuration\n",
    .outputs = "p_cfg : rate limiter configuration\n",
};
METHOD(vx_gpon_onu_gem_rate_limit_get, help_vx_gpon_onu_gem_rate_limit_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id),
       UDT_PTR(vx_gpon_gem_rate_limit_cfg_t, p_cfg))

constexpr Help help_vx_gpon_onu_us_queue_status_get{
    .title = "check whether the pri queue is active",
    .text = "This API checks whether an upstream priority queue is active.\n",
    .inputs = "pon_id   : PON id\n"
              "us_pri_q : upstream priority queue id\n"
              "p_active : where to put the state\n",
    .outputs = "p_active : TRUE when the queue is active\n",
};
METHOD(vx_gpon_onu_us_queue_status_get, help_vx_gpon_onu_us_queue_status_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, us_pri_q),
       ELEMENT_PTR(vx_boolean, p_active))

// The texts of the MAC counters list a bitmap, which neither method takes.
constexpr Help help_vx_gpon_onu_mac_stats_get{
    .title = "Get GPON MAC statistics",
    .text = "This API retrieves the statistics of the GPON MAC.\n",
    .inputs = "port_id : GPON port id\n"
              "bitmap  : Bitmap of parameter to be retrieved\n"
              "p_stat  : where to put the statistics\n",
    .outputs = "p_stat : GPON MAC statistics\n",
};
METHOD(vx_gpon_onu_mac_stats_get, help_vx_gpon_onu_mac_stats_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_mac_stats_t, p_stat))

constexpr Help help_vx_gpon_onu_mac_stats_clear{
    .title = "Clear GPON MAC statistics",
    .text = "This API clears the statistics of the GPON MAC.\n",
    .inputs = "port_id      : GPON port id\n"
              "clear_bitmap : Bitmap of parameter to be cleared\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_mac_stats_clear, help_vx_gpon_onu_mac_stats_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))

constexpr Help help_vx_gpon_onu_fec_stats_get{
    .title = "Get GPON FEC statistics",
    .text = "This API retrieves the statistics of forward error correction.\n"
            "When the flag is set, it clears the counters upon reading.\n",
    .inputs = "port_id : GPON port id\n"
              "p_stat  : where to put the statistics\n"
              "clear   : Flags to enable clear on read if set to TRUE\n",
    .outputs = "p_stat : GPON FEC statistics\n",
};
METHOD(vx_gpon_onu_fec_stats_get, help_vx_gpon_onu_fec_stats_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_fec_stats_t, p_stat),
       VALUE(vx_boolean, clear))

constexpr Help help_vx_gpon_onu_fec_stats_clear{
    .title = "Clears GPON FEC statistics",
    .text = "This API clears the statistics of forward error correction.\n",
    .inputs = "port_id : GPON port id\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_fec_stats_clear, help_vx_gpon_onu_fec_stats_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))

// port_id is a vx_uint16 here, and a vx_port_id_t in the methods around.
METHOD(lmq_enable_gpon_ploam_stats, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), VALUE(vx_boolean, all_msg_types),
       VALUE(vx_uint8, msg_type_cnt), ELEMENT_PTR(vx_uint8, p_msg_list))
METHOD(lmq_disable_gpon_ploam_stats, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), VALUE(vx_boolean, all_msg_types),
       VALUE(vx_uint8, msg_type_cnt), ELEMENT_PTR(vx_uint8, p_msg_list))

// The text says "rx" of both directions.
constexpr Help help_vx_gpon_onu_ploam_stats_get{
    .title = "get GPON ploam statistics",
    .text = "This API retrieves the statistics of PLOAM messages when message counting is enabled.\n"
            "When the flag is set, it clears the counters upon reading.\n"
            "rx_ploamd_crc : the number of rx PLOAMd with crc error\n"
            "rx_ploamd_cnt : rx PLOAMd count per message type\n"
            "tx_ploamu_cnt : rx PLOAMu count per message type\n",
    .inputs = "port_id : GPON port id\n"
              "p_stats : where to put the statistics\n"
              "clear   : Clear on read flag\n",
    .outputs = "p_stats : PLOAM statistics\n",
};
METHOD(vx_gpon_onu_ploam_stats_get, help_vx_gpon_onu_ploam_stats_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_ploam_stats_t, p_stats),
       VALUE(vx_boolean, clear))

constexpr Help help_vx_gpon_onu_ploam_stats_clear{
    .title = "clear GPON ploam statistics",
    .text = "This API clears the statistics of PLOAM messages.\n",
    .inputs = "port_id : GPON port id\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_ploam_stats_clear, help_vx_gpon_onu_ploam_stats_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))

constexpr Help help_vx_gpon_onu_tcont_stats_get{
    .title = "Get GPON TCONT statistics",
    .text = "This API retrieves the statistics of a T-CONT.\n"
            "When the flag is set, it clears the counters upon reading.\n",
    .inputs = "port_id  : GPON port id\n"
              "tcont_id : T-CONT id\n"
              "p_stats  : where to put the statistics\n"
              "clear    : Clear on read flag\n",
    .outputs = "p_stats : T-CONT statistics\n",
};
METHOD(vx_gpon_onu_tcont_stats_get, help_vx_gpon_onu_tcont_stats_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tcont_id),
       UDT_PTR(vx_gpon_tcont_stats_t, p_stats), VALUE(vx_boolean, clear))

constexpr Help help_vx_gpon_onu_tcont_stats_clear{
    .title = "clear GPON TCONT statistics",
    .text = "This API clears the statistics of a T-CONT.\n",
    .inputs = "port_id  : GPON port id\n"
              "tcont_id : T-CONT id\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_tcont_stats_clear, help_vx_gpon_onu_tcont_stats_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tcont_id))

constexpr Help help_vx_gpon_onu_omcc_stats_get{
    .title = "Get GPON omcc port statistics",
    .text = "This API retrieves the statistics of the OMCC GEM port in both directions.\n"
            "When the flag is set, it clears the counters upon reading.\n",
    .inputs = "port_id : GPON port id\n"
              "p_stats : where to put the statistics\n"
              "clear   : Clear on read flag\n",
    .outputs = "p_stats : OMCC GEM port statistics\n",
};
METHOD(vx_gpon_onu_omcc_stats_get, help_vx_gpon_onu_omcc_stats_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_gem_port_stats_t, p_stats),
       VALUE(vx_boolean, clear))

constexpr Help help_vx_gpon_onu_omcc_stats_clear{
    .title = "clears GPON omcc port statistics",
    .text = "This API clears the statistics of the OMCC GEM port.\n",
    .inputs = "port_id : GPON port id\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_omcc_stats_clear, help_vx_gpon_onu_omcc_stats_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))

constexpr Help help_vx_gpon_onu_gem_stats_get{
    .title = "Get GPON gem port statistics",
    .text = "This API retrieves the statistics of a GEM port.\n"
            "When the flag is set, it clears the counters upon reading.\n"
            "When the GEM port is unidirectional, the count for the opposite direction is set to 0.\n",
    .inputs = "port_id : GPON port id\n"
              "gem_id  : GEM port id\n"
              "p_stats : where to put the statistics\n"
              "clear   : Clear on read flag\n",
    .outputs = "p_stats : GEM port statistics\n",
};
METHOD(vx_gpon_onu_gem_stats_get, help_vx_gpon_onu_gem_stats_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_id),
       UDT_PTR(vx_gpon_gem_port_stats_t, p_stats), VALUE(vx_boolean, clear))

constexpr Help help_vx_gpon_onu_gem_stats_clear{
    .title = "Clears GPON gem port statistics",
    .text = "This API clears the statistics of a GEM port.\n",
    .inputs = "port_id : GPON port id\n"
              "gem_id  : GEM port id\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_stats_clear, help_vx_gpon_onu_gem_stats_clear,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_id))

// The title is that of vx_gpon_onu_tcont_stats_clear.
constexpr Help help_vx_gpon_onu_tcont_queue_status_get{
    .title = "clear GPON TCONT statistics",
    .text = "This API retrieves the status of T-CONT scheduler and T-CONT queues for a GPON port.\n",
    .inputs = "device_id : device id\n"
              "port_id   : GPON port id\n"
              "p_status  : where to put the status\n",
    .outputs = "p_status : status of T-CONT scheduler and queues\n",
};
METHOD(vx_gpon_onu_tcont_queue_status_get, help_vx_gpon_onu_tcont_queue_status_get,
       VALUE(vx_dev_id_t, device_id), VALUE(vx_port_id_t, port_id), UDT_PTR(lmq_tcont_queue_status_s, p_status))

} // namespace lmq
