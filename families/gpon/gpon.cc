// GPON ONU port, T-CONTs and GEM ports: UDTs, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/gpon.h"

namespace lmq {

// The flags stand in valid itself, without mask_s and without a word beside them; the five members behind the
// thresholds have none. Serial number and password travel as arrays of bytes.
UDT(vx_gpon_port_cfg_t,
    ELEMENTS(vx_uint8,                   vendor_id, 4),
    SCALAR(  vx_uint32,                  serial_num),
    ELEMENTS(vx_uint8,                   passwd, 10),
    SCALAR(  vx_gpon_dba_blk_len_t,      dbru_blk_len),
    SCALAR(  vx_int16,                   laser_on_time),
    SCALAR(  vx_uint16,                  laser_prebias_time),
    SCALAR(  vx_boolean,                 fec_bypass_enbl),
    SCALAR(  vx_boolean,                 aes_enbl),
    SCALAR(  vx_gpon_signal_thres_val_t, sf_threshold),
    SCALAR(  vx_gpon_signal_thres_val_t, sf_clear_threshold),
    SCALAR(  vx_gpon_signal_thres_val_t, sd_threshold),
    SCALAR(  vx_gpon_signal_thres_val_t, sd_clear_threshold),
    SCALAR(  vx_uint8,                   onu_id),
    SCALAR(  vx_gpon_onu_state_t,        onu_state),
    SCALAR(  vx_int16,                   omci_port),
    SCALAR(  vx_uint16,                  num_tcont),
    SCALAR(  vx_uint16,                  num_gem),
    FLAGS(valid, vendor_id, serial_num, passwd, dbru_blk_len, laser_on_time, laser_prebias_time, fec_bypass_enbl,
          aes_enbl, sf_threshold, sf_clear_threshold, sd_threshold, sd_clear_threshold))

UDT(vx_tcont_cfg_t,
    SCALAR(vx_uint16, alloc_id))

UDT(vx_tcont_alloc_id_t,
    SCALAR(vx_uint16, tcont_id),
    SCALAR(vx_uint16, alloc_id),
    SCALAR(vx_uint16, tcont_subport_id))

// gem_ports always goes out whole, whatever num_gem_ports says.
UDT(vx_tcont_info_t,
    SCALAR(  vx_boolean, enbl_status),
    SCALAR(  vx_uint16,  alloc_id),
    SCALAR(  vx_uint16,  tcont_subport_id),
    SCALAR(  vx_uint16,  num_gem_ports),
    ELEMENTS(vx_uint16,  gem_ports, VX_MAX_GEM_PORTS))

UDT(vx_gem_port_cfg_t,
    SCALAR(lmq_dir_e,  direction),
    SCALAR(vx_uint16,  tcont_id),
    SCALAR(vx_boolean, aes_enable),
    SCALAR(vx_boolean, multicast))

// What vx_gem_port_cfg_t calls aes_enable is aes here.
UDT(vx_gem_port_info_t,
    SCALAR(vx_uint16,  gem_port_id),
    SCALAR(vx_boolean, gem_status),
    SCALAR(lmq_dir_e,  direction),
    SCALAR(vx_uint16,  tcont_id),
    SCALAR(vx_uint16,  alloc_id),
    SCALAR(vx_uint16,  gem_subport_id),
    SCALAR(vx_boolean, aes),
    SCALAR(vx_boolean, multicast))

constexpr Help help_vx_gpon_onu_port_config_set{
    .title = "Configure the GPON Port",
    .text = "This API sets global parameters pertaining to the GPON Port\n",
    .inputs = "port_id : GPON port id\n"
              "p_cfg   : Pointer to a structure containing port configuration\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_port_config_set, help_vx_gpon_onu_port_config_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_port_cfg_t, p_cfg))

constexpr Help help_vx_gpon_onu_port_config_get{
    .title = "Retrieve the GPON Port configuration",
    .text = "This API retrieves global parameters pertaining to the GPON Port\n",
    .inputs = "port_id : GPON port id\n"
              "p_cfg   : Pointer to a structure for the port configuration\n",
    .outputs = "p_cfg : port configuration\n",
};
METHOD(vx_gpon_onu_port_config_get, help_vx_gpon_onu_port_config_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gpon_port_cfg_t, p_cfg))

// The text describes enable as a pointer to a configuration.
constexpr Help help_vx_gpon_onu_port_enable_set{
    .title = "Activate GPON PORT",
    .text = "This API activates the PON port for ranging process\n",
    .inputs = "port_id : GPON port id\n"
              "enable  : Pointer to a structure containing port configuration\n"
              "          If NULL then the current port config is maintained\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_port_enable_set, help_vx_gpon_onu_port_enable_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_boolean, enable))

METHOD(vx_gpon_onu_state_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), VALUE(vx_gpon_onu_state_t, onu_state))

METHOD(vx_gpon_onu_laser_mode_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), VALUE(vx_pon_laser_ctrl_mode_t, mode),
       VALUE(vx_uint8, dir))

