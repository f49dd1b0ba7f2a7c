#include "vornutil.h"

#include <algorithm>
#include <new>
#include <string>

namespace VornSDK {
namespace Util {
namespace {

// Copies `length` characters of `text` to a terminated block for `capacity` characters. Null
// without memory.
std::unique_ptr<WCHAR[]> Copy(const WCHAR* text, int length, int capacity) noexcept {
  const auto size = static_cast<std::size_t>(capacity) + 1;
  std::unique_ptr<WCHAR[]> copy(new (std::nothrow) WCHAR[size]());
  if (copy) std::copy_n(text, length, copy.get());
  return copy;
}

}  // namespace

void UseLanguagePackLocale() {}

WStr::WStr() noexcept = default;
WStr::~WStr() = default;

WStr::WStr(const WStr& other) noexcept { *this = other; }

WStr& WStr::operator=(const WStr& other) noexcept {
  if (this != &other) {
    data = other.data ? Copy(other.data.get(), other.size, other.size) : nullptr;
    size = data ? other.size : 0;
  }
  return *this;
}

WStr WStr::FromVCHAR(const WCHAR* text, int length) noexcept {
  WStr result;
  if (text) {
    const int count = length < 0 ? static_cast<int>(std::char_traits<WCHAR>::length(text)) : length;
    result.data = Copy(text, count, count);
    result.size = result.data ? count : 0;
  }
  return result;
}

WCHAR* WStr::dataForWrite(int length) noexcept {
  if (data && length > size) {
    data = Copy(data.get(), size, length);
    size = data ? length : 0;
  }
  return data.get();
}

}  // namespace Util
}  // namespace VornSDK
