// UDTs and driver functions made for the tests of the engine: one for each rule that a coder or the frame follows.
#pragma once

#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/address.h"

struct scalars_t {
    vx_uint8 u8;
    vx_int8 s8;
    vx_uint16 u16;
    vx_int16 s16;
    vx_uint32 u32;
    vx_int32 s32;
    vx_ip_ver_t mode;
    vx_uint64 u64;
    vx_int64 s64;
};

// 64-bit members stand at multiples of 8, on the 32-bit target too.
struct wide_t {
    vx_uint8 before;
    vx_uint64 u64;
    vx_uint8 behind;
};

struct wides_t {
    vx_uint32 before;
    wide_t many[2];
};

struct arrays_t {
    vx_mac_addr_t mac;
    vx_uint8 behind[6];
    vx_uint16 map[3];
    vx_uint32 words[2];
    vx_ip_ver_t modes[2];
};

struct named_t {
    vx_char name[16];
    vx_mac_addr_t behind;
};

struct inner_t {
    vx_uint16 x, y;
};

struct tree_t {
    inner_t one;
    inner_t many[2];
    inner_t spelled[2];
};

struct flat_t {
    vx_uint8 a;
    struct {
        vx_uint32 a : 1;
        vx_uint32 b : 1;
        vx_uint32 rest : 30;
    } valid;
};

struct word_t {
    vx_uint8 a;
    union {
        struct {
            vx_uint32 a : 1;
            vx_uint32 b : 1;
            vx_uint32 c : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
};

struct narrow_t {
    union {
        struct {
            vx_uint32 f0 : 1, f1 : 1, f2 : 1, f3 : 1, f4 : 1, f5 : 1, f6 : 1, f7 : 1, f8 : 1;
        } mask_s;
        vx_uint8 mask;
    } valid;
};

struct bare_t {
    union {
        struct {
            vx_uint32 a : 1;
            vx_uint32 b : 1;
        } mask_s;
        vx_uint32 mask;
    };
};

// Alternatives over one storage. Texts inside name the UDT's member.
struct choice_t {
    vx_uint32 type;
    union {
        inner_t one;
        inner_t list[2];
        struct {
            vx_uint16 low, high;
        } pair;
        vx_uint32 key;
    } of;
};

// Alternatives over one storage. Texts inside name the alternative.
struct overlaid_t {
    union {
        vx_mac_addr_t mac;
        vx_in_addr_t ipv4;
        vx_ip_ver_t mode;
    } addr;
};

// What the driver functions below were handed.
struct Handed {
    int calls;
    long long values[4];
    const void *pointer;
    std::byte block[256];
};
extern Handed handed;

vx_status_e sample_values(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 word, vx_ip_ver_t mode);
vx_int32 sample_none(void);
vx_uint32 sample_bytes(vx_uint8 *p_bytes);
vx_status_e sample_mac(vx_mac_addr_t p_mac);
vx_status_e sample_shorts(vx_uint16 *p_shorts);
vx_status_e sample_words(vx_dev_id_t dev_id, vx_uint32 *p_words);
vx_status_e sample_modes(vx_ip_ver_t *p_modes);
vx_status_e sample_udt(vx_dev_id_t dev_id, inner_t *p_cfg);
void sample_free(void *cookie);

namespace lmq {

extern const Udt udt_scalars_t, udt_wide_t, udt_wides_t, udt_arrays_t, udt_named_t, udt_inner_t, udt_twin_t, udt_tree_t,
    udt_flat_t, udt_word_t, udt_narrow_t, udt_bare_t, udt_choice_t, udt_overlaid_t;
using ::inner_t;
using twin_t = ::inner_t;

extern "C" {
#define SAMPLE(api) xmlrpc_value *x_rpc_##api(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *)
SAMPLE(sample_values);
SAMPLE(sample_none);
SAMPLE(sample_bytes);
SAMPLE(sample_mac);
SAMPLE(sample_shorts);
SAMPLE(sample_words);
SAMPLE(sample_modes);
SAMPLE(sample_udt);
SAMPLE(sample_free);
#undef SAMPLE
}
extern const Method method_sample_values, method_sample_none, method_sample_udt, method_sample_free;

}  // namespace lmq
