#include "tests/native/secrets/secrets.h"

#include <dlfcn.h>

#include <cstring>

namespace kestrelmoor::tests {

namespace {

using Hook = void (*)(const volatile void* block, std::size_t size);
using FreeHook = void (*)(const volatile void* block);
using InstallHooks = int (*)(Hook, FreeHook);
using SizeOfBlock = std::size_t (*)(const volatile void* block);

/// Looks at what is given back to the heap. Only the sanitizers' heap can be asked; a hook stays for good.
class FreedBlocks {
  public:
    static bool CanBeSeen() {
        static const bool installed = Install();
        return installed;
    }

    static void Watch() {
        olds = 0;
        news = 0;
        watched = true;
    }
    static void Leave() { watched = false; }

    static inline int olds = 0;
    static inline int news = 0;

  private:
    static bool Install() {
        size_of = reinterpret_cast<SizeOfBlock>(::dlsym(RTLD_DEFAULT, "__sanitizer_get_allocated_size"));
        const auto install = reinterpret_cast<InstallHooks>(
            ::dlsym(RTLD_DEFAULT, "__sanitizer_install_malloc_and_free_hooks"));
        return size_of && install && install([](const volatile void*, std::size_t) {}, Freed) != 0;
    }

    static void Freed(const volatile void* block) {
        if (!watched || !block)
            return;
        const void* const bytes = const_cast<const void*>(block);
        const std::size_t size = size_of(block);
        olds += Holds(bytes, size, kMarkedOld) ? 1 : 0;
        news += Holds(bytes, size, kMarkedNew) ? 1 : 0;
    }

    static bool Holds(const void* bytes, std::size_t size, StringView password) {
        const std::size_t length = password.size() * sizeof(char16_t);
        return size >= length && std::memcmp(bytes, password.data(), length) == 0;
    }

    static inline SizeOfBlock size_of = nullptr;
    static inline bool watched = false;
};

} // namespace

TEST_F(Secrets, GoBackToTheHeapAsTheyAreWhenTheWindowGoes) {
    if (!FreedBlocks::CanBeSeen())
        GTEST_SKIP() << "this heap does not tell what is given back";
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    FreedBlocks::Watch();
    form->Unload();
    form.reset();
    Application::Current().UnloadAll();
    FreedBlocks::Leave();
    EXPECT_GE(FreedBlocks::olds, 1);
    EXPECT_GE(FreedBlocks::news, 2) << "the new password and its confirmation";
}

} // namespace kestrelmoor::tests
