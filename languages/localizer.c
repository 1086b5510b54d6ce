#include "languages/localizer.h"

#include <stddef.h>

#include "languages/allocation.h"
#include "languages/texts.h"

typedef struct Localizer {
    ILocalization face;
    uint32_t references;
    bool initialized;
    int32_t windows_version;
    int16_t language;
} Localizer;

enum { kUnknownMember = -1 };

static uint32_t gLiveLocalizers;

bool IsSameGuid(const Guid* left, const Guid* right) {
    const uint8_t* a = (const uint8_t*)left;
    const uint8_t* b = (const uint8_t*)right;
    for (size_t i = 0; i < sizeof(Guid); ++i) {
        if (a[i] != b[i]) {
            return false;
        }
    }
    return true;
}

static Localizer* Of(ILocalization* self) {
    return (Localizer*)self;
}

static int32_t LOC_CALL QueryInterface(ILocalization* self, const Guid* iid, void** out) {
    if (!out) {
        return LOC_E_POINTER;
    }
    *out = NULL;
    if (!iid) {
        return LOC_E_POINTER;
    }
    if (!IsSameGuid(iid, &kIidUnknown) && !IsSameGuid(iid, &kIidDispatch) &&
        !IsSameGuid(iid, &kIidLocalization)) {
        return LOC_E_NOINTERFACE;
    }
    ++Of(self)->references;
    *out = self;
    return LOC_S_OK;
}

static uint32_t LOC_CALL AddRef(ILocalization* self) {
    return ++Of(self)->references;
}

static uint32_t LOC_CALL Release(ILocalization* self) {
    uint32_t left = --Of(self)->references;
    if (left == 0) {
        FreeObjectMemory(Of(self));
        --gLiveLocalizers;
    }
    return left;
}

static int32_t LOC_CALL GetTypeInfoCount(ILocalization* self, uint32_t* out) {
    (void)self;
    if (!out) {
        return LOC_E_POINTER;
    }
    *out = 0;
    return LOC_S_OK;
}

static int32_t LOC_CALL GetTypeInfo(ILocalization* self, uint32_t index, uint32_t locale, void** out) {
    (void)self;
    (void)index;
    (void)locale;
    if (!out) {
        return LOC_E_POINTER;
    }
    *out = NULL;
    return LOC_DISP_E_BADINDEX;
}

static int32_t LOC_CALL GetIDsOfNames(ILocalization* self, const Guid* iid, LocChar** names, uint32_t count,
                                      uint32_t locale, int32_t* out) {
    (void)self;
    (void)iid;
    (void)names;
    (void)locale;
    if (!out) {
        return LOC_E_POINTER;
    }
    for (uint32_t i = 0; i < count; ++i) {
        out[i] = kUnknownMember;
    }
    return LOC_DISP_E_UNKNOWNNAME;
}

static int32_t LOC_CALL
Invoke(ILocalization* self, int32_t member, const Guid* iid, uint32_t locale, uint16_t flags,
       void* parameters, void* result, void* exception,
       uint32_t* bad_argument) { // NOLINT(readability-non-const-parameter): the table's type
    (void)self;
    (void)member;
    (void)iid;
    (void)locale;
    (void)flags;
    (void)parameters;
    (void)result;
    (void)exception;
    (void)bad_argument;
    return LOC_DISP_E_MEMBERNOTFOUND;
}

static int32_t LOC_CALL Initialize(ILocalization* self, int32_t nWinVersion, int16_t nLangID) {
    if (!TextsAreSound()) {
        return LOC_E_DAMAGED;
    }
    if (!ServesLanguage((uint16_t)nLangID)) {
        return LOC_E_FAIL;
    }
    Localizer* localizer = Of(self);
    localizer->windows_version = nWinVersion;
    localizer->language = nLangID;
    localizer->initialized = true;
    return LOC_S_OK;
}

static int32_t HandOut(TextSpan span, LocText* out) {
    *out = NewText(span);
    return *out ? LOC_S_OK : LOC_E_OUTOFMEMORY;
}

