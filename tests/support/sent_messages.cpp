#include "support/sent_messages.h"

#include <algorithm>
#include <iterator>

namespace {

SentMessages* current = nullptr;

// A row's record has every field of a tree item's but those of the tree alone.
void ReadTreeItem(const TVITEMW& item, SentMessage& sent) {
  sent.treeItem = item;
  sent.item.mask = item.mask;
  sent.item.state = item.state;
  sent.item.stateMask = item.stateMask;
  sent.item.pszText = item.pszText;
  sent.item.iImage = item.iImage;
  sent.item.lParam = item.lParam;
}

SentMessage Copy(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  SentMessage sent = {};
  sent.window = window;
  sent.message = message;
  sent.wParam = wParam;
  sent.lParam = lParam;
  switch (message) {
    case LVM_INSERTITEMW:
    case LVM_SETITEMW:
    case LVM_SETITEMSTATE:
      sent.item = *reinterpret_cast<const LVITEMW*>(lParam);
      break;
    case LVM_INSERTCOLUMNW:
      sent.column = *reinterpret_cast<const LVCOLUMNW*>(lParam);
      break;
    case TVM_INSERTITEMW:
      sent.insertion = *reinterpret_cast<const TVINSERTSTRUCTW*>(lParam);
      ReadTreeItem(sent.insertion.item, sent);
      break;
    case TVM_SETITEMW:
      ReadTreeItem(*reinterpret_cast<const TVITEMW*>(lParam), sent);
      break;
    default:
      break;
  }
  if (sent.item.pszText) sent.text = sent.item.pszText;
  return sent;
}

}  // namespace

SentMessages::SentMessages() { current = this; }

SentMessages::~SentMessages() { current = nullptr; }

std::vector<SentMessage> SentMessages::Of(UINT message) const {
  std::vector<SentMessage> found;
  std::copy_if(all.begin(), all.end(), std::back_inserter(found),
               [=](const SentMessage& sent) { return sent.message == message; });
  return found;
}

LRESULT WINAPI SentMessages::Relay(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  current->all.push_back(Copy(window, message, wParam, lParam));
  const auto answer = current->answers.find(message);
  return answer != current->answers.end() ? answer->second
                                          : SendMessageW(window, message, wParam, lParam);
}
