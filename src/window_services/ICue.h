#pragma once

namespace kestrelmoor {

/// A form that shows and hides its keyboard cues: the underlines of accelerators and the focus rectangle.
class ICue {
  public:
    virtual ~ICue() = default;
    virtual void ICue_Cue() = 0;
    virtual void ICue_UnCue() = 0;
};

} // namespace kestrelmoor
