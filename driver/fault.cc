// Reads faults, and tells which call has to fail.
#include "driver/fault.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

#include "driver/names.h"

namespace lmq::sim {

namespace {

/* Cuts off what stands before the next separator. */
std::string_view cut(std::string_view &text, char separator) {
    const std::size_t end = text.find(separator);
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    return part;
}

/* Whether this library has a function of that name. A name that is misspelt would otherwise never fail. */
bool is_driver_function(const std::string &name) {
    Dl_info own, found;
    if (dladdr(reinterpret_cast<void *>(&lmq_init_system), &own) == 0) return true;
    void *library = dlopen(own.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
    if (library == nullptr) return true;
    void *symbol = dlsym(library, name.c_str());
    dlclose(library);
    return symbol != nullptr && dladdr(symbol, &found) != 0 && found.dli_fbase == own.dli_fbase;
}

}  // namespace

void Faults::add(std::string_view rule) {
    std::string_view rest = rule;
    const std::string function(cut(rest, ':'));
    if (function.empty() || rest.empty()) throw BadFault{"function:status or function:status:nth"};
    if (!is_driver_function(function)) throw BadFault{"a driver function, which \"" + function + "\" is not"};

    const std::string_view given = cut(rest, ':');
    std::optional<vx_status_e> status = status_of(given);
    if (!status) {
        if (const std::optional<int> number = number_of(given)) status = static_cast<vx_status_e>(*number);
    }
    if (!status || *status == VX_SUCCESS) {
        throw BadFault{"a status that is no success, such as VX_ERR_DEV_BUSY or 0x7108, and not \"" +
                       std::string(given) + "\""};
    }

    const bool every = given.data() + given.size() == rule.data() + rule.size();
    const std::optional<int> nth = every ? 0 : number_of(rest);
    if (!nth || (!every && *nth == 0))
        throw BadFault{"which call fails, from 1, and not \"" + std::string(rest) + "\""};
    faults_.push_back({function, *status, static_cast<unsigned>(*nth), 0});
}

std::optional<vx_status_e> Faults::call(std::string_view function) {
    std::optional<vx_status_e> status;
    for (Fault &fault : faults_) {
        if (fault.function != function) continue;
        ++fault.calls;
        if (!status && (fault.nth == 0 || fault.nth == fault.calls)) status = fault.status;
    }
    return status;
}

Faults Faults::from_environment() {
    Faults faults;
    const char *value = std::getenv("LMQ_SIM_FAIL");
    std::string_view rules = value == nullptr ? "" : value;
    while (!rules.empty()) {
        const std::string rule(cut(rules, ','));
        try {
            faults.add(rule);
        } catch (const BadFault &fault) {
            std::fprintf(stderr, "lmq: LMQ_SIM_FAIL has \"%s\": expected %s; no call fails\n", rule.c_str(),
                         fault.expected.c_str());
            return {};
        }
    }
    return faults;
}

}  // namespace lmq::sim
