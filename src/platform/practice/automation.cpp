#include "platform/automation.h"

#include "languages/localization_abi.h"

namespace kestrelmoor::platform {

String TakeText(char16_t* text) {
    String taken(text ? text : u"", abi::LocTextLength(text));
    abi::LocFreeText(text);
    return taken;
}

Array<std::int16_t> TakeNumbers(void* array) {
    auto* const numbers = static_cast<abi::LocArray*>(array);
    Array<std::int16_t> taken;
    if (numbers && numbers->dimensions == 1 && numbers->element_size == sizeof(std::int16_t)) {
        const auto* const first = static_cast<const std::int16_t*>(numbers->data);
        taken = {numbers->lower_bound, std::vector<std::int16_t>(first, first + numbers->count)};
    }
    abi::LocFreeArray(numbers);
    return taken;
}

} // namespace kestrelmoor::platform
