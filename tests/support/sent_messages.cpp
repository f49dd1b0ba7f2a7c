#include "support/sent_messages.h"

#include <algorithm>
#include <iterator>

namespace {

SentMessages* current = nullptr;

bool WritesText(UINT message) { return message == LVM_INSERTITEMW || message == LVM_SETITEMW; }

bool CarriesItem(UINT message) {
  return WritesText(message) || message == LVM_GETITEMW || message == LVM_SETITEMSTATE;
}

void CopyTreeItem(SentMessage& sent, const TVITEMW& item) {
  sent.treeItem = item;
  if ((item.mask & TVIF_TEXT) && item.pszText) sent.text = item.pszText;
}

SentMessage Copy(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  SentMessage sent = {};
  sent.window = window;
  sent.message = message;
  sent.wParam = wParam;
  sent.lParam = lParam;
  if (CarriesItem(message)) sent.item = *reinterpret_cast<const LVITEMW*>(lParam);
  if (message == LVM_INSERTCOLUMNW) sent.column = *reinterpret_cast<const LVCOLUMNW*>(lParam);
  if (WritesText(message) && sent.item.pszText) sent.text = sent.item.pszText;
  if (message == TVM_SETITEMW) CopyTreeItem(sent, *reinterpret_cast<const TVITEMW*>(lParam));
  if (message == TVM_INSERTITEMW) {
    const auto& insert = *reinterpret_cast<const TVINSERTSTRUCTW*>(lParam);
    sent.treeParent = insert.hParent;
    sent.insertAfter = insert.hInsertAfter;
    CopyTreeItem(sent, insert.item);
  }
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
  SentMessages& spy = *current;
  spy.all.push_back(Copy(window, message, wParam, lParam));
  const auto answer = spy.answers.find(message);
  return answer != spy.answers.end() ? answer->second
                                     : SendMessageW(window, message, wParam, lParam);
}
