#include "runtime/forms/accelerator.h"

#include "runtime/forms/application.h"

namespace kestrelmoor {

bool HasAccelerator(StringView caption, char16_t letter) {
    for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] != u'&')
            continue;
        ++at;
        if (caption[at] != u'&')
            return Application::Current().CompareRows(caption.substr(at, 1), StringView(&letter, 1)) == 0;
    }
    return false;
}

} // namespace kestrelmoor
