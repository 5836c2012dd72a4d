// A plug-in of QEMU 7: counts the instructions that a program runs, and writes the number on standard error when the
// program is over. Debian has no header of QEMU's interface for plug-ins, so what is needed of it is declared here.
#include <inttypes.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

typedef uint64_t qemu_plugin_id_t;
struct qemu_plugin_tb;
enum qemu_plugin_op { QEMU_PLUGIN_INLINE_ADD_U64 };

void qemu_plugin_register_vcpu_tb_trans_cb(qemu_plugin_id_t id,
                                           void (*translated)(qemu_plugin_id_t id, struct qemu_plugin_tb *block));
size_t qemu_plugin_tb_n_insns(const struct qemu_plugin_tb *block);
void qemu_plugin_register_vcpu_tb_exec_inline(struct qemu_plugin_tb *block, enum qemu_plugin_op op, void *to,
                                              uint64_t value);
void qemu_plugin_register_atexit_cb(qemu_plugin_id_t id, void (*over)(qemu_plugin_id_t id, void *data), void *data);
int qemu_plugin_install(qemu_plugin_id_t id, const void *info, int argc, char **argv);

int qemu_plugin_version = 1;

static uint64_t instructions;

static void translated(qemu_plugin_id_t id, struct qemu_plugin_tb *block) {
    (void)id;
    qemu_plugin_register_vcpu_tb_exec_inline(block, QEMU_PLUGIN_INLINE_ADD_U64, &instructions,
                                             qemu_plugin_tb_n_insns(block));
}

static void over(qemu_plugin_id_t id, void *data) {
    (void)id;
    (void)data;
    fprintf(stderr, "instructions: %" PRIu64 "\n", instructions);
}

int qemu_plugin_install(qemu_plugin_id_t id, const void *info, int argc, char **argv) {
    (void)info;
    (void)argc;
    (void)argv;
    qemu_plugin_register_vcpu_tb_trans_cb(id, translated);
    qemu_plugin_register_atexit_cb(id, over, NULL);
    return 0;
}
