// The binary interface of a language library (a ".loc" file), for C and C++.
//
// The program and the libraries are built apart from each other, and translators deliver libraries on their
// own, so every order, size and calling convention here is binding. The header leans on no platform header:
// on Windows its types have the layout of the platform's own GUID, BSTR and SAFEARRAY, and natively the same
// layout is made with malloc.
//
// Getting an object: take the export LOC_GET_CLASS_OBJECT_NAME, ask it for kClsidLocalization and
// kIidClassFactory, call the factory's CreateInstance for kIidUnknown, and query that for kIidLocalization.
// Every object is released by its holder; a library may be unloaded only when DllCanUnloadNow answers
// LOC_S_OK.
#ifndef KESTRELMOOR_LANGUAGES_LOCALIZATION_ABI_H
#define KESTRELMOOR_LANGUAGES_LOCALIZATION_ABI_H

#include <stdint.h>

#ifndef _WIN32
#include <stdlib.h>
#endif

#ifdef _WIN32
#define LOC_CALL __stdcall
#else
#define LOC_CALL
#endif

// Results. A negative one is a failure, anything else a success.
#define LOC_S_OK ((int32_t)0)
#define LOC_S_FALSE ((int32_t)1)
#define LOC_E_NOTIMPL ((int32_t)0x80004001U)
#define LOC_E_NOINTERFACE ((int32_t)0x80004002U)
#define LOC_E_POINTER ((int32_t)0x80004003U)
#define LOC_E_FAIL ((int32_t)0x80004005U)
#define LOC_E_OUTOFMEMORY ((int32_t)0x8007000EU)
#define LOC_E_INVALIDARG ((int32_t)0x80070057U)
#define LOC_DISP_E_MEMBERNOTFOUND ((int32_t)0x80020003U)
#define LOC_DISP_E_UNKNOWNNAME ((int32_t)0x80020006U)
#define LOC_DISP_E_BADINDEX ((int32_t)0x8002000BU)
#define LOC_CLASS_E_NOAGGREGATION ((int32_t)0x80040110U)
#define LOC_CLASS_E_CLASSNOTAVAILABLE ((int32_t)0x80040111U)
// Results of the language library itself.
#define LOC_E_NO_SUCH_TEXT ((int32_t)0x80040201U)    // GetText: no text of that number
#define LOC_E_NO_SUCH_NOUN ((int32_t)0x80040202U)    // GetPluralText: no noun of that number
#define LOC_E_NOT_INITIALIZED ((int32_t)0x80040203U) // asked for words ahead of a successful Initialize
#define LOC_E_DAMAGED ((int32_t)0x80040204U)         // the library's texts are missing or damaged

