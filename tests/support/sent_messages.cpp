#include "support/sent_messages.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

SentMessages* current = nullptr;

template <class Record>
void Read(Record& record, LPARAM lParam) {
  record = *reinterpret_cast<const Record*>(lParam);
}

SentMessage Copy(UINT message, WPARAM wParam, LPARAM lParam) {
  SentMessage sent = {message, wParam, lParam, {}, {}, {}, {}, {}};
  switch (message) {
    case LVM_INSERTITEMW:
    case LVM_SETITEMW:
    case LVM_SETITEMSTATE:
      Read(sent.item, lParam);
      break;
    case LVM_INSERTCOLUMNW:
      Read(sent.column, lParam);
      break;
    case TVM_INSERTITEMW:
      Read(sent.insertion, lParam);
      sent.treeItem = sent.insertion.item;
      break;
    case TVM_SETITEMW:
      Read(sent.treeItem, lParam);
      break;
    default:
      break;
  }
  if (const TVITEMW& item = sent.treeItem; item.mask) {
    sent.item.mask = item.mask;
    sent.item.state = item.state;
    sent.item.stateMask = item.stateMask;
    sent.item.pszText = item.pszText;
    sent.item.iImage = item.iImage;
    sent.item.lParam = item.lParam;
  }
  if (sent.item.pszText) sent.text = sent.item.pszText;
  return sent;
}

}  // namespace

SentMessages::SentMessages() : outer(std::exchange(current, this)) {}

SentMessages::~SentMessages() { current = outer; }

std::vector<SentMessage> SentMessages::Of(UINT message) const {
  std::vector<SentMessage> found;
  std::copy_if(all.begin(), all.end(), std::back_inserter(found),
               [=](const SentMessage& sent) { return sent.message == message; });
  return found;
}

LRESULT WINAPI SentMessages::Relay(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  current->all.push_back(Copy(message, wParam, lParam));
  const auto answer = current->answers.find(message);
  return answer != current->answers.end() ? answer->second
                                          : SendMessageW(window, message, wParam, lParam);
}
