#include "account/domain_controller.h"

#include "account/api_failure.h"
#include "platform/network_management.h"
#include "shell/log.h"

#include <optional>

namespace kestrelmoor {

namespace {

constexpr platform::NetStatus kControllerNotFound = 2453;
constexpr std::uint32_t kReturnDnsNameOfPdc = 0x40000080;

String Found(const String& sName) {
    LogInformation(u"Primary DC Name = ", sName);
    return sName;
}

/// The second interface, which an older platform lacks.
String AskForDnsName(const String& sDomain, String& sError) {
    LogCall(u"DsGetDcNameW", sDomain);
    String name;
    const std::optional<platform::NetStatus> status =
        platform::DsGetDcNameW(sDomain, kReturnDnsNameOfPdc, name);
    if (!status)
        return {};
    if (*status != 0) {
        sError = FailedCall(*status, u"DsGetDcNameW");
        return {};
    }
    return Found(name);
}

} // namespace

String ResolveServerName(const String& sTarget, String& sError) {
    return sTarget.starts_with(u"\\\\") ? sTarget : GetPrimaryDCName(sTarget, sError);
}

String GetPrimaryDCName(const String& sDomain, String& sError) {
    const String short_name = sDomain.substr(0, sDomain.find(u'.'));
    LogCall(u"NetGetDCName", short_name);
    String name;
    const platform::NetStatus status = platform::NetGetDCName(short_name, name);
    if (status == 0)
        return Found(name);
    sError = FailedCall(status, u"NetGetDCName");
    return status == kControllerNotFound ? AskForDnsName(sDomain, sError) : String();
}

} // namespace kestrelmoor
