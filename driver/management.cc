// The management family: local management interface, device addresses, IP hosts and layer 3 interfaces.
//
// Choices:
// - The device's addresses begin as dev_ip_addr, dev_ip_mask and dev_gw_ip of the start configuration say, if not
//   zero.
// - Device addresses are answered with the IPv4 address first, then the IPv6 addresses in the order of their numbers.
// - An address is IPv4 or IPv6 and not zero; its prefix fits the version; its mask is kept as given.
// - lmq_set_dev_ip_config_apish takes no mask: IPv4 addresses get 24 bits of prefix, IPv6 addresses 64.
// - IP hosts and layer 3 interfaces are one kind of thing: 8 of them together, handles from one range, starting with
//   1; lmq_delete_ip_host_interface deletes either. A channel has up to 64 ports, and is operational when it is
//   enabled and has a port.
// - In-band management is kept for each channel, and printed with it.
// - No function tells of translations (NAT), so there are none: VX_ERR_GLBL_OP_NO_SUPPORTED_BY_SW.
// - The management interface counts what vx_cpu_packet_tx sends on its port, and with an IP host what the traffic
//   model lets through.
#include "driver/management.h"

#include <arpa/inet.h>

#include <algorithm>
#include <bit>
#include <cstdio>
#include <string>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

constexpr std::size_t max_host_ports = VX_MAX_GEM_PORTS;

AddressKey key_of(const vx_ip_addr_t &address) {
    AddressKey key{address.ip_ver, {}};
    if (address.ip_ver == VX_IPV4) {
        for (unsigned i = 0; i < 4; ++i) key.second[i] = static_cast<vx_uint8>(address.addr.v4.s_addr >> (24 - 8 * i));
    } else {
        std::copy_n(address.addr.v6.in6_u.u6_addr8, 16, key.second.begin());
    }
    return key;
}

bool is_zero(const vx_ip_addr_t &address) {
    const AddressKey key = key_of(address);
    return std::all_of(key.second.begin(), key.second.end(), [](vx_uint8 byte) { return byte == 0; });
}

