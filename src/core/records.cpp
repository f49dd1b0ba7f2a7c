#include "core/qvl_records.h"

#include <exception>

namespace {

constexpr std::uint32_t kBold = 0x1;
constexpr std::uint32_t kSelected = 0x2;
constexpr std::uint32_t kChecked = 0x4;
constexpr std::uint32_t kCut = 0x8;

// A text that cannot be copied leaves the field empty. The field keeps its memory for the next
// text, because a host fills one record again and again. `text` may be a part of the field.
void CopyText(std::basic_string<WCHAR>& field, const WCHAR* text) noexcept {
  try {
    field.assign(text ? text : TEXT(""));
  } catch (const std::exception&) {
    field.clear();
  }
}

std::uint32_t WithFlag(std::uint32_t flags, std::uint32_t bit, bool value) noexcept {
  return value ? flags | bit : flags & ~bit;
}

}  // namespace

QVLTreeViewItem::QVLTreeViewItem() noexcept = default;
QVLTreeViewItem::~QVLTreeViewItem() = default;

void QVLTreeViewItem::SetType(int value) noexcept { type = value; }
int QVLTreeViewItem::GetType() const noexcept { return type; }

const WCHAR* QVLTreeViewItem::GetItemName() const noexcept { return itemName.c_str(); }
void QVLTreeViewItem::SetItemName(const WCHAR* name) noexcept { CopyText(itemName, name); }

const WCHAR* QVLTreeViewItem::GetFileName() const noexcept { return fileName.c_str(); }
void QVLTreeViewItem::SetFileName(const WCHAR* name) noexcept { CopyText(fileName, name); }

void QVLTreeViewItem::SetSelected(bool value) noexcept {
  flags = WithFlag(flags, kSelected, value);
}
bool QVLTreeViewItem::IsSelected() const noexcept { return (flags & kSelected) != 0; }

void QVLTreeViewItem::SetChecked(bool value) noexcept { flags = WithFlag(flags, kChecked, value); }
bool QVLTreeViewItem::IsChecked() const noexcept { return (flags & kChecked) != 0; }

void QVLTreeViewItem::SetCut(bool value) noexcept { flags = WithFlag(flags, kCut, value); }
bool QVLTreeViewItem::IsCut() const noexcept { return (flags & kCut) != 0; }

void QVLTreeViewItem::SetImageIndex(int index) noexcept { imageIndex = index; }
int QVLTreeViewItem::GetImageIndex() const noexcept { return imageIndex; }

void QVLTreeViewItem::SetStateIndex(int index) noexcept { stateIndex = index; }
int QVLTreeViewItem::GetStateIndex() const noexcept { return stateIndex; }

std::int64_t QVLTreeViewItem::GetClientPtr() const noexcept { return clientPtr; }
void QVLTreeViewItem::SetClientPtr(std::int64_t value) noexcept { clientPtr = value; }

void QVLTreeViewItem::SetBold(bool value) noexcept { flags = WithFlag(flags, kBold, value); }
bool QVLTreeViewItem::IsBold() const noexcept { return (flags & kBold) != 0; }

int QVLTreeViewItem::GetSubItem() const noexcept { return subItem; }
void QVLTreeViewItem::SetSubItem(int value) noexcept { subItem = value; }

int QVLTreeViewItem::GetIndentOffset() const noexcept { return indentOffset; }
void QVLTreeViewItem::SetIndentOffset(int offset) noexcept { indentOffset = offset; }

QVLTreeViewStyleExt::QVLTreeViewStyleExt() noexcept = default;
QVLTreeViewStyleExt::~QVLTreeViewStyleExt() = default;

void QVLTreeViewStyleExt::SetStyle(std::uint32_t value) noexcept { style = value; }
std::uint32_t QVLTreeViewStyleExt::GetStyle() const noexcept { return style; }

void QVLTreeViewStyleExt::SetStyleEx(std::uint32_t value) noexcept { styleEx = value; }
std::uint32_t QVLTreeViewStyleExt::GetStyleEx() const noexcept { return styleEx; }

void QVLTreeViewStyleExt::SetStyleExCtrl(std::uint32_t value) noexcept { styleExCtrl = value; }
std::uint32_t QVLTreeViewStyleExt::GetStyleExCtrl() const noexcept { return styleExCtrl; }
