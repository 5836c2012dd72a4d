// lmqctl trace: the calls that a host has kept, one by one, in numbers, or as a script.
#include <sys/stat.h>
#include <time.h>

#include <cstdio>

#include "command.h"
#include "error.h"
#include "interrupt.h"
#include "standard_output.h"
#include "time_text.h"
#include "trace/reader.h"
#include "trace_filter.h"
#include "trace_interface.h"
#include "trace_script.h"
#include "trace_stats.h"
#include "trace_view.h"

namespace lmqctl {

namespace {

struct TraceOptions {
    std::string file, since, until, interface, as;
    TraceFilter filter;
    bool full = false, follow = false, stats = false;
};

// What has the path now; 0 for nothing.
ino_t file_at(const std::string &path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

void rest() {
    constexpr timespec between_looks{0, 100'000'000};
    nanosleep(&between_looks, nullptr);
}

class TraceCommand {
  public:
    TraceCommand(Context &context, const TraceOptions &options) : context_(context), options_(options) {}

    void run() try {
        const std::vector<std::string> parts = lmq::trace::parts_of(options_.file);
        for (const std::string &part : parts) show(part, options_.follow && part == parts.back());
        if (options_.stats) print(context_.json ? json_text(stats_.json(), 2) + "\n" : stats_.table());
        if (script_) print(script_->text(options_.as, options_.file));
    } catch (const lmq::trace::Error &error) {
        throw UsageError(error.what());
    }

  private:
    // All of a file, and, if it is followed, of those that come in its place.
    void show(const std::string &path, bool follows) {
        const CatchInterrupt catcher;
        for (ino_t file = file_at(path);;) {
            lmq::trace::Reader reader(path);
            begin(reader.head());
            bool is_laid_aside = false;
            for (;;) {
                while (const auto *record = reader.next()) {
                    take(*record);
                    if (interrupted) return;
                }
                flush();
                const bool is_over = is_laid_aside || reader.end() == lmq::trace::Reader::End::damaged;
                if (!follows || interrupted || is_over) break;
                rest();
                // Whatever was written before another file took its place is read first.
                const ino_t now = file_at(path);
                is_laid_aside = now != file && now != 0;
            }
            if (!reader.end_text().empty()) complain(reader.end_text());
            if (!is_laid_aside || interrupted) return;
            file = file_at(path);
        }
    }

    // Looks for the interface of a file, if it is another one than that of the file before.
    void begin(const lmq::trace::Record &head) {
        if (is_known_ && head.fingerprint == fingerprint_) return;
        is_known_ = true;
        fingerprint_ = head.fingerprint;
        if (script_) throw UsageError(options_.file + ": its files are of two interfaces; make a script of each");
        interface_ = find_interface(context_, fingerprint_, options_.interface);
        if (options_.as.empty()) return;
        if (!interface_) throw Error(exit_connection, "--as needs the interface of the trace");
        script_ = std::make_unique<TraceScript>(*interface_, context_.connection);
    }

    void take(const lmq::trace::RecordView &record) {
        for (TraceEntry &entry : entries_of(record)) {
            if (!options_.filter.takes(entry, interface_ ? &interface_->dictionary : nullptr)) continue;
            if (options_.stats)
                stats_.add(entry, interface_.get());
            else if (script_)
                script_->add(std::move(entry));
            else
                print(shown(entry));
        }
    }

    std::string shown(const TraceEntry &entry) {
        const TraceView view(interface_.get(), context_.style(options_.full));
        if (context_.json) return json_text(view.json(entry)) + "\n";
        return options_.full ? view.full(entry) : view.line(entry);
    }

    Context &context_;
    const TraceOptions &options_;
    bool is_known_ = false;
    std::string fingerprint_;
    std::unique_ptr<TraceInterface> interface_;
    TraceStats stats_;
    std::unique_ptr<TraceScript> script_;
};

void trace(Context &context, TraceOptions options) {
    const auto time = [](const char *option, const std::string &text) -> std::optional<int64_t> {
        if (text.empty()) return {};
        if (const auto found = time_of(text)) return found;
        throw UsageError(std::string(option) + ": expected a time such as 2024-05-01T12:00:00Z, 12:00 or 10m, not " +
                         text);
    };
    options.filter.since = time("--since", options.since);
    options.filter.until = time("--until", options.until);
    TraceCommand(context, options).run();
}

void set_up_filter(CLI::App &command, TraceFilter &filter) {
    command.add_option("GLOB", filter.methods, "Only methods that match one of these");
    command.add_option("--status", filter.status, "Only calls with this status: a name with * and ?, a number, failed")
        ->type_name("STATUS");
    command.add_flag("--fault{any}", filter.fault, "Only faults; --fault=-507 those of one code")->type_name("[=CODE]");
    command.add_flag("--all", filter.all, "With the calls that ask what there is to call, as lmqctl itself makes them");
    command.add_option("--client", filter.client, "Only calls from this address or user, with * and ?")
        ->type_name("GLOB");
    command.add_option("--slower-than", filter.slower_than_ms, "Only calls that took longer")
        ->type_name("MS")
        ->check(CLI::NonNegativeNumber);
}

}  // namespace

void set_up_trace(CLI::App &command, Context &context) {
    const auto options = std::make_shared<TraceOptions>();
    command
        .add_option("FILE", options->file,
                    "What lmq-host --trace or --post-mortem has written; FILE.1 before it, if it is\n"
                    "there; - for standard input")
        ->required();
    set_up_filter(command, options->filter);
    command.add_option("--since", options->since, "Only what came since: 2024-05-01T12:00:00Z, 12:00, 10m (ago); UTC")
        ->type_name("TIME");
    command.add_option("--until", options->until, "Only what came before")->type_name("TIME");
    CLI::Option *full = command.add_flag("--full", options->full, "Show each call at length, and what was printed");
    CLI::Option *follow = command.add_flag("--follow", options->follow, "Go on with what comes, until Ctrl-C");
    CLI::Option *stats =
        command.add_flag("--stats", options->stats, "Show calls, failures and times by method")->excludes(full);
    command.add_option("--as", options->as, "Make a script of it that runs: batch, c or python")
        ->check(CLI::IsMember({"batch", "c", "python"}))
        ->excludes(full)
        ->excludes(follow)
        ->excludes(stats);
    command
        .add_option("--interface", options->interface,
                    "Names from this interface.json, or a file of lmqctl's cache, and not from the cache or the\n"
                    "host")
        ->type_name("FILE");
    command.callback([&context, options] { trace(context, *options); });
}

}  // namespace lmqctl
