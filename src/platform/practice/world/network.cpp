#include "platform/practice/world/network.h"

#include "platform/practice/world/names.h"

#include <algorithm>
#include <stdexcept>

namespace kestrelmoor::practice {

namespace {

constexpr StringView kServerPrefix = u"\\\\";

} // namespace

Computer* Network::FindComputer(StringView name) {
    const auto found = std::find_if(computers.begin(), computers.end(),
                                    [&](const Computer& computer) { return SameName(computer.name, name); });
    return found == computers.end() ? nullptr : &*found;
}

Domain* Network::FindDomain(StringView name) {
    const auto found = std::find_if(domains.begin(), domains.end(), [&](const Domain& domain) {
        return SameName(domain.name, name) || SameName(domain.dns_name, name);
    });
    return found == domains.end() ? nullptr : &*found;
}

Computer& Network::Local() {
    Computer* const local = FindComputer(local_computer);
    if (!local)
        throw std::logic_error("the practice world has no local computer");
    return *local;
}

Domain* Network::PrimaryDomain() {
    return joined ? FindDomain(Local().group) : nullptr;
}

AccountStore* Network::StoreAt(StringView server) {
    if (server.empty())
        return &Local().store;
    if (!server.starts_with(kServerPrefix))
        return nullptr;
    const StringView name = server.substr(kServerPrefix.size());
    if (Computer* const computer = FindComputer(name))
        return computer->reachable ? &computer->store : nullptr;
    return StoreOfController(name);
}

AccountStore* Network::StoreOfController(StringView name) {
    for (Domain& domain : domains)
        for (const Controller& controller : domain.controllers)
            if (SameName(controller.name, name) || SameName(controller.dns_name, name))
                return controller.reachable ? &domain.store : nullptr;
    return nullptr;
}

const Controller* Network::PrimaryController(const Domain& domain) {
    const auto found =
        std::find_if(domain.controllers.begin(), domain.controllers.end(),
                     [](const Controller& controller) { return controller.primary && controller.reachable; });
    return found == domain.controllers.end() ? nullptr : &*found;
}

String Network::ControllerByShortName(StringView domain) {
    const Domain* const found = FindDomain(domain);
    const Controller* const controller =
        found && SameName(found->name, domain) ? PrimaryController(*found) : nullptr;
    return controller ? String(kServerPrefix) + controller->name : String();
}

String Network::ControllerByAnyName(StringView domain) {
    const Domain* const found = FindDomain(domain);
    const Controller* const controller = found ? PrimaryController(*found) : nullptr;
    return controller ? String(kServerPrefix) + controller->dns_name : String();
}

} // namespace kestrelmoor::practice
