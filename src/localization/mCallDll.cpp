#include "localization/mCallDll.h"

#include "runtime/errors.h"

namespace kestrelmoor {

namespace {

template <class Call>
Call ExportOf(platform::ModuleHandle hModule, const char* sName) {
    const auto address = platform::GetProcAddress(hModule, sName);
    if (address.value == nullptr)
        RaiseError(ErrorNumberOfSystemCode(address.last_error));
    return reinterpret_cast<Call>(address.value);
}

} // namespace

OwnedClassFactory GetClassObjectFromDll(const String& sPath, const abi::Guid& clsid,
                                        platform::ModuleHandle& hModule) {
    if (hModule == 0) {
        const auto loaded = platform::LoadLibraryExW(sPath, 0);
        hModule = loaded.value;
        if (hModule == 0)
            RaiseError(ErrorNumberOfSystemCode(loaded.last_error));
    }
    const auto get_class_object = ExportOf<abi::DllGetClassObjectCall>(hModule, LOC_GET_CLASS_OBJECT_NAME);
    void* place = nullptr;
    RaiseIfFailed(get_class_object(&clsid, &abi::kIidClassFactory, &place));
    if (place == nullptr)
        RaiseError(error_number::kObjectNotSet);
    return OwnedClassFactory(static_cast<abi::IClassFactory*>(place));
}

void UnloadDll(platform::ModuleHandle& hModule) {
    if (hModule == 0)
        return;
    const auto can_unload_now = ExportOf<abi::DllCanUnloadNowCall>(hModule, LOC_CAN_UNLOAD_NOW_NAME);
    if (can_unload_now() == LOC_S_OK) {
        platform::FreeLibrary(hModule);
        hModule = 0;
    }
}

} // namespace kestrelmoor
