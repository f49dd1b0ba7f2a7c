#pragma once

#include <windows.h>

#include <memory>

#ifdef VORNUTIL_BUILD
#define VORNUTIL_API __declspec(dllexport)
#else
#define VORNUTIL_API __declspec(dllimport)
#endif

namespace VornSDK {
namespace Util {

// Sets the process up for the host's language pack. This library has none and does nothing.
VORNUTIL_API void UseLanguagePackLocale();

// A wide text that callers may write to. No operation throws. Without memory for a copy,
// dataForWrite() returns null.
class VORNUTIL_API WStr {
 public:
  WStr(const WStr& other) noexcept;
  WStr& operator=(const WStr& other) noexcept;
  ~WStr();

  // Copies `length` characters of `text`, or all up to its terminator when `length` is -1.
  static WStr FromVCHAR(const WCHAR* text, int length) noexcept;

  // The terminated text, with room for `length` characters or, for -1, for those it has. Null when
  // there is no text or no memory.
  WCHAR* dataForWrite(int length) noexcept;

 private:
  WStr() noexcept;

  std::unique_ptr<WCHAR[]> data;
  int size = 0;
};

}  // namespace Util
}  // namespace VornSDK
