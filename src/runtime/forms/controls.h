#pragma once

#include "runtime/forms/control.h"

#include <deque>
#include <vector>

namespace kestrelmoor {

/// A label. Its accelerator leads to the next control in tab order. One that is sized by itself is as large
/// as its caption whenever its caption or font changes while a window shows it.
class Label : public Control {
  public:
    Label(Form& form, const ControlDesign& design);

    /// A number without a use of its own; some forms keep the number of the label's text here.
    int LinkTimeout() const { return mLinkTimeout; }
    bool AutoSize() const { return mAutoSize; }
    bool Transparent() const { return mTransparent; }

  protected:
    void Reworded() override;

  private:
    int mLinkTimeout;
    bool mAutoSize;
    bool mTransparent;
};

/// A button. Of all buttons of a form one at most is the default (Enter) and one the cancel button (Escape).
class CommandButton : public Control {
  public:
    CommandButton(Form& form, const ControlDesign& design);

    bool Default() const { return mDefault; }
    bool Cancel() const { return mCancel; }
    void SetDefault(bool on); ///< on: takes it from the button that has it

    /// Whether it is to look as the one that Enter clicks: the button with the focus, else the default one.
    bool LooksDefault() const;

    /// The user's press, by mouse, Space, Enter, Escape or accelerator: raises Click, where it is enabled.
    void Pressed();

  private:
    bool mDefault;
    bool mCancel;
};

class CheckBox : public Control {
  public:
    CheckBox(Form& form, const ControlDesign& design);

    int Value() const { return mValue; } ///< 0 cleared, 1 checked
    void SetValue(int value);            ///< a change raises Click; 380 for any other value

    /// The user's press: turns the value, which raises Click.
    void Pressed();

  private:
    int mValue;
};

class Frame : public Control {
  public:
    using Control::Control;
};

class TextBox : public Control {
  public:
    TextBox(Form& form, const ControlDesign& design);

    const String& Text() const { return mText; }
    void SetText(const String& text); ///< a change raises Change; the selection goes to the start

    /// Positions count UTF-16 units and are held within the text. With a window, the window's own selection.
    int SelStart() const;
    int SelLength() const;
    void SetSelStart(int start); ///< and nothing selected; the position comes into view
    void SetSelLength(int length);
    void SetSelText(const String& text); ///< in place of the selection; the caret stands behind it

    const String& PasswordChar() const { return mPasswordChar; } ///< empty: no mask
    void SetPasswordChar(const String& mask);
    bool Locked() const { return mLocked; }
    int BorderStyle() const { return mBorderStyle; } ///< 0 none, 1 single
    void SetBorderStyle(int style);
    bool MultiLine() const { return mMultiLine; }
    bool ImeOff() const { return mImeOff; }
    enum ScrollBars ScrollBars() const { return mScrollBars; }

    /// The user's edit, as the window reports it: takes the text over and raises Change where it differs.
    void Edited(const String& text);

    /// The same where no window keeps the selection: the caret stands at `caret` before Change is raised.
    void Edited(const String& text, int caret);

    Handler<> Change;

  private:
    void ReadSelection() const;
    int Within(int position) const;

    String mText;
    mutable int mSelStart = 0;
    mutable int mSelLength = 0;
    String mPasswordChar;
    bool mLocked;
    bool mMultiLine;
    bool mImeOff;
    int mBorderStyle;
    enum ScrollBars mScrollBars;
};

/// Rows with a number each: what lists and drop-down lists share. A sorted one keeps its rows in the
/// desktop's order; equal rows stand in the order in which they came.
class RowControl : public Control {
  public:
    RowControl(Form& form, const ControlDesign& design);

