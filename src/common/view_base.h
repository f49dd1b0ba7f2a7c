// What a tree and a list have in common, whatever their control.
#pragma once

#include "common/check_box_images.h"
#include "core/life_watch.h"
#include "core/qvl.h"

class QVLShellContextMenu;

// Holds the fields that both views have, and runs the flows in which both ask the client.
class QVLView : public IQVLTreeView {
 public:
  // Sets the view that callbacks get as first argument. The proxy calls it before Create.
  void SetOwner(IQVLTreeView* newOwner) { owner = newOwner; }

  void SetMultiSelect(bool enabled) override { multiSelect = enabled; }
  bool GetMultiSelect() override { return multiSelect; }
  void SetClient(IQVLTreeViewClient* newClient) override { client = newClient; }
  HWND GetControlWindow() override { return controlWindow; }
  void Show() override;
  void Redraw() override;

 protected:
  friend class SelectionBracket;
  template <class View>
  friend LRESULT HandleParentMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  // Registers the parent's class and creates the parent window. Stores the view, the flags and the
  // control's id. False if there is no window.
  bool CreateParent(const WCHAR* className, WNDPROC procedure, HWND host, int id, int x, int y,
                    int width, int height, std::uint32_t style);

  // Creates the control at the parent's origin, as large as the parent. False on failure.
  bool CreateNativeControl(const WCHAR* className, DWORD style, DWORD exStyle, int width,
                           int height);

  // Whose the user data of the control is.
  enum class ControlData { kOfView, kOfHost };

  // Ends the view's life and destroys its windows, the control first. Notifications that come
  // meanwhile still find the whole view. False if a callback has ended the view in the middle;
  // the view must not be touched then.
  bool DestroyWindows(ControlData data);

  // Moves the parent and the control, without repainting.
  void MoveWindows(int x, int y, int width, int height);

  // Calls OnItemSelectionChanged.
  void Report(ItemHandle item);

  // Asks the client for the tool tip of `item`. If it has one, its pointer and length replace those
  // of the control's record; the text is not copied.
  void RequestInfoTip(ItemHandle item, WCHAR*& text, int& length);

  // Selects the item under the screen position packed in `position`, then calls OnContextMenu.
  void RequestContextMenu(LPARAM position);

  // Asks the client about a label edit. The result is the answer to the notification.
  LRESULT RequestLabelEdit(NMHDR& record);

  // Asks the client for the files of `items` and drags them. True if a drag ran, whatever came of
  // it. False without a client, an item or a name, and if the view has ended.
  bool DragSelection(ItemHandleList& items) noexcept;

  // Asks the client for the files of `items` and shows the shell's menu for them at the screen
  // position x, y. False without a client, an item or a name, if the shell does not know the first
  // name, and if the view has ended.
  bool ShowSelectionMenu(int x, int y, ItemHandleList& items) noexcept;

  IQVLTreeView* owner = nullptr;
  HWND controlWindow = nullptr;
  HWND parentWindow = nullptr;
  std::int32_t controlId = 0;
  std::uint32_t styleFlags = 0;
  IQVLTreeViewClient* client = nullptr;
  bool usingSystemImages = false;
  bool multiSelect = false;
  QVLShellContextMenu* activeContextMenu = nullptr;  // while the menu is shown
  CheckBoxImages checkBoxImages;
  ViewLife life;
};
