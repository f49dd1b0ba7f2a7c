#include "paths.h"

#include <windows.h>

namespace demo {
namespace {

constexpr std::wstring_view kPrefix = L"\\\\?\\";
constexpr std::wstring_view kShare = L"\\\\";
constexpr std::wstring_view kSharePrefix = L"\\\\?\\UNC\\";

std::wstring WithoutPrefix(std::wstring_view path) {
  if (path.starts_with(kSharePrefix)) {
    return std::wstring(kShare).append(path.substr(kSharePrefix.size()));
  }
  if (path.starts_with(kPrefix)) path.remove_prefix(kPrefix.size());
  return std::wstring(path);
}

}  // namespace

std::wstring FullPath(std::wstring_view path) {
  const std::wstring plain = WithoutPrefix(path);
  std::wstring full(GetFullPathNameW(plain.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(
      GetFullPathNameW(plain.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  const bool isRoot = full.size() <= 3;
  if (!isRoot && full.back() == L'\\') full.pop_back();
  return full;
}

std::wstring LongPath(std::wstring_view fullPath) {
  if (fullPath.starts_with(kShare)) {
    return std::wstring(kSharePrefix).append(fullPath.substr(kShare.size()));
  }
  return std::wstring(kPrefix).append(fullPath);
}

std::wstring Join(std::wstring_view folder, std::wstring_view name) {
  std::wstring path(folder);
  if (!path.ends_with(L'\\')) path += L'\\';
  return path.append(name);
}

std::wstring FileName(std::wstring_view path) {
  const std::size_t separator = path.rfind(L'\\');
  const bool isRoot = separator == path.npos || separator + 1 == path.size();
  return std::wstring(isRoot ? path : path.substr(separator + 1));
}

}  // namespace demo
