#pragma once

#include <any>
#include <cstddef>
#include <cstdint>
#include <map>

namespace kestrelmoor::practice {

enum class HandleKind {
    Policy,
    PolicyRecord,
    Token,
    BuiltSid,
    RegistryKey,
    Module,
    ShellMemory,
    ShellMalloc,
    ShellFolder,
    AppendFile,
    FileSearch,
    Theme,
    Icon,
    Picture,
    Hook,
    DirectoryObject,
};

/// A handle in the type that the platform gives to some of them: a number, never an address that is read.
inline void* AsPointer(std::uintptr_t handle) {
    return reinterpret_cast<void*>(handle);
}

/// What the platform has handed out and not got back. Numbers are never used twice.
class HandleTable {
  public:
    std::uintptr_t Open(HandleKind kind, std::any content);

    /// The same for what is handed out by its own address.
    void OpenAt(HandleKind kind, std::uintptr_t address, std::any content);

    /// One more holder of a handle that is open.
    void Share(std::uintptr_t handle);

    /// What stands behind an open handle of that kind; null: there is none.
    template <class Content>
    Content* Find(HandleKind kind, std::uintptr_t handle) {
        const auto found = mOpen.find(handle);
        if (found == mOpen.end() || found->second.kind != kind)
            return nullptr;
        return std::any_cast<Content>(&found->second.content);
    }

    /// The latest open handle of a kind whose content fits; 0: none.
    template <class Content, class Fits>
    std::uintptr_t Seek(HandleKind kind, Fits&& fits) const {
        for (auto entry = mOpen.rbegin(); entry != mOpen.rend(); ++entry)
            if (const auto* const content = std::any_cast<Content>(&entry->second.content);
                entry->second.kind == kind && content && fits(*content))
                return entry->first;
        return 0;
    }

    /// Gives one holder's part back. True: that was the last. A handle that is not open counts as a wrong
    /// release.
    bool Close(HandleKind kind, std::uintptr_t handle);

    /// Parts of holders that have not been given back.
    std::size_t Outstanding() const;
    std::size_t Outstanding(HandleKind kind) const;
    std::size_t WrongReleases() const { return mWrongReleases; }

  private:
    struct Entry {
        HandleKind kind;
        std::any content;
        std::size_t holders = 1;
    };
    std::map<std::uintptr_t, Entry> mOpen;
    std::uintptr_t mNext = 0x100;
    std::size_t mWrongReleases = 0;
};

} // namespace kestrelmoor::practice
