#include "account/mAD.h"

namespace kestrelmoor {

// The directory service is not reached yet: no object can be bound for any target, and the network API
// serves all of them.

std::int16_t ADGetMinPwdLength(const String& /*sTarget*/, std::int32_t& /*nMinLen*/) {
    return -1;
}

std::int32_t ADChangePassword(const String& /*sOldPass*/, const String& /*sNewPass*/,
                              const String& /*sTarget*/, String& /*sError*/) {
    return kNoDirectoryObject;
}

} // namespace kestrelmoor
