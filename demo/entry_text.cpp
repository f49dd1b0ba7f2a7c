#include "entry_text.h"

#include <windows.h>

#include <array>
#include <cwchar>

namespace demo {

std::wstring SizeText(const Entry& entry) {
  if (entry.directory) return {};
  std::wstring digits = std::to_wstring(entry.size);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, 1, L',');
  return digits;
}

std::wstring TimeText(const Entry& entry) {
  if (entry.modified == 0) return {};
  const FILETIME utc{static_cast<DWORD>(entry.modified), static_cast<DWORD>(entry.modified >> 32)};
  SYSTEMTIME utcTime{};
  SYSTEMTIME local{};
  if (!FileTimeToSystemTime(&utc, &utcTime) ||
      !SystemTimeToTzSpecificLocalTime(nullptr, &utcTime, &local)) {
    return {};
  }
  std::array<wchar_t, 24> text{};
  std::swprintf(text.data(), text.size(), L"%04u-%02u-%02u %02u:%02u", local.wYear, local.wMonth,
                local.wDay, local.wHour, local.wMinute);
  return text.data();
}

std::wstring TipText(const DirectoryModel& model, EntryIndex index) {
  const Entry& entry = model.At(index);
  std::wstring text = model.PathOf(index);
  const std::wstring size = SizeText(entry);
  const std::wstring time = TimeText(entry);
  if (!size.empty()) text += L"\r\n" + size + L" bytes";
  if (!time.empty()) text += L"\r\nmodified " + time;
  if (!entry.readable) text += L"\r\ncannot be read";
  return text;
}

}  // namespace demo
