// The life cycle of the simulated chip, through the driver interface alone: what each state refuses, what each reset
// forgets, and what the operations do with bad arguments.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "lmq/lmq.h"

namespace {

/// The tests set the simulator's variables themselves. Before the first call, at which one of them is read.
const bool has_own_environment = [] {
    for (const char *name : {"LMQ_SIM_CLOCK", "LMQ_SIM_FAIL", "LMQ_SIM_TRAFFIC", "LMQ_SIM_PRESET"}) unsetenv(name);
    return true;
}();

constexpr vx_dev_id_t first_device = DEFAULT_DEVICE_ID;
constexpr vx_dev_id_t any_ids[] = {0, 1, 255};
constexpr vx_dev_id_t wrong_ids[] = {LMQ_NUM_DEVICES, 255};

vx_startup_cfg_t start_config(bool enable_device = true) {
    vx_startup_cfg_t config{};
    config.num_dev = 1;
    config.dev_cfg[0].enbl = enable_device;
    return config;
}

vx_watchdog_cfg_t watchdog() {
    vx_watchdog_cfg_t config{};
    EXPECT_EQ(vx_watchdog_get(first_device, &config), VX_SUCCESS);
    return config;
}

std::array<int, 6> mac() {
    // On the heap and of the exact size, so that the sanitizer sees a byte too many.
    const auto bytes = std::make_unique<vx_uint8[]>(6);
    EXPECT_EQ(vx_mac_addr_get(first_device, bytes.get()), VX_SUCCESS);
    std::array<int, 6> numbers;
    std::copy_n(bytes.get(), 6, numbers.begin());
    return numbers;
}

vx_uint32 read_register(vx_uint32 addr) {
    vx_uint32 data = 0xBAD;
    EXPECT_EQ(lmq_read_register(first_device, addr, &data), VX_SUCCESS);
    return data;
}

vx_status_e reset(lmq_dev_reset_mode_e mode, vx_uint32 modules = 0, lmq_dev_reset_type_e type = LMQ_RESET_TYPE_HARD) {
    lmq_sys_reset_cfg_s config{mode, type, modules};
    return lmq_reset_device(first_device, &config);
}

/// Returns what a call wrote to standard error.
std::string printed(const std::function<void()> &call) {
    testing::internal::CaptureStderr();
    call();
    return testing::internal::GetCapturedStderr();
}

/// Sets what a device holds to something that no device starts with.
void mark_device() {
    vx_uint8 address[6] = {2, 4, 6, 8, 10, 12};
    ASSERT_EQ(vx_mac_addr_set(first_device, address), VX_SUCCESS);
    ASSERT_EQ(lmq_write_register(first_device, 0x40, 0x12345678), VX_SUCCESS);
    vx_watchdog_cfg_t config{};
    config.wd_timer = 99;
    config.mask_s.wd_timer = 1;
    ASSERT_EQ(vx_watchdog_set(first_device, &config), VX_SUCCESS);
}

bool device_is_marked() {
    return mac() == std::array{2, 4, 6, 8, 10, 12} && read_register(0x40) == 0x12345678 && watchdog().wd_timer == 99;
}

bool device_is_fresh() { return mac()[1] == 0 && read_register(0x40) == 0 && watchdog().wd_timer == 0; }

/// An operation on a device, with arguments that are right unless told otherwise.
struct Operation {
    const char *name;
    bool has_pointer;
    std::function<vx_status_e(vx_dev_id_t, bool null)> call;
};

const std::vector<Operation> &device_operations() {
    static vx_watchdog_cfg_t config{};
    static lmq_sys_reset_cfg_s modules{LMQ_RESET_MODE_ASIC_MODULE, LMQ_RESET_TYPE_SOFT, 1};
    static vx_uint8 address[6];
    static vx_uint32 word;
    static const std::vector<Operation> operations = {
        {"lmq_reset_device", true, [](auto id, bool null) { return lmq_reset_device(id, null ? nullptr : &modules); }},
        {"vx_watchdog_set", true, [](auto id, bool null) { return vx_watchdog_set(id, null ? nullptr : &config); }},
        {"vx_watchdog_get", true, [](auto id, bool null) { return vx_watchdog_get(id, null ? nullptr : &config); }},
        {"vx_mac_addr_set", true, [](auto id, bool null) { return vx_mac_addr_set(id, null ? nullptr : address); }},
        {"vx_mac_addr_get", true, [](auto id, bool null) { return vx_mac_addr_get(id, null ? nullptr : address); }},
        {"vx_jtag_id_get", true, [](auto id, bool null) { return vx_jtag_id_get(id, null ? nullptr : &word); }},
        {"lmq_read_register", true,
         [](auto id, bool null) { return lmq_read_register(id, 0, null ? nullptr : &word); }},
        {"lmq_write_register", false, [](auto id, bool) { return lmq_write_register(id, 0, 0); }},
        {"vx_reset", false, [](auto id, bool) { return vx_reset(id, VX_RESET_CHIP); }},
    };
    return operations;
}

class Lifecycle : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(has_own_environment);
        lmq_shutdown_system();
    }
    void TearDown() override {
        lmq_shutdown_system();
        unsetenv("LMQ_SIM_CLOCK");
    }

    static void start(vx_startup_cfg_t config = start_config()) { ASSERT_EQ(lmq_init_system(&config), VX_SUCCESS); }
};

