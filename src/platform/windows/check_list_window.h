#pragma once

#include "platform/windows/row_windows.h"

namespace kestrelmoor::platform {

/// A list with a check mark ahead of each row. The list is the system's, its rows are drawn here. Space and a
/// click on a mark turn it; a click on the text only chooses the row.
class CheckListWindow : public ListWindow {
  public:
    CheckListWindow(FormWindow& form, ListBox& list);

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
    int MarkAt(LPARAM place) const;
    LRESULT ButtonUp(WPARAM keys, LPARAM place);
    void ReportTurn(int row);

    int mPressedMark = -1;
    int mTurnedRow = -1;
};

} // namespace kestrelmoor::platform
