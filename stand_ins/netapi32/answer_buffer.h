#pragma once

#include "runtime/text.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>

namespace kestrelmoor::stand_in {

/// Memory that a caller owes back by NetApiBufferFree, filled with zeros.
void* AllocateAnswer(std::size_t bytes);

/// Whether `buffer` was one that is out; it is released then. A null pointer is nobody's.
bool ReleaseAnswer(void* buffer);

/// How many buffers are out.
std::size_t OutstandingAnswers();

/// A text of a record and what it shall say.
template <typename Record>
struct TextField {
    LPWSTR Record::*field;
    StringView text;
};

/// One buffer with the record in front and its texts behind, as the platform hands it out.
template <typename Record>
Record* MakeAnswer(std::initializer_list<TextField<Record>> texts) {
    std::size_t bytes = sizeof(Record);
    for (const auto& entry : texts)
        bytes += (entry.text.size() + 1) * sizeof(wchar_t);
    auto* record = static_cast<Record*>(AllocateAnswer(bytes));
    auto* place = reinterpret_cast<wchar_t*>(record + 1);
    for (const auto& entry : texts) {
        record->*entry.field = place;
        place = std::copy(entry.text.begin(), entry.text.end(), place) + 1;
    }
    return record;
}

} // namespace kestrelmoor::stand_in
