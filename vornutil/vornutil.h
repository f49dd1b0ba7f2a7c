#ifndef VORNUTIL_H
#define VORNUTIL_H

#include <windows.h>

#include <memory>

#ifdef VORNUTIL_BUILD
#define VORNUTIL_API __declspec(dllexport)
#else
#define VORNUTIL_API __declspec(dllimport)
#endif

namespace VornSDK {
namespace Util {

// Sets the process up for the host's language pack. Here there is none, so this does nothing.
VORNUTIL_API void UseLanguagePackLocale();

// A wide text that callers may write into. No operation throws: a text that could not be copied
// gives null from dataForWrite().
class VORNUTIL_API WStr {
 public:
  WStr() noexcept;
  WStr(const WStr& other) noexcept;
  WStr(WStr&& other) noexcept;
  WStr& operator=(const WStr& other) noexcept;
  WStr& operator=(WStr&& other) noexcept;
  ~WStr();

  // Copies `length` characters of `text`, or all up to its terminator when `length` is -1.
  static WStr FromVCHAR(const WCHAR* text, int length) noexcept;

  // The terminated text, with room for `length` characters or, for -1, for those it has. Null when
  // there is no text or no memory.
  WCHAR* dataForWrite(int length) noexcept;

 private:
  std::unique_ptr<WCHAR[]> data;
  int size = 0;
};

}  // namespace Util
}  // namespace VornSDK

#endif