#ifdef __cplusplus
namespace kestrelmoor::abi {
extern "C" {
typedef char16_t LocChar;
#else
typedef uint16_t LocChar;
#endif

typedef struct Guid {
    uint32_t data1;
    uint16_t data2;
    uint16_t data3;
    uint8_t data4[8];
} Guid;

// {00000000-0000-0000-C000-000000000046}
static const Guid kIidUnknown = {0x00000000U, 0x0000U, 0x0000U, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
// {00000001-0000-0000-C000-000000000046}
static const Guid kIidClassFactory = {0x00000001U, 0x0000U, 0x0000U, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
// {00020400-0000-0000-C000-000000000046}
static const Guid kIidDispatch = {0x00020400U, 0x0000U, 0x0000U, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
// {A94E2C07-1B3F-4D62-9C75-28F6D03E8B14}
static const Guid kIidLocalization = {
    0xA94E2C07U, 0x1B3FU, 0x4D62U, {0x9C, 0x75, 0x28, 0xF6, 0xD0, 0x3E, 0x8B, 0x14}};
// {3D7A11C4-52E6-4F0B-A8D9-6E0C41B7F293}
static const Guid kClsidLocalization = {
    0x3D7A11C4U, 0x52E6U, 0x4F0BU, {0xA8, 0xD9, 0x6E, 0x0C, 0x41, 0xB7, 0xF2, 0x93}};

// A text handed out by a library: UTF-16, ended by a NUL, with its length in bytes (without the NUL) in the
// 32 bits ahead of the first unit. On Windows it is a BSTR and is freed with SysFreeString; natively with
// LocFreeText. A null pointer is an empty text.
typedef LocChar* LocText;

// The languages handed out by a library: a one-dimensional array of signed 16-bit numbers whose first index
// is lower_bound. The program lists them from index 1 on, so a library counts from there. On Windows it is a
// SAFEARRAY and is freed with SafeArrayDestroy; natively with LocFreeArray.
enum { kFirstLanguage = 1 };
typedef struct LocArray {
    uint16_t dimensions; // 1
    uint16_t features;
    uint32_t element_size; // in bytes: 2
    uint32_t locks;
    void* data; // count numbers of 16 bits
    uint32_t count;
    int32_t lower_bound; // kFirstLanguage
} LocArray;

// In units of 16 bits, without the NUL.
static inline uint32_t LocTextLength(const LocChar* text) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-cstyle-cast): C has no other
    return text ? ((const uint32_t*)(const void*)text)[-1] / (uint32_t)sizeof(LocChar) : 0;
}

#ifndef _WIN32
static inline void LocFreeText(LocText text) {
    if (text) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-cstyle-cast): C has no other
        free((uint32_t*)(void*)text - 1);
    }
}

static inline void LocFreeArray(LocArray* array) {
    free(array);
}
#endif

// Declared ahead of the typedefs, which would otherwise mean a platform's own class of that name.
struct ILocalization;
struct IClassFactory;
typedef struct ILocalization ILocalization;
typedef struct IClassFactory IClassFactory;

// Every operation answers LOC_E_POINTER for a null out pointer. An out value is null, or left alone if it is
// a number, when the operation fails.
typedef struct ILocalizationTable {
    // IUnknown
    int32_t(LOC_CALL* QueryInterface)(ILocalization* self, const Guid* iid, void** out);
    uint32_t(LOC_CALL* AddRef)(ILocalization* self);
    uint32_t(LOC_CALL* Release)(ILocalization* self);
    // IDispatch: there only to keep the places; a library of ours offers no name and no type information.
    int32_t(LOC_CALL* GetTypeInfoCount)(ILocalization* self, uint32_t* out);
    int32_t(LOC_CALL* GetTypeInfo)(ILocalization* self, uint32_t index, uint32_t locale, void** out);
    int32_t(LOC_CALL* GetIDsOfNames)(ILocalization* self, const Guid* iid, LocChar** names, uint32_t count,
                                     uint32_t locale, int32_t* out);
    int32_t(LOC_CALL* Invoke)(ILocalization* self, int32_t member, const Guid* iid, uint32_t locale,
                              uint16_t flags, void* parameters, void* result, void* exception,
                              uint32_t* bad_argument);
    // Binds the object to a language; fails (LOC_E_FAIL) for one that the library does not serve, and the
    // object then keeps the language that it had. nLangID is a Windows language identifier, never 0.
    int32_t(LOC_CALL* Initialize)(ILocalization* self, int32_t nWinVersion, int16_t nLangID);
    // The noun of that number (5 day, 6 hour, 329 character, 412 day) in the form that fits the count.
    int32_t(LOC_CALL* GetPluralText)(ILocalization* self, int16_t nNumber, int32_t nCount, LocText* out);
    // The text of a message number, with its placeholders %1 to %9 unfilled.
    int32_t(LOC_CALL* GetText)(ILocalization* self, int16_t nNumber, LocText* out);
    // The language that the object now serves: the number that Initialize was given.
    int32_t(LOC_CALL* LanguageID)(ILocalization* self, int16_t* out);
    // The languages that the library holds; answers ahead of Initialize too.
    int32_t(LOC_CALL* Languages)(ILocalization* self, LocArray** out);
    // A place that the program never calls.
    int32_t(LOC_CALL* Reserved)(ILocalization* self);
    // The font for every control in this language.
    int32_t(LOC_CALL* FontName)(ILocalization* self, LocText* out);
    // The character set of that font, in the platform's numbers (1 is the default one).
    int32_t(LOC_CALL* FontCharset)(ILocalization* self, int16_t* out);
    // The help file of this language, relative to the program's folder.
    int32_t(LOC_CALL* HelpFile)(ILocalization* self, LocText* out);
} ILocalizationTable;

struct ILocalization {
    const ILocalizationTable* table;
};

typedef struct IClassFactoryTable {
    int32_t(LOC_CALL* QueryInterface)(IClassFactory* self, const Guid* iid, void** out);
    uint32_t(LOC_CALL* AddRef)(IClassFactory* self);
    uint32_t(LOC_CALL* Release)(IClassFactory* self);
    // outer must be null: the class can't be aggregated.
    int32_t(LOC_CALL* CreateInstance)(IClassFactory* self, void* outer, const Guid* iid, void** out);
    // Keeps the library loaded while the count of locks is above zero.
    int32_t(LOC_CALL* LockServer)(IClassFactory* self, int32_t lock);
} IClassFactoryTable;

struct IClassFactory {
    const IClassFactoryTable* table;
};

// The two exports of a library, undecorated.
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): C has no constant for it
#define LOC_GET_CLASS_OBJECT_NAME "DllGetClassObject"
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): C has no constant for it
#define LOC_CAN_UNLOAD_NOW_NAME "DllCanUnloadNow"

typedef int32_t(LOC_CALL* DllGetClassObjectCall)(const Guid* clsid, const Guid* iid, void** out);
// LOC_S_OK when no object, factory reference or lock is left, otherwise LOC_S_FALSE.
typedef int32_t(LOC_CALL* DllCanUnloadNowCall)(void);

#ifdef __cplusplus
} // extern "C"
} // namespace kestrelmoor::abi
#endif

#endif
