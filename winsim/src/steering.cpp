// What tests ask of the stand-in as a whole.
#include <winsim.h>

#include "activation.h"
#include "image_list.h"
#include "keyboard.h"
#include "list_control.h"
#include "memory.h"
#include "menu.h"
#include "messages.h"
#include "ole.h"
#include "shell.h"
#include "tree_control.h"
#include "window.h"

namespace winsim {
namespace {

template <typename Kind>
std::shared_ptr<Kind> ControlOf(HWND window) {
  const Window* known = FindWindow(window);
  return known ? std::dynamic_pointer_cast<Kind>(known->control) : nullptr;
}

}  // namespace

Counts CountLive() {
  Counts counts = {};
  counts.windows = CountWindows();
  counts.menus = CountMenus();
  counts.icons = CountIcons();
  counts.imageLists = CountImageLists();
  counts.globalBlocks = CountGlobalBlocks();
  counts.taskBlocks = CountTaskBlocks();
  counts.interfaces = CountInterfaces();
  counts.activeContexts = CountActiveContexts();
  return counts;
}

int CountInvalidations(HWND window) {
  const Window* known = FindWindow(window);
  return known ? known->invalidations : 0;
}

std::u16string AskTreeInfoTip(HWND tree, HTREEITEM item) {
  const auto control = ControlOf<TreeControl>(tree);
  return control ? control->AskInfoTip(item) : u"";
}

std::u16string AskListInfoTip(HWND list, int row) {
  const auto control = ControlOf<ListControl>(list);
  return control ? control->AskInfoTip(row) : u"";
}

void Reset() {
  ForgetMenuScript();
  ForgetDragScript();
  ForgetShellSteering();
  ForgetAllMessages();
  ResetInput();
}

}  // namespace winsim
