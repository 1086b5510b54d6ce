#pragma once

#include <cstdint>
#include <memory>

namespace kestrelmoor {

/// A picture that the platform has made. Whoever shows it holds a share of it; it goes with the last one.
class Picture {
  public:
    Picture() = default;
    virtual ~Picture() = default;
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    /// The platform's handle of the image; 0: none.
    virtual std::uintptr_t Handle() const = 0;
};

using SharedPicture = std::shared_ptr<const Picture>;

} // namespace kestrelmoor
