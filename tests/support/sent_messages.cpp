#include "support/sent_messages.h"

#include <algorithm>
#include <iterator>

namespace {

SentMessages* current = nullptr;

SentMessage Copy(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  SentMessage sent = {};
  sent.window = window;
  sent.message = message;
  sent.wParam = wParam;
  sent.lParam = lParam;
  switch (message) {
    case LVM_INSERTITEMW:
    case LVM_SETITEMW:
    case LVM_GETITEMW:
    case LVM_SETITEMSTATE:
      sent.item = *reinterpret_cast<const LVITEMW*>(lParam);
      break;
    case LVM_INSERTCOLUMNW:
      sent.column = *reinterpret_cast<const LVCOLUMNW*>(lParam);
      break;
    case TVM_INSERTITEMW:
      sent.treeParent = reinterpret_cast<const TVINSERTSTRUCTW*>(lParam)->hParent;
      sent.insertAfter = reinterpret_cast<const TVINSERTSTRUCTW*>(lParam)->hInsertAfter;
      sent.treeItem = reinterpret_cast<const TVINSERTSTRUCTW*>(lParam)->item;
      break;
    case TVM_SETITEMW:
      sent.treeItem = *reinterpret_cast<const TVITEMW*>(lParam);
      break;
    default:
      break;
  }
  const bool writesRow = message == LVM_INSERTITEMW || message == LVM_SETITEMW;
  const WCHAR* text = writesRow ? sent.item.pszText : sent.treeItem.pszText;
  if (text) sent.text = text;
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
