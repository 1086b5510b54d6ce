#pragma once

#include "platform/windows/control_window.h"
#include "runtime/forms/controls.h"

namespace kestrelmoor::platform {

/// The messages by which a list and a drop-down list do the same things.
struct RowMessages {
    UINT insert;
    UINT remove;
    UINT clear;
    UINT select;
    UINT selected;
    int chosen; ///< the code that tells of the user's choice
};

/// What lists and drop-down lists share. The rows stand where the model has them: the window sorts nothing.
class RowWindow : public ControlWindow {
  public:
    void Show(Property what) override;
    void RowInserted(int row) override;
    void RowRemoved(int row) override;
    void RowReplaced(int row) override;
    void RowsCleared() override;
    bool Reports(int code) const override { return code == mMessages.chosen; }
    void Notified(int code) override;

  protected:
    RowWindow(FormWindow& form, RowControl& rows, const WindowKind& kind, const RowMessages& messages);
    RowControl& Rows() const { return static_cast<RowControl&>(Model()); }
    void ShowRows();

  private:
    void Insert(int row) const;
    void ShowSelection() const;

    RowMessages mMessages;
};

class ListWindow : public RowWindow {
  public:
    /// `style` is added to that of every list.
    ListWindow(FormWindow& form, ListBox& list, DWORD style = 0);

    void Show(Property what) override;
    void RowInserted(int row) override;
    void RowRemoved(int row) override;
    void RowReplaced(int row) override;
    void RowsCleared() override;

  protected:
    LRESULT Process(UINT message, WPARAM wide, LPARAM parameter) override;
    void ShowFont() override;
    ListBox& List() const { return static_cast<ListBox&>(Model()); }
    bool IsDrawingHeld() const { return mDrawingHeld; } ///< until all of it is drawn anew

  private:
    void ShowTabStops() const;
    void HoldDrawing();
    void PostDone();
    void DrawAgain();
    int TopRow() const { return static_cast<int>(Send(LB_GETTOPINDEX)); }

    bool mDrawingHeld = false;
    bool mDonePosted = false;
};

class ComboWindow : public RowWindow {
  public:
    ComboWindow(FormWindow& form, ComboBox& list);

    bool KeepsKey(WPARAM key_code) const override;
    void ShowPlace() override;

  protected:
    void ShowFont() override;
    LRESULT Process(UINT message, WPARAM wide, LPARAM parameter) override;

  private:
    void FitHeight() const;
};

} // namespace kestrelmoor::platform
