// LMQ_FOR_EACH(macro, fixed, a, b, ...): macro(fixed, a) macro(fixed, b) ..., for up to 250 arguments.
#pragma once

#define LMQ_FOR_EACH(macro, fixed, ...) __VA_OPT__(LMQ_SCAN(LMQ_FOR_EACH_FIRST(macro, fixed, __VA_ARGS__)))
#define LMQ_FOR_EACH_FIRST(macro, fixed, first, ...) \
    macro(fixed, first) __VA_OPT__(LMQ_FOR_EACH_AGAIN LMQ_PARENTHESES (macro, fixed, __VA_ARGS__))
#define LMQ_FOR_EACH_AGAIN() LMQ_FOR_EACH_FIRST
#define LMQ_PARENTHESES ()

// Each level scans its text four times over, and each scan expands one more argument.
#define LMQ_SCAN(...) LMQ_SCAN_3(LMQ_SCAN_3(LMQ_SCAN_3(LMQ_SCAN_3(__VA_ARGS__))))
#define LMQ_SCAN_3(...) LMQ_SCAN_2(LMQ_SCAN_2(LMQ_SCAN_2(LMQ_SCAN_2(__VA_ARGS__))))
#define LMQ_SCAN_2(...) LMQ_SCAN_1(LMQ_SCAN_1(LMQ_SCAN_1(LMQ_SCAN_1(__VA_ARGS__))))
#define LMQ_SCAN_1(...) LMQ_SCAN_0(LMQ_SCAN_0(LMQ_SCAN_0(LMQ_SCAN_0(__VA_ARGS__))))
#define LMQ_SCAN_0(...) __VA_ARGS__
