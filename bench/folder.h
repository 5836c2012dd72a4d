// A folder for files that are needed for a moment.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace lmq::bench {

/// A new folder, which goes with all that is in it.
class Folder {
  public:
    Folder() : path_((std::filesystem::temp_directory_path() / "lmq-bench-XXXXXX").string()) {
        if (!mkdtemp(path_.data())) throw std::runtime_error("cannot make a folder like " + path_);
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

    std::filesystem::path path() const { return path_; }

  private:
    std::string path_;
};

}  // namespace lmq::bench