/* An address of the device, or a gateway. */
[[nodiscard]] vx_status_e check_address(const vx_ip_addr_t &address) {
    if (!is_in_range(address.ip_ver, VX_IPV4, VX_IPV6)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    if (is_zero(address)) return VX_ERR_GLBL_INVALID_PARAMS;
    return VX_SUCCESS;
}

/* An address of an IP host, which may be left open. */
[[nodiscard]] vx_status_e check_version(const vx_ip_addr_t &address) {
    if (!is_in_range(address.ip_ver, VX_IPV4, VX_IP_DONTCARE)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

vx_ip_addr_t make_address(bool ipv4, const std::array<vx_uint32, 4> &words) {
    vx_ip_addr_t address{};
    address.ip_ver = ipv4 ? VX_IPV4 : VX_IPV6;
    if (ipv4) {
        address.addr.v4.s_addr = words[0];
    } else {
        for (unsigned i = 0; i < 16; ++i) {
            address.addr.v6.in6_u.u6_addr8[i] = static_cast<vx_uint8>(words[i / 4] >> (24 - 8 * (i % 4)));
        }
    }
    return address;
}

std::string text_of(const vx_ip_addr_t &address) {
    if (address.ip_ver != VX_IPV4 && address.ip_ver != VX_IPV6) return "any";
    char text[INET6_ADDRSTRLEN];
    const bool ipv4 = address.ip_ver == VX_IPV4;
    return inet_ntop(ipv4 ? AF_INET : AF_INET6, key_of(address).second.data(), text, sizeof text);
}

DeviceAddresses &addresses(Device &device) {
    std::optional<DeviceAddresses> &kept = device.management.addresses;
    if (!kept) {
        kept.emplace();
        const auto &[ip, mask, gateway] =
            std::tie(device.config.dev_ip_addr, device.config.dev_ip_mask, device.config.dev_gw_ip);
        const auto counts = [](const vx_ip_addr_t &given) {
            return (given.ip_ver == VX_IPV4 || given.ip_ver == VX_IPV6) && !is_zero(given);
        };
        if (counts(ip)) {
            const AddressKey bits = key_of(mask);
            int prefix = 0;
            for (vx_uint8 byte : bits.second) prefix += std::popcount(byte);
            kept->addresses.insert(key_of(ip), {ip, mask, static_cast<vx_uint8>(prefix)});
        }
        if (counts(gateway)) kept->gateways.insert(key_of(gateway), {gateway});
    }
    return *kept;
}

[[nodiscard]] vx_status_e add_address(Device &device, const lmq_dev_ip_addr_cfg_s &given) {
    if (const vx_status_e refused = check_address(given.ip_addr)) return refused;
    if (!is_in_range(given.prefix, 0, given.ip_addr.ip_ver == VX_IPV4 ? 32 : 128)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;

    auto &table = addresses(device).addresses;
    if (given.ip_addr.ip_ver == VX_IPV4)
        table.erase_if([](const AddressKey &key, auto &) { return key.first == VX_IPV4; });
    return as_status(table.insert(key_of(given.ip_addr), given));
}

[[nodiscard]] vx_status_e delete_address(Device &device, const vx_ip_addr_t &address) {
    if (const vx_status_e refused = check_address(address)) return refused;
    if (!addresses(device).addresses.erase(key_of(address))) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e add_gateway(Device &device, const lmq_dev_gateway_cfg_s &given) {
    if (const vx_status_e refused = check_address(given.ip_addr)) return refused;
    return as_status(addresses(device).gateways.insert(key_of(given.ip_addr), given));
}

[[nodiscard]] vx_status_e delete_gateway(Device &device, const lmq_dev_gateway_cfg_s &given) {
    if (const vx_status_e refused = check_address(given.ip_addr)) return refused;
    if (!addresses(device).gateways.erase(key_of(given.ip_addr))) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check(const vx_ip_host_if_cfg_t &cfg) {
    if (const vx_status_e refused = check_version(cfg.ip_addr)) return refused;
    if (const vx_status_e refused = check_version(cfg.ip_mask)) return refused;
    return check_version(cfg.gw_ip);
}

/* Runs an operation on an IP host, as on_device() on a device. */
template <typename Body>
vx_status_e on_host(const char *function, vx_dev_id_t dev_id, vx_uint32 handle,
                    std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        IpHost *host = device.management.hosts.find(handle);
        return host ? run(body, *host) : VX_ERR_GLBL_ENTRY_NOT_FOUND;
    });
}

[[nodiscard]] vx_status_e create_host(Device &device, IpHost host, vx_uint32 *handle) {
    if (const vx_status_e refused = check(host.config)) return refused;
    Management &state = device.management;
    if (state.hosts.size() >= LMQ_MAX_NUM_NET_IFS) return VX_ERR_GLBL_SW_RESOURCE_UNAVAIL;
    host.config.enable_gw = host.config.enable_gw ? TRUE : FALSE;
    *handle = state.handles.give().value();
    state.hosts.insert(*handle, std::move(host));
    return VX_SUCCESS;
}

vx_status_e set_host(const char *function, vx_dev_id_t dev_id, vx_uint32 handle, const vx_ip_host_if_cfg_t *p_cfg) {
    return on_host(function, dev_id, handle, {p_cfg}, [&](IpHost &kept) {
        if (const vx_status_e refused = check(*p_cfg)) return refused;
        kept.config = *p_cfg;
        kept.config.enable_gw = p_cfg->enable_gw ? TRUE : FALSE;
        return VX_SUCCESS;
    });
}

vx_status_e get_host(const char *function, vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg) {
    return on_host(function, dev_id, handle, {p_cfg}, [&](IpHost &kept) { *p_cfg = kept.config; });
}

}  // namespace

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e lmq_enable_local_mgmt_if(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [](Device &device) { device.management.enabled = true; });
}

vx_status_e lmq_disable_local_mgmt_if(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [](Device &device) { device.management.enabled = false; });
}

vx_status_e lmq_get_local_mgmt_if_stat(vx_dev_id_t dev_id, lmq_local_mgmt_if_stat_s *stat) {
    return on_device(__func__, dev_id, {stat}, [&](Device &device) {
        Management &state = device.management;
        *stat = {state.rx_packets.read(), state.rx_bytes.read(), state.tx_packets.read(), state.tx_bytes.read()};
    });
}

vx_status_e lmq_clear_local_mgmt_if_stat(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [](Device &device) {
        Management &state = device.management;
        for (auto *counter : {&state.rx_packets, &state.rx_bytes, &state.tx_packets, &state.tx_bytes}) *counter = {};
    });
}