// p_active is a vx_boolean, whatever its plain type: a flag.
METHOD(vx_gpon_signal_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_id), ELEMENT_PTR(vx_boolean, p_active))

// Two blocks: title and first sentence are those of vx_gpon_onu_port_config_get, and its own follow.
constexpr Help help_vx_gpon_onu_tcont_enable_set{
    .title = "Retrieve the GPON Port configuration",
    .text = "This API retrieves global parameters pertaining to the GPON Port\n"
            "\n"
            "Enable a T-CONT\n"
            "\n"
            "This API enables a non-default TCONT on the GPON port and assigns Alloc-Id to the T-CONT.\n",
    .inputs = "port_id  : GPON port id\n"
              "tcont_id : T-CONT id\n"
              "enable   : TRUE to enable, FALSE to disable\n"
              "p_cfg    : Pointer to a structure containing the Alloc-Id\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_tcont_enable_set, help_vx_gpon_onu_tcont_enable_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tcont_id), VALUE(vx_boolean, enable),
       UDT_PTR(vx_tcont_cfg_t, p_cfg))

constexpr Help help_vx_gpon_onu_tcont_info_get{
    .title = "GET T-CONT INFORMATION",
    .text = "This API retrieves information about a T-CONT and the GEM ports mapped to it\n",
    .inputs = "port_id  : GPON port id\n"
              "tcont_id : T-CONT id\n"
              "p_info   : Pointer to a structure for the T-CONT information\n",
    .outputs = "p_info : T-CONT information\n",
};
METHOD(vx_gpon_onu_tcont_info_get, help_vx_gpon_onu_tcont_info_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tcont_id),
       UDT_PTR(vx_tcont_info_t, p_info))

constexpr Help help_vx_gpon_onu_active_tcont_get{
    .title = "GET ALL ACTIVE T-CONTS",
    .text = "This API retrieves all active tconts\n",
    .inputs = "port_id      : GPON port id\n"
              "p_tcont_id   : Pointer to an array of T-CONT and Alloc-Id pairs\n"
              "p_num_tconts : Pointer to number of active T-CONTs\n",
    .outputs = "p_tcont_id   : active T-CONTs\n"
               "p_num_tconts : number of active T-CONTs\n",
};
METHOD(vx_gpon_onu_active_tcont_get, help_vx_gpon_onu_active_tcont_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_tcont_alloc_id_t, p_tcont_id),
       ELEMENT_PTR(vx_uint16, p_num_tconts))

constexpr Help help_vx_gpon_onu_gem_port_add{
    .title = "Add a GEM port",
    .text = "This API adds a GEM port to the GPON MAC and maps to a TCONT.\n",
    .inputs = "port_id     : GPON port id\n"
              "gem_port_id : 12bit GEM-PordID assigned by OLT\n"
              "p_cfg       : Pointer to a structure containing the GEM port configuration\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_port_add, help_vx_gpon_onu_gem_port_add,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_port_id),
       UDT_PTR(vx_gem_port_cfg_t, p_cfg))

