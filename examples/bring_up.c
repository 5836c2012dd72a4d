/* Brings up an ONU and looks at it: system, Ethernet ports, GPON port, T-CONT, GEM ports, upstream flows for VLANs, the
   table of VLAN members, counters and events. Built against the headers of the driver alone:

       cc bring_up.c $(pkg-config --cflags --libs lmq) -o bring-up

   It runs where the driver is, and with the remote driver in its place against a chip that is elsewhere. */
#include <lmq/lmq.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { device = 0, tcont = 1, first_gem = 100, first_vlan = 100, lines = 2 };

/* Ends the program if a call failed. */
static void check(vx_status_e status, const char *what) {
    if (status == VX_SUCCESS) return;
    fprintf(stderr, "%s: status 0x%04x\n", what, (unsigned)status);
    exit(1);
}

static void start(void) {
    vx_startup_cfg_t config;
    memset(&config, 0, sizeof config);
    config.num_dev = 1;
    config.dev_cfg[0].enbl = TRUE;
    /* Sixteen characters fill the name, and no terminator follows them. */
    memcpy(config.dev_cfg[0].dev_if_name, "management-port0", sizeof config.dev_cfg[0].dev_if_name);
    memcpy(config.dev_cfg[0].gpon_cfg.vendor_id, "ACME", 4);
    config.dev_cfg[0].gpon_cfg.serial_num = 0x01020304;
    check(lmq_init_system(&config), "lmq_init_system");

    vx_mac_addr_t mac = {0x02, 0x00, 0x5E, 0x10, 0x00, 0x01};
    check(vx_mac_addr_set(device, mac), "vx_mac_addr_set");
    memset(mac, 0, sizeof mac);
    check(vx_mac_addr_get(device, mac), "vx_mac_addr_get");
    printf("address %02x:%02x:%02x:%02x:%02x:%02x\n", mac[0], mac[1], mac[2], mac[3], mac[4], mac[5]);
}

static void ethernet_ports(void) {
    for (vx_port_id_t port = VX_PORT_ETH0; port < VX_PORT_ETH0 + lines; ++port) {
        vx_eth_port_cfg_t config;
        memset(&config, 0, sizeof config);
        config.admin_status = VX_ADMIN_STATUS_UP;
        config.tx_enable = config.rx_enable = TRUE;
        config.valid.admin_status = config.valid.tx_enable = config.valid.rx_enable = 1;
        check(vx_eth_port_config_set(device, port, &config), "vx_eth_port_config_set");

        vx_eth_port_status_t status;
        check(vx_eth_port_status_get(device, port, &status), "vx_eth_port_status_get");
        printf("port %d: link %d, speed %d, duplex %d\n", port, status.link_status, status.speed, status.duplex);
    }
}

/* Ranging takes a while: the line terminal has to find the ONU. */
static void gpon_port(void) {
    check(vx_gpon_onu_port_enable_set(device, VX_PORT_SNI0, TRUE), "vx_gpon_onu_port_enable_set");
    for (int tried = 0; tried < 1000; ++tried) {
        vx_gpon_port_cfg_t port;
        check(vx_gpon_onu_port_config_get(device, VX_PORT_SNI0, &port), "vx_gpon_onu_port_config_get");
        if (port.onu_state != VX_GPON_STATE_OPERATION) continue;
        printf("GPON port: %.4s%08x in operation as ONU %d, management channel %d\n", (const char *)port.vendor_id,
               port.serial_num, port.onu_id, port.omci_port);
        return;
    }
    fprintf(stderr, "the ONU does not come into operation\n");
    exit(1);
}

static void upstream(void) {
    vx_tcont_cfg_t config = {.alloc_id = 257};
    check(vx_gpon_onu_tcont_enable_set(device, VX_PORT_SNI0, tcont, TRUE, &config), "vx_gpon_onu_tcont_enable_set");
    for (vx_uint16 line = 0; line < lines; ++line) {
        vx_gem_port_cfg_t gem;
        memset(&gem, 0, sizeof gem);
        gem.direction = LMQ_DIR_BOTH;
        gem.tcont_id = tcont;
        check(vx_gpon_onu_gem_port_add(device, VX_PORT_SNI0, (vx_uint16)(first_gem + line), &gem),
              "vx_gpon_onu_gem_port_add");
    }

    vx_tcont_info_t info;
    check(vx_gpon_onu_tcont_info_get(device, VX_PORT_SNI0, tcont, &info), "vx_gpon_onu_tcont_info_get");
    printf("T-CONT %d: Alloc-Id %d, %d GEM ports\n", tcont, info.alloc_id, info.num_gem_ports);

    vx_gem_port_info_t ports[8];
    vx_uint16 count = 8;
    check(vx_gpon_onu_active_gem_port_get(device, VX_PORT_SNI0, ports, &count), "vx_gpon_onu_active_gem_port_get");
    for (vx_uint16 i = 0; i < count && i < 8; ++i)
        printf("  GEM port %d: direction %d, T-CONT %d, Alloc-Id %d\n", ports[i].gem_port_id, ports[i].direction,
               ports[i].tcont_id, ports[i].alloc_id);
}