TEST_F(Lifecycle, EachStateRefusesWhatItCannotDo) {
    lmq_dev_startup_cfg_s device{};
    vx_startup_cfg_t config = start_config(false);

    for (const Operation &op : device_operations()) {
        for (const vx_dev_id_t id : any_ids) EXPECT_EQ(op.call(id, true), VX_ERR_GLBL_SYS_UNINTIALIZED) << op.name;
    }
    EXPECT_EQ(lmq_init_device(first_device, &device), VX_ERR_GLBL_SYS_UNINTIALIZED);
    EXPECT_EQ(lmq_shutdown_system(), VX_ERR_GLBL_SYS_UNINTIALIZED);
    EXPECT_EQ(lmq_dbg_set_reg_dump(TRUE), VX_ERR_GLBL_SYS_UNINTIALIZED);
    EXPECT_EQ(lmq_dbg_set_log_level(VX_MOD_DRVR_DEV, VX_LOG_LVL_INFO), VX_ERR_GLBL_SYS_UNINTIALIZED);
    EXPECT_EQ(lmq_dump_register(first_device, 0, 0, 1), 0U);

    start(config);
    EXPECT_EQ(lmq_init_system(&config), VX_ERR_GLBL_SYS_ALRDY_INTIALIZED);
    EXPECT_EQ(vx_init(first_device, &config), VX_ERR_GLBL_SYS_ALRDY_INTIALIZED);
    for (const Operation &op : device_operations()) {
        EXPECT_EQ(op.call(0, true), VX_ERR_DEV_UNINTIALIZED) << op.name;
        for (const vx_dev_id_t id : wrong_ids) EXPECT_EQ(op.call(id, true), VX_ERR_DEV_ID_INVALID) << op.name;
    }
    EXPECT_EQ(lmq_dump_register(first_device, 0, 0, 1), 0U);
    EXPECT_EQ(lmq_init_device(1, &device), VX_ERR_DEV_ID_INVALID);
    EXPECT_EQ(lmq_init_device(first_device, nullptr), VX_ERR_DEV_NULL_PTR);

    EXPECT_EQ(lmq_init_device(first_device, &device), VX_SUCCESS);
    EXPECT_EQ(lmq_init_device(first_device, &device), VX_ERR_DEV_ALRDY_INITIALIZED);
    for (const Operation &op : device_operations()) {
        for (const vx_dev_id_t id : wrong_ids) EXPECT_EQ(op.call(id, false), VX_ERR_DEV_ID_INVALID) << op.name;
        if (op.has_pointer) {
            EXPECT_EQ(op.call(0, true), VX_ERR_DEV_NULL_PTR) << op.name;
        }
        EXPECT_EQ(op.call(0, false), VX_SUCCESS) << op.name;
    }
}

