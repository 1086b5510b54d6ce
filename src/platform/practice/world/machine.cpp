#include "platform/practice/world/machine.h"

namespace kestrelmoor::practice {

OwnVersion::OwnVersion()
    : title(u"Kestrelmoor"), legal_notice(u"Free software, without any warranty"),
      major(KESTRELMOOR_VERSION_MAJOR), minor(KESTRELMOOR_VERSION_MINOR),
      revision(KESTRELMOOR_VERSION_REVISION) {}

} // namespace kestrelmoor::practice
