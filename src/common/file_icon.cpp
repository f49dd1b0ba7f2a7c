#include "common/file_icon.h"

#include <shellapi.h>

#include <string_view>

namespace {

using TextView = std::basic_string_view<WCHAR>;

constexpr int kBaseNameOnly = 1;               // record type
constexpr std::size_t kLongestName = 260 - 1;  // characters that the shell takes, less the null
constexpr UINT kIconByName = SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES;

FileIcon AskShell(const WCHAR* name) {
  SHFILEINFOW info{};
  const DWORD_PTR list =
      SHGetFileInfoW(name, FILE_ATTRIBUTE_NORMAL, &info, sizeof info, kIconByName);
  return {reinterpret_cast<HIMAGELIST>(list), list ? info.iIcon : 0};
}

// The part after the drive and the last directory.
TextView BaseName(TextView path) {
  if (path.size() > 1 && path[1] == TEXT(':')) path.remove_prefix(2);
  const std::size_t separator = path.find_last_of(TEXT("\\/"));
  if (separator != TextView::npos) path.remove_prefix(separator + 1);
  return path;
}

std::size_t ExtensionLength(TextView path) {
  const TextView name = BaseName(path);
  const std::size_t dot = name.rfind(TEXT('.'));
  return dot == TextView::npos ? 0 : name.size() - dot;
}

bool IsLowSurrogate(WCHAR character) { return character >= 0xDC00 && character <= 0xDFFF; }

// The longest end of the name that the shell takes, cut between characters.
TextView EndOfName(TextView name) {
  name.remove_prefix(name.size() - kLongestName);
  if (IsLowSurrogate(name.front())) name.remove_prefix(1);
  return name;
}

}  // namespace

FileIcon IconOfNewItem(const QVLTreeViewItem& item) {
  TextView name = item.GetFileName();
  if (item.GetType() == kBaseNameOnly) name = BaseName(name);
  if (name.size() > kLongestName) {
    if (ExtensionLength(name) > kLongestName) return {};
    name = EndOfName(name);
  }
  return AskShell(name.data());  // null-terminated: every part ends where the record's text ends
}

FileIcon IconOfItem(const QVLTreeViewItem& item) { return AskShell(item.GetFileName()); }

HIMAGELIST SystemIconList() { return AskShell(TEXT("*.exe")).systemList; }
