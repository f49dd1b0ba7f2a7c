#include "status_line.h"

#include "window_base.h"

namespace demo {
namespace {

constexpr std::size_t kMostCounted = 1000;  // counting takes too long for many more items

std::wstring CountsOf(const DirectoryModel& model, IQVLTreeView& view) {
  std::wstring text = std::to_wstring(model.Count()) + L" entries";
  if (model.IsCutShort()) text += L" (not all)";
  if (const std::size_t unreadable = model.UnreadableCount()) {
    text += L"    " + std::to_wstring(unreadable) + L" cannot be read";
  }
  if (model.Count() <= kMostCounted) {
    text += L"    " + std::to_wstring(view.GetSelectedCount()) + L" selected";
    text += L"    " + std::to_wstring(view.GetCheckedCount()) + L" checked";
  }
  return text;
}

}  // namespace

bool StatusLine::Create(HWND parent) {
  label = MakeLabel(parent, L"");
  return label != nullptr;
}

void StatusLine::Move(const RECT& area) { MoveTo(label, area); }

void StatusLine::Update(const DirectoryModel& model, IQVLTreeView& view) {
  const std::wstring text = CountsOf(model, view);
  if (text != counts) notice.clear();
  counts = text;
  const std::wstring wanted = notice.empty() ? counts : counts + L"    " + notice;
  if (wanted == shown) return;
  shown = wanted;
  SetWindowTextW(label, shown.c_str());
}

}  // namespace demo
