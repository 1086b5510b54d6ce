#pragma once

#include <utility>

namespace kestrelmoor {

/// The one owner of what the platform hands out: a handle, a buffer, an interface.
///
/// `Traits` says what is owned:
///     using Value = ...;                          // cheap to copy, comparable
///     static constexpr Value kNone = ...;         // what stands for "nothing"
///     static void Release(Value) noexcept;        // gives it back; never called for kNone
///
/// Release must leave the thread's last error as it finds it.
template <class Traits>
class Owned {
  public:
    using Value = typename Traits::Value;

    Owned() = default;
    explicit Owned(Value value) : mValue(value) {}
    Owned(Owned&& other) noexcept : mValue(other.Detach()) {}
    Owned& operator=(Owned&& other) noexcept {
        if (this != &other)
            Reset(other.Detach());
        return *this;
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { Reset(); }

    Value Get() const { return mValue; }
    explicit operator bool() const { return mValue != Traits::kNone; }

    /// Releases what is owned and takes over `value`.
    void Reset(Value value = Traits::kNone) noexcept {
        const Value old = std::exchange(mValue, value);
        if (old != Traits::kNone)
            Traits::Release(old);
    }

    /// Gives the value away; nothing is owned afterwards.
    Value Detach() noexcept { return std::exchange(mValue, Traits::kNone); }

    /// The place for a call that hands out by address. What was owned is released first.
    Value* Receive() noexcept {
        Reset();
        return &mValue;
    }

  private:
    Value mValue = Traits::kNone;
};

} // namespace kestrelmoor
