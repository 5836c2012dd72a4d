// Rows of the UDTs and driver functions made for the tests of the engine, and the functions themselves.
#include "tests/engine/sample.h"

#include <cstring>

Handed handed;

namespace {

void note(const void *pointer, size_t size) {
    handed.pointer = pointer;
    if (pointer) memcpy(handed.block, pointer, size);
}

}  // namespace

vx_status_e sample_values(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 word, vx_ip_ver_t mode) {
    ++handed.calls;
    handed.values[0] = dev_id;
    handed.values[1] = port_id;
    handed.values[2] = word;
    handed.values[3] = mode;
    return VX_ERR_DEV_BUSY;
}

vx_int32 sample_none(void) { return ++handed.calls, -7; }

vx_uint32 sample_bytes(vx_uint8 *p_bytes) {
    ++handed.calls;
    note(p_bytes, 2);
    return 0xfffffffeu;
}

vx_status_e sample_mac(vx_mac_addr_t p_mac) {
    ++handed.calls;
    note(p_mac, 12);
    return VX_SUCCESS;
}

vx_status_e sample_shorts(vx_uint16 *p_shorts) {
    ++handed.calls;
    note(p_shorts, 4);
    if (p_shorts) p_shorts[0] = 0xfedc;
    return VX_SUCCESS;
}

vx_status_e sample_words(vx_dev_id_t, vx_uint32 *p_words) {
    ++handed.calls;
    note(p_words, 8);
    if (p_words) p_words[0] = 0xfffffff0u;
    return VX_SUCCESS;
}

vx_status_e sample_modes(vx_ip_ver_t *p_modes) {
    ++handed.calls;
    note(p_modes, 8);
    return VX_SUCCESS;
}

vx_status_e sample_udt(vx_dev_id_t, inner_t *p_cfg) {
    ++handed.calls;
    note(p_cfg, 2 * sizeof *p_cfg);
    if (p_cfg) p_cfg->y = 99;
    return VX_SUCCESS;
}

void sample_free(void *cookie) {
    ++handed.calls;
    note(cookie, 2 + sizeof(void *));
}

namespace lmq {

UDT(scalars_t, SCALAR(vx_uint8, u8), SCALAR(vx_int8, s8), SCALAR(vx_uint16, u16), SCALAR(vx_int16, s16),
    SCALAR(vx_uint32, u32), SCALAR(vx_int32, s32), SCALAR(vx_ip_ver_t, mode), SCALAR(vx_uint64, u64),
    SCALAR(vx_int64, s64))

UDT(wide_t, SCALAR(vx_uint8, before), SCALAR(vx_uint64, u64), SCALAR(vx_uint8, behind))

UDT(wides_t, SCALAR(vx_uint32, before), UDT_ARRAY(wide_t, many, 2))

UDT(arrays_t, ELEMENTS(vx_mac_addr_t, mac, 6), ELEMENTS(vx_uint8, behind, 6), ELEMENTS(vx_uint16, map, (3)),
    ELEMENTS(vx_uint32, words, 2), ELEMENTS(vx_ip_ver_t, modes, 2))

UDT(named_t, STRING(name, 16), ELEMENTS(vx_mac_addr_t, behind, 6))

UDT(inner_t, SCALAR(vx_uint16, x), SCALAR(vx_uint16, y))

UDT_AS(twin_t, inner_t)

UDT(tree_t, NESTED(inner_t, one), UDT_ARRAY(inner_t, many, 2), UDT_ARRAY_SPELLED(inner_t, "struct inner_s", spelled, 2))

UDT(flat_t, SCALAR(vx_uint8, a), FLAGS(valid, a, b, rest))

UDT(word_t, SCALAR(vx_uint8, a), MASK(valid, vx_uint32, a, b, c))

UDT(narrow_t, MASK(valid, vx_uint8, f0, f1, f2, f3, f4, f5, f6, f7, f8))

UDT(bare_t, FLAGS(mask_s, a, b), SCALAR(vx_uint32, mask))

UDT(choice_t, SCALAR(vx_uint32, type),
    INLINE(of, NESTED(inner_t, of.one), UDT_LIST(inner_t, of.list, 2),
           INLINE(of.pair, SCALAR(vx_uint16, of.pair.low), SCALAR(vx_uint16, of.pair.high)), SCALAR(vx_uint32, of.key)))

UDT(overlaid_t, OVERLAID(addr, ELEMENTS(vx_mac_addr_t, addr.mac, 6), NESTED(vx_in_addr_t, addr.ipv4),
                         SCALAR(vx_ip_ver_t, addr.mode)))

METHOD(sample_values, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint32, word),
       VALUE(vx_ip_ver_t, mode))

constexpr Help help_sample_none{
    .title = "Does nothing",
    .text = "This API does nothing.\nNothing at all.\n",
    .outputs = "nothing\n",
    .returns = "-7\n",
};
METHOD(sample_none, help_sample_none)
METHOD(sample_bytes, no_help, ELEMENT_PTR(vx_boolean, p_bytes))
METHOD(sample_mac, no_help, ELEMENT_PTR(vx_mac_addr_t, p_mac))
METHOD(sample_shorts, no_help, ELEMENT_PTR(vx_port_id_t, p_shorts))
METHOD(sample_words, no_help, VALUE(vx_dev_id_t, dev_id), ELEMENT_PTR(vx_uint32, p_words))
METHOD(sample_modes, no_help, ELEMENT_PTR(vx_ip_ver_t, p_modes))

constexpr Help help_sample_udt{
    .title = "Takes a structure",
    .text = "This API takes a structure.\n",
    .inputs = "p_cfg  : structure\n",
};
METHOD(sample_udt, help_sample_udt, VALUE(vx_dev_id_t, dev_id), UDT_PTR(inner_t, p_cfg))
METHOD(sample_free, no_help, COOKIE(cookie))

}  // namespace lmq