TEST_F(Lifecycle, TheStartConfigurationSaysWhichDevicesStart) {
    vx_uint32 id = 0;
    for (const auto &[num_dev, enable, up] : {std::tuple{1, true, true}, {1, false, false}, {0, true, false}}) {
        vx_startup_cfg_t config = start_config(enable);
        config.num_dev = static_cast<vx_uint8>(num_dev);
        EXPECT_EQ(vx_init(1, &config), VX_ERR_DEV_ID_INVALID);
        EXPECT_EQ(vx_init(first_device, &config), VX_SUCCESS);
        EXPECT_EQ(vx_jtag_id_get(first_device, &id), up ? VX_SUCCESS : VX_ERR_DEV_UNINTIALIZED);
        EXPECT_EQ(lmq_shutdown_system(), VX_SUCCESS);
    }
    EXPECT_EQ(id & 1, 1U) << "IEEE 1149.1: bit 0 of an identification is 1";
}

TEST_F(Lifecycle, ARefusedStartConfigurationStartsNothing) {
    using Change = std::function<void(vx_startup_cfg_t &)>;
    const auto bad = [](auto &member) { member = static_cast<std::remove_reference_t<decltype(member)>>(77); };
    const std::vector<Change> changes = {
        [&](auto &c) { bad(c.cpu_mode); },
        [&](auto &c) { bad(c.num_dev); },
        [&](auto &c) { bad(c.wd_action); },
        [&](auto &c) { bad(c.dev_cfg[0].dev_mode); },
        [&](auto &c) { bad(c.dev_cfg[0].sni_mode); },
        [&](auto &c) { bad(c.dev_cfg[0].pkt_mem_mode); },
        [&](auto &c) { bad(c.dev_cfg[0].dev_op_mode); },
        [&](auto &c) { bad(c.dev_cfg[0].gpon_cfg.tm_init_cfg.option); },
        [&](auto &c) { bad(c.dev_cfg[0].lcl_mgmt_port_cfg.phy_type); },
        [&](auto &c) { bad(c.dev_cfg[0].eth_port_cfg[1].admin_status); },
        [&](auto &c) { bad(c.dev_cfg[0].eth_port_cfg[1].phy_mode); },
        [&](auto &c) { bad(c.dev_cfg[0].eth_port_cfg[1].phy_addr); },
        [&](auto &c) { bad(c.dev_cfg[0].eth_port_cfg[1].ge_txclk_sel); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        vx_startup_cfg_t config = start_config();
        config.dev_cfg[0].lcl_mgmt_port_cfg.add_port = TRUE;
        config.dev_cfg[0].eth_port_cfg[1].add_port = TRUE;
        changes[i](config);
        EXPECT_EQ(lmq_init_system(&config), VX_ERR_GLBL_RANGE_CHECK_FAIL) << "change " << i;
        EXPECT_EQ(lmq_shutdown_system(), VX_ERR_GLBL_SYS_UNINTIALIZED) << "change " << i;
    }
    EXPECT_EQ(lmq_init_system(nullptr), VX_ERR_GLBL_NULL_PTR);
    EXPECT_EQ(vx_init(first_device, nullptr), VX_ERR_GLBL_NULL_PTR);

    // What does not count is not looked at.
    vx_startup_cfg_t config = start_config(false);
    bad(config.dev_cfg[0].dev_mode);
    EXPECT_EQ(lmq_init_system(&config), VX_SUCCESS);
    EXPECT_EQ(lmq_init_device(first_device, &config.dev_cfg[0]), VX_ERR_GLBL_RANGE_CHECK_FAIL);
    config = start_config();
    bad(config.dev_cfg[0].eth_port_cfg[0].phy_type);
    EXPECT_EQ(lmq_init_device(first_device, &config.dev_cfg[0]), VX_SUCCESS);
}

TEST_F(Lifecycle, AModuleResetKeepsEverything) {
    start();
    mark_device();
    EXPECT_EQ(reset(LMQ_RESET_MODE_ASIC_MODULE, 0xE03F0015), VX_SUCCESS);
    EXPECT_TRUE(device_is_marked());

    EXPECT_EQ(reset(LMQ_RESET_MODE_ASIC_MODULE, 0), VX_ERR_GLBL_INVALID_PARAMS);
    EXPECT_EQ(reset(LMQ_RESET_MODE_ASIC_MODULE, 2), VX_ERR_GLBL_INVALID_ENTITY_ID);
    EXPECT_EQ(reset(LMQ_RESET_MODE_ASIC_MODULE, 1, lmq_dev_reset_type_e{2}), VX_ERR_GLBL_RANGE_CHECK_FAIL);
    EXPECT_EQ(reset(lmq_dev_reset_mode_e{3}), VX_ERR_GLBL_RANGE_CHECK_FAIL);
    EXPECT_EQ(vx_reset(first_device, vx_reset_mode_t{-1}), VX_ERR_GLBL_RANGE_CHECK_FAIL);
    EXPECT_TRUE(device_is_marked());
}

TEST_F(Lifecycle, ADeviceResetForgetsTheDeviceAndKeepsTheSystem) {
    const lmq_dev_reset_type_e ignored{77};
    for (const auto &reset_device : std::vector<std::function<vx_status_e()>>{
             [&] { return reset(LMQ_RESET_MODE_ONLY_ASIC, 0, ignored); },
             [] { return vx_reset(first_device, VX_RESET_CHIP); },
         }) {
        start();
        mark_device();
        EXPECT_EQ(lmq_dbg_set_reg_dump(TRUE), VX_SUCCESS);
        EXPECT_EQ(reset_device(), VX_SUCCESS);
        EXPECT_EQ(lmq_write_register(first_device, 0, 0), VX_ERR_DEV_UNINTIALIZED);

        lmq_dev_startup_cfg_s config{};
        EXPECT_EQ(lmq_init_device(first_device, &config), VX_SUCCESS);
        EXPECT_TRUE(device_is_fresh());
        EXPECT_NE(printed([] { lmq_write_register(first_device, 0, 0); }), "")
            << "a switch of the system was forgotten";
        EXPECT_EQ(lmq_shutdown_system(), VX_SUCCESS);
    }
}

TEST_F(Lifecycle, GoingDownForgetsEverything) {
    const lmq_dev_reset_type_e ignored{77};
    for (const auto &go_down : std::vector<std::function<vx_status_e()>>{
             [] { return lmq_shutdown_system(); },
             [&] { return reset(LMQ_RESET_MODE_CPU_N_ASIC, 0, ignored); },
             [] { return vx_reset(first_device, VX_RESET_DRIVER); },
         }) {
        start();
        mark_device();
        EXPECT_EQ(lmq_dbg_set_reg_dump(TRUE), VX_SUCCESS);
        EXPECT_EQ(go_down(), VX_SUCCESS);
        EXPECT_EQ(lmq_shutdown_system(), VX_ERR_GLBL_SYS_UNINTIALIZED);

        start();
        EXPECT_TRUE(device_is_fresh());
        EXPECT_EQ(printed([] { lmq_write_register(first_device, 0, 0); }), "");
        EXPECT_EQ(lmq_shutdown_system(), VX_SUCCESS);
    }
}

TEST_F(Lifecycle, TheWatchdogTakesFlaggedMembersAlone) {
    vx_startup_cfg_t start_with = start_config();
    start_with.enbl_wd = 7;
    start_with.wd_time = 30;
    start_with.wd_action = VX_WD_ACTION_REBOOT;
    start(start_with);

    vx_watchdog_cfg_t now = watchdog();
    EXPECT_EQ(now.wd_enable, TRUE);
    EXPECT_EQ(now.wd_timer, 30U);
    EXPECT_EQ(now.wd_action, VX_WD_ACTION_REBOOT);
    EXPECT_TRUE(now.mask_s.wd_enable && now.mask_s.wd_timer && now.mask_s.wd_action);

    vx_watchdog_cfg_t change{};
    change.wd_timer = 5;
    change.wd_action = vx_wd_action_e{99};
    change.mask_s.wd_timer = 1;
    change.mask_s.reserved = 3;
    EXPECT_EQ(vx_watchdog_set(first_device, &change), VX_SUCCESS);
    now = watchdog();
    EXPECT_EQ(now.wd_enable, TRUE);
    EXPECT_EQ(now.wd_timer, 5U);
    EXPECT_EQ(now.wd_action, VX_WD_ACTION_REBOOT);
    EXPECT_EQ(now.mask_s.reserved, 3U);

    change.wd_timer = 6;
    change.mask_s.wd_action = 1;
    EXPECT_EQ(vx_watchdog_set(first_device, &change), VX_ERR_GLBL_RANGE_CHECK_FAIL);
    EXPECT_EQ(watchdog().wd_timer, 5U) << "a set that is refused must change nothing";
}

TEST_F(Lifecycle, TheMacAddressComesFromTheStartConfiguration) {
    start();
    EXPECT_EQ(mac(), (std::array{2, 0, 0, 0, 0, 1}));
    EXPECT_EQ(reset(LMQ_RESET_MODE_ONLY_ASIC), VX_SUCCESS);

    lmq_dev_startup_cfg_s config{};
    config.dev_mac_addr[5] = 9;
    EXPECT_EQ(lmq_init_device(first_device, &config), VX_SUCCESS);
    EXPECT_EQ(mac(), (std::array{0, 0, 0, 0, 0, 9}));
}

TEST_F(Lifecycle, RegistersAreWordsOfADocumentedSpace) {
    start();
    EXPECT_EQ(lmq_write_register(first_device, 0xFFFFC, 0xFFFFFFFF), VX_SUCCESS);
    EXPECT_EQ(read_register(0xFFFFC), 0xFFFFFFFF);
    EXPECT_EQ(read_register(0xFFFF8), 0U);

    vx_uint32 data = 0;
    for (vx_uint32 addr : {1U, 2U, 0xFFFFFFFFU}) {
        EXPECT_EQ(lmq_read_register(first_device, addr, &data), VX_ERR_GLBL_INVALID_PARAMS);
        EXPECT_EQ(lmq_write_register(first_device, addr, 1), VX_ERR_GLBL_INVALID_PARAMS);
    }
    for (vx_uint32 addr : {0x100000U, 0xFFFFFFFCU}) {
        EXPECT_EQ(lmq_read_register(first_device, addr, &data), VX_ERR_GLBL_RANGE_CHECK_FAIL);
        EXPECT_EQ(lmq_write_register(first_device, addr, 1), VX_ERR_GLBL_RANGE_CHECK_FAIL);
    }
}

TEST_F(Lifecycle, ADumpPrintsWhatItCounts) {
    start();
    ASSERT_EQ(lmq_write_register(first_device, 8, 0xABC), VX_SUCCESS);
    const auto dump = [](vx_uint32 addr, int skip, int count, vx_uint32 expected) {
        return printed([=] {
            EXPECT_EQ(lmq_dump_register(first_device, addr, vx_uint8(skip), vx_uint8(count)), expected) << addr;
        });
    };
    EXPECT_EQ(dump(4, 0, 2, 2), "0x000004: 0x00000000\n0x000008: 0x00000abc\n");
    EXPECT_EQ(dump(0, 8, 2, 2), "0x000000: 0x00000000\n0x000008: 0x00000abc\n");
    EXPECT_EQ(dump(0xFFFFC, 4, 255, 1), "0x0ffffc: 0x00000000\n");
    EXPECT_EQ(dump(0, 6, 2, 1), "0x000000: 0x00000000\n") << "the second is not aligned";
    EXPECT_EQ(dump(0, 4, 0, 0), "");
    EXPECT_EQ(dump(0xFFFFFFFC, 4, 2, 0), "");
}

TEST_F(Lifecycle, DebugSwitchesShowAccessesAndMessagesInSimulatedTime) {
    setenv("LMQ_SIM_CLOCK", "250", 1);
    start();
    EXPECT_EQ(lmq_dbg_set_reg_dump(TRUE), VX_SUCCESS);
    EXPECT_EQ(printed([] { lmq_write_register(first_device, 0x10, 0xFEED); }),
              "lmq: [0.500] reg: device 0 write 0x000010: 0x0000feed\n");
    EXPECT_EQ(printed([] { read_register(0x10); }), "lmq: [0.750] reg: device 0 read 0x000010: 0x0000feed\n");
    EXPECT_EQ(lmq_dbg_set_reg_dump(FALSE), VX_SUCCESS);
    EXPECT_EQ(printed([] { read_register(0x10); }), "");

    EXPECT_EQ(printed([] { reset(LMQ_RESET_MODE_ASIC_MODULE, 1); }), "");
    EXPECT_EQ(lmq_dbg_set_log_level(VX_MOD_DRVR_DEV, VX_LOG_LVL_INFO), VX_SUCCESS);
    EXPECT_EQ(printed([] { reset(LMQ_RESET_MODE_ASIC_MODULE, 1); }),
              "lmq: [2.000] dev: device 0 has reset modules 0x00000001\n");

    for (int module : {-1, VX_MOD_LOG_PKT + 1}) {
        EXPECT_EQ(lmq_dbg_set_log_level(vx_mod_id_e{module}, VX_LOG_LVL_INFO), VX_ERR_GLBL_INVALID_ENTITY_ID);
    }
    for (int level : {-1, VX_LOG_LVL_MAX + 1}) {
        EXPECT_EQ(lmq_dbg_set_log_level(VX_MOD_LOG_PKT, vx_log_lvl_e{level}), VX_ERR_GLBL_RANGE_CHECK_FAIL);
    }
    EXPECT_EQ(lmq_dbg_set_log_level(VX_MOD_LOG_PKT, VX_LOG_LVL_MAX), VX_SUCCESS);
}

TEST_F(Lifecycle, ABadClockSettingIsNamed) {
    for (const char *value : {"", "-1", "fast", "10ms", "1000001"}) {
        setenv("LMQ_SIM_CLOCK", value, 1);
        vx_startup_cfg_t config = start_config();
        const std::string message =
            printed([&] { EXPECT_EQ(lmq_init_system(&config), VX_ERR_GLBL_INVALID_PARAMS) << value; });
        EXPECT_NE(message.find("LMQ_SIM_CLOCK is \"" + std::string(value) + "\""), std::string::npos) << message;
        EXPECT_EQ(lmq_shutdown_system(), VX_ERR_GLBL_SYS_UNINTIALIZED);
    }
}

TEST_F(Lifecycle, RandomArgumentsGetAStatus) {
    std::mt19937 random(1);
    const auto scramble = [&](auto &value) {
        std::array<vx_uint8, sizeof value> bytes;
        for (vx_uint8 &byte : bytes) byte = static_cast<vx_uint8>(random());
        std::memcpy(&value, bytes.data(), sizeof value);
    };
    for (int round = 0; round < 500; ++round) {
        vx_startup_cfg_t good = start_config();
        lmq_init_system(&good);
        vx_startup_cfg_t config;
        vx_watchdog_cfg_t dog;
        lmq_sys_reset_cfg_s reset_config;
        scramble(config);
        scramble(dog);
        scramble(reset_config);
        // Small as often as huge, so that some calls get past the first check.
        const auto any = [&] { return random() >> random() % 32; };
        const auto id = static_cast<vx_dev_id_t>(any() % 2);
        vx_uint32 data = 0;

        testing::internal::CaptureStderr();
        for (vx_status_e status : {
                 lmq_dbg_set_log_level(vx_mod_id_e{static_cast<int>(any())}, vx_log_lvl_e{static_cast<int>(any())}),
                 lmq_dbg_set_reg_dump(static_cast<vx_boolean>(any())),
                 vx_watchdog_set(id, &dog),
                 lmq_write_register(id, static_cast<vx_uint32>(any()), static_cast<vx_uint32>(any())),
                 lmq_read_register(id, static_cast<vx_uint32>(any()), &data),
                 lmq_reset_device(id, &reset_config),
                 vx_reset(id, vx_reset_mode_t{static_cast<int>(any())}),
                 lmq_init_device(id, &config.dev_cfg[0]),
                 lmq_shutdown_system(),
                 vx_init(id, &config),
             }) {
            EXPECT_TRUE(status == VX_SUCCESS || (status >= VX_ERR_GLBL_BASE && status < VX_ERR_CODE_MAX)) << status;
        }
        EXPECT_LE(lmq_dump_register(id, static_cast<vx_uint32>(any()), static_cast<vx_uint8>(any()), 9), 9U);
        testing::internal::GetCapturedStderr();
    }
}

}  // namespace
