// LMQ_FOR_EACH(macro, fixed, a, b, ...): macro(fixed, a) macro(fixed, b) ..., for 1 to 32 arguments: as many as a word
// has bits. Written out, so that a mistake in an argument gives a short message.
#pragma once

#define LMQ_FOR_EACH(macro, fixed, ...)                                                                            \
    LMQ_PICK_33(__VA_ARGS__, LMQ_EACH_32, LMQ_EACH_31, LMQ_EACH_30, LMQ_EACH_29, LMQ_EACH_28, LMQ_EACH_27,         \
                LMQ_EACH_26, LMQ_EACH_25, LMQ_EACH_24, LMQ_EACH_23, LMQ_EACH_22, LMQ_EACH_21, LMQ_EACH_20,         \
                LMQ_EACH_19, LMQ_EACH_18, LMQ_EACH_17, LMQ_EACH_16, LMQ_EACH_15, LMQ_EACH_14, LMQ_EACH_13,         \
                LMQ_EACH_12, LMQ_EACH_11, LMQ_EACH_10, LMQ_EACH_9, LMQ_EACH_8, LMQ_EACH_7, LMQ_EACH_6, LMQ_EACH_5, \
                LMQ_EACH_4, LMQ_EACH_3, LMQ_EACH_2, LMQ_EACH_1, )                                                  \
    (macro, fixed, __VA_ARGS__)
#define LMQ_PICK_33(a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12, a13, a14, a15, a16, a17, a18, a19, a20, a21, \
                    a22, a23, a24, a25, a26, a27, a28, a29, a30, a31, a32, picked, ...)                             \
    picked

#define LMQ_EACH_1(m, f, a) m(f, a)
#define LMQ_EACH_2(m, f, a, ...) m(f, a) LMQ_EACH_1(m, f, __VA_ARGS__)
#define LMQ_EACH_3(m, f, a, ...) m(f, a) LMQ_EACH_2(m, f, __VA_ARGS__)
#define LMQ_EACH_4(m, f, a, ...) m(f, a) LMQ_EACH_3(m, f, __VA_ARGS__)
#define LMQ_EACH_5(m, f, a, ...) m(f, a) LMQ_EACH_4(m, f, __VA_ARGS__)
#define LMQ_EACH_6(m, f, a, ...) m(f, a) LMQ_EACH_5(m, f, __VA_ARGS__)
#define LMQ_EACH_7(m, f, a, ...) m(f, a) LMQ_EACH_6(m, f, __VA_ARGS__)
#define LMQ_EACH_8(m, f, a, ...) m(f, a) LMQ_EACH_7(m, f, __VA_ARGS__)
#define LMQ_EACH_9(m, f, a, ...) m(f, a) LMQ_EACH_8(m, f, __VA_ARGS__)
#define LMQ_EACH_10(m, f, a, ...) m(f, a) LMQ_EACH_9(m, f, __VA_ARGS__)
#define LMQ_EACH_11(m, f, a, ...) m(f, a) LMQ_EACH_10(m, f, __VA_ARGS__)
#define LMQ_EACH_12(m, f, a, ...) m(f, a) LMQ_EACH_11(m, f, __VA_ARGS__)
#define LMQ_EACH_13(m, f, a, ...) m(f, a) LMQ_EACH_12(m, f, __VA_ARGS__)
#define LMQ_EACH_14(m, f, a, ...) m(f, a) LMQ_EACH_13(m, f, __VA_ARGS__)
#define LMQ_EACH_15(m, f, a, ...) m(f, a) LMQ_EACH_14(m, f, __VA_ARGS__)
#define LMQ_EACH_16(m, f, a, ...) m(f, a) LMQ_EACH_15(m, f, __VA_ARGS__)
#define LMQ_EACH_17(m, f, a, ...) m(f, a) LMQ_EACH_16(m, f, __VA_ARGS__)
#define LMQ_EACH_18(m, f, a, ...) m(f, a) LMQ_EACH_17(m, f, __VA_ARGS__)
#define LMQ_EACH_19(m, f, a, ...) m(f, a) LMQ_EACH_18(m, f, __VA_ARGS__)
#define LMQ_EACH_20(m, f, a, ...) m(f, a) LMQ_EACH_19(m, f, __VA_ARGS__)
#define LMQ_EACH_21(m, f, a, ...) m(f, a) LMQ_EACH_20(m, f, __VA_ARGS__)
#define LMQ_EACH_22(m, f, a, ...) m(f, a) LMQ_EACH_21(m, f, __VA_ARGS__)
#define LMQ_EACH_23(m, f, a, ...) m(f, a) LMQ_EACH_22(m, f, __VA_ARGS__)
#define LMQ_EACH_24(m, f, a, ...) m(f, a) LMQ_EACH_23(m, f, __VA_ARGS__)
#define LMQ_EACH_25(m, f, a, ...) m(f, a) LMQ_EACH_24(m, f, __VA_ARGS__)
#define LMQ_EACH_26(m, f, a, ...) m(f, a) LMQ_EACH_25(m, f, __VA_ARGS__)
#define LMQ_EACH_27(m, f, a, ...) m(f, a) LMQ_EACH_26(m, f, __VA_ARGS__)
#define LMQ_EACH_28(m, f, a, ...) m(f, a) LMQ_EACH_27(m, f, __VA_ARGS__)
#define LMQ_EACH_29(m, f, a, ...) m(f, a) LMQ_EACH_28(m, f, __VA_ARGS__)
#define LMQ_EACH_30(m, f, a, ...) m(f, a) LMQ_EACH_29(m, f, __VA_ARGS__)
#define LMQ_EACH_31(m, f, a, ...) m(f, a) LMQ_EACH_30(m, f, __VA_ARGS__)
#define LMQ_EACH_32(m, f, a, ...) m(f, a) LMQ_EACH_31(m, f, __VA_ARGS__)