vx_status_e lmq_add_dev_ip_addr(vx_dev_id_t dev_id, lmq_dev_ip_addr_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { return add_address(device, *p_cfg); });
}

vx_status_e lmq_delete_dev_ip_addr(vx_dev_id_t dev_id, vx_ip_addr_t *p_ip_addr) {
    return on_device(__func__, dev_id, {p_ip_addr}, [&](Device &device) { return delete_address(device, *p_ip_addr); });
}

vx_status_e lmq_add_dev_ip_gateway(vx_dev_id_t dev_id, lmq_dev_gateway_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { return add_gateway(device, *p_cfg); });
}

vx_status_e lmq_delete_dev_ip_gateway(vx_dev_id_t dev_id, lmq_dev_gateway_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { return delete_gateway(device, *p_cfg); });
}

vx_status_e lmq_get_dev_ip_config(vx_dev_id_t dev_id, lmq_dev_ip_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        DeviceAddresses &kept = addresses(device);
        *p_cfg = {};
        for (const auto &[key, address] : kept.addresses) p_cfg->ip_cfg[p_cfg->num_ip_addr++] = address;
        for (const auto &[key, gateway] : kept.gateways) p_cfg->gw_cfg[p_cfg->num_ip_gw++] = gateway;
    });
}

vx_status_e lmq_print_dev_ip_config(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [](Device &device) {
        DeviceAddresses &kept = addresses(device);
        std::fprintf(stderr, "device %u, local management interface %s\n", unsigned{device.id},
                     device.management.enabled ? "up" : "down");
        for (const auto &[key, address] : kept.addresses) {
            std::fprintf(stderr, "  address %s/%u mask %s\n", text_of(address.ip_addr).c_str(),
                         unsigned{address.prefix}, text_of(address.net_mask).c_str());
        }
        for (const auto &[key, gateway] : kept.gateways) {
            std::fprintf(stderr, "  gateway %s\n", text_of(gateway.ip_addr).c_str());
        }
    });
}

vx_status_e lmq_set_dev_ip_config_apish(vx_dev_id_t dev_id, vx_uint8 is_ipv4, vx_uint8 type, vx_uint8 op,
                                        vx_uint32 addr1, vx_uint32 addr2, vx_uint32 addr3, vx_uint32 addr4) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (!is_in_range(type, 1, 2) || !is_in_range(op, 1, 2)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        const bool ipv4 = is_ipv4 != 0;
        const vx_ip_addr_t address = make_address(ipv4, {addr1, addr2, addr3, addr4});
        if (type == 1 && op == 1) {
            const vx_ip_addr_t mask = make_address(ipv4, {ipv4 ? 0xFFFFFF00 : 0xFFFFFFFF, 0xFFFFFFFF, 0, 0});
            return add_address(device, {address, mask, static_cast<vx_uint8>(ipv4 ? 24 : 64)});
        }
        if (type == 1) return delete_address(device, address);
        return op == 1 ? add_gateway(device, {address}) : delete_gateway(device, {address});
    });
}

vx_status_e lmq_create_ip_host_interface(vx_dev_id_t dev_id, vx_uint16 port_num, vx_ip_host_if_cfg_t *p_cfg,
                                         vx_uint32 *p_handle) {
    return on_device(__func__, dev_id, {p_cfg, p_handle}, [&](Device &device) {
        if (is_no_port(port_num)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        const bool is_eth = port_num >= VX_PORT_ETH0 && port_num < VX_PORT_ETH0 + LMQ_PORT_ETH_NUM;
        if (port_num != VX_PORT_SNI0 && !is_eth) return VX_ERR_PORT_TYPE_MISMATCH;
        IpHost host;
        host.config = *p_cfg;
        host.ports.emplace(port_num, VX_INVALID_PORT_ID);
        return create_host(device, std::move(host), p_handle);
    });
}

vx_status_e lmq_delete_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (!device.management.hosts.erase(handle)) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        device.management.handles.take_back(handle);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_set_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg) {
    return set_host(__func__, dev_id, handle, p_cfg);
}

vx_status_e lmq_get_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg) {
    return get_host(__func__, dev_id, handle, p_cfg);
}

