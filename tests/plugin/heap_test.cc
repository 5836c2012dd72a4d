// The heap calls of the built plug-in, counted one by one: those of a handler and those of the tracker; and what calls
// leave behind. This program's own malloc and its like note each call that comes from the plug-in, follow each block of
// the plug-in and of the XML-RPC library, and pass all on to the C library's.
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <link.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <unordered_set>
#include <vector>

#include "lmq/lmq.h"
#include "lmq_xmlrpc.h"
#include "tests/engine/values.h"

extern "C" {
void *__libc_malloc(size_t);
void *__libc_calloc(size_t, size_t);
void *__libc_realloc(void *, size_t);
void __libc_free(void *);
}

namespace {

struct HeapCall {
    enum What { malloc, calloc, realloc, free } what;
    size_t size;  // bytes, or 0 for free
    const void *block;
};

struct Code {
    uintptr_t begin, end;
    bool holds(const void *address) const {
        const auto at = reinterpret_cast<uintptr_t>(address);
        return at >= begin && at < end;
    }
};

Code plugin_code, values_code, util_code;       // of the plug-in and of the XML-RPC library
std::vector<HeapCall> *heap_calls;              // NULL: nothing is noted
std::unordered_set<const void *> *live_blocks;  // NULL: nothing is followed

void note(const void *from, HeapCall::What what, size_t size, const void *block) {
    if (!heap_calls || !plugin_code.holds(from)) return;
    auto *into = heap_calls;
    heap_calls = nullptr;  // the vector's own
    into->push_back({what, size, block});
    heap_calls = into;
}

void follow(const void *from, const void *gone, const void *block) {
    if (!live_blocks) return;
    auto *live = live_blocks;
    live_blocks = nullptr;  // the set's own
    live->erase(gone);
    if (block && (plugin_code.holds(from) || values_code.holds(from) || util_code.holds(from))) live->insert(block);
    live_blocks = live;
}

}  // namespace

extern "C" {
void *malloc(size_t size) {
    void *block = __libc_malloc(size);
    note(__builtin_return_address(0), HeapCall::malloc, size, block);
    follow(__builtin_return_address(0), nullptr, block);
    return block;
}
void *calloc(size_t count, size_t size) {
    void *block = __libc_calloc(count, size);
    note(__builtin_return_address(0), HeapCall::calloc, count * size, block);
    follow(__builtin_return_address(0), nullptr, block);
    return block;
}
void *realloc(void *old, size_t size) {
    void *block = __libc_realloc(old, size);
    note(__builtin_return_address(0), HeapCall::realloc, size, block);
    follow(__builtin_return_address(0), old, block);
    return block;
}
void free(void *block) {
    note(__builtin_return_address(0), HeapCall::free, 0, block);
    follow(__builtin_return_address(0), block, nullptr);
    __libc_free(block);
}
}

namespace {

using Handler = xmlrpc_value *(xmlrpc_env *, xmlrpc_value *, void *, void *);

// Where the code of a loaded library is, by the end of its name.
Code code_of(const std::string &library) {
    struct Search {
        const std::string &library;
        Code found;
    } search{library, {}};
    dl_iterate_phdr(
        [](dl_phdr_info *info, size_t, void *data) {
            auto &[wanted, code] = *static_cast<Search *>(data);
            if (!std::string(info->dlpi_name).ends_with(wanted)) return 0;
            for (int i = 0; i < info->dlpi_phnum; ++i) {
                const auto &segment = info->dlpi_phdr[i];
                if (segment.p_type != PT_LOAD || !(segment.p_flags & PF_X)) continue;
                code.begin = info->dlpi_addr + segment.p_vaddr;
                code.end = code.begin + segment.p_memsz;
            }
            return 1;
        },
        &search);
    if (!search.found.begin) throw std::runtime_error("not loaded: " + library);
    return search.found;
}

// Stands in for the library's registry, as the plug-in finds the program's function first: it keeps the handlers.
std::vector<std::pair<std::string, Handler *>> registered;

struct Plugin {
    // The caller may have set what the simulated chip reads.
    int cleared =
        unsetenv("LMQ_SIM_CLOCK") + unsetenv("LMQ_SIM_FAIL") + unsetenv("LMQ_SIM_TRAFFIC") + unsetenv("LMQ_SIM_PRESET");
    void *driver = dlopen(DRIVER, RTLD_NOW | RTLD_GLOBAL);  // first, as a host does
    void *library = dlopen(PLUGIN, RTLD_NOW | RTLD_LOCAL);
    void (*initialize)() = symbol<void()>("__x_mm_initialize");
    void (*add_ptr)(void *) = symbol<void(void *)>("__x_mm_add_ptr");
    void (*free_all)() = symbol<void()>("__x_mm_free");

    Plugin() {
        plugin_code = code_of(PLUGIN);
        values_code = code_of("/libxmlrpc.so.3");
        util_code = code_of("/libxmlrpc_util.so.3");
        Env env;
        if (symbol<int(xmlrpc_registry *, xmlrpc_env *)>("xrpc_init")(nullptr, env) != 1)
            throw std::runtime_error("xrpc_init did not answer 1");
    }

