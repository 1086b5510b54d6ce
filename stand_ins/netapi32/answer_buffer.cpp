#include "answer_buffer.h"

#include <map>
#include <memory>

namespace kestrelmoor::stand_in {
namespace {

class Ledger {
  public:
    Ledger() { InitializeCriticalSection(&mLock); }
    ~Ledger() { DeleteCriticalSection(&mLock); }
    Ledger(const Ledger&) = delete;
    Ledger& operator=(const Ledger&) = delete;

    template <typename Work>
    auto Locked(Work work) {
        EnterCriticalSection(&mLock);
        const std::unique_ptr<CRITICAL_SECTION, decltype(&LeaveCriticalSection)> held(&mLock,
                                                                                      &LeaveCriticalSection);
        return work(mBuffers);
    }

  private:
    CRITICAL_SECTION mLock;
    std::map<void*, std::unique_ptr<std::byte[]>> mBuffers;
};

Ledger& Answers() {
    static Ledger ledger;
    return ledger;
}

} // namespace

void* AllocateAnswer(std::size_t bytes) {
    auto memory = std::make_unique<std::byte[]>(bytes);
    void* const address = memory.get();
    Answers().Locked([&](auto& buffers) { buffers.emplace(address, std::move(memory)); });
    return address;
}

bool ReleaseAnswer(void* buffer) {
    return Answers().Locked([&](auto& buffers) { return buffers.erase(buffer) == 1; });
}

std::size_t OutstandingAnswers() {
    return Answers().Locked([](const auto& buffers) { return buffers.size(); });
}

} // namespace kestrelmoor::stand_in
