#include "platform/practice/scripted_library.h"

#include "languages/localization_abi.h"
#include "runtime/text.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace kestrelmoor::practice {

namespace {

using namespace abi;

std::shared_ptr<ScriptedLibrary> asked_library;

/// What the library counts as alive.
class Counted {
  public:
    explicit Counted(std::shared_ptr<ScriptedLibrary> library) : mLibrary(std::move(library)) {
        mLibrary->CountObjects(1);
    }
    ~Counted() { mLibrary->CountObjects(-1); }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    const std::shared_ptr<ScriptedLibrary>& Library() const { return mLibrary; }
    const LanguageScript& Script() const { return mLibrary->Script(); }

  private:
    std::shared_ptr<ScriptedLibrary> mLibrary;
};

bool Same(const Guid& a, const Guid& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

LocText NewText(const String& text) {
    const auto size = static_cast<std::uint32_t>(text.size() * sizeof(LocChar));
    auto* const block = static_cast<std::uint32_t*>(std::malloc(sizeof size + size + sizeof(LocChar)));
    if (!block)
        return nullptr;
    *block = size;
    std::memcpy(block + 1, text.c_str(), size + sizeof(LocChar));
    return reinterpret_cast<LocText>(block + 1);
}

LocArray* NewArray(const std::vector<std::int16_t>& numbers, std::int32_t first_index) {
    const std::size_t size = numbers.size() * sizeof(std::int16_t);
    auto* const array = static_cast<LocArray*>(std::malloc(sizeof(LocArray) + size));
    if (!array)
        return nullptr;
    *array = {};
    array->dimensions = 1;
    array->element_size = sizeof(std::int16_t);
    array->data = array + 1;
    array->count = static_cast<std::uint32_t>(numbers.size());
    array->lower_bound = first_index;
    std::copy(numbers.begin(), numbers.end(), reinterpret_cast<std::int16_t*>(array + 1));
    return array;
}

/// Common to objects and factories: the table first, as callers expect, and the count of holders.
template <class Interface, class Object>
struct Held : Interface {
    std::uint32_t holders = 1;
    Counted counted;

    explicit Held(std::shared_ptr<ScriptedLibrary> library)
        : Interface{&Object::kTable}, counted(std::move(library)) {}

    static std::uint32_t AddRef(Interface* self) { return ++static_cast<Object*>(self)->holders; }
    static std::uint32_t Release(Interface* self) {
        auto* const object = static_cast<Object*>(self);
        const std::uint32_t left = --object->holders;
        if (left == 0)
            delete object;
        return left;
    }
    static std::int32_t QueryInterface(Interface* self, const Guid* iid, void** out) {
        if (!Same(*iid, kIidUnknown) && !Same(*iid, Object::kIid)) {
            *out = nullptr;
            return LOC_E_NOINTERFACE;
        }
        AddRef(self);
        *out = self;
        return LOC_S_OK;
    }
};

struct Speaker : Held<ILocalization, Speaker> {
    using Held::Held;

    static const Guid& kIid;
    static const ILocalizationTable kTable;

    std::int16_t language = 0;

    static const LanguageScript& ScriptOf(ILocalization* self) {
        return static_cast<Speaker*>(self)->counted.Script();
    }
    static String Said(ILocalization* self, const char* word, std::int16_t number, StringView ending = {}) {
        const auto& every_text = ScriptOf(self).every_text;
        return every_text ? *every_text : FromUtf8(word + std::to_string(number)).append(ending);
    }
    static std::int32_t Give(const String& text, LocText* out) {
        *out = NewText(text);
        return *out ? LOC_S_OK : LOC_E_OUTOFMEMORY;
    }

    static std::int32_t QueryInterface(ILocalization* self, const Guid* iid, void** out) {
        const std::int32_t result = ScriptOf(self).interface_result;
        return Same(*iid, kIid) && result != LOC_S_OK ? result : Held::QueryInterface(self, iid, out);
    }
    static std::int32_t Initialize(ILocalization* self, std::int32_t, std::int16_t nLangID) {
        const LanguageScript& script = ScriptOf(self);
        const auto& languages = script.languages;
        if (!script.accepts_any && std::find(languages.begin(), languages.end(), nLangID) == languages.end())
            return LOC_E_FAIL;
        static_cast<Speaker*>(self)->language = script.answers.value_or(nLangID);
        return LOC_S_OK;
    }
    static std::int32_t GetPluralText(ILocalization* self, std::int16_t nNumber, std::int32_t nCount,
                                      LocText* out) {
        return Give(Said(self, "noun ", nNumber, nCount == 1 ? u" once" : u""), out);
    }
    static std::int32_t GetText(ILocalization* self, std::int16_t nNumber, LocText* out) {
        if (const std::int32_t result = ScriptOf(self).text_result; result != LOC_S_OK)
            return result;
        return Give(Said(self, "text ", nNumber), out);
    }
    static std::int32_t LanguageID(ILocalization* self, std::int16_t* out) {
        *out = static_cast<Speaker*>(self)->language;
        return LOC_S_OK;
    }
    static std::int32_t Languages(ILocalization* self, LocArray** out) {
        *out = NewArray(ScriptOf(self).languages, ScriptOf(self).first_index);
        return *out ? LOC_S_OK : LOC_E_OUTOFMEMORY;
    }
    static std::int32_t FontName(ILocalization* self, LocText* out) {
        return Give(FromUtf8(ScriptOf(self).font_name), out);
    }
    static std::int32_t FontCharset(ILocalization* self, std::int16_t* out) {
        *out = ScriptOf(self).font_charset;
        return LOC_S_OK;
    }
    static std::int32_t HelpFile(ILocalization* self, LocText* out) {
        return Give(FromUtf8(ScriptOf(self).help_file), out);
    }
};

const Guid& Speaker::kIid = kIidLocalization;
// The places between the common ones and the language's own are never called.
const ILocalizationTable Speaker::kTable = {
    QueryInterface, AddRef,  Release,    nullptr,   nullptr, nullptr,  nullptr,     Initialize,
    GetPluralText,  GetText, LanguageID, Languages, nullptr, FontName, FontCharset, HelpFile};

struct Factory : Held<IClassFactory, Factory> {
    using Held::Held;

    static const Guid& kIid;
    static const IClassFactoryTable kTable;

    static std::int32_t CreateInstance(IClassFactory* self, void*, const Guid* iid, void** out) {
        const Counted& counted = static_cast<Factory*>(self)->counted;
        *out = nullptr;
        if (counted.Script().create_result != LOC_S_OK)
            return counted.Script().create_result;
        auto* const speaker = new Speaker(counted.Library());
        const std::int32_t result = Speaker::QueryInterface(speaker, iid, out);
        Speaker::Release(speaker);
        return result;
    }
};

const Guid& Factory::kIid = kIidClassFactory;
const IClassFactoryTable Factory::kTable = {QueryInterface, AddRef, Release, CreateInstance, nullptr};

std::int32_t GetClassObject(const Guid* clsid, const Guid* iid, void** out) {
    *out = nullptr;
    if (asked_library->Script().class_result != LOC_S_OK)
        return asked_library->Script().class_result;
    if (!Same(*clsid, kClsidLocalization))
        return LOC_CLASS_E_CLASSNOTAVAILABLE;
    auto* const factory = new Factory(asked_library);
    const std::int32_t result = Factory::QueryInterface(factory, iid, out);
    Factory::Release(factory);
    return result;
}

std::int32_t CanUnloadNow() {
    return asked_library->LiveObjects() == 0 ? LOC_S_OK : LOC_S_FALSE;
}

} // namespace

void* ScriptedLibrary::Entry(const std::string& name) {
    asked_library = shared_from_this();
    if (name == LOC_GET_CLASS_OBJECT_NAME)
        return reinterpret_cast<void*>(&GetClassObject);
    if (name == LOC_CAN_UNLOAD_NOW_NAME)
        return reinterpret_cast<void*>(&CanUnloadNow);
    return nullptr;
}

} // namespace kestrelmoor::practice
