#include "language_library_files.h"
#include "languages/localization_abi.h"

#include <benchmark/benchmark.h>

#include <dlfcn.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace kestrelmoor::bench {

namespace {

using namespace kestrelmoor::abi;

constexpr std::int32_t kWindows2000 = 0x25000893;
constexpr std::int16_t kEnglish = 1033;
constexpr std::int16_t kLargestNumber = 1100;

struct Closer {
    void operator()(void* library) const { dlclose(library); }
};
using Library = std::unique_ptr<void, Closer>;

struct Releaser {
    template <class Interface>
    void operator()(Interface* held) const {
        held->table->Release(held);
    }
};
using Localizer = std::unique_ptr<ILocalization, Releaser>;

/// By the library's export and its class factory, as the program does it; null when anything fails.
Localizer NewLocalizer(void* library) {
    auto get_class_object =
        reinterpret_cast<DllGetClassObjectCall>(dlsym(library, LOC_GET_CLASS_OBJECT_NAME));
    void* out = nullptr;
    if (!get_class_object || get_class_object(&kClsidLocalization, &kIidClassFactory, &out) != LOC_S_OK)
        return nullptr;
    const std::unique_ptr<IClassFactory, Releaser> factory(static_cast<IClassFactory*>(out));
    if (factory->table->CreateInstance(factory.get(), nullptr, &kIidLocalization, &out) != LOC_S_OK)
        return nullptr;
    Localizer localizer(static_cast<ILocalization*>(out));
    if (localizer->table->Initialize(localizer.get(), kWindows2000, kEnglish) != LOC_S_OK)
        return nullptr;
    return localizer;
}

bool Fetch(const Localizer& localizer, std::int16_t number) {
    LocText text = nullptr;
    const bool found = localizer->table->GetText(localizer.get(), number, &text) == LOC_S_OK ||
                       localizer->table->GetPluralText(localizer.get(), number, 2, &text) == LOC_S_OK;
    LocFreeText(text);
    return found;
}

std::vector<std::int16_t> NumbersIn(const Localizer& localizer) {
    std::vector<std::int16_t> numbers;
    for (std::int16_t number = 1; localizer && number <= kLargestNumber; ++number)
        if (Fetch(localizer, number))
            numbers.push_back(number);
    return numbers;
}

/// From the file, which the system has in its memory already, over the check of all its texts to the last
/// text, and back to the library unloaded.
void FetchEveryTextOfALibrary(benchmark::State& state) {
    std::vector<std::int16_t> numbers;
    {
        const Library library(dlopen(KESTRELMOOR_DEFAULT_LOC, RTLD_NOW | RTLD_LOCAL));
        if (library)
            numbers = NumbersIn(NewLocalizer(library.get()));
    }
    if (numbers.empty())
        return state.SkipWithError("the library holds no texts");
    for (auto _ : state) {
        const Library library(dlopen(KESTRELMOOR_DEFAULT_LOC, RTLD_NOW | RTLD_LOCAL));
        const Localizer localizer = NewLocalizer(library.get());
        for (std::int16_t number : numbers)
            if (!Fetch(localizer, number))
                state.SkipWithError("a text was not found");
    }
    state.counters["texts"] = static_cast<double>(numbers.size());
}
BENCHMARK(FetchEveryTextOfALibrary)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace kestrelmoor::bench