/* Each Ethernet port sends its VLAN to a GEM port of its own. */
static void flows(void) {
    for (vx_uint16 line = 0; line < lines; ++line) {
        vx_flow_us_key_t key;
        vx_flow_us_action_t action;
        vx_flow_id_t id = 0;
        memset(&key, 0, sizeof key);
        memset(&action, 0, sizeof action);
        key.key_type = VX_CL_KEY_MAC_VLAN;
        key.key_s.mac_vlan.o_vid = (vx_vid_t)(first_vlan + line);
        key.key_s.mac_vlan.valid.mask_s.o_vid = 1;
        action.cos_act.cos_act = VX_FLOW_COS_ACTION_FIXED_VAL;
        action.cos_act.cos_val = (vx_uint8)(3 + line);
        action.valid.mask_s.cos_act = 1;
        const vx_port_id_t port = (vx_port_id_t)(VX_PORT_ETH0 + line);
        check(vx_flow_us_add(device, port, &key, &action, (vx_uint8)line, &id), "vx_flow_us_add");
        check(vx_flow_us_map(device, id, VX_PORT_SNI0, (vx_uint16)(first_gem + line)), "vx_flow_us_map");

        vx_flow_us_cfg_t listed[4];
        vx_uint16 count = 0;
        check(vx_flow_us_all_get(device, port, 4, listed, &count), "vx_flow_us_all_get");
        for (vx_uint16 i = 0; i < count; ++i)
            printf("flow %d: port %d, VLAN %d to GEM port %d, class of service %d\n", listed[i].flow_id,
                   listed[i].port_num, listed[i].key.key_s.mac_vlan.o_vid, listed[i].map_sub_port,
                   listed[i].action.cos_act.cos_val);
    }
}

static void vlan_members(void) {
    vx_acl_vlan_member_tbl_entry_t entry;
    memset(&entry, 0, sizeof entry);
    entry.member_sni_port_bitmap = 1;
    entry.member_uni_port_bitmap = (1 << lines) - 1;
    entry.vid_lo = first_vlan;
    entry.vid_high = first_vlan + lines - 1;
    entry.ingr_valid = entry.egrs_valid = TRUE;
    entry.valid.mask = 0xF;
    check(vx_vlan_member_table_set(device, VX_PORT_ETH0, 0, VX_ACL_OP_ADD, &entry), "vx_vlan_member_table_set");
    memset(&entry, 0, sizeof entry);
    check(vx_vlan_member_table_get(device, VX_PORT_ETH0, 0, &entry), "vx_vlan_member_table_get");
    printf("VLANs %d to %d: UNI ports %#x\n", entry.vid_lo, entry.vid_high, entry.member_uni_port_bitmap);
}

static void counters(void) {
    for (vx_uint16 line = 0; line < lines; ++line) {
        vx_eth_port_stats_t port;
        check(vx_eth_port_stats_get(device, (vx_port_id_t)(VX_PORT_ETH0 + line), &port, FALSE),
              "vx_eth_port_stats_get");
        printf("port %d: %llu frames received, %llu broadcast\n", VX_PORT_ETH0 + line, port.rx_uc_pkt, port.rx_bc_pkt);
    }
}

static void events(void) {
    vx_event_status_s status;
    vx_uint32 count = 0;
    check(vx_event_count_get(device, VX_EVENT_GPON_ONU_STATE_CHNG, VX_PORT_SNI0, 0, &count, TRUE),
          "vx_event_count_get");
    memset(&status, 0, sizeof status);
    check(vx_event_status_poll(device, VX_EVENT_ETH_LINK_STATUS_CHNG, VX_PORT_ETH0, 0, &status),
          "vx_event_status_poll");
    printf("events: the ONU has changed its state %u times; a change of the link %s\n", count,
           status.status ? "waits" : "does not wait");
}

int main(void) {
    start();
    ethernet_ports();
    gpon_port();
    upstream();
    flows();
    vlan_members();
    counters();
    events();
    /* A mistake, as an application sees it. */
    vx_tcont_cfg_t config = {.alloc_id = 300};
    printf("T-CONT 99: status 0x%04x\n",
           (unsigned)vx_gpon_onu_tcont_enable_set(device, VX_PORT_SNI0, 99, TRUE, &config));
    check(lmq_shutdown_system(), "lmq_shutdown_system");
    return 0;
}
