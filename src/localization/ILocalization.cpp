#include "localization/ILocalization.h"

#include "platform/automation.h"
#include "runtime/errors.h"

namespace kestrelmoor {

namespace {

/// A success that hands out nothing is a failure all the same.
abi::ILocalization* Given(void* place) {
    if (place == nullptr)
        RaiseError(error_number::kObjectNotSet);
    return static_cast<abi::ILocalization*>(place);
}

} // namespace

ILocalization::ILocalization(const OwnedClassFactory& factory) {
    // What CreateInstance gives for IUnknown is asked for the interface through the same first entry of the
    // table that every interface has.
    void* place = nullptr;
    RaiseIfFailed(factory.Get()->table->CreateInstance(factory.Get(), nullptr, &abi::kIidUnknown, &place));
    const OwnedObject unknown(Given(place));
    place = nullptr;
    RaiseIfFailed(unknown.Get()->table->QueryInterface(unknown.Get(), &abi::kIidLocalization, &place));
    mObject.Reset(Given(place));
}

void ILocalization::Initialize(std::int32_t nWinVersion, std::int16_t nLangID) {
    RaiseIfFailed(mObject.Get()->table->Initialize(mObject.Get(), nWinVersion, nLangID));
}

String ILocalization::GetPluralText(std::int16_t nNumber, std::int32_t nCount) const {
    abi::LocText text = nullptr;
    RaiseIfFailed(mObject.Get()->table->GetPluralText(mObject.Get(), nNumber, nCount, &text));
    return platform::TakeText(text);
}

String ILocalization::GetText(std::int16_t nNumber) const {
    abi::LocText text = nullptr;
    RaiseIfFailed(mObject.Get()->table->GetText(mObject.Get(), nNumber, &text));
    return platform::TakeText(text);
}

std::int16_t ILocalization::LanguageID() const {
    return NumberFrom(&Table::LanguageID);
}

Array<std::int16_t> ILocalization::Languages() const {
    abi::LocArray* numbers = nullptr;
    RaiseIfFailed(mObject.Get()->table->Languages(mObject.Get(), &numbers));
    return platform::TakeNumbers(numbers);
}

String ILocalization::FontName() const {
    return TextFrom(&Table::FontName);
}

std::int16_t ILocalization::FontCharset() const {
    return NumberFrom(&Table::FontCharset);
}

String ILocalization::HelpFile() const {
    return TextFrom(&Table::HelpFile);
}

String ILocalization::TextFrom(std::int32_t (LOC_CALL* Table::*operation)(abi::ILocalization*,
                                                                          abi::LocText*)) const {
    abi::LocText text = nullptr;
    RaiseIfFailed((mObject.Get()->table->*operation)(mObject.Get(), &text));
    return platform::TakeText(text);
}

std::int16_t ILocalization::NumberFrom(std::int32_t (LOC_CALL* Table::*operation)(abi::ILocalization*,
                                                                                  std::int16_t*)) const {
    std::int16_t number = 0;
    RaiseIfFailed((mObject.Get()->table->*operation)(mObject.Get(), &number));
    return number;
}

} // namespace kestrelmoor
