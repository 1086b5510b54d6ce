#include "account/api_failure.h"

#include "shell/log.h"
#include "shell/messages.h"

namespace kestrelmoor {

String FailedCall(std::uint32_t nCode, const String& sApiName) {
    String text = FormatApiError(nCode, sApiName);
    LogError(text);
    return text;
}

} // namespace kestrelmoor
