#pragma once

namespace kestrelmoor {

/// A form that follows the visual style and the system's colours.
class IThemed {
  public:
    virtual ~IThemed() = default;

    /// Applies the present colours to the form and all its controls.
    virtual void UpdateUI() = 0;
};

} // namespace kestrelmoor
