// The file of --config: lines NAME=VALUE, each with its number, so that a mistake can be found.
#pragma once

#include <CLI/CLI.hpp>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

namespace lmq::host {

class ConfigFile : public CLI::ConfigTOML {
  public:
    /// @param app The options that the file may hold. Must outlive this.
    explicit ConfigFile(const CLI::App &app) : app_(app) {}

    /// Reads the file.
    /// @throws CLI::ConfigError that names the file and the line of what is no option, or stands there twice.
    std::vector<CLI::ConfigItem> from_config(std::istream &input) const override;

    /// Where an option stands: "FILE:LINE: ".
    /// @param option As on the command line.
    /// @return Empty if it is not in the file.
    std::string place(const std::string &option) const;

  private:
    std::string place(int line) const;

    const CLI::App &app_;
    /// The lines of the options that have been read.
    mutable std::map<std::string, int> lines_;
};

}  // namespace lmq::host
