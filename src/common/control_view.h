// The operations that tree and list have in common but for the messages of their control.
#pragma once

#include "common/item_list.h"
#include "common/redraw_pause.h"
#include "common/view_base.h"
#include "platform/state_images.h"
#include "platform/tool_tip.h"

// `Control` has the messages, `Walk` goes through the items while their states change, and
// `RedrawState` records whether the control draws.
template <class Control, class Walk, class RedrawState>
class ControlView : public QVLView {
 public:
  bool SetImageList(HIMAGELIST images) override {
    if (!controlWindow) return false;
    Control::SetImageList(controlWindow, Control::kItemImages, images);
    return true;
  }

  bool SetStateImageList(HIMAGELIST images) override {
    if (!controlWindow) return false;
    Control::SetImageList(controlWindow, Control::kStateImages, images);
    return true;
  }

  bool SetTextColor(COLORREF color) override {
    if (!controlWindow) return false;
    Control::SetTextColor(controlWindow, color);
    return true;
  }

  // Puts drawing back first: a control that becomes visible then must not do so after it is hidden.
  void Hide() override {
    if (!controlWindow) return;
    redraw.EndPause(controlWindow);
    ShowWindow(controlWindow, SW_HIDE);
  }

  void SetToolTipWidth(int width) override {
    if (controlWindow) tool_tip::SetMaxWidth(Control::ToolTip(controlWindow), width);
  }

  void SetToolTipDelay(int delay) override {
    if (controlWindow) tool_tip::SetInitialDelay(Control::ToolTip(controlWindow), delay);
  }

  ItemHandle GetSelectedItem(int index) override {
    if (!controlWindow) return 0;
    return ItemAt(Control::Items(controlWindow), index, Control::SelectedIn(controlWindow));
  }

  bool IsItemSelected(ItemHandle handle) override {
    const auto item = Control::Named(handle);
    return controlWindow && item != -1 && Control::IsSelected(controlWindow, item);
  }

  int GetCheckedCount() override {
    if (!controlWindow) return 0;
    return CountItems(Control::Items(controlWindow), Control::CheckedIn(controlWindow));
  }

  ItemHandle GetCheckedItem(int index) override {
    if (!controlWindow) return 0;
    return ItemAt(Control::Items(controlWindow), index, Control::CheckedIn(controlWindow));
  }

  void SetItemChecked(ItemHandle handle, bool checked) override {
    const auto item = Control::Named(handle);
    if (!controlWindow || item == -1) return;
    Control::SetStateImage(controlWindow, item, checked ? kCheckedBox : kEmptyBox);
  }

  bool IsItemChecked(ItemHandle handle) override {
    const auto item = Control::Named(handle);
    return controlWindow && item != -1 && Control::StateImage(controlWindow, item) != kEmptyBox;
  }

  void CheckAll() override { ReplaceStateImages(kEmptyBox, kCheckedBox); }
  void UncheckAll() override { ReplaceStateImages(kCheckedBox, kEmptyBox); }

  bool ShowContextMenu(int x, int y) override {
    if (!client || !controlWindow) return false;
    ItemHandleList items;
    return CollectSelected(items) && ShowSelectionMenu(x, y, items);
  }

 protected:
  // Lists the selected items in the order of GetSelectedItem, in one walk. False without memory.
  bool CollectSelected(ItemHandleList& items) {
    return AppendItems(items, Control::Items(controlWindow), Control::SelectedIn(controlWindow));
  }

  // Frees the images that the control made for its check boxes. Called just before the control is
  // destroyed.
  void FreeCheckBoxImages() {
    checkBoxImages.Free(
        [this] { return Control::SetImageList(controlWindow, Control::kStateImages, nullptr); });
  }

  // Which items ChangeSelection inverts.
  enum class Inverted { kUnselected, kSelected, kAll };

  // Inverts the selected state of these items, by `set(item, selected)`, which may call the client.
  template <class Set>
  void ChangeSelection(Inverted inverted, Set set) {
    RedrawPause pause(controlWindow, redraw, life);
    for (const auto item : Walk(controlWindow, life)) {
      const bool selected = Control::IsSelected(controlWindow, item);
      if (inverted != Inverted::kAll && selected != (inverted == Inverted::kSelected)) continue;
      pause.BeforeChange();
      set(item, !selected);
    }
  }

  RedrawState redraw;

 private:
  void ReplaceStateImages(UINT from, UINT to) {
    if (!controlWindow) return;
    RedrawPause pause(controlWindow, redraw, life);
    for (const auto item : Walk(controlWindow, life)) {
      if (Control::StateImage(controlWindow, item) != from) continue;
      pause.BeforeChange();
      Control::SetStateImage(controlWindow, item, to);
    }
  }
};
