#pragma once

#include "platform/windows/row_windows.h"

namespace kestrelmoor::platform {

/// A list with a check mark ahead of each row. The list is the system's, its rows are drawn here. Space and a
/// click on a mark turn it, as does a row's default action; a click on the text only chooses the row. A row
/// stays the clicked one even when rows come or go between press and release, as they do when the press takes
/// the focus from a row's entry.
class CheckListWindow : public ListWindow {
  public:
    CheckListWindow(FormWindow& form, ListBox& list);

    void RowInserted(int row) override;
    void RowRemoved(int row) override;
    void RowMarked(int row) override;
    bool Reports(int code) const override;
    void Notified(int code) override;
    void Draw(const DRAWITEMSTRUCT& item) const override;

  protected:
    LRESULT Process(UINT message, WPARAM wide, LPARAM parameter) override;
    void ShowFont() override;

  private:
    void ShowRowHeight() const;
    void DrawRow(const DRAWITEMSTRUCT& item, int row) const;
    bool IsRow(int row) const { return row >= 0 && row < List().ListCount(); }
    int RowAt(LPARAM place) const;
    RECT RowPlace(int row) const; ///< in the client area; empty: it has none
    bool IsWhollyInView(int row) const;
    void NotePress(LPARAM place);
    LPARAM WithPressedRow(LPARAM place);
    LRESULT ButtonUp(WPARAM keys, LPARAM place);
    void PressMark(int row);
    void ReportTurn(int row);

    int mPressedRow = -1;       ///< while the button is down
    bool mMarkPressed = false;  ///< the press was on its mark
    bool mPressedMoved = false; ///< other rows have come or gone since, and the choice may be another
    LONG mPressedTop = 0;       ///< where it stood
    LONG mPressedShift = 0;     ///< how far it stands from there
    int mTurnedRow = -1;
};

} // namespace kestrelmoor::platform
