// The table of commands, in the order in which --help shows them. An example names no method: what there is, the host
// says.
#include "command.h"

namespace lmqctl {

const std::vector<Command> commands = {
    {"list", "Methods with signature and title", "lmqctl list '*watchdog*'", set_up_list},
    {"describe", "A method, struct, enum, define or typedef", "lmqctl describe NAME", set_up_describe},
    {"search", "Looks for a word in names, help, members and enumerators", "lmqctl search watchdog", set_up_search},
    {"uses", "Who takes or holds a type", "lmqctl uses TYPE", set_up_uses},
    {"template", "The arguments of a method as JSON with zeros, ready to edit", "lmqctl template METHOD > args.json",
     set_up_template},
    {"call", "Calls a method",
     "lmqctl call METHOD 0 p_cfg.enable=1 p_cfg.mode=MODE_A\n"
     "  lmqctl call METHOD 0 '{\"enable\": 1}'        lmqctl call METHOD 0 @cfg.json\n"
     "  lmqctl call --dry-run --as python METHOD 0",
     set_up_call},
    {"explain", "All meanings of a status number, an event, an enumerator or a define", "lmqctl explain 0x7002",
     set_up_explain},
    {"batch", "Calls one a line, sent in few requests", "lmqctl batch calls.txt        lmqctl batch - < calls.txt",
     set_up_batch},
    {"watch", "Counters and their rates, again and again", "lmqctl watch --every 2 'METHOD 0 1' 'METHOD 0 2'",
     set_up_watch},
    {"get", "What there is of a kind: bridges, flows, ports, queues, ...",
     "lmqctl get flows --port 3        lmqctl get", set_up_get},
    {"snapshot", "Saves what all methods that only read answer", "lmqctl snapshot before.json '*port*'",
     set_up_snapshot},
    {"save", "Writes the settings of a chip as lines of calls", "lmqctl save board7.conf", set_up_save},
    {"apply", "Sets what differs from a file of settings", "lmqctl apply --dry-run board7.conf", set_up_apply},
    {"diff", "Compares two snapshots or files of settings, or one with the chip as it is",
     "lmqctl diff before.json after.json        lmqctl diff board7.conf", set_up_diff},
    {"boards", "The boards of boards.toml, with what answers there", "lmqctl boards        lmqctl boards 'rack2-*'",
     set_up_boards},
    {"fuzz", "Calls by contract, made up from a seed, on hosts of its own; keeps what goes wrong",
     "lmqctl fuzz --seed 7 --check '*flow*'", set_up_fuzz},
    {"replay", "Makes the calls of a trace again, and compares the answers",
     "lmqctl replay night.trace        lmqctl replay night.trace --url http://board:8080 --url http://127.0.0.1:8080",
     set_up_replay},
    {"shrink", "The fewest calls of a trace that still go wrong", "lmqctl shrink night.trace --until died",
     set_up_shrink},
    {"compat", "Whether clients of one interface go on working with another",
     "lmqctl compat interface.json http://board:8080", set_up_compat},
    {"trace", "The calls that a host has kept: as lines, at length, in numbers, as a script",
     "lmqctl trace lmq.trace --status failed --since 03:00\n"
     "  lmqctl trace lmq.trace --follow              lmqctl trace lmq.trace --as python '*flow*' > again.py",
     set_up_trace},
    {"reg", "Reads and writes registers of the chip", "lmqctl reg 0x1000 0x1004[7:4]=3 0x1000..0x103c", set_up_reg},
    {"i2c", "Reads and writes bytes of an I2C slave", "lmqctl i2c 0x50:0..0x5f        lmqctl i2c 0x50:0x10=0xab",
     set_up_i2c},
    {"mdio", "Reads and writes registers of an MDIO slave", "lmqctl mdio 1:0..31        lmqctl mdio 1:0[15]=1",
     set_up_mdio},
    {"spi", "Transfers on an SPI line", "lmqctl spi 0:0x9f000000        lmqctl spi 0=0x55 0", set_up_spi},
    {"doctor", "What is wrong between here and the chip, and what to do", "lmqctl doctor", set_up_doctor},
    {"lock", "Takes the lease: nobody else changes anything for a time", "lmqctl lock --for 20m", set_up_lock},
    {"unlock", "Gives the lease back", "lmqctl unlock", set_up_unlock},
    {"who", "Who holds the lease, and until when", "lmqctl who", set_up_who},
    {"repl", "A session: a line is a command, or the name and arguments of a method", "lmqctl repl", set_up_repl},
    {"set", "In a session: what a device or a port that is left out stands for", "set port 3", set_up_set},
    {"run", "Starts a program whose chip is the host's", "lmqctl --url http://board:8080 run -- PROGRAM ARGUMENT...",
     set_up_run},
    {"completion", "A script that makes a shell complete commands, names and keys",
     "lmqctl completion bash > ~/.local/share/bash-completion/completions/lmqctl", set_up_completion},
    {"complete", "", "lmqctl complete -- call METHOD p_cfg.", set_up_complete},
};

std::vector<std::string> command_names() {
    std::vector<std::string> names;
    for (const Command &command : commands)
        if (*command.summary) names.push_back(command.name);
    return names;
}

void add_host_options(CLI::App &command, std::string &host, double &hang) {
    command.add_option("--host-command", host, "Starts a host; --listen is added. Else the lmq-host beside lmqctl")
        ->type_name("COMMAND");
    command.add_option("--hang", hang, "Seconds after which a call hangs")
        ->check(CLI::Range(0.1, 3600.0))
        ->capture_default_str();
}

CLI::Option *add_words(CLI::App &command, const std::string &name, std::vector<std::string> &words,
                       const std::string &description) {
    // The library's own way to a list of texts takes a single {} for an empty one.
    return command
        .add_option(
            name,
            [&words](const CLI::results_t &given) {
                words = given;
                return true;
            },
            description)
        ->expected(1, 1 << 29)
        ->allow_extra_args()
        ->type_name("TEXT")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

CLI::Option *add_count(CLI::App &command, std::vector<std::string> &counts) {
    return command.add_option("--count", counts, "Elements of the lists that are left out, or of one argument")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(false)
        ->type_name("[NAME=]N");
}

}  // namespace lmqctl
