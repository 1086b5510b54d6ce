#include <stddef.h>

#include "languages/localization_abi.h"
#include "languages/localizer.h"

#ifdef _WIN32
#define LOC_EXPORT // library.def names the exports, without decoration
#else
#define LOC_EXPORT __attribute__((visibility("default")))
#endif

LOC_EXPORT int32_t LOC_CALL DllGetClassObject(const Guid* clsid, const Guid* iid, void** out);
LOC_EXPORT int32_t LOC_CALL DllCanUnloadNow(void);

static uint32_t gFactoryReferences;
static uint32_t gLocks;

static uint32_t LOC_CALL AddRef(IClassFactory* self) {
    (void)self;
    return ++gFactoryReferences;
}

static uint32_t LOC_CALL Release(IClassFactory* self) {
    (void)self;
    return --gFactoryReferences;
}

static int32_t LOC_CALL QueryInterface(IClassFactory* self, const Guid* iid, void** out) {
    if (!out) {
        return LOC_E_POINTER;
    }
    *out = NULL;
    if (!iid) {
        return LOC_E_POINTER;
    }
    if (!IsSameGuid(iid, &kIidUnknown) && !IsSameGuid(iid, &kIidClassFactory)) {
        return LOC_E_NOINTERFACE;
    }
    AddRef(self);
    *out = self;
    return LOC_S_OK;
}

static int32_t LOC_CALL CreateInstance(IClassFactory* self, void* outer, const Guid* iid, void** out) {
    (void)self;
    if (!out) {
        return LOC_E_POINTER;
    }
    *out = NULL;
    return outer ? LOC_CLASS_E_NOAGGREGATION : CreateLocalizer(iid, out);
}

static int32_t LOC_CALL LockServer(IClassFactory* self, int32_t lock) {
    (void)self;
    if (lock) {
        ++gLocks;
    } else if (gLocks > 0) {
        --gLocks;
    }
    return LOC_S_OK;
}

static const IClassFactoryTable kFactoryTable = {
    .QueryInterface = QueryInterface,
    .AddRef = AddRef,
    .Release = Release,
    .CreateInstance = CreateInstance,
    .LockServer = LockServer,
};

static IClassFactory gFactory = {&kFactoryTable};

int32_t LOC_CALL DllGetClassObject(const Guid* clsid, const Guid* iid, void** out) {
    if (!out) {
        return LOC_E_POINTER;
    }
    *out = NULL;
    if (!clsid) {
        return LOC_E_POINTER;
    }
    if (!IsSameGuid(clsid, &kClsidLocalization)) {
        return LOC_CLASS_E_CLASSNOTAVAILABLE;
    }
    return QueryInterface(&gFactory, iid, out);
}

int32_t LOC_CALL DllCanUnloadNow(void) {
    return LiveLocalizerCount() == 0 && gFactoryReferences == 0 && gLocks == 0 ? LOC_S_OK : LOC_S_FALSE;
}
