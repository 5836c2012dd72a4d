// The simulated chip with a fault planted in it, for tests of what finds faults. LMQ_PLANTED names the fault; without
// it the driver is sound. It stands in front of the simulated chip, and has the functions with the faults itself.
#include <dlfcn.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <map>

#include "lmq/lmq.h"

namespace {

bool is_planted(const char *fault) {
    static const char *const planted = std::getenv("LMQ_PLANTED");
    return planted && std::strcmp(planted, fault) == 0;
}

// The same function of the simulated chip, which the loader has behind this library.
template <class Function>
Function *chip(const char *name, Function *) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

std::map<vx_port_id_t, bool> is_looped, is_paused;
bool is_isolated = false;

}  // namespace

#define CHIP(function) chip(#function, &function)

extern "C" {

// crash: the status of a port that is looped and has flow control in both directions.
vx_status_e vx_eth_port_loopback_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_loopback_t lpbk_mode) {
    const vx_status_e status = CHIP(vx_eth_port_loopback_set)(dev_id, port_id, lpbk_mode);
    if (status == VX_SUCCESS) is_looped[port_id] = lpbk_mode != 0;
    return status;
}

vx_status_e vx_eth_port_flowctrl_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean rx_pause,
                                            vx_boolean tx_pause) {
    const vx_status_e status = CHIP(vx_eth_port_flowctrl_enable_set)(dev_id, port_id, rx_pause, tx_pause);
    if (status == VX_SUCCESS) is_paused[port_id] = rx_pause && tx_pause;
    return status;
}

vx_status_e vx_eth_port_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_status_t *p_cfg) {
    if (is_planted("crash") && is_looped[port_id] && is_paused[port_id]) std::abort();
    return CHIP(vx_eth_port_status_get)(dev_id, port_id, p_cfg);
}

// hang: a timer that has been told to start anew each time.
vx_status_e vx_timer_start(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_boolean reload) {
    const vx_status_e status = CHIP(vx_timer_start)(dev_id, timer_id, reload);
    while (is_planted("hang") && status == VX_SUCCESS && reload) pause();
    return status;
}

// overrun: an even number of words, and one more.
vx_status_e vx_mdio_read(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 register_addr, vx_uint8 read_cnt,
                         vx_uint16 *p_read_data) {
    const vx_status_e status = CHIP(vx_mdio_read)(dev_id, slave_addr, register_addr, read_cnt, p_read_data);
    if (is_planted("overrun") && status == VX_SUCCESS && read_cnt % 2 == 0) p_read_data[read_cnt] = 0xdead;
    return status;
}

// lost: learning of a port while the ports are isolated.
vx_status_e vx_l2_port_isolation_set(vx_dev_id_t dev_id, vx_boolean isolate) {
    const vx_status_e status = CHIP(vx_l2_port_isolation_set)(dev_id, isolate);
    if (status == VX_SUCCESS) is_isolated = isolate;
    return status;
}

vx_status_e vx_l2_learn_port_enable_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean enbl) {
    if (is_planted("lost") && is_isolated) return VX_SUCCESS;
    return CHIP(vx_l2_learn_port_enable_set)(dev_id, port_id, enbl);
}

// leak: a kilobyte for each queue that is read.
vx_status_e vx_cosq_queue_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg) {
    static void *volatile lost;
    if (is_planted("leak")) {
        lost = std::malloc(1024);
        std::memset(lost, 1, 1024);
    }
    return CHIP(vx_cosq_queue_get)(dev_id, port_id, queue_id, p_cfg);
}

}  // extern "C"
