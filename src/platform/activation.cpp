#include "platform/activation.h"

#include "platform/activation_context.h"

#include <bit>

namespace activated {
namespace {

// Runs one call in the library's context.
template <typename Result, typename Call>
Result InLibraryContext(Result failure, Call call) {
  activation::LastErrorOfFailure lastError;
  const activation::LibraryContext context;
  if (!context.IsActive()) return failure;

  const Result result = call();
  if (result == failure) lastError.Keep();
  return result;
}

template <typename Signature>
class LookedUp;

// One function of the common controls, looked up until it is found.
template <typename Result, typename... Arguments>
class LookedUp<Result(Arguments...)> {
 public:
  constexpr LookedUp(const char* exportedName, Result failureValue)
      : name(exportedName), failure(failureValue) {}

  Result operator()(Arguments... arguments) {
    return InLibraryContext(failure, [&] {
      if (!found) found = std::bit_cast<Function*>(activation::GetCommonControlsProc(name));
      return found ? found(arguments...) : failure;
    });
  }

 private:
  using Function = Result(Arguments...);

  const char* name;
  Result failure;
  Function* found = nullptr;
};

constinit LookedUp<decltype(::ImageList_Create)> create{"ImageList_Create", nullptr};
constinit LookedUp<decltype(::ImageList_Destroy)> destroy{"ImageList_Destroy", FALSE};
constinit LookedUp<decltype(::ImageList_GetIcon)> getIcon{"ImageList_GetIcon", nullptr};
constinit LookedUp<decltype(::ImageList_GetIconSize)> getIconSize{"ImageList_GetIconSize", FALSE};
constinit LookedUp<decltype(::ImageList_GetImageCount)> getImageCount{"ImageList_GetImageCount", 0};
constinit LookedUp<decltype(::ImageList_Remove)> removeImage{"ImageList_Remove", FALSE};
constinit LookedUp<decltype(::ImageList_ReplaceIcon)> replaceIcon{"ImageList_ReplaceIcon", -1};
constinit LookedUp<decltype(::ImageList_SetBkColor)> setBkColor{"ImageList_SetBkColor", 0};

}  // namespace

HWND CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                     int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                     LPVOID parameter) {
  return InLibraryContext(HWND{}, [&] {
    return ::CreateWindowExW(exStyle, className, title, style, x, y, width, height, parent, menu,
                             instance, parameter);
  });
}

ATOM RegisterClassW(const WNDCLASSW* windowClass) {
  return InLibraryContext(ATOM{}, [&] { return ::RegisterClassW(windowClass); });
}

HIMAGELIST ImageList_Create(int width, int height, UINT flags, int initialSize, int growth) {
  return create(width, height, flags, initialSize, growth);
}

BOOL ImageList_Destroy(HIMAGELIST list) { return destroy(list); }

HICON ImageList_GetIcon(HIMAGELIST list, int index, UINT flags) {
  return getIcon(list, index, flags);
}

BOOL ImageList_GetIconSize(HIMAGELIST list, int* width, int* height) {
  return getIconSize(list, width, height);
}

int ImageList_GetImageCount(HIMAGELIST list) { return getImageCount(list); }

BOOL ImageList_Remove(HIMAGELIST list, int index) { return removeImage(list, index); }

int ImageList_ReplaceIcon(HIMAGELIST list, int index, HICON icon) {
  return replaceIcon(list, index, icon);
}

COLORREF ImageList_SetBkColor(HIMAGELIST list, COLORREF color) { return setBkColor(list, color); }

}  // namespace activated
