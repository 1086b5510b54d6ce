#include "account/password_policy.h"

#include "account/mAD.h"

namespace kestrelmoor {

// Only the directory is asked so far; a target that it doesn't know sets no minimum.
std::int32_t GetMinPwdLength(const String& sTarget) {
    std::int32_t length = 0;
    return ADGetMinPwdLength(sTarget, length) == 0 ? length : 0;
}

} // namespace kestrelmoor
