#include "platform/version_record.h"

#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

VersionRecord ReadVersionRecord() {
    if (practice::TheWorld().calls.Enter("ReadVersionRecord"))
        return {};
    const practice::OwnVersion& own = practice::TheWorld().machine.own_version;
    return {own.title, own.legal_notice, own.major, own.minor, own.revision};
}

} // namespace kestrelmoor::platform
