// Stands in for frame/describe.h when the rows of families/ are compiled for the remote driver: this folder comes first
// among those in which headers are looked for. METHOD defines the driver function itself, which hands its arguments to
// call(). Prototype and rows are compared as they are in the plug-in; the help texts are left out.
#pragma once

#include <cstdint>
#include <type_traits>

#include "frame/draft.h"
#include "frame/method.h"
#include "frame/pack.h"
#include "marshal/describe.h"
#include "remote/call.h"
#include "remote/terms.h"

// An argument in three forms, of which METHOD picks: parameter, name, description.
#define VALUE(T, name) (T name, name, ::lmq::describe::value<T>(#T, #name))
#define ELEMENT_PTR(T, name) \
    (::lmq::describe::element_of<T> * name, name, ::lmq::describe::element_pointer<T>(#T, #name))
#define UDT_PTR(T, name) (T * name, name, ::lmq::describe::udt_pointer<T>(#T, #name, udt_##T))
#define COOKIE(name) (void *name, name, ::lmq::describe::cookie(#name))

#define METHOD(api, help_parts, ...)                                                                      \
    namespace row_of_##api {                                                                              \
        constexpr auto draft = ::lmq::describe::method<decltype(::api)>(                                  \
            LMQ_PREFIX #api, ::lmq::no_help __VA_OPT__(, LMQ_PICK(LMQ_DESCRIPTION, __VA_ARGS__)));        \
        static_assert(draft.fits, "row of " #api ": the header declares another prototype");              \
    }                                                                                                     \
    extern constinit const Method method_##api;                                                           \
    constinit const Method method_##api = ::lmq::describe::packed_method<row_of_##api::draft>();          \
    extern "C" ::lmq::describe::Prototype<decltype(::api)>::result api(                                   \
        __VA_OPT__(LMQ_PICK(LMQ_PARAMETER, __VA_ARGS__))) {                                               \
        const ::lmq::remote::Word words[] = {__VA_OPT__(LMQ_PICK(LMQ_WORD, __VA_ARGS__), ) 0};            \
        using Result = ::lmq::describe::Prototype<decltype(::api)>::result;                               \
        return static_cast<Result>(::lmq::remote::call(method_##api, ::lmq::remote::terms_##api, words)); \
    }

#define LMQ_PARAMETER(parameter, name, ...) parameter
#define LMQ_WORD(parameter, name, ...) ::lmq::remote::word(name)
#define LMQ_DESCRIPTION(parameter, name, ...) __VA_ARGS__

// LMQ_PICK(pick, a, b, ...): pick a, pick b, ..., for as many arguments as a method may have.
#define LMQ_PICK(pick, ...)                                                                                       \
    LMQ_PICK_9TH(__VA_ARGS__, LMQ_PICK_8, LMQ_PICK_7, LMQ_PICK_6, LMQ_PICK_5, LMQ_PICK_4, LMQ_PICK_3, LMQ_PICK_2, \
                 LMQ_PICK_1, )                                                                                    \
    (pick, __VA_ARGS__)
#define LMQ_PICK_9TH(a, b, c, d, e, f, g, h, picked, ...) picked
#define LMQ_PICK_1(pick, a) pick a
#define LMQ_PICK_2(pick, a, ...) pick a, LMQ_PICK_1(pick, __VA_ARGS__)
#define LMQ_PICK_3(pick, a, ...) pick a, LMQ_PICK_2(pick, __VA_ARGS__)
#define LMQ_PICK_4(pick, a, ...) pick a, LMQ_PICK_3(pick, __VA_ARGS__)
#define LMQ_PICK_5(pick, a, ...) pick a, LMQ_PICK_4(pick, __VA_ARGS__)
#define LMQ_PICK_6(pick, a, ...) pick a, LMQ_PICK_5(pick, __VA_ARGS__)
#define LMQ_PICK_7(pick, a, ...) pick a, LMQ_PICK_6(pick, __VA_ARGS__)
#define LMQ_PICK_8(pick, a, ...) pick a, LMQ_PICK_7(pick, __VA_ARGS__)
