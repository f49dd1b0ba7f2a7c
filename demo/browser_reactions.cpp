// What the demo's window does for commands and callbacks.
#include "browser_window.h"

namespace demo {

void BrowserWindow::Run(Command command) {
  IQVLTreeView& view = browser.View();
  if (command == Command::Rename) {
    browser.BeginRename();
    return;
  }
  if (command == Command::Switch) {
    OpenView(!browser.IsList());
  } else {
    RunOnView(command);
  }
  SetFocus(view.GetControlWindow());
}

void BrowserWindow::RunOnView(Command command) {
  IQVLTreeView& view = browser.View();
  switch (command) {
    case Command::ExpandAll: {
      view.ExpandAll();
      const ItemHandle focused = qvl::FocusedItem(view);
      if (focused != -1) view.EnsureVisible(focused);
      break;
    }
    case Command::CollapseAll:
      view.CollapseAll();
      break;
    case Command::CheckAll:
      view.CheckAll();
      break;
    case Command::UncheckAll:
      view.UncheckAll();
      break;
    case Command::SelectAll:
      view.SelectAll();
      break;
    case Command::InvertSelection:
      view.InvertSelection();
      break;
    case Command::Remove:
      browser.RemoveSelected();
      break;
    case Command::Colors:
      browser.NextColors();
      break;
    default:
      break;
  }
}

void BrowserWindow::ShowNotice(const std::wstring& text) {
  UpdateStatus();  // so that only a later change of the counts removes the text
  status.SetNotice(text);
}

// A command of the menu may change files in ways that the system does not report.
void BrowserWindow::ShowMenu(POINT screenPoint) {
  if (browser.View().GetSelectedCount() == 0) ShowNotice(L"No menu: no item is selected");
  browser.View().ShowContextMenu(static_cast<int>(screenPoint.x), static_cast<int>(screenPoint.y));
  watch.ReadSoon();
}

// The message loop handles the menu keys. A request without a place is a second one for the same
// key.
void BrowserWindow::OpenContextMenu(int x, int y, ItemHandle item) {
  if (item != -1 && (x != -1 || y != -1)) ShowMenu({x, y});
}

void BrowserWindow::MakeColumns(HWND listWindow) { BrowserView::MakeColumns(listWindow); }

bool BrowserWindow::AnswerLabelEdit(const qvl::LabelEdit& edit) {
  if (edit.begins) return !browser.MayEdit(edit.item);
  if (!edit.text) return false;
  const std::wstring failure = browser.Rename(edit.item, edit.text);
  if (!failure.empty()) ShowNotice(L"Not renamed: " + failure);
  latest.reset();  // it has the old name
  watch.ReadSoon();
  return failure.empty();
}

void BrowserWindow::SortBy(Column column) { browser.SortBy(column); }

}  // namespace demo
