// What all commands share: the options before the command, the session and the dictionary, each made when first needed.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "dictionary.h"
#include "output.h"
#include "session.h"
#include "type.h"

namespace lmqctl {

struct Board;

struct Context {
    Connection connection;
    bool json = false, no_color = false, verbose = false, refresh = false;
    int exit_status = 0;    ///< what the command leaves
    std::string board, on;  ///< the board that was named; the patterns of those that were
    /// Of one of many boards: which it is, and who puts its tables together with those of the others.
    const Board *one_of_many = nullptr;
    std::function<void(const std::string &packed_table)> hand_over;
    bool in_session = false;                       ///< the command is a line of a session
    std::map<std::string, int64_t> defaults = {};  ///< of a session: what arguments that are left out stand for

    Session &session();
    /// For a command about one method: what the host says of it is compared with the cache, in one request.
    const Dictionary &dictionary_for(const std::string &method);
    /// For the others: the list of methods is compared.
    const Dictionary &dictionary();
    /// For completion: the one in use or the cached one, whether it is current or not, else the host's if it can be
    /// fetched within three seconds. nullptr if there is none. Asks for no password.
    const Dictionary *dictionary_at_hand();
    void forget_dictionary();  ///< the next command that needs it fetches it
    Types &types();            ///< of the dictionary
    /// How to show values on standard output.
    Style style(bool full = false) const;
    Output output(bool full = false);
    void note(const std::string &text) const;  ///< to standard error, with --verbose

  private:
    template <class Check>
    const Dictionary &checked(Check is_current);
    template <class Check>
    void fetch(Check is_current);
    template <class Check>
    bool take_known(Check is_current);
    bool renew_contract();  ///< whether it has changed
    void keep_dictionary() const;
    std::unique_ptr<Session> session_;
    std::unique_ptr<Dictionary> dictionary_, at_hand_;
    std::unique_ptr<Types> types_;
};

}  // namespace lmqctl
