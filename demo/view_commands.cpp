// The commands about the items of the view.
#include <cstdio>

#include "channel.h"
#include "commands.h"
#include "outline.h"
#include "screen_points.h"

namespace demo {

std::string Commands::NameOf(ItemHandle item) {
  const auto entry = EntryOf(browser.Browser().View(), item);
  return entry ? browser.Model().RelativeName(*entry) : "none";
}

void Commands::PrintItems(const std::function<bool(ItemHandle)>& wanted) {
  for (const ItemHandle item : qvl::VisibleItems(browser.Browser().View())) {
    if (wanted(item)) Print(NameOf(item));
  }
  Finish("ok");
}

void Commands::AnswerSelection(const std::string&) {
  PrintItems([this](ItemHandle item) { return browser.Browser().View().IsItemSelected(item); });
}

void Commands::AnswerChecked(const std::string&) {
  PrintItems([this](ItemHandle item) { return browser.Browser().View().IsItemChecked(item); });
}

void Commands::AnswerRows(const std::string&) {
  PrintItems([](ItemHandle) { return true; });
}

void Commands::AnswerCaret(const std::string&) {
  Print(NameOf(qvl::FocusedItem(browser.Browser().View())));
  Finish("ok");
}

void Commands::AnswerLabelVisible(const std::string& argument) {
  IQVLTreeView& view = browser.Browser().View();
  const auto label = qvl::ItemRect(view, ItemNamed(browser, argument));
  RECT area{};
  GetClientRect(view.GetControlWindow(), &area);
  const bool isVisible = label && label->top >= 0 && label->bottom <= area.bottom;
  Finish(isVisible ? "ok" : "error: not in view");
}

void Commands::AnswerTop(const std::string&) {
  Print(NameOf(qvl::TopItem(browser.Browser().View())));
  Finish("ok");
}

void Commands::AnswerColumns(const std::string&) {
  const HWND list = browser.Browser().View().GetControlWindow();
  RECT area{};
  GetClientRect(list, &area);
  LRESULT width = 0;
  for (WPARAM column = 0; column < 3; ++column) {
    width += SendMessageW(list, LVM_GETCOLUMNWIDTH, column, 0);
  }
  Print(std::to_string(area.right - width));
  Finish("ok");
}

void Commands::AnswerOutline(const std::string&) {
  std::fputs(Outline(browser.Browser().View(), browser.Model()).c_str(), stdout);
  Finish("ok");
}

}  // namespace demo
