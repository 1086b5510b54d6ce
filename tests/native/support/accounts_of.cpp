#include "tests/native/support/accounts_of.h"

#include "platform/practice/world/names.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

bool Bears(const practice::Domain& domain, StringView name) {
    StringList names{domain.name, domain.dns_name};
    for (const practice::Controller& controller : domain.controllers)
        names.insert(names.end(), {controller.name, controller.dns_name});
    return std::any_of(names.begin(), names.end(),
                       [&](const String& one) { return practice::SameName(one, name); });
}

} // namespace

practice::AccountStore* AccountsOf(practice::Network& network, StringView place) {
    const StringView name = place.starts_with(u"\\\\") ? place.substr(2) : place;
    for (practice::Computer& computer : network.computers)
        if (practice::SameName(computer.name, name.empty() ? StringView(network.local_computer) : name))
            return &computer.store;
    for (practice::Domain& domain : network.domains)
        if (Bears(domain, name))
            return &domain.store;
    return nullptr;
}

} // namespace kestrelmoor::tests
