// The files of traces: what is written is read, whatever becomes of the writer and of the file.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "trace/checksum.h"
#include "trace/document.h"
#include "trace/format.h"
#include "trace/reader.h"
#include "trace/writer.h"

using namespace lmq::trace;
namespace fs = std::filesystem;

namespace {

Record head(const std::string &fingerprint = "f00d") {
    Record record;
    record.maker = "test";
    record.fingerprint = fingerprint;
    return record;
}

Record call(std::uint64_t number, std::size_t size = 10) {
    Record record;
    record.number = number;
    record.time = 1'700'000'000'000'000 + static_cast<std::int64_t>(number);
    record.method = "lmq.method";
    record.call = std::string(size, 'c');
    record.answer = "<answer/>" + std::to_string(number);
    return record;
}

class Traces : public testing::Test {
  protected:
    void SetUp() override {
        char name[] = "/tmp/trace-test-XXXXXX";
        folder_ = mkdtemp(name);
        file_ = folder_ / "t";
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::string content(const fs::path &path) const {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void put(const std::string &bytes) const { std::ofstream(file_, std::ios::binary) << bytes; }

    /// The numbers of a file's records, whose content must be what call() makes of them.
    std::vector<std::uint64_t> numbers(const fs::path &path, Reader::End *end = nullptr) const {
        std::vector<std::uint64_t> found;
        Reader reader(path);
        while (const RecordView *record = reader.next()) {
            found.push_back(record->number);
            EXPECT_EQ(record->answer, call(record->number).answer);
        }
        EXPECT_EQ(reader.end_text().empty(), reader.end() == Reader::End::whole);
        if (end != nullptr) *end = reader.end();
        return found;
    }

    fs::path folder_, file_;
};

using Numbers = std::vector<std::uint64_t>;

TEST_F(Traces, EveryFieldComesBack) {
    Record record = call(7);
    record.kind = Kind::died;
    record.time = -3;
    record.waited = 1;
    record.took = ~std::uint64_t{0};
    record.status = 502;
    record.pid = 3;
    record.signal = 11;
    record.exit_status = 4;
    record.client = "::1";
    record.user = "ann";
    record.printed = std::string("a\0b", 3);
    record.how = "how";
    record.driver = "driver";
    record.plugin = "plug-in";
    record.maker = "maker";
    record.fingerprint = "print";
    record.note = std::string(70'000, 'n');
    const std::string bytes = encode(RecordView(record));
    const std::string piece = bytes + "more";
    const Decoded decoded = decode(piece);
    ASSERT_EQ(decoded.is, Decoded::Is::record);
    EXPECT_EQ(decoded.size, bytes.size());
    EXPECT_EQ(encode(decoded.record), bytes);
    EXPECT_EQ(decoded.record.took, record.took);
    EXPECT_EQ(decoded.record.time, -3);
    EXPECT_EQ(decoded.record.printed, record.printed);
    EXPECT_EQ(decoded.record.note.size(), record.note.size());
}

TEST_F(Traces, AFileIsReadUpToAnEndThatIsTornAnywhere) {
    std::vector<std::size_t> ends;
    {
        Writer writer(file_, head(), Writer::Mode::create);
        ends.push_back(static_cast<std::size_t>(fs::file_size(file_)));
        for (std::uint64_t number : {1U, 2U, 3U}) {
            writer.write(RecordView(call(number)));
            ends.push_back(static_cast<std::size_t>(fs::file_size(file_)));
        }
    }
    const std::string whole = content(file_);
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        put(whole.substr(0, size));
        if (size < ends[0]) {
            EXPECT_THROW(Reader reader(file_), Error) << size;
            continue;
        }
        Reader::End end{};
        const std::size_t count = numbers(file_, &end).size();
        EXPECT_LE(ends[count], size);
        EXPECT_TRUE(count == 3 || size < ends[count + 1]) << size;
        EXPECT_EQ(end, size == ends[count] ? Reader::End::whole : Reader::End::incomplete) << size;
    }
    // Whatever byte is wrong, no wrong record is read: numbers() looks at each.
    for (std::size_t at = ends[0]; at < whole.size(); ++at) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x41);
        put(damaged);
        Reader::End end{};
        const std::size_t count = numbers(file_, &end).size();
        EXPECT_TRUE(count < 3 && ends[count] <= at && at < ends[count + 1]) << at;
        EXPECT_NE(end, Reader::End::whole) << at;
    }
}

TEST_F(Traces, AWriterGoesOnBehindTheLastWholeRecord) {
    { Writer(file_, head(), Writer::Mode::append).write(RecordView(call(1))); }
    const std::string whole = content(file_);
    for (const std::string &torn : {std::string(), std::string("torn"), std::string(5000, '\0'), whole.substr(20)}) {
        put(whole + torn);
        Writer writer(file_, head(), Writer::Mode::append);
        EXPECT_EQ(writer.next_number(), 2);
        writer.write(RecordView(call(2)));
        EXPECT_EQ(numbers(file_), (Numbers{1, 2})) << torn.size();
    }
    EXPECT_FALSE(fs::exists(file_.string() + ".1"));
    // One whose head was not written to its end is laid aside, and one of another interface.
    put(whole.substr(0, 20));
    { Writer(file_, head(), Writer::Mode::append).write(RecordView(call(1))); }
    EXPECT_EQ(content(file_.string() + ".1"), whole.substr(0, 20));
    { Writer(file_, head("cafe"), Writer::Mode::append).write(RecordView(call(2))); }
    EXPECT_EQ(numbers(file_), Numbers{2});
    EXPECT_EQ(numbers(file_.string() + ".1"), Numbers{1});
    struct stat status {};
    ASSERT_EQ(stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(Traces, NothingElseIsWrittenTo) {
    put("somebody's letter");
    EXPECT_THROW(Writer(file_, head(), Writer::Mode::append), Error);
    EXPECT_EQ(content(file_), "somebody's letter");
    EXPECT_THROW(Writer(file_, head(), Writer::Mode::create), Error);
    EXPECT_THROW(Writer("/dev/null", head(), Writer::Mode::append), Error);
    EXPECT_THROW(Writer(folder_ / "no" / "t", head(), Writer::Mode::append), Error);
    Writer one(folder_ / "two", head(), Writer::Mode::append);
    EXPECT_THROW(Writer(folder_ / "two", head(), Writer::Mode::append), Error);
}

TEST_F(Traces, TwoFilesTakeTurnsAtTheLimit) {
    constexpr std::size_t limit = 4096;
    {
        Writer writer(file_, head(), Writer::Mode::append, limit);
        for (std::uint64_t number = 1; number <= 200; ++number) {
            writer.write(RecordView(call(number, number == 150 ? 2 * limit : 50)));
            EXPECT_TRUE(number == 150 || fs::file_size(file_) <= limit) << number;
        }
    }
    Numbers all;
    for (const std::string &part : parts_of(file_)) {
        for (const std::uint64_t number : numbers(part)) all.push_back(number);
    }
    EXPECT_EQ(parts_of(file_).size(), 2U);
    EXPECT_GT(all.size(), 30U);
    for (std::size_t at = 0; at < all.size(); ++at) EXPECT_EQ(all[at], 200 - all.size() + 1 + at);
}

TEST_F(Traces, WhoIsKilledLeavesAllThatWasWritten) {
    for (const std::uint64_t count : {1U, 1000U, 5000U}) {
        fs::remove(file_);
        const pid_t child = fork();
        if (child == 0) {
            Writer writer(file_, head(), Writer::Mode::append);
            for (std::uint64_t number = 1; number <= count; ++number) writer.write(RecordView(call(number, 600)));
            raise(SIGKILL);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);
        Reader::End end{};
        EXPECT_EQ(numbers(file_, &end).size(), count);
        EXPECT_EQ(end, Reader::End::whole);
    }
}

TEST_F(Traces, AReaderGoesOnWhereAWriterDoes) {
    Writer writer(file_, head(), Writer::Mode::append);
    Reader reader(file_);
    for (std::uint64_t number = 1; number <= 5; ++number) {
        EXPECT_EQ(reader.next(), nullptr);
        writer.write(RecordView(call(number)));
        const RecordView *record = reader.next();
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->number, number);
    }
}

TEST_F(Traces, AFileThatIsCutOffDoesNotTakeTheWriterAlong) {
    Writer writer(file_, head(), Writer::Mode::append);
    writer.write(RecordView(call(1)));
    fs::resize_file(file_, 0);
    EXPECT_THROW(writer.write(RecordView(call(2))), Error);
    writer.reopen();
    writer.write(RecordView(call(3)));
    EXPECT_EQ(numbers(file_), Numbers{3});
}

TEST_F(Traces, AFullDiskIsAnErrorAndLeavesWhatWasWritten) {
    constexpr rlim_t room = 100'000;
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    signal(SIGXFSZ, SIG_IGN);
    const rlimit small{room, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    std::uint64_t written = 0;
    {
        Writer writer(file_, head(), Writer::Mode::append);
        EXPECT_THROW(
            for (;;) {
                writer.write(RecordView(call(written + 1, 900)));
                ++written;
            },
            Error);
    }
    setrlimit(RLIMIT_FSIZE, &before);
    Reader::End end{};
    EXPECT_EQ(numbers(file_, &end).size(), written);
    EXPECT_GT(written, 100U);
    EXPECT_EQ(end, Reader::End::whole);
}

// Long ones go another way than zlib's where the processor can; that depends on the length and on where they begin.
TEST(Checksums, AreThoseOfGzip) {
    EXPECT_EQ(checksum("123456789", 9), 0xCBF43926);  // the check value that catalogues of CRCs give
    std::mt19937 random(1);
    std::string bytes(70'000, '\0');
    for (char &byte : bytes) byte = static_cast<char>(random());
    const auto expect_same = [&](std::size_t begin, std::size_t size) {
        const auto expected = crc32_z(0, reinterpret_cast<const unsigned char *>(&bytes[begin]), size);
        EXPECT_EQ(checksum(&bytes[begin], size), expected) << size << " bytes from " << begin;
    };
    for (std::size_t size = 0; size < 1'200; ++size) expect_same(size % 17, size);
    for (const std::size_t size : {4'095U, 4'096U, 65'537U, 69'999U}) expect_same(1, size);
}

TEST(Documents, APackedCallSaysWhatItsXmlDid) {
    using namespace std::string_literals;
    const std::string packed =
        "\x01\x05\0\0\0a.b&c"
        "\x01\xfe\xff\xff\xff"
        "\x02\0\0\0\0\1\0\0\0"
        "\x03\x01\x04\x05\x03\0\0\0<\r>"
        "\x06\x01\x07\0\0\0\0"
        "\x07\x08\x01\0\0\0k\x06\0\0"s;
    const std::string xml = call_document(packed);
    EXPECT_NE(xml.find("<methodName>a.b&amp;c</methodName>"), std::string::npos) << xml;
    EXPECT_NE(xml.find("<params><param><value><i4>-2</i4></value></param><param><value><i8>4294967296</i8></value>"
                       "</param><param><value><boolean>1</boolean></value></param><param><value><nil/></value></param>"
                       "<param><value><string>&lt;&#13;&gt;</string></value></param>"
                       "<param><value><array><data><value><i4>7</i4></value></data></array></value></param>"
                       "<param><value><struct><member><name>k</name><value><array><data></data></array></value>"
                       "</member></struct></value></param></params>"),
              std::string::npos)
        << xml;
    EXPECT_EQ(call_document("<?xml?>"), "<?xml?>");
    // What ends too early is no call, except where a parameter ends.
    for (std::size_t size = 1; size < packed.size(); ++size) {
        const std::string part = call_document(packed.substr(0, size));
        EXPECT_TRUE(part.empty() || part.ends_with("</params></methodCall>\n")) << size;
    }
    EXPECT_EQ(call_document(packed.substr(0, packed.size() - 1)), "");
    EXPECT_EQ(call_document("\x01\0\0\0\0\x09"s), "");
    EXPECT_EQ(call_document("\x01\0\0\0\0"s + std::string(100'000, '\x06')), "");
}

}  // namespace