static int32_t BeginText(ILocalization* self, LocText* out) {
    if (!out) {
        return LOC_E_POINTER;
    }
    *out = NULL;
    return Of(self)->initialized ? LOC_S_OK : LOC_E_NOT_INITIALIZED;
}

static int32_t BeginNumber(ILocalization* self, const int16_t* out) {
    if (!out) {
        return LOC_E_POINTER;
    }
    return Of(self)->initialized ? LOC_S_OK : LOC_E_NOT_INITIALIZED;
}

static int32_t LOC_CALL GetPluralText(ILocalization* self, int16_t nNumber, int32_t nCount, LocText* out) {
    int32_t begun = BeginText(self, out);
    if (begun != LOC_S_OK) {
        return begun;
    }
    TextSpan span;
    return FindNoun((uint16_t)nNumber, nCount, &span) ? HandOut(span, out) : LOC_E_NO_SUCH_NOUN;
}

static int32_t LOC_CALL GetText(ILocalization* self, int16_t nNumber, LocText* out) {
    int32_t begun = BeginText(self, out);
    if (begun != LOC_S_OK) {
        return begun;
    }
    TextSpan span;
    return FindMessage((uint16_t)nNumber, &span) ? HandOut(span, out) : LOC_E_NO_SUCH_TEXT;
}

static int32_t LOC_CALL LanguageID(ILocalization* self, int16_t* out) {
    int32_t begun = BeginNumber(self, out);
    if (begun == LOC_S_OK) {
        *out = Of(self)->language;
    }
    return begun;
}

static int32_t LOC_CALL Languages(ILocalization* self, LocArray** out) {
    (void)self;
    if (!out) {
        return LOC_E_POINTER;
    }
    *out = NULL;
    if (!TextsAreSound()) {
        return LOC_E_DAMAGED;
    }
    uint32_t count = 0;
    const uint16_t* held = HeldLanguages(&count);
    *out = NewNumberArray(held, count);
    return *out ? LOC_S_OK : LOC_E_OUTOFMEMORY;
}

static int32_t LOC_CALL Reserved(ILocalization* self) {
    (void)self;
    return LOC_E_NOTIMPL;
}

static int32_t LOC_CALL FontName(ILocalization* self, LocText* out) {
    int32_t begun = BeginText(self, out);
    return begun == LOC_S_OK ? HandOut(LibraryFontName(Of(self)->windows_version), out) : begun;
}

static int32_t LOC_CALL FontCharset(ILocalization* self, int16_t* out) {
    int32_t begun = BeginNumber(self, out);
    if (begun == LOC_S_OK) {
        *out = LibraryFontCharset();
    }
    return begun;
}

static int32_t LOC_CALL HelpFile(ILocalization* self, LocText* out) {
    int32_t begun = BeginText(self, out);
    return begun == LOC_S_OK ? HandOut(LibraryHelpFile(), out) : begun;
}

static const ILocalizationTable kTable = {
    .QueryInterface = QueryInterface,
    .AddRef = AddRef,
    .Release = Release,
    .GetTypeInfoCount = GetTypeInfoCount,
    .GetTypeInfo = GetTypeInfo,
    .GetIDsOfNames = GetIDsOfNames,
    .Invoke = Invoke,
    .Initialize = Initialize,
    .GetPluralText = GetPluralText,
    .GetText = GetText,
    .LanguageID = LanguageID,
    .Languages = Languages,
    .Reserved = Reserved,
    .FontName = FontName,
    .FontCharset = FontCharset,
    .HelpFile = HelpFile,
};

int32_t CreateLocalizer(const Guid* iid, void** out) {
    Localizer* localizer = NewObjectMemory(sizeof *localizer);
    if (!localizer) {
        return LOC_E_OUTOFMEMORY;
    }
    *localizer = (Localizer){.face = {&kTable}, .references = 1};
    ++gLiveLocalizers;
    int32_t result = QueryInterface(&localizer->face, iid, out);
    Release(&localizer->face);
    return result;
}

uint32_t LiveLocalizerCount(void) {
    return gLiveLocalizers;
}
