// Writing of a trace: records are appended, each at once, so that whoever is killed leaves what it wrote.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "mapped_tail.h"
#include "reader.h"
#include "record.h"

namespace lmq::trace {

class Writer {
  public:
    enum class Mode {
        append,   ///< Goes on with the file that is there, if it is of the same interface; else that is laid aside. The
                  ///< file is mapped where that can be done: a record then costs no call to the system.
        replace,  ///< Puts a new file in the place of what is there.
        create    ///< There must be no file of that name.
    };

    /// Opens a trace, which its owner alone may read. While it is appended to, no other writer can open it; a torn end
    /// is cut off.
    /// @param path  The file. What is laid aside is called like it with `.1` behind, and takes that file's place.
    /// @param head  What the first record holds: maker, fingerprint, note. Its kind, number and time are set here.
    /// @param limit Bytes of a file; when a record would make it longer, the file is laid aside. 0 for none.
    /// @throws Error if that cannot be done, or if the file is there and no trace.
    Writer(std::string path, Record head, Mode mode, std::uint64_t limit = 0);
    ~Writer();
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;

    /// Appends a record.
    /// @throws Error if the system cannot write all of it; what it has written is taken back then.
    void write(const RecordView &record);

    /// Appends a record that is encoded and sealed already.
    /// @throws Error likewise.
    void write_sealed(std::string_view record);

    /// The number behind the highest that the file had when it was opened.
    std::uint64_t next_number() const { return next_number_; }

    /// Opens the file anew, which somebody may have moved away.
    /// @throws Error if that cannot be done; the old one stays open.
    void reopen();

    const std::string &path() const { return path_; }

  private:
    int open_file(Mode mode);
    bool take_up(int file);
    void begin();
    void lay_aside();
    void put(std::string_view record);
    bool write_at(std::uint64_t place, std::string_view bytes);
    [[noreturn]] void fail_cut_off();
    void cut_off_room();
    [[noreturn]] void fail(const std::string &what) const;

    std::string path_;
    Record head_;
    std::uint64_t limit_;
    /// Whether to map the file; and whether that has been done, so that there may be zeros behind its end.
    bool maps_;
    bool has_room_ = false;
    // Before the file, whose opening sets them.
    std::uint64_t size_ = 0;
    std::uint64_t next_number_ = 1;
    int file_;
    MappedTail tail_;
};

}  // namespace lmq::trace
