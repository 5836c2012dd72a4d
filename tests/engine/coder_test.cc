// The rules of decoding and encoding, one by one, on UDTs made for them.
#include <gtest/gtest.h>

#include <cstring>
#include <utility>
#include <vector>

#include "lmq_xmlrpc.h"
#include "marshal/scalar.h"
#include "marshal/udt.h"
#include "tests/engine/sample.h"
#include "tests/engine/values.h"

namespace {

// A block as the frame takes it: one zeroed UDT, and a spare one behind.
template <class T>
struct Block {
    T udt[2];
    Block() { memset(udt, 0, sizeof udt); }  // of a union, {} need not set all
    std::byte *bytes() { return reinterpret_cast<std::byte *>(udt); }
};

// Decodes into the block; returns the fault, or "".
template <class T>
std::string decode(const lmq::Udt &udt, Block<T> &block, const std::string &json) {
    Env env;
    const bool done = lmq::decode_udt(env, udt, block.bytes(), from_json(json).get());
    EXPECT_EQ(done, env.fault().empty());
    return env.fault();
}

template <class T>
std::string encode(const lmq::Udt &udt, Block<T> &block) {
    Env env;
    Value value(lmq::encode_udt(env, udt, block.bytes()));
    EXPECT_EQ(env.fault(), "");
    return to_json(value.get());
}

// The fault of decoding into a fresh block.
template <class T>
std::string fault(const lmq::Udt &udt, const std::string &json) {
    Block<T> block;
    return decode(udt, block, json);
}

// The echo of what was decoded into a fresh block.
template <class T>
std::string echo(const lmq::Udt &udt, const std::string &json) {
    Block<T> block;
    EXPECT_EQ(decode(udt, block, json), "") << json;
    return encode(udt, block);
}

TEST(Scalars, AreCutToTheirWidthAndExtendedBySign) {
    EXPECT_EQ(echo<scalars_t>(lmq::udt_scalars_t, "{}"),
              R"({"u8":0,"s8":0,"u16":0,"s16":0,"u32":0,"s32":0,"mode":0,"u64":0,"s64":0})");
    EXPECT_EQ(echo<scalars_t>(lmq::udt_scalars_t,
                              R"({"u8":511,"s8":255,"u16":-1,"s16":65535,"u32":-1,"s32":-5,"mode":123456})"),
              R"({"u8":255,"s8":-1,"u16":65535,"s16":-1,"u32":-1,"s32":-5,"mode":123456,"u64":0,"s64":0})");
}

TEST(Scalars, OfSixtyFourBitsTakeTwoWireTypesAndAnswerOne) {
    Block<scalars_t> block;
    EXPECT_EQ(decode(lmq::udt_scalars_t, block, R"({"u64":-2,"s64":8589934592})"), "");
    EXPECT_EQ(block.udt[0].u64, 18446744073709551614u);
    EXPECT_EQ(block.udt[0].s64, 8589934592);
    Env env;
    Value all(lmq::encode_udt(env, lmq::udt_scalars_t, block.bytes()));
    xmlrpc_value *member;
    xmlrpc_struct_read_value(env, all.get(), "u64", &member);
    EXPECT_EQ(xmlrpc_value_type(member), XMLRPC_TYPE_I8);
    xmlrpc_DECREF(member);
    for (const char *wrong : {"true", "1.5", "\"1\"", "null", "[1]", "{}"})
        EXPECT_EQ(fault<scalars_t>(lmq::udt_scalars_t, std::string(R"({"u64":)") + wrong + "}"),
                  "-501 Member u64 of struct type scalars_t: expected a vx_uint64 but got something else");
}

TEST(Scalars, OfSixtyFourBitsStandAtMultiplesOfEight) {
    EXPECT_EQ(lmq::udt_wide_t.size, 24u);
    EXPECT_EQ(lmq::udt_wides_t.size, 56u);
    Block<wides_t> block;
    EXPECT_EQ(decode(lmq::udt_wides_t, block,
                     R"({"before":1,"many":[{"before":2,"u64":3,"behind":4},{"before":5,"u64":6,"behind":7}]})"),
              "");
    const std::pair<size_t, int> stored[] = {{0, 1}, {8, 2}, {16, 3}, {24, 4}, {32, 5}, {40, 6}, {48, 7}};
    std::vector<std::byte> expected(sizeof block);
    for (const auto &[offset, value] : stored) expected[offset] = std::byte(value);
    EXPECT_EQ(memcmp(block.bytes(), expected.data(), expected.size()), 0);
}

TEST(Scalars, OfOtherWireTypesAreRefused) {
    for (const char *wrong : {"true", "1.5", "\"1\"", "null", "[1]", "{}", "8589934592"})
        EXPECT_EQ(fault<scalars_t>(lmq::udt_scalars_t, std::string(R"({"mode":)") + wrong + "}"),
                  "-501 Member mode of struct type scalars_t: expected a vx_ip_ver_t but got something else");
}

TEST(Structs, KeepWhatIsAbsentAndIgnoreWhatIsUnknown) {
    Block<scalars_t> block;
    block.udt[0].u16 = 7;
    EXPECT_EQ(decode(lmq::udt_scalars_t, block, R"({"u8":1,"nobody":[{}],"U16":8})"), "");
    EXPECT_EQ(block.udt[0].u8, 1);
    EXPECT_EQ(block.udt[0].u16, 7);
}

TEST(Structs, AFaultLeavesWhatWasDecoded) {
    Block<scalars_t> block;
    EXPECT_NE(decode(lmq::udt_scalars_t, block, R"({"s64":1,"u16":"x","u8":3})"), "");
    EXPECT_EQ(block.udt[0].u8, 3);  // in order of declaration, not of sending
    EXPECT_EQ(block.udt[0].s64, 0);
}

TEST(Elements, FillFromTheStartAndAnswerTheWholeBound) {
    EXPECT_EQ(echo<arrays_t>(lmq::udt_arrays_t,
                             R"({"mac":[300,2],"behind":511,"map":[-1,2],"words":[-1],"modes":[-9,70000]})"),
              R"({"mac":[44,2,0,0,0,0],"behind":[255,0,0,0,0,0],"map":[65535,2,0],"words":[-1,0],"modes":[-9,70000]})");
    Block<arrays_t> block;
    block.udt[0].mac[1] = 5;
    EXPECT_EQ(decode(lmq::udt_arrays_t, block, R"({"mac":[]})"), "");
    EXPECT_EQ(block.udt[0].mac[1], 5);
}

// No bound is enforced: a longer array writes on over the members behind it, and over the end of the UDT. The same at
// every optimisation level: this file is built at two.
TEST(Elements, RunOnOverTheMembersBehind) {
    EXPECT_EQ(echo<arrays_t>(lmq::udt_arrays_t, R"({"mac":[1,2,3,4,5,6,7,8,9,10,11]})"),
              R"({"mac":[1,2,3,4,5,6],"behind":[7,8,9,10,11,0],"map":[0,0,0],"words":[0,0],"modes":[0,0]})");
    // It may end within a member: of map[1] it reaches the low byte.
    EXPECT_EQ(echo<arrays_t>(lmq::udt_arrays_t, R"({"mac":[1,2,3,4,5,6,7,8,9,10,11,12,13,14,15]})"),
              R"({"mac":[1,2,3,4,5,6],"behind":[7,8,9,10,11,12],"map":[3597,15,0],"words":[0,0],"modes":[0,0]})");
    Block<arrays_t> block;
    EXPECT_EQ(decode(lmq::udt_arrays_t, block, R"({"modes":[1,2,197121,4]})"), "");
    EXPECT_EQ(block.udt[1].mac[0], 1);
    EXPECT_EQ(block.udt[1].mac[1], 2);
    EXPECT_EQ(block.udt[1].mac[2], 3);
    EXPECT_EQ(block.udt[1].mac[4], 4);
}

TEST(Elements, OfOtherWireTypesAreRefused) {
    const std::string member = "-501 Member mac of struct type arrays_t: ";
    EXPECT_EQ(fault<arrays_t>(lmq::udt_arrays_t, R"({"mac":{}})"),
              member + "is a struct, but I expected a unsigned char *");
    EXPECT_EQ(fault<arrays_t>(lmq::udt_arrays_t, R"({"mac":true})"),
              member + "expected a vx_mac_addr_t but got something else");
    EXPECT_EQ(fault<arrays_t>(lmq::udt_arrays_t, R"({"mac":[1,true]})"),
              "-501 Array of unsigned char * entry: expected a vx_mac_addr_t but got something else");
    EXPECT_EQ(fault<arrays_t>(lmq::udt_arrays_t, R"({"map":[{}]})"),
              "-501 Array of unsigned short * entry: expected a vx_uint16 but got something else");
    EXPECT_EQ(fault<arrays_t>(lmq::udt_arrays_t, R"({"modes":[null]})"),
              "-501 Array of int * entry: expected a vx_ip_ver_t but got something else");
}

TEST(Elements, OfNothingAreNilAndOfCountZeroAreEmpty) {
    Env env;
    std::byte bytes[1]{};
    EXPECT_EQ(to_json(Value(lmq::encode_elements(env, nullptr, 5, 1)).get()), "null");
    EXPECT_EQ(to_json(Value(lmq::encode_elements(env, bytes, 0, 1)).get()), "[]");
    EXPECT_EQ(to_json(Value(lmq::encode_udt(env, lmq::udt_inner_t, nullptr)).get()), "null");
    EXPECT_EQ(to_json(Value(lmq::encode_udts(env, lmq::udt_inner_t, nullptr, 5)).get()), "null");
    EXPECT_TRUE(lmq::decode_elements(env, bytes, from_json("[]").get(), 0, {1, false}, "vx_uint8"));
}

struct Named : testing::Test {
    Named() { __x_mm_initialize(); }
    ~Named() override { __x_mm_free(); }
};

TEST_F(Named, TakesUpToItsBoundAndPutsTheTerminatorBehind) {
    EXPECT_EQ(echo<named_t>(lmq::udt_named_t, R"({"name":"eth0"})"), R"({"name":"eth0","behind":[0,0,0,0,0,0]})");
    Block<named_t> block;
    block.udt[0].behind[0] = 1;
    EXPECT_EQ(decode(lmq::udt_named_t, block, R"({"name":"0123456789abcdef"})"), "");
    EXPECT_EQ(block.udt[0].behind[0], 0);
    // An address behind it, decoded later, takes the terminator's place: the text runs on into it.
    EXPECT_EQ(echo<named_t>(lmq::udt_named_t, R"({"name":"0123456789abcdef","behind":[65,66]})"),
              R"({"name":"0123456789abcdefAB","behind":[65,66,0,0,0,0]})");
    // What is no UTF-8 there ends it.
    EXPECT_EQ(echo<named_t>(lmq::udt_named_t, R"({"name":"0123456789abcdef","behind":[65,200,66]})"),
              R"({"name":"0123456789abcdefA","behind":[65,200,66,0,0,0]})");
}

TEST_F(Named, IsRefusedBeyondItsBoundAndWhenItIsNoString) {
    const std::string member = "-501 Member name of struct type named_t: ";
    EXPECT_EQ(fault<named_t>(lmq::udt_named_t, R"({"name":"0123456789abcdefg"})"),
              member + "strlen of name larger than defined maximum of 16");
    for (const char *wrong : {"1", "[101]", "{}", "null"})
        EXPECT_EQ(fault<named_t>(lmq::udt_named_t, std::string(R"({"name":)") + wrong + "}"),
                  member + "expected a vx_char * but got something else");
}

// No document holds such a text, but a host that makes values itself may.
TEST_F(Named, WithAZeroByteIsRefusedByTheLibrary) {
    Env env;
    Value text(xmlrpc_string_new_lp(env, 3, "a\0b")), value(xmlrpc_struct_new(env));
    xmlrpc_struct_set_value(env, value.get(), "name", text.get());
    Block<named_t> block;
    EXPECT_FALSE(lmq::decode_udt(env, lmq::udt_named_t, block.bytes(), value.get()));
    EXPECT_EQ(env.env.fault_code, XMLRPC_TYPE_ERROR);
    EXPECT_EQ(block.udt[0].name[0], '\0');
}

TEST(Nested, UdtsAndArraysOfThem) {
    EXPECT_EQ(echo<tree_t>(lmq::udt_tree_t, R"({"one":{"y":1},"many":{"x":2},"spelled":[{},{"y":3}]})"),
              R"({"one":{"x":0,"y":1},"many":[{"x":2,"y":0},{"x":0,"y":0}],"spelled":[{"x":0,"y":0},{"x":0,"y":3}]})");
    EXPECT_EQ(echo<tree_t>(lmq::udt_tree_t, R"({"many":[]})"),
              R"({"one":{"x":0,"y":0},"many":[{"x":0,"y":0},{"x":0,"y":0}],"spelled":[{"x":0,"y":0},{"x":0,"y":0}]})");
    // No bound here either: the third of two lands in the next member.
    EXPECT_EQ(echo<tree_t>(lmq::udt_tree_t, R"({"many":[{},{},{"x":7,"y":8}]})"),
              R"({"one":{"x":0,"y":0},"many":[{"x":0,"y":0},{"x":0,"y":0}],"spelled":[{"x":7,"y":8},{"x":0,"y":0}]})");
}

TEST(Nested, FaultTexts) {
    EXPECT_EQ(fault<tree_t>(lmq::udt_tree_t, R"({"one":[]})"),
              "-501 Member one of struct type tree_t: expected a inner_t but got something else");
    EXPECT_EQ(fault<tree_t>(lmq::udt_tree_t, R"({"one":{"y":"x"}})"),
              "-501 Member y of struct type inner_t: expected a vx_uint16 but got something else");
    EXPECT_EQ(fault<tree_t>(lmq::udt_tree_t, R"({"many":1})"),
              "-501 Member many of struct type tree_t: expected an array or a struct, but got something else");
    EXPECT_EQ(fault<tree_t>(lmq::udt_tree_t, R"({"many":[{},1]})"),
              "-501 Array of inner_t * entry: expected a inner_t but got something else");
    EXPECT_EQ(fault<tree_t>(lmq::udt_tree_t, R"({"spelled":[[]]})"),
              "-501 Array of struct inner_s * entry: expected a inner_t but got something else");
    EXPECT_EQ(fault<inner_t>(lmq::udt_twin_t, R"({"x":""})"),
              "-501 Member x of struct type twin_t: expected a vx_uint16 but got something else");
}

TEST(Masks, FlatFlagsTakeTheirLowBitsAndKeepTheirNeighbours) {
    EXPECT_EQ(echo<flat_t>(lmq::udt_flat_t, R"({"a":9,"valid":{"b":3,"rest":5}})"),
              R"({"a":9,"valid":{"a":0,"b":1,"rest":5}})");
    EXPECT_EQ(echo<flat_t>(lmq::udt_flat_t, R"({"valid":{"a":2,"rest":-1}})"),
              R"({"a":0,"valid":{"a":0,"b":0,"rest":1073741823}})");
    Block<flat_t> block;
    block.udt[0].valid = {1, 1, 77};
    EXPECT_EQ(decode(lmq::udt_flat_t, block, R"({"valid":{"b":0}})"), "");
    EXPECT_EQ(encode(lmq::udt_flat_t, block), R"({"a":0,"valid":{"a":1,"b":0,"rest":77}})");
}

TEST(Masks, OfTheWordShapeLetTheWordWin) {
    EXPECT_EQ(echo<word_t>(lmq::udt_word_t, R"({"valid":{"mask":5}})"),
              R"({"a":0,"valid":{"mask_s":{"a":1,"b":0,"c":1},"mask":5}})");
    EXPECT_EQ(echo<word_t>(lmq::udt_word_t, R"({"valid":{"mask":4,"mask_s":{"a":1,"b":1}}})"),
              R"({"a":0,"valid":{"mask_s":{"a":0,"b":0,"c":1},"mask":4}})");
    EXPECT_EQ(echo<bare_t>(lmq::udt_bare_t, R"({"mask":2,"mask_s":{"a":1}})"), R"({"mask_s":{"a":0,"b":1},"mask":2})");
}

TEST(Masks, AWordNarrowerThanTheFlagsLeavesTheRest) {
    EXPECT_EQ(echo<narrow_t>(lmq::udt_narrow_t, R"({"valid":{"mask_s":{"f8":1},"mask":511}})"),
              R"({"valid":{"mask_s":{"f0":1,"f1":1,"f2":1,"f3":1,"f4":1,"f5":1,"f6":1,"f7":1,"f8":1},"mask":255}})");
    EXPECT_EQ(echo<narrow_t>(lmq::udt_narrow_t, R"({"valid":{"mask":511}})"),
              R"({"valid":{"mask_s":{"f0":1,"f1":1,"f2":1,"f3":1,"f4":1,"f5":1,"f6":1,"f7":1,"f8":0},"mask":255}})");
    EXPECT_EQ(fault<narrow_t>(lmq::udt_narrow_t, R"({"valid":{"mask":""}})"),
              "-501 Member valid of struct type narrow_t: expected a vx_uint8 but got something else");
}

TEST(Masks, FaultTextsNameTheMemberOfTheUdt) {
    const std::string valid = "-501 Member valid of struct type word_t: expected ";
    EXPECT_EQ(fault<word_t>(lmq::udt_word_t, R"({"valid":3})"),
              valid + "an inline struct for member valid but got something else");
    EXPECT_EQ(fault<word_t>(lmq::udt_word_t, R"({"valid":{"mask_s":3}})"),
              valid + "an inline struct for member mask_s but got something else");
    EXPECT_EQ(fault<word_t>(lmq::udt_word_t, R"({"valid":{"mask_s":{"b":true}}})"),
              valid + "a vx_uint32 but got something else");
    EXPECT_EQ(fault<word_t>(lmq::udt_word_t, R"({"valid":{"mask":true}})"),
              valid + "a vx_uint32 but got something else");
    EXPECT_EQ(fault<bare_t>(lmq::udt_bare_t, R"({"mask_s":{"b":[]}})"),
              "-501 Member mask_s of struct type bare_t: expected a vx_uint32 but got something else");
    EXPECT_EQ(fault<bare_t>(lmq::udt_bare_t, R"({"mask":[]})"),
              "-501 Member mask of struct type bare_t: expected a vx_uint32 but got something else");
}

TEST(Unions, StoreEveryAlternativeInOrderAndAnswerAll) {
    EXPECT_EQ(
        echo<choice_t>(lmq::udt_choice_t, R"({"type":9,"of":{"key":65537,"one":{"x":5,"y":6},"list":[{},{"x":3}]}})"),
        R"({"type":9,"of":{"one":{"x":1,"y":1},"list":[{"x":1,"y":1},{"x":3,"y":0}],"pair":{"low":1,"high":1},"key":65537}})");
    EXPECT_EQ(echo<overlaid_t>(lmq::udt_overlaid_t, R"({"addr":{"mac":[1,2,3,4,5,6],"ipv4":{"s_addr":16909060}}})"),
              R"({"addr":{"mac":[4,3,2,1,5,6],"ipv4":{"s_addr":16909060},"mode":16909060}})");
    // The IPv6 view is read second: its first two bytes and then its first word lie over the IPv4 address.
    EXPECT_EQ(
        echo<vx_ip_addr_t>(
            lmq::udt_vx_ip_addr_t,
            R"({"addr":{"v6":{"in6_u":{"u6_addr8":[9,9,9,9,9],"u6_addr32":[1]}},"v4":{"s_addr":-1}},"ip_ver":1})"),
        R"({"addr":{"v4":{"s_addr":1},"v6":{"in6_u":{"u6_addr8":[1,0,0,0,9,0,0,0,0,0,0,0,0,0,0,0],)"
        R"("u6_addr16":[1,0,9,0,0,0,0,0],"u6_addr32":[1,9,0,0]}}},"ip_ver":1})");
}

TEST(Unions, FaultTextsNameTheMemberOrTheAlternative) {
    const std::string of = "-501 Member of of struct type choice_t: expected ";
    EXPECT_EQ(fault<choice_t>(lmq::udt_choice_t, R"({"of":1})"),
              of + "an inline struct for member of but got something else");
    EXPECT_EQ(fault<choice_t>(lmq::udt_choice_t, R"({"of":{"one":1}})"), of + "a inner_t but got something else");
    EXPECT_EQ(fault<choice_t>(lmq::udt_choice_t, R"({"of":{"list":{}}})"), of + "a inner_t * but got something else");
    EXPECT_EQ(fault<choice_t>(lmq::udt_choice_t, R"({"of":{"list":[1]}})"),
              "-501 Array of inner_t * entry: expected a inner_t but got something else");
    EXPECT_EQ(fault<choice_t>(lmq::udt_choice_t, R"({"of":{"pair":1}})"),
              of + "an inline struct for member pair but got something else");
    EXPECT_EQ(fault<choice_t>(lmq::udt_choice_t, R"({"of":{"pair":{"high":""}}})"),
              of + "a vx_uint16 but got something else");
    EXPECT_EQ(fault<choice_t>(lmq::udt_choice_t, R"({"of":{"key":""}})"), of + "a vx_uint32 but got something else");

    const std::string inside = " of struct type inline struct: ";
    EXPECT_EQ(
        fault<overlaid_t>(lmq::udt_overlaid_t, R"({"addr":1})"),
        "-501 Member addr of struct type overlaid_t: expected an inline struct for member addr but got something else");
    EXPECT_EQ(fault<overlaid_t>(lmq::udt_overlaid_t, R"({"addr":{"mac":{}}})"),
              "-501 Member mac" + inside + "is a struct, but I expected a unsigned char *");
    EXPECT_EQ(fault<overlaid_t>(lmq::udt_overlaid_t, R"({"addr":{"mac":""}})"),
              "-501 Member mac" + inside + "expected a vx_mac_addr_t but got something else");
    EXPECT_EQ(fault<overlaid_t>(lmq::udt_overlaid_t, R"({"addr":{"ipv4":1}})"),
              "-501 Member ipv4" + inside + "expected a vx_in_addr_t but got something else");
    EXPECT_EQ(fault<vx_ip_addr_t>(lmq::udt_vx_ip_addr_t, R"({"addr":{"v4":1}})"),
              "-501 Member addr of struct type vx_ip_addr_t: expected a vx_in_addr_t but got something else");
}

// Nothing is stored or loaded as a whole word that may not be: the headers of a driver may be packed, and processors
// differ in what they do then.
TEST(Memory, MayBeginAtAnyAddress) {
    alignas(8) std::byte room[sizeof(scalars_t) + sizeof(arrays_t) + 8];
    const std::string scalars =
        R"({"u8":1,"s8":-1,"u16":515,"s16":-2,"u32":67305985,"s32":-3,"mode":4,"u64":-5,"s64":-6})";
    const std::string arrays =
        R"({"mac":[1,2,3,4,5,6],"behind":[7,8,9,10,11,12],"map":[515,2,3],"words":[-1,67305985],"modes":[-9,5]})";
    for (size_t odd = 1; odd < 8; ++odd) {
        for (const auto &[udt, json] : {std::pair(&lmq::udt_scalars_t, scalars), {&lmq::udt_arrays_t, arrays}}) {
            memset(room, 0, sizeof room);
            Env env;
            ASSERT_TRUE(lmq::decode_udt(env, *udt, room + odd, from_json(json).get())) << env.fault();
            EXPECT_EQ(to_json(Value(lmq::encode_udt(env, *udt, room + odd)).get()), json) << odd;
        }
    }
}

// Whatever the bytes, an echo may be sent back as it stands: it gives the same bytes and the same echo.
TEST(RoundTrip, OfAnyBytes) {
    const auto check = [](const lmq::Udt &udt) {
        std::vector<std::byte> bytes(udt.size * 2), back(udt.size * 2);
        for (size_t i = 0; i < udt.size; ++i) bytes[i] = std::byte(i * 37 + 11);
        Env env;
        Value value(lmq::encode_udt(env, udt, bytes.data()));
        ASSERT_TRUE(lmq::decode_udt(env, udt, back.data(), value.get())) << udt.name << env.fault();
        Value again(lmq::encode_udt(env, udt, back.data()));
        EXPECT_EQ(to_json(value.get()), to_json(again.get())) << udt.name;
    };
    for (const lmq::Udt *udt :
         {&lmq::udt_scalars_t, &lmq::udt_arrays_t, &lmq::udt_tree_t, &lmq::udt_flat_t, &lmq::udt_word_t,
          &lmq::udt_bare_t, &lmq::udt_choice_t, &lmq::udt_overlaid_t, &lmq::udt_vx_ip_addr_t})
        check(*udt);
}

}  // namespace
