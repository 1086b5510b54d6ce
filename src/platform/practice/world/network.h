#pragma once

#include "platform/practice/world/accounts.h"
#include "platform/practice/world/directory.h"

#include <set>
#include <string>

namespace kestrelmoor::practice {

struct Computer {
    String name;                 ///< without leading backslashes
    String group = u"WORKGROUP"; ///< domain or workgroup that it stands in
    bool reachable = true;
    AccountStore store;

    bool operator==(const Computer&) const = default;
};

struct Controller {
    String name;     ///< without leading backslashes
    String dns_name; ///< with the domain's dots
    bool primary = false;
    bool reachable = true;

    bool operator==(const Controller&) const = default;
};

struct Domain {
    String name;     ///< the short one
    String dns_name; ///< the dotted one
    String sid;      ///< S-1-5-21-...
    std::vector<Controller> controllers;
    AccountStore store;

    bool operator==(const Domain&) const = default;
};

struct LoggedOnUser {
    String name;
    String sid; ///< that of a domain account is its domain's with one number more

    bool operator==(const LoggedOnUser&) const = default;
};

/// All computers and domains, and who sits at the local one.
class Network {
  public:
    String local_computer; ///< names one of `computers`
    bool joined = false;   ///< the local computer belongs to the domain of its group's name
    LoggedOnUser user;
    std::vector<Computer> computers;
    std::vector<Domain> domains;
    bool library_present = true;           ///< the library of network management can be bound
    std::set<std::string> missing_entries; ///< entries that it lacks
    Directory directory;

    Computer* FindComputer(StringView name);
    Domain* FindDomain(StringView name); ///< by short or dotted name
    Computer& Local();

    /// The domain that the local computer belongs to; null: none.
    Domain* PrimaryDomain();

    /// The accounts that answer behind two backslashes and a name; empty: the local computer's. Null:
    /// nobody answers under that name.
    AccountStore* StoreAt(StringView server);

    /// With two leading backslashes, as the older and the newer lookup give it; empty: none answers.
    String ControllerByShortName(StringView domain);
    String ControllerByAnyName(StringView domain);

  private:
    static const Controller* PrimaryController(const Domain& domain);
    AccountStore* StoreOfController(StringView name);
};

} // namespace kestrelmoor::practice
