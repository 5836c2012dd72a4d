// The rules of the handler frame, on driver functions made for them: counts, forms, narrowing, echoes, faults, and the
// texts that a row is registered with.
#include <gtest/gtest.h>

#include <cstring>

#include "tests/engine/sample.h"
#include "tests/engine/values.h"

namespace {

using Handler = xmlrpc_value *(xmlrpc_env *, xmlrpc_value *, void *, void *);

// The result array of a call, or "CODE TEXT" of its fault.
std::string call(Handler *handler, xmlrpc_value *parameters) {
    Env env;
    Value result(handler(env, parameters, nullptr, nullptr));
    EXPECT_EQ(result == nullptr, !env.fault().empty());
    return result ? to_json(result.get()) : env.fault();
}
std::string call(Handler *handler, const std::string &parameters) { return call(handler, from_json(parameters).get()); }

struct Frame : testing::Test {
    Frame() { handed = {}; }

    // A call that ends in a fault reaches no driver.
    void expect_fault(Handler *handler, const std::string &parameters, const std::string &fault) {
        EXPECT_EQ(call(handler, parameters), fault) << parameters;
        EXPECT_EQ(handed.calls, 0) << parameters;
    }
};

TEST_F(Frame, NarrowsValuesForTheDriverAndTheEcho) {
    EXPECT_EQ(call(lmq::x_rpc_sample_values, "[511,74565,-1,-9]"), "[28936,255,9029,-1,-9]");
    EXPECT_EQ(handed.values[0], 255);
    EXPECT_EQ(handed.values[1], 9029);
    EXPECT_EQ(handed.values[2], 4294967295);
    EXPECT_EQ(handed.values[3], -9);
}

TEST_F(Frame, CountsTheParametersFirst) {
    const std::string fault = "-509 Input argument size mismatch: function \"sample_values\" expects 4 argument(s)!";
    for (const char *wrong : {"[]", "[1,2,3]", "[1,2,3,4,5]"}) expect_fault(lmq::x_rpc_sample_values, wrong, fault);
    EXPECT_EQ(call(lmq::x_rpc_sample_values, nullptr), fault);
    EXPECT_EQ(call(lmq::x_rpc_sample_none, "[1]"),
              "-509 Input argument size mismatch: function \"sample_none\" expects 0 argument(s)!");
    EXPECT_EQ(handed.calls, 0);
    EXPECT_EQ(call(lmq::x_rpc_sample_none, nullptr), "[-7]");
    EXPECT_EQ(call(lmq::x_rpc_sample_none, "[]"), "[-7]");
}

TEST_F(Frame, RefusesOtherFormsAtEachPosition) {
    for (const char *wrong : {"true", "1.5", "\"1\"", "null", "8589934592", "[1]", "{}"})
        expect_fault(lmq::x_rpc_sample_values, std::string("[1,2,") + wrong + ",4]",
                     "-501 Function input 3: expected a vx_uint32 but got something else");
    for (const char *wrong : {"true", "1.5", "\"1\"", "null", "8589934592"}) {
        expect_fault(lmq::x_rpc_sample_shorts, std::string("[") + wrong + "]",
                     "-501 Function input 1: expected a vx_port_id_t but got something else");
        expect_fault(lmq::x_rpc_sample_udt, std::string("[1,") + wrong + "]",
                     "-501 Function input 2: expected an array or a struct, but got something else");
    }
    expect_fault(lmq::x_rpc_sample_udt, "[1,5]",
                 "-501 Function input 2: expected an array or a struct, but got something else");
    expect_fault(lmq::x_rpc_sample_udt, "[1,[{},1]]",
                 "-501 Array of inner_t * entry: expected a inner_t but got something else");
    expect_fault(lmq::x_rpc_sample_shorts, "[{}]",
                 "-501 Function input 1: is a struct, but I expected a unsigned short *");
    expect_fault(lmq::x_rpc_sample_mac, "[{}]", "-501 Function input 1: is a struct, but I expected a unsigned char *");
    expect_fault(lmq::x_rpc_sample_modes, "[{}]", "-501 Function input 1: is a struct, but I expected a int *");
    expect_fault(lmq::x_rpc_sample_shorts, "[[1,\"\"]]",
                 "-501 Array of unsigned short * entry: expected a vx_port_id_t but got something else");
    // The first argument that is wrong is the one that is told.
    expect_fault(lmq::x_rpc_sample_udt, "[true,5]",
                 "-501 Function input 1: expected a vx_dev_id_t but got something else");
}

TEST_F(Frame, EchoesElementsInTheFormThatWasSent) {
    EXPECT_EQ(call(lmq::x_rpc_sample_words, "[0,5]"), "[0,0,-16]");
    EXPECT_EQ(call(lmq::x_rpc_sample_words, "[0,[5,-1]]"), "[0,0,[-16,-1]]");
    EXPECT_EQ(call(lmq::x_rpc_sample_words, "[0,[]]"), "[0,0,null]");
    EXPECT_EQ(handed.pointer, nullptr);
    EXPECT_EQ(handed.calls, 3);
    EXPECT_EQ(call(lmq::x_rpc_sample_mac, "[[1,2,3,4,5,300]]"), "[0,[1,2,3,4,5,44]]");
    EXPECT_EQ(memcmp(handed.block, "\1\2\3\4\5\54\0\0\0\0\0\0", 12), 0);
}

// An int for narrow elements is stored whole: here it fills the spare element too. The echo shows the first alone.
TEST_F(Frame, StoresAWholeIntForNarrowElements) {
    EXPECT_EQ(call(lmq::x_rpc_sample_shorts, "[197121]"), "[0,65244]");
    EXPECT_EQ(memcmp(handed.block, "\1\2\3\0", 4), 0);
    EXPECT_EQ(call(lmq::x_rpc_sample_bytes, "[511]"), "[-2,255]");  // and an unsigned result comes out negative
}

TEST_F(Frame, EchoesUdtsInTheFormThatWasSent) {
    EXPECT_EQ(call(lmq::x_rpc_sample_udt, R"([1,{"x":5}])"), R"([0,1,{"x":5,"y":99}])");
    EXPECT_EQ(call(lmq::x_rpc_sample_udt, R"([1,[{"x":5},{"y":6}]])"), R"([0,1,[{"x":5,"y":99},{"x":0,"y":6}]])");
    EXPECT_EQ(call(lmq::x_rpc_sample_udt, "[1,[]]"), "[0,1,null]");
    EXPECT_EQ(handed.pointer, nullptr);
}

TEST_F(Frame, RefusesACookieThatCameOverTheWire) {
    EXPECT_EQ(call(lmq::x_rpc_sample_free, "[[]]"), "[1,null]");
    EXPECT_EQ(handed.pointer, nullptr);
    handed = {};
    expect_fault(lmq::x_rpc_sample_free, "[5]", "-501 Function input 1: expected a void but got something else");
    expect_fault(lmq::x_rpc_sample_free, "[\"x\"]", "-501 Function input 1: expected a void but got something else");
    expect_fault(lmq::x_rpc_sample_free, "[{}]", "-501 Function input 1: is a struct, but I expected a void *");
    expect_fault(lmq::x_rpc_sample_free, "[[5]]", "-501 Array of void * entry: expected a void but got something else");
}

// Left out of the sanitizer run: a pointer is longer than the block of two bytes that is taken for it, by design. So it
// is shown what the block holds and the bytes behind it: on the 32-bit target pointers of four bytes.
#ifndef LMQ_NO_OVERRUN
TEST_F(Frame, HandsACookieTheBlockAndAnswersConstants) {
    Env env;
    const auto list = [&](std::initializer_list<xmlrpc_value *> items) {
        Value array(xmlrpc_array_new(env));
        for (xmlrpc_value *item : items) xmlrpc_array_append_item(env, array.get(), item);
        return array;
    };
    void *const pointer = reinterpret_cast<void *>(0x04030201);
    Value cookie(xmlrpc_cptr_new(env, pointer));
    EXPECT_EQ(call(lmq::x_rpc_sample_free, list({cookie.get()}).get()), "[1,1]");
    EXPECT_EQ(memcmp(handed.block, &pointer, sizeof pointer), 0);
    EXPECT_EQ(call(lmq::x_rpc_sample_free, list({list({cookie.get(), cookie.get()}).get()}).get()), "[1,null]");
    // One byte apart: of each but the last the lowest byte is left.
    EXPECT_EQ(memcmp(handed.block, "\1\1\2\3\4\0", sizeof pointer == 4 ? 5 : 6), 0);
}
#endif

TEST(Rows, SignatureFollowsFromThePrototype) {
    EXPECT_STREQ(lmq::method_sample_values.text(lmq::method_sample_values.signature), "i:iiii");
    EXPECT_STREQ(lmq::method_sample_none.text(lmq::method_sample_none.signature), "i:");
    EXPECT_STREQ(lmq::method_sample_udt.text(lmq::method_sample_udt.signature), "i:iS");
    EXPECT_STREQ(lmq::method_sample_free.text(lmq::method_sample_free.signature), "i:A");
}

TEST(Rows, HelpTextHasItsParts) {
    EXPECT_STREQ(lmq::method_sample_values.help(), "No help available");
    EXPECT_STREQ(
        lmq::method_sample_udt.help(),
        "vx_status_e sample_udt( vx_dev_id_t dev_id, inner_t * p_cfg )\n\nTakes a structure\n\n"
        " This API takes a structure.\n  \nINPUTS:\n\n  dev_id : device id\n  p_cfg  : structure\n\nReturns:\n  "
        "VX_SUCCESS, or error code as defined in vx_status_e\n");
    EXPECT_STREQ(lmq::method_sample_none.help(),
                 "vx_int32 sample_none(  )\n\nDoes nothing\n\n This API does nothing.\n Nothing at all.\n  \n"
                 "\nOUTPUTS:\n\n  nothing\n\nReturns:\n  -7\n");
}

}  // namespace
