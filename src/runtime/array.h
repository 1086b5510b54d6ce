#pragma once

#include "runtime/errors.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace kestrelmoor {

/// An array with bounds of its own choosing. Until it is dimensioned it has no storage, and asking such an
/// array for a bound or an element raises 9, as an index out of bounds does.
template <class Element>
class Array {
  public:
    Array() = default;
    Array(std::int32_t first, std::vector<Element> elements)
        : mFirst(first), mElements(std::move(elements)) {}

    bool HasStorage() const { return !mElements.empty(); }
    std::int32_t LowerBound() const {
        RequireStorage();
        return mFirst;
    }
    std::int32_t UpperBound() const {
        RequireStorage();
        return mFirst + static_cast<std::int32_t>(mElements.size()) - 1;
    }

    Element& operator[](std::int32_t index) { return mElements[Offset(index)]; }
    const Element& operator[](std::int32_t index) const { return mElements[Offset(index)]; }

    /// New bounds; the elements at the front stay, new ones have their default. A `last` below `first` gives
    /// the storage up.
    void Redim(std::int32_t first, std::int32_t last) {
        mFirst = first;
        mElements.resize(last < first ? 0 : static_cast<std::size_t>(last - first) + 1);
    }
    void Erase() { mElements.clear(); }

    /// The elements in their order, whatever the bounds are.
    const std::vector<Element>& Elements() const& { return mElements; }
    std::vector<Element> Elements() && { return std::move(mElements); }

    bool operator==(const Array&) const = default;

  private:
    void RequireStorage() const {
        if (mElements.empty())
            RaiseError(error_number::kSubscript);
    }
    std::size_t Offset(std::int32_t index) const {
        if (index < mFirst || index - mFirst >= static_cast<std::int32_t>(mElements.size()))
            RaiseError(error_number::kSubscript);
        return static_cast<std::size_t>(index - mFirst);
    }

    std::int32_t mFirst = 0;
    std::vector<Element> mElements;
};

} // namespace kestrelmoor
