#include "tests/bench/bare/language.h"

namespace kestrelmoor::bench {

namespace {

constexpr UINT kFailed = 2;
constexpr std::int32_t kWindowsXP = 0x25010000;
constexpr std::int16_t kEnglish = 1033;

void Require(bool holds) {
    if (!holds)
        ::ExitProcess(kFailed);
}

} // namespace

const wchar_t* Arguments() {
    const wchar_t* rest = ::GetCommandLineW();
    const wchar_t end = *rest == L'"' ? *rest++ : L' ';
    while (*rest != L'\0' && *rest != end)
        ++rest;
    while (*rest == L'"' || *rest == L' ')
        ++rest;
    return rest;
}

Language::Language(const wchar_t* path) {
    const HMODULE library = ::LoadLibraryExW(path, nullptr, 0);
    Require(library != nullptr);
    const auto get_class_object = reinterpret_cast<abi::DllGetClassObjectCall>(
        reinterpret_cast<void*>(::GetProcAddress(library, LOC_GET_CLASS_OBJECT_NAME)));
    Require(get_class_object != nullptr);
    void* place = nullptr;
    Require(get_class_object(&abi::kClsidLocalization, &abi::kIidClassFactory, &place) == LOC_S_OK);
    auto* const factory = static_cast<abi::IClassFactory*>(place);
    Require(factory->table->CreateInstance(factory, nullptr, &abi::kIidLocalization, &place) == LOC_S_OK);
    factory->table->Release(factory);
    mObject = static_cast<abi::ILocalization*>(place);
    Require(mObject->table->Initialize(mObject, kWindowsXP, kEnglish) == LOC_S_OK);
}

Language::~Language() {
    mObject->table->Release(mObject);
}

const wchar_t* Language::Text(std::int16_t number) {
    abi::LocText text = nullptr;
    Require(mObject->table->GetText(mObject, number, &text) == LOC_S_OK);
    return reinterpret_cast<const wchar_t*>(text);
}

const wchar_t* Language::FontName() {
    abi::LocText text = nullptr;
    Require(mObject->table->FontName(mObject, &text) == LOC_S_OK);
    return reinterpret_cast<const wchar_t*>(text);
}

} // namespace kestrelmoor::bench
