#pragma once

#include <algorithm>
#include <cstdint>

namespace kestrelmoor {

/// Lets a number of things pass at once; each that has passed is made good after a pause. Times are
/// milliseconds of a clock, which may begin again at 0.
class Allowance {
  public:
    Allowance(std::uint32_t most, std::uint32_t pause)
        : mMost(most), mShortestPause(pause), mPause(pause), mLeft(most) {}

    /// Whether one more may pass at `now`.
    bool Take(std::uint32_t now) {
        MakeGood(now);
        if (mLeft == 0)
            return false;
        --mLeft;
        return true;
    }

    /// One has passed and took from `start` to `now`: the pause begins anew, and is so long that four fifths
    /// of the time are left to all else.
    void Passed(std::uint32_t start, std::uint32_t now) {
        mPause = std::max(mShortestPause, 4 * (now - start));
        mSince = now;
    }

  private:
    void MakeGood(std::uint32_t now) {
        const std::uint32_t pauses = (now - mSince) / mPause;
        mLeft += std::min(pauses, mMost - mLeft);
        mSince = mLeft == mMost ? now : mSince + pauses * mPause;
    }

    std::uint32_t mMost;
    std::uint32_t mShortestPause;
    std::uint32_t mPause;
    std::uint32_t mLeft;
    std::uint32_t mSince = 0; ///< since when the present pause runs
};

} // namespace kestrelmoor
