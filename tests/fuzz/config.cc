// Fuzzer of the file of --config: whatever it holds, it is read or refused.
#include <cstdint>
#include <sstream>

#include "config_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    CLI::App app;
    int number = 0;
    std::vector<std::string> names;
    bool flag = false;
    app.set_config("--config")->add_result("file");
    app.add_option("--number", number);
    app.add_option("--name", names);
    app.add_flag("--flag", flag);
    std::istringstream file(std::string(reinterpret_cast<const char *>(data), size));
    lmq::host::ConfigFile config(app);
    try {
        config.from_config(file);
        config.place("--number");
    } catch (const CLI::Error &) {
        return 0;
    }
    return 0;
}
