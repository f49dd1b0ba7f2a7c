#include "plan.h"

#include <commctrl.h>

#include <cstring>

namespace {

constexpr Filling kAsAdvised{true, false};

Step Fill(const std::string& operation, int size, const Filling& filling) {
  Step step{operation, [=](Side& side) { side.Fill(size, filling); }};
  step.fills = true;
  return step;
}

Step Do(const std::string& operation, void (Side::*run)()) {
  return {operation, [=](Side& side) { (side.*run)(); }};
}

Step Query(const std::string& operation, void (Side::*run)()) {
  Step step = Do(operation, run);
  step.readsOnly = true;
  return step;
}

Step Unmeasured(Step step) {
  step.measured = false;
  return step;
}

Step Emptying() { return Do("DeleteAllItems", &Side::DeleteAllItems); }

// A point in the item's label.
LPARAM LabelPoint(const RECT& label) {
  return MAKELPARAM(label.left + 2, (label.top + label.bottom) / 2);
}

LPARAM RowPoint(HWND list, LPARAM row) {
  SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  RECT label{};
  label.left = LVIR_LABEL;
  SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&label));
  return LabelPoint(label);
}

LPARAM ItemPoint(HWND tree, LPARAM item) {
  SendMessageW(tree, TVM_ENSUREVISIBLE, 0, item);
  RECT label{};
  std::memcpy(&label, &item, sizeof item);  // the message takes the item in the rectangle's place
  SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&label));
  return LabelPoint(label);
}

LPARAM PointOfFirst(Kind kind, HWND control) {
  if (kind == Kind::kList) return RowPoint(control, 0);
  return ItemPoint(control, SendMessageW(control, TVM_GETNEXTITEM, TVGN_ROOT, 0));
}

LPARAM PointOfLast(Kind kind, HWND control) {
  if (kind == Kind::kList) {
    return RowPoint(control, SendMessageW(control, LVM_GETITEMCOUNT, 0, 0) - 1);
  }
  return ItemPoint(control, SendMessageW(control, TVM_GETNEXTITEM, TVGN_LASTVISIBLE, 0));
}

// A press ends when the control finds the release of the button in the queue.
void QueueRelease(HWND control) { PostMessageW(control, WM_LBUTTONUP, 0, 0); }

// From the first item, which a plain press selects, to the last.
Step ShiftPress(Kind kind) {
  const auto prepare = [=](Side& side) {
    const HWND control = side.Control();
    const LPARAM first = PointOfFirst(kind, control);
    QueueRelease(control);
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, first);
    PointOfLast(kind, control);  // scrolls there
  };
  const auto run = [=](Side& side) {
    const LPARAM last = PointOfLast(kind, side.Control());
    QueueRelease(side.Control());
    side.ShiftPress(last);
  };
  return {"a Shift press over everything", run, prepare};
}

}  // namespace

std::vector<Step> WholeViewSteps(Kind kind, int size) {
  std::vector<Step> steps{Fill("insert", size, kAsAdvised)};
  if (kind == Kind::kTree) steps.push_back(Do("ExpandAll", &Side::ExpandAll));
  steps.insert(steps.end(), {
                                Query("walk", &Side::Walk),
                                Query("GetItems", &Side::GetItems),
                                Do("SelectAll", &Side::SelectAll),
                                Query("collecting all for a drag", &Side::BeginDrag),
                                Do("ClearSelection", &Side::ClearSelection),
                                ShiftPress(kind),
                                Do("InvertSelection", &Side::InvertSelection),
                                Do("CheckAll", &Side::CheckAll),
                                Query("GetCheckedCount", &Side::GetCheckedCount),
                            });
  if (size <= 10000) {
    steps.push_back(Do("SelectAll, bare loop redraws", &Side::SelectAllRedrawing));
  }
  steps.push_back(Emptying());
  return steps;
}

std::vector<Step> IconSteps(int size) {
  return {Fill("insert with shell icons", size, kAsAdvised), Unmeasured(Emptying())};
}

std::vector<Step> SlowFillSteps(Kind kind, int size) {
  std::vector<Step> steps{Fill("insert, drawing on", size, {false, false}), Unmeasured(Emptying())};
  if (kind == Kind::kTree) {
    steps.insert(steps.end(),
                 {Fill("insert into expanded branches", size, {true, true}), Unmeasured(Emptying()),
                  Fill("insert into expanded branches, drawing on", size, {false, true}),
                  Unmeasured(Emptying())});
  }
  return steps;
}
