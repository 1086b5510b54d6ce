#include "tests/native/secrets/secrets.h"

#include <dlfcn.h>

#include <cstring>

namespace kestrelmoor::tests {

namespace {

using Hook = void (*)(const volatile void* block, std::size_t size);
using FreeHook = void (*)(const volatile void* block);
using InstallHooks = int (*)(Hook, FreeHook);
using SizeOfBlock = std::size_t (*)(const volatile void* block);

/// Counts the blocks with a password ahead that are given back to the heap. Only the sanitizers' heap can be
/// asked; a hook stays for good.
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

class FreedSecrets : public Secrets {
  protected:
    void SetUp() override {
        if (!FreedBlocks::CanBeSeen())
            GTEST_SKIP() << "this heap does not tell what is given back";
    }

    void CloseWatched() {
        FreedBlocks::Watch();
        form->Unload();
        form.reset();
        Application::Current().UnloadAll();
        FreedBlocks::Leave();
    }
};

} // namespace

TEST_F(FreedSecrets, OfTheBoxesGoBackToTheHeapAsTheyAreWhenTheWindowGoes) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    CloseWatched();
    EXPECT_GE(FreedBlocks::olds, 1);
    EXPECT_GE(FreedBlocks::news, 2) << "the new password and its confirmation";
}

TEST_F(FreedSecrets, GoBackWithTheKeyThatAddsToThem) {
    Open();
    TypeInto(u"txtOldPass", kMarkedOld);
    FreedBlocks::Watch();
    user.Type(u"x");
    FreedBlocks::Leave();
    EXPECT_GE(FreedBlocks::olds, 1);
}

TEST_F(FreedSecrets, OfATargetStayUntilTheWindowGoes) {
    OpenRows();
    TypeOld(0, kMarkedOld);
    Leave();
    EXPECT_EQ(InPlace().Text(), u"");
    CloseWatched();
    EXPECT_GE(FreedBlocks::olds, 1);
}

TEST_F(FreedSecrets, OfTheSingleModeStayBehindTheSwitchUntilTheWindowGoes) {
    Open();
    TypeInto(u"txtOldPass", kMarkedOld);
    ASSERT_TRUE(user.ClickOn(Same()));
    Edit(1); // which empties the box
    Leave();
    EXPECT_EQ(InPlace().Text(), u"");
    CloseWatched();
    EXPECT_GE(FreedBlocks::olds, 1);
}

TEST_F(FreedSecrets, OfARunGoBackWithItsTargets) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    FreedBlocks::Watch();
    ASSERT_TRUE(user.ClickOn(At(u"cmdOK")));
    FreedBlocks::Leave();
    EXPECT_EQ(ChangedServers().size(), 3U);
    EXPECT_GE(FreedBlocks::olds, 4) << "that of the run, and one for each target";
    EXPECT_GE(FreedBlocks::news, 3);
}

} // namespace kestrelmoor::tests
