#include "platform/windows/row_windows.h"

#include "platform/windows/wide_text.h"

namespace kestrelmoor::platform {

RowWindow::RowWindow(FormWindow& form, RowControl& rows, const WindowKind& kind, const RowMessages& messages)
    : ControlWindow(form, rows, kind), mMessages(messages) {}

void RowWindow::ShowRows() {
    const Quiet quiet(*this);
    for (int row = 0; row < Rows().ListCount(); ++row)
        Insert(row);
    ShowSelection();
}

void RowWindow::Show(Property what) {
    const Quiet quiet(*this);
    if (what == Property::ListIndex)
        ShowSelection();
    else
        ControlWindow::Show(what);
}

void RowWindow::Insert(int row) const {
    SendText(mMessages.insert, static_cast<WPARAM>(row), Rows().List(row));
}

// Selecting scrolls, so what stands is left alone.
void RowWindow::ShowSelection() const {
    if (Send(mMessages.selected) != Rows().ListIndex())
        Send(mMessages.select, static_cast<WPARAM>(Rows().ListIndex()));
}

void RowWindow::RowInserted(int row) {
    const Quiet quiet(*this);
    Insert(row);
    ShowSelection();
}

void RowWindow::RowRemoved(int row) {
    const Quiet quiet(*this);
    Send(mMessages.remove, static_cast<WPARAM>(row));
    ShowSelection();
}

void RowWindow::RowReplaced(int row) {
    const Quiet quiet(*this);
    Send(mMessages.remove, static_cast<WPARAM>(row));
    Insert(row);
    ShowSelection();
}

void RowWindow::RowsCleared() {
    const Quiet quiet(*this);
    Send(mMessages.clear);
}

void RowWindow::Notified(int) {
    Rows().RowChosen(static_cast<int>(Send(mMessages.selected)));
}

} // namespace kestrelmoor::platform
