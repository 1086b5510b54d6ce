#pragma once

#include "languages/localization_abi.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <cstdint>
#include <string>

namespace kestrelmoor::language_library {

using namespace kestrelmoor::abi;

inline constexpr std::int32_t kNt4 = 0x24000565;
inline constexpr std::int32_t kWindows2000 = 0x25000893;
inline constexpr std::int16_t kEnglish = 1033;

/// A library file, reached through its two exports alone.
class Library {
  public:
    explicit Library(const std::string& path) : mHandle(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
        if (mHandle) {
            get_class_object =
                reinterpret_cast<DllGetClassObjectCall>(dlsym(mHandle, LOC_GET_CLASS_OBJECT_NAME));
            can_unload_now = reinterpret_cast<DllCanUnloadNowCall>(dlsym(mHandle, LOC_CAN_UNLOAD_NOW_NAME));
        }
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() {
        if (mHandle) {
            dlclose(mHandle);
        }
    }

    IClassFactory* Factory() const {
        void* out = nullptr;
        EXPECT_EQ(get_class_object(&kClsidLocalization, &kIidClassFactory, &out), LOC_S_OK);
        return static_cast<IClassFactory*>(out);
    }

    ILocalization* NewObject() const {
        IClassFactory* factory = Factory();
        void* out = nullptr;
        EXPECT_EQ(factory->table->CreateInstance(factory, nullptr, &kIidLocalization, &out), LOC_S_OK);
        factory->table->Release(factory);
        return static_cast<ILocalization*>(out);
    }

    DllGetClassObjectCall get_class_object = nullptr;
    DllCanUnloadNowCall can_unload_now = nullptr;

  private:
    void* mHandle;
};

inline std::u16string Taken(LocText text) {
    std::u16string copy(text ? text : u"", LocTextLength(text));
    LocFreeText(text);
    return copy;
}

} // namespace kestrelmoor::language_library