vx_status_e lmq_print_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle) {
    return on_host(__func__, dev_id, handle, {}, [&](const IpHost &kept) {
        std::fprintf(stderr, "IP host %u, %s: address %s mask %s gateway %s (%s)\n", handle,
                     kept.enabled ? "up" : "down", text_of(kept.config.ip_addr).c_str(),
                     text_of(kept.config.ip_mask).c_str(), text_of(kept.config.gw_ip).c_str(),
                     kept.config.enable_gw ? "used" : "not used");
        for (const auto &[port, sub_port] : kept.ports) {
            std::fprintf(stderr, "  port %u sub-port 0x%04x\n", unsigned{port}, unsigned{sub_port});
        }
        if (kept.inband_tci) std::fprintf(stderr, "  in-band management, tag 0x%04x\n", unsigned{*kept.inband_tci});
    });
}

vx_status_e lmq_enable_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle) {
    return on_host(__func__, dev_id, handle, {}, [](IpHost &kept) { kept.enabled = true; });
}

vx_status_e lmq_disable_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle) {
    return on_host(__func__, dev_id, handle, {}, [](IpHost &kept) { kept.enabled = false; });
}

vx_status_e lmq_get_ip_host_interface_status(vx_dev_id_t dev_id, vx_uint32 handle, lmq_ip_host_if_status_s *p_stat) {
    return on_host(__func__, dev_id, handle, {p_stat}, [&](IpHost &kept) {
        const vx_boolean up = kept.enabled ? TRUE : FALSE;
        *p_stat = {up,
                   kept.ports.empty() ? vx_boolean{FALSE} : up,
                   kept.rx_packets.read(),
                   kept.tx_packets.read(),
                   kept.rx_bytes.read(),
                   kept.tx_bytes.read()};
    });
}

vx_status_e lmq_clear_ip_host_interface_stats(vx_dev_id_t dev_id, vx_uint32 handle) {
    return on_host(__func__, dev_id, handle, {}, [](IpHost &kept) {
        for (auto *counter : {&kept.rx_packets, &kept.tx_packets, &kept.rx_bytes, &kept.tx_bytes}) *counter = {};
    });
}

vx_status_e vx_l3_intf_create(vx_dev_id_t dev_id, vx_ip_host_if_cfg_t *p_cfg, vx_uint32 *p_handle) {
    return on_device(__func__, dev_id, {p_cfg, p_handle}, [&](Device &device) {
        IpHost host;
        host.config = *p_cfg;
        return create_host(device, std::move(host), p_handle);
    });
}

vx_status_e vx_l3_intf_port_add(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_id_t port_id, vx_uint16 sub_port) {
    return on_host(__func__, dev_id, handle, {}, [&](IpHost &kept) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (kept.ports.contains({port_id, sub_port})) return VX_ERR_PORT_EXIST;
        if (kept.ports.size() >= max_host_ports) return VX_ERR_GLBL_SW_RESOURCE_UNAVAIL;
        kept.ports.emplace(port_id, sub_port);
        return VX_SUCCESS;
    });
}

vx_status_e vx_l3_ipintf_port_del(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_id_t port_id, vx_uint16 sub_port) {
    return on_host(__func__, dev_id, handle, {}, [&](IpHost &kept) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (kept.ports.erase({port_id, sub_port}) == 0) return VX_ERR_PORT_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_status_e vx_l3_intf_set(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg) {
    return set_host(__func__, dev_id, handle, p_cfg);
}

vx_status_e vx_l3_intf_get(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg) {
    return get_host(__func__, dev_id, handle, p_cfg);
}

vx_status_e vx_inband_mgnt_set(vx_dev_id_t dev_id, vx_uint32 handle, vx_uint16 tci, vx_uint16 enable) {
    return on_host(__func__, dev_id, handle, {},
                   [&](IpHost &kept) { kept.inband_tci = enable != 0 ? std::optional(tci) : std::nullopt; });
}

vx_status_e lmq_add_nat_entry(vx_dev_id_t dev_id, vx_nat_entry_t *p_cfg) {
    return not_supported(__func__, dev_id, p_cfg);
}

vx_status_e lmq_del_nat_entry(vx_dev_id_t dev_id, vx_nat_entry_t *p_cfg) {
    return not_supported(__func__, dev_id, p_cfg);
}

}  // extern "C"