    template <class F>
    F *symbol(const char *name) {
        if (!library) throw std::runtime_error(dlerror());
        return reinterpret_cast<F *>(dlsym(library, name));
    }

    Handler *handler(const std::string &name) {
        for (const auto &[known, handler] : registered)
            if (known == name) return handler;
        throw std::runtime_error("not registered: " + name);
    }
};

Plugin &plugin() {
    static Plugin loaded;
    return loaded;
}

// The heap calls of an action, as "malloc 80 A, calloc 2 B, free B": blocks are lettered in order of appearance.
template <class Action>
std::string heap_calls_of(Action action) {
    std::vector<HeapCall> calls;
    heap_calls = &calls;
    action();
    heap_calls = nullptr;
    std::vector<const void *> blocks;
    std::string text;
    for (const HeapCall &call : calls) {
        static const char *const names[] = {"malloc", "calloc", "realloc", "free"};
        size_t letter = 0;
        while (letter < blocks.size() && blocks[letter] != call.block) ++letter;
        if (letter == blocks.size()) blocks.push_back(call.block);
        text += text.empty() ? "" : ", ";
        text += names[call.what];
        if (call.size) text += " " + std::to_string(call.size);
        text += " ";
        text += call.block ? std::string(1, static_cast<char>('A' + letter)) : "NULL";
        if (call.what == HeapCall::free)
            blocks[letter] = reinterpret_cast<const void *>(1);  // its address may come again
    }
    return text;
}

std::string heap_calls_of(const std::string &method, const std::string &parameters) {
    Value array = from_json(parameters);
    Handler *handler = plugin().handler(method);
    return heap_calls_of([&] {
        Env env;
        Value(handler(env, array.get(), nullptr, nullptr));
    });
}

const std::string list = std::to_string(10 * sizeof(void *));
const std::string longer_list = std::to_string(20 * sizeof(void *));

TEST(Heap, AHandlerTakesOneBlockForEachPointerArgument) {
    const std::string watchdog = std::to_string(2 * sizeof(vx_watchdog_cfg_t));
    EXPECT_EQ(heap_calls_of("lmq.vx_reset", "[0,0]"), "malloc " + list + " A, free A, malloc " + list + " B");
    EXPECT_EQ(heap_calls_of("lmq.vx_watchdog_get", "[0,{}]"),
              "malloc " + list + " A, calloc " + watchdog + " B, free B, free A, malloc " + list + " C");
    EXPECT_EQ(heap_calls_of("lmq.vx_watchdog_get", "[0,[]]"), "malloc " + list + " A, free A, malloc " + list + " B");
    EXPECT_EQ(heap_calls_of("lmq.vx_mac_addr_get", "[0,[0,0,0,0,0,0]]"),  // seven units of six bytes
              "malloc " + list + " A, calloc 42 B, free B, free A, malloc " + list + " C");
}

TEST(Heap, AFaultedCallGivesNothingBackAndARefusedCountTakesNothing) {
    EXPECT_EQ(heap_calls_of("lmq.vx_watchdog_get", "[0]"), "");
    EXPECT_EQ(heap_calls_of("lmq.vx_watchdog_get", "[true,{}]"), "malloc " + list + " A");
    EXPECT_EQ(heap_calls_of("lmq.vx_mac_addr_get", "[0,{}]"), "malloc " + list + " A, calloc 12 B");
    // The next call works on a list of its own.
    EXPECT_EQ(heap_calls_of("lmq.vx_reset", "[0,0]"), "malloc " + list + " A, free A, malloc " + list + " B");
}

TEST(Heap, TheStringOfACallBelongsToTheTracker) {
    const std::string config = std::to_string(2 * sizeof(lmq_dev_startup_cfg_s));
    // The copy itself is the library's allocation; its release is the tracker's.
    EXPECT_EQ(heap_calls_of("lmq.lmq_init_device", R"([0,{"dev_if_name":"eth0"}])"),
              "malloc " + list + " A, calloc " + config + " B, free B, free C, free A, malloc " + list + " D");
}

// How many blocks of the plug-in and of the XML-RPC library outlive an action.
template <class Action>
size_t blocks_left_by(Action action) {
    std::unordered_set<const void *> live;
    live_blocks = &live;
    action();
    live_blocks = nullptr;
    return live.size();
}

// The same of a call, its parameters and its answer.
size_t blocks_left_by(const std::string &method, const std::string &parameters) {
    Handler *handler = plugin().handler(method);
    return blocks_left_by([&] {
        Env env;
        const Value array = from_json(parameters);
        const Value answer(handler(env, array.get(), nullptr, nullptr));
        EXPECT_EQ(env.fault(), "") << method;
    });
}

nlohmann::json ask(const std::string &method, const std::string &name) {
    Env env;
    const Value parameters = from_json(nlohmann::json{name}.dump());
    return nlohmann::json::parse(
        to_json(Value(plugin().handler(method)(env, parameters.get(), nullptr, nullptr)).get()));
}

// Parameters of a method with two of everything that an array can hold, structs with all their keys.
std::string full_parameters(const std::string &method) {
    nlohmann::json parameters = nlohmann::json::array();
    const nlohmann::json signature = ask("lmq.methodSignature", method);
    for (size_t i = 1; i < signature.size(); ++i) {
        const std::string type = signature[i]["application_type"];  // without its blanks
        nlohmann::json two = {0, 1};
        if (signature[i]["isUDT"]) two[0] = two[1] = ask("lmq.UDTMalloc", "lmq." + type.substr(0, type.size() - 1));
        if (type == "void*") two = nlohmann::json::array();
        parameters.push_back(type.ends_with("*") ? two : two[0]);
    }
    return parameters.dump();
}

const std::vector<std::string> introspection{
#define INTROSPECTION(name, signature, help) "lmq." #name,
#include "introspect/methods.def"
#undef INTROSPECTION
};

TEST(Heap, ACallLeavesItsListBehindAndNoValue) {
    plugin();
    for (size_t i = introspection.size(); i < registered.size(); ++i) {
        const std::string &method = registered[i].first;
        EXPECT_EQ(blocks_left_by(method, full_parameters(method)), 1) << method;
    }
}

// The methods that look a name up lose their parameter, a decision of this system, and nothing besides.
TEST(Heap, IntrospectionLeavesTheNameThatItWasAskedFor) {
    const std::map<std::string, std::string> asked{{"lmq.methodSignature", "lmq.vx_reset"},
                                                   {"lmq.UDTSignature", "lmq.vx_startup_cfg_t"},
                                                   {"lmq.UDTMalloc", "lmq.vx_startup_cfg_t"}};
    for (const std::string &method : introspection) {
        const auto name = asked.find(method);
        const size_t left = name == asked.end() ? 0 : blocks_left_by([&] {
            Env env;
            xmlrpc_string_new(env, name->second.c_str());
        });
        EXPECT_EQ(blocks_left_by(method, name == asked.end() ? "[]" : nlohmann::json{name->second}.dump()), left)
            << method;
    }
}

TEST(Introspection, ANameWithAZeroByteIsRefusedByTheLibrary) {
    Env env;
    Value parameters(xmlrpc_array_new(env)), name(xmlrpc_string_new_lp(env, 6, "lmq.\0x"));
    xmlrpc_array_append_item(env, parameters.get(), name.get());
    EXPECT_EQ(plugin().handler("lmq.UDTMalloc")(env, parameters.get(), nullptr, nullptr), nullptr);
    EXPECT_EQ(env.env.fault_code, XMLRPC_TYPE_ERROR);
}

TEST(Tracker, BeginsWithTenSlots) {
    EXPECT_EQ(heap_calls_of([] { plugin().initialize(); }), sizeof(void *) == 4 ? "malloc 40 A" : "malloc 80 A");
}

// A pointer takes a byte of the block, whatever the size of a pointer, and one byte is spare.
TEST(Heap, TheBlockOfACookieIsTakenByTheByte) {
    Env env;
    Value pointers(xmlrpc_array_new(env)), parameters(xmlrpc_array_new(env));
    for (int i = 0; i < 3; ++i) {
        Value pointer(xmlrpc_cptr_new(env, &env));
        xmlrpc_array_append_item(env, pointers.get(), pointer.get());
    }
    xmlrpc_array_append_item(env, parameters.get(), pointers.get());
    Handler *handler = plugin().handler("lmq.lmq_pkt_free_fnc");
    EXPECT_EQ(heap_calls_of([&] { Value(handler(env, parameters.get(), nullptr, nullptr)); }),
              "malloc " + list + " A, calloc 4 B, free B, free A, malloc " + list + " C");
}

TEST(Tracker, GrowsWhenOneSlotIsLeft) {
    Plugin &p = plugin();
    p.initialize();
    const auto add = [&](int blocks) {
        return heap_calls_of([&] {
            for (int i = 0; i < blocks; ++i) p.add_ptr(nullptr);
        });
    };
    EXPECT_EQ(add(8), "");
    EXPECT_EQ(add(1).substr(0, 8 + longer_list.size()), "realloc " + longer_list);
    EXPECT_EQ(add(9), "");
    EXPECT_EQ(add(1).substr(0, 8), "realloc ");
    EXPECT_EQ(heap_calls_of([&] { p.free_all(); }).substr(0, 20), "free NULL, free NULL");
}

TEST(Tracker, AlwaysArmsAndNeverFreesWhatItForgets) {
    Plugin &p = plugin();
    EXPECT_EQ(heap_calls_of([&] { p.initialize(); }), "malloc " + list + " A");
    EXPECT_EQ(heap_calls_of([&] { p.initialize(); }), "malloc " + list + " A");
    EXPECT_EQ(heap_calls_of([&] { p.free_all(), p.free_all(); }),
              "free A, malloc " + list + " B, free B, malloc " + list + " C");
}

}  // namespace

extern "C" void xmlrpc_registry_add_method2(xmlrpc_env *, xmlrpc_registry *, const char *name, xmlrpc_method2 handler,
                                            const char *, const char *, void *) {
    registered.emplace_back(name, handler);
}