    int ListCount() const { return static_cast<int>(mSlots.size()); }
    const String& List(int row) const;         ///< raises 381 for a row that is not there
    void SetList(int row, const String& text); ///< in its place, even in a sorted list
    std::int32_t ItemData(int row) const;
    void SetItemData(int row, std::int32_t data);
    int ListIndex() const { return mListIndex; } ///< -1: none
    /// A change raises Click. Raises 380 out of range; an empty list has no row to choose and stays at none.
    void SetListIndex(int row);
    int NewIndex() const { return mNewIndex; }      ///< where the last row went, -1 after a removal
    void AddItem(const String& text, int row = -1); ///< -1: at its place, or at the end if not sorted
    void RemoveItem(int row); ///< 5 for a row that is not there; the current row's end leaves none, no Click
    virtual void Clear();
    bool Sorted() const { return mSorted; }

    /// The mouse went down on a row: it is the current one ahead of the focus events that the press brings.
    /// Click comes with the choice, when the button is let go.
    void RowPressed(int row);

    /// The user's choice of a row, as the window reports it: raises Click, also for the row that is current.
    void RowChosen(int row);

  protected:
    struct Row {
        String text;
        std::int32_t data = 0;
        bool checked = false;
    };
    /// What of a row's text its place in a sorted list goes by.
    virtual StringView SortedPart(StringView text) const { return text; }

    bool HasRow(int row) const;
    Row& At(int row);
    const Row& At(int row) const;

  private:
    std::size_t Position(int row) const;
    int PlaceFor(StringView text) const;

    std::uint32_t Store(const String& text);

    // Slots stand in order, rows stand still: little is moved when a row comes ahead of others.
    std::deque<Row> mStore;
    std::vector<std::uint32_t> mSlots; ///< of the rows in their order
    std::vector<std::uint32_t> mFree;  ///< slots whose row has been removed
    int mListIndex = -1;
    int mNewIndex = -1;
    bool mSorted;
};

class ListBox : public RowControl {
  public:
    ListBox(Form& form, const ControlDesign& design);

    ListStyle Style() const { return mStyle; }

    /// A row's check mark, in a list with check boxes. A change raises ItemCheck.
    bool Selected(int row) const { return At(row).checked; }
    void SetSelected(int row, bool checked);
    void RowToggled(int row); ///< the user's turn of a check mark

    /// Tab stops of the rows' text in dialog units from the left edge. A sorted list that has some goes by
    /// what stands ahead of the first tab.
    const std::vector<int>& TabStops() const { return mTabStops; }
    void SetTabStops(std::vector<int> stops);

    int TopIndex() const { return mTopIndex; } ///< as the window last told
    void Clear() override;                     ///< the first row is on top again, which is no Scroll
    void Scrolled(int top_row);                ///< the window shows another top row now: raises Scroll

    Handler<int> ItemCheck; ///< the row
    Handler<> Scroll;

  protected:
    StringView SortedPart(StringView text) const override;

  private:
    ListStyle mStyle;
    std::vector<int> mTabStops;
    int mTopIndex = 0;
};

class ComboBox : public RowControl {
  public:
    using RowControl::RowControl;
};

class Timer : public Control {
  public:
    Timer(Form& form, const ControlDesign& design);

    int Interval() const { return mInterval; } ///< milliseconds; 0: does not run
    void SetInterval(int milliseconds);
    bool Running() const { return Enabled() && mInterval > 0; }

    /// The interval has passed: raises Tick where the timer still runs.
    void Elapsed();

    Handler<> Tick;

  private:
    int mInterval;
};

/// A surface that its form paints at each request. It holds no picture of its own.
class PictureBox : public Control {
  public:
    using Control::Control;

    void PaintRequested();

    /// Fills it with its background. Nothing outside `Paint`.
    void Clear();

    /// What `Paint` draws into, a handle of the platform; 0 outside of it.
    std::uintptr_t DeviceContext() const;

    Handler<> Paint;
};

/// Runs from the corner of its place to the opposite one, in its foreground colour. It has no window: the
/// form draws it behind all that have one.
class Line : public Control {
  public:
    using Control::Control;
};

/// A rectangle filled with its background colour. It has no window, as a line has none.
class Shape : public Control {
  public:
    using Control::Control;
};

} // namespace kestrelmoor