constexpr Help help_vx_gpon_onu_gem_port_delete{
    .title = "Delete a GEM port",
    .text = "This API deletes a GEM port from the GPON MAC.\n",
    .inputs = "port_id     : GPON port id\n"
              "gem_port_id : 12bit GEM-PordID assigned by OLT\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_port_delete, help_vx_gpon_onu_gem_port_delete,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_port_id))

constexpr Help help_vx_gpon_onu_gem_port_id_get{
    .title = "GET GEM PORT id from gpon asic index",
    .text = "This API retrieves GEM port info\n",
    .inputs = "port_id       : GPON port id\n"
              "index         : index of the GPON block\n"
              "p_gem_port_id : Pointer to the GEM port id\n",
    .outputs = "p_gem_port_id : 12bit GEM-PordID assigned by OLT\n",
};
METHOD(vx_gpon_onu_gem_port_id_get, help_vx_gpon_onu_gem_port_id_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, index),
       ELEMENT_PTR(vx_uint16, p_gem_port_id))

constexpr Help help_vx_gpon_onu_gem_port_info_get{
    .title = "GET GEM PORT INFO",
    .text = "This API retrieves GEM port info\n",
    .inputs = "port_id     : GPON port id\n"
              "gem_port_id : 12bit GEM-PordID assigned by OLT\n"
              "p_info      : Pointer to a GEM info struct\n",
    .outputs = "p_info : GEM port info\n",
};
METHOD(vx_gpon_onu_gem_port_info_get, help_vx_gpon_onu_gem_port_info_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_port_id),
       UDT_PTR(vx_gem_port_info_t, p_info))

// Title and text are those of vx_gpon_onu_gem_port_info_get.
constexpr Help help_vx_gpon_onu_active_gem_port_get{
    .title = "GET GEM PORT INFO",
    .text = "This API retrieves GEM port info\n",
    .inputs = "port_id         : GPON port id\n"
              "p_info          : Pointer to an array of GEM info structs "
              "consisting of VX_MAX_GEM_PORTS number of entries\n"
              "p_num_gem_ports : Pointer to number of valid entries\n",
    .outputs = "p_info          : GEM port info of each valid entry\n"
               "p_num_gem_ports : number of valid entries\n",
};
METHOD(vx_gpon_onu_active_gem_port_get, help_vx_gpon_onu_active_gem_port_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_gem_port_info_t, p_info),
       ELEMENT_PTR(vx_uint16, p_num_gem_ports))

constexpr Help help_vx_gpon_onu_gem_port_loopback_set{
    .title = "SET GEM PORT LOOPBACK",
    .text = "This API enables or disables the loopback of a GEM port.\n"
            "When Gem loopback is enabled the flows that are mapped to the particular GEM port will be blocked\n"
            "when the GEM loop back is disabled the flow which is already mapped to the particular gem port\n"
            "will be restored.\n",
    .inputs = "port_id       : GPON port id\n"
              "gem_port_id   : 12bit GEM-PordID assigned by OLT\n"
              "loopback_enbl : TRUE to enable, FALSE to disable\n",
    .outputs = "none\n",
};
METHOD(vx_gpon_onu_gem_port_loopback_set, help_vx_gpon_onu_gem_port_loopback_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, gem_port_id),
       VALUE(vx_boolean, loopback_enbl))

METHOD(vx_gpon_onu_ploam_ds_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), ELEMENT_PTR(vx_uint8, p_message),
       ELEMENT_PTR(vx_uint8, p_num))
METHOD(vx_gpon_onu_ploam_us_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), ELEMENT_PTR(vx_uint8, p_message), VALUE(vx_uint8, num))

METHOD(vx_gpon_ploamd_mask_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), VALUE(vx_boolean, overhead_enable),
       VALUE(vx_boolean, mask_enable))

} // namespace lmq
