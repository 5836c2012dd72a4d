// Reading of the file line by line; what a line may look like is up to the option parser.
#include "config_file.h"

#include <istream>
#include <sstream>

namespace lmq::host {

std::vector<CLI::ConfigItem> ConfigFile::from_config(std::istream &input) const {
    std::vector<CLI::ConfigItem> read;
    std::string line;
    for (int number = 1; std::getline(input, line); ++number) {
        std::istringstream text(line);
        for (CLI::ConfigItem &item : CLI::ConfigTOML::from_config(text)) {
            const bool is_plain = item.parents.empty() && line.find('=') != std::string::npos;
            const CLI::Option *option = is_plain ? app_.get_option_no_throw("--" + item.name) : nullptr;
            if (option == nullptr || !option->get_configurable()) {
                throw CLI::ConfigError(place(number) + "'" + line + "' is no option (a line is NAME=VALUE)");
            }
            const auto [before, is_new] = lines_.emplace(item.name, number);
            if (!is_new) {
                throw CLI::ConfigError(place(number) + item.name + " stands in line " + std::to_string(before->second) +
                                       " already");
            }
            read.push_back(std::move(item));
        }
    }
    return read;
}

std::string ConfigFile::place(const std::string &option) const {
    const auto line = option.starts_with("--") ? lines_.find(option.substr(2)) : lines_.end();
    return line == lines_.end() ? "" : place(line->second);
}

std::string ConfigFile::place(int line) const {
    return app_.get_config_ptr()->results().front() + ":" + std::to_string(line) + ": ";
}

}  // namespace lmq::host
